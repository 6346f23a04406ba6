// The data grid by real input: moving, editing, adding and deleting, columns under the mouse.

#include "tests/support/gridform.h"
#include "tests/support/handlecount.h"
#include "tests/support/messageboxes.h"

using namespace testsupport;

namespace {

using DBGridTest = TGridForm<TDBGrid>;

TEST_F(DBGridTest, KeysMoveThroughRecordsAndColumns) {
    const int rows = Grid->GetShownRowCount();
    ASSERT_GT(rows, 5);
    const int last = Grid->Columns->Count - 1;
    struct TCase {
        WORD Key;
        TShiftState Shift;
        int Id;
        int Column;
    };
    const TCase cases[] = {
        {VK_DOWN, {}, 2, 0},       {VK_RIGHT, {}, 2, 1},
        {VK_END, {}, 2, last},     {VK_RIGHT, {}, 2, last},
        {VK_HOME, {}, 2, 0},       {VK_NEXT, {}, 2 + rows, 0},
        {VK_PRIOR, {}, 2, 0},      {VK_END, {ssCtrl}, kRecords, 0},
        {VK_HOME, {ssCtrl}, 1, 0}, {VK_TAB, {}, 1, 1},
        {VK_TAB, {ssShift}, 1, 0}, {VK_DOWN, {ssCtrl}, rows, 0},
        {VK_UP, {ssCtrl}, 1, 0},   {VK_RIGHT, {ssCtrl}, 1, last},
        {VK_TAB, {}, 2, 0},        {VK_TAB, {ssShift}, 1, last},
        {VK_LEFT, {ssCtrl}, 1, 0}, {VK_UP, {}, 1, 0},
    };
    std::string events;
    Grid->OnColExit = [&](TObject*) { events += "-" + std::to_string(Grid->SelectedIndex); };
    Grid->OnColEnter = [&](TObject*) { events += "+" + std::to_string(Grid->SelectedIndex); };
    for (const TCase& each : cases) {
        PressKey(each.Key, each.Shift);
        EXPECT_EQ(Id(), each.Id) << &each - cases;
        EXPECT_EQ(Grid->SelectedIndex, each.Column) << &each - cases;
        EXPECT_FALSE(Grid->DataCellRect(Grid->SelectedIndex, 0).IsEmpty()) << "scrolled into view";
    }
    EXPECT_EQ(events.substr(0, 8), "-0+1-1+6");
    // The first cell lets go of the keyboard backwards.
    PressKey(VK_TAB, {ssShift});
    EXPECT_TRUE(WaitFor([&] { return Other->Focused(); }));
    // A hidden column is passed by.
    Grid->SetFocus();
    Grid->Columns->GetColumn(1)->Visible = false;
    PressKey(VK_RIGHT);
    EXPECT_EQ(Grid->SelectedField, Data->FieldByName(u"City"));
    // So the wheel, which leaves a record alone that is being edited.
    MoveMouse(Grid->ClientToScreen(Cell(2, 1)));
    const auto turn = [&](int delta) {
        SendMessageW(Grid->Handle, WM_MOUSEWHEEL, static_cast<WPARAM>(delta) << 16, 0);
        return Id();
    };
    const int turned = turn(-120);
    EXPECT_GT(turned, 1);
    Data->Edit();
    EXPECT_EQ(turn(-120), turned);
    EXPECT_EQ(Data->State, dsEdit);
}

TEST_F(DBGridTest, CellsAreEditedInPlace) {
    Grid->SelectedIndex = 1;
    TypeText(u"Zen");
    ASSERT_TRUE(WaitFor([&] { return Editor() && Editor()->Text == u"Zen"; }));
    EXPECT_EQ(Data->State, dsEdit);
    PressKey(VK_ESCAPE);
    EXPECT_EQ(Editor(), nullptr);
    EXPECT_EQ(Data->State, dsEdit) << "the first Esc is the cell's";
    EXPECT_EQ(Text(u"Name"), u"Customer 1");
    PressKey(VK_ESCAPE);
    EXPECT_EQ(Data->State, dsBrowse);
    EXPECT_TRUE(Grid->Focused());

    PressKey(VK_F2);
    TypeText(u"0");
    PressKey(VK_RETURN);
    EXPECT_EQ(Text(u"Name"), u"Customer 10") << "F2 goes on with what is there";
    PressKey(VK_RETURN);
    TypeText(u"Anna");
    PressKey(VK_TAB);
    EXPECT_EQ(Text(u"Name"), u"Anna") << "Enter begins with everything selected";
    EXPECT_EQ(Grid->SelectedIndex, 2);
    TypeText(u"Radom");
    PressKey(VK_DOWN);
    EXPECT_EQ(Id(), 2);
    EXPECT_EQ(Data->State, dsBrowse);
    EXPECT_EQ(std::get<String>(Rows->Rows[0][2]), u"Radom");

    // What cannot be read stays, with the message, until it is put right.
    Grid->SelectedField = Data->FieldByName(u"Born");
    TBoxReader boxes;
    TypeText(u"99");
    PressKey(VK_RIGHT);
    PressKey(VK_RETURN);
    ASSERT_EQ(boxes.Seen.size(), 1u);
    ASSERT_NE(Editor(), nullptr);
    EXPECT_EQ(Editor()->Text, u"99");
    Other->SetFocus();
    EXPECT_TRUE(WaitFor([&] { return boxes.Seen.size() == 2 && Editor() && Editor()->Focused(); })) << "and when left";
    PressKey(VK_DOWN);
    EXPECT_EQ(boxes.Seen.size(), 3u);
    EXPECT_EQ(Id(), 2);
    PressKey(VK_ESCAPE);
    PressKey(VK_ESCAPE);
    EXPECT_EQ(Data->State, dsBrowse);

    // Letters are no numbers; read-only fields, columns and grids take nothing.
    Grid->SelectedField = Data->FieldByName(u"Credit");
    TypeText(u"x");
    EXPECT_EQ(Data->State, dsBrowse);
    Data->FieldByName(u"Credit")->ReadOnly = true;
    TypeText(u"1");
    Data->FieldByName(u"Credit")->ReadOnly = false;
    Grid->Columns->GetColumn(3)->ReadOnly = true;
    TypeText(u"1");
    Grid->SelectedIndex = 1;
    Grid->ReadOnly = true;
    TypeText(u"1");
    PressKey(VK_INSERT);
    Grid->ReadOnly = false;
    Grid->Options = Grid->Options + TDBGridOptions{dgRowSelect};
    TypeText(u"1");
    EXPECT_EQ(Data->State, dsBrowse);
    EXPECT_EQ(Editor(), nullptr);
}

TEST_F(DBGridTest, BoxesListsAndButtons) {
    Grid->SelectedField = Data->FieldByName(u"Paid");
    PressKey(VK_SPACE);
    EXPECT_EQ(Text(u"Paid"), u"True") << "Null becomes true";
    PressKey(VK_SPACE);
    EXPECT_EQ(Text(u"Paid"), u"False");
    TypeText(u"x");
    EXPECT_EQ(Editor(), nullptr);
    Paint();
    const TPoint box = Cell(Grid->SelectedIndex, 0);
    const COLORREF unchecked = PixelOf(*Grid, box);
    PressKey(VK_SPACE);
    Paint();
    EXPECT_NE(PixelOf(*Grid, box), unchecked);
    Click(box);
    EXPECT_EQ(Text(u"Paid"), u"False") << "a click on the cell that has the focus";
    Data->Cancel();

    TColumn& city = *Grid->Columns->GetColumn(2);
    city.PickList->Add(u"Gdynia");
    city.PickList->Add(u"Brno");
    city.PickList->Add(u"Radom");
    Grid->SelectedIndex = 2;
    PressKey(VK_F2);
    PressKey(VK_DOWN, {ssAlt});
    EXPECT_TRUE(Grid->GetListVisible());
    PressKey(VK_DOWN);
    PressKey(VK_DOWN);
    PressKey(VK_RETURN);
    EXPECT_FALSE(Grid->GetListVisible());
    ASSERT_NE(Editor(), nullptr);
    EXPECT_EQ(Editor()->Text, u"Brno");
    PressKey(VK_F4);
    PressKey(VK_ESCAPE);
    EXPECT_FALSE(Grid->GetListVisible());
    EXPECT_NE(Editor(), nullptr) << "Esc belongs to the list first";
    // By the mouse: the button is what the editor leaves of the cell.
    const TRect cell = Grid->DataCellRect(2, 0);
    Click({cell.Right - 5, (cell.Top + cell.Bottom) / 2});
    ASSERT_TRUE(Grid->GetListVisible());
    PressMouse(Grid->ClientToScreen({cell.Left + 10, cell.Bottom + 4}));
    ReleaseMouse();
    EXPECT_TRUE(WaitFor([&] { return Editor() && Editor()->Text == u"Gdynia"; }));
    EXPECT_TRUE(Editor()->Focused());
    PressKey(VK_RETURN);
    EXPECT_EQ(Text(u"City"), u"Gdynia");
    Data->Cancel();

    int clicked = 0;
    Grid->OnEditButtonClick = [&](TObject*) { ++clicked; };
    city.ButtonStyle = cbsEllipsis;
    PressKey(VK_RETURN);
    Click({cell.Right - 5, (cell.Top + cell.Bottom) / 2});
    PressKey(VK_RETURN, {ssCtrl});
    EXPECT_EQ(clicked, 2);
    EXPECT_EQ(Data->State, dsBrowse);
}

TEST_F(DBGridTest, TheEditorCanStayOpen) {
    Grid->Options = Grid->Options + TDBGridOptions{dgAlwaysShowEditor};
    ASSERT_NE(Editor(), nullptr);
    PressKey(VK_RIGHT);
    ASSERT_TRUE(WaitFor([&] { return Editor() && Editor()->Text == u"Customer 1"; })) << "everything was selected";
    PressKey(VK_HOME);
    PressKey(VK_RIGHT);
    EXPECT_EQ(Grid->SelectedIndex, 1) << "within the text the arrows are its own";
    TypeText(u"X");
    PressKey(VK_DOWN);
    ASSERT_NE(Editor(), nullptr);
    EXPECT_EQ(Editor()->Text, u"Customer 2");
    EXPECT_EQ(std::get<String>(Rows->Rows[0][1]), u"CXustomer 1");
    TypeText(u"Y");
    PressKey(VK_ESCAPE);
    EXPECT_EQ(Editor()->Text, u"Customer 2");
    PressKey(VK_ESCAPE);
    EXPECT_EQ(Data->State, dsBrowse);
    Click(Cell(2, 4));
    ASSERT_NE(Editor(), nullptr);
    EXPECT_EQ(Id(), 5);
    EXPECT_EQ(Editor()->Text, Text(u"City"));
    Other->SetFocus();
    EXPECT_EQ(Editor(), nullptr);

    // Another grid on the source shows what is entered here, and each keeps its own column.
    TDBGrid second(Form.get());
    second.SetBounds(10, 245, 370, 50);
    second.Parent = Form.get();
    second.DataSource = Source;
    Grid->SetFocus();
    Grid->SelectedIndex = 1;
    TypeText(u"Both");
    PressKey(VK_TAB);
    EXPECT_EQ(second.Fields[1]->AsString, u"Both");
    EXPECT_EQ(second.SelectedIndex, 0);
    EXPECT_EQ(Data->State, dsEdit);
    second.SetFocus();
    PressKey(VK_UP);
    EXPECT_EQ(Id(), 4);
    EXPECT_EQ(std::get<String>(Rows->Rows[4][1]), u"Both");
}

TEST_F(DBGridTest, RecordsComeAndGo) {
    PressKey(VK_END, {ssCtrl});
    PressKey(VK_DOWN);
    EXPECT_EQ(Data->State, dsInsert);
    PressKey(VK_DOWN);
    PressKey(VK_TAB);
    EXPECT_EQ(Data->State, dsInsert) << "one that is untouched is enough";
    PressKey(VK_UP);
    EXPECT_EQ(Data->State, dsBrowse);
    EXPECT_EQ(Data->RecordCount, kRecords);
    PressKey(VK_DOWN);
    Other->SetFocus();
    EXPECT_EQ(Data->State, dsBrowse) << "an untouched one goes when the grid is left";
    Grid->SetFocus();
    PressKey(VK_INSERT);
    Grid->SelectedIndex = 0;
    TypeText(u"99");
    PressKey(VK_TAB);
    TypeText(u"New");
    PressKey(VK_UP);
    EXPECT_EQ(Data->State, dsBrowse);
    EXPECT_EQ(Data->RecordCount, kRecords + 1);
    EXPECT_EQ(std::get<String>(Rows->Rows.back()[1]), u"New");

    TBoxReader boxes;
    PressKey(VK_HOME, {ssCtrl});
    PressKey(VK_DELETE, {ssCtrl});
    EXPECT_EQ(boxes.Seen.size(), 1u);
    EXPECT_EQ(Id(), 2);
    Grid->Options = Grid->Options - TDBGridOptions{dgConfirmDelete} + TDBGridOptions{dgMultiSelect};
    PressKey(VK_DOWN, {ssShift});
    PressKey(VK_DOWN, {ssShift});
    Paint();
    EXPECT_EQ(Grid->SelectedRows.GetCount(), 3);
    const LPARAM sixth = PointToLParam(Cell(0, 5));
    SendMessageW(Grid->Handle, WM_LBUTTONDOWN, MK_LBUTTON | MK_CONTROL, sixth);
    SendMessageW(Grid->Handle, WM_LBUTTONUP, MK_CONTROL, sixth);
    EXPECT_EQ(Grid->SelectedRows.GetCount(), 4);
    EXPECT_TRUE(Grid->SelectedRows.GetCurrentRowSelected());
    PressKey(VK_DELETE, {ssCtrl});
    EXPECT_EQ(boxes.Seen.size(), 1u) << "nobody was asked";
    EXPECT_EQ(Data->RecordCount, kRecords + 1 - 5);
    Data->First();
    EXPECT_EQ(Id(), 5);
    EXPECT_EQ(Grid->SelectedRows.GetCount(), 0);
    Click(Cell(1, 3));
    EXPECT_EQ(Grid->SelectedRows.GetCount(), 1);
}

TEST_F(DBGridTest, TheMouseSizesAndDragsColumns) {
    std::vector<String> told;
    Grid->OnTitleClick = [&](TColumn* column) { told.push_back(u"title " + column->FieldName); };
    Grid->OnCellClick = [&](TColumn* column) { told.push_back(u"cell " + column->FieldName); };
    Grid->OnColumnMoved = [&](TObject*, int from, int to) {
        told.push_back(u"moved " + IntToStr(from) + u" " + IntToStr(to));
    };
    Click(Cell(1, 3));
    EXPECT_EQ(Id(), 4);
    EXPECT_EQ(Grid->SelectedIndex, 1);
    const TRect title = Grid->TitleRect(0);
    Click(Middle(title));
    Drag({title.Right - 1, title.Top + 5}, {title.Right + 29, title.Top + 5});
    EXPECT_EQ(Grid->Columns->GetColumn(0)->Width, title.Width() + 30);
    Drag(Middle(Grid->TitleRect(0)), {Grid->TitleRect(1).Left + 100, 5});
    EXPECT_EQ(Captions().substr(0, 12), u"Name Id City") << "default columns go by their fields";
    EXPECT_EQ(Data->Fields[0]->FieldName, u"Name");
    EXPECT_EQ(Grid->SelectedIndex, 0) << "the focus stays with its column";
    EXPECT_EQ(told, (std::vector<String>{u"cell Name", u"title Id", u"moved 1 2"}));
    Grid->Columns->State = csCustomized;
    Drag(Middle(Grid->TitleRect(1)), {Grid->TitleRect(0).Left + 3, 5});
    EXPECT_EQ(Captions().substr(0, 12), u"Id Name City");
    EXPECT_EQ(Data->Fields[0]->FieldName, u"Name");

    const TRect name = Grid->TitleRect(1);
    const LPARAM divider = PointToLParam({name.Right - 1, 5});
    SendMessageW(Grid->Handle, WM_LBUTTONDBLCLK, MK_LBUTTON, divider);
    SendMessageW(Grid->Handle, WM_LBUTTONUP, 0, divider);
    EXPECT_LT(Grid->TitleRect(1).Width(), name.Width() / 2) << "as wide as the names that show";
    Grid->Columns->GetColumn(1)->Width = name.Width();

    // From right to left everything is on the other side.
    Grid->BiDiMode = bdRightToLeft;
    Paint();
    EXPECT_GT(Grid->DataCellRect(0, 0).Left, Grid->DataCellRect(1, 0).Left);
    Click(Cell(0, 2));
    EXPECT_EQ(Id(), 3);
    EXPECT_EQ(Grid->SelectedIndex, 0);
    PressKey(VK_LEFT);
    EXPECT_EQ(Grid->SelectedIndex, 1);
    const TRect mirrored = Grid->TitleRect(0);
    Drag({mirrored.Left, 5}, {mirrored.Left - 20, 5});
    EXPECT_EQ(Grid->Columns->GetColumn(0)->Width, mirrored.Width() + 20);
    Grid->Options = Grid->Options - TDBGridOptions{dgColumnResize, dgIndicator, dgTitles};
    Paint();
    EXPECT_EQ(Grid->DataCellRect(0, 0).Top, 0);
    EXPECT_EQ(Grid->DataCellRect(0, 0).Right, Grid->ClientWidth);
}

TEST_F(DBGridTest, OutlivesWhatHandlersDo) {
    // The dataset closes while it is painted, and comes back.
    Grid->OnDrawColumnCell = [&](TObject*, const TRect&, int, TColumn*, TGridDrawState) { Data->Close(); };
    Grid->Invalidate();
    Paint();
    EXPECT_EQ(Grid->Columns->Count, 0);
    Grid->OnDrawColumnCell = nullptr;
    for (const WORD key : {VK_DOWN, VK_TAB, VK_F2, VK_INSERT, VK_RETURN})
        PressKey(key);
    Grid->SetFocus();
    TypeText(u"a");
    Click({50, 50});
    const auto reopen = [&](int count) {
        Data->Close();
        Data->SetRecordset(std::make_shared<TClientRecordset>(MakeDebtors(count)));
        Paint();
    };
    reopen(0);
    EXPECT_EQ(Grid->GetShownRowCount(), 1) << "one row to type into";
    Grid->SelectedIndex = 1;
    TypeText(u"First");
    PressKey(VK_RETURN);
    EXPECT_EQ(Data->State, dsInsert);
    EXPECT_EQ(Text(u"Name"), u"First");
    // Closed in the middle of an entry; a field that vanishes; a source that dies.
    TypeText(u"x");
    reopen(3);
    EXPECT_EQ(Editor(), nullptr);
    Grid->SelectedIndex = 1;
    PressKey(VK_F2);
    Grid->Columns->State = csCustomized;
    Grid->Columns->GetColumn(1)->FieldName = u"Nowhere";
    Paint();
    EXPECT_EQ(Editor(), nullptr);
    TypeText(u"x");
    Grid->Columns->Clear();
    Paint();
    EXPECT_EQ(Grid->Columns->Count, 7) << "the default ones";
    delete Source;
    Paint();
    PressKey(VK_DOWN);
    EXPECT_EQ(Grid->GetShownRowCount(), 0);
    TDataSource second(nullptr);
    second.DataSet = Data;
    Grid->DataSource = &second;
    Paint();
    Grid->OnCellClick = [&](TColumn*) { delete Grid; };
    const TLifeGuard alive(*Grid);
    ClickOn(*Grid, Cell(0, 1));
    Application->ProcessMessages();
    EXPECT_FALSE(alive);
    Grid = nullptr;
    delete Data;
    EXPECT_EQ(second.DataSet, nullptr);
}

TEST(DBGrid, GivesBackItsHandles) {
    TCustomers customers(5);
    TDataSource source(nullptr);
    source.SetDataSet(customers.DataSet);
    const auto form = ShowForm();
    ExpectSteadyHandles(20, [&] {
        TDBGrid grid(nullptr);
        grid.SetBounds(0, 0, 200, 100);
        grid.Parent = form.get();
        grid.DataSource = &source;
        grid.Columns->GetColumn(1)->Font->Style = TFontStyles{fsBold};
        grid.SelectedIndex = 1;
        grid.Update();
        grid.EditorMode = true;
        EXPECT_TRUE(grid.EditorMode);
    });
    EXPECT_EQ(customers.DataSet->GetBufferCount(), 1);
    TDBGrid unseen(nullptr);
    unseen.DataSource = &source;
    EXPECT_EQ(customers.DataSet->GetBufferCount(), 1) << "a grid without a window needs no rows";
    EXPECT_FALSE(unseen.HandleAllocated());
}

} // namespace
