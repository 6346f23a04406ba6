// The framed data grid: whose titles the application paints, whose bars stay away, and who hears of widths.

#include "data/Zordbgrid.h"
#include "tests/support/gridform.h"

using namespace testsupport;

namespace {

using ZorDBGridTest = TGridForm<ZOR::TZORDBGrid>;

TEST_F(ZorDBGridTest, BarsStayAway) {
    const auto bars = [&] {
        const LONG_PTR style = GetWindowLongPtrW(Grid->Handle, GWL_STYLE);
        return std::pair((style & WS_HSCROLL) != 0, (style & WS_VSCROLL) != 0);
    };
    const std::pair none(false, false);
    const std::pair both(true, true);
    EXPECT_TRUE(Grid->ShowScrollBars);
    EXPECT_EQ(bars(), both);
    const int rows = Grid->GetShownRowCount();
    Grid->ShowScrollBars = false;
    EXPECT_EQ(bars(), none);
    PressKey(VK_END, {ssCtrl});
    PressKey(VK_END);
    Grid->Columns->GetColumn(0)->Width = 500;
    Grid->Width = 300;
    Paint();
    EXPECT_EQ(bars(), none);
    EXPECT_GT(Grid->GetShownRowCount(), rows) << "there is room for another row";
    Grid->ShowScrollBars = true;
    EXPECT_EQ(bars(), none) << "not before they are next brought up to date";
    PressKey(VK_UP);
    EXPECT_EQ(bars(), both);
}

TEST_F(ZorDBGridTest, TheApplicationPaintsTitles) {
    Grid->Width = 380;
    Grid->Columns->State = csCustomized;
    while (Grid->Columns->Count > 3)
        Grid->Columns->Delete(3);
    for (int i = 0; i < 3; ++i)
        Grid->Columns->GetColumn(i)->Width = 80;
    Grid->Color = clAqua;
    Paint();
    const TPoint title{Grid->TitleRect(1).Left + 20, 3};
    EXPECT_EQ(PixelOf(*Grid, title), ColorToRGB(clAqua)) << "background only";
    EXPECT_EQ(PixelOf(*Grid, {340, 3}), ColorToRGB(clAqua));
    std::vector<std::pair<int, String>> asked;
    Grid->OnDrawTitleCell = [&](TObject*, const TRect& rect, TColumn* column, TGridDrawState state) {
        asked.emplace_back(rect.Left, column->FieldName);
        EXPECT_TRUE(state.Contains(gdFixed));
        Grid->Canvas->Brush->Color = clYellow;
        Grid->Canvas->FillRect(rect);
    };
    Grid->Repaint();
    const int first = Grid->TitleRect(0).Left;
    // The indicator's cell gets the first column, and each title the next one's.
    EXPECT_EQ(asked, (std::vector<std::pair<int, String>>{{0, u"Id"}, {first, u"Name"}, {first + 80, u"City"}}));
    EXPECT_EQ(PixelOf(*Grid, title), ColorToRGB(clYellow));
    asked.clear();
    Grid->Options = Grid->Options - TDBGridOptions{dgIndicator};
    Grid->Repaint();
    EXPECT_EQ(asked, (std::vector<std::pair<int, String>>{{0, u"Id"}, {80, u"Name"}, {160, u"City"}}));

    // Without titles the first row is a record's, and left out all the same.
    Grid->OnDrawTitleCell = nullptr;
    Grid->Options = Grid->Options - TDBGridOptions{dgTitles};
    std::vector<int> painted;
    Grid->OnDrawColumnCell = [&](TObject*, const TRect&, int dataCol, TColumn*, TGridDrawState) {
        if (dataCol == 0)
            painted.push_back(Id());
    };
    Grid->Repaint();
    ASSERT_FALSE(painted.empty());
    EXPECT_EQ(painted.front(), 2);
}

TEST_F(ZorDBGridTest, TellsOfWidths) {
    int told = 0;
    Grid->OnColWidthsChanged = [&](TObject* sender) {
        EXPECT_EQ(sender, Grid);
        ++told;
    };
    Grid->Columns->GetColumn(0)->Width = 90;
    EXPECT_EQ(told, 1);
    Grid->Columns->GetColumn(0)->Width = 90;
    Grid->Columns->GetColumn(0)->Title->Color = clRed;
    EXPECT_EQ(told, 1) << "they are what they were";
    Grid->Columns->GetColumn(1)->Visible = false;
    EXPECT_EQ(told, 2);
    const TRect title = Grid->TitleRect(0);
    Drag({title.Right - 1, 5}, {title.Right + 39, 5});
    EXPECT_GT(told, 2);
    EXPECT_EQ(Grid->Columns->GetColumn(0)->Width, 130);
    // Also where there is no window yet.
    ZOR::TZORDBGrid hidden(nullptr);
    hidden.OnColWidthsChanged = [&](TObject*) { told = -1; };
    hidden.Columns->Add()->Width = 90;
    EXPECT_EQ(told, -1);
    EXPECT_EQ(Grid->DefaultRowHeight, Grid->DataCellRect(0, 1).Top - Grid->DataCellRect(0, 0).Top);
}

} // namespace
