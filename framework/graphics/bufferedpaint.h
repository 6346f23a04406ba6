#pragma once

// Painting without flicker: into memory first, then onto the screen at once.

#include "framework/graphics/handles.h"

namespace framework {

/// While in scope, stands for `area` of `target` in the same coordinates; what was painted reaches `target` at the
/// end. When memory is short painting goes to `target` itself.
class TBufferedPaint {
public:
    TBufferedPaint(HDC target, const TRect& area);
    TBufferedPaint(const TBufferedPaint&) = delete;
    TBufferedPaint& operator=(const TBufferedPaint&) = delete;
    ~TBufferedPaint();

    /// Where to paint; its background is not filled.
    operator HDC() const { return FMemory ? FMemory.Get() : FTarget; }

private:
    HDC FTarget;
    TRect FArea;
    // In this order: the context lets go of the bitmap.
    TUniqueBitmap FBitmap;
    TUniqueMemoryDC FMemory;
};

} // namespace framework
