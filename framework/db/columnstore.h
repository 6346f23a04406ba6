#pragma once

// Where the rows of a client's recordset are kept: column by column, each in the width of its type, in chunks that
// never move. A NULL costs a bit where the type has no room for it. Texts and bytes stand one behind the other, length
// first.

#include "framework/db/datavalues.h"

#include <memory>

namespace framework {

/// All values of one column, by row numbers from 0. Reading a NULL gives 0, false or nothing. Reading or writing what
/// the column does not hold raises EDatabaseError.
class TColumnStore {
public:
    explicit TColumnStore(TColumnInfo info);
    TColumnStore(TColumnStore&&) noexcept = default;
    TColumnStore& operator=(TColumnStore&&) noexcept = default;
    ~TColumnStore();

    const TColumnInfo& GetInfo() const { return FInfo; }

    int GetRowCount() const { return FRowCount; }
    /// Adds a row, NULL.
    void AppendRow();
    void DropLastRow();

    bool IsNull(int row) const;
    bool GetBoolean(int row) const;
    std::int64_t GetInt64(int row) const;
    double GetDouble(int row) const;
    bool TryGetNumeric(int row, TNumeric& value) const;
    StringView GetText(int row) const;
    TMoment GetMoment(int row) const;
    TBytesView GetBytes(int row) const;
    TGUID GetGuid(int row) const;
    /// Any value.
    TDataValue Get(int row) const;

    // What is written must fit; AdaptValue sees to it.

    void SetNull(int row);
    void SetInt64(int row, std::int64_t value);
    void SetDouble(int row, double value);
    void SetNumeric(int row, const TNumeric& value);
    void SetText(int row, StringView value);
    /// A text in UTF-8.
    void SetUtf8(int row, std::string_view value);
    void SetMoment(int row, TMoment value);
    void SetBytes(int row, TBytesView value);
    void SetGuid(int row, const TGUID& value);
    /// A value in the kind of the column, as AdaptValue gives it.
    void Set(int row, const TDataValue& value);

    /// True when whole numbers of this size have room.
    bool Fits(std::int64_t value) const;
    /// Gives all values room for whole numbers of 64 bits.
    void WidenToBigInt();
    /// Keeps decimal numbers as digits from now on, which gives them any length.
    void WidenToDigits();
    /// True when decimal numbers are kept as digits.
    bool HasDigits() const { return FInfo.Type == adNumeric && FStorage == TStorage::Text; }

    /// Bytes of memory held.
    std::size_t GetMemory() const;

private:
    enum class TStorage : std::uint8_t {
        Int8,
        UInt8,
        Int16,
        UInt16,
        Int32,
        UInt32,
        Int64,
        Units, ///< of 10^-Scale
        Single,
        Double,
        Ticks,
        Days,
        Guid,
        Text,
        Bytes,
    };

    static constexpr int chunkShift = 12;
    static constexpr int chunkRows = 1 << chunkShift;
    static constexpr int chunkMask = chunkRows - 1;
    static constexpr int firstChunkRows = 64;

    struct TChunk {
        std::unique_ptr<std::uint8_t[]> Data;
        std::unique_ptr<std::uint64_t[]> Nulls; ///< a bit for each row, set for NULL; texts and bytes have none
    };
    /// A text or bytes: its length, and behind it the units. Null for NULL.
    using TEntry = const std::uint8_t*;

    static TStorage StorageFor(const TColumnInfo& info);
    static int WidthOf(TStorage storage);

    bool IsHeaped() const { return FStorage == TStorage::Text || FStorage == TStorage::Bytes; }
    bool IsWhole() const { return FStorage <= TStorage::Int64; }
    template <class T>
    const T& At(int row) const {
        return reinterpret_cast<const T*>(FChunks[row >> chunkShift].Data.get())[row & chunkMask];
    }
    template <class T>
    void Put(int row, T value) {
        TChunk& chunk = FChunks[row >> chunkShift];
        reinterpret_cast<T*>(chunk.Data.get())[row & chunkMask] = value;
        chunk.Nulls[(row & chunkMask) >> 6] &= ~(std::uint64_t(1) << (row & 63));
    }
    void PutEntry(int row, TEntry entry) {
        reinterpret_cast<TEntry*>(FChunks[row >> chunkShift].Data.get())[row & chunkMask] = entry;
    }
    std::int64_t WholeAt(int row) const;
    TBytesView EntryAt(int row) const;
    /// Room for an entry of so many bytes and this length.
    std::uint8_t* NewEntry(std::size_t bytes, std::size_t length);
    TEntry Keep(const void* data, std::size_t bytes, std::size_t length);
    void GrowChunk();
    void CopyValuesFrom(const TColumnStore& other);
    [[noreturn]] void RaiseKind() const;

    TColumnInfo FInfo;
    TStorage FStorage;
    int FWidth;
    int FRowCount = 0;
    int FCapacity = 0;
    std::vector<TChunk> FChunks;

    std::vector<std::unique_ptr<std::uint8_t[]>> FHeap;
    std::uint8_t* FHeapNext = nullptr;
    std::size_t FHeapLeft = 0;
    std::size_t FHeapChunk = 0;
    std::size_t FHeapBytes = 0;
};

/// Columns with the same rows.
class TRowStore {
public:
    TRowStore() = default;
    explicit TRowStore(std::vector<TColumnInfo> columns);

    int GetColumnCount() const { return static_cast<int>(FColumns.size()); }
    TColumnStore& Column(int index) { return FColumns[static_cast<std::size_t>(index)]; }
    const TColumnStore& Column(int index) const { return FColumns[static_cast<std::size_t>(index)]; }

    int GetRowCount() const { return FRowCount; }
    /// Adds rows of NULLs and returns the number of the first.
    int AppendRows(int count);
    int AppendRow() { return AppendRows(1); }
    /// Adds a row with these values, which are adapted to the columns; those that are missing stay NULL.
    int AppendRow(std::span<const TDataValue> values);
    void DropLastRow();

    std::size_t GetMemory() const;

private:
    std::vector<TColumnStore> FColumns;
    int FRowCount = 0;
};

} // namespace framework
