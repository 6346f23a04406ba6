#include "foundation/Zorframed.h"

#include "framework/graphics/handles.h"

namespace ZOR {

void RepaintFrame(TWinControl& control, TFrameRepaint how) {
    if (!control.HandleAllocated())
        return;
    if (how == TFrameRepaint::NonClient) {
        SendMessageW(control.GetHandle(), WM_NCPAINT, 0, 0);
        return;
    }
    // The frame lies outside of what a control invalidates itself.
    RedrawWindow(control.GetHandle(), nullptr, nullptr, RDW_INVALIDATE | RDW_FRAME);
    if (how == TFrameRepaint::Repaint)
        control.Repaint();
    else
        control.Invalidate();
}

namespace {

TUniqueFont HintFont(HDC dc, const TFont& font) {
    const int height = -MulDiv(font.GetSize(), GetDeviceCaps(dc, LOGPIXELSY), 72);
    return TUniqueFont(CreateFontW(height, 0, 0, 0, FW_DONTCARE, TRUE, FALSE, FALSE, DEFAULT_CHARSET, 0, 0,
                                   CLEARTYPE_QUALITY, FF_ROMAN, WideChars(font.GetName())));
}

void DrawHint(HDC dc, TWinControl& control, const String& hint) {
    const THintInsidePlace place = HintInsidePlace(control.GetClientRect());
    const COLORREF background = ColorToRGB(control.GetColor());
    const TUniqueFont font = HintFont(dc, *control.GetFont());
    const TUniqueBrush brush(CreateSolidBrush(background));
    const TSavedDC saved(dc);
    SelectObject(dc, font.Get());
    SetBkColor(dc, background);
    // The outermost pixels are the background's; some native classes erase it only while they paint themselves.
    const RECT client = ToWin(control.GetClientRect());
    FrameRect(dc, &client, brush.Get());
    const RECT area = ToWin(place.Background);
    FillRect(dc, &area, brush.Get());
    RECT text = ToWin(place.Text);
    SetTextColor(dc, ColorToRGB(clGrayText));
    DrawTextW(dc, WideChars(hint), -1, &text, DT_HIDEPREFIX | DT_END_ELLIPSIS);
}

} // namespace

void PaintHintInside(TWinControl& control, const String& hint, const TMessage& message) {
    if (message.WParam) {
        DrawHint(reinterpret_cast<HDC>(message.WParam), control, hint); // painted onto something else than the screen
        return;
    }
    const TPaintDC dc(control.GetHandle());
    DrawHint(dc, control, hint);
}

} // namespace ZOR
