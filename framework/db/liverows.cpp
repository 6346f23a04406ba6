#include "framework/db/liverows.h"

#include <algorithm>
#include <bit>

namespace framework {

int TLiveRows::Append() {
    ++FCount;
    return FRows++;
}

void TLiveRows::Remove(int row) {
    const auto block = static_cast<std::size_t>(row >> blockShift);
    if (FRemovedBefore.size() <= block) {
        const int removed = FRows - FCount;
        FRemoved.resize((block + 1) * wordsPerBlock);
        FRemovedBefore.resize(block + 1, removed);
    }
    FRemoved[static_cast<std::size_t>(row >> 6)] |= std::uint64_t(1) << (row & 63);
    for (std::size_t later = block + 1; later < FRemovedBefore.size(); ++later)
        ++FRemovedBefore[later];
    --FCount;
}

int TLiveRows::Next(int row) const {
    ++row;
    while (row < FRows && IsRemoved(row)) {
        // Whole words of deleted rows are passed at once.
        const std::uint64_t word = FRemoved[static_cast<std::size_t>(row >> 6)] >> (row & 63);
        row += std::max(1, std::countr_one(word));
    }
    return row < FRows ? row : -1;
}

int TLiveRows::Previous(int row) const {
    --row;
    while (row >= 0 && IsRemoved(row)) {
        const std::uint64_t word = FRemoved[static_cast<std::size_t>(row >> 6)] << (63 - (row & 63));
        row -= std::max(1, std::countl_one(word));
    }
    return row;
}

int TLiveRows::RemovedBefore(int row) const {
    const auto block = static_cast<std::size_t>(row >> blockShift);
    if (block >= FRemovedBefore.size())
        return FRows - FCount;
    int removed = FRemovedBefore[block];
    for (std::size_t word = block * wordsPerBlock; word < static_cast<std::size_t>(row >> 6); ++word)
        removed += std::popcount(FRemoved[word]);
    return removed +
           std::popcount(FRemoved[static_cast<std::size_t>(row >> 6)] & ((std::uint64_t(1) << (row & 63)) - 1));
}

int TLiveRows::PositionOf(int row) const {
    return FRemovedBefore.empty() ? row : row - RemovedBefore(row);
}

int TLiveRows::RowAt(int position) const {
    if (FRemovedBefore.empty())
        return position;
    // Behind the last block with deleted rows there are no gaps.
    const int removed = FRows - FCount;
    if (position >= (static_cast<int>(FRemovedBefore.size()) << blockShift) - removed)
        return position + removed;
    // The last block that begins at or before the position, and from there bit by bit.
    int low = 0;
    int high = static_cast<int>(FRemovedBefore.size()) - 1;
    while (low < high) {
        const int middle = (low + high + 1) / 2;
        if ((middle << blockShift) - FRemovedBefore[static_cast<std::size_t>(middle)] <= position)
            low = middle;
        else
            high = middle - 1;
    }
    int row = low << blockShift;
    for (int left = position - (row - FRemovedBefore[static_cast<std::size_t>(low)]);; ++row) {
        if (!IsRemoved(row) && left-- == 0)
            return row;
    }
}

} // namespace framework
