#include "numeric/Zornumericentry_rules.h"

#include "framework/system/decimal.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <limits>

namespace ZOR {

namespace {

constexpr int MaximumDecimals = 18;

bool IsSign(char16_t unit) {
    return unit == u'-' || unit == u'+';
}

bool IsExponentMark(char16_t unit) {
    return unit == u'e' || unit == u'E';
}

bool TryRead(StringView text, char16_t separator, Extended& value) {
    TWrittenNumber number;
    return TryParseNumber(text, separator, number) && TryMakeFloat(number, value);
}

/// A text without blanks around it that only lacks its end.
bool TryReadUnfinished(StringView text, char16_t separator, Extended& value) {
    StringView start = text;
    if (!start.empty() && IsSign(start.front()))
        start.remove_prefix(1);
    if (start.empty() || (start.size() == 1 && start.front() == separator)) {
        value = 0;
        return true;
    }
    if (start.size() > 1 && IsSign(start.back()) && IsExponentMark(start[start.size() - 2]))
        text.remove_suffix(1);
    if (!IsExponentMark(text.back()))
        return false;
    text.remove_suffix(1);
    return !text.empty() && text.back() > u' ' && TryRead(text, separator, value);
}

StringView TrimmedView(StringView text) {
    while (!text.empty() && text.front() <= u' ')
        text.remove_prefix(1);
    while (!text.empty() && text.back() <= u' ')
        text.remove_suffix(1);
    return text;
}

TNumberReading Finite(TNumberText kind, Extended value) {
    // -0 + 0 is 0.
    return {kind, value + 0};
}

/// Two decimal numbers as whole numbers of the same unit, 10^-Scale.
struct TCommonScale {
    std::int64_t Left = 0;
    std::int64_t Right = 0;
    int Scale = 0;
};

/// The digits of the number down to 10^-scale, which are all it has.
bool TryCountUnits(const TDecimal& decimal, int scale, std::int64_t& units) {
    const int count = decimal.IsZero() ? 0 : decimal.Exponent + scale;
    if (count > maximumShownDigits)
        return false;
    units = 0;
    for (int index = 0; index < count; ++index)
        units = units * 10 + (index < decimal.Count ? decimal.Digits[static_cast<std::size_t>(index)] : 0);
    if (decimal.Negative)
        units = -units;
    return true;
}

/// False where one of them is no finite number, or where 18 digits do not reach from the first of one to the last of
/// the other.
bool TryCommonScale(Extended left, Extended right, TCommonScale& common) {
    if (!std::isfinite(left) || !std::isfinite(right))
        return false;
    const TDecimal leftDigits = DecimalFromFloat(left);
    const TDecimal rightDigits = DecimalFromFloat(right);
    const int leftScale = leftDigits.Count - leftDigits.Exponent;
    const int rightScale = rightDigits.Count - rightDigits.Exponent;
    if (leftDigits.IsZero() || rightDigits.IsZero())
        common.Scale = leftDigits.IsZero() ? rightScale : leftScale;
    else
        common.Scale = std::max(leftScale, rightScale);
    return TryCountUnits(leftDigits, common.Scale, common.Left) &&
           TryCountUnits(rightDigits, common.Scale, common.Right);
}

/// The float nearest to units times 10^-scale; `otherwise` for one beyond the range.
Extended FromUnits(std::int64_t units, int scale, Extended otherwise) {
    TWrittenNumber number;
    number.Negative = units < 0;
    // Counting keeps away from the ends of the range, so the negation is safe.
    number.Digits = std::to_string(units < 0 ? -units : units);
    number.Exponent = static_cast<int>(number.Digits.size()) - scale;
    number.Digits.erase(number.Digits.find_last_not_of('0') + 1);
    Extended value = otherwise;
    return TryMakeFloat(number, value) ? value : otherwise;
}

/// RozRound where the decimal digits do not fit into integers: as near as the floats come.
Extended RoundToFloatMultiple(Extended value, Extended step, TStepDirection direction) {
    const Extended quotient = value / step;
    constexpr Extended countable = 0x1p63L;
    if (!std::isfinite(step) || !(std::fabs(quotient) < countable))
        return value;
    Extended count = std::floor(quotient);
    const Extended rest = quotient - count;
    if (direction == TStepDirection::None ? rest >= 0.5L : direction == TStepDirection::Up && rest > 0)
        ++count;
    const Extended result = count * step;
    return std::isfinite(result) ? result + 0 : value;
}

} // namespace

TNumberReading ReadNumber(StringView text, const TFormatSettings& settings) {
    if (text.empty())
        return {};
    const StringView trimmed = TrimmedView(text);
    if (trimmed.empty())
        return {TNumberText::Unreadable, 0};
    const char16_t separator = settings.DecimalSeparator;
    Extended value = 0;
    if (TryRead(trimmed, separator, value))
        return Finite(trimmed.back() == separator ? TNumberText::Unfinished : TNumberText::Number, value);
    if (TryReadUnfinished(trimmed, separator, value))
        return Finite(TNumberText::Unfinished, value);
    if (TryStrToFloat(trimmed, value, settings))
        return {TNumberText::NotFinite, value};
    return {TNumberText::Unreadable, 0};
}

TNumberReading ReadNumberWithPoints(StringView text, const TFormatSettings& settings) {
    if (settings.DecimalSeparator == u'.' || text.find(u'.') == StringView::npos)
        return ReadNumber(text, settings);
    String replaced(text);
    std::replace(replaced.begin(), replaced.end(), u'.', settings.DecimalSeparator);
    return ReadNumber(replaced, settings);
}

int UsedDecimals(int decimals) {
    return std::clamp(decimals, 0, MaximumDecimals);
}

String NumberText(Extended value, int decimals, const TFormatSettings& settings) {
    String text = FloatToStrF(value, ffFixed, maximumShownDigits, UsedDecimals(decimals), settings);
    // The greatest floats round up, at 18 digits, to numbers that are none any more.
    constexpr Extended greatest = std::numeric_limits<Extended>::max();
    Extended again = 0;
    if (std::isfinite(value) && std::fabs(value) > greatest / 2 && !TryStrToFloat(text, again, settings))
        text = FloatToStrF(value * (1 - 1e-15L), ffFixed, maximumShownDigits - 3, 0, settings);
    return text;
}

TEntrySelection SelectionWithin(TEntrySelection selection, std::size_t length) {
    const int end = static_cast<int>(length);
    const int start = std::clamp(selection.Start, 0, end);
    return {start, std::clamp(selection.Length, 0, end - start)};
}

TEntryState RepairedState(const TEntryState& unreadable, String text) {
    const TEntrySelection selection = SelectionWithin(unreadable.Selection, unreadable.Text.size());
    const StringView beforeCaret = StringView(unreadable.Text).substr(0, static_cast<std::size_t>(selection.Start));
    const auto differs = std::mismatch(beforeCaret.begin(), beforeCaret.end(), text.begin(), text.end());
    const int caret = static_cast<int>(differs.first - beforeCaret.begin());
    return {std::move(text), {caret, 0}};
}

int TruncatedToInt(Extended value) {
    using Limits = std::numeric_limits<int>;
    if (std::isnan(value))
        return 0;
    const Extended whole = std::trunc(value);
    if (whole <= Limits::min())
        return Limits::min();
    return whole >= Limits::max() ? Limits::max() : static_cast<int>(whole);
}

std::int64_t RoundTiesUp(Extended value) {
    using Limits = std::numeric_limits<std::int64_t>;
    constexpr Extended beyond = 0x1p63L;
    if (std::isnan(value))
        return 0;
    Extended whole = std::floor(value);
    if (value - whole >= 0.5L)
        ++whole;
    if (whole >= beyond)
        return Limits::max();
    return whole < -beyond ? Limits::min() : static_cast<std::int64_t>(whole);
}

Extended WrittenSingle(float value) {
    if (!std::isfinite(value))
        return 0;
    char digits[32];
    const std::to_chars_result written = std::to_chars(std::begin(digits), std::end(digits), value);
    return StrToFloat(String(std::begin(digits), written.ptr), TFormatSettings::Invariant());
}

Extended RozRound(Extended value, Extended step, TStepDirection direction) {
    if (step == 0 || value == 0)
        return value + 0;
    TCommonScale common;
    if (!TryCommonScale(value, step, common))
        return RoundToFloatMultiple(value, step, direction);
    // The rest with the sign of the step is what the quotient rounded down leaves.
    std::int64_t rest = common.Left % common.Right;
    if (rest != 0 && (rest < 0) != (common.Right < 0))
        rest += common.Right;
    const bool isPastHalf = std::abs(rest) >= std::abs(common.Right) - std::abs(rest);
    const bool goesUp = direction == TStepDirection::None ? isPastHalf : direction == TStepDirection::Up && rest != 0;
    if (rest == 0)
        return value;
    return FromUnits(common.Left - rest + (goesUp ? common.Right : 0), common.Scale, value);
}

bool IsMultiple(Extended value, Extended step) {
    if (step == 0 || value == 0)
        return true;
    TCommonScale common;
    if (TryCommonScale(value, step, common))
        return common.Left % common.Right == 0;
    return RoundToFloatMultiple(value, step, TStepDirection::None) == value;
}

Extended DecimalSum(Extended left, Extended right) {
    TCommonScale common;
    if (!TryCommonScale(left, right, common))
        return left + right + 0;
    return FromUnits(common.Left + common.Right, common.Scale, left + right);
}

} // namespace ZOR
