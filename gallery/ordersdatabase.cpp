#include "gallery/ordersdatabase.h"

#include "framework/db/databaseerrors.h"
#include "framework/system/numbers.h"
#include "sampledata/sampledatabase.h"

#include <cstdlib>
#include <filesystem>

namespace gallery {

namespace {

/// Where programs keep what belongs to the person and to this machine; it can be written to wherever the program lies.
std::filesystem::path DatabaseFile() {
    const wchar_t* place = _wgetenv(L"LOCALAPPDATA");
    const std::filesystem::path folder =
        (place && *place ? std::filesystem::path(place) : std::filesystem::temp_directory_path()) / L"ZOR Gallery";
    std::error_code problem;
    std::filesystem::create_directories(folder, problem);
    if (!std::filesystem::is_directory(folder, problem))
        throw EDatabaseError(u"The folder " + folder.u16string() + u" cannot be made");
    return folder / L"orders.db";
}

/// The driver goes by one name with the host's driver manager and by another one on Windows.
std::shared_ptr<TOdbcConnection> Connect(const String& file) {
    try {
        return std::make_shared<TOdbcConnection>(u"DRIVER=SQLite3;Database=" + file);
    } catch (const EDatabaseServerError&) {
        try {
            return std::make_shared<TOdbcConnection>(u"DRIVER=SQLite3 ODBC Driver;Database=" + file);
        } catch (const EDatabaseServerError&) { // NOLINT(bugprone-empty-catch): the first one tells more
        }
        throw;
    }
}

void Load(TOdbcConnection& connection) {
    try {
        sampleorders::LoadOnce(connection);
    } catch (const EDatabaseServerError&) {
        if (!sampleorders::AreLoaded(connection)) // by another gallery meanwhile
            throw;
    }
}

} // namespace

TOrdersDatabase::TOrdersDatabase() : FConnection(Connect(DatabaseFile().u16string())) {
    Load(*FConnection);
    const auto customers = OpenRecordset(FConnection, u"SELECT id, name, city FROM customers");
    for (; !customers->GetEOF(); customers->MoveNext())
        FCustomers[static_cast<int>(customers->GetVariant(0).AsInteger())] = {customers->GetVariant(1).AsString(),
                                                                              customers->GetVariant(2).AsString()};
    const auto products = OpenRecordset(FConnection, u"SELECT id, name FROM products");
    for (; !products->GetEOF(); products->MoveNext())
        FProducts[static_cast<int>(products->GetVariant(0).AsInteger())] = products->GetVariant(1).AsString();
}

String TOrdersDatabase::ProductName(int id) const {
    const auto found = FProducts.find(id);
    return found == FProducts.end() ? String() : found->second;
}

std::set<String> TOrdersDatabase::Cities() {
    std::set<String> cities;
    const auto rows = OpenRecordset(
        FConnection, u"SELECT DISTINCT c.city FROM customers c WHERE c.id IN (SELECT customer_id FROM orders)");
    for (; !rows->GetEOF(); rows->MoveNext())
        cities.insert(rows->GetVariant(0).AsString());
    return cities;
}

TOrderTotals TOrdersDatabase::Totals(const TOrderChoice& choice) {
    String sql = u"SELECT count(*), sum(goods), sum(shipping) FROM orders WHERE 1 = 1";
    std::vector<TSqlParameter> cities;
    String marks;
    for (const String& city : choice.Cities) {
        cities.push_back({city, adVarWChar});
        marks += marks.empty() ? u"?" : u", ?";
    }
    if (!cities.empty())
        sql += u" AND customer_id IN (SELECT id FROM customers WHERE city IN (" + marks + u"))";
    if (choice.Numbers) {
        String numbers; // there may be more of them than a statement can have parameters
        for (const int number : *choice.Numbers)
            numbers += (numbers.empty() ? u"" : u", ") + IntToStr(number);
        sql += u" AND id IN (" + numbers + u")";
    }
    const auto sums = OpenRecordset(FConnection, sql, std::move(cities));
    const auto amount = [&](int column) {
        return sums->IsNull(column) ? Currency() : sums->GetVariant(column).AsCurrency();
    };
    return {static_cast<int>(sums->GetVariant(0).AsInteger()), amount(1), amount(2)};
}

} // namespace gallery
