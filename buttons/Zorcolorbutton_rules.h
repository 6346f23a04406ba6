#pragma once

// The colours of the gradient button: its named styles, and the shades that show whether it is hot, pressed or
// disabled.

#include "framework/system/types.h"

#include <optional>

namespace ZOR {
using namespace framework;

/// A named set of colours.
enum TZORColorStyles {
    csNone, ///< the look of a plain button
    csUser, ///< the colours that the program has set one by one
    csBlue,
    csRed,
};

/// What a style sets.
struct TColorButtonStyle {
    TColor Font = static_cast<TColor>(0xFF000008u); ///< clWindowText, which the user's theme sets
    TColor GradientStart = 0xF0F0F0;
    TColor GradientEnd = 0xDCDCDC;
    TColor Frame = 0xD77800;
    TColor Border = 0x808080;
    friend bool operator==(const TColorButtonStyle&, const TColorButtonStyle&) = default;
};

inline constexpr TColorButtonStyle DefaultButtonColors{};

/// Nothing for csUser, which leaves all colours as they are, and for ordinals that are no style.
std::optional<TColorButtonStyle> ColorsOfStyle(TZORColorStyles style);

/// How many of 255 steps each channel of a colour moves for a hot or a pressed button.
inline constexpr int ShadeStep = 10;

/// The colour a step lighter or darker, each channel kept within 0 to 255. Colours are 0x00BBGGRR; system colours must
/// be resolved before.
TColor ShadedColor(TColor color, bool brighten);

struct TColorButtonState {
    bool Disabled = false;
    bool Pressed = false;
    bool Hot = false; ///< the mouse is over it
};

/// The colours of the face as it is painted.
struct TColorButtonFace {
    TColor GradientStart = 0;
    TColor GradientEnd = 0;
    TColor Text = 0;
    friend bool operator==(const TColorButtonFace&, const TColorButtonFace&) = default;
};

/// Disabled goes before pressed, and pressed before hot.
TColorButtonFace FaceInState(const TColorButtonFace& face, TColorButtonState state);

} // namespace ZOR
