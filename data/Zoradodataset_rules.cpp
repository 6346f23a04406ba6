#include "data/Zoradodataset_rules.h"

#include <algorithm>
#include <numeric>

namespace ZOR {

using framework::OleVariant;

namespace {

bool ComesBefore(const TBookmarkMap::TEntry& left, const TBookmarkMap::TEntry& right) {
    return left.Bookmark < right.Bookmark;
}

} // namespace

void TBookmarkMap::Put(const OleVariant& bookmark, std::int32_t number) {
    FNumbers.clear();
    const bool isSorted = FSorted == FEntries.size();
    const bool isInOrder = isSorted && (FSorted == 0 || FEntries.back().Bookmark < bookmark);
    if (isSorted && !isInOrder) {
        const std::ptrdiff_t place = LowerBound(bookmark) - FEntries.cbegin();
        if (TEntry& entry = FEntries[static_cast<std::size_t>(place)]; entry.Bookmark == bookmark) {
            entry.Number = number;
            return;
        }
    }
    FEntries.push_back({bookmark, number});
    if (isInOrder)
        ++FSorted;
}

void TBookmarkMap::Clear() {
    FEntries = {};
    FNumbers = {};
    FSorted = 0;
}

void TBookmarkMap::Sort() const {
    if (FSorted == FEntries.size())
        return;
    const auto added = FEntries.begin() + static_cast<std::ptrdiff_t>(FSorted);
    std::stable_sort(added, FEntries.end(), ComesBefore);
    std::inplace_merge(FEntries.begin(), added, FEntries.end(), ComesBefore);
    // Of equal bookmarks the last one that was put stands last, and counts.
    auto kept = FEntries.begin();
    for (auto next = std::next(kept); next != FEntries.end(); ++next) {
        if (kept->Bookmark < next->Bookmark)
            ++kept;
        if (kept != next)
            *kept = std::move(*next);
    }
    FEntries.erase(std::next(kept), FEntries.end());
    FSorted = FEntries.size();
}

int TBookmarkMap::GetCount() const {
    Sort();
    return static_cast<int>(FEntries.size());
}

const std::vector<TBookmarkMap::TEntry>& TBookmarkMap::GetEntries() const {
    Sort();
    return FEntries;
}

TBookmarkMap::TIterator TBookmarkMap::LowerBound(const OleVariant& bookmark) const {
    Sort();
    return std::lower_bound(FEntries.cbegin(), FEntries.cend(), bookmark,
                            [](const TEntry& entry, const OleVariant& wanted) { return entry.Bookmark < wanted; });
}

std::int32_t TBookmarkMap::NumberOf(const OleVariant& bookmark) const {
    const TIterator found = LowerBound(bookmark);
    return found != FEntries.cend() && found->Bookmark == bookmark ? found->Number : 0;
}

/// Orders the places by number and, among equal numbers, by bookmark.
void TBookmarkMap::IndexNumbers() const {
    Sort();
    if (!FNumbers.empty())
        return;
    FNumbers.resize(FEntries.size());
    std::iota(FNumbers.begin(), FNumbers.end(), 0U);
    const auto comesBefore = [&](std::uint32_t left, std::uint32_t right) {
        return FEntries[left].Number < FEntries[right].Number;
    };
    if (!std::is_sorted(FNumbers.begin(), FNumbers.end(), comesBefore))
        std::stable_sort(FNumbers.begin(), FNumbers.end(), comesBefore);
}

OleVariant TBookmarkMap::BookmarkOf(std::int32_t number) const {
    IndexNumbers();
    const auto found =
        std::lower_bound(FNumbers.begin(), FNumbers.end(), number,
                         [&](std::uint32_t place, std::int32_t wanted) { return FEntries[place].Number < wanted; });
    if (found == FNumbers.end() || FEntries[*found].Number != number)
        return {};
    return FEntries[*found].Bookmark;
}

OleVariant TBookmarkMap::NextShown(const OleVariant& bookmark) const {
    TIterator next = LowerBound(bookmark);
    while (next != FEntries.cend() && (next->Number == 0 || next->Bookmark == bookmark))
        ++next;
    return next == FEntries.cend() ? OleVariant() : next->Bookmark;
}

OleVariant TBookmarkMap::PriorShown(const OleVariant& bookmark) const {
    TIterator prior = LowerBound(bookmark);
    while (prior != FEntries.cbegin()) {
        --prior;
        if (prior->Number != 0)
            return prior->Bookmark;
    }
    return {};
}

} // namespace ZOR
