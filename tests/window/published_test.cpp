// Every registered class: its published table agrees with what its constructor makes, and each value goes out and back.
// A class is covered by being registered.

#include "framework/db/dataset.h"
#include "framework/system/strings.h"
#include "framework/windows/monthcalendar.h"
#include "framework/windows/standardcontrols.h"
#include "package/Zorpackage.h"
#include "tests/support/handlecount.h"
#include "tests/support/input.h"

#include <gtest/gtest.h>

using namespace framework;
using namespace testsupport;

namespace {

std::vector<const TClassInfo*> CreatableClasses() {
    RegisterStandardControls();
    ZOR::RegisterPackage();
    std::vector<const TClassInfo*> classes = RegisteredClasses();
    std::erase_if(classes, [](const TClassInfo* each) { return !each->CanCreate(); });
    return classes;
}

bool HasPlainValue(const TPropInfo& property) {
    switch (property.Kind) {
    case tkInteger:
    case tkEnumeration:
    case tkSet:
    case tkFloat:
    case tkString:
    case tkVariant:
        return true;
    default:
        return false;
    }
}

/// What a field shows to a person right now: it opens only where somebody can see it.
bool IsOfTheMoment(const TPersistent& object, const TPropInfo& property) {
    // A dataset opens only on rows.
    if (property.Name == u"Active" && As<TDataSet>(&object))
        return true;
    return property.Name == u"ZORDroppedDown" || property.Name == u"DroppedDown";
}

/// The properties of an object and of its sub-objects, those that would be stored or all; references to other
/// components are not followed.
void ForEachProperty(TPersistent& object, const String& path, bool storedOnly,
                     const std::function<void(TPersistent&, const TPropInfo&, const String&)>& visit) {
    for (const TPropInfo& property : object.ClassInfo().Properties()) {
        const String name = path + u"." + property.Name;
        visit(object, property, name);
        if (property.Kind != tkClass)
            continue;
        TPersistent* inner = property.GetInstance(object);
        if (inner && !As<TComponent>(inner) && (!storedOnly || IsStoredProp(object, property)))
            ForEachProperty(*inner, name, storedOnly, visit);
    }
}

/// Other values than the present one, as a person might set them in an inspector.
std::vector<Variant> OtherValues(const TPersistent& object, const TPropInfo& property) {
    std::vector<Variant> values;
    switch (property.Kind) {
    case tkEnumeration:
        for (const String& name : property.Enum->Names)
            values.emplace_back(name);
        break;
    case tkSet:
        for (const String& name : property.Enum->Names)
            values.emplace_back(u"[" + name + u"]");
        values.emplace_back(u"[]");
        break;
    case tkInteger:
        values.emplace_back(property.GetOrdinal(object) + 3);
        break;
    case tkFloat: // a day, a time of day, or both
        values.emplace_back(property.Name == u"Time" ? 0.5 : property.Name.ends_with(u"Date") ? 2.0 : 2.5);
        break;
    default:
        // One character fits all of them; fields for numbers take no letter for a text.
        values.emplace_back(property.Name == u"Text" ? u"7" : u"T");
    }
    return values;
}

/// A component of the class, on the form when there is one and it is a control.
std::unique_ptr<TComponent> Make(const TClassInfo& info, TForm* form) {
    std::unique_ptr<TComponent> component(info.Create(nullptr));
    if (auto* control = As<TControl>(component.get()); control && form) {
        control->SetParent(form);
        if (auto* window = As<TWinControl>(control))
            window->HandleNeeded();
    }
    return component;
}

TEST(Published, DefaultsAreWhatTheConstructorMakes) {
    const auto classes = CreatableClasses();
    ASSERT_GE(classes.size(), 8u);
    for (const TClassInfo* info : classes) {
        const auto component = Make(*info, nullptr);
        EXPECT_EQ(&component->ClassInfo(), info) << Utf8Encode(info->Name());
        const bool isForm = As<TCustomForm>(component.get()) != nullptr; // states its colour and font in any case
        const auto* control = As<TControl>(component.get());
        const TFont* ownFont = control && !control->GetParentFont() ? control->GetFont() : nullptr; // stated as well
        ForEachProperty(*component, info->Name(), true,
                        [&](TPersistent& object, const TPropInfo& property, const String& name) {
                            SCOPED_TRACE(Utf8Encode(name));
                            if (property.DefaultOrdinal)
                                EXPECT_EQ(property.GetOrdinal(object), *property.DefaultOrdinal);
                            if (property.Kind == tkMethod && &object == component.get())
                                EXPECT_EQ(property.IsAssigned(object), name == u"TZORVirtualDBGrid.OnDrawNode")
                                    << "only this grid brings its drawing as a handler";
                            const bool isOrdinal = property.GetOrdinal != nullptr;
                            const bool isAlwaysStored = isOrdinal && !property.DefaultOrdinal && !property.Stored;
                            if (HasPlainValue(property) && !isAlwaysStored && !isForm && &object != ownFont)
                                EXPECT_FALSE(IsStoredProp(object, property)) << "a fresh object has nothing to store";
                        });
    }
}

TEST(Published, ValuesGoOutAndBack) {
    for (const bool withWindow : {false, true}) {
        SCOPED_TRACE(withWindow ? "with a window" : "without a window");
        for (const TClassInfo* info : CreatableClasses()) {
            const auto form = withWindow ? ShowForm() : nullptr;
            const auto otherForm = withWindow ? ShowForm() : nullptr;
            const auto walk = [&](TPersistent& object, const TPropInfo& property, const String& name) {
                if (!HasPlainValue(property) || property.ReadOnly())
                    return;
                SCOPED_TRACE(Utf8Encode(name));
                for (const bool asText : {true, false}) {
                    const Variant value = GetPropValue(object, property, asText);
                    SetPropValue(object, property, value);
                    EXPECT_TRUE(GetPropValue(object, property, asText) == value) << "its own value changes it";
                }
            };
            auto component = Make(*info, form.get());
            ForEachProperty(*component, info->Name(), false, walk);

            // A changed value is taken, and makes the same of another object.
            std::vector<std::pair<String, std::vector<Variant>>> plan;
            for (const TPropInfo& property : component->ClassInfo().Properties()) {
                if (HasPlainValue(property) && !property.ReadOnly() && !IsOfTheMoment(*component, property))
                    plan.emplace_back(property.Name, OtherValues(*component, property));
            }
            component.reset();
            for (const auto& [name, values] : plan) {
                SCOPED_TRACE(Utf8Encode(info->Name() + u"." + name));
                for (const Variant& value : values) {
                    const auto first = Make(*info, form.get());
                    SetPropValue(*first, name, value);
                    const Variant taken = GetPropValue(*first, name);
                    if (GetPropInfo(*first, name).Kind != tkInteger)
                        EXPECT_TRUE(taken == value) << Utf8Encode(taken.AsString() + u" from " + value.AsString());
                    const auto second = Make(*info, otherForm.get());
                    SetPropValue(*second, name, taken);
                    EXPECT_TRUE(GetPropValue(*second, name) == taken) << Utf8Encode(taken.AsString());
                }
            }
        }
    }
}

TEST(Published, NamesAreThereOnce) {
    for (const TClassInfo* info : CreatableClasses()) {
        TNameMap<int> seen;
        for (const TPropInfo& property : info->Properties())
            EXPECT_EQ(++seen[property.Name], 1) << Utf8Encode(info->Name() + u"." + property.Name);
    }
}

TEST(Published, ControlsGiveBackWhatTheyTook) {
    for (const TClassInfo* info : CreatableClasses()) {
        if (info->Name().starts_with(u"TZOR"))
            continue; // those have more rounds of their own
        SCOPED_TRACE(Utf8Encode(info->Name()));
        const auto form = ShowForm();
        const int lost = info->InheritsFrom(TMonthCalendar::StaticClass()) ? FontsLostByNativeCalendar() : 0;
        ExpectSteadyHandles(
            100, [&] { Make(*info, form.get()); }, lost);
    }
}

} // namespace
