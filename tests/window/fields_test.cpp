// Fields and narrowed datasets, under Windows; the same runs natively.

#include "tests/support/fieldstory.h"
#include "tests/support/narrowedstory.h"
