#include "framework/system/currency.h"

#include "framework/system/decimal.h"
#include "framework/system/exceptions.h"

#include <algorithm>
#include <limits>

namespace framework {

namespace {

constexpr std::uint64_t magnitudeLimit = std::uint64_t{1} << 63;

[[noreturn]] void RaiseRange() {
    throw EConvertError(u"The amount is too large for a currency value");
}

constexpr std::uint64_t Magnitude(std::int64_t value) {
    return value < 0 ? 0 - static_cast<std::uint64_t>(value) : static_cast<std::uint64_t>(value);
}

std::int64_t WithSign(std::uint64_t magnitude, bool negative) {
    if (negative ? magnitude > magnitudeLimit : magnitude >= magnitudeLimit)
        RaiseRange();
    return static_cast<std::int64_t>(negative ? 0 - magnitude : magnitude);
}

/// left * right / divisor with a 128-bit product, a half rounded up. The divisor is at most 2^63.
std::uint64_t MultiplyDivide(std::uint64_t left, std::uint64_t right, std::uint64_t divisor) {
    constexpr std::uint64_t lowMask = 0xFFFFFFFF;
    const std::uint64_t lowLow = (left & lowMask) * (right & lowMask);
    const std::uint64_t highLow = (left >> 32) * (right & lowMask) + (lowLow >> 32);
    const std::uint64_t lowHigh = (left & lowMask) * (right >> 32) + (highLow & lowMask);
    const std::uint64_t high = (left >> 32) * (right >> 32) + (highLow >> 32) + (lowHigh >> 32);
    const std::uint64_t low = (lowHigh << 32) | (lowLow & lowMask);
    if (high >= divisor)
        RaiseRange();
    // The remainder stays below the divisor, so doubling it never overflows.
    std::uint64_t remainder = high;
    std::uint64_t quotient = 0;
    for (int bit = 63; bit >= 0; --bit) {
        remainder = (remainder << 1) | ((low >> bit) & 1);
        quotient <<= 1;
        if (remainder >= divisor) {
            remainder -= divisor;
            quotient |= 1;
        }
    }
    if (remainder >= divisor - remainder && ++quotient == 0)
        RaiseRange();
    return quotient;
}

std::int64_t ScaleUp(std::uint64_t magnitude, bool negative) {
    if (magnitude > magnitudeLimit / Currency::unitsPerOne)
        RaiseRange();
    return WithSign(magnitude * Currency::unitsPerOne, negative);
}

} // namespace

Currency Currency::FromSigned(std::int64_t value) {
    return FromUnits(ScaleUp(Magnitude(value), value < 0));
}

Currency Currency::FromUnsigned(std::uint64_t value) {
    return FromUnits(ScaleUp(value, false));
}

Currency::Currency(Extended value) {
    TDecimal decimal = DecimalFromFloat(value, std::numeric_limits<int>::max());
    decimal.Round(std::numeric_limits<int>::max(), decimals);
    if (decimal.Kind != TDecimal::TKind::Number || decimal.Exponent > std::numeric_limits<std::int64_t>::digits10 - 3)
        RaiseRange();
    std::uint64_t magnitude = 0;
    for (int place = 1 - decimal.Exponent; place <= decimals; ++place)
        magnitude = magnitude * 10 + static_cast<unsigned>(decimal.DigitAt(place));
    FUnits = WithSign(magnitude, decimal.Negative);
}

Currency operator+(Currency left, Currency right) {
    constexpr auto highest = std::numeric_limits<std::int64_t>::max();
    constexpr auto lowest = std::numeric_limits<std::int64_t>::min();
    if (right.FUnits > 0 ? left.FUnits > highest - right.FUnits : left.FUnits < lowest - right.FUnits)
        RaiseRange();
    return Currency::FromUnits(left.FUnits + right.FUnits);
}

Currency operator-(Currency left, Currency right) {
    constexpr auto highest = std::numeric_limits<std::int64_t>::max();
    constexpr auto lowest = std::numeric_limits<std::int64_t>::min();
    if (right.FUnits < 0 ? left.FUnits > highest + right.FUnits : left.FUnits < lowest + right.FUnits)
        RaiseRange();
    return Currency::FromUnits(left.FUnits - right.FUnits);
}

Currency operator*(Currency left, Currency right) {
    const std::uint64_t magnitude =
        MultiplyDivide(Magnitude(left.FUnits), Magnitude(right.FUnits), Currency::unitsPerOne);
    return Currency::FromUnits(WithSign(magnitude, (left.FUnits < 0) != (right.FUnits < 0)));
}

Currency operator/(Currency left, Currency right) {
    if (right.FUnits == 0)
        throw EConvertError(u"A currency value cannot be divided by zero");
    const std::uint64_t magnitude =
        MultiplyDivide(Magnitude(left.FUnits), Currency::unitsPerOne, Magnitude(right.FUnits));
    return Currency::FromUnits(WithSign(magnitude, (left.FUnits < 0) != (right.FUnits < 0)));
}

} // namespace framework
