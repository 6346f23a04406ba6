#include "framework/windows/packages.h"

#include "framework/system/numbers.h"
#include "framework/system/strings.h"
#include "framework/windows/windowclasses.h"

#include <algorithm>
#include <cstring>
#include <map>
#include <memory>
#include <optional>

namespace framework {

namespace {

struct TLoadedPackage {
    String Name;
    std::vector<const TClassInfo*> Others; ///< its classes that somebody else had registered before
    int Uses = 1;
};

std::map<HMODULE, TLoadedPackage>& Packages() {
    static std::map<HMODULE, TLoadedPackage> packages;
    return packages;
}

struct TFreeModule {
    using pointer = HMODULE;
    void operator()(HMODULE module) const { FreeLibrary(module); }
};
using TModule = std::unique_ptr<HMODULE, TFreeModule>;

bool LiesIn(const TClassInfo& info, HMODULE package) {
    HMODULE module = nullptr;
    return GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                              reinterpret_cast<LPCWSTR>(&info), &module) &&
           module == package;
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

} // namespace

HMODULE LoadPackage(const String& name) {
    // Bare names are sought beside the program; what a package needs may lie beside the package.
    const bool isPath = name.find_first_of(u"\\/") != String::npos;
    const String file = isPath ? FullPath(name) : name;
    const DWORD places = LOAD_LIBRARY_SEARCH_DEFAULT_DIRS | (isPath ? LOAD_LIBRARY_SEARCH_DLL_LOAD_DIR : 0);
    TModule module(LoadLibraryExW(WideChars(file), nullptr, places));
    if (const DWORD error = GetLastError(); !module)
        CannotLoad(name, SysErrorMessage(error));
    const HMODULE package = module.get();
    if (const auto loaded = Packages().find(package); loaded != Packages().end()) {
        ++loaded->second.Uses;
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
    Packages().emplace(package, TLoadedPackage{name, others});
    return module.release();
}

void UnloadPackage(HMODULE package) {
    const auto loaded = Packages().find(package);
    if (loaded == Packages().end())
        throw EPackageError(u"The module to unload is not a loaded package");
    if (loaded->second.Uses == 1) {
        std::vector<TComponent*> living = LivingComponents();
        std::erase_if(living, [&](const TComponent* each) { return !NeedsPackage(*each, package); });
        if (!living.empty()) {
            String text = u"Package " + loaded->second.Name + u" cannot be unloaded while its components live: " +
                          NameForMessage(*living.front());
            if (living.size() > 1)
                text += u" and " + IntToStr(static_cast<int>(living.size() - 1)) + u" more";
            throw EPackageError(text);
        }
        UnRegisterClassesOf(package, loaded->second.Others);
        UnregisterWindowClasses([&](const TClassInfo& owner) { return LiesIn(owner, package); });
        Packages().erase(loaded);
    } else {
        --loaded->second.Uses;
    }
    FreeLibrary(package);
}

} // namespace framework
