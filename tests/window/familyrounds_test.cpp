// Every control of the library is made, shown and destroyed a thousand times, at common and at odd sizes: nothing stays
// behind.

#include "framework/system/strings.h"
#include "framework/windows/listbox.h"
#include "framework/windows/monthcalendar.h"
#include "package/Zorpackage.h"
#include "tests/support/handlecount.h"
#include "tests/support/input.h"

#include <gtest/gtest.h>

namespace {

using namespace framework;
using namespace testsupport;

std::vector<const TClassInfo*> ControlClasses() {
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
    int made = 0;
    const auto round = [&] {
        constexpr TSize sizes[] = {{100, 60}, {0, 0}, {1, 1}};
        const TSize size = sizes[made++ % 3];
        const std::unique_ptr<TComponent> component(GetParam()->Create(nullptr));
        auto& control = static_cast<TWinControl&>(*component);
        if (control.ClassInfo().FindProperty(u"Wymagany"))
            SetPropValue(control, u"Wymagany", String(u"wRequired"));
        if (control.ClassInfo().FindProperty(u"BoundLabel"))
            SetPropValue(*GetObjectProp(control, u"BoundLabel"), u"Active", true);
        control.SetBounds(120, 20, size.Width, size.Height);
        control.Parent = form.get();
        if (auto* list = As<TCustomListBox>(&control))
            list->Items->Add(u"item");
        control.Update();
    };
    ExpectSteadyHandles(1000, round, isCalendar ? FontsLostByNativeCalendar() : 0);
}

INSTANTIATE_TEST_SUITE_P(Controls, Rounds, testing::ValuesIn(ControlClasses()),
                         [](const auto& info) { return Utf8Encode(info.param->Name()); });

} // namespace
