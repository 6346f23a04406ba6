#include "buttons/Zorcolorbutton_rules.h"

#include <algorithm>

namespace ZOR {

namespace {

constexpr TColor kWhite = 0xFFFFFF;
constexpr TColor kBlack = 0x000000;
constexpr TColor kDisabledFace = 0xF4F4F4;
constexpr TColor kDisabledText = 0x808080;

} // namespace

std::optional<TColorButtonStyle> ColorsOfStyle(TZORColorStyles style) {
    switch (style) {
    case csNone:
        return DefaultButtonColors;
    case csBlue:
        return TColorButtonStyle{kWhite, 0xCB8B46, 0xA85F33, kWhite, kBlack};
    case csRed:
        return TColorButtonStyle{kWhite, 0x0000FF, 0x000080, kWhite, kBlack};
    default:
        return std::nullopt;
    }
}

TColor ShadedColor(TColor color, bool brighten) {
    const int step = brighten ? ShadeStep : -ShadeStep;
    TColor shaded = 0;
    for (int shift : {0, 8, 16})
        shaded |= std::clamp((color >> shift & 0xFF) + step, 0, 0xFF) << shift;
    return shaded;
}

TColorButtonFace FaceInState(const TColorButtonFace& face, TColorButtonState state) {
    if (state.Disabled)
        return {kDisabledFace, kDisabledFace, kDisabledText};
    if (!state.Pressed && !state.Hot)
        return face;
    const bool brighten = !state.Pressed;
    return {ShadedColor(face.GradientStart, brighten), ShadedColor(face.GradientEnd, brighten), face.Text};
}

} // namespace ZOR
