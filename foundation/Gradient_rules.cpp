#include "foundation/Gradient_rules.h"

namespace ZOR {

namespace {

std::int32_t BandEdge(std::int32_t start, std::int32_t extent, int index) {
    return start + static_cast<std::int32_t>(std::int64_t{extent} * index / GradientBandCount);
}

// One channel of the sum, as one fraction: cut only once, so that falling channels fall from the first band on.
TColor BlendChannel(TColor start, TColor end, int shift, int index) {
    const int from = start >> shift & 0xFF;
    const int to = end >> shift & 0xFF;
    return (from * GradientBandCount + (to - from) * index) / GradientBandCount << shift;
}

} // namespace

TGradientBand GradientBand(const TRect& area, TColor start, TColor end, TGradientAxis axis, int index) {
    TGradientBand band{area, 0};
    if (axis == TGradientAxis::Vertical) {
        band.Rect.Top = BandEdge(area.Top, area.Height(), index);
        band.Rect.Bottom = BandEdge(area.Top, area.Height(), index + 1);
    } else {
        band.Rect.Left = BandEdge(area.Left, area.Width(), index);
        band.Rect.Right = BandEdge(area.Left, area.Width(), index + 1);
    }
    for (int shift : {0, 8, 16})
        band.Color |= BlendChannel(start, end, shift, index);
    return band;
}

} // namespace ZOR
