#include "framework/db/datavalues.h"

#include "framework/db/databaseerrors.h"
#include "framework/system/decimal.h"
#include "framework/system/numbers.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace framework {

namespace {

constexpr std::int64_t powersOfTen[] = {1,
                                        10,
                                        100,
                                        1'000,
                                        10'000,
                                        100'000,
                                        1'000'000,
                                        10'000'000,
                                        100'000'000,
                                        1'000'000'000,
                                        10'000'000'000,
                                        100'000'000'000,
                                        1'000'000'000'000,
                                        10'000'000'000'000,
                                        100'000'000'000'000,
                                        1'000'000'000'000'000,
                                        10'000'000'000'000'000,
                                        100'000'000'000'000'000,
                                        1'000'000'000'000'000'000};

/// Decimal digits that a double keeps whatever they are.
constexpr int doubleDigits = 15;
/// Digits that surely fit into 64 bits.
constexpr int safeDigits = 18;

template <class TUnit>
bool ParseNumeric(std::basic_string_view<TUnit> text, TNumeric& value) {
    const bool negative = !text.empty() && text.front() == TUnit('-');
    if (negative)
        text.remove_prefix(1);
    std::int64_t units = 0;
    int digits = 0;
    int scale = -1;
    bool any = false;
    for (const TUnit unit : text) {
        if (unit == TUnit('.') && scale < 0) {
            scale = 0;
            continue;
        }
        if (unit < TUnit('0') || unit > TUnit('9'))
            return false;
        any = true;
        if (units != 0 || unit != TUnit('0'))
            if (++digits > safeDigits)
                return false;
        units = units * 10 + (unit - TUnit('0'));
        if (scale >= 0 && ++scale > TNumeric::maximumScale)
            return false;
    }
    if (!any)
        return false;
    value = {negative ? -units : units, std::max(scale, 0)};
    return true;
}

} // namespace

bool IsWholeNumberType(DataTypeEnum type) {
    switch (type) {
    case adTinyInt:
    case adUnsignedTinyInt:
    case adSmallInt:
    case adUnsignedSmallInt:
    case adInteger:
    case adUnsignedInt:
    case adBigInt:
        return true;
    default:
        return false;
    }
}

bool IsFloatType(DataTypeEnum type) {
    return type == adSingle || type == adDouble;
}

bool IsTextType(DataTypeEnum type) {
    return type == adWChar || type == adVarWChar || type == adLongVarWChar;
}

bool IsBytesType(DataTypeEnum type) {
    return type == adBinary || type == adVarBinary || type == adLongVarBinary;
}

bool IsMomentType(DataTypeEnum type) {
    return type == adDBDate || type == adDBTime || type == adDBTimeStamp;
}

double TNumeric::AsDouble() const {
    // Both are exact as doubles up to these bounds, so that the quotient is rounded once.
    constexpr std::int64_t exact = std::int64_t(1) << 53;
    if (Units > -exact && Units < exact)
        return static_cast<double>(Units) / static_cast<double>(powersOfTen[Scale]);
    double result = 0;
    TWrittenNumber number;
    if (TryParseNumber(AsText(), u'.', number))
        TryMakeFloat(number, result);
    return result;
}

String TNumeric::AsText() const {
    String text = Int64ToStr(Units);
    if (Scale == 0)
        return text;
    const std::size_t sign = Units < 0 ? 1 : 0;
    const auto scale = static_cast<std::size_t>(Scale);
    if (text.size() - sign <= scale)
        text.insert(sign, scale + 1 - (text.size() - sign), u'0');
    text.insert(text.size() - scale, 1, u'.');
    return text;
}

bool TNumeric::TryRescale(int scale, TNumeric& value) const {
    std::int64_t units = Units;
    if (scale >= Scale) {
        const std::int64_t factor = powersOfTen[scale - Scale];
        if (units > std::numeric_limits<std::int64_t>::max() / factor ||
            units < std::numeric_limits<std::int64_t>::min() / factor)
            return false;
        units *= factor;
    } else {
        const std::int64_t divisor = powersOfTen[Scale - scale];
        if (units % divisor != 0)
            return false;
        units /= divisor;
    }
    value = {units, scale};
    return true;
}

bool TryParseNumeric(StringView text, TNumeric& value) {
    return ParseNumeric(text, value);
}

bool TryParseNumeric(std::string_view text, TNumeric& value) {
    return ParseNumeric(text, value);
}

bool IsNumericText(StringView text) {
    if (text.starts_with(u'-'))
        text.remove_prefix(1);
    const std::size_t point = text.find(u'.');
    const auto isDigit = [](char16_t unit) { return unit >= u'0' && unit <= u'9'; };
    const StringView whole = text.substr(0, point);
    const StringView fraction = point == StringView::npos ? StringView() : text.substr(point + 1);
    return !(whole.empty() && fraction.empty()) && std::all_of(whole.begin(), whole.end(), isDigit) &&
           std::all_of(fraction.begin(), fraction.end(), isDigit);
}

TMoment TMoment::FromDateTime(TDateTime value) {
    constexpr std::int64_t ticksPerMilliSecond = ticksPerSecond / 1000;
    // The fraction counts forward from midnight for days before 1899-12-30 too.
    const double days = std::trunc(value);
    const auto milliSeconds = static_cast<std::int64_t>(std::llround(std::abs(value - days) * 86'400'000.0));
    return {static_cast<std::int64_t>(days) * ticksPerDay + milliSeconds * ticksPerMilliSecond};
}

TDateTime TMoment::AsDateTime() const {
    std::int64_t days = Ticks / ticksPerDay;
    std::int64_t rest = Ticks % ticksPerDay;
    if (rest < 0) {
        --days;
        rest += ticksPerDay;
    }
    const double fraction = static_cast<double>(rest) / static_cast<double>(ticksPerDay);
    return days < 0 ? static_cast<double>(days) - fraction : static_cast<double>(days) + fraction;
}

namespace {

/// Turns a value of any kind into the kind of one column.
class TAdapter {
public:
    explicit TAdapter(const TColumnInfo& column) : FColumn(column) {}

    TDataValue operator()(std::monostate) const { return {}; }
    TDataValue operator()(bool value) const {
        if (FColumn.Type == adBoolean)
            return value;
        return (*this)(static_cast<std::int64_t>(value ? 1 : 0));
    }
    TDataValue operator()(std::int64_t value) const {
        if (FColumn.Type == adBoolean)
            return value != 0;
        if (IsWholeNumberType(FColumn.Type))
            return InRange(value);
        if (IsFloatType(FColumn.Type))
            return static_cast<double>(value);
        if (IsDecimal())
            return Rescaled({value, 0});
        if (IsTextType(FColumn.Type))
            return Int64ToStr(value);
        Refuse();
    }
    TDataValue operator()(double value) const {
        if (IsFloatType(FColumn.Type))
            return value;
        if (IsWholeNumberType(FColumn.Type) && value == std::floor(value) && std::abs(value) < 9.2e18)
            return InRange(static_cast<std::int64_t>(value));
        if (IsDecimal() && std::isfinite(value))
            return (*this)(RoundedDigits(value));
        Refuse();
    }
    TDataValue operator()(const TNumeric& value) const {
        if (IsDecimal())
            return Rescaled(value);
        if (IsFloatType(FColumn.Type))
            return value.AsDouble();
        if (TNumeric whole; IsWholeNumberType(FColumn.Type) && value.TryRescale(0, whole))
            return InRange(whole.Units);
        if (IsTextType(FColumn.Type))
            return value.AsText();
        Refuse();
    }
    TDataValue operator()(const TMoment& value) const {
        if (!IsMomentType(FColumn.Type))
            Refuse();
        // A date has no time and a time no date, so that what is read back equals what was written.
        std::int64_t timeOfDay = value.Ticks % TMoment::ticksPerDay;
        if (timeOfDay < 0)
            timeOfDay += TMoment::ticksPerDay;
        if (FColumn.Type == adDBDate)
            return TMoment{value.Ticks - timeOfDay};
        return FColumn.Type == adDBTime ? TMoment{timeOfDay} : value;
    }
    TDataValue operator()(String value) const {
        if (IsTextType(FColumn.Type))
            return value;
        if (TNumeric number; IsNumericText(value)) {
            if (TryParseNumeric(value, number) && (!IsDecimal() || FColumn.Scale >= number.Scale))
                return (*this)(number);
            if (FColumn.Type == adNumeric)
                return value;
        }
        if (TGUID guid; FColumn.Type == adGUID && TryStringToGUID(value, guid))
            return guid;
        Refuse();
    }
    TDataValue operator()(TBytes value) const {
        if (!IsBytesType(FColumn.Type))
            Refuse();
        return value;
    }
    TDataValue operator()(const TGUID& value) const {
        if (FColumn.Type == adGUID)
            return value;
        if (IsTextType(FColumn.Type))
            return GUIDToString(value).substr(1, 36);
        Refuse();
    }

private:
    bool IsDecimal() const { return FColumn.Type == adNumeric || FColumn.Type == adCurrency; }

    /// The digits that a person sees, rounded to the decimals of the column.
    String RoundedDigits(double value) const {
        TDecimal decimal = DecimalFromFloat(value, doubleDigits);
        const bool hasLimit = FColumn.Type != adNumeric || FColumn.Precision > 0;
        const int scale = hasLimit ? std::clamp(FColumn.Scale, 0, TNumeric::maximumScale)
                                   : std::max(decimal.Count - decimal.Exponent, 0);
        decimal.Round(doubleDigits, scale);
        String text = decimal.Negative ? u"-" : u"";
        for (int place = std::min(1 - decimal.Exponent, 0); place <= scale; ++place) {
            if (place == 1)
                text += u'.';
            text += static_cast<char16_t>(u'0' + decimal.DigitAt(place));
        }
        return text;
    }

    TDataValue InRange(std::int64_t value) const {
        const auto check = [&](auto limits) {
            using TLimits = decltype(limits);
            if (value < static_cast<std::int64_t>(TLimits::min()) || value > static_cast<std::int64_t>(TLimits::max()))
                Refuse();
        };
        switch (FColumn.Type) {
        case adTinyInt:
            check(std::numeric_limits<std::int8_t>());
            break;
        case adUnsignedTinyInt:
            check(std::numeric_limits<std::uint8_t>());
            break;
        case adSmallInt:
            check(std::numeric_limits<std::int16_t>());
            break;
        case adUnsignedSmallInt:
            check(std::numeric_limits<std::uint16_t>());
            break;
        case adInteger:
            check(std::numeric_limits<std::int32_t>());
            break;
        case adUnsignedInt:
            check(std::numeric_limits<std::uint32_t>());
            break;
        default:
            break;
        }
        return value;
    }

    TDataValue Rescaled(const TNumeric& value) const {
        TNumeric result;
        if (value.TryRescale(std::clamp(FColumn.Scale, 0, TNumeric::maximumScale), result))
            return result;
        if (FColumn.Type == adNumeric)
            return value.AsText();
        Refuse();
    }

    [[noreturn]] void Refuse() const {
        throw EDatabaseError(u"The column '" + FColumn.Name + u"' does not take this value");
    }

    const TColumnInfo& FColumn;
};

} // namespace

TDataValue AdaptValue(const TColumnInfo& column, TDataValue value) {
    return std::visit(TAdapter(column), std::move(value));
}

} // namespace framework
