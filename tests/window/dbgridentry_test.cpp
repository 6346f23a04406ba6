// That what a person enters and chooses at a data grid arrives where he meant it, whatever happens meanwhile.

#include "tests/support/composition.h"
#include "tests/support/gridform.h"
#include "tests/support/messageboxes.h"

using namespace testsupport;

namespace {

using DBGridEntryTest = TGridForm<TDBGrid>;

TEST_F(DBGridEntryTest, AnEntryStaysWithItsField) {
    TBoxReader boxes; // of what could not be stored where it did not belong
    const auto city = [&] { return std::get<String>(Rows->Rows[0][2]); };
    const auto enter = [&](StringView text, const std::function<void()>& meanwhile) {
        Data->First();
        Grid->SetFocus();
        Grid->SelectedField = Data->FieldByName(u"City");
        TypeText(text);
        EXPECT_TRUE(WaitFor([&] { return Editor() && Editor()->Text == text; }));
        meanwhile();
        Paint();
        PressKey(VK_RETURN);
        Data->CheckBrowseMode();
        EXPECT_EQ(city(), text);
        EXPECT_EQ(std::get<String>(Rows->Rows[0][1]), u"Customer 1");
    };
    enter(u"hidden before", [&] { Data->FieldByName(u"Name")->Visible = false; });
    EXPECT_EQ(Grid->SelectedField, Data->FieldByName(u"City"));
    enter(u"hidden itself", [&] { Data->FieldByName(u"City")->Visible = false; });
    Data->FieldByName(u"City")->Visible = true;
    Data->FieldByName(u"Name")->Visible = true;
    Grid->Columns->State = csCustomized;
    enter(u"moved", [&] { Grid->Columns->GetColumn(0)->Index = 3; });
    enter(u"another field", [&] { Grid->Columns->FindField(Data->FieldByName(u"City"))->FieldName = u"Name"; });
    Grid->Columns->State = csDefault;

    // What sizes columns while they are painted reads other records, but leaves the focus where it is.
    Data->MoveBy(3);
    Grid->OnDrawColumnCell = [&](TObject*, const TRect&, int, TColumn* column, TGridDrawState) {
        if (column->Width < 110)
            column->Width = 110;
    };
    Grid->Columns->GetColumn(1)->Width = 50;
    Grid->SelectedIndex = 1;
    Paint();
    Paint();
    EXPECT_EQ(Grid->TitleRect(1).Width(), 110);
    Grid->OnDrawColumnCell = nullptr;
    PressKey(VK_F2);
    ASSERT_NE(Editor(), nullptr);
    EXPECT_EQ(Editor()->Text, u"Customer 4");
    EXPECT_TRUE(Grid->DataCellRect(1, 3).Contains(Middle(Editor()->BoundsRect)));
    PressKey(VK_ESCAPE);

    // Nobody types into a column that does not show.
    Grid->SelectedIndex = 0;
    Grid->Columns->GetColumn(0)->Visible = false;
    EXPECT_EQ(Grid->SelectedIndex, 1);
    Grid->SelectedIndex = 0;
    EXPECT_EQ(Grid->SelectedIndex, 1);
}

TEST_F(DBGridEntryTest, EveryWayOfTypingArrives) {
    std::u16string pressed;
    Grid->OnKeyPress = [&](TObject*, char16_t& key) { pressed += key; };
    Grid->SelectedIndex = 2;
    // A dead key and a composed word bring several characters before the editor has the focus.
    for (const char16_t unit : {u'~', u'x', u'y'})
        PostMessageW(Grid->Handle, WM_CHAR, unit, 1);
    EXPECT_TRUE(WaitFor([&] { return Editor() && Editor()->Text == u"~xy"; }));
    EXPECT_EQ(pressed, u"~xy") << "each once";
    ComposeText(u"\u6F22");
    EXPECT_TRUE(WaitFor([&] { return Editor() && Editor()->Text == u"~xy\u6F22"; }));
    PressKey(VK_RETURN);
    EXPECT_EQ(Text(u"City"), u"~xy\u6F22");
    Data->Cancel();
    // Other programs write into the field without any key.
    const auto write = [&] {
        PressKey(VK_RETURN);
        ASSERT_NE(Editor(), nullptr);
        SendMessageW(Editor()->Handle, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(L"Oslo"));
    };
    write();
    PressKey(VK_RETURN);
    EXPECT_EQ(Text(u"City"), u"Oslo");
    Data->Cancel();
    Data->BeforeEdit = [](TDataSet*) { throw EAbort(); };
    write();
    EXPECT_EQ(Editor()->Text, Text(u"City")) << "refused, and it shows";
    Data->BeforeEdit = nullptr;
    PressKey(VK_ESCAPE);

    // A list does not put its item in the place of what is typed, nor the one under a pointer that rests.
    TColumn& city = *Grid->Columns->GetColumn(2);
    for (const char16_t* each : {u"Gdynia", u"Brno", u"Radom"})
        city.PickList->Add(each);
    PressKey(VK_F4);
    EXPECT_TRUE(Grid->GetListVisible()) << "F4 alone is enough";
    PressKey(VK_DOWN);
    TypeText(u"Wien");
    EXPECT_TRUE(WaitFor([&] { return Editor() && Editor()->Text == u"Wien"; }));
    PressKey(VK_TAB);
    EXPECT_EQ(Text(u"City"), u"Wien");

    // Esc gives up the cell before the record.
    Grid->SelectedIndex = 1;
    PressKey(VK_RETURN);
    PressKey(VK_ESCAPE);
    EXPECT_EQ(Text(u"City"), u"Wien");
    PressKey(VK_ESCAPE);
    EXPECT_EQ(Data->State, dsBrowse);
}

TEST_F(DBGridEntryTest, ClicksReachTheRecordTheyHit) {
    struct TCase {
        bool Typed;
        int Row;
        int Id; // what stands in that row
    };
    // The new record stands in row 2, before the third.
    for (const TCase& each : {TCase{false, 4, 4}, TCase{false, 0, 1}, TCase{true, 5, 5}, TCase{true, 1, 2}}) {
        Data->First();
        Data->MoveBy(2);
        Grid->SetFocus();
        PressKey(VK_INSERT);
        if (each.Typed) {
            Data->FieldByName(u"Id")->AsInteger = 100 + each.Id;
            Data->FieldByName(u"Name")->AsString = u"New";
        }
        Click(Cell(2, each.Row));
        EXPECT_EQ(Data->State, dsBrowse);
        EXPECT_EQ(Id(), each.Id);
    }
    // A record that the program began is not this grid's to give up.
    Data->Insert();
    Other->SetFocus();
    EXPECT_EQ(Data->State, dsInsert);
    Data->Cancel();
    // The question before deleting is about one record.
    Data->First();
    Grid->SetFocus();
    TBoxReader boxes;
    boxes.OnBox = [&] {
        if (boxes.Seen.size() == 1)
            Data->Refresh(); // which gives the same records other bookmarks
    };
    const int before = Data->RecordCount;
    PressKey(VK_DELETE, {ssCtrl});
    ASSERT_EQ(boxes.Seen.size(), 2u);
    EXPECT_EQ(boxes.Seen.back().Text, u"Meanwhile the records have changed. None was deleted.");
    EXPECT_EQ(Data->RecordCount, before);
}

TEST_F(DBGridEntryTest, ShiftSelectsFromWhereItBegan) {
    Grid->Options = Grid->Options + TDBGridOptions{dgMultiSelect};
    const auto selected = [&] { return Grid->SelectedRows.GetCount(); };
    struct TCase {
        WORD Key;
        int Count;
        int Id;
    };
    const int rows = Grid->GetShownRowCount();
    Data->MoveBy(2);
    const TCase cases[] = {{VK_DOWN, 2, 4},
                           {VK_DOWN, 3, 5},
                           {VK_UP, 2, 4},
                           {VK_UP, 1, 3},
                           {VK_UP, 2, 2},
                           {VK_DOWN, 1, 3},
                           {VK_NEXT, rows + 1, 3 + rows},
                           {VK_PRIOR, 1, 3}};
    for (const TCase& each : cases) {
        PressKey(each.Key, {ssShift});
        EXPECT_EQ(selected(), each.Count) << &each - cases;
        EXPECT_EQ(Id(), each.Id) << &each - cases;
    }
    const auto shiftClick = [&](int row) {
        const LPARAM place = PointToLParam(Cell(2, row));
        SendMessageW(Grid->Handle, WM_LBUTTONDOWN, MK_LBUTTON | MK_SHIFT, place);
        SendMessageW(Grid->Handle, WM_LBUTTONUP, MK_SHIFT, place);
        Paint();
        return selected();
    };
    Data->First();
    Grid->Update();
    Click(Cell(2, 3));
    EXPECT_EQ(shiftClick(6), 4);
    EXPECT_EQ(shiftClick(4), 2);
    EXPECT_EQ(shiftClick(1), 3);
    PressKey(VK_END, {ssCtrl, ssShift});
    EXPECT_EQ(selected(), kRecords - 3);
    EXPECT_EQ(shiftClick(0), kRecords - 2 - rows) << "where it began is out of sight";
    EXPECT_EQ(Id(), kRecords + 1 - rows);
    // Records that go leave the selection.
    Data->Delete();
    EXPECT_EQ(selected(), kRecords - 3 - rows);
}

/// Handlers that end what they are called for.
TEST_F(DBGridEntryTest, HandlersMayEndEverything) {
    TBoxReader boxes;
    for (const bool painted : {true, false}) {
        Data->Close();
        Data->SetRecordset(std::make_shared<TClientRecordset>(MakeDebtors(5)));
        Grid->SetFocus();
        Grid->SelectedIndex = 1;
        Paint();
        Data->FieldByName(u"Name")->OnGetText = [&](TField*, String& text, bool display) {
            text = u"x";
            if (display == painted)
                Data->Close();
        };
        Grid->Invalidate();
        Paint();
        PressKey(VK_F2);
        EXPECT_FALSE(Data->Active);
        EXPECT_FALSE(Grid->EditorMode) << "over no cell";
    }
    // A handler that raises leaves no drag behind.
    Data->SetRecordset(std::make_shared<TClientRecordset>(MakeDebtors(5)));
    Paint();
    Grid->OnCellClick = [](TColumn*) { throw EAbort(); };
    Click(Cell(1, 1));
    PressMouse(Grid->ClientToScreen(Middle(Grid->TitleRect(1))));
    Application->ProcessMessages();
    MoveMouse(Grid->ClientToScreen({Grid->TitleRect(1).Left + 90, 5}));
    Application->ProcessMessages();
    ReleaseCapture();
    ReleaseMouse();
    Paint();
    EXPECT_EQ(Captions().substr(0, 7), u"Id Name");
    // At the end of the data more room shows more records.
    Data->Last();
    Grid->Height = 60;
    Paint();
    Grid->Height = 200;
    Paint();
    EXPECT_EQ(Grid->GetShownRowCount(), 5);
    // Del empties a box as well.
    Grid->SelectedField = Data->FieldByName(u"Paid");
    PressKey(VK_SPACE);
    PressKey(VK_DELETE);
    EXPECT_EQ(Text(u"Paid"), u"");
    EXPECT_EQ(Data->State, dsEdit);
}

} // namespace
