#include "framework/system/strings.h"

#include "framework/system/casemapping.h"

#include <algorithm>
#include <cstring>

namespace framework {

namespace {

constexpr char32_t replacementCharacter = 0xFFFD;

void AppendUtf8(std::string& target, char32_t code) {
    if (code < 0x80) {
        target += static_cast<char>(code);
        return;
    }
    if (code < 0x800) {
        target += static_cast<char>(0xC0 | (code >> 6));
    } else {
        if (code < 0x10000) {
            target += static_cast<char>(0xE0 | (code >> 12));
        } else {
            target += static_cast<char>(0xF0 | (code >> 18));
            target += static_cast<char>(0x80 | ((code >> 12) & 0x3F));
        }
        target += static_cast<char>(0x80 | ((code >> 6) & 0x3F));
    }
    target += static_cast<char>(0x80 | (code & 0x3F));
}

void AppendUtf16(String& target, char32_t code) {
    if (code < 0x10000) {
        target += static_cast<char16_t>(code);
        return;
    }
    target += static_cast<char16_t>(0xD7C0 + (code >> 10));
    target += static_cast<char16_t>(0xDC00 | (code & 0x3FF));
}

/// What the first byte of a sequence promises: how many bytes follow, and the range allowed for the next one. The
/// range is what keeps out overlong forms, surrogates and codes beyond U+10FFFF.
struct Utf8Lead {
    int Followers;
    unsigned char NextLow;
    unsigned char NextHigh;
};

constexpr Utf8Lead ClassifyLead(unsigned char lead) {
    if (lead >= 0xC2 && lead <= 0xDF)
        return {1, 0x80, 0xBF};
    if (lead >= 0xE0 && lead <= 0xEF)
        return {2, static_cast<unsigned char>(lead == 0xE0 ? 0xA0 : 0x80),
                static_cast<unsigned char>(lead == 0xED ? 0x9F : 0xBF)};
    if (lead >= 0xF0 && lead <= 0xF4)
        return {3, static_cast<unsigned char>(lead == 0xF0 ? 0x90 : 0x80),
                static_cast<unsigned char>(lead == 0xF4 ? 0x8F : 0xBF)};
    return {0, 0, 0};
}

constexpr char32_t malformed = 0xFFFFFFFF;

/// Reads one code point at `position` and moves behind it; a malformed sequence is left at the first byte that
/// cannot belong to it, so that a torn character never swallows the sound one after it.
char32_t DecodeOne(std::string_view text, std::size_t& position) {
    const auto lead = static_cast<unsigned char>(text[position++]);
    if (lead < 0x80)
        return lead;
    const Utf8Lead kind = ClassifyLead(lead);
    if (kind.Followers == 0)
        return malformed;
    char32_t code = lead & (0x3F >> kind.Followers);
    unsigned char low = kind.NextLow;
    unsigned char high = kind.NextHigh;
    for (int i = 0; i < kind.Followers; ++i) {
        if (position == text.size())
            return malformed;
        const auto next = static_cast<unsigned char>(text[position]);
        if (next < low || next > high)
            return malformed;
        code = (code << 6) | (next & 0x3F);
        ++position;
        low = 0x80;
        high = 0xBF;
    }
    return code;
}

constexpr bool IsBlank(char16_t unit) {
    return unit <= u' ';
}

constexpr char16_t AsciiUpper(char16_t unit) {
    return unit >= u'a' && unit <= u'z' ? static_cast<char16_t>(unit - 32) : unit;
}

constexpr char16_t AsciiLower(char16_t unit) {
    return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + 32) : unit;
}

template <typename Mapping>
String Mapped(StringView text, Mapping mapping) {
    String result(text);
    for (char16_t& unit : result)
        unit = mapping(unit);
    return result;
}

template <typename Mapping>
int CompareMapped(StringView left, StringView right, Mapping mapping) {
    const std::size_t common = std::min(left.size(), right.size());
    for (std::size_t i = 0; i < common; ++i) {
        if (left[i] == right[i])
            continue;
        const int difference = static_cast<int>(mapping(left[i])) - static_cast<int>(mapping(right[i]));
        if (difference != 0)
            return difference;
    }
    return (left.size() > right.size()) - (left.size() < right.size());
}

/// Beyond ASCII everything counts as a letter except what plainly is none: the Latin-1 signs, general punctuation,
/// symbols and arrows, ideographic punctuation, unpaired surrogates, private use and the non-characters.
constexpr bool IsIdentifierLetter(char16_t unit) {
    if (unit < 0x80)
        return (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z') || unit == u'_';
    if (unit < 0xC0)
        return unit == 0xAA || unit == 0xB5 || unit == 0xBA;
    const bool isSign = unit == 0xD7 || unit == 0xF7 || (unit >= 0x2000 && unit <= 0x206F) ||
                        (unit >= 0x20A0 && unit <= 0x20CF) || (unit >= 0x2190 && unit <= 0x2BFF) ||
                        (unit >= 0x3000 && unit <= 0x3004) || (unit >= 0x3008 && unit <= 0x3020);
    const bool isNoCharacter = (unit >= 0xD800 && unit <= 0xF8FF) || unit >= 0xFFF0 || unit == 0xFEFF;
    return !isSign && !isNoCharacter;
}

} // namespace

std::string Utf8Encode(StringView text) {
    std::string result;
    result.reserve(text.size() + text.size() / 8);
    for (std::size_t i = 0; i < text.size(); ++i) {
        char32_t code = text[i];
        if (IsHighSurrogate(code) && i + 1 < text.size() && IsLowSurrogate(text[i + 1])) {
            code = 0x10000 + ((code & 0x3FF) << 10) + (text[i + 1] & 0x3FF);
            ++i;
        } else if (IsHighSurrogate(code) || IsLowSurrogate(code)) {
            code = replacementCharacter;
        }
        AppendUtf8(result, code);
    }
    return result;
}

String Utf8Decode(std::string_view text) {
    String result;
    result.reserve(text.size());
    for (std::size_t position = 0; position < text.size();) {
        const char32_t code = DecodeOne(text, position);
        AppendUtf16(result, code == malformed ? replacementCharacter : code);
    }
    return result;
}

std::size_t Utf8SoundLength(std::string_view text) {
    std::size_t position = 0;
    while (position < text.size()) {
        // Mostly it is ASCII, which is passed over in blocks.
        std::uint64_t words[4];
        while (text.size() - position >= sizeof words) {
            std::memcpy(words, text.data() + position, sizeof words);
            if (((words[0] | words[1] | words[2] | words[3]) & 0x8080808080808080u) != 0)
                break;
            position += sizeof words;
        }
        const std::size_t blockEnd = std::min(position + sizeof words, text.size());
        while (position < blockEnd) {
            const std::size_t start = position;
            if (DecodeOne(text, position) == malformed)
                return start;
        }
    }
    return text.size();
}

String AsciiToString(std::string_view text) {
    String result;
    result.reserve(text.size());
    for (const char character : text) {
        const auto byte = static_cast<unsigned char>(character);
        result += byte < 0x80 ? static_cast<char16_t>(byte) : static_cast<char16_t>(replacementCharacter);
    }
    return result;
}

String TrimLeft(StringView text) {
    while (!text.empty() && IsBlank(text.front()))
        text.remove_prefix(1);
    return String(text);
}

String TrimRight(StringView text) {
    while (!text.empty() && IsBlank(text.back()))
        text.remove_suffix(1);
    return String(text);
}

String Trim(StringView text) {
    while (!text.empty() && IsBlank(text.front()))
        text.remove_prefix(1);
    return TrimRight(text);
}

int Pos(StringView part, StringView text, int offset) {
    if (part.empty() || offset < 1)
        return 0;
    const std::size_t found = text.find(part, static_cast<std::size_t>(offset) - 1);
    return found == StringView::npos ? 0 : static_cast<int>(found + 1);
}

String Copy(StringView text, int index, int count) {
    const std::size_t start = index < 1 ? 0 : static_cast<std::size_t>(index) - 1;
    if (count < 1 || start >= text.size())
        return {};
    return String(text.substr(start, static_cast<std::size_t>(count)));
}

void Delete(String& text, int index, int count) {
    if (index < 1 || count < 1 || static_cast<std::size_t>(index) > text.size())
        return;
    text.erase(static_cast<std::size_t>(index) - 1, static_cast<std::size_t>(count));
}

void Insert(StringView part, String& text, int index) {
    const std::size_t start = index < 1 ? 0 : static_cast<std::size_t>(index) - 1;
    text.insert(std::min(start, text.size()), part);
}

String StringOfChar(char16_t unit, int count) {
    return String(static_cast<std::size_t>(std::max(count, 0)), unit);
}

String StringReplace(StringView text, StringView oldPart, StringView newPart, TReplaceFlags flags) {
    if (oldPart.empty())
        return String(text);
    const bool ignoreCase = flags.Contains(rfIgnoreCase);
    // Folding keeps the length, so positions found in the folded text hold in the text itself.
    const String foldedText = ignoreCase ? Mapped(text, FoldCase) : String();
    const String foldedPart = ignoreCase ? Mapped(oldPart, FoldCase) : String();
    const StringView haystack = ignoreCase ? StringView(foldedText) : text;
    const StringView needle = ignoreCase ? StringView(foldedPart) : oldPart;

    String result;
    result.reserve(text.size());
    std::size_t copied = 0;
    for (std::size_t found = haystack.find(needle); found != StringView::npos; found = haystack.find(needle, copied)) {
        result += text.substr(copied, found - copied);
        result += newPart;
        copied = found + needle.size();
        if (!flags.Contains(rfReplaceAll))
            break;
    }
    result += text.substr(copied);
    return result;
}

String UpperCase(StringView text) {
    return Mapped(text, AsciiUpper);
}

String LowerCase(StringView text) {
    return Mapped(text, AsciiLower);
}

String AnsiUpperCase(StringView text) {
    return Mapped(text, ToUpperCase);
}

String AnsiLowerCase(StringView text) {
    String lower(text);
    LowerCaseInPlace(lower.data(), lower.size());
    return lower;
}

int CompareStr(StringView left, StringView right) {
    return CompareMapped(left, right, [](char16_t unit) { return unit; });
}

int CompareText(StringView left, StringView right) {
    return CompareMapped(left, right, AsciiUpper);
}

int AnsiCompareText(StringView left, StringView right) {
    return CompareMapped(left, right, FoldCase);
}

bool SameText(StringView left, StringView right) {
    return left.size() == right.size() && CompareText(left, right) == 0;
}

bool AnsiSameText(StringView left, StringView right) {
    return left.size() == right.size() && AnsiCompareText(left, right) == 0;
}

String QuotedStr(StringView text) {
    String result = u"'";
    for (const char16_t unit : text) {
        if (unit == u'\'')
            result += unit;
        result += unit;
    }
    result += u'\'';
    return result;
}

bool IsValidIdent(StringView name, bool allowDots) {
    bool atStart = true;
    for (std::size_t i = 0; i < name.size(); ++i) {
        const char16_t unit = name[i];
        if (unit == u'.' && allowDots && !atStart) {
            atStart = true;
            continue;
        }
        if (IsHighSurrogate(unit) && i + 1 < name.size() && IsLowSurrogate(name[i + 1]))
            ++i;
        else if (!IsIdentifierLetter(unit) && (atStart || unit < u'0' || unit > u'9'))
            return false;
        atStart = false;
    }
    return !atStart;
}

std::vector<String> SplitString(StringView text, StringView delimiters) {
    std::vector<String> pieces;
    if (text.empty())
        return pieces;
    for (std::size_t end = text.find_first_of(delimiters); end != StringView::npos;
         end = text.find_first_of(delimiters)) {
        pieces.emplace_back(text.substr(0, end));
        text.remove_prefix(end + 1);
    }
    pieces.emplace_back(text);
    return pieces;
}

std::vector<String> SplitLines(StringView text) {
    std::vector<String> lines;
    while (!text.empty()) {
        const std::size_t end = text.find_first_of(u"\r\n");
        lines.emplace_back(text.substr(0, end));
        if (end == StringView::npos)
            break;
        const bool isPair = text[end] == u'\r' && end + 1 < text.size() && text[end + 1] == u'\n';
        text.remove_prefix(end + (isPair ? 2 : 1));
    }
    return lines;
}

String UIntToHex(std::uint64_t value, int digits) {
    String result;
    for (; value != 0; value >>= 4)
        result += u"0123456789ABCDEF"[value & 0xF];
    const auto wanted = static_cast<std::size_t>(std::clamp(digits, 1, 32));
    if (result.size() < wanted)
        result.append(wanted - result.size(), u'0');
    std::reverse(result.begin(), result.end());
    return result;
}

} // namespace framework
