#pragma once

// Packages: libraries of components that a host loads while it runs, such as a designer does with what a person
// installs. A package is a DLL with this line in one of its sources, which links to the same framework DLL as its host:
//
//     FRAMEWORK_PACKAGE(RegisterMyComponents);

#include "framework/graphics/win32.h"
#include "framework/system/components.h"
#include "framework/system/version.h"

// The digest of the installed headers. The CMake targets of the shared libraries bring it along.
#ifndef FRAMEWORK_HEADERS
#define FRAMEWORK_HEADERS ""
#endif

namespace framework {

/// A package that cannot be loaded or unloaded; the text names it and the reason.
class EPackageError : public Exception {
public:
    using Exception::Exception;
};

/// Loads a package (LoadLibraryEx; a bare name is sought beside the program, and beside a path also what the package
/// needs) and has it register its classes: the palette and text forms know them from then on. A package that is loaded
/// already is counted only. Called on the thread that runs the application.
/// EPackageError when there is no such file, when it is no package, when it was built with another version or other
/// headers of the framework and the library, or holds a framework of its own; nothing of it stays registered then.
HMODULE LoadPackage(const String& name);

/// Takes a package's classes back, also those of windows, and frees it (FreeLibrary), if it was unloaded as often as
/// loaded. EPackageError, and nothing is changed, while components live whose classes, or their ancestors, come from
/// the package, and when the module was not loaded by LoadPackage. Called on the thread that runs the application; no
/// other thread may be making or freeing components of the package.
///
/// Only components are counted. A host lets go of what else it has of the package before: events of the application
/// that lead into it, sub-objects that it made by itself, exceptions that it keeps, and TClassInfo pointers taken from
/// the palette. What an assistive program still holds of a window keeps the file in memory until it lets go of it.
void UnloadPackage(HMODULE package);

struct TPackage {
    HMODULE Module = nullptr;
    String Name;     ///< as LoadPackage was told
    String FileName; ///< with its folder
};
/// The loaded packages, the first one first. Application->OnPaletteChange tells when there are others.
std::vector<TPackage> LoadedPackages();
/// The loaded package whose code a class is; null for a class of the program itself.
HMODULE PackageOf(const TClassInfo& info);

/// The file of a module, with its folder (GetModuleFileName); of the program for null.
String ModuleFileName(HMODULE module);

/// What a package tells of itself.
struct TPackageEntry {
    const char* Version;                  ///< FrameworkVersion as the package was built with
    const char* Headers;                  ///< FRAMEWORK_HEADERS likewise
    const TClassInfo& (*FrameworkRoot)(); ///< TComponent's class as the package sees it
    void (*RegisterComponents)();
};

} // namespace framework

/// The name under which a package exports its TPackageEntry.
#define FRAMEWORK_PACKAGE_ENTRY "FrameworkPackageEntry"

/// Makes a DLL a package: `registerComponents` is a function without arguments that registers its classes.
#define FRAMEWORK_PACKAGE(registerComponents)                                                                          \
    extern "C" __declspec(dllexport) const ::framework::TPackageEntry FrameworkPackageEntry;                           \
    const ::framework::TPackageEntry FrameworkPackageEntry {                                                           \
        ::framework::FrameworkVersion, FRAMEWORK_HEADERS, &::framework::TComponent::StaticClass, registerComponents    \
    }
