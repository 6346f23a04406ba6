#include "foundation/Popup_rules.h"

#include <algorithm>

namespace ZOR {

namespace {

int PopupTop(const TRect& field, int height, const TRect& area, int overlap) {
    const int below = field.Bottom - overlap;
    const int above = field.Top - height;
    if (field.Bottom + height <= area.Bottom)
        return std::max(below, area.Top);
    if (above >= area.Top)
        return std::min(above, area.Bottom - height);
    const bool moreRoomBelow = area.Bottom - field.Bottom >= field.Top - area.Top;
    return std::max(moreRoomBelow ? std::min(below, area.Bottom - height) : area.Top, area.Top);
}

int PopupLeft(const TRect& field, int width, const TRect& area, const TPopupPlacing& placing, bool flushRight) {
    const int last = area.Right - width;
    const int withLeft = field.Left + placing.Shift;
    const int withRight = field.Right + placing.Shift - width;
    if (flushRight)
        return std::max(std::min(withRight, last), area.Left);
    const int left = std::max(withLeft, area.Left);
    if (left <= last)
        return left;
    if (withRight >= area.Left)
        return std::min(withRight, last);
    return std::max(std::min(area.Left + placing.LeftMargin, last), area.Left);
}

} // namespace

TRect PopupPlace(const TRect& field, TSize popup, const TRect& workArea, const TPopupPlacing& placing,
                 bool rightToLeft) {
    const bool flushRight = (placing.Edge == TPopupEdge::Right) != rightToLeft;
    const int left = PopupLeft(field, popup.Width, workArea, placing, flushRight);
    return Bounds(left, PopupTop(field, popup.Height, workArea, placing.Overlap), popup.Width, popup.Height);
}

} // namespace ZOR
