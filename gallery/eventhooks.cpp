#include "gallery/eventhooks.h"

#include "gallery/eventsignatures.h"

namespace gallery {

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
        if (!signature->MakeHook)
            continue;
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

} // namespace gallery
