#pragma once

#include "framework/graphics/win32.h"
#include "framework/system/exceptions.h"
#include "framework/system/strings.h"

#include <utility>

namespace framework {

/// A function of one of Windows' DLLs that few programs call, so that the others start without it: LoadLibraryEx and
/// GetProcAddress at the first call. The DLL stays loaded.
///
///     const TLateFunction<decltype(::LresultFromObject)> lresultFromObject(L"oleacc.dll", "LresultFromObject");
template <typename Function>
class TLateFunction {
public:
    constexpr TLateFunction(const wchar_t* module, const char* name) : FModule(module), FName(name) {}

    /// Raises EInvalidOperation when this Windows does not have the function.
    template <typename... Arguments>
    auto operator()(Arguments&&... arguments) const {
        if (!FFunction)
            FFunction = Find();
        return FFunction(std::forward<Arguments>(arguments)...);
    }

private:
    Function* Find() const {
        const HMODULE module = LoadLibraryExW(FModule, nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
        auto* found =
            module ? reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(module, FName))) : nullptr;
        if (!found)
            throw EInvalidOperation(u"This Windows has no " + Utf8Decode(FName) + u" in " +
                                    FromWide(FModule, std::wcslen(FModule)));
        return found;
    }

    const wchar_t* FModule;
    const char* FName;
    mutable Function* FFunction = nullptr;
};

} // namespace framework
