#pragma once

// Which rows of a store are there. Rows are only ever added at the end, so their numbers ascend in the order in which a
// person sees them; deleted ones leave a gap.

#include <cstddef>
#include <cstdint>
#include <vector>

namespace framework {

/// Between row numbers, which stay, and positions, which count the rows that are there. Both from 0. Costs nothing as
/// long as no row was deleted; a deletion takes time in proportion to the rows divided by 512.
class TLiveRows {
public:
    TLiveRows() = default;
    explicit TLiveRows(int rows) : FRows(rows), FCount(rows) {}

    int GetCount() const { return FCount; }
    /// Adds a row behind all others; its number.
    int Append();
    /// `row` must be there.
    void Remove(int row);
    bool Contains(int row) const { return row >= 0 && row < FRows && !IsRemoved(row); }

    /// The next and the previous row that is there, not `row` itself; -1 for none.
    int Next(int row) const;
    int Previous(int row) const;
    int First() const { return Next(-1); }
    int Last() const { return Previous(FRows); }

    /// `row` must be there.
    int PositionOf(int row) const;
    /// `position` must be less than the count.
    int RowAt(int position) const;

private:
    static constexpr int blockShift = 9;
    static constexpr int wordsPerBlock = (1 << blockShift) / 64;

    bool IsRemoved(int row) const {
        return static_cast<std::size_t>(row >> 6) < FRemoved.size() && (FRemoved[row >> 6] >> (row & 63) & 1) != 0;
    }
    int RemovedBefore(int row) const;

    int FRows = 0;
    int FCount = 0;
    std::vector<std::uint64_t> FRemoved; ///< a bit for each row up to the last deleted one, in whole blocks
    std::vector<int> FRemovedBefore;     ///< how many are deleted before each block
};

} // namespace framework
