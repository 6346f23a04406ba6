#include "lists/Choicesearch_rules.h"

#include "framework/system/casemapping.h"
#include "framework/system/strings.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <limits>
#include <stdexcept>
#include <string_view>

#if defined(__SSE2__) || defined(_M_X64)
#include <emmintrin.h>
#endif

namespace ZOR {

namespace {

constexpr char kBoundary = '\xFF'; // occurs in no encoded text

/// One unit by itself, in the manner of UTF-8: halves of surrogate pairs, paired or not, take three bytes each. So
/// texts match exactly where their units do.
void Encode(char16_t unit, std::string& bytes) {
    if (unit < 0x80) {
        bytes += static_cast<char>(unit);
    } else if (unit < 0x800) {
        bytes += static_cast<char>(0xC0 | unit >> 6);
        bytes += static_cast<char>(0x80 | (unit & 0x3F));
    } else {
        bytes += static_cast<char>(0xE0 | unit >> 12);
        bytes += static_cast<char>(0x80 | (unit >> 6 & 0x3F));
        bytes += static_cast<char>(0x80 | (unit & 0x3F));
    }
}

void EncodeFolded(StringView text, const TTextFolder& folder, std::string& bytes) {
    for (const char16_t unit : text)
        folder.FoldUnit(InOneLine(unit), [&bytes](char16_t folded) { Encode(folded, bytes); });
}

int UnitCount(std::string_view bytes) {
    return static_cast<int>(std::count_if(bytes.begin(), bytes.end(), [](char byte) { return (byte & 0xC0) != 0x80; }));
}

/// std::string_view::find, sixteen places at a time where the processor can: those stay where both the first and the
/// last byte of the part are right.
std::size_t FindBytes(std::string_view text, std::string_view part, std::size_t from) {
#if defined(__SSE2__) || defined(_M_X64)
    constexpr std::size_t step = sizeof(__m128i);
    const std::size_t toLast = part.size() - 1;
    const __m128i first = _mm_set1_epi8(part.front());
    const __m128i last = _mm_set1_epi8(part.back());
    for (; from + toLast + step <= text.size(); from += step) {
        const auto* place = reinterpret_cast<const __m128i*>(text.data() + from);
        const auto* behind = reinterpret_cast<const __m128i*>(text.data() + from + toLast);
        const __m128i hits =
            _mm_and_si128(_mm_cmpeq_epi8(_mm_loadu_si128(place), first), _mm_cmpeq_epi8(_mm_loadu_si128(behind), last));
        for (auto mask = static_cast<unsigned>(_mm_movemask_epi8(hits)); mask != 0; mask &= mask - 1) {
            const std::size_t at = from + static_cast<std::size_t>(std::countr_zero(mask));
            if (std::memcmp(text.data() + at, part.data(), part.size()) == 0)
                return at;
        }
    }
#endif
    return text.find(part, from);
}

bool IsCombiningMark(char16_t unit) {
    return (unit >= 0x0300 && unit <= 0x036F) || (unit >= 0x1AB0 && unit <= 0x1AFF) ||
           (unit >= 0x1DC0 && unit <= 0x1DFF) || (unit >= 0x20D0 && unit <= 0x20FF) ||
           (unit >= 0xFE20 && unit <= 0xFE2F);
}

/// True where a text can be cut without tearing a character apart.
bool IsCharacterEdge(StringView text, std::size_t index) {
    return index >= text.size() || (!SplitsSurrogates(text, index) && !IsCombiningMark(text[index]));
}

} // namespace

const TEnumInfo& DescribeEnum(TBehavior) {
    static const TEnumInfo info{u"TBehavior", {u"beStandard", u"beNew", u"beNewWyszukajPoczatek"}};
    return info;
}

void TChoiceIndex::Prepare(std::size_t count) {
    FStarts.clear();
    FStarts.reserve(count);
    FBytes.assign(1, kBoundary);
}

void TChoiceIndex::Assign(const TStrings& items, const TTextFolding& folding) {
    if (!(FFolder.Folding() == folding))
        FFolder = TTextFolder(folding);
    const int count = items.GetCount();
    Prepare(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        if (FBytes.size() > std::numeric_limits<std::uint32_t>::max())
            throw std::length_error("too much text to search");
        FStarts.push_back(static_cast<std::uint32_t>(FBytes.size()));
        EncodeFolded(items.Get(i), FFolder, FBytes);
        FBytes += kBoundary;
    }
    FBytes.shrink_to_fit();
    FVersion.reset();
}

void TChoiceIndex::Update(const TStrings& items, unsigned version, const TTextFolding& folding) {
    if (FVersion == version && FFolder.Folding() == folding)
        return;
    Assign(items, folding);
    FVersion = version;
}

TChoiceIndex::TMatch TChoiceIndex::Find(StringView text, TMatchPlace place, int from) const {
    if (text.empty() || from < 0 || from >= Count())
        return {};
    std::string part;
    if (place != TMatchPlace::Anywhere)
        part += kBoundary;
    EncodeFolded(text, FFolder, part);
    if (place == TMatchPlace::Whole)
        part += kBoundary;
    std::size_t at = FindBytes(FBytes, part, FStarts[static_cast<std::size_t>(from)] - 1);
    if (at == std::string::npos)
        return {};
    if (place != TMatchPlace::Anywhere)
        ++at;
    const auto item = std::prev(std::upper_bound(FStarts.begin(), FStarts.end(), at));
    return {static_cast<int>(item - FStarts.begin()), UnitCount(std::string_view(FBytes).substr(*item, at - *item))};
}

std::size_t TChoiceIndex::MemorySize() const {
    return FBytes.capacity() + FStarts.capacity() * sizeof(FStarts[0]);
}

TTextRange MatchedCharacters(StringView text, StringView search, const TTextFolder& folder) {
    if (search.empty())
        return {};
    String folded;
    std::vector<std::size_t> sources; // by unit of the folded text
    for (std::size_t i = 0; i < text.size(); ++i) {
        folder.FoldUnit(text[i], [&](char16_t unit) {
            folded += unit;
            sources.push_back(i);
        });
    }
    const String part = folder.Fold(search);
    const std::size_t at = folded.find(part);
    if (at == String::npos)
        return {};
    std::size_t start = sources[at];
    std::size_t end = sources[at + part.size() - 1] + 1;
    while (start > 0 && !IsCharacterEdge(text, start))
        --start;
    while (!IsCharacterEdge(text, end))
        ++end;
    return {static_cast<int>(start), static_cast<int>(end - start)};
}

int FindSameText(const TStrings& items, StringView text) {
    const auto sameLower = [](char16_t left, char16_t right) { return ToLowerCase(left) == ToLowerCase(right); };
    for (int i = 0; i < items.GetCount(); ++i) {
        const String item = items.Get(i);
        if (std::equal(item.begin(), item.end(), text.begin(), text.end(), sameLower))
            return i;
    }
    return -1;
}

} // namespace ZOR
