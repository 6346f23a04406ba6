#pragma once

// The data grid: a table of the records of a dataset around the active one, with a column for each field. A person
// moves through the records, edits them in place, adds and deletes, and sizes and moves the columns.

#include "framework/db/datalinks.h"
#include "framework/dbgrid/bookmarklist.h"
#include "framework/dbgrid/dbgridcolumns.h"
#include "framework/dbgrid/grids.h"
#include "framework/graphics/canvas.h"
#include "framework/graphics/checkmarks.h"

namespace framework {

enum TDBGridOption {
    dgEditing,             ///< the records can be edited, added and deleted
    dgAlwaysShowEditor,    ///< the cell with the focus is always being edited
    dgTitles,              ///< the columns have titles
    dgIndicator,           ///< a first column marks the active record and its state
    dgColumnResize,        ///< columns can be resized and moved
    dgColLines,            ///< lines between the columns
    dgRowLines,            ///< lines between the rows
    dgTabs,                ///< Tab goes from cell to cell
    dgRowSelect,           ///< the whole row is selected; nothing is edited
    dgAlwaysShowSelection, ///< the cell with the focus is marked while the grid does not have it
    dgConfirmDelete,       ///< Ctrl+Del asks before it deletes
    dgCancelOnExit,        ///< a new record into which nothing was entered goes when the grid is left
    dgMultiSelect,         ///< several records can be selected, see SelectedRows
    dgTitleClick,          ///< titles can be clicked, see OnTitleClick
    dgTitleHotTrack,       ///< the title under the pointer lights up
};
using TDBGridOptions = Set<TDBGridOption>;
const TEnumInfo& DescribeEnum(TDBGridOption);

inline constexpr TDBGridOptions DefaultDBGridOptions{dgEditing,      dgTitles,     dgIndicator,    dgColumnResize,
                                                     dgColLines,     dgRowLines,   dgTabs,         dgConfirmDelete,
                                                     dgCancelOnExit, dgTitleClick, dgTitleHotTrack};

/// How titles and the indicator column are painted.
enum TGridDrawingStyle {
    gdsClassic,  ///< raised, in FixedColor
    gdsThemed,   ///< as the system paints the headers of its lists
    gdsGradient, ///< a run of colours from GradientStartColor to GradientEndColor
};
const TEnumInfo& DescribeEnum(TGridDrawingStyle);

/// The width in pixels of a column that shows no field.
inline constexpr int kDefaultColumnWidth = 64;
/// Pixels between the edges of a cell and its text.
inline constexpr int kCellMargin = 3;

class TGridDataLink;
class TPickListWindow;

using TDBGridClickEvent = std::function<void(TColumn* Column)>;
using TMovedEvent = std::function<void(TObject* Sender, int FromIndex, int ToIndex)>;
/// The canvas of the grid has the font and the brush of the cell; while it is called the fields read the cell's record.
using TDrawColumnCellEvent =
    std::function<void(TObject* Sender, const TRect& Rect, int DataCol, TColumn* Column, TGridDrawState State)>;
using TDrawDataCellEvent = std::function<void(TObject* Sender, const TRect& Rect, TField* Field, TGridDrawState State)>;

class TCustomDBGrid : public TCustomGrid {
    FRAMEWORK_CLASS(TCustomDBGrid)

public:
    FRAMEWORK_READ_PROPERTY(TCanvas*, Canvas, GetCanvas);
    FRAMEWORK_PROPERTY(TDBGridColumns*, Columns, GetColumns, SetColumns);
    FRAMEWORK_PROPERTY(TDataSource*, DataSource, GetDataSource, SetDataSource);
    FRAMEWORK_PROPERTY(bool, DefaultDrawing, GetDefaultDrawing, SetDefaultDrawing);
    FRAMEWORK_PROPERTY(TGridDrawingStyle, DrawingStyle, GetDrawingStyle, SetDrawingStyle);
    FRAMEWORK_READ_PROPERTY(int, FieldCount, GetFieldCount);
    FRAMEWORK_READ_PROPERTY(TField*, Fields[], GetFields);
    FRAMEWORK_PROPERTY(TColor, FixedColor, GetFixedColor, SetFixedColor);
    FRAMEWORK_PROPERTY(TColor, GradientEndColor, GetGradientEndColor, SetGradientEndColor);
    FRAMEWORK_PROPERTY(TColor, GradientStartColor, GetGradientStartColor, SetGradientStartColor);
    FRAMEWORK_PROPERTY(TDBGridOptions, Options, GetOptions, SetOptions);
    FRAMEWORK_PROPERTY(bool, ReadOnly, GetReadOnly, SetReadOnly);
    FRAMEWORK_PROPERTY(TField*, SelectedField, GetSelectedField, SetSelectedField);
    FRAMEWORK_PROPERTY(int, SelectedIndex, GetSelectedIndex, SetSelectedIndex);
    FRAMEWORK_READ_PROPERTY(TBookmarkList&, SelectedRows, GetSelectedRows);
    FRAMEWORK_PROPERTY(TFont*, TitleFont, GetTitleFont, SetTitleFont);

    /// A cell was clicked with the left button.
    TDBGridClickEvent OnCellClick;
    /// Another column has the focus now, or is about to.
    TNotifyEvent OnColEnter;
    TNotifyEvent OnColExit;
    /// A person dragged a column. The places are counted from 1, as if the indicator were a column.
    TMovedEvent OnColumnMoved;
    /// After the cell was painted, with DefaultDrawing; otherwise it takes the place of that.
    TDrawColumnCellEvent OnDrawColumnCell;
    /// The same before, for grids whose columns were not customized.
    TDrawDataCellEvent OnDrawDataCell;
    /// The button of a column with cbsEllipsis was clicked, or Ctrl+Enter pressed.
    TNotifyEvent OnEditButtonClick;
    TDBGridClickEvent OnTitleClick;

    explicit TCustomDBGrid(TComponent* owner);
    ~TCustomDBGrid() override;

    /// Only while something is being painted.
    using TCustomGrid::GetCanvas;
    TDBGridColumns* GetColumns() const { return FColumns.get(); }
    void SetColumns(TDBGridColumns* value) { FColumns->Assign(value); }
    TDataSource* GetDataSource() const;
    void SetDataSource(TDataSource* value);
    /// Null without a data source, or when that has none.
    TDataSet* GetDataSet() const;
    /// The data source is enabled and its dataset open.
    bool IsDataActive() const;
    /// Whether cells are painted before OnDrawColumnCell is called.
    bool GetDefaultDrawing() const { return FDefaultDrawing; }
    void SetDefaultDrawing(bool value);
    TGridDrawingStyle GetDrawingStyle() const { return FDrawingStyle; }
    void SetDrawingStyle(TGridDrawingStyle value);
    /// As many as there are columns.
    int GetFieldCount() const { return FColumns->GetCount(); }
    /// The field of the column with this index; null when it shows none. EListError when there is no such column.
    TField* GetFields(int index) const { return FColumns->GetColumn(index)->GetField(); }
    /// Of the titles and the indicator column, where DrawingStyle goes by it.
    TColor GetFixedColor() const { return FFixedColor; }
    void SetFixedColor(TColor value);
    TColor GetGradientEndColor() const { return FGradientEndColor; }
    void SetGradientEndColor(TColor value);
    TColor GetGradientStartColor() const { return FGradientStartColor; }
    void SetGradientStartColor(TColor value);
    TDBGridOptions GetOptions() const { return FOptions; }
    virtual void SetOptions(TDBGridOptions value);
    /// Whether a person may only look.
    bool GetReadOnly() const { return FReadOnly; }
    void SetReadOnly(bool value);
    /// The field of the column with the focus; null when there is none. A field that no column shows is ignored.
    TField* GetSelectedField() const;
    void SetSelectedField(TField* value);
    /// The index of the column with the focus; an index outside goes to the nearest column.
    int GetSelectedIndex() const { return FSelectedIndex; }
    void SetSelectedIndex(int value);
    /// Of the titles of all columns that have none of their own. The grid's font unless changed.
    TFont* GetTitleFont() const { return FTitleFont.Get(GetFont()); }
    void SetTitleFont(TFont* value) { GetTitleFont()->Assign(value); }
    bool TitleFontStored() const { return FTitleFont.IsAssigned(); }
    bool ColumnsStored() const { return FColumns->IsCustomized(); }

    /// With dgMultiSelect, the records that are selected.
    TBookmarkList& GetSelectedRows() { return FSelectedRows; }

    /// Paints a cell as the grid would, with the canvas's font and brush as they are: for handlers of OnDrawColumnCell.
    void DefaultDrawColumnCell(const TRect& rect, int dataCol, TColumn* column, TGridDrawState state);
    void DefaultDrawDataCell(const TRect& rect, TField* field, TGridDrawState state);
    /// Paints a title as the grid would, for programs that paint theirs: null paints one without a caption.
    void DefaultDrawTitle(const TRect& rect, TColumn* column, TGridDrawState state);
    /// Pixels, the line below included.
    int GetDefaultRowHeight() const { return FRowHeight; }
    /// The place of a cell of a column in the client area, by the row on the screen from 0, titles aside.
    TRect DataCellRect(int column, int row) const { return CellRect(column + IndicatorOffset(), row + TitleOffset()); }
    /// How many records show.
    int GetShownRowCount() const;
    /// The place of a title.
    TRect TitleRect(int column) const { return CellRect(column + IndicatorOffset(), 0); }
    /// Whether the list of the column's choices is open.
    bool GetListVisible() const;

    void ChangeScale(int m, int d) override;

protected:
    void CreateWnd() override;
    void Dispatch(TMessage& message) override;
    void Loaded() override;
    void Notification(TComponent* component, TOperation operation) override;
    void CMFontChanged(TMessage& message) override;
    void CMExit(TMessage& message) override;
    void KeyDown(WORD& key, TShiftState shift) override;
    void KeyPress(char16_t& key) override;
    void MouseDown(TMouseButton button, TShiftState shift, int x, int y) override;
    void MouseUp(TMouseButton button, TShiftState shift, int x, int y) override;
    bool DoMouseWheel(TShiftState shift, int wheelDelta, TPoint mousePos) override;

    void DrawCell(int column, int row, const TRect& rect, TGridDrawState state) override;
    void DrawTitleRest(const TRect& rect) override;
    TGridDrawState StateOf(TGridCoord cell) const override;
    bool CanResizeColumns() const override { return FOptions.Contains(dgColumnResize); }
    bool CanHotTrack() const override { return FOptions.Contains(dgTitleHotTrack) && GetEnabled(); }
    bool CanPressTitles() const override { return FOptions.Contains(dgTitleClick) && IsDataActive(); }
    void ColumnResized(int column, int width) override;
    void ColumnDragged(int from, int to) override;
    void FitColumn(int column) override;
    void TitleClick(int column) override;
    void VisibleRowsChanged() override;
    void UpdateScrollBar() override;
    void VerticalScroll(int code) override;
    bool CanEditShow() const override;
    bool CanEditModify() override;
    bool CanEditAccept(char16_t unit) const override;
    void PrepareEditor(TInplaceEdit& editor) override;
    void StoreEditor() override;
    int EditorTextHeight() const override;
    int EditorRoomForButton() const override;
    bool EditorKeepsArrows() const override { return !FOptions.Contains(dgAlwaysShowEditor); }
    void EditorChanged() override;
    void EditorLeft() override { CloseList(false); }
    String EditorName() const override;

    /// The columns, their widths or what they show have changed: brings everything into line.
    virtual void LayoutChanged();
    /// Asks whether the active record, or all selected ones, may be deleted.
    virtual bool ConfirmDelete(bool selectedOnes);
    virtual void ColEnter();
    virtual void ColExit();
    virtual void CellClick(TColumn* column);
    virtual void EditButtonClick();

    /// 1 with the indicator column, else 0: what cells have to be counted on by to get from columns to their numbers.
    int IndicatorOffset() const { return FOptions.Contains(dgIndicator) ? 1 : 0; }
    int TitleOffset() const { return FOptions.Contains(dgTitles) ? 1 : 0; }
    /// The column of a cell's number; null for the indicator and outside.
    TColumn* ColumnOfCell(int cell) const;
    TDataLink& GetDataLink() const;

private:
    friend class TBookmarkList;
    friend class TColumn;
    friend class TDBGridAccessible;
    friend class TDBGridColumns;
    friend class TGridDataLink;
    friend class TPickListWindow;

    /// Looks that last as long as the theme.
    struct TLooks {
        TCheckPainter Boxes;
        TThemeHandle Header;
        TThemeHandle Arrow;
        TThemeHandle Button;
    };
    class TRowScope;
    static constexpr UINT kLayoutMessage = WM_USER + 0x310; // posted, see PutOff

    // What the link and the columns tell
    void ColumnsChanged(TColumn* column);
    void ColumnLeaves(int index);
    void ActiveChanged();
    void DataChanged();
    void DataScrolled(int rows);
    void RecordChanged(TField* field);
    void EditingChanged();
    void FocusField(TField* field);
    /// Whether another record is being read for the moment; then everything is brought into line afterwards.
    bool PutOff();

    void FollowFocusColumn();
    void SetFocusColumn(int index);
    int ShownColumn(int index) const;
    void LeaveStrayEditor();
    void MeasureRows();
    void UpdateRows();
    void ShowEditorAgain();

    // Painting
    TLooks& Looks();
    void DrawIndicator(int row, const TRect& rect);
    void DrawFixedBackground(const TRect& rect, TGridDrawState state, const TColumn* column);
    void DrawDataCell(TColumn* column, int row, const TRect& rect, TGridDrawState state);
    void WriteFieldText(const TRect& rect, TField* field, TAlignment alignment);
    void WriteText(const TRect& rect, const String& text, TAlignment alignment);
    void DrawBox(const TRect& rect, TField* field);
    void DrawCellButton(const TColumn& column, const TRect& rect);
    bool ShowsBox(const TColumn& column) const;

    // Screen readers
    bool AnswerAccessible(TMessage& message);
    void TellFocus();

    // Keys and the mouse
    bool HandleKey(WORD key, TShiftState shift);
    bool HandleControlKey(WORD key, bool shifted);
    bool TabKey(bool forward);
    bool CanLeaveByTab(bool forward) const;
    void CancelEditing();
    void GoToColumn(int index);
    bool StepColumn(int step);
    void GoToEndColumn(bool last);
    // False where there is no other record.
    bool NextRow(bool select);
    bool PriorRow(bool select);
    void MoveRows(int distance);
    void GoToRow(int row);
    void GoToEndRow(bool last, bool select);
    void GoToNumber(int number, int count);
    void InsertRecord();
    void DeleteRecord();
    bool CanChangeRecords() const;
    void ClickDataCell(TGridCoord cell, TShiftState shift, bool again);
    /// A record was begun, and nothing has been entered into it.
    bool IsUntouchedInsert() const;
    void SelectByClick(TShiftState shift, const TBookmark& from);
    void SelectFromAnchor();
    bool SelectStep(int step);
    bool SelectRows(bool select, int distance);
    bool WantsKey(WORD key) const;

    // Editing
    bool CanEditColumn(const TColumn& column) const;
    bool BeginEditing();
    void ToggleBox();
    bool EmptyCell();
    void RefreshEditor();
    bool HasButton(const TColumn& column) const;
    TRect ButtonRect() const;
    TRect FocusOnScreen() const;
    void OpenList();
    void CloseList(bool accept);
    void StepList(int distance);
    bool ListKey(WORD key, TShiftState shift);

    std::unique_ptr<TDBGridColumns> FColumns;
    std::unique_ptr<TGridDataLink> FDataLink;
    std::unique_ptr<TLooks> FLooks;
    mutable TFollowingFont FTitleFont;
    TBookmarkList FSelectedRows{*this};
    TPickListWindow* FListWindow = nullptr; // made when it is first needed; this component owns it
    TGridCoord FPressedCell;
    TBookmark FSelectAnchor;         // where Shift began to select, as long as that is selected
    TField* FEditedField = nullptr;  // whose value the editor shows
    TColumn* FFocusColumn = nullptr; // as long as its token says that it lives
    std::weak_ptr<const void> FFocusColumnLife;
    int FSelectedIndex = 0;
    int FScopes = 0; // that read other records, see TRowScope
    int FRowHeight = 17;
    int FTitleHeight = 17;
    TColor FFixedColor = clBtnFace;
    TColor FGradientStartColor = clWhite;
    TColor FGradientEndColor = clBtnFace;
    TDBGridOptions FOptions = DefaultDBGridOptions;
    TGridDrawingStyle FDrawingStyle = gdsThemed;
    bool FReadOnly = false;
    bool FDefaultDrawing = true;
    bool FButtonPressed = false;
    bool FLayoutPending = false;
    bool FBegunHere = false; // the pending record was begun by a person at this grid
    bool FAppended = false;  // the record that is being inserted stands behind the last one
};

/// The rows that data grids publish, for their own tables.
namespace dbgridrows {
TPropRows All();
} // namespace dbgridrows

class TDBGrid : public TCustomDBGrid {
    FRAMEWORK_CLASS(TDBGrid)

public:
    explicit TDBGrid(TComponent* owner) : TCustomDBGrid(owner) {}
};

/// Makes the data grid known to text forms.
void RegisterDBGrid();

} // namespace framework
