#pragma once

// The base of virtual trees: any number of nodes, of which only those are asked for, measured and painted that show.
// The tree keeps the nodes and their data, expands, scrolls, selects, checks, searches and sorts; descendants say what
// is in a node and paint it.
//
// A node is asked for by DoInitNode when it is first needed, its children by DoInitChildren. Whatever handlers do,
// nodes deleted, the tree cleared or freed, the tree notices and goes on without them.

#include "framework/graphics/textmetrics.h"
#include "framework/vtree/nodewalk_rules.h"
#include "framework/vtree/treeheader.h"
#include "framework/windows/scrollbox_rules.h"
#include "framework/windows/wincontrol.h"

namespace framework {

class TBaseVirtualTree;
struct TCheckLook;
struct THintInfo;

struct TVTPaintInfo {
    TCanvas* Canvas = nullptr;
    HDC DC = nullptr; ///< the canvas's context with the tree's font, as long as no handler uses the canvas
    TVirtualNode* Node = nullptr;
    TColumnIndex Column = NoColumn;
    int Position = 0;  ///< of the column
    TRect CellRect;    ///< the whole cell in client pixels
    TRect ContentRect; ///< without indentation, check box and margins
    TAlignment Alignment = taLeftJustify;
    TBiDiMode BidiMode = bdLeftToRight;
    bool Selected = false; ///< shown as selected in this cell
    bool Focused = false;  ///< the cell of the focused node that has the focus
};

/// What lies at a point.
struct THitInfo {
    TVirtualNode* HitNode = nullptr;
    TColumnIndex HitColumn = NoColumn;
    THitPositions HitPositions;
    TPoint HitPoint;
};

using TVTNodeEvent = std::function<void(TBaseVirtualTree* Sender, TVirtualNode* Node)>;
using TVTInitNodeEvent = std::function<void(TBaseVirtualTree* Sender, TVirtualNode* ParentNode, TVirtualNode* Node,
                                            TVirtualNodeInitStates& InitialStates)>;
using TVTInitChildrenEvent = std::function<void(TBaseVirtualTree* Sender, TVirtualNode* Node, unsigned& ChildCount)>;
using TVTChangingEvent = std::function<void(TBaseVirtualTree* Sender, TVirtualNode* Node, bool& Allowed)>;
using TVTCheckChangingEvent =
    std::function<void(TBaseVirtualTree* Sender, TVirtualNode* Node, TCheckState& NewState, bool& Allowed)>;
using TVTFocusChangingEvent = std::function<void(TBaseVirtualTree* Sender, TVirtualNode* OldNode, TVirtualNode* NewNode,
                                                 TColumnIndex OldColumn, TColumnIndex NewColumn, bool& Allowed)>;
using TVTColumnNodeEvent = std::function<void(TBaseVirtualTree* Sender, TVirtualNode* Node, TColumnIndex Column)>;
using TVTCompareEvent = std::function<void(TBaseVirtualTree* Sender, TVirtualNode* Node1, TVirtualNode* Node2,
                                           TColumnIndex Column, int& Result)>;
using TVTCellPaintEvent = std::function<void(TBaseVirtualTree* Sender, const TVTPaintInfo& PaintInfo)>;
using TVTMeasureItemEvent =
    std::function<void(TBaseVirtualTree* Sender, TCanvas* TargetCanvas, TVirtualNode* Node, int& NodeHeight)>;
using TVTGetHintEvent =
    std::function<void(TBaseVirtualTree* Sender, TVirtualNode* Node, TColumnIndex Column, String& HintText)>;
using TVTIncrementalSearchEvent =
    std::function<void(TBaseVirtualTree* Sender, TVirtualNode* Node, const String& SearchText, int& Result)>;
using TVTScrollEvent = std::function<void(TBaseVirtualTree* Sender, int DeltaX, std::int64_t DeltaY)>;
using TVTHeaderClickEvent = std::function<void(TVTHeader* Sender, const TVTHeaderHitInfo& HitInfo)>;
using TVTHeaderDraggingEvent = std::function<void(TVTHeader* Sender, TColumnIndex Column, bool& Allowed)>;
using TVTHeaderDraggedEvent = std::function<void(TVTHeader* Sender, TColumnIndex Column, int OldPosition)>;
using TVTHeaderNotifyEvent = std::function<void(TVTHeader* Sender, TColumnIndex Column)>;
enum TVTDropMarkMode { dmmNone, dmmLeft, dmmRight };
using TVTHeaderPaintEvent = std::function<void(TVTHeader* Sender, TCanvas* HeaderCanvas, TVirtualTreeColumn* Column,
                                               const TRect& R, bool Hover, bool Pressed, TVTDropMarkMode DropMark)>;

/// The sets of choices of one tree.
class TVirtualTreeOptions : public TPersistent {
    FRAMEWORK_CLASS(TVirtualTreeOptions)

public:
    FRAMEWORK_PROPERTY(TVTAutoOptions, AutoOptions, GetAutoOptions, SetAutoOptions);
    FRAMEWORK_PROPERTY(TVTMiscOptions, MiscOptions, GetMiscOptions, SetMiscOptions);
    FRAMEWORK_PROPERTY(TVTPaintOptions, PaintOptions, GetPaintOptions, SetPaintOptions);
    FRAMEWORK_PROPERTY(TVTSelectionOptions, SelectionOptions, GetSelectionOptions, SetSelectionOptions);

    explicit TVirtualTreeOptions(TBaseVirtualTree* tree) : FTree(tree) {}
    TPersistent* GetOwner() const override;
    void Assign(TPersistent* source) override;

    TVTAutoOptions GetAutoOptions() const { return FAutoOptions; }
    void SetAutoOptions(TVTAutoOptions value);
    TVTMiscOptions GetMiscOptions() const { return FMiscOptions; }
    void SetMiscOptions(TVTMiscOptions value);
    TVTPaintOptions GetPaintOptions() const { return FPaintOptions; }
    void SetPaintOptions(TVTPaintOptions value);
    TVTSelectionOptions GetSelectionOptions() const { return FSelectionOptions; }
    void SetSelectionOptions(TVTSelectionOptions value);

private:
    TBaseVirtualTree* FTree;
    TVTPaintOptions FPaintOptions = DefaultPaintOptions;
    TVTMiscOptions FMiscOptions = DefaultMiscOptions;
    TVTSelectionOptions FSelectionOptions;
    TVTAutoOptions FAutoOptions = DefaultAutoOptions;
};

/// The colours of one tree beside its own Color and Font.
class TVTColors : public TPersistent {
    FRAMEWORK_CLASS(TVTColors)

public:
    FRAMEWORK_PROPERTY(TColor, FocusedSelectionColor, GetFocusedSelectionColor, SetFocusedSelectionColor);
    FRAMEWORK_PROPERTY(TColor, GridLineColor, GetGridLineColor, SetGridLineColor);
    FRAMEWORK_PROPERTY(TColor, HotColor, GetHotColor, SetHotColor);
    FRAMEWORK_PROPERTY(TColor, SelectionTextColor, GetSelectionTextColor, SetSelectionTextColor);
    FRAMEWORK_PROPERTY(TColor, TreeLineColor, GetTreeLineColor, SetTreeLineColor);
    FRAMEWORK_PROPERTY(TColor, UnfocusedSelectionColor, GetUnfocusedSelectionColor, SetUnfocusedSelectionColor);

    explicit TVTColors(TBaseVirtualTree* tree) : FTree(tree) {}
    TPersistent* GetOwner() const override;
    void Assign(TPersistent* source) override;

    TColor GetFocusedSelectionColor() const { return FFocusedSelection; }
    void SetFocusedSelectionColor(TColor value) { Change(FFocusedSelection, value); }
    TColor GetGridLineColor() const { return FGridLine; }
    void SetGridLineColor(TColor value) { Change(FGridLine, value); }
    /// Of the texts of the row under the pointer.
    TColor GetHotColor() const { return FHot; }
    void SetHotColor(TColor value) { Change(FHot, value); }
    /// Of selected texts, unless the selection is blended.
    TColor GetSelectionTextColor() const { return FSelectionText; }
    void SetSelectionTextColor(TColor value) { Change(FSelectionText, value); }
    TColor GetTreeLineColor() const { return FTreeLine; }
    void SetTreeLineColor(TColor value) { Change(FTreeLine, value); }
    TColor GetUnfocusedSelectionColor() const { return FUnfocusedSelection; }
    void SetUnfocusedSelectionColor(TColor value) { Change(FUnfocusedSelection, value); }

private:
    void Change(TColor& color, TColor value);

    TBaseVirtualTree* FTree;
    TColor FFocusedSelection = clHighlight;
    TColor FGridLine = clBtnFace;
    TColor FHot = clHotLight;
    TColor FSelectionText = clHighlightText;
    TColor FTreeLine = clBtnShadow;
    TColor FUnfocusedSelection = clSilver;
};

class TBaseVirtualTree : public TCustomControl {
    FRAMEWORK_CLASS(TBaseVirtualTree)

public:
    FRAMEWORK_PROPERTY(TBorderStyle, BorderStyle, GetBorderStyle, SetBorderStyle);
    FRAMEWORK_PROPERTY(TCheckState, CheckState[], GetCheckState, SetCheckState);
    FRAMEWORK_PROPERTY(TCheckType, CheckType[], GetCheckType, SetCheckType);
    FRAMEWORK_PROPERTY(unsigned, ChildCount[], GetChildCount, SetChildCount);
    FRAMEWORK_PROPERTY(TVTColors*, Colors, GetColors, SetColors);
    FRAMEWORK_PROPERTY(int, DefaultNodeHeight, GetDefaultNodeHeight, SetDefaultNodeHeight);
    FRAMEWORK_PROPERTY(bool, Expanded[], GetExpanded, SetExpanded);
    FRAMEWORK_PROPERTY(TColumnIndex, FocusedColumn, GetFocusedColumn, SetFocusedColumn);
    FRAMEWORK_PROPERTY(TVirtualNode*, FocusedNode, GetFocusedNode, SetFocusedNode);
    FRAMEWORK_PROPERTY(bool, HasChildren[], GetHasChildren, SetHasChildren);
    FRAMEWORK_PROPERTY(TVTHeader*, Header, GetHeader, SetHeader);
    FRAMEWORK_PROPERTY(TVTHintMode, HintMode, GetHintMode, SetHintMode);
    FRAMEWORK_PROPERTY(TVTIncrementalSearch, IncrementalSearch, GetIncrementalSearch, SetIncrementalSearch);
    FRAMEWORK_PROPERTY(int, IncrementalSearchTimeout, GetIncrementalSearchTimeout, SetIncrementalSearchTimeout);
    FRAMEWORK_PROPERTY(int, Indent, GetIndent, SetIndent);
    FRAMEWORK_PROPERTY(bool, IsDisabled[], GetDisabled, SetDisabled);
    FRAMEWORK_PROPERTY(bool, IsFiltered[], GetFiltered, SetFiltered);
    FRAMEWORK_PROPERTY(bool, IsVisible[], GetNodeVisible, SetNodeVisible);
    FRAMEWORK_PROPERTY(int, Margin, GetMargin, SetMargin);
    FRAMEWORK_PROPERTY(int, NodeDataSize, GetNodeDataSize, SetNodeDataSize);
    FRAMEWORK_PROPERTY(int, NodeHeight[], GetNodeHeight, SetNodeHeight);
    FRAMEWORK_PROPERTY(int, OffsetX, GetOffsetX, SetOffsetX);
    FRAMEWORK_PROPERTY(std::int64_t, OffsetY, GetOffsetY, SetOffsetY);
    FRAMEWORK_READ_PROPERTY(TVirtualNode*, RootNode, GetRootNode);
    FRAMEWORK_PROPERTY(unsigned, RootNodeCount, GetRootNodeCount, SetRootNodeCount);
    FRAMEWORK_PROPERTY(bool, Selected[], GetSelected, SetSelected);
    FRAMEWORK_READ_PROPERTY(int, SelectedCount, GetSelectedCount);
    FRAMEWORK_PROPERTY(int, SelectionBlendFactor, GetSelectionBlendFactor, SetSelectionBlendFactor);
    FRAMEWORK_PROPERTY(int, TextMargin, GetTextMargin, SetTextMargin);
    FRAMEWORK_PROPERTY(TVirtualNode*, TopNode, GetTopNode, SetTopNode);
    FRAMEWORK_PROPERTY(TVirtualTreeOptions*, TreeOptions, GetTreeOptions, SetTreeOptions);
    FRAMEWORK_READ_PROPERTY(int, VisibleCount, GetVisibleCount);
    FRAMEWORK_PROPERTY(bool, VisiblePath[], GetVisiblePath, SetVisiblePath);

    TVTCellPaintEvent OnAfterCellPaint;
    TVTCellPaintEvent OnBeforeCellPaint;
    TVTNodeEvent OnChange; ///< the selection; the node is null when several changed
    TVTNodeEvent OnChecked;
    TVTCheckChangingEvent OnChecking;
    TVTNodeEvent OnCollapsed;
    TVTChangingEvent OnCollapsing;
    TVTHeaderNotifyEvent OnColumnResize;
    TVTCompareEvent OnCompareNodes;
    TVTNodeEvent OnExpanded;
    TVTChangingEvent OnExpanding;
    TVTColumnNodeEvent OnFocusChanged;
    TVTFocusChangingEvent OnFocusChanging;
    TVTNodeEvent OnFreeNode;
    TVTGetHintEvent OnGetHint;
    TVTHeaderClickEvent OnHeaderClick;
    TVTHeaderDraggedEvent OnHeaderDragged;
    TVTHeaderDraggingEvent OnHeaderDragging;
    TVTHeaderPaintEvent OnHeaderDraw;
    TVTIncrementalSearchEvent OnIncrementalSearch;
    TVTInitChildrenEvent OnInitChildren;
    TVTInitNodeEvent OnInitNode;
    TVTMeasureItemEvent OnMeasureItem;
    TVTColumnNodeEvent OnNodeClick;
    TVTColumnNodeEvent OnNodeDblClick;
    TVTScrollEvent OnScroll;

    explicit TBaseVirtualTree(TComponent* owner);
    ~TBaseVirtualTree() override;

    TBorderStyle GetBorderStyle() const { return FBorderStyle; }
    void SetBorderStyle(TBorderStyle value);
    TVTColors* GetColors() const { return FColors.get(); }
    void SetColors(TVTColors* value) { FColors->Assign(value); }
    /// Pixels of a node unless it is given or measured to be of another height. Nodes that have the old one follow.
    int GetDefaultNodeHeight() const { return FDefaultNodeHeight; }
    void SetDefaultNodeHeight(int value);
    TVTHeader* GetHeader() const { return FHeader.get(); }
    void SetHeader(TVTHeader* value) { FHeader->Assign(value); }
    TVTHintMode GetHintMode() const { return FHintMode; }
    void SetHintMode(TVTHintMode value) { FHintMode = value; }
    TVTIncrementalSearch GetIncrementalSearch() const { return FIncrementalSearch; }
    void SetIncrementalSearch(TVTIncrementalSearch value) { FIncrementalSearch = value; }
    /// Milliseconds without a key after which a new search begins.
    int GetIncrementalSearchTimeout() const { return FSearchTimeout; }
    void SetIncrementalSearchTimeout(int value) { FSearchTimeout = value; }
    /// Pixels from a level to the next one.
    int GetIndent() const { return FIndent; }
    void SetIndent(int value);
    /// Pixels before and behind what is in a cell.
    int GetMargin() const { return FMargin; }
    void SetMargin(int value);
    /// Pixels from there to the text.
    int GetTextMargin() const { return FTextMargin; }
    void SetTextMargin(int value);
    /// Bytes of data of the application in each node. A change deletes all nodes.
    int GetNodeDataSize() const { return FNodeDataSize; }
    void SetNodeDataSize(int value);
    /// How much of the selection's colour a blended selection has, 0 to 255.
    int GetSelectionBlendFactor() const { return FBlendFactor; }
    void SetSelectionBlendFactor(int value);
    TVirtualTreeOptions* GetTreeOptions() const { return FOptions.get(); }
    void SetTreeOptions(TVirtualTreeOptions* value) { FOptions->Assign(value); }

    // Nodes. Whatever takes a node takes those of this tree alone; null stands for the root where a parent is meant.
    TVirtualNode* GetRootNode() const { return FStore->Root(); }
    unsigned GetRootNodeCount() const { return GetChildCount(nullptr); }
    void SetRootNodeCount(unsigned value) { SetChildCount(nullptr, value); }
    unsigned GetChildCount(TVirtualNode* node) const;
    /// Adds nodes behind the last one, or deletes the last ones.
    void SetChildCount(TVirtualNode* node, unsigned value);
    /// A new node behind the last child.
    TVirtualNode* AddChild(TVirtualNode* parent);
    /// A new node among the children of `parent`; an index beyond the last puts it at the end.
    TVirtualNode* InsertChild(TVirtualNode* parent, unsigned index);
    void DeleteNode(TVirtualNode* node);
    void DeleteChildren(TVirtualNode* node);
    void DeleteSelectedNodes();
    void Clear();
    /// The application's data as a T, which must fit NodeDataSize and need no constructor.
    template <class T>
    T* GetNodeData(TVirtualNode* node) const {
        return static_cast<T*>(node->GetData());
    }
    /// Between the two, which can be nested, nothing is laid out, sorted or painted; it follows at the end.
    void BeginUpdate() { ++FUpdateCount; }
    void EndUpdate();

    /// Asks for a node that has not been asked for yet; false when a handler deleted it or the tree.
    bool InitNode(TVirtualNode* node);
    /// Makes the children of a node that is known to have some.
    void InitChildren(TVirtualNode* node);
    /// Asks anew for nodes that have been asked for: this one, and with `recursive` those below.
    void ReinitNode(TVirtualNode* node, bool recursive);
    /// The same for the whole tree where `node` is null; asks for all that were never asked for, too.
    void ValidateNode(TVirtualNode* node, bool recursive);

    // Walks in the order of the tree. They ask for the nodes they come to, and for children where they go down; null at
    // the end. "Visible" ones are those that show when scrolled to.
    TVirtualNode* GetFirst() { return Asked(FStore->First(TNodeMeasure::Nodes)); }
    TVirtualNode* GetLast();
    TVirtualNode* GetNext(TVirtualNode* node);
    TVirtualNode* GetPrevious(TVirtualNode* node) { return Asked(FStore->Previous(node, TNodeMeasure::Nodes)); }
    TVirtualNode* GetFirstVisible() { return Asked(FStore->First(TNodeMeasure::Rows)); }
    TVirtualNode* GetLastVisible() { return Asked(FStore->Last(TNodeMeasure::Rows)); }
    TVirtualNode* GetNextVisible(TVirtualNode* node) { return Asked(FStore->Next(node, TNodeMeasure::Rows)); }
    TVirtualNode* GetPreviousVisible(TVirtualNode* node) { return Asked(FStore->Previous(node, TNodeMeasure::Rows)); }
    TVirtualNode* GetFirstChild(TVirtualNode* node);
    TVirtualNode* GetLastChild(TVirtualNode* node);
    TVirtualNode* GetNextSibling(TVirtualNode* node) { return Asked(node->GetNextSibling()); }
    TVirtualNode* GetPreviousSibling(TVirtualNode* node) { return Asked(node->GetPrevSibling()); }
    TVirtualNode* GetFirstSelected() const { return FStore->First(TNodeMeasure::Selected); }
    TVirtualNode* GetNextSelected(TVirtualNode* node) const { return FStore->Next(node, TNodeMeasure::Selected); }
    /// Among the initialised ones, the others having no state yet.
    TVirtualNode* GetFirstChecked(TCheckState state = csCheckedNormal) const;
    TVirtualNode* GetNextChecked(TVirtualNode* node, TCheckState state = csCheckedNormal) const;
    /// 0 for nodes of the first level.
    unsigned GetNodeLevel(const TVirtualNode* node) const { return TNodeStore::Level(node); }
    /// How many nodes show when scrolled to.
    int GetVisibleCount() const { return FStore->Total().Rows; }
    /// The number of a node among those, from 0, and back; -1 and null when it is not among them.
    int RowOf(const TVirtualNode* node) const;
    TVirtualNode* NodeOfRow(int row) const { return FStore->NodeAt(row, TNodeMeasure::Rows); }

    // Properties of nodes
    TCheckState GetCheckState(TVirtualNode* node) const { return node->GetCheckState(); }
    /// As a click does: asks OnChecking, fires OnChecked, and with toAutoTristateTracking parents and children follow.
    void SetCheckState(TVirtualNode* node, TCheckState value);
    TCheckType GetCheckType(TVirtualNode* node) const { return node->GetCheckType(); }
    void SetCheckType(TVirtualNode* node, TCheckType value);
    bool GetExpanded(TVirtualNode* node) const { return node->Has(vsExpanded); }
    void SetExpanded(TVirtualNode* node, bool value);
    void ToggleNode(TVirtualNode* node) { SetExpanded(node, !node->Has(vsExpanded)); }
    /// All nodes below `node`, or of the tree.
    void FullExpand(TVirtualNode* node = nullptr);
    void FullCollapse(TVirtualNode* node = nullptr);
    bool GetHasChildren(TVirtualNode* node) const { return node->Has(vsHasChildren); }
    void SetHasChildren(TVirtualNode* node, bool value);
    bool GetDisabled(TVirtualNode* node) const { return node->Has(vsDisabled); }
    void SetDisabled(TVirtualNode* node, bool value);
    bool GetFiltered(TVirtualNode* node) const { return node->Has(vsFiltered); }
    void SetFiltered(TVirtualNode* node, bool value);
    bool GetNodeVisible(TVirtualNode* node) const { return node->Has(vsVisible); }
    void SetNodeVisible(TVirtualNode* node, bool value);
    int GetNodeHeight(TVirtualNode* node) const { return node->GetNodeHeight(); }
    /// 0 to 32,767 pixels.
    void SetNodeHeight(TVirtualNode* node, int value);
    /// Whether all nodes above are expanded.
    bool GetVisiblePath(TVirtualNode* node) const;
    void SetVisiblePath(TVirtualNode* node, bool value);

    // Selection and focus
    bool GetSelected(TVirtualNode* node) const { return node->Has(vsSelected); }
    /// Without toMultiSelect a node that is selected takes the place of the one before.
    void SetSelected(TVirtualNode* node, bool value);
    int GetSelectedCount() const { return FStore->Total().Selected; }
    void ClearSelection();
    /// All that show; with toMultiSelect alone.
    void SelectAll();
    TVirtualNode* GetFocusedNode() const { return FFocusedNode.Get(); }
    /// Shows it, too; null for none.
    void SetFocusedNode(TVirtualNode* value);
    /// NoColumn before any had it.
    TColumnIndex GetFocusedColumn() const { return FFocusedColumn; }
    void SetFocusedColumn(TColumnIndex value);

    // Places
    /// Where the contents' upper left corner lies in the client area: 0, or negative when scrolled.
    int GetOffsetX();
    void SetOffsetX(int value);
    std::int64_t GetOffsetY();
    void SetOffsetY(std::int64_t value);
    TVirtualNode* GetTopNode() const;
    void SetTopNode(TVirtualNode* value);
    /// Expands what hides the node and scrolls so that it shows, as little as need be or to the middle.
    bool ScrollIntoView(TVirtualNode* node, bool center);
    /// Scrolls sideways so that the column shows.
    void ScrollColumnIntoView(TColumnIndex column);
    /// The node at a point in client pixels.
    TVirtualNode* GetNodeAt(TPoint point) const;
    THitInfo GetHitTestInfoAt(TPoint point);
    /// Of a cell in client pixels, of the whole row with NoColumn; empty when the node does not show.
    TRect GetDisplayRect(TVirtualNode* node, TColumnIndex column, bool textOnly = false);
    void InvalidateNode(TVirtualNode* node);
    void InvalidateHeader();
    /// Lays scroll bars and columns out after a change from outside of the header.
    void UpdateHorizontalRange();
    void UpdateScrollBars();

    // Order
    /// Orders all nodes by a column: the whole tree, every family by itself. Asks for all nodes.
    virtual void SortTree(TColumnIndex column, TSortDirection direction, bool doInit = true);
    void Sort(TVirtualNode* node, TColumnIndex column, TSortDirection direction, bool doInit = true);
    /// The width at which the texts of a column fit that show now, and its caption.
    int GetMaxColumnWidth(TColumnIndex column);

    // Texts
    /// What a cell says in words: for searching, copying, screen readers and hints of cut cells.
    virtual String NodeText(TVirtualNode* node, TColumnIndex column);
    /// The selected rows, or without a selection the focused one, cells parted by tabs, lines by CR LF. Tabs and line
    /// ends inside of cells become blanks, and columns that CopiesColumn leaves out are missing.
    String ContentToText();
    void CopyToClipboard();

    // What the header needs of its tree.
    bool IsThemed() const;
    bool HasHeaderDraw() const { return static_cast<bool>(OnHeaderDraw); }
    bool InHeader(TPoint point) const;
    /// A column's place in the header, in client pixels.
    TRect HeaderCellRect(TColumnIndex column) const;
    /// Pixels from the near edge of the first column.
    int ContentX(int clientX) const;
    TAlignment MirroredAlignment(TAlignment alignment) const;
    TAlignment CellAlignment(TColumnIndex column) const;
    TCheckLook CheckLook(TCheckType type, TCheckState state, bool enabled) const;
    /// From the near edge of the main column to the box of a node of the first level.
    int CheckBoxLeft() const;

    void WndProc(TMessage& message) override;
    void ChangeScale(int m, int d) override;

protected:
    friend class TVTHeader;
    friend class TVirtualTreeOptions;
    friend class TVTColors;
    friend class TTreeAccessible;

    // What descendants say of nodes. They call the inherited one, which fires the event. A descendant whose DoFreeNode
    // has work to do calls Clear in its destructor.
    virtual void DoInitNode(TVirtualNode* parent, TVirtualNode* node, TVirtualNodeInitStates& initialStates);
    /// False for no children.
    virtual bool DoInitChildren(TVirtualNode* node, unsigned& childCount);
    virtual void DoFreeNode(TVirtualNode* node);
    virtual void DoMeasureItem(TCanvas& canvas, TVirtualNode* node, int& height);
    /// Negative, 0 or positive as the first node comes before, with or behind the second one.
    virtual int DoCompare(TVirtualNode* node1, TVirtualNode* node2, TColumnIndex column);
    /// Paints what is in a cell; background, selection, lines and box are there.
    virtual void DoPaintNode(TVTPaintInfo& info) = 0;
    /// Pixels of what is in a cell, margins not counted.
    virtual int DoGetNodeWidth(TVirtualNode* node, TColumnIndex column);
    virtual String DoGetNodeHint(TVirtualNode* node, TColumnIndex column);
    /// 0 when the node's text begins with what was searched for, letter case aside.
    virtual int DoIncrementalSearch(TVirtualNode* node, const String& text);
    /// False for columns that have nothing to say in words, such as those with nothing but boxes.
    virtual bool CopiesColumn(TColumnIndex) const { return true; }
    /// False for a descendant whose DoIncrementalSearch knows nodes that were never asked for.
    virtual bool SearchAsksForNodes() const { return true; }

    virtual void DoBeforeCellPaint(const TVTPaintInfo& info);
    virtual void DoAfterCellPaint(const TVTPaintInfo& info);
    virtual void DoChange(TVirtualNode* node);
    virtual bool DoChecking(TVirtualNode* node, TCheckState& newState);
    virtual void DoChecked(TVirtualNode* node);
    /// The space key has checked the nodes that are selected with the focused one; DoChecked came for each.
    virtual void DoCheckedSeveral() {}
    virtual bool DoExpanding(TVirtualNode* node);
    virtual void DoExpanded(TVirtualNode* node);
    virtual bool DoCollapsing(TVirtualNode* node);
    virtual void DoCollapsed(TVirtualNode* node);
    virtual bool DoFocusChanging(TVirtualNode* oldNode, TVirtualNode* newNode, TColumnIndex oldColumn,
                                 TColumnIndex newColumn);
    virtual void DoFocusChange(TVirtualNode* node, TColumnIndex column);
    virtual void DoNodeClick(const THitInfo& hit);
    virtual void DoNodeDblClick(const THitInfo& hit);
    virtual void DoScroll(int deltaX, std::int64_t deltaY);
    virtual void DoHeaderClick(const TVTHeaderHitInfo& hitInfo);
    virtual bool DoHeaderDragging(TColumnIndex column);
    virtual void DoHeaderDragged(TColumnIndex column, int oldPosition);
    virtual void DoHeaderDraw(TVTHeader& header, HDC dc, TColumnIndex column, const TRect& cell, bool hover,
                              bool pressed);
    virtual void DoColumnResize(TColumnIndex column);

    // The non-client area. Descendants that add bands of their own handle WM_NCCALCSIZE and WM_NCPAINT around these.
    virtual void WMNCCalcSize(TMessage& message);
    void WMNCPaint(TMessage& message) override;
    /// The header in window pixels; without height while it does not show.
    TRect GetHeaderRect() const;
    /// Pixels that a descendant keeps free between header and rows.
    virtual int RoomBelowHeader() const { return 0; }
    /// Another room is wanted, or the header's height has changed.
    void FrameChanged();
    /// Paints the header and the room below it now.
    void PaintHeaderBand();
    /// Something about a header has changed; with `places` also where its columns lie.
    virtual void HeaderChanged(TVTHeader& header, bool places);
    /// The column that gets the focus when `column` is clicked or named.
    virtual TColumnIndex ColumnToFocus(TColumnIndex column) const;
    /// Gives the focus to a column without asking or telling anybody: the columns have changed, not what has the focus.
    void RenumberFocus(TColumnIndex column) { FFocusedColumn = column; }

    void CreateParams(TCreateParams& params) override;
    void CreateWnd() override;
    void Loaded() override;
    void Dispatch(TMessage& message) override;
    void PaintWindow(HDC dc) override;
    void WMEraseBkgnd(TMessage& message) override { message.Result = 1; }
    void KeyDown(WORD& key, TShiftState shift) override;
    void KeyPress(char16_t& key) override;
    void MouseDown(TMouseButton button, TShiftState shift, int x, int y) override;
    void MouseMove(TShiftState shift, int x, int y) override;
    void MouseUp(TMouseButton button, TShiftState shift, int x, int y) override;
    bool DoMouseWheel(TShiftState shift, int wheelDelta, TPoint mousePos) override;
    void CMFontChanged(TMessage& message) override;
    void CMEnabledChanged(TMessage& message) override;
    void CMMouseLeave(TMessage& message) override;

    /// For constructors of descendants whose options or header have other defaults.
    void UseOptions(std::unique_ptr<TVirtualTreeOptions> options) { FOptions = std::move(options); }
    void UseHeader(std::unique_ptr<TVTHeader> header) { FHeader = std::move(header); }

    bool HasPaint(TVTPaintOption option) const { return FOptions->GetPaintOptions().Contains(option); }
    bool HasMisc(TVTMiscOption option) const { return FOptions->GetMiscOptions().Contains(option); }
    bool HasSelection(TVTSelectionOption option) const { return FOptions->GetSelectionOptions().Contains(option); }
    bool HasAuto(TVTAutoOption option) const { return FOptions->GetAutoOptions().Contains(option); }
    TNodeStore& Nodes() const { return *FStore; }
    /// New nodes behind the last child of `parent` (null for the root), whose data and order `fill` knows already.
    void AddChildren(TVirtualNode* parent, unsigned count, const TNodeStore::TFill& fill);
    /// Orders the children of `parent` by a number that each has, the least first; equal ones keep their order. Nobody
    /// is asked, so this is for descendants that know the order.
    void SortByKey(TVirtualNode* parent, const TNodeStore::TKey& key);
    /// Sets a state without asking or telling anybody, and repaints the node; false when it had the state already.
    bool PutCheckState(TVirtualNode* node, TCheckState state);
    /// Tells screen readers of the tree as a whole, such as of many rows at once (NotifyWinEvent).
    void TellTree(UINT event);
    bool IsUpdating() const { return FUpdateCount > 0; }
    /// Whether DoChecked is called for a node beside the focused one, before DoCheckedSeveral.
    bool IsCheckingSeveral() const { return FCheckingSeveral; }
    /// While it is set, nobody is told that selection and focus go with deleted nodes: a descendant makes others that
    /// stand for the same things, gives them both, and tells what has changed.
    void SetRebuilding(bool value) { FRebuilding = value; }
    bool IsRebuilding() const { return FRebuilding; }
    /// Gives a node the focus without asking or telling anybody.
    void PutFocus(TVirtualNode* node);
    /// Whether handlers paint into cells with the canvas, and may leave it in any state.
    bool HandlersPaint() const { return OnBeforeCellPaint || OnAfterCellPaint; }
    /// Of a text in this cell.
    TColor TextColor(const TVTPaintInfo& info) const;
    /// One line in the font and colour of `dc`, cut off with an ellipsis where it does not fit; false when it was cut.
    /// `ownFont`: the font is the tree's.
    bool DrawCellText(HDC dc, const String& text, const TVTPaintInfo& info, bool ownFont);
    /// Whether the pointer lies on the node's row.
    bool IsHot(const TVirtualNode* node) const { return node == FHotNode.Get(); }
    /// Nodes came, went or changed their places.
    void StructureChanged();
    /// Sorts by the header's column, if toAutoSort is on and there is one.
    void AutoSort();

private:
    /// What is where in a cell, in client pixels; empty for what it has not.
    struct TCellLayout {
        TRect Cell;
        TRect Button;
        TRect CheckBox;
        TRect Content;
    };
    struct TRowPainting;

    // virtualtree.cpp
    TVirtualNode* Asked(TVirtualNode* node);
    TVirtualNode* ParentOf(TVirtualNode* node) const { return node ? node : FStore->Root(); }
    void DeleteRange(TVirtualNode* parent, unsigned first, unsigned count);
    void WhileUpdating(const std::function<void()>& work);
    void LeaveUpdate();
    void CheckNotSorting() const;
    void ApplyInitialStates(TVirtualNode* node, TVirtualNodeInitStates states);
    /// Whether nothing has to be asked about a node before it shows.
    bool IsReady(const TVirtualNode* node) const;
    bool MeasureNode(TVirtualNode* node);
    void NodesCame(TVirtualNode* parent);
    void SortNewNodes();
    void SortFamily(TVirtualNode* parent, TColumnIndex column, TSortDirection direction);
    void RunDeferredDeletes();
    void HeaderSortChanged(TVTHeader& header);
    void HeaderColumnResized(TVTHeader& header, TColumnIndex column);
    void HeaderFrameChanged(TVTHeader& header);
    void HeaderRenumbered(TVTHeader& header, const std::function<TColumnIndex(TColumnIndex)>& moved);
    void OptionsChanged();

    // virtualtree_checks.cpp
    bool AskForSiblings(TVirtualNode* node);
    void CheckLikeParent(TVirtualNode* node);
    void CheckChildren(TVirtualNode* node, TCheckState state);
    void CheckParents(TVirtualNode* node);
    void CheckSiblings(TVirtualNode* node);
    void ClickCheck(TVirtualNode* node);

    // virtualtree_scroll.cpp
    bool EnsureLayout();
    std::int64_t ContentHeight() const { return FStore->Total().Height; }
    int ContentWidth() const;
    void ScrollTo(int x, std::int64_t y);
    void ShowScrollBar(int bar, std::int64_t range, int page, std::int64_t position);
    void HandleScroll(int bar, int code);
    int LineExtent() const { return std::max(FDefaultNodeHeight, 1); }

    // virtualtree_places.cpp
    TRect ColumnRect(TColumnIndex column, int top, int bottom) const;
    TCellLayout LayoutOf(TVirtualNode* node, TColumnIndex column, const TRect& cell) const;
    bool IsMainColumn(TColumnIndex column) const;
    bool ShowsBox(const TVirtualNode* node) const;
    TColumnIndex ColumnAt(int clientX) const;
    TSize BoxSize() const;

    // virtualtree_select.cpp
    void SelectSingle(TVirtualNode* node);
    void UnselectOthers();
    void SelectRange(TVirtualNode* from, TVirtualNode* to, bool add);
    bool UnselectAll(const TVirtualNode* except);
    void SelectByUser(TVirtualNode* node, TShiftState shift, bool byKey);
    bool ChangeFocus(TVirtualNode* node, TColumnIndex column);
    void BeginRange(TShiftState shift);
    void LeaveFocus(TVirtualNode* heir);
    void LeaveHiddenFocus();
    TVirtualNode* RowInPlaceOf(const TVirtualNode* parent, std::int64_t row) const;
    void SettleFocus();

    // virtualtree_input.cpp
    bool HandleHeaderMouse(TMessage& message);
    bool HandleCapturedMouse(TMessage& message);
    void TrackNonClientLeave();
    bool PressOn(const THitInfo& hit, TShiftState shift);
    bool NavigationKey(WORD key, TShiftState shift);
    bool ColumnKey(WORD key);
    bool BranchKey(WORD key);
    bool CommandKey(WORD key, TShiftState shift);
    TVirtualNode* NodeForKey(WORD key);
    TVirtualNode* PageFrom(TVirtualNode* node, bool down);
    void CheckSelected();
    bool ClickHeaderBox();
    void ReleaseBox();
    void SearchFor(char16_t letter);
    bool SearchGoesOnWith(char16_t letter);
    TVirtualNode* FindText(TVirtualNode* from, const String& text);
    void HintShow(THintInfo& info);
    void SetHotNode(TVirtualNode* node);

    // virtualtree_paint.cpp
    bool PrepareRows(const TRect& area);
    void PaintRows(TRowPainting& painting);
    bool PaintRow(TRowPainting& painting, TVirtualNode* node, int top);
    bool PaintCell(TRowPainting& painting, TVTPaintInfo& info);
    void PaintCellBackground(TRowPainting& painting, const TVTPaintInfo& info);
    void BlendSelection(TRowPainting& painting, const TRect& area) const;
    void PaintTreeParts(TRowPainting& painting, const TVTPaintInfo& info, const TCellLayout& layout);
    void PaintButton(TRowPainting& painting, const TRect& place, bool open);
    void PaintTreeLines(TRowPainting& painting, TVirtualNode* node, const TRect& cell);
    void PaintGridLines(TRowPainting& painting, int bottom);
    void PaintBelowRows(TRowPainting& painting, int bottom);
    void PaintFocus(TRowPainting& painting, const TRect& row, TVirtualNode* node);
    TColor SelectionColor() const;
    bool SelectionShows() const;

    // stringtree.cpp
    bool FitsSurely(const String& text, int width);

    // virtualtree_accessibility.cpp
    bool AnswerAccessible(TMessage& message);
    void TellFocus();
    void TellNode(UINT event, TVirtualNode* node);
    void TellColumn(UINT event, TColumnIndex column);

    std::shared_ptr<TNodeStore> FStore;
    std::unique_ptr<TVirtualTreeOptions> FOptions;
    std::unique_ptr<TVTColors> FColors;
    std::unique_ptr<TVTHeader> FHeader;
    std::shared_ptr<TCanvas> FTreeCanvas;

    TNodeRef FFocusedNode;
    TNodeRef FRangeAnchor; // where a selection of several begins
    TNodeRef FFocusHeir;   // the node that gets the focus when it is known that the focused one has gone
    TNodeRef FHotNode;
    TNodeRef FPressedBox; // the node whose box the button is held on
    TNodeRef FClickedNode;
    TNodeRef FUnsorted; // the node whose new children wait to be sorted, the root when there are several
    TColumnIndex FFocusedColumn = NoColumn;

    int FScrollX = 0;
    std::int64_t FScrollY = 0;
    std::unique_ptr<TSummedWidths> FWidths; // in the tree's font, made when texts are first painted
    int FLineHeight = 0;                    // of that font
    int FPaintedWidth = 0;                  // of the widest row that was painted, for trees without columns
    TWheelSteps FWheel;
    TWheelSteps FSidewaysWheel;

    int FUpdateCount = 0;
    int FDeleteDepth = 0;
    int FSorting = 0;
    struct TDeferredDelete {
        TDeferredDelete(TNodeStore& store, TVirtualNode* node, bool childrenOnly)
            : Node(store, node), ChildrenOnly(childrenOnly) {}
        TNodeRef Node;
        bool ChildrenOnly;
    };
    std::list<TDeferredDelete> FDeferredDeletes; // asked for while sorting
    bool FStructureChanged = false;              // while updating
    bool FRowsMoved = false;                     // since screen readers were told last
    bool FSelectionWaits = false;                // to be told of as a whole
    bool FRebuilding = false;
    bool FFocusLost = false; // and not told yet
    bool FCheckingSeveral = false;
    bool FKeyUsed = false; // the character of the key that is down means nothing more
    bool FLayoutDirty = false;
    bool FHeaderDirty = false; // painted with the next WM_PAINT, however often it changes until then
    bool FInLayout = false;
    unsigned FStructureVersion = 0; // grows with every change of the rows

    String FSearchText;
    std::uint64_t FSearchTime = 0;

    int FDefaultNodeHeight = 18;
    int FIndent = 18;
    int FMargin = 4;
    int FTextMargin = 4;
    int FNodeDataSize = 0;
    int FBlendFactor = 128;
    int FSearchTimeout = 1000;
    TBorderStyle FBorderStyle = bsSingle;
    TVTHintMode FHintMode = hmDefault;
    TVTIncrementalSearch FIncrementalSearch = isNone;
    bool FTrackingLeave = false;
    mutable TSize FBoxSize; // of check boxes; empty until it is asked for
};

/// The rows that every virtual tree publishes.
namespace treerows {
TPropRows Properties();
TPropRows Events();
} // namespace treerows

} // namespace framework
