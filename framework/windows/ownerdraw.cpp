#include "framework/windows/ownerdraw.h"

#include "framework/graphics/brushes.h"
#include "framework/graphics/canvas.h"
#include "framework/graphics/handles.h"

namespace framework {

void PaintOwnerDrawn(TWinControl& control, const std::shared_ptr<TCanvas>& shared, int itemCount, TMessage& message,
                     const std::function<void(int, TRect, TOwnerDrawState)>& drawItem) {
    const auto& item = *reinterpret_cast<const DRAWITEMSTRUCT*>(message.LParam);
    const TOwnerDrawState state = OwnerDrawState(item);
    const TSavedDC saved(item.hDC);
    const TCanvasBinding canvas(shared, item.hDC);
    canvas->SetFont(control.GetFont());
    canvas->SetBrush(control.GetBrush());
    if (state.Contains(odSelected)) {
        canvas->GetBrush()->SetColor(clHighlight);
        canvas->GetFont()->SetColor(clHighlightText);
    } else if (!control.GetEnabled()) {
        canvas->GetFont()->SetColor(clGrayText);
    }
    message.Result = TRUE;
    const TRect rect = FromWin(item.rcItem);
    const auto index = static_cast<int>(item.itemID);
    if (index < 0 || index >= itemCount) {
        canvas->FillRect(rect);
        return;
    }
    TLifeGuard alive(control);
    drawItem(index, rect, state);
    if (alive && state.Contains(odFocused) && !state.Contains(odNoFocusRect))
        canvas->DrawFocusRect(rect);
}

void DrawItemText(const TControl& control, TCanvas& canvas, TRect rect, StringView text) {
    canvas.FillRect(rect);
    canvas.GetBrush()->SetStyle(bsClear);
    rect.Left += 2;
    rect.Right -= 2;
    canvas.TextRect(rect, text,
                    DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX |
                        (control.UseRightToLeftAlignment() ? DT_RIGHT | DT_RTLREADING : DT_LEFT));
}

} // namespace framework
