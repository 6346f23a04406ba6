#pragma once

// Where a check box shows its requirement: a square around the box, not a frame around the caption.

#include "framework/system/types.h"

namespace ZOR {

using namespace framework;

/// The square for a window of this extent in pixels: as high as the window less two pixels above and below, at the left
/// edge, or at the right one when the box stands there.
constexpr TRect CheckBoxSquare(TSize window, bool boxAtRight) {
    constexpr int margin = 2;
    const int side = window.Height - 2 * margin;
    return Bounds(boxAtRight ? window.Width - side : 0, margin, side, side);
}

} // namespace ZOR
