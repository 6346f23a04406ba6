// What makes the library's DLL a package.

#include "foundation/Zorpackage.h"
#include "framework/windows/packages.h"

FRAMEWORK_PACKAGE(ZOR::RegisterPackage);
