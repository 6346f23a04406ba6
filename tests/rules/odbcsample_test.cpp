// The sample orders: the same in both databases, and with everything in them that pages and examples rely on.

#include "sampledata/sampledatabase.h"
#include "tests/support/databases.h"

using namespace databases;

namespace {

class OdbcSample : public OnDatabase {};
ON_DATABASES(OdbcSample, "SQLite", "PostgreSQL");

TEST_P(OdbcSample, IsTheSameInEveryDatabase) {
    EXPECT_FALSE(sampleorders::AreLoaded(*Connection));
    sampleorders::LoadOnce(*Connection);
    sampleorders::LoadOnce(*Connection);
    std::uint64_t checksum = 0;
    for (const sampleorders::TTable& table : sampleorders::MakeTables(Connection->GetKind())) {
        const auto rows = Open(u"SELECT * FROM " + table.Name + u" ORDER BY id");
        ASSERT_EQ(rows->GetRecordCount(), static_cast<int>(table.Rows.size()));
        std::vector<int> nulls(table.Columns.size());
        for (const auto& row : table.Rows) {
            for (int column = 0; column < rows->GetColumnCount(); ++column) {
                const TDataValue& made = row[static_cast<std::size_t>(column)].Value;
                ASSERT_TRUE(rows->GetValue(column) == made) << Utf8Encode(table.Name) << " " << column;
                nulls[static_cast<std::size_t>(column)] += rows->IsNull(column) ? 1 : 0;
                if (const auto* moment = std::get_if<TMoment>(&made))
                    checksum = checksum * 31 + static_cast<std::uint64_t>(moment->Ticks);
                if (const auto* whole = std::get_if<std::int64_t>(&made))
                    checksum = checksum * 31 + static_cast<std::uint64_t>(*whole);
                if (const auto* text = std::get_if<String>(&made)) {
                    for (const char16_t unit : *text)
                        checksum = checksum * 31 + unit;
                }
            }
            rows->MoveNext();
        }
        EXPECT_TRUE(std::any_of(nulls.begin(), nulls.end(), [](int count) { return count > 10; }));
    }
    EXPECT_EQ(checksum, 10228287899278374851U) << "every compiler makes the same rows";
    EXPECT_GE(Value(u"SELECT count(*) FROM items").AsInteger(), 15'000);
    EXPECT_EQ(Value(u"SELECT count(*) FROM orders WHERE customer_id NOT IN (SELECT id FROM customers)"), Variant(0));
}

} // namespace
