// The phrase of a check list over a million items: a fresh one beside a plain loop over the same prepared texts, the
// next letter of one, and the order of the texts beside std::stable_sort over the same keys.

#include "bench/measure.h"
#include "data/Zorvirtualstringtree_rules.h"
#include "framework/system/strings.h"

#include <random>

using namespace ZOR;

namespace {

constexpr unsigned kItems = 1'000'000;

String RandomText(std::mt19937& random) {
    String text;
    for (unsigned i = 16 + random() % 17; i > 0; --i)
        text += static_cast<char16_t>((random() % 8 == 0 ? u'A' : u'a') + random() % 26);
    return text;
}

std::string Key(StringView text) {
    std::string key;
    for (const char16_t unit : text)
        key += static_cast<char>(unit | 0x20);
    return key;
}

void Phrases(TCheckList& list, const std::vector<String>& lower, const std::vector<String>& phrases) {
    std::size_t next = 0;
    std::size_t found = 0;
    std::size_t plainFound = 0;
    const auto ours = [&] {
        list.SetPhrase(u"?");
        const double taken = bench::Milliseconds([&] { list.SetPhrase(phrases[next % phrases.size()]); });
        found = list.VisibleCount();
        return taken;
    };
    String joined;
    std::vector<std::size_t> starts{0};
    for (const String& text : lower) {
        joined += text;
        starts.push_back(joined.size());
    }
    std::vector<std::uint8_t> visible(lower.size());
    const auto peer = [&] {
        const String phrase = AnsiLowerCase(phrases[++next % phrases.size()]);
        plainFound = 0;
        return bench::Milliseconds([&] {
            for (std::size_t i = 0; i < lower.size(); ++i) {
                const StringView text(joined.data() + starts[i], starts[i + 1] - starts[i]);
                visible[i] = text.find(phrase) != StringView::npos ? 1 : 0;
                plainFound += visible[i];
            }
        });
    };
    bench::PrintRatio("a fresh phrase", bench::MedianPair(ours, peer), "ms", 1.0);
    std::printf("  %zu and %zu items show at last (aim 15 ms)\n", found, plainFound);
}

} // namespace

int main() {
    std::mt19937 random(4);
    TCheckList list(&Key);
    std::vector<String> lower;
    for (unsigned i = 0; i < kItems; ++i) {
        const String text = RandomText(random);
        lower.push_back(AnsiLowerCase(text));
        list.Add(static_cast<int>(i), text);
    }
    std::printf("preparing the texts   %8.1f ms, once\n", bench::Milliseconds([&] { list.SetPhrase(u"?"); }));
    Phrases(list, lower, {u"qxz", u"Warsz", u"abcd", u"lub", u"KRA"});
    Phrases(list, lower, {u"e", u"a", u"t"});
    list.SetPhrase(u"");
    list.SetPhrase(u"ab");
    std::printf("the third letter      %8.2f ms over the", bench::Milliseconds([&] { list.SetPhrase(u"abc"); }));
    list.SetPhrase(u"ab");
    std::printf(" %zu that the second one left\n", list.VisibleCount());
    list.SetPhrase(u"");

    std::vector<std::string> keys;
    for (const String& text : lower)
        keys.push_back(Key(text));
    std::vector<std::uint32_t> order(kItems);
    const auto peer = [&] {
        for (unsigned i = 0; i < kItems; ++i)
            order[i] = i;
        return bench::Milliseconds([&] {
            std::stable_sort(order.begin(), order.end(),
                             [&](std::uint32_t left, std::uint32_t right) { return keys[left] < keys[right]; });
        });
    };
    const auto ours = [&] {
        TCheckList fresh(&Key);
        for (unsigned i = 0; i < kItems; ++i)
            fresh.Add(0, lower[i]);
        return bench::Milliseconds([&] { fresh.Rank(0); });
    };
    bench::PrintRatio("keys made and sorted", {ours(), peer()}, "ms", 1.5);
    list.Shown(TCheckListOrder::ByText);
    std::printf("the order again       %8.1f ms\n", bench::Milliseconds([&] { list.Shown(TCheckListOrder::ByText); }));
    return 0;
}
