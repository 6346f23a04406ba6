#include "gallery/pagearea_rules.h"

#include <algorithm>

namespace gallery {

namespace {

int ScrolledToShow(int low, int high, int position, int view, int most) {
    if (high > position + view)
        position = high - view;
    if (low < position)
        position = low;
    return std::clamp(position, 0, most);
}

} // namespace

TPageLayout LayOutPage(TSize area, TSize designed, TSize bars) {
    bool upright = designed.Height > area.Height;
    const bool level = designed.Width > area.Width - (upright ? bars.Width : 0);
    upright = upright || (level && designed.Height > area.Height - bars.Height);
    TPageLayout layout;
    layout.View = {std::max(0, area.Width - (upright ? bars.Width : 0)),
                   std::max(0, area.Height - (level ? bars.Height : 0))};
    layout.Page = {std::max(layout.View.Width, designed.Width), std::max(layout.View.Height, designed.Height)};
    layout.Most = {layout.Page.Width - layout.View.Width, layout.Page.Height - layout.View.Height};
    return layout;
}

TPoint ScrollToShow(const TRect& control, TPoint position, const TPageLayout& layout) {
    return {ScrolledToShow(control.Left, control.Right, position.X, layout.View.Width, layout.Most.X),
            ScrolledToShow(control.Top, control.Bottom, position.Y, layout.View.Height, layout.Most.Y)};
}

} // namespace gallery
