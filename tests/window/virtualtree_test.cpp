// Virtual trees in a window: keys and mouse, scrolling, painting, and the header.

#include "framework/graphics/canvas.h"
#include "framework/windows/clipboard.h"
#include "tests/support/accessible.h"
#include "tests/support/handlecount.h"
#include "tests/support/testtree.h"

#include <gtest/gtest.h>

using namespace framework;
using namespace testsupport;

namespace {

class VirtualTreeTest : public TreeTest {};

TEST_F(VirtualTreeTest, SelectsByMouseAndKeyboard) {
    Tree->RootNodeCount = 100;
    SetOptions({toMultiSelect, toFullRowSelect});
    int changes = 0;
    Tree->OnChange = [&](TBaseVirtualTree*, TVirtualNode*) { ++changes; };
    Click(1, 0);
    EXPECT_EQ(SelectedRows(), u"1");
    EXPECT_EQ(changes, 1);
    struct TStep {
        WORD Key;
        TShiftState Held;
        const char16_t* Selected;
        int Focus;
    };
    const TStep steps[] = {
        {VK_DOWN, {}, u"2", 2},        {VK_DOWN, {ssShift}, u"2 3", 3},   {VK_DOWN, {ssShift}, u"2 3 4", 4},
        {VK_UP, {ssShift}, u"2 3", 3}, {VK_UP, {ssCtrl}, u"2 3", 2},      {VK_UP, {ssCtrl}, u"2 3", 1},
        {VK_UP, {ssCtrl}, u"2 3", 0},  {VK_SPACE, {ssCtrl}, u"0 2 3", 0}, {VK_NEXT, {}, u"4", 4},
        {VK_END, {}, u"99", 99},       {VK_PRIOR, {}, u"95", 95},         {VK_HOME, {}, u"0", 0},
    };
    for (const TStep& step : steps) {
        PressKey(step.Key, step.Held);
        EXPECT_EQ(SelectedRows(), step.Selected) << "key " << step.Key;
        EXPECT_EQ(FocusedRow(), step.Focus) << "key " << step.Key;
        EXPECT_FALSE(Tree->GetDisplayRect(Tree->FocusedNode, NoColumn).IsEmpty()) << "it came into view";
    }
    PressKey(VK_END, {ssShift});
    EXPECT_EQ(Tree->SelectedCount, 100);
    Tree->TreeOptions->SelectionOptions = {toFullRowSelect};
    EXPECT_EQ(Tree->SelectedCount, 0) << "one at most from now on";
    PressKey('A', {ssCtrl});
    PressKey(VK_HOME);
    EXPECT_EQ(SelectedRows(), u"0");
}

TEST_F(VirtualTreeTest, BranchesOpenAndCloseByKeysAndButton) {
    Tree->OnInitNode = [](TBaseVirtualTree* tree, TVirtualNode* parent, TVirtualNode*, TVirtualNodeInitStates& states) {
        if (!parent || tree->GetNodeLevel(parent) == 0)
            states << ivsHasChildren;
    };
    int asked = 0;
    Tree->OnInitChildren = [&](TBaseVirtualTree*, TVirtualNode*, unsigned& count) {
        ++asked;
        count = 3;
    };
    Tree->RootNodeCount = 10;
    Application->ProcessMessages();
    Tree->Update();
    EXPECT_EQ(asked, 0) << "children are made when they are needed";
    Click(0, 0, 40);
    PressKey(VK_RIGHT);
    EXPECT_EQ(asked, 1);
    EXPECT_EQ(Tree->VisibleCount, 13);
    PressKey(VK_RIGHT);
    EXPECT_EQ(Tree->NodeText(Tree->FocusedNode, 0), u"0.0");
    PressKey(VK_LEFT);
    EXPECT_EQ(FocusedRow(), 0);
    PressKey(VK_MULTIPLY);
    EXPECT_EQ(Tree->VisibleCount, 22);
    Tree->FocusedNode = Row(5);
    Tree->Expanded[Row(0)] = false;
    EXPECT_EQ(FocusedRow(), 0) << "the focus does not stay where nobody sees it";
    const TRect row = Tree->GetDisplayRect(Row(1), 0);
    ClickOn(*Tree, {13, (row.Top + row.Bottom) / 2});
    EXPECT_EQ(Tree->VisibleCount, 13) << "the button";
    EXPECT_EQ(FocusedRow(), 0);
}

TEST_F(VirtualTreeTest, TallTreesScrollToTheirLastPixel) {
    Tree->Height = 250;
    Tree->DefaultNodeHeight = 120;
    Tree->RootNodeCount = 20'000'000;
    Tree->Update();
    EXPECT_EQ(Tree->VisibleCount, 20'000'000);
    PressKey(VK_END);
    EXPECT_EQ(FocusedRow(), 19'999'999);
    const TRect last = Tree->GetDisplayRect(Tree->FocusedNode, NoColumn);
    EXPECT_EQ(last.Bottom, Tree->ClientHeight);
    EXPECT_EQ(-Tree->OffsetY, 20'000'000LL * 120 - Tree->ClientHeight);
    SendMessageW(Tree->Handle, WM_VSCROLL, SB_TOP, 0);
    EXPECT_EQ(Tree->OffsetY, 0);
    SCROLLINFO info{sizeof(info), SIF_ALL, 0, 0, 0, 0, 0};
    SendMessageW(Tree->Handle, WM_VSCROLL, SB_BOTTOM, 0);
    ASSERT_TRUE(GetScrollInfo(Tree->Handle, SB_VERT, &info));
    EXPECT_GE(info.nPos + static_cast<int>(info.nPage), info.nMax) << "the thumb is at the end";
    SendMessageW(Tree->Handle, WM_MOUSEWHEEL, static_cast<WPARAM>(120 << 16), 0);
    EXPECT_LT(-Tree->OffsetY, 20'000'000LL * 120 - Tree->ClientHeight);
    Tree->RootNodeCount = 0;
    EXPECT_EQ(Tree->OffsetY, 0) << "nothing is left to scroll";
    Tree->Update();
    EXPECT_FALSE(GetWindowLongPtrW(Tree->Handle, GWL_STYLE) & WS_VSCROLL);
}

TEST_F(VirtualTreeTest, ColumnsAreResizedDraggedHiddenAndSorted) {
    Tree->RootNodeCount = 10;
    Tree->Header->Columns->Add()->Width = 50;
    TVirtualTreeColumns& columns = *Tree->Header->Columns;
    std::vector<TColumnIndex> resized;
    Tree->OnColumnResize = [&](TVTHeader*, TColumnIndex column) { resized.push_back(column); };
    Drag(HeaderPoint(0, -1), {HeaderPoint(0, -1).X + 30, HeaderPoint(0).Y});
    EXPECT_EQ(columns.GetColumn(0)->Width, 150);
    EXPECT_FALSE(resized.empty());
    EXPECT_EQ(resized.back(), 0);
    columns.GetColumn(1)->MinWidth = 90;
    Drag(HeaderPoint(1, -1), HeaderPoint(0, 10));
    EXPECT_EQ(columns.GetColumn(1)->Width, 90) << "not below its limit";

    int from = -1;
    Tree->OnHeaderDragged = [&](TVTHeader*, TColumnIndex column, int position) { from = column * 10 + position; };
    Drag(HeaderPoint(0), HeaderPoint(2, 40));
    EXPECT_EQ(columns.GetColumn(0)->Position, 2);
    EXPECT_EQ(from, 0);
    EXPECT_EQ(Tree->HeaderCellRect(1).Left, 0);
    EXPECT_EQ(Tree->GetHitTestInfoAt({145, 5}).HitColumn, 0);
    Tree->OnHeaderDragging = [](TVTHeader*, TColumnIndex, bool& allowed) { allowed = false; };
    Drag(HeaderPoint(0), HeaderPoint(1, 10));
    EXPECT_EQ(columns.GetColumn(0)->Position, 2) << "refused";

    columns.GetColumn(1)->Options = columns.GetColumn(1)->Options - TVTColumnOptions{coVisible};
    EXPECT_EQ(Tree->GetHitTestInfoAt({5, 5}).HitColumn, 2);
    Tree->Header->Options = Tree->Header->Options + TVTHeaderOptions{hoHeaderClickAutoSort, hoAutoResize};
    Tree->Header->AutoSizeIndex = 2;
    Tree->Update();
    EXPECT_EQ(columns.GetColumn(2)->Width, Tree->ClientWidth - 150);
    Tree->TreeOptions->AutoOptions = {toAutoSort};
    Tree->OnCompareNodes = [](TBaseVirtualTree*, TVirtualNode* a, TVirtualNode* b, TColumnIndex, int& result) {
        result = static_cast<int>(a->Index % 3) - static_cast<int>(b->Index % 3);
    };
    const TVirtualNode* second = Row(3);
    std::vector<TColumnIndex> clicked;
    Tree->OnHeaderClick = [&](TVTHeader*, const TVTHeaderHitInfo& hit) { clicked.push_back(hit.Column); };
    const TPoint caption = HeaderPoint(2);
    PressMouse(caption);
    ReleaseMouse();
    ASSERT_TRUE(WaitFor([&] { return !clicked.empty(); }));
    EXPECT_EQ(Tree->Header->SortColumn, 2);
    EXPECT_EQ(Row(1), second) << "0 3 6 9 1 4 7 2 5 8";
}

TEST_F(VirtualTreeTest, BoxesFollowEachOther) {
    SetOptions({toFullRowSelect}, {toCheckSupport});
    Tree->OnInitNode = [](TBaseVirtualTree* tree, TVirtualNode* parent, TVirtualNode* node,
                          TVirtualNodeInitStates& states) {
        tree->CheckType[node] = ctTriStateCheckBox;
        if (!parent)
            states << ivsHasChildren << ivsExpanded;
    };
    Tree->OnInitChildren = [](TBaseVirtualTree*, TVirtualNode*, unsigned& count) { count = 2; };
    Tree->RootNodeCount = 1;
    Tree->Update();
    ASSERT_EQ(Tree->VisibleCount, 3);
    std::vector<int> checked;
    Tree->OnChecked = [&](TBaseVirtualTree*, TVirtualNode* node) { checked.push_back(Tree->RowOf(node)); };
    Click(1, 0, 4 + 2 * 18 + 6);
    EXPECT_EQ(Row(1)->CheckState, csCheckedNormal);
    EXPECT_EQ(Row(0)->CheckState, csMixedNormal);
    Tree->FocusedNode = Row(2);
    PressKey(VK_SPACE);
    EXPECT_EQ(Row(0)->CheckState, csCheckedNormal);
    Tree->FocusedNode = Row(0);
    PressKey(VK_SPACE);
    EXPECT_EQ(Row(2)->CheckState, csUncheckedNormal);
    EXPECT_EQ(checked, (std::vector<int>{1, 2, 0}));
    // A press that is let go elsewhere changes nothing.
    PressMouse(Tree->ClientToScreen(CellPoint(1, 0, 46)));
    MoveMouse(Tree->ClientToScreen(CellPoint(2, 1)));
    ReleaseMouse();
    Application->ProcessMessages();
    EXPECT_EQ(Row(1)->CheckState, csUncheckedNormal);
    Tree->OnChecking = [](TBaseVirtualTree*, TVirtualNode*, TCheckState&, bool& allowed) { allowed = false; };
    PressKey(VK_SPACE);
    EXPECT_EQ(Row(0)->CheckState, csUncheckedNormal);
}

TEST_F(VirtualTreeTest, FindsTextsAsTheyAreTypedAndCopiesThem) {
    Tree->RootNodeCount = 200;
    SetOptions({toMultiSelect, toFullRowSelect, toExtendedFocus});
    Tree->IncrementalSearch = isVisibleOnly;
    Click(0, 0);
    TypeText(u"15");
    EXPECT_EQ(FocusedRow(), 15);
    TypeText(u"7");
    EXPECT_EQ(FocusedRow(), 157);
    PressKey(VK_DOWN, {ssShift});
    PressKey('C', {ssCtrl});
    EXPECT_EQ(ClipboardText(nullptr).value_or(u""), u"157\trow 157\r\n158\trow 158\r\n");
}

TEST_F(VirtualTreeTest, ReadsFromTheRight) {
    Tree->RootNodeCount = 3;
    Tree->BiDiMode = bdRightToLeft;
    Application->ProcessMessages();
    EXPECT_EQ(Tree->GetDisplayRect(Row(0), 0).Right, Tree->ClientWidth);
    EXPECT_EQ(Tree->GetDisplayRect(Row(0), 1).Right, Tree->ClientWidth - 120);
    EXPECT_EQ(Tree->HeaderCellRect(1), (TRect{Tree->ClientWidth - 220, -24, Tree->ClientWidth - 120, 0}));
    EXPECT_EQ(Tree->GetHitTestInfoAt({Tree->ClientWidth - 130, 5}).HitColumn, 1);
    SetOptions({toFullRowSelect, toExtendedFocus}, {toGridExtensions});
    Click(0, 0);
    PressKey(VK_LEFT);
    EXPECT_EQ(Tree->FocusedColumn, 1) << "the arrow points to it";
}

TEST_F(VirtualTreeTest, PaintsSelectionLinesAndTexts) {
    Tree->RootNodeCount = 3;
    Tree->TreeOptions->PaintOptions = {toShowHorzGridLines, toShowVertGridLines, toHideFocusRect};
    Tree->TreeOptions->SelectionOptions = {toFullRowSelect};
    Tree->Colors->GridLineColor = clRed;
    Tree->Colors->FocusedSelectionColor = clBlue;
    Tree->Selected[Row(1)] = true;
    Tree->Update();
    const auto pixel = [&](int x, int y) { return PixelOf(*Tree, {x, y}); };
    EXPECT_EQ(pixel(60, kRow - 1), 0x0000FFu) << "line below the row";
    EXPECT_EQ(pixel(119, 5), 0x0000FFu) << "line behind the column";
    EXPECT_EQ(pixel(60, kRow + 3), 0xFF0000u) << "selected";
    EXPECT_EQ(pixel(60, 3), 0xFFFFFFu);
    EXPECT_EQ(pixel(60, 3 * kRow + 5), 0xFFFFFFu) << "below the rows";
    Tree->TreeOptions->PaintOptions = {toUseBlendedSelection, toHideFocusRect};
    Tree->SelectionBlendFactor = 128;
    Tree->Update();
    EXPECT_NEAR(static_cast<int>(pixel(60, kRow + 3) & 0xFF), 127, 2) << "half of it shines through";
    int dark = 0;
    for (int x = 0; x < 60; ++x)
        dark += (pixel(x, kRow / 2) & 0xFF) < 128 ? 1 : 0;
    EXPECT_GT(dark, 0) << "there is a text";
}

TEST_F(VirtualTreeTest, TextsLookAlikeWhetherMeasuredOrNot) {
    Tree->RootNodeCount = 3;
    Tree->TreeOptions->PaintOptions = {toHideFocusRect};
    Tree->OnGetText = [](TBaseVirtualTree*, TVirtualNode* node, TColumnIndex, TVSTTextType, String& text) {
        constexpr const char16_t* kTexts[] = {u"\u0141\u00F3d\u017A fjWAT", u"e\u0301te\u0301 \u05D0\u05D1",
                                              u"Illinois"};
        text = kTexts[node->Index];
    };
    const auto picture = [&] {
        Tree->Repaint();
        const TWindowDC dc(Tree->Handle);
        std::vector<COLORREF> pixels;
        for (int i = 0; i < 90 * 3 * kRow; ++i)
            pixels.push_back(GetPixel(dc, i % 90, i / 90));
        return pixels;
    };
    for (const int width : {20, 50, 60, 65, 70, 75, 80, 90}) {
        Tree->Header->Columns->GetColumn(0)->Width = width;
        Tree->OnPaintText = {};
        const auto quick = picture();
        Tree->OnPaintText = [](auto*, TCanvas*, auto*, TColumnIndex, TVSTTextType) {}; // might change the font
        EXPECT_TRUE(quick == picture()) << width;
    }
}

TEST_F(VirtualTreeTest, ExtremesStayInOrder) {
    Tree->Header->Columns->GetColumn(0)->MaxWidth = 40000;
    Tree->Header->Columns->GetColumn(0)->Width = 40000;
    EXPECT_EQ(Tree->Header->Columns->GetColumn(0)->Width, 32767);
    Tree->Header->Columns->GetColumn(1)->MinWidth = 0;
    Tree->Header->Columns->GetColumn(1)->Width = 0;
    Tree->RootNodeCount = 10'000'000;
    Tree->OnGetText = [](TBaseVirtualTree*, TVirtualNode*, TColumnIndex, TVSTTextType, String& text) {
        text.assign(1 << 20, u'W');
    };
    Tree->Update();
    Tree->OffsetX = -100000;
    Tree->Update();
    EXPECT_EQ(Tree->OffsetX, Tree->ClientWidth - 32767);
    EXPECT_EQ(Tree->GetHitTestInfoAt({Tree->ClientWidth - 1, 1}).HitColumn, 0);
    Tree->Header->Columns->Clear();
    Tree->Update();
    EXPECT_EQ(Tree->Header->MainColumn, 0);
    EXPECT_EQ(Tree->GetHitTestInfoAt({50, 5}).HitColumn, NoColumn);
    Tree->RootNodeCount = 0;
    Tree->Update();
    EXPECT_GT(Tree->Freed.size(), 0u);
    EXPECT_LE(Tree->Freed.size(), 200u) << "nodes that never showed are nobody's";
}

TEST_F(VirtualTreeTest, TellsScreenReadersOfRowsAndColumns) {
    Tree->RootNodeCount = 50;
    SetOptions({toMultiSelect, toFullRowSelect}, {toCheckSupport});
    Tree->Header->Columns->GetColumn(1)->Text = u"Words";
    Tree->CheckType[Row(3)] = ctCheckBox;
    Tree->CheckState[Row(3)] = csCheckedNormal;
    Tree->FocusedNode = Row(3);
    Tree->Selected[Row(3)] = true;
    const TAccessibleView found(*Tree);
    ASSERT_TRUE(found.Found());
    const auto number = &TAccessibleView::Number;
    long count = 0;
    found->get_accChildCount(&count);
    EXPECT_EQ(count, 2 + 50);
    EXPECT_EQ(found.Text(&IAccessible::get_accName, 2), u"Words");
    EXPECT_EQ(found.Text(&IAccessible::get_accName, 2 + 4), u"3");
    EXPECT_EQ(found.Text(&IAccessible::get_accDescription, 2 + 4), u"Words: row 3");
    EXPECT_EQ(found.Text(&IAccessible::get_accDefaultAction, 2 + 4), u"Uncheck");
    VARIANT state{};
    found->get_accState(number(2 + 4), &state);
    constexpr LONG kAll = STATE_SYSTEM_SELECTED | STATE_SYSTEM_FOCUSED | STATE_SYSTEM_CHECKED;
    EXPECT_EQ(state.lVal & kAll, kAll);
    found->get_accState(number(2 + 50), &state);
    EXPECT_EQ(state.lVal & (kAll | STATE_SYSTEM_OFFSCREEN), STATE_SYSTEM_OFFSCREEN);
    found->get_accFocus(&state);
    EXPECT_EQ(state.lVal, 2 + 4);
    found->get_accSelection(&state);
    EXPECT_EQ(state.lVal, 2 + 4);
    found->get_accRole(number(1), &state);
    EXPECT_EQ(state.lVal, ROLE_SYSTEM_COLUMNHEADER);
    const TPoint point = Tree->ClientToScreen(CellPoint(2, 0));
    found->accHitTest(point.X, point.Y, &state);
    EXPECT_EQ(state.lVal, 2 + 3);
    found->accDoDefaultAction(number(2 + 4));
    EXPECT_EQ(Row(3)->CheckState, csUncheckedNormal);
    found->accSelect(SELFLAG_TAKESELECTION, number(2 + 1));
    EXPECT_EQ(SelectedRows(), u"0");
    found->accSelect(SELFLAG_EXTENDSELECTION, number(2 + 3));
    EXPECT_EQ(SelectedRows(), u"0 1 2");
    found->get_accSelection(&state);
    IEnumVARIANT* rows = nullptr;
    ASSERT_EQ(state.punkVal->QueryInterface(__uuidof(IEnumVARIANT), reinterpret_cast<void**>(&rows)), S_OK);
    EXPECT_EQ(rows->Skip(3), S_OK) << "exactly all of them";
    rows->Release();
    state.punkVal->Release();
}

TEST(VirtualTree, GivesItsHandlesBack) {
    const auto form = ShowForm();
    ExpectSteadyHandles(100, [&] {
        TestTree tree(form.get());
        tree.Parent = form.get();
        tree.Header->Columns->Add();
        tree.Header->Options = tree.Header->Options + TVTHeaderOptions{hoVisible};
        tree.RootNodeCount = 5;
        tree.TreeOptions->PaintOptions = tree.TreeOptions->PaintOptions + TVTPaintOptions{toUseBlendedSelection};
        tree.Selected[tree.GetFirst()] = true;
        tree.Update();
    });
}

} // namespace
