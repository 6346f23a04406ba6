#pragma once

// Numbers to text and back. Every conversion that knows separators takes format settings and falls back on those of
// the process. The Try functions answer false where the others raise EConvertError; a failing Try leaves `value` alone.

#include "framework/system/currency.h"
#include "framework/system/formatsettings.h"

#include <concepts>

namespace framework {

/// How FloatToStrF writes: the shortest text, "-d.ddE+dd", "-ddd.dd", "-d,ddd.dd", and money.
enum TFloatFormat { ffGeneral, ffExponent, ffFixed, ffNumber, ffCurrency };

String Int64ToStr(std::int64_t value);
String UIntToStr(std::uint64_t value);
/// The decimal digits of any integer, with "-" in front of a negative one.
template <std::integral T>
String IntToStr(T value) {
    if constexpr (std::unsigned_integral<T>)
        return UIntToStr(value);
    else
        return Int64ToStr(value);
}

/// A whole number: blanks may stand in front, then a sign, then decimal digits, or hexadecimal ones behind `$`, `x`
/// or `0x`. Hexadecimal digits without a sign may use all bits of the type, so "$FFFFFFFF" is -1 as 32-bit integer.
bool TryStrToInt(StringView text, std::int32_t& value);
bool TryStrToInt64(StringView text, std::int64_t& value);
std::int32_t StrToInt(StringView text);
std::int64_t StrToInt64(StringView text);
std::int32_t StrToIntDef(StringView text, std::int32_t otherwise);
std::int64_t StrToInt64Def(StringView text, std::int64_t otherwise);

/// A number with blanks around it allowed: sign, digits with the decimal separator of `settings` among them, and an
/// exponent behind E. Thousand separators and currency signs are not taken. INF, +INF, -INF and NAN are, in any case.
/// The result is the nearest float; a number beyond its range does not convert, one too small gives 0.
bool TryStrToFloat(StringView text, Extended& value, const TFormatSettings& settings = FormatSettings());
bool TryStrToFloat(StringView text, double& value, const TFormatSettings& settings = FormatSettings());
Extended StrToFloat(StringView text, const TFormatSettings& settings = FormatSettings());
Extended StrToFloatDef(StringView text, Extended otherwise, const TFormatSettings& settings = FormatSettings());

/// As for floats but without INF and NAN, and exact; from the fifth decimal on rounded, a half away from zero.
bool TryStrToCurr(StringView text, Currency& value, const TFormatSettings& settings = FormatSettings());
Currency StrToCurr(StringView text, const TFormatSettings& settings = FormatSettings());
Currency StrToCurrDef(StringView text, Currency otherwise, const TFormatSettings& settings = FormatSettings());

/// The shortest text with up to 15 significant digits.
String FloatToStr(Extended value, const TFormatSettings& settings = FormatSettings());

/// A float in one of the customary forms. The decimal digits are rounded to at most `precision` significant ones (1 to
/// 18), a half away from zero; a value that rounds to zero has no sign. INF, -INF and NAN are written as such.
///
/// ffGeneral   no needless zeros; an exponent when more than `precision` digits would stand before the separator or
///             the value is below 0.00001; `digits` is then the least number of exponent digits, 0 to 4
/// ffExponent  one digit before the separator, `precision` in all; `digits` as above; the exponent has a sign always
/// ffFixed     `digits` decimals, 0 to 18
/// ffNumber    the same with thousand separators
/// ffCurrency  the same with the currency sign, placed as the settings say
///
/// The last three become ffGeneral when more than `precision` digits would stand before the separator.
String FloatToStrF(Extended value, TFloatFormat format, int precision, int digits,
                   const TFormatSettings& settings = FormatSettings());

/// A float written by a mask of up to three sections "positive;negative;zero". A missing or empty section is replaced
/// by the first, an empty mask by the general format with 15 digits, as is a value of more than 18 whole digits.
///
/// 0            a digit, always
/// #            a digit if the value has one there
/// .            the decimal separator, if a decimal follows
/// ,            anywhere: thousand separators
/// E+ E- e+ e-  an exponent of at least as many digits as zeros follow, 0 to 4; with + always signed
/// 'x' "x"      x as it stands, like every other character without quotes
///
/// Digits that have no placeholder stand before the first one. A value that rounds to zero is written by the third
/// section, or the first, without a sign.
String FormatFloat(StringView mask, Extended value, const TFormatSettings& settings = FormatSettings());

/// The exact amount, with up to four decimals as needed.
String CurrToStr(Currency value, const TFormatSettings& settings = FormatSettings());
/// The amount as FloatToStrF writes floats, with up to 19 digits.
String CurrToStrF(Currency value, TFloatFormat format, int digits, const TFormatSettings& settings = FormatSettings());
String FormatCurr(StringView mask, Currency value, const TFormatSettings& settings = FormatSettings());

/// True when the two differ by no more than `epsilon`; with 0 by no more than the rounding of a few operations on
/// numbers of their size.
bool SameValue(Extended left, Extended right, Extended epsilon = 0);
/// -1, 0 or 1, values that are the same by SameValue giving 0.
int CompareValue(Extended left, Extended right, Extended epsilon = 0);

} // namespace framework
