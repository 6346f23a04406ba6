#pragma once

// Paints a colour gradient onto a device context.

#include "foundation/Gradient_rules.h"
#include "framework/graphics/win32.h"

namespace ZOR {

/// Fills the area band by band (FillRect with solid brushes); see GradientBand for the colours.
void FillGradient(HDC dc, const TRect& area, TColor start, TColor end, TGradientAxis axis);

} // namespace ZOR
