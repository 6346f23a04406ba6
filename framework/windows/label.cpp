#include "framework/windows/label.h"

#include "framework/graphics/canvas.h"
#include "framework/graphics/textmetrics.h"

#include <algorithm>

namespace framework {

namespace {

constexpr int kInitialWidth = 65;
constexpr int kInitialHeight = 17;

bool IsOneOf(TAlign align, std::initializer_list<TAlign> values) {
    return std::find(values.begin(), values.end(), align) != values.end();
}

/// Alignments whose width, or height, the parent decides.
bool WidthIsImposed(TAlign align) {
    return IsOneOf(align, {alTop, alBottom, alClient});
}
bool HeightIsImposed(TAlign align) {
    return IsOneOf(align, {alLeft, alRight, alClient});
}

} // namespace

const TEnumInfo& DescribeEnum(TTextLayout) {
    static const TEnumInfo info{u"TTextLayout", {u"tlTop", u"tlCenter", u"tlBottom"}};
    return info;
}

const TClassInfo& TCustomLabel::StaticClass() {
    static const TClassInfo info = DescribeClass<TCustomLabel>(u"TCustomLabel", TGraphicControl::StaticClass());
    return info;
}

const TClassInfo& TLabel::StaticClass() {
    namespace row = controlrows;
    static const TClassInfo info = DescribeClass<TLabel>(
        u"TLabel", TCustomLabel::StaticClass(),
        {row::Align(),
         Property<&TCustomLabel::GetAlignment, &TCustomLabel::SetAlignment>(u"Alignment", taLeftJustify),
         row::Anchors(),
         row::AutoSize(true),
         row::BiDiMode(),
         row::Caption(),
         row::Color(clWindow),
         row::Constraints(),
         row::Enabled(),
         Property<&TCustomLabel::GetFocusControl, &TCustomLabel::SetFocusControl>(u"FocusControl"),
         row::Font(),
         row::ParentBiDiMode(),
         row::ParentColor(true),
         row::ParentFont(),
         row::ParentShowHint(),
         Property<&TCustomLabel::GetShowAccelChar, &TCustomLabel::SetShowAccelChar>(u"ShowAccelChar", true),
         row::ShowHint(),
         Property<&TCustomLabel::GetTransparent, &TCustomLabel::SetTransparent>(u"Transparent")
             .StoredWhen<&TCustomLabel::TransparentStored>(),
         Property<&TCustomLabel::GetLayout, &TCustomLabel::SetLayout>(u"Layout", tlTop),
         row::Visible(),
         Property<&TCustomLabel::GetWordWrap, &TCustomLabel::SetWordWrap>(u"WordWrap", false),
         row::OnClick(),
         row::OnDblClick(),
         row::MouseEvents()});
    return info;
}

TCustomLabel::TCustomLabel(TComponent* owner) : TGraphicControl(owner) {
    FAdjusting = true; // there is no text to fit yet
    SetBounds(0, 0, kInitialWidth, kInitialHeight);
    SetAutoSize(true);
    FAdjusting = false;
}

void TCustomLabel::SetAlignment(TAlignment value) {
    if (FAlignment == value)
        return;
    FAlignment = value;
    Invalidate();
}

void TCustomLabel::SetFocusControl(TWinControl* value) {
    if (FFocusControl == value)
        return;
    if (FFocusControl)
        RemoveFreeNotification(FFocusControl);
    FFocusControl = value;
    if (value)
        FreeNotification(value);
}

void TCustomLabel::SetShowAccelChar(bool value) {
    if (FShowAccelChar == value)
        return;
    FShowAccelChar = value;
    Invalidate();
    AdjustBounds();
}

void TCustomLabel::SetTransparent(bool value) {
    FTransparentSet = true;
    if (GetTransparent() == value)
        return;
    if (value)
        FControlStyle >> csOpaque;
    else
        FControlStyle << csOpaque;
    Invalidate();
}

void TCustomLabel::SetLayout(TTextLayout value) {
    if (FLayout == value)
        return;
    FLayout = value;
    Invalidate();
}

void TCustomLabel::SetWordWrap(bool value) {
    if (FWordWrap == value)
        return;
    FWordWrap = value;
    Invalidate();
    AdjustBounds();
}

// Size

void TCustomLabel::AdjustBounds() {
    if (FAdjusting || IsLoading() || IsDestroying() || !GetAutoSize())
        return;
    const TSizeConstraints& limits = *GetConstraints();
    const int within = ConstrainedExtent(GetWidth(), 0, limits.GetMaxWidth());
    const TRect text = GetTextRect({0, 0, within, 0});
    int width = ConstrainedExtent(text.Width(), limits.GetMinWidth(), limits.GetMaxWidth());
    if (WidthIsImposed(GetAlign()))
        width = GetWidth();
    const int height = HeightIsImposed(GetAlign()) ? GetHeight() : text.Height();
    int left = GetLeft();
    if (ShownAlignment() == taRightJustify)
        left += GetWidth() - width;
    FAdjusting = true;
    const TAtScopeEnd adjusted(*this, [this] { FAdjusting = false; });
    SetBounds(left, GetTop(), width, height);
}

void TCustomLabel::Resize() {
    TLifeGuard alive(*this);
    TGraphicControl::Resize();
    // A parent that changes its width breaks the lines of a label that spans it anew.
    if (alive && FWordWrap && WidthIsImposed(GetAlign()))
        AdjustBounds();
}

TRect TCustomLabel::GetTextRect(const TRect& within) const {
    String text = GetLabelText();
    if (text.empty())
        text = u" ";
    const UINT flags = DrawFlags();
    const TSharedHandle<HFONT>& font = GetFont()->GetSharedHandle();
    if (FMeasured.Width != within.Width() || FMeasured.Flags != flags || FMeasured.Font != font ||
        FMeasured.Text != text) {
        const TSize size = TTextMeasure(*GetFont()).Layout(text, flags, within.Width());
        FMeasured = {std::move(text), font, flags, within.Width(), size};
    }
    return Bounds(within.Left, within.Top, FMeasured.Size.Width, FMeasured.Size.Height);
}

// Painting

TAlignment TCustomLabel::ShownAlignment() const {
    if (!UseRightToLeftAlignment() || FAlignment == taCenter)
        return FAlignment;
    return FAlignment == taLeftJustify ? taRightJustify : taLeftJustify;
}

UINT TCustomLabel::DrawFlags() const {
    UINT flags = DT_EXPANDTABS;
    switch (ShownAlignment()) {
    case taLeftJustify:
        flags |= DT_LEFT;
        break;
    case taRightJustify:
        flags |= DT_RIGHT;
        break;
    case taCenter:
        flags |= DT_CENTER;
        break;
    }
    if (FWordWrap)
        flags |= DT_WORDBREAK;
    if (!FShowAccelChar)
        flags |= DT_NOPREFIX;
    if (UseRightToLeftReading())
        flags |= DT_RTLREADING;
    return flags;
}

void TCustomLabel::Paint() {
    TCanvas& canvas = *GetCanvas();
    TRect place = GetClientRect();
    if (!GetTransparent()) {
        canvas.GetBrush()->SetColor(GetColor());
        canvas.FillRect(place);
    }
    const String text = GetLabelText();
    if (text.empty())
        return;
    if (FLayout != tlTop) {
        const int room = place.Height() - GetTextRect(place).Height();
        place.Top += FLayout == tlCenter ? room / 2 : room;
    }
    canvas.GetBrush()->SetStyle(bsClear);
    canvas.SetFont(GetFont());
    if (!GetEnabled())
        canvas.GetFont()->SetColor(clGrayText);
    canvas.TextRect(place, text, DrawFlags());
}

// Messages

void TCustomLabel::Dispatch(TMessage& message) {
    if (message.Msg == CM_DIALOGCHAR)
        CMDialogChar(message);
    else
        TGraphicControl::Dispatch(message);
}

void TCustomLabel::CMDialogChar(TMessage& message) {
    if (!FFocusControl || !GetEnabled() || !FShowAccelChar || !FFocusControl->CanFocus() ||
        !IsAccel(static_cast<WORD>(message.WParam), GetLabelText()))
        return;
    message.Result = 1;
    FFocusControl->SetFocus();
}

void TCustomLabel::CMTextChanged(TMessage& message) {
    TLifeGuard alive(*this);
    TGraphicControl::CMTextChanged(message);
    AdjustBounds();
    if (alive && FFocusControl && FFocusControl->HandleAllocated()) // whose name this is for a screen reader
        NotifyWinEvent(EVENT_OBJECT_NAMECHANGE, FFocusControl->GetHandle(), OBJID_CLIENT, CHILDID_SELF);
}

void TCustomLabel::CMFontChanged(TMessage& message) {
    TGraphicControl::CMFontChanged(message);
    AdjustBounds();
}

void TCustomLabel::CMBiDiModeChanged(TMessage& message) {
    TGraphicControl::CMBiDiModeChanged(message);
    AdjustBounds();
}

void TCustomLabel::Notification(TComponent* component, TOperation operation) {
    TGraphicControl::Notification(component, operation);
    if (operation == opRemove && component == FFocusControl)
        FFocusControl = nullptr;
}

} // namespace framework
