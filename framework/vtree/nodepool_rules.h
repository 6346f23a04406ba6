#pragma once

// Memory for the nodes of one tree: cells of one size in large chunks, so that a node costs no allocation of its own,
// neighbours lie side by side, and a chunk goes back as soon as its last node has gone.

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace framework {

class TNodePool {
public:
    struct TCell {
        void* Memory;
        std::uint32_t Chunk; ///< for Free
    };

    explicit TNodePool(std::size_t cellSize) { SetCellSize(cellSize); }
    TNodePool(const TNodePool&) = delete;
    TNodePool& operator=(const TNodePool&) = delete;

    /// Bytes of each cell, rounded up so that every cell is aligned for pointers and 64-bit numbers. The pool must be
    /// empty.
    void SetCellSize(std::size_t value);

    TCell Allocate();
    void Free(void* memory, std::uint32_t chunk);
    /// Gives back all memory without a look at the cells.
    void Clear();

    std::size_t Count() const { return FCount; }
    /// Bytes taken from the heap for cells.
    std::size_t Bytes() const { return FBytes; }

private:
    static constexpr std::uint32_t kNone = UINT32_MAX;

    struct TChunk {
        std::unique_ptr<std::byte[]> Memory;
        std::uint32_t Cells = 0; // that fit
        std::uint32_t Fresh = 0; // cells from this one on were never used
        std::uint32_t Used = 0;
        void* Free = nullptr;       // cells that were used before, each pointing to the next
        std::uint32_t Next = kNone; // among the chunks with room
        std::uint32_t Previous = kNone;
    };

    void AddChunk();
    void DropChunk(std::uint32_t index);
    void Link(std::uint32_t index);
    void Unlink(std::uint32_t index);

    std::size_t FCellSize = 0;
    std::vector<TChunk> FChunks;
    std::vector<std::uint32_t> FVacant; // entries of FChunks without memory
    std::uint32_t FRoom = kNone;        // the first chunk with room
    std::size_t FCount = 0;
    std::size_t FBytes = 0;
    std::size_t FNextSize = 0; // bytes of the next chunk: small trees stay small
};

} // namespace framework
