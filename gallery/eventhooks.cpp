#include "gallery/eventhooks.h"

#include "framework/system/numbers.h"
#include "framework/system/strings.h"
#include "gallery/playerscript_rules.h"

#include <map>

namespace gallery {

namespace {

// Each kind of argument as a line of the log shows it; empty ones are left out.

String ArgumentText(TObject*) {
    return {}; // the sender is the component that the line names
}
String ArgumentText(WORD& key) {
    return KeyName(key);
}
String ArgumentText(char16_t& key) {
    return key < u' ' ? u"#" + IntToStr(static_cast<int>(key)) : u"'" + String(1, key) + u"'";
}
String ArgumentText(int number) {
    return IntToStr(number);
}
String ArgumentText(TMouseButton button) {
    constexpr const char16_t* kNames[] = {u"mbLeft", u"mbRight", u"mbMiddle"};
    return kNames[button];
}
String ArgumentText(TShiftState shift) {
    static const TEnumInfo info{
        u"TShiftState",
        {u"ssShift", u"ssAlt", u"ssCtrl", u"ssLeft", u"ssRight", u"ssMiddle", u"ssDouble", u"ssTouch", u"ssPen"}};
    return shift.Empty() ? String() : SetToText(info, shift.Bits());
}
String ArgumentText(TPoint point) {
    return IntToStr(point.X) + u"," + IntToStr(point.Y);
}
String ArgumentText(bool&) {
    return {}; // an answer, still to be given
}
String ArgumentText(TCloseAction&) {
    return {};
}

void Append(String& text, const String& argument) {
    if (argument.empty())
        return;
    if (!text.empty())
        text += u' ';
    text += argument;
}

template <class TFunction>
class THookOf;

template <class... TArguments>
class THookOf<std::function<void(TArguments...)>> final : public TEventHook {
    using TFunction = std::function<void(TArguments...)>;

public:
    THookOf(TEventHooks& hooks, TComponent& component, const TPropInfo& event) : TEventHook(hooks, component, event) {
        FMethod.Signature = typeid(TFunction);
        FMethod.Invoker = reinterpret_cast<void (*)()>(&Invoke);
    }

    void Install() override {
        const TMethodInfo* method = FEvent.GetMethod(FComponent);
        FMethod.Name = method ? method->Name : String();
        FPrevious = EventHandler<TFunction>(FComponent, FEvent);
        FEvent.SetMethod(FComponent, this, &FMethod);
    }
    void Remove() override {
        if (InPlace())
            EventHandler<TFunction>(FComponent, FEvent) = FPrevious;
    }

private:
    static void Invoke(TObject* instance, TArguments... arguments) {
        auto* hook = static_cast<THookOf*>(instance);
        String text;
        (Append(text, ArgumentText(arguments)), ...);
        hook->FHooks.Report(hook->FComponent, hook->FEvent.Name, text);
        // The handler may assign the event anew, or end this hook.
        const TFunction previous = hook->FPrevious;
        if (previous)
            previous(std::forward<TArguments>(arguments)...);
    }

    TFunction FPrevious;
};

using THookFactory = std::unique_ptr<TEventHook> (*)(TEventHooks&, TComponent&, const TPropInfo&);

template <class TFunction>
std::pair<const std::type_index, THookFactory> FactoryOf() {
    return {typeid(TFunction),
            [](TEventHooks& hooks, TComponent& component, const TPropInfo& event) -> std::unique_ptr<TEventHook> {
                return std::make_unique<THookOf<TFunction>>(hooks, component, event);
            }};
}

/// Null for a signature that nobody has listed here yet.
THookFactory FindFactory(std::type_index signature) {
    static const std::map<std::type_index, THookFactory> factories{
        FactoryOf<TNotifyEvent>(), FactoryOf<TKeyEvent>(),        FactoryOf<TKeyPressEvent>(),
        FactoryOf<TMouseEvent>(),  FactoryOf<TMouseMoveEvent>(),  FactoryOf<TMouseWheelEvent>(),
        FactoryOf<TCloseEvent>(),  FactoryOf<TCloseQueryEvent>(),
    };
    const auto found = factories.find(signature);
    return found == factories.end() ? nullptr : found->second;
}

} // namespace

TEventHook::TEventHook(TEventHooks& hooks, TComponent& component, const TPropInfo& event)
    : FHooks(hooks), FComponent(component), FEvent(event) {
}

const TClassInfo& TEventHooks::StaticClass() {
    static const TClassInfo info = DescribeClass<TEventHooks>(u"TEventHooks", TComponent::StaticClass());
    return info;
}

TEventHooks::TEventHooks(TReport report) : TComponent(nullptr), FReport(std::move(report)) {
}

TEventHooks::~TEventHooks() {
    Destroying();
    Release();
}

void TEventHooks::Watch(TComponent* root) {
    Release();
    if (!root)
        return;
    HookEvents(*root);
    for (int i = 0; i < root->GetComponentCount(); ++i)
        HookEvents(*root->GetComponent(i));
}

void TEventHooks::HookEvents(TComponent& component) {
    FreeNotification(&component);
    for (const TPropInfo& property : component.ClassInfo().Properties()) {
        if (property.Kind != tkMethod)
            continue;
        const THookFactory factory = FindFactory(property.Signature);
        if (!factory) {
            Report(component, property.Name, u"cannot be watched: its signature is new to the log");
            continue;
        }
        FHooks.push_back(factory(*this, component, property));
        FHooks.back()->Install();
    }
}

void TEventHooks::Refresh() {
    for (const auto& hook : FHooks) {
        if (!hook->InPlace())
            hook->Install();
    }
}

void TEventHooks::Release() {
    for (const auto& hook : FHooks)
        hook->Remove();
    FHooks.clear();
}

void TEventHooks::Notification(TComponent* component, TOperation operation) {
    TComponent::Notification(component, operation);
    if (operation == opRemove)
        std::erase_if(FHooks, [component](const auto& hook) { return &hook->Component() == component; });
}

void TEventHooks::Report(const TComponent& component, const String& event, const String& arguments) const {
    if (FReport)
        FReport(component.GetName().empty() ? component.ClassName() : component.GetName(), event, arguments);
}

} // namespace gallery
