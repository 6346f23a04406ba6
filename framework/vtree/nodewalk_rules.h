#pragma once

// Going from node to node while handlers do to them what they like.

#include "framework/vtree/nodestore_rules.h"

#include <memory>

namespace framework {

/// Handlers may delete nodes between two steps: behind one that has gone comes the one that was next when it was
/// reached. The store lives as long as the walk.
class TNodeWalk {
public:
    using TNext = TVirtualNode* (*)(TNodeStore& store, TVirtualNode* node);

    TNodeWalk(const std::shared_ptr<TNodeStore>& store, TVirtualNode* first, TNext next)
        : FStore(store), FNode(*store), FFollowing(*store), FNext(next) {
        Reach(first);
    }

    /// Null at the end, and when the node has been deleted since it was reached.
    TVirtualNode* Node() const { return FNode.Get(); }
    explicit operator bool() const { return static_cast<bool>(FNode); }
    void Step() { Reach(FNode ? FNext(*FStore, FNode.Get()) : FFollowing.Get()); }

    template <TNodeMeasure Measure>
    static TVirtualNode* NextBy(TNodeStore& store, TVirtualNode* node) {
        return store.Next(node, Measure);
    }
    static TVirtualNode* NextSibling(TNodeStore&, TVirtualNode* node) { return node->GetNextSibling(); }

private:
    void Reach(TVirtualNode* node) {
        FNode.Set(node);
        FFollowing.Set(node ? FNext(*FStore, node) : nullptr);
    }

    std::shared_ptr<TNodeStore> FStore;
    TNodeRef FNode;
    TNodeRef FFollowing;
    TNext FNext;
};

} // namespace framework
