// What is selected and what has the focus.

#include "framework/vtree/virtualtree.h"

namespace framework {

void TBaseVirtualTree::DoChange(TVirtualNode* node) {
    Fire(*this, OnChange, this, node);
}

/// Takes the selection from all nodes but one, without telling anybody; true when there was any.
bool TBaseVirtualTree::UnselectAll(const TVirtualNode* except) {
    bool any = false;
    for (TVirtualNode* node = GetFirstSelected(); node;) {
        TVirtualNode* next = GetNextSelected(node);
        if (node != except) {
            FStore->SetState(node, vsSelected, false);
            any = true;
        }
        node = next;
    }
    if (any)
        Invalidate();
    return any;
}

void TBaseVirtualTree::ClearSelection() {
    FRangeAnchor.Set(nullptr);
    if (UnselectAll(nullptr))
        DoChange(nullptr);
}

void TBaseVirtualTree::SetSelected(TVirtualNode* node, bool value) {
    if (!node || node == FStore->Root() || node->Has(vsSelected) == value || !FStore->Contains(node))
        return;
    if (value && !HasSelection(toMultiSelect))
        UnselectAll(node);
    FStore->SetState(node, vsSelected, value);
    InvalidateNode(node);
    TellNode(value ? EVENT_OBJECT_SELECTIONADD : EVENT_OBJECT_SELECTIONREMOVE, node);
    DoChange(node);
}

void TBaseVirtualTree::SelectAll() {
    if (!HasSelection(toMultiSelect))
        return;
    const int before = GetSelectedCount();
    for (TVirtualNode* node = FStore->First(TNodeMeasure::Rows); node; node = FStore->Next(node, TNodeMeasure::Rows))
        FStore->SetState(node, vsSelected, true);
    if (GetSelectedCount() == before)
        return;
    Invalidate();
    TellTree(EVENT_OBJECT_SELECTIONWITHIN);
    DoChange(nullptr);
}

void TBaseVirtualTree::SelectSingle(TVirtualNode* node) {
    FRangeAnchor.Set(node);
    const bool others = UnselectAll(node);
    if (node->Has(vsSelected) && !others)
        return;
    FStore->SetState(node, vsSelected, true);
    InvalidateNode(node);
    TellNode(EVENT_OBJECT_SELECTION, node);
    DoChange(node);
}

/// Of several rows only the one with the focus stays selected, if it is.
void TBaseVirtualTree::UnselectOthers() {
    if (GetSelectedCount() < 2)
        return;
    if (FFocusedNode && FFocusedNode.Get()->Has(vsSelected))
        SelectSingle(FFocusedNode.Get());
    else
        ClearSelection();
}

void TBaseVirtualTree::SelectRange(TVirtualNode* from, TVirtualNode* to, bool add) {
    if (!add)
        UnselectAll(nullptr);
    const int first = RowOf(from);
    const int last = RowOf(to);
    if (first < 0 || last < 0)
        return;
    TVirtualNode* node = first <= last ? from : to;
    const TVirtualNode* end = first <= last ? to : from;
    for (; node; node = FStore->Next(node, TNodeMeasure::Rows)) {
        FStore->SetState(node, vsSelected, true);
        if (node == end)
            break;
    }
    Invalidate();
    TellTree(EVENT_OBJECT_SELECTIONWITHIN);
    DoChange(from == to ? from : nullptr);
}

/// Before the focus moves: with Shift a selection extends from there, unless it began somewhere else.
void TBaseVirtualTree::BeginRange(TShiftState shift) {
    if (shift.Contains(ssShift) && (!FRangeAnchor || RowOf(FRangeAnchor.Get()) < 0))
        FRangeAnchor.Set(FFocusedNode.Get());
}

/// Shift extends from where the selection began, Ctrl adds or takes away. Ctrl with a key only moves the focus.
void TBaseVirtualTree::SelectByUser(TVirtualNode* node, TShiftState shift, bool byKey) {
    if (!HasSelection(toMultiSelect))
        return SelectSingle(node);
    if (shift.Contains(ssShift)) {
        if (!FRangeAnchor || RowOf(FRangeAnchor.Get()) < 0)
            FRangeAnchor.Set(node);
        SelectRange(FRangeAnchor.Get(), node, shift.Contains(ssCtrl));
    } else if (!shift.Contains(ssCtrl)) {
        SelectSingle(node);
    } else if (!byKey) {
        FRangeAnchor.Set(node);
        SetSelected(node, !node->Has(vsSelected));
    }
}

bool TBaseVirtualTree::DoFocusChanging(TVirtualNode* oldNode, TVirtualNode* newNode, TColumnIndex oldColumn,
                                       TColumnIndex newColumn) {
    bool allowed = true;
    return Fire(*this, OnFocusChanging, this, oldNode, newNode, oldColumn, newColumn, allowed) && allowed;
}

void TBaseVirtualTree::DoFocusChange(TVirtualNode* node, TColumnIndex column) {
    Fire(*this, OnFocusChanged, this, node, column);
}

TColumnIndex TBaseVirtualTree::ColumnToFocus(TColumnIndex column) const {
    const TVirtualTreeColumns& columns = *FHeader->GetColumns();
    if (columns.GetCount() == 0)
        return NoColumn;
    if (!HasSelection(toExtendedFocus))
        return FHeader->GetMainColumn();
    if (!columns.IsValidColumn(column) || !columns.GetColumn(column)->GetOptions().Contains(coAllowFocus))
        return FFocusedColumn == NoColumn ? FHeader->GetMainColumn() : FFocusedColumn;
    return column;
}

/// Gives a cell the focus and shows it; false when that was not allowed, or something died meanwhile.
bool TBaseVirtualTree::ChangeFocus(TVirtualNode* node, TColumnIndex column) {
    if (node == FFocusedNode.Get() && column == FFocusedColumn) {
        if (node)
            ScrollIntoView(node, false);
        return true;
    }
    TLifeGuard alive(*this);
    const TNodeRef still(*FStore, node);
    if (!DoFocusChanging(FFocusedNode.Get(), node, FFocusedColumn, column) || !alive || (node && !still))
        return false;
    const bool columnChanged = column != FFocusedColumn;
    InvalidateNode(FFocusedNode.Get());
    FFocusedNode.Set(node);
    FFocusedColumn = column;
    InvalidateNode(node);
    if (node && FUpdateCount == 0)
        ScrollIntoView(node, HasSelection(toCenterScrollIntoView));
    if (alive && columnChanged && !HasAuto(toDisableAutoscrollOnFocus))
        ScrollColumnIntoView(column);
    if (!alive || (node && !still))
        return false;
    DoFocusChange(node, column);
    if (alive)
        TellFocus();
    return alive && (!node || still);
}

void TBaseVirtualTree::PutFocus(TVirtualNode* node) {
    InvalidateNode(FFocusedNode.Get());
    FFocusedNode.Set(node);
    InvalidateNode(node);
}

/// Takes the focus from a node that is about to go or that is hidden, and remembers the row that gets it.
void TBaseVirtualTree::LeaveFocus(TVirtualNode* heir) {
    FFocusedNode.Set(nullptr);
    FFocusHeir.Set(heir);
    FFocusLost = true;
}

/// The row that the focus moves to when children of `parent` have gone which began at this row: the next one among
/// their siblings, otherwise the one before.
TVirtualNode* TBaseVirtualTree::RowInPlaceOf(const TVirtualNode* parent, std::int64_t row) const {
    TVirtualNode* next = FStore->NodeAt(row, TNodeMeasure::Rows);
    return row > 0 && (!next || next->GetParent() != parent) ? FStore->NodeAt(row - 1, TNodeMeasure::Rows) : next;
}

/// Tells who has the focus now, once for any number of rows that went.
void TBaseVirtualTree::SettleFocus() {
    if (!FFocusLost || FUpdateCount > 0 || FDeleteDepth > 0)
        return;
    FFocusLost = false;
    TVirtualNode* heir = FFocusHeir.Get();
    FFocusHeir.Set(nullptr);
    if (FFocusedNode || IsDestroying())
        return; // a handler has given it to another one
    PutFocus(heir);
    TLifeGuard alive(*this);
    DoFocusChange(heir, FFocusedColumn);
    if (alive)
        TellFocus();
}

/// Rows that were hidden one by one by a filter are left once, when the filter is through.
void TBaseVirtualTree::LeaveHiddenFocus() {
    TVirtualNode* focused = FFocusedNode.Get();
    const auto hides = [](const TVirtualNode* node) { return !node->Has(vsVisible) || node->Has(vsFiltered); };
    const TVirtualNode* node = focused;
    while (node && node != FStore->Root() && !hides(node))
        node = node->GetParent();
    if (!node || node == FStore->Root())
        return;
    TVirtualNode* next = FStore->Next(focused, TNodeMeasure::Rows);
    LeaveFocus(next ? next : FStore->Previous(focused, TNodeMeasure::Rows));
    SettleFocus();
}

void TBaseVirtualTree::SetFocusedNode(TVirtualNode* value) {
    if (value == FStore->Root() || (value && !FStore->Contains(value)))
        value = nullptr;
    if (value != FFocusedNode.Get())
        ChangeFocus(value, ColumnToFocus(FFocusedColumn));
}

void TBaseVirtualTree::SetFocusedColumn(TColumnIndex value) {
    if (value != FFocusedColumn && (value == NoColumn || FHeader->GetColumns()->IsValidColumn(value)))
        ChangeFocus(FFocusedNode.Get(), value);
}

} // namespace framework
