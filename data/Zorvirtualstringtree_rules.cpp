#include "data/Zorvirtualstringtree_rules.h"

#include "framework/system/casemapping.h"
#include "framework/system/numbers.h"
#include "framework/system/strings.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <numeric>
#include <utility>

#if defined(__SSE2__) || defined(_M_X64)
#define ZOR_WIDE_SEARCH 1
#include <emmintrin.h>
#endif

namespace ZOR {

// Searching

#ifdef ZOR_WIDE_SEARCH

/// Compares eight places at a time by the first and the last unit of the part; only where both are right the rest is
/// looked at.
std::size_t FindPart(StringView text, StringView part, std::size_t from) {
    constexpr std::size_t kLane = 8; // units
    if (part.empty() || from > text.size() || text.size() - from < part.size())
        return text.find(part, from);
    const std::size_t behind = part.size() - 1;
    const __m128i first = _mm_set1_epi16(static_cast<short>(part.front()));
    const __m128i last = _mm_set1_epi16(static_cast<short>(part.back()));
    std::size_t place = from;
    for (; place + behind + kLane <= text.size(); place += kLane) {
        const auto* at = text.data() + place;
        const __m128i starts = _mm_cmpeq_epi16(_mm_loadu_si128(reinterpret_cast<const __m128i*>(at)), first);
        const __m128i ends = _mm_cmpeq_epi16(_mm_loadu_si128(reinterpret_cast<const __m128i*>(at + behind)), last);
        auto hits = static_cast<unsigned>(_mm_movemask_epi8(_mm_and_si128(starts, ends)));
        while (hits != 0) {
            const auto lane = static_cast<std::size_t>(std::countr_zero(hits)) / 2;
            if (behind < 2 || std::memcmp(at + lane, part.data(), part.size() * sizeof(char16_t)) == 0)
                return place + lane;
            hits &= ~(3u << (lane * 2));
        }
    }
    return text.find(part, place);
}

#else

std::size_t FindPart(StringView text, StringView part, std::size_t from) {
    return text.find(part, from);
}

#endif

std::string PlainSortKey(StringView text) {
    std::string key;
    key.reserve(text.size() * 2);
    for (const char16_t unit : text) {
        const char16_t lower = ToLowerCase(unit);
        key += static_cast<char>(lower >> 8);
        key += static_cast<char>(lower & 0xFF);
    }
    return key;
}

// Items

void TCheckList::Add(int id, const String& text) {
    const auto index = static_cast<std::uint32_t>(FItems.size());
    FItems.push_back({id, text, csUncheckedNormal, true});
    FVisible.push_back(1);
    FMatches.push_back(index);
    FRanks.clear();
}

void TCheckList::Clear() {
    FItems.clear();
    FVisible = {};
    FMatches = {};
    FLowerTexts = {};
    FLowerStarts = {};
    FRanks = {};
    FByRank = {};
    FMatched = 0;
    FChecked = 0;
    FVisibleChecked = 0;
}

const sCheckListBox& TCheckList::Item(std::size_t index) const {
    sCheckListBox& item = FItems[index];
    item.visible = IsVisible(index); // a phrase would otherwise write to a million items
    return item;
}

bool TCheckList::SetState(std::size_t index, TCheckState state) {
    sCheckListBox& item = FItems[index];
    if (item.state == state)
        return false;
    const std::size_t before = item.IsChecked() ? 1 : 0;
    item.state = state;
    const std::size_t after = item.IsChecked() ? 1 : 0;
    FChecked += after - before; // unsigned numbers go round and come out right
    if (IsVisible(index))
        FVisibleChecked += after - before;
    return true;
}

std::vector<std::uint32_t> TCheckList::SetVisibleStates(TCheckState state) {
    std::vector<std::uint32_t> changed;
    for (const std::uint32_t index : FMatches) {
        if (SetState(index, state))
            changed.push_back(index);
    }
    return changed;
}

// The phrase

StringView TCheckList::LowerText(std::size_t index) const {
    return StringView(FLowerTexts).substr(FLowerStarts[index], FLowerStarts[index + 1] - FLowerStarts[index]);
}

/// Texts that came since the last time go behind the others.
void TCheckList::PrepareTexts() {
    if (FLowerStarts.empty())
        FLowerStarts.push_back(0);
    const std::size_t known = FLowerStarts.size() - 1;
    const std::size_t length = FLowerTexts.size();
    FLowerStarts.reserve(FItems.size() + 1);
    for (std::size_t i = known; i < FItems.size(); ++i)
        FLowerStarts.push_back(FLowerStarts.back() + FItems[i].text.size());
    FLowerTexts.reserve(FLowerStarts.back());
    std::for_each(FItems.begin() + static_cast<std::ptrdiff_t>(known), FItems.end(),
                  [this](const sCheckListBox& item) { FLowerTexts += item.text; });
    LowerCaseInPlace(FLowerTexts.data() + length, FLowerTexts.size() - length);
}

bool TCheckList::BeginsWith(std::size_t index, StringView lowerText) {
    PrepareTexts();
    return LowerText(index).substr(0, lowerText.size()) == lowerText;
}

bool TCheckList::SetPhrase(const String& phrase) {
    if (FPhrase == phrase)
        return false;
    FPhrase = phrase;
    const String before = std::exchange(FLowerPhrase, AnsiLowerCase(phrase));
    if (phrase.empty()) {
        std::fill(FVisible.begin(), FVisible.end(), std::uint8_t{1});
        FMatches.resize(FItems.size());
        std::iota(FMatches.begin(), FMatches.end(), 0u);
    } else {
        PrepareTexts();
        if (!before.empty() && FLowerPhrase.find(before) != String::npos)
            MatchVisible(FLowerPhrase);
        else
            MatchAll(FLowerPhrase);
    }
    FMatched = FItems.size();
    CountVisibleChecked();
    return true;
}

void TCheckList::MatchNew() {
    const std::size_t from = std::exchange(FMatched, FItems.size());
    if (FLowerPhrase.empty() || from == FItems.size())
        return;
    PrepareTexts();
    MatchVisible(FLowerPhrase, from);
    CountVisibleChecked();
}

void TCheckList::CountVisibleChecked() {
    FVisibleChecked = static_cast<std::size_t>(
        FChecked == 0 ? 0 : std::count_if(FMatches.begin(), FMatches.end(), [this](std::uint32_t index) {
            return FItems[index].IsChecked();
        }));
}

/// One search through all texts as if they were one; what reaches from one into the next does not count.
void TCheckList::MatchAll(StringView phrase) {
    std::fill(FVisible.begin(), FVisible.end(), std::uint8_t{0});
    FMatches.clear();
    const StringView texts = FLowerTexts;
    std::size_t item = 0;
    for (std::size_t place = FindPart(texts, phrase); place != StringView::npos;) {
        // The text that holds the place: usually one of the next few.
        std::size_t step = 1;
        while (item + step < FItems.size() && FLowerStarts[item + step] <= place) {
            item += step;
            step *= 2;
        }
        while (step /= 2) {
            if (item + step < FItems.size() && FLowerStarts[item + step] <= place)
                item += step;
        }
        if (place + phrase.size() <= FLowerStarts[item + 1]) {
            FVisible[item] = 1;
            FMatches.push_back(static_cast<std::uint32_t>(item));
            place = FindPart(texts, phrase, FLowerStarts[item + 1]);
        } else {
            place = FindPart(texts, phrase, place + 1);
        }
    }
}

/// Looks at the visible items from a number on.
void TCheckList::MatchVisible(StringView phrase, std::size_t from) {
    const auto goes = [&](std::uint32_t index) {
        if (FindPart(LowerText(index), phrase) != StringView::npos)
            return false;
        FVisible[index] = 0;
        return true;
    };
    const auto first = std::lower_bound(FMatches.begin(), FMatches.end(), from);
    FMatches.erase(std::remove_if(first, FMatches.end(), goes), FMatches.end());
}

// Counts

TCheckState TCheckList::HeaderState() const {
    const std::size_t all = FPhrase.empty() ? Count() : VisibleCount();
    const std::size_t checked = FPhrase.empty() ? FChecked : FVisibleChecked;
    if (checked == 0)
        return csUncheckedNormal;
    return checked == all ? csCheckedNormal : csMixedNormal;
}

String TCheckList::Caption(const String& text, bool withCounts) const {
    if (!withCounts)
        return text;
    return text + u": " + IntToStr(static_cast<std::int64_t>(FChecked)) + u"/" +
           IntToStr(static_cast<std::int64_t>(Count()));
}

// Order

/// Sorts all items by their texts, once for all orders. Most keys differ in their first bytes, which lie beside the
/// item's number.
void TCheckList::PrepareRanks() {
    if (FRanks.size() == FItems.size())
        return;
    struct TKeyed {
        std::uint64_t Head;
        std::uint32_t Item;
    };
    std::string keys;
    std::vector<std::size_t> starts{0};
    starts.reserve(FItems.size() + 1);
    std::vector<TKeyed> order;
    order.reserve(FItems.size());
    for (const sCheckListBox& item : FItems) {
        const std::string key = FSortKey(item.text);
        std::uint64_t head = 0;
        for (std::size_t i = 0; i < sizeof(head); ++i)
            head = head << 8 | (i < key.size() ? static_cast<unsigned char>(key[i]) : 0u);
        order.push_back({head, static_cast<std::uint32_t>(order.size())});
        keys += key;
        starts.push_back(keys.size());
    }
    const auto keyOf = [&](std::uint32_t item) {
        return std::string_view(keys).substr(starts[item], starts[item + 1] - starts[item]);
    };
    std::stable_sort(order.begin(), order.end(), [&](const TKeyed& left, const TKeyed& right) {
        return left.Head != right.Head ? left.Head < right.Head : keyOf(left.Item) < keyOf(right.Item);
    });
    FRanks.resize(FItems.size());
    FByRank.resize(FItems.size());
    std::uint32_t rank = 0;
    for (std::size_t i = 0; i < order.size(); ++i) {
        if (i > 0 && keyOf(order[i].Item) != keyOf(order[i - 1].Item))
            rank = static_cast<std::uint32_t>(i);
        FRanks[order[i].Item] = rank;
        FByRank[i] = order[i].Item;
    }
}

std::uint32_t TCheckList::Rank(std::size_t index) {
    PrepareRanks();
    return FRanks[index];
}

std::uint64_t TCheckList::OrderKey(std::size_t index, TCheckListOrder order) {
    switch (order) {
    case TCheckListOrder::ByText:
        return Rank(index);
    case TCheckListOrder::ByTextDescending:
        return UINT32_MAX - Rank(index);
    case TCheckListOrder::ByCheck:
        return static_cast<std::uint64_t>(FItems[index].state) << 32 | Rank(index);
    case TCheckListOrder::ByCheckDescending:
        return ~OrderKey(index, TCheckListOrder::ByCheck);
    default:
        return index;
    }
}

int TCheckList::Compare(std::size_t first, std::size_t second, bool byCheck) {
    const TCheckListOrder order = byCheck ? TCheckListOrder::ByCheck : TCheckListOrder::ByText;
    const std::uint64_t left = OrderKey(first, order);
    const std::uint64_t right = OrderKey(second, order);
    return left < right ? -1 : left > right ? 1 : 0;
}

std::vector<std::uint32_t> TCheckList::Shown(TCheckListOrder order) {
    if (order == TCheckListOrder::AsAdded)
        return FMatches;
    PrepareRanks();
    // Where most items show, going through all in their order costs less than sorting those that show.
    constexpr std::size_t kFewerThanOneIn = 16;
    if (order == TCheckListOrder::ByText && FMatches.size() > FItems.size() / kFewerThanOneIn) {
        std::vector<std::uint32_t> shown;
        shown.reserve(FMatches.size());
        std::copy_if(FByRank.begin(), FByRank.end(), std::back_inserter(shown),
                     [this](std::uint32_t index) { return FVisible[index] != 0; });
        return shown;
    }
    std::vector<std::pair<std::uint64_t, std::uint32_t>> keyed;
    keyed.reserve(FMatches.size());
    for (const std::uint32_t index : FMatches)
        keyed.emplace_back(OrderKey(index, order), index);
    std::sort(keyed.begin(), keyed.end()); // the number of the item keeps equal ones in their order
    std::vector<std::uint32_t> shown(keyed.size());
    std::transform(keyed.begin(), keyed.end(), shown.begin(), [](const auto& each) { return each.second; });
    return shown;
}

} // namespace ZOR
