#pragma once

// The data grid: a table of the records of a dataset around the active one, with a column for each field. A person
// moves through the records, edits them in place, adds and deletes, and sizes and moves the columns.

#include "framework/db/datalinks.h"
#include "framework/dbgrid/dbgridcolumns.h"
#include "framework/windows/wincontrol.h"

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

class TCustomDBGrid : public TCustomControl {
    FRAMEWORK_CLASS(TCustomDBGrid)

public:
    FRAMEWORK_PROPERTY(TDBGridColumns*, Columns, GetColumns, SetColumns);
    FRAMEWORK_PROPERTY(TDataSource*, DataSource, GetDataSource, SetDataSource);
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
    FRAMEWORK_PROPERTY(TFont*, TitleFont, GetTitleFont, SetTitleFont);

    explicit TCustomDBGrid(TComponent* owner);
    ~TCustomDBGrid() override;

    TDBGridColumns* GetColumns() const { return FColumns.get(); }
    void SetColumns(TDBGridColumns* value) { FColumns->Assign(value); }
    TDataSource* GetDataSource() const;
    void SetDataSource(TDataSource* value);
    /// Null without a data source, or when that has none.
    TDataSet* GetDataSet() const;
    /// The data source is enabled and its dataset open.
    bool IsDataActive() const;
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

    void ChangeScale(int m, int d) override;

protected:
    void Loaded() override;
    void Notification(TComponent* component, TOperation operation) override;
    void CMFontChanged(TMessage& message) override;

    /// The columns, their widths or what they show have changed: brings everything into line.
    virtual void LayoutChanged();

private:
    friend class TDBGridColumns;
    friend class TGridDataLink;

    void ColumnsChanged(TColumn* column);
    void ColumnLeaves(int index);
    void ActiveChanged();

    std::unique_ptr<TDBGridColumns> FColumns;
    std::unique_ptr<TGridDataLink> FDataLink;
    mutable TFollowingFont FTitleFont;
    int FSelectedIndex = 0;
    TColor FFixedColor = clBtnFace;
    TColor FGradientStartColor = clWhite;
    TColor FGradientEndColor = clBtnFace;
    TDBGridOptions FOptions = DefaultDBGridOptions;
    TGridDrawingStyle FDrawingStyle = gdsThemed;
    bool FReadOnly = false;
};

class TDBGrid : public TCustomDBGrid {
    FRAMEWORK_CLASS(TDBGrid)

public:
    explicit TDBGrid(TComponent* owner) : TCustomDBGrid(owner) {}
};

/// Makes the data grid known to text forms.
void RegisterDBGrid();

} // namespace framework
