// The rows of the virtual data grid, while its dataset is narrowed, filtered, edited, reopened and read in vain.

#include "data/Zorvirtualdbgrid.h"
#include "framework/system/formsaver.h"
#include "framework/windows/application.h"
#include "tests/support/input.h"
#include "tests/support/memoryrows.h"

#include <gtest/gtest.h>

using namespace ZOR;
using namespace testsupport;

namespace {

/// A grid of Name and Credit on 40 customers; each of them has 1.25 more than the one before.
class VirtualDBGridRowsTest : public testing::Test {
protected:
    void SetUp() override {
        for (const char16_t* field : {u"Name", u"Credit"})
            Grid->Columns->Add()->FieldName = field;
        Grid->SetBounds(10, 10, 300, 200);
        Grid->Parent = Form.get();
        DataSource.DataSet = DataSet;
        Grid->DataSource = &DataSource;
    }
    void Paint() {
        Application->ProcessMessages();
        Grid->Invalidate();
        Grid->Update();
    }
    /// The rows that show by their keys, and the sum of their credits.
    std::string Shown() {
        Paint();
        std::string rows;
        for (TVirtualNode* node = Grid->GetFirst(); node; node = Grid->GetNext(node)) {
            if (Grid->IsVisible[node])
                rows += std::to_string(Grid->GetRowId(node).first) + " ";
        }
        return rows + "= " + Utf8Encode(VarToStr(Grid->GetColumnTotal(Grid->Columns->Items[1])));
    }
    std::string Selected() {
        std::string rows;
        for (TVirtualNode* node = Grid->GetFirstSelected(); node; node = Grid->GetNextSelected(node))
            rows += std::to_string(node->GetIndex()) + " ";
        return rows;
    }
    /// The dataset opens on other rows.
    void Reopen(std::unique_ptr<TMemorySource> source) {
        DataSet->Close();
        Customers.Source = source.get();
        Customers.Recordset = std::make_shared<TClientRecordset>(std::move(source));
        DataSet->SetRecordset(Customers.Recordset);
    }

    std::unique_ptr<TForm> Form = ShowForm();
    TCustomers Customers{40};
    TZORADODataSet* DataSet = Customers.DataSet;
    TDataSource DataSource{nullptr};
    TZORVirtualDBGrid* Grid = new TZORVirtualDBGrid(Form.get());
};

TEST_F(VirtualDBGridRowsTest, FollowTheViewOfTheDataset) {
    Customers.Mark({2, 4, 7});
    DataSet->Last();
    EXPECT_EQ(ProblemOf([&] { DataSet->FilteredByBookmarks = true; }), "none") << "the last record is hidden";
    EXPECT_EQ(Customers.Id(), 2);
    EXPECT_EQ(Shown(), "2 4 7 = 16.25");
    // As many others, while nobody is told.
    DataSet->DisableControls();
    DataSet->FilteredByBookmarks = false;
    DataSet->ClearBookmarks();
    Customers.Mark({3, 5, 8});
    DataSet->FilteredByBookmarks = true;
    DataSet->EnableControls();
    EXPECT_EQ(Shown(), "3 5 8 = 20");
    DataSet->Last();
    DataSet->Delete();
    EXPECT_EQ(Shown(), "3 5 = 10") << "RecordCount counts the bookmark of the record that is gone";
    DataSet->FilteredByBookmarks = false;
    // The same with filters.
    int least = 36;
    DataSet->OnFilterRecord = [&](TDataSet*, bool& accepts) {
        accepts = DataSet->FieldByName(u"Id")->AsInteger >= least;
    };
    DataSet->First();
    EXPECT_EQ(ProblemOf([&] { DataSet->Filtered = true; }), "none");
    EXPECT_EQ(Shown(), "36 37 38 39 40 = 237.5");
    DataSet->DisableControls();
    DataSet->Filtered = false;
    least = 39;
    DataSet->Filtered = true;
    DataSet->EnableControls();
    EXPECT_EQ(Shown(), "39 40 = 98.75");
    DataSet->Refresh();
    EXPECT_EQ(Shown(), "39 40 = 98.75");
    EXPECT_EQ(Grid->NodeText(Grid->GetFirst(), 1), u"48.75") << "its bookmark is another one now";
}

TEST_F(VirtualDBGridRowsTest, AreReadAgainAfterAFailureAndForOtherRecords) {
    const std::string all = Shown();
    for (const bool closes : {false, true}) {
        SCOPED_TRACE(closes);
        int read = 0;
        Grid->AfterInitNode = [&](TBaseVirtualTree*, TVirtualNode*, TVirtualNode*, TVirtualNodeInitStates&) {
            if (++read < 5)
                return;
            if (closes)
                DataSet->Close();
            else
                throw Exception(u"Not this one");
        };
        EXPECT_EQ(ProblemOf([&] { Grid->Reload(); }), closes ? "none" : "Not this one");
        EXPECT_EQ(Grid->GetColumnTotal(Grid->Columns->Items[1]), Null()) << "no sum of some rows";
        Paint();
        Paint();
        EXPECT_EQ(read, 5) << "it is not tried again with each painting";
        Grid->AfterInitNode = nullptr;
        if (closes)
            Reopen(MakeCustomers(40));
        else
            DataSet->Last();
        EXPECT_EQ(Shown(), all);
    }
    auto dearer = MakeCustomers(40);
    dearer->Rows[0][3] = TNumeric{1000000, 2};
    Reopen(std::move(dearer));
    EXPECT_EQ(Shown().substr(all.find('=')), "= 11023.75") << "the keys are the same, the sums are not";
    // Without keys records are told from others by the view alone.
    Grid->id_column_name = u"";
    auto others = MakeCustomers(40);
    others->Rows[0][3] = TNumeric{0, 2};
    Reopen(std::move(others));
    EXPECT_EQ(Shown().substr(Shown().find('=')), "= 1023.75");
    Grid->DataSource = nullptr;
    EXPECT_EQ(WriteTextForm(SaveTextForm(*Grid)).find("NodeCount"), std::string::npos);
}

TEST_F(VirtualDBGridRowsTest, KeepSelectionAndFocusSilently) {
    int told = 0;
    Grid->OnChange = [&](TBaseVirtualTree*, TVirtualNode*) { ++told; };
    Grid->OnFocusChanged = [&](TBaseVirtualTree*, TVirtualNode*, TColumnIndex) { ++told; };
    Grid->OnFocusChanging = [](TBaseVirtualTree*, TVirtualNode*, TVirtualNode* node, TColumnIndex, TColumnIndex,
                               bool& allowed) { allowed = node && node->GetIndex() != 6; };
    // Rows without a number, and two with the same one.
    auto source = MakeCustomers(40);
    source->Rows[1][0] = TDataValue();
    source->Rows[2][0] = TDataValue();
    source->Rows[9][0] = std::int64_t(5);
    source->Columns[0].Nullable = true;
    Reopen(std::move(source));
    const auto select = [&](int row) { Grid->Selected[Grid->NodeOfRow(row)] = true; };
    select(2);
    select(9);
    Grid->FocusedNode = Grid->NodeOfRow(9);
    told = 0;
    DataSet->AppendRecord({100, u"New"});
    EXPECT_EQ(Shown().substr(0, 12), "1 0 0 4 5 6 ");
    EXPECT_EQ(Selected(), "2 9 ");
    EXPECT_EQ(Grid->FocusedNode, Grid->NodeOfRow(9));
    EXPECT_EQ(told, 0) << "nothing has changed";
    // Whatever was deleted leaves the selection.
    DataSet->RecNo = 10;
    DataSet->Delete();
    Paint();
    EXPECT_EQ(Selected(), "2 ");
    EXPECT_EQ(Grid->FocusedNode, nullptr);
    EXPECT_EQ(told, 2);
    // Read anew, rows are found by their keys alone.
    Grid->Set_Selected(7);
    select(2);
    told = 0;
    Customers.Source->Rows.pop_back();
    DataSet->Refresh();
    Paint();
    EXPECT_EQ(Grid->SelectedCount, 1);
    EXPECT_EQ(Grid->GetRowId(Grid->GetFirstSelected()).first, 7);
    EXPECT_EQ(told, 1);
}

TEST_F(VirtualDBGridRowsTest, ShowWhatIsThereNow) {
    Paint();
    DataSet->DisableControls();
    DataSet->Edit();
    DataSet->FieldByName(u"Name")->AsString = u"Another";
    DataSet->Post();
    DataSet->EnableControls();
    EXPECT_TRUE(GetUpdateRect(Grid->Handle, nullptr, FALSE)) << "what was edited in silence is painted";
    // A reading that fails in the middle of a painting does not keep the rows from being painted.
    int painted = 0;
    int failed = 0;
    Grid->OnAfterCellPaint = [&](TBaseVirtualTree*, const TVTPaintInfo&) { ++painted; };
    Grid->AfterInitNode = [&](TBaseVirtualTree*, TVirtualNode*, TVirtualNode*, TVirtualNodeInitStates&) {
        if (DataSet->RecNo > 4)
            throw Exception(u"Not this one");
    };
    Application->OnException = [&](TObject*, const std::exception&) { ++failed; };
    Grid->id_column_name = u"City";
    Paint();
    Application->OnException = nullptr;
    EXPECT_EQ(failed, 1);
    EXPECT_GE(painted, 8) << "four rows of two cells";
    Grid->AfterInitNode = nullptr;
    Grid->id_column_name = u"Id";
    // A total belongs to the field of its column.
    EXPECT_NE(Grid->GetPlainTotal(Grid->Columns->Items[1]), u"");
    Grid->Columns->Items[1]->FieldName = u"Name";
    EXPECT_EQ(Grid->GetPlainTotal(Grid->Columns->Items[1]), u"");
    // Check mode leaves nothing behind.
    const auto options = Grid->TreeOptions->PaintOptions;
    Grid->CheckMode = true;
    EXPECT_EQ(Grid->NodeText(Grid->GetFirst(), 0), u"") << "boxes have no text";
    Grid->CheckMode = false;
    EXPECT_EQ(Grid->CheckType[Grid->GetFirst()], ctNone);
    EXPECT_EQ(Grid->TreeOptions->PaintOptions, options);
    EXPECT_EQ(Grid->NodeText(Grid->GetFirst(), 0), u"Another");
}

TEST_F(VirtualDBGridRowsTest, AreThoseOfTheMaster) {
    SetRecordsetOpener([](TRecordsetQuery& query) -> std::shared_ptr<_Recordset> {
        TRowStore rows({MemoryColumn(u"Amount", adInteger)});
        const auto* customer = std::get_if<std::int64_t>(&query.Parameters.at(0).Value);
        for (int i = 0; i < 3; ++i)
            rows.AppendRow(std::vector<TDataValue>{*customer});
        return std::make_shared<TClientRecordset>(std::move(rows));
    });
    TADODataSet items(nullptr);
    items.CommandText = u"SELECT amount FROM items WHERE customer = :Id";
    items.DataSource = &DataSource;
    items.Open();
    TDataSource itemSource(nullptr);
    itemSource.DataSet = &items;
    Grid->Columns->Items[1]->FieldName = u"Amount";
    Grid->DataSource = &itemSource;
    EXPECT_EQ(Shown(), "0 0 0 = 3");
    DataSet->Next();
    EXPECT_EQ(Shown(), "0 0 0 = 6") << "no keys, as many rows, another order";
    Grid->DataSource = nullptr;
    SetRecordsetOpener({});
}

TEST_F(VirtualDBGridRowsTest, AnswerWithWhatWasPosted) {
    String total;
    DataSet->AfterPost = [&](TDataSet*) {
        Grid->Set_Selected(100);
        total = Grid->FormatColumnTotal(Grid->Columns->Items[1]);
    };
    DataSet->AppendRecord({100, u"New", Null(), 0.25});
    EXPECT_EQ(Selected(), "40 ");
    EXPECT_EQ(total, u"1025.25");
    EXPECT_EQ(Customers.Id(), 100);
    DataSet->Delete();
    EXPECT_EQ(Grid->Get_SelectedCount(), 0) << "asked before anything was painted";
    // With the marks the narrowing ends, once a record is read.
    Customers.Mark({2, 4, 7});
    DataSet->FilteredByBookmarks = true;
    Grid->Set_Selected(4);
    int told = 0;
    Grid->OnChange = [&](TBaseVirtualTree*, TVirtualNode*) { ++told; };
    DataSet->ClearBookmarks();
    Paint();
    EXPECT_EQ(Selected(), "3 ") << "the same record";
    EXPECT_EQ(told, 0);
    Grid->Set_Selected(5);
    EXPECT_EQ(Selected(), "4 ");
    // A handler frees the grid while it reads its rows to find one.
    Grid->AfterInitNode = [&](TBaseVirtualTree*, TVirtualNode*, TVirtualNode*, TVirtualNodeInitStates&) {
        delete std::exchange(Grid, nullptr);
    };
    DataSet->AfterPost = [&, grid = Grid](TDataSet*) { grid->Set_Selected({{5, {}}, {7, {}}}); };
    EXPECT_EQ(ProblemOf([&] { DataSet->AppendRecord({101}); }), "none");
    EXPECT_EQ(Grid, nullptr);
}

TEST_F(VirtualDBGridRowsTest, StayWithFieldsAndPlacesThatMove) {
    // Columns that follow the fields, beside a data grid that shows the active record in its fourth row.
    auto* other = new TZORVirtualDBGrid(Form.get());
    other->SetBounds(10, 215, 500, 100);
    other->Parent = Form.get();
    other->DataSource = &DataSource;
    auto* rows = new TDBGrid(Form.get());
    rows->SetBounds(320, 10, 200, 200);
    rows->Parent = Form.get();
    rows->DataSource = &DataSource;
    DataSet->MoveBy(3);
    Grid->Reload();
    EXPECT_EQ(DataSet->GetActiveRecord(), 3);
    DataSet->Last();
    DataSet->Next();
    Grid->Reload();
    EXPECT_TRUE(DataSet->Eof);
    other->Header->SortColumn = 0;
    other->Set_FocusedColumn(1);
    Paint();
    const TRect id = other->HeaderCellRect(0);
    const auto at = [&](int x) { return other->ClientToScreen({x, id.Top + 8}); };
    PressMouse(at(id.Left + 10));
    MoveMouse(at(id.Left + 22));
    MoveMouse(at(other->HeaderCellRect(2).Right - 2));
    Application->ProcessMessages();
    ReleaseMouse();
    Application->ProcessMessages();
    EXPECT_EQ(other->Columns->Items[2]->FieldName, u"Id");
    EXPECT_EQ(rows->Columns->Items[2]->FieldName, u"Id");
    EXPECT_EQ(other->Header->SortColumn, 2);
    EXPECT_EQ(other->FocusedColumn, 0);
    DataSet->AppendRecord({u"New", u"Praha", 100});
    Paint();
    EXPECT_EQ(Grid->GetRowId(Grid->GetRootNode()->LastChild).first, 100);
    EXPECT_EQ(Grid->GetRowId(Grid->NodeOfRow(4)), (TRowId{5, {}}));
    // The focus stays with its column too, and nobody is told.
    int told = 0;
    Grid->FocusedNode = Grid->NodeOfRow(0);
    Grid->Set_FocusedColumn(1);
    Grid->ColumnFocusLocked = true;
    Grid->OnFocusChanged = [&](TBaseVirtualTree*, TVirtualNode*, TColumnIndex) { ++told; };
    Grid->Columns->Add()->Index = 0;
    Paint();
    EXPECT_EQ(Grid->FocusedColumn, 2);
    EXPECT_EQ(Grid->SelectedFieldName, u"Credit");
    delete Grid->Columns->Items[0];
    Paint();
    EXPECT_EQ(Grid->FocusedColumn, 1);
    EXPECT_EQ(told, 0);
    const TRect cell = Grid->GetDisplayRect(Grid->NodeOfRow(2), 0);
    int asked = 0;
    Grid->OnFocusChanging = [&](TBaseVirtualTree*, TVirtualNode*, TVirtualNode*, TColumnIndex, TColumnIndex column,
                                bool&) { asked += column == 1 ? 1 : 100; };
    ClickOn(*Grid, {cell.Left + 10, cell.Top + 5});
    ASSERT_TRUE(WaitFor([&] { return Grid->FocusedNode == Grid->NodeOfRow(2); }));
    EXPECT_EQ(Grid->FocusedColumn, 1);
    EXPECT_EQ(asked, 1) << "for the locked column alone";
    DataSet->Close();
    Paint();
    DataSet->SetRecordset(Customers.Recordset);
    Paint();
    EXPECT_EQ(other->Header->SortColumn, 2) << "all columns are others, and in the same places";
}

} // namespace
