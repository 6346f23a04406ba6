// The virtual data grid: its rows, from the records of the dataset, and what the cells say.

#include "data/Zorvirtualdbgrid.h"
#include "data/Zorvirtualdbgrid_parts.h"
#include "framework/graphics/textmetrics.h"
#include "framework/system/names.h"
#include "framework/system/strings.h"

#include <algorithm>
#include <cstring>
#include <new>

namespace ZOR {

// The data

TDataSource* TZORVirtualDBGrid::GetDataSource() const {
    return FDataLink ? FDataLink->GetDataSource() : nullptr;
}

void TZORVirtualDBGrid::SetDataSource(TDataSource* value) {
    if (value == GetDataSource())
        return;
    TLifeGuard alive(*this);
    FHolder->SetDataSource(value); // first, so that its columns know their fields when the rows are read
    if (alive)
        FDataLink->SetDataSource(value);
}

TDataSet* TZORVirtualDBGrid::GetDataSet() const {
    return FDataLink ? FDataLink->GetDataSet() : nullptr;
}

std::shared_ptr<_Recordset> TZORVirtualDBGrid::Get_Recordset() const {
    const auto* dataSet = As<TCustomADODataSet>(GetDataSet());
    return dataSet ? dataSet->GetRecordset() : nullptr;
}

/// The dataset was opened or closed, or another one came.
void TZORVirtualDBGrid::DataSetReplaced() {
    EndPassing();
    FWalk = nullptr;
    for (TKeyField& key : FKeyFields)
        key.Index = TKeyField::NotSought;
    FRead = {};
    FMirrored = false;
    Invalidate();
    InvalidateFooter();
    BuildTree();
}

void TZORVirtualDBGrid::DataEvent(TDataEvent event) {
    if (event == deLayoutChange)
        FMirrored = false;
    if (event == deCheckBrowseMode)
        BuildTree();
    else if (event == deUpdateState || event == deLayoutChange || event == deDataSetChange || RowsAreBehind())
        Invalidate(); // texts are others, and rows that are behind are read when it comes to painting them
}

/// Whatever the dataset tells of, fields read its active record from then on.
void TZORVirtualDBGrid::EndPassing() {
    if (FPainting)
        FPainting->Leave();
}

// Bringing the rows into line

bool TZORVirtualDBGrid::IsReady() const {
    return FDataLink && FDataLink->GetActive() && GetDataSet()->GetState() == dsBrowse &&
           GetColumns()->GetCount() > 0 && !FReading && !IsLoading() && !IsDestroying();
}

bool TZORVirtualDBGrid::AreCounted(TDataSet& dataSet) const {
    return static_cast<unsigned>(std::max(dataSet.GetRecordCount(), 0)) == GetRootNodeCount();
}

/// A column came that has a total to be summed up.
bool TZORVirtualDBGrid::TotalsAreBehind() const {
    for (int i = 0; i < GetColumns()->GetCount(); ++i) {
        const TColumn& column = *GetColumns()->GetColumn(i);
        const auto isThis = [&](const auto& read) {
            return read.first == column.GetID() && read.second == column.GetFieldName();
        };
        if (const auto place = static_cast<std::size_t>(i); place < FReadColumns.size() && isThis(FReadColumns[place]))
            continue; // where most of them are
        if (std::none_of(FReadColumns.begin(), FReadColumns.end(), isThis) && FieldOf(i) &&
            HasTotal(FieldOf(i)->GetDataType()))
            return true;
    }
    return false;
}

/// The records were fetched again, so that the bookmarks of the rows lead nowhere: that of neither end is valid.
bool TZORVirtualDBGrid::WereReadAnew(TDataSet& dataSet) const {
    return !FRead.First.IsEmpty() && !dataSet.BookmarkValid(FRead.First) && !dataSet.BookmarkValid(FRead.Last);
}

/// Other records than those that were read: RecordCount alone does not tell, nor do keys where there are none.
bool TZORVirtualDBGrid::ShowsOtherRecords(TDataSet& dataSet) const {
    return !AreCounted(dataSet) || FRead.View != dataSet.GetViewNumber();
}

bool TZORVirtualDBGrid::RowsAreBehind() {
    if (!IsReady())
        return false;
    if (FRead.State != TReading::Done)
        return FRead.State == TReading::Due;
    TDataSet& dataSet = *GetDataSet();
    return FColumnsChanged || GetNodeDataSize() != VirtualDBGridNodeSize || ShowsOtherRecords(dataSet) ||
           TotalsAreBehind() || WereReadAnew(dataSet);
}

/// Before the grid is painted, or asked for what it has of its rows.
void TZORVirtualDBGrid::CatchUp() {
    if (FPainting || FPaintingFooter)
        return;
    if (RowsAreBehind())
        BuildTree();
    else if (FColumnsChanged && !IsLoading() && GetColumns()->GetCount() > 0)
        RefreshColumns(); // as long as no data is there they show their titles
}

void TZORVirtualDBGrid::BuildTree() {
    if (!FDataLink || !FDataLink->GetActive() || IsDestroying())
        return;
    TLifeGuard alive(*this);
    if (GetNodeDataSize() != VirtualDBGridNodeSize)
        SetNodeDataSize(VirtualDBGridNodeSize);
    // It happens with every move of the dataset, and to ask each column for its width may mean to measure texts.
    if (alive && GetColumns()->GetCount() > 0 && (FColumnsChanged || !FMirrored))
        RefreshColumns();
    if (alive)
        RefreshRows();
}

void TZORVirtualDBGrid::RefreshRows() {
    if (!IsReady())
        return;
    TDataSet& dataSet = *GetDataSet();
    if (FRead.State != TReading::Done || ShowsOtherRecords(dataSet) || TotalsAreBehind())
        return Reload();
    TLifeGuard alive(*this);
    if (WereReadAnew(dataSet) && !ReadBookmarks(dataSet) && alive)
        Reload();
}

void TZORVirtualDBGrid::Reload() {
    if (!IsReady())
        return;
    TDataSet& dataSet = *GetDataSet();
    const bool byKey = FRead.State == TReading::Due || WereReadAnew(dataSet);
    TRowsToFind selected(byKey);
    for (TVirtualNode* node = GetFirstSelected(); node; node = GetNextSelected(node))
        selected.Add(GetRowBookmark(node), GetRowId(node));
    TRowsToFind focused(byKey);
    if (TVirtualNode* node = GetFocusedNode())
        focused.Add(GetRowBookmark(node), GetRowId(node));
    const std::int64_t offset = HandleAllocated() ? GetOffsetY() : 0;
    TLifeGuard alive(*this);
    std::exception_ptr failure;
    {
        SetRebuilding(true);
        const TAtScopeEnd rebuilt(*this, [this] { SetRebuilding(false); });
        try {
            ReadRows(dataSet);
        } catch (...) {
            failure = std::current_exception(); // what has been read stays as it was before
        }
    }
    if (alive)
        FindAgain(selected, focused, offset);
    if (failure)
        std::rethrow_exception(failure);
}

/// Selects rows and gives one the focus; tells only of those that are not there any more.
void TZORVirtualDBGrid::FindAgain(TRowsToFind& selected, TRowsToFind& focused, std::int64_t offset) {
    const bool hadFocus = focused.Count() > 0;
    TVirtualNode* node = GetRootNode()->GetFirstChild();
    for (; node && selected.Count() + focused.Count() > 0; node = node->GetNextSibling()) {
        if (selected.Take(GetRowBookmark(node), GetRowId(node)))
            Nodes().SetState(node, vsSelected, true);
        if (focused.Take(GetRowBookmark(node), GetRowId(node)))
            PutFocus(node);
    }
    TLifeGuard alive(*this);
    if (hadFocus && focused.Count() == 0 && HandleAllocated())
        SetOffsetY(offset);
    if (alive && selected.Count() > 0)
        DoChange(nullptr);
    if (alive && focused.Count() > 0 && !GetFocusedNode())
        DoFocusChange(nullptr, GetFocusedColumn());
}

// Reading records

/// Makes the nodes anew. Each of them takes the record on which the dataset stands and moves it on, see DoInitNode.
/// Where this is broken off there are no totals, and it is not tried again before the dataset moves.
void TZORVirtualDBGrid::ReadRows(TDataSet& dataSet) {
    FReading = true;
    FRead = {};
    FRead.State = TReading::BrokenOff;
    const TAtScopeEnd done(*this, [this] {
        FReading = false;
        if (FRead.State != TReading::Done) {
            FTotals.clear();
            HideRowsFrom(static_cast<unsigned>(FRead.Count));
        }
        InvalidateFooter();
    });
    TLifeGuard alive(*this);
    TLifeGuard there(dataSet);
    FTotals.clear();
    FReadColumns.clear();
    for (int i = 0; i < GetColumns()->GetCount(); ++i)
        FReadColumns.emplace_back(GetColumns()->GetColumn(i)->GetID(), GetColumns()->GetColumn(i)->GetFieldName());
    if (GetNodeDataSize() != VirtualDBGridNodeSize)
        SetNodeDataSize(VirtualDBGridNodeSize);
    if (alive)
        SetRootNodeCount(0);
    if (!alive || !there || !FDataLink->GetActive() || GetDataSet() != &dataSet)
        return;
    WalkRecords(dataSet, [&] {
        // Only now: with its first record the dataset knows what it shows, as a narrowing may end there.
        FRead.View = dataSet.GetViewNumber();
        SetRootNodeCount(static_cast<unsigned>(std::max(dataSet.GetRecordCount(), 0)));
        if (!alive || !there)
            return;
        const bool hasRecords = FWalk != nullptr;
        TNodeRef node(Nodes(), GetRootNode()->GetFirstChild());
        while (node && InitNode(node.Get()))
            node.Set(node.Get()->GetNextSibling());
        if (!alive || (hasRecords && !FWalk))
            return;
        if (hasRecords && dataSet.GetEof())
            HideRowsFrom(static_cast<unsigned>(FRead.Count)); // a filter lets fewer records through
        KeepEnds();
    });
}

/// The rows are those of the records now.
void TZORVirtualDBGrid::KeepEnds() {
    FRead.State = TReading::Done;
    FRead.First = FRead.Last = {};
    if (FRead.Count > 0 && static_cast<unsigned>(FRead.Count) <= GetRootNodeCount()) {
        FRead.First = GetRowBookmark(GetRootNode()->GetFirstChild());
        FRead.Last = GetRowBookmark(TNodeStore::Child(GetRootNode(), static_cast<unsigned>(FRead.Count) - 1));
    }
}

/// Gives each row the record at its place; false, and rows are half done, when these are not all, or one of them has
/// another key.
bool TZORVirtualDBGrid::ReadBookmarks(TDataSet& dataSet) {
    FReading = true;
    FRead.State = TReading::BrokenOff;
    const TAtScopeEnd done(*this, [this] {
        FReading = false;
        Invalidate();
    });
    TLifeGuard alive(*this);
    bool same = false;
    WalkRecords(dataSet, [&] {
        TNodeRef node(Nodes(), GetRootNode()->GetFirstChild());
        int number = 0;
        while (node && FWalk && !dataSet.GetEof()) {
            TVirtualDBGridNode* data = DataOf(node.Get());
            if (number == FRead.Count || !data || !data->Row || ReadKey(*FWalk) != GetRowId(node.Get()))
                return;
            data->Row->Bookmark = dataSet.GetBookmark();
            ++number;
            dataSet.Next();
            if (!alive || !node)
                return;
            node.Set(node.Get()->GetNextSibling());
        }
        same = FWalk && dataSet.GetEof() && number == FRead.Count;
        if (same)
            KeepEnds();
    });
    return same;
}

namespace {

void GoBack(TDataSet& dataSet, const TDataSet::TPlace& place) {
    TLifeGuard there(dataSet);
    try {
        if (dataSet.BookmarkValid(place.Record))
            return dataSet.GoToPlace(place);
    } catch (const EDatabaseError&) { // NOLINT(bugprone-empty-catch): a filter keeps the record out
    }
    if (there && dataSet.GetActive())
        dataSet.First();
}

} // namespace

/// Runs `body` with the dataset on its first record and controls disabled, and then goes back to where it was.
template <class TBody>
void TZORVirtualDBGrid::WalkRecords(TDataSet& dataSet, TBody&& body) {
    TLifeGuard alive(*this);
    TLifeGuard there(dataSet);
    const auto enable = [&] {
        if (there)
            dataSet.EnableControls();
    };
    dataSet.DisableControls();
    try {
        const TDataSet::TPlace place = dataSet.GetPlace();
        dataSet.First();
        if (alive && there && FDataLink->GetActive()) {
            TWalk walk{.DataSet = As<TCustomADODataSet>(&dataSet)};
            FWalk = walk.DataSet && walk.DataSet->GetRecordset() ? &walk : nullptr;
            const TAtScopeEnd done(*this, [this] { FWalk = nullptr; });
            PrepareWalk(walk);
            body();
        }
        if (there && dataSet.GetActive())
            GoBack(dataSet, place);
    } catch (...) {
        enable();
        throw;
    }
    enable();
}

void TZORVirtualDBGrid::PrepareWalk(TWalk& walk) {
    if (!walk.DataSet)
        return;
    walk.Id = KeyField(*walk.DataSet, FKeyFields[0]);
    walk.Guid = KeyField(*walk.DataSet, FKeyFields[1]);
    walk.Totals.clear();
    for (int i = 0; i < GetColumns()->GetCount(); ++i) {
        TField* field = FieldOf(i);
        if (!field || !HasTotal(field->GetDataType()))
            continue;
        TColumn* column = GetColumns()->GetColumn(i);
        TTotal& total = FTotals[column];
        total.ColumnID = column->GetID();
        total.FieldName = column->GetFieldName();
        walk.Totals.emplace_back(field, &total.Sum);
    }
}

void TZORVirtualDBGrid::SetKeyName(TKeyField& key, const String& name) {
    if (key.Name == name)
        return;
    key = {name};
    FRead.State = TReading::Due;
    Invalidate();
}

TField* TZORVirtualDBGrid::KeyField(TDataSet& dataSet, TKeyField& key) const {
    if (key.Index == TKeyField::Absent)
        return nullptr;
    TField* field = key.Index >= 0 && key.Index < dataSet.GetFieldCount() ? dataSet.GetFields()[key.Index] : nullptr;
    if (field && TNameEqual()(field->GetFieldName(), key.Name))
        return field;
    // It has not been sought yet, or fields have changed places.
    field = key.Name.empty() ? nullptr : dataSet.FindField(key.Name);
    key.Index = field ? field->GetIndex() : TKeyField::Absent;
    return field;
}

namespace {

int NumberOf(const TField& field) {
    const TFieldValue value = field.GetData();
    if (value.IsNull())
        return 0;
    try {
        const std::int64_t number = value.Kind() == TFieldValue::TKind::Integer ? value.Whole() : field.GetAsLargeInt();
        return number >= INT32_MIN && number <= INT32_MAX ? static_cast<int>(number) : 0;
    } catch (const EDatabaseError&) {
        return 0; // a text that is no number
    }
}

TGUID GuidOf(const TField& field) {
    const TFieldValue value = field.GetData();
    TGUID guid;
    if (value.Kind() == TFieldValue::TKind::Guid)
        guid = value.GuidValue();
    else if (value.Kind() == TFieldValue::TKind::Text)
        TryStringToGUID(Trim(value.Units()), guid); // a column of fixed width fills up with blanks
    else if (value.Kind() == TFieldValue::TKind::Bytes && value.Octets().size() == sizeof guid)
        std::memcpy(&guid, value.Octets().data(), sizeof guid);
    return guid;
}

} // namespace

/// The key of the record on which the dataset stands.
TRowId TZORVirtualDBGrid::ReadKey(const TWalk& walk) {
    return {walk.Id ? NumberOf(*walk.Id) : 0, walk.Guid ? GuidOf(*walk.Guid) : TGUID()};
}

/// Takes the record on which the dataset stands; false when there is none for this row.
bool TZORVirtualDBGrid::ReadRecord(TVirtualDBGridNode& data) {
    TCustomADODataSet& dataSet = *FWalk->DataSet;
    if (!dataSet.GetRecordset() || dataSet.GetEof())
        return false;
    if ((AfterInitNode || dataSet.AfterScroll) && !AreCounted(dataSet))
        return false; // a handler has changed the number
    data.Row->Bookmark = dataSet.GetBookmark();
    data.Row->Number = ++FRead.Count;
    for (const auto& [field, total] : FWalk->Totals)
        total->Add(field->GetData());
    const TRowId key = ReadKey(*FWalk);
    data.id = key.first;
    data.guid = key.second;
    return true;
}

void TZORVirtualDBGrid::DoInitNode(TVirtualNode* parent, TVirtualNode* node, TVirtualNodeInitStates& initialStates) {
    if (OnInitNode) {
        TLifeGuard alive(*this);
        const TNodeRef still(Nodes(), node);
        TVirtualDrawTree::DoInitNode(parent, node, initialStates);
        if (!alive || !still)
            return;
    }
    TVirtualDBGridNode* data = DataOf(node);
    if (!data)
        return;
    MakeRow(*data);
    OfferBox(node);
    // Records are read in one go alone: at any other time the dataset stands somewhere else.
    if (!FWalk || parent || !data->Row->Bookmark.IsEmpty() || !ReadRecord(*data))
        return;
    if (Fire(*this, AfterInitNode, this, parent, node, initialStates) && FWalk)
        FWalk->DataSet->Next();
}

void TZORVirtualDBGrid::HideRowsFrom(unsigned index) {
    if (index >= GetRootNodeCount())
        return;
    TVirtualNode* node = TNodeStore::Child(GetRootNode(), index);
    for (; node; node = node->GetNextSibling())
        Nodes().SetState(node, vsVisible, false);
    StructureChanged();
}

// What rows keep

TVirtualDBGridNode* TZORVirtualDBGrid::DataOf(TVirtualNode* node) const {
    return node && GetNodeDataSize() >= VirtualDBGridNodeSize ? GetNodeData<TVirtualDBGridNode>(node) : nullptr;
}

void TZORVirtualDBGrid::MakeRow(TVirtualDBGridNode& data) {
    if (data.Row)
        return;
    const TNodePool::TCell cell = FRowPool.Allocate();
    data.Row = new (cell.Memory) TVirtualDBGridRow;
    data.Row->PoolPart = cell.Chunk;
}

void TZORVirtualDBGrid::DoFreeNode(TVirtualNode* node) {
    TVirtualDBGridNode* data = DataOf(node);
    TVirtualDBGridRow* row = data && node->Has(vsInitialized) ? data->Row : nullptr;
    if (row) {
        data->Row = nullptr;
        const std::uint32_t part = row->PoolPart;
        row->~TVirtualDBGridRow();
        FRowPool.Free(row, part);
    }
    if (FPainting && FPainting->Node == node)
        FPainting->Leave();
    TVirtualDrawTree::DoFreeNode(node);
}

TRowId TZORVirtualDBGrid::GetRowId(TVirtualNode* node) const {
    const TVirtualDBGridNode* data = DataOf(node);
    return data ? TRowId(data->id, data->guid) : TRowId();
}

TBookmark TZORVirtualDBGrid::GetRowBookmark(TVirtualNode* node) const {
    const TVirtualDBGridNode* data = DataOf(node);
    return data && data->Row ? data->Row->Bookmark : TBookmark();
}

// Texts

TField* TZORVirtualDBGrid::FieldOf(int column) const {
    return column >= 0 && column < GetColumns()->GetCount() ? GetColumns()->GetColumn(column)->GetField() : nullptr;
}

String TZORVirtualDBGrid::CaptionOf(TField* field) {
    if (!field)
        return {};
    if (field->GetDataType() == ftBoolean && !field->GetIsNull())
        return field->GetAsBoolean() ? u"#B1" : u"#B0";
    return field->GetDisplayText();
}

/// The reader may stand on the record already. Empty when there is none.
String TZORVirtualDBGrid::CaptionInPassing(TDataSet::TPassingReader& reader, TVirtualNode* node, int column) const {
    return reader.GoTo(GetRowBookmark(node)) ? CaptionOf(FieldOf(column)) : String();
}

String TZORVirtualDBGrid::CaptionWhilePainting(TVirtualNode* node, int column) {
    const std::shared_ptr<TPainting> painting = FPainting; // fields are calculated by handlers
    if (GetDataSet() != painting->DataSet || !FDataLink->GetActive())
        return {};
    if (painting->Node != node) {
        TLifeGuard alive(*this);
        painting->Found = painting->Reader.GoTo(GetRowBookmark(node));
        if (!alive)
            return {};
        painting->Node = node;
    }
    return painting->Found ? CaptionOf(FieldOf(column)) : String();
}

String TZORVirtualDBGrid::Get_NodeCaption(TVirtualNode* node, int column) {
    if (FPainting && node)
        return CaptionWhilePainting(node, column);
    TDataSet* dataSet = GetDataSet();
    const TBookmark bookmark = GetRowBookmark(node);
    if (!dataSet || !FDataLink->GetActive() || !dataSet->BookmarkValid(bookmark))
        return {};
    if (dataSet->GetState() != dsBrowse) {
        TDataSet::TPassingReader reader(*dataSet); // what is being edited is not posted for the sake of a text
        return CaptionInPassing(reader, node, column);
    }
    if (dataSet->GetBookmark() == bookmark)
        return CaptionOf(FieldOf(column));
    TLifeGuard alive(*this);
    TLifeGuard there(*dataSet);
    String text;
    dataSet->DisableControls();
    try {
        dataSet->GotoBookmark(bookmark);
        if (alive && there && FDataLink->GetActive())
            text = CaptionOf(FieldOf(column));
    } catch (const EDatabaseError&) { // NOLINT(bugprone-empty-catch): a filter keeps the record out
    } catch (...) {
        if (there)
            dataSet->EnableControls();
        throw;
    }
    if (there)
        dataSet->EnableControls();
    return text;
}

String TZORVirtualDBGrid::NodeText(TVirtualNode* node, TColumnIndex column) {
    TDataSet* dataSet = GetDataSet();
    if (!dataSet || !FDataLink->GetActive() || (FCheckMode && column == GetHeader()->GetMainColumn()))
        return {};
    const std::shared_ptr<TPainting> painting = FPainting;
    if (painting)
        painting->Leave(); // only one can read in passing
    TDataSet::TPassingReader reader(*dataSet);
    TLifeGuard alive(*this);
    if (!reader.GoTo(GetRowBookmark(node)) || !alive)
        return {};
    TField* field = FieldOf(column);
    return field ? field->GetDisplayText() : String();
}

int TZORVirtualDBGrid::DoGetNodeWidth(TVirtualNode* node, TColumnIndex column) {
    if (OnGetNodeWidth)
        return TVirtualDrawTree::DoGetNodeWidth(node, column);
    if (ShowsCheckMark(column))
        return TCheckPainter(IsThemed()).Size().Width;
    TLifeGuard alive(*this);
    const String text = NodeText(node, column).substr(0, 10000); // what is longer is wider than any screen
    return !alive ? 0 : TTextMeasure(*FontOf(column)).Extent(text).Width;
}

String TZORVirtualDBGrid::DoGetNodeHint(TVirtualNode* node, TColumnIndex column) {
    TLifeGuard alive(*this);
    const TNodeRef still(Nodes(), node);
    String hint = TVirtualDrawTree::DoGetNodeHint(node, column);
    if (!alive || !still || !hint.empty() || !GetHeader()->GetColumns()->IsValidColumn(column))
        return hint;
    const int room = GetHeader()->GetColumns()->GetColumn(column)->GetWidth() - 2 * (GetMargin() + GetTextMargin());
    const bool isCut = DoGetNodeWidth(node, column) > room;
    return alive && still && isCut ? NodeText(node, column) : String();
}

bool TZORVirtualDBGrid::IsHintColumn(int column) const {
    return std::find(FHintColumns.begin(), FHintColumns.end(), column) != FHintColumns.end();
}

// Totals

const TZORVirtualDBGrid::TTotal* TZORVirtualDBGrid::TotalOf(TColumn* column) const {
    if (FTotals.find(column) == FTotals.end())
        return nullptr;
    for (int i = 0; i < GetColumns()->GetCount(); ++i) {
        if (GetColumns()->GetColumn(i) == column)
            return OwnTotalOf(*column);
    }
    return nullptr; // it is there no more
}

/// Of a column that is there.
const TZORVirtualDBGrid::TTotal* TZORVirtualDBGrid::OwnTotalOf(TColumn& column) const {
    const auto found = FTotals.find(&column);
    const bool isItsOwn = found != FTotals.end() && column.GetID() == found->second.ColumnID &&
                          column.GetFieldName() == found->second.FieldName;
    return isItsOwn ? &found->second : nullptr;
}

/// With rows in line.
const TZORVirtualDBGrid::TTotal* TZORVirtualDBGrid::PresentTotalOf(TColumn* column) {
    TLifeGuard alive(*this);
    CatchUp();
    return alive ? TotalOf(column) : nullptr;
}

Variant TZORVirtualDBGrid::GetColumnTotal(TColumn* column) {
    const TTotal* total = PresentTotalOf(column);
    return total ? total->Sum.AsVariant() : Null();
}

String TZORVirtualDBGrid::GetPlainTotal(TColumn* column) {
    const TTotal* total = PresentTotalOf(column);
    return total ? total->Sum.AsText() : String();
}

String TZORVirtualDBGrid::FormatColumnTotal(TColumn* column) {
    const TTotal* total = PresentTotalOf(column);
    if (!total)
        return {};
    const TField* field = column->GetField();
    OleVariant keeper;
    const TFieldValue value = total->Sum.Value(keeper);
    // How many are true is a number, and so is what is too long for one.
    const bool isPlain = !field || field->GetDataType() == ftBoolean || value.Kind() == TFieldValue::TKind::Text;
    return isPlain ? total->Sum.AsText() : field->DisplayTextOf(value);
}

} // namespace ZOR
