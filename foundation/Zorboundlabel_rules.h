#pragma once

// Where the caption label of a control stands and how its text is aligned. All values are pixels in the client
// coordinates of the parent that label and control share.

#include "framework/system/types.h"

#include <array>

namespace ZOR {
using namespace framework;

/// Side of the control and place along that side.
enum TCaptionLayout {
    clLeft, ///< vertically centred
    clTopLeft,
    clTopCenter,
    clTopRight,
    clLeftTop, ///< near the control's top
    clBottomLeft,
    clBottomCenter,
    clBottomRight,
    clRight,    ///< vertically centred
    clRightTop, ///< near the control's top
};

/// The published names, by ordinal.
inline constexpr std::array<StringView, 10> CaptionLayoutNames{
    u"clLeft",       u"clTopLeft",      u"clTopCenter",   u"clTopRight", u"clLeftTop",
    u"clBottomLeft", u"clBottomCenter", u"clBottomRight", u"clRight",    u"clRightTop"};

inline constexpr int DefaultLabelIndent = 8;
inline constexpr TCaptionLayout DefaultCaptionLayout = clLeft;

/// The text is drawn towards the control, or along the edge that it shares with it.
TAlignment LabelAlignment(TCaptionLayout layout);

/// The width at which the text is wrapped before the label takes the size of its lines: the limit, or without one (0)
/// a width that keeps any sensible caption on one line.
int LabelWrapWidth(int maxWidth);

/// The label's left upper corner, `indent` away from the control. Halves are cut towards zero, also for a label that
/// is larger than its control.
TPoint LabelPlace(const TRect& control, TSize label, int indent, TCaptionLayout layout);

} // namespace ZOR
