#include "framework/windows/combobox.h"

#include "framework/graphics/canvas.h"
#include "framework/system/strings.h"
#include "framework/windows/controlstrings.h"

#include <algorithm>
#include <commctrl.h>

namespace framework {

namespace {

constexpr TSize kInitialSize{145, 21};
constexpr ULONGLONG kTypingPause = 1000; // milliseconds after which a typed letter begins a new search

} // namespace

class TComboBoxStrings : public TItemStrings<TCustomComboBox> {
public:
    using TItemStrings::IsUpdating;
    using TItemStrings::TItemStrings;
};

const TEnumInfo& DescribeEnum(TComboBoxStyle) {
    static const TEnumInfo info{
        u"TComboBoxStyle",
        {u"csDropDown", u"csSimple", u"csDropDownList", u"csOwnerDrawFixed", u"csOwnerDrawVariable"}};
    return info;
}

const TClassInfo& TCustomComboBox::StaticClass() {
    static const TClassInfo info = DescribeClass<TCustomComboBox>(u"TCustomComboBox", TCustomCombo::StaticClass());
    return info;
}

const TClassInfo& TComboBox::StaticClass() {
    namespace row = controlrows;
    using C = TCustomComboBox;
    static const TClassInfo info =
        DescribeClass<TComboBox>(u"TComboBox", TCustomComboBox::StaticClass(),
                                 {Property<&C::GetStyle, &C::SetStyle>(u"Style", csDropDown),
                                  row::Align(),
                                  row::Anchors(),
                                  Property<&C::GetAutoComplete, &C::SetAutoComplete>(u"AutoComplete", true),
                                  row::BiDiMode(),
                                  Property<&C::GetCharCase, &C::SetCharCase>(u"CharCase", ecNormal),
                                  row::Color(clWindow),
                                  row::Constraints(),
                                  row::Ctl3D(),
                                  row::DoubleBuffered(),
                                  Property<&C::GetDropDownCount, &C::SetDropDownCount>(u"DropDownCount", 8),
                                  row::Enabled(),
                                  row::Font(),
                                  Property<&C::GetItemHeight, &C::SetItemHeight>(u"ItemHeight"),
                                  Property<&C::GetItemIndex, &C::SetItemIndex>(u"ItemIndex", -1),
                                  Property<&C::GetItems, &C::SetItems>(u"Items"),
                                  Property<&C::GetMaxLength, &C::SetMaxLength>(u"MaxLength", 0),
                                  row::ParentLinks(false),
                                  row::ShowHint(),
                                  Property<&C::GetSorted, &C::SetSorted>(u"Sorted", false),
                                  row::TabOrder(),
                                  row::TabStop(true),
                                  row::Text(),
                                  row::Visible(),
                                  Event<&C::OnChange>(u"OnChange"),
                                  row::OnClick(),
                                  Event<&C::OnCloseUp>(u"OnCloseUp"),
                                  row::OnDblClick(),
                                  Event<&C::OnDrawItem>(u"OnDrawItem"),
                                  Event<&C::OnDropDown>(u"OnDropDown"),
                                  row::FocusEvents(),
                                  row::KeyEvents(),
                                  Event<&C::OnMeasureItem>(u"OnMeasureItem"),
                                  row::MouseEvents(),
                                  Event<&C::OnSelect>(u"OnSelect")});
    return info;
}

TCustomComboBox::TCustomComboBox(TComponent* owner)
    : TCustomCombo(owner), FItems(std::make_unique<TComboBoxStrings>(*this)), FCanvas(std::make_shared<TCanvas>()) {
    SetBounds(0, 0, kInitialSize.Width, kInitialSize.Height);
}

TCustomComboBox::~TCustomComboBox() {
    Destroying();
    DestroyHandle(); // while there are items to paint
}

// The window

void TCustomComboBox::CreateParams(TCreateParams& params) {
    TCustomCombo::CreateParams(params);
    CreateSubClass(params, WC_COMBOBOXW);
    params.Style |= WS_VSCROLL | CBS_HASSTRINGS | CBS_AUTOHSCROLL;
    switch (FStyle) {
    case csDropDown:
        params.Style |= CBS_DROPDOWN;
        break;
    case csSimple:
        params.Style |= CBS_SIMPLE | CBS_NOINTEGRALHEIGHT;
        break;
    case csDropDownList:
        params.Style |= CBS_DROPDOWNLIST;
        break;
    case csOwnerDrawFixed:
        params.Style |= CBS_DROPDOWNLIST | CBS_OWNERDRAWFIXED;
        break;
    case csOwnerDrawVariable:
        params.Style |= CBS_DROPDOWNLIST | CBS_OWNERDRAWVARIABLE;
        break;
    }
    if (FCharCase != ecNormal)
        params.Style |= FCharCase == ecUpperCase ? CBS_UPPERCASE : CBS_LOWERCASE;
}

void TCustomComboBox::CreateWnd() {
    const String text = FText;
    const int itemIndex = FItemIndex;
    const TSelection selection = GetSelection();
    TCustomCombo::CreateWnd();
    if (FStyle >= csOwnerDrawFixed) {
        Send(CB_SETITEMHEIGHT, static_cast<WPARAM>(-1), FItemHeight);
        Send(CB_SETITEMHEIGHT, 0, FItemHeight);
    }
    FillWindow();
    Send(CB_SETCURSEL, static_cast<WPARAM>(itemIndex));
    if (HasEditPart()) {
        SetEditText(text);
        SetSelection(selection);
    }
    NoteText();
}

void TCustomComboBox::FillWindow() {
    Send(WM_SETREDRAW, FALSE);
    Send(CB_RESETCONTENT);
    for (int i = 0; i < GetCount(); ++i)
        InsertIntoWindow(i, FItems->Get(i));
    Send(WM_SETREDRAW, TRUE);
    Invalidate();
}

void TCustomComboBox::KeepWindowState() {
    FItemIndex = GetItemIndex();
    TCustomCombo::KeepWindowState();
}

void TCustomComboBox::Loaded() {
    TCustomCombo::Loaded();
    // A text form names the item before it has listed the items.
    if (FItemIndex >= 0)
        SetItemIndex(FItemIndex);
    else
        FollowText();
}

// Items

void TCustomComboBox::ShowItems(bool shown) {
    if (GetListHandle()) {
        Send(WM_SETREDRAW, shown);
        if (shown)
            Invalidate();
    }
    if (shown && HasEditPart() && !IsLoading())
        FollowText(); // items that were filled in anew
}

int TCustomComboBox::GetCount() const {
    return FItems->GetCount();
}

TStrings* TCustomComboBox::GetItems() const {
    return FItems.get();
}

void TCustomComboBox::ItemInserted(int index, const String& text) {
    if (HandleAllocated())
        InsertIntoWindow(index, text);
    else
        FItemIndex += FItemIndex >= index && !IsLoading() ? 1 : 0;
    if (!FItems->IsUpdating() && HasEditPart() && !IsLoading() && GetItemIndex() < 0 && AnsiSameText(text, GetText()))
        FollowText();
}

void TCustomComboBox::InsertIntoWindow(int index, const String& text) {
    const LRESULT place = Send(CB_INSERTSTRING, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(WideChars(text)));
    if (place < 0)
        throw EOutOfResources(u"The list cannot take more items");
    if (FStyle != csOwnerDrawVariable)
        return;
    int height = FItemHeight;
    MeasureItem(index, height);
    Send(CB_SETITEMHEIGHT, static_cast<WPARAM>(index), std::clamp(height, 1, 255));
}

void TCustomComboBox::ItemDeleted(int index) {
    const bool chosen = GetItemIndex() == index;
    if (HandleAllocated()) {
        const String text = GetText();
        Send(CB_DELETESTRING, static_cast<WPARAM>(index));
        if (HasEditPart() && GetText() != text) // what was typed is the person's, whatever becomes of the item
            SetEditText(text);
        return;
    }
    if (chosen) {
        FItemIndex = -1;
        if (!HasEditPart())
            FText.clear();
    } else if (FItemIndex > index) {
        --FItemIndex;
    }
}

void TCustomComboBox::ItemsCleared() {
    if (!HandleAllocated()) {
        FItemIndex = -1;
        if (!HasEditPart())
            FText.clear();
        return;
    }
    const String text = GetText();
    Send(CB_RESETCONTENT);
    if (HasEditPart())
        SetEditText(text);
}

void TCustomComboBox::ItemsReplaced() {
    const String text = GetText();
    if (HandleAllocated())
        FillWindow();
    FItemIndex = -1;
    Perform(WM_SETTEXT, 0, reinterpret_cast<LPARAM>(WideChars(text)));
}

bool TCustomComboBox::GetSorted() const {
    return FItems->GetSorted();
}

void TCustomComboBox::SetSorted(bool value) {
    if (GetSorted() != value)
        FItems->SetSorted(value);
}

void TCustomComboBox::Clear() {
    SetText({});
    FItems->Clear();
}

// Setters

void TCustomComboBox::SetCharCase(TEditCharCase value) {
    if (FCharCase == value)
        return;
    FCharCase = value;
    TLifeGuard alive(*this);
    RecreateWnd();
    if (alive && HasEditPart() && value != ecNormal)
        SetText(value == ecUpperCase ? AnsiUpperCase(GetText()) : AnsiLowerCase(GetText()));
}

int TCustomComboBox::GetItemHeight() const {
    return HandleAllocated() && FStyle < csOwnerDrawFixed ? static_cast<int>(Send(CB_GETITEMHEIGHT)) : FItemHeight;
}

void TCustomComboBox::SetItemHeight(int value) {
    value = std::clamp(value, 1, 255); // the native list knows no others
    if (FItemHeight == value)
        return;
    FItemHeight = value;
    if (FStyle >= csOwnerDrawFixed)
        RecreateWnd();
}

void TCustomComboBox::SetStyle(TComboBoxStyle value) {
    if (FStyle == value)
        return;
    const String text = GetText();
    TLifeGuard alive(*this);
    FStyle = value;
    RecreateWnd();
    if (alive)
        Perform(WM_SETTEXT, 0, reinterpret_cast<LPARAM>(WideChars(text))); // without an edit part only an item's
}

// The choice

int TCustomComboBox::GetItemIndex() const {
    return HandleAllocated() ? static_cast<int>(Send(CB_GETCURSEL)) : FItemIndex;
}

void TCustomComboBox::SetItemIndex(int value) {
    if (IsLoading() && !HandleAllocated()) {
        FItemIndex = value; // the items may follow
        return;
    }
    const int index = value >= 0 && value < GetCount() ? value : -1;
    if (HandleAllocated()) {
        Send(CB_SETCURSEL, static_cast<WPARAM>(index));
        NoteText();
        return;
    }
    FItemIndex = index;
    FText = index >= 0 ? FItems->Get(index) : String();
}

/// Brings the chosen item in line with a text that was set or typed.
void TCustomComboBox::FollowText() {
    const String text = GetText();
    const int present = GetItemIndex();
    if (present >= 0 && present < GetCount() && AnsiSameText(FItems->Get(present), text))
        return;
    const int index = text.empty() ? -1 : FItems->IndexOf(text);
    if (index == present)
        return;
    if (!HandleAllocated())
        FItemIndex = index;
    else // in the list alone: the combo box would take over the item's text, or none
        SendMessageW(GetListHandle(), LB_SETCURSEL, static_cast<WPARAM>(index), 0);
}

void TCustomComboBox::WMSetText(TMessage& message) {
    const auto* given = reinterpret_cast<const char16_t*>(message.LParam);
    String text = given ? String(given) : String();
    if (IsLoading() && !HandleAllocated()) {
        FText = std::move(text);
        message.Result = TRUE;
        return;
    }
    if (!HasEditPart()) {
        SetItemIndex(text.empty() ? -1 : FItems->IndexOf(text));
        message.Result = TRUE;
        return;
    }
    if (FCharCase != ecNormal) {
        text = FCharCase == ecUpperCase ? AnsiUpperCase(text) : AnsiLowerCase(text);
        message.LParam = reinterpret_cast<LPARAM>(WideChars(text));
    }
    if (GetEditHandle()) {
        SetEditText(text);
        message.Result = TRUE;
    } else {
        SetSelection({});
        TCustomCombo::Dispatch(message);
        NoteText();
    }
    FollowText();
}

void TCustomComboBox::Change() {
    if (HasEditPart())
        FollowText();
    TCustomCombo::Change();
}

void TCustomComboBox::Select() {
    TLifeGuard alive(*this);
    Click();
    if (alive)
        TCustomCombo::Select();
}

void TCustomComboBox::CNCommand(TMessage& message) {
    if (HighWord(message.WParam) != CBN_SELCHANGE) {
        // Where the mouse has only passed over other items, some systems keep the last of them as the choice.
        if (HighWord(message.WParam) == CBN_SELENDCANCEL && HasEditPart())
            FollowText();
        TCustomCombo::CNCommand(message);
        return;
    }
    // The native one shows the choice only after this notice; handlers find it in Text already.
    const int index = GetItemIndex();
    if (HasEditPart() && index >= 0 && index < GetCount()) {
        SetEditText(FItems->Get(index));
        SelectAll();
    }
    NoteText();
    Select();
}

// Completion

void TCustomComboBox::KeyPress(char16_t& key) {
    TLifeGuard alive(*this);
    TCustomCombo::KeyPress(key);
    if (!alive || key < u' ' || !FAutoComplete)
        return;
    if (HasEditPart())
        CompleteTyped(key);
    else
        ChooseTyped(key);
}

/// The first item at or behind `from`, going round, that begins so, letter case aside; -1 when there is none.
int TCustomComboBox::IndexOfStart(StringView beginning, int from) const {
    const int count = GetCount();
    for (int i = 0; i < count; ++i) {
        const int index = (from + i) % count;
        const String item = FItems->Get(index);
        if (item.size() >= beginning.size() && AnsiSameText(StringView(item).substr(0, beginning.size()), beginning))
            return index;
    }
    return -1;
}

void TCustomComboBox::CompleteTyped(char16_t& key) {
    const TSelection selection = GetSelection();
    String typed = GetText();
    if (selection.End != static_cast<int>(typed.size()))
        return; // in the middle of a text nothing is added
    typed.replace(static_cast<std::size_t>(selection.Start), String::npos, 1, key);
    if (GetMaxLength() > 0 && static_cast<int>(typed.size()) > GetMaxLength())
        return;
    const int index = IndexOfStart(typed, 0);
    if (index < 0)
        return;
    key = 0;
    const String item = FItems->Get(index);
    if (GetDroppedDown())
        SendMessageW(GetListHandle(), LB_SETCURSEL, static_cast<WPARAM>(index), 0);
    SetEditText(item);
    SetSelection({static_cast<int>(typed.size()), static_cast<int>(item.size())});
    Change();
}

void TCustomComboBox::ChooseTyped(char16_t& key) {
    const ULONGLONG now = GetTickCount64();
    if (now - FTypedAt > kTypingPause)
        FTyped.clear();
    FTypedAt = now;
    FTyped += std::exchange(key, u'\0');
    const int present = GetItemIndex();
    // One letter looks for the next item that begins with it, more letters also at the present one.
    int index = IndexOfStart(FTyped, std::max(present, 0) + (FTyped.size() == 1 && present >= 0 ? 1 : 0));
    if (index < 0 && FTyped.size() > 1 && FTyped.find_first_not_of(FTyped[0]) == String::npos) {
        FTyped.resize(1); // the same letter again and again goes through its items
        index = IndexOfStart(FTyped, present + 1);
    }
    if (index < 0 || index == present)
        return;
    SetItemIndex(index);
    Select();
}

// Messages

void TCustomComboBox::Dispatch(TMessage& message) {
    switch (message.Msg) {
    case WM_SETTEXT:
        return WMSetText(message);
    case CN_DRAWITEM:
        return CNDrawItem(message);
    default:
        TCustomCombo::Dispatch(message);
    }
}

void TCustomComboBox::CNDrawItem(TMessage& message) {
    PaintOwnerDrawn(*this, FCanvas, GetCount(), message,
                    [this](int index, TRect rect, TOwnerDrawState state) { DrawItem(index, rect, state); });
}

void TCustomComboBox::DrawItem(int index, TRect rect, TOwnerDrawState state) {
    if (OnDrawItem)
        Fire(*this, OnDrawItem, this, index, rect, state);
    else
        DrawItemText(*this, *FCanvas, rect, FItems->Get(index));
}

void TCustomComboBox::MeasureItem(int index, int& height) {
    Fire(*this, OnMeasureItem, this, index, height);
}

} // namespace framework
