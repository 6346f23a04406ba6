// The header of a tree in forms and under the pointer: what is saved and comes back, hints, handlers that paint, and
// what a second header of the same tree leaves alone.

#include "framework/graphics/canvas.h"
#include "framework/system/formloader.h"
#include "framework/system/formsaver.h"
#include "framework/system/strings.h"
#include "framework/vtree/stringtree.h"
#include "framework/windows/application.h"
#include "framework/windows/hints.h"
#include "tests/support/input.h"

#include <gtest/gtest.h>

using namespace framework;
using namespace testsupport;

namespace {

constexpr std::string_view kForm = R"(object Form1: TForm
  ClientHeight = 200
  ClientWidth = 300
  object Tree1: TVirtualStringTree
    Left = 0
    Top = 0
    Width = 300
    Height = 200
    Header.AutoSizeIndex = 1
    Header.Columns = <
      item
        Position = 2
        Text = 'last on the screen'
        Width = 60
      end
      item
        Hint = 'its hint'
        Position = 0
        Text = 'first'
        Width = 40
      end
      item
        Alignment = taRightJustify
        MinWidth = 20
        Options = [coAllowClick, coEnabled, coVisible]
        Position = 1
        Width = 20
      end>
    Header.MainColumn = 1
    Header.Options = [hoShowHint, hoVisible]
    Header.SortColumn = 2
    Header.SortDirection = sdDescending
    HintMode = hmTooltip
    RootNodeCount = 3
    ShowHint = True
  end
end
)";

class TreeHeaderTest : public testing::Test {
protected:
    void SetUp() override {
        RegisterVirtualTrees();
        RegisterClasses({&TForm::StaticClass()});
        Form = ShowForm();
        LoadTextForm(*Form, ParseTextForm(kForm));
        Tree = As<TVirtualStringTree>(Form->FindComponent(u"Tree1"));
        Application->ProcessMessages();
        Tree->Update();
    }
    THintInfo HintAt(TPoint point) {
        THintInfo info;
        info.HintControl = Tree;
        info.CursorPos = point;
        info.HintStr = Tree->Hint;
        Tree->Perform(CM_HINTSHOW, 0, reinterpret_cast<LPARAM>(&info));
        return info;
    }

    std::unique_ptr<TForm> Form;
    TVirtualStringTree* Tree = nullptr;
};

TEST_F(TreeHeaderTest, FormsKeepColumnsAndTheirPositions) {
    const TVirtualTreeColumns& columns = *Tree->Header->Columns;
    ASSERT_EQ(columns.GetCount(), 3);
    EXPECT_EQ(columns.ColumnFromPosition(0), 1);
    EXPECT_EQ(columns.ColumnFromPosition(1), 2);
    EXPECT_EQ(columns.ColumnFromPosition(2), 0);
    EXPECT_EQ(Tree->HeaderCellRect(0).Left, 60);
    const std::string saved = WriteTextForm(SaveTextForm(*Form));
    for (const std::string_view part : {"Position = 2", "Text = 'last on the screen'", "Header.SortColumn = 2",
                                        "Options = [coAllowClick, coEnabled, coVisible]", "Header.MainColumn = 1"})
        EXPECT_NE(saved.find(part), std::string::npos) << part;
    Tree->Header->Columns->Delete(1);
    EXPECT_EQ(Tree->Header->MainColumn, 0) << "the main column has gone";
    EXPECT_EQ(Tree->Header->SortColumn, 1) << "the column moved up";
    EXPECT_EQ(columns.GetColumn(0)->Position, 1);
}

TEST_F(TreeHeaderTest, HintsTellOfColumnsAndOfCutTexts) {
    const auto middle = [](const TRect& rect) {
        return TPoint{(rect.Left + rect.Right) / 2, (rect.Top + rect.Bottom) / 2};
    };
    EXPECT_EQ(HintAt(middle(Tree->HeaderCellRect(1))).HintStr, u"its hint");
    const THintInfo cut = HintAt(middle(Tree->HeaderCellRect(0)));
    EXPECT_EQ(cut.HintStr, u"last on the screen") << "it does not fit";
    EXPECT_EQ(cut.CursorRect, Tree->HeaderCellRect(0));
    Tree->OnGetText = [](TBaseVirtualTree*, TVirtualNode* node, TColumnIndex column, TVSTTextType, String& text) {
        text = column == 0 && node->Index == 1 ? u"a text that is wider than its column" : u"i";
    };
    EXPECT_EQ(HintAt(middle(Tree->GetDisplayRect(Tree->NodeOfRow(0), 0))).HintStr, u"");
    EXPECT_EQ(HintAt(middle(Tree->GetDisplayRect(Tree->NodeOfRow(1), 0))).HintStr,
              u"a text that is wider than its column");
    Tree->HintMode = hmHint;
    Tree->OnGetHint = [](TBaseVirtualTree*, TVirtualNode*, TColumnIndex, String& text) { text = u"said"; };
    EXPECT_EQ(HintAt(middle(Tree->GetDisplayRect(Tree->NodeOfRow(0), 0))).HintStr, u"said");
}

TEST_F(TreeHeaderTest, ProgramsPaintColumnsAndKeepFurtherHeaders) {
    int painted = 0;
    Tree->OnHeaderDraw = [&](TVTHeader*, TCanvas* canvas, TVirtualTreeColumn* column, const TRect& cell, bool, bool,
                             TVTDropMarkMode) {
        EXPECT_EQ(column->Index, 0);
        canvas->Brush->Color = clFuchsia;
        canvas->FillRect(cell);
        ++painted;
    };
    Tree->Header->Columns->GetColumn(0)->Style = vsOwnerDraw;
    Tree->Header->Columns->GetColumn(0)->Text = u"several changes";
    Tree->Update();
    EXPECT_EQ(painted, 1) << "are one painting";
    const TRect cell = Tree->HeaderCellRect(0);
    EXPECT_EQ(PixelOf(*Tree, {cell.Left + 5, cell.Top + 5}), 0xFF00FFu);

    TVTHeader footer(Tree);
    footer.Assign(Tree->Header);
    EXPECT_EQ(footer.Columns->GetCount(), 3);
    EXPECT_EQ(footer.Columns->ColumnFromPosition(2), 0);
    footer.Columns->GetColumn(0)->Width = 200;
    footer.Options = {};
    EXPECT_EQ(Tree->HeaderCellRect(0).Width(), 60);

    Tree->BeginUpdate();
    Tree->RootNodeCount = 1;
    Tree->Update();
    Tree->EndUpdate();
    Tree->OnGetText = [&](TBaseVirtualTree*, TVirtualNode*, TColumnIndex, TVSTTextType, String&) { painted = 100; };
    Tree->Update();
    EXPECT_EQ(painted, 100) << "an update is painted at its end";
    Tree->OnHeaderDraw = [&](auto...) {
        delete Tree;
        Tree = nullptr;
    };
    Tree->InvalidateHeader();
    Tree->Update();
    EXPECT_EQ(Tree, nullptr);
}

} // namespace
