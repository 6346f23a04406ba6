#include "framework/system/waitingreferences.h"

namespace framework {

TWaitingReference::TWaitingReference(const TReference& reference, TComponent& root, StringView file, std::uint64_t load)
    : Holder(*reference.Life.Component->Component, false), Root(root, false), Reference(reference), FileName(file),
      Load(load) {
    Reference.Life.Component = &Holder;
}

TWaitingReferences& TWaitingReferences::Current() {
    thread_local TWaitingReferences references;
    return references;
}

void TWaitingReferences::Add(const TReference& reference, TComponent& root, StringView file, std::uint64_t load) {
    FReferences.emplace_back(reference, root, file, load);
}

void TWaitingReferences::Forget(std::uint64_t load) {
    for (TWaitingReference& each : FReferences)
        each.Settled = each.Settled || each.Load == load;
    Sweep();
}

void TWaitingReferences::Sweep() {
    if (FWalks == 0)
        std::erase_if(FReferences, [](const TWaitingReference& each) { return !each.Lasts(); });
}

} // namespace framework
