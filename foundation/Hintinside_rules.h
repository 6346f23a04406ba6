#pragma once

// The hint that stands in grey italics inside an empty field until the person enters it. Shared by every control that
// publishes ShowHintInside and HintLabel; the hint is painted only and never part of the text.

#include "framework/system/types.h"

namespace ZOR {
using namespace framework;

/// What a control knows when it is asked to paint itself.
struct THintInside {
    bool Unfocused = true;
    bool ShowHintInside = true;
    bool TextEmpty = true;
    StringView LabelHint; ///< the control's HintLabel
    StringView Hint;      ///< the control's Hint, used when it has no HintLabel
};

/// The text to paint inside, a view of one of the two given; empty when the control paints itself as usual.
StringView HintInsideText(const THintInside& field);

/// Where the hint is painted, in client coordinates. In a field too small for it the rectangles are empty, which means
/// that nothing is filled or drawn.
struct THintInsidePlace {
    TRect Background; ///< filled with the control's colour; leaves the outermost pixels alone
    TRect Text;       ///< the text is drawn from its left upper corner and cut with an ellipsis
    friend bool operator==(const THintInsidePlace&, const THintInsidePlace&) = default;
};

THintInsidePlace HintInsidePlace(const TRect& client);

} // namespace ZOR
