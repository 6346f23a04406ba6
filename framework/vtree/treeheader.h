#pragma once

// The header of a virtual tree: a band with a caption for each column, above the rows and outside of what scrolls down.
// A person drags dividers and columns, clicks to sort, and checks the boxes of columns that have one. A header can also
// serve another band of the tree as a set of columns; then it paints nothing by itself.
//
// Columns have two numbers: their index, the place in the collection, and their position, the place on the screen from
// the reading side. TVirtualTreeColumns maps between the two.

#include "framework/system/collections.h"
#include "framework/vtree/treeoptions_rules.h"
#include "framework/windows/columns_rules.h"
#include "framework/windows/control.h"

namespace framework {

class TBaseVirtualTree;
class TVTHeader;
class TVirtualTreeColumns;

class TVirtualTreeColumn : public TCollectionItem {
    FRAMEWORK_CLASS(TVirtualTreeColumn)

public:
    FRAMEWORK_PROPERTY(TAlignment, Alignment, GetAlignment, SetAlignment);
    FRAMEWORK_PROPERTY(bool, CheckBox, GetCheckBox, SetCheckBox);
    FRAMEWORK_PROPERTY(TCheckState, CheckState, GetCheckState, SetCheckState);
    FRAMEWORK_PROPERTY(TCheckType, CheckType, GetCheckType, SetCheckType);
    FRAMEWORK_PROPERTY(TColor, Color, GetColor, SetColor);
    FRAMEWORK_PROPERTY(String, Hint, GetHint, SetHint);
    FRAMEWORK_PROPERTY(int, Margin, GetMargin, SetMargin);
    FRAMEWORK_PROPERTY(int, MaxWidth, GetMaxWidth, SetMaxWidth);
    FRAMEWORK_PROPERTY(int, MinWidth, GetMinWidth, SetMinWidth);
    FRAMEWORK_PROPERTY(TVTColumnOptions, Options, GetOptions, SetOptions);
    FRAMEWORK_PROPERTY(int, Position, GetPosition, SetPosition);
    FRAMEWORK_PROPERTY(TVirtualTreeColumnStyle, Style, GetStyle, SetStyle);
    FRAMEWORK_PROPERTY(std::intptr_t, Tag, GetTag, SetTag);
    FRAMEWORK_PROPERTY(String, Text, GetText, SetText);
    FRAMEWORK_PROPERTY(int, Width, GetWidth, SetWidth);

    explicit TVirtualTreeColumn(TCollection* collection);
    ~TVirtualTreeColumn() override;

    void Assign(TPersistent* source) override;
    void SetIndex(int value) override;
    String GetDisplayName() const override;

    /// Of the texts in the column and, in the same way, of its caption.
    TAlignment GetAlignment() const { return FAlignment; }
    void SetAlignment(TAlignment value);
    /// Whether the caption has a check box; it shows with hoShowImages.
    bool GetCheckBox() const { return FCheckBox; }
    void SetCheckBox(bool value);
    /// Set by the program it fires nothing.
    TCheckState GetCheckState() const { return FCheckState; }
    void SetCheckState(TCheckState value);
    TCheckType GetCheckType() const { return FCheckType; }
    void SetCheckType(TCheckType value);
    /// The background of the column; while coParentColor is on, the tree's.
    TColor GetColor() const;
    void SetColor(TColor value);
    bool ColorStored() const { return !FOptions.Contains(coParentColor); }
    const String& GetHint() const { return FHint; }
    void SetHint(const String& value) { FHint = value; }
    /// Pixels between the column's edges and its caption.
    int GetMargin() const { return FMargin; }
    void SetMargin(int value);
    /// Limits to the width, 0 to 32,767 pixels.
    int GetMaxWidth() const { return FMaxWidth; }
    void SetMaxWidth(int value);
    int GetMinWidth() const { return FMinWidth; }
    void SetMinWidth(int value);
    TVTColumnOptions GetOptions() const { return FOptions; }
    void SetOptions(TVTColumnOptions value);
    bool IsVisible() const { return FOptions.Contains(coVisible); }
    /// The place on the screen, from 0; values outside go to the nearest end. Between the columns as they are while a
    /// form is loaded, taken over when all are there.
    int GetPosition() const { return FPosition; }
    void SetPosition(int value);
    TVirtualTreeColumnStyle GetStyle() const { return FStyle; }
    void SetStyle(TVirtualTreeColumnStyle value);
    std::intptr_t GetTag() const { return FTag; }
    void SetTag(std::intptr_t value) { FTag = value; }
    const String& GetText() const { return FText; }
    void SetText(const String& value);
    /// Pixels, within the limits.
    int GetWidth() const { return FWidth; }
    void SetWidth(int value);

    /// Pixels from the near edge of the first column, and to the far edge of this one.
    int GetLeft() const;
    TVirtualTreeColumns* Owner() const;

private:
    friend class TVirtualTreeColumns;
    friend class TVTHeader;

    template <class TValue>
    void Change(TValue& field, TValue value);
    void NotifyHeader(bool places);

    String FText;
    String FHint;
    std::intptr_t FTag = 0;
    int FWidth = 50;
    int FMinWidth = 10;
    int FMaxWidth = 10000;
    int FMargin = 4;
    int FPosition = -1;
    int FLoadedPosition = -1;
    TColor FColor = clWindow;
    TAlignment FAlignment = taLeftJustify;
    TVTColumnOptions FOptions = DefaultColumnOptions;
    TVirtualTreeColumnStyle FStyle = vsText;
    TCheckType FCheckType = ctCheckBox;
    TCheckState FCheckState = csUncheckedNormal;
    bool FCheckBox = false;
};

class TVirtualTreeColumns : public TCollection {
    FRAMEWORK_CLASS(TVirtualTreeColumns)

public:
    FRAMEWORK_READ_PROPERTY(TVirtualTreeColumn*, Items[], GetColumn);

    explicit TVirtualTreeColumns(TVTHeader* header);

    TPersistent* GetOwner() const override;
    TVTHeader* GetHeader() const { return FHeader; }
    TVirtualTreeColumn* Add() { return static_cast<TVirtualTreeColumn*>(TCollection::Add()); }
    /// EListError when there is no such column.
    TVirtualTreeColumn* GetColumn(int index) const { return static_cast<TVirtualTreeColumn*>(GetItem(index)); }
    bool IsValidColumn(TColumnIndex index) const { return index >= 0 && index < GetCount(); }
    void Assign(TPersistent* source) override;

    /// The column at a position, -1 for a position that there is not.
    TColumnIndex ColumnFromPosition(int position) const;
    /// The visible column at `x` pixels from the near edge of the first one; NoColumn beside all of them.
    TColumnIndex ColumnFromPosition(TPoint point) const;
    /// The visible neighbours on the screen, NoColumn at the ends.
    TColumnIndex GetFirstVisibleColumn() const { return NextVisible(-1, 1); }
    TColumnIndex GetLastVisibleColumn() const { return NextVisible(GetCount(), -1); }
    TColumnIndex GetNextVisibleColumn(TColumnIndex column) const;
    TColumnIndex GetPreviousVisibleColumn(TColumnIndex column) const;
    /// Extents by position.
    const std::vector<TColumnExtent>& Extents() const;
    int TotalWidth() const { return ColumnsWidth(Extents()); }

protected:
    void Update(TCollectionItem* item) override;
    void Notify(TCollectionItem* item, TCollectionNotification action) override;

private:
    friend class TVirtualTreeColumn;
    friend class TVTHeader;

    TColumnIndex NextVisible(int position, int step) const;
    void MoveTo(TVirtualTreeColumn& column, int position);
    void NumberPositions();
    void Loaded();

    TVTHeader* FHeader;
    std::vector<int> FOrder; // IDs by position, so that moves within the collection leave the screen as it is
    mutable std::vector<TColumnExtent> FExtents;
    mutable bool FExtentsValid = false;
};

struct TVTHeaderHitInfo {
    int X = 0; ///< client pixels of the tree; Y is negative in the header
    int Y = 0;
    TMouseButton Button = mbLeft;
    TShiftState Shift;
    TColumnIndex Column = NoColumn;
    TVTHeaderHitPositions HitPosition;
};

class TVTHeader : public TPersistent {
    FRAMEWORK_CLASS(TVTHeader)

public:
    FRAMEWORK_PROPERTY(TColumnIndex, AutoSizeIndex, GetAutoSizeIndex, SetAutoSizeIndex);
    FRAMEWORK_PROPERTY(TColor, Background, GetBackground, SetBackground);
    FRAMEWORK_PROPERTY(TVirtualTreeColumns*, Columns, GetColumns, SetColumns);
    FRAMEWORK_PROPERTY(int, DefaultHeight, GetDefaultHeight, SetDefaultHeight);
    FRAMEWORK_PROPERTY(TFont*, Font, GetFont, SetFont);
    FRAMEWORK_PROPERTY(int, Height, GetHeight, SetHeight);
    FRAMEWORK_PROPERTY(TColumnIndex, MainColumn, GetMainColumn, SetMainColumn);
    FRAMEWORK_PROPERTY(TVTHeaderOptions, Options, GetOptions, SetOptions);
    FRAMEWORK_PROPERTY(bool, ParentFont, GetParentFont, SetParentFont);
    FRAMEWORK_PROPERTY(TColumnIndex, SortColumn, GetSortColumn, SetSortColumn);
    FRAMEWORK_PROPERTY(TSortDirection, SortDirection, GetSortDirection, SetSortDirection);
    FRAMEWORK_PROPERTY(TVTHeaderStyle, Style, GetStyle, SetStyle);

    explicit TVTHeader(TBaseVirtualTree* tree);
    ~TVTHeader() override;

    TPersistent* GetOwner() const override;
    void Assign(TPersistent* source) override;
    TBaseVirtualTree* GetTreeview() const { return FTree; }

    /// The column that fills the width with hoAutoResize; the last visible one when there is no such column.
    TColumnIndex GetAutoSizeIndex() const { return FAutoSizeIndex; }
    void SetAutoSizeIndex(TColumnIndex value);
    TColor GetBackground() const { return FBackground; }
    void SetBackground(TColor value);
    TVirtualTreeColumns* GetColumns() const { return FColumns.get(); }
    void SetColumns(TVirtualTreeColumns* value) { FColumns->Assign(value); }
    /// Pixels; a header that still has it gets the new one.
    int GetDefaultHeight() const { return FDefaultHeight; }
    void SetDefaultHeight(int value);
    TFont* GetFont() const { return FFont.get(); }
    void SetFont(TFont* value);
    bool FontStored() const { return !FParentFont; }
    int GetHeight() const { return FHeight; }
    void SetHeight(int value);
    bool HeightStored() const { return FHeight != FDefaultHeight; }
    /// The column with the tree's lines, buttons and check boxes.
    TColumnIndex GetMainColumn() const { return FMainColumn; }
    void SetMainColumn(TColumnIndex value);
    TVTHeaderOptions GetOptions() const { return FOptions; }
    void SetOptions(TVTHeaderOptions value);
    bool GetParentFont() const { return FParentFont; }
    void SetParentFont(bool value);
    /// The column whose mark shows; with toAutoSort the tree is sorted by it. NoColumn for none.
    TColumnIndex GetSortColumn() const { return FSortColumn; }
    void SetSortColumn(TColumnIndex value);
    TSortDirection GetSortDirection() const { return FSortDirection; }
    void SetSortDirection(TSortDirection value);
    /// Both at once: the tree is sorted once.
    void SetSort(TColumnIndex column, TSortDirection direction);
    TVTHeaderStyle GetStyle() const { return FStyle; }
    void SetStyle(TVTHeaderStyle value);

    /// Whether it shows and takes room.
    bool IsVisible() const { return FOptions.Contains(hoVisible); }
    /// Paints the header of its tree into `place`, columns moved by `offset` pixels from there.
    void PaintHeader(HDC dc, const TRect& place, int offset);
    /// The part of the header at a point in client pixels of the tree.
    TVTHeaderHitInfo HitTest(TPoint point) const;
    /// The divider of a column that can be dragged at this point; NoColumn for none.
    TColumnIndex DividerAt(TPoint point) const;
    /// Pixels that a column needs to show its caption, box and sort mark whole.
    int CaptionWidth(TColumnIndex column) const;
    /// Whether the caption has a box and boxes show.
    bool ShowsBox(TColumnIndex column) const;
    /// Whether a person can click the column, and the box in it.
    bool IsLive(TColumnIndex column) const;
    bool BoxIsLive(TColumnIndex column) const;
    /// What a click on the column does: on its box where it shows one, otherwise on the caption.
    void ClickColumn(TColumnIndex column);
    /// The box of a column within its place.
    TRect CheckBoxRect(TColumnIndex column, const TRect& place) const;
    // What the tree passes on, points in client pixels.
    bool MouseDown(TMouseButton button, TShiftState shift, TPoint point);
    void MouseMove(TShiftState shift, TPoint point);
    void MouseUp(TMouseButton button, TShiftState shift, TPoint point);
    bool DblClick(TPoint point);
    void MouseLeave();
    /// The mouse was taken away: whatever goes on ends without an effect.
    void CancelMode();
    bool IsBusy() const { return FMode != TMode::None; }
    /// Fits the auto-size column to the tree's width.
    void AutoResize();
    /// Scales heights, widths and limits by m / d.
    void ChangeScale(int m, int d);
    void ParentFontChanged();
    /// The form has been read: positions and the width to fill are known.
    void Loaded();

private:
    friend class TVirtualTreeColumn;
    friend class TVirtualTreeColumns;

    enum class TMode { None, Pressed, CheckPressed, Resizing, Dragging };

    /// Repaints, and with `places` lays the tree's columns out again.
    void Changed(bool places);
    void ColumnResized(TColumnIndex column);
    void CheckStateChanged(TColumnIndex column);
    void RenumberParts(const std::function<TColumnIndex(TColumnIndex)>& moved);
    void ColumnAdded(int index);
    void ColumnDeleted(int index);
    void ColumnMoved(int from, int to);
    void PaintColumn(HDC dc, const TRect& cell, TColumnIndex column);
    void PaintBackground(HDC dc, const TRect& cell, bool hot, bool pressed) const;
    void PaintCaption(HDC dc, const TRect& cell, const TVirtualTreeColumn& column, bool pressed) const;
    TRect CaptionRect(const TVirtualTreeColumn& column, const TRect& cell, TRect* sortMark = nullptr) const;
    void PaintSortMark(HDC dc, const TRect& place) const;
    void PaintDropMark(HDC dc, const TRect& place, int offset) const;
    bool DragTo(TPoint point);
    void Drop();
    void Click(const TVTHeaderHitInfo& hit);
    void ClickCheckBox(const TVTHeaderHitInfo& hit);

    TBaseVirtualTree* FTree;
    std::unique_ptr<TVirtualTreeColumns> FColumns;
    std::unique_ptr<TFont> FFont;
    TColumnIndex FAutoSizeIndex = NoColumn;
    TColumnIndex FMainColumn = 0;
    TColumnIndex FSortColumn = NoColumn;
    int FDefaultHeight = 19;
    int FHeight = 19;
    TColor FBackground = clBtnFace;
    TVTHeaderOptions FOptions = DefaultHeaderOptions;
    TVTHeaderStyle FStyle = hsThickButtons;
    TSortDirection FSortDirection = sdAscending;
    bool FParentFont = true;
    bool FAutoResizing = false;

    // The mouse
    TMode FMode = TMode::None;
    TColumnIndex FDownColumn = NoColumn;
    TColumnIndex FHotColumn = NoColumn;
    TPoint FDownPoint;
    int FDownWidth = 0;
    int FDropPosition = -1;
    bool FOverDown = false; // the pointer lies on what was pressed
};

} // namespace framework
