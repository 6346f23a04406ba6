#pragma once

// Money: a fixed-point number that counts ten-thousandths, so that sums and differences are exact.

#include "framework/system/types.h"

#include <compare>
#include <concepts>

namespace framework {

/// The integral types that count something: not truth values and not characters.
template <typename T>
concept WholeNumber =
    std::integral<T> && !std::same_as<T, bool> && !std::same_as<T, char> && !std::same_as<T, wchar_t> &&
    !std::same_as<T, char8_t> && !std::same_as<T, char16_t> && !std::same_as<T, char32_t>;

/// An amount from -922,337,203,685,477.5808 to 922,337,203,685,477.5807 in steps of 0.0001. Products, quotients and
/// conversions from floats round a half away from zero; what leaves the range raises EConvertError.
class Currency {
public:
    static constexpr int decimals = 4;
    static constexpr std::int64_t unitsPerOne = 10000;

    constexpr Currency() = default;
    template <WholeNumber T>
    Currency(T value) : Currency(FromInteger(value)) {}
    /// Rounds the decimal digits of the value, so that 1.00005 becomes 1.0001. NaN and infinities raise EConvertError.
    explicit Currency(Extended value);
    explicit Currency(double value) : Currency(static_cast<Extended>(value)) {}

    /// An amount given in ten-thousandths.
    static constexpr Currency FromUnits(std::int64_t units) {
        Currency result;
        result.FUnits = units;
        return result;
    }
    /// The amount in ten-thousandths.
    constexpr std::int64_t GetUnits() const { return FUnits; }
    /// The nearest Extended.
    Extended AsFloat() const { return static_cast<Extended>(FUnits) / unitsPerOne; }

    friend Currency operator+(Currency left, Currency right);
    friend Currency operator-(Currency left, Currency right);
    /// Rounded to ten-thousandths once.
    friend Currency operator*(Currency left, Currency right);
    /// Rounded to ten-thousandths once; dividing by zero raises EConvertError.
    friend Currency operator/(Currency left, Currency right);
    Currency operator-() const { return Currency() - *this; }
    Currency& operator+=(Currency other) { return *this = *this + other; }
    Currency& operator-=(Currency other) { return *this = *this - other; }
    Currency& operator*=(Currency other) { return *this = *this * other; }
    Currency& operator/=(Currency other) { return *this = *this / other; }
    friend constexpr bool operator==(Currency, Currency) = default;
    friend constexpr std::strong_ordering operator<=>(Currency left, Currency right) {
        return left.FUnits <=> right.FUnits;
    }

private:
    template <WholeNumber T>
    static Currency FromInteger(T value) {
        if constexpr (std::unsigned_integral<T>)
            return FromUnsigned(value);
        else
            return FromSigned(value);
    }
    static Currency FromSigned(std::int64_t value);
    static Currency FromUnsigned(std::uint64_t value);

    std::int64_t FUnits = 0;
};

} // namespace framework
