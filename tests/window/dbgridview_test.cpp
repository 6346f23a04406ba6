// What a data grid shows: on the screen, piece by piece, and to screen readers.

#include "framework/graphics/bitmaps.h"
#include "tests/support/accessible.h"
#include "tests/support/gridform.h"
#include "tests/support/messageboxes.h"

#include <random>

using namespace testsupport;

namespace {

using DBGridViewTest = TGridForm<TDBGrid>;

void DragThumbTo(TWinControl& control, int position) {
    SCROLLINFO info{sizeof(info), SIF_POS, 0, 0, 0, position, 0};
    SetScrollInfo(control.Handle, SB_VERT, &info, FALSE);
    SendMessageW(control.Handle, WM_VSCROLL, SB_THUMBTRACK, 0);
}

TEST_F(DBGridViewTest, PaintsWhatChanged) {
    const auto pending = [&](int row) {
        const TRect cell = Grid->DataCellRect(0, row);
        const TUniqueRegion region(CreateRectRgn(0, 0, 0, 0));
        GetUpdateRgn(Grid->Handle, region.Get(), FALSE);
        return PtInRegion(region.Get(), cell.Left + 1, cell.Top + 1) != FALSE;
    };
    const auto pendingRows = [&] {
        std::string rows;
        for (int row = 0; row < Grid->GetShownRowCount(); ++row)
            rows += pending(row) ? 'x' : '-';
        Grid->Update();
        return rows;
    };
    Paint();
    const int rows = Grid->GetShownRowCount();
    Data->MoveBy(2);
    EXPECT_EQ(pendingRows(), "x-x" + std::string(static_cast<std::size_t>(rows) - 3, '-'));
    Data->Edit();
    Data->FieldByName(u"Name")->AsString = u"Q";
    EXPECT_EQ(pendingRows(), "--x" + std::string(static_cast<std::size_t>(rows) - 3, '-'));
    Data->Cancel();
    Data->MoveBy(rows - 3);
    Grid->Update();
    int cells = 0;
    Grid->OnDrawColumnCell = [&](TObject*, const TRect&, int dataCol, TColumn*, TGridDrawState) {
        cells += dataCol == 0;
    };
    Data->Next(); // the rows are moved, and two of them painted: the one before and the one that came
    Grid->Update();
    EXPECT_EQ(cells, 2);
    EXPECT_EQ(Data->GetActiveRecord(), rows - 1);
    // The bar tells the place, and takes one to it.
    SCROLLINFO info{sizeof(info), SIF_ALL, 0, 0, 0, 0, 0};
    GetScrollInfo(Grid->Handle, SB_VERT, &info);
    EXPECT_EQ(info.nPos, rows);
    EXPECT_EQ(info.nMax, kRecords + rows - 2);
    SendMessageW(Grid->Handle, WM_VSCROLL, SB_BOTTOM, 0);
    EXPECT_EQ(Id(), kRecords);
    SendMessageW(Grid->Handle, WM_VSCROLL, SB_PAGEUP, 0);
    EXPECT_EQ(Id(), kRecords - rows);
}

/// Numbers tell nothing of where the records end that show, or which of them are there.
TEST_F(DBGridViewTest, FindsItsWayAmongHiddenRecords) {
    int least = 5;
    Data->OnFilterRecord = [&](TDataSet*, bool& accepts) {
        const int id = Data->FieldByName(u"Id")->AsInteger;
        accepts = id >= least && id < 50;
    };
    Data->Filtered = true;
    Grid->ReadOnly = true;
    PressKey(VK_TAB, {ssShift});
    EXPECT_TRUE(WaitFor([&] { return Other->Focused(); })) << "backwards from the first";
    Grid->SetFocus();
    Data->Last();
    Grid->SelectedIndex = Grid->Columns->Count - 1;
    PressKey(VK_TAB);
    EXPECT_TRUE(WaitFor([&] { return Other->Focused(); })) << "on from the last";
    EXPECT_EQ(Grid->SelectedIndex, Grid->Columns->Count - 1);
    // Records that were selected and are hidden now are none of those that are deleted.
    Grid->ReadOnly = false;
    Grid->SetFocus();
    Grid->Options = Grid->Options - TDBGridOptions{dgConfirmDelete} + TDBGridOptions{dgMultiSelect};
    Data->First();
    for (int i = 0; i < 6; ++i)
        PressKey(VK_DOWN, {ssShift});
    ASSERT_EQ(Grid->SelectedRows.Count, 7);
    Data->Filtered = false;
    least = 8;
    Data->Filtered = true;
    EXPECT_EQ(Grid->SelectedRows.Count, 4);
    least = 10; // without a word to the grid
    PressKey(VK_DELETE, {ssCtrl});
    EXPECT_EQ(Data->RecordCount, kRecords - 2) << "10 and 11";
    EXPECT_EQ(Grid->SelectedRows.Count, 0);
    Data->BeforeDelete = [](TDataSet*) { throw EDatabaseError(u"It is needed"); };
    PressKey(VK_DOWN, {ssShift});
    TBoxReader boxes;
    PressKey(VK_DELETE, {ssCtrl});
    EXPECT_EQ(boxes.Seen.size(), 1u);
    EXPECT_EQ(Grid->SelectedRows.Count, 2) << "what is still there stays selected";
    // The thumb over a number that nobody has: the dataset numbers its records from 1, one of them was deleted.
    Data->BeforeDelete = nullptr;
    Data->Filtered = false;
    int number = 0;
    for (Data->First(); number < 40; Data->Next())
        Data->AddBookmark(++number);
    Data->FilteredByBookmarks = true;
    Data->RecNo = 20;
    Data->Delete();
    const int after = Id();
    Data->Prior();
    DragThumbTo(*Grid, 19);
    EXPECT_EQ(boxes.Seen.size(), 1u) << "nothing to complain of";
    EXPECT_EQ(Id(), after);
}

TEST_F(DBGridViewTest, KeepsWhatIsSelectedAndItsPlaceWhenHandlersRaise) {
    int hidden = 0;
    int unwelcome = 0;
    Data->OnFilterRecord = [&](TDataSet*, bool& accepts) {
        const int id = Data->FieldByName(u"Id")->AsInteger;
        if (id == unwelcome)
            throw EDatabaseError(u"Not this one");
        accepts = id != hidden;
    };
    Grid->Options = Grid->Options + TDBGridOptions{dgMultiSelect};
    for (const int id : {1, 3, kRecords}) {
        ASSERT_TRUE(Data->Locate(u"Id", id, {}));
        Grid->SelectedRows.CurrentRowSelected = true;
    }
    hidden = 1;
    unwelcome = kRecords;
    EXPECT_EQ(ProblemOf([&] { Data->Filtered = true; }), "Not this one");
    ASSERT_EQ(Grid->SelectedRows.Count, 3);
    for (int i = 0; i < 3; ++i)
        EXPECT_TRUE(Data->BookmarkValid(Grid->SelectedRows.Items[i])) << i;
    unwelcome = 0;
    Data->First();
    EXPECT_EQ(Grid->SelectedRows.Count, 2) << "it has been looked again which of them are hidden";
    // A narrowing without marks is over, though the rows have not been read anew.
    Data->Filtered = false;
    Data->AddBookmark(1);
    Data->FilteredByBookmarks = true;
    const TBookmark first = Data->GetBookmark();
    Data->ClearBookmarks();
    EXPECT_TRUE(Data->BookmarkShown(first));
    // The thumb has come to its record, and what else goes wrong there is told of.
    Data->First();
    Data->AfterScroll = [](TDataSet*) { throw EDatabaseError(u"No details"); };
    TBoxReader boxes;
    DragThumbTo(*Grid, 19);
    EXPECT_EQ(Id(), 20);
    EXPECT_EQ(boxes.Seen.size(), 1u);
}

/// What was painted piece by piece looks like what is painted at once, whatever happened in between.
TEST_F(DBGridViewTest, PiecesMakeTheWholePicture) {
    const unsigned randomSeed = std::random_device()();
    std::mt19937 random(randomSeed);
    const auto picture = [&] {
        Application->ProcessMessages();
        Grid->Update();
        GdiFlush();
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 0, QS_ALLINPUT); // under Wine only then all of it is on the screen
        const TPoint corner = Grid->ClientToScreen({0, 0});
        const auto bitmap = CaptureScreen(Bounds(corner.X, corner.Y, Grid->ClientWidth, Grid->ClientHeight));
        std::vector<std::uint32_t> pixels;
        for (int y = 0; y < bitmap->Height; ++y)
            pixels.insert(pixels.end(), bitmap->GetScanLine(y), bitmap->GetScanLine(y) + bitmap->Width);
        return pixels;
    };
    MoveMouse(Form->ClientToScreen({390, 290})); // off the titles
    const std::function<void()> actions[] = {
        [&] { Data->MoveBy(static_cast<int>(random() % 9) - 4); },
        [&] { Data->MoveBy(1); },
        [&] { Data->MoveBy(-1); },
        [&] { Data->Edit(); },
        [&] { Data->Cancel(); },
        [&] { Data->Insert(); },
        [&] {
            if (Data->State != dsInsert) // which would have to be complete to be left
                Data->Edit(), Data->FieldByName(u"City")->SetAsString(u"Nowhere");
        },
        [&] { Grid->SelectedIndex = static_cast<int>(random() % 7); },
        [&] { Grid->Columns->GetColumn(static_cast<int>(random() % 7))->Width = 40 + static_cast<int>(random() % 60); },
        [&] { Grid->Columns->GetColumn(static_cast<int>(random() % 7))->Visible = random() % 4 != 0; },
        [&] { random() % 2 ? Data->First() : Data->Last(); },
        [&] { SendMessageW(Grid->Handle, WM_HSCROLL, random() % 2 ? SB_LINERIGHT : SB_LINELEFT, 0); },
        [&] { random() % 2 ? Grid->SetFocus() : Other->SetFocus(); },
        [&] { Grid->BiDiMode = random() % 2 ? bdLeftToRight : bdRightToLeft; },
    };
    Grid->Columns->State = csCustomized;
    Grid->Options = Grid->Options + TDBGridOptions{dgAlwaysShowSelection};
    for (int round = 0; round < 60; ++round) {
        std::string done;
        for (int i = 0; i < 4; ++i) {
            const std::size_t which = random() % std::size(actions);
            done += std::to_string(which) + " ";
            actions[which]();
        }
        const auto pieces = picture();
        Grid->Invalidate();
        ASSERT_TRUE(pieces == picture()) << "seed " << randomSeed << ", round " << round << ": " << done;
    }
}

TEST_F(DBGridViewTest, ScreenReadersHearCells) {
    Grid->Columns->State = csCustomized;
    Grid->Columns->GetColumn(0)->Visible = false;
    Grid->Columns->GetColumn(2)->Title->Caption = u"Town";
    Grid->Columns->GetColumn(3)->ReadOnly = true;
    Data->MoveBy(2);
    Grid->SelectedIndex = 2;
    Paint();
    const TAccessibleView view(*Grid);
    ASSERT_TRUE(view.Found());
    constexpr long kColumns = 6; // those that show
    long count = 0;
    view->get_accChildCount(&count);
    EXPECT_EQ(count, kColumns * (1 + Grid->GetShownRowCount()));
    EXPECT_EQ(view.Name(2), u"Town");
    const long cell = kColumns + 2 * kColumns + 2; // of the third record
    EXPECT_EQ(view.Name(cell), u"Town");
    EXPECT_EQ(view.Value(cell), u"\u0141\u00F3d\u017A");
    EXPECT_EQ(view.Value(cell - kColumns), u"Brno");
    EXPECT_EQ(Id(), 3) << "the dataset has not moved";
    EXPECT_EQ(view.Focus(), cell);
    constexpr long kMarks = STATE_SYSTEM_FOCUSED | STATE_SYSTEM_SELECTED | STATE_SYSTEM_READONLY;
    EXPECT_EQ(view.State(cell) & kMarks, STATE_SYSTEM_FOCUSED | STATE_SYSTEM_SELECTED);
    EXPECT_EQ(view.State(cell + 1) & kMarks, STATE_SYSTEM_READONLY);
    EXPECT_EQ(view.State(cell + 4) & STATE_SYSTEM_MIXED, STATE_SYSTEM_MIXED) << "a box that is neither";
    long place[4] = {};
    view->accLocation(&place[0], &place[1], &place[2], &place[3], TAccessibleView::Number(cell));
    VARIANT hit{};
    view->accHitTest(place[0] + 1, place[1] + 1, &hit);
    EXPECT_EQ(hit.lVal, cell);
    view->accSelect(SELFLAG_TAKEFOCUS | SELFLAG_TAKESELECTION, TAccessibleView::Number(kColumns + 1));
    EXPECT_EQ(Id(), 1);
    EXPECT_EQ(Grid->SelectedIndex, 1);
    view->accDoDefaultAction(TAccessibleView::Number(cell));
    ASSERT_NE(Editor(), nullptr);
    EXPECT_EQ(Id(), 3);
    EXPECT_NE(view.Focus(), cell) << "the focus is the editor's";
    EXPECT_EQ(TAccessibleView(*Editor()).Name(0), u"Town");
}

} // namespace
