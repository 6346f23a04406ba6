// The header under the mouse: dividers, boxes, clicks and dragged columns.

#include "framework/vtree/checkstates_rules.h"
#include "framework/vtree/treeheader.h"
#include "framework/vtree/virtualtree.h"

#include <cstdlib>

namespace framework {

namespace {

constexpr int kDividerGrip = 4; // pixels to either side of a divider

} // namespace

TVTHeaderHitInfo TVTHeader::HitTest(TPoint point) const {
    TVTHeaderHitInfo hit;
    hit.X = point.X;
    hit.Y = point.Y;
    if (!FTree->InHeader(point)) {
        hit.HitPosition << hhiNoWhere;
        return hit;
    }
    hit.Column = FColumns->ColumnFromPosition(TPoint{FTree->ContentX(point.X), 0});
    if (hit.Column == NoColumn) {
        hit.HitPosition << hhiNoWhere;
        return hit;
    }
    hit.HitPosition << hhiOnColumn;
    const TRect cell = FTree->HeaderCellRect(hit.Column);
    if (CheckBoxRect(hit.Column, cell).Inflated(1, 1).Contains(point))
        hit.HitPosition << hhiOnCheckbox;
    return hit;
}

TColumnIndex TVTHeader::DividerAt(TPoint point) const {
    if (!FOptions.Contains(hoColumnResize) || !FTree->InHeader(point))
        return NoColumn;
    const int position = framework::DividerAt(FColumns->Extents(), FTree->ContentX(point.X), kDividerGrip);
    const TColumnIndex column = FColumns->ColumnFromPosition(position);
    if (column == NoColumn)
        return NoColumn;
    const TVirtualTreeColumn& found = *FColumns->GetColumn(column);
    return found.FOptions.Contains(coResizable) && found.FMinWidth < found.FMaxWidth ? column : NoColumn;
}

bool TVTHeader::MouseDown(TMouseButton button, TShiftState shift, TPoint point) {
    if (!FTree->InHeader(point))
        return false;
    (void)shift;
    if (button != mbLeft || FMode != TMode::None)
        return true;
    const TVTHeaderHitInfo hit = HitTest(point);
    FDownPoint = point;
    if (const TColumnIndex divider = DividerAt(point); divider != NoColumn) {
        FMode = TMode::Resizing;
        FDownColumn = divider;
        FDownWidth = FColumns->GetColumn(divider)->GetWidth();
    } else if (hit.HitPosition.Contains(hhiOnCheckbox) ? BoxIsLive(hit.Column) : IsLive(hit.Column)) {
        FMode = hit.HitPosition.Contains(hhiOnCheckbox) ? TMode::CheckPressed : TMode::Pressed;
        FDownColumn = hit.Column;
    } else {
        return true;
    }
    FOverDown = true;
    FTree->SetMouseCapture(true);
    Changed(false);
    return true;
}

void TVTHeader::MouseMove(TShiftState shift, TPoint point) {
    (void)shift;
    const TVTHeaderHitInfo hit = HitTest(point);
    switch (FMode) {
    case TMode::None:
        if (hit.Column != FHotColumn) {
            FHotColumn = hit.Column;
            Changed(false);
        }
        return;
    case TMode::Resizing: {
        const int moved = FTree->ContentX(point.X) - FTree->ContentX(FDownPoint.X);
        FColumns->GetColumn(FDownColumn)->SetWidth(FDownWidth + moved);
        return;
    }
    case TMode::Pressed:
    case TMode::CheckPressed: {
        const bool over =
            hit.Column == FDownColumn && (FMode == TMode::Pressed || hit.HitPosition.Contains(hhiOnCheckbox));
        const bool changed = std::exchange(FOverDown, over) != over;
        if (FMode == TMode::Pressed && std::abs(point.X - FDownPoint.X) > GetSystemMetrics(SM_CXDRAG) &&
            FOptions.Contains(hoDrag) && FColumns->GetColumn(FDownColumn)->FOptions.Contains(coDraggable) &&
            !DragTo(point))
            return;
        if (changed)
            Changed(false);
        return;
    }
    case TMode::Dragging:
        DragTo(point);
        return;
    }
}

/// Begins or goes on with dragging the pressed column; false when a handler freed the tree.
bool TVTHeader::DragTo(TPoint point) {
    if (FMode != TMode::Dragging) {
        TLifeGuard alive(*FTree);
        const bool allowed = FTree->DoHeaderDragging(FDownColumn);
        if (!alive)
            return false;
        if (FMode != TMode::Pressed)
            return true; // the handler changed the columns
        if (!allowed) {
            FDownPoint.X = point.X; // to be asked again after another stretch
            return true;
        }
        FMode = TMode::Dragging;
    }
    const int from = FColumns->GetColumn(FDownColumn)->GetPosition();
    const int to = DropPosition(FColumns->Extents(), from, FTree->ContentX(point.X));
    if (std::exchange(FDropPosition, to) != to)
        Changed(false);
    return true;
}

void TVTHeader::MouseUp(TMouseButton button, TShiftState shift, TPoint point) {
    if (button != mbLeft || FMode == TMode::None)
        return;
    const TMode mode = std::exchange(FMode, TMode::None);
    TVTHeaderHitInfo hit = HitTest(point);
    hit.Button = button;
    hit.Shift = shift;
    TLifeGuard alive(*FTree);
    FTree->SetMouseCapture(false);
    if (!alive)
        return;
    Changed(false);
    if (mode == TMode::Pressed)
        hit.HitPosition >> hhiOnCheckbox; // the press was beside the box
    if (mode == TMode::Dragging)
        Drop();
    else if (mode == TMode::Pressed && hit.Column == FDownColumn)
        Click(hit);
    else if (mode == TMode::CheckPressed && hit.Column == FDownColumn && hit.HitPosition.Contains(hhiOnCheckbox))
        ClickCheckBox(hit);
}

void TVTHeader::Drop() {
    const TColumnIndex column = FDownColumn;
    const int to = std::exchange(FDropPosition, -1);
    if (!FColumns->IsValidColumn(column) || to < 0)
        return;
    const int from = FColumns->GetColumn(column)->GetPosition();
    TLifeGuard alive(*FTree);
    FColumns->GetColumn(column)->SetPosition(to);
    if (alive)
        FTree->DoHeaderDragged(column, from);
}

void TVTHeader::Click(const TVTHeaderHitInfo& hit) {
    if (!FColumns->GetColumn(hit.Column)->FOptions.Contains(coAllowClick))
        return;
    TLifeGuard alive(*FTree);
    if (FOptions.Contains(hoHeaderClickAutoSort)) {
        const bool turn = hit.Column == FSortColumn && FSortDirection == sdAscending;
        SetSort(hit.Column, turn ? sdDescending : sdAscending);
    }
    if (alive)
        FTree->DoHeaderClick(hit);
}

void TVTHeader::ClickCheckBox(const TVTHeaderHitInfo& hit) {
    TVirtualTreeColumn& column = *FColumns->GetColumn(hit.Column);
    TLifeGuard alive(*FTree);
    column.SetCheckState(NextCheckState(column.FCheckType, column.FCheckState));
    if (alive)
        FTree->DoHeaderClick(hit);
}

void TVTHeader::ClickColumn(TColumnIndex column) {
    TVTHeaderHitInfo hit;
    hit.Column = column;
    hit.HitPosition << hhiOnColumn;
    if (!IsLive(column))
        return;
    if (!ShowsBox(column))
        return Click(hit);
    hit.HitPosition << hhiOnCheckbox;
    if (BoxIsLive(column))
        ClickCheckBox(hit);
}

bool TVTHeader::DblClick(TPoint point) {
    if (!FTree->InHeader(point))
        return false;
    if (const TColumnIndex divider = DividerAt(point); divider != NoColumn && FOptions.Contains(hoDblClickResize)) {
        TLifeGuard alive(*FTree);
        const int width = FTree->GetMaxColumnWidth(divider);
        if (alive && FColumns->IsValidColumn(divider))
            FColumns->GetColumn(divider)->SetWidth(width);
        return true;
    }
    return MouseDown(mbLeft, {}, point); // the second of two quick clicks
}

void TVTHeader::MouseLeave() {
    if (std::exchange(FHotColumn, NoColumn) != NoColumn)
        Changed(false);
}

void TVTHeader::CancelMode() {
    const TMode mode = std::exchange(FMode, TMode::None);
    FDropPosition = -1;
    if (mode == TMode::None)
        return;
    if (mode == TMode::Resizing && FColumns->IsValidColumn(FDownColumn))
        FColumns->GetColumn(FDownColumn)->SetWidth(FDownWidth);
    else
        Changed(false);
}

} // namespace framework
