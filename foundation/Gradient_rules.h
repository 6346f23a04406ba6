#pragma once

// A colour gradient as a row of bands of one colour each, for painting with solid brushes.

#include "framework/system/types.h"

namespace ZOR {
using namespace framework;

enum class TGradientAxis {
    Vertical,   ///< from the top edge to the bottom edge
    Horizontal, ///< from the left edge to the right edge
};

inline constexpr int GradientBandCount = 255;

struct TGradientBand {
    TRect Rect; ///< empty where the area has fewer pixels than there are bands
    TColor Color = 0;
    friend bool operator==(const TGradientBand&, const TGradientBand&) = default;
};

/// Band 0 to 254 of a gradient over `area`. Together the bands cover the area without gap or overlap. Each channel is
/// the whole sum start + (end - start) * index / 255, cut to an integer; the last band therefore stays one step short
/// of the end colour. The colours are 0x00BBGGRR; system colours must be resolved before.
TGradientBand GradientBand(const TRect& area, TColor start, TColor end, TGradientAxis axis, int index);

} // namespace ZOR
