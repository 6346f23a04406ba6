#pragma once

// How a page lies in the area that shows it: as large as the area, but never smaller than it was designed.

#include "framework/system/types.h"

namespace gallery {
using namespace framework;

struct TPageLayout {
    TSize View;  ///< what the scroll bars leave of the area
    TSize Page;  ///< the page's extent
    TPoint Most; ///< how far the page can be scrolled, from 0
    friend bool operator==(const TPageLayout&, const TPageLayout&) = default;
};

/// `area` is the extent without scroll bars, `bars` the width of the upright and the height of the level one.
TPageLayout LayOutPage(TSize area, TSize designed, TSize bars);

/// The scroll position nearest to `position` at which a control, in pixels of the page, is in view; its left upper part
/// when it does not fit.
TPoint ScrollToShow(const TRect& control, TPoint position, const TPageLayout& layout);

} // namespace gallery
