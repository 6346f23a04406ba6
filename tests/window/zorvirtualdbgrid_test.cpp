// The virtual data grid on rows in memory.

#include "data/Zorvirtualdbgrid.h"
#include "framework/db/fieldclasses.h"
#include "framework/system/formloader.h"
#include "framework/system/formsaver.h"
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

String Money(double amount) {
    return FormatFloat(u"#,##0.00", amount);
}

class VirtualDBGridTest : public testing::Test {
protected:
    void SetUp() override {
        Form = ShowForm();
        Form->SetBounds(50, 50, 640, 360);
        DataSource = new TDataSource(Form.get());
        MakeGrid();
        Open(40);
    }
    void MakeGrid() {
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
    }
    void Paint() {
        Application->ProcessMessages();
        if (!Grid)
            return;
        Grid->Invalidate();
        Grid->Update();
        Application->ProcessMessages();
    }
    Variant Total(int column) { return Grid->GetColumnTotal(Grid->Columns->Items[column]); }
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
    EXPECT_EQ(Total(1), Variant(Currency::FromUnits(88271540500)));
    EXPECT_EQ(Total(2), Variant(12)) << "true ones are counted";
    EXPECT_EQ(Total(3), Null());
    EXPECT_EQ(Grid->FormatColumnTotal(Grid->Columns->Items[1]), Money(8827154.05));
    EXPECT_EQ(Grid->GetRowId(Grid->NodeOfRow(4)), (TRowId{5, GuidOf(5)}));
    Paint();
    EXPECT_EQ(DataSet->RecNo, 1);
    // A text takes the dataset along, once; what is painted or copied does not.
    int scrolled = 0;
    DataSet->AfterScroll = [&](TDataSet*) { ++scrolled; };
    EXPECT_EQ(Grid->Get_NodeCaption(Grid->NodeOfRow(5), 1), Money(74074.02));
    EXPECT_EQ(Grid->Get_NodeCaption(Grid->NodeOfRow(5), 2), u"#B1");
    EXPECT_EQ(Grid->Get_NodeCaption(Grid->NodeOfRow(6), 2), u"") << "Null";
    EXPECT_EQ(DataSet->RecNo, 7);
    EXPECT_EQ(scrolled, 2);
    EXPECT_EQ(Grid->NodeText(Grid->NodeOfRow(2), 2), u"True");
    EXPECT_EQ(DataSet->RecNo, 7);
    // What is being edited stays so, while other rows are painted and asked for.
    DataSet->Edit();
    DataSet->FieldByName(u"Customer")->AsString = u"Somebody";
    Paint();
    EXPECT_EQ(Grid->Get_NodeCaption(Grid->NodeOfRow(0), 0), u"Customer 1");
    EXPECT_EQ(DataSet->State, dsEdit);
    EXPECT_EQ(DataSet->FieldByName(u"Customer")->AsString, u"Somebody");
    EXPECT_EQ(scrolled, 2);
    DataSet->Post();
    EXPECT_EQ(Grid->NodeText(Grid->NodeOfRow(6), 0), u"Somebody");
}

TEST_F(VirtualDBGridTest, SelectsByKeys) {
    const auto selected = [&] {
        std::vector<TRowId> rows;
        Grid->Get_Selected(&rows);
        std::string ids;
        for (const auto& [id, guid] : rows)
            ids += (ids.empty() ? "" : " ") + std::to_string(id);
        return ids + " of " + std::to_string(Grid->Get_SelectedCount());
    };
    const auto focused = [&] { return Grid->GetRowId(Grid->FocusedNode).first; };
    EXPECT_EQ(selected(), "1 of 0") << "without any the first";
    Grid->Set_Selected(30);
    EXPECT_EQ(selected(), "30 of 1");
    EXPECT_EQ(focused(), 30);
    EXPECT_FALSE(Grid->GetDisplayRect(Grid->FocusedNode, NoColumn).IsEmpty()) << "it came into view";
    Grid->Set_Selected(0);
    EXPECT_EQ(selected(), "30 of 1");
    Grid->Set_Selected(0, GuidOf(3));
    EXPECT_EQ(selected(), "1 of 0") << "its number counts before its GUID";
    Grid->Set_Selected({{9, {}}, {77, {}}, {4, GuidOf(8)}});
    EXPECT_EQ(selected(), "4 9 of 2");
    EXPECT_EQ(focused(), 4);
    Grid->Set_Selected(Grid->NodeOfRow(11));
    EXPECT_EQ(selected(), "12 of 1");
    EXPECT_EQ(Grid->GetRowId(Grid->Get_FirstSelectedNode()).first, 12);
    // The focused column is kept, and locked it resists clicks.
    Grid->Set_FocusedColumn(1);
    EXPECT_EQ(Grid->SelectedFieldName, u"Total");
    Grid->ColumnFocusLocked = true;
    Grid->TopNode = Grid->NodeOfRow(0);
    Paint();
    const TRect cell = Grid->GetDisplayRect(Grid->NodeOfRow(2), 3);
    ClickOn(*Grid, {cell.Left + 20, cell.Top + 5});
    ASSERT_TRUE(WaitFor([&] { return focused() == 3; }));
    EXPECT_EQ(Grid->FocusedColumn, 1);
    Grid->ColumnFocusLocked = false;
    ClickOn(*Grid, {cell.Left + 20, cell.Top + 5});
    EXPECT_TRUE(WaitFor([&] { return Grid->Get_FocusedColumn() == 3; }));
}

TEST_F(VirtualDBGridTest, ColumnsFollowThePersonAndTheProgram) {
    const auto titles = [&] {
        String all;
        for (int position = 0; position < Grid->Header->Columns->GetCount(); ++position) {
            const TVirtualTreeColumn& column =
                *Grid->Header->Columns->GetColumn(Grid->Header->Columns->ColumnFromPosition(position));
            all += (column.IsVisible() ? u" " : u" -") + column.GetText();
        }
        return all;
    };
    const auto drag = [&](int column, int x) {
        Paint();
        const TRect from = Grid->HeaderCellRect(column);
        const int y = from.Top + 8;
        PressMouse(Grid->ClientToScreen({(from.Left + from.Right) / 2, y}));
        MoveMouse(Grid->ClientToScreen({(from.Left + from.Right) / 2 + 12, y}));
        MoveMouse(Grid->ClientToScreen({x, y}));
        Application->ProcessMessages();
        ReleaseMouse();
        Application->ProcessMessages();
    };
    Grid->Header->SortColumn = 1;
    drag(1, 5);
    EXPECT_EQ(titles(), u" Total Customer Paid Ordered Id");
    EXPECT_EQ(Grid->Columns->Items[0]->FieldName, u"Total");
    EXPECT_EQ(Grid->Header->SortColumn, 0) << "it is the same column";
    EXPECT_EQ(Grid->Get_NodeCaption(Grid->NodeOfRow(0), 0), Money(12345.67));
    const TRect first = Grid->HeaderCellRect(0);
    PressMouse(Grid->ClientToScreen({first.Right - 1, first.Top + 8}));
    MoveMouse(Grid->ClientToScreen({first.Right + 29, first.Top + 8}));
    Application->ProcessMessages();
    ReleaseMouse();
    Application->ProcessMessages();
    EXPECT_EQ(Grid->Columns->Items[0]->Width, 140);
    EXPECT_EQ(Grid->Footer->Columns->GetColumn(0)->Width, 140);
    // What the program changes shows with the next painting.
    Grid->Columns->Items[2]->Visible = false;
    Grid->Columns->Items[3]->Title->Caption = u"When";
    AddColumn(u"Total", 50);
    Paint();
    EXPECT_EQ(titles(), u" Total Customer -Paid When Id Total");
    EXPECT_EQ(Total(5), Variant(Currency::FromUnits(88271540500))) << "a column that came later has its total";
    delete Grid->Columns->Items[0];
    AddColumn(u"Nothing", 50);
    Paint();
    EXPECT_EQ(titles(), u" Customer -Paid When Id Total Nothing");
    EXPECT_EQ(Grid->NodeText(Grid->NodeOfRow(0), 5), u"") << "there is no such field";
    // In check mode the first column has the boxes.
    Grid->CheckMode = true;
    Paint();
    EXPECT_EQ(Grid->Header->Columns->GetColumn(0)->Width, 25);
    drag(0, 300);
    drag(3, 5);
    EXPECT_EQ(titles(), u" Customer -Paid When Id Total Nothing");
    const TRect box = Grid->GetDisplayRect(Grid->NodeOfRow(1), 0);
    ClickOn(*Grid, {box.Left + Grid->CheckBoxLeft() + 6, box.Top + 9});
    EXPECT_TRUE(WaitFor([&] { return Grid->CheckState[Grid->NodeOfRow(1)] == csCheckedNormal; }));
}

TEST_F(VirtualDBGridTest, FooterLiesUnderItsColumns) {
    const int client = Grid->ClientHeight;
    std::map<String, TRect> cells;
    std::string asked;
    Grid->OnGetFooterText = [&](String& text, TColumn* column, const Variant& total) {
        asked += std::to_string(column->Index) + (VarIsNull(total) ? "-" : "+");
        if (column->Index == 0)
            text = u"40 orders";
    };
    Grid->OnFooterDraw = [&](TVTHeader*, TCanvas*, TVirtualTreeColumn* column, const TRect& cell, bool, bool,
                             TVTDropMarkMode) { cells[column->Text] = cell; };
    Grid->Columns->Items[2]->Visible = false;
    const auto expectInLine = [&](const char* what, int column, const String& text) {
        cells.clear();
        asked.clear();
        Paint();
        const TRect header = Grid->HeaderCellRect(column);
        const int inset = Grid->ClientToScreen({0, 0}).X - (Form->ClientToScreen({Grid->Left, 0}).X);
        ASSERT_TRUE(cells.count(text)) << what;
        EXPECT_EQ(cells[text].Left, header.Left + inset) << what;
        EXPECT_EQ(cells[text].Right, header.Right + inset) << what;
        EXPECT_EQ(cells[text].Bottom, Grid->Height - 2) << what;
        EXPECT_EQ(asked.substr(0, 8), "0-1+3-4+") << "hidden ones are not asked for";
    };
    expectInLine("plain", 0, u"40 orders");
    Grid->Width = 250;
    Grid->OffsetX = -70;
    expectInLine("scrolled", 1, FormatFloat(u"0.00", 8827154.05));
    Grid->BiDiMode = bdRightToLeft;
    Grid->OffsetX = -20;
    expectInLine("from the right, the bar on the left", 1, FormatFloat(u"0.00", 8827154.05));
    TRect text{1, 2, 3, 4};
    const TWindowDC dc(nullptr);
    Grid->ComputeFooterLayout(*Grid->Footer->Columns->GetColumn(3), dc, {0, 0, 50, 20}, text);
    EXPECT_EQ(text, (TRect{1, 2, 3, 4})) << "nothing to be placed";
    Grid->ComputeFooterLayout(*Grid->Footer->Columns->GetColumn(1), dc, {100, 0, 120, 20}, text);
    EXPECT_EQ(text.Left, 104);
    EXPECT_EQ(text.Right, 116) << "cut at the margin";
    Grid->BiDiMode = bdLeftToRight;
    Grid->Width = 560;
    Grid->Footer->Options = Grid->Footer->Options - TVTHeaderOptions{hoVisible};
    Paint();
    EXPECT_EQ(Grid->ClientHeight, client + Grid->Footer->Height);
    EXPECT_TRUE(Grid->GetFooterRect().IsEmpty());
}

TEST_F(VirtualDBGridTest, SurvivesWhatHappensToTheDataset) {
    const auto state = [&] {
        Paint();
        TVirtualNode* last = Grid->GetRootNode()->LastChild;
        return std::to_string(Grid->RootNodeCount) + " rows, last " +
               (last ? Utf8Encode(Grid->NodeText(last, 0)) : "-") + ", ids " + Utf8Encode(VarToStr(Total(4)));
    };
    TZORVirtualDBGrid other(Form.get());
    other.SetParent(Form.get());
    other.SetBounds(10, 275, 300, 60);
    other.SetDataSource(DataSource); // with the columns that the fields make
    EXPECT_EQ(other.RootNodeCount, 40u);
    Grid->Set_Selected(5);
    // Another connection.
    Source->Rows.pop_back();
    Source->Rows.front()[2] = String(u"Changed");
    DataSet->Refresh();
    EXPECT_EQ(state(), "39 rows, last Customer 39, ids 780");
    EXPECT_EQ(Grid->GetRowId(Grid->GetFirstSelected()).first, 5) << "the selection stays with its key";
    EXPECT_EQ(other.RootNodeCount, 39u);
    Source->Rows[1][0] = std::int64_t(99);
    Source->Rows[1][2] = String(u"As many rows, but other ones");
    DataSet->Refresh();
    EXPECT_EQ(state(), "39 rows, last Customer 39, ids 877");
    Source->Rows[1][2] = String(u"The same row");
    Source->Rows[1][3] = TNumeric{100, 2};
    const Variant before = Total(1);
    DataSet->Refresh();
    EXPECT_EQ(state(), "39 rows, last Customer 39, ids 877");
    EXPECT_EQ(Grid->NodeText(Grid->NodeOfRow(1), 0), u"The same row");
    EXPECT_EQ(Total(1), before) << "totals are those of the last reading";
    Grid->Reload();
    EXPECT_NE(Total(1), before);
    // Edits through the dataset.
    DataSet->Append();
    DataSet->FieldByName(u"Id")->AsInteger = 200;
    DataSet->FieldByName(u"Customer")->AsString = u"New";
    EXPECT_EQ(state(), "39 rows, last Customer 39, ids 877");
    DataSet->Post();
    EXPECT_EQ(state(), "40 rows, last New, ids 1077");
    DataSet->Delete();
    EXPECT_EQ(state(), "39 rows, last Customer 39, ids 877");
    // Filters hide rows.
    DataSet->OnFilterRecord = [](TDataSet* rows, bool& accept) { accept = rows->FieldByName(u"Id")->AsInteger < 8; };
    DataSet->Filtered = true;
    Paint();
    EXPECT_EQ(Grid->VisibleCount, 6);
    EXPECT_EQ(Total(4), Variant(26));
    DataSet->Filtered = false;
    EXPECT_EQ(state(), "39 rows, last Customer 39, ids 877");
    // Closed, replaced, destroyed.
    DataSet->Close();
    EXPECT_EQ(state(), "39 rows, last , ids 877") << "the rows stay";
    EXPECT_EQ(Grid->Get_NodeCaption(Grid->NodeOfRow(0), 0), u"");
    Open(3);
    EXPECT_EQ(state(), "3 rows, last Customer 3, ids 6");
    delete DataSet;
    EXPECT_EQ(state(), "3 rows, last , ids 6");
    Open(5);
    delete DataSource;
    EXPECT_EQ(state(), "5 rows, last , ids 15");
    EXPECT_EQ(Grid->DataSource, nullptr);
}

TEST_F(VirtualDBGridTest, SurvivesItsHandlers) {
    enum TDeed { Frees, Closes, Moves, Clears };
    for (const TDeed deed : {Frees, Closes, Moves, Clears}) {
        for (int event = 0; event < 5; ++event) {
            SCOPED_TRACE(std::to_string(deed) + " in " + std::to_string(event));
            if (!DataSet->Active)
                Open(40);
            TLifeGuard alive(*Grid);
            const auto act = [&, done = std::make_shared<bool>(false)] {
                if (std::exchange(*done, true))
                    return; // who invalidates in each painting never comes to an end
                if (deed == Frees)
                    delete std::exchange(Grid, nullptr);
                else if (deed == Closes)
                    DataSet->Close();
                else if (deed == Moves)
                    DataSet->Next();
                else
                    Grid->Columns->Clear();
            };
            Grid->OnDrawTextNode = nullptr;
            switch (event) {
            case 0:
                Grid->OnDrawTextNode = [act](TBaseVirtualTree*, const TVTPaintInfo&, const String&) { act(); };
                break;
            case 1:
                Grid->AfterInitNode = [act](TBaseVirtualTree*, TVirtualNode*, TVirtualNode*, TVirtualNodeInitStates&) {
                    act();
                };
                Grid->Reload();
                break;
            case 2:
                Grid->OnGetFooterText = [act](String&, TColumn*, const Variant&) { act(); };
                break;
            case 3:
                Grid->OnFooterDraw = [act](TVTHeader*, TCanvas*, TVirtualTreeColumn*, const TRect&, bool, bool,
                                           TVTDropMarkMode) { act(); };
                break;
            case 4:
                DataSet->FieldByName(u"Customer")->OnGetText = [act](TField*, String&, bool) { act(); };
                break;
            }
            if (alive)
                Paint();
            Application->ProcessMessages();
            DataSet->Close();
            delete std::exchange(Grid, nullptr);
            MakeGrid();
            Open(40);
        }
    }
}

TEST_F(VirtualDBGridTest, GivesBackItsHandles) {
    ExpectSteadyHandles(20, [&] {
        delete std::exchange(Grid, nullptr);
        MakeGrid();
        Paint();
        Grid->BiDiMode = bdRightToLeft;
        Grid->OffsetX = -50;
        Paint();
    });
}

TEST_F(VirtualDBGridTest, GoesOutAndBackThroughTextForms) {
    Zorvirtualdbgrid::Register();
    Grid->Name = u"Orders";
    Grid->CheckMode = true;
    Grid->Columns->Items[1]->Title->Caption = u"Sum";
    Grid->id_column_name = u"number";
    Grid->TreeOptions->SelectionOptions = {}; // what other trees begin with
    Grid->Footer->Height = 30;
    Paint();
    Grid->Header->Columns->GetColumn(1)->Hint = u"With tax";
    Grid->DataSource = nullptr; // which has no name
    const std::string text = WriteTextForm(SaveTextForm(*Grid));
    const auto back = CreateFromTextForm(text, nullptr);
    auto* grid = As<TZORVirtualDBGrid>(back.get());
    ASSERT_TRUE(grid);
    EXPECT_EQ(grid->RootNodeCount, 0u) << "rows are no part of a form";
    ASSERT_EQ(grid->Columns->GetCount(), 5);
    EXPECT_EQ(grid->Columns->Items[0]->Width, 160);
    EXPECT_EQ(grid->Header->Columns->GetColumn(0)->Width, 25) << "the boxes";
    EXPECT_EQ(grid->Header->Columns->GetColumn(1)->Text, u"Sum");
    EXPECT_EQ(grid->Header->Columns->GetColumn(1)->Hint, u"With tax");
    EXPECT_EQ(grid->Footer->Columns->GetCount(), 5);
    EXPECT_EQ(grid->Footer->Height, 30);
    EXPECT_EQ(grid->id_column_name, u"number");
    EXPECT_TRUE(grid->TreeOptions->SelectionOptions.Empty());
    const std::string again = WriteTextForm(SaveTextForm(*grid));
    EXPECT_EQ(WriteTextForm(SaveTextForm(*CreateFromTextForm(again, nullptr))), again);
    for (const char* part : {"OnDrawNode", "RootNodeCount", "Footer.Columns"})
        EXPECT_EQ(text.find(part), std::string::npos) << part;
}

} // namespace
