#include "framework/windows/packages.h"

#include "framework/system/numbers.h"
#include "framework/system/strings.h"
#include "framework/windows/application.h"
#include "framework/windows/windowclasses.h"

#include <algorithm>
#include <cstring>
#include <memory>
#include <optional>

namespace framework {

namespace {

struct TLoadedPackage : TPackage {
    std::vector<const TClassInfo*> Others; ///< its classes that somebody else had registered before
    int Uses = 1;
};

std::vector<TLoadedPackage>& Packages() {
    static std::vector<TLoadedPackage> packages;
    return packages;
}

auto FindPackage(HMODULE package) {
    return std::ranges::find(Packages(), package, &TPackage::Module);
}

struct TFreeModule {
    using pointer = HMODULE;
    void operator()(HMODULE module) const { FreeLibrary(module); }
};
using TModule = std::unique_ptr<HMODULE, TFreeModule>;

HMODULE ModuleOf(const TClassInfo& info) {
    HMODULE module = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       reinterpret_cast<LPCWSTR>(&info), &module);
    return module;
}

bool LiesIn(const TClassInfo& info, HMODULE package) {
    return ModuleOf(info) == package;
}

bool NeedsPackage(const TComponent& component, HMODULE package) {
    for (const TClassInfo* info = &component.ClassInfo(); info; info = info->Parent())
        if (LiesIn(*info, package))
            return true;
    return false;
}

/// The registered classes whose code is the package's.
std::vector<const TClassInfo*> ClassesOf(HMODULE package) {
    std::vector<const TClassInfo*> classes = RegisteredClasses();
    std::erase_if(classes, [&](const TClassInfo* info) { return !LiesIn(*info, package); });
    return classes;
}

void UnRegisterClassesOf(HMODULE package, const std::vector<const TClassInfo*>& others) {
    for (const TClassInfo* info : ClassesOf(package))
        if (std::ranges::find(others, info) == others.end())
            UnRegisterClasses({info});
}

[[noreturn]] void CannotLoad(const String& name, const String& reason) {
    throw EPackageError(u"Cannot load package " + name + u": " + reason);
}

void CheckEntry(const TPackageEntry* entry, const String& name) {
    if (!entry)
        CannotLoad(name, u"it does not export " FRAMEWORK_PACKAGE_ENTRY);
    if (std::strcmp(entry->Version, FrameworkVersion) != 0)
        CannotLoad(name, u"it was built with version " + Utf8Decode(entry->Version) + u" of the framework, this is " +
                             Utf8Decode(FrameworkVersion));
    if (&entry->FrameworkRoot() != &TComponent::StaticClass())
        CannotLoad(name, u"it holds a framework of its own; link it to the framework's shared library");
    if (std::strcmp(entry->Headers, FRAMEWORK_HEADERS) != 0)
        CannotLoad(name, u"it was built with other headers than the framework; build both from one state of them");
}

String FullPath(const String& name) {
    String path(Win32Check(GetFullPathNameW(WideChars(name), 0, nullptr, nullptr)), u'\0');
    path.resize(
        Win32Check(GetFullPathNameW(WideChars(name), static_cast<DWORD>(path.size()), WideChars(path), nullptr)));
    return path;
}

/// The text of what RegisterComponents raised. The exception itself may be of a class whose code goes with the package.
std::optional<String> Register(const TPackageEntry& entry) {
    try {
        entry.RegisterComponents();
    } catch (const std::exception& exception) {
        return Utf8Decode(exception.what());
    } catch (...) {
        return u"its registration raised something that is no exception";
    }
    return std::nullopt;
}

/// As in "Form1.Edit1 (TZOREdit)".
String NameForMessage(const TComponent& component) {
    String path = component.GetName().empty() ? String(u"(no name)") : component.GetName();
    for (const TComponent* owner = component.Owner; owner && !owner->GetName().empty(); owner = owner->Owner)
        path = owner->GetName() + u"." + path;
    return path + u" (" + component.ClassName() + u")";
}

/// How many components need the package, and one of them as in "Form1.Edit1 (TZOREdit) and 2 more"; empty if none does.
String DescribeLiving(HMODULE package) {
    String first;
    int count = 0;
    EachLivingComponent([&](const TComponent& each) {
        if (NeedsPackage(each, package) && count++ == 0)
            first = NameForMessage(each);
    });
    return count > 1 ? first + u" and " + IntToStr(count - 1) + u" more" : first;
}

/// A handler that raises must not leave half of the work.
void TellOfPalette() {
    try {
        Fire(TheApplication(), TheApplication().OnPaletteChange, &TheApplication());
    } catch (...) {
        TheApplication().HandleException(nullptr);
    }
}

} // namespace

HMODULE LoadPackage(const String& name) {
    // Bare names are sought beside the program; what a package needs may lie beside the package.
    const bool isPath = name.find_first_of(u"\\/") != String::npos;
    const String file = isPath ? FullPath(name) : name;
    const DWORD places = LOAD_LIBRARY_SEARCH_DEFAULT_DIRS | (isPath ? LOAD_LIBRARY_SEARCH_DLL_LOAD_DIR : 0);
    TModule module(LoadLibraryExW(WideChars(file), nullptr, places));
    if (const DWORD error = GetLastError(); !module)
        CannotLoad(name, SysErrorMessage(error) +
                             (error == ERROR_MOD_NOT_FOUND ? u" (the package, or a module that it needs)" : u""));
    const HMODULE package = module.get();
    if (const auto loaded = FindPackage(package); loaded != Packages().end()) {
        ++loaded->Uses;
        return module.release();
    }
    const auto* entry = reinterpret_cast<const TPackageEntry*>(
        reinterpret_cast<void*>(GetProcAddress(package, FRAMEWORK_PACKAGE_ENTRY)));
    CheckEntry(entry, name);
    const std::vector<const TClassInfo*> others = ClassesOf(package);
    if (const std::optional<String> refusal = Register(*entry)) {
        UnRegisterClassesOf(package, others);
        CannotLoad(name, *refusal);
    }
    Packages().push_back({{package, name, ModuleFileName(package)}, others});
    TellOfPalette();
    return module.release();
}

void UnloadPackage(HMODULE package) {
    const auto loaded = FindPackage(package);
    if (loaded == Packages().end())
        throw EPackageError(u"The module to unload is not a loaded package");
    if (loaded->Uses == 1) {
        if (const String living = DescribeLiving(package); !living.empty())
            throw EPackageError(u"Package " + loaded->Name + u" cannot be unloaded while its components live: " +
                                living);
        UnRegisterClassesOf(package, loaded->Others);
        UnregisterWindowClasses([&](const TClassInfo& owner) { return LiesIn(owner, package); });
        Packages().erase(loaded);
        TellOfPalette();
    } else {
        --loaded->Uses;
    }
    FreeLibrary(package);
}

std::vector<TPackage> LoadedPackages() {
    return {Packages().begin(), Packages().end()};
}

HMODULE PackageOf(const TClassInfo& info) {
    const auto loaded = FindPackage(ModuleOf(info));
    return loaded == Packages().end() ? nullptr : loaded->Module;
}

String ModuleFileName(HMODULE module) {
    String path(MAX_PATH, u'\0');
    DWORD length = 0;
    while ((length = GetModuleFileNameW(module, WideChars(path), static_cast<DWORD>(path.size()))) == path.size())
        path.resize(path.size() * 2);
    path.resize(length);
    return path;
}

} // namespace framework
