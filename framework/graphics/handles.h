#pragma once

// Owners of handles: each gives its handle back when it goes out of scope, whatever happened in between.

#include "framework/graphics/win32.h"

#include <utility>

namespace framework {

/// Owns one handle and deletes it with the given Win32 function.
template <class THandle, auto Delete>
class TUniqueHandle {
public:
    TUniqueHandle() = default;
    explicit TUniqueHandle(THandle handle) : FHandle(handle) {}
    TUniqueHandle(TUniqueHandle&& other) noexcept : FHandle(other.Release()) {}
    TUniqueHandle& operator=(TUniqueHandle&& other) noexcept {
        Reset(other.Release());
        return *this;
    }
    ~TUniqueHandle() { Reset(); }

    THandle Get() const { return FHandle; }
    explicit operator bool() const { return FHandle != nullptr; }
    /// Gives the handle out of hand: the caller deletes it.
    THandle Release() { return std::exchange(FHandle, nullptr); }
    void Reset(THandle handle = nullptr) {
        const THandle old = std::exchange(FHandle, handle);
        if (old && old != handle)
            Delete(old);
    }

private:
    THandle FHandle = nullptr;
};

using TUniqueFont = TUniqueHandle<HFONT, ::DeleteObject>;
using TUniquePen = TUniqueHandle<HPEN, ::DeleteObject>;
using TUniqueBrush = TUniqueHandle<HBRUSH, ::DeleteObject>;
using TUniqueBitmap = TUniqueHandle<HBITMAP, ::DeleteObject>;
using TUniqueRegion = TUniqueHandle<HRGN, ::DeleteObject>;
/// A device context in memory (CreateCompatibleDC).
using TUniqueMemoryDC = TUniqueHandle<HDC, ::DeleteDC>;
/// A file, event or other kernel object. Where a function answers INVALID_HANDLE_VALUE, make that null first.
using TUniqueKernelHandle = TUniqueHandle<HANDLE, ::CloseHandle>;
/// Movable memory, as the clipboard takes it.
using TUniqueGlobal = TUniqueHandle<HGLOBAL, ::GlobalFree>;

/// The device context of a window, or of the screen when `window` is null, given back with ReleaseDC.
class TWindowDC {
public:
    enum TPart {
        Client, ///< GetDC
        Whole,  ///< GetWindowDC: with border, caption and scroll bars; its origin is the window's corner
    };

    /// EOutOfResources when the system has none to give.
    explicit TWindowDC(HWND window, TPart part = Client)
        : FWindow(window), FHandle(part == Client ? ::GetDC(window) : ::GetWindowDC(window)) {
        if (!FHandle)
            throw EOutOfResources(u"No device context is to be had");
    }
    /// Takes over a context from GetDCEx.
    TWindowDC(HWND window, HDC handle) : FWindow(window), FHandle(handle) {}
    TWindowDC(const TWindowDC&) = delete;
    TWindowDC& operator=(const TWindowDC&) = delete;
    ~TWindowDC() {
        if (FHandle)
            ::ReleaseDC(FWindow, FHandle);
    }
    operator HDC() const { return FHandle; }

private:
    HWND FWindow;
    HDC FHandle;
};

/// BeginPaint to EndPaint.
class TPaintDC {
public:
    explicit TPaintDC(HWND window) : FWindow(window), FHandle(::BeginPaint(window, &FPaint)) {}
    TPaintDC(const TPaintDC&) = delete;
    TPaintDC& operator=(const TPaintDC&) = delete;
    ~TPaintDC() { ::EndPaint(FWindow, &FPaint); }
    operator HDC() const { return FHandle; }
    /// The part that needs painting, in client coordinates.
    TRect Area() const { return FromWin(FPaint.rcPaint); }

private:
    HWND FWindow;
    PAINTSTRUCT FPaint{};
    HDC FHandle;
};

/// Selects a pen, brush, font or bitmap, and the former one again at the end. A GDI object that is still selected
/// somewhere cannot be deleted: declare the selection after the object.
class TSelectedObject {
public:
    TSelectedObject(HDC dc, HGDIOBJ object) : FDC(dc), FOld(::SelectObject(dc, object)) {}
    TSelectedObject(const TSelectedObject&) = delete;
    TSelectedObject& operator=(const TSelectedObject&) = delete;
    ~TSelectedObject() {
        if (FOld)
            ::SelectObject(FDC, FOld);
    }

private:
    HDC FDC;
    HGDIOBJ FOld;
};

/// SaveDC to RestoreDC: colours, clipping, origin and selected objects of a context come back at the end.
class TSavedDC {
public:
    explicit TSavedDC(HDC dc) : FDC(dc), FLevel(::SaveDC(dc)) {}
    TSavedDC(const TSavedDC&) = delete;
    TSavedDC& operator=(const TSavedDC&) = delete;
    ~TSavedDC() {
        if (FLevel)
            ::RestoreDC(FDC, FLevel);
    }

private:
    HDC FDC;
    int FLevel;
};

} // namespace framework
