#pragma once

// Decimal digits of numbers: the ground under all number formatting and parsing. Rounding happens here, on the digits
// that a person sees, so that 2.675 with two decimals becomes 2.68 although no binary fraction equals 2.675.

#include "framework/system/types.h"

#include <array>

namespace framework {

/// A number as decimal digits. The value is 0.d1d2d3... times ten to the power of Exponent.
struct TDecimal {
    enum class TKind : std::uint8_t { Number, Infinity, NotANumber };

    TKind Kind = TKind::Number;
    /// Never set for zero.
    bool Negative = false;
    int Exponent = 0;
    /// Significant digits, 0 for zero; neither the first nor the last of them is a zero.
    int Count = 0;
    /// Digit values 0 to 9; behind Count undefined.
    std::array<std::uint8_t, 24> Digits{};

    bool IsZero() const { return Kind == TKind::Number && Count == 0; }
    /// The digit that counts 10^-place (0 for the units, 1 for the tenths, -1 for the tens), 0 outside the digits.
    int DigitAt(int place) const;
    /// Keeps at most `significant` digits and nothing below 10^-decimals; a half is rounded away from zero.
    void Round(int significant, int decimals);
};

/// The digits of a float that a person sees at most.
constexpr int maximumShownDigits = 18;

/// The shortest decimal that reads back as `value`, rounded to `significant` digits when it has more.
TDecimal DecimalFromFloat(Extended value, int significant = maximumShownDigits);
/// `units` times 10^-scale, exactly.
TDecimal DecimalFromInteger(std::int64_t units, int scale = 0);

/// A number as somebody wrote it, without sign and separators: 0.d1d2d3... times ten to the power of Exponent.
struct TWrittenNumber {
    bool Negative = false;
    /// '0' to '9', without leading or trailing zeros, of any number; empty for zero.
    std::string Digits;
    int Exponent = 0;
};

/// Reads [sign] digits [separator digits] [E [sign] digits] with blanks around it; at least one digit must stand
/// before the E, and nothing may follow. False leaves `number` undefined.
bool TryParseNumber(StringView text, char16_t decimalSeparator, TWrittenNumber& number);

/// The nearest float; false when the number lies beyond the range. One too small becomes zero.
bool TryMakeFloat(const TWrittenNumber& number, Extended& value);
bool TryMakeFloat(const TWrittenNumber& number, double& value);
/// Whether TryMakeFloat makes an Extended of it; quick, unless the number begins like the greatest one.
bool FitsExtended(const TWrittenNumber& number);
/// The number times 10^scale, a half rounded away from zero; false when it does not fit.
bool TryMakeScaled(const TWrittenNumber& number, int scale, std::int64_t& units);

} // namespace framework
