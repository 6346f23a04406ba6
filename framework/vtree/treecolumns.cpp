// The columns of a header: their properties, and their order on the screen.

#include "framework/vtree/treeheader.h"
#include "framework/vtree/virtualtree.h"

#include <algorithm>
#include <unordered_map>

namespace framework {

const TClassInfo& TVirtualTreeColumn::StaticClass() {
    using C = TVirtualTreeColumn;
    static const TClassInfo info = DescribeClass<C>(
        u"TVirtualTreeColumn", TCollectionItem::StaticClass(),
        {Property<&C::GetAlignment, &C::SetAlignment>(u"Alignment", taLeftJustify),
         Property<&C::GetCheckBox, &C::SetCheckBox>(u"CheckBox", false),
         Property<&C::GetCheckState, &C::SetCheckState>(u"CheckState", csUncheckedNormal),
         Property<&C::GetCheckType, &C::SetCheckType>(u"CheckType", ctCheckBox),
         Property<&C::GetColor, &C::SetColor>(u"Color").Named(ColorIdentifiers()).StoredWhen<&C::ColorStored>(),
         Property<&C::GetHint, &C::SetHint>(u"Hint"), Property<&C::GetMargin, &C::SetMargin>(u"Margin", 4),
         Property<&C::GetMaxWidth, &C::SetMaxWidth>(u"MaxWidth", 10000),
         Property<&C::GetMinWidth, &C::SetMinWidth>(u"MinWidth", 10),
         Property<&C::GetOptions, &C::SetOptions>(u"Options", DefaultColumnOptions),
         Property<&C::GetPosition, &C::SetPosition>(u"Position"),
         Property<&C::GetStyle, &C::SetStyle>(u"Style", vsText), Property<&C::GetTag, &C::SetTag>(u"Tag", 0),
         Property<&C::GetText, &C::SetText>(u"Text"), Property<&C::GetWidth, &C::SetWidth>(u"Width", 50)});
    return info;
}

TVirtualTreeColumn::TVirtualTreeColumn(TCollection* collection) : TCollectionItem(collection) {
}

TVirtualTreeColumn::~TVirtualTreeColumn() = default;

TVirtualTreeColumns* TVirtualTreeColumn::Owner() const {
    return static_cast<TVirtualTreeColumns*>(GetCollection());
}

void TVirtualTreeColumn::NotifyHeader(bool places) {
    if (TVirtualTreeColumns* columns = Owner()) {
        columns->FExtentsValid = false;
        columns->FHeader->Changed(places);
    }
}

template <class TValue>
void TVirtualTreeColumn::Change(TValue& field, TValue value) {
    if (field == value)
        return;
    field = std::move(value);
    NotifyHeader(false);
}

void TVirtualTreeColumn::Assign(TPersistent* source) {
    const auto* other = As<TVirtualTreeColumn>(source);
    if (!other) {
        TCollectionItem::Assign(source);
        return;
    }
    FText = other->FText;
    FHint = other->FHint;
    FTag = other->FTag;
    FMinWidth = other->FMinWidth;
    FMaxWidth = other->FMaxWidth;
    FMargin = other->FMargin;
    FColor = other->FColor;
    FAlignment = other->FAlignment;
    FOptions = other->FOptions;
    FStyle = other->FStyle;
    FCheckType = other->FCheckType;
    FCheckState = other->FCheckState;
    FCheckBox = other->FCheckBox;
    FWidth = other->FWidth;
    SetPosition(other->FPosition);
    NotifyHeader(true);
}

void TVirtualTreeColumn::SetIndex(int value) {
    const int before = GetIndex();
    TCollectionItem::SetIndex(value);
    if (TVirtualTreeColumns* columns = Owner(); columns && before != value)
        columns->FHeader->ColumnMoved(before, value);
    NotifyHeader(true);
}

String TVirtualTreeColumn::GetDisplayName() const {
    return FText.empty() ? TCollectionItem::GetDisplayName() : FText;
}

TColor TVirtualTreeColumn::GetColor() const {
    const TVirtualTreeColumns* columns = Owner();
    return FOptions.Contains(coParentColor) && columns ? columns->GetHeader()->GetTreeview()->GetColor() : FColor;
}

void TVirtualTreeColumn::SetColor(TColor value) {
    FOptions >> coParentColor;
    FColor = value;
    NotifyHeader(false);
}

void TVirtualTreeColumn::SetAlignment(TAlignment value) {
    Change(FAlignment, value);
}

void TVirtualTreeColumn::SetCheckBox(bool value) {
    Change(FCheckBox, value);
}

void TVirtualTreeColumn::SetCheckState(TCheckState value) {
    const bool changes = FCheckState != value;
    Change(FCheckState, value);
    if (const TVirtualTreeColumns* columns = changes ? Owner() : nullptr)
        columns->GetHeader()->CheckStateChanged(GetIndex());
}

void TVirtualTreeColumn::SetCheckType(TCheckType value) {
    Change(FCheckType, value);
}

void TVirtualTreeColumn::SetMargin(int value) {
    Change(FMargin, std::max(value, 0));
}

void TVirtualTreeColumn::SetStyle(TVirtualTreeColumnStyle value) {
    Change(FStyle, value);
}

void TVirtualTreeColumn::SetText(const String& value) {
    Change(FText, value);
}

void TVirtualTreeColumn::SetOptions(TVTColumnOptions value) {
    if (FOptions == value)
        return;
    FOptions = value;
    NotifyHeader(true);
}

void TVirtualTreeColumn::SetMaxWidth(int value) {
    FMaxWidth = std::clamp(value, kLeastColumnWidth, kGreatestColumnWidth);
    FMinWidth = std::min(FMinWidth, FMaxWidth);
    SetWidth(FWidth);
}

void TVirtualTreeColumn::SetMinWidth(int value) {
    FMinWidth = std::clamp(value, kLeastColumnWidth, kGreatestColumnWidth);
    FMaxWidth = std::max(FMinWidth, FMaxWidth);
    SetWidth(FWidth);
}

void TVirtualTreeColumn::SetWidth(int value) {
    value = FitColumnWidth(value, FMinWidth, FMaxWidth);
    if (FWidth == value)
        return;
    FWidth = value;
    const TColumnIndex index = GetIndex();
    TVirtualTreeColumns* columns = Owner();
    if (!columns)
        return;
    TVTHeader& header = *columns->FHeader;
    TLifeGuard alive(*header.GetTreeview());
    NotifyHeader(true);
    if (alive)
        header.ColumnResized(index);
}

void TVirtualTreeColumn::SetPosition(int value) {
    TVirtualTreeColumns* columns = Owner();
    if (!columns)
        return;
    if (columns->FHeader->GetTreeview()->GetComponentState().Contains(csLoading))
        FLoadedPosition = value;
    else
        columns->MoveTo(*this, value);
}

int TVirtualTreeColumn::GetLeft() const {
    return Owner() ? ColumnStart(Owner()->Extents(), FPosition) : 0;
}

// All of them

const TClassInfo& TVirtualTreeColumns::StaticClass() {
    static const TClassInfo info =
        DescribeClass<TVirtualTreeColumns>(u"TVirtualTreeColumns", TCollection::StaticClass());
    return info;
}

TVirtualTreeColumns::TVirtualTreeColumns(TVTHeader* header)
    : TCollection(ItemsOf<TVirtualTreeColumn>()), FHeader(header) {
}

TPersistent* TVirtualTreeColumns::GetOwner() const {
    return FHeader;
}

void TVirtualTreeColumns::Assign(TPersistent* source) {
    TCollection::Assign(source);
    if (const auto* other = As<TVirtualTreeColumns>(source)) {
        for (int position = 0; position < other->GetCount(); ++position)
            MoveTo(*GetColumn(other->ColumnFromPosition(position)), position);
    }
}

const std::vector<TColumnExtent>& TVirtualTreeColumns::Extents() const {
    if (!FExtentsValid) {
        FExtents.assign(FOrder.size(), {});
        for (int i = 0; i < GetCount(); ++i) {
            const TVirtualTreeColumn& column = *GetColumn(i);
            if (column.FPosition >= 0 && column.FPosition < static_cast<int>(FExtents.size()))
                FExtents[static_cast<std::size_t>(column.FPosition)] = {column.FWidth, column.IsVisible()};
        }
        FExtentsValid = true;
    }
    return FExtents;
}

TColumnIndex TVirtualTreeColumns::ColumnFromPosition(int position) const {
    if (position < 0 || position >= static_cast<int>(FOrder.size()))
        return NoColumn;
    const TCollectionItem* column = FindItemID(FOrder[static_cast<std::size_t>(position)]);
    return column ? column->GetIndex() : NoColumn;
}

TColumnIndex TVirtualTreeColumns::ColumnFromPosition(TPoint point) const {
    return ColumnFromPosition(ColumnPositionAt(Extents(), point.X));
}

TColumnIndex TVirtualTreeColumns::NextVisible(int position, int step) const {
    for (position += step; position >= 0 && position < GetCount(); position += step) {
        if (Extents()[static_cast<std::size_t>(position)].Visible)
            return ColumnFromPosition(position);
    }
    return NoColumn;
}

TColumnIndex TVirtualTreeColumns::GetNextVisibleColumn(TColumnIndex column) const {
    return IsValidColumn(column) ? NextVisible(GetColumn(column)->FPosition, 1) : NoColumn;
}

TColumnIndex TVirtualTreeColumns::GetPreviousVisibleColumn(TColumnIndex column) const {
    return IsValidColumn(column) ? NextVisible(GetColumn(column)->FPosition, -1) : NoColumn;
}

void TVirtualTreeColumns::MoveTo(TVirtualTreeColumn& column, int position) {
    position = std::clamp(position, 0, std::max(GetCount() - 1, 0));
    if (column.FPosition == position || FOrder.empty())
        return;
    MovePosition(FOrder, column.FPosition, position);
    NumberPositions();
    FHeader->Changed(true);
}

/// Tells the columns where they are.
void TVirtualTreeColumns::NumberPositions() {
    std::unordered_map<int, TVirtualTreeColumn*> columns;
    for (int i = 0; i < GetCount(); ++i)
        columns[GetColumn(i)->GetID()] = GetColumn(i);
    for (std::size_t i = 0; i < FOrder.size(); ++i) {
        if (const auto found = columns.find(FOrder[i]); found != columns.end())
            found->second->FPosition = static_cast<int>(i);
    }
    FExtentsValid = false;
}

/// Columns that a form has put somewhere go there, in the order of their positions.
void TVirtualTreeColumns::Loaded() {
    std::vector<std::pair<int, int>> wanted; // position and ID
    for (int i = 0; i < GetCount(); ++i) {
        TVirtualTreeColumn& column = *GetColumn(i);
        wanted.emplace_back(column.FLoadedPosition >= 0 ? column.FLoadedPosition : column.FPosition, column.GetID());
        column.FLoadedPosition = -1;
    }
    std::stable_sort(wanted.begin(), wanted.end(),
                     [](const auto& left, const auto& right) { return left.first < right.first; });
    std::transform(wanted.begin(), wanted.end(), FOrder.begin(), [](const auto& each) { return each.second; });
    NumberPositions();
}

void TVirtualTreeColumns::Notify(TCollectionItem* item, TCollectionNotification action) {
    if (action == cnAdded) {
        static_cast<TVirtualTreeColumn*>(item)->FPosition = static_cast<int>(FOrder.size());
        FOrder.push_back(item->GetID());
        FHeader->ColumnAdded(item->GetIndex());
    } else {
        const auto place = std::find(FOrder.begin(), FOrder.end(), item->GetID());
        const bool isLast = place != FOrder.end() && place + 1 == FOrder.end();
        if (place != FOrder.end())
            FOrder.erase(place);
        FHeader->ColumnDeleted(item->GetIndex());
        if (!isLast) // many go one after the other from the end
            NumberPositions();
    }
    FExtentsValid = false;
    TCollection::Notify(item, action);
}

void TVirtualTreeColumns::Update(TCollectionItem* item) {
    TCollection::Update(item);
    FExtentsValid = false;
    FHeader->Changed(true);
}

} // namespace framework
