#pragma once

// A grid of cells that paints itself: a row of titles, fixed columns, columns of different widths that a person sizes
// and drags, and rows of one height. What the cells are, and how rows scroll, is the descendant's matter; so is what a
// cell that is being edited stands for.

#include "framework/dbgrid/grid_rules.h"
#include "framework/windows/scrollbox_rules.h"
#include "framework/windows/wincontrol.h"

namespace framework {

class TInplaceEdit;

enum TGridDrawStateElement {
    gdSelected,    ///< it is marked
    gdFocused,     ///< it has the focus
    gdFixed,       ///< a title or a cell of the fixed columns
    gdRowSelected, ///< it is marked because its row is
    gdHotTrack,    ///< the pointer lies on it
    gdPressed,     ///< the mouse button is down on it
};
using TGridDrawState = Set<TGridDrawStateElement>;

class TCustomGrid : public TCustomControl {
    FRAMEWORK_CLASS(TCustomGrid)

public:
    FRAMEWORK_PROPERTY(TBorderStyle, BorderStyle, GetBorderStyle, SetBorderStyle);
    FRAMEWORK_PROPERTY(bool, EditorMode, GetEditorMode, SetEditorMode);

    explicit TCustomGrid(TComponent* owner);
    ~TCustomGrid() override;

    TBorderStyle GetBorderStyle() const { return FBorderStyle; }
    void SetBorderStyle(TBorderStyle value);
    /// Whether the cell with the focus is being edited. Setting it has no effect where the cell cannot be.
    bool GetEditorMode() const { return FEditorMode; }
    void SetEditorMode(bool value);

    // Cells by their numbers, fixed columns and the title row included.

    /// The place of a cell in the client area, without the lines behind and below; empty where it cannot be seen.
    TRect CellRect(int column, int row) const;
    /// The cell at a point of the client area; -1 for what lies beside the cells.
    TGridCoord MouseCoord(int x, int y) const { return FGeometry.CellAt({x, y}); }
    bool Focused() const override;

protected:
    /// The edges of cells that have a line.
    struct TGridLines {
        bool Columns = true;
        bool Rows = true;
    };

    void CreateParams(TCreateParams& params) override;
    void CreateWnd() override;
    void Dispatch(TMessage& message) override;
    void PaintWindow(HDC dc) override;
    void Paint() override;
    void WMEraseBkgnd(TMessage& message) override { message.Result = 1; } // Paint fills it all
    void MouseDown(TMouseButton button, TShiftState shift, int x, int y) override;
    void MouseMove(TShiftState shift, int x, int y) override;
    void MouseUp(TMouseButton button, TShiftState shift, int x, int y) override;
    void CMMouseLeave(TMessage& message) override;
    void CMEnabledChanged(TMessage& message) override;
    void CMBiDiModeChanged(TMessage& message) override;
    void Notification(TComponent* component, TOperation operation) override;

    // What a descendant tells

    const TGridGeometry& Geometry() const { return FGeometry; }
    /// Takes over how many columns and rows there are and how large; the scroll offset stays as far as it can.
    void SetGeometry(std::vector<TColumnExtent> columns, int fixedColumns, int fixedRows, int titleHeight,
                     int rowHeight);
    void SetRowCount(int value);
    /// The cell with the focus. The editor, if it shows, has to be put away before.
    void SetFocusCell(TGridCoord cell);
    TGridCoord FocusCell() const { return FFocusCell; }
    void SetGridLines(TGridLines value);
    /// Scrolls a column into view.
    void ShowColumn(int column);
    void ScrollColumnsTo(int offset);
    /// To the right when positive, whatever the reading order.
    void ScrollColumnsBy(int pixels);
    /// What is scrolled moves by so many rows, downwards when positive.
    void ScrollRowsBy(int rows);

    /// Shows a scroll bar (SB_HORZ, SB_VERT) with its thumb there, or none.
    void SetBar(int which, const TScrollBarPlace& bar);
    void InvalidateCell(int column, int row);
    void InvalidateRow(int row);

    // What a descendant may decide

    /// Paints one cell with GetCanvas(), whose font and brush are the grid's and within whose clip region `rect`, the
    /// cell without its lines, lies.
    virtual void DrawCell(int column, int row, const TRect& rect, TGridDrawState state) = 0;
    /// Paints what is left of the title row beside the last column.
    virtual void DrawTitleRest(const TRect& rect) { (void)rect; }
    virtual TGridDrawState StateOf(TGridCoord cell) const;
    /// Whether a person may size and drag columns.
    virtual bool CanResizeColumns() const { return true; }
    virtual bool CanHotTrack() const { return false; }
    virtual bool CanPressTitles() const { return false; }
    /// A person or the program changed the widths; the geometry is up to date.
    virtual void ColWidthsChanged() {}
    /// A person gave a column another width.
    virtual void ColumnResized(int column, int width) = 0;
    /// A divider was clicked twice: the column is to become as wide as what it shows.
    virtual void FitColumn(int column) = 0;
    /// A person dragged a column to the place of another one.
    virtual void ColumnDragged(int from, int to) = 0;
    virtual void TitleClick(int column) { (void)column; }
    /// How many rows fit has changed, as the size did.
    virtual void VisibleRowsChanged() {}
    /// Brings the scroll bars up to date; here the horizontal one.
    virtual void UpdateScrollBar();
    virtual void VerticalScroll(int code) { (void)code; }

    // Editing in place. The editor lies on the cell with the focus.

    virtual bool CanEditShow() const { return false; }
    /// A person is about to change what is being edited; false when he may not.
    virtual bool CanEditModify() { return false; }
    virtual bool CanEditAccept(char16_t unit) const;
    /// What the editor begins with.
    virtual void PrepareEditor(TInplaceEdit& editor) = 0;
    /// Takes over what was entered before the editor goes; raises when it cannot be.
    virtual void StoreEditor() {}
    /// The height of a line in the editor.
    virtual int EditorTextHeight() const = 0;
    /// Whether the arrow keys end at the edges of the text, or go on to the next cell there.
    virtual bool EditorKeepsArrows() const { return true; }
    /// What screen readers call the editor.
    virtual String EditorName() const { return {}; }
    /// A person has changed the text in the editor.
    virtual void EditorChanged() {}
    /// The editor lost the focus, perhaps to another program.
    virtual void EditorLeft() {}
    /// Pixels at the far edge of the cell that the editor leaves free.
    virtual int EditorRoomForButton() const { return 0; }

    void ShowEditor();
    /// Shows the editor and hands it the character that was typed.
    void ShowEditorChar(char16_t unit);
    /// Puts the editor away; what was entered and not stored is lost.
    void HideEditor();
    /// Brings the editor to its cell's place, or puts it away where the cell cannot be seen.
    void PlaceEditor();
    TInplaceEdit* GetInplaceEditor() const { return FEditor; }

    bool IsDragging() const { return FDrag != TDrag::None; }
    void CancelDrag();
    /// The rows by which a turn of the wheel moves, downwards when positive.
    int WheelLines(int delta);

private:
    friend class TInplaceEdit;

    enum class TDrag { None, Press, Size, Move };

    void UpdateClient();
    void HorizontalScroll(int code);
    void PaintRow(int row, const TRect& area);
    void PaintCell(TGridCoord cell, const TRect& shown);
    void PaintLines(TGridCoord cell);
    void PaintDragMark();
    void SetHotTitle(int column);
    void BeginTitleDrag(int x, int y, bool twice);
    void FinishDrag(int x, int y);
    void SetPressed(bool value);

    TGridGeometry FGeometry;
    TGridLines FLines;
    TGridCoord FFocusCell;
    TInplaceEdit* FEditor = nullptr; // made when it is first needed; this component owns it
    TWheelSteps FWheel;
    unsigned FVersion = 0; // of the geometry, so that a painting sees that it has changed
    int FHotTitle = -1;
    int FDragColumn = -1;
    int FDropColumn = -1;
    int FDragStart = 0; // where the button went down
    int FGripOffset = 0;
    TDrag FDrag = TDrag::None;
    TBorderStyle FBorderStyle = bsSingle;
    bool FPressed = false; // the pointer lies on the title that was pressed
    bool FEditorMode = false;
    bool FReleasing = false; // the button has gone up, and the mouse is let go
    bool FHidingEditor = false;
    bool FUpdatingBars = false;
};

} // namespace framework
