// Virtual trees as people and programs use them over a while: rows that measure themselves, order that follows changes,
// boxes of branches that open late, where the focus goes when its row goes.

#include "framework/windows/hints.h"
#include "tests/support/testtree.h"

using namespace framework;
using namespace testsupport;

namespace {

class TreeUseTest : public TreeTest {};

TEST_F(TreeUseTest, AsksForAllRowsOfAPageBeforeOneIsPainted) {
    std::set<TVirtualNode*> asked;
    int unasked = 0;
    Tree->OnInitNode = [&](TBaseVirtualTree*, TVirtualNode* parent, TVirtualNode* node,
                           TVirtualNodeInitStates& states) {
        asked.insert(node);
        if (!parent && node->Index == 2)
            states << ivsHasChildren << ivsExpanded;
    };
    Tree->OnInitChildren = [](TBaseVirtualTree*, TVirtualNode*, unsigned& count) { count = 4; };
    Tree->OnGetText = [&](TBaseVirtualTree*, TVirtualNode* node, TColumnIndex, TVSTTextType, String&) {
        unasked += asked.contains(node) ? 0 : 1;
    };
    int rows = 8; // pixels of a row
    Tree->OnMeasureItem = [&](TBaseVirtualTree*, TCanvas*, TVirtualNode*, int& height) { height = rows; };
    Tree->TreeOptions->MiscOptions = {toVariableNodeHeight};
    Tree->RootNodeCount = 1000;
    Tree->Update();
    EXPECT_EQ(unasked, 0);
    EXPECT_EQ(asked.size(), 13u) << "the page, and nothing below it";
    EXPECT_EQ(Tree->GetDisplayRect(Row(12), NoColumn).Top, 12 * rows);
    rows = 30;
    Tree->Font->Size = 20;
    Tree->Update();
    EXPECT_EQ(Tree->NodeHeight[Row(0)], 30) << "measured again with another font";

    // Rows that were asked for while there was no window are measured, too.
    TVirtualStringTree early(Form.get());
    early.TreeOptions->MiscOptions = {toVariableNodeHeight};
    early.OnMeasureItem = Tree->OnMeasureItem;
    early.RootNodeCount = 3;
    early.ValidateNode(nullptr, true);
    early.Parent = Form.get();
    early.Update();
    EXPECT_EQ(early.NodeHeight[early.GetFirst()], 30);
}

TEST_F(TreeUseTest, KeepsItsOrderWhenNodesComeLater) {
    Tree->OnCompareNodes = [](TBaseVirtualTree* tree, TVirtualNode* a, TVirtualNode* b, TColumnIndex, int& result) {
        result = *tree->GetNodeData<int>(a) - *tree->GetNodeData<int>(b);
    };
    Tree->OnInitNode = [](TBaseVirtualTree* tree, TVirtualNode* parent, TVirtualNode* node,
                          TVirtualNodeInitStates& states) {
        *tree->GetNodeData<int>(node) = static_cast<int>(node->Index) * 7 % 5 * 10;
        if (!parent)
            states << ivsHasChildren;
    };
    Tree->OnInitChildren = [](TBaseVirtualTree*, TVirtualNode*, unsigned& count) { count = 4; };
    Tree->NodeDataSize = sizeof(int);
    Tree->RootNodeCount = 5;
    Tree->Header->SortColumn = 0;
    Tree->TreeOptions->AutoOptions = {toAutoSort};
    const auto numbers = [&](TVirtualNode* parent) {
        Tree->Update();
        std::vector<int> all;
        for (TVirtualNode* node = Tree->GetFirstChild(parent); node; node = Tree->GetNextSibling(node))
            all.push_back(*Tree->GetNodeData<int>(node));
        return all;
    };
    Tree->Expanded[Row(1)] = true;
    EXPECT_EQ(numbers(Row(1)), (std::vector<int>{0, 10, 20, 40})) << "of a branch that is opened";
    Tree->ReinitNode(nullptr, false);
    Tree->InitNode(Tree->AddChild(Row(1)));
    TVirtualNode* last = Row(1)->LastChild;
    *Tree->GetNodeData<int>(last) = 15;
    EXPECT_EQ(numbers(Row(1)), (std::vector<int>{0, 10, 15, 20, 40})) << "of a node that is added";
    Tree->Header->SortDirection = sdDescending;
    Tree->RootNodeCount = 6;
    EXPECT_EQ(numbers(nullptr), (std::vector<int>{40, 30, 20, 10, 0, 0}));
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
    Tree->DeleteNode(Row(1)); // the row where the selection began
    PressKey(VK_DOWN, {ssShift});
    EXPECT_EQ(SelectedRows(), u"1 2");
}

TEST_F(TreeUseTest, BoxesOfLateChildrenFollowTheirBranch) {
    SetOptions({toFullRowSelect}, {toCheckSupport});
    Tree->OnInitNode = [](TBaseVirtualTree* tree, TVirtualNode* parent, TVirtualNode* node,
                          TVirtualNodeInitStates& states) {
        tree->CheckType[node] = ctTriStateCheckBox;
        if (!parent)
            states << ivsHasChildren;
    };
    Tree->OnInitChildren = [](TBaseVirtualTree*, TVirtualNode*, unsigned& count) { count = 30; };
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
    EXPECT_EQ(Row(30)->CheckState, csCheckedNormal) << "it was not asked for when the branch became mixed";
    Tree->OffsetY = -26 * kRow;
    Tree->Update();
    Tree->CheckState[Row(32)] = csCheckedNormal;
    EXPECT_EQ(Row(31)->CheckState, csMixedNormal) << "most of its children never showed and are not checked";
}

TEST_F(TreeUseTest, TheFocusGoesOnWhenItsRowGoes) {
    Tree->RootNodeCount = 10;
    Tree->SetChildCount(Row(4), 2);
    Tree->HasChildren[Row(4)] = true;
    Tree->Expanded[Row(4)] = true;
    String told;
    Tree->OnFocusChanged = [&](TBaseVirtualTree*, TVirtualNode* node, TColumnIndex) {
        told += node ? IntToStr(Tree->RowOf(node)) + u" " : u"none ";
    };
    struct TStep {
        const char* What;
        std::function<void()> Deed;
        int From;
        const char16_t* Told;
    };
    const TStep steps[] = {
        {"next row", [&] { Tree->DeleteNode(Row(1)); }, 1, u"1 "},
        {"last row", [&] { Tree->DeleteNode(Row(10)); }, 10, u"9 "},
        {"last of a branch", [&] { Tree->DeleteNode(Row(5)); }, 5, u"4 "},
        {"branch", [&] { Tree->DeleteChildren(Row(3)); }, 4, u"3 "},
        {"hidden",
         [&] {
             Tree->IsVisible[Row(2)] = false;
             Tree->Update();
         },
         2, u"2 "},
        {"filtered one by one",
         [&] {
             for (TVirtualNode* node = Row(1); node; node = node->NextSibling)
                 Tree->IsFiltered[node] = true;
             Tree->Update();
         },
         4, u"0 "},
        {"another row", [&] { Tree->DeleteNode(Tree->RootNode->LastChild); }, 0, u""},
        {"all", [&] { Tree->Clear(); }, 0, u"none "},
    };
    for (const TStep& step : steps) {
        Tree->FocusedNode = Row(step.From);
        told.clear();
        step.Deed();
        EXPECT_EQ(told, step.Told) << step.What;
    }
    Tree->RootNodeCount = 6;
    SetOptions({toMultiSelect, toFullRowSelect});
    for (int row = 1; row < 4; ++row)
        Tree->Selected[Row(row)] = true;
    Tree->FocusedNode = Row(1);
    told.clear();
    Tree->DeleteSelectedNodes();
    EXPECT_EQ(told, u"1 ") << "once for all of them";
}

TEST_F(TreeUseTest, TellsOfItsNodesWhenItDies) {
    int freed = 0;
    auto tree = std::make_unique<TVirtualStringTree>(nullptr);
    tree->OnFreeNode = [&](TBaseVirtualTree* sender, TVirtualNode* node) {
        delete *sender->GetNodeData<int*>(node);
        ++freed;
    };
    tree->NodeDataSize = sizeof(int*);
    tree->RootNodeCount = 20;
    TVirtualNode* node = tree->GetFirst();
    for (int i = 0; i < 3; ++i, node = tree->GetNext(node))
        *tree->GetNodeData<int*>(node) = new int(i);
    tree.reset();
    EXPECT_EQ(freed, 4) << "those that were asked for";
}

TEST_F(TreeUseTest, ColumnsKeepTheirPartsAndFitTheirCaptions) {
    TVirtualTreeColumns& columns = *Tree->Header->Columns;
    SetOptions({toExtendedFocus}, {toGridExtensions});
    Tree->RootNodeCount = 2;
    Tree->FocusedNode = Row(0);
    Tree->FocusedColumn = 1;
    Tree->Header->MainColumn = 1;
    Tree->Header->SortColumn = 0;
    columns.Insert(0);
    EXPECT_EQ(Tree->FocusedColumn, 2);
    EXPECT_EQ(Tree->Header->MainColumn, 2);
    EXPECT_EQ(Tree->Header->SortColumn, 1);
    columns.GetColumn(1)->Index = 2;
    EXPECT_EQ(Tree->FocusedColumn, 1);
    EXPECT_EQ(Tree->Header->SortColumn, 2);
    columns.Clear();
    EXPECT_EQ(Tree->FocusedColumn, NoColumn);
    for (int i = 0; i < 3; ++i)
        columns.Add()->Width = 40;
    PressKey(VK_RIGHT);
    PressKey(VK_RIGHT);
    EXPECT_EQ(Tree->FocusedColumn, 1) << "arrows go on among the new columns";

    // A double click on the divider fits the caption, too, and leaves columns of empty trees wide enough.
    Tree->RootNodeCount = 0;
    columns.GetColumn(0)->Text = u"A caption that is rather long";
    columns.GetColumn(0)->CheckBox = true;
    Tree->Header->SortColumn = 0;
    Tree->Update();
    const auto hint = [&] {
        THintInfo info;
        info.HintControl = Tree;
        const TRect cell = Tree->HeaderCellRect(0);
        info.CursorPos = {cell.Left + 5, (cell.Top + cell.Bottom) / 2};
        Tree->Header->Options = Tree->Header->Options + TVTHeaderOptions{hoShowHint};
        Tree->Perform(CM_HINTSHOW, 0, reinterpret_cast<LPARAM>(&info));
        return info.HintStr;
    };
    PressMouse(HeaderPoint(0, -1));
    ReleaseMouse();
    PressMouse(HeaderPoint(0, -1));
    ReleaseMouse();
    ASSERT_TRUE(WaitFor([&] { return columns.GetColumn(0)->Width != 40; }));
    EXPECT_EQ(hint(), u"") << "nothing of it is cut off";
    columns.GetColumn(0)->Width = columns.GetColumn(0)->Width - 1;
    EXPECT_EQ(hint(), u"A caption that is rather long");
}

TEST_F(TreeUseTest, SearchLooksWhereTheTextIsAndForgetsWhatItDoesNotFind) {
    Tree->RootNodeCount = 30;
    Tree->Header->Columns->GetColumn(0)->Index = 1; // the main column stays the one with the numbers
    Tree->IncrementalSearch = isVisibleOnly;
    Tree->OnGetText = [](TBaseVirtualTree*, TVirtualNode*, TColumnIndex column, TVSTTextType, String& text) {
        text = column == 1 ? String() : u"row " + text;
    };
    Click(0, 0);
    TypeText(u"xrow 12");
    EXPECT_EQ(FocusedRow(), 12);
    PressKey(VK_UP);
    TypeText(u"row 2");
    EXPECT_EQ(FocusedRow(), 20) << "a key that moves begins a new search";
}

} // namespace
