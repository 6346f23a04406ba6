// What one key costs in a choice field of 100,000 items, accents folded: the search for a text that only the last item
// has, for one that none has, and for one at the beginning; beside a search that folds each item as it goes.

#include "framework/system/strings.h"
#include "lists/Choicesearch_rules.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <functional>

using namespace ZOR;

namespace {

constexpr int kItems = 100000;

/// The fastest of some runs, in milliseconds.
double Fastest(const std::function<int()>& work, int expected) {
    double fastest = 1e9;
    for (int round = 0; round < 15; ++round) {
        const auto start = std::chrono::steady_clock::now();
        const int found = work();
        const std::chrono::duration<double, std::milli> took = std::chrono::steady_clock::now() - start;
        if (found != expected) {
            std::fprintf(stderr, "found %d in place of %d\n", found, expected);
            std::exit(1);
        }
        fastest = std::min(fastest, took.count());
    }
    return fastest;
}

} // namespace

int main(int argumentCount, char** arguments) {
    TStringList names;
    names.LoadFromFile(Utf8Decode(argumentCount > 1 ? arguments[1] : "gallery/data/places.txt"));
    TStringList items;
    std::size_t units = 0;
    for (int i = 0; i + 1 < kItems; ++i)
        units += items.Get(items.Add(names.Get(i % names.GetCount()))).size();
    items.Add(u"Ždár quux Łódź");

    constexpr TTextFolding folding{
        .Umlauts = false, .ListedAccents = true, .AllAccents = false, .Case = TFoldedCase::Upper};
    TChoiceIndex index;
    const double fill = Fastest(
        [&] {
            index.Assign(items, folding);
            return index.Count();
        },
        kItems);
    const auto slow = [&](StringView typed) {
        const TTextFolder folder(folding);
        const String part = folder.Fold(typed);
        for (int i = 0; i < items.GetCount(); ++i) {
            if (folder.Fold(items.Get(i)).find(part) != String::npos)
                return i;
        }
        return -1;
    };
    std::printf("%d items of %.1f letters, from %d place names\n", kItems, static_cast<double>(units) / kItems,
                names.GetCount());
    std::printf("  preparing the texts            %8.3f ms\n", fill);
    std::printf("  memory for searching           %8.2f of the texts (limit 3)\n",
                static_cast<double>(index.MemorySize()) / static_cast<double>(units * sizeof(char16_t)));
    const struct {
        const char* Name;
        StringView Typed;
        TMatchPlace Place;
        int Expected;
    } searches[] = {
        {"the last item, anywhere", u"quux ło", TMatchPlace::Anywhere, kItems - 1},
        {"no item, anywhere", u"krakq", TMatchPlace::Anywhere, -1},
        {"one letter, no item", u"\u0416", TMatchPlace::Anywhere, -1},
        {"no item, from the beginning", u"krakq", TMatchPlace::Beginning, -1},
    };
    for (const auto& search : searches) {
        const double ours = Fastest([&] { return index.Find(search.Typed, search.Place).Item; }, search.Expected);
        const double peer = Fastest([&] { return slow(search.Typed); }, search.Expected);
        std::printf("  %-30s %8.3f ms (limit 0.600)   folding each item %8.3f ms\n", search.Name, ours, peer);
    }
    return 0;
}
