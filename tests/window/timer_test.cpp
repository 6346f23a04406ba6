// Timers: when they fire, when they do not, and what becomes of an exception.

#include "framework/windows/application.h"
#include "framework/windows/timer.h"
#include "tests/support/handlecount.h"
#include "tests/support/input.h"

#include <gtest/gtest.h>

using namespace framework;
using namespace testsupport;

namespace {

TEST(Timer, FiresWhileEnabledAndAnewAfterEachChange) {
    TTimer timer(nullptr);
    int ticks = 0;
    timer.OnTimer = [&](TObject* sender) {
        EXPECT_EQ(sender, &timer);
        ++ticks;
    };
    timer.SetInterval(10);
    EXPECT_TRUE(WaitFor([&] { return ticks >= 3; }));
    timer.SetInterval(60000);
    ticks = 0;
    EXPECT_FALSE(WaitFor([&] { return ticks > 0; }, 60));
    timer.SetInterval(10);
    EXPECT_TRUE(WaitFor([&] { return ticks > 0; }));
    // A tick that is under way when the timer is switched off finds nobody.
    Sleep(40);
    timer.SetEnabled(false);
    ticks = 0;
    EXPECT_FALSE(WaitFor([&] { return ticks > 0; }, 60));
    timer.SetEnabled(true);
    EXPECT_TRUE(WaitFor([&] { return ticks > 0; }));
    timer.SetInterval(0);
    ticks = 0;
    EXPECT_FALSE(WaitFor([&] { return ticks > 0; }, 60));
}

TEST(Timer, RestsInADesigner) {
    int ticks = 0;
    TComponent owner(nullptr);
    owner.SetDesigning(true);
    auto* designed = new TTimer(&owner);
    TTimer running(nullptr);
    for (TTimer* timer : {designed, &running}) {
        timer->OnTimer = [&](TObject*) { ++ticks; };
        timer->SetInterval(10);
    }
    EXPECT_TRUE(WaitFor([&] { return ticks > 0; }));
    running.SetDesigning(true);
    ticks = 0;
    EXPECT_FALSE(WaitFor([&] { return ticks > 0; }, 60));
}

TEST(Timer, MayDieOrThrowInItsHandler) {
    auto* mortal = new TTimer(nullptr);
    bool died = false;
    mortal->SetInterval(10);
    mortal->OnTimer = [&](TObject* sender) {
        died = true;
        delete sender;
    };
    EXPECT_TRUE(WaitFor([&] { return died; }));

    TTimer thrower(nullptr);
    thrower.SetInterval(10);
    thrower.OnTimer = [&](TObject*) {
        thrower.SetEnabled(false);
        throw EConvertError(u"no number");
    };
    String message;
    TObject* blamed = nullptr;
    TheApplication().OnException = [&](TObject* sender, const std::exception& error) {
        blamed = sender;
        message = dynamic_cast<const Exception&>(error).GetMessageText();
    };
    EXPECT_TRUE(WaitFor([&] { return !message.empty(); }));
    TheApplication().OnException = nullptr;
    EXPECT_EQ(message, u"no number");
    EXPECT_EQ(blamed, &thrower);
}

TEST(Timer, LeavesNoWindowBehind) {
    ExpectSteadyHandles(200, [] {
        TTimer timer(nullptr);
        timer.SetInterval(50);
    });
}

} // namespace
