#pragma once

// The one place that includes <windows.h>, and the way between the framework's types and those of Win32. Methods that
// bear the name of a Win32 text function (TextOut) go by the W name that the UNICODE macros give them; every user of
// such a class has seen this header and agrees.

#if defined(_WINDOWS_) && !defined(UNICODE)
#error "windows.h was included without UNICODE before a framework header"
#endif
#ifndef UNICODE
#define UNICODE
#endif
#ifndef _UNICODE
#define _UNICODE
#endif
#ifndef NOMINMAX
#define NOMINMAX
#endif
#ifndef STRICT
#define STRICT
#endif
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif

#include <windows.h>

#include "framework/system/exceptions.h"
#include "framework/system/types.h"

namespace framework {

static_assert(sizeof(wchar_t) == sizeof(char16_t), "Win32 keeps text as UTF-16");

/// The text as a W function takes it, zero-terminated; valid as long as the string is unchanged.
inline const wchar_t* WideChars(const String& text) {
    return reinterpret_cast<const wchar_t*>(text.c_str());
}
/// The same as a buffer of text.size() characters for a W function to fill.
inline wchar_t* WideChars(String& text) {
    return reinterpret_cast<wchar_t*>(text.data());
}
/// The characters of a view, for functions that take a length: they are not zero-terminated.
inline const wchar_t* WideData(StringView text) {
    return reinterpret_cast<const wchar_t*>(text.data());
}
inline String FromWide(const wchar_t* text, std::size_t length) {
    return String(text, text + length);
}
/// A zero-terminated text; null gives an empty one.
inline String FromWide(const wchar_t* text) {
    return text ? FromWide(text, std::char_traits<wchar_t>::length(text)) : String();
}

inline RECT ToWin(const TRect& rect) {
    return {rect.Left, rect.Top, rect.Right, rect.Bottom};
}
inline TRect FromWin(const RECT& rect) {
    return {static_cast<std::int32_t>(rect.left), static_cast<std::int32_t>(rect.top),
            static_cast<std::int32_t>(rect.right), static_cast<std::int32_t>(rect.bottom)};
}
inline POINT ToWin(TPoint point) {
    return {point.X, point.Y};
}
inline TPoint FromWin(POINT point) {
    return {static_cast<std::int32_t>(point.x), static_cast<std::int32_t>(point.y)};
}
inline SIZE ToWin(TSize size) {
    return {size.Width, size.Height};
}
inline TSize FromWin(SIZE size) {
    return {static_cast<std::int32_t>(size.cx), static_cast<std::int32_t>(size.cy)};
}

/// A Win32 function that failed, with the code that GetLastError gave.
class EOSError : public Exception {
public:
    explicit EOSError(DWORD errorCode);
    DWORD GetErrorCode() const { return FErrorCode; }

private:
    DWORD FErrorCode;
};

/// No handle was to be had: the process or the system has run out of them, or of memory.
class EOutOfResources : public Exception {
public:
    using Exception::Exception;
};

/// The system's words for an error code, without a line end; "Error n" when it has none.
String SysErrorMessage(DWORD errorCode);
/// Raises EOSError for GetLastError().
[[noreturn]] void RaiseLastOSError();
/// Passes a result through unless it is zero or null, which becomes EOSError.
template <class TResult>
TResult Win32Check(TResult result) {
    if (!result)
        RaiseLastOSError();
    return result;
}

} // namespace framework
