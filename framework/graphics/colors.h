#pragma once

// Colours: their constants, their names in text forms, and what a system colour is at the moment. Free of Win32, so
// that rules files can use the constants; ColorToRGB exists on Windows only.

#include "framework/system/types.h"

namespace framework {

struct TIdentifiers;

/// The system colour of that COLOR_... index: it follows the user's theme.
constexpr TColor SystemColor(std::uint32_t index) {
    return static_cast<TColor>(0xFF000000u | index);
}

// System colours.
inline constexpr TColor clScrollBar = SystemColor(0);
inline constexpr TColor clBackground = SystemColor(1);
inline constexpr TColor clActiveCaption = SystemColor(2);
inline constexpr TColor clInactiveCaption = SystemColor(3);
inline constexpr TColor clMenu = SystemColor(4);
inline constexpr TColor clWindow = SystemColor(5);
inline constexpr TColor clWindowFrame = SystemColor(6);
inline constexpr TColor clMenuText = SystemColor(7);
inline constexpr TColor clWindowText = SystemColor(8);
inline constexpr TColor clCaptionText = SystemColor(9);
inline constexpr TColor clActiveBorder = SystemColor(10);
inline constexpr TColor clInactiveBorder = SystemColor(11);
inline constexpr TColor clAppWorkSpace = SystemColor(12);
inline constexpr TColor clHighlight = SystemColor(13);
inline constexpr TColor clHighlightText = SystemColor(14);
inline constexpr TColor clBtnFace = SystemColor(15);
inline constexpr TColor clBtnShadow = SystemColor(16);
inline constexpr TColor clGrayText = SystemColor(17);
inline constexpr TColor clBtnText = SystemColor(18);
inline constexpr TColor clInactiveCaptionText = SystemColor(19);
inline constexpr TColor clBtnHighlight = SystemColor(20);
inline constexpr TColor cl3DDkShadow = SystemColor(21);
inline constexpr TColor cl3DLight = SystemColor(22);
inline constexpr TColor clInfoText = SystemColor(23);
inline constexpr TColor clInfoBk = SystemColor(24);
inline constexpr TColor clHotLight = SystemColor(26);
inline constexpr TColor clGradientActiveCaption = SystemColor(27);
inline constexpr TColor clGradientInactiveCaption = SystemColor(28);
inline constexpr TColor clMenuHighlight = SystemColor(29);
inline constexpr TColor clMenuBar = SystemColor(30);

// Fixed colours, 0x00BBGGRR.
inline constexpr TColor clBlack = 0x000000;
inline constexpr TColor clMaroon = 0x000080;
inline constexpr TColor clGreen = 0x008000;
inline constexpr TColor clOlive = 0x008080;
inline constexpr TColor clNavy = 0x800000;
inline constexpr TColor clPurple = 0x800080;
inline constexpr TColor clTeal = 0x808000;
inline constexpr TColor clGray = 0x808080;
inline constexpr TColor clSilver = 0xC0C0C0;
inline constexpr TColor clRed = 0x0000FF;
inline constexpr TColor clLime = 0x00FF00;
inline constexpr TColor clYellow = 0x00FFFF;
inline constexpr TColor clBlue = 0xFF0000;
inline constexpr TColor clFuchsia = 0xFF00FF;
inline constexpr TColor clAqua = 0xFFFF00;
inline constexpr TColor clLtGray = clSilver;
inline constexpr TColor clDkGray = clGray;
inline constexpr TColor clWhite = 0xFFFFFF;
inline constexpr TColor clMoneyGreen = 0xC0DCC0;
inline constexpr TColor clSkyBlue = 0xF0CAA6;
inline constexpr TColor clCream = 0xF0FBFF;
inline constexpr TColor clMedGray = 0xA4A0A0;

/// No colour: whatever lies behind shows.
inline constexpr TColor clNone = 0x1FFFFFFF;
/// The colour that the place where it is used has by itself.
inline constexpr TColor clDefault = 0x20000000;

/// The colour as a COLORREF, 0x00BBGGRR: a system colour is looked up (GetSysColor), others lose their high byte,
/// which makes clNone white and clDefault black.
std::uint32_t ColorToRGB(TColor color);

/// The names of the constants above, for published rows.
const TIdentifiers& ColorIdentifiers();

} // namespace framework
