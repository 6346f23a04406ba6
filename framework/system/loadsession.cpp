#include "framework/system/loadsession.h"

namespace framework {

namespace {

thread_local TLoadSession* currentSession = nullptr;
thread_local std::uint64_t sessionCount = 0;

} // namespace

TLoadSession::TLoadSession() : FOuter(currentSession), FNumber(++sessionCount) {
    currentSession = this;
}

TLoadSession::~TLoadSession() {
    Close();
}

TLoadSession* TLoadSession::Current() {
    return currentSession;
}

void TLoadSession::Close() {
    if (!FClosed)
        currentSession = FOuter;
    FClosed = true;
}

const TLoadedComponent* TLoadSession::Find(const TComponent* component) const {
    const auto found = FIndex.find(component);
    return found != FIndex.end() && found->second->Alive ? found->second : nullptr;
}

bool TLoadSession::Takes(const TComponent& root) const {
    if (FCreating)
        return true;
    for (const TComponent* each = &root; each; each = each->GetOwnerComponent()) {
        if (Find(each))
            return true;
    }
    return false;
}

TLoadedComponent& TLoadSession::Enter(TComponent& component, bool created) {
    TLoadedComponent*& place = FIndex[&component];
    // An entry of the same address may be that of a component long gone.
    if (!place || !place->Alive)
        place = &Components.emplace_back(component, created);
    place->Created = place->Created || created;
    return *place;
}

TComponent* TLoadSession::Create(const TClassInfo& info, TComponent* owner) {
    struct TCreating {
        explicit TCreating(bool& flag) : Flag(flag), Before(std::exchange(flag, true)) {}
        ~TCreating() { Flag = Before; }
        bool& Flag;
        bool Before;
    };
    const TCreating creating(FCreating);
    return info.Create(owner);
}

} // namespace framework
