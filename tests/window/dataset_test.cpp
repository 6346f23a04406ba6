// Datasets on rows in memory, under Windows; the same runs natively.

#include "tests/support/datasetstory.h"
