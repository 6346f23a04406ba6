#pragma once

// The columns of a data grid: which field each one shows, how wide, under which title. What nobody has set follows the
// field and the grid; only what was set is written to text forms.

#include "framework/db/fields.h"
#include "framework/graphics/fonts.h"
#include "framework/system/collections.h"
#include "framework/system/stringlist.h"

#include <memory>
#include <optional>

namespace framework {

class TColumn;
class TCustomDBGrid;
class TDBGridColumns;

/// What a cell that is being edited has at its end.
enum TColumnButtonStyle {
    cbsAuto,     ///< an arrow where there is a pick list to choose from
    cbsEllipsis, ///< a button "..." that calls OnEditButtonClick
    cbsNone,
};
const TEnumInfo& DescribeEnum(TColumnButtonStyle);

enum TDBGridColumnsState {
    csDefault,    ///< made from the visible fields of the open dataset, and gone when it closes
    csCustomized, ///< made by a form or a program
};
const TEnumInfo& DescribeEnum(TDBGridColumnsState);

/// A font that looks like another one until somebody changes it.
class TFollowingFont {
public:
    /// `changed` is called for each change that came through the font itself.
    explicit TFollowingFont(std::function<void()> changed);

    /// Looks like `source` unless it was changed.
    TFont* Get(TFont* source);
    bool IsAssigned() const { return FAssigned; }
    void Restore() { FAssigned = false; }
    /// The height times m / d, if it is its own.
    void Scale(int m, int d);

private:
    TFont FFont;
    bool FAssigned = false;
    bool FFollowing = false;
};

/// The heading of a column.
class TColumnTitle : public TPersistent {
    FRAMEWORK_CLASS(TColumnTitle)

public:
    FRAMEWORK_PROPERTY(TAlignment, Alignment, GetAlignment, SetAlignment);
    FRAMEWORK_PROPERTY(String, Caption, GetCaption, SetCaption);
    FRAMEWORK_READ_PROPERTY(TColumn*, Column, GetColumn);
    FRAMEWORK_PROPERTY(TColor, Color, GetColor, SetColor);
    FRAMEWORK_PROPERTY(TFont*, Font, GetFont, SetFont);

    explicit TColumnTitle(TColumn* column);

    void Assign(TPersistent* source) override;
    TPersistent* GetOwner() const override;
    TColumn* GetColumn() const { return FColumn; }
    /// Everything follows the field and the grid again.
    void RestoreDefaults();

    /// Left unless set.
    TAlignment GetAlignment() const { return FAlignment.value_or(taLeftJustify); }
    void SetAlignment(TAlignment value);
    /// The field's DisplayLabel unless set, or without a field its name.
    String GetCaption() const;
    void SetCaption(const String& value);
    /// The grid's FixedColor unless set.
    TColor GetColor() const;
    void SetColor(TColor value);
    /// The grid's TitleFont unless changed.
    TFont* GetFont() const;
    void SetFont(TFont* value) { GetFont()->Assign(value); }

    bool IsAlignmentStored() const { return FAlignment.has_value(); }
    bool IsCaptionStored() const { return FCaption.has_value(); }
    bool IsColorStored() const { return FColor.has_value(); }
    bool IsFontStored() const { return FFont.IsAssigned(); }

private:
    friend class TColumn;

    TColumn* FColumn;
    std::optional<TAlignment> FAlignment;
    std::optional<String> FCaption;
    std::optional<TColor> FColor;
    mutable TFollowingFont FFont;
};

class TColumn : public TCollectionItem {
    FRAMEWORK_CLASS(TColumn)

public:
    FRAMEWORK_PROPERTY(TAlignment, Alignment, GetAlignment, SetAlignment);
    FRAMEWORK_PROPERTY(TColumnButtonStyle, ButtonStyle, GetButtonStyle, SetButtonStyle);
    FRAMEWORK_PROPERTY(TColor, Color, GetColor, SetColor);
    FRAMEWORK_PROPERTY(int, DropDownRows, GetDropDownRows, SetDropDownRows);
    FRAMEWORK_PROPERTY(bool, Expanded, GetExpanded, SetExpanded);
    FRAMEWORK_PROPERTY(TField*, Field, GetField, SetField);
    FRAMEWORK_PROPERTY(String, FieldName, GetFieldName, SetFieldName);
    FRAMEWORK_PROPERTY(TFont*, Font, GetFont, SetFont);
    FRAMEWORK_READ_PROPERTY(TCustomDBGrid*, Grid, GetGrid);
    FRAMEWORK_READ_PROPERTY(bool, IsStored, GetIsStored);
    FRAMEWORK_PROPERTY(TStrings*, PickList, GetPickList, SetPickList);
    FRAMEWORK_PROPERTY(bool, ReadOnly, GetReadOnly, SetReadOnly);
    FRAMEWORK_PROPERTY(TColumnTitle*, Title, GetTitle, SetTitle);
    FRAMEWORK_PROPERTY(bool, Visible, GetVisible, SetVisible);
    FRAMEWORK_PROPERTY(int, Width, GetWidth, SetWidth);

    explicit TColumn(TCollection* collection);
    ~TColumn() override;

    void Assign(TPersistent* source) override;
    /// The field's name, which designers list.
    String GetDisplayName() const override;
    /// Null for a column outside of any collection.
    TCustomDBGrid* GetGrid() const;
    /// False for a column that was made from a field by itself; it goes when the dataset closes.
    bool GetIsStored() const { return FIsStored; }
    /// Everything follows the field and the grid again, the title included.
    void RestoreDefaults();

    /// The field's unless set.
    TAlignment GetAlignment() const { return FAlignment.value_or(DefaultAlignment()); }
    void SetAlignment(TAlignment value);
    TColumnButtonStyle GetButtonStyle() const { return FButtonStyle; }
    void SetButtonStyle(TColumnButtonStyle value);
    /// The grid's unless set.
    TColor GetColor() const { return FColor.value_or(DefaultColor()); }
    void SetColor(TColor value);
    /// How many rows the pick list shows before it scrolls.
    int GetDropDownRows() const { return FDropDownRows; }
    void SetDropDownRows(int value);
    /// Forms carry it for columns of structured fields; there are none, so nothing follows from it.
    bool GetExpanded() const { return FExpanded; }
    void SetExpanded(bool value) { FExpanded = value; }
    /// The dataset's field of that name; null when it has none.
    TField* GetField() const;
    void SetField(TField* value);
    const String& GetFieldName() const { return FFieldName; }
    void SetFieldName(const String& value);
    /// The grid's unless changed.
    TFont* GetFont() const;
    void SetFont(TFont* value) { GetFont()->Assign(value); }
    /// What a person can choose from while he edits; he may type something else.
    TStrings* GetPickList() const;
    void SetPickList(TStrings* value) { GetPickList()->Assign(value); }
    bool HasPickList() const { return FPickList && FPickList->GetCount() > 0; }
    /// As the field and the grid are unless set. A field that cannot be modified stays so in any case.
    bool GetReadOnly() const { return FReadOnly.value_or(DefaultReadOnly()); }
    void SetReadOnly(bool value);
    TColumnTitle* GetTitle() const { return FTitle.get(); }
    void SetTitle(TColumnTitle* value) { FTitle->Assign(value); }
    /// A hidden column keeps its width.
    bool GetVisible() const { return FVisible; }
    void SetVisible(bool value);
    /// Pixels, 0 to 32,767. Unless set, as many as the field's DisplayWidth and the caption take.
    int GetWidth() const { return FWidth ? *FWidth : DefaultWidth(); }
    void SetWidth(int value);

    TAlignment DefaultAlignment() const;
    TColor DefaultColor() const;
    bool DefaultReadOnly() const;
    int DefaultWidth() const;

    bool IsAlignmentStored() const { return FAlignment.has_value(); }
    bool IsColorStored() const { return FColor.has_value(); }
    bool IsFontStored() const { return FFont.IsAssigned(); }
    bool IsPickListStored() const { return HasPickList(); }
    bool IsReadOnlyStored() const { return FReadOnly.has_value(); }
    bool IsWidthStored() const { return FWidth.has_value(); }

private:
    friend class TColumnTitle;
    friend class TCustomDBGrid;
    friend class TDBGridColumns;

    /// Stores a value and tells the grid, if it is another one.
    template <class TStored, class TValue>
    void Change(TStored& stored, const TValue& value);
    template <class TStored, class TValue>
    void ChangeExtent(TStored& stored, const TValue& value);
    /// What was set in pixels, times m / d.
    void Scale(int m, int d);

    std::unique_ptr<TColumnTitle> FTitle;
    mutable TFollowingFont FFont;
    mutable std::unique_ptr<TStringList> FPickList;
    mutable TField* FField = nullptr; // as long as it is one of the grid's dataset
    String FFieldName;
    std::optional<TColor> FColor;
    std::optional<int> FWidth;
    std::optional<TAlignment> FAlignment;
    std::optional<bool> FReadOnly;
    TColumnButtonStyle FButtonStyle = cbsAuto;
    int FDropDownRows = 7;
    bool FExpanded = false;
    bool FVisible = true;
    bool FIsStored = true;
};

/// The columns in the order in which they stand. Without any of its own a grid makes them from the visible fields of
/// its dataset; the first that a form or a program adds replaces those.
class TDBGridColumns : public TCollection {
    FRAMEWORK_CLASS(TDBGridColumns)

public:
    FRAMEWORK_READ_PROPERTY(TCustomDBGrid*, Grid, GetGrid);
    FRAMEWORK_PROPERTY(TColumn*, Items[], GetColumn, SetColumn);
    FRAMEWORK_PROPERTY(TDBGridColumnsState, State, GetState, SetState);

    explicit TDBGridColumns(TCustomDBGrid* grid);

    TPersistent* GetOwner() const override;
    TCustomDBGrid* GetGrid() const { return FGrid; }
    /// EListError when there is no such column.
    TColumn* GetColumn(int index) const { return static_cast<TColumn*>(GetItem(index)); }
    void SetColumn(int index, TColumn* value) { SetItem(index, value); }
    TColumn* operator[](int index) const { return GetColumn(index); }
    /// A new column at the end.
    TColumn* Add() { return static_cast<TColumn*>(TCollection::Add()); }
    TDBGridColumnsState GetState() const;
    /// csDefault deletes the columns and makes them from the fields; csCustomized keeps those for good, as they are.
    void SetState(TDBGridColumnsState value);
    bool IsCustomized() const { return GetState() == csCustomized; }
    /// Replaces all by customized columns for the visible fields.
    void RebuildColumns();
    /// Restores the defaults of all columns.
    void RestoreDefaults();
    /// The first column that shows this field; null when none does.
    TColumn* FindField(const TField* field) const;

protected:
    void Update(TCollectionItem* item) override;
    void Notify(TCollectionItem* item, TCollectionNotification action) override;

private:
    friend class TCustomDBGrid;

    /// Makes default columns agree with the visible fields; those whose field is still there stay as they are.
    void FollowFields();
    TColumn* AddFor(const TField& field, bool stored);
    void ForgetField(const TField* field);

    TCustomDBGrid* FGrid;
    bool FFollowing = false;
};

} // namespace framework
