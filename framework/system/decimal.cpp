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

/// Powers of ten up to the last that a mantissa holds exactly, so that one multiplication or division by them is
/// rounded once, that is correctly.
template <typename Float>
constexpr int exactPowers = static_cast<int>(std::numeric_limits<Float>::digits * 0.430676558);

template <typename Float>
constexpr auto powersOfTen = [] {
    std::array<Float, exactPowers<Float> + 1> powers{};
    powers[0] = 1;
    for (std::size_t i = 1; i < powers.size(); ++i)
        powers[i] = powers[i - 1] * 10;
    return powers;
}();

/// Covers what people type. `exponent` counts from behind the last digit.
template <typename Float>
bool TryMakeFloatExactly(std::string_view digits, int exponent, Float& value) {
    constexpr int mantissaBits = std::numeric_limits<Float>::digits;
    if (digits.size() > std::numeric_limits<std::uint64_t>::digits10 || std::abs(exponent) > exactPowers<Float>)
        return false;
    std::uint64_t mantissa = 0;
    for (const char digit : digits)
        mantissa = mantissa * 10 + static_cast<unsigned>(digit - '0');
    if constexpr (mantissaBits < 64) {
        if ((mantissa >> mantissaBits) != 0)
            return false;
    }
    const auto whole = static_cast<Float>(mantissa);
    const Float power = powersOfTen<Float>[static_cast<std::size_t>(std::abs(exponent))];
    value = exponent < 0 ? whole / power : whole * power;
    return true;
}

template <typename Float>
std::errc MakeFloatByLibrary(const TWrittenNumber& number, int exponent, Float& value) {
    const std::string text = "0." + number.Digits + 'e' + std::to_string(exponent);
    return std::from_chars(text.data(), text.data() + text.size(), value).ec;
}

/// Some libraries give no value when it lies between the smallest normal number and zero. Coming from above, it is
/// right but for the last of its few bits.
template <typename Float>
Float MakeTinyFloat(const TWrittenNumber& number) {
    Float value = 0;
    if (MakeFloatByLibrary(number, number.Exponent + 40, value) != std::errc())
        return 0;
    return value / static_cast<Float>(1e20L) / static_cast<Float>(1e20L);
}

template <typename Float>
bool TryMakeNearest(const TWrittenNumber& number, Float& value) {
    using Limits = std::numeric_limits<Float>;
    value = 0;
    if (number.Digits.empty())
        return true;
    if (number.Exponent > Limits::max_exponent10 + 1)
        return false;
    // Just below the smallest subnormal number, which numbers from its half on are rounded up to.
    if (number.Exponent < Limits::min_exponent10 - Limits::digits10 - 2)
        return true;
    const int lastPlace = number.Exponent - static_cast<int>(number.Digits.size());
    if (!TryMakeFloatExactly(number.Digits, lastPlace, value) &&
        MakeFloatByLibrary(number, number.Exponent, value) == std::errc::result_out_of_range) {
        if (number.Exponent > 0)
            return false;
        value = MakeTinyFloat<Float>(number);
    }
    if (number.Negative)
        value = -value;
    return true;
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

bool TryMakeFloat(const TWrittenNumber& number, Extended& value) {
    return TryMakeNearest(number, value);
}

bool TryMakeFloat(const TWrittenNumber& number, double& value) {
    return TryMakeNearest(number, value);
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
