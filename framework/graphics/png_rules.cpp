#include "framework/graphics/png_rules.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>
#include <utility>

namespace framework {

namespace {

using TBytes = std::vector<std::uint8_t>;

void AppendBigEndian(TBytes& bytes, std::uint32_t value) {
    for (int shift = 24; shift >= 0; shift -= 8)
        bytes.push_back(static_cast<std::uint8_t>(value >> shift));
}

std::uint32_t Crc32(std::span<const std::uint8_t> bytes) {
    static const auto table = [] {
        std::array<std::uint32_t, 256> result{};
        for (std::uint32_t i = 0; i < 256; ++i) {
            std::uint32_t value = i;
            for (int bit = 0; bit < 8; ++bit)
                value = value >> 1 ^ (value & 1 ? 0xEDB88320u : 0u);
            result[i] = value;
        }
        return result;
    }();
    std::uint32_t crc = 0xFFFFFFFFu;
    for (const std::uint8_t byte : bytes)
        crc = crc >> 8 ^ table[(crc ^ byte) & 0xFF];
    return ~crc;
}

std::uint32_t Adler32(std::span<const std::uint8_t> bytes) {
    std::uint32_t low = 1;
    std::uint32_t high = 0;
    for (const std::uint8_t byte : bytes) {
        low = (low + byte) % 65521;
        high = (high + low) % 65521;
    }
    return high << 16 | low;
}

/// Writes one deflate block in the fixed Huffman code (RFC 1951).
class TDeflater {
public:
    explicit TDeflater(TBytes& output) : FOutput(output) {
        PutBits(1, 1); // the last block
        PutBits(1, 2); // fixed code
    }

    void Literal(std::uint8_t byte) { PutSymbol(byte); }
    void Match(int length, int distance);
    void Finish() {
        PutSymbol(256);
        PutBits(0, 7); // pushes out what is left
    }

    static constexpr int MinMatch = 3;
    static constexpr int MaxMatch = 258;
    static constexpr int MaxDistance = 32768;

private:
    void PutBits(std::uint32_t bits, int count) {
        FBits |= bits << FCount;
        for (FCount += count; FCount >= 8; FCount -= 8) {
            FOutput.push_back(static_cast<std::uint8_t>(FBits));
            FBits >>= 8;
        }
    }
    /// Huffman codes go out with their highest bit first.
    void PutCode(std::uint32_t code, int count) {
        for (int bit = count - 1; bit >= 0; --bit)
            PutBits(code >> bit & 1, 1);
    }
    void PutSymbol(std::uint32_t symbol) {
        if (symbol < 144)
            PutCode(0x30 + symbol, 8);
        else if (symbol < 256)
            PutCode(0x190 + symbol - 144, 9);
        else if (symbol < 280)
            PutCode(symbol - 256, 7);
        else
            PutCode(0xC0 + symbol - 280, 8);
    }

    TBytes& FOutput;
    std::uint32_t FBits = 0;
    int FCount = 0;
};

void TDeflater::Match(int length, int distance) {
    // Both are written as the number of a range, then the place in it; ranges double in width every `step` numbers.
    const auto split = [](int value, int step, int& extraBits) {
        extraBits = 0;
        while (value >> extraBits >= 2 * step)
            ++extraBits;
        return extraBits == 0 ? value : extraBits * step + (value >> extraBits);
    };
    int extraBits = 0;
    if (length == MaxMatch) {
        PutSymbol(285); // the longest has a number of its own
    } else {
        const int range = split(length - MinMatch, 4, extraBits);
        PutSymbol(static_cast<std::uint32_t>(257 + range));
        PutBits(static_cast<std::uint32_t>(length - MinMatch) & ((1u << extraBits) - 1), extraBits);
    }
    const int range = split(distance - 1, 2, extraBits);
    PutCode(static_cast<std::uint32_t>(range), 5);
    PutBits(static_cast<std::uint32_t>(distance - 1) & ((1u << extraBits) - 1), extraBits);
}

/// A zlib stream (RFC 1950) that repeats what was seen up to 32 KiB before.
TBytes Compress(std::span<const std::uint8_t> bytes) {
    TBytes result = {0x78, 0x01};
    TDeflater deflater(result);
    // Where three bytes were seen last, by their hash.
    std::vector<std::ptrdiff_t> lastSeen(1 << 15, -1);
    const auto size = static_cast<std::ptrdiff_t>(bytes.size());
    const auto hash = [&](std::ptrdiff_t at) {
        const std::uint32_t key = bytes[at] | bytes[at + 1] << 8 | bytes[at + 2] << 16;
        return (key * 0x9E3779B1u) >> 17;
    };
    std::ptrdiff_t at = 0;
    while (at < size) {
        std::ptrdiff_t length = 0;
        std::ptrdiff_t candidate = -1;
        if (at + TDeflater::MinMatch <= size) {
            candidate = std::exchange(lastSeen[hash(at)], at);
            if (candidate >= 0 && at - candidate <= TDeflater::MaxDistance) {
                const std::ptrdiff_t limit = std::min<std::ptrdiff_t>(TDeflater::MaxMatch, size - at);
                while (length < limit && bytes[candidate + length] == bytes[at + length])
                    ++length;
            }
        }
        if (length >= TDeflater::MinMatch) {
            deflater.Match(static_cast<int>(length), static_cast<int>(at - candidate));
            at += length;
        } else {
            deflater.Literal(bytes[at++]);
        }
    }
    deflater.Finish();
    AppendBigEndian(result, Adler32(bytes));
    return result;
}

void AppendChunk(TBytes& file, std::string_view type, std::span<const std::uint8_t> content) {
    AppendBigEndian(file, static_cast<std::uint32_t>(content.size()));
    const std::size_t start = file.size();
    file.insert(file.end(), type.begin(), type.end());
    file.insert(file.end(), content.begin(), content.end());
    AppendBigEndian(file, Crc32(std::span(file).subspan(start)));
}

/// Every row as its difference to the row above (filter 2): most of a window's rows become zeros.
TBytes FilteredRows(int width, int height, std::span<const std::uint32_t> pixels) {
    TBytes rows;
    rows.reserve((std::size_t{3} * width + 1) * height);
    for (int y = 0; y < height; ++y) {
        rows.push_back(2);
        const auto row = pixels.subspan(std::size_t(y) * width, width);
        for (int x = 0; x < width; ++x) {
            const std::uint32_t above = y > 0 ? pixels[std::size_t(y - 1) * width + x] : 0;
            for (int shift = 16; shift >= 0; shift -= 8)
                rows.push_back(static_cast<std::uint8_t>((row[x] >> shift) - (above >> shift)));
        }
    }
    return rows;
}

} // namespace

std::vector<std::uint8_t> EncodePng(int width, int height, std::span<const std::uint32_t> pixels) {
    TBytes header;
    AppendBigEndian(header, static_cast<std::uint32_t>(width));
    AppendBigEndian(header, static_cast<std::uint32_t>(height));
    header.insert(header.end(), {8, 2, 0, 0, 0}); // 8 bits each of red, green and blue; the only methods there are

    TBytes file = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
    AppendChunk(file, "IHDR", header);
    AppendChunk(file, "IDAT", Compress(FilteredRows(width, height, pixels)));
    AppendChunk(file, "IEND", {});
    return file;
}

} // namespace framework
