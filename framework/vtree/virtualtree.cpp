// The life of a tree and of its nodes: options, how nodes come and go, and their order.

#include "framework/vtree/virtualtree.h"

#include "framework/graphics/canvas.h"
#include "framework/windows/application.h"

#include <algorithm>

namespace framework {

// Options and colours

const TClassInfo& TVirtualTreeOptions::StaticClass() {
    using O = TVirtualTreeOptions;
    static const TClassInfo info = DescribeClass<O>(
        u"TVirtualTreeOptions", TPersistent::StaticClass(),
        {Property<&O::GetAutoOptions, &O::SetAutoOptions>(u"AutoOptions", DefaultAutoOptions),
         Property<&O::GetMiscOptions, &O::SetMiscOptions>(u"MiscOptions", DefaultMiscOptions),
         Property<&O::GetPaintOptions, &O::SetPaintOptions>(u"PaintOptions", DefaultPaintOptions),
         Property<&O::GetSelectionOptions, &O::SetSelectionOptions>(u"SelectionOptions", TVTSelectionOptions{})});
    return info;
}

TPersistent* TVirtualTreeOptions::GetOwner() const {
    return FTree;
}

void TVirtualTreeOptions::Assign(TPersistent* source) {
    const auto* other = As<TVirtualTreeOptions>(source);
    if (!other) {
        TPersistent::Assign(source);
        return;
    }
    FAutoOptions = other->FAutoOptions;
    FMiscOptions = other->FMiscOptions;
    FPaintOptions = other->FPaintOptions;
    SetSelectionOptions(other->FSelectionOptions);
    FTree->OptionsChanged();
}

void TVirtualTreeOptions::SetAutoOptions(TVTAutoOptions value) {
    const bool sorts = value.Contains(toAutoSort) && !FAutoOptions.Contains(toAutoSort);
    FAutoOptions = value;
    if (sorts)
        FTree->AutoSort();
}

void TVirtualTreeOptions::SetMiscOptions(TVTMiscOptions value) {
    if (FMiscOptions == value)
        return;
    FMiscOptions = value;
    FTree->OptionsChanged();
}

void TVirtualTreeOptions::SetPaintOptions(TVTPaintOptions value) {
    if (FPaintOptions == value)
        return;
    FPaintOptions = value;
    FTree->OptionsChanged();
}

void TVirtualTreeOptions::SetSelectionOptions(TVTSelectionOptions value) {
    if (FSelectionOptions == value)
        return;
    const bool single = FSelectionOptions.Contains(toMultiSelect) && !value.Contains(toMultiSelect);
    FSelectionOptions = value;
    TLifeGuard alive(*FTree);
    if (single && FTree->GetSelectedCount() > 1)
        FTree->ClearSelection();
    if (alive)
        FTree->OptionsChanged();
}

const TClassInfo& TVTColors::StaticClass() {
    using C = TVTColors;
    static const TClassInfo info = DescribeClass<C>(
        u"TVTColors", TPersistent::StaticClass(),
        {Property<&C::GetFocusedSelectionColor, &C::SetFocusedSelectionColor>(u"FocusedSelectionColor", clHighlight)
             .Named(ColorIdentifiers()),
         Property<&C::GetGridLineColor, &C::SetGridLineColor>(u"GridLineColor", clBtnFace).Named(ColorIdentifiers()),
         Property<&C::GetHotColor, &C::SetHotColor>(u"HotColor", clHotLight).Named(ColorIdentifiers()),
         Property<&C::GetSelectionTextColor, &C::SetSelectionTextColor>(u"SelectionTextColor", clHighlightText)
             .Named(ColorIdentifiers()),
         Property<&C::GetTreeLineColor, &C::SetTreeLineColor>(u"TreeLineColor", clBtnShadow).Named(ColorIdentifiers()),
         Property<&C::GetUnfocusedSelectionColor, &C::SetUnfocusedSelectionColor>(u"UnfocusedSelectionColor", clSilver)
             .Named(ColorIdentifiers())});
    return info;
}

TPersistent* TVTColors::GetOwner() const {
    return FTree;
}

void TVTColors::Assign(TPersistent* source) {
    const auto* other = As<TVTColors>(source);
    if (!other) {
        TPersistent::Assign(source);
        return;
    }
    FFocusedSelection = other->FFocusedSelection;
    FGridLine = other->FGridLine;
    FHot = other->FHot;
    FSelectionText = other->FSelectionText;
    FTreeLine = other->FTreeLine;
    FUnfocusedSelection = other->FUnfocusedSelection;
    FTree->Invalidate();
}

void TVTColors::Change(TColor& color, TColor value) {
    if (color == value)
        return;
    color = value;
    FTree->Invalidate();
}

// The tree

const TClassInfo& TBaseVirtualTree::StaticClass() {
    static const TClassInfo info = DescribeClass<TBaseVirtualTree>(u"TBaseVirtualTree", TCustomControl::StaticClass());
    return info;
}

TBaseVirtualTree::TBaseVirtualTree(TComponent* owner)
    : TCustomControl(owner), FStore(std::make_shared<TNodeStore>()),
      FOptions(std::make_unique<TVirtualTreeOptions>(this)), FColors(std::make_unique<TVTColors>(this)),
      FHeader(std::make_unique<TVTHeader>(this)), FTreeCanvas(std::make_shared<TCanvas>()), FFocusedNode(*FStore),
      FRangeAnchor(*FStore), FFocusHeir(*FStore), FHotNode(*FStore), FPressedBox(*FStore), FClickedNode(*FStore),
      FUnsorted(*FStore) {
    FControlStyle << csOpaque;
    FControlStyle >> csSetCaption;
    SetParentColor(false);
    SetColor(clWindow);
    SetTabStop(true);
    SetBounds(0, 0, 200, 100);
}

TBaseVirtualTree::~TBaseVirtualTree() {
    Destroying();
    try {
        Clear(); // programs free in OnFreeNode what their nodes own
    } catch (...) {
        TheApplication().HandleException(this);
    }
    DestroyHandle(); // while nodes and header are there: its last messages still ask for them
}

void TBaseVirtualTree::CreateParams(TCreateParams& params) {
    TCustomControl::CreateParams(params);
    AddBorder(params, FBorderStyle);
}

void TBaseVirtualTree::CreateWnd() {
    TCustomControl::CreateWnd();
    FLayoutDirty = true;
    FrameChanged(); // the header's room
}

void TBaseVirtualTree::SetBorderStyle(TBorderStyle value) {
    if (FBorderStyle == value)
        return;
    FBorderStyle = value;
    RecreateWnd();
}

void TBaseVirtualTree::SetDefaultNodeHeight(int value) {
    value = std::clamp(value, 0, kGreatestColumnWidth);
    if (FDefaultNodeHeight == value)
        return;
    const int before = std::exchange(FDefaultNodeHeight, value);
    for (TVirtualNode* node = FStore->First(TNodeMeasure::Nodes); node;
         node = FStore->Next(node, TNodeMeasure::Nodes)) {
        if (node->GetNodeHeight() == before && !node->Has(vsHeightMeasured))
            FStore->SetHeight(node, value);
    }
    StructureChanged();
}

void TBaseVirtualTree::SetIndent(int value) {
    FIndent = std::max(value, 0);
    Invalidate();
}

void TBaseVirtualTree::SetMargin(int value) {
    FMargin = std::max(value, 0);
    Invalidate();
}

void TBaseVirtualTree::SetTextMargin(int value) {
    FTextMargin = std::max(value, 0);
    Invalidate();
}

void TBaseVirtualTree::SetSelectionBlendFactor(int value) {
    FBlendFactor = std::clamp(value, 0, 255);
    Invalidate();
}

void TBaseVirtualTree::SetNodeDataSize(int value) {
    value = std::max(value, 0);
    if (FNodeDataSize == value)
        return;
    TLifeGuard alive(*this);
    Clear();
    if (!alive)
        return;
    if (FDeleteDepth > 0 || GetRootNodeCount() > 0)
        throw EInvalidOperation(u"The size of node data cannot change while nodes are deleted or sorted");
    FNodeDataSize = value;
    FStore->SetDataSize(static_cast<std::size_t>(value));
}

void TBaseVirtualTree::OptionsChanged() {
    FBoxSize = {};
    Invalidate();
    InvalidateHeader();
}

void TBaseVirtualTree::Loaded() {
    TLifeGuard alive(*this);
    TCustomControl::Loaded();
    if (alive)
        FHeader->Loaded();
}

void TBaseVirtualTree::ChangeScale(int m, int d) {
    if (m != d) {
        FIndent = MulDiv(FIndent, m, d);
        FMargin = MulDiv(FMargin, m, d);
        FTextMargin = MulDiv(FTextMargin, m, d);
        const int height = MulDiv(FDefaultNodeHeight, m, d);
        for (TVirtualNode* node = FStore->First(TNodeMeasure::Nodes); node;
             node = FStore->Next(node, TNodeMeasure::Nodes))
            FStore->SetHeight(node, MulDiv(node->GetNodeHeight(), m, d));
        FDefaultNodeHeight = height;
        StructureChanged();
        FBoxSize = {};
        FHeader->ChangeScale(m, d);
    }
    TCustomControl::ChangeScale(m, d);
}

void TBaseVirtualTree::EndUpdate() {
    const bool changed = FUpdateCount == 1 && FStructureChanged;
    LeaveUpdate();
    if (!changed)
        return;
    TLifeGuard alive(*this);
    FUnsorted.Set(nullptr);
    AutoSort();
    if (alive)
        SettleFocus();
}

void TBaseVirtualTree::LeaveUpdate() {
    if (FUpdateCount == 0 || --FUpdateCount > 0 || !std::exchange(FStructureChanged, false))
        return;
    FLayoutDirty = false; // what was asked for meanwhile was not painted
    StructureChanged();
}

/// As WithinUpdate (updates.h) does, where handlers may free the tree.
void TBaseVirtualTree::WhileUpdating(const std::function<void()>& work) {
    TLifeGuard alive(*this);
    BeginUpdate();
    try {
        work();
    } catch (...) {
        if (alive)
            LeaveUpdate();
        throw;
    }
    if (alive)
        EndUpdate();
}

void TBaseVirtualTree::StructureChanged() {
    ++FStructureVersion;
    FRowsMoved = true;
    if (FStore->Total().Rows == 0)
        FPaintedWidth = 0;
    if (FUpdateCount > 0)
        FStructureChanged = true;
    if (FLayoutDirty)
        return;
    FLayoutDirty = true; // once for any number of changes: what follows costs more than the change of a node
    Invalidate();
}

// Coming and going

void TBaseVirtualTree::CheckNotSorting() const {
    if (FSorting > 0)
        throw EInvalidOperation(u"Nodes cannot be added to a tree that is being sorted");
}

unsigned TBaseVirtualTree::GetChildCount(TVirtualNode* node) const {
    return (node ? node : FStore->Root())->GetChildCount();
}

void TBaseVirtualTree::SetChildCount(TVirtualNode* node, unsigned value) {
    TVirtualNode* parent = ParentOf(node);
    const unsigned count = parent->GetChildCount();
    if (value < count)
        return DeleteRange(parent, value, count - value);
    if (value == count || !FStore->Contains(parent))
        return;
    CheckNotSorting();
    FStore->Append(parent, value - count, FDefaultNodeHeight);
    NodesCame(parent);
}

/// With toAutoSort they find their places when the tree is laid out: until then the program fills them.
void TBaseVirtualTree::NodesCame(TVirtualNode* parent) {
    if (HasAuto(toAutoSort))
        FUnsorted.Set(FUnsorted && FUnsorted.Get() != parent ? FStore->Root() : parent);
    StructureChanged();
}

void TBaseVirtualTree::AddChildren(TVirtualNode* parent, unsigned count, const TNodeStore::TFill& fill) {
    CheckNotSorting();
    FStore->Append(ParentOf(parent), count, FDefaultNodeHeight, fill);
    StructureChanged();
}

TVirtualNode* TBaseVirtualTree::AddChild(TVirtualNode* parent) {
    return InsertChild(parent, UINT_MAX);
}

TVirtualNode* TBaseVirtualTree::InsertChild(TVirtualNode* parent, unsigned index) {
    CheckNotSorting();
    parent = ParentOf(parent);
    if (!FStore->Contains(parent))
        throw EInvalidOperation(u"A node cannot be added to one that is being deleted");
    TVirtualNode* node = FStore->Insert(parent, index, FDefaultNodeHeight);
    NodesCame(parent);
    return node;
}

void TBaseVirtualTree::DeleteNode(TVirtualNode* node) {
    if (!node || node == FStore->Root() || !FStore->Contains(node))
        return;
    if (FSorting > 0)
        FDeferredDeletes.emplace_back(*FStore, node, false);
    else
        DeleteRange(node->GetParent(), node->GetIndex(), 1);
}

void TBaseVirtualTree::DeleteChildren(TVirtualNode* node) {
    TVirtualNode* parent = ParentOf(node);
    if (!FStore->Contains(parent))
        return;
    TLifeGuard alive(*this);
    const TNodeRef still(*FStore, parent == FStore->Root() ? nullptr : parent);
    DeleteRange(parent, 0, parent->GetChildCount());
    if (alive && still)
        FStore->SetState(parent, vsExpanded, false);
}

void TBaseVirtualTree::Clear() {
    DeleteChildren(nullptr);
}

void TBaseVirtualTree::DeleteSelectedNodes() {
    if (FSorting > 0) {
        for (TVirtualNode* node = GetFirstSelected(); node; node = GetNextSelected(node))
            FDeferredDeletes.emplace_back(*FStore, node, false);
        return;
    }
    TLifeGuard alive(*this);
    const bool any = GetSelectedCount() > 0;
    WhileUpdating([&] {
        FSelectionWaits = true;
        const TAtScopeEnd told(*this, [this] { FSelectionWaits = false; });
        while (alive && GetFirstSelected())
            DeleteNode(GetFirstSelected());
    });
    if (alive && any)
        DoChange(nullptr);
}

/// The nodes leave the tree before anybody is told, and their memory stays until the last one has been told.
void TBaseVirtualTree::DeleteRange(TVirtualNode* parent, unsigned first, unsigned count) {
    if (count == 0)
        return;
    if (FSorting > 0 && count == parent->GetChildCount()) {
        if (FDeferredDeletes.empty() || !FDeferredDeletes.back().ChildrenOnly ||
            FDeferredDeletes.back().Node.Get() != parent) // not once for each comparison
            FDeferredDeletes.emplace_back(*FStore, parent, true);
        return;
    }
    if (FSorting > 0) {
        for (TVirtualNode* node = TNodeStore::Child(parent, first); node && count > 0; --count) {
            FDeferredDeletes.emplace_back(*FStore, node, false);
            node = node->GetNextSibling();
        }
        return;
    }
    const std::shared_ptr<TNodeStore> store = FStore; // handlers may free the tree
    const int selected = GetSelectedCount();
    const auto goes = [&](const TVirtualNode* node) {
        while (node && node->GetParent() != parent)
            node = node->GetParent();
        return node && node->GetIndex() - first < count;
    };
    const bool losesFocus = goes(FFocusedNode.Get()) || goes(FFocusHeir.Get());
    const std::int64_t row = losesFocus ? TNodeStore::PlaceOf(TNodeStore::Child(parent, first), TNodeMeasure::Rows) : 0;
    TLifeGuard alive(*this);
    {
        ++FDeleteDepth;
        const TAtScopeEnd freed(*this, [this] {
            if (--FDeleteDepth == 0)
                FStore->FreeDetached();
        });
        const TDetachedNodes& gone = store->Detach(parent, first, count);
        if (losesFocus && !FRebuilding)
            LeaveFocus(RowInPlaceOf(parent, row));
        StructureChanged();
        gone.VisitInitialized([&](TVirtualNode* node) {
            DoFreeNode(node);
            return static_cast<bool>(alive);
        });
    }
    if (alive && !FRebuilding && !FSelectionWaits && !IsDestroying() && GetSelectedCount() < selected)
        DoChange(nullptr);
    if (alive)
        SettleFocus();
}

void TBaseVirtualTree::RunDeferredDeletes() {
    TLifeGuard alive(*this);
    while (alive && !FDeferredDeletes.empty()) {
        TVirtualNode* node = FDeferredDeletes.front().Node.Get();
        const bool childrenOnly = FDeferredDeletes.front().ChildrenOnly;
        FDeferredDeletes.pop_front();
        if (node && childrenOnly)
            DeleteChildren(node);
        else if (node)
            DeleteNode(node);
    }
}

// Order

int TBaseVirtualTree::DoCompare(TVirtualNode* node1, TVirtualNode* node2, TColumnIndex column) {
    int result = 0;
    Fire(*this, OnCompareNodes, this, node1, node2, column, result);
    return result;
}

/// Handlers may do what they like while they compare, but the order of the nodes waits until they have all answered.
void TBaseVirtualTree::SortFamily(TVirtualNode* parent, TColumnIndex column, TSortDirection direction) {
    const std::shared_ptr<TNodeStore> store = FStore;
    TLifeGuard alive(*this);
    ++FSorting;
    const TAtScopeEnd sorted(*this, [this] { --FSorting; });
    try {
        store->Sort(parent, [&](TVirtualNode* left, TVirtualNode* right) {
            if (!alive)
                return false;
            return (direction == sdAscending ? DoCompare(left, right, column) : DoCompare(right, left, column)) < 0;
        });
    } catch (...) {
        if (alive)
            StructureChanged(); // what was deleted meanwhile goes with the next layout
        throw;
    }
}

void TBaseVirtualTree::SortByKey(TVirtualNode* parent, const TNodeStore::TKey& key) {
    if (FSorting > 0)
        return;
    FStore->SortByKey(ParentOf(parent), key);
    StructureChanged();
}

void TBaseVirtualTree::Sort(TVirtualNode* node, TColumnIndex column, TSortDirection direction, bool doInit) {
    TVirtualNode* parent = ParentOf(node);
    if (FSorting > 0 || !FStore->Contains(parent))
        return;
    TLifeGuard alive(*this);
    const TNodeRef still(*FStore, parent);
    if (doInit) {
        TNodeWalk walk(FStore, parent->GetFirstChild(), &TNodeWalk::NextSibling);
        for (; alive && walk; walk.Step())
            InitNode(walk.Node());
    }
    if (!alive || !still)
        return;
    SortFamily(parent, column, direction);
    if (!alive)
        return;
    StructureChanged();
    RunDeferredDeletes();
}

void TBaseVirtualTree::SortTree(TColumnIndex column, TSortDirection direction, bool doInit) {
    const std::shared_ptr<TNodeStore> store = FStore;
    TLifeGuard alive(*this);
    Sort(nullptr, column, direction, doInit);
    TNodeWalk walk(store, alive ? store->First(TNodeMeasure::Nodes) : nullptr, &TNodeWalk::NextBy<TNodeMeasure::Nodes>);
    for (; alive && walk; walk.Step()) {
        if (walk.Node()->GetChildCount() > 1)
            Sort(walk.Node(), column, direction, doInit);
    }
}

void TBaseVirtualTree::AutoSort() {
    if (HasAuto(toAutoSort) && FHeader->GetSortColumn() > NoColumn && !IsLoading())
        SortTree(FHeader->GetSortColumn(), FHeader->GetSortDirection());
}

/// Puts nodes into their places that came since the tree was sorted.
void TBaseVirtualTree::SortNewNodes() {
    if (!FUnsorted || FSorting > 0 || IsLoading())
        return;
    TVirtualNode* parent = FUnsorted.Get();
    FUnsorted.Set(nullptr);
    if (parent == FStore->Root())
        AutoSort();
    else if (HasAuto(toAutoSort) && FHeader->GetSortColumn() > NoColumn)
        Sort(parent, FHeader->GetSortColumn(), FHeader->GetSortDirection());
}

void TBaseVirtualTree::HeaderSortChanged(TVTHeader& header) {
    if (&header == FHeader.get())
        AutoSort();
}

} // namespace framework
