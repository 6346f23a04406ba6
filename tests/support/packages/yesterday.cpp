// A package of yesterday's build: the version is the same, but the headers have changed since.

#include "framework/windows/packages.h"

#undef FRAMEWORK_HEADERS
#define FRAMEWORK_HEADERS "yesterday's"

FRAMEWORK_PACKAGE([] {});
