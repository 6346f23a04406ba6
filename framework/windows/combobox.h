#pragma once

// A field with a list that drops down, over the native COMBOBOX window. TCustomCombo knows the two windows that the
// native one has inside, the edit part and the list part, and lets descendants see their messages; TCustomComboBox
// adds the choice: styles, items, completion of what is typed, painting by the program.

#include "framework/system/stringlist.h"
#include "framework/windows/edit.h"
#include "framework/windows/ownerdraw.h"

namespace framework {

enum TComboBoxStyle {
    csDropDown,          ///< an edit part, and a list that drops down
    csSimple,            ///< an edit part, and a list that always shows below it
    csDropDownList,      ///< choice from the list alone
    csOwnerDrawFixed,    ///< as csDropDownList; DrawItem paints, all items are ItemHeight high
    csOwnerDrawVariable, ///< as csDropDownList; DrawItem paints, MeasureItem tells each height
};
const TEnumInfo& DescribeEnum(TComboBoxStyle);

/// What combo boxes have in common below the choice itself: the two parts, their text and selection.
class TCustomCombo : public TTextControl {
    FRAMEWORK_CLASS(TCustomCombo)

public:
    FRAMEWORK_PROPERTY(int, DropDownCount, GetDropDownCount, SetDropDownCount);
    FRAMEWORK_PROPERTY(bool, DroppedDown, GetDroppedDown, SetDroppedDown);
    FRAMEWORK_PROPERTY(int, MaxLength, GetMaxLength, SetMaxLength);

    /// The person changed the text. Text that the program sets is not announced.
    TNotifyEvent OnChange;
    TNotifyEvent OnDropDown;
    TNotifyEvent OnCloseUp;
    /// The person chose an item. Without a handler here, OnChange tells of it.
    TNotifyEvent OnSelect;

    explicit TCustomCombo(TComponent* owner);
    ~TCustomCombo() override;

    /// How many items the list shows before it scrolls.
    int GetDropDownCount() const { return FDropDownCount; }
    void SetDropDownCount(int value);
    bool GetDroppedDown() const;
    void SetDroppedDown(bool value);
    /// The number of UTF-16 units a person can enter; 0 or less means no limit.
    int GetMaxLength() const { return FMaxLength; }
    void SetMaxLength(int value);

    bool Focused() const override;
    void Invalidate() override;
    void WndProc(TMessage& message) override;

protected:
    void CreateWnd() override;
    void DestroyHandle() override;
    void ForgetWindow() override;
    HWND TextWindow() const override { return FEdit.Window; }
    void CMRecreateWnd(TMessage& message) override;
    void Dispatch(TMessage& message) override;
    void DefaultHandler(TMessage& message) override;

    /// Every message of the edit part. Descendants handle what they want and pass the rest on to this one, which turns
    /// keys and the mouse into the events of the combo box.
    virtual void EditWndProc(TMessage& message);
    /// Every message of the list part.
    virtual void ListWndProc(TMessage& message);
    /// The text of the edit part became another by the person's doing; fires OnChange.
    virtual void Change();
    /// The person chose an item; fires OnSelect, or OnChange where nobody listens to it.
    virtual void Select();
    virtual void DropDown();
    virtual void CloseUp();
    virtual void CNCommand(TMessage& message);

    /// Null without a window, and in styles that have no edit part.
    HWND GetEditHandle() const { return FEdit.Window; }
    HWND GetListHandle() const { return FList.Window; }
    LRESULT Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;
    /// What the last Change told of, or the program set: an equal text is no change.
    void NoteText() { FReportedText = GetText(); }
    /// Puts a text into the edit part without a word to anybody.
    void SetEditText(const String& text);

private:
    /// One of the two windows inside.
    struct TPart {
        HWND Window = nullptr;
        WNDPROC Native = nullptr;
    };
    /// A message of a part on its way through the combo box's own handlers.
    struct TRouted {
        const TMessage* Message;
        TPart Part;
        WPARAM WParam;
        LPARAM LParam;
        TRouted* Outer;
    };
    friend LRESULT CALLBACK ComboPartProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

    void AttachParts();
    static void Attach(TPart& part, HWND window, TCustomCombo* owner);
    static void Detach(TPart& part);
    void PartWndProc(HWND window, TMessage& message);
    void RouteToHandlers(const TPart& part, TMessage& original, TMessage mapped);
    void RouteMouse(const TPart& part, TMessage& message);
    bool OwnsWindow(HWND window) const;
    bool PointerInside() const;
    void EditChanged();

    TPart FEdit;
    TPart FList;
    TRouted* FRouted = nullptr;
    String FReportedText;
    int FDropDownCount = 8;
    int FMaxLength = 0;
    bool FSettingText = false;
    bool FKeyInPart = false; // a part's native procedure handles a key, and may pass it on to the combo box
};

template <class TOwner>
class TItemStrings;
class TComboBoxStrings;

class TCustomComboBox : public TCustomCombo {
    FRAMEWORK_CLASS(TCustomComboBox)

public:
    FRAMEWORK_PROPERTY(bool, AutoComplete, GetAutoComplete, SetAutoComplete);
    FRAMEWORK_READ_PROPERTY(TCanvas*, Canvas, GetCanvas);
    FRAMEWORK_PROPERTY(TEditCharCase, CharCase, GetCharCase, SetCharCase);
    FRAMEWORK_PROPERTY(int, ItemHeight, GetItemHeight, SetItemHeight);
    FRAMEWORK_PROPERTY(int, ItemIndex, GetItemIndex, SetItemIndex);
    FRAMEWORK_PROPERTY(TStrings*, Items, GetItems, SetItems);
    FRAMEWORK_PROPERTY(bool, Sorted, GetSorted, SetSorted);
    FRAMEWORK_PROPERTY(TComboBoxStyle, Style, GetStyle, SetStyle);

    TDrawItemEvent OnDrawItem;
    TMeasureItemEvent OnMeasureItem;

    explicit TCustomComboBox(TComponent* owner);
    ~TCustomComboBox() override;

    /// Whether what is typed is completed to the first item that begins with it; the part added is selected, so that
    /// typing on replaces it. Without an edit part the item is chosen.
    bool GetAutoComplete() const { return FAutoComplete; }
    void SetAutoComplete(bool value) { FAutoComplete = value; }
    /// For DrawItem, and only while it runs.
    TCanvas* GetCanvas() const { return FCanvas.get(); }
    TEditCharCase GetCharCase() const { return FCharCase; }
    void SetCharCase(TEditCharCase value);
    int GetCount() const;
    /// Pixels. It takes effect in the styles that the program paints; the others take it from the font.
    int GetItemHeight() const;
    void SetItemHeight(int value);
    /// The item that has been chosen or whose text stands in the edit part; -1 for none. An index that no item has
    /// counts as -1. Setting it fires no event.
    int GetItemIndex() const;
    void SetItemIndex(int value);
    TStrings* GetItems() const;
    void SetItems(TStrings* value) { GetItems()->Assign(value); }
    /// Whether items are kept in the order of the user's alphabet.
    bool GetSorted() const;
    void SetSorted(bool value);
    TComboBoxStyle GetStyle() const { return FStyle; }
    void SetStyle(TComboBoxStyle value);

    void AddItem(const String& text, TObject* object) { GetItems()->AddObject(text, object); }
    /// Empties text and list.
    virtual void Clear();

protected:
    void CreateParams(TCreateParams& params) override;
    void CreateWnd() override;
    void KeepWindowState() override;
    void Dispatch(TMessage& message) override;
    void Loaded() override;
    void KeyPress(char16_t& key) override;
    void Change() override;
    void Select() override;
    void CNCommand(TMessage& message) override;

    /// Paints one item with GetCanvas(), whose font and brush suit the state; fires OnDrawItem or draws the text.
    virtual void DrawItem(int index, TRect rect, TOwnerDrawState state);
    /// The height of one item of csOwnerDrawVariable; fires OnMeasureItem.
    virtual void MeasureItem(int index, int& height);
    virtual void CNDrawItem(TMessage& message);
    bool HasEditPart() const { return FStyle == csDropDown || FStyle == csSimple; }
    // The items have become others, as TItemStrings tells of them.
    virtual void ItemInserted(int index, const String& text);
    virtual void ItemDeleted(int index);
    virtual void ItemsCleared();
    virtual void ItemsReplaced();

private:
    template <class TOwner>
    friend class TItemStrings;

    void ShowItems(bool shown);
    void InsertIntoWindow(int index, const String& text);
    void FillWindow();
    void WMSetText(TMessage& message);
    void FollowText();
    int IndexOfStart(StringView beginning, int from) const;
    void CompleteTyped(char16_t& key);
    void ChooseTyped(char16_t& key);

    std::unique_ptr<TComboBoxStrings> FItems;
    std::shared_ptr<TCanvas> FCanvas;
    String FTyped;          // towards an item, where there is no edit part
    ULONGLONG FTypedAt = 0; // milliseconds
    int FItemIndex = -1;    // while there is no window, or a text form is being read
    int FItemHeight = 16;
    TComboBoxStyle FStyle = csDropDown;
    TEditCharCase FCharCase = ecNormal;
    bool FAutoComplete = true;
};

class TComboBox : public TCustomComboBox {
    FRAMEWORK_CLASS(TComboBox)

public:
    explicit TComboBox(TComponent* owner) : TCustomComboBox(owner) {}
};

} // namespace framework
