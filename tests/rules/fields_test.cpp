// Fields and narrowed datasets, natively; the same runs under Windows.

#include "tests/support/fieldstory.h"
#include "tests/support/narrowedstory.h"
