// From written digits to the nearest float. The C++ library of the target converts long doubles by way of doubles, so
// the exact way is gone here, with whole numbers of any size.

#include "framework/system/decimal.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

namespace framework {

namespace {

/// A natural number of any size, with just the operations of an exact conversion.
class TNatural {
public:
    explicit TNatural(std::string_view digits) {
        for (; !digits.empty(); digits.remove_prefix(std::min<std::size_t>(digits.size(), 9))) {
            std::uint32_t factor = 1;
            std::uint32_t block = 0;
            for (const char digit : digits.substr(0, 9)) {
                factor *= 10;
                block = block * 10 + static_cast<std::uint32_t>(digit - '0');
            }
            MultiplyAndAdd(factor, block);
        }
    }

    void MultiplyByPowerOfTen(int power) {
        for (; power >= 9; power -= 9)
            MultiplyAndAdd(1'000'000'000, 0);
        for (; power > 0; --power)
            MultiplyAndAdd(10, 0);
    }

    void ShiftLeft(int bits) {
        FLimbs.insert(FLimbs.begin(), static_cast<std::size_t>(bits / 32), 0);
        if (bits % 32 != 0)
            MultiplyAndAdd(std::uint32_t{1} << (bits % 32), 0);
    }

    int BitLength() const {
        int bits = static_cast<int>(FLimbs.size()) * 32;
        for (std::uint32_t mask = 0x80000000; bits > 0 && (FLimbs.back() & mask) == 0; mask >>= 1)
            --bits;
        return bits;
    }

    /// Negative, 0 or positive as this is less than, equal to or greater than the other.
    int Compare(const TNatural& other) const {
        if (FLimbs.size() != other.FLimbs.size())
            return FLimbs.size() < other.FLimbs.size() ? -1 : 1;
        for (std::size_t i = FLimbs.size(); i-- > 0;) {
            if (FLimbs[i] != other.FLimbs[i])
                return FLimbs[i] < other.FLimbs[i] ? -1 : 1;
        }
        return 0;
    }

    /// The other must not be greater.
    void Subtract(const TNatural& other) {
        std::uint64_t borrow = 0;
        for (std::size_t i = 0; i < FLimbs.size(); ++i) {
            const std::uint64_t taken = (i < other.FLimbs.size() ? other.FLimbs[i] : 0) + borrow;
            borrow = FLimbs[i] < taken ? 1 : 0;
            FLimbs[i] = static_cast<std::uint32_t>(FLimbs[i] - taken);
        }
        while (!FLimbs.empty() && FLimbs.back() == 0)
            FLimbs.pop_back();
    }

private:
    void MultiplyAndAdd(std::uint32_t factor, std::uint32_t addend) {
        std::uint64_t carry = addend;
        for (std::uint32_t& limb : FLimbs) {
            carry += std::uint64_t{limb} * factor;
            limb = static_cast<std::uint32_t>(carry);
            carry >>= 32;
        }
        if (carry != 0)
            FLimbs.push_back(static_cast<std::uint32_t>(carry));
    }

    /// Lowest first, the last one never zero.
    std::vector<std::uint32_t> FLimbs;
};

/// No point half way between two floats has more significant digits than this; what follows only says "a bit more".
template <typename Float>
constexpr std::size_t decisiveDigits =
    std::numeric_limits<Float>::digits + 1 - std::numeric_limits<Float>::min_exponent;

/// Bits of the mantissa that the conversion fills.
template <typename Float>
constexpr int mantissaBits = std::min(std::numeric_limits<Float>::digits, 64);

/// The nearest float, a tie to the even one; false when it lies beyond the range.
template <typename Float>
bool TryDivideToFloat(const TWrittenNumber& number, Float& value) {
    using Limits = std::numeric_limits<Float>;
    std::string digits = number.Digits.substr(0, decisiveDigits<Float>);
    if (digits.size() < number.Digits.size())
        digits += '1';
    const int power = number.Exponent - static_cast<int>(digits.size());
    TNatural numerator(digits);
    TNatural denominator("1");
    (power < 0 ? denominator : numerator).MultiplyByPowerOfTen(std::abs(power));

    // Brings the quotient into [1, 2); the value is that times 2^exponent.
    int exponent = numerator.BitLength() - denominator.BitLength();
    (exponent < 0 ? numerator : denominator).ShiftLeft(std::abs(exponent));
    if (numerator.Compare(denominator) < 0) {
        --exponent;
        numerator.ShiftLeft(1);
    }

    // Subnormal numbers have fewer bits.
    const int bits = std::min(mantissaBits<Float>, mantissaBits<Float> + exponent - (Limits::min_exponent - 1));
    value = 0;
    if (bits < 0)
        return true;
    std::uint64_t mantissa = 0;
    for (int i = 0; i < bits; ++i) {
        mantissa <<= 1;
        if (numerator.Compare(denominator) >= 0) {
            numerator.Subtract(denominator);
            mantissa |= 1;
        }
        numerator.ShiftLeft(1);
    }
    const int half = numerator.Compare(denominator);
    value = static_cast<Float>(mantissa);
    // Adding to the float instead of the integer lets the highest mantissa go over into the next power of two.
    if (half > 0 || (half == 0 && (mantissa & 1) != 0))
        value += 1;
    value = std::ldexp(value, exponent - bits + 1);
    return !std::isinf(value);
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
    if (digits.size() > std::numeric_limits<std::uint64_t>::digits10 || std::abs(exponent) > exactPowers<Float>)
        return false;
    std::uint64_t mantissa = 0;
    for (const char digit : digits)
        mantissa = mantissa * 10 + static_cast<unsigned>(digit - '0');
    if constexpr (mantissaBits<Float> < 64) {
        if ((mantissa >> mantissaBits<Float>) != 0)
            return false;
    }
    const auto whole = static_cast<Float>(mantissa);
    const Float power = powersOfTen<Float>[static_cast<std::size_t>(std::abs(exponent))];
    value = exponent < 0 ? whole / power : whole * power;
    return true;
}

template <typename Float>
bool TryMakeNearest(const TWrittenNumber& number, Float& value) {
    using Limits = std::numeric_limits<Float>;
    value = 0;
    if (number.Digits.empty())
        return true;
    // Spares the exact way numbers that lie far outside, whose powers of ten have no bounded size.
    if (number.Exponent > Limits::max_exponent10 + 1)
        return false;
    if (number.Exponent < Limits::min_exponent10 - Limits::digits10 - 2)
        return true;
    const int lastPlace = number.Exponent - static_cast<int>(number.Digits.size());
    if (!TryMakeFloatExactly(number.Digits, lastPlace, value) && !TryDivideToFloat(number, value))
        return false;
    if (number.Negative)
        value = -value;
    return true;
}

} // namespace

bool TryMakeFloat(const TWrittenNumber& number, Extended& value) {
    return TryMakeNearest(number, value);
}

bool TryMakeFloat(const TWrittenNumber& number, double& value) {
    return TryMakeNearest(number, value);
}

bool FitsExtended(const TWrittenNumber& number) {
    using Limits = std::numeric_limits<Extended>;
    if (number.Digits.empty() || number.Exponent <= Limits::max_exponent10)
        return true;
    if (number.Exponent > Limits::max_exponent10 + 1)
        return false;
    static const TDecimal greatest = DecimalFromFloat(Limits::max(), std::numeric_limits<int>::max());
    for (std::size_t i = 0; i < Limits::digits10; ++i) {
        const int digit = i < number.Digits.size() ? number.Digits[i] - '0' : 0;
        if (digit != greatest.Digits[i])
            return digit < greatest.Digits[i];
    }
    Extended value = 0;
    return TryMakeFloat(number, value);
}

} // namespace framework
