// Push buttons and check boxes: all the ways to press them, and who Enter and Esc press.

#include "framework/windows/application.h"
#include "framework/windows/button.h"
#include "framework/windows/edit.h"
#include "framework/windows/panel.h"
#include "tests/support/input.h"

#include <gtest/gtest.h>

using namespace framework;
using namespace testsupport;

namespace {

class ButtonTest : public testing::Test {
protected:
    ButtonTest() {
        Panel.SetParent(Form.get());
        Panel.SetBounds(0, 100, 380, 100);
        Edit.SetParent(Form.get());
        Place(Ok, *Form, 40, u"&Ok");
        Place(Inner, Panel, 10, u"&Inner");
        Place(Cancel, Panel, 40, u"&Cancel");
        Edit.SetFocus();
    }

    void Place(TButton& button, TWinControl& parent, int top, const char16_t* caption) {
        button.SetParent(&parent);
        button.SetTop(top);
        button.SetText(caption);
        button.OnClick = [this](TObject* sender) { Clicked += static_cast<TButton*>(sender)->GetText(); };
    }
    String TakeClicked() { return std::exchange(Clicked, {}); }
    /// The captions of the buttons that look as if Enter would press them.
    String Highlighted() {
        String result;
        for (TButton* button : {&Ok, &Inner, &Cancel}) {
            if ((GetWindowLongPtrW(button->GetHandle(), GWL_STYLE) & BS_TYPEMASK) == BS_DEFPUSHBUTTON)
                result += button->GetText();
        }
        return result;
    }

    std::unique_ptr<TForm> Form = ShowForm();
    TPanel Panel{nullptr};
    TEdit Edit{nullptr};
    TButton Ok{nullptr};
    TButton Inner{nullptr};
    TButton Cancel{nullptr};
    String Clicked;
};

TEST_F(ButtonTest, IsPressedOnceInEveryWay) {
    Ok.SetModalResult(mrOk);
    struct TRow {
        const char* What;
        std::function<void()> Act;
        const char16_t* Clicked;
    };
    for (const TRow& row : {
             TRow{"mouse", [&] { ClickOn(Ok); }, u"&Ok"},
             TRow{"space",
                  [&] {
                      Ok.SetFocus();
                      PressKey(VK_SPACE);
                  },
                  u"&Ok"},
             TRow{"Enter on the focused one",
                  [&] {
                      Ok.SetFocus();
                      PressKey(VK_RETURN);
                  },
                  u"&Ok"},
             TRow{"accelerator", [&] { PressKey('O', {ssAlt}); }, u"&Ok"},
             TRow{"accelerator of a nested one", [&] { PressKey('I', {ssAlt}); }, u"&Inner"},
             TRow{"its letter typed into a field", [&] { TypeText(u"o"); }, u""},
             TRow{"its letter typed on another button",
                  [&] {
                      Inner.SetFocus();
                      PressKey('O');
                  },
                  u"&Ok"},
             TRow{"program", [&] { Ok.Click(); }, u"&Ok"},
             TRow{"released outside",
                  [&] {
                      PressMouse(Ok.ClientToScreen({5, 5}));
                      MoveMouse(Form->ClientToScreen({300, 80}));
                      ReleaseMouse();
                  },
                  u""},
             TRow{"disabled: accelerator",
                  [&] {
                      Ok.SetEnabled(false);
                      PressKey('O', {ssAlt});
                  },
                  u""},
             TRow{"disabled: mouse",
                  [&] {
                      ClickOn(Ok);
                      Ok.SetEnabled(true);
                  },
                  u""},
         }) {
        SCOPED_TRACE(row.What);
        Edit.SetFocus();
        Form->SetModalResult(mrNone);
        row.Act();
        EXPECT_EQ(TakeClicked(), row.Clicked);
        EXPECT_EQ(Form->GetModalResult(), row.Clicked == String(u"&Ok") ? mrOk : mrNone);
    }
}

TEST_F(ButtonTest, EnterAndEscFindTheirButtons) {
    Ok.SetDefault(true);
    Cancel.SetCancel(true);
    EXPECT_EQ(Highlighted(), u"&Ok");
    PressKey(VK_RETURN);
    EXPECT_EQ(TakeClicked(), u"&Ok");
    PressKey(VK_ESCAPE);
    EXPECT_EQ(TakeClicked(), u"&Cancel");
    PressKey(VK_RETURN, {ssShift});
    EXPECT_EQ(TakeClicked(), u"") << "a modified key means something else";
    Inner.SetFocus();
    EXPECT_EQ(Highlighted(), u"&Inner") << "a focused button takes Enter over";
    PressKey(VK_RETURN);
    EXPECT_EQ(TakeClicked(), u"&Inner");
    Edit.SetFocus();
    EXPECT_EQ(Highlighted(), u"&Ok");
    Ok.RecreateWnd();
    EXPECT_EQ(Highlighted(), u"&Ok");
    Ok.SetEnabled(false);
    PressKey(VK_RETURN);
    EXPECT_EQ(TakeClicked(), u"");
    Ok.SetDefault(false);
    EXPECT_EQ(Highlighted(), u"");
}

TEST_F(ButtonTest, DoesNotCountAPressWhileAFieldKeepsTheFocus) {
    Edit.OnExit = [this](TObject*) {
        Edit.SetFocus();
        throw EInvalidOperation(u"not yet");
    };
    int refusals = 0;
    TheApplication().OnException = [&](TObject*, const std::exception&) { ++refusals; };
    ClickOn(Ok);
    EXPECT_EQ(TakeClicked(), u"");
    EXPECT_EQ(refusals, 1);
    EXPECT_TRUE(Edit.Focused());
    Edit.OnExit = nullptr;
    TheApplication().OnException = nullptr;
    ClickOn(Ok);
    EXPECT_EQ(TakeClicked(), u"&Ok");
}

TEST_F(ButtonTest, MayDieInItsHandler) {
    auto* button = new TButton(nullptr);
    button->SetParent(Form.get());
    button->SetTop(70);
    button->OnClick = [](TObject* sender) { delete sender; };
    const int controls = Form->GetControlCount();
    ClickOn(*button);
    TheApplication().ProcessMessages();
    EXPECT_EQ(Form->GetControlCount(), controls - 1);
    EXPECT_NE(Form->GetFocusedControl(), button);
}

class CheckBoxTest : public ButtonTest {
protected:
    CheckBoxTest() {
        Box.SetParent(Form.get());
        Box.SetTop(70);
        Box.SetText(u"&Box");
        Box.OnClick = [this](TObject*) { ++Clicks; };
    }
    int TakeClicks() { return std::exchange(Clicks, 0); }
    LRESULT Shown() { return SendMessageW(Box.GetHandle(), BM_GETCHECK, 0, 0); }

    TCheckBox Box{nullptr};
    int Clicks = 0;
};

TEST_F(CheckBoxTest, GoesThroughItsStates) {
    struct TRow {
        const char* What;
        std::function<void()> Act;
        TCheckBoxState State;
        int Clicks;
    };
    for (const TRow& row : {
             TRow{"mouse", [&] { ClickOn(Box); }, cbChecked, 1},
             TRow{"space", [&] { PressKey(VK_SPACE); }, cbUnchecked, 1},
             TRow{"accelerator",
                  [&] {
                      Edit.SetFocus();
                      PressKey('B', {ssAlt});
                  },
                  cbChecked, 1},
             TRow{"program", [&] { Box.SetChecked(false); }, cbUnchecked, 1},
             TRow{"program, the same", [&] { Box.SetChecked(false); }, cbUnchecked, 0},
             TRow{"third state by program", [&] { Box.SetState(cbGrayed); }, cbGrayed, 1},
             TRow{"the user leaves it", [&] { PressKey(VK_SPACE); }, cbChecked, 1},
             TRow{"past the third state", [&] { PressKey(VK_SPACE); }, cbUnchecked, 1},
             TRow{"into the third state",
                  [&] {
                      Box.SetAllowGrayed(true);
                      PressKey(VK_SPACE);
                  },
                  cbGrayed, 1},
             TRow{"double click counts twice",
                  [&] {
                      ClickOn(Box);
                      ClickOn(Box);
                  },
                  cbUnchecked, 2},
         }) {
        SCOPED_TRACE(row.What);
        row.Act();
        EXPECT_EQ(Box.GetState(), row.State);
        EXPECT_EQ(Box.GetChecked(), row.State == cbChecked);
        EXPECT_EQ(Shown(), static_cast<LRESULT>(row.State));
        EXPECT_EQ(TakeClicks(), row.Clicks);
    }
    Box.SetState(cbGrayed);
    Box.RecreateWnd();
    EXPECT_EQ(Shown(), BST_INDETERMINATE);
}

} // namespace
