// Forms: focus and its keys, layout and scaling, closing, modal loops, and windows that are made anew.

#include "framework/windows/application.h"
#include "framework/windows/button.h"
#include "framework/windows/edit.h"
#include "framework/windows/panel.h"
#include "framework/windows/timer.h"
#include "tests/support/handlecount.h"
#include "tests/support/input.h"

#include <gtest/gtest.h>

namespace {

using namespace framework;
using namespace testsupport;

class Forms : public testing::Test {
protected:
    void SetUp() override { Form = ShowForm(); }
    void TearDown() override {
        Form.reset();
        Application->ProcessMessages();
    }
    template <class T>
    T* Add(TWinControl* parent, const TRect& place, const String& name) {
        auto* control = new T(Form.get());
        control->Parent = parent;
        control->BoundsRect = place;
        control->Name = name;
        control->OnEnter = [this, name](TObject*) { Log += u"+" + name; };
        control->OnExit = [this, name](TObject*) { Log += u"-" + name; };
        return control;
    }
    String TakeLog() { return std::exchange(Log, {}); }

    std::unique_ptr<TForm> Form;
    String Log;
};

TEST_F(Forms, TabWalksInTabOrderThroughContainers) {
    auto* first = Add<TEdit>(Form.get(), Bounds(10, 10, 80, 21), u"A");
    auto* panel = Add<TPanel>(Form.get(), Bounds(10, 40, 200, 60), u"P");
    auto* inner = Add<TEdit>(panel, Bounds(10, 10, 80, 21), u"B");
    auto* last = Add<TEdit>(Form.get(), Bounds(10, 120, 80, 21), u"C");
    auto* skipped = Add<TEdit>(Form.get(), Bounds(10, 150, 80, 21), u"D");
    skipped->TabStop = false;
    auto* disabled = Add<TEdit>(Form.get(), Bounds(10, 180, 80, 21), u"E");
    disabled->Enabled = false;
    last->TabOrder = 0;
    last->SetFocus();
    TakeLog();
    for (TWinControl* expected : std::initializer_list<TWinControl*>{first, inner, last, first}) {
        PressKey(VK_TAB);
        ASSERT_TRUE(WaitFor([&] { return expected->Focused(); }));
    }
    EXPECT_EQ(TakeLog(), u"-C+A-A+P+B-B-P+C-C+A") << "a container is entered before and left after what is in it";
    PressKey(VK_TAB, {ssShift});
    EXPECT_TRUE(WaitFor([&] { return last->Focused(); }));
    EXPECT_EQ(Form->ActiveControl, last);
}

TEST_F(Forms, FocusStaysWhereAHandlerSendsIt) {
    auto* first = Add<TEdit>(Form.get(), Bounds(10, 10, 80, 21), u"A");
    auto* second = Add<TEdit>(Form.get(), Bounds(10, 40, 80, 21), u"B");
    first->SetFocus();
    first->OnExit = [&](TObject*) { first->SetFocus(); }; // as a check that does not let go
    PressKey(VK_TAB);
    Application->ProcessMessages();
    EXPECT_TRUE(first->Focused());
    EXPECT_EQ(Form->ActiveControl, first);
    first->OnExit = nullptr;
    PressKey(VK_TAB);
    EXPECT_TRUE(WaitFor([&] { return second->Focused(); }));
}

TEST_F(Forms, WhatThrowsAsTheFocusMovesOrAControlDiesIsReported) {
    auto* first = Add<TEdit>(Form.get(), Bounds(10, 10, 80, 21), u"A");
    auto* second = Add<TEdit>(Form.get(), Bounds(10, 40, 80, 21), u"B");
    first->SetFocus();
    TakeLog();
    int reported = 0;
    Application->OnException = [&](TObject*, const std::exception&) { ++reported; };
    TScreen& screen = TheScreen();
    screen.OnActiveControlChange = [](TObject*) { throw Exception(u"from the handler"); };
    second->SetFocus();
    EXPECT_EQ(TakeLog(), u"-A+B") << "both hear of it all the same";
    EXPECT_EQ(reported, 1);
    delete second;
    EXPECT_TRUE(first->Focused());
    screen.OnActiveControlChange = nullptr;

    TForm unseen(nullptr);
    auto bar = std::make_unique<TPanel>(nullptr);
    TPanel rest(nullptr);
    bar->Parent = &unseen;
    bar->Align = alTop;
    rest.Parent = &unseen;
    rest.Align = alClient;
    rest.OnResize = [](TObject*) { throw Exception(u"from the layout"); };
    reported = 0;
    bar.reset();
    EXPECT_EQ(reported, 1);
    EXPECT_EQ(unseen.ControlCount, 1);
    Application->OnException = nullptr;
}

TEST_F(Forms, MayBeLeftWithoutAnActiveControl) {
    auto* edit = Add<TEdit>(Form.get(), Bounds(10, 10, 80, 21), u"A");
    Add<TEdit>(Form.get(), Bounds(10, 40, 80, 21), u"B")->SetFocus();
    TakeLog();
    Form->ActiveControl = nullptr;
    EXPECT_TRUE(Form->Focused());
    EXPECT_EQ(Form->ActiveControl, nullptr);
    EXPECT_EQ(TakeLog(), u"-B") << "the field was left";
    PressKey(VK_TAB);
    EXPECT_TRUE(WaitFor([&] { return edit->Focused(); }));
    EXPECT_EQ(TakeLog(), u"+A");
}

TEST_F(Forms, HidingDisablingOrRemovingTheFocusedControlMovesOn) {
    auto* first = Add<TEdit>(Form.get(), Bounds(10, 10, 80, 21), u"A");
    auto* second = Add<TEdit>(Form.get(), Bounds(10, 40, 80, 21), u"B");
    auto* third = Add<TEdit>(Form.get(), Bounds(10, 70, 80, 21), u"C");
    first->SetFocus();
    first->Visible = false;
    EXPECT_TRUE(second->Focused());
    second->Enabled = false;
    EXPECT_TRUE(third->Focused());
    auto* panel = Add<TPanel>(Form.get(), Bounds(10, 100, 200, 60), u"P");
    auto* inner = Add<TEdit>(panel, Bounds(10, 10, 80, 21), u"D");
    Add<TEdit>(panel, Bounds(100, 10, 80, 21), u"E");
    inner->SetFocus();
    panel->Parent = nullptr;
    EXPECT_TRUE(third->Focused()) << "not the next one on a panel that goes";
    delete third;
    EXPECT_EQ(Form->ActiveControl, nullptr);
    EXPECT_TRUE(Form->Focused()) << "the form goes on hearing keys";
    EXPECT_THROW(first->SetFocus(), EInvalidOperation);
}

TEST_F(Forms, KeyPreviewSeesKeysFirstAndMaySwallowThem) {
    auto* edit = Add<TEdit>(Form.get(), Bounds(10, 10, 80, 21), u"A");
    edit->SetFocus();
    Form->KeyPreview = true;
    Form->OnKeyPress = [](TObject*, char16_t& key) {
        if (key == u'x')
            key = 0;
        if (key == u'y')
            key = u'z';
    };
    TypeText(u"axyb");
    EXPECT_TRUE(WaitFor([&] { return edit->Text == u"azb"; }));
}

TEST_F(Forms, AnchorsAndAlignmentFollowTheForm) {
    auto* right = Add<TEdit>(Form.get(), Bounds(10, 50, 100, 21), u"A");
    right->Anchors = {akLeft, akTop, akRight};
    auto* corner = Add<TButton>(Form.get(), Bounds(200, 200, 75, 25), u"B");
    corner->Anchors = {akRight, akBottom};
    auto* bar = Add<TPanel>(Form.get(), Bounds(0, 0, 10, 30), u"C");
    bar->Align = alTop;
    const TRect client = Form->ClientRect;
    EXPECT_EQ(bar->BoundsRect, Bounds(0, 0, client.Right, 30));
    Form->Width = Form->Width + 60;
    Form->Height = Form->Height - 20;
    Application->ProcessMessages();
    EXPECT_EQ(right->Width, 160);
    EXPECT_EQ(corner->BoundsRect, Bounds(260, 180, 75, 25));
    EXPECT_EQ(bar->Width, client.Right + 60);
    Form->ClientWidth = client.Right;
    Form->ClientHeight = client.Bottom;
    EXPECT_EQ(right->Width, 100) << "back where it was designed";
    EXPECT_EQ(corner->BoundsRect, Bounds(200, 200, 75, 25));
    Form->Constraints->MinWidth = 300;
    Form->Width = 100;
    EXPECT_EQ(Form->Width, 300);
}

TEST_F(Forms, AFormOnAFormIsOneOfItsControls) {
    auto* outside = Add<TEdit>(Form.get(), Bounds(10, 250, 80, 21), u"A");
    TForm inner(nullptr);
    inner.BorderStyle = framework::bsNone;
    inner.ClientWidth = 200;
    inner.ClientHeight = 100;
    auto* bar = Add<TPanel>(&inner, Bounds(0, 0, 50, 20), u"P");
    bar->Align = alBottom;
    auto* inside = Add<TEdit>(&inner, Bounds(10, 10, 80, 21), u"B");
    inside->Anchors = {akTop, akRight};
    // It is laid out as it gets its new size, long before it has a window.
    inner.SetBounds(0, 0, 300, 140);
    EXPECT_EQ(bar->BoundsRect, Bounds(0, 120, 300, 20));
    EXPECT_EQ(inside->Left, 110);
    inner.Parent = Form.get();
    inner.Visible = true;

    EXPECT_EQ(GetParentForm(inside), Form.get());
    outside->SetFocus();
    TakeLog();
    inside->SetFocus();
    EXPECT_EQ(Form->ActiveControl, inside);
    EXPECT_EQ(Screen->ActiveForm, Form.get());
    outside->SetFocus();
    EXPECT_EQ(TakeLog(), u"-A+B-B+A") << "who leaves the inner form leaves its control";
    inner.Parent = nullptr;
}

TEST_F(Forms, ScalesToItsMonitor) {
    auto* edit = Add<TEdit>(Form.get(), Bounds(10, 20, 100, 21), u"A");
    edit->AutoSize = false;
    auto* own = Add<TEdit>(Form.get(), Bounds(10, 60, 100, 30), u"B");
    own->AutoSize = false;
    own->Font->Height = -20;
    const int designed = Form->PixelsPerInch;
    const int fontHeight = Form->Font->Height;
    RECT suggested{50, 50, 50 + 800, 50 + 600};
    const auto scaleTo = [&](int dpi) {
        SendMessageW(Form->Handle, WM_DPICHANGED, static_cast<WPARAM>(MAKELONG(dpi, dpi)),
                     reinterpret_cast<LPARAM>(&suggested));
    };
    scaleTo(designed * 2);
    EXPECT_EQ(edit->BoundsRect, Bounds(20, 40, 200, 42));
    EXPECT_EQ(Form->Font->Height, fontHeight * 2);
    EXPECT_EQ(edit->Font->Height, fontHeight * 2) << "a font that follows the parent's is scaled once";
    EXPECT_TRUE(edit->ParentFont);
    EXPECT_EQ(own->Font->Height, -40);
    EXPECT_EQ(Form->BoundsRect, FromWin(suggested));
    scaleTo(designed);
    EXPECT_EQ(edit->BoundsRect, Bounds(10, 20, 100, 21));
    EXPECT_EQ(own->Font->Height, -20);
}

TEST_F(Forms, ModalFormsDisableTheOthersAndReturnTheirResult) {
    TForm dialog(nullptr);
    auto* ok = new TButton(&dialog);
    ok->Parent = &dialog;
    ok->ModalResult = mrYes;
    bool mainDisabled = false;
    TTimer timer(nullptr);
    timer.Interval = 20;
    timer.OnTimer = [&](TObject*) {
        timer.Enabled = false;
        mainDisabled = !IsWindowEnabled(Form->Handle);
        ok->Click();
    };
    EXPECT_EQ(dialog.ShowModal(), mrYes);
    EXPECT_TRUE(mainDisabled);
    EXPECT_TRUE(IsWindowEnabled(Form->Handle));
    EXPECT_FALSE(dialog.Visible);

    timer.OnTimer = [&](TObject*) {
        timer.Enabled = false;
        dialog.Hide();
    };
    timer.Enabled = true;
    EXPECT_EQ(dialog.ShowModal(), mrCancel) << "a hidden dialog would leave the program disabled for good";
    EXPECT_TRUE(IsWindowEnabled(Form->Handle));
}

TEST_F(Forms, ClosingDoesWhatTheHandlerSays) {
    auto other = std::make_unique<TForm>(nullptr);
    other->Show();
    other->OnClose = [](TObject*, TCloseAction& action) { action = caNone; };
    other->Close();
    EXPECT_TRUE(other->Visible);
    other->OnClose = nullptr;
    other->OnCloseQuery = [](TObject*, bool& canClose) { canClose = false; };
    EXPECT_EQ(SendMessageW(other->Handle, WM_QUERYENDSESSION, 0, 0), FALSE) << "unsaved work when the user logs off";
    other->OnCloseQuery = nullptr;
    SendMessageW(other->Handle, WM_CLOSE, 0, 0);
    EXPECT_FALSE(other->Visible);
    other->Show();
    TForm* freed = other.release();
    bool destroyed = false;
    freed->OnClose = [](TObject*, TCloseAction& action) { action = caFree; };
    freed->OnDestroy = [&](TObject*) { destroyed = true; };
    freed->Close();
    EXPECT_FALSE(destroyed) << "its handlers may still be running";
    Application->ProcessMessages();
    EXPECT_TRUE(destroyed);
}

TEST_F(Forms, LaterChildrenLieAboveEarlierOnes) {
    auto* below = Add<TPanel>(Form.get(), Bounds(10, 10, 80, 80), u"A");
    auto* above = Add<TPanel>(Form.get(), Bounds(50, 50, 80, 80), u"B");
    below->Color = 0x0000FF;
    above->Color = 0x00FF00;
    const TPoint overlap = Form->ClientToScreen({70, 70});
    EXPECT_EQ(WindowFromPoint({overlap.X, overlap.Y}), above->Handle);
    Form->RecreateWnd();
    Application->ProcessMessages();
    EXPECT_EQ(WindowFromPoint({overlap.X, overlap.Y}), above->Handle) << "windows made all at once";
    below->BringToFront();
    EXPECT_EQ(WindowFromPoint({overlap.X, overlap.Y}), below->Handle);
}

TEST_F(Forms, LeaveNothingBehind) {
    ExpectSteadyHandles(200, [] {
        TForm form(nullptr);
        auto* panel = new TPanel(&form);
        panel->Parent = &form;
        auto* edit = new TEdit(&form);
        edit->Parent = panel;
        edit->Font->Style = {fsItalic};
        form.Show();
        form.Update();
        panel->RecreateWnd();
    });
}

} // namespace
