#include "framework/windows/control.h"

#include "framework/graphics/canvas.h"
#include "framework/windows/application.h"
#include "framework/windows/mouse.h"

#include <algorithm>

namespace framework {

namespace {

/// The anchors that belong to an alignment: the sides the control touches.
TAnchors DefaultAnchors(TAlign align) {
    switch (align) {
    case alTop:
        return {akLeft, akTop, akRight};
    case alBottom:
        return {akLeft, akRight, akBottom};
    case alLeft:
        return {akLeft, akTop, akBottom};
    case alRight:
        return {akTop, akRight, akBottom};
    case alClient:
        return {akLeft, akTop, akRight, akBottom};
    default:
        return {akLeft, akTop};
    }
}

} // namespace

const TClassInfo& TSizeConstraints::StaticClass() {
    static const TClassInfo info = DescribeClass<TSizeConstraints>(
        u"TSizeConstraints", TPersistent::StaticClass(),
        {Property<&TSizeConstraints::GetMaxHeight, &TSizeConstraints::SetMaxHeight>(u"MaxHeight", 0),
         Property<&TSizeConstraints::GetMaxWidth, &TSizeConstraints::SetMaxWidth>(u"MaxWidth", 0),
         Property<&TSizeConstraints::GetMinHeight, &TSizeConstraints::SetMinHeight>(u"MinHeight", 0),
         Property<&TSizeConstraints::GetMinWidth, &TSizeConstraints::SetMinWidth>(u"MinWidth", 0)});
    return info;
}

void TSizeConstraints::Assign(TPersistent* source) {
    const auto* other = As<TSizeConstraints>(source);
    if (!other) {
        TPersistent::Assign(source);
        return;
    }
    FMaxHeight = other->FMaxHeight;
    FMaxWidth = other->FMaxWidth;
    FMinHeight = other->FMinHeight;
    FMinWidth = other->FMinWidth;
    FControl->SetBoundsRect(FControl->GetBoundsRect());
}

void TSizeConstraints::Change(int& limit, int value) {
    value = std::max(value, 0);
    if (limit == value)
        return;
    limit = value;
    FControl->SetBoundsRect(FControl->GetBoundsRect());
}

void TSizeConstraints::Scale(int m, int d) {
    for (int* limit : {&FMaxHeight, &FMaxWidth, &FMinHeight, &FMinWidth})
        *limit = MulDiv(*limit, m, d);
}

const TClassInfo& TControl::StaticClass() {
    static const TClassInfo info = DescribeClass<TControl>(
        u"TControl", TComponent::StaticClass(),
        {Property<&TControl::GetLeft, &TControl::SetLeft>(u"Left"),
         Property<&TControl::GetTop, &TControl::SetTop>(u"Top"),
         Property<&TControl::GetWidth, &TControl::SetWidth>(u"Width"),
         Property<&TControl::GetHeight, &TControl::SetHeight>(u"Height"),
         Property<&TControl::GetCursor, &TControl::SetCursor>(u"Cursor", crDefault).Named(CursorIdentifiers()),
         Property<&TControl::GetHint, &TControl::SetHint>(u"Hint")});
    return info;
}

TControl::TControl(TComponent* owner)
    : TComponent(owner), FConstraints(std::make_unique<TSizeConstraints>(this)), FFont(std::make_unique<TFont>()) {
    FFont->OnChange = [this](TObject*) { FontChanged(); };
}

TControl::~TControl() {
    Destroying();
    FFont->OnChange = nullptr;
    MouseTracker().Forget(this);
    SetParent(nullptr);
}

// Place

void TControl::SetBounds(int left, int top, int width, int height) {
    width = ConstrainedExtent(std::max(width, 0), FConstraints->GetMinWidth(), FConstraints->GetMaxWidth());
    height = ConstrainedExtent(std::max(height, 0), FConstraints->GetMinHeight(), FConstraints->GetMaxHeight());
    if (left == FLeft && top == FTop && width == FWidth && height == FHeight)
        return;
    const bool sized = width != FWidth || height != FHeight;
    InvalidateControl(FVisible, false);
    UpdateBoundsDirect(left, top, width, height);
    Invalidate();
    TLifeGuard alive(*this);
    Perform(WM_WINDOWPOSCHANGED);
    if (alive)
        RequestAlign();
    if (alive && sized)
        Resize();
}

void TControl::UpdateBoundsDirect(int left, int top, int width, int height) {
    FLeft = left;
    FTop = top;
    FWidth = width;
    FHeight = height;
    UpdateAnchorBase();
}

void TControl::UpdateAnchorBase() {
    if (FAligning || !FParent || FAnchors == TAnchors{akLeft, akTop})
        return; // the left upper corner is kept without a base to measure from
    const TRect client = FParent->GetClientRect();
    FAnchorBase = {GetBoundsRect(), {client.Width(), client.Height()}};
}

void TControl::SetClientWidth(int value) {
    SetBounds(FLeft, FTop, FWidth - GetClientWidth() + value, FHeight);
}

void TControl::SetClientHeight(int value) {
    SetBounds(FLeft, FTop, FWidth, FHeight - GetClientHeight() + value);
}

TPoint TControl::GetClientOrigin() const {
    const TPoint origin = FParent ? FParent->GetClientOrigin() : TPoint{};
    return {origin.X + FLeft, origin.Y + FTop};
}

TPoint TControl::ClientToScreen(TPoint point) const {
    const TPoint origin = GetClientOrigin();
    return {point.X + origin.X, point.Y + origin.Y};
}

TPoint TControl::ScreenToClient(TPoint point) const {
    const TPoint origin = GetClientOrigin();
    return {point.X - origin.X, point.Y - origin.Y};
}

void TControl::SetAlign(TAlign value) {
    if (FAlign == value)
        return;
    const auto isSideways = [](TAlign align) { return align == alLeft || align == alRight; };
    const auto isUpright = [](TAlign align) { return align == alTop || align == alBottom; };
    const TAlign old = FAlign;
    FAlign = value;
    if (FAnchors == DefaultAnchors(old))
        FAnchors = DefaultAnchors(value);
    if (value == alNone)
        UpdateAnchorBase(); // from here on it is the anchors that place the control
    // Turning a bar by 90 degrees keeps its thickness.
    const bool turned = (isSideways(old) && isUpright(value)) || (isUpright(old) && isSideways(value));
    TLifeGuard alive(*this);
    if (turned && !IsLoading())
        SetBounds(FLeft, FTop, FHeight, FWidth);
    if (alive)
        RequestAlign();
}

void TControl::SetAnchors(TAnchors value) {
    if (FAnchors == value)
        return;
    FAnchors = value;
    UpdateAnchorBase();
}

bool TControl::AnchorsStored() const {
    return FAnchors != DefaultAnchors(FAlign);
}

void TControl::SetAutoSize(bool value) {
    if (FAutoSize == value)
        return;
    FAutoSize = value;
    if (value)
        AdjustSize();
}

void TControl::AdjustSize() {
    int width = FWidth;
    int height = FHeight;
    if (!IsLoading() && FAutoSize && CanAutoSize(width, height))
        SetBounds(FLeft, FTop, width, height);
}

bool TControl::CanAutoSize(int&, int&) {
    return true;
}

void TControl::Resize() {
    Fire(*this, OnResize, this);
}

void TControl::RequestAlign() {
    if (FParent)
        FParent->AlignControl(this);
}

void TControl::ChangeScale(int m, int d) {
    if (m == d)
        return;
    FConstraints->Scale(m, d);
    TLifeGuard alive(*this);
    {
        // The anchors' base is scaled with the control, not taken from where it passes on the way.
        FAligning = true;
        const TAtScopeEnd aligned(*this, [this] { FAligning = false; });
        SetBounds(MulDiv(FLeft, m, d), MulDiv(FTop, m, d), MulDiv(FWidth, m, d), MulDiv(FHeight, m, d));
    }
    if (!alive)
        return;
    const TRect& base = FAnchorBase.Place;
    FAnchorBase.Place = {MulDiv(base.Left, m, d), MulDiv(base.Top, m, d), MulDiv(base.Right, m, d),
                         MulDiv(base.Bottom, m, d)};
    FAnchorBase.Parent = {MulDiv(FAnchorBase.Parent.Width, m, d), MulDiv(FAnchorBase.Parent.Height, m, d)};
    if (!FParentFont) {
        FScaling = true;
        const TAtScopeEnd scaled(*this, [this] { FScaling = false; });
        FFont->SetHeight(MulDiv(FFont->GetHeight(), m, d));
    }
}

// Parent

void TControl::SetParent(TWinControl* value) {
    if (FParent == value)
        return;
    if (value && (value == static_cast<TControl*>(this) || IsParentOf(value)))
        throw EInvalidOperation(u"A control cannot have itself as its parent");
    TLifeGuard alive(*this);
    TLifeGuard parentAlive(value ? static_cast<TControl&>(*value) : *this);
    if (FParent)
        FParent->Remove(this);
    if (value && alive && parentAlive)
        value->Insert(this);
    if (alive)
        UpdateAnchorBase();
}

TComponent* TControl::GetParentComponent() const {
    return FParent;
}

void TControl::SetParentComponent(TComponent* parent) {
    if (auto* control = As<TWinControl>(parent))
        SetParent(control);
}

bool TControl::IsParentOf(const TControl* control) const {
    for (; control; control = control->FParent) {
        if (control == this)
            return true;
    }
    return false;
}

void TControl::BringToFront() {
    if (FParent)
        FParent->SetChildZOrder(this, true);
}

void TControl::SendToBack() {
    if (FParent)
        FParent->SetChildZOrder(this, false);
}

void TControl::Follow(bool& flag, const std::function<void()>& takeOver) {
    if (!flag || !FParent)
        return;
    const TAtScopeEnd following(*this, [&flag] { flag = true; });
    takeOver();
}

void TControl::ApplyParentProperties() {
    TLifeGuard alive(*this);
    for (UINT message : {CM_PARENTCOLORCHANGED, CM_PARENTFONTCHANGED, CM_PARENTSHOWHINTCHANGED,
                         CM_PARENTBIDIMODECHANGED, CM_PARENTCTL3DCHANGED}) {
        if (alive)
            Perform(message);
    }
}

void TControl::Loaded() {
    TComponent::Loaded();
    // While its form was being read the control had not been told which properties of the parent it follows.
    TLifeGuard alive(*this);
    if (FParent)
        ApplyParentProperties();
    if (!alive)
        return;
    UpdateAnchorBase();
    if (FAutoSize)
        AdjustSize();
}

void TControl::SetName(const String& value) {
    // In a designer a fresh control shows its name until it is given a text of its own.
    const bool followsName =
        FControlStyle.Contains(csSetCaption) && !IsLoading() && IsDesigning() && GetName() == GetText();
    TComponent::SetName(value);
    if (followsName)
        SetText(value);
}

// Visibility and state

void TControl::SetVisible(bool value) {
    if (FVisible == value)
        return;
    FVisible = value;
    TLifeGuard alive(*this);
    Perform(CM_VISIBLECHANGED, value);
    if (alive)
        RequestAlign();
}

bool TControl::ShowsOnParent() const {
    return FVisible || (IsDesigning() && !FControlStyle.Contains(csNoDesignVisible));
}

void TControl::SetEnabled(bool value) {
    if (FEnabled == value)
        return;
    FEnabled = value;
    Perform(CM_ENABLEDCHANGED);
}

int TControl::GetTextLen() const {
    return static_cast<int>(const_cast<TControl&>(*this).Perform(WM_GETTEXTLENGTH));
}

String TControl::GetText() const {
    auto& self = const_cast<TControl&>(*this);
    const auto length = static_cast<std::size_t>(GetTextLen());
    String text(length, u'\0');
    // The buffer of a String always has room for the terminator behind its last character.
    const LRESULT copied =
        length == 0 ? 0 : self.Perform(WM_GETTEXT, length + 1, reinterpret_cast<LPARAM>(text.data()));
    text.resize(static_cast<std::size_t>(std::clamp<LRESULT>(copied, 0, static_cast<LRESULT>(length))));
    return text;
}

void TControl::SetText(const String& value) {
    if (GetText() == value)
        return;
    TLifeGuard alive(*this);
    Perform(WM_SETTEXT, 0, reinterpret_cast<LPARAM>(value.c_str()));
    if (alive)
        Perform(CM_TEXTCHANGED);
}

void TControl::SetColor(TColor value) {
    if (FColor == value)
        return;
    FColor = value;
    FParentColor = false;
    Perform(CM_COLORCHANGED);
}

void TControl::SetParentColor(bool value) {
    if (FParentColor == value)
        return;
    FParentColor = value;
    if (FParent && !IsLoading())
        Perform(CM_PARENTCOLORCHANGED);
}

void TControl::FontChanged() {
    if (!FScaling)
        FParentFont = false;
    Perform(CM_FONTCHANGED);
}

void TControl::SetParentFont(bool value) {
    if (FParentFont == value)
        return;
    FParentFont = value;
    if (FParent && !IsLoading())
        Perform(CM_PARENTFONTCHANGED);
}

void TControl::SetParentShowHint(bool value) {
    if (FParentShowHint == value)
        return;
    FParentShowHint = value;
    if (FParent && !IsLoading())
        Perform(CM_PARENTSHOWHINTCHANGED);
}

void TControl::SetShowHint(bool value) {
    FParentShowHint = false;
    if (FShowHint == value)
        return;
    FShowHint = value;
    Perform(CM_SHOWHINTCHANGED);
}

void TControl::SetParentBiDiMode(bool value) {
    if (FParentBiDiMode == value)
        return;
    FParentBiDiMode = value;
    if (FParent && !IsLoading())
        Perform(CM_PARENTBIDIMODECHANGED);
}

void TControl::SetBiDiMode(TBiDiMode value) {
    FParentBiDiMode = false;
    if (FBiDiMode == value)
        return;
    FBiDiMode = value;
    Perform(CM_BIDIMODECHANGED);
}

void TControl::SetCursor(TCursor value) {
    if (FCursor == value)
        return;
    FCursor = value;
    Perform(CM_CURSORCHANGED);
}

// Painting

void TControl::InvalidateControl(bool wasVisible, bool wasOpaque) {
    if (!FParent || !FParent->HandleAllocated() || !(wasVisible || IsDesigning()))
        return;
    const RECT place = ToWin(GetBoundsRect());
    InvalidateRect(FParent->GetHandle(), &place, !wasOpaque);
}

void TControl::Invalidate() {
    InvalidateControl(FVisible, FControlStyle.Contains(csOpaque));
}

void TControl::Update() {
    if (FParent)
        FParent->Update();
}

void TControl::Repaint() {
    Invalidate();
    Update();
}

// Messages

LRESULT TControl::Perform(UINT message, WPARAM wParam, LPARAM lParam) {
    TMessage record{message, wParam, lParam, 0};
    WndProc(record);
    return record.Result;
}

void TControl::WndProc(TMessage& message) {
    if (!FControlStyle.Contains(csDoubleClicks)) {
        static_assert(WM_LBUTTONDBLCLK - WM_LBUTTONDOWN == WM_RBUTTONDBLCLK - WM_RBUTTONDOWN &&
                      WM_LBUTTONDBLCLK - WM_LBUTTONDOWN == WM_MBUTTONDBLCLK - WM_MBUTTONDOWN);
        if (message.Msg == WM_LBUTTONDBLCLK || message.Msg == WM_RBUTTONDBLCLK || message.Msg == WM_MBUTTONDBLCLK)
            message.Msg -= WM_LBUTTONDBLCLK - WM_LBUTTONDOWN;
    }
    Dispatch(message);
}

void TControl::Dispatch(TMessage& message) {
    switch (message.Msg) {
    case WM_LBUTTONDOWN:
        return WMButtonDown(message, mbLeft, {});
    case WM_RBUTTONDOWN:
        return WMButtonDown(message, mbRight, {});
    case WM_MBUTTONDOWN:
        return WMButtonDown(message, mbMiddle, {});
    case WM_LBUTTONDBLCLK:
        return WMButtonDown(message, mbLeft, {ssDouble});
    case WM_RBUTTONDBLCLK:
        return WMButtonDown(message, mbRight, {ssDouble});
    case WM_MBUTTONDBLCLK:
        return WMButtonDown(message, mbMiddle, {ssDouble});
    case WM_LBUTTONUP:
        return WMButtonUp(message, mbLeft);
    case WM_RBUTTONUP:
        return WMButtonUp(message, mbRight);
    case WM_MBUTTONUP:
        return WMButtonUp(message, mbMiddle);
    case WM_MOUSEMOVE:
        return WMMouseMove(message);
    case WM_CANCELMODE:
        CancelClick();
        return DefaultHandler(message);
    case CM_MOUSEENTER:
        return CMMouseEnter(message);
    case CM_MOUSELEAVE:
        return CMMouseLeave(message);
    case CM_VISIBLECHANGED:
        return CMVisibleChanged(message);
    case CM_ENABLEDCHANGED:
        return CMEnabledChanged(message);
    case CM_FONTCHANGED:
        return CMFontChanged(message);
    case CM_COLORCHANGED:
        return CMColorChanged(message);
    case CM_TEXTCHANGED:
        return CMTextChanged(message);
    case CM_BIDIMODECHANGED:
        return CMBiDiModeChanged(message);
    case CM_HITTEST:
        return CMHitTest(message);
    case CM_PARENTFONTCHANGED:
        return Follow(FParentFont, [this] { FFont->Assign(FParent->FFont.get()); });
    case CM_PARENTCOLORCHANGED:
        return Follow(FParentColor, [this] { SetColor(FParent->FColor); });
    case CM_PARENTSHOWHINTCHANGED:
        return Follow(FParentShowHint, [this] { SetShowHint(FParent->FShowHint); });
    case CM_PARENTBIDIMODECHANGED:
        return Follow(FParentBiDiMode, [this] { SetBiDiMode(FParent->FBiDiMode); });
    default:
        DefaultHandler(message);
    }
}

void TControl::DefaultHandler(TMessage& message) {
    // A control without a window keeps its text itself and answers for it as a window would.
    switch (message.Msg) {
    case WM_GETTEXTLENGTH:
        message.Result = static_cast<LRESULT>(FText.size());
        break;
    case WM_GETTEXT:
        if (message.WParam > 0) {
            const std::size_t count = std::min<std::size_t>(FText.size(), message.WParam - 1);
            auto* buffer = reinterpret_cast<char16_t*>(message.LParam);
            std::copy_n(FText.data(), count, buffer);
            buffer[count] = u'\0';
            message.Result = static_cast<LRESULT>(count);
        }
        break;
    case WM_SETTEXT:
        FText = message.LParam ? String(reinterpret_cast<const char16_t*>(message.LParam)) : String();
        message.Result = TRUE;
        break;
    default:
        break;
    }
}

void TControl::CMVisibleChanged(TMessage&) {
    InvalidateControl(true, FVisible && FControlStyle.Contains(csOpaque));
}

void TControl::CMEnabledChanged(TMessage&) {
    Invalidate();
}

void TControl::CMFontChanged(TMessage&) {
    Invalidate();
}

void TControl::CMColorChanged(TMessage&) {
    Invalidate();
}

void TControl::CMTextChanged(TMessage&) {
    Invalidate();
}

void TControl::CMBiDiModeChanged(TMessage&) {
    Invalidate();
}

void TControl::CMHitTest(TMessage& message) {
    message.Result = HTCLIENT;
}

// Mouse

void TControl::Click() {
    Fire(*this, OnClick, this);
}

void TControl::DblClick() {
    Fire(*this, OnDblClick, this);
}

void TControl::SetMouseCapture(bool value) {
    if (GetMouseCapture() != value)
        MouseTracker().SetCapture(value ? this : nullptr);
}

bool TControl::GetMouseCapture() const {
    return MouseTracker().GetCapture() == this;
}

void TControl::MouseDown(TMouseButton button, TShiftState shift, int x, int y) {
    Fire(*this, OnMouseDown, this, button, shift, x, y);
}

void TControl::MouseMove(TShiftState shift, int x, int y) {
    Fire(*this, OnMouseMove, this, shift, x, y);
}

void TControl::MouseUp(TMouseButton button, TShiftState shift, int x, int y) {
    Fire(*this, OnMouseUp, this, button, shift, x, y);
}

bool TControl::DoMouseWheel(TShiftState shift, int wheelDelta, TPoint mousePos) {
    bool handled = false;
    if (!Fire(*this, OnMouseWheel, this, shift, wheelDelta, mousePos, handled))
        return true;
    return handled;
}

void TControl::WMButtonDown(TMessage& message, TMouseButton button, TShiftState extra) {
    TLifeGuard alive(*this);
    const TPoint point = PointFromLParam(message.LParam);
    const TShiftState shift = ShiftStateFromMouse(message.WParam) + extra;
    DefaultHandler(message); // the native control first: it takes the focus and places the caret
    if (!alive)
        return;
    if (FControlStyle.Contains(csCaptureMouse) && button == mbLeft)
        SetMouseCapture(true);
    if (FControlStyle.Contains(csClickEvents) && button == mbLeft) {
        if (extra.Contains(ssDouble)) {
            DblClick();
            if (!alive)
                return;
        } else {
            FControlState << csClicked;
        }
    }
    if (!FControlStyle.Contains(csNoStdEvents))
        MouseDown(button, shift, point.X, point.Y);
}

void TControl::WMButtonUp(TMessage& message, TMouseButton button) {
    TLifeGuard alive(*this);
    const TPoint point = PointFromLParam(message.LParam);
    const TShiftState shift = ShiftStateFromMouse(message.WParam);
    DefaultHandler(message);
    if (!alive)
        return;
    if (FControlStyle.Contains(csCaptureMouse) && button == mbLeft)
        SetMouseCapture(false);
    if (button == mbLeft && FControlState.Contains(csClicked)) {
        FControlState >> csClicked;
        if (GetClientRect().Contains(point)) {
            Click();
            if (!alive)
                return;
        }
    }
    if (!FControlStyle.Contains(csNoStdEvents))
        MouseUp(button, shift, point.X, point.Y);
}

void TControl::WMMouseMove(TMessage& message) {
    TLifeGuard alive(*this);
    const TPoint point = PointFromLParam(message.LParam);
    const TShiftState shift = ShiftStateFromMouse(message.WParam);
    DefaultHandler(message);
    if (alive && !FControlStyle.Contains(csNoStdEvents))
        MouseMove(shift, point.X, point.Y);
}

void TControl::CMMouseEnter(TMessage&) {
    Fire(*this, OnMouseEnter, this);
}

void TControl::CMMouseLeave(TMessage&) {
    Fire(*this, OnMouseLeave, this);
}

// Graphic controls

const TClassInfo& TGraphicControl::StaticClass() {
    static const TClassInfo info = DescribeClass<TGraphicControl>(u"TGraphicControl", TControl::StaticClass());
    return info;
}

TGraphicControl::TGraphicControl(TComponent* owner) : TControl(owner), FCanvas(std::make_shared<TCanvas>()) {
}

TGraphicControl::~TGraphicControl() = default;

void TGraphicControl::Dispatch(TMessage& message) {
    if (message.Msg == WM_PAINT)
        WMPaint(message);
    else
        TControl::Dispatch(message);
}

void TGraphicControl::WMPaint(TMessage& message) {
    if (!message.WParam)
        return;
    const TCanvasBinding binding(FCanvas, reinterpret_cast<HDC>(message.WParam));
    Paint();
}

} // namespace framework
