// Datasets on rows in memory, natively; the same runs under Windows.

#include "tests/support/datasetstory.h"
