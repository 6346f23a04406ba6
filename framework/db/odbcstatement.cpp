#include "framework/db/databaseerrors.h"
#include "framework/db/datatexts.h"
#include "framework/db/odbcsession.h"
#include "framework/system/strings.h"

#ifdef _WIN32
#include <windows.h>
#endif
#include <sql.h>
#include <sqlext.h>

#include <algorithm>
#include <array>
#include <cstring>

namespace framework {

namespace {

SQLWCHAR* Wide(const char16_t* text) {
    return reinterpret_cast<SQLWCHAR*>(const_cast<char16_t*>(text));
}

SQLUSMALLINT ColumnNumber(int column) {
    return static_cast<SQLUSMALLINT>(column + 1);
}

/// The type of a moment that says nothing but its value.
DataTypeEnum MomentType(TMoment value) {
    if (value.Ticks % TMoment::ticksPerDay == 0)
        return adDBDate;
    return value.Ticks >= 0 && value.Ticks < TMoment::ticksPerDay ? adDBTime : adDBTimeStamp;
}

/// ODBC's own structure, for databases that have such types.
SQL_TIMESTAMP_STRUCT TimeStampOf(TMoment value) {
    const TMomentParts parts = PartsOf(value);
    SQL_TIMESTAMP_STRUCT stamp{};
    stamp.year = static_cast<SQLSMALLINT>(parts.Year);
    stamp.month = static_cast<SQLUSMALLINT>(parts.Month);
    stamp.day = static_cast<SQLUSMALLINT>(parts.Day);
    stamp.hour = static_cast<SQLUSMALLINT>(parts.Hour);
    stamp.minute = static_cast<SQLUSMALLINT>(parts.Minute);
    stamp.second = static_cast<SQLUSMALLINT>(parts.Second);
    stamp.fraction = static_cast<SQLUINTEGER>(parts.Ticks) * 100; // nanoseconds
    return stamp;
}

} // namespace

/// A parameter in the form in which the driver reads it.
struct TOdbcStatement::TBound {
    SQLSMALLINT CType = SQL_C_WCHAR;
    SQLSMALLINT SqlType = SQL_WVARCHAR;
    SQLULEN Size = 1;
    SQLSMALLINT Digits = 0;
    std::vector<std::uint8_t> Data;
    SQLLEN Length = SQL_NULL_DATA;

    void Assign(const void* data, std::size_t bytes) {
        const auto* first = static_cast<const std::uint8_t*>(data);
        Data.assign(first, first + bytes);
        Length = static_cast<SQLLEN>(bytes);
        // Drivers do not like a null pointer, even for an empty value.
        Data.push_back({});
    }
    template <class T>
    void AssignPlain(SQLSMALLINT cType, SQLSMALLINT sqlType, SQLULEN size, const T& value) {
        CType = cType;
        SqlType = sqlType;
        Size = size;
        Assign(&value, sizeof(value));
    }
    void AssignText(StringView text) {
        constexpr std::size_t longText = 4000; // what every database takes as a plain text
        CType = SQL_C_WCHAR;
        SqlType = text.size() > longText ? SQL_WLONGVARCHAR : SQL_WVARCHAR;
        Size = std::max<std::size_t>(text.size(), 1);
        Assign(text.data(), text.size() * sizeof(char16_t));
    }
};

namespace {

/// Chooses the form of a parameter by its value, its column and the database.
template <class TBound>
struct TBinder {
    TBound& Bound;
    DataTypeEnum Type;
    TDatabaseKind Kind;

    void operator()(std::monostate) const {
        if (IsBytesType(Type)) {
            Bound.CType = SQL_C_BINARY;
            Bound.SqlType = SQL_VARBINARY;
        }
        Bound.Data.resize(1);
    }
    void operator()(bool value) const {
        Bound.AssignPlain(SQL_C_BIT, SQL_BIT, 1, static_cast<unsigned char>(value ? 1 : 0));
    }
    void operator()(std::int64_t value) const { Bound.AssignPlain(SQL_C_SBIGINT, SQL_BIGINT, 19, value); }
    void operator()(double value) const { Bound.AssignPlain(SQL_C_DOUBLE, SQL_DOUBLE, 15, value); }
    void operator()(const TNumeric& value) const {
        // Beside a column, SQLite makes the text a number itself; beside anything else a text is above all numbers.
        if (Kind != TDatabaseKind::SQLite || Type != adEmpty)
            (*this)(value.AsText());
        else if (TNumeric whole; value.TryRescale(0, whole))
            (*this)(whole.Units);
        else
            (*this)(value.AsDouble());
    }
    void operator()(TMoment value) const {
        const DataTypeEnum type = IsMomentType(Type) ? Type : MomentType(value);
        // SQLite keeps texts, and the times of day of ODBC have no fractions.
        if (Kind == TDatabaseKind::SQLite || type == adDBTime) {
            Bound.AssignText(MomentText(value, type));
        } else if (type == adDBDate) {
            const SQL_TIMESTAMP_STRUCT stamp = TimeStampOf(value);
            Bound.AssignPlain(SQL_C_TYPE_DATE, SQL_TYPE_DATE, 10, SQL_DATE_STRUCT{stamp.year, stamp.month, stamp.day});
        } else {
            Bound.AssignPlain(SQL_C_TYPE_TIMESTAMP, SQL_TYPE_TIMESTAMP, 27, TimeStampOf(value));
            Bound.Digits = 7;
        }
    }
    void operator()(const String& value) const {
        Bound.AssignText(value);
        if ((Type == adNumeric || Type == adCurrency) && IsNumericText(value)) {
            const std::size_t point = value.find(u'.');
            Bound.SqlType = SQL_NUMERIC;
            Bound.Digits = static_cast<SQLSMALLINT>(point == String::npos ? 0 : value.size() - point - 1);
        }
    }
    void operator()(const TBytes& value) const {
        Bound.CType = SQL_C_BINARY;
        Bound.SqlType = value.size() > 8000 ? SQL_LONGVARBINARY : SQL_VARBINARY;
        Bound.Size = std::max<std::size_t>(value.size(), 1);
        Bound.Assign(value.data(), value.size());
    }
    void operator()(const TGUID& value) const {
        if (Kind == TDatabaseKind::Other)
            Bound.AssignPlain(SQL_C_GUID, SQL_GUID, 16, value);
        else
            Bound.AssignText(StringView(GUIDToString(value)).substr(1, 36));
    }
};

} // namespace

TOdbcStatement::TOdbcStatement(TOdbcSession& session, String purpose)
    : FSession(session), FPurpose(std::move(purpose)), FHandle(SQL_HANDLE_STMT, session.Handle()) {
}

TOdbcStatement::~TOdbcStatement() = default;

void TOdbcStatement::Prepare(StringView sql) {
    FSession.CheckFree();
    CloseCursor();
    FText = sql;
    FGaveRows = false;
    Check(SQLPrepareW(FHandle.Get(), Wide(FText.data()), static_cast<SQLINTEGER>(FText.size())));
}

void TOdbcStatement::Bind(std::span<const TSqlParameter> parameters) {
    SQLFreeStmt(FHandle.Get(), SQL_RESET_PARAMS);
    FBound.clear();
    for (const TSqlParameter& parameter : parameters) {
        TBound& bound = *FBound.emplace_back(std::make_unique<TBound>());
        std::visit(TBinder<TBound>{bound, parameter.Type, FSession.Kind()}, parameter.Value);
        Check(SQLBindParameter(FHandle.Get(), static_cast<SQLUSMALLINT>(FBound.size()), SQL_PARAM_INPUT, bound.CType,
                               bound.SqlType, bound.Size, bound.Digits, bound.Data.data(),
                               static_cast<SQLLEN>(bound.Data.size()), &bound.Length));
    }
}

void TOdbcStatement::Execute() {
    FSession.CheckFree();
    // SQLite's driver would go on with the rows that were not read the last time.
    if (FGaveRows)
        Prepare(String(FText));
    else
        CloseCursor();
    Check(SQLExecute(FHandle.Get()));
    FGaveRows = ColumnCount() > 0;
}

void TOdbcStatement::Run(const TSqlStatement& statement) {
    Prepare(statement.Text);
    Bind(statement.Parameters);
    Execute();
}

namespace {

/// A name for the catalogue functions, null for one that is left to the driver.
SQLWCHAR* CatalogueName(const String& name) {
    return name.empty() ? nullptr : Wide(name.c_str());
}

} // namespace

void TOdbcStatement::ListColumns(const TTableName& table) {
    FSession.CheckFree();
    CloseCursor();
    Check(SQLColumnsW(FHandle.Get(), CatalogueName(table.Catalog), SQL_NTS, CatalogueName(table.Schema), SQL_NTS,
                      CatalogueName(table.Table), SQL_NTS, nullptr, 0));
}

void TOdbcStatement::ListPrimaryKey(const TTableName& table) {
    FSession.CheckFree();
    CloseCursor();
    Check(SQLPrimaryKeysW(FHandle.Get(), CatalogueName(table.Catalog), SQL_NTS, CatalogueName(table.Schema), SQL_NTS,
                          CatalogueName(table.Table), SQL_NTS));
}

std::int64_t TOdbcStatement::RowsAffected() const {
    SQLLEN rows = -1;
    Check(SQLRowCount(FHandle.Get(), &rows));
    return rows;
}

int TOdbcStatement::ColumnCount() const {
    SQLSMALLINT columns = 0;
    Check(SQLNumResultCols(FHandle.Get(), &columns));
    return columns;
}

TOdbcColumn TOdbcStatement::Describe(int column) const {
    std::array<char16_t, 256> text{};
    TOdbcColumn result;
    SQLSMALLINT length = 0;
    SQLSMALLINT digits = 0;
    SQLSMALLINT nullable = SQL_NULLABLE_UNKNOWN;
    SQLULEN size = 0;
    Check(SQLDescribeColW(FHandle.Get(), ColumnNumber(column), Wide(text.data()), static_cast<SQLSMALLINT>(text.size()),
                          &length, &result.SqlType, &size, &digits, &nullable));
    result.Name = text.data();
    result.Size = static_cast<std::int64_t>(size);
    result.Digits = digits;
    result.Nullable = nullable != SQL_NO_NULLS;
    const auto attributeText = [&](SQLUSMALLINT attribute) -> String {
        text.fill(0);
        SQLSMALLINT bytes = 0;
        if (!SQL_SUCCEEDED(SQLColAttributeW(FHandle.Get(), ColumnNumber(column), attribute, text.data(),
                                            static_cast<SQLSMALLINT>(sizeof(text) - sizeof(char16_t)), &bytes,
                                            nullptr)))
            return {};
        return text.data();
    };
    const auto attributeFlag = [&](SQLUSMALLINT attribute) {
        SQLLEN value = SQL_FALSE;
        return SQL_SUCCEEDED(
                   SQLColAttributeW(FHandle.Get(), ColumnNumber(column), attribute, nullptr, 0, nullptr, &value)) &&
               value == SQL_TRUE;
    };
    result.BaseTable = attributeText(SQL_DESC_BASE_TABLE_NAME);
    if (!result.BaseTable.empty()) {
        result.Catalog = attributeText(SQL_DESC_CATALOG_NAME);
        result.Schema = attributeText(SQL_DESC_SCHEMA_NAME);
        result.BaseColumn = attributeText(SQL_DESC_BASE_COLUMN_NAME);
    }
    result.TypeName = LowerCase(attributeText(SQL_DESC_TYPE_NAME));
    result.Unsigned = attributeFlag(SQL_DESC_UNSIGNED);
    result.AutoUnique = attributeFlag(SQL_DESC_AUTO_UNIQUE_VALUE);
    return result;
}

bool TOdbcStatement::Fetch() {
    const SQLRETURN result = SQLFetch(FHandle.Get());
    Check(result);
    return result != SQL_NO_DATA;
}

bool TOdbcStatement::ReadLong(int column, short cType, std::string& bytes) const {
    // Each piece of a text ends with a NUL, of which the length does not tell.
    const std::size_t terminator = cType == SQL_C_BINARY ? 0 : cType == SQL_C_WCHAR ? sizeof(char16_t) : 1;
    bytes.resize(1024);
    std::size_t read = 0;
    for (;;) {
        SQLLEN left = 0;
        const SQLRETURN result = SQLGetData(FHandle.Get(), ColumnNumber(column), cType, bytes.data() + read,
                                            static_cast<SQLLEN>(bytes.size() - read), &left);
        Check(result);
        if (result == SQL_NO_DATA)
            break;
        if (left == SQL_NULL_DATA)
            return false;
        const std::size_t room = bytes.size() - read - terminator;
        if (left != SQL_NO_TOTAL && static_cast<std::size_t>(left) <= room) {
            read += static_cast<std::size_t>(left);
            break;
        }
        read += room;
        const std::size_t missing = left == SQL_NO_TOTAL ? bytes.size() : static_cast<std::size_t>(left) - room;
        bytes.resize(read + missing + terminator);
    }
    bytes.resize(read);
    return true;
}

std::optional<String> TOdbcStatement::GetText(int column) const {
    std::string bytes;
    if (!ReadLong(column, SQL_C_WCHAR, bytes))
        return std::nullopt;
    String text(bytes.size() / sizeof(char16_t), u'\0');
    std::memcpy(text.data(), bytes.data(), text.size() * sizeof(char16_t));
    return text;
}

void TOdbcStatement::CloseCursor() noexcept {
    SQLFreeStmt(FHandle.Get(), SQL_CLOSE);
}

} // namespace framework
