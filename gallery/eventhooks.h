#pragma once

// Listens to every published event of a form's components. The hooks come from the published tables: no class is named,
// only the signatures of events (eventsignatures.h). A handler that was assigned before is called as ever.

#include "framework/windows/forms.h"

#include <functional>
#include <memory>
#include <vector>

namespace gallery {
using namespace framework;

class TEventHooks;

/// One event of one component.
class TEventHook : public TObject {
public:
    TEventHook(TEventHooks& hooks, TComponent& component, const TPropInfo& event);

    TComponent& Component() const { return FComponent; }
    /// True while the event still calls this hook.
    bool InPlace() const { return FEvent.GetMethod(FComponent) == &FMethod; }
    /// Takes the handler's place.
    virtual void Install() = 0;
    /// Gives the handler its place back, unless another one was assigned meanwhile.
    virtual void Remove() = 0;

protected:
    TEventHooks& FHooks;
    TComponent& FComponent;
    const TPropInfo& FEvent;
    // What the event calls: it bears the name of the handler whose place it takes, so that the inspector and a saved
    // form go on naming that one.
    TMethodInfo FMethod;
};

class TEventHooks : public TComponent {
    FRAMEWORK_CLASS(TEventHooks)

public:
    /// "NameEdit", "OnKeyDown", "F7 [ssShift]".
    using TReport = std::function<void(const String& component, const String& event, const String& arguments)>;

    explicit TEventHooks(TReport report);
    ~TEventHooks() override;

    /// Hooks the events of `root` and of all it owns, in place of those watched so far.
    void Watch(TComponent* root);
    /// Hooks again those events that were assigned anew.
    void Refresh();

    void Report(const TComponent& component, const String& event, const String& arguments) const;

protected:
    void Notification(TComponent* component, TOperation operation) override;

private:
    void HookEvents(TComponent& component);
    void Release();

    TReport FReport;
    std::vector<std::unique_ptr<TEventHook>> FHooks;
};

} // namespace gallery
