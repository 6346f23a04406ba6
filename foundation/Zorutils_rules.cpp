#include "foundation/Zorutils_rules.h"

#include <algorithm>

namespace ZOR {

namespace {

TRect Drawable(const TRect& rect) {
    return rect.IsEmpty() ? TRect{} : rect;
}

} // namespace

StringView WymaganyName(TWymagany state) {
    const auto ordinal = static_cast<std::size_t>(state);
    return ordinal < WymaganyNames.size() ? WymaganyNames[ordinal] : StringView();
}

std::optional<TWymagany> WymaganyFromName(StringView name) {
    const auto found = std::find(WymaganyNames.begin(), WymaganyNames.end(), name);
    if (found == WymaganyNames.end())
        return std::nullopt;
    return static_cast<TWymagany>(found - WymaganyNames.begin());
}

TColor FrameColor(StringView stateName, const TFrameColors& colors) {
    switch (WymaganyFromName(stateName).value_or(wNone)) {
    case wRequired:
        return colors.Required;
    case wRecommended:
        return colors.Recommended;
    case wError:
        return colors.Error;
    case wNone:
        break;
    }
    return FlatFrameColor;
}

TFrameDecision DecideFrame(const TFrameRequest& request) {
    if (request.Ctl3D && request.StateName == WymaganyName(wNone))
        return {};
    const TRect window = Bounds(0, 0, request.Size.Width, request.Size.Height);
    TFrameDecision decision;
    decision.Paint = true;
    decision.Color = FrameColor(request.StateName, request.Colors);
    decision.Outer = Drawable(window);
    if (request.ClearInnerRing)
        decision.Inner = Drawable(window.Inflated(-1, -1));
    return decision;
}

} // namespace ZOR
