#include "foundation/Zorframed.h"

namespace ZOR {

void RepaintFrame(TWinControl& control, TFrameRepaint how) {
    if (!control.HandleAllocated())
        return;
    if (how == TFrameRepaint::NonClient) {
        if (IsWindowVisible(control.GetHandle())) // or the frame comes when it is shown
            SendMessageW(control.GetHandle(), WM_NCPAINT, 0, 0);
        return;
    }
    // The frame lies outside of what a control invalidates itself, or on what it does not paint again.
    RedrawWindow(control.GetHandle(), nullptr, nullptr, RDW_INVALIDATE | RDW_FRAME | RDW_ERASE);
    if (how == TFrameRepaint::Repaint)
        control.Repaint();
    else
        control.Invalidate();
}

bool HasScrollBars(TWinControl& control) {
    return control.HandleAllocated() &&
           (GetWindowLongPtrW(control.GetHandle(), GWL_STYLE) & (WS_HSCROLL | WS_VSCROLL)) != 0;
}

namespace {

TUniqueRegion BorderRegion(TWinControl& control, WPARAM asked) {
    RECT window{};
    GetWindowRect(control.GetHandle(), &window);
    TUniqueRegion border(CreateRectRgnIndirect(&window));
    if (asked > 1)
        CombineRgn(border.Get(), border.Get(), reinterpret_cast<HRGN>(asked), RGN_AND);
    const TPoint origin = control.GetClientOrigin();
    const TRect client = control.GetClientRect();
    const TUniqueRegion inside(
        CreateRectRgn(origin.X, origin.Y, origin.X + client.Width(), origin.Y + client.Height()));
    CombineRgn(border.Get(), border.Get(), inside.Get(), RGN_DIFF);
    return border;
}

} // namespace

TNativeFramePaint::TNativeFramePaint(TWinControl& control, TMessage& message)
    : FMessage(message), FAsked(message.WParam), FRegion(BorderRegion(control, message.WParam)) {
    FMessage.WParam = reinterpret_cast<WPARAM>(FRegion.Get());
}

TNativeFramePaint::~TNativeFramePaint() {
    FMessage.WParam = FAsked;
    // Painting that goes through GetDCEx gives the region to the system, which frees it.
    if (GetObjectType(FRegion.Get()) != OBJ_REGION)
        FRegion.Release();
}

namespace {

TUniqueFont HintFont(HDC dc, const TFont& font) {
    const int height = -MulDiv(font.GetSize(), GetDeviceCaps(dc, LOGPIXELSY), 72);
    return TUniqueFont(CreateFontW(height, 0, 0, 0, FW_DONTCARE, TRUE, FALSE, FALSE, DEFAULT_CHARSET, 0, 0,
                                   CLEARTYPE_QUALITY, FF_ROMAN, WideChars(font.GetName())));
}

void DrawHint(HDC dc, const TRect& client, const TControl& control, const String& hint) {
    const THintInsidePlace place = HintInsidePlace(client);
    const COLORREF background = ColorToRGB(control.GetColor());
    const TUniqueFont font = HintFont(dc, *control.GetFont());
    const TUniqueBrush brush(CreateSolidBrush(background));
    const TSavedDC saved(dc);
    SelectObject(dc, font.Get());
    SetBkColor(dc, background);
    // The outermost pixels are the background's; some native classes erase it only while they paint themselves.
    const RECT edge = ToWin(client);
    FrameRect(dc, &edge, brush.Get());
    const RECT area = ToWin(place.Background);
    FillRect(dc, &area, brush.Get());
    RECT text = ToWin(place.Text);
    SetTextColor(dc, ColorToRGB(clGrayText));
    DrawTextW(dc, WideChars(hint), -1, &text, DT_HIDEPREFIX | DT_END_ELLIPSIS);
}

void AnswerPaint(HWND window, const TRect& area, const TControl& control, const String& hint, const TMessage& message) {
    if (message.WParam) {
        DrawHint(reinterpret_cast<HDC>(message.WParam), area, control, hint); // onto something else than the screen
        return;
    }
    const TPaintDC dc(window);
    DrawHint(dc, area, control, hint);
}

} // namespace

void PaintHintInside(HWND part, const TControl& control, const String& hint, const TMessage& message) {
    RECT client{};
    GetClientRect(part, &client);
    AnswerPaint(part, FromWin(client), control, hint, message);
}

void PaintHintInside(TWinControl& control, const TRect& area, const String& hint, const TMessage& message) {
    AnswerPaint(control.GetHandle(), area, control, hint, message);
}

void PaintHintInside(TWinControl& control, const String& hint, const TMessage& message) {
    PaintHintInside(control.GetHandle(), control, hint, message);
}

} // namespace ZOR
