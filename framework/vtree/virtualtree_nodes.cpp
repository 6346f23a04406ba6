// Nodes one by one: when they are asked for, and what they are told to be.

#include "framework/graphics/canvas.h"
#include "framework/graphics/handles.h"
#include "framework/vtree/virtualtree.h"

#include <algorithm>

namespace framework {

// Asking

void TBaseVirtualTree::DoInitNode(TVirtualNode* parent, TVirtualNode* node, TVirtualNodeInitStates& initialStates) {
    Fire(*this, OnInitNode, this, parent, node, initialStates);
}

bool TBaseVirtualTree::DoInitChildren(TVirtualNode* node, unsigned& childCount) {
    if (!OnInitChildren)
        return false;
    return Fire(*this, OnInitChildren, this, node, childCount) && childCount > 0;
}

void TBaseVirtualTree::DoFreeNode(TVirtualNode* node) {
    Fire(*this, OnFreeNode, this, node);
}

void TBaseVirtualTree::DoMeasureItem(TCanvas& canvas, TVirtualNode* node, int& height) {
    Fire(*this, OnMeasureItem, this, &canvas, node, height);
}

bool TBaseVirtualTree::IsReady(const TVirtualNode* node) const {
    return node->Has(vsInitialized) && (node->Has(vsHeightMeasured) || !HasMisc(toVariableNodeHeight));
}

bool TBaseVirtualTree::InitNode(TVirtualNode* node) {
    if (node->Has(vsDeleting))
        return false;
    if (node->Has(vsInitialized))
        return MeasureNode(node);
    FStore->SetState(node, vsInitialized, true);
    TVirtualNodeInitStates states;
    TLifeGuard alive(*this);
    const TNodeRef still(*FStore, node);
    TVirtualNode* parent = node->GetParent();
    DoInitNode(parent == FStore->Root() ? nullptr : parent, node, states);
    if (!alive || !still)
        return false;
    CheckLikeParent(node);
    if (!states.Empty())
        ApplyInitialStates(node, states);
    return alive && still && MeasureNode(node);
}

/// Nodes that were asked for before there was a window are measured when they are come to again.
bool TBaseVirtualTree::MeasureNode(TVirtualNode* node) {
    if (IsReady(node) || !HandleAllocated())
        return true;
    TLifeGuard alive(*this);
    const TNodeRef still(*FStore, node);
    FStore->SetState(node, vsHeightMeasured, true);
    int height = node->GetNodeHeight();
    const TWindowDC dc(FHandle);
    const auto canvas = std::make_shared<TCanvas>(); // the tree's own may be painting just now
    const TCanvasBinding bound(canvas, dc);
    canvas->SetFont(GetFont());
    DoMeasureItem(*canvas, node, height);
    if (!alive || !still)
        return false;
    SetNodeHeight(node, height);
    return true;
}

void TBaseVirtualTree::ApplyInitialStates(TVirtualNode* node, TVirtualNodeInitStates states) {
    FStore->SetState(node, vsDisabled, states.Contains(ivsDisabled));
    if (states.Contains(ivsFiltered))
        SetFiltered(node, true);
    if (states.Contains(ivsHasChildren))
        FStore->SetState(node, vsHasChildren, true);
    TLifeGuard alive(*this);
    const TNodeRef still(*FStore, node);
    if (states.Contains(ivsSelected))
        SetSelected(node, true);
    if (!alive || !still || !states.Contains(ivsExpanded) || !node->Has(vsHasChildren))
        return;
    InitChildren(node);
    if (alive && still && node->GetChildCount() > 0) {
        FStore->SetState(node, vsExpanded, true);
        StructureChanged();
    }
}

void TBaseVirtualTree::InitChildren(TVirtualNode* node) {
    if (node == FStore->Root() || !node->Has(vsHasChildren) || node->GetChildCount() > 0)
        return;
    TLifeGuard alive(*this);
    const TNodeRef still(*FStore, node);
    unsigned count = 0;
    const bool some = DoInitChildren(node, count);
    if (!alive || !still)
        return;
    if (some)
        SetChildCount(node, count);
    FStore->SetState(node, vsHasChildren, node->GetChildCount() > 0);
    if (FUnsorted.Get() == node && FUpdateCount == 0)
        SortNewNodes();
}

TVirtualNode* TBaseVirtualTree::Asked(TVirtualNode* node) {
    return node && InitNode(node) ? node : nullptr;
}

void TBaseVirtualTree::ReinitNode(TVirtualNode* node, bool recursive) {
    const std::shared_ptr<TNodeStore> store = FStore;
    TVirtualNode* top = ParentOf(node);
    TLifeGuard alive(*this);
    TVirtualNode* first = top;
    if (top == store->Root())
        first = recursive ? store->First(TNodeMeasure::Initialized) : nullptr;
    TNodeWalk walk(store, first, &TNodeWalk::NextBy<TNodeMeasure::Initialized>);
    for (; walk && TNodeStore::IsWithin(walk.Node(), top); walk.Step()) {
        if (TVirtualNode* each = walk.Node(); each->Has(vsInitialized)) {
            store->SetState(each, vsHeightMeasured, false);
            TVirtualNodeInitStates states{ivsReInit};
            DoInitNode(each->GetParent() == store->Root() ? nullptr : each->GetParent(), each, states);
            if (alive && walk)
                ApplyInitialStates(each, states);
            if (!alive)
                return;
        }
        if (!recursive)
            break;
    }
    Invalidate();
}

void TBaseVirtualTree::ValidateNode(TVirtualNode* node, bool recursive) {
    TVirtualNode* top = ParentOf(node);
    TLifeGuard alive(*this);
    TNodeWalk walk(FStore, top == FStore->Root() ? top->GetFirstChild() : top, &TNodeWalk::NextBy<TNodeMeasure::Nodes>);
    for (; walk && TNodeStore::IsWithin(walk.Node(), top); walk.Step()) {
        InitNode(walk.Node());
        if (!alive || !recursive)
            return;
    }
}

TVirtualNode* TBaseVirtualTree::GetNext(TVirtualNode* node) {
    TLifeGuard alive(*this);
    const TNodeRef still(*FStore, node);
    InitChildren(node);
    return alive && still ? Asked(FStore->Next(node, TNodeMeasure::Nodes)) : nullptr;
}

TVirtualNode* TBaseVirtualTree::GetLast() {
    TLifeGuard alive(*this);
    TNodeRef node(*FStore, GetLastChild(nullptr));
    while (alive && node) {
        TVirtualNode* below = GetLastChild(node.Get());
        if (!alive || !below)
            break;
        node.Set(below);
    }
    return alive ? node.Get() : nullptr;
}

TVirtualNode* TBaseVirtualTree::GetFirstChild(TVirtualNode* node) {
    node = ParentOf(node);
    TLifeGuard alive(*this);
    const TNodeRef still(*FStore, node);
    InitChildren(node);
    return alive && still ? Asked(node->GetFirstChild()) : nullptr;
}

TVirtualNode* TBaseVirtualTree::GetLastChild(TVirtualNode* node) {
    node = ParentOf(node);
    TLifeGuard alive(*this);
    const TNodeRef still(*FStore, node);
    InitChildren(node);
    return alive && still ? Asked(node->GetLastChild()) : nullptr;
}

int TBaseVirtualTree::RowOf(const TVirtualNode* node) const {
    return FStore->Contains(node) && node != FStore->Root() && TNodeStore::IsRow(node)
               ? static_cast<int>(TNodeStore::PlaceOf(node, TNodeMeasure::Rows))
               : -1;
}

// Properties of nodes

void TBaseVirtualTree::SetNodeHeight(TVirtualNode* node, int value) {
    value = std::clamp(value, 0, kGreatestColumnWidth);
    if (node->GetNodeHeight() == value)
        return;
    FStore->SetHeight(node, value);
    StructureChanged();
}

void TBaseVirtualTree::SetHasChildren(TVirtualNode* node, bool value) {
    if (node->Has(vsHasChildren) == value)
        return;
    TLifeGuard alive(*this);
    const TNodeRef still(*FStore, node);
    if (!value)
        DeleteChildren(node);
    if (!alive || !still)
        return;
    FStore->SetState(node, vsHasChildren, value);
    InvalidateNode(node);
}

void TBaseVirtualTree::SetDisabled(TVirtualNode* node, bool value) {
    FStore->SetState(node, vsDisabled, value);
    InvalidateNode(node);
}

void TBaseVirtualTree::SetFiltered(TVirtualNode* node, bool value) {
    if (node->Has(vsFiltered) == value)
        return;
    FStore->SetState(node, vsFiltered, value);
    StructureChanged();
}

void TBaseVirtualTree::SetNodeVisible(TVirtualNode* node, bool value) {
    if (node->Has(vsVisible) == value)
        return;
    FStore->SetState(node, vsVisible, value);
    StructureChanged();
}

void TBaseVirtualTree::SetExpanded(TVirtualNode* node, bool value) {
    if (node == FStore->Root() || node->Has(vsExpanded) == value || node->Has(vsDeleting))
        return;
    TLifeGuard alive(*this);
    const TNodeRef still(*FStore, node);
    if (value) {
        if (!InitNode(node) || !node->Has(vsHasChildren) || !DoExpanding(node) || !alive || !still)
            return;
        InitChildren(node);
        if (!alive || !still || node->GetChildCount() == 0)
            return;
    } else if (!DoCollapsing(node) || !alive || !still) {
        return;
    }
    FStore->SetState(node, vsExpanded, value);
    StructureChanged();
    if (!value && FFocusedNode && FFocusedNode.Get() != node && TNodeStore::IsWithin(FFocusedNode.Get(), node))
        SetFocusedNode(node);
    if (!alive || !still)
        return;
    if (value && HasAuto(toAutoScrollOnExpand) && HandleAllocated() && FUpdateCount == 0) {
        ScrollIntoView(node->GetLastChild(), false);
        if (alive && still)
            ScrollIntoView(node, false); // which matters more when not all of it fits
    }
    if (alive && still)
        value ? DoExpanded(node) : DoCollapsed(node);
    if (alive && still)
        TellNode(EVENT_OBJECT_STATECHANGE, node);
}

void TBaseVirtualTree::FullExpand(TVirtualNode* node) {
    WhileUpdating([&] {
        TVirtualNode* top = ParentOf(node);
        TLifeGuard alive(*this);
        TNodeWalk walk(FStore, top == FStore->Root() ? top->GetFirstChild() : top,
                       &TNodeWalk::NextBy<TNodeMeasure::Nodes>);
        for (; alive && walk && TNodeStore::IsWithin(walk.Node(), top); walk.Step()) {
            if (InitNode(walk.Node()) && walk.Node()->Has(vsHasChildren))
                SetExpanded(walk.Node(), true);
        }
    });
}

void TBaseVirtualTree::FullCollapse(TVirtualNode* node) {
    WhileUpdating([&] {
        TVirtualNode* top = ParentOf(node);
        TLifeGuard alive(*this);
        TNodeWalk walk(FStore, top == FStore->Root() ? top->GetFirstChild() : top,
                       &TNodeWalk::NextBy<TNodeMeasure::Nodes>);
        for (; alive && walk && TNodeStore::IsWithin(walk.Node(), top); walk.Step())
            SetExpanded(walk.Node(), false);
    });
}

bool TBaseVirtualTree::GetVisiblePath(TVirtualNode* node) const {
    for (node = node->GetParent(); node && node != FStore->Root(); node = node->GetParent()) {
        if (!node->Has(vsExpanded))
            return false;
    }
    return true;
}

void TBaseVirtualTree::SetVisiblePath(TVirtualNode* node, bool value) {
    TLifeGuard alive(*this);
    TNodeRef each(*FStore, node->GetParent());
    while (alive && each && each.Get() != FStore->Root()) {
        SetExpanded(each.Get(), value);
        if (alive && each)
            each.Set(each.Get()->GetParent());
    }
}

bool TBaseVirtualTree::DoExpanding(TVirtualNode* node) {
    bool allowed = true;
    return Fire(*this, OnExpanding, this, node, allowed) && allowed;
}

void TBaseVirtualTree::DoExpanded(TVirtualNode* node) {
    Fire(*this, OnExpanded, this, node);
}

bool TBaseVirtualTree::DoCollapsing(TVirtualNode* node) {
    bool allowed = true;
    return Fire(*this, OnCollapsing, this, node, allowed) && allowed;
}

void TBaseVirtualTree::DoCollapsed(TVirtualNode* node) {
    Fire(*this, OnCollapsed, this, node);
}

} // namespace framework
