#include "framework/dbgrid/grids.h"

#include "framework/dbgrid/inplaceedit.h"
#include "framework/graphics/bufferedpaint.h"
#include "framework/graphics/canvas.h"
#include "framework/windows/application.h"
#include "framework/windows/forms.h"

#include <algorithm>
#include <cstdlib>

namespace framework {

namespace {

constexpr int kDividerGrip = 3;    // pixels on both sides of it
constexpr int kLeastDragWidth = 8; // a column that a person makes narrower than that could not be found again
constexpr int kLineStep = 16;      // pixels that an arrow of the horizontal bar scrolls by

/// Keeps drawing within a part of the clip region while in scope.
class TClipTo {
public:
    TClipTo(HDC dc, const TRect& area) : FDC(dc), FBefore(CreateRectRgn(0, 0, 0, 0)) {
        FHadRegion = GetClipRgn(dc, FBefore.Get()) == 1;
        IntersectClipRect(dc, area.Left, area.Top, area.Right, area.Bottom);
    }
    TClipTo(const TClipTo&) = delete;
    TClipTo& operator=(const TClipTo&) = delete;
    ~TClipTo() { SelectClipRgn(FDC, FHadRegion ? FBefore.Get() : nullptr); }

private:
    HDC FDC;
    TUniqueRegion FBefore;
    bool FHadRegion;
};

bool Overlap(const TRect& left, const TRect& right) {
    return left.Left < right.Right && right.Left < left.Right && left.Top < right.Bottom && right.Top < left.Bottom;
}

} // namespace

const TClassInfo& TCustomGrid::StaticClass() {
    static const TClassInfo info =
        DescribeClass<TCustomGrid>(u"TCustomGrid", TCustomControl::StaticClass(), {controlrows::TabStop(true)});
    return info;
}

TCustomGrid::TCustomGrid(TComponent* owner) : TCustomControl(owner) {
    FControlStyle << csOpaque;
    SetParentColor(false);
    SetTabStop(true);
}

TCustomGrid::~TCustomGrid() {
    Destroying();
}

void TCustomGrid::CreateParams(TCreateParams& params) {
    TCustomControl::CreateParams(params);
    params.Style |= WS_CLIPCHILDREN;
    AddBorder(params, FBorderStyle);
}

void TCustomGrid::CreateWnd() {
    TCustomControl::CreateWnd();
    UpdateClient();
}

void TCustomGrid::Notification(TComponent* component, TOperation operation) {
    TCustomControl::Notification(component, operation);
    if (operation == opRemove && component == FEditor) {
        FEditor = nullptr;
        FEditorMode = false;
    }
}

bool TCustomGrid::Focused() const {
    return TCustomControl::Focused() || (FEditor && FEditor->Focused());
}

void TCustomGrid::SetBorderStyle(TBorderStyle value) {
    if (FBorderStyle == value)
        return;
    FBorderStyle = value;
    RecreateWnd();
}

// Where cells are

TRect TCustomGrid::CellRect(int column, int row) const {
    TRect rect = FGeometry.ShownRect({column, row});
    if (rect.IsEmpty() || row < FGeometry.FixedRows || column < FGeometry.FixedColumns)
        return rect;
    const TRect whole = FGeometry.CellRect({column, row});
    if (FLines.Columns && FGeometry.Mirrored)
        rect.Left = std::max(rect.Left, whole.Left + 1);
    else if (FLines.Columns)
        rect.Right = std::min(rect.Right, whole.Right - 1);
    if (FLines.Rows)
        rect.Bottom = std::min(rect.Bottom, whole.Bottom - 1);
    return rect;
}

void TCustomGrid::SetGeometry(std::vector<TColumnExtent> columns, int fixedColumns, int fixedRows, int titleHeight,
                              int rowHeight) {
    const bool sameWidths =
        std::equal(columns.begin(), columns.end(), FGeometry.Columns.begin(), FGeometry.Columns.end(),
                   [](const TColumnExtent& left, const TColumnExtent& right) { return left.Shown() == right.Shown(); });
    ++FVersion;
    FGeometry.Columns = std::move(columns);
    FGeometry.FixedColumns = fixedColumns;
    FGeometry.FixedRows = fixedRows;
    FGeometry.TitleHeight = titleHeight;
    FGeometry.RowHeight = std::max(rowHeight, 1);
    TLifeGuard alive(*this);
    UpdateClient();
    if (alive)
        Invalidate();
    if (alive && !sameWidths)
        ColWidthsChanged();
}

void TCustomGrid::SetRowCount(int value) {
    if (FGeometry.RowCount == value)
        return;
    ++FVersion;
    FGeometry.RowCount = value;
    Invalidate();
}

/// The room for cells may be another one.
void TCustomGrid::UpdateClient() {
    FGeometry.Mirrored = UseRightToLeftAlignment();
    if (!HandleAllocated() || FUpdatingBars)
        return;
    FUpdatingBars = true;
    const TAtScopeEnd done(*this, [this] { FUpdatingBars = false; });
    TLifeGuard alive(*this);
    const int before = FGeometry.VisibleRows();
    // A bar that comes or goes changes the room for the other one.
    for (int round = 0; round < 2 && alive; ++round) {
        const TRect client = GetClientRect();
        FGeometry.Client = {client.Width(), client.Height()};
        FGeometry.ScrollX = ClampScroll(FGeometry.ScrollX, FGeometry.ScrollRange(), FGeometry.ScrollExtent());
        UpdateScrollBar();
    }
    if (!alive)
        return;
    const TRect client = GetClientRect();
    FGeometry.Client = {client.Width(), client.Height()};
    if (before != FGeometry.VisibleRows())
        VisibleRowsChanged();
    if (alive)
        PlaceEditor();
}

void TCustomGrid::UpdateScrollBar() {
    if (!HandleAllocated())
        return;
    TScrollBarPlace bar;
    const int range = FGeometry.ScrollRange();
    const int extent = FGeometry.ScrollExtent();
    // The bar counts from the left in any case.
    if (range > extent && extent > 0)
        bar = {range - 1, extent, FGeometry.Mirrored ? range - extent - FGeometry.ScrollX : FGeometry.ScrollX};
    SetBar(SB_HORZ, bar);
}

/// Painting a bar costs more than painting the two rows of a move, so it is done only when the thumb moves by a pixel.
void TCustomGrid::SetBar(int which, const TScrollBarPlace& bar) {
    SCROLLINFO info{sizeof(info), SIF_ALL, 0, bar.Last, static_cast<UINT>(bar.Page), bar.Position, 0};
    SCROLLINFO present{sizeof(present), SIF_ALL, 0, 0, 0, 0, 0};
    GetScrollInfo(FHandle, which, &present);
    const bool shows = (GetWindowLongPtrW(FHandle, GWL_STYLE) & (which == SB_HORZ ? WS_HSCROLL : WS_VSCROLL)) != 0;
    const bool sameRange = shows == (bar.Last > 0) && present.nMax == info.nMax && present.nPage == info.nPage;
    if (sameRange && present.nPos == info.nPos)
        return;
    const int length = which == SB_HORZ ? FGeometry.Client.Width : FGeometry.Client.Height;
    const auto pixel = [&](int position) {
        return static_cast<std::int64_t>(position) * length / std::max(info.nMax, 1);
    };
    SetScrollInfo(FHandle, which, &info, !sameRange || pixel(present.nPos) != pixel(info.nPos));
}

void TCustomGrid::ScrollColumnsTo(int offset) {
    offset = ClampScroll(offset, FGeometry.ScrollRange(), FGeometry.ScrollExtent());
    if (offset == FGeometry.ScrollX)
        return;
    FGeometry.ScrollX = offset;
    ++FVersion;
    if (!HandleAllocated())
        return;
    Invalidate(); // what was cut off at the edge may look otherwise as a whole
    UpdateScrollBar();
    PlaceEditor();
}

void TCustomGrid::ScrollColumnsBy(int pixels) {
    ScrollColumnsTo(FGeometry.ScrollX + (FGeometry.Mirrored ? -pixels : pixels));
}

void TCustomGrid::ScrollRowsBy(int rows) {
    if (!HandleAllocated() || rows == 0)
        return;
    ++FVersion;
    // Nothing is moved into the room below the last row that fits.
    const int bottom = FGeometry.FixedHeight() + FGeometry.VisibleRows() * FGeometry.RowHeight;
    const RECT area{0, FGeometry.FixedHeight(), FGeometry.Client.Width, bottom};
    if (std::abs(rows) >= FGeometry.VisibleRows())
        InvalidateRect(FHandle, &area, FALSE);
    else
        ScrollWindowEx(FHandle, 0, rows * FGeometry.RowHeight, &area, &area, nullptr, nullptr, SW_INVALIDATE);
}

void TCustomGrid::ShowColumn(int column) {
    if (column >= FGeometry.FixedColumns && column < FGeometry.ColumnCount())
        ScrollColumnsTo(FGeometry.ScrollToShow(column));
}

void TCustomGrid::HorizontalScroll(int code) {
    const int most = std::max(FGeometry.ScrollRange() - FGeometry.ScrollExtent(), 0);
    int position = FGeometry.Mirrored ? most - FGeometry.ScrollX : FGeometry.ScrollX;
    switch (code) {
    case SB_LINELEFT:
        position -= kLineStep;
        break;
    case SB_LINERIGHT:
        position += kLineStep;
        break;
    case SB_PAGELEFT:
        position -= FGeometry.ScrollExtent();
        break;
    case SB_PAGERIGHT:
        position += FGeometry.ScrollExtent();
        break;
    case SB_LEFT:
        position = 0;
        break;
    case SB_RIGHT:
        position = most;
        break;
    case SB_THUMBTRACK:
    case SB_THUMBPOSITION: {
        SCROLLINFO info{};
        info.cbSize = sizeof(info);
        info.fMask = SIF_TRACKPOS;
        GetScrollInfo(FHandle, SB_HORZ, &info);
        position = info.nTrackPos;
        break;
    }
    default:
        return;
    }
    position = std::clamp(position, 0, most);
    ScrollColumnsTo(FGeometry.Mirrored ? most - position : position);
}

int TCustomGrid::WheelLines(int delta) {
    UINT lines = 3;
    SystemParametersInfoW(SPI_GETWHEELSCROLLLINES, 0, &lines, 0);
    return FWheel.Add(-delta, lines == WHEEL_PAGESCROLL ? FGeometry.VisibleRows() : static_cast<int>(lines));
}

void TCustomGrid::SetFocusCell(TGridCoord cell) {
    if (FFocusCell == cell)
        return;
    const TGridCoord before = std::exchange(FFocusCell, cell);
    InvalidateRow(before.Y);
    InvalidateRow(cell.Y);
}

void TCustomGrid::SetGridLines(TGridLines value) {
    FLines = value;
    Invalidate();
}

void TCustomGrid::InvalidateCell(int column, int row) {
    if (!HandleAllocated())
        return;
    const RECT rect = ToWin(FGeometry.ShownRect({column, row}));
    if (rect.right > rect.left)
        InvalidateRect(FHandle, &rect, FALSE);
}

void TCustomGrid::InvalidateRow(int row) {
    if (!HandleAllocated() || row < 0)
        return;
    const RECT rect = row < FGeometry.FixedRows ? RECT{0, 0, FGeometry.Client.Width, FGeometry.TitleHeight}
                                                : ToWin(FGeometry.RowRect(row));
    InvalidateRect(FHandle, &rect, FALSE);
}

// Painting

void TCustomGrid::PaintWindow(HDC dc) {
    RECT clip{};
    GetClipBox(dc, &clip);
    // Rows as a whole: themes paint what is cut off in the middle at other sizes.
    const int fixed = FGeometry.FixedHeight();
    const int rowHeight = FGeometry.RowHeight;
    const auto wholeRows = [&](int y, bool up) {
        return y <= fixed ? (up || y <= 0 ? 0 : fixed)
                          : fixed + (y - fixed + (up ? 0 : rowHeight - 1)) / rowHeight * rowHeight;
    };
    const TRect client = GetClientRect();
    const TRect area{0, wholeRows(std::max<int>(clip.top, 0), true), client.Right,
                     std::min<int>(wholeRows(std::max<int>(clip.bottom, 0), false), client.Bottom)};
    if (area.IsEmpty() || clip.right <= clip.left)
        return;
    const TBufferedPaint buffer(dc, area);
    TCustomControl::PaintWindow(buffer);
}

void TCustomGrid::Paint() {
    TCanvas& canvas = *GetCanvas();
    const TRect area = canvas.GetClipRect();
    canvas.GetBrush()->SetColor(GetColor());
    canvas.FillRect(area);
    TLifeGuard alive(*this);
    const unsigned version = FVersion;
    const int first = FGeometry.FixedRows + std::max(area.Top - FGeometry.FixedHeight(), 0) / FGeometry.RowHeight;
    if (FGeometry.FixedRows > 0 && area.Top < FGeometry.TitleHeight)
        PaintRow(0, area);
    for (int row = first; alive && version == FVersion && row < FGeometry.RowCount; ++row) {
        if (FGeometry.RowRect(row).Top >= area.Bottom)
            break;
        PaintRow(row, area);
    }
    // A handler that changes the cells has asked for another painting.
    if (alive && version == FVersion && FDrag == TDrag::Move)
        PaintDragMark();
}

void TCustomGrid::PaintRow(int row, const TRect& area) {
    TLifeGuard alive(*this);
    const unsigned version = FVersion;
    int end = 0; // of the columns so far, from the reading side
    for (int column = 0; alive && version == FVersion && column < FGeometry.ColumnCount(); ++column) {
        if (column == FGeometry.FixedColumns)
            end -= FGeometry.ScrollX;
        if (end >= FGeometry.Client.Width)
            break;
        const int width = FGeometry.Columns[static_cast<std::size_t>(column)].Shown();
        end += width;
        if (width == 0 || end <= 0)
            continue;
        if (const TRect shown = FGeometry.ShownRect({column, row}); !shown.IsEmpty() && Overlap(shown, area))
            PaintCell({column, row}, shown);
    }
    if (!alive || version != FVersion || row >= FGeometry.FixedRows || end >= FGeometry.Client.Width)
        return;
    end = std::max(end, FGeometry.FixedWidth());
    DrawTitleRest(FGeometry.Mirrored ? TRect{0, 0, FGeometry.Client.Width - end, FGeometry.TitleHeight}
                                     : TRect{end, 0, FGeometry.Client.Width, FGeometry.TitleHeight});
}

void TCustomGrid::PaintCell(TGridCoord cell, const TRect& shown) {
    TCanvas& canvas = *GetCanvas();
    const bool fixed = cell.X < FGeometry.FixedColumns || cell.Y < FGeometry.FixedRows;
    TRect inner = FGeometry.CellRect(cell);
    if (!fixed && FLines.Columns)
        (FGeometry.Mirrored ? inner.Left : inner.Right) += FGeometry.Mirrored ? 1 : -1;
    if (!fixed && FLines.Rows)
        --inner.Bottom;
    TLifeGuard alive(*this);
    {
        const TClipTo clip(canvas.GetHandle(), shown);
        canvas.SetFont(GetFont());
        canvas.GetBrush()->SetColor(GetColor());
        DrawCell(cell.X, cell.Y, inner, StateOf(cell));
    }
    if (alive && !fixed)
        PaintLines(cell);
}

void TCustomGrid::PaintLines(TGridCoord cell) {
    const HDC dc = GetCanvas()->GetHandle();
    const TRect whole = FGeometry.CellRect(cell);
    const TRect shown = FGeometry.ShownRect(cell);
    // The system's own brush: that of the canvas stays as it is for the next cell.
    const auto line = [&](const TRect& place) {
        const RECT rect = ToWin(place);
        ::FillRect(dc, &rect, GetSysColorBrush(COLOR_BTNFACE));
    };
    if (FLines.Rows)
        line({shown.Left, whole.Bottom - 1, shown.Right, whole.Bottom});
    const int x = FGeometry.Mirrored ? whole.Left : whole.Right - 1;
    if (FLines.Columns && x >= shown.Left && x < shown.Right)
        line({x, shown.Top, x + 1, whole.Bottom});
}

/// A thick line where the dragged column would go.
void TCustomGrid::PaintDragMark() {
    if (FDropColumn < 0 || FDropColumn == FDragColumn)
        return;
    const TRect place = FGeometry.CellRect({FDropColumn, 0});
    const bool behind = (FDropColumn > FDragColumn) != FGeometry.Mirrored;
    const int x = behind ? place.Right - 1 : place.Left;
    GetCanvas()->GetBrush()->SetColor(clHighlight);
    GetCanvas()->FillRect({x - 1, 0, x + 2, FGeometry.Client.Height});
}

TGridDrawState TCustomGrid::StateOf(TGridCoord cell) const {
    TGridDrawState state;
    if (cell.X < FGeometry.FixedColumns || cell.Y < FGeometry.FixedRows) {
        state << gdFixed;
        if (cell.Y < FGeometry.FixedRows && cell.X == FHotTitle)
            state << gdHotTrack;
        if (cell.Y < FGeometry.FixedRows && cell.X == FDragColumn && FPressed)
            state << gdPressed;
        return state;
    }
    if (cell == FFocusCell)
        state << gdSelected;
    if (cell == FFocusCell && Focused())
        state << gdFocused;
    return state;
}

// Titles under the mouse

void TCustomGrid::MouseDown(TMouseButton button, TShiftState shift, int x, int y) {
    TLifeGuard alive(*this);
    if (!IsDesigning() && CanFocus() && !Focused())
        SetFocus();
    if (alive)
        TCustomControl::MouseDown(button, shift, x, y);
    if (alive && button == mbLeft && !IsDesigning())
        BeginTitleDrag(x, y, shift.Contains(ssDouble));
}

void TCustomGrid::BeginTitleDrag(int x, int y, bool twice) {
    const int divider = CanResizeColumns() ? FGeometry.DividerAt({x, y}, kDividerGrip) : -1;
    const TGridCoord cell = MouseCoord(x, y);
    FDragStart = x;
    if (divider >= 0 && twice) {
        FitColumn(divider);
        return;
    }
    if (divider >= 0) {
        FDrag = TDrag::Size;
        FDragColumn = divider;
        const int width = FGeometry.Columns[static_cast<std::size_t>(divider)].Width;
        FGripOffset = width - FGeometry.DraggedWidth(divider, x);
        return;
    }
    if (cell.Y != 0 || FGeometry.FixedRows == 0 || cell.X < FGeometry.FixedColumns ||
        !(CanPressTitles() || CanResizeColumns()))
        return;
    FDrag = TDrag::Press;
    FDragColumn = cell.X;
    SetPressed(CanPressTitles());
}

void TCustomGrid::SetPressed(bool value) {
    if (FPressed == value)
        return;
    FPressed = value;
    InvalidateCell(FDragColumn, 0);
}

void TCustomGrid::MouseMove(TShiftState shift, int x, int y) {
    TLifeGuard alive(*this);
    switch (FDrag) {
    case TDrag::Size:
        ColumnResized(FDragColumn, std::max(FGeometry.DraggedWidth(FDragColumn, x) + FGripOffset, kLeastDragWidth));
        break;
    case TDrag::Press:
        SetPressed(CanPressTitles() && MouseCoord(x, y) == TGridCoord{FDragColumn, 0});
        if (!CanResizeColumns() || std::abs(x - FDragStart) < 2 * GetSystemMetrics(SM_CXDRAG))
            break;
        SetPressed(false);
        FDrag = TDrag::Move;
        [[fallthrough]];
    case TDrag::Move:
        if (const int drop = FGeometry.DropColumn(FDragColumn, x); drop != FDropColumn) {
            FDropColumn = drop;
            Invalidate();
        }
        break;
    case TDrag::None: {
        const TGridCoord cell = MouseCoord(x, y);
        const bool onTitle = FGeometry.FixedRows > 0 && cell.Y == 0 && cell.X >= FGeometry.FixedColumns;
        SetHotTitle(onTitle && CanHotTrack() ? cell.X : -1);
        break;
    }
    }
    if (alive)
        TCustomControl::MouseMove(shift, x, y);
}

void TCustomGrid::MouseUp(TMouseButton button, TShiftState shift, int x, int y) {
    TLifeGuard alive(*this);
    if (button == mbLeft && FDrag != TDrag::None)
        FinishDrag(x, y);
    if (alive)
        TCustomControl::MouseUp(button, shift, x, y);
}

void TCustomGrid::FinishDrag(int x, int y) {
    const TDrag drag = FDrag;
    const int column = FDragColumn;
    const int drop = FDropColumn;
    CancelDrag();
    if (drag == TDrag::Move && drop >= 0 && drop != column)
        ColumnDragged(column, drop);
    else if (drag == TDrag::Press && CanPressTitles() && MouseCoord(x, y) == TGridCoord{column, 0})
        TitleClick(column);
}

void TCustomGrid::CancelDrag() {
    if (FDrag == TDrag::None)
        return;
    SetPressed(false);
    if (FDrag == TDrag::Move)
        Invalidate();
    FDrag = TDrag::None;
    FDragColumn = -1;
    FDropColumn = -1;
}

void TCustomGrid::SetHotTitle(int column) {
    if (FHotTitle == column)
        return;
    InvalidateCell(std::exchange(FHotTitle, column), 0);
    InvalidateCell(column, 0);
}

void TCustomGrid::CMMouseLeave(TMessage& message) {
    SetHotTitle(-1);
    TCustomControl::CMMouseLeave(message);
}

// Messages

void TCustomGrid::Dispatch(TMessage& message) {
    TLifeGuard alive(*this);
    switch (message.Msg) {
    case WM_HSCROLL:
    case WM_VSCROLL:
        if (message.LParam != 0)
            break; // of a scroll bar that is a control of its own
        if (message.Msg == WM_HSCROLL)
            HorizontalScroll(LowWord(message.WParam));
        else
            VerticalScroll(LowWord(message.WParam));
        return;
    case WM_MOUSEHWHEEL:
        ScrollColumnsBy(static_cast<std::int16_t>(HighWord(message.WParam)) / 2);
        return;
    case WM_SIZE:
        TCustomControl::Dispatch(message);
        if (alive)
            UpdateClient();
        if (alive && FGeometry.Mirrored)
            Invalidate();
        if (alive && FGeometry.FixedRows > 0)
            InvalidateRow(0); // its rest has another edge
        return;
    case WM_LBUTTONUP: {
        FReleasing = true;
        const TAtScopeEnd done(*this, [this] { FReleasing = false; });
        TCustomControl::Dispatch(message);
    }
        return;
    case WM_CAPTURECHANGED:
    case WM_CANCELMODE:
        if (!FReleasing)
            CancelDrag();
        break;
    case WM_SETCURSOR: {
        POINT pointer{};
        GetCursorPos(&pointer);
        if (LowWord(static_cast<std::uint64_t>(message.LParam)) != HTCLIENT || !CanResizeColumns() ||
            FGeometry.DividerAt(ScreenToClient(FromWin(pointer)), kDividerGrip) < 0)
            break;
        ::SetCursor(TheScreen().CursorHandle(crSizeWE));
        message.Result = TRUE;
        return;
    }
    case WM_THEMECHANGED:
    case CM_GOTFOCUS:
    case CM_LOSTFOCUS: // what is marked shows in another colour
        Invalidate();
        break;
    default:
        break;
    }
    TCustomControl::Dispatch(message);
}

void TCustomGrid::CMEnabledChanged(TMessage& message) {
    TLifeGuard alive(*this);
    TCustomControl::CMEnabledChanged(message);
    if (alive)
        Invalidate();
}

void TCustomGrid::CMBiDiModeChanged(TMessage& message) {
    TLifeGuard alive(*this);
    TCustomControl::CMBiDiModeChanged(message);
    if (!alive)
        return;
    UpdateClient();
    if (alive)
        Invalidate();
}

// Editing in place

void TCustomGrid::SetEditorMode(bool value) {
    if (value == FEditorMode)
        return;
    if (value) {
        ShowEditor();
        return;
    }
    TLifeGuard alive(*this);
    StoreEditor();
    if (alive)
        HideEditor();
}

bool TCustomGrid::CanEditAccept(char16_t) const {
    return true;
}

void TCustomGrid::ShowEditor() {
    if (FEditorMode || FHidingEditor || !HandleAllocated() || !CanEditShow())
        return;
    TLifeGuard alive(*this);
    if (!FEditor) {
        FEditor = new TInplaceEdit(this);
        FEditor->SetParent(this);
    }
    const bool focused = Focused();
    ShowColumn(FFocusCell.X);
    PrepareEditor(*FEditor);
    if (!alive || !FEditor || !CanEditShow())
        return; // a handler of the text has changed what there is to edit
    FEditorMode = true;
    PlaceEditor();
    if (!alive || !FEditorMode)
        return;
    FEditor->SelectAll();
    if (focused && FEditor->CanFocus())
        FEditor->SetFocus();
    if (alive)
        InvalidateRow(FFocusCell.Y);
}

void TCustomGrid::ShowEditorChar(char16_t unit) {
    TLifeGuard alive(*this);
    ShowEditor();
    if (alive && FEditorMode)
        PostMessageW(FEditor->GetHandle(), WM_CHAR, unit, TInplaceEdit::kAnnounced);
}

void TCustomGrid::HideEditor() {
    if (!FEditorMode)
        return;
    FEditorMode = false;
    FEditor->SetEntered(false);
    TLifeGuard alive(*this);
    // The focus first: a window that is hidden with it gives it to the next control. That the grid has it now is no
    // reason to show the editor again.
    {
        FHidingEditor = true;
        const TAtScopeEnd done(*this, [this] { FHidingEditor = false; });
        if (FEditor->Focused() && CanFocus())
            ::SetFocus(FHandle);
    }
    if (alive && FEditor && !FEditorMode)
        FEditor->SetVisible(false);
    if (alive)
        InvalidateRow(FFocusCell.Y);
}

void TCustomGrid::PlaceEditor() {
    if (!FEditorMode || !FEditor)
        return;
    TRect place = CellRect(FFocusCell.X, FFocusCell.Y);
    (FGeometry.Mirrored ? place.Left : place.Right) += (FGeometry.Mirrored ? 1 : -1) * EditorRoomForButton();
    if (place.IsEmpty())
        place = {-10, -10, -9, -9}; // it keeps the focus, so that it may be scrolled back into view
    // The native edit writes at its upper edge; the text of the cell stands in the middle.
    const int height = EditorTextHeight();
    if (place.Height() > height) {
        place.Top += (place.Height() - height) / 2;
        place.Bottom = place.Top + height;
    }
    FEditor->SetBoundsRect(place);
    FEditor->SetVisible(true);
}

} // namespace framework
