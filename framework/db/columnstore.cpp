#include "framework/db/columnstore.h"

#include "framework/db/databaseerrors.h"
#include "framework/system/decimal.h"
#include "framework/system/strings.h"

#include <algorithm>
#include <cstring>
#include <limits>

namespace framework {

namespace {

constexpr std::size_t lengthBytes = sizeof(std::uint32_t);
constexpr std::size_t firstHeapChunk = 1024;
constexpr std::size_t largestHeapChunk = 256 * 1024;

template <class T>
bool FitsInto(std::int64_t value) {
    return value >= std::numeric_limits<T>::min() && value <= std::numeric_limits<T>::max();
}

} // namespace

TColumnStore::TColumnStore(TColumnInfo info)
    : FInfo(std::move(info)), FStorage(StorageFor(FInfo)), FWidth(WidthOf(FStorage)) {
}

TColumnStore::~TColumnStore() = default;

TColumnStore::TStorage TColumnStore::StorageFor(const TColumnInfo& info) {
    switch (info.Type) {
    case adBoolean:
    case adTinyInt:
        return TStorage::Int8;
    case adUnsignedTinyInt:
        return TStorage::UInt8;
    case adSmallInt:
        return TStorage::Int16;
    case adUnsignedSmallInt:
        return TStorage::UInt16;
    case adInteger:
        return TStorage::Int32;
    case adUnsignedInt:
        return TStorage::UInt32;
    case adBigInt:
        return TStorage::Int64;
    case adCurrency:
        return TStorage::Units;
    case adNumeric:
        return info.Precision <= TNumeric::maximumScale && info.Scale >= 0 && info.Scale <= TNumeric::maximumScale
                   ? TStorage::Units
                   : TStorage::Text;
    case adSingle:
        return TStorage::Single;
    case adDouble:
        return TStorage::Double;
    case adDBDate:
        return TStorage::Days;
    case adDBTime:
    case adDBTimeStamp:
        return TStorage::Ticks;
    case adGUID:
        return TStorage::Guid;
    case adBinary:
    case adVarBinary:
    case adLongVarBinary:
        return TStorage::Bytes;
    default:
        return TStorage::Text;
    }
}

int TColumnStore::WidthOf(TStorage storage) {
    switch (storage) {
    case TStorage::Int8:
    case TStorage::UInt8:
        return 1;
    case TStorage::Int16:
    case TStorage::UInt16:
        return 2;
    case TStorage::Int32:
    case TStorage::UInt32:
    case TStorage::Single:
    case TStorage::Days:
        return 4;
    case TStorage::Guid:
        return sizeof(TGUID);
    default:
        return 8;
    }
}

void TColumnStore::AppendRow() {
    if (FRowCount == FCapacity)
        GrowChunk();
    ++FRowCount;
    SetNull(FRowCount - 1);
}

void TColumnStore::DropLastRow() {
    --FRowCount;
}

/// The first chunk begins small and grows by copying, since most queries give few rows; all others have their full
/// size.
void TColumnStore::GrowChunk() {
    const bool growsFirst = FCapacity > 0 && FCapacity < chunkRows;
    const int rows = FCapacity == 0 ? firstChunkRows : growsFirst ? FCapacity * 4 : chunkRows;
    TChunk chunk;
    const auto width = static_cast<std::size_t>(FWidth);
    chunk.Data.reset(new std::uint8_t[width * static_cast<std::size_t>(rows)]);
    if (!IsHeaped())
        chunk.Nulls = std::make_unique<std::uint64_t[]>(static_cast<std::size_t>(rows) / 64);
    if (growsFirst) {
        std::memcpy(chunk.Data.get(), FChunks.front().Data.get(), width * static_cast<std::size_t>(FCapacity));
        if (chunk.Nulls)
            std::copy_n(FChunks.front().Nulls.get(), FCapacity / 64, chunk.Nulls.get());
        FChunks.front() = std::move(chunk);
        FCapacity = rows;
    } else {
        FChunks.push_back(std::move(chunk));
        FCapacity += rows;
    }
}

bool TColumnStore::IsNull(int row) const {
    if (IsHeaped())
        return At<TEntry>(row) == nullptr;
    const TChunk& chunk = FChunks[row >> chunkShift];
    return (chunk.Nulls[(row & chunkMask) >> 6] >> (row & 63) & 1) != 0;
}

void TColumnStore::SetNull(int row) {
    TChunk& chunk = FChunks[row >> chunkShift];
    if (IsHeaped()) {
        PutEntry(row, nullptr);
        return;
    }
    // So that reading needs no look at the bit.
    std::memset(chunk.Data.get() + static_cast<std::size_t>(row & chunkMask) * static_cast<std::size_t>(FWidth), 0,
                static_cast<std::size_t>(FWidth));
    chunk.Nulls[(row & chunkMask) >> 6] |= std::uint64_t(1) << (row & 63);
}

std::int64_t TColumnStore::WholeAt(int row) const {
    switch (FStorage) {
    case TStorage::Int8:
        return At<std::int8_t>(row);
    case TStorage::UInt8:
        return At<std::uint8_t>(row);
    case TStorage::Int16:
        return At<std::int16_t>(row);
    case TStorage::UInt16:
        return At<std::uint16_t>(row);
    case TStorage::Int32:
        return At<std::int32_t>(row);
    case TStorage::UInt32:
        return At<std::uint32_t>(row);
    default:
        return At<std::int64_t>(row);
    }
}

bool TColumnStore::GetBoolean(int row) const {
    if (!IsWhole())
        RaiseKind();
    return WholeAt(row) != 0;
}

std::int64_t TColumnStore::GetInt64(int row) const {
    if (!IsWhole())
        RaiseKind();
    return WholeAt(row);
}

double TColumnStore::GetDouble(int row) const {
    switch (FStorage) {
    case TStorage::Single:
        return At<float>(row);
    case TStorage::Double:
        return At<double>(row);
    case TStorage::Units:
        return TNumeric{At<std::int64_t>(row), FInfo.Scale}.AsDouble();
    default:
        break;
    }
    if (HasDigits()) {
        TNumeric number;
        if (TryGetNumeric(row, number))
            return number.AsDouble();
        double value = 0;
        TWrittenNumber written;
        if (TryParseNumber(GetText(row), u'.', written) && !TryMakeFloat(written, value))
            value = std::numeric_limits<double>::infinity() * (written.Negative ? -1 : 1);
        return value;
    }
    return static_cast<double>(GetInt64(row));
}

bool TColumnStore::TryGetNumeric(int row, TNumeric& value) const {
    if (IsWhole()) {
        value = {WholeAt(row), 0};
        return true;
    }
    if (FStorage == TStorage::Units) {
        value = {At<std::int64_t>(row), FInfo.Scale};
        return true;
    }
    if (!HasDigits())
        RaiseKind();
    if (IsNull(row)) {
        value = {};
        return true;
    }
    return TryParseNumeric(GetText(row), value);
}

TBytesView TColumnStore::EntryAt(int row) const {
    const TEntry entry = At<TEntry>(row);
    if (!entry)
        return {};
    std::uint32_t length = 0;
    std::memcpy(&length, entry, lengthBytes);
    return {entry + lengthBytes, length};
}

StringView TColumnStore::GetText(int row) const {
    if (FStorage != TStorage::Text)
        RaiseKind();
    const TBytesView entry = EntryAt(row);
    return {reinterpret_cast<const char16_t*>(entry.data()), entry.size()};
}

TMoment TColumnStore::GetMoment(int row) const {
    if (FStorage == TStorage::Days)
        return {At<std::int32_t>(row) * TMoment::ticksPerDay};
    if (FStorage != TStorage::Ticks)
        RaiseKind();
    return {At<std::int64_t>(row)};
}

TBytesView TColumnStore::GetBytes(int row) const {
    if (FStorage != TStorage::Bytes)
        RaiseKind();
    return EntryAt(row);
}

TGUID TColumnStore::GetGuid(int row) const {
    if (FStorage != TStorage::Guid)
        RaiseKind();
    return At<TGUID>(row);
}

TDataValue TColumnStore::Get(int row) const {
    if (IsNull(row))
        return {};
    if (FInfo.Type == adBoolean)
        return GetBoolean(row);
    if (IsWhole())
        return WholeAt(row);
    switch (FStorage) {
    case TStorage::Single:
    case TStorage::Double:
        return GetDouble(row);
    case TStorage::Units:
        return TNumeric{At<std::int64_t>(row), FInfo.Scale};
    case TStorage::Days:
    case TStorage::Ticks:
        return GetMoment(row);
    case TStorage::Guid:
        return GetGuid(row);
    case TStorage::Bytes: {
        const TBytesView bytes = GetBytes(row);
        return TBytes(bytes.begin(), bytes.end());
    }
    default:
        break;
    }
    if (TNumeric number; HasDigits() && TryGetNumeric(row, number))
        return number;
    return String(GetText(row));
}

bool TColumnStore::Fits(std::int64_t value) const {
    switch (FStorage) {
    case TStorage::Int8:
        return FInfo.Type == adBoolean ? value == 0 || value == 1 : FitsInto<std::int8_t>(value);
    case TStorage::UInt8:
        return FitsInto<std::uint8_t>(value);
    case TStorage::Int16:
        return FitsInto<std::int16_t>(value);
    case TStorage::UInt16:
        return FitsInto<std::uint16_t>(value);
    case TStorage::Int32:
        return FitsInto<std::int32_t>(value);
    case TStorage::UInt32:
        return FitsInto<std::uint32_t>(value);
    default:
        return FStorage == TStorage::Int64;
    }
}

void TColumnStore::SetInt64(int row, std::int64_t value) {
    if (!Fits(value))
        RaiseKind();
    switch (FWidth) {
    case 1:
        Put(row, static_cast<std::uint8_t>(value));
        break;
    case 2:
        Put(row, static_cast<std::uint16_t>(value));
        break;
    case 4:
        Put(row, static_cast<std::uint32_t>(value));
        break;
    default:
        Put(row, value);
    }
}

void TColumnStore::SetDouble(int row, double value) {
    if (FStorage == TStorage::Single)
        Put(row, static_cast<float>(value));
    else if (FStorage == TStorage::Double)
        Put(row, value);
    else
        RaiseKind();
}

void TColumnStore::SetNumeric(int row, const TNumeric& value) {
    TNumeric scaled;
    if (HasDigits())
        SetText(row, value.AsText());
    else if (FStorage == TStorage::Units && value.TryRescale(FInfo.Scale, scaled))
        Put(row, scaled.Units);
    else
        RaiseKind();
}

std::uint8_t* TColumnStore::NewEntry(std::size_t bytes, std::size_t length) {
    if (length > std::numeric_limits<std::uint32_t>::max())
        RaiseKind();
    // Units need an even address and nothing more.
    const std::size_t needed = (lengthBytes + bytes + 1) & ~std::size_t(1);
    std::uint8_t* entry = nullptr;
    if (needed <= FHeapLeft) {
        entry = FHeapNext;
        FHeapNext += needed;
        FHeapLeft -= needed;
    } else {
        FHeapChunk = std::clamp(FHeapChunk * 2, firstHeapChunk, largestHeapChunk);
        // A large entry lies alone, and what is left of the chunk before stays in use.
        const bool alone = needed > FHeapChunk / 4;
        const std::size_t size = alone ? needed : FHeapChunk;
        FHeap.emplace_back(new std::uint8_t[size]);
        FHeapBytes += size;
        entry = FHeap.back().get();
        if (!alone) {
            FHeapNext = entry + needed;
            FHeapLeft = size - needed;
        }
    }
    const auto length32 = static_cast<std::uint32_t>(length);
    std::memcpy(entry, &length32, lengthBytes);
    return entry;
}

TColumnStore::TEntry TColumnStore::Keep(const void* data, std::size_t bytes, std::size_t length) {
    std::uint8_t* entry = NewEntry(bytes, length);
    if (bytes > 0)
        std::memcpy(entry + lengthBytes, data, bytes);
    return entry;
}

void TColumnStore::SetText(int row, StringView value) {
    if (FStorage != TStorage::Text)
        RaiseKind();
    PutEntry(row, Keep(value.data(), value.size() * sizeof(char16_t), value.size()));
}

void TColumnStore::SetUtf8(int row, std::string_view value) {
    if (FStorage != TStorage::Text)
        RaiseKind();
    // Most texts are ASCII, whose bytes only become wider.
    const bool isAscii = std::all_of(value.begin(), value.end(), [](char byte) { return (byte & 0x80) == 0; });
    if (!isAscii) {
        SetText(row, Utf8Decode(value));
        return;
    }
    std::uint8_t* entry = NewEntry(value.size() * sizeof(char16_t), value.size());
    auto* units = reinterpret_cast<char16_t*>(entry + lengthBytes);
    for (std::size_t i = 0; i < value.size(); ++i)
        units[i] = static_cast<unsigned char>(value[i]);
    PutEntry(row, entry);
}

void TColumnStore::SetBytes(int row, TBytesView value) {
    if (FStorage != TStorage::Bytes)
        RaiseKind();
    PutEntry(row, Keep(value.data(), value.size(), value.size()));
}

void TColumnStore::SetMoment(int row, TMoment value) {
    if (FStorage == TStorage::Ticks)
        Put(row, value.Ticks);
    else if (FStorage == TStorage::Days)
        Put(row, static_cast<std::int32_t>(value.Ticks / TMoment::ticksPerDay));
    else
        RaiseKind();
}

void TColumnStore::SetGuid(int row, const TGUID& value) {
    if (FStorage != TStorage::Guid)
        RaiseKind();
    Put(row, value);
}

void TColumnStore::Set(int row, const TDataValue& value) {
    struct TWriter {
        TColumnStore& Store;
        int Row;

        void operator()(std::monostate) const { Store.SetNull(Row); }
        void operator()(bool data) const { Store.SetInt64(Row, data ? 1 : 0); }
        void operator()(std::int64_t data) const { Store.SetInt64(Row, data); }
        void operator()(double data) const { Store.SetDouble(Row, data); }
        void operator()(const TNumeric& data) const { Store.SetNumeric(Row, data); }
        void operator()(TMoment data) const { Store.SetMoment(Row, data); }
        void operator()(const String& data) const {
            if (Store.FInfo.Type == adNumeric)
                Store.WidenToDigits();
            Store.SetText(Row, data);
        }
        void operator()(const TBytes& data) const { Store.SetBytes(Row, data); }
        void operator()(const TGUID& data) const { Store.SetGuid(Row, data); }
    };
    std::visit(TWriter{*this, row}, value);
}

void TColumnStore::CopyValuesFrom(const TColumnStore& other) {
    for (int row = 0; row < other.FRowCount; ++row) {
        AppendRow();
        if (other.IsNull(row))
            continue;
        if (TNumeric number; IsHeaped() && other.TryGetNumeric(row, number))
            SetText(row, number.AsText());
        else
            SetInt64(row, other.WholeAt(row));
    }
}

void TColumnStore::WidenToBigInt() {
    if (!IsWhole())
        RaiseKind();
    TColumnInfo info = FInfo;
    info.Type = adBigInt;
    TColumnStore wide(std::move(info));
    wide.CopyValuesFrom(*this);
    *this = std::move(wide);
}

void TColumnStore::WidenToDigits() {
    if (HasDigits())
        return;
    if (FInfo.Type != adNumeric)
        RaiseKind();
    TColumnStore wide(FInfo);
    wide.FStorage = TStorage::Text;
    wide.FWidth = WidthOf(TStorage::Text);
    wide.CopyValuesFrom(*this);
    *this = std::move(wide);
}

std::size_t TColumnStore::GetMemory() const {
    const std::size_t rowBytes = static_cast<std::size_t>(FCapacity) * static_cast<std::size_t>(FWidth);
    return rowBytes + (IsHeaped() ? FHeapBytes : static_cast<std::size_t>(FCapacity) / 8);
}

void TColumnStore::RaiseKind() const {
    throw EDatabaseError(u"The column '" + FInfo.Name + u"' does not hold such a value");
}

TRowStore::TRowStore(std::vector<TColumnInfo> columns) {
    FColumns.reserve(columns.size());
    for (TColumnInfo& column : columns)
        FColumns.emplace_back(std::move(column));
}

int TRowStore::AppendRows(int count) {
    if (FRowCount > std::numeric_limits<int>::max() - count)
        throw EDatabaseError(u"The query gives more rows than a recordset can hold");
    const int first = FRowCount;
    try {
        for (TColumnStore& column : FColumns) {
            for (int i = 0; i < count; ++i)
                column.AppendRow();
        }
    } catch (...) {
        for (TColumnStore& column : FColumns) {
            while (column.GetRowCount() > first)
                column.DropLastRow();
        }
        throw;
    }
    FRowCount += count;
    return first;
}

int TRowStore::AppendRow(std::span<const TDataValue> values) {
    const int row = AppendRow();
    try {
        for (int i = 0; i < static_cast<int>(values.size()); ++i)
            Column(i).Set(row, AdaptValue(Column(i).GetInfo(), values[static_cast<std::size_t>(i)]));
    } catch (...) {
        DropLastRow();
        throw;
    }
    return row;
}

void TRowStore::DropLastRow() {
    for (TColumnStore& column : FColumns)
        column.DropLastRow();
    --FRowCount;
}

std::size_t TRowStore::GetMemory() const {
    std::size_t bytes = 0;
    for (const TColumnStore& column : FColumns)
        bytes += column.GetMemory();
    return bytes;
}

} // namespace framework
