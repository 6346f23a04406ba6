// Data without a window: opens the sample orders, narrows them to those that matter, prints and adds them up, and edits
// one of them.
//
//     sampledata "DRIVER=SQLite3;Database=orders.db"
//     orders     "DRIVER=SQLite3;Database=orders.db"
//
// Any database that ODBC reaches will do, as it is only another connection string. Compilers with properties can write
// orders.Open() and orders.FieldByName(u"total")->AsCurrency; the accessors used here work with all of them.

#include "data/Zoradodataset.h"
#include "framework/system/numbers.h"
#include "framework/system/strings.h"

#ifdef _WIN32
#include <windows.h>
// Behind the one above.
#include <shellapi.h>
#endif

#include <cstdio>

using namespace framework;
using namespace ZOR;

namespace {

constexpr char16_t everyOrder[] = u"SELECT o.id, o.ordered, o.delivered, c.name, c.city,"
                                  u" (SELECT sum(i.quantity * i.price) FROM items i WHERE i.order_id = o.id) AS total"
                                  u" FROM orders o JOIN customers c ON c.id = o.customer_id ORDER BY o.id";

void Print(const String& text) {
    std::printf("%s\n", Utf8Encode(text).c_str());
}

/// A text in a column of so many characters.
String Padded(const String& text, int width) {
    return text + StringOfChar(u' ', width - static_cast<int>(text.size()));
}

/// What a host does with the progress of a fetch: here a line on the other stream, in a window a progress bar.
void ShowProgress(TCustomADODataSet*, int progress, int maxProgress, TEventStatus&) {
    if (progress % 2'000 == 0 || progress == maxProgress)
        std::fprintf(stderr, "\r%d records", progress);
    if (progress == maxProgress)
        std::fputc('\n', stderr);
}

/// Large orders that were not delivered: marked one by one, numbered from 1, and then nothing else is there.
void ShowLargeOrders(const String& connection) {
    TZORADODataSet orders(nullptr);
    orders.SetConnectionString(connection);
    orders.SetCommandText(everyOrder);
    orders.OnFetchProgress = ShowProgress;
    orders.Open();
    Print(IntToStr(orders.GetRecordCount()) + u" orders");

    const TField& total = *orders.FieldByName(u"total");
    const TField& delivered = *orders.FieldByName(u"delivered");
    int number = 0;
    for (orders.First(); !orders.GetEof(); orders.Next()) {
        if (delivered.GetIsNull() && total.GetAsFloat() > 6'000)
            orders.AddBookmark(++number);
    }
    orders.SetFilteredByBookmarks(true);

    Currency sum;
    for (orders.First(); !orders.GetEof(); orders.Next()) {
        sum += Currency(total.GetAsFloat());
        Print(Padded(IntToStr(orders.GetRecNo()), 4) + Padded(orders.FieldByName(u"id")->GetAsString(), 6) +
              Padded(orders.FieldByName(u"name")->GetAsString(), 24) +
              Padded(orders.FieldByName(u"city")->GetAsString(), 20) + FormatFloat(u"#,##0.00", total.GetAsFloat()));
    }
    Print(IntToStr(orders.GetRecordCount()) + u" of them are large and not delivered, worth " +
          FormatCurr(u"#,##0.00", sum));
}

/// Edits one record and tells what another program would see.
bool RaiseCredit(const String& connection) {
    constexpr char16_t query[] = u"SELECT id, name, credit FROM customers ORDER BY id";
    TZORADODataSet customers(nullptr);
    customers.SetConnectionString(connection);
    customers.SetCommandText(query);
    customers.Open();
    if (!customers.Locate(u"id", Variant(7), {}))
        return false;
    const Currency credit = customers.FieldByName(u"credit")->GetAsCurrency() + Currency(100);
    customers.Edit();
    customers.FieldByName(u"credit")->SetAsCurrency(credit);
    customers.Post();

    TADODataSet others(nullptr);
    others.SetConnectionString(connection);
    others.SetCommandText(query);
    others.Open();
    const bool found = others.Locate(u"id", Variant(7), {}) && others.FieldByName(u"credit")->GetAsCurrency() == credit;
    Print(u"The credit of " + others.FieldByName(u"name")->GetAsString() + u" is now " +
          FormatCurr(u"#,##0.00", others.FieldByName(u"credit")->GetAsCurrency()));
    return found;
}

/// The arguments of main are in a code page under Windows, which not every file name fits into.
String FirstArgument([[maybe_unused]] char** arguments) {
#ifdef _WIN32
    int count = 0;
    wchar_t** wide = CommandLineToArgvW(GetCommandLineW(), &count);
    const String first = wide && count > 1 ? reinterpret_cast<const char16_t*>(wide[1]) : u"";
    LocalFree(wide);
    return first;
#else
    return Utf8Decode(arguments[1]);
#endif
}

} // namespace

int main(int count, char** arguments) {
    if (count != 2) {
        std::printf("orders \"DRIVER=SQLite3;Database=orders.db\"\n");
        return 2;
    }
    try {
        const String connection = FirstArgument(arguments);
        ShowLargeOrders(connection);
        return RaiseCredit(connection) ? 0 : 1;
    } catch (const std::exception& error) {
        std::printf("%s\n", error.what());
        return 1;
    }
}
