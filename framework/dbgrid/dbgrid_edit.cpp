// Editing the cells of a data grid: through a field that lies on the cell, by the list of choices, and by boxes.

#include "framework/dbgrid/dbgrid.h"
#include "framework/dbgrid/griddatalink.h"
#include "framework/dbgrid/inplaceedit.h"
#include "framework/dbgrid/picklistwindow.h"
#include "framework/graphics/textmetrics.h"

#include <algorithm>

namespace framework {

bool TCustomDBGrid::CanChangeRecords() const {
    return IsDataActive() && FOptions.Contains(dgEditing) && !FOptions.Contains(dgRowSelect) && !FReadOnly &&
           GetDataSet()->GetCanModify();
}

/// Whether a person may change what the column shows. Blocks and long texts do not fit into a line.
bool TCustomDBGrid::CanEditColumn(const TColumn& column) const {
    const TField* field = column.GetField();
    return field && CanChangeRecords() && !column.GetReadOnly() && field->GetCanModify() && !field->IsBlob() &&
           (FDataLink->GetEditing() || GetDataSource()->GetAutoEdit());
}

bool TCustomDBGrid::CanEditShow() const {
    const TColumn* column = ColumnOfCell(FocusCell().X);
    return column && !IsDesigning() && column->GetVisible() && !ShowsBox(*column) && CanEditColumn(*column);
}

bool TCustomDBGrid::CanEditModify() {
    TLifeGuard alive(*this);
    return CanEditShow() && BeginEditing() && alive && GetEditorMode();
}

bool TCustomDBGrid::BeginEditing() {
    TLifeGuard alive(*this);
    const bool before = FDataLink->GetEditing();
    if (!FDataLink->Edit() || !alive)
        return false;
    if (!before) // of an empty dataset that is a new record
        FBegunHere = true;
    return true;
}

bool TCustomDBGrid::CanEditAccept(char16_t unit) const {
    const TField* field = GetSelectedField();
    return field && field->IsValidChar(unit);
}

void TCustomDBGrid::PrepareEditor(TInplaceEdit& editor) {
    const TColumn& column = *ColumnOfCell(FocusCell().X);
    TField& field = *column.GetField();
    editor.SetFont(column.GetFont());
    editor.SetColor(column.GetColor());
    editor.SetAlignment(column.GetAlignment());
    editor.SetMargins(kCellMargin);
    const bool isText = field.GetDataType() == ftString || field.GetDataType() == ftWideString ||
                        field.GetDataType() == ftFixedChar || field.GetDataType() == ftFixedWideChar;
    editor.SetMaxLength(isText ? field.GetSize() : 0);
    FEditedField = &field;
    TLifeGuard alive(*this);
    const String text = field.GetEditText();
    if (alive)
        editor.Begin(text);
}

/// Shows the field's value anew, unless something else is being entered.
void TCustomDBGrid::RefreshEditor() {
    if (!GetEditorMode() || GetInplaceEditor()->GetEntered())
        return;
    if (!CanEditShow()) {
        HideEditor();
        return;
    }
    TInplaceEdit& editor = *GetInplaceEditor();
    TLifeGuard alive(*this);
    const String text = GetSelectedField()->GetEditText();
    if (alive && GetEditorMode() && editor.GetText() != text) {
        editor.Begin(text);
        editor.SelectAll();
    }
}

void TCustomDBGrid::StoreEditor() {
    if (!GetEditorMode() || !GetInplaceEditor()->GetEntered())
        return;
    // Into the field in which it was entered, whatever the columns show by now.
    if (!FEditedField || !FDataLink || !FDataLink->GetEditing())
        return;
    TLifeGuard alive(*this);
    FEditedField->SetEditText(GetInplaceEditor()->GetText());
    if (!alive || !GetEditorMode())
        return;
    GetInplaceEditor()->SetEntered(false);
    RefreshEditor();
}

int TCustomDBGrid::EditorTextHeight() const {
    const TColumn* column = ColumnOfCell(FocusCell().X);
    return TTextMeasure(column ? *column->GetFont() : *GetFont()).LineHeight();
}

bool TCustomDBGrid::IsUntouchedInsert() const {
    return FDataLink->GetActive() && GetDataSet()->GetState() == dsInsert && !GetDataSet()->GetModified() &&
           !(GetEditorMode() && GetInplaceEditor()->GetEntered());
}

String TCustomDBGrid::EditorName() const {
    const TColumn* column = ColumnOfCell(FocusCell().X);
    return column ? column->GetTitle()->GetCaption() : String();
}

void TCustomDBGrid::ShowEditorAgain() {
    if (FOptions.Contains(dgAlwaysShowEditor) && Focused())
        ShowEditor();
}

/// The first Esc gives up what was entered in the cell, the next one the record.
void TCustomDBGrid::CancelEditing() {
    TLifeGuard alive(*this);
    const bool entered = GetEditorMode() && GetInplaceEditor()->GetEntered();
    if (entered)
        GetInplaceEditor()->SetEntered(false);
    if (entered && FOptions.Contains(dgAlwaysShowEditor)) {
        RefreshEditor();
        return;
    }
    const bool editorOnly = entered || (GetEditorMode() && !FOptions.Contains(dgAlwaysShowEditor));
    HideEditor();
    if (alive && !editorOnly && FDataLink->GetEditing())
        GetDataSet()->Cancel();
    if (alive)
        ShowEditorAgain();
}

void TCustomDBGrid::ToggleBox() {
    const TColumn* column = ColumnOfCell(FocusCell().X);
    if (!column || !column->GetVisible() || !ShowsBox(*column) || !CanEditColumn(*column))
        return;
    TLifeGuard alive(*this);
    if (!BeginEditing() || !alive)
        return;
    if (TField* field = GetSelectedField())
        field->SetAsBoolean(field->GetIsNull() || !field->GetAsBoolean());
}

/// A box becomes Null again; of a text the editor shows nothing.
bool TCustomDBGrid::EmptyCell() {
    const TColumn* column = ColumnOfCell(FocusCell().X);
    if (GetEditorMode() || !column || !column->GetVisible() || !CanEditColumn(*column))
        return false;
    if (!ShowsBox(*column)) {
        ShowEditorChar(VK_BACK);
        return true;
    }
    TLifeGuard alive(*this);
    TField* field = GetSelectedField();
    if (!field->GetRequired() && BeginEditing() && alive && field == GetSelectedField())
        field->Clear();
    return true;
}

// The button at the end of the cell

bool TCustomDBGrid::HasButton(const TColumn& column) const {
    return column.GetButtonStyle() == cbsEllipsis || (column.GetButtonStyle() == cbsAuto && column.HasPickList());
}

int TCustomDBGrid::EditorRoomForButton() const {
    const TColumn* column = ColumnOfCell(FocusCell().X);
    return column && HasButton(*column) ? std::min(GetSystemMetrics(SM_CXVSCROLL), column->GetWidth() / 2) : 0;
}

TRect TCustomDBGrid::ButtonRect() const {
    TRect place = CellRect(FocusCell().X, FocusCell().Y);
    const int width = EditorRoomForButton();
    if (!GetEditorMode() || width == 0 || place.IsEmpty())
        return {};
    if (UseRightToLeftAlignment())
        place.Right = place.Left + width;
    else
        place.Left = place.Right - width;
    return place;
}

void TCustomDBGrid::EditButtonClick() {
    Fire(*this, OnEditButtonClick, this);
}

bool TCustomDBGrid::GetListVisible() const {
    return FListWindow && FListWindow->HandleAllocated() && IsWindowVisible(FListWindow->Handle);
}

/// The cell with the focus, in screen pixels.
TRect TCustomDBGrid::FocusOnScreen() const {
    const TPoint origin = ClientToScreen({0, 0});
    return CellRect(FocusCell().X, FocusCell().Y).Offset(origin.X, origin.Y);
}

void TCustomDBGrid::OpenList() {
    const TColumn* column = ColumnOfCell(FocusCell().X);
    if (!GetEditorMode() || !column || !column->HasPickList() || column->GetButtonStyle() != cbsAuto ||
        GetListVisible())
        return;
    if (!FListWindow) {
        FListWindow = new TPickListWindow(this);
        FListWindow->SetParent(this);
    }
    FListWindow->SetFont(column->GetFont());
    FListWindow->SetItems(column->GetPickList());
    FListWindow->SetItemIndex(column->GetPickList()->IndexOf(GetInplaceEditor()->GetText()));
    FListWindow->Open(FocusOnScreen(), column->GetDropDownRows());
    InvalidateCell(FocusCell().X, FocusCell().Y);
}

/// What is being typed is marked in the list, so that it does not put something else in its place.
void TCustomDBGrid::EditorChanged() {
    if (GetListVisible())
        FListWindow->SetItemIndex(FListWindow->GetItems()->IndexOf(GetInplaceEditor()->GetText()));
}

void TCustomDBGrid::CloseList(bool accept) {
    if (!GetListVisible())
        return;
    const int item = FListWindow->GetItemIndex();
    const String text = item >= 0 ? FListWindow->GetItems()->Get(item) : String();
    TLifeGuard alive(*this);
    FListWindow->Close();
    InvalidateCell(FocusCell().X, FocusCell().Y);
    if (!accept || item < 0 || !CanEditModify() || !alive)
        return;
    TInplaceEdit& editor = *GetInplaceEditor();
    editor.SetText(text);
    editor.SetEntered(true);
    editor.SelectAll();
}

void TCustomDBGrid::StepList(int distance) {
    FListWindow->Step(distance);
}

/// Keys of an open list, and those that open it.
bool TCustomDBGrid::ListKey(WORD key, TShiftState shift) {
    if (!GetListVisible()) {
        const bool opens = shift.Contains(ssAlt) ? key == VK_DOWN : key == VK_F4;
        const TColumn* column = ColumnOfCell(FocusCell().X);
        if (!opens || !column || !column->HasPickList())
            return false;
        TLifeGuard alive(*this);
        ShowEditor();
        if (alive)
            OpenList();
        return true;
    }
    const int page = ColumnOfCell(FocusCell().X) ? ColumnOfCell(FocusCell().X)->GetDropDownRows() - 1 : 1;
    switch (key) {
    case VK_UP:
    case VK_DOWN:
        if (shift.Contains(ssAlt))
            CloseList(true);
        else
            StepList(key == VK_UP ? -1 : 1);
        return true;
    case VK_PRIOR:
    case VK_NEXT:
        StepList(key == VK_PRIOR ? -page : page);
        return true;
    case VK_F4:
        if (shift.Contains(ssAlt))
            return false;
        CloseList(true);
        return true;
    case VK_ESCAPE:
        CloseList(false);
        return true;
    case VK_TAB:
        CloseList(true);
        return false;
    default:
        return false;
    }
}

} // namespace framework
