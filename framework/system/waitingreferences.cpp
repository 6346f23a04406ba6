#include "framework/system/waitingreferences.h"

namespace framework {

TWaitingReference::TWaitingReference(const TReference& reference, TComponent& root, StringView file, std::uint64_t load,
                                     std::uint64_t number)
    : Holder(*reference.Life.Component->Component, false), Root(root, false), Reference(reference), FileName(file),
      Load(load), Number(number) {
    Reference.Life.Component = &Holder;
}

TWaitingReferences& TWaitingReferences::Current() {
    thread_local TWaitingReferences references;
    return references;
}

void TWaitingReferences::Add(const TReference& reference, TComponent& root, StringView file, std::uint64_t load) {
    FReferences.emplace_back(reference, root, file, load, FNextNumber++);
}

void TWaitingReferences::Forget(std::uint64_t load, std::uint64_t first) {
    for (TWaitingReference& each : FReferences)
        each.Settled = each.Settled || (each.Load == load && each.Number >= first);
    Sweep();
}

void TWaitingReferences::Sweep() {
    if (FWalks == 0)
        std::erase_if(FReferences, [](const TWaitingReference& each) { return !each.Lasts(); });
}

} // namespace framework
