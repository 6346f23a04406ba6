#pragma once

// A list of texts to choose from, one or several, over the native LISTBOX window.

#include "framework/system/stringlist.h"
#include "framework/windows/ownerdraw.h"

namespace framework {

enum TListBoxStyle {
    lbStandard,
    lbOwnerDrawFixed,    ///< DrawItem paints; all items are ItemHeight high
    lbOwnerDrawVariable, ///< DrawItem paints; MeasureItem tells each height
};
const TEnumInfo& DescribeEnum(TListBoxStyle);

template <class TOwner>
class TItemStrings;
class TListBoxStrings;

class TCustomListBox : public TWinControl {
    FRAMEWORK_CLASS(TCustomListBox)

public:
    FRAMEWORK_PROPERTY(TBorderStyle, BorderStyle, GetBorderStyle, SetBorderStyle);
    FRAMEWORK_READ_PROPERTY(TCanvas*, Canvas, GetCanvas);
    FRAMEWORK_READ_PROPERTY(int, Count, GetCount);
    FRAMEWORK_PROPERTY(bool, ExtendedSelect, GetExtendedSelect, SetExtendedSelect);
    FRAMEWORK_PROPERTY(bool, IntegralHeight, GetIntegralHeight, SetIntegralHeight);
    FRAMEWORK_PROPERTY(int, ItemHeight, GetItemHeight, SetItemHeight);
    FRAMEWORK_PROPERTY(int, ItemIndex, GetItemIndex, SetItemIndex);
    FRAMEWORK_PROPERTY(TStrings*, Items, GetItems, SetItems);
    FRAMEWORK_PROPERTY(bool, MultiSelect, GetMultiSelect, SetMultiSelect);
    FRAMEWORK_PROPERTY(int, ScrollWidth, GetScrollWidth, SetScrollWidth);
    FRAMEWORK_READ_PROPERTY(int, SelCount, GetSelCount);
    FRAMEWORK_PROPERTY(bool, Selected[], GetSelected, SetSelected);
    FRAMEWORK_PROPERTY(bool, Sorted, GetSorted, SetSorted);
    FRAMEWORK_PROPERTY(TListBoxStyle, Style, GetStyle, SetStyle);
    FRAMEWORK_PROPERTY(int, TopIndex, GetTopIndex, SetTopIndex);

    TDrawItemEvent OnDrawItem;
    TMeasureItemEvent OnMeasureItem;

    explicit TCustomListBox(TComponent* owner);
    ~TCustomListBox() override;

    TBorderStyle GetBorderStyle() const { return FBorderStyle; }
    void SetBorderStyle(TBorderStyle value);
    /// For DrawItem, and only while it runs.
    TCanvas* GetCanvas() const { return FCanvas.get(); }
    int GetCount() const;
    /// With MultiSelect: whether Shift and Ctrl select as everywhere in Windows; otherwise each click toggles its item.
    bool GetExtendedSelect() const { return FExtendedSelect; }
    void SetExtendedSelect(bool value);
    /// Whether the control shrinks so that no item shows in part.
    bool GetIntegralHeight() const { return FIntegralHeight; }
    void SetIntegralHeight(bool value);
    /// Pixels. A standard list takes it from the font as soon as it has a window.
    int GetItemHeight() const;
    void SetItemHeight(int value);
    /// The selected item, with MultiSelect the one with the focus rectangle; -1 for none. Setting it fires no OnClick.
    /// EListError when the index is not in -1..Count-1.
    int GetItemIndex() const;
    void SetItemIndex(int value);
    TStrings* GetItems() const;
    void SetItems(TStrings* value) { GetItems()->Assign(value); }
    bool GetMultiSelect() const { return FMultiSelect; }
    void SetMultiSelect(bool value);
    /// The width in pixels that can be scrolled to; 0 for no horizontal scroll bar.
    int GetScrollWidth() const { return FScrollWidth; }
    void SetScrollWidth(int value);
    /// How many are selected; always -1 without MultiSelect.
    int GetSelCount() const;
    /// EListError when the index is not in 0..Count-1.
    bool GetSelected(int index) const;
    void SetSelected(int index, bool value);
    /// Whether items are kept in the order of the user's alphabet.
    bool GetSorted() const;
    void SetSorted(bool value);
    TListBoxStyle GetStyle() const { return FStyle; }
    void SetStyle(TListBoxStyle value);
    /// The first item that shows.
    int GetTopIndex() const;
    void SetTopIndex(int value);

    void ChangeScale(int m, int d) override;
    void AddItem(const String& text, TObject* object) { GetItems()->AddObject(text, object); }
    virtual void Clear() { GetItems()->Clear(); }
    virtual void ClearSelection();
    void DeleteSelected();
    /// Selects every item of a list with MultiSelect.
    virtual void SelectAll();
    /// The item at a point of the client area; behind the last one Count, or -1 when only existing ones are asked for.
    int ItemAtPos(TPoint point, bool existing) const;
    /// The place of an item in the client area, outside of it when scrolled away. Needs the window.
    TRect ItemRect(int index) const;

protected:
    void CreateParams(TCreateParams& params) override;
    void CreateWnd() override;
    void KeepWindowState() override;
    void Dispatch(TMessage& message) override;

    /// Paints one item with GetCanvas(), whose font and brush suit the state; fires OnDrawItem or draws the text.
    virtual void DrawItem(int index, TRect rect, TOwnerDrawState state);
    /// The height of one item of lbOwnerDrawVariable; fires OnMeasureItem.
    virtual void MeasureItem(int index, int& height);
    virtual void CNCommand(TMessage& message);
    virtual void CNDrawItem(TMessage& message);
    LRESULT Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;
    /// What a descendant notes for an item beside its text and object; 0 at first.
    int GetItemMark(int index) const;
    void SetItemMark(int index, int mark);

private:
    template <class TOwner>
    friend class TItemStrings;

    void ShowItems(bool shown);
    void ItemInserted(int index, const String& text);
    void ItemDeleted(int index);
    void ItemsCleared();
    void ItemsReplaced();
    void FillWindow();
    void CheckIndex(int index) const;

    std::unique_ptr<TListBoxStrings> FItems;
    std::shared_ptr<TCanvas> FCanvas;
    std::vector<bool> FSelected; // by item, while there is no window
    int FItemIndex = -1;         // while there is no window
    int FTopIndex = 0;           // while there is no window
    int FItemHeight = 16;
    int FScrollWidth = 0;
    TListBoxStyle FStyle = lbStandard;
    TBorderStyle FBorderStyle = bsSingle;
    bool FExtendedSelect = true;
    bool FIntegralHeight = false;
    bool FMultiSelect = false;
};

class TListBox : public TCustomListBox {
    FRAMEWORK_CLASS(TListBox)

public:
    explicit TListBox(TComponent* owner) : TCustomListBox(owner) {}
};

} // namespace framework
