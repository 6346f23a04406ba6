#include "framework/db/sqlstatement.h"

#include "framework/db/datatexts.h"
#include "framework/system/numbers.h"
#include "framework/system/strings.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace framework {

namespace {

/// What a float may differ by and still be the same after its way through the decimal digits of a driver.
double Tolerance(double value, DataTypeEnum type) {
    constexpr double ofSingle = 1e-6;
    constexpr double ofDouble = 1e-14;
    return std::abs(value) * (type == adSingle ? ofSingle : ofDouble);
}

/// Writes one statement from left to right.
class TWriter {
public:
    explicit TWriter(const TEditTable& table) : FTable(table) {}

    TWriter& operator<<(StringView text) {
        FStatement.Text += text;
        return *this;
    }
    void Name(int column) { *this << QuotedName(Column(column).Name, FTable.Quote); }
    /// A value that is going to be stored.
    void Value(const TColumnValue& value) {
        const bool isMoney = FTable.Kind == TDatabaseKind::PostgreSQL && Column(value.Column).ServerType == u"money";
        *this << (isMoney ? u"CAST(CAST(? AS numeric) AS money)" : u"?");
        Add(value.Value, value.Column);
    }
    void Condition(int column, const TDataValue& value);
    TSqlStatement Take() { return std::move(FStatement); }

private:
    const TEditTable::TColumn& Column(int column) const { return FTable.Columns[static_cast<std::size_t>(column)]; }
    void Add(TDataValue value, int column) { FStatement.Parameters.push_back({std::move(value), Column(column).Type}); }
    void Range(int column, double value, double limit = std::numeric_limits<double>::infinity());
    bool SQLiteCondition(int column, const TDataValue& value);
    bool PostgreSQLCondition(int column, const TDataValue& value);

    const TEditTable& FTable;
    TSqlStatement FStatement;
};

/// What is nearer to the value than the digits of a driver tell, and than `limit`.
void TWriter::Range(int column, double value, double limit) {
    const double tolerance = std::min(Tolerance(value, Column(column).Type), limit);
    Name(column);
    *this << u" BETWEEN ? AND ?";
    FStatement.Parameters.push_back({value - tolerance, adDouble});
    FStatement.Parameters.push_back({value + tolerance, adDouble});
}

/// SQLite has no types for moments, GUIDs and decimals, so the same value can be written in several ways.
bool TWriter::SQLiteCondition(int column, const TDataValue& value) {
    const DataTypeEnum type = Column(column).Type;
    const bool isDeclared = !Column(column).ServerType.empty();
    if (const auto* moment = std::get_if<TMoment>(&value)) {
        *this << (type == adDBDate   ? u"strftime('%Y-%m-%d', "
                  : type == adDBTime ? u"strftime('%H:%M:%f', "
                                     : u"strftime('%Y-%m-%d %H:%M:%f', ");
        Name(column);
        // Finer moments come rounded out of it, or cut, as its version has it.
        *this << u") IN (?, ?)";
        const TMoment rounded{moment->Ticks + TMoment::ticksPerSecond / 2000};
        for (const TMoment shown : {*moment, rounded})
            FStatement.Parameters.push_back({MomentTextWithMilliSeconds(shown, type), adVarWChar});
    } else if (const auto* guid = std::get_if<TGUID>(&value)) {
        *this << u"upper(trim(";
        Name(column);
        *this << u", '{}')) = ?";
        FStatement.Parameters.push_back({GUIDToString(*guid).substr(1, 36), adVarWChar});
    } else if (const auto* number = std::get_if<TNumeric>(&value)) {
        // It keeps whole numbers as they are and the others as floats, which must not reach the next decimal.
        if (TNumeric whole; number->TryRescale(0, whole)) {
            Name(column);
            *this << u" = ?";
            FStatement.Parameters.push_back({whole.Units, adBigInt});
        } else {
            Range(column, number->AsDouble(), 0.4 * std::pow(10.0, -number->Scale));
        }
    } else if (const auto* truth = std::get_if<bool>(&value)) {
        *this << u"(";
        Name(column);
        *this << u" = ? OR ";
        Name(column);
        *this << (*truth ? u" IN ('t', 'true'))" : u" IN ('f', 'false'))");
        Add(value, column);
    } else if (const auto* whole = std::get_if<std::int64_t>(&value); !isDeclared && (whole || IsTextType(type))) {
        // The same may be a number in one row and a text in another.
        *this << u"CAST(";
        Name(column);
        *this << u" AS text) = ? COLLATE BINARY";
        FStatement.Parameters.push_back({whole ? TDataValue(Int64ToStr(*whole)) : value, adVarWChar});
    } else if (IsTextType(type)) {
        // Whatever the column counts as equal, letter case for instance, a change is a change.
        Name(column);
        *this << u" = ? COLLATE BINARY";
        Add(value, column);
    } else {
        return false;
    }
    return true;
}

bool TWriter::PostgreSQLCondition(int column, const TDataValue& value) {
    const String& serverType = Column(column).ServerType;
    if (serverType == u"money") {
        Name(column);
        *this << u" = ";
        Value({column, value});
        return true;
    }
    // Types that the driver does not know travel as texts, and some of them cannot be compared at all.
    if (!std::holds_alternative<String>(value) ||
        !(serverType.empty() || serverType == u"unknown" || serverType == u"xml"))
        return false;
    *this << u"CAST(";
    Name(column);
    *this << u" AS text) = ?";
    Add(value, column);
    return true;
}

void TWriter::Condition(int column, const TDataValue& value) {
    if (std::holds_alternative<std::monostate>(value)) {
        Name(column);
        *this << u" IS NULL";
        return;
    }
    const auto* number = std::get_if<double>(&value);
    if (number && std::isfinite(*number)) {
        Range(column, *number);
        return;
    }
    if (FTable.Kind == TDatabaseKind::SQLite && SQLiteCondition(column, value))
        return;
    if (FTable.Kind == TDatabaseKind::PostgreSQL && PostgreSQLCondition(column, value))
        return;
    Name(column);
    *this << u" = ?";
    Add(value, column);
}

/// Puts `separator` between what `write` writes for each element.
template <class TList, class TWrite>
void Separated(TWriter& writer, const TList& list, StringView separator, const TWrite& write) {
    bool first = true;
    for (const auto& element : list) {
        if (!first)
            writer << separator;
        first = false;
        write(element);
    }
}

} // namespace

String QuotedName(StringView name, StringView quote) {
    // Drivers answer a blank when there is no quoting.
    if (Trim(quote).empty())
        return String(name);
    return String(quote) + StringReplace(name, quote, String(quote) + String(quote), TReplaceFlags() << rfReplaceAll) +
           String(quote);
}

TSqlStatement InsertStatement(const TEditTable& table, std::span<const TColumnValue> values) {
    TWriter writer(table);
    writer << u"INSERT INTO " << table.Name;
    if (values.empty()) {
        writer << u" DEFAULT VALUES";
    } else {
        writer << u" (";
        Separated(writer, values, u", ", [&](const TColumnValue& value) { writer.Name(value.Column); });
        writer << u") VALUES (";
        Separated(writer, values, u", ", [&](const TColumnValue& value) { writer.Value(value); });
        writer << u")";
    }
    if (table.Kind == TDatabaseKind::PostgreSQL) {
        writer << u" RETURNING ";
        Separated(writer, table.Key, u", ", [&](int column) { writer.Name(column); });
    }
    return writer.Take();
}

TSqlStatement UpdateStatement(const TEditTable& table, std::span<const TColumnValue> values, const TOldValue& old) {
    TWriter writer(table);
    writer << u"UPDATE " << table.Name << u" SET ";
    Separated(writer, values, u", ", [&](const TColumnValue& value) {
        writer.Name(value.Column);
        writer << u" = ";
        writer.Value(value);
    });
    std::vector<int> compared = table.Key;
    for (const TColumnValue& value : values) {
        if (std::find(compared.begin(), compared.end(), value.Column) == compared.end())
            compared.push_back(value.Column);
    }
    writer << u" WHERE ";
    Separated(writer, compared, u" AND ", [&](int column) { writer.Condition(column, old(column)); });
    return writer.Take();
}

TSqlStatement DeleteStatement(const TEditTable& table, const TOldValue& old) {
    TWriter writer(table);
    std::vector<int> compared = table.Key;
    for (int column = 0; column < static_cast<int>(table.Columns.size()); ++column) {
        const bool isKey = std::find(table.Key.begin(), table.Key.end(), column) != table.Key.end();
        if (!isKey && !table.Columns[static_cast<std::size_t>(column)].Name.empty())
            compared.push_back(column);
    }
    writer << u"DELETE FROM " << table.Name << u" WHERE ";
    Separated(writer, compared, u" AND ", [&](int column) { writer.Condition(column, old(column)); });
    return writer.Take();
}

TSqlStatement SelectByKeyStatement(const TEditTable& table, const TOldValue& key) {
    TWriter writer(table);
    std::vector<int> columns;
    for (int column = 0; column < static_cast<int>(table.Columns.size()); ++column) {
        if (!table.Columns[static_cast<std::size_t>(column)].Name.empty())
            columns.push_back(column);
    }
    writer << u"SELECT ";
    Separated(writer, columns, u", ", [&](int column) { writer.Name(column); });
    writer << u" FROM " << table.Name << u" WHERE ";
    Separated(writer, table.Key, u" AND ", [&](int column) { writer.Condition(column, key(column)); });
    return writer.Take();
}

} // namespace framework
