#include "framework/windows/hint_rules.h"

#include <algorithm>

namespace framework {

String GetShortHint(StringView hint) {
    return String(hint.substr(0, hint.find(u'|')));
}

String GetLongHint(StringView hint) {
    const std::size_t bar = hint.find(u'|');
    return String(bar == StringView::npos ? hint : hint.substr(bar + 1));
}

TPoint PlaceHint(TPoint hotSpot, int cursorHeight, TSize hint, const TRect& workArea) {
    TPoint place{hotSpot.X, hotSpot.Y + cursorHeight};
    // A hint pushed up until it fits would lie under the pointer and hide at once, hence the change of sides.
    if (place.Y + hint.Height > workArea.Bottom)
        place.Y = hotSpot.Y - hint.Height;
    place.X = std::max(std::min(place.X, workArea.Right - hint.Width), workArea.Left);
    place.Y = std::max(std::min(place.Y, workArea.Bottom - hint.Height), workArea.Top);
    return place;
}

} // namespace framework
