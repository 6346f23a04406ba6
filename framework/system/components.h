#pragma once

// Components: named objects that own others, are told when others die, and can be saved to and loaded from text forms.

#include "framework/system/exceptions.h"
#include "framework/system/published.h"

#include <functional>
#include <string_view>
#include <vector>

namespace framework {

enum TOperation { opInsert, opRemove };

enum TComponentStateElement {
    csLoading,          ///< a text form is setting the properties; Loaded() follows
    csReading,          ///< this component's own properties are being read
    csWriting,          ///< being saved
    csDestroying,       ///< the destructor has begun
    csDesigning,        ///< handled by a form designer: it must not act on the user's behalf
    csAncestor,         ///< brought along by the owner's class or its ancestor's form, not by the owner's own form
    csFreeNotification, ///< some other component is told when this one dies
    csInline,           ///< the root of an inline frame
};
using TComponentState = Set<TComponentStateElement>;

enum TComponentStyleElement {
    csSubComponent, ///< streamed with the component that holds it, as its sub-object
};
using TComponentStyle = Set<TComponentStyleElement>;

class TLifeGuard;
class TComponent;

/// Shows `visit` every component that lives in the process, of all threads, with and without owners, the oldest first.
/// It is for what concerns all of them, such as a library of classes that is to leave the process. Other threads wait
/// meanwhile before they make or free one, and `visit` must do neither.
void EachLivingComponent(const std::function<void(const TComponent& component)>& visit);

class TComponent : public TPersistent {
    FRAMEWORK_CLASS(TComponent)

public:
    FRAMEWORK_PROPERTY(String, Name, GetName, SetName);
    FRAMEWORK_PROPERTY(std::intptr_t, Tag, GetTag, SetTag);
    FRAMEWORK_READ_PROPERTY(TComponent*, Owner, GetOwnerComponent);
    FRAMEWORK_READ_PROPERTY(int, ComponentCount, GetComponentCount);
    FRAMEWORK_READ_PROPERTY(TComponent*, Components[], GetComponent);
    FRAMEWORK_READ_PROPERTY(TComponentState, ComponentState, GetComponentState);
    FRAMEWORK_PROPERTY(int, DesignLeft, GetDesignLeft, SetDesignLeft);
    FRAMEWORK_PROPERTY(int, DesignTop, GetDesignTop, SetDesignTop);

    /// The owner, if any, frees the component when it dies itself.
    explicit TComponent(TComponent* owner);
    ~TComponent() override;

    const String& GetName() const { return FName; }
    /// An identifier, unique among the owner's components letter case aside, or empty; EComponentError otherwise.
    virtual void SetName(const String& name);
    std::intptr_t GetTag() const { return FTag; }
    void SetTag(std::intptr_t value) { FTag = value; }
    TComponent* GetOwnerComponent() const { return FOwner; }
    TPersistent* GetOwner() const override { return FOwner; }
    String GetNamePath() const override;

    /// Where a designer shows a component that has no place on the screen, in pixels; published as Left and Top.
    int GetDesignLeft() const { return FDesignLeft; }
    void SetDesignLeft(int value) { FDesignLeft = value; }
    int GetDesignTop() const { return FDesignTop; }
    void SetDesignTop(int value) { FDesignTop = value; }

    int GetComponentCount() const { return static_cast<int>(FComponents.size()); }
    /// EListError when the index is not in 0..ComponentCount-1.
    TComponent* GetComponent(int index) const;
    /// The owned component of that name, letter case aside; null when there is none.
    TComponent* FindComponent(StringView name) const;
    void InsertComponent(TComponent* component);
    void RemoveComponent(TComponent* component);

    TComponentState GetComponentState() const { return FComponentState; }
    TComponentStyle GetComponentStyle() const { return FComponentStyle; }
    /// Marks the component as streamed inside the one that holds it.
    void SetSubComponent(bool value);
    /// Puts the component and everything it owns in or out of design state.
    void SetDesigning(bool value, bool setChildren = true);

    /// Asks that this component's Notification hears of the death of `component`, as any component that keeps a
    /// pointer to another must. Components of one owner hear of each other anyway.
    void FreeNotification(TComponent* component);
    void RemoveFreeNotification(TComponent* component);

    // What text forms need to know of a component's place among others.
    /// The components that are written inside this one, in order; `root` is the form being saved.
    virtual std::vector<TComponent*> GetChildren(TComponent* root) const;
    virtual TComponent* GetParentComponent() const { return nullptr; }
    bool HasParent() const { return GetParentComponent() != nullptr; }
    virtual void SetParentComponent(TComponent* parent);
    virtual void SetChildOrder(TComponent* child, int order);

    /// Marks this component and those it owns as being destroyed; the destructors begin with it.
    void Destroying();
    /// Called by an owner before it frees the component, while the component's own class is still there; a plain delete
    /// does not call it.
    virtual void BeforeDestruction() {}

protected:
    /// Called on the owner when a component comes or goes; when one goes also on every other component of the owner and
    /// on those that asked for it. Overrides clear their pointers to `component` on opRemove and call the inherited
    /// one. They must not raise on opRemove, as it comes from destructors.
    virtual void Notification(TComponent* component, TOperation operation);
    /// Called when a text form has set all properties of everything in it.
    virtual void Loaded();
    /// Called once Loaded has been called for everything that the text form holds.
    virtual void LoadFinished() {}
    /// Called before the properties of this component are read.
    virtual void Updating() {}
    virtual void ValidateRename(TComponent* component, const String& oldName, const String& newName);
    void ChangeState(TComponentStateElement element, bool present);

private:
    friend class TFormLoader;
    friend class TFormSaver;
    friend class TLifeGuard;
    friend void EachLivingComponent(const std::function<void(const TComponent&)>& visit);

    TComponent();
    void InsertOwned(TComponent* component);
    void RemoveOwned(TComponent* component);
    bool NameIndexed() const { return !FNameIndex.empty(); }
    void IndexName(TComponent* component, bool present);
    void FillField(TComponent* component, bool present);
    void RemoveNotifications();
    void DestroyComponents();

    TComponent* FOwner = nullptr;
    String FName;
    std::intptr_t FTag = 0;
    int FDesignLeft = 0;
    int FDesignTop = 0;
    std::vector<TComponent*> FComponents;
    TNameMap<TComponent*> FNameIndex;       // kept once there are many
    std::vector<TComponent*> FFreeNotifies; // mutual: both sides know each other
    TComponentState FComponentState;
    TComponentStyle FComponentStyle;
    TLifeGuard* FGuards = nullptr;
    TComponent* FOlder = nullptr; // the list of all that live
    TComponent* FYounger = nullptr;
};

/// Tells whether a component outlived a callback. Make it before the call, usually on the stack:
///
///     TLifeGuard alive(*this);
///     OnClick(this);
///     if (!alive) return;
class TLifeGuard {
public:
    explicit TLifeGuard(TComponent& component);
    ~TLifeGuard();
    TLifeGuard(const TLifeGuard&) = delete;
    TLifeGuard& operator=(const TLifeGuard&) = delete;

    explicit operator bool() const { return FComponent != nullptr; }

private:
    friend class TComponent;
    TComponent* FComponent;
    TLifeGuard* FNext;
    TLifeGuard** FLink; // what points to this guard: the one before it, or the component
};

/// Does something at the end of a scope, exceptions included, if the component is still there then.
template <class TBody>
class TAtScopeEnd {
public:
    TAtScopeEnd(TComponent& component, TBody body) : FAlive(component), FBody(std::move(body)) {}
    TAtScopeEnd(const TAtScopeEnd&) = delete;
    TAtScopeEnd& operator=(const TAtScopeEnd&) = delete;
    ~TAtScopeEnd() {
        if (FAlive)
            FBody();
    }

private:
    TLifeGuard FAlive;
    TBody FBody;
};

/// Calls an event of `component` when it is assigned; false when the handler destroyed the component, so that the
/// caller must return at once without touching it. The handler is copied first: it may reassign the event.
template <class TFunction, class... TArguments>
bool Fire(TComponent& component, const TFunction& event, TArguments&&... arguments) {
    if (!event)
        return true;
    TLifeGuard alive(component);
    const TFunction handler = event;
    handler(std::forward<TArguments>(arguments)...);
    return static_cast<bool>(alive);
}

// The class registry. It has no lock: classes come and go while no other thread loads forms.

/// Makes classes known to text forms. Registering a class twice is harmless; another class under a known name is
/// EComponentError.
void RegisterClasses(std::initializer_list<const TClassInfo*> classes);
void UnRegisterClasses(std::initializer_list<const TClassInfo*> classes);
/// The registered class of that name, letter case aside; null when there is none.
const TClassInfo* GetClass(StringView name);
/// As GetClass, but raises EClassNotFound.
const TClassInfo& FindClass(StringView name);

/// All registered classes, by name.
std::vector<const TClassInfo*> RegisteredClasses();

/// Puts component classes on a page of the designer's palette and makes them known to text forms.
void RegisterComponents(const String& page, std::initializer_list<const TClassInfo*> classes);

struct TPalettePage {
    String Name;
    std::vector<const TClassInfo*> Classes;
};
/// The palette's pages in the order of their first registration. Loading and unloading packages changes them.
const std::vector<TPalettePage>& PalettePages();

} // namespace framework
