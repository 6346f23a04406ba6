// The gradient button on the screen: its face in every state, its styles, and the ways to press it.

#include "buttons/Zorcolorbutton.h"
#include "framework/graphics/handles.h"
#include "framework/system/formloader.h"
#include "framework/system/formsaver.h"
#include "framework/windows/application.h"
#include "framework/windows/edit.h"
#include "framework/windows/standardcontrols.h"
#include "tests/support/darktheme.h"
#include "tests/support/input.h"

#include <gtest/gtest.h>

using namespace framework;
using namespace ZOR;
using namespace testsupport;

namespace {

constexpr TSize kSize{80, 30};

int Channel(COLORREF color, int shift) {
    return static_cast<int>(color >> shift & 0xFF);
}

class ColorButtonTest : public testing::Test {
protected:
    ColorButtonTest() {
        Edit.SetParent(Form.get());
        Edit.SetBounds(200, 200, 50, 21);
        Button.SetParent(Form.get());
        Button.SetBounds(20, 20, kSize.Width, kSize.Height);
        Button.OnClick = [this](TObject*) { ++Clicks; };
        Edit.SetFocus();
        MoveMouse(Form->ClientToScreen({300, 200}));
    }

    void ExpectColor(TPoint point, TColor expected, const char* what) {
        EXPECT_EQ(PixelOf(Button, point), static_cast<COLORREF>(expected)) << what;
    }
    /// The gradient between the colours in each row beside the caption; a rounding step of the system is allowed.
    void ExpectGradient(TColor start, TColor end) {
        for (int y = 3; y < kSize.Height - 4; ++y) {
            const COLORREF actual = PixelOf(Button, {5, y});
            EXPECT_EQ(PixelOf(Button, {kSize.Width - 8, y}), actual) << "row " << y;
            for (int shift : {0, 8, 16}) {
                const int from = Channel(static_cast<COLORREF>(start), shift);
                const int to = Channel(static_cast<COLORREF>(end), shift);
                EXPECT_NEAR(Channel(actual, shift), from + (to - from) * y / kSize.Height, 1) << "row " << y;
            }
        }
    }
    int TakeClicks() { return std::exchange(Clicks, 0); }

    std::unique_ptr<TForm> Form = ShowForm();
    TEdit Edit{nullptr};
    TZORColorButton Button{nullptr};
    int Clicks = 0;
};

TEST_F(ColorButtonTest, ShowsItsColoursInEveryState) {
    const int middle = kSize.Height / 2;
    Button.ColorStyles = csBlue;
    {
        SCOPED_TRACE("normal");
        ExpectGradient(0xCB8B46, 0xA85F33);
        ExpectColor({0, middle}, 0x000000, "outline at the left");
        ExpectColor({kSize.Width - 2, middle}, 0x000000, "outline at the right");
        ExpectColor({kSize.Width / 2, kSize.Height - 2}, 0x000000, "outline below");
    }
    {
        SCOPED_TRACE("hot");
        const COLORREF normal = PixelOf(Button, {5, 3});
        MoveMouse(Button.ClientToScreen({40, 15}));
        EXPECT_TRUE(WaitFor([&] { return PixelOf(Button, {5, 3}) != normal; }));
        ExpectGradient(0xD59550, 0xB2693D);
    }
    {
        SCOPED_TRACE("pressed");
        PressMouse(Button.ClientToScreen({40, 15}));
        TheApplication().ProcessMessages();
        ExpectGradient(0xC1813C, 0x9E5529);
        ReleaseMouse();
        MoveMouse(Form->ClientToScreen({300, 200}));
    }
    {
        SCOPED_TRACE("default, by the focus");
        TheApplication().ProcessMessages();
        ASSERT_TRUE(Button.Focused());
        ExpectGradient(0xCB8B46, 0xA85F33);
        ExpectColor({kSize.Width - 3, middle}, 0xFFFFFF, "ring at the right");
        ExpectColor({0, middle}, 0xFFFFFF, "ring over the outline at the left");
        ExpectColor({kSize.Width - 2, middle}, 0x000000, "outline at the right");
    }
    {
        SCOPED_TRACE("disabled");
        Button.SetEnabled(false);
        ExpectGradient(0xF4F4F4, 0xF4F4F4);
        ExpectColor({kSize.Width - 2, middle}, 0x000000, "outline at the right");
    }
}

TEST_F(ColorButtonTest, ResolvesSystemColoursBeforeItShadesThem) {
    Button.Colors->GradientStart = clHighlight;
    Button.Colors->GradientEnd = clHighlight;
    const TColor plain = static_cast<TColor>(GetSysColor(COLOR_HIGHLIGHT));
    ExpectGradient(plain, plain);
    MoveMouse(Button.ClientToScreen({40, 15}));
    ExpectGradient(ShadedColor(plain, true), ShadedColor(plain, true));
}

TEST_F(ColorButtonTest, PlainOnesCanBeReadInADarkTheme) {
    {
        const TDarkTheme dark;
        Button.Repaint();
        ExpectColor({5, 5}, TDarkTheme::Face, "the theme's");
        Button.ColorStyles = csRed;
        ExpectGradient(0x0000FF, 0x000080);
    }
    Button.ColorStyles = csNone;
    ExpectGradient(0xF0F0F0, 0xDCDCDC);
}

TEST_F(ColorButtonTest, LooksRoundToUsersAndSquareToDesigners) {
    const auto isShaped = [&] {
        Button.Update();
        const TUniqueRegion shape(CreateRectRgn(0, 0, 0, 0));
        return GetWindowRgn(Button.GetHandle(), shape.Get()) != ERROR && !PtInRegion(shape.Get(), 0, 0) &&
               PtInRegion(shape.Get(), kSize.Width / 2, 0);
    };
    EXPECT_TRUE(isShaped());
    TZORColorButton designed(nullptr);
    designed.SetDesigning(true);
    designed.SetParent(Form.get());
    designed.Update();
    const TUniqueRegion none(CreateRectRgn(0, 0, 0, 0));
    EXPECT_EQ(GetWindowRgn(designed.GetHandle(), none.Get()), ERROR);
    Button.RecreateWnd();
    EXPECT_TRUE(isShaped()) << "a new window has no shape yet";
    SetWindowRgn(Button.GetHandle(), nullptr, TRUE);
    EXPECT_TRUE(isShaped()) << "a shape that was taken away comes back";
}

TEST_F(ColorButtonTest, AColourSetByHandMakesTheStyleTheUsers) {
    Button.ColorStyles = csBlue;
    EXPECT_EQ(Button.GetFont()->GetColor(), clWhite);
    Button.Colors->Border = clGreen;
    EXPECT_EQ(Button.ColorStyles, csUser);
    EXPECT_EQ(Button.Colors->GradientStart, 0xCB8B46) << "the others stay";
    Button.ColorStyles = csNone;
    EXPECT_EQ(Button.Colors->Border, 0x808080);
    EXPECT_EQ(Button.GetFont()->GetColor(), clWindowText);

    TZORColors other;
    other.Frame = clRed;
    int told = 0;
    Button.Colors->OnStateChangeEvent = [&](TPersistent*) {
        Button.ColorStyles = csUser; // which puts the button's own handler in place of this one
        ++told;
    };
    Button.Colors = &other;
    EXPECT_EQ(told, 1) << "four colours are one change";
    EXPECT_EQ(Button.Colors->Frame, clRed);
    Button.ColorStyles = csRed;
    Button.Colors = &other;
    EXPECT_EQ(Button.ColorStyles, csUser);
}

TEST_F(ColorButtonTest, KeepsStyleAndColoursInATextForm) {
    RegisterStandardControls();
    Zorcolorbutton::Register();
    for (TZORColorStyles style : {csNone, csUser, csBlue, csRed}) {
        TForm form(nullptr);
        form.SetName(u"Form1");
        auto* button = new TZORColorButton(&form);
        button->SetName(u"Button1");
        button->SetParent(&form);
        button->ColorStyles = style;
        if (style == csUser)
            button->Colors->GradientEnd = clNavy;
        if (style == csBlue)
            button->GetFont()->SetColor(clYellow);
        const std::string text = WriteTextForm(SaveTextForm(form));
        const auto again = CreateFromTextForm(text, nullptr);
        auto* loaded = As<TZORColorButton>(again->FindComponent(u"Button1"));
        ASSERT_NE(loaded, nullptr);
        EXPECT_EQ(loaded->ColorStyles, style);
        EXPECT_EQ(loaded->Colors->GradientEnd, button->Colors->GradientEnd);
        EXPECT_EQ(loaded->GetFont()->GetColor(), button->GetFont()->GetColor());
        EXPECT_EQ(WriteTextForm(SaveTextForm(*again)), text);
    }
}

TEST_F(ColorButtonTest, IsPressedInAllTheWaysOfAButton) {
    Button.SetText(u"&Go");
    Button.SetDefault(true);
    PressKey(VK_RETURN);
    EXPECT_EQ(TakeClicks(), 1) << "Enter elsewhere on the form";
    PressKey('G', {ssAlt});
    EXPECT_EQ(TakeClicks(), 1) << "accelerator";
    Button.SetFocus();
    PressKey(VK_SPACE);
    EXPECT_EQ(TakeClicks(), 1) << "space";
    ClickOn(Button);
    ClickOn(Button);
    EXPECT_EQ(TakeClicks(), 2) << "the second press of a double click counts";
}

TEST_F(ColorButtonTest, SurvivesHandlersThatFreeIt) {
    for (const bool whilePainting : {true, false}) {
        auto* button = new TZORColorButton(Form.get(), csRed);
        button->SetParent(Form.get());
        bool gone = false;
        const auto free = [&] {
            gone = true;
            delete button;
        };
        if (whilePainting) {
            button->OnDrawButton = [&](TWinControl*, TRect, TOwnerDrawState) { free(); };
            button->Repaint();
        } else {
            button->OnClick = [&](TObject*) { free(); };
            ClickOn(*button);
        }
        EXPECT_TRUE(WaitFor([&] { return gone; }));
    }
}

TEST_F(ColorButtonTest, DrawsByTheProgramOverItsFace) {
    Button.OnDrawButton = [](TWinControl* control, TRect rect, TOwnerDrawState state) {
        auto& button = static_cast<TZORColorButton&>(*control);
        button.Canvas->GetBrush()->SetColor(state.Contains(odDisabled) ? clGray : clYellow);
        button.Canvas->FillRect({10, 10, rect.Right - 10, 20});
        button.Canvas->Pen->Width = 9;
    };
    Button.Repaint();
    ExpectColor({15, 15}, clYellow, "enabled");
    Button.SetEnabled(false);
    ExpectColor({15, 15}, clGray, "disabled");
    ExpectColor({3, 25}, 0xF4F4F4, "the outline is as thin as ever");
}

} // namespace
