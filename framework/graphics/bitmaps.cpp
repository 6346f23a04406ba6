#include "framework/graphics/bitmaps.h"

#include "framework/graphics/png_rules.h"
#include "framework/system/published.h"

#include <algorithm>

namespace framework {

const TClassInfo& TBitmap::StaticClass() {
    static const TClassInfo info = DescribeClass<TBitmap>(u"TBitmap", TPersistent::StaticClass());
    return info;
}

TBitmap::TBitmap() : FCanvas(std::make_unique<TCanvas>()) {
}

TBitmap::TBitmap(int width, int height) : TBitmap() {
    SetSize(width, height);
}

TBitmap::~TBitmap() = default;

void TBitmap::Assign(TPersistent* source) {
    TBitmap* bitmap = As<TBitmap>(source);
    if (!bitmap) {
        TPersistent::Assign(source);
    } else if (bitmap != this) {
        SetSize(bitmap->GetWidth(), bitmap->GetHeight());
        FCanvas->Draw(0, 0, bitmap);
    }
}

void TBitmap::SetSize(int width, int height) {
    const TSize size{std::max(width, 0), std::max(height, 0)};
    if (size == FSize)
        return;
    TUniqueBitmap bitmap;
    TUniqueMemoryDC dc;
    void* pixels = nullptr;
    if (size.Width > 0 && size.Height > 0) {
        BITMAPINFO info{};
        info.bmiHeader.biSize = sizeof(info.bmiHeader);
        info.bmiHeader.biWidth = size.Width;
        info.bmiHeader.biHeight = -size.Height; // rows from the top
        info.bmiHeader.biPlanes = 1;
        info.bmiHeader.biBitCount = 32;
        dc.Reset(::CreateCompatibleDC(nullptr));
        bitmap.Reset(::CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &pixels, nullptr, 0));
        if (!dc || !bitmap)
            throw EOutOfResources(u"There is no memory for a picture of this size");
        ::SelectObject(dc.Get(), bitmap.Get());
        if (FDC)
            ::BitBlt(dc.Get(), 0, 0, std::min(size.Width, FSize.Width), std::min(size.Height, FSize.Height), FDC.Get(),
                     0, 0, SRCCOPY);
    }
    FCanvas->SetHandle(dc.Get());
    FDC = std::move(dc);
    FHandle = std::move(bitmap);
    FPixels = static_cast<std::uint32_t*>(pixels);
    FSize = size;
}

std::uint32_t* TBitmap::GetScanLine(int row) const {
    if (row < 0 || row >= FSize.Height || !FPixels)
        throw EListError(u"The picture has no such row");
    ::GdiFlush(); // what was drawn may still wait
    return FPixels + static_cast<std::ptrdiff_t>(row) * FSize.Width;
}

void TBitmap::SaveToPng(const String& fileName) const {
    const std::size_t count = static_cast<std::size_t>(FSize.Width) * FSize.Height;
    const std::vector<std::uint8_t> bytes = EncodePng(FSize.Width, FSize.Height, {GetScanLine(0), count});

    const HANDLE handle = ::CreateFileW(WideChars(fileName), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    if (handle == INVALID_HANDLE_VALUE)
        RaiseLastOSError();
    const TUniqueKernelHandle file(handle);
    DWORD written = 0;
    Win32Check(::WriteFile(file.Get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr));
}

namespace {

std::unique_ptr<TBitmap> CopyFrom(HDC source, const TRect& rect) {
    auto result = std::make_unique<TBitmap>(rect.Width(), rect.Height());
    if (!result->GetEmpty())
        ::BitBlt(result->GetCanvas()->GetHandle(), 0, 0, rect.Width(), rect.Height(), source, rect.Left, rect.Top,
                 SRCCOPY);
    return result;
}

} // namespace

std::unique_ptr<TBitmap> CaptureWindow(HWND window) {
    RECT place{};
    Win32Check(::GetWindowRect(window, &place));
    // Without DCX_CLIPCHILDREN, whatever the style says: the children belong to the picture.
    const TWindowDC source(window, Win32Check(::GetDCEx(window, nullptr, DCX_WINDOW | DCX_CACHE)));
    const TRect rect = FromWin(place);
    return CopyFrom(source, {0, 0, rect.Width(), rect.Height()});
}

std::unique_ptr<TBitmap> CaptureScreen(const TRect& rect) {
    const TWindowDC source(nullptr);
    if (!rect.IsEmpty())
        return CopyFrom(source, rect);
    return CopyFrom(source, {0, 0, ::GetSystemMetrics(SM_CXSCREEN), ::GetSystemMetrics(SM_CYSCREEN)});
}

} // namespace framework
