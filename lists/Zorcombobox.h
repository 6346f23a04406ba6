#pragma once

// The combo box in which typing searches. With Style csDropDownList something is chosen from the list alone: the
// characters that are typed narrow the search down, the first item that contains them (or begins with them) shows with
// the part that matches selected, and a key that would lead nowhere is refused. Umlauts are found by plain vowels. In
// the other styles it is the platform's combo box in a requirement frame.
//
// Text, item and list are the native window's here, unlike in TZORComboBoxnew, so that what is typed collects in a
// buffer beside the text.

#include "controls/Zorscreenkeyboard.h"
#include "foundation/Zorframedcombo.h"
#include "lists/Zorcombobox_list.h"
#include "lists/Zorcombobox_rules.h"

namespace ZOR {

inline constexpr TFraming SearchComboFraming = ComboFraming(EditRequirement);

class TZORComboBox : public TZORScreenKeyboard<TZORFramedCombo<TComboBox, SearchComboFraming>> {
    FRAMEWORK_CLASS(TZORComboBox)

public:
    FRAMEWORK_PROPERTY(bool, CaseSensitive, GetCaseSensitive, SetCaseSensitive);
    FRAMEWORK_PROPERTY(TBehavior, Behavior, GetBehavior, SetBehavior);
    FRAMEWORK_PROPERTY(TComboBoxStyle, Style, GetStyle2, SetStyle2);

    /// The drop button was clicked although there is nothing to choose from.
    TNotifyEvent OnNewClick;
    /// The text was clicked.
    TNotifyEvent OnEditClick;

    explicit TZORComboBox(TComponent* owner);
    ~TZORComboBox() override;

    /// Kept for the form; letter case never counts in the search.
    bool GetCaseSensitive() const { return FCaseSensitive; }
    void SetCaseSensitive(bool value) { FCaseSensitive = value; }
    /// beNewWyszukajPoczatek searches at the beginning of the items, the others anywhere in them.
    TBehavior GetBehavior() const { return FBehavior; }
    void SetBehavior(TBehavior value) { FBehavior = value; }
    /// csDropDownList is this control's search; the window has an edit part then, too.
    TComboBoxStyle GetStyle2() const { return FPublishedStyle; }
    void SetStyle2(TComboBoxStyle value);

    /// The first item that reads like the text, letter case aside; 0, not -1, when none does, so that callers have an
    /// item to fall back to.
    int FindItemIndex() const;
    /// What has been typed in the search so far, folded.
    const String& GetSearchBuffer() const { return FBuffer; }
    /// 13 when the last key typed was Enter or Tab, otherwise 0.
    int GetKeyFlag() const { return FKeyFlag; }

    void WndProc(TMessage& message) override;

protected:
    void EditWndProc(TMessage& message) override;
    void ListWndProc(TMessage& message) override;
    void KeyDown(WORD& key, TShiftState shift) override;
    void KeyPress(char16_t& key) override;
    void Change() override;
    void Select() override;
    void DropDown() override;
    void CloseUp() override;
    void DoExit() override;
    void ItemInserted(int index, const String& text) override;
    void ItemDeleted(int index) override;
    void ItemsCleared() override;
    void ItemsReplaced() override;

    /// Esc was pressed. Where it closes the list, the text and the item from before it opened come back.
    virtual void EscapePressed();

private:
    /// What the person's choice has brought about and is still to be told of.
    struct TNews {
        bool Chosen = false;
        bool Closed = false;
    };

    bool ChoosesFromList() const { return FPublishedStyle == csDropDownList; }
    const TChoiceIndex& Index();
    void Search(TSearchKey kind, char16_t key);
    void SearchFor(StringView text);
    void ShowFound(const TSearchStep& step);
    void ControlKey(char16_t key);
    void CopyText();
    void PasteText();
    bool HandleEditCommand(const TMessage& message);
    void AnswerSign(TMessage& message);
    bool PressedElsewhere(const TMessage& message);
    bool SettleBefore(const TMessage& message);
    void Native(TMessage& message, void (TZORComboBox::*handle)(TMessage&));
    void NativeEdit(TMessage& message) { TZORScreenKeyboard::EditWndProc(message); }
    void NativeList(TMessage& message) { TZORScreenKeyboard::ListWndProc(message); }
    void NativeCombo(TMessage& message) { TZORScreenKeyboard::WndProc(message); }
    void WidenList();
    const TControlStrings& ItemStrings() const { return static_cast<const TControlStrings&>(*GetItems()); }
    TShownChoice Shown() const { return {GetText(), GetItemIndex()}; }
    void NoteTold();
    void TellChoice();
    void TellItem();
    void TellClosed();

    TChoiceIndex FIndex;
    TChoiceListWidth FListWidth;
    String FBuffer;
    TChoiceMemory FMemory;  // Esc goes back to when the list opened
    TNews* FNews = nullptr; // while the native window acts on a key or the mouse
    TBehavior FBehavior = beStandard;
    TComboBoxStyle FPublishedStyle = csDropDown;
    int FKeyFlag = 0;
    bool FCaseSensitive = false;
    bool FUntold = false;      // the search has shown an item that OnSelect has not told of
    bool FEscaping = false;    // Esc closes the list, and what was there before has not come back yet
    bool FTextPressed = false; // the mouse went down on the text
    bool FSignFound = false;   // a letter of the popup has led to another item
};

namespace Zorcombobox {
/// Puts the control on the designer's palette.
void Register();
} // namespace Zorcombobox

} // namespace ZOR
