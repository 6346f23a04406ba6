#include "foundation/Zorgradient.h"

#include "framework/graphics/handles.h"

namespace ZOR {

void FillGradient(HDC dc, const TRect& area, TColor start, TColor end, TGradientAxis axis) {
    for (int i = 0; i < GradientBandCount; ++i) {
        const TGradientBand band = GradientBand(area, start, end, axis, i);
        if (band.Rect.IsEmpty())
            continue;
        const TUniqueBrush brush(CreateSolidBrush(static_cast<COLORREF>(band.Color)));
        const RECT rect = ToWin(band.Rect);
        FillRect(dc, &rect, brush.Get());
    }
}

} // namespace ZOR
