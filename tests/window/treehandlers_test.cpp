// Virtual trees whose handlers take nodes away, raise, or come while something else is under way.

#include "data/Zorvirtualstringtree.h"
#include "tests/support/testtree.h"

using namespace framework;
using namespace testsupport;

namespace {

class TreeHandlersTest : public TreeTest {};

TEST_F(TreeHandlersTest, SurvivesHandlersThatTakeNodesAway) {
    using TAct = std::function<void()>;
    const std::vector<std::pair<const char*, std::function<void(TestTree&, TAct)>>> events = {
        {"init", [](TestTree& t, TAct a) { t.OnInitNode = [a](auto*, auto*, auto*, auto&) { a(); }; }},
        {"children",
         [](TestTree& t, TAct a) {
             t.OnInitChildren = [a](auto*, auto*, unsigned& n) {
                 n = 2;
                 a();
             };
         }},
        {"text", [](TestTree& t, TAct a) { t.OnGetText = [a](auto*, auto*, int, auto, auto&) { a(); }; }},
        {"painttext", [](TestTree& t, TAct a) { t.OnPaintText = [a](auto*, auto*, auto*, int, auto) { a(); }; }},
        {"before", [](TestTree& t, TAct a) { t.OnBeforeCellPaint = [a](auto*, auto&) { a(); }; }},
        {"after", [](TestTree& t, TAct a) { t.OnAfterCellPaint = [a](auto*, auto&) { a(); }; }},
        {"change", [](TestTree& t, TAct a) { t.OnChange = [a](auto*, auto*) { a(); }; }},
        {"checking", [](TestTree& t, TAct a) { t.OnChecking = [a](auto*, auto*, auto&, bool&) { a(); }; }},
        {"checked", [](TestTree& t, TAct a) { t.OnChecked = [a](auto*, auto*) { a(); }; }},
        {"expanding", [](TestTree& t, TAct a) { t.OnExpanding = [a](auto*, auto*, bool&) { a(); }; }},
        {"expanded", [](TestTree& t, TAct a) { t.OnExpanded = [a](auto*, auto*) { a(); }; }},
        {"collapsing", [](TestTree& t, TAct a) { t.OnCollapsing = [a](auto*, auto*, bool&) { a(); }; }},
        {"collapsed", [](TestTree& t, TAct a) { t.OnCollapsed = [a](auto*, auto*) { a(); }; }},
        {"focusing",
         [](TestTree& t, TAct a) { t.OnFocusChanging = [a](auto*, auto*, auto*, int, int, bool&) { a(); }; }},
        {"focused", [](TestTree& t, TAct a) { t.OnFocusChanged = [a](auto*, auto*, int) { a(); }; }},
        {"free", [](TestTree& t, TAct a) { t.OnFreeNode = [a](auto*, auto*) { a(); }; }},
        {"compare", [](TestTree& t, TAct a) { t.OnCompareNodes = [a](auto*, auto*, auto*, int, int&) { a(); }; }},
        {"measure", [](TestTree& t, TAct a) { t.OnMeasureItem = [a](auto*, auto*, auto*, int&) { a(); }; }},
        {"scroll", [](TestTree& t, TAct a) { t.OnScroll = [a](auto*, int, std::int64_t) { a(); }; }},
        {"key", [](TestTree& t, TAct a) { t.OnKeyDown = [a](auto*, auto&, auto) { a(); }; }},
    };
    enum TDeed { DeleteFirst, DeleteAll, FreeTree };
    for (const auto& [name, assign] : events) {
        for (const TDeed deed : {DeleteFirst, DeleteAll, FreeTree}) {
            SCOPED_TRACE(testing::Message() << name << " deed " << deed);
            auto* tree = new TestTree(Form.get());
            tree->Parent = Form.get();
            tree->SetBounds(10, 150, 200, 90);
            tree->TreeOptions->MiscOptions = {toCheckSupport, toVariableNodeHeight};
            TLifeGuard alive(*tree);
            if (std::string_view(name) != "children")
                tree->OnInitChildren = [](auto*, auto*, unsigned& count) { count = 2; };
            tree->OnCompareNodes = [](auto*, auto*, auto*, int, int&) {};
            bool done = false;
            assign(*tree, [&, deed] {
                if (!alive || (done && deed == FreeTree))
                    return;
                done = true;
                if (deed == FreeTree)
                    delete tree;
                else if (deed == DeleteAll)
                    tree->Clear();
                else if (tree->RootNode->FirstChild)
                    tree->DeleteNode(tree->RootNode->FirstChild);
            });
            tree->RootNodeCount = 40;
            for (TVirtualNode* node = tree->RootNode->FirstChild; node; node = node->NextSibling) {
                tree->CheckType[node] = ctCheckBox;
                tree->HasChildren[node] = true;
            }
            tree->SetFocus();
            const auto step = [&](const std::function<void()>& work) {
                if (alive)
                    work();
            };
            step([&] { tree->Update(); });
            for (const WORD key : {VK_DOWN, VK_DOWN, VK_SPACE, VK_RIGHT, VK_DOWN, VK_LEFT, VK_LEFT, VK_END})
                step([&] { PressKey(key); });
            step([&] { tree->SortTree(0, sdAscending); });
            step([&] { tree->ContentToText(); });
            step([&] { tree->ReinitNode(nullptr, true); });
            step([&] { tree->ValidateNode(nullptr, true); });
            step([&] { tree->Repaint(); });
            step([&] {
                if (tree->RootNode->LastChild)
                    tree->DeleteNode(tree->RootNode->LastChild);
            });
            step([&] { tree->RootNodeCount = 3; });
            step([&] { delete tree; });
            EXPECT_TRUE(done);
        }
    }
}

TEST_F(TreeHandlersTest, GoesOnAfterHandlersThatRaise) {
    SetOptions({toFullRowSelect, toMultiSelect}, {toCheckSupport});
    Tree->RootNodeCount = 6;
    for (int row = 0; row < 6; ++row) {
        Tree->HasChildren[Row(row)] = true;
        Tree->CheckType[Row(row)] = ctCheckBox;
    }
    Tree->OnInitChildren = [](auto*, auto*, unsigned& count) { count = 1; };
    Tree->OnExpanding = [](auto*, auto*, bool&) { throw Exception(u"not now"); };
    EXPECT_THROW(Tree->FullExpand(), Exception);
    EXPECT_FALSE(Tree->IsUpdating()) << "it would never be painted again";
    Tree->OnExpanding = {};
    Tree->OnChecking = [](auto*, auto*, TCheckState&, bool&) { throw Exception(u"not this one"); };
    EXPECT_THROW(Tree->CheckState[Row(0)] = csCheckedNormal, Exception);
    Tree->OnChecking = {};
    Tree->CheckState[Row(0)] = csCheckedNormal;
    EXPECT_EQ(Row(0)->CheckState, csCheckedNormal);

    // While the tree is sorted nothing goes; what was deleted goes afterwards, raise as the handler may.
    Tree->SelectAll();
    int changes = 0;
    Tree->OnChange = [&](auto*, auto*) { ++changes; };
    Tree->OnCompareNodes = [&](auto*, auto*, auto*, int, int&) {
        Tree->DeleteSelectedNodes();
        Tree->Clear();
        throw Exception(u"no order");
    };
    EXPECT_THROW(Tree->SortTree(0, sdAscending), Exception);
    EXPECT_EQ(Tree->RootNodeCount, 6u);
    Tree->Update();
    EXPECT_EQ(Tree->RootNodeCount, 0u);
    Tree->RootNodeCount = 100;
    Tree->SelectAll();
    changes = 0;
    Tree->DeleteSelectedNodes();
    EXPECT_EQ(changes, 1) << "one event for all of them";
}

TEST_F(TreeHandlersTest, CheckListsTakeWhatTheHandlersOfTheFocusLeave) {
    ZOR::TZORVirtualStringTree list(nullptr);
    list.SetBounds(10, 150, 200, 90);
    list.Parent = Form.get();
    const auto fill = [&] {
        list.ClearDeque();
        for (int id = 1; id <= 3; ++id)
            list.AddToDeque(id, u"item");
        list.SetCheckListBox();
    };
    list.CheckBoxStyle = true;
    const std::pair<const char*, std::function<void()>> cases[] = {
        {"other items", fill},
        {"nothing checked", [&] { list.CheckListBox_SetChecked(csUncheckedNormal); }},
    };
    for (const auto& [name, act] : cases) {
        SCOPED_TRACE(name);
        fill();
        list.Update();
        list.OnFocusChanged = [&act = act](auto*, auto*, int) { act(); };
        list.CheckState[list.NodeOfRow(1)] = csCheckedNormal;
        list.OnFocusChanged = {};
        for (int row = 0; row < 3; ++row) {
            EXPECT_FALSE(list.GetDequeItem(static_cast<std::size_t>(row)).IsChecked()) << row;
            EXPECT_EQ(list.NodeOfRow(row)->CheckState, csUncheckedNormal) << row;
        }
    }
}

} // namespace
