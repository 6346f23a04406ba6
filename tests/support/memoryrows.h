#pragma once

// Rows in memory, as datasets are tried on without a database.

#include "data/Zoradodataset.h"
#include "framework/db/clientrecordset.h"
#include "framework/system/numbers.h"
#include "framework/system/strings.h"

namespace testsupport {

using namespace framework;

inline TColumnInfo MemoryColumn(const String& name, DataTypeEnum type, std::int64_t size = 0, int scale = 0) {
    TColumnInfo info;
    info.Name = name;
    info.Type = type;
    info.Size = size;
    info.Precision = type == adCurrency ? 19 : scale > 0 ? 18 : 0;
    info.Scale = scale;
    return info;
}

/// Rows that are asked for anew come back as they were left, as from a database.
class TMemorySource : public TRowSource {
public:
    using TRows = std::vector<std::vector<TDataValue>>;

    TMemorySource(std::vector<TColumnInfo> columns, TRows rows) : Columns(std::move(columns)), Rows(std::move(rows)) {}

    TRowStore Fetch(const TFetchProgress& progress) override {
        TRowStore store(Columns);
        std::int64_t count = 0;
        for (const auto& row : Rows) {
            store.AppendRow(row);
            if (++count % 10 == 0 && progress && !progress(count, static_cast<std::int64_t>(Rows.size())))
                throw EFetchCancelled();
        }
        return store;
    }
    void CheckEditable() override {
        if (IsReadOnly)
            throw EReadOnlyDataError(u"The rows come from a view");
    }
    std::vector<TColumnValue> Insert(const TRowStore&, std::span<const TColumnValue> values) override {
        Refuse(values);
        Rows.emplace_back(Columns.size());
        return Keep(Rows.back(), values);
    }
    std::vector<TColumnValue> Update(const TRowStore& rows, int row, std::span<const TColumnValue> values) override {
        Refuse(values);
        return Keep(Find(rows, row), values);
    }
    void Delete(const TRowStore& rows, int row) override {
        Refuse({});
        const auto& gone = Find(rows, row);
        Rows.erase(Rows.begin() + (&gone - Rows.data()));
    }

    std::vector<TColumnInfo> Columns;
    TRows Rows;
    String Refusal; ///< what the next edits are answered
    bool IsReadOnly = false;
    std::vector<TColumnValue> Written; ///< by the last edit

private:
    void Refuse(std::span<const TColumnValue> values) {
        if (!Refusal.empty())
            throw EDatabaseError(Refusal);
        Written.assign(values.begin(), values.end());
    }
    /// By the first column, which is the key.
    std::vector<TDataValue>& Find(const TRowStore& rows, int row) {
        for (auto& each : Rows) {
            if (each.front() == rows.Column(0).Get(row))
                return each;
        }
        throw ERecordChangedError(u"The record is gone");
    }
    static std::vector<TColumnValue> Keep(std::vector<TDataValue>& row, std::span<const TColumnValue> values) {
        for (const TColumnValue& value : values)
            row[static_cast<std::size_t>(value.Column)] = value.Value;
        return {values.begin(), values.end()};
    }
};

/// Customers with the numbers 1 to `count`: Id, Name (Null for each fifth), City, Credit, Born, Notes.
inline std::unique_ptr<TMemorySource> MakeCustomers(int count) {
    std::vector<TColumnInfo> columns = {
        MemoryColumn(u"Id", adInteger),        MemoryColumn(u"Name", adVarWChar, 30),
        MemoryColumn(u"City", adVarWChar, 20), MemoryColumn(u"Credit", adNumeric, 0, 2),
        MemoryColumn(u"Born", adDBDate),       MemoryColumn(u"Notes", adLongVarWChar),
    };
    columns[0].Key = true;
    columns[0].Nullable = false;
    TMemorySource::TRows rows;
    for (int id = 1; id <= count; ++id) {
        const String number = IntToStr(id);
        std::vector<TDataValue> row(columns.size());
        row[0] = std::int64_t(id);
        if (id % 5 != 0)
            row[1] = u"Customer " + number;
        row[2] = String(id % 2 ? u"Łódź" : u"Brno");
        row[3] = TNumeric{id * 125, 2};
        row[4] = TMoment::FromDateTime(EncodeDate(1980, 1, 1) + id);
        rows.push_back(std::move(row));
    }
    return std::make_unique<TMemorySource>(std::move(columns), std::move(rows));
}

/// A dataset that is open on customers, and their source to look into.
struct TCustomers {
    explicit TCustomers(int count, bool opens = true) {
        auto source = MakeCustomers(count);
        Source = source.get();
        Recordset = std::make_shared<TClientRecordset>(std::move(source));
        if (opens)
            DataSet->SetRecordset(Recordset);
    }

    int Id() { return DataSet->IsEmpty() ? 0 : DataSet->FieldByName(u"Id")->GetAsInteger(); }
    /// Registers the rows with these numbers of customers under 1, 2, ...
    void Mark(std::initializer_list<int> ids) {
        int number = 0;
        for (int id : ids) {
            if (DataSet->Locate(u"Id", id, {}))
                DataSet->AddBookmark(++number);
        }
    }
    /// All that can be walked to, in order.
    std::string Walk() {
        std::string ids;
        for (DataSet->First(); !DataSet->GetEof(); DataSet->Next())
            ids += (ids.empty() ? "" : " ") + std::to_string(Id());
        return ids;
    }

    TComponent Owner{nullptr};
    ZOR::TZORADODataSet* DataSet = new ZOR::TZORADODataSet(&Owner);
    TMemorySource* Source = nullptr;
    std::shared_ptr<TClientRecordset> Recordset;
};

/// A database of one table, orders: every statement gives the orders of the customer in its first parameter.
inline std::shared_ptr<_Recordset> OpenOrders(TRecordsetQuery& query) {
    TRowStore rows({MemoryColumn(u"Order", adInteger), MemoryColumn(u"Customer", adInteger)});
    const auto* customer = query.Parameters.empty() ? nullptr : std::get_if<std::int64_t>(&query.Parameters[0].Value);
    for (std::int64_t order = 1; customer && order <= *customer; ++order) {
        rows.AppendRow(std::vector<TDataValue>{*customer * 100 + order, *customer});
        if (query.Progress && !query.Progress(order, *customer))
            throw EFetchCancelled();
    }
    return std::make_shared<TClientRecordset>(std::move(rows));
}

/// What an action raises; "none" when nothing.
template <class TAction>
std::string ProblemOf(TAction&& action) {
    try {
        action();
    } catch (const std::exception& error) {
        return error.what();
    }
    return "none";
}

} // namespace testsupport
