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

/// The arguments of one call, joined by blanks; the numbers of a place by a comma.
class TArgumentList {
public:
    template <class TArgument>
    void Add(TArgument&& argument) {
        const String text = ArgumentText(argument);
        if (text.empty())
            return;
        constexpr bool isNumber = std::is_same_v<std::remove_cvref_t<TArgument>, int>;
        if (!FText.empty())
            FText += isNumber && FEndsInNumber ? u',' : u' ';
        FText += text;
        FEndsInNumber = isNumber;
    }
    const String& Text() const { return FText; }

private:
    String FText;
    bool FEndsInNumber = false;
};

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
        TArgumentList list;
        (list.Add(arguments), ...);
        hook->FHooks.Report(hook->FComponent, hook->FEvent.Name, list.Text());
        // The handler may assign the event anew, or end this hook.
        const TFunction previous = hook->FPrevious;
        if (previous)
            previous(std::forward<TArguments>(arguments)...);
    }

    TFunction FPrevious;
};

/// What the table of signatures knows of one.
struct TSignature {
    std::unique_ptr<TEventHook> (*MakeHook)(TEventHooks&, TComponent&, const TPropInfo&);
    void (*Ignore)();
};

template <class TFunction>
struct TIgnore;
template <class... TArguments>
struct TIgnore<std::function<void(TArguments...)>> {
    static void Invoke(TObject*, TArguments...) {}
};

template <class TFunction>
std::pair<const std::type_index, TSignature> SignatureOf() {
    return {typeid(TFunction),
            {[](TEventHooks& hooks, TComponent& component, const TPropInfo& event) -> std::unique_ptr<TEventHook> {
                 return std::make_unique<THookOf<TFunction>>(hooks, component, event);
             },
             reinterpret_cast<void (*)()>(&TIgnore<TFunction>::Invoke)}};
}

/// Null for a signature that nobody has listed here yet.
const TSignature* FindSignature(std::type_index signature) {
    static const std::map<std::type_index, TSignature> signatures{
        SignatureOf<TNotifyEvent>(), SignatureOf<TKeyEvent>(),        SignatureOf<TKeyPressEvent>(),
        SignatureOf<TMouseEvent>(),  SignatureOf<TMouseMoveEvent>(),  SignatureOf<TMouseWheelEvent>(),
        SignatureOf<TCloseEvent>(),  SignatureOf<TCloseQueryEvent>(),
    };
    const auto found = signatures.find(signature);
    return found == signatures.end() ? nullptr : &found->second;
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
}

void TEventHooks::HookEvents(TComponent& component) {
    FreeNotification(&component);
    for (const TPropInfo& property : component.ClassInfo().Properties()) {
        if (property.Kind != tkMethod)
            continue;
        const TSignature* signature = FindSignature(property.Signature);
        if (!signature) {
            Report(component, property.Name, u"cannot be watched: its signature is new to the log");
            continue;
        }
        FHooks.push_back(signature->MakeHook(*this, component, property));
        FHooks.back()->Install();
    }
    for (int i = 0; i < component.GetComponentCount(); ++i)
        HookEvents(*component.GetComponent(i));
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

void (*EmptyHandler(std::type_index signature))() {
    const TSignature* known = FindSignature(signature);
    return known ? known->Ignore : nullptr;
}

} // namespace gallery
