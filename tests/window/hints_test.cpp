// Hints: a real pointer that rests over controls, and the windows that this brings about.

#include "framework/windows/application.h"
#include "framework/windows/edit.h"
#include "framework/windows/hints.h"
#include "framework/windows/label.h"
#include "framework/windows/panel.h"
#include "tests/support/handlecount.h"
#include "tests/support/input.h"

#include <gtest/gtest.h>

using namespace framework;
using namespace testsupport;

namespace {

HWND HintWindow() {
    return FindWindowW(L"THintWindow", nullptr);
}

bool HintShows(StringView text, int milliseconds = 3000) {
    return WaitFor(
        [&] {
            auto* control = FindControl(HintWindow());
            return control && IsWindowVisible(control->GetHandle()) && control->GetText() == text;
        },
        milliseconds);
}

bool HintGoes() {
    return WaitFor([] { return HintWindow() == nullptr; });
}

/// A panel with two parts, each with a hint of its own.
class TPartedPanel : public TPanel {
public:
    using TPanel::TPanel;

    bool Fails = false;

protected:
    void Dispatch(TMessage& message) override {
        if (message.Msg != CM_HINTSHOW) {
            TPanel::Dispatch(message);
            return;
        }
        auto& info = *reinterpret_cast<THintInfo*>(message.LParam);
        EXPECT_EQ(info.HintControl, this);
        if (Fails)
            throw Exception(u"no hint");
        const int part = info.CursorPos.X / 50;
        info.CursorRect = Bounds(part * 50, 0, 50, GetHeight());
        info.HintStr = part == 0 ? u"left part" : u"right part";
        message.Result = part == 2; // the third has none
    }
};

class HintTest : public testing::Test {
protected:
    HintTest() {
        TheApplication().SetHintPause(30);
        Panel.SetParent(Form.get());
        Panel.SetBounds(10, 10, 300, 100);
        Panel.SetHint(u"Panel|of no interest");
        Edit.SetParent(&Panel);
        Edit.SetBounds(10, 40, 100, 21);
        Label.SetParent(&Panel);
        Label.SetBounds(10, 10, 100, 17);
        Label.SetText(u"a label");
        Label.SetHint(u"Label");
        Parted.SetParent(Form.get());
        Parted.SetBounds(10, 120, 150, 40);
        Leave();
    }
    ~HintTest() override {
        Leave();
        TheApplication().SetHintPause(500);
        TheApplication().SetHintHidePause(2500);
    }

    void Leave() {
        MoveMouse(Form->ClientToScreen({380, 5}));
        EXPECT_TRUE(HintGoes());
    }
    void RestOver(TControl& control, int x = 5) { MoveMouse(control.ClientToScreen({x, 5})); }
    /// On a busy machine the display may lead the pointer back, long after it arrived.
    bool ShowsOver(TControl& control, StringView text, int x = 5) {
        for (int attempt = 0; attempt < 5; ++attempt) {
            RestOver(control, x);
            if (HintShows(text, 1000))
                return true;
        }
        return false;
    }

    std::unique_ptr<TForm> Form = ShowForm();
    TPanel Panel{nullptr};
    TEdit Edit{nullptr};
    TLabel Label{nullptr};
    TPartedPanel Parted{nullptr};
};

TEST_F(HintTest, ShowsTheNearestHintAndGoesWithThePointer) {
    RestOver(Label);
    EXPECT_FALSE(WaitFor([] { return HintWindow() != nullptr; }, 150)) << "ShowHint is off";
    Leave();
    Panel.SetShowHint(true); // its children follow
    EXPECT_TRUE(ShowsOver(Label, u"Label"));
    EXPECT_FALSE(IsChild(Form->GetHandle(), HintWindow()));
    EXPECT_EQ(GetForegroundWindow(), Form->GetHandle()) << "a hint takes no focus";
    EXPECT_TRUE(ShowsOver(Edit, u"Panel")) << "the edit has none and shows its parent's, short part only";
    Label.SetEnabled(false);
    EXPECT_TRUE(ShowsOver(Label, u"Label")) << "a disabled control may tell why it is";
    Label.SetEnabled(true);
    Leave();
    TheApplication().SetShowHint(false);
    RestOver(Label);
    EXPECT_FALSE(WaitFor([] { return HintWindow() != nullptr; }, 150));
    TheApplication().SetShowHint(true);
}

TEST_F(HintTest, GoesOnKeysAndClicksAndAfterItsTime) {
    Panel.SetShowHint(true);
    Edit.SetFocus();
    ASSERT_TRUE(ShowsOver(Label, u"Label"));
    TypeText(u"x");
    EXPECT_TRUE(HintGoes());
    EXPECT_FALSE(WaitFor([] { return HintWindow() != nullptr; }, 150)) << "not again while the pointer rests";
    Leave();
    ASSERT_TRUE(ShowsOver(Label, u"Label"));
    ClickOn(Label);
    EXPECT_TRUE(HintGoes());
    Leave();
    TheApplication().SetHintHidePause(500);
    ASSERT_TRUE(ShowsOver(Label, u"Label"));
    EXPECT_TRUE(HintGoes());
}

TEST_F(HintTest, FollowsThePartsOfAControl) {
    Parted.SetShowHint(true);
    EXPECT_TRUE(ShowsOver(Parted, u"left part", 20));
    RestOver(Parted, 120);
    EXPECT_TRUE(HintGoes());
    EXPECT_TRUE(ShowsOver(Parted, u"right part", 70)) << "also out of a part that had none";
}

TEST_F(HintTest, HandlersThatThrowAreReportedOnce) {
    int reported = 0;
    TheApplication().OnException = [&](TObject*, const std::exception&) { ++reported; };
    Parted.SetShowHint(true);
    Parted.Fails = true;
    RestOver(Parted, 20);
    EXPECT_TRUE(WaitFor([&] { return reported > 0; }));
    EXPECT_FALSE(WaitFor([&] { return reported > 1; }, 300)) << "as long as the pointer rests";
    Parted.OnMouseLeave = [](TObject*) { throw Exception(u"left"); };
    int entered = 0;
    Panel.OnMouseEnter = [&](TObject*) { ++entered; };
    Panel.SetShowHint(true);
    EXPECT_TRUE(ShowsOver(Panel, u"Panel", 250)) << "the next control has its hint all the same";
    EXPECT_GE(entered, 1);
    TheApplication().OnException = nullptr;
}

TEST_F(HintTest, OutlivesItsControl) {
    auto mortal = std::make_unique<TEdit>(nullptr);
    mortal->SetParent(Form.get());
    mortal->SetTop(200);
    mortal->SetShowHint(true);
    mortal->SetHint(u"soon gone");
    ASSERT_TRUE(ShowsOver(*mortal, u"soon gone"));
    mortal.reset();
    EXPECT_TRUE(HintGoes());
}

TEST_F(HintTest, StaysOnTheScreen) {
    Panel.SetShowHint(true);
    Label.SetHint(u"words that take more room than there is left");
    const TRect area = TheScreen().GetWorkArea(Form->GetBoundsRect());
    Form->SetBounds(area.Right - 60, area.Bottom - 80, 400, 300);
    ASSERT_TRUE(ShowsOver(Label, Label.GetHint()));
    RECT place{};
    GetWindowRect(HintWindow(), &place);
    EXPECT_LE(place.right, area.Right);
    EXPECT_LE(place.bottom, area.Bottom);
    POINT pointer{};
    GetCursorPos(&pointer);
    EXPECT_FALSE(PtInRect(&place, pointer));
    Form->SetBounds(100, 100, 400, 300);
}

TEST_F(HintTest, GivesBackWhatItTook) {
    Panel.SetShowHint(true);
    ExpectSteadyHandles(20, [this] {
        EXPECT_TRUE(ShowsOver(Label, u"Label"));
        Leave();
    });
}

} // namespace
