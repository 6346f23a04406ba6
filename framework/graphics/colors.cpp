#include "framework/graphics/colors.h"

#include "framework/graphics/win32.h"
#include "framework/system/identifiers.h"

namespace framework {

namespace {

constexpr TIdentifier Colors[] = {
    {clBlack, u"clBlack"},
    {clMaroon, u"clMaroon"},
    {clGreen, u"clGreen"},
    {clOlive, u"clOlive"},
    {clNavy, u"clNavy"},
    {clPurple, u"clPurple"},
    {clTeal, u"clTeal"},
    {clGray, u"clGray"},
    {clSilver, u"clSilver"},
    {clRed, u"clRed"},
    {clLime, u"clLime"},
    {clYellow, u"clYellow"},
    {clBlue, u"clBlue"},
    {clFuchsia, u"clFuchsia"},
    {clAqua, u"clAqua"},
    {clWhite, u"clWhite"},
    {clMoneyGreen, u"clMoneyGreen"},
    {clSkyBlue, u"clSkyBlue"},
    {clCream, u"clCream"},
    {clMedGray, u"clMedGray"},
    {clActiveBorder, u"clActiveBorder"},
    {clActiveCaption, u"clActiveCaption"},
    {clAppWorkSpace, u"clAppWorkSpace"},
    {clBackground, u"clBackground"},
    {clBtnFace, u"clBtnFace"},
    {clBtnHighlight, u"clBtnHighlight"},
    {clBtnShadow, u"clBtnShadow"},
    {clBtnText, u"clBtnText"},
    {clCaptionText, u"clCaptionText"},
    {clDefault, u"clDefault"},
    {clGradientActiveCaption, u"clGradientActiveCaption"},
    {clGradientInactiveCaption, u"clGradientInactiveCaption"},
    {clGrayText, u"clGrayText"},
    {clHighlight, u"clHighlight"},
    {clHighlightText, u"clHighlightText"},
    {clHotLight, u"clHotLight"},
    {clInactiveBorder, u"clInactiveBorder"},
    {clInactiveCaption, u"clInactiveCaption"},
    {clInactiveCaptionText, u"clInactiveCaptionText"},
    {clInfoBk, u"clInfoBk"},
    {clInfoText, u"clInfoText"},
    {clMenu, u"clMenu"},
    {clMenuBar, u"clMenuBar"},
    {clMenuHighlight, u"clMenuHighlight"},
    {clMenuText, u"clMenuText"},
    {clNone, u"clNone"},
    {clScrollBar, u"clScrollBar"},
    {cl3DDkShadow, u"cl3DDkShadow"},
    {cl3DLight, u"cl3DLight"},
    {clWindow, u"clWindow"},
    {clWindowFrame, u"clWindowFrame"},
    {clWindowText, u"clWindowText"},
    // Second names, understood but never written.
    {clLtGray, u"clLtGray"},
    {clDkGray, u"clDkGray"},
};

} // namespace

std::uint32_t ColorToRGB(TColor color) {
    if (color < 0)
        return ::GetSysColor(color & 0xFF);
    return static_cast<std::uint32_t>(color) & 0xFFFFFF;
}

const TIdentifiers& ColorIdentifiers() {
    return IdentifiersOf<Colors>();
}

} // namespace framework
