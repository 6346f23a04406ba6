// What it costs to walk a dataset of a million records and to narrow it to ten thousand of them, beside the same values
// read from the recordset itself in the same run. Ends with 1 when the sums differ.

#include "tests/support/memoryrows.h"

#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <new>

using namespace framework;
using namespace testsupport;

namespace {

std::size_t allocations = 0;

constexpr int Records = 1'000'000;
constexpr int Marked = 10'000;
constexpr int Rounds = 5;

/// Of the processor's time, in seconds: other programs do not count.
template <class TWork>
double BestOf(TWork work) {
    double best = 1e9;
    for (int round = 0; round < Rounds; ++round) {
        const std::clock_t start = std::clock();
        work();
        best = std::min(best, static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC);
    }
    return best;
}

std::shared_ptr<TClientRecordset> MakeRows() {
    TRowStore rows({MemoryColumn(u"Id", adInteger), MemoryColumn(u"Name", adVarWChar, 30),
                    MemoryColumn(u"Price", adDouble), MemoryColumn(u"Sum", adNumeric, 0, 2),
                    MemoryColumn(u"Day", adDBDate), MemoryColumn(u"Open", adBoolean),
                    MemoryColumn(u"City", adVarWChar, 20), MemoryColumn(u"Notes", adLongVarWChar)});
    std::vector<TDataValue> row(8);
    for (int i = 1; i <= Records; ++i) {
        row[0] = std::int64_t(i);
        row[1] = u"Customer " + IntToStr(i);
        row[2] = i * 0.25;
        row[3] = TNumeric{i, 2};
        row[4] = TMoment::FromDateTime(36526 + i % 10000);
        row[5] = i % 2 == 0;
        row[6] = String(u"Łódź");
        row[7] = i % 4 ? TDataValue() : TDataValue(String(u"to be called back"));
        rows.AppendRow(row);
    }
    return std::make_shared<TClientRecordset>(std::move(rows));
}

} // namespace

// Counted, because a walk must not allocate.
void* operator new(std::size_t size) {
    ++allocations;
    if (void* memory = std::malloc(size ? size : 1))
        return memory;
    throw std::bad_alloc();
}
void operator delete(void* memory) noexcept {
    std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}

int main() {
    const std::shared_ptr<TClientRecordset> rows = MakeRows();
    const auto perRecord = [](double seconds, int records) { return seconds * 1e9 / records; };

    double expected = 0;
    const double bare = BestOf([&] {
        expected = 0;
        for (rows->MoveFirst(); !rows->GetEOF(); rows->MoveNext())
            expected += static_cast<double>(rows->GetInt64(0)) + rows->GetDouble(2) +
                        static_cast<double>(rows->GetText(1).size());
    });

    ZOR::TZORADODataSet dataSet(nullptr);
    dataSet.SetRecordset(rows);
    const TField& id = *dataSet.FieldByName(u"Id");
    const TField& price = *dataSet.FieldByName(u"Price");
    const TField& name = *dataSet.FieldByName(u"Name");
    double sum = 0;
    std::size_t allocated = 0;
    const auto walk = [&] {
        sum = 0;
        const std::size_t before = allocations;
        for (dataSet.First(); !dataSet.GetEof(); dataSet.Next())
            sum += static_cast<double>(id.GetAsLargeInt()) + price.GetAsFloat() +
                   static_cast<double>(name.GetData().Units().size());
        allocated = allocations - before;
    };
    const double walked = BestOf(walk);
    bool isRight = sum == expected;
    std::printf("walk of %d records, three fields: %.1f ns a record (limit 150); the recordset alone %.1f ns\n",
                Records, perRecord(walked, Records), perRecord(bare, Records));
    std::printf("allocations in that walk: %zu\n", allocated);

    dataSet.DisableControls();
    const double quiet = BestOf(walk);
    dataSet.EnableControls();
    isRight = isRight && sum == expected;
    std::printf("the same with controls disabled: %.1f ns a record\n", perRecord(quiet, Records));

    double texts = 0;
    const double withTexts = BestOf([&] {
        texts = 0;
        for (dataSet.First(); !dataSet.GetEof(); dataSet.Next())
            texts += static_cast<double>(id.GetAsLargeInt()) + price.GetAsFloat() +
                     static_cast<double>(name.GetAsString().size());
    });
    isRight = isRight && texts == expected;
    std::printf("the same with the text as a copy: %.1f ns a record\n", perRecord(withTexts, Records));

    const auto mark = [&](int every) {
        dataSet.SetFilteredByBookmarks(false);
        dataSet.ClearBookmarks();
        int number = 0;
        for (dataSet.First(); !dataSet.GetEof(); dataSet.Next()) {
            if (id.GetAsLargeInt() % every == 0)
                dataSet.AddBookmark(++number);
        }
        dataSet.SetFilteredByBookmarks(true);
    };
    mark(Records / Marked);
    const double narrowed = BestOf(walk);
    double linear = 0;
    const double bareNarrowed = BestOf([&] {
        linear = 0;
        for (rows->MoveFirst(); !rows->GetEOF(); rows->MoveNext()) {
            if (rows->GetInt64(0) % (Records / Marked) == 0)
                linear += static_cast<double>(rows->GetInt64(0)) + rows->GetDouble(2) +
                          static_cast<double>(rows->GetText(1).size());
        }
    });
    isRight = isRight && sum == linear;
    std::printf("narrowed to %d of them: walk in %.2f ms (limit 20); looking at every row %.2f ms\n", Marked,
                narrowed * 1e3, bareNarrowed * 1e3);

    mark(1); // all of them, the most that can be
    const double numbers = BestOf([&] {
        for (int i = 0; i < Marked; ++i)
            dataSet.SetRecNo(1 + static_cast<int>((static_cast<std::int64_t>(i) * 7919) % Records));
    });
    const double counts = BestOf([&] {
        for (int i = 0; i < Marked; ++i)
            isRight = isRight && dataSet.GetRecordCount() == Records;
    });
    std::printf("with %d bookmarks: SetRecNo %.1f ns, RecordCount %.1f ns\n", Records, perRecord(numbers, Marked),
                perRecord(counts, Marked));
    std::printf("bytes a bookmark: %zu, and 4 once numbers are sought\n", sizeof(ZOR::TBookmarkMap::TEntry));
    if (!isRight)
        std::printf("the sums differ\n");
    return isRight ? 0 : 1;
}
