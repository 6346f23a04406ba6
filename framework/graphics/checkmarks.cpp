#include "framework/graphics/checkmarks.h"

#include <algorithm>
#include <vsstyle.h>

namespace framework {

namespace {

constexpr int kUnscaledBox = 13; // pixels at 96 dots per inch, where no theme says otherwise

/// The states of a box lie in groups of four: normal, hot, pressed, disabled.
int ThemeState(const TCheckLook& look) {
    const int group = look.Mark == TCheckMark::Checked ? CBS_CHECKEDNORMAL
                      : look.Mark == TCheckMark::Mixed ? CBS_MIXEDNORMAL
                                                       : CBS_UNCHECKEDNORMAL;
    if (!look.Enabled)
        return group + (CBS_UNCHECKEDDISABLED - CBS_UNCHECKEDNORMAL);
    if (look.Pressed)
        return group + (CBS_UNCHECKEDPRESSED - CBS_UNCHECKEDNORMAL);
    return look.Hot ? group + (CBS_UNCHECKEDHOT - CBS_UNCHECKEDNORMAL) : group;
}

UINT FrameFlags(const TCheckLook& look) {
    UINT flags = look.Radio ? DFCS_BUTTONRADIO : look.Mark == TCheckMark::Mixed ? DFCS_BUTTON3STATE : DFCS_BUTTONCHECK;
    if (look.Mark != TCheckMark::Unchecked)
        flags |= DFCS_CHECKED;
    if (!look.Enabled)
        flags |= DFCS_INACTIVE;
    if (look.Pressed)
        flags |= DFCS_PUSHED;
    return flags;
}

} // namespace

TCheckPainter::TCheckPainter(bool themed) : FTheme(themed ? OpenThemeData(nullptr, L"BUTTON") : nullptr) {
}

TSize TCheckPainter::Size() const {
    SIZE size{};
    if (FTheme &&
        SUCCEEDED(GetThemePartSize(FTheme.Get(), nullptr, BP_CHECKBOX, CBS_UNCHECKEDNORMAL, nullptr, TS_DRAW, &size)))
        return {size.cx, size.cy};
    const TWindowDC screen(nullptr);
    const int side = MulDiv(kUnscaledBox, GetDeviceCaps(screen, LOGPIXELSY), 96);
    return {side, side};
}

void TCheckPainter::Draw(HDC dc, const TRect& place, const TCheckLook& look) const {
    RECT box = ToWin(place);
    const int part = look.Radio ? BP_RADIOBUTTON : BP_CHECKBOX;
    if (FTheme && SUCCEEDED(DrawThemeBackground(FTheme.Get(), dc, part, ThemeState(look), &box, nullptr)))
        return;
    DrawFrameControl(dc, &box, DFC_BUTTON, FrameFlags(look));
}

void TCheckSeries::Draw(HDC dc, const TRect& place, const TCheckLook& look, std::uint32_t ground) {
    const auto found = std::find_if(FDrawn.begin(), FDrawn.end(), [&](const TDrawn& drawn) {
        return drawn.Ground == ground && drawn.Look == look && drawn.Place.Width() == place.Width() &&
               drawn.Place.Height() == place.Height();
    });
    if (found != FDrawn.end()) {
        BitBlt(dc, place.Left, place.Top, place.Width(), place.Height(), dc, found->Place.Left, found->Place.Top,
               SRCCOPY);
        return;
    }
    FPainter.Draw(dc, place, look);
    RECT shown{};
    GetClipBox(dc, &shown);
    const bool isWhole = place.Left >= shown.left && place.Top >= shown.top && place.Right <= shown.right &&
                         place.Bottom <= shown.bottom;
    if (isWhole)
        FDrawn.push_back({look, ground, place});
}

} // namespace framework
