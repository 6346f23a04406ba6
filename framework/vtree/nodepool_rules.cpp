#include "framework/vtree/nodepool_rules.h"

#include <algorithm>

namespace framework {

namespace {

constexpr std::size_t kFirstChunk = 2048; // bytes
constexpr std::size_t kLargestChunk = 262144;
constexpr std::size_t kAlignment = alignof(std::int64_t);

} // namespace

void TNodePool::SetCellSize(std::size_t value) {
    Clear();
    FCellSize = (std::max(value, sizeof(void*)) + kAlignment - 1) / kAlignment * kAlignment;
}

void TNodePool::Link(std::uint32_t index) {
    TChunk& chunk = FChunks[index];
    chunk.Previous = kNone;
    chunk.Next = FRoom;
    if (FRoom != kNone)
        FChunks[FRoom].Previous = index;
    FRoom = index;
}

void TNodePool::Unlink(std::uint32_t index) {
    const TChunk& chunk = FChunks[index];
    if (chunk.Previous != kNone)
        FChunks[chunk.Previous].Next = chunk.Next;
    else
        FRoom = chunk.Next;
    if (chunk.Next != kNone)
        FChunks[chunk.Next].Previous = chunk.Previous;
}

void TNodePool::AddChunk() {
    const std::size_t cells = std::max<std::size_t>(FNextSize / FCellSize, 1);
    std::unique_ptr<std::byte[]> memory(new std::byte[cells * FCellSize]);
    if (FVacant.empty()) {
        FChunks.emplace_back();
        FVacant.push_back(static_cast<std::uint32_t>(FChunks.size() - 1));
    }
    const std::uint32_t index = FVacant.back();
    FVacant.pop_back();
    TChunk& chunk = FChunks[index];
    chunk = {};
    chunk.Memory = std::move(memory);
    chunk.Cells = static_cast<std::uint32_t>(cells);
    FBytes += cells * FCellSize;
    FNextSize = std::min(FNextSize * 2, kLargestChunk);
    Link(index);
}

TNodePool::TCell TNodePool::Allocate() {
    if (FRoom == kNone)
        AddChunk();
    const std::uint32_t index = FRoom;
    TChunk& chunk = FChunks[index];
    void* memory = chunk.Free;
    if (memory)
        chunk.Free = *static_cast<void**>(memory);
    else
        memory = chunk.Memory.get() + FCellSize * chunk.Fresh++;
    if (++chunk.Used == chunk.Cells)
        Unlink(index);
    ++FCount;
    return {memory, index};
}

void TNodePool::Free(void* memory, std::uint32_t index) {
    TChunk& chunk = FChunks[index];
    *static_cast<void**>(memory) = chunk.Free;
    chunk.Free = memory;
    if (chunk.Used == chunk.Cells)
        Link(index);
    --FCount;
    if (--chunk.Used == 0)
        DropChunk(index);
}

void TNodePool::DropChunk(std::uint32_t index) {
    Unlink(index);
    FBytes -= FChunks[index].Cells * FCellSize;
    FChunks[index] = {};
    FVacant.push_back(index);
    if (FCount == 0)
        Clear();
}

void TNodePool::Clear() {
    FChunks = std::vector<TChunk>();
    FVacant = std::vector<std::uint32_t>();
    FRoom = kNone;
    FCount = 0;
    FBytes = 0;
    FNextSize = kFirstChunk;
}

} // namespace framework
