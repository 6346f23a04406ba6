#include "framework/dbgrid/dbgridcolumns.h"

#include "framework/dbgrid/dbgrid.h"
#include "framework/graphics/textmetrics.h"
#include "framework/system/names.h"
#include "framework/system/updates.h"
#include "framework/windows/columns_rules.h"

#include <algorithm>

namespace framework {

const TEnumInfo& DescribeEnum(TColumnButtonStyle) {
    static const TEnumInfo info{u"TColumnButtonStyle", {u"cbsAuto", u"cbsEllipsis", u"cbsNone"}};
    return info;
}

const TEnumInfo& DescribeEnum(TDBGridColumnsState) {
    static const TEnumInfo info{u"TDBGridColumnsState", {u"csDefault", u"csCustomized"}};
    return info;
}

// Fonts that follow others

TFollowingFont::TFollowingFont(std::function<void()> changed) {
    FFont.OnChange = [this, changed = std::move(changed)](TObject*) {
        if (FFollowing)
            return;
        FAssigned = true;
        changed();
    };
}

TFont* TFollowingFont::Get(TFont* source) {
    if (!FAssigned && source && !FFont.Equals(*source)) {
        FFollowing = true;
        FFont.Assign(source);
        FFollowing = false;
    }
    return &FFont;
}

void TFollowingFont::Scale(int m, int d) {
    if (FAssigned)
        FFont.SetHeight(::MulDiv(FFont.GetHeight(), m, d));
}

// The title

const TClassInfo& TColumnTitle::StaticClass() {
    using T = TColumnTitle;
    static const TClassInfo info = DescribeClass<T>(
        u"TColumnTitle", TPersistent::StaticClass(),
        {Property<&T::GetAlignment, &T::SetAlignment>(u"Alignment").StoredWhen<&T::IsAlignmentStored>(),
         Property<&T::GetCaption, &T::SetCaption>(u"Caption").StoredWhen<&T::IsCaptionStored>(),
         Property<&T::GetColor, &T::SetColor>(u"Color").Named(ColorIdentifiers()).StoredWhen<&T::IsColorStored>(),
         Property<&T::GetFont, &T::SetFont>(u"Font").StoredWhen<&T::IsFontStored>()});
    return info;
}

TColumnTitle::TColumnTitle(TColumn* column) : FColumn(column), FFont([this] { FColumn->Changed(false); }) {
}

void TColumnTitle::Assign(TPersistent* source) {
    const auto* other = As<TColumnTitle>(source);
    if (!other) {
        TPersistent::Assign(source);
        return;
    }
    FAlignment = other->FAlignment;
    FCaption = other->FCaption;
    FColor = other->FColor;
    FFont.Restore();
    if (other->IsFontStored())
        GetFont()->Assign(other->GetFont());
    FColumn->Changed(false);
}

TPersistent* TColumnTitle::GetOwner() const {
    return FColumn;
}

void TColumnTitle::RestoreDefaults() {
    FAlignment.reset();
    FCaption.reset();
    FColor.reset();
    FFont.Restore();
    FColumn->Changed(false);
}

void TColumnTitle::SetAlignment(TAlignment value) {
    FColumn->Change(FAlignment, value);
}

String TColumnTitle::GetCaption() const {
    if (FCaption)
        return *FCaption;
    const TField* field = FColumn->GetField();
    return field ? field->GetDisplayName() : FColumn->GetFieldName();
}

void TColumnTitle::SetCaption(const String& value) {
    FColumn->Change(FCaption, value);
}

TColor TColumnTitle::GetColor() const {
    const TCustomDBGrid* grid = FColumn->GetGrid();
    return FColor.value_or(grid ? grid->GetFixedColor() : clBtnFace);
}

void TColumnTitle::SetColor(TColor value) {
    FColumn->Change(FColor, value);
}

TFont* TColumnTitle::GetFont() const {
    const TCustomDBGrid* grid = FColumn->GetGrid();
    return FFont.Get(grid ? grid->GetTitleFont() : nullptr);
}

// The column

const TClassInfo& TColumn::StaticClass() {
    using C = TColumn;
    static const TClassInfo info = DescribeClass<C>(
        u"TColumn", TCollectionItem::StaticClass(),
        {Property<&C::GetAlignment, &C::SetAlignment>(u"Alignment").StoredWhen<&C::IsAlignmentStored>(),
         Property<&C::GetButtonStyle, &C::SetButtonStyle>(u"ButtonStyle", cbsAuto),
         Property<&C::GetColor, &C::SetColor>(u"Color").Named(ColorIdentifiers()).StoredWhen<&C::IsColorStored>(),
         Property<&C::GetDropDownRows, &C::SetDropDownRows>(u"DropDownRows", 7),
         Property<&C::GetExpanded, &C::SetExpanded>(u"Expanded", false),
         Property<&C::GetFieldName, &C::SetFieldName>(u"FieldName"),
         Property<&C::GetFont, &C::SetFont>(u"Font").StoredWhen<&C::IsFontStored>(),
         Property<&C::GetPickList, &C::SetPickList>(u"PickList").StoredWhen<&C::IsPickListStored>(),
         Property<&C::GetReadOnly, &C::SetReadOnly>(u"ReadOnly").StoredWhen<&C::IsReadOnlyStored>(),
         Property<&C::GetTitle, &C::SetTitle>(u"Title"),
         Property<&C::GetWidth, &C::SetWidth>(u"Width").StoredWhen<&C::IsWidthStored>(),
         Property<&C::GetVisible, &C::SetVisible>(u"Visible", true)});
    return info;
}

TColumn::TColumn(TCollection* collection)
    : TCollectionItem(collection), FTitle(std::make_unique<TColumnTitle>(this)), FFont([this] { Changed(false); }) {
}

TColumn::~TColumn() = default;

template <class TStored, class TValue>
void TColumn::Change(TStored& stored, const TValue& value) {
    if (stored == value)
        return;
    stored = value;
    Changed(false);
}

/// A grid without a window measures no columns, and hears from here that one takes another room.
template <class TStored, class TValue>
void TColumn::ChangeExtent(TStored& stored, const TValue& value) {
    TCustomDBGrid* grid = GetGrid();
    if (!grid || grid->HandleAllocated() || grid->IsLoading() || stored == value)
        return Change(stored, value);
    TLifeGuard alive(*grid);
    Change(stored, value);
    if (alive)
        grid->ColWidthsChanged();
}

void TColumn::Assign(TPersistent* source) {
    const auto* other = As<TColumn>(source);
    if (!other) {
        TCollectionItem::Assign(source);
        return;
    }
    if (other == this)
        return;
    FFieldName = other->FFieldName;
    FField = nullptr;
    FAlignment = other->FAlignment;
    FColor = other->FColor;
    FReadOnly = other->FReadOnly;
    FWidth = other->FWidth;
    FButtonStyle = other->FButtonStyle;
    FDropDownRows = other->FDropDownRows;
    FExpanded = other->FExpanded;
    FVisible = other->FVisible;
    FFont.Restore();
    if (other->IsFontStored())
        GetFont()->Assign(other->GetFont());
    if (FPickList || other->FPickList)
        GetPickList()->Assign(other->GetPickList());
    FTitle->Assign(other->FTitle.get());
}

String TColumn::GetDisplayName() const {
    return FFieldName.empty() ? TCollectionItem::GetDisplayName() : FFieldName;
}

TCustomDBGrid* TColumn::GetGrid() const {
    const auto* columns = static_cast<TDBGridColumns*>(GetCollection());
    return columns ? columns->GetGrid() : nullptr;
}

void TColumn::RestoreDefaults() {
    FAlignment.reset();
    FColor.reset();
    FReadOnly.reset();
    FWidth.reset();
    FFont.Restore();
    FTitle->RestoreDefaults();
}

TField* TColumn::GetField() const {
    const TCustomDBGrid* grid = GetGrid();
    const TDataSet* dataSet = grid ? grid->GetDataSet() : nullptr;
    // The field may have gone over to another dataset, or the grid.
    if (FField && (!dataSet || FField->GetDataSet() != dataSet || !TNameEqual()(FField->GetFieldName(), FFieldName)))
        FField = nullptr;
    if (!FField && dataSet && !FFieldName.empty()) {
        FField = dataSet->FindField(FFieldName);
        if (FField)
            const_cast<TCustomDBGrid*>(grid)->FreeNotification(FField);
    }
    return FField;
}

void TColumn::SetField(TField* value) {
    SetFieldName(value ? value->GetFieldName() : String());
}

void TColumn::SetFieldName(const String& value) {
    if (FFieldName == value)
        return;
    FFieldName = value;
    FField = nullptr;
    Changed(false);
}

void TColumn::SetAlignment(TAlignment value) {
    Change(FAlignment, value);
}

void TColumn::SetButtonStyle(TColumnButtonStyle value) {
    Change(FButtonStyle, value);
}

void TColumn::SetColor(TColor value) {
    Change(FColor, value);
}

void TColumn::SetDropDownRows(int value) {
    FDropDownRows = std::max(value, 1);
}

void TColumn::SetReadOnly(bool value) {
    Change(FReadOnly, value);
}

void TColumn::SetVisible(bool value) {
    ChangeExtent(FVisible, value);
}

void TColumn::SetWidth(int value) {
    ChangeExtent(FWidth, std::clamp(value, kLeastColumnWidth, kGreatestColumnWidth));
}

void TColumn::Scale(int m, int d) {
    FFont.Scale(m, d);
    FTitle->FFont.Scale(m, d);
    if (FWidth)
        FWidth = std::clamp(::MulDiv(*FWidth, m, d), kLeastColumnWidth, kGreatestColumnWidth);
}

TFont* TColumn::GetFont() const {
    const TCustomDBGrid* grid = GetGrid();
    return FFont.Get(grid ? grid->GetFont() : nullptr);
}

TStrings* TColumn::GetPickList() const {
    if (!FPickList)
        FPickList = std::make_unique<TStringList>();
    return FPickList.get();
}

TAlignment TColumn::DefaultAlignment() const {
    const TField* field = GetField();
    return field ? field->GetAlignment() : taLeftJustify;
}

TColor TColumn::DefaultColor() const {
    const TCustomDBGrid* grid = GetGrid();
    return grid ? grid->GetColor() : clWindow;
}

bool TColumn::DefaultReadOnly() const {
    const TCustomDBGrid* grid = GetGrid();
    const TField* field = GetField();
    return (grid && grid->GetReadOnly()) || (field && field->GetReadOnly());
}

int TColumn::DefaultWidth() const {
    const TCustomDBGrid* grid = GetGrid();
    const TField* field = GetField();
    if (!grid || !field)
        return kDefaultColumnWidth;
    const int room = 2 * kCellMargin + 1; // the line between columns
    int width = field->GetDisplayWidth() * TTextMeasure(*GetFont()).Extent(u"0").Width + room;
    if (grid->GetOptions().Contains(dgTitles))
        width = std::max(width, TTextMeasure(*FTitle->GetFont()).Extent(FTitle->GetCaption()).Width + room);
    return std::min(width, kGreatestColumnWidth);
}

// All of them

const TClassInfo& TDBGridColumns::StaticClass() {
    static const TClassInfo info = DescribeClass<TDBGridColumns>(u"TDBGridColumns", TCollection::StaticClass());
    return info;
}

TDBGridColumns::TDBGridColumns(TCustomDBGrid* grid) : TCollection(ItemsOf<TColumn>()), FGrid(grid) {
}

TPersistent* TDBGridColumns::GetOwner() const {
    return FGrid;
}

TDBGridColumnsState TDBGridColumns::GetState() const {
    return GetCount() > 0 && GetColumn(0)->GetIsStored() ? csCustomized : csDefault;
}

void TDBGridColumns::SetState(TDBGridColumnsState value) {
    if (value == GetState())
        return;
    if (value == csDefault) {
        Clear();
        return;
    }
    if (GetCount() == 0)
        return; // there is nothing to keep
    for (int i = 0; i < GetCount(); ++i)
        GetColumn(i)->FIsStored = true;
    Changed();
}

void TDBGridColumns::RebuildColumns() {
    WithinUpdate(*this, [this] {
        Clear();
        TDataSet* dataSet = FGrid->GetDataSet();
        if (!dataSet)
            return;
        for (TField* field : dataSet->GetFields()) {
            if (field->GetVisible())
                AddFor(*field, true);
        }
    });
}

void TDBGridColumns::RestoreDefaults() {
    WithinUpdate(*this, [this] {
        for (int i = 0; i < GetCount(); ++i)
            GetColumn(i)->RestoreDefaults();
    });
}

TColumn* TDBGridColumns::FindField(const TField* field) const {
    for (int i = 0; field && i < GetCount(); ++i) {
        if (GetColumn(i)->GetField() == field)
            return GetColumn(i);
    }
    return nullptr;
}

TColumn* TDBGridColumns::AddFor(const TField& field, bool stored) {
    TColumn* column = Add();
    column->FIsStored = stored;
    column->FFieldName = field.GetFieldName();
    return column;
}

void TDBGridColumns::FollowFields() {
    if (IsUpdating() || IsCustomized() || FFollowing)
        return;
    // Nobody but the grid hears of this, and it has asked for it.
    FFollowing = true;
    const TAtScopeEnd done(*FGrid, [this] { FFollowing = false; });
    int place = 0;
    TDataSet* dataSet = FGrid->GetDataSet();
    if (dataSet && FGrid->IsDataActive()) {
        for (TField* field : dataSet->GetFields()) {
            if (!field->GetVisible())
                continue;
            // Most often nothing has changed.
            TColumn* column = place < GetCount() ? GetColumn(place) : nullptr;
            if (!column || column->GetField() != field)
                column = FindField(field);
            if (!column)
                column = AddFor(*field, false);
            column->SetIndex(place++);
        }
    }
    while (GetCount() > place)
        Delete(GetCount() - 1);
}

void TDBGridColumns::Notify(TCollectionItem* item, TCollectionNotification action) {
    if (action == cnAdded && !FFollowing) {
        WithinUpdate(*this, [this] {
            for (int i = GetCount() - 1; i >= 0; --i) {
                if (!GetColumn(i)->GetIsStored())
                    Delete(i);
            }
        });
    } else if (action != cnAdded && !FFollowing) {
        FGrid->ColumnLeaves(static_cast<TColumn*>(item)->GetIndex());
    }
    TCollection::Notify(item, action);
}

void TDBGridColumns::Update(TCollectionItem* item) {
    TCollection::Update(item);
    if (!FFollowing)
        FGrid->ColumnsChanged(static_cast<TColumn*>(item));
}

void TDBGridColumns::ForgetField(const TField* field) {
    for (int i = 0; i < GetCount(); ++i) {
        if (GetColumn(i)->FField == field)
            GetColumn(i)->FField = nullptr;
    }
}

} // namespace framework
