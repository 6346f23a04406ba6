// The nodes of virtual trees: every operation at random beside a plain model of the same tree, and what large trees
// cost.

#include "framework/vtree/nodestore_rules.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <map>
#include <random>

using namespace framework;

namespace {

constexpr TNodeMeasure kMeasures[] = {TNodeMeasure::Nodes, TNodeMeasure::Rows, TNodeMeasure::Height,
                                      TNodeMeasure::Selected, TNodeMeasure::Initialized};

/// The same tree, as simple as can be.
struct TModel {
    TVirtualNode* Node = nullptr;
    TModel* Parent = nullptr;
    int Height = 0;
    TVirtualNodeStates States{vsVisible};
    std::vector<std::unique_ptr<TModel>> Children;

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
    void List(TNodeMeasure measure, bool open, std::vector<std::pair<TModel*, std::int64_t>>& list) {
        for (const auto& child : Children) {
            list.emplace_back(child.get(), child->Own(measure, open));
            child->List(measure, open && child->Shows() && child->States.Contains(vsExpanded), list);
        }
    }
};

class NodeModelTest : public testing::Test {
protected:
    unsigned Random(unsigned limit) { return static_cast<unsigned>(FRandom() % limit); }
    TModel& AnyNode(bool orRoot) {
        std::vector<std::pair<TModel*, std::int64_t>> all;
        if (orRoot)
            all.emplace_back(&FRoot, 0);
        FRoot.List(TNodeMeasure::Nodes, true, all);
        return all.empty() ? FRoot : *all[Random(static_cast<unsigned>(all.size()))].first;
    }

    void Add() {
        TModel& parent = AnyNode(true);
        TVirtualNode* target = parent.Node;
        const int height = static_cast<int>(1 + Random(40));
        const unsigned index = Random(static_cast<unsigned>(parent.Children.size()) + 1);
        const unsigned count = Random(3) == 0 ? Random(600) : 1;
        if (count == 1) {
            Enter(parent, index, FStore.Insert(target, index, height), height);
            return;
        }
        TVirtualNode* node = FStore.Append(target, count, height);
        for (unsigned i = 0; i < count; ++i, node = node->GetNextSibling())
            Enter(parent, parent.Children.size(), node, height);
    }
    void Enter(TModel& parent, std::size_t index, TVirtualNode* node, int height) {
        auto model = std::make_unique<TModel>();
        model->Node = node;
        model->Parent = &parent;
        model->Height = height;
        *static_cast<TModel**>(node->GetData()) = model.get();
        parent.Children.insert(parent.Children.begin() + static_cast<std::ptrdiff_t>(index), std::move(model));
    }
    void Remove() {
        TModel& parent = *(Random(2) ? &FRoot : &AnyNode(true));
        if (parent.Children.empty())
            return;
        const auto first = Random(static_cast<unsigned>(parent.Children.size()));
        const auto most = static_cast<unsigned>(parent.Children.size()) - first;
        const unsigned count = Random(2) ? 1 : 1 + Random(most);
        const TNodeRef inside(FStore, parent.Children[first]->Node);
        std::vector<TModel*> expected;
        for (unsigned i = 0; i < count; ++i)
            Doomed(*parent.Children[first + i], expected);
        std::vector<TModel*> told;
        FStore.Detach(parent.Node, first, count).VisitInitialized([&](TVirtualNode* node) {
            EXPECT_FALSE(FStore.Contains(node));
            told.push_back(*static_cast<TModel**>(node->GetData()));
            return true;
        });
        FStore.FreeDetached();
        EXPECT_EQ(told, expected);
        EXPECT_FALSE(inside);
        const auto begin = parent.Children.begin() + first;
        parent.Children.erase(begin, begin + count);
    }
    /// The initialised ones, children first.
    static void Doomed(TModel& model, std::vector<TModel*>& list) {
        for (const auto& child : model.Children)
            Doomed(*child, list);
        if (model.States.Contains(vsInitialized))
            list.push_back(&model);
    }
    void ChangeState() {
        constexpr TVirtualNodeStateElement kStates[] = {vsExpanded, vsExpanded, vsVisible,
                                                        vsFiltered, vsSelected, vsInitialized};
        TModel& model = AnyNode(false);
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
        TModel& parent = AnyNode(true);
        const auto less = [](const TModel& left, const TModel& right) { return left.Height % 7 < right.Height % 7; };
        const auto modelOf = [](TVirtualNode* node) { return *static_cast<TModel**>(node->GetData()); };
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

    void Compare() {
        for (const TNodeMeasure measure : kMeasures) {
            std::vector<std::pair<TModel*, std::int64_t>> all;
            FRoot.List(measure, true, all);
            std::vector<TVirtualNode*> expected;
            std::int64_t sum = 0;
            for (const auto& [model, own] : all) {
                const bool counts = own > 0;
                if (counts) {
                    expected.push_back(model->Node);
                    if (measure != TNodeMeasure::Nodes && Random(20) == 0) {
                        std::int64_t start = -1;
                        ASSERT_EQ(FStore.NodeAt(sum + own - 1, measure, &start), model->Node);
                        ASSERT_EQ(start, sum);
                        ASSERT_EQ(FStore.PlaceOf(model->Node, measure), sum);
                    }
                }
                sum += own;
            }
            if (measure != TNodeMeasure::Nodes) {
                ASSERT_EQ(FStore.NodeAt(sum, measure), nullptr);
            }
            std::vector<TVirtualNode*> forward;
            for (TVirtualNode* node = FStore.First(measure); node; node = FStore.Next(node, measure))
                forward.push_back(node);
            ASSERT_EQ(forward, expected) << "measure " << static_cast<int>(measure);
            std::vector<TVirtualNode*> backward;
            for (TVirtualNode* node = FStore.Last(measure); node; node = FStore.Previous(node, measure))
                backward.push_back(node);
            std::reverse(backward.begin(), backward.end());
            ASSERT_EQ(backward, expected) << "measure " << static_cast<int>(measure);
        }
        for (int i = 0; i < 5; ++i) {
            const TModel& model = AnyNode(false);
            if (model.Children.empty())
                continue;
            const unsigned index = Random(static_cast<unsigned>(model.Children.size()));
            const TVirtualNode* child = FStore.Child(model.Node, index);
            ASSERT_EQ(child, model.Children[index]->Node);
            ASSERT_EQ(child->GetIndex(), index);
        }
    }

    TNodeStore FStore{sizeof(void*)};
    TModel FRoot;
    std::mt19937 FRandom;
};

TEST_F(NodeModelTest, RandomOperationsAgreeWithAPlainTree) {
    const unsigned randomSeed = std::random_device()();
    FRandom.seed(randomSeed);
    RecordProperty("seed", static_cast<int>(randomSeed));
    SCOPED_TRACE(testing::Message() << "seed " << randomSeed);
    FRoot.Node = FStore.Root();
    for (int step = 0; step < 1500 && !HasFatalFailure(); ++step) {
        const unsigned what = Random(10);
        if (what < 2 && FStore.Count() < 4000)
            Add();
        else if (what < 3)
            Remove();
        else if (what < 4)
            Sort();
        else
            ChangeState();
        if (step % 15 == 0)
            Compare();
    }
}

TEST(NodeStore, GivesItsMemoryBackAndReusesIt) {
    TNodeStore store(16);
    store.Append(store.Root(), 100000, 18);
    const std::size_t full = store.Bytes();
    EXPECT_LE(full, 100000 * (96 + 16u));
    // Every second one goes and comes again: holes are filled before more is taken.
    for (unsigned i = 0; i < 50000; ++i)
        store.Detach(store.Root(), i, 1);
    store.FreeDetached();
    store.Append(store.Root(), 50000, 18);
    EXPECT_EQ(store.Bytes(), full);
    for (unsigned left = 100000; left > 100; left -= 100) {
        store.Detach(store.Root(), 0, 100);
        store.FreeDetached();
    }
    EXPECT_LT(store.Bytes(), full / 10) << "chunks go with their last nodes";
    store.Detach(store.Root(), 0, 100);
    store.FreeDetached();
    EXPECT_EQ(store.Bytes(), 0u);
    EXPECT_EQ(store.Total(), TNodeSums());
}

TEST(NodeStore, CountsBeyond32BitsOfPixels) {
    TNodeStore store;
    store.Append(store.Root(), 3'000'000, 1000);
    EXPECT_EQ(store.Total().Height, 3'000'000'000);
    std::int64_t top = 0;
    TVirtualNode* last = store.NodeAt(2'999'999'999, TNodeMeasure::Height, &top);
    EXPECT_EQ(last, store.Root()->GetLastChild());
    EXPECT_EQ(top, 2'999'999'000);
}

TEST(NodeStore, LongBranchesNeedNoStack) {
    TNodeStore store;
    TVirtualNode* node = store.Root();
    for (int i = 0; i < 10000; ++i) {
        node = store.Append(node, 1, 10);
        store.SetState(node, vsInitialized, true);
    }
    EXPECT_EQ(store.Level(node), 9999u);
    int told = 0;
    store.Detach(store.Root(), 0, 1).VisitInitialized([&](TVirtualNode*) { return ++told > 0; });
    store.FreeDetached();
    EXPECT_EQ(told, 10000);
    EXPECT_EQ(store.Bytes(), 0u);
}

TEST(NodeStore, SortingSurvivesNonsense) {
    TNodeStore store;
    store.Append(store.Root(), 1000, 10);
    std::mt19937 random(1);
    store.Sort(store.Root(), [&](TVirtualNode*, TVirtualNode*) { return random() % 2 == 0; });
    EXPECT_EQ(store.Total().Nodes, 1000);
    const TVirtualNode* first = store.Root()->GetFirstChild();
    EXPECT_THROW(store.Sort(store.Root(), [](TVirtualNode*, TVirtualNode*) -> bool { throw 1; }), int);
    EXPECT_EQ(store.Root()->GetFirstChild(), first) << "nothing moved";
}

} // namespace
