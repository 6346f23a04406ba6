#include "framework/db/odbcreader.h"

#include "framework/db/datatexts.h"
#include "framework/system/strings.h"

#ifdef _WIN32
#include <windows.h>
#endif
#include <sql.h>
#include <sqlext.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace framework {

namespace {

constexpr std::size_t blockBytes = 1 << 20;
constexpr int blockRows = 128;
constexpr int rowsBetweenReports = 1000;
/// Room for whatever is not a text or bytes.
constexpr std::size_t shortWidth = 64;
/// Longer texts and bytes are read one by one.
constexpr std::size_t longestWidth = 1024;
constexpr std::size_t bytesOfUtf8 = 4;

/// By what means a column's cells are read.
enum class TReading : std::uint8_t {
    Whole,
    Boolean,
    Decimal,
    Money,
    Float,
    Binary64,
    Moment,
    Stamp, ///< a moment that the driver has taken apart
    Guid,
    Utf8,
    Utf16,
    Bytes
};

TReading ReadingOf(const TColumnPlan& plan, TOdbcSession& session, bool inBlocks) {
    const DataTypeEnum type = plan.Info.Type;
    if (type == adBoolean)
        return TReading::Boolean;
    if (IsWholeNumberType(type))
        return TReading::Whole;
    if (type == adCurrency && session.Kind() == TDatabaseKind::PostgreSQL)
        return TReading::Money;
    if (type == adNumeric || type == adCurrency)
        return TReading::Decimal;
    if (IsFloatType(type))
        return session.Kind() == TDatabaseKind::Other ? TReading::Binary64 : TReading::Float;
    if (IsMomentType(type)) {
        // PostgreSQL's driver takes every moment apart, and longer still to make a text of it again.
        const bool isQuicker = session.Kind() == TDatabaseKind::PostgreSQL && type != adDBTime;
        return isQuicker && inBlocks && session.ReadsLongValuesInBlocks() ? TReading::Stamp : TReading::Moment;
    }
    if (type == adGUID)
        return TReading::Guid;
    if (IsBytesType(type))
        return TReading::Bytes;
    return session.CharsAreUtf8() ? TReading::Utf8 : TReading::Utf16;
}

short CTypeOf(TReading reading) {
    switch (reading) {
    case TReading::Binary64:
        return SQL_C_DOUBLE;
    case TReading::Stamp:
        return SQL_C_TYPE_TIMESTAMP;
    case TReading::Bytes:
        return SQL_C_BINARY;
    case TReading::Utf16:
        return SQL_C_WCHAR;
    default:
        return SQL_C_CHAR;
    }
}

std::size_t WidthOf(TReading reading, const TColumnInfo& info) {
    const auto size = info.Size > 0 ? static_cast<std::size_t>(info.Size) : longestWidth;
    switch (reading) {
    case TReading::Binary64:
        return sizeof(double);
    case TReading::Stamp:
        return sizeof(SQL_TIMESTAMP_STRUCT);
    case TReading::Utf8:
        return std::clamp(size * bytesOfUtf8 + 1, shortWidth, longestWidth);
    case TReading::Utf16:
        return std::clamp((size + 1) * sizeof(char16_t), shortWidth, longestWidth);
    case TReading::Bytes:
        return std::clamp(size, shortWidth, longestWidth);
    default:
        return shortWidth;
    }
}

std::size_t TerminatorOf(TReading reading) {
    switch (reading) {
    case TReading::Binary64:
    case TReading::Stamp:
    case TReading::Bytes:
        return 0;
    case TReading::Utf16:
        return sizeof(char16_t);
    default:
        return 1;
    }
}

DataTypeEnum TypeOf(const TOdbcColumn& column) {
    switch (column.SqlType) {
    case SQL_BIT:
        return adBoolean;
    case SQL_TINYINT:
        return column.Unsigned ? adUnsignedTinyInt : adTinyInt;
    case SQL_SMALLINT:
        return column.Unsigned ? adUnsignedSmallInt : adSmallInt;
    case SQL_INTEGER:
        return column.Unsigned ? adUnsignedInt : adInteger;
    case SQL_BIGINT:
        return adBigInt;
    case SQL_REAL:
        return adSingle;
    case SQL_FLOAT:
    case SQL_DOUBLE:
        return adDouble;
    case SQL_NUMERIC:
    case SQL_DECIMAL:
        return adNumeric;
    case SQL_DATE: // of ODBC 2
    case SQL_TYPE_DATE:
        return adDBDate;
    case SQL_TIME:
    case SQL_TYPE_TIME:
        return adDBTime;
    case SQL_TIMESTAMP:
    case SQL_TYPE_TIMESTAMP:
        return adDBTimeStamp;
    case SQL_GUID:
        return adGUID;
    case SQL_CHAR:
    case SQL_WCHAR:
        return adWChar;
    case SQL_LONGVARCHAR:
    case SQL_WLONGVARCHAR:
        return adLongVarWChar;
    case SQL_BINARY:
        return adBinary;
    case SQL_VARBINARY:
        return adVarBinary;
    case SQL_LONGVARBINARY:
        return adLongVarBinary;
    default:
        return adVarWChar;
    }
}

/// PostgreSQL's driver calls these texts or floats.
void ApplyPostgreSQLType(TColumnPlan& plan) {
    TColumnInfo& info = plan.Info;
    if (plan.ServerType == u"bool") {
        info.Type = adBoolean;
        info.Size = 0;
    } else if (plan.ServerType == u"money") {
        info.Type = adCurrency;
        info.Precision = 19;
        info.Scale = Currency::decimals;
    } else if (plan.ServerType != u"varchar" && IsTextType(info.Type) && info.Type != adWChar) {
        // What the driver says about the length of the others is a guess.
        info.Type = adLongVarWChar;
        info.Size = 0;
    }
}

} // namespace

std::vector<TColumnPlan> PlanColumns(const TOdbcStatement& statement, std::span<const TOdbcColumn> columns) {
    const TDatabaseKind kind = statement.Session().Kind();
    std::vector<TColumnPlan> plans;
    plans.reserve(columns.size());
    for (const TOdbcColumn& column : columns) {
        TColumnPlan& plan = plans.emplace_back();
        plan.ServerType = column.TypeName;
        TColumnInfo& info = plan.Info;
        info.Name = column.Name;
        info.BaseColumn = column.BaseTable.empty() ? String() : column.BaseColumn;
        info.Type = TypeOf(column);
        info.Nullable = column.Nullable;
        info.AutoIncrement = column.AutoUnique;
        info.ReadOnly = info.BaseColumn.empty();
        if (IsTextType(info.Type) || IsBytesType(info.Type)) {
            info.Size = info.Type == adLongVarWChar || info.Type == adLongVarBinary ? 0 : column.Size;
        } else if (info.Type == adNumeric) {
            info.Precision = static_cast<int>(column.Size);
            info.Scale = column.Digits;
        } else if (IsMomentType(info.Type)) {
            info.Scale = column.Digits;
        }
        if (kind == TDatabaseKind::PostgreSQL)
            ApplyPostgreSQLType(plan);
        if (kind == TDatabaseKind::SQLite && column.BaseTable.empty()) {
            plan.ByValues = true;
            info.Type = adLongVarWChar;
            info.Size = 0;
        }
    }
    return plans;
}

struct TOdbcReader::TBuffer {
    int Column = 0;
    TReading Reading = TReading::Utf16;
    std::size_t Width = 0;
    std::vector<char> Data;
    std::vector<SQLLEN> Lengths;

    bool IsNull(int row) const { return Lengths[static_cast<std::size_t>(row)] == SQL_NULL_DATA; }
    bool IsLong(int row) const {
        const SQLLEN length = Lengths[static_cast<std::size_t>(row)];
        return length == SQL_NO_TOTAL || length > static_cast<SQLLEN>(Width - TerminatorOf(Reading));
    }
    std::string_view Cell(int row) const {
        const auto index = static_cast<std::size_t>(row);
        return {Data.data() + index * Width, static_cast<std::size_t>(Lengths[index])};
    }
};

namespace {

bool PutWhole(TColumnStore& column, int row, std::string_view text) {
    std::int64_t value = 0;
    if (!TryParseWhole(text, value))
        return false;
    if (!column.Fits(value))
        column.WidenToBigInt();
    column.SetInt64(row, value);
    return true;
}

bool PutBoolean(TColumnStore& column, int row, std::string_view text) {
    const bool isTrue = text == "1" || text == "t" || text == "true";
    if (!isTrue && text != "0" && text != "f" && text != "false")
        return false;
    column.SetInt64(row, isTrue ? 1 : 0);
    return true;
}

bool PutDecimal(TColumnStore& column, int row, std::string_view text) {
    TNumeric number;
    TNumeric scaled;
    const TColumnInfo& info = column.GetInfo();
    if (TryParseNumeric(text, number) && !column.HasDigits() && number.TryRescale(info.Scale, scaled)) {
        column.SetNumeric(row, scaled);
        return true;
    }
    const String digits = AsciiToString(text);
    if (info.Type == adCurrency || !IsNumericText(digits))
        return false;
    column.WidenToDigits();
    column.SetText(row, digits);
    return true;
}

/// Money with the signs of the server's locale: -$1,234.50 or 1.234,50 EUR or ($1.00).
bool PutMoney(TColumnStore& column, int row, std::string_view text, char point) {
    const auto isDigit = [&](std::size_t at) { return at < text.size() && text[at] >= '0' && text[at] <= '9'; };
    std::string plain;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (isDigit(i))
            plain += text[i];
        else if (text[i] == point && i > 0 && isDigit(i - 1) && isDigit(i + 1))
            plain += '.';
        else if (text[i] == '-' || text[i] == '(')
            plain.insert(0, 1, '-');
    }
    return PutDecimal(column, row, plain);
}

bool PutGuid(TColumnStore& column, int row, std::string_view text) {
    TGUID value;
    if (!TryStringToGUID(AsciiToString(text), value))
        return false;
    column.SetGuid(row, value);
    return true;
}

bool PutFloat(TColumnStore& column, int row, std::string_view text) {
    double value = 0;
    if (!TryParseDouble(text, value))
        return false;
    column.SetDouble(row, value);
    return true;
}

bool PutMoment(TColumnStore& column, int row, std::string_view text) {
    TMoment value;
    if (!TryParseMoment(text, column.GetInfo().Type, value))
        return false;
    column.SetMoment(row, value);
    return true;
}

int DayOfYear(const TMomentParts& parts) {
    return parts.Month * 32 + parts.Day;
}

/// Yesterday, today and tomorrow: whatever day it is elsewhere, or past midnight, it is one of them.
std::array<int, 3> DaysAboutToday() {
    std::array<int, 3> days{};
    for (int i = 0; i < 3; ++i)
        days[static_cast<std::size_t>(i)] = DayOfYear(PartsOf(TMoment::FromDateTime(Date() + i - 1)));
    return days;
}

/// Where this driver cannot read a moment, such as infinity or the year 12345, it puts today's month and day in place
/// of what it has not found. False when that may be so, or when the parts make no moment.
bool PutStamp(TColumnStore& column, int row, std::string_view bytes, const std::array<int, 3>& aboutToday) {
    SQL_TIMESTAMP_STRUCT stamp{};
    bytes.copy(reinterpret_cast<char*>(&stamp), sizeof(stamp));
    const TMomentParts parts = {stamp.year,
                                stamp.month,
                                stamp.day,
                                stamp.hour,
                                stamp.minute,
                                stamp.second,
                                static_cast<int>(stamp.fraction / 100)};
    TMoment value;
    if (!TryMakeMoment(parts, value) ||
        std::find(aboutToday.begin(), aboutToday.end(), DayOfYear(parts)) != aboutToday.end())
        return false;
    column.SetMoment(row, value);
    return true;
}

} // namespace

TOdbcReader::TOdbcReader(TOdbcStatement& statement, std::vector<TColumnPlan>& plans)
    : FStatement(statement), FPlans(plans) {
}

TOdbcReader::~TOdbcReader() = default;

TRowStore TOdbcReader::ReadAll(const TFetchProgress& progress) {
    FProgress = progress ? &progress : nullptr;
    for (;;) {
        try {
            TRowStore rows = ReadOnce();
            FCount = rows.GetRowCount();
            Report(rows.GetRowCount(), true);
            JudgeByValues(rows);
            return rows;
        } catch (const TAgain&) {
            FStatement.Execute();
        }
    }
}

TRowStore TOdbcReader::ReadOnce() {
    std::vector<TColumnInfo> columns;
    for (const TColumnPlan& plan : FPlans)
        columns.push_back(plan.Info);
    TRowStore rows(std::move(columns));
    // Some drivers answer 0 for a query, which says nothing.
    const std::int64_t count = FStatement.RowsAffected();
    FCount = count > 0 ? count : -1;
    FReported = 0;
    FAboutToday = DaysAboutToday();
    if (FInBlocks)
        ReadBlocks(rows);
    else
        ReadSingly(rows);
    return rows;
}

void TOdbcReader::Report(int rows, bool atEnd) {
    if (!FProgress || (rows - FReported < rowsBetweenReports && !atEnd))
        return;
    FReported = rows;
    // Rows that are read a second time do not count twice.
    FTold = std::max(FTold, rows);
    const auto mayGoOn = [&] { return (*FProgress)(FTold, FCount); };
    if (!(atEnd ? mayGoOn() : FStatement.Session().WhileFetching(mayGoOn)))
        throw EFetchCancelled();
}

void TOdbcReader::BindBuffers() {
    FBuffers.clear();
    std::size_t rowBytes = 0;
    for (int column = 0; column < static_cast<int>(FPlans.size()); ++column) {
        const TColumnPlan& plan = FPlans[static_cast<std::size_t>(column)];
        TBuffer& buffer = FBuffers.emplace_back();
        buffer.Column = column;
        buffer.Reading = ReadingOf(plan, FStatement.Session(), FInBlocks);
        buffer.Width = WidthOf(buffer.Reading, plan.Info);
        if (buffer.Reading == TReading::Money)
            FMoneyPoint = FStatement.Session().MoneyPoint();
        rowBytes += buffer.Width + sizeof(SQLLEN);
    }
    if (!FInBlocks)
        return;
    const std::size_t count = std::clamp<std::size_t>(blockBytes / std::max<std::size_t>(rowBytes, 1), 1, blockRows);
    void* handle = FStatement.Handle().Get();
    FStatement.Check(SQLSetStmtAttrW(handle, SQL_ATTR_ROW_ARRAY_SIZE, reinterpret_cast<SQLPOINTER>(count), 0));
    for (TBuffer& buffer : FBuffers) {
        buffer.Data.resize(buffer.Width * count);
        buffer.Lengths.resize(count);
        FStatement.Check(SQLBindCol(handle, static_cast<SQLUSMALLINT>(buffer.Column + 1), CTypeOf(buffer.Reading),
                                    buffer.Data.data(), static_cast<SQLLEN>(buffer.Width), buffer.Lengths.data()));
    }
}

void TOdbcReader::UnbindBuffers() {
    void* handle = FStatement.Handle().Get();
    SQLFreeStmt(handle, SQL_UNBIND);
    SQLSetStmtAttrW(handle, SQL_ATTR_ROWS_FETCHED_PTR, nullptr, 0);
    SQLSetStmtAttrW(handle, SQL_ATTR_ROW_STATUS_PTR, nullptr, 0);
    SQLSetStmtAttrW(handle, SQL_ATTR_ROW_ARRAY_SIZE, reinterpret_cast<SQLPOINTER>(std::uintptr_t(1)), 0);
    FBuffers.clear();
}

void TOdbcReader::ReadBlocks(TRowStore& rows) {
    // The driver must not write into buffers that are gone, however this ends.
    struct TUnbinder {
        TOdbcReader& Reader;
        ~TUnbinder() { Reader.UnbindBuffers(); }
    } unbinder{*this};
    void* handle = FStatement.Handle().Get();
    SQLULEN fetched = 0;
    FStatement.Check(SQLSetStmtAttrW(handle, SQL_ATTR_ROWS_FETCHED_PTR, &fetched, 0));
    std::array<SQLUSMALLINT, blockRows> states{};
    FStatement.Check(SQLSetStmtAttrW(handle, SQL_ATTR_ROW_STATUS_PTR, states.data(), 0));
    BindBuffers();
    for (;;) {
        const SQLRETURN result = SQLFetch(handle);
        FStatement.Check(result);
        if (result == SQL_NO_DATA || fetched == 0)
            return;
        const int count = static_cast<int>(fetched);
        // The call succeeds when only some rows could not be read.
        if (std::find(states.begin(), states.begin() + count, SQLUSMALLINT(SQL_ROW_ERROR)) != states.begin() + count)
            FStatement.Check(SQL_ERROR);
        const int first = rows.AppendRows(count);
        PutBlock(rows, first, count);
        Report(rows.GetRowCount());
    }
}

void TOdbcReader::ReadSingly(TRowStore& rows) {
    BindBuffers();
    std::string bytes;
    while (FStatement.Fetch()) {
        const int row = rows.AppendRow();
        for (const TBuffer& buffer : FBuffers) {
            if (FStatement.ReadLong(buffer.Column, CTypeOf(buffer.Reading), bytes))
                Put(rows.Column(buffer.Column), buffer, row, bytes);
        }
        Report(rows.GetRowCount());
    }
    FBuffers.clear();
}

void TOdbcReader::PutBlock(TRowStore& rows, int firstRow, int count) {
    for (const TBuffer& buffer : FBuffers) {
        TColumnStore& column = rows.Column(buffer.Column);
        bool anyLong = false;
        for (int row = 0; row < count; ++row) {
            if (buffer.IsNull(row))
                continue;
            if (buffer.Reading == TReading::Stamp)
                anyLong = !PutStamp(column, firstRow + row, buffer.Cell(row), FAboutToday) || anyLong;
            else if (buffer.IsLong(row))
                anyLong = true;
            else
                Put(column, buffer, firstRow + row, buffer.Cell(row));
        }
        if (anyLong)
            PutLongValues(rows, buffer, firstRow, count);
    }
}

void TOdbcReader::PutLongValues(TRowStore& rows, const TBuffer& buffer, int firstRow, int count) {
    if (!FStatement.Session().ReadsLongValuesInBlocks()) {
        FInBlocks = false;
        throw TAgain();
    }
    TColumnStore& column = rows.Column(buffer.Column);
    const bool isStamp = buffer.Reading == TReading::Stamp;
    std::string bytes;
    for (int row = 0; row < count; ++row) {
        if (buffer.IsNull(row) || !(isStamp ? column.IsNull(firstRow + row) : buffer.IsLong(row)))
            continue;
        FStatement.Check(SQLSetPos(FStatement.Handle().Get(), static_cast<SQLSETPOSIROW>(row) + 1, SQL_POSITION,
                                   SQL_LOCK_NO_CHANGE));
        if (!FStatement.ReadLong(buffer.Column, isStamp ? SQL_C_CHAR : CTypeOf(buffer.Reading), bytes))
            continue;
        Put(column, buffer, firstRow + row, bytes);
    }
}

void TOdbcReader::Put(TColumnStore& column, const TBuffer& buffer, int row, std::string_view bytes) {
    bool understood = true;
    switch (buffer.Reading) {
    case TReading::Whole:
        understood = PutWhole(column, row, bytes);
        break;
    case TReading::Boolean:
        understood = PutBoolean(column, row, bytes);
        break;
    case TReading::Decimal:
        understood = PutDecimal(column, row, bytes);
        break;
    case TReading::Money:
        understood = PutMoney(column, row, bytes, FMoneyPoint);
        break;
    case TReading::Float:
        understood = PutFloat(column, row, bytes);
        break;
    case TReading::Binary64: {
        double value = 0;
        bytes.copy(reinterpret_cast<char*>(&value), sizeof(value));
        column.SetDouble(row, value);
        break;
    }
    case TReading::Moment:
    case TReading::Stamp:
        understood = PutMoment(column, row, bytes);
        break;
    case TReading::Guid:
        understood = PutGuid(column, row, bytes);
        break;
    case TReading::Utf8:
        column.SetUtf8(row, bytes);
        break;
    case TReading::Utf16:
        column.SetText(row, {reinterpret_cast<const char16_t*>(bytes.data()), bytes.size() / sizeof(char16_t)});
        break;
    case TReading::Bytes:
        column.SetBytes(row, {reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()});
        break;
    }
    if (!understood)
        Generalise(buffer.Column);
}

/// The column holds something else than it should: its type becomes one that has room for that, a text in the end.
void TOdbcReader::Generalise(int column) {
    TColumnInfo& info = FPlans[static_cast<std::size_t>(column)].Info;
    const bool isSQLite = FStatement.Session().Kind() == TDatabaseKind::SQLite;
    if (info.Type == adBoolean)
        info.Type = adInteger;
    else if (isSQLite && (IsWholeNumberType(info.Type) || info.Type == adNumeric || info.Type == adCurrency))
        info.Type = adDouble;
    else if (info.Type == adDBDate)
        info.Type = adDBTimeStamp;
    else
        info.Type = adLongVarWChar;
    info.Size = 0;
    info.Precision = info.Scale = 0;
    throw TAgain();
}

namespace {

TColumnStore Converted(const TColumnStore& texts, DataTypeEnum type) {
    TColumnInfo info = texts.GetInfo();
    info.Type = type;
    TColumnStore column(std::move(info));
    for (int row = 0; row < texts.GetRowCount(); ++row) {
        column.AppendRow();
        if (texts.IsNull(row))
            continue;
        const std::string text = Utf8Encode(texts.GetText(row));
        if (type == adBigInt)
            PutWhole(column, row, text);
        else if (type == adDouble)
            PutFloat(column, row, text);
        else
            PutMoment(column, row, text);
    }
    return column;
}

} // namespace

void TOdbcReader::JudgeByValues(TRowStore& rows) {
    for (int i = 0; i < rows.GetColumnCount(); ++i) {
        TColumnStore& column = rows.Column(i);
        if (!FPlans[static_cast<std::size_t>(i)].ByValues || column.GetInfo().Type != adLongVarWChar)
            continue;
        TTextJudge judge;
        for (int row = 0; row < column.GetRowCount(); ++row) {
            if (!column.IsNull(row))
                judge.Add(column.GetText(row));
        }
        const DataTypeEnum type = judge.GetType();
        if (!IsTextType(type))
            column = Converted(column, type);
    }
}

} // namespace framework
