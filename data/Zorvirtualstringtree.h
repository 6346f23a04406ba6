#pragma once

// The check-list tree: a string tree that can turn itself into a list of texts to check, with a box for all in its
// header, a count in its caption, and a search edit above the rows that hides what does not contain the typed phrase.
// Outside of that mode it is the plain tree; in both it shows its requirement state as a frame.

#include "data/Zorvirtualstringtree_rules.h"
#include "foundation/Zorframed.h"
#include "framework/vtree/stringtree.h"
#include "framework/windows/edit.h"

namespace ZOR {

inline constexpr TFraming VirtualStringTreeFraming{
    .Requirement = PlainRequirement, .Place = TFramePlace::OverBorder, .BoundLabel = false, .HintInside = false};

class TZORVirtualStringTree : public TZORFramed<TVirtualStringTree, VirtualStringTreeFraming> {
    FRAMEWORK_CLASS(TZORVirtualStringTree)

public:
    FRAMEWORK_PROPERTY(bool, CheckBoxStyle, GetCheckListBoxStyle, SetCheckListBoxStyle);
    FRAMEWORK_PROPERTY(bool, SearchEditVisible, GetSearchEditVisible, SetSearchEditVisible);
    FRAMEWORK_PROPERTY(String, HeaderText, GetHeaderText, setHeaderText);
    FRAMEWORK_READ_PROPERTY(TEdit*, SearchEdit, GetSearchEdit);

    explicit TZORVirtualStringTree(TComponent* owner);
    ~TZORVirtualStringTree() override;

    // The items. SetCheckListBox shows what was added or removed.
    void AddToDeque(int id, const String& text) { FItems.Add(id, text); }
    void ClearDeque();
    std::size_t GetDequeCount() const { return FItems.Count(); }
    /// With `visible` as it is now.
    const sCheckListBox& GetDequeItem(std::size_t index) const { return FItems.Item(index); }
    /// Makes the nodes anew from the visible items, and brings box and caption of the header up to date. What was
    /// selected or had the focus still does, as long as it shows and ClearDeque did not take it; OnChange and
    /// OnFocusChanged come at the end when it does not.
    void SetCheckListBox();

    /// Check-list mode. Turning it on sets the tree up, columns included; turning it off leaves all as it is. A form
    /// that was saved from a check list is taken as it is, columns and options included.
    bool GetCheckListBoxStyle() const { return FCheckBoxStyle; }
    void SetCheckListBoxStyle(bool value);
    /// Hides the items whose texts do not contain the phrase, letter case aside; their boxes keep their states.
    void SetFraza(const String& phrase);
    const String& GetFraza() const { return FItems.Phrase(); }
    /// Gives all visible items a state and fires OnChecked for each that had another, or once during a click on the
    /// header's box; then OnChange.
    void CheckListBox_SetChecked(TCheckState state);
    // 0 outside of check-list mode.
    int GetCheckListBox_CheckedCount() const { return Counted(FItems.CheckedCount()); }
    int GetCheckListBox_FrazaCheckedCount() const { return Counted(FItems.VisibleCheckedCount()); }
    int GetCheckListBox_FrazaVisibleCount() const { return Counted(FItems.VisibleCount()); }

    bool GetSearchEditVisible() const { return FSearchEditVisible; }
    void SetSearchEditVisible(bool value);
    /// The edit above the rows. It belongs to this control and lies on the same parent.
    TEdit* GetSearchEdit() const;
    void SearchEditChange(TObject* sender);
    /// Whether the caption counts what is checked, as in "Cities: 3/10".
    void SetInfoLabelVisible(bool value);
    bool GetInfoLabelVisible() const { return FInfoLabelVisible; }
    const String& GetHeaderText() const { return FHeaderText; }
    void setHeaderText(const String& value);
    /// Brings the header's box and caption up to date.
    void UstawLabel();
    /// Puts the search edit between header and rows.
    void SetPositionAdditionalComponents();

    void SetParent(TWinControl* value) override;
    void SetBounds(int left, int top, int width, int height) override;
    void SetEnabled(bool value) override;
    void SortTree(TColumnIndex column, TSortDirection direction, bool doInit = true) override;

protected:
    void DoInitNode(TVirtualNode* parent, TVirtualNode* node, TVirtualNodeInitStates& initialStates) override;
    void DoGetText(TVirtualNode* node, TColumnIndex column, TVSTTextType textType, String& text) override;
    void DoChecked(TVirtualNode* node) override;
    void DoCheckedSeveral() override;
    int DoIncrementalSearch(TVirtualNode* node, const String& text) override;
    bool SearchAsksForNodes() const override { return !FCheckBoxStyle || OnIncrementalSearch; }
    void CMFontChanged(TMessage& message) override;
    void Loaded() override;
    int DoCompare(TVirtualNode* node1, TVirtualNode* node2, TColumnIndex column) override;
    void DoHeaderClick(const TVTHeaderHitInfo& hitInfo) override;
    int RoomBelowHeader() const override;
    void HeaderChanged(TVTHeader& header, bool places) override;
    bool CopiesColumn(TColumnIndex column) const override;
    void CMVisibleChanged(TMessage& message) override;
    void CMBiDiModeChanged(TMessage& message) override;
    void Notification(TComponent* component, TOperation operation) override;
    void ChangeScale(int m, int d) override;

private:
    struct TNodeItem {
        std::uint32_t Index;
    };

    int Counted(std::size_t count) const { return FCheckBoxStyle ? static_cast<int>(count) : 0; }
    /// The number of a node's item; the number of items for a node whose item has gone, perhaps to be replaced.
    std::size_t ItemOf(TVirtualNode* node) const;
    void SetUpCheckList();
    void SetUpColumns();
    int FormPixels(int pixels) const;
    TCheckListOrder OrderBy(TColumnIndex column, TSortDirection direction) const;
    void RestoreSelection(const std::vector<std::uint32_t>& selected, std::size_t focused,
                          const std::vector<std::uint32_t>& shown);
    std::exception_ptr ClearForRebuilding();
    void ShowSearchEdit();
    void PlaceSearchEditInTabOrder();
    void FocusAndTake(TVirtualNode* node);
    void TellChecked(const std::vector<std::uint32_t>& changed);
    void SearchEditKeyDown(WORD& key);

    TCheckList FItems;
    class TSearchEdit;
    TSearchEdit* FSearchEdit = nullptr;
    String FHeaderText;
    bool FCheckBoxStyle = false;
    bool FSearchEditVisible = false;
    bool FInfoLabelVisible = false;
    bool FHeaderClicked = false;
    unsigned FItemsNumber = 0;   // of the items, which ClearDeque makes others
    bool FItemsReplaced = false; // the numbers that nodes have are those of items that went
};

namespace Zorvirtualstringtree {
/// Puts the control on the designer's palette, and makes the plain trees known to text forms.
void Register();
} // namespace Zorvirtualstringtree

} // namespace ZOR
