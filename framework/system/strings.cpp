#include "framework/system/strings.h"

namespace framework {

namespace {

constexpr char32_t replacementCharacter = 0xFFFD;

constexpr bool IsHighSurrogate(char32_t unit) {
    return unit >= 0xD800 && unit <= 0xDBFF;
}
constexpr bool IsLowSurrogate(char32_t unit) {
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

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

/// Reads one code point at `position` and moves behind it; a malformed sequence is left at the first byte that
/// cannot belong to it, so that a torn character never swallows the sound one after it.
char32_t DecodeOne(std::string_view text, std::size_t& position) {
    const auto lead = static_cast<unsigned char>(text[position++]);
    if (lead < 0x80)
        return lead;
    const Utf8Lead kind = ClassifyLead(lead);
    if (kind.Followers == 0)
        return replacementCharacter;
    char32_t code = lead & (0x3F >> kind.Followers);
    unsigned char low = kind.NextLow;
    unsigned char high = kind.NextHigh;
    for (int i = 0; i < kind.Followers; ++i) {
        if (position == text.size())
            return replacementCharacter;
        const auto next = static_cast<unsigned char>(text[position]);
        if (next < low || next > high)
            return replacementCharacter;
        code = (code << 6) | (next & 0x3F);
        ++position;
        low = 0x80;
        high = 0xBF;
    }
    return code;
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
    for (std::size_t position = 0; position < text.size();)
        AppendUtf16(result, DecodeOne(text, position));
    return result;
}

} // namespace framework
