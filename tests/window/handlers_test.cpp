// What hosts do in their handlers: free things, throw, run message loops, move the focus, make windows anew. The
// controls must come out of it whole.

#include "framework/system/formloader.h"
#include "framework/windows/application.h"
#include "framework/windows/button.h"
#include "framework/windows/edit.h"
#include "framework/windows/label.h"
#include "framework/windows/panel.h"
#include "framework/windows/standardcontrols.h"
#include "framework/windows/timer.h"
#include "tests/support/input.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace {

using namespace framework;
using namespace testsupport;

class Handlers : public testing::Test {
protected:
    void SetUp() override {
        Form = ShowForm();
        Application->OnException = [this](TObject*, const std::exception&) { ++Reported; };
    }
    void TearDown() override {
        Form.reset();
        Application->ProcessMessages();
        Application->OnException = nullptr;
    }
    template <class T>
    T* Add(TWinControl* parent, const TRect& place) {
        auto* control = new T(Form.get());
        control->Parent = parent;
        control->BoundsRect = place;
        return control;
    }

    std::unique_ptr<TForm> Form;
    int Reported = 0; // exceptions that left a handler
};

// Layout

TEST_F(Handlers, LayoutSurvivesWhatTheyDoOnResize) {
    auto* first = Add<TPanel>(Form.get(), Bounds(0, 0, 50, 20));
    auto* second = Add<TPanel>(Form.get(), Bounds(0, 20, 50, 20));
    auto* rest = Add<TPanel>(Form.get(), Bounds(0, 40, 50, 50));
    first->Align = alTop;
    second->Align = alTop;
    rest->Align = alClient;

    first->OnResize = [](TObject*) { throw EConvertError(u"no room"); };
    Form->Width = Form->Width + 30;
    Application->ProcessMessages();
    EXPECT_GT(Reported, 0);
    first->OnResize = nullptr;
    Form->Width = Form->Width + 30;
    Application->ProcessMessages();
    EXPECT_EQ(rest->Width, Form->ClientWidth) << "an exception must not switch the layout off for good";

    first->OnResize = [&](TObject*) { second->Visible = false; };
    Form->Width = Form->Width + 30;
    Application->ProcessMessages();
    EXPECT_EQ(rest->Top, 20) << "what a handler asks for during the layout is done after it";

    first->OnResize = [&](TObject*) {
        delete rest;
        rest = nullptr;
        first->OnResize = nullptr;
    };
    Form->Width = Form->Width + 30;
    Application->ProcessMessages();
    EXPECT_EQ(rest, nullptr);
    EXPECT_EQ(first->Width, Form->ClientWidth);
}

// Windows and objects that go

TEST_F(Handlers, AControlMayDieOnItsWayToAnotherParent) {
    auto* edit = Add<TEdit>(Form.get(), Bounds(10, 10, 80, 21));
    auto* next = Add<TEdit>(Form.get(), Bounds(10, 40, 80, 21));
    auto* panel = Add<TPanel>(Form.get(), Bounds(10, 70, 80, 40));
    edit->SetFocus();
    next->OnEnter = [&](TObject*) { delete std::exchange(edit, nullptr); };
    edit->Parent = panel;
    EXPECT_EQ(edit, nullptr);
    EXPECT_EQ(panel->ControlCount, 0);
    EXPECT_TRUE(next->Focused());
}

TEST_F(Handlers, MayMakeTheWindowAnewAgainAndAgain) {
    auto* edit = Add<TEdit>(Form.get(), Bounds(10, 10, 80, 21));
    edit->SetFocus();
    int changes = 0;
    edit->OnChange = [&](TObject*) {
        ++changes;
        const HWND before = edit->Handle;
        edit->Alignment = edit->Alignment == taLeftJustify ? taRightJustify : taLeftJustify;
        EXPECT_TRUE(IsWindow(before)) << "its native procedure is still running";
    };
    for (char16_t character : StringView(u"abcdefgh"))
        TypeText({&character, 1});
    EXPECT_TRUE(WaitFor([&] { return changes == 8; }));
    EXPECT_EQ(edit->Text, u"abcdefgh");
    EXPECT_TRUE(edit->Focused());
}

TEST_F(Handlers, ReleaseWaitsForEveryHandlerOfTheForm) {
    auto* doomed = new TForm(nullptr);
    auto* panel = new TPanel(doomed);
    panel->Parent = doomed;
    bool destroyed = false;
    bool aliveInHandler = false;
    doomed->OnDestroy = [&](TObject*) { destroyed = true; };
    panel->OnMouseDown = [&](TObject*, TMouseButton, TShiftState, int, int) {
        doomed->Release();
        Application->ProcessMessages();
        aliveInHandler = !destroyed;
    };
    ShowAndActivate(*doomed);
    ClickOn(*panel);
    EXPECT_TRUE(WaitFor([&] { return destroyed; }));
    EXPECT_TRUE(aliveInHandler);
}

TEST_F(Handlers, FormsReleasedWhileADialogIsOpenGoAtOnce) {
    auto* button = Add<TButton>(Form.get(), Bounds(10, 10, 80, 25));
    auto* doomed = new TForm(nullptr);
    bool destroyed = false;
    bool destroyedInDialog = false;
    doomed->OnDestroy = [&](TObject*) { destroyed = true; };
    TForm dialog(nullptr);
    TTimer timer(nullptr);
    timer.Enabled = false;
    timer.Interval = 10;
    dialog.OnShow = [&](TObject*) { timer.Enabled = true; };
    int ticks = 0;
    timer.OnTimer = [&](TObject*) {
        if (++ticks == 1)
            doomed->Release();
        else if (destroyed || ticks > 50) {
            destroyedInDialog = destroyed;
            timer.Enabled = false;
            dialog.ModalResult = mrOk;
        }
    };
    button->OnClick = [&](TObject*) { dialog.ShowModal(); };
    ClickOn(*button);
    EXPECT_TRUE(WaitFor([&] { return ticks > 1 && !dialog.Visible; }));
    EXPECT_TRUE(destroyedInDialog);
}

class TOwnedForm : public TForm {
    FRAMEWORK_CLASS(TOwnedForm)

public:
    explicit TOwnedForm(TComponent* owner) : TForm(owner) {
        OnDestroy = [this](TObject*) { FLog = &ClassInfo() == &StaticClass() ? u"whole" : u"half gone"; };
    }
    static String FLog;
};
String TOwnedForm::FLog;
const TClassInfo& TOwnedForm::StaticClass() {
    static const TClassInfo info = DescribeClass<TOwnedForm>(u"TOwnedForm", TForm::StaticClass());
    return info;
}

TEST(OnDestroy, ComesWhileTheFormsOwnClassIsStillThere) {
    {
        TComponent owner(nullptr);
        new TOwnedForm(&owner);
    }
    EXPECT_EQ(std::exchange(TOwnedForm::FLog, {}), u"whole") << "freed by its owner";
    (new TOwnedForm(nullptr))->Release();
    Application->ProcessMessages();
    EXPECT_EQ(TOwnedForm::FLog, u"whole") << "released";
}

TEST_F(Handlers, AnotherMainWindowKeepsTheContentOfTheOtherForms) {
    Application->SetMainForm(Form.get());
    TForm other(nullptr);
    auto* edit = new TEdit(&other);
    edit->Parent = &other;
    other.Show();
    edit->Text = u"wpisane";
    const HWND window = other.Handle;
    Form->BorderStyle = bsDialog;
    Application->ProcessMessages();
    EXPECT_TRUE(IsWindow(window) && IsWindowVisible(window));
    EXPECT_EQ(edit->Text, u"wpisane");
    EXPECT_EQ(GetWindow(other.Handle, GW_OWNER), Form->Handle) << "it lies above the new main window as before";
}

// Exceptions

TEST_F(Handlers, FaultyPaintingIsReportedOnceUntilItWorksAgain) {
    bool faulty = true;
    int paints = 0;
    Form->OnPaint = [&](TObject*) {
        ++paints;
        if (faulty)
            throw EConvertError(u"no picture");
    };
    const auto repaint = [&] {
        const int before = paints;
        Form->Invalidate();
        EXPECT_TRUE(WaitFor([&] { return paints > before; }));
    };
    repaint();
    repaint();
    EXPECT_EQ(Reported, 1) << "the message that lay above the form makes it paint again";
    faulty = false;
    repaint();
    faulty = true;
    repaint();
    EXPECT_EQ(Reported, 2);
}

TEST_F(Handlers, AFormWhoseOnShowFailsCanBeShownLater) {
    TForm other(nullptr);
    other.OnShow = [](TObject*) { throw EConvertError(u"not yet"); };
    EXPECT_THROW(other.Show(), EConvertError);
    EXPECT_FALSE(other.Visible);
    other.OnShow = nullptr;
    other.Show();
    EXPECT_TRUE(IsWindowVisible(other.Handle));
}

TEST_F(Handlers, AnExceptionHandlerThatFailsIsNotTheEndOfTheProgram) {
    auto* edit = Add<TEdit>(Form.get(), Bounds(10, 10, 80, 21));
    edit->OnChange = [](TObject*) { throw EConvertError(u"first"); };
    Application->OnException = [&](TObject*, const std::exception&) {
        ++Reported;
        throw EAbort();
    };
    edit->Text = u"x";
    EXPECT_EQ(Reported, 1);
}

TEST_F(Handlers, ATimerRestsWhileItsExceptionIsShown) {
    TTimer timer(nullptr);
    timer.Interval = 10;
    timer.OnTimer = [](TObject*) { throw EConvertError(u"again"); };
    int deepest = 0;
    int depth = 0;
    Application->OnException = [&](TObject*, const std::exception&) {
        deepest = std::max(deepest, ++depth);
        WaitFor([&] { return depth > 1; }, 100); // as the message box does, which handles messages
        --depth;
        ++Reported;
    };
    EXPECT_TRUE(WaitFor([&] { return Reported >= 2; }));
    EXPECT_EQ(deepest, 1);
}

// Dialogs

TEST_F(Handlers, CloseQueryOfADialogKnowsItsResult) {
    TForm dialog(nullptr);
    std::vector<TModalResult> seen;
    dialog.OnCloseQuery = [&](TObject*, bool& canClose) {
        seen.push_back(dialog.ModalResult);
        if (seen.size() == 1)
            throw EConvertError(u"cannot save");
        canClose = seen.size() > 2;
    };
    TTimer timer(nullptr);
    timer.Interval = 10;
    timer.OnTimer = [&](TObject*) {
        if (seen.empty())
            dialog.ModalResult = mrOk;
        else
            dialog.Close();
    };
    EXPECT_EQ(dialog.ShowModal(), mrCancel) << "closing counts as cancelling, once it is allowed";
    EXPECT_EQ(seen, (std::vector<TModalResult>{mrOk, mrCancel, mrCancel}));
    EXPECT_EQ(Reported, 1) << "a dialog whose closing fails stays open";
    EXPECT_TRUE(IsWindowEnabled(Form->Handle));
}

TEST_F(Handlers, ADialogFreedWhileOpenGivesTheProgramBack) {
    auto* dialog = new TForm(nullptr);
    dialog->OnShow = [&](TObject*) {
        delete dialog;
        throw EAbort();
    };
    EXPECT_THROW(dialog->ShowModal(), EAbort);
    EXPECT_TRUE(IsWindowEnabled(Form->Handle));
}

// Focus and activation

TEST_F(Handlers, OnShowChoosesTheFocus) {
    TForm other(nullptr);
    auto* first = new TEdit(&other);
    first->Parent = &other;
    auto* second = new TEdit(&other);
    second->Parent = &other;
    String log;
    for (TEdit* edit : {first, second}) {
        const String name = edit == first ? u"1" : u"2";
        edit->OnEnter = [&log, name](TObject*) { log += u"+" + name; };
        edit->OnExit = [&log, name](TObject*) { log += u"-" + name; };
    }
    other.OnShow = [&](TObject*) { second->SetFocus(); };
    ShowAndActivate(other);
    EXPECT_TRUE(WaitFor([&] { return second->Focused(); }));
    EXPECT_EQ(log, u"+2");
}

TEST_F(Handlers, FormsAreLeftForOtherFormsOnly) {
    String log;
    const auto watch = [&log](TForm& form, const String& name) {
        form.OnActivate = [&log, name](TObject*) { log += u"+" + name; };
        form.OnDeactivate = [&log, name](TObject*) { log += u"-" + name; };
    };
    TForm other(nullptr);
    watch(*Form, u"1");
    watch(other, u"2");
    ShowAndActivate(other);
    EXPECT_EQ(std::exchange(log, {}), u"-1+2");

    // A message box or another program: the form stays the program's active one.
    const HWND box =
        CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 0, 0, 50, 50, nullptr, nullptr, nullptr, nullptr);
    SetForegroundWindow(box);
    EXPECT_TRUE(WaitFor([&] { return GetForegroundWindow() == box; }));
    EXPECT_FALSE(other.Active());
    EXPECT_EQ(Screen->ActiveForm, &other);
    DestroyWindow(box);
    ShowAndActivate(other);
    EXPECT_EQ(log, u"");

    String program;
    Application->OnActivate = [&](TObject*) { program += u"+"; };
    Application->OnDeactivate = [&](TObject*) { program += u"-"; };
    for (const WPARAM active : {FALSE, TRUE}) {
        for (const TForm* form : {Form.get(), &other}) // the system tells every top-level window
            SendMessageW(form->GetHandle(), WM_ACTIVATEAPP, active, 0);
    }
    EXPECT_EQ(program, u"-+");
    Application->OnActivate = nullptr;
    Application->OnDeactivate = nullptr;
}

// Mouse and keys

TEST_F(Handlers, ControlsWithoutDoubleClicksCountEachPress) {
    auto* panel = Add<TPanel>(Form.get(), Bounds(10, 10, 80, 40));
    String log;
    panel->OnClick = [&](TObject*) { log += u"c"; };
    panel->OnDblClick = [&](TObject*) { log += u"d"; };
    panel->OnMouseDown = [&](TObject*, TMouseButton, TShiftState, int, int) { log += u"m"; };
    ClickOn(*panel);
    ReleaseMouse();
    ClickOn(*panel);
    EXPECT_TRUE(WaitFor([&] { return log == u"mcdm"; })) << "click, double click";
    log.clear();
    Sleep(GetDoubleClickTime() + 50);
    TControlStyle style = panel->GetControlStyle();
    style >> csDoubleClicks;
    panel->SetControlStyle(style);
    ClickOn(*panel);
    ClickOn(*panel);
    EXPECT_TRUE(WaitFor([&] { return log == u"mcmc"; }));
}

TEST_F(Handlers, AClickEndsWithTheCapture) {
    auto* label = Add<TLabel>(Form.get(), Bounds(10, 10, 80, 20));
    label->AutoSize = false;
    int clicks = 0;
    label->OnClick = [&](TObject*) { ++clicks; };
    PressMouse(label->ClientToScreen({5, 5}));
    ReleaseCapture(); // as a dialog that comes up does
    ReleaseMouse();
    Application->ProcessMessages();
    EXPECT_EQ(clicks, 0);
    ClickOn(*label);
    EXPECT_TRUE(WaitFor([&] { return clicks == 1; }));
}

TEST_F(Handlers, CharactersTypedWithAltGrAreNoAccelerators) {
    auto* button = Add<TButton>(Form.get(), Bounds(10, 10, 80, 25));
    auto* other = Add<TButton>(Form.get(), Bounds(10, 40, 80, 25));
    other->Caption = u"&Łącz";
    int clicks = 0;
    other->OnClick = [&](TObject*) { ++clicks; };
    button->SetFocus();
    const auto typed = [&](bool altGr) {
        BYTE keys[256] = {};
        keys[VK_CONTROL] = keys[VK_MENU] = altGr ? 0x80 : 0;
        SetKeyboardState(keys);
        const LRESULT taken = button->Perform(CN_CHAR, u'ł');
        keys[VK_CONTROL] = keys[VK_MENU] = 0;
        SetKeyboardState(keys);
        return taken != 0;
    };
    EXPECT_FALSE(typed(true));
    EXPECT_EQ(clicks, 0);
    EXPECT_TRUE(typed(false));
    EXPECT_EQ(clicks, 1);
}

// Windows

TEST_F(Handlers, AMinimisedFormKeepsItsPlace) {
    auto* edit = Add<TEdit>(Form.get(), Bounds(10, 10, 100, 21));
    edit->Anchors = {akLeft, akTop, akRight};
    const TRect place = Form->BoundsRect;
    int resized = 0;
    Form->OnResize = [&](TObject*) { ++resized; };
    Form->WindowState = wsMinimized;
    Application->ProcessMessages();
    EXPECT_EQ(Form->BoundsRect, place);
    EXPECT_EQ(edit->Width, 100);
    EXPECT_EQ(resized, 0);
    Form->Width = place.Width() + 40;
    Form->WindowState = wsNormal;
    Application->ProcessMessages();
    EXPECT_EQ(Form->Width, place.Width() + 40);
    EXPECT_EQ(edit->Width, 140);
}

// Loading

TEST(FormLoading, IsOverWhenOnCreateComes) {
    RegisterStandardControls();
    TForm form(nullptr);
    String log;
    form.OnShow = [&](TObject*) { log += u"show "; };
    form.OnCreate = [&](TObject*) {
        auto* edit = As<TEdit>(form.FindComponent(u"Edit1"));
        auto* label = As<TLabel>(form.FindComponent(u"Label1"));
        auto* box = As<TCheckBox>(form.FindComponent(u"Box"));
        log += form.Visible ? u"visible " : u"hidden ";
        log += edit->ComponentState.Contains(csLoading) ? u"loading " : u"loaded ";
        EXPECT_EQ(edit->Font->Height, -19);
        EXPECT_TRUE(edit->ParentFont);
        EXPECT_EQ(edit->Color, 0x112233) << "the edit follows its parent only because its form says so";
        EXPECT_EQ(label->Font->Height, -19);
        EXPECT_EQ(label->Color, 0x112233);
        EXPECT_TRUE(label->ShowHint);
        EXPECT_GT(label->Height, 17) << "sized to the parent's font";
        box->OnClick = [&](TObject*) { log += u"click "; };
        box->Checked = true; // a program's change like any other
    };
    LoadTextForm(form, ParseTextForm("object Form1: TForm\n"
                                     "  ClientHeight = 200\n"
                                     "  ClientWidth = 300\n"
                                     "  Color = 1122867\n"
                                     "  Font.Height = -19\n"
                                     "  Scaled = False\n"
                                     "  ShowHint = True\n"
                                     "  Visible = True\n"
                                     "  object Group: TGroupBox\n"
                                     "    Left = 0\n    Top = 0\n    Width = 200\n    Height = 150\n"
                                     "    object Label1: TLabel\n"
                                     "      Caption = 'Nazwa'\n"
                                     "    end\n"
                                     "    object Edit1: TEdit\n"
                                     "      ParentColor = True\n"
                                     "    end\n"
                                     "  end\n"
                                     "  object Box: TCheckBox\n"
                                     "  end\n"
                                     "end\n"));
    EXPECT_EQ(log, u"hidden loaded click show ");
}

// The end

TEST(ProgramEndDeathTest, FormsOfTheApplicationDieInPeace) {
    EXPECT_EXIT(
        {
            auto* form = new TForm(&TheApplication());
            auto* edit = new TEdit(form);
            edit->Parent = form;
            TheApplication().SetMainForm(form);
            form->OnDestroy = [](TObject*) { std::fputs("freed", stderr); };
            form->Show();
            edit->SetFocus();
            std::exit(7);
        },
        testing::ExitedWithCode(7), "freed");
}

} // namespace
