#pragma once

// The choice field with a list of its own. What is typed is looked for in the items, at their beginning or anywhere,
// with or without letter case and accents; the list opens, goes to the first item that matches and marks what matched
// in all of them, and a key that would leave no match is refused. The field is a memo of one line, which paints a
// gradient and an arrow and looks like a combo box.
//
// Up and Down move through the items and choose each, once when pressed and then at intervals while held. Alt+Up,
// Alt+Down and F4 open and close the list, Enter takes the highlighted row, Tab takes it and moves on. Esc closes the
// list and brings back the text and the item from before. Leaving the field by other means takes nothing; with Style
// csDropDownList a text that is no item's then gives way to what was chosen last. An item typed in full counts as
// chosen when the list closes or the field is left.

#include "framework/windows/combobox.h"
#include "framework/windows/controlstrings.h"
#include "lists/Zorarrowfield.h"
#include "lists/Zorcombobox_list.h"

namespace ZOR {

class TChoiceStrings;

class TZORComboBoxnew : public TZORArrowField {
    FRAMEWORK_CLASS(TZORComboBoxnew)

public:
    FRAMEWORK_PROPERTY(TBehavior, Behavior, GetBehavior, SetBehavior);
    FRAMEWORK_PROPERTY(bool, CaseSensitive, GetCaseSensitive, SetCaseSensitive);
    FRAMEWORK_PROPERTY(int, ItemIndex, GetItemIndex, SetItemIndex);
    FRAMEWORK_PROPERTY(bool, Sorted, GetSorted, SetSorted);
    FRAMEWORK_PROPERTY(String, Text, GetFText, SetFText);
    FRAMEWORK_PROPERTY(TComboBoxStyle, Style, GetStyle, SetStyle);
    FRAMEWORK_PROPERTY(bool, DroppedDown, GetDroppedDown, SetFDroppedDown);
    FRAMEWORK_PROPERTY(int, DropDownCount, GetDropDownCount, SetDropDownCount);
    FRAMEWORK_PROPERTY(bool, IgnoreLocalChars, GetIgnoreLocalChars, SetIgnoreLocalChars);
    FRAMEWORK_PROPERTY(TStrings*, Items, GetItems, SetItems);
    FRAMEWORK_PROPERTY(bool, SmartSearch, GetSmartSearch, SetSmartSearch);

    // What the person does is told of in this order, each once: OnChange (the text is another), OnSelect (so is the
    // item), OnCloseUp (the list has closed). What the program sets is not.
    TNotifyEvent OnNewClick; ///< the arrow was clicked although there are no items
    TNotifyEvent OnSelect;   ///< another item was chosen
    TNotifyEvent OnCloseUp;  ///< the list has closed, for whatever reason

    explicit TZORComboBoxnew(TComponent* owner);
    ~TZORComboBoxnew() override;

    /// beNewWyszukajPoczatek: items match that begin with the text; otherwise those that contain it.
    TBehavior GetBehavior() const { return FBehavior; }
    void SetBehavior(TBehavior value) { FBehavior = value; }
    bool GetCaseSensitive() const { return FCaseSensitive; }
    void SetCaseSensitive(bool value) { FCaseSensitive = value; }
    /// The item chosen, or typed letter by letter; -1 for none. An index that no item has counts as -1.
    int GetItemIndex() const { return FShown.Item; }
    void SetItemIndex(int value);
    bool GetSorted() const;
    void SetSorted(bool value);
    String GetFText() const { return GetText(); }
    /// Line ends become blanks: the field shows one line. The item follows the text.
    void SetFText(const String& value) { SetText(value); }
    /// csDropDownList: only items can be chosen. The other styles leave what was typed.
    TComboBoxStyle GetStyle() const { return FStyle; }
    void SetStyle(TComboBoxStyle value) { FStyle = value; }
    bool GetDroppedDown() const;
    /// Opens the list where a person can use it: the field must be able to take the focus, and have items.
    void SetFDroppedDown(bool value);
    /// How many rows the list shows before it scrolls.
    int GetDropDownCount() const { return FDropDownCount; }
    void SetDropDownCount(int value);
    /// Whether the accents of the Latin letters from U+00C0 to U+017F are ignored, also those that SmartSearch does not
    /// know.
    bool GetIgnoreLocalChars() const { return FIgnoreLocalChars; }
    void SetIgnoreLocalChars(bool value) { FIgnoreLocalChars = value; }
    TStrings* GetItems() const;
    void SetItems(TStrings* value) { GetItems()->Assign(value); }
    /// Whether the listed accents are ignored (FoldAccents); a question mark then stands for an a.
    bool GetSmartSearch() const { return FSmartSearch; }
    void SetSmartSearch(bool value) { FSmartSearch = value; }

    void AddItem(const String& text, TObject* object);
    void InsertItem(int index, const String& text, TObject* object);
    void DeleteItem(int index);
    /// Removes all items and the text.
    void Clear() override;
    /// Folds the items for searching now, and not when the next key needs it.
    void MakeSmartItems();

    /// The first item that matches, -1 for none. An empty text matches nothing.
    int findItemPos(const String& text);
    int findItem(const String& text) { return findItemPos(text); }
    /// Whether some item would match after this key typed at the end of the text; keys 0 and 8 add nothing to it.
    bool key_allowed(char16_t key);
    /// The integer that the program keeps in place of the chosen item's object; -1 when none is chosen.
    int get_id_sel() const;

    void dropdown_pop();
    void dropdown_close();
    /// Lets go of the list's window unless it is open.
    void seek_n_destroy();
    /// Brings the open list to the size and place that its items ask for.
    void fit_popup();
    /// Where the open list is on the screen; empty while it is closed.
    TRect get_x_y() const;
    /// The list; null before it was opened and some time after it was closed.
    Tform_list* GetPopup() const { return FLoader ? FLoader->GetList() : nullptr; }

    void WndProc(TMessage& message) override;

protected:
    void Loaded() override;
    void Dispatch(TMessage& message) override;
    void CMTextChanged(TMessage& message) override;
    void KeyDown(WORD& key, TShiftState shift) override;
    void KeyPress(char16_t& key) override;
    void KeyUp(WORD& key, TShiftState shift) override;
    bool DoMouseWheel(TShiftState shift, int wheelDelta, TPoint mousePos) override;
    void Change() override;
    void DoEnter() override;
    void DoExit() override;
    void PressArrow() override;
    void PressText() override { dropdown_close(); }
    bool ArrowIsDown() const override { return GetDroppedDown(); }

    /// Frees the list some time after it has closed, when nothing of it can be running any more.
    virtual void cust_OnTimer(TObject* sender);
    /// One more row while Up or Down is held.
    virtual void cust_acc_OnTimer(TObject* sender);
    // The list's window opens and closes.
    virtual void FormActivateZ();
    virtual void form_deactivate(TObject* sender);
    // The mouse in the list, and the release of a key in the field.
    virtual void cust_MouseMove(TObject* sender, TShiftState shift, int x, int y);
    virtual void cust_MouseUp(TObject* sender, TMouseButton button, TShiftState shift, int x, int y);
    virtual void cust_Click(int row);
    virtual void cust_KeyUp(WORD key);

private:
    template <class TOwner>
    friend class framework::TItemStrings;

    // The items, as TChoiceStrings tells of them
    void ShowItems(bool shown);
    void ItemInserted(int index, const String& text);
    void ItemDeleted(int index);
    void ItemsCleared();
    void ItemsReplaced();
    void DropLostText();
    void ItemsEdited();

    TTextFolding Folding() const;
    TTextFolding MarkFolding() const;
    const TChoiceIndex& Index();
    bool ChoosesFromList() const { return FStyle == csDropDownList; }
    void ShowText(const String& text);
    void Show(const TShownChoice& choice);
    void Choose(int item);
    void FollowText();
    void NormalizeText(TMessage& message);
    bool AllowsText(const String& text);
    String TextWith(const String& inserted) const;
    void InsertText(const String& inserted);
    void Paste();
    void TextTyped();
    void TextSet();
    void OpenForSearch();
    void ShowMatch();
    int RowToShow();
    void Step(int step);
    void StepTo(int row);
    void CloseAnd(const std::function<void()>& rest);
    void TakeRow(int row);
    void Restore();
    void Settle();
    void TellClosedAfter(const std::function<void()>& first);
    void Tell();
    void TellChoice();
    bool BringListInLine();
    bool HandleOwnKey(WORD key, TShiftState shift);
    bool HandlePopupKey(TMessage& message);

    std::unique_ptr<TChoiceStrings> FItems;
    TChoiceIndex FIndex;
    std::unique_ptr<Tform_dropdown_loader> FLoader; // from the first use on
    TTimer FCloseTimer{nullptr};
    TTimer FAccTimer{nullptr};
    TChoiceListWidth FListWidth;
    TShownChoice FShown;   // now
    TChoiceMemory FMemory; // Esc goes back to when the person entered the field, or chose last
    TPoint FPointer;       // where the mouse was over the list last, on the screen
    int FDropDownCount = 10;
    TBehavior FBehavior = beStandard;
    TComboBoxStyle FStyle = csDropDown;
    int FWheel = 0;         // turned, but less than a notch
    WORD FHeldKey = 0;      // Up or Down, while the key is down
    char16_t FHighHalf = 0; // of a character that comes in two halves; the low one is to follow
    bool FCaseSensitive = false;
    bool FIgnoreLocalChars = false;
    bool FSmartSearch = false;
    bool FByPerson = false; // what changes the text now is the person's doing
    bool FCharacterTyped = false;
    bool FQuietly = false;     // what changes the text now is not to be told of
    bool FHoldCloseUp = false; // the closing of the list is told of later
    bool FClosing = false;     // the field closes its list itself
    bool FItemLost = false;    // the item that showed has gone since the items began to change
    bool FListStale = false;   // the items have changed since the open list was brought in line
    bool FSignRefused = false; // the letter of the popup of extra letters did not go in
};

namespace Zorcomboboxnew {
/// Puts the control on the designer's palette.
void Register();
} // namespace Zorcomboboxnew

} // namespace ZOR
