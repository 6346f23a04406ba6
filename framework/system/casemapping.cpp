#include "framework/system/casemapping.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace framework {

namespace {

/// Capitals First, First + Step, ... Last, each with its small letter Distance further on.
struct PairRange {
    char16_t First;
    char16_t Last;
    std::uint8_t Step;
    std::int16_t Distance;
};

/// A mapping without a way back, as from the final sigma to the capital one.
struct OneWay {
    char16_t From;
    char16_t To;
};

constexpr PairRange pairRanges[] = {
    {0x0041, 0x005A, 1, 32},   {0x00C0, 0x00D6, 1, 32},   {0x00D8, 0x00DE, 1, 32},    {0x0100, 0x012E, 2, 1},
    {0x0132, 0x0136, 2, 1},    {0x0139, 0x0147, 2, 1},    {0x014A, 0x0176, 2, 1},     {0x0178, 0x0178, 1, -121},
    {0x0179, 0x017D, 2, 1},    {0x0181, 0x0181, 1, 210},  {0x0182, 0x0184, 2, 1},     {0x0186, 0x0186, 1, 206},
    {0x0187, 0x0187, 1, 1},    {0x0189, 0x018A, 1, 205},  {0x018B, 0x018B, 1, 1},     {0x018E, 0x018E, 1, 79},
    {0x018F, 0x018F, 1, 202},  {0x0190, 0x0190, 1, 203},  {0x0191, 0x0191, 1, 1},     {0x0193, 0x0193, 1, 205},
    {0x0194, 0x0194, 1, 207},  {0x0196, 0x0196, 1, 211},  {0x0197, 0x0197, 1, 209},   {0x0198, 0x0198, 1, 1},
    {0x019C, 0x019C, 1, 211},  {0x019D, 0x019D, 1, 213},  {0x019F, 0x019F, 1, 214},   {0x01A0, 0x01A4, 2, 1},
    {0x01A6, 0x01A6, 1, 218},  {0x01A7, 0x01A7, 1, 1},    {0x01A9, 0x01A9, 1, 218},   {0x01AC, 0x01AC, 1, 1},
    {0x01AE, 0x01AE, 1, 218},  {0x01AF, 0x01AF, 1, 1},    {0x01B1, 0x01B2, 1, 217},   {0x01B3, 0x01B5, 2, 1},
    {0x01B7, 0x01B7, 1, 219},  {0x01B8, 0x01B8, 1, 1},    {0x01BC, 0x01BC, 1, 1},     {0x01C4, 0x01C4, 1, 2},
    {0x01C7, 0x01C7, 1, 2},    {0x01CA, 0x01CA, 1, 2},    {0x01CD, 0x01DB, 2, 1},     {0x01DE, 0x01EE, 2, 1},
    {0x01F1, 0x01F1, 1, 2},    {0x01F4, 0x01F4, 1, 1},    {0x01F6, 0x01F6, 1, -97},   {0x01F7, 0x01F7, 1, -56},
    {0x01F8, 0x021E, 2, 1},    {0x0220, 0x0220, 1, -130}, {0x0222, 0x0232, 2, 1},     {0x023A, 0x023A, 1, 10795},
    {0x023B, 0x023B, 1, 1},    {0x023D, 0x023D, 1, -163}, {0x023E, 0x023E, 1, 10792}, {0x0241, 0x0241, 1, 1},
    {0x0243, 0x0243, 1, -195}, {0x0244, 0x0244, 1, 69},   {0x0245, 0x0245, 1, 71},    {0x0246, 0x024E, 2, 1},
    {0x0370, 0x0372, 2, 1},    {0x0376, 0x0376, 1, 1},    {0x037F, 0x037F, 1, 116},   {0x0386, 0x0386, 1, 38},
    {0x0388, 0x038A, 1, 37},   {0x038C, 0x038C, 1, 64},   {0x038E, 0x038F, 1, 63},    {0x0391, 0x03A1, 1, 32},
    {0x03A3, 0x03AB, 1, 32},   {0x03CF, 0x03CF, 1, 8},    {0x03D8, 0x03EE, 2, 1},     {0x03F7, 0x03F7, 1, 1},
    {0x03F9, 0x03F9, 1, -7},   {0x03FA, 0x03FA, 1, 1},    {0x03FD, 0x03FF, 1, -130},  {0x0400, 0x040F, 1, 80},
    {0x0410, 0x042F, 1, 32},   {0x0460, 0x0480, 2, 1},    {0x048A, 0x04BE, 2, 1},     {0x04C0, 0x04C0, 1, 15},
    {0x04C1, 0x04CD, 2, 1},    {0x04D0, 0x052E, 2, 1},    {0x0531, 0x0556, 1, 48},    {0x1E00, 0x1E94, 2, 1},
    {0x1EA0, 0x1EFE, 2, 1},    {0x1F08, 0x1F0F, 1, -8},   {0x1F18, 0x1F1D, 1, -8},    {0x1F28, 0x1F2F, 1, -8},
    {0x1F38, 0x1F3F, 1, -8},   {0x1F48, 0x1F4D, 1, -8},   {0x1F59, 0x1F5F, 2, -8},    {0x1F68, 0x1F6F, 1, -8},
    {0x1F88, 0x1F8F, 1, -8},   {0x1F98, 0x1F9F, 1, -8},   {0x1FA8, 0x1FAF, 1, -8},    {0x1FB8, 0x1FB9, 1, -8},
    {0x1FBA, 0x1FBB, 1, -74},  {0x1FBC, 0x1FBC, 1, -9},   {0x1FC8, 0x1FCB, 1, -86},   {0x1FCC, 0x1FCC, 1, -9},
    {0x1FD8, 0x1FD9, 1, -8},   {0x1FDA, 0x1FDB, 1, -100}, {0x1FE8, 0x1FE9, 1, -8},    {0x1FEA, 0x1FEB, 1, -112},
    {0x1FEC, 0x1FEC, 1, -7},   {0x1FF8, 0x1FF9, 1, -128}, {0x1FFA, 0x1FFB, 1, -126},  {0x1FFC, 0x1FFC, 1, -9},
    {0x2160, 0x216F, 1, 16},   {0x24B6, 0x24CF, 1, 26},   {0xFF21, 0xFF3A, 1, 32}};

constexpr OneWay onlyToLower[] = {{0x0130, 0x0069}, {0x01C5, 0x01C6}, {0x01C8, 0x01C9}, {0x01CB, 0x01CC},
                                  {0x01F2, 0x01F3}, {0x03F4, 0x03B8}, {0x1E9E, 0x00DF}, {0x2126, 0x03C9},
                                  {0x212A, 0x006B}, {0x212B, 0x00E5}};

constexpr OneWay onlyToUpper[] = {
    {0x00B5, 0x039C}, {0x0131, 0x0049}, {0x017F, 0x0053}, {0x01C5, 0x01C4}, {0x01C8, 0x01C7}, {0x01CB, 0x01CA},
    {0x01F2, 0x01F1}, {0x03C2, 0x03A3}, {0x03D0, 0x0392}, {0x03D1, 0x0398}, {0x03D5, 0x03A6}, {0x03D6, 0x03A0},
    {0x03F0, 0x039A}, {0x03F1, 0x03A1}, {0x03F5, 0x0395}, {0x1E9B, 0x1E60}, {0x1FBE, 0x0399}};

/// Two-stage table of distances modulo 65536: the high byte of a unit chooses a page, the low byte the entry. All
/// units without a mapping share page 0, so both directions together take a few kilobytes and one lookup.
class DistanceTable {
public:
    constexpr void Add(char16_t from, char16_t to) {
        std::uint8_t& page = FPageOf[from >> 8];
        if (page == 0)
            page = FPagesUsed++;
        FPages[page][from & 0xFF] = static_cast<char16_t>(to - from);
    }

    constexpr char16_t Map(char16_t unit) const {
        return static_cast<char16_t>(unit + FPages[FPageOf[unit >> 8]][unit & 0xFF]);
    }

private:
    std::array<std::uint8_t, 256> FPageOf{};
    std::array<std::array<char16_t, 256>, 14> FPages{};
    std::uint8_t FPagesUsed = 1;
};

constexpr DistanceTable BuildTable(bool toLower) {
    DistanceTable table;
    for (const PairRange& range : pairRanges) {
        for (int capital = range.First; capital <= range.Last; capital += range.Step) {
            const auto upper = static_cast<char16_t>(capital);
            const auto lower = static_cast<char16_t>(capital + range.Distance);
            table.Add(toLower ? upper : lower, toLower ? lower : upper);
        }
    }
    if (toLower) {
        for (const OneWay& mapping : onlyToLower)
            table.Add(mapping.From, mapping.To);
    } else {
        for (const OneWay& mapping : onlyToUpper)
            table.Add(mapping.From, mapping.To);
    }
    return table;
}

constexpr DistanceTable toLowerTable = BuildTable(true);
constexpr DistanceTable toUpperTable = BuildTable(false);

} // namespace

char16_t ToLowerCase(char16_t unit) {
    return toLowerTable.Map(unit);
}

void LowerCaseInPlace(char16_t* units, std::size_t count) {
    constexpr std::size_t kLane = 16; // units that compilers handle together, there being no branches
    const char16_t* const end = units + count;
    for (; static_cast<std::size_t>(end - units) >= kLane; units += kLane) {
        unsigned all = 0;
        for (std::size_t i = 0; i < kLane; ++i)
            all |= units[i];
        if (all < 0x80) {
            for (std::size_t i = 0; i < kLane; ++i)
                units[i] = static_cast<char16_t>(units[i] + (units[i] >= u'A' && units[i] <= u'Z' ? 32 : 0));
        } else {
            for (std::size_t i = 0; i < kLane; ++i)
                units[i] = toLowerTable.Map(units[i]);
        }
    }
    for (; units != end; ++units)
        *units = toLowerTable.Map(*units);
}

char16_t ToUpperCase(char16_t unit) {
    return toUpperTable.Map(unit);
}

char16_t FoldCase(char16_t unit) {
    return toUpperTable.Map(toLowerTable.Map(unit));
}

} // namespace framework
