#pragma once

// A string tree of two columns on a form, and what a person does to it.

#include "framework/system/numbers.h"
#include "framework/vtree/stringtree.h"
#include "framework/windows/application.h"
#include "tests/support/input.h"

#include <gtest/gtest.h>

#include <set>

namespace testsupport {

using namespace framework;

inline constexpr int kRow = 20; // pixels

/// Rows "0", "1", ... in column 0, with children "3.0", ... when asked; column 1 tells the row's number in words.
class TestTree : public TVirtualStringTree {
public:
    explicit TestTree(TComponent* owner) : TVirtualStringTree(owner) {}
    using TVirtualStringTree::HasPaint;
    using TVirtualStringTree::IsUpdating;

    std::set<TVirtualNode*> Freed;

protected:
    void DoGetText(TVirtualNode* node, TColumnIndex column, TVSTTextType type, String& text) override {
        text = IntToStr(static_cast<int>(node->Index));
        if (GetNodeLevel(node) > 0)
            text = IntToStr(static_cast<int>(node->Parent->Index)) + u"." + text;
        if (column == 1)
            text = u"row " + text;
        TVirtualStringTree::DoGetText(node, column, type, text);
    }
    void DoFreeNode(TVirtualNode* node) override {
        Freed.insert(node);
        TVirtualStringTree::DoFreeNode(node);
    }
};

class TreeTest : public testing::Test {
protected:
    void SetUp() override {
        Form = ShowForm();
        Tree = new TestTree(Form.get());
        Tree->DefaultNodeHeight = kRow;
        Tree->Parent = Form.get();
        Tree->SetBounds(10, 10, 300, 5 * kRow + 4 + 24);
        for (const int width : {120, 100})
            Tree->Header->Columns->Add()->Width = width;
        Tree->Header->Height = 24;
        Tree->Header->Options = DefaultHeaderOptions + TVTHeaderOptions{hoVisible, hoShowImages};
        Tree->SetFocus();
        Application->ProcessMessages();
    }
    TVirtualNode* Row(int row) { return Tree->NodeOfRow(row); }
    TPoint CellPoint(int row, int column, int dx = 8) {
        const TRect cell = Tree->GetDisplayRect(Row(row), column);
        return {cell.Left + dx, (cell.Top + cell.Bottom) / 2};
    }
    void Click(int row, int column, int dx = 60) { ClickOn(*Tree, CellPoint(row, column, dx)); }
    TPoint HeaderPoint(int column, int dx = 20) {
        const TRect cell = Tree->HeaderCellRect(column);
        return Tree->ClientToScreen({(dx < 0 ? cell.Right : cell.Left) + dx, (cell.Top + cell.Bottom) / 2});
    }
    void Drag(TPoint from, TPoint to) {
        PressMouse(from);
        MoveMouse({(from.X + to.X) / 2, from.Y});
        MoveMouse({to.X - 1, to.Y});
        MoveMouse(to);
        ReleaseMouse();
        Application->ProcessMessages();
    }
    String SelectedRows() {
        String rows;
        for (TVirtualNode* node = Tree->GetFirstSelected(); node; node = Tree->GetNextSelected(node))
            rows += (rows.empty() ? u"" : u" ") + IntToStr(Tree->RowOf(node));
        return rows;
    }
    int FocusedRow() { return Tree->FocusedNode ? Tree->RowOf(Tree->FocusedNode) : -1; }
    void SetOptions(TVTSelectionOptions selection, TVTMiscOptions misc = {}) {
        Tree->TreeOptions->SelectionOptions = selection;
        Tree->TreeOptions->MiscOptions = misc;
    }

    std::unique_ptr<TForm> Form;
    TestTree* Tree = nullptr;
};

} // namespace testsupport
