// The framed edit as a person meets it: real focus, keys and mouse in real windows, frames read back as pixels.

#include "framework/graphics/handles.h"
#include "framework/system/formloader.h"
#include "framework/windows/accessibility.h"
#include "framework/windows/application.h"
#include "framework/windows/mouse.h"
#include "framework/windows/panel.h"
#include "package/Zorpackage.h"
#include "tests/support/framededit.h"
#include "tests/support/handlecount.h"

#include <gtest/gtest.h>

namespace {

using namespace framework;
using namespace ZOR;
using namespace testsupport;

/// The colour of a pixel of the whole window, borders included.
COLORREF WindowPixel(TWinControl& control, int x, int y) {
    const TWindowDC dc(control.GetHandle(), TWindowDC::Whole);
    return GetPixel(dc, x, y);
}

/// How many pixels of the client area are neither the background nor part of a selection.
int InkPixels(TWinControl& control) {
    const TWindowDC dc(control.GetHandle());
    const TRect client = control.GetClientRect();
    const COLORREF background = ColorToRGB(control.GetColor());
    int ink = 0;
    for (int y = 1; y < client.Bottom - 1; ++y) {
        for (int x = 1; x < client.Right - 1; ++x)
            ink += GetPixel(dc, x, y) != background ? 1 : 0;
    }
    return ink;
}

TEST_F(FramedEdit, ShowsEachStateAsAFrameOfItsColour) {
    const struct {
        const char* Name;
        TWymagany State;
        bool Ctl3D;
        std::optional<COLORREF> Frame; // nothing: the native border
    } rows[] = {
        {"required", wRequired, true, 0xDD9746}, {"recommended", wRecommended, true, 0x46C265},
        {"error", wError, true, 0x0000FF},       {"none, sunken", wNone, true, std::nullopt},
        {"none, flat", wNone, false, 0x808080},  {"required, flat", wRequired, false, 0xDD9746},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.Name);
        Edit->Ctl3D = row.Ctl3D;
        Edit->Wymagany = row.State;
        Paint();
        const int right = Edit->Width - 1;
        const int bottom = Edit->Height - 1;
        for (const TPoint corner : {TPoint{0, 0}, TPoint{right, 0}, TPoint{0, bottom}, TPoint{right, bottom},
                                    TPoint{right / 2, 0}, TPoint{0, bottom / 2}}) {
            const COLORREF pixel = WindowPixel(*Edit, corner.X, corner.Y);
            if (row.Frame)
                EXPECT_EQ(pixel, *row.Frame) << corner.X << "," << corner.Y;
            else
                EXPECT_TRUE(pixel != 0xDD9746 && pixel != 0x46C265 && pixel != 0x0000FF)
                    << std::hex << pixel << " at " << std::dec << corner.X << "," << corner.Y;
        }
        if (row.Frame)
            EXPECT_EQ(WindowPixel(*Edit, 1, 1), 0xFFFFFFu) << "the inner line of the native border";
    }
}

TEST_F(FramedEdit, RepaintingTheNativeFrameKeepsTheText) {
    Edit->Text = u"text";
    Paint();
    const int ink = InkPixels(*Edit);
    EXPECT_GT(ink, 10);
    MoveMouse(Edit->ClientToScreen({60, 5}));
    MoveMouse(Form->ClientToScreen({5, 5}));
    EXPECT_EQ(InkPixels(*Edit), ink) << "the pointer came and went";
    Edit->Wymagany = wRequired;
    Edit->Wymagany = wNone;
    EXPECT_EQ(InkPixels(*Edit), ink) << "a frame came and went";
    ExpectSteadyHandles(100, [&] { SendMessageW(Edit->Handle, WM_NCPAINT, 0, 0); });
}

TEST_F(FramedEdit, FrameFollowsResizingAndOwnColours) {
    Edit->Wymagany = wRequired;
    Edit->BorderColors->RequiredColor = 0x123456;
    EXPECT_EQ(WindowPixel(*Edit, 0, 0), 0xDD9746u) << "a new colour shows at the next repaint of the frame";
    Edit->Width = 200;
    Edit->Height = 30;
    Paint();
    EXPECT_EQ(WindowPixel(*Edit, 199, 29), 0x123456u);
    EXPECT_EQ(WindowPixel(*Edit, 120, 20), 0xFFFFFFu) << "the old corner";
}

TEST_F(FramedEdit, ErrorEndsWhenAFilledFieldIsLeft) {
    Edit->Wymagany = wRequired;
    Edit->Wymagany = wError;
    Edit->SetFocus();
    Leave();
    EXPECT_EQ(Edit->Wymagany, wError) << "still empty";
    Edit->SetFocus();
    TypeText(u"ż");
    ASSERT_TRUE(WaitFor([&] { return Edit->GetTextLen() == 1; }));
    EXPECT_EQ(Edit->Wymagany, wError) << "still in the field";
    PressKey(VK_TAB);
    ASSERT_TRUE(WaitFor([&] { return Other->Focused(); }));
    EXPECT_EQ(Edit->Wymagany, wRequired);
    Paint();
    EXPECT_EQ(WindowPixel(*Edit, 0, 0), 0xDD9746u);
}

TEST_F(FramedEdit, ErrorEndsWhenTheMouseLeavesAFilledField) {
    Edit->Text = u"x";
    MoveMouse(Edit->ClientToScreen({5, 5}));
    ASSERT_TRUE(WaitFor([&] { return MouseTracker().GetControl() == Edit; }));
    Edit->Wymagany = wError;
    MoveMouse(Form->ClientToScreen({5, 5}));
    EXPECT_TRUE(WaitFor([&] { return Edit->Wymagany == wNone; }));
}

TEST_F(FramedEdit, DisablingPutsTheStateAside) {
    Edit->Wymagany = wRequired;
    Edit->Enabled = false;
    EXPECT_EQ(Edit->Wymagany, wNone);
    EXPECT_FALSE(IsWindowEnabled(Edit->Handle));
    Edit->Enabled = true;
    EXPECT_EQ(Edit->Wymagany, wRequired);
    Paint();
    EXPECT_EQ(WindowPixel(*Edit, 0, 0), 0xDD9746u);
}

TEST_F(FramedEdit, HintShowsInsideAnEmptyFieldWithoutFocus) {
    const auto ink = [&] {
        Paint();
        return InkPixels(*Edit);
    };
    EXPECT_EQ(ink(), 0) << "nothing to say";
    Edit->Hint = u"abc";
    const int hintInk = ink();
    EXPECT_GT(hintInk, 10) << "the hint stands in for the label of its own";
    Edit->HintLabel = u"a rather longer hint";
    EXPECT_GT(ink(), hintInk);
    Edit->ShowHintInside = false;
    EXPECT_EQ(ink(), 0);
    Edit->ShowHintInside = true;
    EXPECT_GT(ink(), hintInk);
    Edit->SetFocus();
    HideCaret(Edit->Handle);
    EXPECT_EQ(ink(), 0) << "focused";
    Leave();
    EXPECT_GT(ink(), hintInk);
    EXPECT_EQ(Edit->Text, u"") << "the hint is never part of the text";
    Edit->SetFocus();
    Edit->Parent = nullptr;
    Edit->Parent = Form.get();
    EXPECT_GT(ink(), hintInk) << "taken away while it had the focus";
    Edit->Color = 0xC0FFFF;
    Paint();
    const TWindowDC dc(Edit->Handle);
    EXPECT_EQ(GetPixel(dc, 0, 0), 0xC0FFFFu) << "the background reaches the frame";
}

TEST_F(FramedEdit, LabelStaysGluedAndFollowsTheControl) {
    TZORBoundLabel& bound = *Edit->BoundLabel;
    bound.Active = true;
    TLabel& label = *bound.Label;
    EXPECT_EQ(bound.Caption, u"Edit_Label");
    EXPECT_EQ(AccessibleName(*Edit), u"Edit_Label") << "the caption is the name that screen readers tell";
    EXPECT_EQ(label.Left + label.Width + 8, Edit->Left);
    Edit->Left = 200;
    EXPECT_EQ(label.Left + label.Width + 8, 200);
    bound.Layout = clTopLeft;
    EXPECT_EQ(label.Left, 200);
    EXPECT_EQ(label.Top + label.Height + 8, Edit->Top);
    Edit->Top = 60;
    EXPECT_EQ(label.Top + label.Height + 8, 60);
    bound.Caption = u"a caption of several words that has to wrap";
    const int line = label.Height;
    bound.MaxWidth = 60;
    EXPECT_LE(label.Width, 60);
    EXPECT_GE(label.Height, 2 * line);
    EXPECT_EQ(label.Top + label.Height + 8, 60);
    bound.Caption = u"Unterscheidungsmerkmal"; // one word that is wider than the limit
    EXPECT_EQ(label.Width, 60);
    bound.Layout = clTopRight;
    EXPECT_EQ(label.Left + 60, Edit->BoundsRect.Right);
    bound.Layout = clLeft;
    EXPECT_EQ(label.Left + 60 + 8, 200);
    bound.Layout = clTopLeft;

    Edit->Enabled = false;
    EXPECT_FALSE(label.Enabled);
    bound.EnabledAlways = true;
    EXPECT_TRUE(label.Enabled);
    Edit->Visible = false;
    EXPECT_FALSE(label.Visible);
    Edit->Left = 20;
    Edit->Visible = true;
    EXPECT_TRUE(label.Visible);
    EXPECT_EQ(label.Left, 20) << "what a hidden label missed it takes when it is shown";
    Edit->BiDiMode = bdRightToLeft;
    EXPECT_EQ(label.BiDiMode, bdRightToLeft);

    TPanel panel(nullptr);
    panel.Parent = Form.get();
    Edit->Parent = &panel;
    EXPECT_EQ(label.Parent, &panel);
    panel.RemoveControl(Edit);
    EXPECT_EQ(label.Parent, nullptr);
    Edit->Top = 90;
    bound.Indent = 3;
    Form->InsertControl(Edit);
    EXPECT_EQ(label.Top + label.Height + 3, 90);

    bound.MaxWidth = 0;
    bound.Layout = clLeft;
    bound.Font->Size = 14;
    EXPECT_EQ(label.Left + label.Width + 3, 20) << "larger letters, same gap";
    EXPECT_EQ(label.Top, 90 + (21 - label.Height) / 2 - 1);
    bound.Caption = u"Name";
    Edit->Align = alLeft;
    EXPECT_EQ(label.Left, 0) << "label and control side by side at the left";
    EXPECT_EQ(Edit->Left, label.Width);
    bound.Caption = u"Another name";
    EXPECT_EQ(Edit->Left, label.Width);
    EXPECT_EQ(label.Left, 0);
    Edit->Name = u"Renamed";
    EXPECT_EQ(label.Name, u"Edit_Label") << "named when it is made";
    bound.Active = false;
    EXPECT_EQ(bound.Label, nullptr);
}

TEST_F(FramedEdit, ClickOnTheLabelIsAClickOnTheControl) {
    int clicks = 0;
    Edit->OnClick = [&](TObject* sender) { clicks += sender == Edit ? 1 : 0; };
    Edit->BoundLabel->Active = true;
    ClickOn(*Edit->BoundLabel->Label);
    Application->ProcessMessages();
    EXPECT_EQ(clicks, 0);
    Edit->BoundLabel->AllowClick = true;
    Application->ProcessMessages();
    ClickOn(*Edit->BoundLabel->Label); // the second half of a double click
    EXPECT_TRUE(WaitFor([&] { return clicks == 1; }));
    ClickOn(*Edit->BoundLabel->Label);
    EXPECT_TRUE(WaitFor([&] { return clicks == 2; }));
}

TEST_F(FramedEdit, ColoursAreAssignedTowardsTheGivenObject) {
    TBorderColors colors(nullptr);
    int changes = 0;
    colors.OnChange = [&](TObject*) { ++changes; };
    Edit->BorderColors->ErrorColor = 0x010203;
    Edit->BorderColors = &colors;
    EXPECT_EQ(colors.ErrorColor, 0x010203);
    EXPECT_EQ(changes, 1);
    colors.ErrorColor = 0x010203;
    EXPECT_EQ(changes, 2) << "writing the same colour is a change too";
    TFont font;
    EXPECT_THROW(colors.Assign(&font), EConvertError);
    EXPECT_THROW(Edit->Constraints->Assign(&font), EConvertError);
}

TEST_F(FramedEdit, ANewWindowKeepsEverything) {
    Edit->Text = u"Zażółć";
    Edit->Font->Style = {fsBold};
    Edit->Wymagany = wRecommended;
    Edit->BoundLabel->Active = true;
    Edit->SetFocus();
    Edit->SelStart = 1;
    Edit->SelLength = 3;
    int exits = 0;
    Edit->OnExit = [&](TObject*) { ++exits; };
    const HWND before = Edit->Handle;
    Edit->Ctl3D = false;
    ASSERT_NE(Edit->Handle, before);
    Paint();
    EXPECT_EQ(Edit->Text, u"Zażółć");
    EXPECT_EQ(Edit->SelStart, 1);
    EXPECT_EQ(Edit->SelLength, 3);
    EXPECT_TRUE(Edit->Focused());
    EXPECT_EQ(exits, 0) << "for the user nothing was left";
    EXPECT_EQ(WindowPixel(*Edit, 0, 0), 0x46C265u);
    EXPECT_EQ(SendMessageW(Edit->Handle, WM_GETFONT, 0, 0), reinterpret_cast<LRESULT>(Edit->Font->Handle));
    EXPECT_EQ(Edit->BoundLabel->Label->Left + Edit->BoundLabel->Label->Width + 8, Edit->Left);
    Edit->screenKeyboard();
    ASSERT_TRUE(WaitFor([&] { return Edit->GetExtraSignsForm()->Showing; }));
    ClickSign(*Edit, u'ý');
    EXPECT_EQ(Edit->Text, u"Zýażółć") << "the popup writes into the new window";
}

TEST_F(FramedEdit, MayBeDestroyedInItsOwnHandlers) {
    bool died = false;
    const auto kill = [&](TObject* sender, auto&&...) {
        if (!std::exchange(died, true))
            delete sender;
    };
    const auto enter = [](TZOREdit& edit) { edit.SetFocus(); };
    const auto type = [](TZOREdit& edit) {
        edit.SetFocus();
        PressKey('A');
    };
    const auto clickSign = [](TZOREdit& edit) {
        WaitFor([&] { return edit.GetExtraSignsForm()->Showing; });
        PressMouse(edit.GetExtraSignsForm()->ClientToScreen({10, 10}));
        ReleaseMouse();
    };
    const struct {
        const char* Name;
        std::function<void(TZOREdit&)> Setup;
        std::function<void(TZOREdit&)> Action;
    } rows[] = {
        {"OnChange by typing", [&](TZOREdit& edit) { edit.OnChange = kill; }, type},
        {"OnChange by program", [&](TZOREdit& edit) { edit.OnChange = kill; },
         [](TZOREdit& edit) { edit.Text = u"a"; }},
        {"OnEnter", [&](TZOREdit& edit) { edit.OnEnter = kill; }, enter},
        {"OnExit", [&](TZOREdit& edit) { edit.OnExit = kill; },
         [&](TZOREdit& edit) {
             edit.SetFocus();
             Other->SetFocus();
         }},
        {"OnKeyDown", [&](TZOREdit& edit) { edit.OnKeyDown = kill; }, type},
        {"OnKeyUp", [&](TZOREdit& edit) { edit.OnKeyUp = kill; }, type},
        {"OnMouseDown", [&](TZOREdit& edit) { edit.OnMouseDown = kill; }, [](TZOREdit& edit) { ClickOn(edit); }},
        {"OnMouseEnter", [&](TZOREdit& edit) { edit.OnMouseEnter = kill; },
         [](TZOREdit& edit) {
             MoveMouse(edit.ClientToScreen({4, 4}));
         }},
        {"OnClick through the label",
         [&](TZOREdit& edit) {
             edit.BoundLabel->AllowClick = true;
             edit.OnClick = kill;
         },
         [](TZOREdit& edit) { ClickOn(*edit.BoundLabel->Label); }},
        {"OnChange by the popup",
         [&](TZOREdit& edit) {
             edit.SetFocus();
             edit.screenKeyboard();
             edit.OnChange = kill;
         },
         clickSign},
        {"closing of the popup as the field is left",
         [&](TZOREdit& edit) {
             edit.SetFocus();
             edit.screenKeyboard();
             edit.GetExtraSignsForm()->OnCloseUp = [&kill, &edit](TObject*) { kill(&edit); };
         },
         [&](TZOREdit&) { Leave(); }},
        {"OnResize of the label",
         [&](TZOREdit& edit) { edit.BoundLabel->Label->OnResize = [&kill, &edit](TObject*) { kill(&edit); }; },
         [](TZOREdit& edit) { edit.BoundLabel->Caption = u"another"; }},
        {"by itself while it has the focus, in error and with its popup open",
         [&](TZOREdit& edit) {
             edit.Text = u"x";
             edit.Wymagany = wError;
             edit.OnExit = [this](TObject*) { Errors.emplace_back("a dying field was left"); };
         },
         [&](TZOREdit& edit) {
             edit.SetFocus();
             edit.screenKeyboard();
             kill(&edit);
         }},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.Name);
        MoveMouse(Form->ClientToScreen({2, 2}));
        Leave();
        died = false;
        TZOREdit* victim = Add(u"Victim", 160);
        victim->BoundLabel->Active = true;
        Application->ProcessMessages();
        const int before = Form->ControlCount;
        row.Setup(*victim);
        row.Action(*victim);
        EXPECT_TRUE(WaitFor([&] { return died; }));
        Application->ProcessMessages();
        EXPECT_EQ(Form->ControlCount, before - 2) << "the field and its label";
        if (!died)
            delete victim;
    }
}

TEST_F(FramedEdit, AFormMayDieInAHandlerOfItsField) {
    for (const bool typed : {true, false}) {
        auto doomed = std::make_unique<TForm>(nullptr);
        auto* edit = new TZOREdit(doomed.get());
        edit->Parent = doomed.get();
        edit->BoundLabel->Active = true;
        edit->OnChange = [&](TObject*) { doomed.reset(); };
        ShowAndActivate(*doomed);
        edit->SetFocus();
        if (typed)
            TypeText(u"x");
        else
            edit->Text = u"x";
        EXPECT_TRUE(WaitFor([&] { return !doomed; }));
        Application->ProcessMessages();
    }
    SetForegroundWindow(Form->Handle);
}

TEST_F(FramedEdit, AHandlerThatThrowsIsReportedAndTheFieldGoesOn) {
    Edit->OnChange = [](TObject*) { throw Exception(u"from the handler"); };
    Edit->SetFocus();
    TypeText(u"ab");
    ASSERT_TRUE(WaitFor([&] { return Errors.size() == 2; }));
    EXPECT_EQ(Errors[0], "from the handler");
    EXPECT_EQ(Edit->Text, u"ab");
    Errors.clear();

    Edit->Wymagany = wError;
    Edit->screenKeyboard();
    Edit->OnExit = [](TObject*) { throw Exception(u"while an error ends"); };
    int entered = 0;
    Other->OnEnter = [&](TObject*) { ++entered; };
    Leave();
    EXPECT_EQ(Errors, std::vector<std::string>{"while an error ends"});
    EXPECT_EQ(Edit->Wymagany, wNone);
    EXPECT_FALSE(Edit->GetExtraSignsForm()->Visible);
    EXPECT_EQ(entered, 1) << "the next field is entered all the same";
    Errors.clear();
}

TEST_F(FramedEdit, AnySizeAndAnyTextWillDo) {
    String faces;
    for (int i = 0; i < 5000; ++i)
        faces += u"\U0001F600";
    Edit->HintLabel = faces;
    Edit->BoundLabel->Active = true;
    Edit->Wymagany = wRequired;
    for (const bool sunken : {true, false}) {
        Edit->Ctl3D = sunken;
        for (const TSize size : {TSize{0, 0}, TSize{1, 1}, TSize{3, 3}, TSize{1, 21}, TSize{121, 1}}) {
            Edit->SetBounds(150, 40, size.Width, size.Height);
            Edit->Invalidate();
            Paint();
            EXPECT_EQ(Edit->BoundsRect, Bounds(150, 40, size.Width, size.Height));
            EXPECT_EQ(Edit->BoundLabel->Label->BoundsRect.Right + 8, 150);
        }
    }
    EXPECT_EQ(WindowPixel(*Edit, 60, 0), 0xDD9746u) << "a frame of one line";

    Edit->SetBounds(150, 40, 121, 21);
    Edit->Text = faces;
    Edit->SetFocus();
    Edit->SelStart = 9999; // between the halves of the last pair
    Edit->screenKeyboard();
    Paint();
    ClickSign(*Edit, u'č');
    EXPECT_TRUE(Edit->GetText() == faces.substr(0, 9998) + u"č" + faces.substr(9998));
}

TEST_F(FramedEdit, AParentMayDieBeforeTheControl) {
    auto panel = std::make_unique<TPanel>(nullptr);
    panel->Parent = Form.get();
    Edit->Parent = panel.get();
    Edit->Text = u"kept";
    Edit->BoundLabel->Active = true;
    panel.reset();
    EXPECT_EQ(Edit->Parent, nullptr);
    EXPECT_EQ(Edit->Text, u"kept");
    Edit->BoundLabel->Caption = u"another";
    Edit->Parent = Form.get();
    EXPECT_EQ(Edit->BoundLabel->Label->Parent, Form.get());
    EXPECT_EQ(Edit->Text, u"kept");
}

TEST_F(FramedEdit, ComesWholeFromATextForm) {
    RegisterPackage();
    RegisterClasses({&TForm::StaticClass()});
    const auto loaded = CreateFromTextForm(R"(object Form1: TForm
  PixelsPerInch = 120
  object Edit1: TZOREdit
    Left = 125
    Top = 50
    BiDiMode = bdRightToLeft
    Enabled = False
    Visible = False
    Wymagany = wRequired
    BorderColors.RequiredColor = clGreen
    BoundLabel.Active = True
    BoundLabel.EnabledAlways = True
    BoundLabel.Indent = 15
    BoundLabel.Font.Height = -25
    BoundLabel.Layout = clTopLeft
    BoundLabel.MaxWidth = 75
  end
end
)",
                                           nullptr);
    auto* form = As<TForm>(loaded.get());
    auto* edit = As<TZOREdit>(form->FindComponent(u"Edit1"));
    TLabel& label = *edit->BoundLabel->Label;
    EXPECT_EQ(edit->Wymagany, wRequired) << "set while disabled";
    EXPECT_EQ(edit->BoundLabel->Caption, u"Edit1_Label");
    EXPECT_EQ(label.BiDiMode, bdRightToLeft);
    EXPECT_FALSE(label.Visible);
    ShowAndActivate(*form);
    edit->Visible = true;
    EXPECT_TRUE(label.Visible && label.Enabled);
    EXPECT_EQ(label.Left, 100);
    EXPECT_EQ(label.Top + label.Height + 12, 40);
    EXPECT_EQ(edit->BoundLabel->MaxWidth, 60);
    EXPECT_EQ(label.Font->Height, -20);
    Application->ProcessMessages();
    EXPECT_EQ(WindowPixel(*edit, 0, 0), 0x008000u);
    SetForegroundWindow(Form->Handle);
}

TEST_F(FramedEdit, LeavesNothingBehind) {
    ExpectSteadyHandles(1000, [&] {
        auto* edit = Add(u"Passing", 160);
        edit->BoundLabel->Active = true;
        edit->HintLabel = u"hint";
        edit->Wymagany = wError;
        Form->Update();
        edit->screenKeyboard();
        edit->GetExtraSignsForm()->Update();
        delete edit;
        Application->ProcessMessages();
    });
}

} // namespace
