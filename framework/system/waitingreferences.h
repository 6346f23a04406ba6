#pragma once

// References of loaded forms to components of forms that are not there yet.

#include "framework/system/loadsession.h"

#include <list>

namespace framework {

/// A property that is to be set to the component it names.
struct TReference {
    TTargetLife Life;
    TPersistent* Target; ///< the component or item
    String Property;     ///< the path from there
    String Wanted;       ///< the component, by name or path
    TFormPlace Place;
    String ObjectPath; ///< of the target, for messages
};

struct TWaitingReference {
    TWaitingReference(const TReference& reference, TComponent& root, StringView file, std::uint64_t load,
                      std::uint64_t number);
    TWaitingReference(const TWaitingReference&) = delete;
    TWaitingReference& operator=(const TWaitingReference&) = delete;

    bool Lasts() const { return !Settled && Reference.Life.Lasts() && Root.Alive; }

    TLoadedComponent Holder;
    TLoadedComponent Root; ///< whose form has the reference
    TReference Reference;
    String FileName;
    std::uint64_t Load;   ///< the number of the session
    std::uint64_t Number; ///< its own
    bool Settled = false;
};

/// Those of one thread, in the order in which they were found.
class TWaitingReferences {
public:
    static TWaitingReferences& Current();

    void Add(const TReference& reference, TComponent& root, StringView file, std::uint64_t load);
    /// The number that the next reference gets.
    std::uint64_t NextNumber() const { return FNextNumber; }
    /// Those of a load that failed, from this one on.
    void Forget(std::uint64_t load, std::uint64_t first);
    /// Calls `visit` for each one that lasts; it may settle the reference, load forms, and destroy anything.
    template <class TVisit>
    void ForEach(const TVisit& visit);

private:
    /// Takes out what is settled or gone, unless a walk is going on.
    void Sweep();

    std::list<TWaitingReference> FReferences;
    std::uint64_t FNextNumber = 0;
    int FWalks = 0;
};

template <class TVisit>
void TWaitingReferences::ForEach(const TVisit& visit) {
    struct TWalk {
        explicit TWalk(TWaitingReferences& references) : References(references) { ++References.FWalks; }
        ~TWalk() {
            --References.FWalks;
            References.Sweep();
        }
        TWaitingReferences& References;
    };
    const TWalk walk(*this);
    for (TWaitingReference& each : FReferences) {
        if (each.Lasts())
            visit(each);
    }
}

} // namespace framework
