#include "framework/graphics/bufferedpaint.h"

#include <algorithm>

namespace framework {

namespace {

constexpr int kMostKept = 4'000'000; // pixels, 16 MB on usual screens; larger buffers come and go

bool IsKept(TSize size) {
    return std::int64_t{size.Width} * size.Height <= kMostKept;
}

} // namespace

struct TBufferedPaint::TMemory {
    TSize Size;
    // In this order: the context lets go of the bitmap.
    TUniqueBitmap Bitmap;
    TUniqueMemoryDC DC;
    int Untouched = 0; // the saved state of the context
};

/// What the last painting on the screen has left for the next one of this thread; empty while one is under way.
std::unique_ptr<TBufferedPaint::TMemory>& TBufferedPaint::Kept() {
    thread_local std::unique_ptr<TMemory> kept;
    return kept;
}

std::unique_ptr<TBufferedPaint::TMemory> TBufferedPaint::Take(HDC target, TSize size, bool onScreen) {
    if (onScreen && Kept()) {
        std::unique_ptr<TMemory> kept = std::move(Kept());
        if (kept->Size.Width >= size.Width && kept->Size.Height >= size.Height)
            return kept;
        const TSize both{std::max(kept->Size.Width, size.Width), std::max(kept->Size.Height, size.Height)};
        size = IsKept(both) ? both : size;
    }
    auto memory = std::make_unique<TMemory>();
    memory->Size = size;
    memory->Bitmap.Reset(::CreateCompatibleBitmap(target, size.Width, size.Height));
    memory->DC.Reset(::CreateCompatibleDC(target));
    if (!memory->Bitmap || !memory->DC)
        return nullptr;
    ::SelectObject(memory->DC.Get(), memory->Bitmap.Get());
    return memory;
}

TBufferedPaint::TBufferedPaint(HDC target, const TRect& area) : FTarget(target), FArea(area) {
    if (area.IsEmpty())
        return;
    FOnScreen = ::GetObjectType(target) == OBJ_DC && ::GetDeviceCaps(target, TECHNOLOGY) == DT_RASDISPLAY;
    FMemory = Take(target, {area.Width(), area.Height()}, FOnScreen);
    if (!FMemory)
        return;
    FMemory->Untouched = ::SaveDC(FMemory->DC.Get());
    ::SetViewportOrgEx(FMemory->DC.Get(), -area.Left, -area.Top, nullptr);
}

TBufferedPaint::~TBufferedPaint() {
    if (!FMemory)
        return;
    ::BitBlt(FTarget, FArea.Left, FArea.Top, FArea.Width(), FArea.Height(), FMemory->DC.Get(), FArea.Left, FArea.Top,
             SRCCOPY);
    if (FOnScreen && !Kept() && IsKept(FMemory->Size)) {
        ::RestoreDC(FMemory->DC.Get(), FMemory->Untouched);
        Kept() = std::move(FMemory);
    }
}

TBufferedPaint::operator HDC() const {
    return FMemory ? FMemory->DC.Get() : FTarget;
}

} // namespace framework
