// Connections, and recordsets whose rows come from a query and whose edits go to the table behind it.

#include "framework/db/datatexts.h"
#include "framework/db/odbc.h"
#include "framework/db/odbcreader.h"
#include "framework/db/sqlaliases.h"
#include "framework/system/strings.h"

#include <algorithm>
#include <map>
#include <set>
#include <tuple>

namespace framework {

TOdbcConnection::TOdbcConnection(StringView connectionString)
    : FSession(std::make_unique<TOdbcSession>(connectionString)) {
}

TOdbcConnection::~TOdbcConnection() = default;

std::int64_t TOdbcConnection::Execute(StringView sql, std::span<const TSqlParameter> parameters) {
    TOdbcStatement statement(*FSession, u"execute the statement");
    statement.Prepare(sql);
    statement.Bind(parameters);
    statement.Execute();
    const std::int64_t rows = statement.RowsAffected();
    // A driver that gives rows one by one does the work for each only when it is asked for.
    if (statement.ColumnCount() > 0) {
        while (statement.Fetch()) {
        }
    }
    return rows;
}

void TOdbcConnection::ExecuteForAll(StringView sql, std::span<const std::vector<TSqlParameter>> rows) {
    TOdbcStatement statement(*FSession, u"execute the statement");
    statement.Prepare(sql);
    for (const std::vector<TSqlParameter>& row : rows) {
        statement.Bind(row);
        statement.Execute();
    }
}

const String& TOdbcConnection::GetDatabaseName() const {
    return FSession->DatabaseName();
}

TDatabaseKind TOdbcConnection::GetKind() const {
    return FSession->Kind();
}

String TOdbcConnection::QuotedName(StringView name) const {
    return framework::QuotedName(name, FSession->Quote());
}

namespace {

// The columns of the catalogue's answers, 0-based.
constexpr int tableNameColumn = 2;
constexpr int columnNameColumn = 3;
constexpr int typeNameColumn = 5;
constexpr int nullableColumn = 10;
/// Of PostgreSQL's driver alone.
constexpr int limitColumn = 24;

String Or(std::optional<String> text) {
    return std::move(text).value_or(String());
}

class TOdbcRowSource : public TRowSource {
public:
    TOdbcRowSource(std::shared_ptr<TOdbcConnection> connection, StringView sql, std::vector<TSqlParameter> parameters)
        : FConnection(std::move(connection)), FSql{String(sql), std::move(parameters)} {}

    TRowStore Fetch(const TFetchProgress& progress) override;
    void CheckEditable() override;
    std::vector<TColumnValue> Insert(const TRowStore& rows, std::span<const TColumnValue> values) override;
    std::vector<TColumnValue> Update(const TRowStore& rows, int row, std::span<const TColumnValue> values) override;
    void Delete(const TRowStore& rows, int row) override;

private:
    TOdbcSession& Session() const { return FConnection->Session(); }
    bool IsSQLite() const { return Session().Kind() == TDatabaseKind::SQLite; }
    String Purpose(StringView what) const { return String(what) + u" of '" + FTableName.Table + u"'"; }

    TRowStore Read(const TFetchProgress& progress);
    template <class TBody>
    void EachCatalogueColumn(const TTableName& table, TBody&& body);
    void ReadDeclaredTypes(const std::vector<TOdbcColumn>& columns);
    void DropInventedLimits(const std::vector<TOdbcColumn>& columns);
    void FindTable(const std::vector<TOdbcColumn>& columns);
    String DoubtAboutRows() const;
    void FindKey();
    bool IsKey(int column) const { return std::find(FTable.Key.begin(), FTable.Key.end(), column) != FTable.Key.end(); }
    TOldValue OldValues(const TRowStore& rows, int row) const;
    TOldValue KeyOfNewRow(TOdbcStatement& insert, std::span<const TColumnValue> values, bool& complete);
    std::vector<TColumnValue> ReadBack(const TRowStore& rows, const TOldValue& key,
                                       std::span<const TColumnValue> written);
    void CheckOneRow(const TOdbcStatement& statement, const TRowStore& rows, int row);

    std::shared_ptr<TOdbcConnection> FConnection;
    TSqlStatement FSql;
    std::vector<TColumnPlan> FPlans;
    TTableName FTableName;
    TEditTable FTable;
    /// Why edits are refused; empty when they are not.
    String FReadOnlyReason;
};

TRowStore TOdbcRowSource::Fetch(const TFetchProgress& progress) {
    auto known = std::tuple(FPlans, FTableName, FTable, FReadOnlyReason);
    try {
        return Read(progress);
    } catch (...) {
        // The rows from before stay, and with them what edits of them have to know.
        std::tie(FPlans, FTableName, FTable, FReadOnlyReason) = std::move(known);
        throw;
    }
}

TRowStore TOdbcRowSource::Read(const TFetchProgress& progress) {
    TOdbcStatement statement(Session(), u"read the records");
    statement.Run(FSql);
    const int count = statement.ColumnCount();
    if (count == 0)
        throw EDatabaseError(u"The statement gives no records");
    std::vector<TOdbcColumn> columns;
    for (int column = 0; column < count; ++column)
        columns.push_back(statement.Describe(column));
    FPlans = PlanColumns(statement, columns);
    if (IsSQLite())
        ReadDeclaredTypes(columns);
    else if (Session().Kind() == TDatabaseKind::PostgreSQL)
        DropInventedLimits(columns);
    FindTable(columns);
    TOdbcReader reader(statement, FPlans);
    TRowStore rows = reader.ReadAll(progress);
    for (int column = 0; column < count; ++column)
        FTable.Columns[static_cast<std::size_t>(column)].Type = rows.Column(column).GetInfo().Type;
    return rows;
}

template <class TBody>
void TOdbcRowSource::EachCatalogueColumn(const TTableName& table, TBody&& body) {
    TOdbcStatement catalogue(Session(), u"look up the columns of '" + table.Table + u"'");
    catalogue.ListColumns(table);
    while (catalogue.Fetch()) {
        // The name was taken for a pattern.
        if (Or(catalogue.GetText(tableNameColumn)) == table.Table)
            body(catalogue);
    }
}

/// What the driver of SQLite says about a column of a result leaves out the numbers of its declaration.
void TOdbcRowSource::ReadDeclaredTypes(const std::vector<TOdbcColumn>& columns) {
    std::map<TTableName, std::map<String, std::pair<String, bool>>> tables;
    const std::set<String> aliases = AliasesIn(FSql.Text);
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const TOdbcColumn& column = columns[i];
        if (column.BaseTable.empty())
            continue;
        const TTableName name{column.Catalog, column.Schema, column.BaseTable};
        const bool isNew = !tables.contains(name);
        auto& table = tables[name];
        if (isNew) {
            EachCatalogueColumn(name, [&](const TOdbcStatement& catalogue) {
                String columnName = Or(catalogue.GetText(columnNameColumn));
                String type = Or(catalogue.GetText(typeNameColumn));
                const bool nullable = Or(catalogue.GetText(nullableColumn)) != u"0";
                table[AnsiUpperCase(columnName)] = {std::move(type), nullable};
            });
        }
        TColumnPlan& plan = FPlans[i];
        const auto declared = table.find(AnsiUpperCase(column.BaseColumn));
        // The driver takes the name that the query chose for the name in the table.
        if (declared == table.end() || aliases.contains(AnsiUpperCase(column.BaseColumn))) {
            plan.Info.BaseColumn.clear();
            plan.Info.ReadOnly = true;
            ApplyDeclaredType(plan.ServerType, plan.Info);
            continue;
        }
        plan.ServerType = LowerCase(declared->second.first);
        plan.Info.Nullable = declared->second.second;
        if (plan.ServerType.empty()) {
            plan.ByValues = true;
            plan.Info.Type = adLongVarWChar;
            plan.Info.Size = 0;
        }
        ApplyDeclaredType(plan.ServerType, plan.Info);
    }
}

/// Where a column has no limit, the driver of PostgreSQL tells of numeric(28,6) and of 255 characters.
void TOdbcRowSource::DropInventedLimits(const std::vector<TOdbcColumn>& columns) {
    constexpr int inventedDigits = 28;
    constexpr int inventedDecimals = 6;
    constexpr int inventedLength = 255;
    std::map<TTableName, std::set<String>> unlimited; // names of columns
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const TOdbcColumn& column = columns[i];
        TColumnInfo& info = FPlans[i].Info;
        const bool isNumber = info.Type == adNumeric;
        if (isNumber ? info.Precision != inventedDigits || info.Scale != inventedDecimals
                     : !IsTextType(info.Type) || info.Size != inventedLength)
            continue;
        if (!column.BaseTable.empty()) {
            const TTableName name{column.Catalog, column.Schema, column.BaseTable};
            const bool isNew = !unlimited.contains(name);
            std::set<String>& names = unlimited[name];
            if (isNew) {
                EachCatalogueColumn(name, [&](const TOdbcStatement& catalogue) {
                    String columnName = Or(catalogue.GetText(columnNameColumn));
                    if (catalogue.ColumnCount() > limitColumn && catalogue.GetText(limitColumn) == u"-1")
                        names.insert(std::move(columnName));
                });
            }
            if (!names.contains(column.BaseColumn))
                continue;
        }
        info.Size = info.Precision = 0;
    }
}

/// The one table that edits go to, or the reason why there is none.
void TOdbcRowSource::FindTable(const std::vector<TOdbcColumn>& columns) {
    FTable = {};
    FTable.Kind = Session().Kind();
    FTable.Quote = Session().Quote();
    FReadOnlyReason.clear();
    std::set<TTableName> tables;
    std::set<String> names;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        TColumnInfo& info = FPlans[i].Info;
        FTable.Columns.push_back({info.BaseColumn, info.Type, FPlans[i].ServerType});
        if (info.BaseColumn.empty())
            continue;
        tables.insert({columns[i].Catalog, columns[i].Schema, columns[i].BaseTable});
        // Of two columns that show the same one, the first takes the edits.
        if (!names.insert(AnsiUpperCase(info.BaseColumn)).second) {
            FTable.Columns.back().Name.clear();
            info.ReadOnly = true;
        }
    }
    if (tables.empty()) {
        FReadOnlyReason = u"they do not come from a table";
        return;
    }
    if (tables.size() > 1) {
        FReadOnlyReason = u"they come from several tables";
        return;
    }
    FTableName = *tables.begin();
    FReadOnlyReason = DoubtAboutRows();
    if (!FReadOnlyReason.empty())
        return;
    if (!FTableName.Schema.empty())
        FTable.Name = FConnection->QuotedName(FTableName.Schema) + u".";
    FTable.Name += FConnection->QuotedName(FTableName.Table);
    FindKey();
}

/// Why one record may show more than one row of the table, or another one than it seems; empty for a plain query.
String TOdbcRowSource::DoubtAboutRows() const {
    const TQueryTables named = TablesIn(FSql.Text);
    const auto found = named.Counts.find(AnsiUpperCase(FTableName.Table));
    const int count = found == named.Counts.end() ? 0 : found->second;
    // SQLite gives the tables that a view reads, and for a combined query those of its first part.
    if (IsSQLite() && count == 0)
        return u"they come from a view of '" + FTableName.Table + u"'";
    if (IsSQLite() && named.Combined)
        return u"they come from several queries";
    const bool repeats =
        std::any_of(named.Counts.begin(), named.Counts.end(), [](const auto& table) { return table.second > 1; });
    if (count > 1 || (named.With && repeats))
        return u"the query reads '" + FTableName.Table + u"' more than once";
    return {};
}

void TOdbcRowSource::FindKey() {
    TOdbcStatement catalogue(Session(), u"look up the primary key of '" + FTableName.Table + u"'");
    catalogue.ListPrimaryKey(FTableName);
    while (catalogue.Fetch()) {
        const String name = Or(catalogue.GetText(columnNameColumn));
        const auto column = std::find_if(FTable.Columns.begin(), FTable.Columns.end(), [&](const auto& candidate) {
            return AnsiSameText(candidate.Name, name) && !name.empty();
        });
        if (column == FTable.Columns.end()) {
            FTable.Key.clear();
            FReadOnlyReason =
                u"the column '" + name + u"' of the primary key of '" + FTableName.Table + u"' is not among them";
            return;
        }
        FTable.Key.push_back(static_cast<int>(column - FTable.Columns.begin()));
    }
    if (FTable.Key.empty()) {
        FReadOnlyReason = u"the table '" + FTableName.Table + u"' has no primary key";
        return;
    }
    for (const int column : FTable.Key)
        FPlans[static_cast<std::size_t>(column)].Info.Key = true;
    // This declaration makes the column another name of the row's own number.
    if (TColumnPlan& key = FPlans[static_cast<std::size_t>(FTable.Key.front())];
        IsSQLite() && FTable.Key.size() == 1 && key.ServerType == u"integer")
        key.Info.AutoIncrement = true;
}

void TOdbcRowSource::CheckEditable() {
    if (!FReadOnlyReason.empty())
        throw EReadOnlyDataError(u"The records cannot be edited, because " + FReadOnlyReason);
}

TOldValue TOdbcRowSource::OldValues(const TRowStore& rows, int row) const {
    return [&rows, row](int column) { return rows.Column(column).Get(row); };
}

/// Which row it was that has been inserted: by the values themselves, or by what the database tells of them.
TOldValue TOdbcRowSource::KeyOfNewRow(TOdbcStatement& insert, std::span<const TColumnValue> values, bool& complete) {
    std::map<int, TDataValue> key;
    for (const TColumnValue& value : values) {
        if (IsKey(value.Column) && !std::holds_alternative<std::monostate>(value.Value))
            key[value.Column] = value.Value;
    }
    const auto take = [&](int column, std::optional<String> text) {
        if (text)
            key[column] = AdaptValue(FPlans[static_cast<std::size_t>(column)].Info, std::move(*text));
    };
    if (Session().Kind() == TDatabaseKind::PostgreSQL && insert.Fetch()) {
        for (std::size_t i = 0; i < FTable.Key.size(); ++i) {
            std::optional<String> text = insert.GetText(static_cast<int>(i));
            if (!key.contains(FTable.Key[i]))
                take(FTable.Key[i], std::move(text));
        }
    } else if (IsSQLite() && key.empty() && FPlans[static_cast<std::size_t>(FTable.Key.front())].Info.AutoIncrement) {
        TOdbcStatement statement(Session(), Purpose(u"read the key of the new record"));
        statement.Run({u"SELECT last_insert_rowid()", {}});
        if (statement.Fetch())
            take(FTable.Key.front(), statement.GetText(0));
    }
    complete = key.size() == FTable.Key.size();
    return [key](int column) { return key.at(column); };
}

std::vector<TColumnValue> TOdbcRowSource::Insert(const TRowStore& rows, std::span<const TColumnValue> values) {
    CheckEditable();
    TOdbcTransaction transaction(Session());
    bool keyIsKnown = false;
    TOldValue key;
    {
        TOdbcStatement statement(Session(), Purpose(u"insert the record"));
        statement.Run(InsertStatement(FTable, values));
        key = KeyOfNewRow(statement, values, keyIsKnown);
    }
    if (!keyIsKnown)
        throw EDatabaseError(u"The database does not tell the key of the new record of '" + FTableName.Table +
                             u"'; give it a value");
    std::vector<TColumnValue> stored = ReadBack(rows, key, values);
    transaction.Commit();
    return stored;
}

std::vector<TColumnValue> TOdbcRowSource::Update(const TRowStore& rows, int row, std::span<const TColumnValue> values) {
    CheckEditable();
    if (values.empty())
        return {};
    TOdbcTransaction transaction(Session());
    {
        TOdbcStatement statement(Session(), Purpose(u"update the record"));
        statement.Run(UpdateStatement(FTable, values, OldValues(rows, row)));
        CheckOneRow(statement, rows, row);
    }
    const auto newKey = [&](int column) {
        const auto changed =
            std::find_if(values.begin(), values.end(), [&](const auto& value) { return value.Column == column; });
        return changed == values.end() ? rows.Column(column).Get(row) : changed->Value;
    };
    std::vector<TColumnValue> stored = ReadBack(rows, newKey, values);
    transaction.Commit();
    return stored;
}

void TOdbcRowSource::Delete(const TRowStore& rows, int row) {
    CheckEditable();
    TOdbcTransaction transaction(Session());
    {
        TOdbcStatement statement(Session(), Purpose(u"delete the record"));
        statement.Run(DeleteStatement(FTable, OldValues(rows, row)));
        CheckOneRow(statement, rows, row);
    }
    transaction.Commit();
}

void TOdbcRowSource::CheckOneRow(const TOdbcStatement& statement, const TRowStore& rows, int row) {
    const std::int64_t affected = statement.RowsAffected();
    // A driver that does not count leaves it at the word of the database that nothing failed.
    if (affected == 1 || affected < 0)
        return;
    if (affected > 1)
        throw EDatabaseError(u"The key of '" + FTableName.Table + u"' fits several records; nothing was changed");
    TOdbcStatement search(Session(), Purpose(u"look for the record"));
    search.Run(SelectByKeyStatement(FTable, OldValues(rows, row)));
    throw ERecordChangedError(u"The record of '" + FTableName.Table + u"' has been " +
                              (search.Fetch() ? u"changed" : u"deleted") +
                              u" by somebody else since it was read; nothing was changed");
}

/// The row as the database has it now: with defaults, rounded decimals, padded texts and what triggers did.
std::vector<TColumnValue> TOdbcRowSource::ReadBack(const TRowStore& rows, const TOldValue& key,
                                                   std::span<const TColumnValue> written) {
    std::vector<int> columns;
    std::vector<TColumnPlan> plans;
    for (int column = 0; column < rows.GetColumnCount(); ++column) {
        if (FTable.Columns[static_cast<std::size_t>(column)].Name.empty())
            continue;
        columns.push_back(column);
        TColumnPlan plan = FPlans[static_cast<std::size_t>(column)];
        plan.Info = rows.Column(column).GetInfo();
        plan.ByValues = false;
        plans.push_back(std::move(plan));
    }
    TOdbcStatement statement(Session(), Purpose(u"read back the record"));
    statement.Run(SelectByKeyStatement(FTable, key));
    const TRowStore found = TOdbcReader(statement, plans).ReadAll();
    // A rule of the database may have put the row out of sight.
    if (found.GetRowCount() != 1)
        return {written.begin(), written.end()};
    std::vector<TColumnValue> values;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        TDataValue value = found.Column(static_cast<int>(i)).Get(0);
        const TColumnInfo& info = rows.Column(columns[i]).GetInfo();
        const auto* whole = std::get_if<std::int64_t>(&value);
        // The recordset widens whole numbers itself.
        if (!whole || !IsWholeNumberType(info.Type))
            value = AdaptValue(info, std::move(value));
        values.push_back({columns[i], std::move(value)});
    }
    return values;
}

} // namespace

std::unique_ptr<TClientRecordset> OpenRecordset(std::shared_ptr<TOdbcConnection> connection, StringView sql,
                                                std::vector<TSqlParameter> parameters, const TFetchProgress& progress) {
    return std::make_unique<TClientRecordset>(
        std::make_unique<TOdbcRowSource>(std::move(connection), sql, std::move(parameters)), progress);
}

} // namespace framework
