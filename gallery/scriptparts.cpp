#include "gallery/scriptparts.h"

#include "controls/Extrasigns.h"
#include "foundation/Zorboundlabel.h"
#include "framework/system/numbers.h"
#include "framework/system/strings.h"
#include "gallery/rowlist.h"

namespace gallery {

namespace {

/// `label`: the caption of a field.
std::optional<TRect> FindCaption(TControl& control, const std::vector<String>& words) {
    if (words.size() != 1 || !SameText(words[0], u"label") || !IsPublishedProp(control, u"BoundLabel"))
        return std::nullopt;
    const auto* label = As<ZOR::TZORBoundLabel>(GetObjectProp(control, u"BoundLabel"));
    if (!label || !label->GetLabel())
        return std::nullopt;
    return ScreenRect(*label->GetLabel());
}

/// `key N`, from 1: a key of the popup of extra signs.
std::optional<TRect> FindSignKey(TControl& control, const std::vector<String>& words) {
    auto* popup = As<ZOR::Textrasignsfrm>(&control);
    if (!popup || words.size() != 2 || !SameText(words[0], u"key"))
        return std::nullopt;
    const auto keys = popup->GetKeys();
    const int number = StrToIntDef(words[1], 0);
    if (number < 1 || number > static_cast<int>(keys.size()))
        return std::nullopt;
    return OnScreen(control, keys[static_cast<std::size_t>(number - 1)].rect);
}

const TPartFinder captions(&FindCaption);
const TPartFinder signKeys(&FindSignKey);

} // namespace

std::optional<TRect> FindPart(TControl& control, const std::vector<String>& words) {
    if (auto* spots = dynamic_cast<TScriptSpots*>(&control)) {
        if (const auto rect = spots->FindSpot(words))
            return OnScreen(control, *rect);
    }
    for (const TPartFinder* finder = TPartFinder::First(); finder; finder = finder->Next()) {
        if (const auto rect = finder->Value()(control, words))
            return rect;
    }
    return std::nullopt;
}

TRect ScreenRect(const TControl& control) {
    if (const auto* window = As<TWinControl>(&control)) {
        RECT rect{};
        GetWindowRect(window->GetHandle(), &rect);
        return FromWin(rect);
    }
    const TPoint origin = control.ClientToScreen({0, 0});
    return Bounds(origin.X, origin.Y, control.GetWidth(), control.GetHeight());
}

TRect OnScreen(const TControl& control, const TRect& rect) {
    const TPoint origin = control.ClientToScreen({0, 0});
    return rect.Offset(origin.X, origin.Y);
}

} // namespace gallery
