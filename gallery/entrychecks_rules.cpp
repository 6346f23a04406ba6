#include "gallery/entrychecks_rules.h"

#include "framework/system/strings.h"

namespace gallery {

namespace {

bool IsDigit(char16_t c) {
    return c >= u'0' && c <= u'9';
}

bool IsLetter(char16_t c) {
    return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z') || c >= 0x80;
}

/// The digits of a text in which blanks and hyphens may stand; empty when anything else does.
String DigitsOf(StringView text) {
    String digits;
    for (const char16_t c : text) {
        if (IsDigit(c))
            digits += c;
        else if (c != u' ' && c != u'-')
            return {};
    }
    return digits;
}

} // namespace

bool IsPostalCode(StringView text) {
    constexpr StringView kPattern = u"00-000";
    if (text.size() != kPattern.size())
        return false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (kPattern[i] == u'0' ? !IsDigit(text[i]) : text[i] != kPattern[i])
            return false;
    }
    return true;
}

bool IsTaxNumber(StringView text) {
    constexpr int kWeights[] = {6, 5, 7, 2, 3, 4, 5, 6, 7};
    const String digits = DigitsOf(text);
    if (digits.size() != 10)
        return false;
    int sum = 0;
    for (std::size_t i = 0; i < 9; ++i)
        sum += kWeights[i] * (digits[i] - u'0');
    return sum % 11 == digits[9] - u'0'; // a remainder of 10 is no digit: such numbers are not given out
}

bool IsEmail(StringView text) {
    const std::size_t at = text.find(u'@');
    if (at == 0 || at == StringView::npos || text.find(u'@', at + 1) != StringView::npos ||
        text.find(u' ') != StringView::npos)
        return false;
    const std::vector<String> names = SplitString(text.substr(at + 1), u".");
    if (names.size() < 2)
        return false;
    for (const String& name : names) {
        if (name.empty())
            return false;
    }
    const String& last = names.back();
    for (const char16_t c : last) {
        if (!IsLetter(c))
            return false;
    }
    return last.size() >= 2;
}

bool IsPhoneNumber(StringView text) {
    constexpr StringView kCountry = u"+48";
    if (text.substr(0, kCountry.size()) == kCountry)
        text.remove_prefix(kCountry.size());
    return DigitsOf(text).size() == 9;
}

} // namespace gallery
