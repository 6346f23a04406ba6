#pragma once

// Packages: libraries of components that a host loads while it runs, such as a designer does with what a person
// installs. A package is a DLL with this line in one of its sources, which links to the same framework DLL as its host:
//
//     FRAMEWORK_PACKAGE(RegisterMyComponents);

#include "framework/graphics/win32.h"
#include "framework/system/components.h"
#include "framework/system/version.h"

namespace framework {

/// A package that cannot be loaded or unloaded; the text names it and the reason.
class EPackageError : public Exception {
public:
    using Exception::Exception;
};

/// Loads a package (LoadLibraryEx; a bare name is sought beside the program, and beside a path also what the package
/// needs) and has it register its classes: the palette and text forms know them from then on. A package that is loaded
/// already is counted only. Versions are those of releases: between them host and packages come from one build.
/// EPackageError when there is no such file, when it is no package, and when it was built with another version of the
/// framework or holds a framework of its own; nothing stays registered then.
HMODULE LoadPackage(const String& name);

/// Takes a package's classes back, also those of windows, and frees it (FreeLibrary), if it was unloaded as often as
/// loaded. EPackageError, and nothing is changed, while components live whose classes, or their ancestors, come from
/// the package, and when the module was not loaded by LoadPackage. No other thread may make or free components
/// meanwhile.
///
/// Only components are counted. A host lets go of what else it has of the package before: events of the application
/// that lead into it, sub-objects that it made by itself, exceptions that it keeps, and TClassInfo pointers taken from
/// the palette. An object that an assistive program still holds for a list of choices is not counted either.
void UnloadPackage(HMODULE package);

/// What a package tells of itself.
struct TPackageEntry {
    const char* Version;                  ///< FrameworkVersion as the package was built with
    const TClassInfo& (*FrameworkRoot)(); ///< TComponent's class as the package sees it
    void (*RegisterComponents)();
};

} // namespace framework

/// The name under which a package exports its TPackageEntry.
#define FRAMEWORK_PACKAGE_ENTRY "FrameworkPackage"

/// Makes a DLL a package: `registerComponents` is a function without arguments that registers its classes.
#define FRAMEWORK_PACKAGE(registerComponents)                                                                          \
    extern "C" __declspec(dllexport) const ::framework::TPackageEntry FrameworkPackage;                                \
    const ::framework::TPackageEntry FrameworkPackage {                                                                \
        ::framework::FrameworkVersion, &::framework::TComponent::StaticClass, registerComponents                       \
    }
