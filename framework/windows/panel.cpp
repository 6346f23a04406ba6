#include "framework/windows/panel.h"

#include "framework/graphics/canvas.h"
#include "framework/graphics/textmetrics.h"
#include "framework/graphics/themes.h"

#include <algorithm>
#include <vsstyle.h>

namespace framework {

namespace {

constexpr TSize kPanelSize{185, 41};
constexpr TSize kGroupBoxSize{185, 105};

constexpr int kGroupCaptionIndent = 8; // pixels from the frame's corner to the caption

} // namespace

const TEnumInfo& DescribeEnum(TPanelBevel) {
    static const TEnumInfo info{u"TPanelBevel", {u"bvNone", u"bvLowered", u"bvRaised", u"bvSpace"}};
    return info;
}

const TClassInfo& TCustomPanel::StaticClass() {
    static const TClassInfo info = DescribeClass<TCustomPanel>(u"TCustomPanel", TCustomControl::StaticClass());
    return info;
}

const TClassInfo& TPanel::StaticClass() {
    namespace row = controlrows;
    using P = TCustomPanel;
    static const TClassInfo info = DescribeClass<TPanel>(
        u"TPanel", TCustomPanel::StaticClass(),
        {row::Align(),
         Property<&P::GetAlignment, &P::SetAlignment>(u"Alignment", taCenter),
         row::Anchors(),
         row::AutoSize(false),
         Property<&P::GetBevelInner, &P::SetBevelInner>(u"BevelInner", bvNone),
         Property<&P::GetBevelOuter, &P::SetBevelOuter>(u"BevelOuter", bvRaised),
         Property<&P::GetBevelWidth, &P::SetBevelWidth>(u"BevelWidth", 1),
         row::BiDiMode(),
         Property<&P::GetBorderWidth, &P::SetBorderWidth>(u"BorderWidth", 0),
         row::ControlBorder(Property<&P::GetBorderStyle, &P::SetBorderStyle>(u"BorderStyle", bsNone)),
         row::Caption(),
         row::Color(clBtnFace),
         row::Constraints(),
         row::Ctl3D(),
         row::DoubleBuffered(),
         row::Enabled(),
         row::Font(),
         row::ParentBiDiMode(),
         Property<&P::GetParentBackground, &P::SetParentBackground>(u"ParentBackground", true),
         row::ParentColor(false),
         row::ParentCtl3D(),
         row::ParentFont(),
         row::ParentShowHint(),
         Property<&P::GetShowCaption, &P::SetShowCaption>(u"ShowCaption", true),
         row::ShowHint(),
         row::TabOrder(),
         row::TabStop(false),
         row::Visible(),
         row::OnClick(),
         row::OnDblClick(),
         row::FocusEvents(),
         row::MouseEvents(),
         row::OnResize()});
    return info;
}

const TClassInfo& TCustomGroupBox::StaticClass() {
    static const TClassInfo info = DescribeClass<TCustomGroupBox>(u"TCustomGroupBox", TCustomControl::StaticClass());
    return info;
}

const TClassInfo& TGroupBox::StaticClass() {
    namespace row = controlrows;
    static const TClassInfo info = DescribeClass<TGroupBox>(
        u"TGroupBox", TCustomGroupBox::StaticClass(),
        {row::Align(), row::Anchors(), row::BiDiMode(), row::Caption(), row::Color(clWindow), row::Constraints(),
         row::Ctl3D(), row::DoubleBuffered(), row::Enabled(), row::Font(), row::ParentLinks(true), row::ShowHint(),
         row::TabOrder(), row::TabStop(false), row::Visible(), row::OnClick(), row::OnDblClick(), row::FocusEvents(),
         row::MouseEvents()});
    return info;
}

// Panels

TCustomPanel::TCustomPanel(TComponent* owner) : TCustomControl(owner) {
    FControlStyle << csAcceptsControls;
    SetBounds(0, 0, kPanelSize.Width, kPanelSize.Height);
    SetColor(clBtnFace);
}

void TCustomPanel::CreateParams(TCreateParams& params) {
    TCustomControl::CreateParams(params);
    AddBorder(params, FBorderStyle);
}

void TCustomPanel::SetAlignment(TAlignment value) {
    if (FAlignment == value)
        return;
    FAlignment = value;
    Invalidate();
}

void TCustomPanel::FrameChanged() {
    Invalidate();
    Realign();
}

void TCustomPanel::SetBevelInner(TPanelBevel value) {
    if (FBevelInner == value)
        return;
    FBevelInner = value;
    FrameChanged();
}

void TCustomPanel::SetBevelOuter(TPanelBevel value) {
    if (FBevelOuter == value)
        return;
    FBevelOuter = value;
    FrameChanged();
}

void TCustomPanel::SetBevelWidth(int value) {
    value = std::max(value, 1);
    if (FBevelWidth == value)
        return;
    FBevelWidth = value;
    FrameChanged();
}

void TCustomPanel::SetBorderWidth(int value) {
    value = std::max(value, 0);
    if (FBorderWidth == value)
        return;
    FBorderWidth = value;
    FrameChanged();
}

void TCustomPanel::SetBorderStyle(TBorderStyle value) {
    if (FBorderStyle == value)
        return;
    FBorderStyle = value;
    RecreateWnd();
}

void TCustomPanel::SetParentBackground(bool value) {
    if (FParentBackground == value)
        return;
    FParentBackground = value;
    Invalidate();
}

void TCustomPanel::SetShowCaption(bool value) {
    if (FShowCaption == value)
        return;
    FShowCaption = value;
    Invalidate();
}

void TCustomPanel::AdjustClientRect(TRect& rect) {
    TCustomControl::AdjustClientRect(rect);
    const int inset = BevelExtent(FBevelOuter) + FBorderWidth + BevelExtent(FBevelInner);
    rect = rect.Inflated(-inset, -inset);
}

void TCustomPanel::PaintBevel(TRect& rect, TPanelBevel bevel) {
    TCanvas& canvas = *GetCanvas();
    if (bevel == bvLowered || bevel == bvRaised) {
        const TColor light = bevel == bvRaised ? clBtnHighlight : clBtnShadow;
        const TColor dark = bevel == bvRaised ? clBtnShadow : clBtnHighlight;
        TRect ring = rect;
        for (int i = 0; i < FBevelWidth && !ring.IsEmpty(); ++i) {
            canvas.GetBrush()->SetColor(light);
            canvas.FillRect({ring.Left, ring.Top, ring.Right - 1, ring.Top + 1});
            canvas.FillRect({ring.Left, ring.Top, ring.Left + 1, ring.Bottom - 1});
            canvas.GetBrush()->SetColor(dark);
            canvas.FillRect({ring.Left, ring.Bottom - 1, ring.Right, ring.Bottom});
            canvas.FillRect({ring.Right - 1, ring.Top, ring.Right, ring.Bottom});
            ring = ring.Inflated(-1, -1);
        }
    }
    rect = rect.Inflated(-BevelExtent(bevel), -BevelExtent(bevel));
}

void TCustomPanel::Paint() {
    TLifeGuard alive(*this);
    TCanvas& canvas = *GetCanvas();
    TRect rect = GetClientRect();
    if (!FParentBackground || !GetParentColor() ||
        FAILED(DrawThemeParentBackground(FHandle, canvas.GetHandle(), nullptr))) {
        canvas.GetBrush()->SetColor(GetColor());
        canvas.FillRect(rect);
    }
    if (!alive)
        return; // what the parent paints is its handlers' matter
    PaintBevel(rect, FBevelOuter);
    rect = rect.Inflated(-FBorderWidth, -FBorderWidth);
    PaintBevel(rect, FBevelInner);
    const String text = GetText();
    if (!FShowCaption || text.empty())
        return;
    TAlignment shown = FAlignment;
    if (UseRightToLeftAlignment() && shown != taCenter)
        shown = shown == taLeftJustify ? taRightJustify : taLeftJustify;
    canvas.GetBrush()->SetStyle(bsClear);
    canvas.SetFont(GetFont());
    if (!GetEnabled())
        canvas.GetFont()->SetColor(clGrayText);
    UINT flags = DT_SINGLELINE | DT_VCENTER | DT_EXPANDTABS | (UseRightToLeftReading() ? DT_RTLREADING : 0u);
    flags |= shown == taCenter ? DT_CENTER : shown == taRightJustify ? DT_RIGHT : DT_LEFT;
    canvas.TextRect(rect, text, flags);
}

void TCustomPanel::Dispatch(TMessage& message) {
    TLifeGuard alive(*this);
    TCustomControl::Dispatch(message);
    // The bevels lie along edges that move with the size; what was painted there must go.
    if (alive && message.Msg == WM_SIZE)
        Invalidate();
}

void TCustomPanel::CMTextChanged(TMessage& message) {
    TCustomControl::CMTextChanged(message);
    Invalidate();
}

void TCustomPanel::CMFontChanged(TMessage& message) {
    Invalidate();
    TCustomControl::CMFontChanged(message);
}

void TCustomPanel::CMEnabledChanged(TMessage& message) {
    TLifeGuard alive(*this);
    TCustomControl::CMEnabledChanged(message);
    if (alive)
        Invalidate();
}

// Group boxes

TCustomGroupBox::TCustomGroupBox(TComponent* owner) : TCustomControl(owner) {
    FControlStyle << csAcceptsControls;
    SetBounds(0, 0, kGroupBoxSize.Width, kGroupBoxSize.Height);
}

int TCustomGroupBox::CaptionHeight() const {
    return TTextMeasure(*GetFont()).LineHeight();
}

void TCustomGroupBox::AdjustClientRect(TRect& rect) {
    TCustomControl::AdjustClientRect(rect);
    rect.Top += CaptionHeight();
    rect = rect.Inflated(-2, -2);
}

void TCustomGroupBox::Paint() {
    TCanvas& canvas = *GetCanvas();
    const TRect all = GetClientRect();
    canvas.GetBrush()->SetColor(GetColor());
    canvas.FillRect(all);
    const String text = GetText();
    const UINT flags = DT_SINGLELINE | (UseRightToLeftReading() ? DT_RTLREADING : 0u);
    TRect caption;
    if (!text.empty()) {
        const TSize size = TTextMeasure(*GetFont()).Layout(text, flags);
        caption = Bounds(kGroupCaptionIndent, 0, size.Width, size.Height);
        if (UseRightToLeftAlignment())
            caption = caption.Offset(all.Width() - 2 * kGroupCaptionIndent - size.Width, 0);
    }
    const HDC dc = canvas.GetHandle();
    {
        const TSavedDC saved(dc);
        if (!caption.IsEmpty())
            ExcludeClipRect(dc, caption.Left - 2, caption.Top, caption.Right + 2, caption.Bottom);
        RECT frame{0, CaptionHeight() / 2, all.Right, all.Bottom};
        const TThemeHandle theme(OpenThemeData(FHandle, L"BUTTON"));
        const int state = GetEnabled() ? GBS_NORMAL : GBS_DISABLED;
        if (!theme || FAILED(DrawThemeBackground(theme.Get(), dc, BP_GROUPBOX, state, &frame, nullptr)))
            DrawEdge(dc, &frame, EDGE_ETCHED, BF_RECT);
    }
    if (text.empty())
        return;
    canvas.GetBrush()->SetStyle(bsClear);
    canvas.SetFont(GetFont());
    if (!GetEnabled())
        canvas.GetFont()->SetColor(clGrayText);
    canvas.TextRect(caption, text, flags);
}

void TCustomGroupBox::Dispatch(TMessage& message) {
    TLifeGuard alive(*this);
    TCustomControl::Dispatch(message);
    if (alive && message.Msg == WM_SIZE)
        Invalidate();
}

void TCustomGroupBox::CMDialogChar(TMessage& message) {
    if (!IsAccel(static_cast<WORD>(message.WParam), GetText()) || !CanFocus()) {
        TCustomControl::CMDialogChar(message);
        return;
    }
    message.Result = 1;
    SelectNext(nullptr, true, true);
}

void TCustomGroupBox::CMTextChanged(TMessage& message) {
    TCustomControl::CMTextChanged(message);
    Invalidate();
}

void TCustomGroupBox::CMFontChanged(TMessage& message) {
    TLifeGuard alive(*this);
    TCustomControl::CMFontChanged(message);
    if (alive) {
        Realign();
        Invalidate();
    }
}

void TCustomGroupBox::CMEnabledChanged(TMessage& message) {
    TLifeGuard alive(*this);
    TCustomControl::CMEnabledChanged(message);
    if (alive)
        Invalidate();
}

} // namespace framework
