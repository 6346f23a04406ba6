// Virtual trees as people and programs use them over a while: rows that measure themselves, order that follows changes,
// boxes of branches that open late, where the focus goes when its row goes.

#include "framework/windows/hints.h"
#include "tests/support/testtree.h"

using namespace framework;
using namespace testsupport;

namespace {

class TreeUseTest : public TreeTest {
protected:
    /// Nodes of the first level are branches of so many nodes that wait to be made.
    void MakeBranches(unsigned children, std::function<void(TVirtualNode*)> init) {
        Tree->OnInitNode = [init](auto*, TVirtualNode* parent, TVirtualNode* node, TVirtualNodeInitStates& states) {
            init(node);
            if (!parent)
                states << ivsHasChildren;
        };
        Tree->OnInitChildren = [children](auto*, auto*, unsigned& count) { count = children; };
    }
};

TEST_F(TreeUseTest, AsksForAllRowsOfAPageBeforeOneIsPainted) {
    std::set<TVirtualNode*> asked;
    int unasked = 0;
    int rows = 8; // pixels of a row
    Tree->OnInitNode = [&](auto*, auto*, TVirtualNode* node, auto&) { asked.insert(node); };
    Tree->OnGetText = [&](auto*, TVirtualNode* node, auto...) { unasked += asked.contains(node) ? 0 : 1; };
    Tree->OnMeasureItem = [&](auto*, auto*, auto*, int& height) { height = rows; };
    Tree->TreeOptions->MiscOptions = {toVariableNodeHeight};
    Tree->RootNodeCount = 1000;
    Tree->Update();
    EXPECT_EQ(unasked, 0);
    EXPECT_EQ(asked.size(), 13u) << "the page, and nothing below it";
    rows = 30;
    Tree->Font->Size = 20;
    Tree->Update();
    EXPECT_EQ(Tree->NodeHeight[Row(0)], 30) << "measured again with another font";
    TVirtualStringTree early(Form.get());
    early.TreeOptions->MiscOptions = {toVariableNodeHeight};
    early.OnMeasureItem = Tree->OnMeasureItem;
    early.RootNodeCount = 1;
    early.ValidateNode(nullptr, true);
    early.Parent = Form.get();
    early.Update();
    EXPECT_EQ(early.NodeHeight[early.GetFirst()], 30) << "it was asked for while there was no window";
}

TEST_F(TreeUseTest, KeepsItsOrderWhenNodesComeLater) {
    const auto number = [&](TVirtualNode* node) -> int& { return *Tree->GetNodeData<int>(node); };
    Tree->OnCompareNodes = [&](auto*, TVirtualNode* a, TVirtualNode* b, TColumnIndex, int& result) {
        result = number(a) - number(b);
    };
    MakeBranches(4, [&](TVirtualNode* node) { number(node) = static_cast<int>(node->Index) * 7 % 5 * 10; });
    Tree->NodeDataSize = sizeof(int);
    Tree->RootNodeCount = 5;
    Tree->Header->SortColumn = 0;
    Tree->TreeOptions->AutoOptions = {toAutoSort};
    const auto numbers = [&](TVirtualNode* parent) {
        Tree->Update();
        std::vector<int> all;
        for (TVirtualNode* node = Tree->GetFirstChild(parent); node; node = Tree->GetNextSibling(node))
            all.push_back(number(node));
        return all;
    };
    Tree->Expanded[Row(1)] = true;
    EXPECT_EQ(numbers(Row(1)), (std::vector<int>{0, 10, 20, 40})) << "of a branch that is opened";
    TVirtualNode* added = Tree->AddChild(Row(1));
    Tree->InitNode(added);
    number(added) = 15;
    EXPECT_EQ(numbers(Row(1)), (std::vector<int>{0, 10, 15, 20, 40}));
}

TEST_F(TreeUseTest, ShiftExtendsFromTheRowThatTheProgramChose) {
    Tree->RootNodeCount = 20;
    SetOptions({toMultiSelect, toFullRowSelect});
    Tree->Selected[Row(2)] = true;
    Tree->FocusedNode = Row(2);
    PressKey(VK_DOWN, {ssShift});
    EXPECT_EQ(SelectedRows(), u"2 3");
    Tree->ClearSelection();
    Tree->FocusedNode = Row(1);
    PressKey(VK_DOWN, {ssShift});
    EXPECT_EQ(SelectedRows(), u"1 2");
}

TEST_F(TreeUseTest, BoxesOfLateChildrenFollowTheirBranch) {
    SetOptions({toFullRowSelect}, {toCheckSupport});
    MakeBranches(30, [&](TVirtualNode* node) { Tree->CheckType[node] = ctTriStateCheckBox; });
    Tree->RootNodeCount = 2;
    Tree->Update();
    Tree->CheckState[Row(0)] = csCheckedNormal;
    Tree->Expanded[Row(0)] = true;
    Tree->Expanded[Row(31)] = true;
    Tree->OffsetY = 0;
    Tree->Update();
    EXPECT_EQ(Row(1)->CheckState, csCheckedNormal);
    Tree->CheckState[Row(1)] = csUncheckedNormal;
    EXPECT_EQ(Row(0)->CheckState, csMixedNormal);
    Tree->InitNode(Row(30));
    EXPECT_EQ(Row(30)->CheckState, csCheckedNormal) << "it never showed before the branch became mixed";
    Tree->CheckState[Row(32)] = csCheckedNormal;
    EXPECT_EQ(Row(31)->CheckState, csMixedNormal) << "children that never showed are not checked";
}

TEST_F(TreeUseTest, TheFocusGoesOnWhenItsRowGoes) {
    Tree->RootNodeCount = 10;
    Tree->SetChildCount(Row(4), 2);
    Tree->HasChildren[Row(4)] = true;
    Tree->Expanded[Row(4)] = true;
    SetOptions({toMultiSelect, toFullRowSelect});
    String told;
    Tree->OnFocusChanged = [&](auto*, TVirtualNode* node, auto) {
        told += node ? IntToStr(Tree->RowOf(node)) + u" " : u"none ";
    };
    struct TStep {
        const char* What;
        int From;
        const char16_t* Told;
        std::function<void()> Deed;
    };
    const TStep steps[] = {
        {"next row", 1, u"1 ", [&] { Tree->DeleteNode(Row(1)); }},
        {"last row", 10, u"9 ", [&] { Tree->DeleteNode(Row(10)); }},
        {"last of a branch", 5, u"4 ", [&] { Tree->DeleteNode(Row(5)); }},
        {"the branch", 4, u"3 ", [&] { Tree->DeleteChildren(Row(3)); }},
        {"hidden", 2, u"2 ", [&] { Tree->IsVisible[Row(2)] = false; }},
        {"several, told of once", 1, u"1 ",
         [&] {
             Tree->Selected[Row(1)] = true;
             Tree->Selected[Row(2)] = true;
             Tree->DeleteSelectedNodes();
         }},
        {"filtered one by one, told of once", 3, u"0 ",
         [&] {
             for (TVirtualNode* node = Row(1); node; node = node->NextSibling)
                 Tree->IsFiltered[node] = true;
         }},
        {"another row", 0, u"", [&] { Tree->DeleteNode(Tree->RootNode->LastChild); }},
        {"all", 0, u"none ", [&] { Tree->Clear(); }},
    };
    for (const TStep& step : steps) {
        Tree->FocusedNode = Row(step.From);
        told.clear();
        step.Deed();
        Tree->Update();
        EXPECT_EQ(told, step.Told) << step.What;
    }
}

TEST_F(TreeUseTest, WalksGoOnWhenTheNextNodeGoes) {
    int asked = 0;
    TVirtualNode* last = nullptr;
    const auto deletesNodes = [&](auto*, auto*, TVirtualNode* node, auto&) {
        last = node;
        if (++asked == 3)
            Tree->DeleteNode(node->NextSibling);
        else if (asked == 5)
            Tree->DeleteNode(node);
    };
    const std::function<void()> walks[] = {[&] { Tree->ValidateNode(nullptr, true); },
                                           [&] { Tree->ReinitNode(nullptr, true); },
                                           [&] { Tree->Sort(nullptr, 0, sdAscending); }};
    for (const auto& walk : walks) {
        Tree->OnInitNode = {};
        Tree->RootNodeCount = 0;
        Tree->RootNodeCount = 40;
        if (&walk == &walks[1])
            Tree->ValidateNode(nullptr, true); // only what was asked for is asked again
        asked = 0;
        Tree->OnInitNode = deletesNodes;
        walk();
        EXPECT_EQ(Tree->RootNodeCount, 38u);
        EXPECT_EQ(last, Tree->RootNode->LastChild) << "walk " << &walk - walks;
    }
}

TEST_F(TreeUseTest, AClickBelowTheRowsLeavesOneSelected) {
    SetOptions({toMultiSelect, toFullRowSelect});
    Tree->RootNodeCount = 3;
    const auto clickBelow = [&] { ClickOn(*Tree, {50, 4 * kRow}); };
    Click(1, 0);
    PressKey('A', {ssCtrl});
    clickBelow();
    EXPECT_EQ(SelectedRows(), u"1") << "that with the focus";
    Tree->ClearSelection();
    for (const int row : {0, 2})
        Tree->Selected[Row(row)] = true;
    clickBelow();
    EXPECT_EQ(SelectedRows(), u"");
}

TEST_F(TreeUseTest, TheSelectionLiesWhereTheTextIs) {
    Tree->RootNodeCount = 1;
    const TRect atLeft = Tree->GetDisplayRect(Row(0), 1, true);
    Tree->Header->Columns->GetColumn(1)->Alignment = taRightJustify;
    const TRect atRight = Tree->GetDisplayRect(Row(0), 1, true);
    EXPECT_EQ(atRight.Width(), atLeft.Width());
    EXPECT_EQ(atRight.Right, Tree->GetDisplayRect(Row(0), 1).Right - Tree->Margin);
    Tree->BiDiMode = bdRightToLeft;
    EXPECT_EQ(Tree->GetDisplayRect(Row(0), 1, true).Left, Tree->GetDisplayRect(Row(0), 1).Left + Tree->Margin);
}

TEST_F(TreeUseTest, ScrollsAsFarInBothDirections) {
    Tree->Header->Columns->Clear();
    Tree->RootNodeCount = 2;
    String shown;
    Tree->OnGetText = [&](auto*, auto*, int, auto, String& text) { text = shown; };
    const auto farthest = [&](TBiDiMode mode, const String& text) {
        shown = text;
        Tree->BiDiMode = mode;
        Tree->Clear(); // with the width of what was painted
        Tree->Update();
        Tree->RootNodeCount = 2;
        Tree->Update();
        Tree->OffsetX = -10000;
        Tree->Update();
        Tree->OffsetX = -10000;
        return Tree->OffsetX;
    };
    const String wide(100, u'W');
    const int distance = farthest(bdLeftToRight, wide);
    EXPECT_LT(distance, -100);
    EXPECT_EQ(farthest(bdRightToLeft, wide), distance);
    EXPECT_EQ(farthest(bdRightToLeft, u"w"), 0);
}

TEST_F(TreeUseTest, TellsOfItsNodesWhenItDies) {
    int freed = 0;
    {
        TVirtualStringTree tree(nullptr);
        tree.OnFreeNode = [&](auto...) { ++freed; };
        tree.RootNodeCount = 20;
        tree.GetNext(tree.GetFirst());
    }
    EXPECT_EQ(freed, 2) << "those that were asked for";
}

TEST_F(TreeUseTest, ColumnsKeepTheirPartsAndFitTheirCaptions) {
    TVirtualTreeColumns& columns = *Tree->Header->Columns;
    SetOptions({toExtendedFocus}, {toGridExtensions});
    Tree->RootNodeCount = 2;
    Tree->FocusedNode = Row(0);
    Tree->FocusedColumn = 1;
    Tree->Header->MainColumn = 1;
    Tree->Header->SortColumn = 0;
    const auto parts = [&] {
        return std::vector{Tree->FocusedColumn, Tree->Header->MainColumn, Tree->Header->SortColumn};
    };
    columns.Insert(0);
    EXPECT_EQ(parts(), (std::vector{2, 2, 1}));
    columns.GetColumn(1)->Index = 2;
    EXPECT_EQ(parts(), (std::vector{1, 1, 2}));
    columns.Clear();
    for (int i = 0; i < 3; ++i)
        columns.Add()->Width = 40;
    PressKey(VK_RIGHT);
    PressKey(VK_RIGHT);
    EXPECT_EQ(Tree->FocusedColumn, 1) << "arrows go on among the new columns";

    // A double click on the divider fits the caption of an empty tree; a pixel less, and a hint tells it.
    TVirtualTreeColumn& column = *columns.GetColumn(0);
    Tree->RootNodeCount = 0;
    column.Text = u"A caption that is rather long";
    column.CheckBox = true;
    Tree->Header->SortColumn = 0;
    Tree->Header->Options = Tree->Header->Options + TVTHeaderOptions{hoShowHint};
    Tree->Update();
    for (int click = 0; click < 2; ++click) {
        PressMouse(HeaderPoint(0, -1));
        ReleaseMouse();
    }
    ASSERT_TRUE(WaitFor([&] { return column.Width != 40; }));
    const auto hint = [&] {
        THintInfo info;
        info.CursorPos = Tree->ScreenToClient(HeaderPoint(0, 5));
        Tree->Perform(CM_HINTSHOW, 0, reinterpret_cast<LPARAM>(&info));
        return info.HintStr;
    };
    EXPECT_EQ(hint(), u"");
    column.Width = column.Width - 1;
    EXPECT_EQ(hint(), u"A caption that is rather long");
}

TEST_F(TreeUseTest, SearchLooksWhereTheTextIsAndForgetsWhatItDoesNotFind) {
    Tree->RootNodeCount = 30;
    Tree->IncrementalSearch = isVisibleOnly;
    Tree->OnGetText = [](auto*, auto*, TColumnIndex column, auto, String& text) { text = column == 0 ? u"" : text; };
    Click(0, 0);
    TypeText(u"xrow 12");
    EXPECT_EQ(FocusedRow(), 12);
    PressKey(VK_UP);
    TypeText(u"row 2");
    EXPECT_EQ(FocusedRow(), 20) << "a key that moves begins a new search";
}

} // namespace
