// The virtual data grid on rows in memory.

#include "data/Zorvirtualdbgrid.h"
#include "framework/db/fieldclasses.h"
#include "framework/windows/application.h"
#include "tests/support/handlecount.h"
#include "tests/support/input.h"
#include "tests/support/memoryrows.h"

#include <gtest/gtest.h>

using namespace ZOR;
using namespace testsupport;

namespace {

TGUID GuidOf(int id) {
    return {static_cast<std::uint32_t>(id), 1, 2, {3, 4, 5, 6, 7, 8, 9, 10}};
}

class VirtualDBGridTest : public testing::Test {
protected:
    void SetUp() override {
        Form = ShowForm();
        Form->SetBounds(50, 50, 640, 360);
        DataSource = new TDataSource(Form.get());
        Grid = new TZORVirtualDBGrid(Form.get());
        Grid->SetBounds(10, 10, 560, 260);
        Grid->Parent = Form.get();
        Grid->Footer->Options = Grid->Footer->Options + TVTHeaderOptions{hoVisible};
        Grid->OnFooterDraw = DrawFooterTotals;
        AddColumn(u"Customer", 160);
        AddColumn(u"Total", 110);
        AddColumn(u"Paid", 60);
        AddColumn(u"Ordered", 90);
        AddColumn(u"Id", 60);
        Grid->DataSource = DataSource;
        Open(40);
    }
    void AddColumn(const String& field, int width) {
        TColumn* column = Grid->Columns->Add();
        column->FieldName = field;
        column->Width = width;
    }
    void Open(int count) {
        DataSet = new TADODataSet(Form.get());
        std::vector<TColumnInfo> columns = {MemoryColumn(u"Id", adInteger),
                                            MemoryColumn(u"guid", adGUID),
                                            MemoryColumn(u"Customer", adVarWChar, 40),
                                            MemoryColumn(u"Total", adNumeric, 0, 2),
                                            MemoryColumn(u"Paid", adBoolean),
                                            MemoryColumn(u"Ordered", adDBDate)};
        columns[0].Key = true;
        TMemorySource::TRows rows;
        for (int id = 1; id <= count; ++id) {
            std::vector<TDataValue> row(columns.size());
            row[0] = std::int64_t(id);
            row[1] = GuidOf(id);
            if (id % 7 != 0) {
                row[2] = u"Customer " + IntToStr(id);
                row[3] = TNumeric{id * 1234567, 2};
                row[4] = id % 3 == 0;
                row[5] = TMoment::FromDateTime(EncodeDate(2024, 1, 1) + id);
            }
            rows.push_back(std::move(row));
        }
        auto source = std::make_unique<TMemorySource>(std::move(columns), std::move(rows));
        Source = source.get();
        DataSet->SetRecordset(std::make_shared<TClientRecordset>(std::move(source)));
        static_cast<TNumericField*>(DataSet->FieldByName(u"Total"))->DisplayFormat = u"#,##0.00";
        DataSource->DataSet = DataSet;
    }

    std::unique_ptr<TForm> Form;
    TDataSource* DataSource = nullptr;
    TADODataSet* DataSet = nullptr;
    TZORVirtualDBGrid* Grid = nullptr;
    TMemorySource* Source = nullptr;
};

TEST_F(VirtualDBGridTest, ReadsRowsKeysAndTotals) {
    EXPECT_EQ(Grid->RootNodeCount, 40u);
    EXPECT_EQ(DataSet->RecNo, 1) << "the dataset is where it was";
    EXPECT_EQ(Grid->GetColumnTotal(Grid->Columns->Items[1]), Variant(Currency::FromUnits(88271540500)));
    EXPECT_EQ(Grid->GetColumnTotal(Grid->Columns->Items[2]), Variant(12)) << "true ones are counted";
    EXPECT_EQ(Grid->GetColumnTotal(Grid->Columns->Items[3]), Null());
    EXPECT_EQ(Grid->FormatColumnTotal(Grid->Columns->Items[1]), u"8,827,154.05");
    EXPECT_EQ(Grid->GetRowId(Grid->NodeOfRow(4)), (TRowId{5, GuidOf(5)}));
}

} // namespace
