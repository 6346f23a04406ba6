// The arrows of an up-down under real clicks, the 32-bit range, the associated field, and text on the clipboard.

#include "framework/windows/application.h"
#include "framework/windows/clipboard.h"
#include "framework/windows/edit.h"
#include "framework/windows/updown.h"
#include "tests/support/handlecount.h"
#include "tests/support/input.h"

#include <gtest/gtest.h>

using namespace framework;
using namespace testsupport;

namespace {

class UpDown : public testing::Test {
protected:
    void SetUp() override {
        Arrows.Parent = Form.get();
        Arrows.SetBounds(200, 20, 16, 40);
        Arrows.OnClick = [this](TObject*, TUDBtnType button) { Clicks.push_back(button); };
    }
    void ClickArrow(bool upper) { ClickOn(Arrows, {Arrows.Width / 2, upper ? 4 : Arrows.Height - 5}); }

    std::unique_ptr<TForm> Form = ShowForm();
    TUpDown Arrows{nullptr};
    std::vector<TUDBtnType> Clicks;
};

TEST_F(UpDown, EachClickIsOneStepOfIncrement) {
    Arrows.Increment = 5;
    Arrows.Position = 50;
    ClickArrow(true);
    EXPECT_EQ(Arrows.Position, 55);
    ClickArrow(true);
    ClickArrow(false);
    EXPECT_EQ(Arrows.Position, 55) << "quick clicks count one by one";
    EXPECT_EQ(Clicks, (std::vector{btNext, btNext, btPrev}));
    Arrows.SetRange(0, 57);
    ClickArrow(true);
    EXPECT_EQ(Arrows.Position, 57);
    ClickArrow(true);
    EXPECT_EQ(Arrows.Position, 57);
    EXPECT_EQ(Clicks.size(), 4u) << "at the end nothing changes";
    Arrows.Max = 20;
    EXPECT_EQ(Arrows.Position, 20);
}

TEST_F(UpDown, CountsInThirtyTwoBits) {
    for (const bool withWindow : {false, true}) {
        SCOPED_TRACE(withWindow);
        Arrows.Parent = withWindow ? Form.get() : nullptr;
        Arrows.SetRange(-2000000000, 2000000000);
        Arrows.Position = 1999999999;
        EXPECT_EQ(Arrows.Position, 1999999999);
        Arrows.Position = INT_MIN;
        EXPECT_EQ(Arrows.Position, -2000000000);
    }
    Arrows.Position = 70000;
    Arrows.RecreateWnd();
    EXPECT_EQ(Arrows.Position, 70000);
    ClickArrow(true);
    EXPECT_EQ(Arrows.Position, 70001);
    EXPECT_EQ(Clicks, std::vector{btNext});
}

TEST_F(UpDown, HandlersSeeTheNewValueAndMayRefuse) {
    struct TAsked {
        int NewValue;
        TUpDownDirection Direction;
        bool operator==(const TAsked&) const = default;
    };
    std::vector<TAsked> asked;
    bool allow = true;
    Arrows.OnChangingEx = [&](TObject*, bool& allowChange, int newValue, TUpDownDirection direction) {
        EXPECT_TRUE(allowChange);
        asked.push_back({newValue, direction});
        allowChange = allow;
    };
    Arrows.Position = 100;
    ClickArrow(true);
    ClickArrow(false);
    EXPECT_EQ(asked, (std::vector<TAsked>{{100, updUp}, {101, updUp}, {99, updDown}}));
    EXPECT_EQ(Arrows.Position, 99);
    allow = false;
    ClickArrow(false);
    Arrows.Position = 3;
    EXPECT_EQ(Arrows.Position, 99);
    allow = true;
    Arrows.OnChanging = [](TObject*, bool& allowChange) { allowChange = false; };
    asked.clear();
    ClickArrow(false);
    EXPECT_EQ(Arrows.Position, 99);
    EXPECT_TRUE(asked.empty()) << "the first no is enough";
}

TEST_F(UpDown, FailingHandlersMeanNoStep) {
    std::vector<std::string> errors;
    Application->OnException = [&](TObject*, const std::exception& error) { errors.emplace_back(error.what()); };
    Arrows.OnChangingEx = [](TObject*, bool&, int, TUpDownDirection) { throw Exception(u"no"); };
    ClickArrow(true);
    Application->OnException = nullptr;
    EXPECT_EQ(errors, std::vector<std::string>{"no"});
    EXPECT_EQ(Arrows.Position, 0);
}

TEST_F(UpDown, HandlersMayTakeItAway) {
    auto* arrows = new TUpDown(Form.get());
    arrows->Parent = Form.get();
    arrows->SetBounds(20, 20, 16, 40);
    arrows->OnChangingEx = [&](TObject*, bool&, int, TUpDownDirection) { delete std::exchange(arrows, nullptr); };
    ClickOn(*arrows, {8, 4});
    EXPECT_TRUE(WaitFor([&] { return arrows == nullptr; }));
    Arrows.OnChanging = [&](TObject*, bool&) { Arrows.RecreateWnd(); };
    ClickArrow(true);
    EXPECT_EQ(Form->ControlCount, 1);
}

TEST_F(UpDown, ArrowsCoolDownWhenThePointerGoesOnToAnotherControl) {
    const auto pixels = [&] {
        Application->ProcessMessages();
        Arrows.Update();
        std::vector<COLORREF> colors;
        for (int y = 0; y < Arrows.Height; ++y) {
            for (int x = 0; x < Arrows.Width; ++x)
                colors.push_back(PixelOf(Arrows, {x, y}));
        }
        return colors;
    };
    TEdit neighbour(nullptr);
    neighbour.Parent = Form.get();
    neighbour.SetBounds(216, 20, 60, 40);
    MoveMouse(Form->ClientToScreen({5, 5}));
    const auto cool = pixels();
    Arrows.Repaint();
    EXPECT_TRUE(pixels() == cool) << "a new size repaints both arrows";
    MoveMouse(Arrows.ClientToScreen({8, 5}));
    const auto hot = pixels();
    MoveMouse(neighbour.ClientToScreen({20, 5}));
    EXPECT_TRUE(WaitFor([&] { return pixels() == cool; }));
    EXPECT_TRUE(hot != cool) << "the theme of this desktop shows which arrow the pointer is on";
}

TEST_F(UpDown, ShowsItsPositionInTheAssociatedField) {
    TEdit field(nullptr);
    field.Parent = Form.get();
    field.SetBounds(20, 50, 100, 21);
    Arrows.Thousands = false;
    Arrows.SetRange(0, 5000);
    Arrows.Associate = &field;
    EXPECT_TRUE(Arrows.BoundsRect == Bounds(120, 50, 16, 21));
    EXPECT_TRUE(field.BoundsRect == Bounds(20, 50, 100, 21)) << "the field keeps its size";
    Arrows.Position = 1234;
    EXPECT_EQ(field.Text, u"1234");
    ClickArrow(true);
    EXPECT_EQ(field.Text, u"1235");
    field.Text = u"77";
    EXPECT_EQ(Arrows.Position, 77) << "typed positions count";
    field.SetFocus();
    PressKey(VK_UP);
    EXPECT_TRUE(WaitFor([&] { return field.Text == u"78"; }));
    TUpDown second(nullptr);
    second.Parent = Form.get();
    EXPECT_THROW(second.Associate = &field, EInvalidOperation);
    Arrows.AlignButton = udLeft;
    EXPECT_EQ(Arrows.Left, 4);
    field.Parent = nullptr;
    {
        TEdit brief(nullptr);
        brief.Parent = Form.get();
        Arrows.Associate = &brief;
    }
    EXPECT_EQ(Arrows.Associate, nullptr);
}

TEST(Clipboard, TextGoesInAndOutInBothForms) {
    const String polish = u"zażółć 1,50";
    ASSERT_TRUE(SetClipboardText(nullptr, polish));
    EXPECT_TRUE(TClipboard::HasText());
    EXPECT_EQ(ClipboardText(nullptr), polish);
    {
        TClipboard clipboard(nullptr);
        ASSERT_TRUE(clipboard);
        EXPECT_TRUE(clipboard.SetAnsiText("12.5"));
    }
    EXPECT_TRUE(TClipboard::HasText());
    EXPECT_EQ(ClipboardText(nullptr), u"12.5");
    TClipboard(nullptr).Clear();
    EXPECT_FALSE(TClipboard::HasText());
    EXPECT_EQ(ClipboardText(nullptr), std::nullopt);
}

} // namespace
