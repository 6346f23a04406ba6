#include "framework/db/clientrecordset.h"

#include "framework/system/strings.h"

#include <algorithm>
#include <atomic>

namespace framework {

int _Recordset::FindColumn(StringView name) const {
    for (int column = 0; column < GetColumnCount(); ++column) {
        if (AnsiSameText(GetColumn(column).Name, name))
            return column;
    }
    return -1;
}

namespace {

Variant VariantOfBytes(TBytesView bytes) {
    std::vector<Variant> elements;
    elements.reserve(bytes.size());
    for (const std::uint8_t byte : bytes)
        elements.emplace_back(static_cast<int>(byte));
    return Variant::FromList(std::move(elements));
}

} // namespace

Variant _Recordset::GetVariant(int column) const {
    if (IsNull(column))
        return Variant::Null();
    const DataTypeEnum type = GetColumn(column).Type;
    if (type == adBoolean)
        return GetBoolean(column);
    if (type == adBigInt || type == adUnsignedInt)
        return GetInt64(column);
    if (IsWholeNumberType(type))
        return static_cast<std::int32_t>(GetInt64(column));
    if (IsFloatType(type))
        return GetDouble(column);
    if (type == adNumeric || type == adCurrency) {
        TNumeric number;
        TNumeric money;
        if (TryGetNumeric(column, number) && number.TryRescale(Currency::decimals, money))
            return Currency::FromUnits(money.Units);
        return GetDouble(column);
    }
    if (IsMomentType(type))
        return Variant::FromDate(GetMoment(column).AsDateTime());
    if (type == adGUID)
        return GUIDToString(GetGuid(column));
    if (IsBytesType(type))
        return VariantOfBytes(GetBytes(column));
    return GetText(column);
}

TDataValue _Recordset::GetValue(int column) const {
    if (IsNull(column))
        return {};
    const DataTypeEnum type = GetColumn(column).Type;
    if (type == adBoolean)
        return GetBoolean(column);
    if (IsWholeNumberType(type))
        return GetInt64(column);
    if (IsFloatType(type))
        return GetDouble(column);
    if (TNumeric number; (type == adNumeric || type == adCurrency) && TryGetNumeric(column, number))
        return number;
    if (IsMomentType(type))
        return GetMoment(column);
    if (type == adGUID)
        return GetGuid(column);
    if (IsBytesType(type)) {
        const TBytesView bytes = GetBytes(column);
        return TBytes(bytes.begin(), bytes.end());
    }
    return String(GetText(column));
}

TClientRecordset::TClientRecordset(TRowStore rows) {
    Open(std::move(rows));
}

TClientRecordset::TClientRecordset(std::unique_ptr<TRowSource> source, const TFetchProgress& progress)
    : FSource(std::move(source)) {
    Open(FSource->Fetch(progress));
}

void TClientRecordset::Open(TRowStore rows) {
    // Rows of another reading, or of another recordset, never answer to these bookmarks.
    static std::atomic<std::int64_t> readings = 0;
    FFirstBookmark = (++readings << 32) + 1;
    FRows = std::move(rows);
    FLive = TLiveRows(FRows.GetRowCount());
    FPlace = TPlace::Before;
    MoveFirst();
}

// The cursor.

void TClientRecordset::GoTo(int row, TPlace otherwise) {
    FRow = row;
    FPlace = row >= 0 ? TPlace::OnRow : otherwise;
}

int TClientRecordset::CheckedRow() const {
    if (FPlace != TPlace::OnRow)
        throw EDatabaseError(u"The recordset has no current record");
    if (!FLive.Contains(FRow))
        throw EDatabaseError(u"The current record has been deleted");
    return FRow;
}

Variant TClientRecordset::GetBookmark() const {
    return FFirstBookmark + CheckedRow();
}

void TClientRecordset::SetBookmark(const Variant& value) {
    std::int64_t row = -1;
    if (!VarIsEmpty(value) && VarIsNumeric(value))
        row = value.AsInteger() - FFirstBookmark;
    if (row < 0 || row >= FRows.GetRowCount() || !FLive.Contains(static_cast<int>(row)))
        throw EDatabaseError(u"The bookmark belongs to no record");
    CancelUpdate();
    GoTo(static_cast<int>(row), TPlace::Before);
}

int TClientRecordset::GetAbsolutePosition() const {
    if (GetBOF())
        return adPosBOF;
    if (GetEOF())
        return adPosEOF;
    return FPlace == TPlace::OnRow && FLive.Contains(FRow) ? FLive.PositionOf(FRow) + 1 : adPosUnknown;
}

void TClientRecordset::SetAbsolutePosition(int value) {
    if (value < 1 || value > FLive.GetCount())
        throw EDatabaseError(u"The recordset has no record at this position");
    CancelUpdate();
    GoTo(FLive.RowAt(value - 1), TPlace::Before);
}

int TClientRecordset::GetStatus() const {
    if (FPlace == TPlace::NewRow)
        return adRecNew;
    return FPlace == TPlace::OnRow && !FLive.Contains(FRow) ? adRecDeleted : adRecOK;
}

void TClientRecordset::MoveFirst() {
    CancelUpdate();
    GoTo(FLive.First(), TPlace::Before);
}

void TClientRecordset::MoveLast() {
    CancelUpdate();
    GoTo(FLive.Last(), TPlace::Behind);
}

void TClientRecordset::MoveNext() {
    CancelUpdate();
    if (GetEOF())
        throw EDatabaseError(u"The recordset is behind its last record");
    GoTo(FLive.Next(FPlace == TPlace::Before ? -1 : FRow), TPlace::Behind);
}

void TClientRecordset::MovePrevious() {
    CancelUpdate();
    if (GetBOF())
        throw EDatabaseError(u"The recordset is before its first record");
    GoTo(FPlace == TPlace::Behind ? FLive.Last() : FLive.Previous(FRow), TPlace::Before);
}

void TClientRecordset::Move(int count) {
    CancelUpdate();
    const bool forwards = count > 0;
    std::int64_t steps = forwards ? count : -static_cast<std::int64_t>(count);
    // From a deleted row or an end the first step leads to a row with a position; the others are arithmetic.
    if (steps > 0 && !(FPlace == TPlace::OnRow && FLive.Contains(FRow))) {
        if (forwards ? GetEOF() : GetBOF())
            return;
        forwards ? MoveNext() : MovePrevious();
        --steps;
    }
    if (steps == 0 || FPlace != TPlace::OnRow)
        return;
    const std::int64_t position = FLive.PositionOf(FRow) + (forwards ? steps : -steps);
    if (position < 0)
        GoTo(-1, TPlace::Before);
    else if (position >= FLive.GetCount())
        GoTo(-1, TPlace::Behind);
    else
        GoTo(FLive.RowAt(static_cast<int>(position)), TPlace::Before);
}

bool TClientRecordset::Supports(int options) const {
    constexpr int always = adMovePrevious | adBookmark | adApproxPosition;
    int offered = always;
    if (FSource)
        offered |= adResync;
    try {
        if (FSource)
            FSource->CheckEditable();
        offered |= adAddNew | adDelete | adUpdate;
    } catch (const EReadOnlyDataError&) {
        // Then it offers no edits.
    }
    return (options & ~offered) == 0;
}

// Values.

const TColumnInfo& TClientRecordset::GetColumn(int column) const {
    return CheckedColumn(column).GetInfo();
}

const TColumnStore& TClientRecordset::CheckedColumn(int column) const {
    if (column < 0 || column >= FRows.GetColumnCount())
        throw EDatabaseError(u"The recordset has no such column");
    return FRows.Column(column);
}

template <class T>
T TClientRecordset::Read(int column, T (TColumnStore::*getter)(int) const) const {
    const TColumnStore& store = CheckedColumn(column);
    return FPlace == TPlace::NewRow ? T() : (store.*getter)(CheckedRow());
}

bool TClientRecordset::IsNull(int column) const {
    return FPlace == TPlace::NewRow || CheckedColumn(column).IsNull(CheckedRow());
}

bool TClientRecordset::GetBoolean(int column) const {
    return Read(column, &TColumnStore::GetBoolean);
}

std::int64_t TClientRecordset::GetInt64(int column) const {
    return Read(column, &TColumnStore::GetInt64);
}

double TClientRecordset::GetDouble(int column) const {
    return Read(column, &TColumnStore::GetDouble);
}

bool TClientRecordset::TryGetNumeric(int column, TNumeric& value) const {
    const TColumnStore& store = CheckedColumn(column);
    value = {};
    return FPlace == TPlace::NewRow || store.TryGetNumeric(CheckedRow(), value);
}

StringView TClientRecordset::GetText(int column) const {
    return Read(column, &TColumnStore::GetText);
}

TMoment TClientRecordset::GetMoment(int column) const {
    return Read(column, &TColumnStore::GetMoment);
}

TBytesView TClientRecordset::GetBytes(int column) const {
    return Read(column, &TColumnStore::GetBytes);
}

TGUID TClientRecordset::GetGuid(int column) const {
    return Read(column, &TColumnStore::GetGuid);
}

// Edits.

void TClientRecordset::AddNew() {
    if (FSource)
        FSource->CheckEditable();
    CancelUpdate();
    FRowBeforeNew = FRow;
    FPlaceBeforeNew = FPlace;
    FPlace = TPlace::NewRow;
}

void TClientRecordset::CancelUpdate() {
    if (FPlace != TPlace::NewRow)
        return;
    FRow = FRowBeforeNew;
    FPlace = FPlaceBeforeNew;
}

std::vector<TColumnValue> TClientRecordset::Adapted(std::span<const TColumnValue> values) const {
    std::vector<TColumnValue> adapted;
    adapted.reserve(values.size());
    for (const TColumnValue& value : values) {
        const TColumnInfo& column = GetColumn(value.Column);
        if (column.ReadOnly)
            throw EReadOnlyDataError(u"The column '" + column.Name + u"' cannot be changed");
        adapted.push_back({value.Column, AdaptValue(column, value.Value)});
    }
    return adapted;
}

void TClientRecordset::Store(int row, std::span<const TColumnValue> values) {
    for (const TColumnValue& value : values) {
        TColumnStore& column = FRows.Column(value.Column);
        // A key that the database gives can outgrow the type that was enough for the keys so far.
        if (const auto* whole = std::get_if<std::int64_t>(&value.Value); whole && !column.Fits(*whole))
            column.WidenToBigInt();
        column.Set(row, value.Value);
    }
}

void TClientRecordset::Update(std::span<const TColumnValue> values) {
    const bool isNew = FPlace == TPlace::NewRow;
    const int row = isNew ? -1 : CheckedRow();
    if (FSource)
        FSource->CheckEditable();
    const std::vector<TColumnValue> adapted = Adapted(values);
    if (!isNew) {
        Store(row, FSource ? FSource->Update(FRows, row, adapted) : adapted);
        return;
    }
    // Room first, so that a row which the database has taken always finds its place.
    const int added = FRows.AppendRow();
    try {
        Store(added, FSource ? FSource->Insert(FRows, adapted) : adapted);
    } catch (...) {
        FRows.DropLastRow();
        throw;
    }
    GoTo(FLive.Append(), TPlace::Behind);
}

void TClientRecordset::Delete() {
    const int row = CheckedRow();
    if (FSource)
        FSource->Delete(FRows, row);
    FLive.Remove(row);
}

void TClientRecordset::Requery(const TFetchProgress& progress) {
    if (!FSource)
        throw EDatabaseError(u"The recordset has nothing to read its records from");
    CancelUpdate();
    Open(FSource->Fetch(progress));
}

void TClientRecordset::Close() {
    CancelUpdate();
    FRows = {};
    FLive = {};
    FSource.reset();
    FRow = -1;
    FPlace = TPlace::Before;
}

} // namespace framework
