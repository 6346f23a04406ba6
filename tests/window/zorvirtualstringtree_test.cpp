// The check-list tree: phrase, boxes, header, caption and search edit by real input, and what it costs in handles.

#include "data/Zorvirtualstringtree.h"
#include "framework/system/formloader.h"
#include "framework/system/formsaver.h"
#include "framework/system/numbers.h"
#include "framework/windows/application.h"
#include "framework/windows/clipboard.h"
#include "tests/support/accessible.h"
#include "tests/support/handlecount.h"
#include "tests/support/input.h"

#include <gtest/gtest.h>

#include <oleacc.h>

using namespace ZOR;
using namespace testsupport;

namespace {

constexpr const char16_t* kCities[] = {u"Warszawa", u"Krak\u00F3w", u"Radom",  u"Gda\u0144sk",
                                       u"gdynia",   u"Kramsk",      u"Lublin", u"Legnica"};

class CheckListTest : public testing::Test {
protected:
    void SetUp() override {
        Form = ShowForm();
        Tree = new TZORVirtualStringTree(Form.get());
        Tree->SetBounds(10, 10, 250, 200);
        Tree->Parent = Form.get();
        for (const char16_t* city : kCities)
            Tree->AddToDeque(static_cast<int>(Tree->GetDequeCount()) + 1, city);
        Tree->HeaderText = u"Cities";
        Tree->SetInfoLabelVisible(true);
        Tree->CheckBoxStyle = true;
        Application->ProcessMessages();
        Tree->Update();
    }
    std::vector<String> Rows() {
        std::vector<String> rows;
        for (TVirtualNode* node = Tree->GetFirst(); node; node = Tree->GetNext(node))
            rows.push_back(Tree->NodeText(node, 1));
        return rows;
    }
    TVirtualTreeColumn& Column(int index) { return *Tree->Header->Columns->GetColumn(index); }
    void ClickBox(int row) {
        const TRect cell = Tree->GetDisplayRect(Tree->NodeOfRow(row), 0);
        ClickOn(*Tree, {cell.Left + Tree->CheckBoxLeft() + 6, (cell.Top + cell.Bottom) / 2});
        Application->ProcessMessages();
    }
    void ClickHeader(int column, bool box) {
        const TRect cell = Tree->HeaderCellRect(column);
        const TPoint point =
            box ? TPoint{Tree->CheckBoxLeft() + 6, cell.Top + 10} : TPoint{cell.Left + 60, cell.Top + 10};
        PressMouse(Tree->ClientToScreen(point));
        ReleaseMouse();
        Application->ProcessMessages();
    }
    void Choose(int row) {
        Tree->FocusedNode = Tree->NodeOfRow(row);
        Tree->Selected[Tree->FocusedNode] = true;
    }
    /// The check states of the items in the order in which they were added.
    String States() {
        String states;
        for (std::size_t i = 0; i < Tree->GetDequeCount(); ++i)
            states += Tree->GetDequeItem(i).IsChecked() ? u'x' : u'-';
        return states;
    }

    std::unique_ptr<TForm> Form;
    TZORVirtualStringTree* Tree = nullptr;
};

TEST_F(CheckListTest, ChecksByBoxSpaceAndHeader) {
    EXPECT_EQ(Rows(), (std::vector<String>{u"Gda\u0144sk", u"gdynia", u"Krak\u00F3w", u"Kramsk", u"Legnica", u"Lublin",
                                           u"Radom", u"Warszawa"}));
    EXPECT_EQ(Column(1).Text, u"Cities: 0/8");
    std::vector<String> told;
    Tree->OnChecked = [&](TBaseVirtualTree*, TVirtualNode* node) { told.push_back(Tree->NodeText(node, 1)); };
    ClickBox(1);
    EXPECT_EQ(States(), u"----x---");
    EXPECT_EQ(Tree->FocusedNode, Tree->NodeOfRow(1));
    EXPECT_EQ(Column(0).CheckState, csMixedNormal);
    PressKey(VK_DOWN);
    PressKey(VK_SPACE);
    EXPECT_EQ(States(), u"-x--x---");
    EXPECT_EQ(Column(1).Text, u"Cities: 2/8");
    EXPECT_EQ(told, (std::vector<String>{u"gdynia", u"Krak\u00F3w"}));
    told.clear();
    ClickHeader(0, true);
    EXPECT_EQ(States(), u"xxxxxxxx");
    EXPECT_EQ(Column(0).CheckState, csCheckedNormal);
    EXPECT_EQ(told.size(), 1u) << "one event for all";
    told.clear();
    Tree->CheckListBox_SetChecked(csUncheckedNormal);
    EXPECT_EQ(told.size(), 8u) << "the program's change is told of node by node";
    EXPECT_EQ(Tree->GetCheckListBox_CheckedCount(), 0);
}

TEST_F(CheckListTest, TypedPhrasesHideWhatDoesNotMatch) {
    ClickBox(7); // Warszawa
    Tree->SearchEditVisible = true;
    Application->ProcessMessages();
    EXPECT_EQ(Tree->SearchEdit->Top, 10 + 20 + 2);
    EXPECT_EQ(Tree->SearchEdit->Left, 11);
    EXPECT_EQ(Tree->SearchEdit->Width, 248);
    EXPECT_GE(Tree->ClientToScreen({0, 0}).Y, Tree->SearchEdit->ClientToScreen({0, Tree->SearchEdit->ClientHeight}).Y)
        << "the rows begin below the edit";
    ClickOn(*Tree->SearchEdit);
    TypeText(u"KRA");
    ASSERT_TRUE(WaitFor([&] { return Tree->GetFraza() == u"KRA"; }));
    EXPECT_EQ(Rows(), (std::vector<String>{u"Krak\u00F3w", u"Kramsk"}));
    EXPECT_EQ(Column(0).CheckState, csUncheckedNormal) << "the checked one is hidden";
    EXPECT_EQ(Column(1).Text, u"Cities: 1/8");
    ClickHeader(0, true);
    EXPECT_EQ(States(), u"xx---x--");
    EXPECT_EQ(Tree->GetCheckListBox_FrazaCheckedCount(), 2);
    EXPECT_EQ(Tree->GetCheckListBox_FrazaVisibleCount(), 2);
    EXPECT_EQ(Tree->GetCheckListBox_CheckedCount(), 3);
    PressKey(VK_DOWN);
    Tree->SearchEdit->Text = u"";
    EXPECT_EQ(Rows().size(), 8u);
    EXPECT_EQ(States(), u"xx---x--");
    EXPECT_EQ(Tree->GetFirstChecked() ? Tree->NodeText(Tree->GetFirstChecked(), 1) : String(), u"Krak\u00F3w");
    Tree->SearchEditVisible = false;
    EXPECT_FALSE(Tree->SearchEdit->Visible);
}

TEST_F(CheckListTest, SortsByTextAndByBoxAndKeepsTheSelection) {
    ClickBox(4); // Legnica
    const auto focused = [&] { return Tree->FocusedNode ? Tree->NodeText(Tree->FocusedNode, 1) : String(); };
    ClickHeader(1, false);
    EXPECT_EQ(Rows().front(), u"Warszawa");
    EXPECT_EQ(focused(), u"Legnica");
    Tree->Header->SortColumn = 0;
    Tree->Header->SortDirection = sdAscending;
    EXPECT_EQ(Rows().back(), u"Legnica") << "checked ones come last";
    Tree->Selected[Tree->FocusedNode] = true;
    Tree->SetFraza(u"l");
    EXPECT_EQ(Tree->Header->SortColumn, 1);
    EXPECT_EQ(Rows(), (std::vector<String>{u"Legnica", u"Lublin"}));
    EXPECT_EQ(focused(), u"Legnica");
    EXPECT_EQ(Tree->GetFirstSelected(), Tree->FocusedNode);
    Tree->ClearDeque();
    Tree->SetCheckListBox();
    EXPECT_EQ(Rows().size(), 0u);
    EXPECT_EQ(Tree->FocusedNode, nullptr);
}

TEST_F(CheckListTest, FramesItsStateAndServesAsPlainTree) {
    Tree->Wymagany = wRequired;
    Application->ProcessMessages();
    const auto corner = [&] {
        const TWindowDC dc(Tree->Handle, TWindowDC::Whole);
        return GetPixel(dc, 0, 50);
    };
    EXPECT_EQ(corner(), 0xDD9746u);
    Tree->Enabled = false;
    EXPECT_FALSE(Tree->SearchEdit->Enabled);
    EXPECT_EQ(Tree->Wymagany, wNone);
    Tree->Enabled = true;
    EXPECT_EQ(corner(), 0xDD9746u);
    Tree->CheckBoxStyle = false;
    EXPECT_EQ(Tree->GetCheckListBox_CheckedCount(), 0);
    Tree->RootNodeCount = 3;
    EXPECT_EQ(Tree->NodeText(Tree->GetFirst(), 1), u"Node");
    ExpectSteadyHandles(100, [&] {
        TZORVirtualStringTree tree(Form.get());
        tree.Parent = Form.get();
        tree.AddToDeque(1, u"one");
        tree.CheckBoxStyle = true;
        tree.SearchEditVisible = true;
        tree.Wymagany = wError;
        tree.Update();
    });
}

TEST_F(CheckListTest, LettersFindAndSpaceChecks) {
    int asked = 0;
    Tree->OnInitNode = [&](auto...) { ++asked; };
    for (int i = 0; i < 1000; ++i)
        Tree->AddToDeque(100 + i, u"Zz" + IntToStr(i));
    for (const char16_t* text : {u"Nowy Dw\u00F3r", u"Nowy Targ"})
        Tree->AddToDeque(0, text);
    Tree->SetCheckListBox();
    Tree->IncrementalSearch = isVisibleOnly;
    Tree->FocusedNode = Tree->NodeOfRow(0);
    Tree->SetFocus();
    Tree->Update();
    for (const WORD key : {VK_SPACE, VK_DOWN, VK_SPACE})
        PressKey(key);
    EXPECT_EQ(States().substr(0, 8), u"---xx---") << "the second space is no letter of a search";
    TypeText(u"qKR");
    EXPECT_EQ(Tree->NodeText(Tree->FocusedNode, 1), u"Krak\u00F3w") << "q finds nothing and is forgotten";
    PressKey(VK_SPACE);
    EXPECT_EQ(States().substr(0, 8), u"-x-xx---") << "no text goes on with a blank";
    TypeText(u"nowy");
    PressKey(VK_SPACE);
    TypeText(u"t");
    EXPECT_EQ(Tree->NodeText(Tree->FocusedNode, 1), u"Nowy Targ") << "some do";
    EXPECT_EQ(Tree->GetCheckListBox_CheckedCount(), 3);
    EXPECT_LT(asked, 100) << "a search asks for no nodes";
}

TEST_F(CheckListTest, RebuildingTellsOnlyWhatItChanges) {
    Tree->TreeOptions->SelectionOptions = Tree->TreeOptions->SelectionOptions + TVTSelectionOptions{toMultiSelect};
    for (const int row : {2, 4}) // Krakow, Legnica
        Choose(row);
    String told;
    Tree->OnChange = [&](auto...) { told += IntToStr(Tree->SelectedCount) + u" "; };
    Tree->OnFocusChanged = [&](auto*, TVirtualNode* node, auto) { told += node ? u"focus " : u"none "; };
    struct TStep {
        const char16_t* Phrase;
        const char16_t* Told;
    };
    for (const TStep& step : {TStep{u"k", u"1 none "}, TStep{u"kr", u""}, TStep{u"", u""}, TStep{u"Wa", u"0 "}}) {
        told.clear();
        Tree->SetFraza(step.Phrase);
        EXPECT_EQ(told, step.Told) << "items " << Tree->GetCheckListBox_FrazaVisibleCount();
        EXPECT_EQ(Tree->GetDequeItem(1).visible, Tree->GetFraza() != u"Wa") << "Krakow";
    }
    // A list that is filled again begins anew.
    Tree->SetFraza(u"");
    ClickHeader(0, true);
    Choose(2);
    told.clear();
    Tree->ClearDeque();
    for (const char16_t* text : {u"Lublin", u"Lw\u00F3w", u"\u0141\u00F3d\u017A"})
        Tree->AddToDeque(1, text);
    Tree->SetCheckListBox();
    EXPECT_EQ(told, u"0 none ");
    EXPECT_EQ(Column(0).CheckState, csUncheckedNormal);
    EXPECT_EQ(Column(1).Text, u"Cities: 0/3");
    // A handler that makes the list anew finds one list, not two.
    Choose(0);
    Tree->Update();
    Tree->OnChange = [&](auto...) { Tree->SetCheckListBox(); };
    Tree->OnFreeNode = [&](auto...) { Tree->SetFraza(u"l"); };
    Tree->SetFraza(u"lub");
    EXPECT_EQ(Rows(), (std::vector<String>{u"Lublin", u"Lw\u00F3w"}));
}

TEST_F(CheckListTest, SpaceOnSeveralRowsStaysWhereItIs) {
    Tree->TreeOptions->SelectionOptions = Tree->TreeOptions->SelectionOptions + TVTSelectionOptions{toMultiSelect};
    Tree->FocusedNode = Tree->NodeOfRow(1);
    Tree->SetFocus();
    PressKey('A', {ssCtrl});
    int focused = 0;
    Tree->OnFocusChanged = [&](auto...) { ++focused; };
    PressKey(VK_SPACE);
    EXPECT_EQ(States(), u"xxxxxxxx");
    EXPECT_EQ(Tree->FocusedNode, Tree->NodeOfRow(1));
    EXPECT_EQ(focused, 0);
    EXPECT_EQ(Column(1).Text, u"Cities: 8/8");
}

TEST_F(CheckListTest, BearsTextsOfAMegabyteAndHandlersThatRaise) {
    const String longText(1 << 20, u'x');
    for (const char16_t last : {u'c', u'A', u'b'})
        Tree->AddToDeque(0, longText + last);
    std::size_t longest = 0;
    Tree->OnGetText = [&](auto*, auto*, int, auto, String& text) { longest = std::max(longest, text.size()); };
    Tree->SetCheckListBox();
    Tree->OffsetY = -INT_MAX;
    Tree->Repaint();
    EXPECT_GT(longest, 5000u) << "they were painted";
    EXPECT_LE(longest, 10000u) << "as much of a text is copied for a cell as can show";
    String ends;
    for (const int row : {8, 9, 10})
        ends += Tree->NodeText(Tree->NodeOfRow(row), 1).back();
    EXPECT_EQ(ends, u"Abc");
    Tree->SetFraza(u"XB");
    EXPECT_EQ(Tree->GetCheckListBox_FrazaVisibleCount(), 1);
    Tree->OnChecked = [](auto...) { throw Exception(u"not this one"); };
    EXPECT_THROW(Tree->CheckListBox_SetChecked(csCheckedNormal), Exception);
    EXPECT_EQ(Column(0).CheckState, csCheckedNormal);
    EXPECT_EQ(Column(1).Text, u"Cities: 1/11");
}

TEST_F(CheckListTest, ShowsAPhraseFromItsBeginning) {
    for (int i = 0; i < 1000; ++i)
        Tree->AddToDeque(i, u"Nowy " + IntToStr(i));
    Tree->SetCheckListBox();
    Tree->OffsetY = -5000;
    Tree->SetFraza(u"nowy");
    EXPECT_EQ(Tree->OffsetY, 0);
    Tree->FocusedNode = Tree->NodeOfRow(500);
    const std::int64_t before = Tree->OffsetY;
    Tree->SetFraza(u"nowy ");
    EXPECT_EQ(Tree->OffsetY, before) << "the row with the focus stays in view";
}

TEST_F(CheckListTest, TurnedOnLateItIsAsLargeAsItsForm) {
    const int before = Form->PixelsPerInch;
    Form->PixelsPerInch = 144;
    Tree->CheckBoxStyle = true;
    Form->PixelsPerInch = before;
    const std::vector<int> sizes{Tree->Indent, static_cast<int>(Tree->DefaultNodeHeight), Tree->Header->Height,
                                 Column(0).Width, Column(0).MaxWidth};
    EXPECT_EQ(sizes, (std::vector{15, 24, 30, 56, 56}));
}

TEST_F(CheckListTest, TheSearchEditStaysInItsPlace) {
    TEdit before(Form.get());
    before.Parent = Form.get();
    before.TabOrder = 0;
    Tree->SearchEditVisible = true;
    TEdit& edit = *Tree->SearchEdit;
    const auto fits = [&](const char* when) {
        Application->ProcessMessages();
        Tree->Update();
        const TRect wanted = Bounds(Tree->Left + 1, Tree->Top + Tree->Header->Height + 2, Tree->Width - 2, edit.Height);
        EXPECT_EQ(edit.GetBoundsRect(), wanted) << when;
        const int rows = Tree->ClientToScreen({0, 0}).Y - Form->ClientToScreen({0, 0}).Y;
        EXPECT_NEAR(rows, wanted.Bottom + 2, 3) << when;
    };
    fits("at first");
    Tree->Header->Height = 40;
    fits("a higher header");
    Tree->Font->Size = 20;
    fits("the tree's own font");
    EXPECT_EQ(edit.Font->Size, 20);
    Form->ChangeScale(3, 2);
    fits("a scaled form");
    before.SetFocus();
    PressKey(VK_TAB);
    EXPECT_TRUE(edit.Focused());
    PressKey(VK_TAB);
    EXPECT_TRUE(Tree->Focused());

    // What a screen reader is told: the edit's name, the box for all and its action.
    const auto object = [](HWND window) {
        void* found = nullptr;
        AccessibleObjectFromWindow(window, static_cast<DWORD>(OBJID_CLIENT), __uuidof(IAccessible), &found);
        return static_cast<IAccessible*>(found);
    };
    VARIANT part{};
    part.vt = VT_I4;
    const auto said = [&](IAccessible* from, HRESULT (STDMETHODCALLTYPE IAccessible::*ask)(VARIANT, BSTR*)) {
        BSTR answer = nullptr;
        (from->*ask)(part, &answer);
        const String text = FromWide(answer);
        SysFreeString(answer);
        return text;
    };
    IAccessible* found = object(edit.Handle);
    EXPECT_EQ(said(found, &IAccessible::get_accName), u"Cities");
    found->Release();
    found = object(Tree->Handle);
    part.lVal = 1;
    EXPECT_EQ(said(found, &IAccessible::get_accName), u"Cities: 0/8");
    EXPECT_EQ(said(found, &IAccessible::get_accDefaultAction), u"Check");
    EXPECT_EQ(found->accDoDefaultAction(part), S_OK);
    EXPECT_EQ(States(), u"xxxxxxxx");
    found->Release();
}

TEST_F(CheckListTest, ThePhraseHoldsForItemsThatCome) {
    Tree->SetFraza(u"kra");
    ClickHeader(0, true);
    for (const char16_t* text : {u"Krasnystaw", u"Pozna\u0144"})
        Tree->AddToDeque(0, text);
    Tree->SetCheckListBox();
    EXPECT_EQ(Rows(), (std::vector<String>{u"Krak\u00F3w", u"Kramsk", u"Krasnystaw"}));
    EXPECT_FALSE(Tree->GetDequeItem(9).visible);
    EXPECT_EQ(Column(0).CheckState, csMixedNormal);
    ClickHeader(0, true);
    EXPECT_EQ(States(), u"-x---x--x-");
    Tree->ClearDeque();
    for (const char16_t* text : {u"Sopot", u"Kra\u015Bnik"})
        Tree->AddToDeque(0, text);
    ClickBox(0); // the row of an item that has gone
    EXPECT_EQ(States(), u"--");
    // What a handler of the rows that go raises leaves the list whole.
    Tree->Update();
    Tree->OnFreeNode = [](auto...) { throw Exception(u"not this one"); };
    EXPECT_THROW(Tree->SetCheckListBox(), Exception);
    Tree->OnFreeNode = nullptr;
    EXPECT_EQ(Rows(), (std::vector<String>{u"Kra\u015Bnik"}));
    EXPECT_EQ(Column(1).Text, u"Cities: 0/2");
}

TEST_F(CheckListTest, TheFocusComesBeforeTheCount) {
    String told;
    Tree->OnFocusChanged = [&](auto...) { told += Column(1).Text + u" focused "; };
    Tree->OnChecked = [&](auto...) { told += Column(1).Text + u" checked "; };
    ClickBox(1);
    EXPECT_EQ(told, u"Cities: 0/8 focused Cities: 1/8 checked ");
    Tree->OnFocusChanged = [&](auto...) { Tree->SetCheckListBox(); };
    ClickBox(2);
    EXPECT_EQ(States(), u"-x--x---");
    EXPECT_EQ(Tree->NodeOfRow(2)->GetCheckState(), csCheckedNormal) << "the row made anew by the handler";
}

TEST_F(CheckListTest, TheBoxForAllIsPressedOnPurpose) {
    struct TWatch {
        static void CALLBACK Heard(HWINEVENTHOOK, DWORD, HWND, LONG object, LONG child, DWORD, DWORD) {
            if (object == OBJID_CLIENT)
                Children() += IntToStr(child) + u" ";
        }
        static String& Children() {
            static String children;
            return children;
        }
    };
    const HWINEVENTHOOK hook = SetWinEventHook(EVENT_OBJECT_STATECHANGE, EVENT_OBJECT_STATECHANGE, nullptr,
                                               &TWatch::Heard, GetCurrentProcessId(), 0, WINEVENT_OUTOFCONTEXT);
    Tree->FocusedNode = Tree->NodeOfRow(0);
    Tree->SetFocus();
    PressKey(VK_SPACE, {ssCtrl});
    EXPECT_EQ(States(), u"xxxxxxxx") << "by the keyboard";
    EXPECT_TRUE(WaitFor([] { return TWatch::Children() == u"1 0 "; })) << "screen readers hear of header and rows";
    UnhookWinEvent(hook);
    ClickBox(0);
    const TRect cell = Tree->HeaderCellRect(0);
    PressMouse(Tree->ClientToScreen({cell.Left + 2, cell.Top + 10}));
    MoveMouse(Tree->ClientToScreen({Tree->CheckBoxLeft() + 6, cell.Top + 10}));
    ReleaseMouse();
    Application->ProcessMessages();
    EXPECT_EQ(States(), u"xxx-xxxx") << "a press beside the box is none on it";
    // Rows go into a spreadsheet without the column that has only boxes.
    Tree->Selected[Tree->NodeOfRow(0)] = true;
    Tree->CopyToClipboard();
    EXPECT_EQ(ClipboardText(Tree->Handle), u"Gda\u0144sk\r\n");

    const TAccessibleView view(*Tree);
    for (const bool readOnly : {true, false}) {
        if (readOnly)
            Tree->TreeOptions->MiscOptions = Tree->TreeOptions->MiscOptions + TVTMiscOptions{toReadOnly};
        else
            Tree->Enabled = false;
        ClickHeader(0, true);
        view->accDoDefaultAction(TAccessibleView::Number(1));
        view->accDoDefaultAction(TAccessibleView::Number(3));
        EXPECT_EQ(States(), u"xxx-xxxx") << readOnly;
        Tree->TreeOptions->MiscOptions = Tree->TreeOptions->MiscOptions - TVTMiscOptions{toReadOnly};
    }
}

TEST_F(CheckListTest, FormsKeepWhatWasMadeOfTheList) {
    RegisterVirtualTrees();
    RegisterClasses({&TForm::StaticClass(), &TZORVirtualStringTree::StaticClass()});
    const auto saved = [](TForm& form) { return WriteTextForm(SaveTextForm(form)); };
    const auto treeOf = [](TComponent& form) { return As<TZORVirtualStringTree>(form.FindComponent(u"Tree1")); };
    Form->Hide();
    Form->SetName(u"Form1");
    Tree->SetName(u"Tree1");
    Tree->ClearDeque();
    Tree->SetInfoLabelVisible(false);
    Tree->DefaultNodeHeight = 24;
    Tree->Indent = 18;
    Tree->Header->SortColumn = NoColumn;
    Tree->Header->SortDirection = sdDescending;
    Tree->Header->Options = Tree->Header->Options - TVTHeaderOptions{hoAutoResize};
    Tree->TreeOptions->SelectionOptions = {};
    Column(1).Width = 123;
    Column(1).Hint = u"towns";
    Tree->SetCheckListBox();
    const std::string text = saved(*Form);
    const auto again = CreateFromTextForm(text, nullptr);
    EXPECT_EQ(saved(static_cast<TForm&>(*again)), text);
    EXPECT_EQ(treeOf(*again)->Header->SortColumn, NoColumn);
    EXPECT_EQ(treeOf(*again)->Indent, 18);
    // A form that says no more than that it is a check list gets one.
    const auto plain = CreateFromTextForm("object Form1: TForm\n  object Tree1: TZORVirtualStringTree\n"
                                          "    DefaultNodeHeight = 30\n    CheckBoxStyle = True\n  end\nend\n",
                                          nullptr);
    EXPECT_EQ(treeOf(*plain)->Header->Columns->Count, 2);
    EXPECT_EQ(treeOf(*plain)->Header->SortColumn, 1);
}

TEST_F(CheckListTest, TheEditShowsWhereItIsOnAlsoInADesigner) {
    TForm form(nullptr);
    form.SetBounds(100, 100, 300, 200);
    form.SetDesigning(true);
    auto* tree = new TZORVirtualStringTree(&form);
    tree->SetBounds(10, 10, 250, 150);
    tree->Parent = &form;
    tree->CheckBoxStyle = true;
    form.Show();
    const auto shows = [&] {
        const TEdit* edit = tree->SearchEdit;
        const bool found = form.ControlAtPos({edit->Left + 50, edit->Top + 5}, true) == edit;
        EXPECT_EQ(found, IsWindowVisible(edit->Handle) != FALSE);
        return found;
    };
    EXPECT_FALSE(shows());
    tree->SearchEditVisible = true;
    tree->Visible = false; // which a designer shows all the same
    EXPECT_TRUE(shows());
    tree->BiDiMode = bdRightToLeft;
    EXPECT_EQ(tree->SearchEdit->BiDiMode, bdRightToLeft) << "the phrase begins where the rows do";
    tree->SearchEditVisible = false;
    EXPECT_FALSE(shows());
}

} // namespace
