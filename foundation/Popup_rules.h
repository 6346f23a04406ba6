#pragma once

// Where a popup opens: below its field, or above it where there is more room, and inside the part of the monitor that
// the taskbar leaves free. What differs from control to control stands here as a constant of its own.

#include "framework/system/types.h"

namespace ZOR {
using namespace framework;

/// The edge of the field with which a popup is flush; in a right-to-left field it is the other one.
enum class TPopupEdge { Left, Right };

/// Pixels, from left to right and from top to bottom.
struct TPopupPlacing {
    TPopupEdge Edge = TPopupEdge::Left;
    int Shift = 0;      ///< how far right of that edge the popup begins
    int Overlap = 0;    ///< how much of the field's lower edge a popup below it covers
    int LeftMargin = 0; ///< where a popup begins that fits with neither edge, from the left of the screen
};

/// The calendar of a date field: flush with the drop button.
inline constexpr TPopupPlacing CalendarPlacing{TPopupEdge::Right};
/// The list of a choice field: it closes up to the border of the field, and begins where that border does.
inline constexpr TPopupPlacing ChoiceListPlacing{TPopupEdge::Left, -2, 2, 10};

/// The place of a popup of this size. A popup that fits neither below nor above opens where there is more room; one
/// that does not fit at all begins at the left upper corner of the free area.
TRect PopupPlace(const TRect& field, TSize popup, const TRect& workArea, const TPopupPlacing& placing,
                 bool rightToLeft = false);

} // namespace ZOR
