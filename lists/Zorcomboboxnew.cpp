#include "lists/Zorcomboboxnew.h"

#include "foundation/Zorpalette.h"
#include "framework/system/strings.h"
#include "framework/windows/inputmethod.h"

#include <algorithm>

namespace ZOR {

namespace {

constexpr std::uint32_t kTimerInterval = 300; // milliseconds
constexpr char16_t kControlBackspace = 0x7F;  // what this key types
/// Posted to the field by itself: the items of the open list have changed.
constexpr UINT kItemsChangedMessage = WM_USER + 0x300;

/// Input that changes the text by itself, whichever way the native window goes about it.
bool IsEditing(UINT message) {
    switch (message) {
    case WM_CUT:
    case WM_PASTE:
    case WM_CLEAR:
    case WM_UNDO:
    case EM_UNDO:
    case WM_CONTEXTMENU:
        return true;
    default:
        return message >= WM_KEYFIRST && message <= WM_KEYLAST;
    }
}

} // namespace

/// The items of the field; only it shows them, so nothing is copied into a window.
class TChoiceStrings : public TItemStrings<TZORComboBoxnew> {
public:
    using TItemStrings::IsUpdating;
    using TItemStrings::TItemStrings;
};

const TClassInfo& TZORComboBoxnew::StaticClass() {
    using C = TZORComboBoxnew;
    namespace row = framedrows;
    const auto color = [](const TPropInfo& property) { return property.Named(ColorIdentifiers()); };
    static const TClassInfo info = DescribeClass<C>(
        u"TZORComboBoxnew", TMemo::StaticClass(),
        {Property<&C::GetLines, &C::SetLines>(u"Lines"),
         Property<&C::GetBehavior, &C::SetBehavior>(u"Behavior", beStandard),
         Property<&C::GetCaseSensitive, &C::SetCaseSensitive>(u"CaseSensitive", false),
         row::HintLabel<C>(),
         Property<&C::GetItemIndex, &C::SetItemIndex>(u"ItemIndex", -1),
         Property<&C::GetSorted, &C::SetSorted>(u"Sorted", false),
         Property<&C::GetFText, &C::SetFText>(u"Text"),
         Property<&C::GetStyle, &C::SetStyle>(u"Style", csDropDown),
         row::ShowHintInside<C>(),
         row::Wymagany<C>(),
         Property<&C::GetDroppedDown, &C::SetFDroppedDown>(u"DroppedDown", false),
         Property<&C::GetDropDownCount, &C::SetDropDownCount>(u"DropDownCount", 10),
         Event<&C::OnNewClick>(u"OnNewClick"),
         Event<&C::OnSelect>(u"OnSelect"),
         Event<&C::OnCloseUp>(u"OnCloseUp"),
         Event<&C::OnEditClick>(u"OnEditClick"),
         row::OnValidateRequest<C>(),
         Property<&C::GetIgnoreLocalChars, &C::SetIgnoreLocalChars>(u"IgnoreLocalChars", false),
         Property<&C::GetItems, &C::SetItems>(u"Items"),
         Property<&C::GetSmartSearch, &C::SetSmartSearch>(u"SmartSearch", false),
         row::BorderColors<C>(),
         row::BoundLabel<C>(),
         color(Property<&C::GetGradientColorUp, &C::SetGradientColorUp>(u"GradientColorUp", clWhite)),
         color(Property<&C::GetGradientColorDown, &C::SetGradientColorDown>(u"GradientColorDown", clWhite)),
         color(Property<&C::GetArrowColor, &C::SetArrowColor>(u"ArrowColor", clBlack)),
         Property<&C::GetWantReturns, &C::SetWantReturns>(u"WantReturns", false),
         Property<&C::GetWordWrap, &C::SetWordWrap>(u"WordWrap", false)});
    return info;
}

TZORComboBoxnew::TZORComboBoxnew(TComponent* owner)
    : TZORArrowField(owner), FItems(std::make_unique<TChoiceStrings>(*this)) {
    for (TTimer* timer : {&FCloseTimer, &FAccTimer}) {
        timer->SetEnabled(false);
        timer->SetInterval(kTimerInterval);
    }
    FCloseTimer.OnTimer = [this](TObject* sender) { cust_OnTimer(sender); };
    FAccTimer.OnTimer = [this](TObject* sender) { cust_acc_OnTimer(sender); };
}

TZORComboBoxnew::~TZORComboBoxnew() {
    Destroying();
    FLoader.reset();
    DestroyHandle();
}

// Items

TStrings* TZORComboBoxnew::GetItems() const {
    return FItems.get();
}

bool TZORComboBoxnew::GetSorted() const {
    return FItems->GetSorted();
}

void TZORComboBoxnew::SetSorted(bool value) {
    if (GetSorted() != value)
        FItems->SetSorted(value);
}

void TZORComboBoxnew::AddItem(const String& text, TObject* object) {
    FItems->AddObject(text, object);
}

void TZORComboBoxnew::InsertItem(int index, const String& text, TObject* object) {
    FItems->InsertObject(index, text, object);
}

void TZORComboBoxnew::DeleteItem(int index) {
    FItems->Delete(index);
}

void TZORComboBoxnew::Clear() {
    FItems->Clear();
    SetText({});
}

void TZORComboBoxnew::ShowItems(bool shown) {
    if (shown) {
        DropLostText();
        ItemsEdited();
    }
}

void TZORComboBoxnew::ItemInserted(int index, const String& text) {
    if (!IsLoading())
        FShown.ItemInserted(index, text);
    FMemory.ItemInserted(index, text);
    ItemsEdited();
}

void TZORComboBoxnew::ItemDeleted(int index) {
    FItemLost = FItemLost || FShown.Item == index;
    FShown.ItemDeleted(index);
    FMemory.ItemDeleted(index);
    DropLostText();
    ItemsEdited();
}

void TZORComboBoxnew::ItemsCleared() {
    FItemLost = FItemLost || FShown.Item >= 0;
    FShown.ItemsCleared();
    FMemory.ItemsCleared();
    DropLostText();
    ItemsEdited();
}

void TZORComboBoxnew::ItemsReplaced() {
    FShown.ItemsReplaced(*FItems);
    FMemory.ItemsReplaced(*FItems);
    ItemsEdited();
}

/// Where only items can be chosen, the text of one that has gone goes too; it may come back while items are filled in
/// anew.
void TZORComboBoxnew::DropLostText() {
    if (FItems->IsUpdating() || !std::exchange(FItemLost, false))
        return;
    if (ChoosesFromList() && FShown.Item < 0) {
        ShowText({});
        FMemory.NoteText({});
    }
}

/// Brings the open list in line, once for however many changes a handler makes.
void TZORComboBoxnew::ItemsEdited() {
    if (!GetDroppedDown() || FListStale || FItems->IsUpdating())
        return;
    FListStale = true;
    PostMessageW(GetHandle(), kItemsChangedMessage, 0, 0);
}

void TZORComboBoxnew::Loaded() {
    TZORArrowField::Loaded();
    // A text form names the item before it has listed the items.
    if (FShown.Item >= 0)
        SetItemIndex(FShown.Item);
    else
        FollowText();
    FMemory.Note(FShown);
}

// The choice

/// Shows a text without a word to anybody.
void TZORComboBoxnew::ShowText(const String& text) {
    if (GetText() == text)
        return;
    const TAtScopeEnd restored(*this, [this, outer = std::exchange(FQuietly, true)] { FQuietly = outer; });
    SetText(text);
}

void TZORComboBoxnew::Show(const TShownChoice& choice) {
    FShown.Item = choice.Item;
    ShowText(choice.Text);
}

void TZORComboBoxnew::Choose(int item) {
    Show({item >= 0 ? OneLine(FItems->Get(item)) : String(), item});
}

void TZORComboBoxnew::SetItemIndex(int value) {
    if (IsLoading()) {
        FShown.Item = value; // the items may follow
        return;
    }
    Choose(value >= 0 && value < FItems->GetCount() ? value : -1);
    FMemory.Set(FShown);
    ShowMatch();
}

/// The item whose text stands in the field, letter case aside; the present one where several have it.
void TZORComboBoxnew::FollowText() {
    const auto isShown = [this](int item) { return AnsiSameText(OneLine(FItems->Get(item)), FShown.Text); };
    if (FShown.Item >= 0 && FShown.Item < FItems->GetCount() && isShown(FShown.Item))
        return;
    FShown.Item = -1;
    if (FShown.Text.empty())
        return;
    const TChoiceIndex& index = Index();
    int item = index.Find(FShown.Text, TMatchPlace::Whole).Item;
    while (item >= 0 && !isShown(item)) // folded they are the same, yet accents differ
        item = index.Find(FShown.Text, TMatchPlace::Whole, item + 1).Item;
    FShown.Item = item;
}

int TZORComboBoxnew::get_id_sel() const {
    if (FShown.Item < 0 || FShown.Item >= FItems->GetCount())
        return -1;
    return static_cast<int>(reinterpret_cast<std::intptr_t>(FItems->GetItemObject(FShown.Item)));
}

/// Tells of what the person has brought about.
void TZORComboBoxnew::Tell() {
    TLifeGuard alive(*this);
    if (FMemory.TextIsNews(FShown.Text))
        TZORArrowField::Change();
    if (alive)
        TellChoice();
}

/// Tells of the item where it is not the one told of last: one that was typed in full is a choice only now.
void TZORComboBoxnew::TellChoice() {
    if (FMemory.ItemIsNews(FShown))
        Fire(*this, OnSelect, this);
}

/// The field is done with: a text that is no item's gives way to the choice told of last where only items can be
/// chosen, and to what was there before where none was.
void TZORComboBoxnew::Settle() {
    const int told = FMemory.Told().Item;
    if (ChoosesFromList() && FShown.Item < 0 && !FShown.Text.empty() && (told >= 0 || FMemory.Before())) {
        if (told >= 0)
            Choose(told);
        else
            Show(*FMemory.Before());
        FMemory.End();
    }
    Tell();
}

// The search

TTextFolding TZORComboBoxnew::Folding() const {
    return {false, FSmartSearch, FIgnoreLocalChars, FCaseSensitive ? TFoldedCase::AsItIs : TFoldedCase::Upper};
}

/// What is marked in the rows: letter case never counts there.
TTextFolding TZORComboBoxnew::MarkFolding() const {
    TTextFolding folding = Folding();
    folding.Case = TFoldedCase::Upper;
    return folding;
}

const TChoiceIndex& TZORComboBoxnew::Index() {
    FIndex.Update(*FItems, FItems->GetVersion(), Folding());
    return FIndex;
}

void TZORComboBoxnew::MakeSmartItems() {
    Index();
}

int TZORComboBoxnew::findItemPos(const String& text) {
    return text.empty() ? -1 : Index().Find(text, PlaceOf(FBehavior)).Item; // nothing is prepared for an empty one
}

bool TZORComboBoxnew::key_allowed(char16_t key) {
    String text = GetText();
    if (key != 0 && key != VK_BACK)
        text += ConvertCase(String(1, key), GetCharCase()); // as the window will show it
    return findItemPos(text) >= 0;
}

bool TZORComboBoxnew::AllowsText(const String& text) {
    return findItemPos(text) >= 0;
}

void TZORComboBoxnew::KeyPress(char16_t& key) {
    TLifeGuard alive(*this);
    FCharacterTyped = false;
    TZORArrowField::KeyPress(key);
    if (!alive || key == 0)
        return;
    const char16_t high = std::exchange(FHighHalf, u'\0');
    if (key == VK_RETURN || key == u'\n' || key == VK_ESCAPE || key == VK_TAB || key == kControlBackspace) {
        key = 0;
        return;
    }
    if (key < u' ')
        return;
    if (IsHighSurrogate(key)) { // alone it is no character, and matches what it must not
        FHighHalf = std::exchange(key, u'\0');
        return;
    }
    if (IsLowSurrogate(key)) {
        const char16_t low = std::exchange(key, u'\0');
        if (high != 0)
            InsertText({high, low});
        return;
    }
    const TSelection selection = GetSelection();
    const bool atEnd = selection.Start == static_cast<int>(GetText().size());
    if (atEnd ? key_allowed(key) : AllowsText(TextWith(String(1, key))))
        FCharacterTyped = true;
    else
        key = 0;
}

/// The text as it would become, wherever the caret is.
String TZORComboBoxnew::TextWith(const String& inserted) const {
    const TSelection selection = GetSelection();
    String text = GetText();
    text.replace(static_cast<std::size_t>(selection.Start), static_cast<std::size_t>(selection.End - selection.Start),
                 ConvertCase(inserted, GetCharCase()));
    return text;
}

/// Inserts what the person gives at once where an item matches what becomes of the field.
void TZORComboBoxnew::InsertText(const String& inserted) {
    const String text = TextWith(inserted);
    if (GetReadOnly() || (GetMaxLength() > 0 && static_cast<int>(text.size()) > GetMaxLength()))
        return;
    FCharacterTyped = AllowsText(text);
    if (FCharacterTyped)
        SetSelText(inserted);
}

void TZORComboBoxnew::Paste() {
    if (const String given = ClipboardLine(GetHandle()); !given.empty())
        InsertText(given);
}

void TZORComboBoxnew::Change() {
    FShown.Text = GetText();
    if (FQuietly)
        return;
    if (FByPerson)
        TextTyped();
    else if (!IsLoading())
        TextSet();
}

/// The program has made the text another.
void TZORComboBoxnew::TextSet() {
    if (OneLine(FShown.Text) != FShown.Text)
        ShowText(Trim(OneLine(FShown.Text))); // lines that were added one by one
    FollowText();
    FMemory.End();
    if (IsInsertingSign()) // which is the person's doing
        FMemory.NoteText(FShown.Text);
    else
        FMemory.Note(FShown);
    ShowMatch();
}

/// The person has made the text another.
void TZORComboBoxnew::TextTyped() {
    TLifeGuard alive(*this);
    FollowText();
    if (std::exchange(FCharacterTyped, false) && !GetDroppedDown())
        OpenForSearch();
    if (!alive)
        return;
    ShowMatch();
    if (FMemory.TextIsNews(FShown.Text)) // the system tells of an undo twice
        TZORArrowField::Change();
}

void TZORComboBoxnew::OpenForSearch() {
    const TSelection selection = GetSelection();
    TLifeGuard alive(*this);
    dropdown_pop();
    if (alive)
        SetSelection(selection);
}

/// Goes to the first row that matches the text, and marks what matches.
void TZORComboBoxnew::ShowMatch() {
    if (!GetDroppedDown() || FListStale)
        return;
    GetPopup()->SetSearchText(FShown.Text, MarkFolding());
    GetPopup()->ShowRow(RowToShow(), true);
}

/// The chosen item, or the first that matches; -1 for none.
int TZORComboBoxnew::RowToShow() {
    return FShown.Item >= 0 ? FShown.Item : findItemPos(FShown.Text);
}

void TZORComboBoxnew::CMTextChanged(TMessage& message) {
    // The program has set the text, perhaps from a handler of what the person does.
    const TAtScopeEnd restored(*this, [this, outer = std::exchange(FByPerson, false)] { FByPerson = outer; });
    TZORArrowField::CMTextChanged(message);
}

/// The text on its way into the window as one line.
void TZORComboBoxnew::NormalizeText(TMessage& message) {
    const auto* given = reinterpret_cast<const char16_t*>(message.LParam);
    String text = given ? given : u"";
    while (!text.empty() && (text.back() == u'\n' || text.back() == u'\r'))
        text.pop_back();
    text = OneLine(text);
    FSignRefused = IsInsertingSign() && !AllowsText(text);
    if (FSignRefused)
        return;
    message.LParam = reinterpret_cast<LPARAM>(text.c_str());
    TZORArrowField::Dispatch(message);
}

// The list

bool TZORComboBoxnew::GetDroppedDown() const {
    return GetPopup() && GetPopup()->IsOpen();
}

void TZORComboBoxnew::SetFDroppedDown(bool value) {
    if (GetDroppedDown() == value)
        return;
    if (value)
        dropdown_pop();
    else
        dropdown_close();
}

void TZORComboBoxnew::SetDropDownCount(int value) {
    FDropDownCount = std::max(value, 1);
    fit_popup();
}

void TZORComboBoxnew::dropdown_pop() {
    if (IsLoading() || IsDesigning() || !GetParent() || !CanFocus() || GetReadOnly() || FItems->GetCount() == 0)
        return;
    FCloseTimer.SetEnabled(false);
    if (!FLoader)
        FLoader = std::make_unique<Tform_dropdown_loader>(nullptr);
    Tform_list& list = FLoader->Load();
    list.OnCloseUp = [this](TObject* sender) { form_deactivate(sender); };
    list.list_box->OnMouseMove = [this](TObject* sender, TShiftState shift, int x, int y) {
        cust_MouseMove(sender, shift, x, y);
    };
    list.list_box->OnMouseUp = [this](TObject* sender, TMouseButton button, TShiftState shift, int x, int y) {
        cust_MouseUp(sender, button, shift, x, y);
    };
    list.SetItems(*FItems, FListWidth, FDropDownCount);
    FListStale = false;
    FMemory.Begin(FShown);
    POINT pointer{};
    GetCursorPos(&pointer);
    FPointer = FromWin(pointer); // a list that opens under the mouse does not follow it before it moves
    TLifeGuard alive(*this);
    list.PopUp(*this);
    if (alive && GetDroppedDown())
        FormActivateZ();
}

void TZORComboBoxnew::FormActivateZ() {
    GetPopup()->list_box->SetRow(-1);
    GetPopup()->SetSearchText(FShown.Item >= 0 ? String() : FShown.Text, MarkFolding());
    GetPopup()->ShowRow(RowToShow(), false);
    InvalidateArrow();
}

void TZORComboBoxnew::dropdown_close() {
    if (!GetDroppedDown())
        return;
    const TAtScopeEnd restored(*this, [this, outer = std::exchange(FClosing, true)] { FClosing = outer; });
    GetPopup()->CloseUp();
}

void TZORComboBoxnew::form_deactivate(TObject*) {
    FHeldKey = 0;
    FAccTimer.SetEnabled(false);
    FCloseTimer.SetEnabled(true);
    InvalidateArrow();
    if (FHoldCloseUp)
        return;
    TellClosedAfter([this] {
        if (FClosing || FByPerson)
            TellChoice(); // the person stays in the field and may go on typing
        else
            Settle();
    });
}

void TZORComboBoxnew::TellClosedAfter(const std::function<void()>& first) {
    TellInOrder(*this, first, [this] { Fire(*this, OnCloseUp, this); });
}

void TZORComboBoxnew::cust_OnTimer(TObject*) {
    FCloseTimer.SetEnabled(false);
    seek_n_destroy();
}

void TZORComboBoxnew::seek_n_destroy() {
    if (GetPopup() && !GetDroppedDown())
        FLoader->Unload();
}

void TZORComboBoxnew::fit_popup() {
    if (!GetDroppedDown())
        return;
    FListStale = false;
    if (FItems->GetCount() == 0) {
        dropdown_close();
        return;
    }
    GetPopup()->SetItems(*FItems, FListWidth, FDropDownCount);
    GetPopup()->Fit();
    GetPopup()->ShowRow(RowToShow(), false);
}

TRect TZORComboBoxnew::get_x_y() const {
    return GetDroppedDown() ? GetPopup()->GetBoundsRect() : TRect{};
}

// Messages

void TZORComboBoxnew::WndProc(TMessage& message) {
    TLifeGuard alive(*this);
    if (GetPopup() && GetPopup()->HandleTargetMessage(message))
        return;
    if (!alive)
        return;
    switch (message.Msg) {
    case CN_KEYDOWN:
        if (HandlePopupKey(message) || !alive)
            return;
        if (message.WParam == VK_RETURN && !GetDroppedDown())
            Settle(); // the key may be the default button's, and the focus stays here
        if (!alive)
            return;
        break;
    case CN_SYSCHAR: // an accelerator, perhaps that of a button
        if (message.WParam > u' ')
            CloseAnd([this] { Settle(); });
        if (!alive)
            return;
        break;
    case EM_SETREADONLY:
        if (message.WParam != 0)
            dropdown_close();
        if (!alive)
            return;
        break;
    case CM_WANTSPECIALKEY:
        if (message.WParam == VK_RETURN && GetDroppedDown()) {
            message.Result = 1;
            return;
        }
        break;
    case CM_LOSTFOCUS:
        cust_KeyUp(FHeldKey); // whoever has the focus hears of its release
        break;
    case ExtraSignsChangedMessage:
        if (std::exchange(FSignRefused, false))
            return;
        FollowText();
        break;
    default:
        break;
    }
    TZORArrowField::WndProc(message);
}

void TZORComboBoxnew::Dispatch(TMessage& message) {
    switch (message.Msg) {
    case WM_SETTEXT:
        return NormalizeText(message);
    case WM_PASTE: {
        const TAtScopeEnd restored(*this, [this, outer = std::exchange(FByPerson, true)] { FByPerson = outer; });
        Paste();
        return;
    }
    case kItemsChangedMessage:
        if (FListStale)
            fit_popup();
        return;
    default:
        if (ComposeApart(FHandle, message))
            return; // what is composed will be typed
        break;
    }
    if (!IsEditing(message.Msg)) {
        TZORArrowField::Dispatch(message);
        return;
    }
    FMemory.Begin(FShown);
    const TAtScopeEnd restored(*this, [this, outer = std::exchange(FByPerson, true)] { FByPerson = outer; });
    TZORArrowField::Dispatch(message);
}

void TZORComboBoxnew::DoEnter() {
    FMemory.End();
    if (!BeingClicked())
        SelectAll();
    TZORArrowField::DoEnter();
}

void TZORComboBoxnew::DoExit() {
    FHeldKey = 0;
    FAccTimer.SetEnabled(false);
    TLifeGuard alive(*this);
    CloseAnd([this] { Settle(); });
    if (!alive)
        return;
    FMemory.Set(FShown);
    TZORArrowField::DoExit();
}

void Zorcomboboxnew::Register() {
    RegisterComponents(PalettePage, {&TZORComboBoxnew::StaticClass()});
}

} // namespace ZOR
