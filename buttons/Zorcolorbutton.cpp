#include "buttons/Zorcolorbutton.h"

#include "foundation/Zorpalette.h"
#include "foundation/Zortheme.h"
#include "framework/graphics/handles.h"

namespace ZOR {

// Published tables

const TEnumInfo& DescribeEnum(TZORColorStyles) {
    static const TEnumInfo info{u"TZORColorStyles", {u"csNone", u"csUser", u"csBlue", u"csRed"}};
    return info;
}

const TClassInfo& TZORColors::StaticClass() {
    const auto named = [](const TPropInfo& row) { return TPropInfo(row).Named(ColorIdentifiers()); };
    constexpr const TColorButtonStyle& initial = DefaultButtonColors;
    static const TClassInfo info = DescribeClass<TZORColors>(
        u"TZORColors", TPersistent::StaticClass(),
        {named(Property<&TZORColors::getGradientStart, &TZORColors::setGradientStart>(u"GradientStart",
                                                                                      initial.GradientStart)),
         named(Property<&TZORColors::getGradientEnd, &TZORColors::setGradientEnd>(u"GradientEnd", initial.GradientEnd)),
         named(Property<&TZORColors::getFrame, &TZORColors::setFrame>(u"Frame", initial.Frame)),
         named(Property<&TZORColors::getBorder, &TZORColors::setBorder>(u"Border", initial.Border)),
         Event<&TZORColors::OnStateChangeEvent>(u"OnStateChangeEvent")});
    return info;
}

const TClassInfo& TZORColorButton::StaticClass() {
    // Colors stands before ColorStyles: when a form is loaded the colours make the style csUser first, and the stored
    // style has the last word.
    static const TClassInfo info = DescribeClass<TZORColorButton>(
        u"TZORColorButton", TButton::StaticClass(),
        {Event<&TZORColorButton::OnDrawButton>(u"OnDrawButton"),
         Property<&TZORColorButton::getColors, &TZORColorButton::setColors>(u"Colors"),
         Property<&TZORColorButton::getColorStyles, &TZORColorButton::setColorStyles>(u"ColorStyles", csNone),
         Property<&TControl::GetParentFont, &TControl::SetParentFont>(u"ParentFont", false)});
    return info;
}

// Colours

void TZORColors::Changed() {
    const TStateChangeEvent handler = OnStateChangeEvent; // which may put another one in its own place
    if (handler)
        handler(this);
}

void TZORColors::Store(TColor& color, TColor value) {
    color = value;
    Changed();
}

void TZORColors::setGradientStart(TColor value) {
    Store(FGradientStart, value);
}

void TZORColors::setGradientEnd(TColor value) {
    Store(FGradientEnd, value);
}

void TZORColors::setFrame(TColor value) {
    Store(FFrame, value);
}

void TZORColors::setBorder(TColor value) {
    Store(FBorder, value);
}

void TZORColors::Assign(TPersistent* source) {
    const auto* colors = As<TZORColors>(source);
    if (!colors)
        return TPersistent::Assign(source);
    FGradientStart = colors->FGradientStart;
    FGradientEnd = colors->FGradientEnd;
    FFrame = colors->FFrame;
    FBorder = colors->FBorder;
    Changed();
}

// Life and style

TZORColorButton::TZORColorButton(TComponent* owner, TZORColorStyles style) : TButton(owner) {
    Inicjalizuj();
    setColorStyles(style);
}

/// What all constructors begin with.
void TZORColorButton::Inicjalizuj() {
    SetParentFont(false);
    FColors = std::make_unique<TZORColors>(this);
    FCanvas = std::make_shared<TCanvas>();
    ListenToColors();
}

TZORColorButton::~TZORColorButton() {
    Destroying();
    DestroyHandle(); // while its colours are there: a dying window may still be painted
}

void TZORColorButton::ListenToColors() {
    FColors->OnStateChangeEvent = [this](TPersistent* sender) { ColorsChange(sender); };
}

void TZORColorButton::ColorsChange(TPersistent*) {
    FColorStyles = csUser;
    Invalidate();
}

void TZORColorButton::setColorStyles(TZORColorStyles value) {
    FColorStyles = value;
    FColors->OnStateChangeEvent = nullptr;
    if (value == csNone)
        DefaultColors();
    else if (const auto style = ColorsOfStyle(value))
        ApplyStyle(*style);
    ListenToColors();
    Invalidate();
}

void TZORColorButton::DefaultColors() {
    ApplyStyle(DefaultButtonColors);
}

void TZORColorButton::ApplyStyle(const TColorButtonStyle& style) {
    if (!IsLoading() || GetFont()->GetColor() == DefaultButtonColors.Font)
        GetFont()->SetColor(style.Font);
    FColors->setGradientStart(style.GradientStart);
    FColors->setGradientEnd(style.GradientEnd);
    FColors->setFrame(style.Frame);
    FColors->setBorder(style.Border);
}

// Colour arithmetic

void TZORColorButton::GetRGB(TColor color, int& red, int& green, int& blue) {
    const std::uint32_t rgb = ColorToRGB(color);
    red = static_cast<int>(rgb & 0xFF);
    green = static_cast<int>(rgb >> 8 & 0xFF);
    blue = static_cast<int>(rgb >> 16 & 0xFF);
}

TColor TZORColorButton::RozjasnijSciemnij(TColor color, bool brighten) {
    return ShadedColor(static_cast<TColor>(ColorToRGB(color)), brighten);
}

// Window

void TZORColorButton::CreateParams(TCreateParams& params) {
    TButton::CreateParams(params);
    params.Style |= BS_OWNERDRAW;
}

/// The native look of a default button would end the owner drawing.
void TZORColorButton::SetButtonStyle(bool isDefault) {
    FDefaultLook = isDefault;
    Invalidate();
}

/// The face covers the whole button; filling it before would flicker.
void TZORColorButton::WMEraseBkgnd(TMessage& message) {
    message.Result = 1;
}

void TZORColorButton::SetHot(bool value) {
    FHot = value;
    Invalidate();
}

void TZORColorButton::Dispatch(TMessage& message) {
    switch (message.Msg) {
    case CN_DRAWITEM:
        return CNDrawItem(message);
    case WM_LBUTTONDBLCLK: // a quick second press is a press
        message.Result = Perform(WM_LBUTTONDOWN, message.WParam, message.LParam);
        return;
    case CM_MOUSEENTER:
    case CM_MOUSELEAVE:
        SetHot(message.Msg == CM_MOUSEENTER);
        break;
    case CM_ENABLEDCHANGED:
    case CM_FONTCHANGED:
        Invalidate();
        break;
    default:
        break;
    }
    TButton::Dispatch(message);
}

namespace {

TUniqueRegion RoundShape(const TRect& client) {
    constexpr int kCorner = 4;
    return TUniqueRegion(CreateRoundRectRgn(0, 0, client.Right, client.Bottom, kCorner, kCorner));
}

} // namespace

void TZORColorButton::RoundCornerOf(TWinControl* control) {
    TUniqueRegion shape = RoundShape(control->GetClientRect());
    if (SetWindowRgn(control->GetHandle(), shape.Get(), TRUE))
        shape.Release(); // it belongs to the window now
}

/// Early, before it is seen: a visible window that takes a shape uncovers its parent and is painted again. Painting
/// asks too, and finds nothing to do unless somebody has given the window a shape of another box, or the form stopped
/// being a designer's.
void TZORColorButton::KeepShape() {
    if (IsDesigning())
        return;
    const TRect client = GetClientRect();
    const TSize size{client.Width(), client.Height()};
    RECT box{};
    if (std::exchange(FShapedSize, size) == size && GetWindowRgnBox(GetHandle(), &box) != ERROR &&
        FromWin(box) == FShape)
        return;
    GetRgnBox(RoundShape(client).Get(), &box); // asking the window would cost more
    FShape = FromWin(box);
    RoundCornerOf(this);
}

void TZORColorButton::CreateWnd() {
    FShapedSize.reset();
    TButton::CreateWnd();
    KeepShape();
}

void TZORColorButton::WMSize(TMessage& message) {
    TLifeGuard alive(*this);
    TButton::WMSize(message);
    if (alive && HandleAllocated())
        KeepShape();
}

// Painting

namespace {

class TCanvasLock {
public:
    explicit TCanvasLock(TCanvas& canvas) : FCanvas(canvas) { FCanvas.Lock(); }
    TCanvasLock(const TCanvasLock&) = delete;
    TCanvasLock& operator=(const TCanvasLock&) = delete;
    ~TCanvasLock() { FCanvas.Unlock(); }

private:
    TCanvas& FCanvas;
};

} // namespace

void TZORColorButton::CNDrawItem(TMessage& message) {
    const auto& item = *reinterpret_cast<const DRAWITEMSTRUCT*>(message.LParam);
    TPen plain;
    const std::shared_ptr<TCanvas> canvas = FCanvas;
    const TSavedDC saved(item.hDC);
    const TCanvasLock lock(*canvas);
    const TCanvasBinding binding(canvas, item.hDC);
    canvas->SetFont(GetFont());
    canvas->SetBrush(GetBrush());
    canvas->SetPen(&plain); // the handler of the last painting may have left another
    message.Result = TRUE;
    DrawButton(*canvas, FromWin(item.rcItem), OwnerDrawState(item));
}

/// The colours before they are shaded. The look of a plain button is that of a light theme; its text, which follows the
/// theme, could not be read on it in a dark one.
TColorButtonFace TZORColorButton::Face() const {
    const auto resolved = [](TColor color) { return static_cast<TColor>(ColorToRGB(color)); };
    const TColor text = GetFont()->GetColor();
    if (FColorStyles == csNone && text == DefaultButtonColors.Font && ThemeIsDark())
        return {resolved(clBtnFace), resolved(clBtnFace), clBtnText};
    return {resolved(FColors->getGradientStart()), resolved(FColors->getGradientEnd()), text};
}

void TZORColorButton::DrawButton(TCanvas& canvas, const TRect& rect, TOwnerDrawState state) {
    const TColorButtonFace face = FaceInState(Face(), {state.Contains(odDisabled), state.Contains(odSelected), FHot});
    GradientFillCanvas(&canvas, face.GradientStart, face.GradientEnd, rect, gdVertical);
    KeepShape();
    canvas.GetBrush()->SetStyle(bsClear);
    canvas.GetFont()->SetColor(face.Text);
    DrawCaption(canvas, rect);
    canvas.GetPen()->SetColor(FColors->getBorder());
    canvas.RoundRect(rect.Left, rect.Top, rect.Right - 1, rect.Bottom - 1, 5, 5);
    if (FDefaultLook) {
        canvas.GetPen()->SetColor(FColors->getFrame());
        canvas.RoundRect(rect.Left, rect.Top, rect.Right - 2, rect.Bottom - 2, 3, 3);
    }
    if (OnDrawButton)
        Fire(*this, OnDrawButton, this, rect, state);
}

void TZORColorButton::DrawCaption(TCanvas& canvas, TRect rect) {
    UINT flags = DT_CENTER | DT_VCENTER | DT_SINGLELINE;
    if (UseRightToLeftReading())
        flags |= DT_RTLREADING;
    canvas.TextRect(rect, GetText(), flags);
}

void Zorcolorbutton::Register() {
    RegisterComponents(PalettePage, {&TZORColorButton::StaticClass()});
}

} // namespace ZOR
