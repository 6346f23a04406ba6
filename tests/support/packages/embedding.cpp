// A package that was linked to the static library: it holds a framework of its own.

#include "framework/windows/packages.h"

FRAMEWORK_PACKAGE([] {});
