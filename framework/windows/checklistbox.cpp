#include "framework/windows/checklistbox.h"

#include "framework/graphics/canvas.h"
#include "framework/graphics/checkmarks.h"
#include "framework/graphics/textmetrics.h"

#include <algorithm>

namespace framework {

namespace {

constexpr int kBoxMargin = 2; // pixels around the box
constexpr int kStateBits = 3; // of the mark of an item
constexpr int kDisabledBit = 4;

TCheckMark MarkOf(TCheckBoxState state) {
    return state == cbChecked ? TCheckMark::Checked : state == cbGrayed ? TCheckMark::Mixed : TCheckMark::Unchecked;
}

} // namespace

const TClassInfo& TCustomCheckListBox::StaticClass() {
    static const TClassInfo info =
        DescribeClass<TCustomCheckListBox>(u"TCustomCheckListBox", TCustomListBox::StaticClass());
    return info;
}

const TClassInfo& TCheckListBox::StaticClass() {
    namespace row = controlrows;
    using C = TCustomCheckListBox;
    using L = TCustomListBox;
    static const TClassInfo info = DescribeClass<TCheckListBox>(
        u"TCheckListBox", TCustomCheckListBox::StaticClass(),
        {Event<&C::OnClickCheck>(u"OnClickCheck"),
         row::Align(),
         Property<&C::GetAllowGrayed, &C::SetAllowGrayed>(u"AllowGrayed", false),
         row::Anchors(),
         row::BiDiMode(),
         row::ControlBorder(Property<&L::GetBorderStyle, &L::SetBorderStyle>(u"BorderStyle", bsSingle)),
         row::Color(clWindow),
         row::Constraints(),
         row::Ctl3D(),
         row::DoubleBuffered(),
         row::Enabled(),
         row::Font(),
         Property<&L::GetIntegralHeight, &L::SetIntegralHeight>(u"IntegralHeight", false),
         Property<&L::GetItemHeight, &L::SetItemHeight>(u"ItemHeight"),
         Property<&L::GetItems, &L::SetItems>(u"Items"),
         row::ParentLinks(false),
         Property<&L::GetScrollWidth, &L::SetScrollWidth>(u"ScrollWidth", 0),
         row::ShowHint(),
         Property<&L::GetSorted, &L::SetSorted>(u"Sorted", false),
         Property<&L::GetStyle, &L::SetStyle>(u"Style", lbStandard),
         row::TabOrder(),
         row::TabStop(true),
         row::Visible(),
         row::OnClick(),
         row::OnDblClick(),
         Event<&L::OnDrawItem>(u"OnDrawItem"),
         row::FocusEvents(),
         row::KeyEvents(),
         Event<&L::OnMeasureItem>(u"OnMeasureItem"),
         row::MouseEvents()});
    return info;
}

TCustomCheckListBox::TCustomCheckListBox(TComponent* owner) : TCustomListBox(owner) {
}

// The window

void TCustomCheckListBox::CreateParams(TCreateParams& params) {
    TCustomListBox::CreateParams(params);
    if (GetStyle() == lbStandard)
        params.Style |= LBS_OWNERDRAWFIXED; // the native list has no boxes
}

void TCustomCheckListBox::CreateWnd() {
    TCustomListBox::CreateWnd();
    FitItemHeight();
}

void TCustomCheckListBox::CMFontChanged(TMessage& message) {
    TLifeGuard alive(*this);
    TCustomListBox::CMFontChanged(message);
    if (alive)
        FitItemHeight();
}

/// As high as the native list would make its items, or the box if that is higher.
void TCustomCheckListBox::FitItemHeight() {
    if (!HandleAllocated() || GetStyle() != lbStandard)
        return;
    const int height = std::max(TTextMeasure(*GetFont()).LineHeight(), BoxSize().Height + kBoxMargin);
    Send(LB_SETITEMHEIGHT, 0, std::clamp(height, 1, 255));
    Invalidate();
}

// States

TCheckBoxState TCustomCheckListBox::GetState(int index) const {
    return static_cast<TCheckBoxState>(GetItemMark(index) & kStateBits);
}

void TCustomCheckListBox::SetState(int index, TCheckBoxState value) {
    const int mark = GetItemMark(index);
    if (GetState(index) == value)
        return;
    SetItemMark(index, (mark & ~kStateBits) | value);
    RepaintItem(index);
}

bool TCustomCheckListBox::GetItemEnabled(int index) const {
    return (GetItemMark(index) & kDisabledBit) == 0;
}

void TCustomCheckListBox::SetItemEnabled(int index, bool value) {
    if (GetItemEnabled(index) == value)
        return;
    SetItemMark(index, GetItemMark(index) ^ kDisabledBit);
    RepaintItem(index);
}

void TCustomCheckListBox::RepaintItem(int index) {
    if (!HandleAllocated())
        return;
    const RECT place = ToWin(ItemRect(index));
    InvalidateRect(FHandle, &place, FALSE);
}

// The user

void TCustomCheckListBox::MouseDown(TMouseButton button, TShiftState shift, int x, int y) {
    TLifeGuard alive(*this);
    TCustomListBox::MouseDown(button, shift, x, y);
    if (!alive || button != mbLeft || !HandleAllocated())
        return;
    const int index = ItemAtPos({x, y}, true);
    if (index >= 0 && BoxRect(ItemRect(index)).Inflated(kBoxMargin, GetHeight()).Contains({x, y}))
        Toggle(index);
}

void TCustomCheckListBox::KeyPress(char16_t& key) {
    TLifeGuard alive(*this);
    TCustomListBox::KeyPress(key);
    if (!alive || key != u' ')
        return;
    key = 0;
    if (const int index = GetItemIndex(); index >= 0)
        Toggle(index);
}

void TCustomCheckListBox::Toggle(int index) {
    if (!GetItemEnabled(index))
        return;
    SetState(index, NextCheckBoxState(GetState(index), FAllowGrayed));
    ClickCheck();
}

void TCustomCheckListBox::ClickCheck() {
    Fire(*this, OnClickCheck, this);
}

// Painting

TSize TCustomCheckListBox::BoxSize() const {
    return TCheckPainter().Size();
}

TRect TCustomCheckListBox::BoxRect(const TRect& item) const {
    const TSize size = BoxSize();
    const int left = UseRightToLeftAlignment() ? item.Right - kBoxMargin - size.Width : item.Left + kBoxMargin;
    return Bounds(left, item.Top + (item.Height() - size.Height) / 2, size.Width, size.Height);
}

void TCustomCheckListBox::DrawItem(int index, TRect rect, TOwnerDrawState state) {
    TCanvas& canvas = *GetCanvas();
    const bool enabled = GetEnabled() && GetItemEnabled(index);
    const TRect box = BoxRect(rect);
    TRect margin = rect; // the box stands on the list's own colour, selected or not
    if (UseRightToLeftAlignment())
        margin.Left = rect.Right = box.Left - kBoxMargin;
    else
        margin.Right = rect.Left = box.Right + kBoxMargin;
    const RECT background = ToWin(margin);
    ::FillRect(canvas.GetHandle(), &background, GetBrush()->GetHandle());
    TCheckPainter().Draw(canvas.GetHandle(), box, {.Mark = MarkOf(GetState(index)), .Enabled = enabled});
    if (!enabled && !state.Contains(odSelected))
        canvas.GetFont()->SetColor(clGrayText);
    TCustomListBox::DrawItem(index, rect, state);
}

} // namespace framework
