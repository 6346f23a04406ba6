// Virtual trees as people and programs use them over a while: rows that measure themselves, order that follows changes,
// boxes of branches that open late, where the focus goes when its row goes.

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

} // namespace
