// Every framed control is made, shown and destroyed a thousand times: nothing stays behind.

#include "controls/Zormonthcalendar.h"
#include "foundation/Zorpackage.h"
#include "framework/system/strings.h"
#include "tests/support/handlecount.h"
#include "tests/support/input.h"

#include <gtest/gtest.h>

namespace {

using namespace framework;
using namespace testsupport;

/// The registered controls that can be framed.
std::vector<const TClassInfo*> FramedClasses() {
    ZOR::RegisterPackage();
    std::vector<const TClassInfo*> classes = RegisteredClasses();
    std::erase_if(classes, [](const TClassInfo* each) {
        return !each->CanCreate() || !each->InheritsFrom(TWinControl::StaticClass()) ||
               !each->Name().starts_with(u"TZOR");
    });
    return classes;
}

class Rounds : public testing::TestWithParam<const TClassInfo*> {};

TEST_P(Rounds, LeaveNothingBehind) {
    const auto form = ShowForm();
    const bool isCalendar = GetParam()->InheritsFrom(TMonthCalendar::StaticClass());
    const auto round = [&] {
        const std::unique_ptr<TComponent> made(GetParam()->Create(nullptr));
        auto& control = static_cast<TWinControl&>(*made);
        if (control.ClassInfo().FindProperty(u"Wymagany"))
            SetPropValue(control, u"Wymagany", String(u"wRequired"));
        control.SetBounds(120, 20, 100, 60);
        control.Parent = form.get();
        control.Update();
    };
    ExpectSteadyHandles(1000, round, isCalendar ? FontsLostByNativeCalendar() : 0);
}

INSTANTIATE_TEST_SUITE_P(Family, Rounds, testing::ValuesIn(FramedClasses()),
                         [](const auto& info) { return Utf8Encode(info.param->Name()); });

} // namespace
