// What a person does to a data grid by keys, mouse, wheel and scroll bars.

#include "framework/dbgrid/dbgrid.h"
#include "framework/dbgrid/griddatalink.h"
#include "framework/dbgrid/inplaceedit.h"
#include "framework/dbgrid/rowscope.h"
#include "framework/graphics/textmetrics.h"
#include "framework/windows/application.h"
#include "framework/windows/clipboard.h"
#include "framework/windows/forms.h"

#include <algorithm>
#include <cstdlib>

namespace framework {

namespace {

constexpr char16_t kCopy = 3;   // Ctrl+C
constexpr char16_t kPaste = 22; // Ctrl+V
constexpr char16_t kLineFeed = 10;
constexpr char16_t kReturn = 13;

bool IsDown(int key) {
    return GetKeyState(key) < 0;
}

} // namespace

// Messages

void TCustomDBGrid::Dispatch(TMessage& message) {
    TLifeGuard alive(*this);
    switch (message.Msg) {
    case WM_GETDLGCODE:
        message.Result = DLGC_WANTARROWS | DLGC_WANTCHARS;
        return;
    case CM_WANTSPECIALKEY:
        message.Result = WantsKey(static_cast<WORD>(message.WParam)) ? 1 : 0;
        return;
    case WM_THEMECHANGED:
    case WM_SYSCOLORCHANGE:
        FLooks.reset();
        break;
    case kLayoutMessage:
        if (FLayoutPending)
            LayoutChanged();
        return;
    case CM_GOTFOCUS:
        TCustomGrid::Dispatch(message);
        if (alive)
            TellFocus();
        if (alive)
            ShowEditorAgain();
        return;
    case WM_GETOBJECT:
        if (AnswerAccessible(message))
            return;
        break;
    default:
        break;
    }
    TCustomGrid::Dispatch(message);
}

/// The keys that the form would otherwise take for itself.
bool TCustomDBGrid::WantsKey(WORD key) const {
    switch (key) {
    case VK_TAB:
        return FOptions.Contains(dgTabs) && !IsDown(VK_CONTROL) && !IsDown(VK_MENU) && IsDataActive() &&
               !CanLeaveByTab(!IsDown(VK_SHIFT));
    case VK_RETURN:
        return GetListVisible() || GetEditorMode() || CanEditShow();
    case VK_ESCAPE:
        return GetListVisible() || GetEditorMode() || IsDragging() || FDataLink->GetEditing();
    default:
        return false;
    }
}

/// At the ends Tab goes on to the next control, unless it begins another record there.
bool TCustomDBGrid::CanLeaveByTab(bool forward) const {
    const int last = Geometry().NextColumn(FocusCell().X, forward ? 1 : -1);
    const bool atEdge = last < 0 || FOptions.Contains(dgRowSelect);
    if (!atEdge)
        return false;
    TDataSet& dataSet = *GetDataSet();
    if (!forward)
        return (dataSet.GetRecNo() < 0 ? dataSet.GetBof() : dataSet.GetRecNo() <= 1) && !FDataLink->GetEditing();
    const int count = dataSet.GetRecordCount();
    const bool onLast = count >= 0 ? dataSet.GetRecNo() >= count || dataSet.IsEmpty() : dataSet.GetEof();
    return IsUntouchedInsert() || (!CanChangeRecords() && onLast);
}

void TCustomDBGrid::CMExit(TMessage& message) {
    TLifeGuard alive(*this);
    CloseList(false);
    if (!alive)
        return;
    try {
        if (FDataLink->GetActive()) {
            TDataSet& dataSet = *GetDataSet();
            const bool untouched = IsUntouchedInsert();
            if (untouched && FBegunHere && FOptions.Contains(dgCancelOnExit))
                dataSet.Cancel();
            else
                StoreEditor();
        }
    } catch (...) {
        // Back to the cell before the message is shown: it waits to be put right.
        if (alive && GetEditorMode() && GetInplaceEditor()->CanFocus())
            GetInplaceEditor()->SetFocus();
        throw;
    }
    if (!alive)
        return;
    HideEditor();
    if (alive)
        TCustomGrid::CMExit(message);
}

// Columns

void TCustomDBGrid::GoToColumn(int index) {
    if (index == FSelectedIndex || index < 0 || index >= FColumns->GetCount())
        return;
    if (!HandleAllocated()) {
        SetFocusColumn(index);
        return;
    }
    TLifeGuard alive(*this);
    CloseList(false);
    if (alive)
        StoreEditor();
    if (alive)
        HideEditor();
    if (alive)
        ColExit();
    if (!alive || index >= FColumns->GetCount())
        return;
    SetFocusColumn(index);
    UpdateRows();
    ShowColumn(index + IndicatorOffset());
    TellFocus();
    ColEnter();
    if (alive)
        ShowEditorAgain();
}

void TCustomDBGrid::ColEnter() {
    Fire(*this, OnColEnter, this);
}

void TCustomDBGrid::ColExit() {
    Fire(*this, OnColExit, this);
}

bool TCustomDBGrid::StepColumn(int step) {
    const int cell = Geometry().NextColumn(FSelectedIndex + IndicatorOffset(), step);
    if (cell < 0)
        return false;
    GoToColumn(cell - IndicatorOffset());
    return true;
}

void TCustomDBGrid::GoToEndColumn(bool last) {
    const int from = last ? Geometry().ColumnCount() : IndicatorOffset() - 1;
    const int cell = Geometry().NextColumn(from, last ? -1 : 1);
    if (cell >= 0)
        GoToColumn(cell - IndicatorOffset());
}

// Records

void TCustomDBGrid::MoveRows(int distance) {
    if (IsDataActive() && distance != 0)
        FDataLink->MoveBy(distance);
}

/// To a record that shows. A pending one may go, or to another place, before that is reached.
void TCustomDBGrid::GoToRow(int row) {
    if (!IsDataActive() || row == FDataLink->GetActiveRecord())
        return;
    TDataSet& dataSet = *GetDataSet();
    if (dataSet.GetState() == dsBrowse) {
        MoveRows(row - FDataLink->GetActiveRecord());
        return;
    }
    TBookmark wanted;
    if (const TRowScope scope(*this, row); scope.Reads())
        wanted = dataSet.GetBookmark();
    TLifeGuard alive(*this);
    dataSet.CheckBrowseMode();
    if (!alive || !IsDataActive() || wanted.IsEmpty() || !dataSet.BookmarkValid(wanted))
        return;
    for (int i = 0; i < FDataLink->GetRecordCount(); ++i) {
        TBookmark each;
        {
            const TRowScope scope(*this, i);
            each = dataSet.GetBookmark();
        }
        if (dataSet.CompareBookmarks(each, wanted) == 0) {
            MoveRows(i - FDataLink->GetActiveRecord());
            return;
        }
    }
    dataSet.GotoBookmark(wanted);
}

/// A move with Shift selects what lies on the way from where that began, and gives back what it returns over. True when
/// that was all to be done; without Shift the selection ends, and the move is left to the caller.
bool TCustomDBGrid::SelectRows(bool select, int distance) {
    if (!FOptions.Contains(dgMultiSelect))
        return false;
    if (!select) {
        FSelectedRows.Clear();
        return false;
    }
    TLifeGuard alive(*this);
    for (int i = 0; alive && i < std::abs(distance) && SelectStep(distance < 0 ? -1 : 1); ++i) {
    }
    return true;
}

bool TCustomDBGrid::SelectStep(int step) {
    TDataSet& dataSet = *GetDataSet();
    TLifeGuard alive(*this);
    dataSet.CheckBrowseMode();
    if (!alive || !IsDataActive() || dataSet.IsEmpty())
        return false;
    const TBookmark before = dataSet.GetBookmark();
    if (FSelectedRows.IndexOf(FSelectAnchor) < 0 || !FSelectedRows.GetCurrentRowSelected())
        FSelectAnchor = before;
    FSelectedRows.SetCurrentRowSelected(true);
    if (FDataLink->MoveBy(step) == 0 || !alive || !IsDataActive())
        return false;
    const int side = dataSet.CompareBookmarks(before, FSelectAnchor);
    if (step > 0 ? side < 0 : side > 0)
        FSelectedRows.SetSelected(before, false);
    FSelectedRows.SetCurrentRowSelected(true);
    return true;
}

bool TCustomDBGrid::NextRow(bool select) {
    if (SelectRows(select, 1))
        return true;
    TLifeGuard alive(*this);
    if (IsUntouchedInsert()) {
        if (FAppended)
            return false; // one behind the last record is enough
        GetDataSet()->Cancel();
        return true;
    }
    const bool moved = FDataLink->MoveBy(1) != 0;
    if (!alive || !FDataLink->GetEof() || !CanChangeRecords() || FDataLink->GetEditing())
        return moved;
    GetDataSet()->Append();
    if (alive && IsDataActive())
        FAppended = FBegunHere = GetDataSet()->GetState() == dsInsert;
    return true;
}

bool TCustomDBGrid::PriorRow(bool select) {
    if (SelectRows(select, -1))
        return true;
    if (!IsUntouchedInsert() || !FAppended)
        return FDataLink->MoveBy(-1) != 0;
    GetDataSet()->Cancel(); // which leads to the last record
    return true;
}

void TCustomDBGrid::InsertRecord() {
    if (!CanChangeRecords())
        return;
    TLifeGuard alive(*this);
    FSelectedRows.Clear();
    GetDataSet()->Insert();
    if (alive && IsDataActive())
        FBegunHere = GetDataSet()->GetState() == dsInsert;
}

bool TCustomDBGrid::ConfirmDelete(bool selectedOnes) {
    const String question = selectedOnes ? u"Delete all selected records?" : u"Delete record?";
    return TheApplication().MessageDialog(question, TheApplication().GetTitle(), MB_OKCANCEL | MB_ICONQUESTION) == IDOK;
}

void TCustomDBGrid::DeleteRecord() {
    if (!CanChangeRecords() || GetDataSet()->IsEmpty())
        return;
    TLifeGuard alive(*this);
    const bool selected = FOptions.Contains(dgMultiSelect) && FSelectedRows.GetCount() > 0;
    const TBookmark asked = GetDataSet()->GetBookmark();
    if (FOptions.Contains(dgConfirmDelete) && (!ConfirmDelete(selected) || !alive || !CanChangeRecords()))
        return;
    // While the person thought, something else may have moved: he was asked about that record.
    if (!selected && !(asked == GetDataSet()->GetBookmark())) {
        TheApplication().MessageDialog(u"Meanwhile the records have changed. None was deleted.",
                                       TheApplication().GetTitle(), MB_OK | MB_ICONINFORMATION);
        return;
    }
    if (selected)
        FSelectedRows.Delete();
    else
        GetDataSet()->Delete();
}

// Keys

void TCustomDBGrid::KeyDown(WORD& key, TShiftState shift) {
    TLifeGuard alive(*this);
    TCustomGrid::KeyDown(key, shift);
    if (!alive || key == 0 || IsDesigning())
        return;
    if (HandleKey(key, shift) && alive)
        key = 0;
}

bool TCustomDBGrid::HandleKey(WORD key, TShiftState shift) {
    if (key == VK_ESCAPE && IsDragging()) {
        CancelDrag();
        return true;
    }
    if (!IsDataActive())
        return false;
    if (ListKey(key, shift))
        return true;
    if (UseRightToLeftAlignment() && (key == VK_LEFT || key == VK_RIGHT))
        key = key == VK_LEFT ? VK_RIGHT : VK_LEFT;
    if (shift.Contains(ssAlt))
        return false;
    if (shift.Contains(ssCtrl))
        return HandleControlKey(key, shift.Contains(ssShift));
    const bool rowSelect = FOptions.Contains(dgRowSelect);
    switch (key) {
    case VK_UP:
        PriorRow(shift.Contains(ssShift));
        return true;
    case VK_DOWN:
        NextRow(shift.Contains(ssShift));
        return true;
    case VK_LEFT:
    case VK_RIGHT:
        if (rowSelect)
            ScrollColumnsTo(Geometry().ScrollX + (key == VK_LEFT ? -1 : 1) * kDefaultColumnWidth);
        else
            StepColumn(key == VK_LEFT ? -1 : 1);
        return true;
    case VK_HOME:
    case VK_END:
        if (rowSelect || FColumns->GetCount() == 1)
            GoToEndRow(key == VK_END, shift.Contains(ssShift));
        else
            GoToEndColumn(key == VK_END);
        return true;
    case VK_PRIOR:
    case VK_NEXT: {
        const int distance = (key == VK_PRIOR ? -1 : 1) * Geometry().VisibleRows();
        if (!SelectRows(shift.Contains(ssShift), distance))
            MoveRows(distance);
        return true;
    }
    case VK_DELETE:
        return shift.Empty() && EmptyCell();
    case VK_INSERT:
        InsertRecord();
        return true;
    case VK_TAB:
        return TabKey(!shift.Contains(ssShift));
    case VK_ESCAPE:
        CancelEditing();
        return true;
    case VK_F2:
        ShowEditor();
        if (GetEditorMode())
            GetInplaceEditor()->Deselect();
        return true;
    default:
        return false;
    }
}

void TCustomDBGrid::GoToEndRow(bool last, bool select) {
    if (!SelectRows(select, last ? INT_MAX : -INT_MAX))
        last ? GetDataSet()->Last() : GetDataSet()->First();
}

bool TCustomDBGrid::HandleControlKey(WORD key, bool shifted) {
    switch (key) {
    case VK_HOME:
    case VK_END:
        GoToEndRow(key == VK_END, shifted);
        return true;
    case VK_UP:
    case VK_PRIOR:
        MoveRows(-FDataLink->GetActiveRecord());
        return true;
    case VK_DOWN:
    case VK_NEXT:
        MoveRows(FDataLink->GetRecordCount() - 1 - FDataLink->GetActiveRecord());
        return true;
    case VK_LEFT:
    case VK_RIGHT:
        GoToEndColumn(key == VK_RIGHT);
        return true;
    case VK_DELETE:
        DeleteRecord();
        return true;
    default:
        return false;
    }
}

/// From cell to cell, behind the last one to the next record, and where there is none to the next control: that the
/// records end here may show only now, as a filter hides those beyond.
bool TCustomDBGrid::TabKey(bool forward) {
    if (!FOptions.Contains(dgTabs))
        return false;
    TLifeGuard alive(*this);
    if (!FOptions.Contains(dgRowSelect) && StepColumn(forward ? 1 : -1))
        return true;
    if (!alive)
        return true;
    const bool moved = forward ? NextRow(false) : PriorRow(false);
    if (!alive || !IsDataActive())
        return true;
    if (moved)
        GoToEndColumn(!forward);
    else if (TCustomForm* form = GetParentForm(this))
        form->SelectNext(this, forward, true);
    return true;
}

void TCustomDBGrid::KeyPress(char16_t& key) {
    TLifeGuard alive(*this);
    TCustomGrid::KeyPress(key);
    if (!alive || key == 0 || !IsDataActive())
        return;
    const char16_t unit = key;
    const TColumn* column = ColumnOfCell(FocusCell().X);
    switch (unit) {
    case kReturn:
        key = 0;
        if (GetListVisible())
            CloseList(true);
        else if (GetEditorMode() && !FOptions.Contains(dgAlwaysShowEditor))
            SetEditorMode(false);
        else if (GetEditorMode())
            StoreEditor();
        else
            ShowEditor();
        return;
    case kLineFeed:
        key = 0;
        if (column && column->GetButtonStyle() == cbsEllipsis)
            EditButtonClick();
        return;
    case kCopy:
        key = 0;
        if (TField* field = GetSelectedField(); field && column && column->GetVisible() && !GetDataSet()->IsEmpty())
            SetClipboardText(FHandle, field->GetDisplayText());
        return;
    case kPaste:
        key = 0;
        ShowEditor();
        if (alive && GetEditorMode())
            GetInplaceEditor()->PasteFromClipboard();
        return;
    default:
        break;
    }
    if (unit < u' ' && unit != VK_BACK)
        return;
    key = 0;
    if (GetEditorMode()) {
        ShowEditorChar(unit); // it was typed before the editor had the focus
    } else if (column && ShowsBox(*column)) {
        if (unit == u' ')
            ToggleBox();
    } else if (unit == VK_BACK || CanEditAccept(unit)) {
        ShowEditorChar(unit);
    }
}

// The mouse

void TCustomDBGrid::MouseDown(TMouseButton button, TShiftState shift, int x, int y) {
    TLifeGuard alive(*this);
    const bool hadFocus = Focused();
    const TGridCoord cell = MouseCoord(x, y);
    const bool closesList = GetListVisible() && ButtonRect().Contains({x, y});
    CloseList(false);
    if (alive)
        TCustomGrid::MouseDown(button, shift, x, y);
    if (!alive || button != mbLeft || IsDragging() || IsDesigning() || !IsDataActive() || cell.Y < TitleOffset())
        return;
    if (CanFocus() && !Focused())
        return; // what the person comes from did not let go of him
    if (ButtonRect().Contains({x, y})) {
        FButtonPressed = true;
        InvalidateCell(FocusCell().X, FocusCell().Y);
        if (!closesList)
            OpenList();
        return;
    }
    const bool again = hadFocus && cell == FocusCell();
    ClickDataCell(cell, shift, again);
    if (alive)
        FPressedCell = cell;
}

/// `again`: the cell has had the focus before.
void TCustomDBGrid::ClickDataCell(TGridCoord cell, TShiftState shift, bool again) {
    TLifeGuard alive(*this);
    const TBookmark before = GetDataSet()->GetBookmark();
    GoToRow(cell.Y - TitleOffset());
    if (!alive || !IsDataActive())
        return;
    if (ColumnOfCell(cell.X))
        GoToColumn(cell.X - IndicatorOffset());
    if (!alive || !IsDataActive())
        return;
    if (FOptions.Contains(dgMultiSelect))
        SelectByClick(shift, before);
    if (!again || shift.Contains(ssCtrl) || shift.Contains(ssShift) || !ColumnOfCell(cell.X))
        return;
    if (ShowsBox(*ColumnOfCell(cell.X)))
        ToggleBox();
    else
        ShowEditor();
}

/// A click selects its record alone, with Ctrl it turns it over, with Shift it selects all from where selecting began,
/// or else from the record that was active.
void TCustomDBGrid::SelectByClick(TShiftState shift, const TBookmark& from) {
    const TBookmark current = GetDataSet()->GetBookmark();
    const bool range = shift.Contains(ssShift) && !shift.Contains(ssCtrl);
    if (range && FSelectedRows.IndexOf(FSelectAnchor) < 0)
        FSelectAnchor = GetDataSet()->BookmarkValid(from) ? from : current;
    if (!range)
        FSelectAnchor = current;
    if (shift.Contains(ssCtrl)) {
        FSelectedRows.SetCurrentRowSelected(!FSelectedRows.GetCurrentRowSelected());
        return;
    }
    FSelectedRows.Clear();
    FSelectedRows.SetCurrentRowSelected(true);
    if (range)
        SelectFromAnchor();
    Invalidate();
}

void TCustomDBGrid::SelectFromAnchor() {
    TDataSet& dataSet = *GetDataSet();
    const TBookmark active = dataSet.GetBookmark();
    const int side = dataSet.CompareBookmarks(active, FSelectAnchor);
    bool reached = false;
    for (int row = 0; row < FDataLink->GetRecordCount(); ++row) {
        const TRowScope scope(*this, row);
        const TBookmark each = dataSet.GetBookmark();
        const int fromAnchor = dataSet.CompareBookmarks(each, FSelectAnchor);
        const int fromActive = dataSet.CompareBookmarks(each, active);
        reached = reached || fromAnchor == 0;
        if (side > 0 ? fromAnchor >= 0 && fromActive <= 0 : fromAnchor <= 0 && fromActive >= 0)
            FSelectedRows.SetSelected(each, true);
    }
    if (reached)
        return;
    // It began out of sight: the records between are only to be had on the way.
    TLifeGuard alive(*this);
    TLifeGuard dataAlive(dataSet);
    const auto way = [&] {
        dataSet.GotoBookmark(FSelectAnchor);
        while (alive && IsDataActive()) {
            const TBookmark each = dataSet.GetBookmark();
            FSelectedRows.SetSelected(each, true);
            if (dataSet.CompareBookmarks(each, active) == 0 || dataSet.MoveBy(side > 0 ? 1 : -1) == 0)
                break;
        }
    };
    dataSet.DisableControls();
    try {
        way();
    } catch (...) {
        if (dataAlive)
            dataSet.EnableControls();
        throw;
    }
    if (dataAlive)
        dataSet.EnableControls();
}

void TCustomDBGrid::MouseUp(TMouseButton button, TShiftState shift, int x, int y) {
    TLifeGuard alive(*this);
    const bool pressed = std::exchange(FButtonPressed, false);
    const TGridCoord down = std::exchange(FPressedCell, {});
    const bool dragged = IsDragging();
    if (pressed)
        InvalidateCell(FocusCell().X, FocusCell().Y);
    TCustomGrid::MouseUp(button, shift, x, y);
    if (!alive || button != mbLeft || dragged || !IsDataActive())
        return;
    const TGridCoord cell = MouseCoord(x, y);
    TColumn* column = ColumnOfCell(cell.X);
    if (pressed) {
        if (column && column->GetButtonStyle() == cbsEllipsis && ButtonRect().Contains({x, y}))
            EditButtonClick();
        return;
    }
    if (column && cell.Y >= TitleOffset() && cell == down)
        CellClick(column);
}

void TCustomDBGrid::CellClick(TColumn* column) {
    Fire(*this, OnCellClick, column);
}

void TCustomDBGrid::TitleClick(int column) {
    if (TColumn* clicked = ColumnOfCell(column))
        Fire(*this, OnTitleClick, clicked);
}

void TCustomDBGrid::ColumnResized(int column, int width) {
    if (TColumn* resized = ColumnOfCell(column))
        resized->SetWidth(width);
}

void TCustomDBGrid::FitColumn(int column) {
    TColumn* fitted = ColumnOfCell(column);
    if (!fitted || !IsDataActive() || ShowsBox(*fitted))
        return;
    TLifeGuard alive(*this);
    int width = TTextMeasure(*fitted->GetTitle()->GetFont()).Extent(fitted->GetTitle()->GetCaption()).Width;
    for (int row = 0; row < GetShownRowCount(); ++row) {
        const TRowScope scope(*this, row);
        TField* field = fitted->GetField();
        const String text = field ? field->GetDisplayText() : String();
        if (!alive || ColumnOfCell(column) != fitted)
            return; // a handler of the text has changed the columns
        width = std::max(width, TTextMeasure(*fitted->GetFont()).Extent(text).Width);
    }
    fitted->SetWidth(width + 2 * kCellMargin + 2);
}

void TCustomDBGrid::ColumnDragged(int from, int to) {
    TColumn* moved = ColumnOfCell(from);
    if (!moved || !ColumnOfCell(to))
        return;
    TLifeGuard alive(*this);
    SetEditorMode(false);
    if (!alive)
        return;
    if (!FColumns->IsCustomized() && moved->GetField() && ColumnOfCell(to)->GetField())
        moved->GetField()->SetIndex(ColumnOfCell(to)->GetField()->GetIndex()); // the columns follow the fields
    else
        moved->SetIndex(to - IndicatorOffset());
    if (!alive)
        return;
    LayoutChanged();
    if (alive)
        Fire(*this, OnColumnMoved, this, from + 1 - IndicatorOffset(), to + 1 - IndicatorOffset());
}

bool TCustomDBGrid::DoMouseWheel(TShiftState shift, int wheelDelta, TPoint mousePos) {
    TLifeGuard alive(*this);
    if (TCustomGrid::DoMouseWheel(shift, wheelDelta, mousePos) || !alive)
        return true;
    if (!IsDataActive())
        return false;
    if (shift.Contains(ssShift)) {
        ScrollColumnsBy(-wheelDelta / 2);
        return true;
    }
    if (GetListVisible()) {
        StepList(wheelDelta < 0 ? 1 : -1);
        return true;
    }
    // Turning the wheel must not end what is being entered.
    const int lines = WheelLines(wheelDelta);
    if (!FDataLink->GetEditing())
        MoveRows(lines);
    return true;
}

// The vertical bar tells where the active record is

void TCustomDBGrid::UpdateScrollBar() {
    TCustomGrid::UpdateScrollBar();
    if (!HandleAllocated())
        return;
    TScrollBarPlace bar;
    if (IsDataActive()) {
        TDataSet& dataSet = *GetDataSet();
        const bool inserting = dataSet.GetState() == dsInsert;
        if (const int count = dataSet.GetRecordCount(); dataSet.IsSequenced() && count >= 0) {
            if (inserting)
                return; // a new record has no number; the bar stays where it was
            bar = BarOfNumber(dataSet.GetRecNo(), count, Geometry().VisibleRows());
        } else if (FDataLink->GetRecordCount() >= Geometry().VisibleRows()) {
            bar = BarOfEnds(FDataLink->GetBof(), FDataLink->GetEof());
        }
    }
    SetBar(SB_VERT, bar);
}

/// To the record with a number. Where none has it, as numbers may have gaps or be the program's own, by as many records
/// as the thumb has moved.
void TCustomDBGrid::GoToNumber(int number, int count) {
    TDataSet& dataSet = *GetDataSet();
    const int distance = number - std::clamp(dataSet.GetRecNo(), 1, count);
    TLifeGuard alive(*this);
    dataSet.CheckBrowseMode(); // what is wrong with an entry is told of
    if (!alive || !IsDataActive())
        return;
    const int before = dataSet.GetRecNo();
    try {
        return dataSet.SetRecNo(number);
    } catch (const EDatabaseError&) {
        // Whoever has come to another record has another reason to complain.
        if (!alive || !IsDataActive() || GetDataSet() != &dataSet || dataSet.GetRecNo() != before)
            throw;
    }
    MoveRows(distance);
}

void TCustomDBGrid::VerticalScroll(int code) {
    if (!IsDataActive())
        return;
    TLifeGuard alive(*this);
    if (CanFocus() && !Focused())
        SetFocus();
    if (!alive || !IsDataActive())
        return;
    TDataSet& dataSet = *GetDataSet();
    const int page = Geometry().VisibleRows();
    switch (code) {
    case SB_LINEUP:
        MoveRows(-FDataLink->GetActiveRecord() - 1);
        return;
    case SB_LINEDOWN:
        MoveRows(FDataLink->GetRecordCount() - FDataLink->GetActiveRecord());
        return;
    case SB_PAGEUP:
    case SB_PAGEDOWN:
        MoveRows(code == SB_PAGEUP ? -page : page);
        return;
    case SB_TOP:
        dataSet.First();
        return;
    case SB_BOTTOM:
        dataSet.Last();
        return;
    case SB_THUMBTRACK:
    case SB_THUMBPOSITION:
        break;
    default:
        return;
    }
    SCROLLINFO info{};
    info.cbSize = sizeof(info);
    info.fMask = SIF_TRACKPOS;
    GetScrollInfo(FHandle, SB_VERT, &info);
    if (const int count = dataSet.GetRecordCount(); dataSet.IsSequenced() && count >= 0) {
        const int number = NumberOfBar(info.nTrackPos, count);
        if (count > 0 && number != dataSet.GetRecNo())
            GoToNumber(number, count);
        return;
    }
    if (code == SB_THUMBTRACK)
        return;
    switch (MoveOfBar(info.nTrackPos)) {
    case TRowBarMove::First:
        dataSet.First();
        break;
    case TRowBarMove::PageUp:
        MoveRows(-page);
        break;
    case TRowBarMove::PageDown:
        MoveRows(page);
        break;
    case TRowBarMove::Last:
        dataSet.Last();
        break;
    case TRowBarMove::None:
        break;
    }
    if (alive)
        UpdateScrollBar(); // the thumb goes back to one of its places
}

} // namespace framework
