#pragma once

// Painting without flicker: into memory first, then onto the screen at once.

#include "framework/graphics/handles.h"

#include <memory>

namespace framework {

/// While in scope, stands for `area` of `target` in the same coordinates; what was painted reaches `target` at the
/// end. When memory is short painting goes to `target` itself. Windows share their memory, as it takes longer to get
/// than to fill.
class TBufferedPaint {
public:
    TBufferedPaint(HDC target, const TRect& area);
    TBufferedPaint(const TBufferedPaint&) = delete;
    TBufferedPaint& operator=(const TBufferedPaint&) = delete;
    ~TBufferedPaint();

    /// Where to paint; its background is not filled.
    operator HDC() const;

private:
    struct TMemory;

    static std::unique_ptr<TMemory> Take(HDC target, TSize size, bool onScreen);
    static std::unique_ptr<TMemory>& Kept();

    HDC FTarget;
    TRect FArea;
    bool FOnScreen = false;
    std::unique_ptr<TMemory> FMemory;
};

} // namespace framework
