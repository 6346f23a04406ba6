#pragma once

// The components that one load of a text form touches, together with loads that begin inside it: an inline frame reads
// its own form in its constructor, a form that of its ancestor.

#include "framework/system/components.h"
#include "framework/system/formvalues.h"

#include <deque>
#include <memory>
#include <unordered_map>

namespace framework {

/// A component that a form has created or changes.
struct TLoadedComponent {
    TLoadedComponent(TComponent& component, bool created) : Alive(component), Component(&component), Created(created) {}

    TLifeGuard Alive;
    TComponent* Component;
    bool Created;     ///< by the load, which frees it when it fails
    TFormPlace Place; ///< of its object in the form
    String Name;      ///< for messages, as it may be gone by then
    StringView File;  ///< with that form; the session keeps it
};

/// Tells whether what is being read is still there: the component and, inside a collection, the item.
struct TTargetLife {
    TLoadedComponent* Component = nullptr;
    std::weak_ptr<const void> Item;
    bool InItem = false;

    bool Lasts() const { return Component->Alive && !(InItem && Item.expired()); }
};

class TLoadSession {
public:
    TLoadSession();
    ~TLoadSession();
    TLoadSession(const TLoadSession&) = delete;
    TLoadSession& operator=(const TLoadSession&) = delete;

    /// The innermost load going on in this thread; null for none.
    static TLoadSession* Current();
    /// From now on loads that begin are on their own.
    void Close();

    /// True when a load into `root` is part of this one: the root or an owner of it is being loaded, or a component is
    /// just being constructed, which is then the root or makes it.
    bool Takes(const TComponent& root) const;
    /// Null for one that the load has not met.
    const TLoadedComponent* Find(const TComponent* component) const;
    TLoadedComponent& Enter(TComponent& component, bool created);
    TComponent* Create(const TClassInfo& info, TComponent* owner);

    /// Tells this load from all others of the thread.
    std::uint64_t Number() const { return FNumber; }

    /// In the order in which they were created or first met.
    std::deque<TLoadedComponent> Components;
    /// Those of them into which a form was read.
    std::vector<TLoadedComponent*> Roots;
    std::deque<String> Files;

private:
    std::unordered_map<const TComponent*, TLoadedComponent*> FIndex;
    TLoadSession* FOuter;
    std::uint64_t FNumber;
    bool FCreating = false;
    bool FClosed = false;
};

} // namespace framework
