// What makes the library's DLL a package.

#include "framework/windows/packages.h"
#include "package/Zorpackage.h"

FRAMEWORK_PACKAGE(ZOR::RegisterPackage);
