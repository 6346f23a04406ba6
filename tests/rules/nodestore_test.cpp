// The nodes of virtual trees: every operation at random beside a plain model of the same tree, and what large trees
// cost.

#include "framework/vtree/nodestore_rules.h"
#include "tests/support/nodemodel.h"

#include <gtest/gtest.h>

#include <random>

using namespace framework;

namespace {

TEST(NodeStore, RandomOperationsAgreeWithAPlainTree) {
    const unsigned randomSeed = std::random_device()();
    std::mt19937 random(randomSeed);
    SCOPED_TRACE(testing::Message() << "seed " << randomSeed);
    testsupport::TNodeStory story([&](unsigned limit) { return static_cast<unsigned>(random() % limit); });
    EXPECT_NO_THROW({
        for (int step = 0; step < 1500; ++step) {
            story.Step(4000, 600);
            if (step % 15 == 0)
                story.Compare();
        }
    });
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
