#include "lists/Zorcombobox.h"

#include "foundation/Zorpalette.h"
#include "framework/windows/application.h"
#include "framework/windows/clipboard.h"
#include "framework/windows/inputmethod.h"

namespace ZOR {

namespace {

// What the keys with Ctrl type.
constexpr char16_t kControlA = 1;
constexpr char16_t kControlC = 3;
constexpr char16_t kControlV = 22;
constexpr char16_t kControlX = 24;

TSearchKey KindOf(char16_t key) {
    if (key == VK_BACK)
        return TSearchKey::Backspace;
    const bool printable = key >= u' ' && key < 0x7F;
    return printable || IsCharAlphaW(static_cast<wchar_t>(key)) ? TSearchKey::Character : TSearchKey::Other;
}

/// Input in the course of which the native window opens or closes its list or changes the choice.
bool IsChoosing(UINT message) {
    return (message >= WM_KEYFIRST && message <= WM_KEYLAST) || (message >= WM_MOUSEFIRST && message <= WM_MOUSELAST);
}

} // namespace

const TClassInfo& TZORComboBox::StaticClass() {
    using C = TZORComboBox;
    namespace row = framedrows;
    static const TClassInfo info = DescribeClass<C>(
        u"TZORComboBox", TComboBox::StaticClass(),
        {row::Wymagany<C>(), Property<&C::GetCaseSensitive, &C::SetCaseSensitive>(u"CaseSensitive", false),
         Property<&C::GetBehavior, &C::SetBehavior>(u"Behavior", beStandard),
         Property<&C::GetStyle2, &C::SetStyle2>(u"Style", csDropDown), Event<&C::OnNewClick>(u"OnNewClick"),
         Event<&C::OnEditClick>(u"OnEditClick"), row::OnValidateRequest<C>(), row::ShowHintInside<C>(),
         row::HintLabel<C>(), row::BorderColors<C>(), row::BoundLabel<C>()});
    return info;
}

TZORComboBox::TZORComboBox(TComponent* owner) : TZORScreenKeyboard(owner) {
}

TZORComboBox::~TZORComboBox() {
    Destroying();
    DestroyHandle();
}

void TZORComboBox::SetStyle2(TComboBoxStyle value) {
    FPublishedStyle = value;
    FBuffer.clear();
    SetStyle(value == csDropDownList ? csDropDown : value);
}

int TZORComboBox::FindItemIndex() const {
    return std::max(FindSameText(*GetItems(), GetText()), 0);
}

// The search

const TChoiceIndex& TZORComboBox::Index() {
    FIndex.Update(ItemStrings(), ItemStrings().GetVersion(), ComboSearchFolding);
    return FIndex;
}

void TZORComboBox::KeyPress(char16_t& key) {
    FKeyFlag = key == VK_RETURN || key == VK_TAB ? VK_RETURN : 0;
    TLifeGuard alive(*this);
    if (key == VK_ESCAPE)
        EscapePressed();
    if (!alive)
        return;
    if (ChoosesFromList() && GetSelText() == GetText() && !GetDroppedDown())
        FBuffer.clear();
    if (!ChoosesFromList() || key == VK_ESCAPE || FKeyFlag != 0) {
        TZORScreenKeyboard::KeyPress(key);
        return;
    }
    // The program may have its say, but nothing is completed as in the other styles.
    if (!Fire(*this, OnKeyPress, this, key) || key == 0)
        return;
    const char16_t typed = std::exchange(key, u'\0');
    if (typed == kControlA || typed == kControlC || typed == kControlV || typed == kControlX)
        ControlKey(typed);
    else
        Search(KindOf(typed), typed);
}

void TZORComboBox::Search(TSearchKey kind, char16_t key) {
    const bool afresh = !GetDroppedDown() && GetSelText() == GetText();
    const TSearchStep step = StepSearch(FBuffer, kind, key, afresh, FBehavior, Index());
    FBuffer = step.Buffer;
    if (step.DropSelection)
        SetSelection({0, 0});
    if (step.Item >= 0)
        ShowFound(step);
}

/// Searches for a text as a whole, such as one from the clipboard.
void TZORComboBox::SearchFor(StringView text) {
    const TChoiceIndex& index = Index();
    const TChoiceIndex::TMatch match = index.Find(text, PlaceOf(FBehavior));
    if (match.Item < 0)
        return;
    FBuffer = index.Folder().Fold(text);
    ShowFound({FBuffer, match.Item, {match.Position, static_cast<int>(FBuffer.size())}, false});
}

void TZORComboBox::ShowFound(const TSearchStep& step) {
    TLifeGuard alive(*this);
    const TShownChoice before = Shown();
    if (!GetDroppedDown() && !IsInsertingSign()) // where the popup of letters is, the list would cover it
        SetDroppedDown(true);
    if (!alive || step.Item >= GetItems()->GetCount())
        return; // a handler of the opening has seen to other items
    SetItemIndex(step.Item);
    SetSelection({step.Matched.Start, step.Matched.Start + step.Matched.Length});
    FUntold = FUntold || before.Item != step.Item;
    if (before.Text == GetText())
        return;
    FSignFound = IsInsertingSign();
    Change();
}

void TZORComboBox::ControlKey(char16_t key) {
    if (key == kControlA)
        SelectAll();
    else if (key == kControlV)
        PasteText();
    else
        CopyText(); // what is chosen from a list cannot be cut out
}

void TZORComboBox::CopyText() {
    const String selected = GetSelText();
    SetClipboardText(GetHandle(), selected.empty() ? GetText() : selected);
}

void TZORComboBox::PasteText() {
    SearchFor(ClipboardLine(GetHandle()));
}

void TZORComboBox::EscapePressed() {
    if (!std::exchange(FEscaping, false))
        return;
    FBuffer.clear();
    FUntold = false;
    const String text = GetText();
    const std::optional<TShownChoice> before = FMemory.TakeBefore();
    if (!before)
        return;
    SetItemIndex(before->Item);
    if (before->Item < 0 || GetText() != before->Text)
        SetText(before->Text); // its item is gone
    SelectAll();
    TLifeGuard alive(*this);
    if (text != before->Text)
        Change();
    if (alive)
        TellItem();
}

// Messages of the parts

void TZORComboBox::KeyDown(WORD& key, TShiftState shift) {
    FEscaping = key == VK_ESCAPE && FPublishedStyle != csSimple && GetDroppedDown();
    TLifeGuard alive(*this);
    TZORScreenKeyboard::KeyDown(key, shift);
    if (!alive || !ChoosesFromList() || (key != VK_DELETE && key != VK_INSERT))
        return;
    // The text is an item's and no key takes anything out of it; the old keys of the clipboard work nevertheless.
    if (key == VK_INSERT && shift.Contains(ssShift))
        PasteText();
    else if (shift.Contains(ssShift) || (key == VK_INSERT && shift.Contains(ssCtrl)))
        CopyText();
    if (alive)
        key = 0;
}

/// What the edit part's menu and programs ask for, where the text is an item's. True: dealt with.
bool TZORComboBox::HandleEditCommand(const TMessage& message) {
    switch (message.Msg) {
    case WM_CUT:
        CopyText();
        return true;
    case WM_PASTE:
        PasteText();
        return true;
    case WM_CLEAR:
    case WM_UNDO:
    case EM_UNDO:
        return true;
    default:
        return false;
    }
}

void TZORComboBox::EditWndProc(TMessage& message) {
    if (ChoosesFromList() && (HandleEditCommand(message) || ComposeApart(GetEditHandle(), message)))
        return;
    TLifeGuard alive(*this);
    if (message.Msg == WM_LBUTTONDOWN)
        FTextPressed = true;
    Native(message, &TZORComboBox::NativeEdit);
    if (alive && message.Msg == WM_LBUTTONUP && std::exchange(FTextPressed, false))
        Fire(*this, OnEditClick, this);
}

void TZORComboBox::ListWndProc(TMessage& message) {
    if ((message.Msg == WM_LBUTTONDOWN || message.Msg == WM_RBUTTONDOWN) && PressedElsewhere(message))
        return;
    Native(message, &TZORComboBox::NativeList);
}

/// The native list has the mouse to itself while it is open. A press beside it closes it, and goes on to where it was
/// meant for; false when it was meant for the list or the field.
bool TZORComboBox::PressedElsewhere(const TMessage& message) {
    POINT point = ToWin(PointFromLParam(message.LParam));
    ::ClientToScreen(GetListHandle(), &point);
    const HWND target = WindowFromPoint(point);
    if (!target || target == GetListHandle() || target == GetHandle() || IsChild(GetHandle(), target))
        return false;
    const WPARAM keys = message.WParam;
    const bool left = message.Msg == WM_LBUTTONDOWN;
    SetDroppedDown(false); // which may end this control
    const LPARAM onScreen = PointToLParam(FromWin(point));
    const LRESULT place = SendMessageW(target, WM_NCHITTEST, 0, onScreen);
    if (place == HTCLIENT) {
        ::ScreenToClient(target, &point);
        PostMessageW(target, left ? WM_LBUTTONDOWN : WM_RBUTTONDOWN, keys, PointToLParam(FromWin(point)));
    } else {
        PostMessageW(target, left ? WM_NCLBUTTONDOWN : WM_NCRBUTTONDOWN, static_cast<WPARAM>(place), onScreen);
    }
    return true;
}

void TZORComboBox::WndProc(TMessage& message) {
    switch (message.Msg) {
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
        if (GetItems()->GetCount() == 0 && OnDropButton(PointFromLParam(message.LParam))) {
            TLifeGuard alive(*this);
            if (CanFocus())
                SetFocus();
            if (alive)
                Fire(*this, OnNewClick, this);
            return;
        }
        break;
    case WM_MOUSEWHEEL:
        if (!Focused()) { // it turns what lies around the field, and never a field that was not entered
            message.Result =
                SendMessageW(GetAncestor(GetHandle(), GA_PARENT), message.Msg, message.WParam, message.LParam);
            return;
        }
        break;
    case EM_GETSEL: // the popup of extra letters asks the field itself
    case EM_SETSEL:
        if (GetEditHandle() && !(message.Msg == EM_SETSEL && ChoosesFromList()))
            message.Result = SendMessageW(GetEditHandle(), message.Msg, message.WParam, message.LParam);
        return;
    case ExtraSignsChangedMessage:
        if (ChoosesFromList() && !std::exchange(FSignFound, false))
            return; // the letter was refused, or led to the same item
        break;
    case WM_SETTEXT:
        if (IsInsertingSign() && ChoosesFromList())
            return AnswerSign(message);
        break;
    case CN_KEYDOWN:
    case CN_SYSCHAR:
        if (!SettleBefore(message))
            return;
        break;
    default:
        break;
    }
    Native(message, &TZORComboBox::NativeCombo);
}

/// An accelerator or the default button may act on the choice while the focus stays here; false when this ended the
/// field.
bool TZORComboBox::SettleBefore(const TMessage& message) {
    TLifeGuard alive(*this);
    const bool accelerator = message.Msg == CN_SYSCHAR && message.WParam > u' ';
    if (accelerator && FPublishedStyle != csSimple && GetDroppedDown())
        SetDroppedDown(false);
    const bool entered = message.Msg == CN_KEYDOWN && message.WParam == VK_RETURN && !GetDroppedDown();
    if (alive && (accelerator || entered) && std::exchange(FUntold, false))
        TellItem();
    return static_cast<bool>(alive);
}

/// A letter of the popup arrives as the text with the letter in it; to the search it is a key.
void TZORComboBox::AnswerSign(TMessage& message) {
    const StringView text = reinterpret_cast<const char16_t*>(message.LParam);
    const auto place = static_cast<std::size_t>(GetSelStart());
    message.Result = TRUE;
    if (place < text.size())
        Search(TSearchKey::Character, text[place]);
}

// What the person did, told once and in one order whatever the platform's: OnChange, OnSelect, OnCloseUp.

void TZORComboBox::Native(TMessage& message, void (TZORComboBox::*handle)(TMessage&)) {
    if (FNews || !IsChoosing(message.Msg)) {
        (this->*handle)(message);
        return;
    }
    TNews news;
    FNews = &news;
    TLifeGuard alive(*this);
    if (FPublishedStyle == csSimple)
        FMemory.Note({}); // in its list, which is always open, the mouse has made items current before it says so
    else if (!GetDroppedDown())
        NoteTold();
    {
        const TAtScopeEnd ended(*this, [this] { FNews = nullptr; });
        (this->*handle)(message);
    }
    const auto chosen = [&] {
        if (news.Chosen)
            TellChoice();
    };
    const auto closed = [&] {
        if (news.Closed)
            TellClosed();
    };
    if (alive)
        TellInOrder(*this, chosen, closed);
}

void TZORComboBox::Select() {
    FBuffer.clear(); // a search has nothing to do with what is chosen by other means
    if (FNews) {
        FNews->Chosen = true;
        return;
    }
    FMemory.Note({}); // not by key or mouse, and nobody has looked before
    TellChoice();
}

/// The list is closed: what shows now was told of, or is the program's. In the list the mouse makes items current that
/// nobody has chosen.
void TZORComboBox::NoteTold() {
    if (FUntold)
        FMemory.NoteText(GetText());
    else
        FMemory.Note(Shown());
}

void TZORComboBox::TellChoice() {
    FUntold = false;
    TLifeGuard alive(*this);
    Click();
    if (alive && FMemory.TextIsNews(GetText()))
        Change();
    if (alive)
        TellItem();
}

/// Tells of the item where it is not the one told of last.
void TZORComboBox::TellItem() {
    if (FMemory.ItemIsNews(Shown()))
        Fire(*this, OnSelect, this);
}

void TZORComboBox::Change() {
    FMemory.NoteText(GetText());
    TZORScreenKeyboard::Change();
}

void TZORComboBox::DropDown() {
    FMemory.End();
    FMemory.Begin(Shown());
    NoteTold();
    FEscaping = false;
    TLifeGuard alive(*this);
    TZORScreenKeyboard::DropDown();
    if (alive)
        WidenList();
}

/// Makes the list as wide as its items need and its monitor allows; the native one is never narrower than the field.
void TZORComboBox::WidenList() {
    const int needed = FListWidth.For(ItemStrings(), *GetFont(), GetDropDownCount());
    const TPoint origin = GetClientOrigin();
    const TRect monitor = TheScreen().GetWorkArea(Bounds(origin.X, origin.Y, GetWidth(), GetHeight()));
    Send(CB_SETDROPPEDWIDTH, static_cast<WPARAM>(ChoiceListWidthOn(monitor, needed)));
}

void TZORComboBox::CloseUp() {
    if (FNews)
        FNews->Closed = true;
    else
        TellClosed();
}

void TZORComboBox::TellClosed() {
    TLifeGuard alive(*this);
    if (ChoosesFromList()) {
        FBuffer.clear();
        SelectAll();
    }
    if (FEscaping)
        EscapePressed();
    if (alive && std::exchange(FUntold, false))
        TellItem();
    if (alive)
        TZORScreenKeyboard::CloseUp();
}

void TZORComboBox::DoExit() {
    FBuffer.clear();
    FEscaping = false;
    if (ChoosesFromList())
        SetSelection({0, 0}); // some systems go on to show it in a field that was left
    TLifeGuard alive(*this);
    if (std::exchange(FUntold, false))
        TellItem(); // found by letters of the popup, without a list to close
    if (alive)
        TZORScreenKeyboard::DoExit();
}

// The items

void TZORComboBox::ItemInserted(int index, const String& text) {
    FMemory.ItemInserted(index, text);
    TZORScreenKeyboard::ItemInserted(index, text);
}

void TZORComboBox::ItemDeleted(int index) {
    FMemory.ItemDeleted(index);
    TZORScreenKeyboard::ItemDeleted(index);
}

void TZORComboBox::ItemsCleared() {
    FMemory.ItemsCleared();
    TZORScreenKeyboard::ItemsCleared();
}

void TZORComboBox::ItemsReplaced() {
    FMemory.ItemsReplaced(*GetItems());
    TZORScreenKeyboard::ItemsReplaced();
}

void Zorcombobox::Register() {
    RegisterComponents(PalettePage, {&TZORComboBox::StaticClass()});
}

} // namespace ZOR
