#include "framework/db/adodataset.h"

#include "framework/db/fieldclasses.h"
#include "framework/db/odbcopener.h"
#include "framework/system/numbers.h"
#include "framework/system/updates.h"

#include <algorithm>
#include <memory>

namespace framework {

namespace {

TRecordsetOpener& Opener() {
    static TRecordsetOpener opener;
    return opener;
}

std::shared_ptr<_Recordset> OpenQuery(TRecordsetQuery& query) {
    if (const TRecordsetOpener opener = Opener())
        return opener(query);
#ifdef FRAMEWORK_HAS_ODBC
    return OpenThroughOdbc(query);
#else
    DatabaseError(u"This program was built without ODBC");
#endif
}

} // namespace

void SetRecordsetOpener(TRecordsetOpener opener) {
    Opener() = std::move(opener);
}

const TEnumInfo& DescribeEnum(TCursorLocation) {
    static const TEnumInfo info{u"TCursorLocation", {u"clUseServer", u"clUseClient"}};
    return info;
}

TDataValue DataValueOf(const TFieldValue& value) {
    using TKind = TFieldValue::TKind;
    switch (value.Kind()) {
    case TKind::Unassigned:
    case TKind::Null:
        return std::monostate();
    case TKind::Boolean:
        return value.Whole() != 0;
    case TKind::Integer:
        return value.Whole();
    case TKind::Float:
        return value.Floating();
    case TKind::Money:
        return TNumeric{value.Whole(), Currency::decimals};
    case TKind::Decimal:
        return TNumeric{value.Whole(), value.Scale()};
    case TKind::Date:
        return TMoment::FromDateTime(value.Floating());
    case TKind::Text:
        return String(value.Units());
    case TKind::Bytes:
        return TBytes(value.Octets().begin(), value.Octets().end());
    case TKind::Guid:
        break;
    }
    return value.GuidValue();
}

namespace {

bool HasAnyDecimals(const TColumnInfo& column) {
    return column.Type == adNumeric && column.Precision == 0;
}

} // namespace

TFieldType FieldTypeOf(const TColumnInfo& column) {
    switch (column.Type) {
    case adSmallInt:
        return ftSmallint;
    case adInteger:
        return column.AutoIncrement ? ftAutoInc : ftInteger;
    case adSingle:
        return ftSingle;
    case adDouble:
        return ftFloat;
    case adCurrency:
        return ftBCD;
    case adBoolean:
        return ftBoolean;
    case adTinyInt:
        return ftShortint;
    case adUnsignedTinyInt:
        return ftByte;
    case adUnsignedSmallInt:
        return ftWord;
    case adUnsignedInt:
        return ftLongWord;
    case adBigInt:
        return ftLargeint;
    case adGUID:
        return ftGuid;
    case adWChar:
        return ftFixedWideChar;
    case adNumeric:
        return !HasAnyDecimals(column) && column.Scale <= Currency::decimals && column.Precision <= 18 ? ftBCD
                                                                                                       : ftFMTBcd;
    case adDBDate:
        return ftDate;
    case adDBTime:
        return ftTime;
    case adDBTimeStamp:
        return ftDateTime;
    case adVarWChar:
        return ftWideString;
    case adLongVarWChar:
        return ftWideMemo;
    case adBinary:
        return ftBytes;
    case adVarBinary:
        return ftVarBytes;
    case adLongVarBinary:
        return ftBlob;
    case adEmpty:
        break;
    }
    return ftUnknown;
}

const TClassInfo& TCustomADODataSet::StaticClass() {
    static const TClassInfo info = DescribeClass<TCustomADODataSet>(u"TCustomADODataSet", TDataSet::StaticClass());
    return info;
}

TCustomADODataSet::TCustomADODataSet(TComponent* owner) : TDataSet(owner) {
    FMasterLink.OnMasterChange = [this](TObject*) { MasterChanged(); };
    FMasterLink.OnMasterDisable = FMasterLink.OnMasterChange;
}

TCustomADODataSet::~TCustomADODataSet() {
    CloseToDie();
}

// Properties.

void TCustomADODataSet::SetConnectionString(const String& value) {
    if (FConnectionString == value)
        return;
    CheckInactive();
    FConnectionString = value;
}

void TCustomADODataSet::SetConnection(std::shared_ptr<TOdbcConnection> value) {
    CheckInactive();
    FConnection = std::move(value);
    FSharesConnection = FConnection != nullptr;
}

void TCustomADODataSet::SetCommandText(const String& value) {
    if (FCommandText == value)
        return;
    CheckInactive();
    FCommandText = value;
    if (FParamCheck && !GetComponentState().Contains(csLoading))
        FParameters.ParseSQL(value);
}

void TCustomADODataSet::SetCursorLocation(TCursorLocation value) {
    if (FCursorLocation == value)
        return;
    CheckInactive();
    FCursorLocation = value;
}

void TCustomADODataSet::SetDataSource(TDataSource* value) {
    if (value && IsLinkedTo(value))
        DatabaseError(u"Circular datalinks are not allowed", this);
    FMasterLink.SetDataSource(value);
}

void TCustomADODataSet::SetRecordset(std::shared_ptr<_Recordset> value) {
    if (value && value == FRecordset)
        return;
    Close();
    if (!value)
        return;
    FGivenRecordset = std::move(value);
    Open();
}

int TCustomADODataSet::GetRecordStatus() const {
    TRecordBuffer buffer = ActiveRecordBuffer();
    return buffer ? HeaderOf(buffer).RecordStatus : adRecOK;
}

// Opening.

TFetchProgress TCustomADODataSet::ProgressHandler() {
    if (!OnFetchProgress)
        return {};
    return [this, state = GetState()](std::int64_t rows, std::int64_t count) {
        const auto narrow = [](std::int64_t value) {
            return static_cast<int>(std::min<std::int64_t>(value, INT32_MAX));
        };
        TEventStatus status = esOK;
        FireOrLeave(OnFetchProgress, this, narrow(rows), narrow(count), status);
        return status != esCancel && GetState() == state;
    };
}

namespace {

/// How a moment travels; adEmpty lets the moment itself say whether it is a whole day.
DataTypeEnum MomentTypeOf(TFieldType type) {
    switch (type) {
    case ftDate:
        return adDBDate;
    case ftTime:
        return adDBTime;
    case ftDateTime:
    case ftTimeStamp:
        return adDBTimeStamp;
    default:
        return adEmpty;
    }
}

} // namespace

std::shared_ptr<_Recordset> TCustomADODataSet::OpenRecordset() {
    TRecordsetQuery query;
    query.ConnectionString = FConnectionString;
    if (FCommandText.empty())
        DatabaseError(u"The dataset has no CommandText", this);
    const TParsedStatement parsed = ParseStatement(FCommandText);
    query.Statement = parsed.Text;
    int nameless = 0;
    for (const String& name : parsed.Names) {
        const TParameter* parameter = FParameters.ParamByName(name.empty() ? u"Param" + IntToStr(++nameless) : name);
        TSqlParameter value{DataValueOf(TFieldValue::Of(parameter->GetValue())), adEmpty};
        if (std::holds_alternative<TMoment>(value.Value))
            value.Type = MomentTypeOf(parameter->GetDataType());
        query.Parameters.push_back(std::move(value));
    }
    query.Progress = ProgressHandler();
    query.Connection = FConnection;
    std::shared_ptr<_Recordset> rows = OpenQuery(query);
    FConnection = std::move(query.Connection);
    return rows;
}

void TCustomADODataSet::InternalOpen() {
    TakeMasterValues();
    FRecordset = FGivenRecordset ? FGivenRecordset : OpenRecordset();
    SetBookmarkSize(FRecordset->Supports(adBookmark) ? static_cast<int>(sizeof(OleVariant)) : 0);
    FCanModify = FRecordset->Supports(adUpdate);
    FColumnNames = ColumnNames();
    TakeColumns();
    ReadFieldDefs();
    if (GetDefaultFields())
        CreateFields();
    BindFields(true);
    FSlotCount = GetFieldCount();
}

std::vector<String> TCustomADODataSet::ColumnNames() const {
    std::vector<String> names;
    for (int i = 0; i < FRecordset->GetColumnCount(); ++i)
        names.push_back(FRecordset->GetColumn(i).Name);
    return names;
}

/// Rows that are read anew may have columns of other types, as where the type is that of the values. EDatabaseError
/// when they are not the columns that the fields were made for.
void TCustomADODataSet::TakeColumns() {
    if (ColumnNames() != FColumnNames)
        DatabaseError(u"The columns have changed; open the dataset again", this);
    FColumnTypes.clear();
    for (int i = 0; i < FRecordset->GetColumnCount(); ++i)
        FColumnTypes.push_back(FRecordset->GetColumn(i).Type);
}

void TCustomADODataSet::ReadFieldDefs() {
    TFieldDefs& defs = *GetFieldDefs();
    TNameMap<int> taken;
    WithinUpdate(defs, [&] {
        defs.Clear();
        for (int i = 0; i < FRecordset->GetColumnCount(); ++i) {
            const TColumnInfo& column = FRecordset->GetColumn(i);
            TFieldDef* def = defs.AddFieldDef();
            const String name = column.Name.empty() ? u"Column" + IntToStr(i + 1) : column.Name;
            String unique = name;
            for (int number = 1; !taken.emplace(unique, i).second; ++number)
                unique = name + u"_" + IntToStr(number);
            def->SetName(unique);
            def->SetDataType(FieldTypeOf(column));
            const bool isExact = column.Type == adNumeric || column.Type == adCurrency;
            def->SetSize(HasAnyDecimals(column) ? -1
                         : isExact              ? column.Scale
                                                : static_cast<int>(std::min<std::int64_t>(column.Size, INT32_MAX)));
            def->SetPrecision(column.Precision);
            TFieldAttributes attributes;
            if (column.ReadOnly)
                attributes << faReadonly;
            if (!column.Nullable && !column.AutoIncrement && !column.ReadOnly)
                attributes << faRequired;
            def->SetAttributes(attributes);
        }
    });
}

void TCustomADODataSet::InternalClose() {
    DestroyLookupCursor();
    FreeBufferAt(FPassingBuffer);
    FGivenRecordset.reset();
    FRecordset.reset();
    if (!FSharesConnection)
        FConnection.reset();
    FColumnNames.clear();
    FColumnTypes.clear();
    FCanModify = false;
}

// Record buffers.

TRecordBuffer TCustomADODataSet::AllocRecordBuffer() {
    const auto slots = static_cast<std::size_t>(FSlotCount);
    auto* buffer = new unsigned char[sizeof(TRecInfo) + slots * sizeof(OleVariant)];
    new (buffer) TRecInfo;
    std::uninitialized_default_construct_n(ValuesOf(buffer), slots);
    return buffer;
}

void TCustomADODataSet::FreeRecordBuffer(TRecordBuffer buffer) {
    std::destroy_n(ValuesOf(buffer), static_cast<std::size_t>(FSlotCount));
    HeaderOf(buffer).~TRecInfo();
    delete[] buffer;
}

void TCustomADODataSet::FinalizeValues(TRecordBuffer buffer, int count) {
    OleVariant* values = ValuesOf(buffer);
    for (int i = 0; i < count; ++i)
        values[i].Clear();
}

void TCustomADODataSet::ClearCalcFields(TRecordBuffer buffer) {
    for (const TField* field : GetFields()) {
        if (field->GetCalculated())
            ValuesOf(buffer)[SlotOf(*field)].Clear();
    }
}

void TCustomADODataSet::InternalInitRecord(TRecordBuffer buffer) {
    TRecInfo& header = HeaderOf(buffer);
    header.Bookmark.Clear();
    header.BookmarkFlag = bfInserted;
    header.RecordStatus = adRecNew;
    header.RecordNumber = -1;
    FinalizeValues(buffer, FSlotCount);
}

TBookmarkFlag TCustomADODataSet::GetBookmarkFlag(TRecordBuffer buffer) const {
    return HeaderOf(buffer).BookmarkFlag;
}

void TCustomADODataSet::SetBookmarkFlag(TRecordBuffer buffer, TBookmarkFlag value) {
    HeaderOf(buffer).BookmarkFlag = value;
}

TBookmark TCustomADODataSet::GetBookmarkData(TRecordBuffer buffer) const {
    return TBookmark(HeaderOf(buffer).Bookmark);
}

void TCustomADODataSet::SetBookmarkData(TRecordBuffer buffer, const TBookmark& value) {
    HeaderOf(buffer).Bookmark = value.Value();
}

// Values.

/// A value of the recordset's row.
TFieldValue TCustomADODataSet::ReadColumn(int column) const {
    const _Recordset& rows = *FRecordset;
    if (rows.IsNull(column))
        return TFieldValue::Null();
    switch (FColumnTypes[static_cast<std::size_t>(column)]) {
    case adSmallInt:
    case adInteger:
    case adTinyInt:
    case adUnsignedTinyInt:
    case adUnsignedSmallInt:
    case adUnsignedInt:
    case adBigInt:
        return TFieldValue::Integer(rows.GetInt64(column));
    case adSingle:
    case adDouble:
        return TFieldValue::Float(rows.GetDouble(column));
    case adCurrency:
    case adNumeric: {
        TNumeric number;
        return rows.TryGetNumeric(column, number) ? TFieldValue::Decimal(number)
                                                  : TFieldValue::Text(rows.GetText(column));
    }
    case adBoolean:
        return TFieldValue::Boolean(rows.GetBoolean(column));
    case adGUID:
        return TFieldValue::Guid(rows.GetGuid(column));
    case adDBDate:
    case adDBTime:
    case adDBTimeStamp:
        return TFieldValue::Date(rows.GetMoment(column).AsDateTime());
    case adWChar:
    case adVarWChar:
    case adLongVarWChar:
        return TFieldValue::Text(rows.GetText(column));
    case adBinary:
    case adVarBinary:
    case adLongVarBinary:
        return TFieldValue::Bytes(rows.GetBytes(column));
    case adEmpty:
        break;
    }
    return TFieldValue::Null();
}

bool TCustomADODataSet::IsNewRecord(TRecordBuffer buffer) const {
    return HeaderOf(buffer).RecordStatus == adRecNew;
}

TFieldValue TCustomADODataSet::GetFieldData(const TField& field) {
    TRecordBuffer buffer = ActiveRecordBuffer();
    if (!buffer)
        return TFieldValue::Null();
    const bool wantsStored = GetState() == dsOldValue;
    if (!wantsStored) {
        const OleVariant& value = ValuesOf(buffer)[SlotOf(field)];
        if (!value.IsEmpty())
            return value.View();
    }
    if (field.GetFieldNo() == 0 || IsNewRecord(buffer))
        return TFieldValue::Null();
    if (!IsTemporary(buffer))
        UpdateCursorPos();
    return ReadColumn(field.GetFieldNo() - 1);
}

void TCustomADODataSet::SetFieldData(TField& field, const TFieldValue& value) {
    ValuesOf(ActiveRecordBuffer())[SlotOf(field)] = OleVariant(value);
}

// Editing.

void TCustomADODataSet::CheckCanModify() {
    if (FCanModify)
        return;
    // The recordset knows why not.
    if (FRecordset) {
        FRecordset->AddNew();
        FRecordset->CancelUpdate();
    }
    TDataSet::CheckCanModify();
}

namespace {

/// A decimal is a text where it has too many digits for a number, and is another number then.
bool IsSame(const TFieldValue& stored, const TFieldValue& value) {
    using TKind = TFieldValue::TKind;
    const auto isWidened = [](TKind one, TKind other) { return one == TKind::Decimal && other == TKind::Text; };
    return !isWidened(stored.Kind(), value.Kind()) && !isWidened(value.Kind(), stored.Kind()) &&
           OleVariant(stored) == OleVariant(value);
}

} // namespace

std::vector<TColumnValue> TCustomADODataSet::ChangedValues() {
    std::vector<TColumnValue> changed;
    TRecordBuffer buffer = ActiveBuffer();
    const bool isNew = IsNewRecord(buffer);
    for (const TField* field : GetFields()) {
        const OleVariant& value = ValuesOf(buffer)[SlotOf(*field)];
        if (value.IsEmpty() || field->GetFieldNo() == 0)
            continue;
        const int column = field->GetFieldNo() - 1;
        if (!isNew && IsSame(ReadColumn(column), value.View()))
            continue; // as it was: nobody else's change of this column is in the way
        changed.push_back({column, DataValueOf(value.View())});
    }
    return changed;
}

void TCustomADODataSet::InternalPost() {
    const bool isNew = GetState() == dsInsert;
    const std::vector<TColumnValue> values = ChangedValues();
    if (!isNew) {
        if (!values.empty())
            FRecordset->Update(values);
        return;
    }
    FRecordset->AddNew();
    try {
        FRecordset->Update(values);
    } catch (...) {
        FRecordset->CancelUpdate();
        throw;
    }
}

void TCustomADODataSet::InternalCancel() {
    FinalizeValues(ActiveBuffer(), FSlotCount);
}

void TCustomADODataSet::InternalDelete() {
    FRecordset->Delete();
    if (!FRecordset->GetEOF())
        FRecordset->MoveNext();
}

// Refreshing.

void TCustomADODataSet::Requery() {
    if (!FRecordset->Supports(adResync))
        return;
    // Kept alive here, should a handler of the progress free the dataset.
    const std::shared_ptr<_Recordset> rows = FRecordset;
    rows->Requery(ProgressHandler());
    CheckActive();
    Attempt([&] { TakeColumns(); }, [&] { Close(); });
}

void TCustomADODataSet::InternalRefresh() {
    if (!FRecordset->Supports(adResync))
        return;
    const TRowKey key = KeyOfRow();
    Requery();
    GoToRow(key);
}

TCustomADODataSet::TRowKey TCustomADODataSet::KeyOfRow() const {
    TRowKey key;
    key.Position = FRecordset->GetAbsolutePosition();
    if (key.Position < 1)
        return key;
    for (int i = 0; i < FRecordset->GetColumnCount(); ++i) {
        if (FRecordset->GetColumn(i).Key)
            key.Values.emplace_back(ReadColumn(i));
    }
    return key;
}

/// To the row with this key, which mostly is where it was; if it is gone, to the one in its place.
void TCustomADODataSet::GoToRow(const TRowKey& key) {
    const int count = FRecordset->GetRecordCount();
    if (count == 0 || key.Position < 1)
        return;
    const int position = std::min(key.Position, count);
    FRecordset->SetAbsolutePosition(position);
    if (key.Values.empty() || KeyOfRow().Values == key.Values)
        return;
    for (FRecordset->MoveFirst(); !FRecordset->GetEOF(); FRecordset->MoveNext()) {
        if (KeyOfRow().Values == key.Values)
            return;
    }
    FRecordset->SetAbsolutePosition(position);
}

// Master and detail.

template <class TBody>
void TCustomADODataSet::EachMasterValue(TBody&& body) {
    const TDataSet* master = FMasterLink.GetActive() ? FMasterLink.GetDataSet() : nullptr;
    if (!master)
        return;
    for (int i = 0; i < FParameters.GetCount(); ++i) {
        TParameter& parameter = *FParameters.GetItem(i);
        if (const TField* field = master->FindField(parameter.GetName()))
            body(parameter, *field);
    }
}

void TCustomADODataSet::TakeMasterValues() {
    EachMasterValue([](TParameter& parameter, const TField& field) {
        parameter.SetValue(field.GetAsVariant());
        parameter.SetDataType(field.GetDataType());
    });
    FMasterWasEmpty = MasterIsEmpty();
}

void TCustomADODataSet::MasterChanged() {
    if (!GetActive())
        return;
    bool differs = false;
    EachMasterValue([&](const TParameter& parameter, const TField& field) {
        differs = differs || parameter.GetValue() != field.GetAsVariant();
    });
    if (!differs && FMasterWasEmpty == MasterIsEmpty())
        return; // something that the rows here do not depend on
    Operation([&] {
        CheckBrowseMode();
        TakeMasterValues();
        ViewChanged();
        if (differs && !FGivenRecordset) {
            // Whatever goes wrong, rows of the former master are not shown for this one.
            Attempt(
                [&] {
                    FRecordset = OpenRecordset();
                    RowsReplaced();
                    TakeColumns();
                },
                [&] { Close(); });
        }
        FillFrom(false);
        DataEvent(deDataSetChange, 0);
    });
}

// Registration.

const TClassInfo& TADODataSet::StaticClass() {
    static const TClassInfo info = DescribeClass<TADODataSet>(
        u"TADODataSet", TCustomADODataSet::StaticClass(),
        {Property<&TADODataSet::GetStoredActive, &TADODataSet::SetActive>(u"Active", false),
         Property<&TADODataSet::GetAutoCalcFields, &TADODataSet::SetAutoCalcFields>(u"AutoCalcFields", true),
         Property<&TADODataSet::GetCommandText, &TADODataSet::SetCommandText>(u"CommandText"),
         Property<&TADODataSet::GetConnectionString, &TADODataSet::SetConnectionString>(u"ConnectionString"),
         Property<&TADODataSet::GetCursorLocation, &TADODataSet::SetCursorLocation>(u"CursorLocation", clUseClient),
         Property<&TADODataSet::GetDataSource, &TADODataSet::SetDataSource>(u"DataSource"),
         Property<&TADODataSet::GetFiltered, &TADODataSet::SetFiltered>(u"Filtered", false),
         Property<&TADODataSet::GetParamCheck, &TADODataSet::SetParamCheck>(u"ParamCheck", true),
         Property<&TADODataSet::GetParameters, &TADODataSet::SetParameters>(u"Parameters"),
         Event<&TADODataSet::BeforeOpen>(u"BeforeOpen"),
         Event<&TADODataSet::AfterOpen>(u"AfterOpen"),
         Event<&TADODataSet::BeforeClose>(u"BeforeClose"),
         Event<&TADODataSet::AfterClose>(u"AfterClose"),
         Event<&TADODataSet::BeforeInsert>(u"BeforeInsert"),
         Event<&TADODataSet::AfterInsert>(u"AfterInsert"),
         Event<&TADODataSet::BeforeEdit>(u"BeforeEdit"),
         Event<&TADODataSet::AfterEdit>(u"AfterEdit"),
         Event<&TADODataSet::BeforePost>(u"BeforePost"),
         Event<&TADODataSet::AfterPost>(u"AfterPost"),
         Event<&TADODataSet::BeforeCancel>(u"BeforeCancel"),
         Event<&TADODataSet::AfterCancel>(u"AfterCancel"),
         Event<&TADODataSet::BeforeDelete>(u"BeforeDelete"),
         Event<&TADODataSet::AfterDelete>(u"AfterDelete"),
         Event<&TADODataSet::BeforeScroll>(u"BeforeScroll"),
         Event<&TADODataSet::AfterScroll>(u"AfterScroll"),
         Event<&TADODataSet::BeforeRefresh>(u"BeforeRefresh"),
         Event<&TADODataSet::AfterRefresh>(u"AfterRefresh"),
         Event<&TADODataSet::OnCalcFields>(u"OnCalcFields"),
         Event<&TADODataSet::OnDeleteError>(u"OnDeleteError"),
         Event<&TADODataSet::OnEditError>(u"OnEditError"),
         Event<&TADODataSet::OnFilterRecord>(u"OnFilterRecord"),
         Event<&TADODataSet::OnNewRecord>(u"OnNewRecord"),
         Event<&TADODataSet::OnPostError>(u"OnPostError"),
         Event<&TADODataSet::OnFetchProgress>(u"OnFetchProgress")});
    return info;
}

void RegisterDataClasses() {
    RegisterFieldClasses();
    RegisterComponents(DataAccessPage, {&TADODataSet::StaticClass(), &TDataSource::StaticClass()});
}

} // namespace framework
