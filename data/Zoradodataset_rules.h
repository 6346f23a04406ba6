#pragma once

// Which rows a narrowed dataset shows: a map from the bookmarks of rows to the numbers that the program gave them. It
// is kept as a sorted array, so a bookmark costs 20 bytes, and neither a number nor the next row is sought one by one.

#include "framework/db/recordinfo.h"

#include <optional>

namespace ZOR {

/// An ordered map from bookmarks to numbers. Bookmarks are compared by value: 5 is 5 in whatever kind of number. The
/// number 0 marks a row that is not shown, though it is counted.
class TBookmarkMap {
public:
    /// What is known of a place in the map.
    struct TEntry {
        framework::OleVariant Bookmark;
        std::int32_t Number = 0;
    };

    /// Registers a bookmark; one that is there already takes the new number. Quickest in ascending order.
    void Put(const framework::OleVariant& bookmark, std::int32_t number);
    void Clear();
    bool IsEmpty() const { return FEntries.empty(); }
    /// How many bookmarks there are, those with the number 0 among them.
    int GetCount() const;
    /// All of them in the order of the bookmarks.
    const std::vector<TEntry>& GetEntries() const;

    /// The number of a bookmark; 0 for one that is not there.
    std::int32_t NumberOf(const framework::OleVariant& bookmark) const;
    /// The least bookmark with this number; unassigned when none has it.
    framework::OleVariant BookmarkOf(std::int32_t number) const;
    /// The nearest shown bookmark behind or before a row, which need not be in the map; unassigned when there is none.
    framework::OleVariant NextShown(const framework::OleVariant& bookmark) const;
    framework::OleVariant PriorShown(const framework::OleVariant& bookmark) const;

private:
    using TIterator = std::vector<TEntry>::const_iterator;

    void Sort() const;
    void IndexNumbers() const;
    TIterator LowerBound(const framework::OleVariant& bookmark) const;

    // Both are put in order when somebody asks: a program registers many bookmarks first and asks then.
    mutable std::vector<TEntry> FEntries;
    mutable std::size_t FSorted = 0;             // so many entries are in order, without doubles
    mutable std::vector<std::uint32_t> FNumbers; // places of entries by number; empty while not known
};

} // namespace ZOR
