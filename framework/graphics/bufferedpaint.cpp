#include "framework/graphics/bufferedpaint.h"

namespace framework {

TBufferedPaint::TBufferedPaint(HDC target, const TRect& area) : FTarget(target), FArea(area) {
    if (area.IsEmpty())
        return;
    TUniqueMemoryDC memory(::CreateCompatibleDC(target));
    FBitmap.Reset(::CreateCompatibleBitmap(target, area.Width(), area.Height()));
    if (!memory || !FBitmap)
        return;
    ::SelectObject(memory.Get(), FBitmap.Get());
    ::SetViewportOrgEx(memory.Get(), -area.Left, -area.Top, nullptr);
    FMemory = std::move(memory);
}

TBufferedPaint::~TBufferedPaint() {
    if (FMemory)
        ::BitBlt(FTarget, FArea.Left, FArea.Top, FArea.Width(), FArea.Height(), FMemory.Get(), FArea.Left, FArea.Top,
                 SRCCOPY);
}

} // namespace framework
