#include "framework/system/numbers.h"

#include "framework/system/decimal.h"
#include "framework/system/exceptions.h"
#include "framework/system/strings.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>

namespace framework {

namespace {

/// An integer text taken apart.
struct WrittenInteger {
    std::uint64_t Magnitude = 0;
    bool HasSign = false;
    bool Negative = false;
    bool Hexadecimal = false;
};

/// The value of a digit in bases up to 16; 16 for anything else.
unsigned DigitValue(char16_t unit) {
    if (unit >= u'0' && unit <= u'9')
        return unit - u'0';
    const auto lower = static_cast<char16_t>(unit | 0x20);
    return unit < 0x80 && lower >= u'a' && lower <= u'f' ? lower - u'a' + 10u : 16u;
}

/// Takes the mark of a hexadecimal number.
bool TakeHexadecimalMark(StringView& text) {
    const auto isX = [](char16_t unit) { return unit == u'x' || unit == u'X'; };
    std::size_t length = 0;
    if (!text.empty() && (text[0] == u'$' || isX(text[0])))
        length = 1;
    else if (text.size() > 1 && text[0] == u'0' && isX(text[1]))
        length = 2;
    text.remove_prefix(length);
    return length != 0;
}

std::optional<WrittenInteger> ParseInteger(StringView text) {
    text.remove_prefix(std::min(text.find_first_not_of(u' '), text.size()));
    WrittenInteger result;
    if (!text.empty() && (text.front() == u'-' || text.front() == u'+')) {
        result.HasSign = true;
        result.Negative = text.front() == u'-';
        text.remove_prefix(1);
    }
    result.Hexadecimal = TakeHexadecimalMark(text);
    const unsigned base = result.Hexadecimal ? 16 : 10;
    if (text.empty())
        return std::nullopt;
    for (const char16_t unit : text) {
        const unsigned digit = DigitValue(unit);
        constexpr auto highest = std::numeric_limits<std::uint64_t>::max();
        if (digit >= base || result.Magnitude > (highest - digit) / base)
            return std::nullopt;
        result.Magnitude = result.Magnitude * base + digit;
    }
    return result;
}

template <typename T>
bool TryStrToInteger(StringView text, T& value) {
    using Unsigned = std::make_unsigned_t<T>;
    const auto written = ParseInteger(text);
    if (!written)
        return false;
    auto limit = static_cast<std::uint64_t>(std::numeric_limits<T>::max());
    if (written->Hexadecimal && !written->HasSign)
        limit = std::numeric_limits<Unsigned>::max();
    else if (written->Negative)
        ++limit;
    if (written->Magnitude > limit)
        return false;
    const auto bits = static_cast<Unsigned>(written->Magnitude);
    value = static_cast<T>(written->Negative ? static_cast<Unsigned>(0 - bits) : bits);
    return true;
}

[[noreturn]] void RaiseConversion(StringView text, StringView what) {
    String message = u"'";
    message += text;
    message += u"' is not a valid ";
    message += what;
    throw EConvertError(message);
}

template <typename Float>
bool TryStrToSpecialFloat(StringView text, Float& value) {
    const String trimmed = Trim(text);
    using Limits = std::numeric_limits<Float>;
    if (SameText(trimmed, u"NAN"))
        value = Limits::quiet_NaN();
    else if (SameText(trimmed, u"INF") || SameText(trimmed, u"+INF"))
        value = Limits::infinity();
    else if (SameText(trimmed, u"-INF"))
        value = -Limits::infinity();
    else
        return false;
    return true;
}

template <typename Float>
bool TryStrToAnyFloat(StringView text, Float& value, const TFormatSettings& settings) {
    TWrittenNumber number;
    if (!TryParseNumber(text, settings.DecimalSeparator, number))
        return TryStrToSpecialFloat(text, value);
    Float result = 0;
    if (!TryMakeFloat(number, result))
        return false;
    value = result;
    return true;
}

} // namespace

String Int64ToStr(std::int64_t value) {
    return value < 0 ? u"-" + UIntToStr(0 - static_cast<std::uint64_t>(value)) : UIntToStr(value);
}

String UIntToStr(std::uint64_t value) {
    char16_t digits[std::numeric_limits<std::uint64_t>::digits10 + 1];
    char16_t* const end = std::end(digits);
    char16_t* first = end;
    do
        *--first = static_cast<char16_t>(u'0' + value % 10);
    while ((value /= 10) != 0);
    return String(first, end);
}

bool TryStrToInt(StringView text, std::int32_t& value) {
    return TryStrToInteger(text, value);
}

bool TryStrToInt64(StringView text, std::int64_t& value) {
    return TryStrToInteger(text, value);
}

std::int32_t StrToInt(StringView text) {
    std::int32_t value = 0;
    if (!TryStrToInt(text, value))
        RaiseConversion(text, u"integer value");
    return value;
}

std::int64_t StrToInt64(StringView text) {
    std::int64_t value = 0;
    if (!TryStrToInt64(text, value))
        RaiseConversion(text, u"integer value");
    return value;
}

std::int32_t StrToIntDef(StringView text, std::int32_t otherwise) {
    TryStrToInt(text, otherwise);
    return otherwise;
}

std::int64_t StrToInt64Def(StringView text, std::int64_t otherwise) {
    TryStrToInt64(text, otherwise);
    return otherwise;
}

bool TryStrToFloat(StringView text, Extended& value, const TFormatSettings& settings) {
    return TryStrToAnyFloat(text, value, settings);
}

bool TryStrToFloat(StringView text, double& value, const TFormatSettings& settings) {
    return TryStrToAnyFloat(text, value, settings);
}

Extended StrToFloat(StringView text, const TFormatSettings& settings) {
    Extended value = 0;
    if (!TryStrToFloat(text, value, settings))
        RaiseConversion(text, u"floating point value");
    return value;
}

Extended StrToFloatDef(StringView text, Extended otherwise, const TFormatSettings& settings) {
    TryStrToFloat(text, otherwise, settings);
    return otherwise;
}

bool TryStrToCurr(StringView text, Currency& value, const TFormatSettings& settings) {
    TWrittenNumber number;
    std::int64_t units = 0;
    if (!TryParseNumber(text, settings.DecimalSeparator, number) || !TryMakeScaled(number, Currency::decimals, units))
        return false;
    value = Currency::FromUnits(units);
    return true;
}

Currency StrToCurr(StringView text, const TFormatSettings& settings) {
    Currency value;
    if (!TryStrToCurr(text, value, settings))
        RaiseConversion(text, u"currency value");
    return value;
}

Currency StrToCurrDef(StringView text, Currency otherwise, const TFormatSettings& settings) {
    TryStrToCurr(text, otherwise, settings);
    return otherwise;
}

bool SameValue(Extended left, Extended right, Extended epsilon) {
    if (left == right)
        return true;
    if (epsilon == 0) {
        constexpr Extended resolution = std::numeric_limits<Extended>::epsilon() * 1000;
        epsilon = std::max(std::min(std::fabs(left), std::fabs(right)) * resolution, resolution);
    }
    return std::fabs(left - right) <= epsilon;
}

int CompareValue(Extended left, Extended right, Extended epsilon) {
    if (SameValue(left, right, epsilon))
        return 0;
    return left < right ? -1 : 1;
}

} // namespace framework
