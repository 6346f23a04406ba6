// What the nodes of a virtual tree cost: adding them beside a plain vector of the same payload, finding one by its
// place among a thousand and among ten million, and sorting them beside std::stable_sort over the same keys and by the
// same call.

#include "bench/measure.h"
#include "framework/vtree/nodestore_rules.h"

#include <cstring>
#include <random>

using namespace framework;

namespace {

constexpr unsigned kNodes = 1'000'000;
constexpr std::size_t kPayload = 16; // bytes
constexpr int kRowHeight = 18;       // pixels

double NanosecondsEach(const std::function<void()>& work, double count) {
    return bench::Milliseconds(work) * 1e6 / count;
}

void Adding() {
    struct TPayload {
        std::uint64_t Parts[2];
    };
    const auto vector = [] {
        return NanosecondsEach(
            [] {
                std::vector<TPayload> plain;
                for (unsigned i = 0; i < kNodes; ++i)
                    plain.push_back({});
            },
            kNodes);
    };
    const auto adding = [](unsigned atOnce) {
        TNodeStore store(kPayload);
        return NanosecondsEach(
            [&] {
                for (unsigned i = 0; i < kNodes; i += atOnce)
                    store.Append(store.Root(), atOnce, kRowHeight);
            },
            kNodes);
    };
    const bench::TPair single = bench::MedianPair([&] { return adding(1); }, vector);
    const bench::TPair bulk = bench::MedianPair([&] { return adding(kNodes); }, vector);
    std::printf("adding one by one   %6.1f ns a node   vector %5.1f ns   (aim 60)\n", single.Ours, single.Peer);
    std::printf("adding all at once  %6.1f ns a node   vector %5.1f ns   (aim 60)\n", bulk.Ours, bulk.Peer);
    TNodeStore store(kPayload);
    store.Append(store.Root(), kNodes, kRowHeight);
    // The store's own blocks: a pointer a node and the block's head.
    const double blocks = sizeof(void*) + (sizeof(TNodeBlock) + sizeof(TNodeSums) + sizeof(void*)) / 256.0;
    std::printf("memory              %6.1f bytes a node beside %zu of payload   (aim 96)\n",
                static_cast<double>(store.Bytes()) / kNodes - kPayload + blocks, kPayload);
    std::printf("clearing            %6.1f ns a node\n", NanosecondsEach(
                                                             [&] {
                                                                 store.Detach(store.Root(), 0, kNodes);
                                                                 store.FreeDetached();
                                                             },
                                                             kNodes));
}

void Finding(unsigned nodes) {
    TNodeStore store(kPayload);
    store.Append(store.Root(), nodes, kRowHeight);
    std::mt19937_64 random(1);
    constexpr int kSearches = 200'000;
    std::int64_t sum = 0;
    const double found = NanosecondsEach(
        [&] {
            for (int i = 0; i < kSearches; ++i) {
                const auto place =
                    static_cast<std::int64_t>(random() % static_cast<std::uint64_t>(store.Total().Height));
                sum += TNodeStore::PlaceOf(store.NodeAt(place, TNodeMeasure::Height), TNodeMeasure::Rows);
            }
        },
        kSearches);
    std::printf("among %8u       %6.0f ns to find a node by its pixel and its row by the node (%lld)\n", nodes, found,
                static_cast<long long>(sum % 10));
}

void Sorting(bool byKey) {
    std::mt19937 random(2);
    std::vector<std::uint32_t> keys(kNodes);
    for (std::uint32_t& key : keys)
        key = static_cast<std::uint32_t>(random());
    const auto ours = [&] {
        TNodeStore store(sizeof(std::uint32_t));
        TVirtualNode* node = store.Append(store.Root(), kNodes, kRowHeight);
        for (unsigned i = 0; i < kNodes; ++i, node = node->GetNextSibling())
            std::memcpy(node->GetData(), &keys[i], sizeof(keys[i]));
        const auto keyOf = [](TVirtualNode* each) { return *static_cast<std::uint32_t*>(each->GetData()); };
        return bench::Milliseconds([&] {
            if (byKey)
                store.SortByKey(store.Root(), keyOf);
            else
                store.Sort(store.Root(),
                           [&](TVirtualNode* left, TVirtualNode* right) { return keyOf(left) < keyOf(right); });
        });
    };
    const auto peer = [&] {
        std::vector<std::uint32_t*> order(kNodes);
        for (unsigned i = 0; i < kNodes; ++i)
            order[i] = &keys[i];
        return bench::Milliseconds([&] {
            std::stable_sort(order.begin(), order.end(),
                             [](const std::uint32_t* left, const std::uint32_t* right) { return *left < *right; });
        });
    };
    bench::PrintRatio(byKey ? "sorting a million by keys" : "sorting a million by a call",
                      bench::MedianPair(ours, peer), "ms", 1.5);
}

} // namespace

/// What a call takes at the least: the same call in std::stable_sort over the same nodes.
void SortingByCallAnyhow() {
    std::mt19937 random(2);
    TNodeStore store(sizeof(std::uint32_t));
    store.Append(store.Root(), kNodes, kRowHeight);
    const auto keyOf = [](TVirtualNode* node) -> std::uint32_t& {
        return *static_cast<std::uint32_t*>(node->GetData());
    };
    const TNodeStore::TLess less = [&](TVirtualNode* left, TVirtualNode* right) { return keyOf(left) < keyOf(right); };
    const auto shuffled = [&] {
        std::vector<TVirtualNode*> nodes;
        for (TVirtualNode* node = store.Root()->GetFirstChild(); node; node = node->GetNextSibling()) {
            keyOf(node) = static_cast<std::uint32_t>(random());
            nodes.push_back(node);
        }
        return nodes;
    };
    const auto ours = [&] {
        shuffled();
        return bench::Milliseconds([&] { store.Sort(store.Root(), less); });
    };
    const auto peer = [&] {
        std::vector<TVirtualNode*> nodes = shuffled();
        return bench::Milliseconds([&] { std::stable_sort(nodes.begin(), nodes.end(), less); });
    };
    bench::PrintRatio("the same call, stable_sort", bench::MedianPair(ours, peer), "ms", 1.0);
}

int main() {
    Adding();
    Finding(1'000);
    Finding(1'000'000);
    Finding(10'000'000);
    Sorting(true);
    Sorting(false);
    SortingByCallAnyhow();
    return 0;
}
