// The popup of extra letters as a person meets it: where it stands, when it goes, and what its letters do to the field.

#include "controls/Zormemo.h"
#include "framework/system/numbers.h"
#include "framework/windows/timer.h"
#include "tests/support/framededit.h"

namespace {

using namespace framework;
using namespace ZOR;
using namespace testsupport;

TEST_F(FramedEdit, F7TogglesThePopupUnderTheField) {
    std::vector<WORD> keysUp;
    Edit->OnKeyUp = [&](TObject*, WORD& key, TShiftState) { keysUp.push_back(key); };
    Edit->SetFocus();
    PressKey(VK_F7);
    ASSERT_TRUE(WaitFor([&] { return Edit->GetExtraSignsForm() && Edit->GetExtraSignsForm()->Showing; }));
    Textrasignsfrm& popup = *Edit->GetExtraSignsForm();
    EXPECT_TRUE(Edit->Focused()) << "the popup takes neither focus nor activation";
    EXPECT_EQ(GetForegroundWindow(), Form->Handle);
    RECT field{};
    GetWindowRect(Edit->Handle, &field);
    EXPECT_EQ(popup.BoundsRect, Bounds(field.left, field.bottom, 144, 96));

    Edit->Left = 60;
    Application->ProcessMessages();
    EXPECT_EQ(popup.Left, field.left - 90) << "the popup stays under the field";
    PressKey(VK_F7);
    ASSERT_TRUE(WaitFor([&] { return !popup.Visible; }));
    PressKey('A');
    ASSERT_TRUE(WaitFor([&] { return !keysUp.empty(); }));
    EXPECT_EQ(keysUp, std::vector<WORD>{'A'}) << "F7 belongs to the popup";

    PressKey(VK_F7);
    ASSERT_TRUE(WaitFor([&] { return popup.Visible; }));
    Leave();
    EXPECT_FALSE(popup.Visible) << "left";
}

TEST_F(FramedEdit, ThePopupGoesWhereItsFieldGoes) {
    Edit->screenKeyboard();
    Textrasignsfrm& popup = *Edit->GetExtraSignsForm();
    const TPoint place{popup.Left, popup.Top};
    Form->SetBounds(Form->Left + 30, Form->Top + 50, Form->Width, Form->Height);
    EXPECT_TRUE(WaitFor([&] { return popup.Left == place.X + 30 && popup.Top == place.Y + 50; }));

    const struct {
        const char* Name;
        std::function<void()> Away;
        std::function<void()> Back;
    } rows[] = {
        {"minimised", [&] { Form->WindowState = wsMinimized; }, [&] { Form->WindowState = wsNormal; }},
        {"closed", [&] { Form->Close(); }, [&] { ShowAndActivate(*Form); }},
        {"hidden", [&] { Edit->Visible = false; }, [&] { Edit->Visible = true; }},
        {"disabled", [&] { Edit->Enabled = false; }, [&] { Edit->Enabled = true; }},
        {"read-only", [&] { Edit->ReadOnly = true; }, [&] { Edit->ReadOnly = false; }},
        {"taken away", [&] { Edit->Parent = nullptr; }, [&] { Edit->Parent = Form.get(); }},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.Name);
        row.Away();
        EXPECT_TRUE(WaitFor([&] { return !popup.Showing; }));
        row.Back();
        Edit->screenKeyboard();
        EXPECT_TRUE(popup.Showing) << "and comes back when asked for";
    }
    Form->BorderStyle = bsDialog; // which makes all windows anew
    RECT field{};
    GetWindowRect(Edit->Handle, &field);
    EXPECT_TRUE(WaitFor([&] { return popup.Showing && popup.Left == field.left && popup.Top == field.bottom; }));
    EXPECT_TRUE(IsWindowVisible(popup.Handle));
    TForm another(nullptr);
    another.Show();
    Edit->Parent = &another;
    WaitFor([&] { return GetWindow(popup.Handle, GW_OWNER) == another.Handle; });
    EXPECT_EQ(GetWindow(popup.Handle, GW_OWNER), another.Handle);
    Edit->Parent = Form.get();
}

TEST_F(FramedEdit, ThePopupOfAModalFormTakesTheMouseEachTime) {
    TForm dialog(nullptr);
    TZOREdit field(&dialog);
    field.Parent = &dialog;
    int checked = 0;
    TTimer timer(nullptr);
    timer.Interval = 10;
    timer.OnTimer = [&](TObject*) {
        field.screenKeyboard();
        checked += field.GetExtraSignsForm()->Showing && IsWindowEnabled(field.GetExtraSignsForm()->Handle) ? 1 : 0;
        timer.Enabled = false;
        dialog.ModalResult = mrOk;
    };
    for (int round = 1; round <= 2; ++round) {
        timer.Enabled = true;
        dialog.ShowModal();
        EXPECT_EQ(checked, round);
        EXPECT_TRUE(WaitFor([&] { return !field.GetExtraSignsForm()->Visible; }));
    }
}

TEST_F(FramedEdit, ReadOnlyAndDisabledFieldsIgnoreF7) {
    Edit->ReadOnly = true;
    Edit->SetFocus();
    PressKey(VK_F7);
    Application->ProcessMessages();
    Edit->ReadOnly = false;
    Edit->Enabled = false;
    Edit->screenKeyboard();
    EXPECT_EQ(Edit->GetExtraSignsForm(), nullptr);
}

TEST_F(FramedEdit, SignsGoInAtTheSelectionWithOneChangeEach) {
    int changes = 0;
    Edit->Text = u"abc";
    Edit->MaxLength = 5;
    Edit->OnChange = [&](TObject*) { ++changes; };
    Edit->SetFocus();
    Edit->SelStart = 3;
    Edit->screenKeyboard();
    ASSERT_TRUE(WaitFor([&] { return Edit->GetExtraSignsForm()->Showing; }));
    ClickSign(*Edit, u'č');
    EXPECT_EQ(Edit->Text, u"abcč");
    EXPECT_EQ(Edit->SelStart, 4);
    EXPECT_EQ(changes, 1);
    EXPECT_TRUE(Edit->Focused());
    Edit->SelStart = 0;
    ClickSign(*Edit, u'ž', {ssShift});
    EXPECT_EQ(Edit->Text, u"Žabcč");
    ClickSign(*Edit, u'ß');
    EXPECT_EQ(Edit->Text, u"Žabcč") << "full";
    Edit->MaxLength = 6;
    Edit->SelStart = 1;
    Edit->SelLength = 3;
    ClickSign(*Edit, u'ß', {ssShift});
    EXPECT_EQ(Edit->Text, u"Žßabcč") << "the new limit holds, the selected text stays";
    EXPECT_EQ(Edit->SelLength, 0);
    EXPECT_EQ(changes, 3);
}

TEST_F(FramedEdit, SignsAreThePersonsDoingAndComeInSight) {
    TZORMemo memo(nullptr);
    memo.Parent = Form.get();
    memo.SetBounds(10, 130, 150, 90);
    for (int i = 0; i < 100; ++i)
        memo.Lines->Add(u"line " + IntToStr(i));
    Edit->Text = String(300, u'm');
    const auto insert = [&](auto& field, int at) {
        field.SetFocus();
        field.Modified = false;
        field.SelStart = at;
        const LRESULT shown = SendMessageW(field.Handle, EM_GETFIRSTVISIBLELINE, 0, 0);
        field.screenKeyboard();
        bool inSight = false;
        field.OnChange = [&](TObject*) {
            const TPoint caret = PointFromLParam(SendMessageW(field.Handle, EM_POSFROMCHAR, field.SelStart - 1, 0));
            inSight = field.GetClientRect().Contains(caret);
        };
        ClickSign(field, u'č');
        EXPECT_TRUE(field.Modified) << "hosts save what is modified";
        EXPECT_TRUE(inSight) << "when the change is told";
        if (field.ClassInfo().InheritsFrom(TZORMemo::StaticClass()))
            EXPECT_EQ(SendMessageW(field.Handle, EM_GETFIRSTVISIBLELINE, 0, 0), shown) << "nothing jumps";
    };
    insert(*Edit, 250);
    insert(memo, memo.GetTextLen() / 2);
}

TEST_F(FramedEdit, ThePopupIsOutOfSightWhileThePersonIsElsewhere) {
    Edit->SetFocus();
    Edit->screenKeyboard();
    Textrasignsfrm& popup = *Edit->GetExtraSignsForm();
    const auto inSight = [&] { return IsWindowVisible(popup.Handle) != FALSE; };
    ASSERT_TRUE(WaitFor(inSight));
    TForm another(nullptr);
    ShowAndActivate(another);
    EXPECT_TRUE(WaitFor([&] { return !inSight(); })) << "it would lie above the other window";
    another.Hide();
    SetForegroundWindow(Form->Handle);
    EXPECT_TRUE(WaitFor(inSight)) << "the field was not left";
    ClickSign(*Edit, u'č');
    EXPECT_EQ(Edit->Text, u"č");

    TForm hidden(nullptr);
    Edit->Parent = &hidden;
    int shown = 0;
    popup.OnShow = [&](TObject*) { ++shown; };
    Edit->screenKeyboard();
    EXPECT_EQ(shown, 0) << "there is no field to stand under";
    Edit->Parent = Form.get();
}

TEST_F(FramedEdit, APopupOutlivesTheDeathOfItsTarget) {
    Textrasignsfrm popup;
    popup.PopUp(*Edit);
    delete Edit;
    popup.Perform(WM_LBUTTONDOWN, MK_LBUTTON, PointToLParam({10, 10}));
    popup.Perform(WM_LBUTTONUP, 0, PointToLParam({10, 10}));
    popup.FollowTarget();
    EXPECT_TRUE(WaitFor([&] { return !popup.Visible; })) << "there is nothing to write into";
}

} // namespace
