#include "lists/Zorarrowfield.h"

#include "foundation/Zorgradient.h"
#include "foundation/Zortheme.h"
#include "framework/graphics/textmetrics.h"
#include "framework/windows/application.h"

#include <algorithm>

namespace ZOR {

namespace {

constexpr TSize kInitialSize{145, 21};
constexpr int kTextMargin = 2; // pixels between the text and the arrow or the border

} // namespace

const TClassInfo& TZORArrowField::StaticClass() {
    static const TClassInfo info = DescribeClass<TZORArrowField>(u"TZORArrowField", TMemo::StaticClass());
    return info;
}

TZORArrowField::TZORArrowField(TComponent* owner) : TZORScreenKeyboard(owner) {
    SetWordWrap(false);
    SetWantReturns(false);
    SetBounds(0, 0, kInitialSize.Width, kInitialSize.Height);
}

TZORArrowField::~TZORArrowField() {
    Destroying();
    DestroyHandle();
}

void TZORArrowField::CreateParams(TCreateParams& params) {
    TZORScreenKeyboard::CreateParams(params);
    // A window of several lines scrolls sideways only where its text is flush left. Otherwise a text that is longer
    // than the field goes on in a next line, and the one with the caret shows.
    if ((params.Style & (ES_RIGHT | ES_CENTER)) == 0)
        params.Style &= ~static_cast<DWORD>(ES_AUTOVSCROLL);
}

void TZORArrowField::CreateWnd() {
    TZORScreenKeyboard::CreateWnd();
    PlaceText();
}

void TZORArrowField::CMFontChanged(TMessage& message) {
    TLifeGuard alive(*this);
    TZORScreenKeyboard::CMFontChanged(message);
    if (alive)
        PlaceText();
}

void TZORArrowField::SetLook(TColor& color, TColor value) {
    if (color == value)
        return;
    color = value;
    FGradientBrush.Reset();
    Invalidate();
}

bool TZORArrowField::HasGradient() const {
    return GetEnabled() && (FGradientColorUp != clWhite || FGradientColorDown != clWhite);
}

TRect TZORArrowField::ArrowRect() const {
    TRect area = GetClientRect();
    const int width = std::min(GetSystemMetrics(SM_CXVSCROLL), area.Width());
    if (UseRightToLeftAlignment())
        area.Right = area.Left + width;
    else
        area.Left = area.Right - width;
    return area;
}

/// The client area beside the arrow.
TRect TZORArrowField::TextArea() const {
    TRect area = GetClientRect();
    const TRect arrow = ArrowRect();
    if (UseRightToLeftAlignment())
        area.Left = arrow.Right;
    else
        area.Right = arrow.Left;
    return area;
}

/// One line in the middle of the field, beside the arrow.
void TZORArrowField::PlaceText() {
    if (!HandleAllocated())
        return;
    TRect area = TextArea();
    const int height = TTextMeasure(*GetFont()).LineHeight();
    area.Top = std::max((area.Height() - height) / 2, 0);
    RECT place{area.Left + kTextMargin, area.Top, std::max(area.Right - kTextMargin, area.Left + kTextMargin),
               area.Top + height};
    SendMessageW(FHandle, EM_SETRECTNP, 0, reinterpret_cast<LPARAM>(&place));
}

/// The brush with which the native window erases: the gradient as high as the field.
void TZORArrowField::AnswerBackground(TMessage& message) {
    const auto dc = reinterpret_cast<HDC>(message.WParam);
    if (!GetEnabled()) {
        SetBkColor(dc, ColorToRGB(clBtnFace));
        message.Result = reinterpret_cast<LRESULT>(GetSysColorBrush(COLOR_BTNFACE));
        return;
    }
    if (!HasGradient())
        return;
    constexpr int kWidth = 8; // pixels, which the brush repeats
    const int height = std::max(GetClientHeight(), 1);
    if (!FGradientBrush || FGradientHeight != height) {
        FGradientHeight = height;
        FGradientBitmap.Reset(CreateCompatibleBitmap(dc, kWidth, height));
        const TUniqueMemoryDC memory(CreateCompatibleDC(dc));
        {
            const TSelectedObject bitmap(memory.Get(), FGradientBitmap.Get());
            FillGradient(memory.Get(), {0, 0, kWidth, height}, static_cast<TColor>(ColorToRGB(FGradientColorUp)),
                         static_cast<TColor>(ColorToRGB(FGradientColorDown)), TGradientAxis::Vertical);
        }
        FGradientBrush.Reset(CreatePatternBrush(FGradientBitmap.Get()));
    }
    SetBkMode(dc, TRANSPARENT);
    message.Result = reinterpret_cast<LRESULT>(FGradientBrush.Get());
}

void TZORArrowField::WMPaint(TMessage& message) {
    TLifeGuard alive(*this);
    if (const String hint = HintToShow(); !hint.empty())
        PaintHintInside(*this, TextArea(), hint, message);
    else
        TZORScreenKeyboard::WMPaint(message);
    if (!alive || !HandleAllocated())
        return;
    if (message.WParam)
        PaintArrow(reinterpret_cast<HDC>(message.WParam));
    else
        PaintArrow(TWindowDC(FHandle));
}

void TZORArrowField::PaintArrow(HDC dc) const {
    const TRect area = ArrowRect();
    const bool enabled = GetEnabled();
    const auto plain = static_cast<TColor>(ColorToRGB(enabled ? GetColor() : clBtnFace));
    const bool gradient = HasGradient();
    const auto mixed = [&](TColor color) {
        // The more the field is in use, the more of the colour of what is selected shows.
        const int share = !enabled ? 0 : ArrowIsDown() ? 96 : FHot ? 48 : 0;
        return GradientBand({}, static_cast<TColor>(ColorToRGB(color)), static_cast<TColor>(ColorToRGB(clHighlight)),
                            TGradientAxis::Vertical, share)
            .Color;
    };
    const TSavedDC saved(dc);
    FillGradient(dc, area, mixed(gradient ? FGradientColorUp : plain), mixed(gradient ? FGradientColorDown : plain),
                 TGradientAxis::Vertical);
    const TUniqueBrush line(CreateSolidBrush(ColorToRGB(clBtnShadow)));
    RECT edge = ToWin(area);
    if (UseRightToLeftAlignment())
        edge.left = edge.right - 1;
    else
        edge.right = edge.left + 1;
    FillRect(dc, &edge, line.Get());

    const TColor arrow = FArrowColor == clBlack && !gradient && ThemeIsDark() ? clWindowText : FArrowColor;
    const auto color = ColorToRGB(enabled ? arrow : clGrayText);
    const TUniqueBrush brush(CreateSolidBrush(color));
    const TUniquePen pen(CreatePen(PS_SOLID, 1, color));
    const TSelectedObject brushSelected(dc, brush.Get());
    const TSelectedObject penSelected(dc, pen.Get());
    const int half = std::max(area.Width() / 5, 2); // of the triangle's width
    const int x = (area.Left + area.Right) / 2;
    const int y = (area.Top + area.Bottom - half) / 2;
    const POINT points[] = {{x - half, y}, {x + half, y}, {x, y + half}};
    Polygon(dc, points, 3);
}

void TZORArrowField::InvalidateArrow() {
    if (!HandleAllocated())
        return;
    const RECT area = ToWin(ArrowRect());
    InvalidateRect(GetHandle(), &area, TRUE);
}

void TZORArrowField::WMSetCursor(TMessage& message) {
    POINT point{};
    GetCursorPos(&point);
    if (reinterpret_cast<HWND>(message.WParam) == FHandle && OnArrow(ScreenToClient(FromWin(point)))) {
        ::SetCursor(TheScreen().CursorHandle(crArrow));
        message.Result = TRUE;
        return;
    }
    TZORScreenKeyboard::WMSetCursor(message);
}

void TZORArrowField::myWndMethod(const TMessage& message) {
    switch (message.Msg) {
    case CM_MOUSEENTER:
    case CM_MOUSELEAVE:
        FHot = message.Msg == CM_MOUSEENTER;
        InvalidateArrow();
        break;
    case WM_SIZE:
    case CM_BIDIMODECHANGED:
    case CM_CTL3DCHANGED:
        PlaceText();
        Invalidate();
        break;
    case WM_CHAR:
    case WM_KEYDOWN:
    case WM_LBUTTONDOWN:
    case WM_MOUSEMOVE:
    case EM_SETSEL:
        // The native window draws letters over what is there; over a gradient they would grow bolder each time.
        if (HasGradient() && (message.Msg != WM_MOUSEMOVE || GetMouseCapture()))
            Invalidate();
        break;
    default:
        break;
    }
}

// Messages

void TZORArrowField::SetEnabled(bool value) {
    TLifeGuard alive(*this);
    TZORScreenKeyboard::SetEnabled(value);
    if (alive)
        Invalidate();
}

void TZORArrowField::Dispatch(TMessage& message) {
    switch (message.Msg) {
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK: {
        const TPoint point = PointFromLParam(message.LParam);
        TLifeGuard alive(*this);
        FTextPressed = !OnArrow(point);
        if (!FTextPressed) {
            PressArrow();
            if (alive)
                MouseDown(mbLeft, ShiftStateFromMouse(message.WParam), point.X, point.Y);
            return;
        }
        PressText();
        if (!alive)
            return;
        break;
    }
    case CN_CTLCOLOREDIT:
    case CN_CTLCOLORSTATIC:
        TZORScreenKeyboard::Dispatch(message);
        return AnswerBackground(message);
    default:
        break;
    }
    TZORScreenKeyboard::Dispatch(message);
}

void TZORArrowField::WndProc(TMessage& message) {
    TLifeGuard alive(*this);
    TZORScreenKeyboard::WndProc(message);
    if (alive)
        myWndMethod(message);
}

void TZORArrowField::MouseUp(TMouseButton button, TShiftState shift, int x, int y) {
    TLifeGuard alive(*this);
    TZORScreenKeyboard::MouseUp(button, shift, x, y);
    if (alive && button == mbLeft && std::exchange(FTextPressed, false) && GetClientRect().Contains({x, y}) &&
        !OnArrow({x, y}))
        Fire(*this, OnEditClick, this);
}

} // namespace ZOR
