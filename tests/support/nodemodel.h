#pragma once

// The nodes of a virtual tree beside a plain model of the same tree: random operations on both, and what must agree.

#include "framework/vtree/nodestore_rules.h"

#include <algorithm>
#include <random>
#include <stdexcept>

namespace testsupport {

using namespace framework;

inline constexpr TNodeMeasure kMeasures[] = {TNodeMeasure::Nodes, TNodeMeasure::Rows, TNodeMeasure::Height,
                                             TNodeMeasure::Selected, TNodeMeasure::Initialized};

/// The same tree, as simple as can be.
struct TNodeModel {
    TVirtualNode* Node = nullptr;
    TNodeModel* Parent = nullptr;
    int Height = 0;
    TVirtualNodeStates States{vsVisible};
    std::vector<std::unique_ptr<TNodeModel>> Children;

    bool Shows() const { return States.Contains(vsVisible) && !States.Contains(vsFiltered); }
    std::int64_t Own(TNodeMeasure measure, bool open) const {
        switch (measure) {
        case TNodeMeasure::Rows:
            return open && Shows() ? 1 : 0;
        case TNodeMeasure::Height:
            return open && Shows() ? Height : 0;
        case TNodeMeasure::Selected:
            return States.Contains(vsSelected) ? 1 : 0;
        case TNodeMeasure::Initialized:
            return States.Contains(vsInitialized) ? 1 : 0;
        default:
            return 1;
        }
    }
    /// Everything below in order, with its own share of the measure.
    void List(TNodeMeasure measure, bool open, std::vector<std::pair<TNodeModel*, std::int64_t>>& list) {
        for (const auto& child : Children) {
            list.emplace_back(child.get(), child->Own(measure, open));
            child->List(measure, open && child->Shows() && child->States.Contains(vsExpanded), list);
        }
    }
};

/// A store and the plain tree beside it. Whatever differs between them is raised as a std::logic_error.
class TNodeStory {
public:
    /// Numbers from 0 to below `limit`.
    using TRandom = std::function<unsigned(unsigned limit)>;

    explicit TNodeStory(TRandom random) : Random(std::move(random)) { FRoot.Node = FStore.Root(); }

    /// One operation. `mostNodes` limits what there is, `mostAtOnce` what comes together.
    void Step(unsigned mostNodes, unsigned mostAtOnce) {
        const unsigned what = Random(10);
        if (what < 2 && FStore.Count() < mostNodes)
            Add(mostAtOnce);
        else if (what < 3)
            Remove();
        else if (what < 4)
            Sort();
        else
            ChangeState();
    }
    void Compare() {
        for (const TNodeMeasure measure : kMeasures) {
            std::vector<std::pair<TNodeModel*, std::int64_t>> all;
            FRoot.List(measure, true, all);
            std::vector<TVirtualNode*> expected;
            std::int64_t sum = 0;
            for (const auto& [model, own] : all) {
                const bool counts = own > 0;
                if (counts) {
                    expected.push_back(model->Node);
                    if (measure != TNodeMeasure::Nodes && FPick() % 20 == 0) {
                        std::int64_t start = -1;
                        Demand(FStore.NodeAt(sum + own - 1, measure, &start) == model->Node, "the node at a place");
                        Demand(start == sum && FStore.PlaceOf(model->Node, measure) == sum, "the place of a node");
                    }
                }
                sum += own;
            }
            if (measure != TNodeMeasure::Nodes)
                Demand(!FStore.NodeAt(sum, measure), "nothing beyond the end");
            std::vector<TVirtualNode*> forward;
            for (TVirtualNode* node = FStore.First(measure); node; node = FStore.Next(node, measure))
                forward.push_back(node);
            Demand(forward == expected, "the walk forwards");
            std::vector<TVirtualNode*> backward;
            for (TVirtualNode* node = FStore.Last(measure); node; node = FStore.Previous(node, measure))
                backward.push_back(node);
            std::reverse(backward.begin(), backward.end());
            Demand(backward == expected, "the walk backwards");
        }
        std::vector<std::pair<TNodeModel*, std::int64_t>> all{{&FRoot, 0}};
        FRoot.List(TNodeMeasure::Nodes, true, all);
        for (const auto& [model, own] : all) {
            if (model->Children.empty())
                continue;
            const auto index = static_cast<unsigned>(FPick() % model->Children.size());
            const TVirtualNode* child = FStore.Child(model->Node, index);
            Demand(child == model->Children[index]->Node && child->GetIndex() == index, "the child at an index");
        }
    }

private:
    static void Demand(bool holds, const char* what) {
        if (!holds)
            throw std::logic_error(what);
    }
    TNodeModel& AnyNode(bool orRoot) {
        std::vector<std::pair<TNodeModel*, std::int64_t>> all;
        if (orRoot)
            all.emplace_back(&FRoot, 0);
        FRoot.List(TNodeMeasure::Nodes, true, all);
        return all.empty() ? FRoot : *all[Random(static_cast<unsigned>(all.size()))].first;
    }

    void Add(unsigned mostAtOnce) {
        TNodeModel& parent = AnyNode(true);
        TVirtualNode* target = parent.Node;
        const int height = static_cast<int>(1 + Random(40));
        const unsigned index = Random(static_cast<unsigned>(parent.Children.size()) + 1);
        const unsigned count = Random(3) == 0 ? Random(mostAtOnce) : 1;
        if (count == 1) {
            Enter(parent, index, FStore.Insert(target, index, height), height);
            return;
        }
        TVirtualNode* node = FStore.Append(target, count, height);
        for (unsigned i = 0; i < count; ++i, node = node->GetNextSibling())
            Enter(parent, parent.Children.size(), node, height);
    }
    void Enter(TNodeModel& parent, std::size_t index, TVirtualNode* node, int height) {
        auto model = std::make_unique<TNodeModel>();
        model->Node = node;
        model->Parent = &parent;
        model->Height = height;
        *static_cast<TNodeModel**>(node->GetData()) = model.get();
        parent.Children.insert(parent.Children.begin() + static_cast<std::ptrdiff_t>(index), std::move(model));
    }
    void Remove() {
        TNodeModel& parent = *(Random(2) ? &FRoot : &AnyNode(true));
        if (parent.Children.empty())
            return;
        const auto first = Random(static_cast<unsigned>(parent.Children.size()));
        const auto most = static_cast<unsigned>(parent.Children.size()) - first;
        const unsigned count = Random(2) ? 1 : 1 + Random(most);
        const TNodeRef inside(FStore, parent.Children[first]->Node);
        std::vector<TNodeModel*> expected;
        for (unsigned i = 0; i < count; ++i)
            Doomed(*parent.Children[first + i], expected);
        std::vector<TNodeModel*> told;
        FStore.Detach(parent.Node, first, count).VisitInitialized([&](TVirtualNode* node) {
            Demand(!FStore.Contains(node), "it has left the tree");
            told.push_back(*static_cast<TNodeModel**>(node->GetData()));
            return true;
        });
        FStore.FreeDetached();
        Demand(told == expected, "who is told, and in which order");
        Demand(!inside, "a reference to what has gone");
        const auto begin = parent.Children.begin() + first;
        parent.Children.erase(begin, begin + count);
    }
    /// The initialised ones, children first.
    static void Doomed(TNodeModel& model, std::vector<TNodeModel*>& list) {
        for (const auto& child : model.Children)
            Doomed(*child, list);
        if (model.States.Contains(vsInitialized))
            list.push_back(&model);
    }
    void ChangeState() {
        constexpr TVirtualNodeStateElement kStates[] = {vsExpanded, vsExpanded, vsVisible,
                                                        vsFiltered, vsSelected, vsInitialized};
        TNodeModel& model = AnyNode(false);
        if (&model == &FRoot)
            return;
        const TVirtualNodeStateElement state = kStates[Random(6)];
        const bool present = !model.States.Contains(state);
        FStore.SetState(model.Node, state, present);
        model.States = present ? TVirtualNodeStates(model.States) << state : TVirtualNodeStates(model.States) >> state;
        if (Random(4) == 0) {
            model.Height = static_cast<int>(Random(100));
            FStore.SetHeight(model.Node, model.Height);
        }
    }
    void Sort() {
        TNodeModel& parent = AnyNode(true);
        const auto less = [](const TNodeModel& left, const TNodeModel& right) {
            return left.Height % 7 < right.Height % 7;
        };
        const auto modelOf = [](TVirtualNode* node) { return *static_cast<TNodeModel**>(node->GetData()); };
        if (Random(2) == 0) {
            FStore.SortByKey(parent.Node,
                             [&](TVirtualNode* node) { return static_cast<std::uint64_t>(modelOf(node)->Height % 7); });
        } else {
            FStore.Sort(parent.Node,
                        [&](TVirtualNode* left, TVirtualNode* right) { return less(*modelOf(left), *modelOf(right)); });
        }
        std::stable_sort(parent.Children.begin(), parent.Children.end(),
                         [&](const auto& left, const auto& right) { return less(*left, *right); });
    }

    TNodeStore FStore{sizeof(void*)};
    TNodeModel FRoot;
    TRandom Random;
    std::minstd_rand FPick; // what is compared; the operations alone use up random numbers
};

} // namespace testsupport
