#include "framework/system/decimal.h"

#include "framework/system/strings.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

namespace framework {

namespace {

void RemoveTrailingZeros(TDecimal& decimal) {
    while (decimal.Count > 0 && decimal.Digits[decimal.Count - 1] == 0)
        --decimal.Count;
    if (decimal.Count == 0) {
        decimal.Exponent = 0;
        decimal.Negative = false;
    }
}

/// Adds one to the last digit kept; nines become trailing zeros, which the caller removes.
void IncrementLastDigit(TDecimal& decimal) {
    int i = decimal.Count - 1;
    while (i >= 0 && decimal.Digits[i] == 9)
        decimal.Digits[i--] = 0;
    if (i >= 0) {
        ++decimal.Digits[i];
        return;
    }
    decimal.Digits[0] = 1;
    decimal.Count = 1;
    ++decimal.Exponent;
}

/// Fills in the digits of a whole number; the exponent is that of the whole number.
void SetInteger(TDecimal& decimal, std::uint64_t magnitude) {
    decimal.Count = 0;
    for (; magnitude != 0; magnitude /= 10)
        decimal.Digits[decimal.Count++] = static_cast<std::uint8_t>(magnitude % 10);
    std::reverse(decimal.Digits.begin(), decimal.Digits.begin() + decimal.Count);
    decimal.Exponent = decimal.Count;
}

std::uint64_t Magnitude(std::int64_t value) {
    return value < 0 ? 0 - static_cast<std::uint64_t>(value) : static_cast<std::uint64_t>(value);
}

/// Whole numbers below this are digits already; the way over to_chars takes several times as long.
constexpr Extended wholeNumberLimit = 1e15L;

TDecimal ShortestDecimal(Extended value) {
    TDecimal decimal;
    // d.ddde+xx: at most max_digits10 digits, a point, and an exponent of four digits.
    std::array<char, 48> text;
    const auto end =
        std::to_chars(text.data(), text.data() + text.size(), std::fabs(value), std::chars_format::scientific).ptr;
    const char* place = text.data();
    for (; place != end && *place != 'e'; ++place) {
        if (*place != '.' && decimal.Count < static_cast<int>(decimal.Digits.size()))
            decimal.Digits[decimal.Count++] = static_cast<std::uint8_t>(*place - '0');
    }
    ++place;
    if (*place == '+')
        ++place;
    std::from_chars(place, end, decimal.Exponent);
    ++decimal.Exponent;
    decimal.Negative = value < 0;
    RemoveTrailingZeros(decimal);
    return decimal;
}

bool IsDigit(char16_t unit) {
    return unit >= u'0' && unit <= u'9';
}

/// Takes the digits at the front of `text`; their number.
int TakeDigits(StringView& text, std::string& digits) {
    int count = 0;
    for (; !text.empty() && IsDigit(text.front()); text.remove_prefix(1), ++count)
        digits += static_cast<char>(text.front());
    return count;
}

/// True when a sign was there and negative; a plus is skipped.
bool TakeSign(StringView& text) {
    if (text.empty() || (text.front() != u'-' && text.front() != u'+'))
        return false;
    const bool negative = text.front() == u'-';
    text.remove_prefix(1);
    return negative;
}

/// Takes E [sign] digits. Exponents beyond any range are cut where they change nothing any more.
bool TakeExponent(StringView& text, int& exponent) {
    constexpr int limit = 100'000'000;
    text.remove_prefix(1);
    const bool negative = TakeSign(text);
    if (text.empty())
        return false;
    for (; !text.empty() && IsDigit(text.front()); text.remove_prefix(1))
        exponent = std::min(exponent * 10 + (text.front() - u'0'), limit);
    if (negative)
        exponent = -exponent;
    return text.empty();
}

void RemoveOuterZeros(TWrittenNumber& number) {
    const std::size_t first = number.Digits.find_first_not_of('0');
    if (first == std::string::npos) {
        number.Digits.clear();
        number.Exponent = 0;
        return;
    }
    number.Digits.erase(number.Digits.find_last_not_of('0') + 1);
    number.Digits.erase(0, first);
    number.Exponent -= static_cast<int>(first);
}

} // namespace

int TDecimal::DigitAt(int place) const {
    const int index = Exponent - 1 + place;
    return index >= 0 && index < Count ? Digits[index] : 0;
}

void TDecimal::Round(int significant, int decimals) {
    const int kept = std::min(significant, Exponent + decimals);
    if (Kind != TKind::Number || kept >= Count)
        return;
    const bool up = kept >= 0 && Digits[kept] >= 5;
    Count = std::max(kept, 0);
    if (up)
        IncrementLastDigit(*this);
    RemoveTrailingZeros(*this);
}

TDecimal DecimalFromInteger(std::int64_t units, int scale) {
    TDecimal decimal;
    decimal.Negative = units < 0;
    SetInteger(decimal, Magnitude(units));
    decimal.Exponent -= scale;
    RemoveTrailingZeros(decimal);
    return decimal;
}

TDecimal DecimalFromFloat(Extended value, int significant) {
    TDecimal decimal;
    if (std::isnan(value)) {
        decimal.Kind = TDecimal::TKind::NotANumber;
        return decimal;
    }
    if (std::isinf(value)) {
        decimal.Kind = TDecimal::TKind::Infinity;
        decimal.Negative = value < 0;
        return decimal;
    }
    if (std::fabs(value) < wholeNumberLimit && std::trunc(value) == value)
        decimal = DecimalFromInteger(static_cast<std::int64_t>(value));
    else
        decimal = ShortestDecimal(value);
    decimal.Round(significant, std::numeric_limits<int>::max() / 2);
    return decimal;
}

bool TryParseNumber(StringView text, char16_t decimalSeparator, TWrittenNumber& number) {
    const String trimmed = Trim(text);
    StringView rest = trimmed;
    number = {};
    number.Negative = TakeSign(rest);
    number.Digits.reserve(rest.size());
    const int whole = TakeDigits(rest, number.Digits);
    int fraction = 0;
    if (!rest.empty() && rest.front() == decimalSeparator) {
        rest.remove_prefix(1);
        fraction = TakeDigits(rest, number.Digits);
    }
    if (whole + fraction == 0)
        return false;
    int exponent = 0;
    if (!rest.empty()) {
        if ((rest.front() != u'E' && rest.front() != u'e') || !TakeExponent(rest, exponent))
            return false;
    }
    number.Exponent = whole + exponent;
    RemoveOuterZeros(number);
    return true;
}

bool TryMakeScaled(const TWrittenNumber& number, int scale, std::int64_t& units) {
    const int kept = number.Exponent + scale;
    if (number.Digits.empty() || kept < 0) {
        units = 0;
        return true;
    }
    if (kept > std::numeric_limits<std::uint64_t>::digits10)
        return false;
    const auto digitAt = [&](int index) {
        return index < static_cast<int>(number.Digits.size()) ? static_cast<unsigned>(number.Digits[index] - '0') : 0u;
    };
    std::uint64_t magnitude = 0;
    for (int i = 0; i < kept; ++i)
        magnitude = magnitude * 10 + digitAt(i);
    if (digitAt(kept) >= 5)
        ++magnitude;
    const std::uint64_t limit = std::uint64_t{1} << 63;
    if (number.Negative ? magnitude > limit : magnitude >= limit)
        return false;
    units = static_cast<std::int64_t>(number.Negative ? 0 - magnitude : magnitude);
    return true;
}

} // namespace framework
