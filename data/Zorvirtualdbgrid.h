#pragma once

// The virtual data grid: a read-only table with one row for each record of a dataset, in which a person looks around
// and selects any number of rows. The columns are those of an ordinary data grid, which is kept out of sight; what is
// dragged and sized here is written back to them. A footer below the rows shows the totals of the columns.
//
// A program knows rows by their keys, a number and a GUID that come from two fields, not by their places. The grid
// keeps a bookmark and the key for each row and nothing of its texts: these are read from the dataset while they are
// painted, without moving it. The rows are read anew when their number has changed, see BuildTree.

#include "data/Zorvirtualdbgrid_rules.h"
#include "framework/db/adodataset.h"
#include "framework/dbgrid/dbgrid.h"
#include "framework/graphics/checkmarks.h"
#include "framework/vtree/stringtree.h"

#include <map>
#include <optional>

namespace ZOR {

class TVirtualDBGridDataLink;

using TVTDrawTextNodeEvent =
    std::function<void(TBaseVirtualTree* Sender, const TVTPaintInfo& PaintInfo, const String& _text)>;
using TVTGetFooterText = std::function<void(String& _text, TColumn* _grid_col, const Variant& _wart)>;

/// What the grid keeps of a row beside its node: 32 bytes.
struct TVirtualDBGridRow {
    TBookmark Bookmark;         ///< of the record; empty while it has not been read
    std::intptr_t Tag = 0;      ///< for the program
    std::int32_t Number = 0;    ///< of the record when it was read, from 1
    std::uint32_t PoolPart = 0; ///< where its memory comes from
};
static_assert(sizeof(TVirtualDBGridRow) == 32);

#pragma pack(push, 4)
/// The data of a node: GetNodeData<TVirtualDBGridNode>(node).
struct TVirtualDBGridNode {
    TVirtualDBGridRow* Row = nullptr;
    TGUID guid;
    std::int32_t id = 0;
};
#pragma pack(pop)
inline constexpr int VirtualDBGridNodeSize = 28;
static_assert(sizeof(TVirtualDBGridNode) == VirtualDBGridNodeSize);

/// What a handler of OnFooterDraw may want to know of the cell that it paints.
struct TFooterPaintInfo {
    TCanvas* TargetCanvas = nullptr;
    TVirtualTreeColumn* Column = nullptr;
    TRect PaintRectangle;
    UINT Edge = 0;        ///< of DrawEdge, as the footer's style has it for a frame around the cell
    UINT BorderFlags = 0; ///< the same
};

class TZORVirtualDBGrid : public TVirtualDrawTree {
    FRAMEWORK_CLASS(TZORVirtualDBGrid)

public:
    FRAMEWORK_PROPERTY(TDBGridColumns*, Columns, GetColumns, SetColumns);
    FRAMEWORK_READ_PROPERTY(TField*, Fields[], GetFields);
    FRAMEWORK_PROPERTY(TField*, SelectedField, GetSelectedField, SetSelectedField);
    FRAMEWORK_READ_PROPERTY(String, SelectedFieldName, GetSelectedFieldName);
    FRAMEWORK_PROPERTY(TDataSource*, DataSource, GetDataSource, SetDataSource);
    FRAMEWORK_PROPERTY(TColor, FixedColor, GetFixedColor, SetFixedColor);
    FRAMEWORK_PROPERTY(TColor, GradientEndColor, GetGradientEndColor, SetGradientEndColor);
    FRAMEWORK_PROPERTY(TFont*, TitleFont, GetTitleFont, SetTitleFont);
    FRAMEWORK_PROPERTY(String, id_column_name, GetIdColumnName, SetIdColumnName);
    FRAMEWORK_PROPERTY(String, guid_column_name, GetGuidColumnName, SetGuidColumnName);
    FRAMEWORK_PROPERTY(bool, ColumnFocusLocked, Get_ColumnFocusLocked, Set_ColumnFocusLocked);
    FRAMEWORK_PROPERTY(bool, CheckMode, GetCheckMode, SetCheckMode);
    FRAMEWORK_PROPERTY(TVTHeader*, Footer, GetFooter, SetFooter);
    FRAMEWORK_READ_PROPERTY(int, DefaultRowHeight, GetDefaultRowHeight);
    FRAMEWORK_READ_PROPERTY(std::shared_ptr<_Recordset>, Recordset, Get_Recordset);

    // OnDrawNode is taken by the grid's own drawing; a handler takes its place.

    /// Draws the text of a cell in place of the grid. Fields read the record of the row meanwhile, and the canvas has
    /// the font and colour that the grid would take. True and False come as "#B1" and "#B0".
    TVTDrawTextNodeEvent OnDrawTextNode;
    /// May change what a cell of the footer says; asked for every visible column, also those without a total, whose
    /// text is empty and whose value is Null.
    TVTGetFooterText OnGetFooterText;
    /// A row has been read; the dataset stands on its record.
    TVTInitNodeEvent AfterInitNode;
    /// Paints a cell of the footer, whose text is that of the column it is given. Without it only the background shows;
    /// DrawFooterTotals is a handler that shows the totals.
    TVTHeaderPaintEvent OnFooterDraw;

    explicit TZORVirtualDBGrid(TComponent* owner);
    ~TZORVirtualDBGrid() override;

    // The columns. They belong to a data grid that nobody sees; this grid follows what is done to them.

    TDBGridColumns* GetColumns() const { return FHolder->GetColumns(); }
    void SetColumns(TDBGridColumns* value) { FHolder->SetColumns(value); }
    /// The field of the column with this index; null when it shows none. EListError when there is no such column.
    TField* GetFields(int index) const { return FHolder->GetFields(index); }
    TColor GetFixedColor() const { return FHolder->GetFixedColor(); }
    /// Also becomes the background of header and footer.
    void SetFixedColor(TColor value);
    TColor GetGradientEndColor() const { return FHolder->GetGradientEndColor(); }
    void SetGradientEndColor(TColor value) { FHolder->SetGradientEndColor(value); }
    /// Of the header's captions, once it is changed.
    TFont* GetTitleFont() const { return FHolder->GetTitleFont(); }
    void SetTitleFont(TFont* value) { FHolder->SetTitleFont(value); }
    bool TitleFontStored() const { return FHolder->TitleFontStored(); }
    bool ColumnsStored() const { return GetColumns()->GetState() == csCustomized; }
    /// The column that shows the field of this name, letter case aside; null when none does.
    TColumn* Get_Column(const String& name) const;
    /// The first of the columns, in the order of their indexes, that ends right of `x` in client pixels; -1 when none
    /// does.
    int GetColumnByX(int x);

    // The data

    TDataSource* GetDataSource() const;
    void SetDataSource(TDataSource* value);
    /// The dataset; null without one.
    TDataSet* GetDataSet() const;
    /// The rows of the dataset; null unless it is an open ADO dataset.
    std::shared_ptr<_Recordset> Get_Recordset() const;
    /// The fields from which the keys of rows come. A number that has no place in 32 bits is no key; a GUID may also be
    /// a text, or 16 bytes as they lie in memory. After a change the rows are read anew with the next painting.
    const String& GetIdColumnName() const { return FKeyFields[0].Name; }
    void SetIdColumnName(const String& value) { SetKeyName(FKeyFields[0], value); }
    bool IdColumnNameStored() const { return FKeyFields[0].Name != kIdColumnName; }
    const String& GetGuidColumnName() const { return FKeyFields[1].Name; }
    void SetGuidColumnName(const String& value) { SetKeyName(FKeyFields[1], value); }
    bool GuidColumnNameStored() const { return FKeyFields[1].Name != kGuidColumnName; }

    // The rows

    /// Brings columns and rows into line with an open dataset; see RefreshColumns and RefreshRows. It is called when
    /// the dataset opens and before it moves, and when the grid is painted after the number of records has changed.
    void BuildTree();
    /// Takes the columns over into header and footer.
    void RefreshColumns();
    /// Reads all rows anew if the number of records has changed, or the dataset was opened or shows other ones since.
    /// Otherwise rows and totals stay: after Refresh each row gets the record at its place, and only if that has
    /// another key, all are read anew.
    void RefreshRows();
    /// Reads all rows and totals anew. Selection and focus stay with their records, and where these were fetched again
    /// too, with the keys of their rows.
    void Reload();
    int GetDefaultRowHeight() const { return GetDefaultNodeHeight(); }
    /// The text of a cell: as the field displays it, "#B1" and "#B0" for True and False. Empty when the record is gone
    /// or the dataset closed. Goes to the record, controls disabled, and stays there, unless the grid is being painted
    /// or a record is being edited.
    String Get_NodeCaption(TVirtualNode* node, int column);
    /// What a person reads there; the dataset does not move.
    String NodeText(TVirtualNode* node, TColumnIndex column) override;
    /// The key of a row, and its record's bookmark.
    TRowId GetRowId(TVirtualNode* node) const;
    TBookmark GetRowBookmark(TVirtualNode* node) const;
    // Totals, selection and keys are asked for with rows in line: what was posted or deleted before counts.

    /// The sum of a column's values; Null when it has none.
    Variant GetColumnTotal(TColumn* column);
    /// Its digits, all of them; empty without one. OnGetFooterText begins with the value as VarToStr writes it,
    /// which may have other zeros at its end.
    String GetPlainTotal(TColumn* column);
    /// The sum as the column's field would show it.
    String FormatColumnTotal(TColumn* column);

    // Selection and focus

    /// Adds the keys of all selected rows in their order, or without any that of the first row.
    void Get_Selected(std::vector<TRowId>* selected);
    int Get_SelectedCount();
    /// The first selected row, or without any the first row; null when there is none.
    TVirtualNode* Get_FirstSelectedNode();
    // These take the place of what was selected. The first row that is meant gets the focus and comes into view.
    /// Nothing happens unless the number is above 0.
    void Set_Selected(int id);
    void Set_Selected(int id, const TGUID& guid);
    /// All rows with one of these keys.
    void Set_Selected(const std::vector<TRowId>& rows);
    void Set_Selected(TVirtualNode* node);

    /// The column that the grid keeps focused.
    int Get_FocusedColumn();
    void Set_FocusedColumn(int index);
    bool Get_ColumnFocusLocked() const { return FColumnFocusLocked; }
    /// While locked, no click and no key gives the focus to another column.
    void Set_ColumnFocusLocked(bool value);
    /// That of the focused column; null when it shows none.
    TField* GetSelectedField() const;
    void SetSelectedField(TField* value);
    String GetSelectedFieldName() const;
    /// The main column is a narrow one with a check box for each row. It cannot be moved and shows no data.
    bool GetCheckMode() const { return FCheckMode; }
    void SetCheckMode(bool value);

    // Hints. Columns in which a text was cut off when it was painted show it in full with HintMode hmHint.

    bool IsHintColumn(int column) const;
    void ClearHintColumns() { FHintColumns.clear(); }

    // The footer

    TVTHeader* GetFooter() const { return FFooter.get(); }
    void SetFooter(TVTHeader* value);
    /// The footer in window pixels; without height while it does not show.
    TRect GetFooterRect() const;
    /// Where the text of a footer column goes in its cell, for handlers of OnFooterDraw. `text` stays as it is when the
    /// column has none. `dc` has the font.
    void ComputeFooterLayout(const TVirtualTreeColumn& column, HDC dc, const TRect& cell, TRect& text) const;
    /// Draws what the column's footer says, a total as the column's field shows its values, in line with the texts
    /// above and with a line behind it.
    void DrawFooterCell(TCanvas& canvas, const TVirtualTreeColumn& column, const TRect& cell);
    /// For handlers of OnFooterDraw, while they are called.
    const TFooterPaintInfo& GetFooterPaintInfo() const { return FFooterPaintInfo; }

    /// The grid's own drawing of a cell.
    void FDrawNode(TBaseVirtualTree* sender, const TVTPaintInfo& paintInfo);

    void ChangeScale(int m, int d) override;

protected:
    void DoInitNode(TVirtualNode* parent, TVirtualNode* node, TVirtualNodeInitStates& initialStates) override;
    void DoFreeNode(TVirtualNode* node) override;
    int DoGetNodeWidth(TVirtualNode* node, TColumnIndex column) override;
    String DoGetNodeHint(TVirtualNode* node, TColumnIndex column) override;
    void DoFocusChange(TVirtualNode* node, TColumnIndex column) override;
    TColumnIndex ColumnToFocus(TColumnIndex column) const override;
    void DoPaintNode(TVTPaintInfo& info) override;
    void DoScroll(int deltaX, std::int64_t deltaY) override;
    void DoColumnResize(TColumnIndex column) override;
    bool DoHeaderDragging(TColumnIndex column) override;
    void DoHeaderDragged(TColumnIndex column, int oldPosition) override;
    void HeaderChanged(TVTHeader& header, bool places) override;
    void WMNCCalcSize(TMessage& message) override;
    void WMNCPaint(TMessage& message) override;
    void Dispatch(TMessage& message) override;
    void PaintWindow(HDC dc) override;
    void Loaded() override;
    void CMFontChanged(TMessage& message) override;
    void CMEnabledChanged(TMessage& message) override;

    /// Paints all of the footer into `rect`; the first column begins `offset` pixels from its near edge.
    virtual void PaintFooter(HDC dc, const TRect& rect, int offset);

private:
    friend class TVirtualDBGridDataLink;

    static constexpr StringView kIdColumnName = u"id";
    static constexpr StringView kGuidColumnName = u"guid";

    class TColumnHolder;
    struct TOwnDrawing;
    struct TWalk;
    struct TPainting;
    struct TTotal {
        int ColumnID = 0; // addresses of columns come back, these do not
        String FieldName;
        TColumnTotal Sum;
    };
    enum class TReading { Due, BrokenOff, Done };
    /// The last reading of the records.
    struct TReadRecords {
        TReading State = TReading::Due;
        int Count = 0;         // of rows that have a record; the others, which do not show, come behind them
        TBookmark First, Last; // of those
        unsigned View = 0;     // of the dataset
    };
    /// The field that one part of the keys comes from.
    struct TKeyField {
        static constexpr int NotSought = -1;
        static constexpr int Absent = -2;
        String Name;
        int Index = NotSought;
    };

    // Zorvirtualdbgrid.cpp
    void InitializeGrid();
    void RemakeColumns(bool all);
    bool MirrorColumns();
    bool MirrorColumn(int index);
    int ShownID(TColumnIndex index) const;
    TColumnIndex PlaceOf(int id, TColumnIndex before) const;
    int KeptColumn() const;
    void FixCheckColumn(TVirtualTreeColumn& column) const;
    void ColumnsChanged();
    void ShowNode(TVirtualNode* node);
    bool IsLeftOver(TVirtualNode* node) const;
    bool SelectRows(const TRowIds& wanted, TVirtualNode* node);
    void ApplyFocusedColumn();
    void OfferBox(TVirtualNode* node);
    template <class TWanted>
    TVirtualNode* FindNode(TWanted wanted);
    template <class TWanted>
    void SelectFirst(TWanted wanted);

    // Zorvirtualdbgrid_rows.cpp
    void DataEvent(TDataEvent event);
    void DataSetReplaced();
    void EndPassing();
    bool IsReady() const;
    bool RowsAreBehind();
    void CatchUp();
    bool WereReadAnew(TDataSet& dataSet) const;
    bool ShowsOtherRecords(TDataSet& dataSet) const;
    void FindAgain(TRowsToFind& selected, TRowsToFind& focused, std::int64_t offset);
    void KeepEnds();
    bool TotalsAreBehind() const;
    bool AreCounted(TDataSet& dataSet) const;
    void ReadRows(TDataSet& dataSet);
    bool ReadBookmarks(TDataSet& dataSet);
    template <class TBody>
    void WalkRecords(TDataSet& dataSet, TBody&& body);
    void PrepareWalk(TWalk& walk);
    bool ReadRecord(TVirtualDBGridNode& data);
    static TRowId ReadKey(const TWalk& walk);
    void HideRowsFrom(unsigned index);
    void SetKeyName(TKeyField& key, const String& name);
    TField* KeyField(TDataSet& dataSet, TKeyField& key) const;
    TVirtualDBGridNode* DataOf(TVirtualNode* node) const;
    void MakeRow(TVirtualDBGridNode& data);
    const TTotal* TotalOf(TColumn* column) const;
    const TTotal* OwnTotalOf(TColumn& column) const;
    const TTotal* PresentTotalOf(TColumn* column);
    TField* FieldOf(int column) const;
    static String CaptionOf(TField* field);
    String CaptionInPassing(TDataSet::TPassingReader& reader, TVirtualNode* node, int column) const;
    String CaptionWhilePainting(TVirtualNode* node, int column);

    // Zorvirtualdbgrid_paint.cpp
    bool DrawsItself() const;
    bool UsesContentRect(const TVTPaintInfo& info) const;
    TFont* FontOf(int column) const;
    TColor ColorOf(const TVTPaintInfo& info) const;
    TColor LettersOf(const TVTPaintInfo& info) const;
    TRect GroundOf(const TVTPaintInfo& info) const;
    bool HasGround(int column, TColor color) const;
    void DrawCaption(const TVTPaintInfo& info, const String& text, HDC dc, bool direct);
    void DrawCheckMark(const TVTPaintInfo& info, HDC dc, bool checked, bool direct) const;
    bool ShowsCheckMark(int column) const;
    bool PrepareFooterTexts();
    void PaintFooterCells(const std::shared_ptr<TCanvas>& canvas, const TRect& rect, int offset);
    void PaintFooterBackground(HDC dc, const TRect& rect) const;
    void PaintFooterBand();
    void InvalidateFooter();
    void FooterChanged();
    int FooterRoom() const { return FFooter->IsVisible() ? FFooter->GetHeight() : 0; }

    std::unique_ptr<TVirtualDBGridDataLink> FDataLink;
    TDBGrid* FHolder = nullptr; // has the columns; owned as a component
    std::unique_ptr<TVTHeader> FFooter;
    std::map<TColumn*, TTotal> FTotals;
    std::vector<std::pair<int, String>> FReadColumns; // IDs and fields of the columns when the rows were read
    std::vector<int> FShownColumns;                   // IDs of the columns that header and footer show
    TKeyField FKeyFields[2] = {{String(kIdColumnName)}, {String(kGuidColumnName)}};
    TNodePool FRowPool{sizeof(TVirtualDBGridRow)};
    std::vector<int> FHintColumns;
    TReadRecords FRead;
    TWalk* FWalk = nullptr;               // while the rows are being read
    std::shared_ptr<TPainting> FPainting; // while they are being painted
    TFooterPaintInfo FFooterPaintInfo;
    int FFocusedColumn = 0;
    int FFooterRoom = 0; // that the window has made
    bool FColumnFocusLocked = false;
    bool FCheckMode = false;
    bool FAddedSupport = false; // options that check mode has changed
    bool FTookIndent = false;
    bool FReading = false;
    bool FMirroring = false;      // columns change because others have
    bool FRemakes = false;        // they are to be made anew
    bool FColumnsChanged = false; // and have not been taken over yet
    bool FMirrored = false;       // the columns are those of the hidden grid, and nobody has touched them since
    bool FFooterDirty = false;
    bool FPaintingFooter = false;
};

/// A handler for OnFooterDraw that shows the totals, see DrawFooterCell.
void DrawFooterTotals(TVTHeader* sender, TCanvas* canvas, TVirtualTreeColumn* column, const TRect& cell, bool hover,
                      bool pressed, TVTDropMarkMode dropMark);

namespace Zorvirtualdbgrid {
/// Puts the grid on the designer's palette.
void Register();
} // namespace Zorvirtualdbgrid

} // namespace ZOR
