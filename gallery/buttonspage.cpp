#include "gallery/buttonspage.h"

#include "buttons/Zorcolorbutton.h"
#include "framework/system/numbers.h"
#include "framework/windows/label.h"
#include "gallery/eventsignatures.h"
#include "gallery/pages.h"

namespace gallery {

const TClassInfo& TButtonsPage::StaticClass() {
    static const TClassInfo info = DescribeClass<TButtonsPage>(
        u"TButtonsPage", TForm::StaticClass(), {},
        {Method<&TButtonsPage::ButtonClick>(u"ButtonClick"), Method<&TButtonsPage::DrawBadge>(u"DrawBadge")});
    return info;
}

namespace {

const TPageClass registered(&TButtonsPage::StaticClass);
const TEventSignature painting(&UnwatchedSignatureOf<ZOR::TDrawButtonEvent>);

constexpr TSize kBadge{26, 18};

} // namespace

void TButtonsPage::ButtonClick(TObject* sender) {
    const int presses = ++FPresses[sender];
    if (auto* status = As<TLabel>(FindComponent(u"StatusLabel")))
        status->SetText(static_cast<TComponent*>(sender)->GetName() + u": " + IntToStr(presses));
}

/// The number of presses, in the upper right corner.
void TButtonsPage::DrawBadge(TWinControl* control, TRect rect, TOwnerDrawState) {
    TCanvas& canvas = *static_cast<ZOR::TZORColorButton*>(control)->GetCanvas();
    TRect badge{rect.Right - kBadge.Width - 8, rect.Top + 8, rect.Right - 8, rect.Top + 8 + kBadge.Height};
    canvas.GetBrush()->SetColor(clWhite);
    canvas.GetPen()->SetColor(clWhite);
    canvas.RoundRect(badge.Left, badge.Top, badge.Right, badge.Bottom, kBadge.Height, kBadge.Height);
    canvas.GetBrush()->SetStyle(bsClear);
    canvas.GetFont()->SetColor(0xA85F33);
    canvas.GetFont()->SetHeight(-12);
    canvas.TextRect(badge, IntToStr(FPresses[control]), DT_CENTER | DT_VCENTER | DT_SINGLELINE);
}

} // namespace gallery
