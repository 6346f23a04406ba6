#include "controls/Extrasigns.h"

#include "foundation/Zorgradient.h"
#include "framework/graphics/brushes.h"
#include "framework/graphics/canvas.h"
#include "framework/graphics/handles.h"
#include "framework/graphics/pens.h"
#include "framework/windows/application.h"

namespace ZOR {

namespace {

// The face of a key: light, so that the letter reads well on the dark ground.
constexpr TColor kKeyTop = 0xFDFDFD;
constexpr TColor kKeyBottom = 0xDCDADC;
constexpr TColor kHotTop = 0xFFF6EA;
constexpr TColor kHotBottom = 0xF2D9B8;
constexpr TColor kKeyEdge = 0x4A484A;
constexpr TColor kHotEdge = 0xB07A3C;
constexpr TColor kLetter = 0x202020;
constexpr TColor kBackgroundTop = 0x7F7D7F;

bool ShiftHeld() {
    return GetAsyncKeyState(VK_SHIFT) < 0;
}

} // namespace

const TClassInfo& Textrasignsfrm::StaticClass() {
    static const TClassInfo info = DescribeClass<Textrasignsfrm>(u"Textrasignsfrm", TZORPopup::StaticClass());
    return info;
}

Textrasignsfrm::Textrasignsfrm() : TZORPopup(LastingPopup) {
    SetDoubleBuffered(true);
    SetColor(ExtraSignsBackground);
    LayOutKeys(ExtraSignsKeySize);
}

Textrasignsfrm::~Textrasignsfrm() {
    DestroyHandle();
}

void Textrasignsfrm::LayOutKeys(int keySize) {
    FKeySize = keySize;
    FHot = nullptr;
    FPressed = nullptr;
    FKeys = ExtraSignKeys(keySize);
    const TSize size = ExtraSignsSize(static_cast<int>(FKeys.size()), keySize);
    SetBounds(GetLeft(), GetTop(), size.Width, size.Height);
    GetFont()->SetHeight(-MulDiv(keySize, 13, ExtraSignsKeySize));
}

void Textrasignsfrm::Dispatch(TMessage& message) {
    if (message.Msg == WM_ERASEBKGND)
        message.Result = 1; // the gradient covers everything
    else
        TZORPopup::Dispatch(message);
}

void Textrasignsfrm::Prepare() {
    LayOutKeys(ScaledExtraSignsKeySize(TheScreen().GetPixelsPerInch(TargetWindow())));
}

/// Below the field also where the screen ends, so that it never covers the field; this is meant.
TRect Textrasignsfrm::PlaceFor(const TRect& target, const TRect&) const {
    return Bounds(target.Left, target.Bottom, GetWidth(), GetHeight());
}

// Painting

void Textrasignsfrm::Paint() {
    PaintBackground();
    const bool shiftHeld = ShiftHeld();
    for (const KEYDEF& key : FKeys)
        PaintKey(key, shiftHeld);
}

void Textrasignsfrm::PaintBackground() {
    FillGradient(GetCanvas()->GetHandle(), GetClientRect(), kBackgroundTop, ExtraSignsBackground,
                 TGradientAxis::Vertical);
}

void Textrasignsfrm::PaintKey(const KEYDEF& key, bool shiftHeld) {
    TCanvas& canvas = *GetCanvas();
    const bool hot = &key == FHot;
    const bool pressed = hot && &key == FPressed;
    const TRect face = key.rect.Inflated(-1, -1);
    const TColor top = hot ? kHotTop : kKeyTop;
    const TColor bottom = hot ? kHotBottom : kKeyBottom;
    FillGradient(canvas.GetHandle(), face, pressed ? bottom : top, pressed ? top : bottom, TGradientAxis::Vertical);
    canvas.GetBrush()->SetColor(hot ? kHotEdge : kKeyEdge);
    canvas.FrameRect(face);
    canvas.SetFont(GetFont());
    canvas.GetFont()->SetColor(kLetter);
    canvas.GetBrush()->SetStyle(bsClear);
    TRect text = pressed ? face.Offset(0, 1) : face;
    const char16_t sign = KeySign(key, shiftHeld);
    canvas.TextRect(text, StringView(&sign, 1), DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX);
    canvas.GetBrush()->SetStyle(bsSolid);
}

void Textrasignsfrm::InvalidateKey(const KEYDEF* key) {
    if (!key || !HandleAllocated())
        return;
    const RECT rect = ToWin(key->rect);
    InvalidateRect(GetHandle(), &rect, FALSE);
}

// Mouse

void Textrasignsfrm::SetHot(const KEYDEF* key) {
    if (FHot == key)
        return;
    InvalidateKey(FHot);
    FHot = key;
    InvalidateKey(FHot);
}

void Textrasignsfrm::MouseMove(TShiftState shift, int x, int y) {
    SetHot(KeyAt(FKeys, {x, y}));
    TZORPopup::MouseMove(shift, x, y);
}

void Textrasignsfrm::CMMouseLeave(TMessage& message) {
    SetHot(nullptr);
    TZORPopup::CMMouseLeave(message);
}

void Textrasignsfrm::MouseDown(TMouseButton button, TShiftState shift, int x, int y) {
    TLifeGuard alive(*this);
    TZORPopup::MouseDown(button, shift, x, y);
    if (!alive || button != mbLeft)
        return;
    FPressed = KeyAt(FKeys, {x, y});
    SetHot(FPressed);
    InvalidateKey(FPressed);
}

void Textrasignsfrm::MouseUp(TMouseButton button, TShiftState shift, int x, int y) {
    TLifeGuard alive(*this);
    TZORPopup::MouseUp(button, shift, x, y);
    if (!alive || button != mbLeft || !FPressed)
        return;
    const KEYDEF* key = KeyAt(FKeys, {x, y});
    const bool clicked = key == FPressed;
    InvalidateKey(FPressed);
    FPressed = nullptr;
    if (clicked)
        InsertSignOf(*key);
}

void Textrasignsfrm::InsertSignOf(const KEYDEF& key) {
    const char16_t sign = KeySign(key, ShiftHeld());
    const HWND target = TargetWindow();
    if (!target)
        return; // the field has gone meanwhile
    DWORD start = 0;
    DWORD end = 0;
    SendMessageW(target, EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
    const auto length = static_cast<std::size_t>(SendMessageW(target, WM_GETTEXTLENGTH, 0, 0));
    String text(length, u'\0');
    const LRESULT copied = SendMessageW(target, WM_GETTEXT, length + 1, reinterpret_cast<LPARAM>(text.data()));
    text.resize(static_cast<std::size_t>(copied));
    const auto insertion = InsertSign(text, start, FLengthLimit ? FLengthLimit() : 0, sign);
    if (!insertion)
        return;
    const LRESULT firstLine = SendMessageW(target, EM_GETFIRSTVISIBLELINE, 0, 0);
    TLifeGuard alive(*this);
    FInserting = true;
    SendMessageW(target, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(insertion->Text.c_str()));
    if (!alive)
        return; // a handler of the change closed the field
    FInserting = false;
    // The person's own doing, although it came as a new text: the field is modified and stays where it was scrolled to.
    SendMessageW(target, EM_SETMODIFY, TRUE, 0);
    SendMessageW(target, EM_LINESCROLL, 0, firstLine - SendMessageW(target, EM_GETFIRSTVISIBLELINE, 0, 0));
    PostMessageW(target, EM_SETSEL, insertion->Caret, static_cast<LPARAM>(insertion->Caret));
    PostMessageW(target, WM_KEYUP, 0, 0);
    PostMessageW(target, ExtraSignsChangedMessage, 0, 0);
}

} // namespace ZOR
