#include "framework/windows/listbox.h"

#include "framework/graphics/canvas.h"
#include "framework/system/numbers.h"
#include "framework/system/updates.h"
#include "framework/windows/controlstrings.h"

#include <algorithm>
#include <commctrl.h>

namespace framework {

namespace {

constexpr TSize kInitialSize{121, 97};

} // namespace

class TListBoxStrings : public TItemStrings<TCustomListBox> {
public:
    using TItemStrings::TItemStrings;

protected:
    TItemState StateOf(int index) const override {
        return {Owner().GetItemIndex() == index, Owner().GetSelected(index)};
    }
    void SetStateOf(int index, TItemState state) override {
        TItemStrings::SetStateOf(index, state);
        if (state.Selected && Owner().GetMultiSelect())
            Owner().SetSelected(index, true);
    }
};

const TEnumInfo& DescribeEnum(TListBoxStyle) {
    static const TEnumInfo info{u"TListBoxStyle", {u"lbStandard", u"lbOwnerDrawFixed", u"lbOwnerDrawVariable"}};
    return info;
}

const TClassInfo& TCustomListBox::StaticClass() {
    static const TClassInfo info = DescribeClass<TCustomListBox>(u"TCustomListBox", TWinControl::StaticClass());
    return info;
}

const TClassInfo& TListBox::StaticClass() {
    namespace row = controlrows;
    using L = TCustomListBox;
    static const TClassInfo info = DescribeClass<TListBox>(
        u"TListBox", TCustomListBox::StaticClass(),
        {Property<&L::GetStyle, &L::SetStyle>(u"Style", lbStandard),
         row::Align(),
         row::Anchors(),
         row::BiDiMode(),
         row::ControlBorder(Property<&L::GetBorderStyle, &L::SetBorderStyle>(u"BorderStyle", bsSingle)),
         row::Color(clWindow),
         row::Constraints(),
         row::Ctl3D(),
         row::DoubleBuffered(),
         row::Enabled(),
         Property<&L::GetExtendedSelect, &L::SetExtendedSelect>(u"ExtendedSelect", true),
         row::Font(),
         Property<&L::GetIntegralHeight, &L::SetIntegralHeight>(u"IntegralHeight", false),
         Property<&L::GetItemHeight, &L::SetItemHeight>(u"ItemHeight"),
         Property<&L::GetItems, &L::SetItems>(u"Items"),
         Property<&L::GetMultiSelect, &L::SetMultiSelect>(u"MultiSelect", false),
         row::ParentLinks(false),
         Property<&L::GetScrollWidth, &L::SetScrollWidth>(u"ScrollWidth", 0),
         row::ShowHint(),
         Property<&L::GetSorted, &L::SetSorted>(u"Sorted", false),
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

TCustomListBox::TCustomListBox(TComponent* owner)
    : TWinControl(owner), FItems(std::make_unique<TListBoxStrings>(*this)), FCanvas(std::make_shared<TCanvas>()) {
    // The native list captures the mouse by itself and tells when its choice changed.
    FControlStyle >> csCaptureMouse >> csClickEvents >> csSetCaption;
    SetBounds(0, 0, kInitialSize.Width, kInitialSize.Height);
    SetParentColor(false);
    SetTabStop(true);
}

TCustomListBox::~TCustomListBox() = default;

LRESULT TCustomListBox::Send(UINT message, WPARAM wParam, LPARAM lParam) const {
    return SendMessageW(FHandle, message, wParam, lParam);
}

// The window

void TCustomListBox::CreateParams(TCreateParams& params) {
    TWinControl::CreateParams(params);
    CreateSubClass(params, WC_LISTBOXW);
    params.Style |= LBS_NOTIFY | LBS_HASSTRINGS | WS_VSCROLL;
    if (FStyle != lbStandard)
        params.Style |= FStyle == lbOwnerDrawFixed ? LBS_OWNERDRAWFIXED : LBS_OWNERDRAWVARIABLE;
    if (FMultiSelect)
        params.Style |= FExtendedSelect ? LBS_EXTENDEDSEL : LBS_MULTIPLESEL;
    if (!FIntegralHeight)
        params.Style |= LBS_NOINTEGRALHEIGHT;
    if (FScrollWidth > 0)
        params.Style |= WS_HSCROLL;
    AddBorder(params, FBorderStyle);
}

void TCustomListBox::CreateWnd() {
    // Filling the window clears what is known of the selection so far.
    const int itemIndex = FItemIndex;
    const int topIndex = FTopIndex;
    const std::vector<bool> selected = FSelected;
    TWinControl::CreateWnd();
    if (FStyle != lbStandard)
        Send(LB_SETITEMHEIGHT, 0, FItemHeight);
    if (FScrollWidth > 0)
        Send(LB_SETHORIZONTALEXTENT, static_cast<WPARAM>(FScrollWidth));
    FillWindow();
    for (std::size_t i = 0; FMultiSelect && i < selected.size(); ++i) {
        if (selected[i])
            Send(LB_SETSEL, TRUE, static_cast<LPARAM>(i));
    }
    SetItemIndex(itemIndex);
    SetTopIndex(topIndex);
}

void TCustomListBox::FillWindow() {
    Send(WM_SETREDRAW, FALSE);
    Send(LB_RESETCONTENT);
    for (int i = 0; i < GetCount(); ++i)
        ItemInserted(i, FItems->Get(i));
    Send(WM_SETREDRAW, TRUE);
    Invalidate();
}

void TCustomListBox::KeepWindowState() {
    TWinControl::KeepWindowState();
    FItemIndex = GetItemIndex();
    FTopIndex = GetTopIndex();
    std::vector<bool> selected(static_cast<std::size_t>(GetCount()));
    for (int i = 0; FMultiSelect && i < GetCount(); ++i)
        selected[static_cast<std::size_t>(i)] = GetSelected(i);
    FSelected = std::move(selected);
}

// Items

void TCustomListBox::ShowItems(bool shown) {
    if (!HandleAllocated())
        return;
    Send(WM_SETREDRAW, shown);
    if (shown)
        Invalidate();
}

int TCustomListBox::GetCount() const {
    return FItems->GetCount();
}

TStrings* TCustomListBox::GetItems() const {
    return FItems.get();
}

int TCustomListBox::GetItemMark(int index) const {
    return FItems->GetMark(index);
}

void TCustomListBox::SetItemMark(int index, int mark) {
    FItems->SetMark(index, mark);
}

void TCustomListBox::CheckIndex(int index) const {
    if (index < 0 || index >= GetCount())
        throw EListError(u"List index out of bounds (" + IntToStr(index) + u")");
}

void TCustomListBox::ItemInserted(int index, const String& text) {
    if (!HandleAllocated()) {
        FSelected.insert(FSelected.begin() + index, false);
        FItemIndex += FItemIndex >= index ? 1 : 0;
        return;
    }
    const LRESULT place = Send(LB_INSERTSTRING, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(WideChars(text)));
    if (place < 0)
        throw EOutOfResources(u"The list cannot take more items");
    if (FStyle != lbOwnerDrawVariable)
        return;
    int height = FItemHeight;
    MeasureItem(index, height);
    Send(LB_SETITEMHEIGHT, static_cast<WPARAM>(index), std::clamp(height, 1, 255));
}

void TCustomListBox::ItemDeleted(int index) {
    if (HandleAllocated()) {
        Send(LB_DELETESTRING, static_cast<WPARAM>(index));
        return;
    }
    FSelected.erase(FSelected.begin() + index);
    if (FItemIndex == index)
        FItemIndex = -1;
    else if (FItemIndex > index)
        --FItemIndex;
}

void TCustomListBox::ItemsCleared() {
    FSelected.clear();
    FItemIndex = -1;
    FTopIndex = 0;
    if (HandleAllocated())
        Send(LB_RESETCONTENT);
}

void TCustomListBox::ItemsReplaced() {
    FSelected.assign(static_cast<std::size_t>(GetCount()), false);
    FItemIndex = -1;
    if (HandleAllocated())
        FillWindow();
}

bool TCustomListBox::GetSorted() const {
    return FItems->GetSorted();
}

void TCustomListBox::SetSorted(bool value) {
    if (GetSorted() != value)
        FItems->SetSorted(value);
}

// Setters

void TCustomListBox::SetBorderStyle(TBorderStyle value) {
    if (FBorderStyle == value)
        return;
    FBorderStyle = value;
    RecreateWnd();
}

void TCustomListBox::SetExtendedSelect(bool value) {
    if (FExtendedSelect == value)
        return;
    FExtendedSelect = value;
    if (FMultiSelect)
        RecreateWnd();
}

void TCustomListBox::SetIntegralHeight(bool value) {
    if (FIntegralHeight == value)
        return;
    FIntegralHeight = value;
    RecreateWnd();
}

int TCustomListBox::GetItemHeight() const {
    return HandleAllocated() && FStyle == lbStandard ? static_cast<int>(Send(LB_GETITEMHEIGHT)) : FItemHeight;
}

void TCustomListBox::SetItemHeight(int value) {
    value = std::clamp(value, 1, 255); // the native list knows no others
    if (FItemHeight == value)
        return;
    FItemHeight = value;
    if (FStyle != lbStandard)
        RecreateWnd();
}

void TCustomListBox::SetMultiSelect(bool value) {
    if (FMultiSelect == value)
        return;
    FMultiSelect = value;
    RecreateWnd();
}

void TCustomListBox::SetScrollWidth(int value) {
    value = std::max(value, 0);
    if (FScrollWidth == value)
        return;
    const bool hadBar = FScrollWidth > 0;
    FScrollWidth = value;
    if (hadBar != (value > 0))
        RecreateWnd();
    else if (HandleAllocated())
        Send(LB_SETHORIZONTALEXTENT, static_cast<WPARAM>(value));
}

void TCustomListBox::SetStyle(TListBoxStyle value) {
    if (FStyle == value)
        return;
    FStyle = value;
    RecreateWnd();
}

void TCustomListBox::ChangeScale(int m, int d) {
    SetItemHeight(MulDiv(FItemHeight, m, d));
    SetScrollWidth(MulDiv(FScrollWidth, m, d));
    TWinControl::ChangeScale(m, d);
}

// Selection

int TCustomListBox::GetItemIndex() const {
    if (!HandleAllocated())
        return FItemIndex;
    if (FMultiSelect)
        return GetCount() == 0 ? -1 : static_cast<int>(Send(LB_GETCARETINDEX));
    return static_cast<int>(Send(LB_GETCURSEL));
}

void TCustomListBox::SetItemIndex(int value) {
    if (value != -1)
        CheckIndex(value);
    if (!HandleAllocated())
        FItemIndex = value;
    else if (!FMultiSelect)
        Send(LB_SETCURSEL, static_cast<WPARAM>(value));
    else if (value >= 0)
        Send(LB_SETCARETINDEX, static_cast<WPARAM>(value), FALSE);
}

int TCustomListBox::GetSelCount() const {
    if (!FMultiSelect)
        return -1;
    if (HandleAllocated())
        return static_cast<int>(Send(LB_GETSELCOUNT));
    return static_cast<int>(std::count(FSelected.begin(), FSelected.end(), true));
}

bool TCustomListBox::GetSelected(int index) const {
    CheckIndex(index);
    if (HandleAllocated())
        return Send(LB_GETSEL, static_cast<WPARAM>(index)) > 0;
    return FMultiSelect ? FSelected[static_cast<std::size_t>(index)] : FItemIndex == index;
}

void TCustomListBox::SetSelected(int index, bool value) {
    CheckIndex(index);
    if (!FMultiSelect) {
        if (value)
            SetItemIndex(index);
        else if (GetItemIndex() == index)
            SetItemIndex(-1);
    } else if (HandleAllocated()) {
        Send(LB_SETSEL, value, index);
    } else {
        FSelected[static_cast<std::size_t>(index)] = value;
    }
}

void TCustomListBox::ClearSelection() {
    if (!FMultiSelect)
        SetItemIndex(-1);
    else if (HandleAllocated())
        Send(LB_SETSEL, FALSE, -1);
    else
        FSelected.assign(FSelected.size(), false);
}

void TCustomListBox::SelectAll() {
    if (!FMultiSelect)
        return;
    if (HandleAllocated())
        Send(LB_SETSEL, TRUE, -1);
    else
        FSelected.assign(FSelected.size(), true);
}

void TCustomListBox::DeleteSelected() {
    WithinUpdate(*FItems, [this] {
        for (int i = GetCount(); i-- > 0;) {
            if (GetSelected(i))
                FItems->Delete(i);
        }
    });
}

int TCustomListBox::GetTopIndex() const {
    return HandleAllocated() ? static_cast<int>(Send(LB_GETTOPINDEX)) : FTopIndex;
}

void TCustomListBox::SetTopIndex(int value) {
    if (HandleAllocated())
        Send(LB_SETTOPINDEX, static_cast<WPARAM>(value));
    else
        FTopIndex = value;
}

TRect TCustomListBox::ItemRect(int index) const {
    CheckIndex(index);
    RECT place{};
    SendMessageW(GetHandle(), LB_GETITEMRECT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&place));
    return FromWin(place);
}

int TCustomListBox::ItemAtPos(TPoint point, bool existing) const {
    if (!GetClientRect().Contains(point))
        return -1;
    // LB_ITEMFROMPOINT would answer with 16 bits.
    for (int i = GetTopIndex(); i < GetCount(); ++i) {
        if (ItemRect(i).Contains(point))
            return i;
    }
    return existing ? -1 : GetCount();
}

// Messages

void TCustomListBox::Dispatch(TMessage& message) {
    switch (message.Msg) {
    case CN_COMMAND:
        return CNCommand(message);
    case CN_DRAWITEM:
        return CNDrawItem(message);
    default:
        TWinControl::Dispatch(message);
    }
}

void TCustomListBox::CNCommand(TMessage& message) {
    if (HighWord(message.WParam) == LBN_SELCHANGE)
        Click();
    else if (HighWord(message.WParam) == LBN_DBLCLK)
        DblClick();
}

void TCustomListBox::CNDrawItem(TMessage& message) {
    PaintOwnerDrawn(*this, FCanvas, GetCount(), message,
                    [this](int index, TRect rect, TOwnerDrawState state) { DrawItem(index, rect, state); });
}

void TCustomListBox::DrawItem(int index, TRect rect, TOwnerDrawState state) {
    if (OnDrawItem)
        Fire(*this, OnDrawItem, this, index, rect, state);
    else
        DrawItemText(*this, *FCanvas, rect, FItems->Get(index));
}

void TCustomListBox::MeasureItem(int index, int& height) {
    Fire(*this, OnMeasureItem, this, index, height);
}

} // namespace framework
