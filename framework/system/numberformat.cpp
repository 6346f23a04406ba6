// FloatToStrF and the masks of FormatFloat: both lay out decimal digits that are already rounded.

#include "framework/system/numbers.h"

#include "framework/system/decimal.h"
#include "framework/system/strings.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <limits>

namespace framework {

namespace {

constexpr int generalPrecision = 15;
constexpr int maximumDecimals = 18;
constexpr int maximumExponentDigits = 4;
/// Digits of the greatest currency value.
constexpr int currencyPrecision = 19;

/// The exponent of the smallest power of ten, 0.00001, that the general format writes without an exponent.
constexpr int smallestFixedExponent = -4;

char16_t DigitUnit(const TDecimal& decimal, int place) {
    return static_cast<char16_t>(u'0' + decimal.DigitAt(place));
}

/// The digits before the decimal separator, at least one of them.
void AppendWhole(String& text, const TDecimal& decimal, char16_t thousandSeparator) {
    for (int place = -std::max(decimal.Exponent - 1, 0); place <= 0; ++place) {
        text += DigitUnit(decimal, place);
        if (thousandSeparator != u'\0' && place != 0 && place % 3 == 0)
            text += thousandSeparator;
    }
}

void AppendDecimals(String& text, const TDecimal& decimal, int count, char16_t separator) {
    if (count > 0)
        text += separator;
    for (int place = 1; place <= count; ++place)
        text += DigitUnit(decimal, place);
}

int CountDecimals(const TDecimal& decimal) {
    return std::max(decimal.Count - decimal.Exponent, 0);
}

/// E, the sign, and at least `minimumDigits` digits; a plus only when it is wanted.
void AppendExponent(String& text, char16_t mark, int exponent, int minimumDigits, bool withPlus) {
    text += mark;
    if (exponent < 0)
        text += u'-';
    else if (withPlus)
        text += u'+';
    const String digits = IntToStr(std::abs(exponent));
    text += StringOfChar(u'0', minimumDigits - static_cast<int>(digits.size())) + digits;
}

/// The layouts of money, with "$" for the sign, "1" for the amount and "-" for the minus.
constexpr std::array<StringView, 4> positiveMoney = {u"$1", u"1$", u"$ 1", u"1 $"};
constexpr std::array<StringView, 16> negativeMoney = {u"($1)", u"-$1",  u"$-1",   u"$1-",  u"(1$)", u"-1$",
                                                      u"1-$",  u"1$-",  u"-1 $",  u"-$ 1", u"1 $-", u"$ 1-",
                                                      u"$ -1", u"1- $", u"($ 1)", u"(1 $)"};

String LayOutMoney(StringView amount, bool negative, const TFormatSettings& settings) {
    const std::size_t index = negative ? settings.NegCurrFormat : settings.CurrencyFormat;
    const std::size_t known = negative ? negativeMoney.size() : positiveMoney.size();
    const std::size_t used = index < known ? index : 0;
    String text;
    for (const char16_t unit : negative ? negativeMoney[used] : positiveMoney[used]) {
        if (unit == u'$')
            text += settings.CurrencyString;
        else if (unit == u'1')
            text += amount;
        else
            text += unit;
    }
    return text;
}

String WriteExponential(TDecimal decimal, int decimals, int exponentDigits, bool withPlus, char16_t separator) {
    const int exponent = decimal.IsZero() ? 0 : decimal.Exponent - 1;
    String text = decimal.Negative ? u"-" : u"";
    decimal.Exponent -= exponent;
    AppendWhole(text, decimal, u'\0');
    AppendDecimals(text, decimal, decimals, separator);
    AppendExponent(text, u'E', exponent, exponentDigits, withPlus);
    return text;
}

String WriteGeneral(TDecimal decimal, int precision, int digits, const TFormatSettings& settings) {
    decimal.Round(precision, std::numeric_limits<int>::max() / 2);
    if (decimal.Exponent > precision || (!decimal.IsZero() && decimal.Exponent < smallestFixedExponent)) {
        return WriteExponential(decimal, std::max(decimal.Count - 1, 0), std::clamp(digits, 0, maximumExponentDigits),
                                false, settings.DecimalSeparator);
    }
    String text = decimal.Negative ? u"-" : u"";
    AppendWhole(text, decimal, u'\0');
    AppendDecimals(text, decimal, CountDecimals(decimal), settings.DecimalSeparator);
    return text;
}

String SpecialText(const TDecimal& decimal) {
    if (decimal.Kind == TDecimal::TKind::NotANumber)
        return u"NAN";
    return decimal.Negative ? u"-INF" : u"INF";
}

String WriteDecimal(TDecimal decimal, TFloatFormat format, int precision, int digits, const TFormatSettings& settings) {
    if (decimal.Kind != TDecimal::TKind::Number)
        return SpecialText(decimal);
    if (format == ffGeneral)
        return WriteGeneral(decimal, precision, digits, settings);
    if (format == ffExponent) {
        decimal.Round(precision, std::numeric_limits<int>::max() / 2);
        return WriteExponential(decimal, precision - 1, std::clamp(digits, 0, maximumExponentDigits), true,
                                settings.DecimalSeparator);
    }
    const int decimals = std::clamp(digits, 0, maximumDecimals);
    decimal.Round(precision, decimals);
    if (decimal.Exponent > precision)
        return WriteGeneral(decimal, precision, 0, settings);
    String text;
    AppendWhole(text, decimal, format == ffFixed ? u'\0' : settings.ThousandSeparator);
    AppendDecimals(text, decimal, decimals, settings.DecimalSeparator);
    if (format == ffCurrency)
        return LayOutMoney(text, decimal.Negative, settings);
    return decimal.Negative ? u"-" + text : text;
}

/// Calls `visit(unit, isLiteral)` for every character of a mask but the quotes themselves. A quote that is never closed
/// quotes the rest. `visit` answers how many more units it took.
template <typename Visitor>
void VisitMask(StringView mask, Visitor visit) {
    char16_t quote = u'\0';
    for (std::size_t i = 0; i < mask.size(); ++i) {
        const char16_t unit = mask[i];
        if (quote != u'\0' ? unit == quote : unit == u'\'' || unit == u'"')
            quote = quote != u'\0' ? u'\0' : unit;
        else
            i += visit(mask.substr(i), quote != u'\0');
    }
}

/// The sections of a mask, as they stand.
struct MaskSections {
    std::array<StringView, 3> Parts;
    /// 1 to 3.
    std::size_t Count = 1;
};

MaskSections SplitMask(StringView mask) {
    MaskSections sections;
    const char16_t* const start = mask.data();
    std::size_t partStart = 0;
    VisitMask(mask, [&](StringView rest, bool isLiteral) -> std::size_t {
        if (rest.front() == u';' && !isLiteral && sections.Count < 3) {
            const auto place = static_cast<std::size_t>(rest.data() - start);
            sections.Parts[sections.Count++ - 1] = mask.substr(partStart, place - partStart);
            partStart = place + 1;
        }
        return 0;
    });
    sections.Parts[sections.Count - 1] = mask.substr(partStart);
    return sections;
}

/// The length of an exponent mark with its zeros at the front of `rest`, 0 when there is none.
std::size_t ExponentMarkLength(StringView rest) {
    if (rest.size() < 2 || (rest[0] != u'E' && rest[0] != u'e') || (rest[1] != u'+' && rest[1] != u'-'))
        return 0;
    return std::min(rest.find_first_not_of(u'0', 2), rest.size());
}

/// What must be known about a section before the first digit is written.
struct MaskLayout {
    int WholePlaces = 0;
    int DecimalPlaces = 0;
    /// Digits that are always there on either side of the separator.
    int LeastWhole = 0;
    int LeastDecimals = 0;
    bool HasPoint = false;
    bool Grouped = false;
    bool Scientific = false;

    bool HasPlaces() const { return WholePlaces + DecimalPlaces > 0; }
};

MaskLayout MeasureMask(StringView section) {
    MaskLayout layout;
    int placesBeforeFirstZero = -1;
    VisitMask(section, [&](StringView rest, bool isLiteral) -> std::size_t {
        if (isLiteral)
            return 0;
        const char16_t unit = rest.front();
        if (const std::size_t length = ExponentMarkLength(rest)) {
            layout.Scientific = true;
            return length - 1;
        }
        if (unit == u'.') {
            layout.HasPoint = true;
        } else if (unit == u',') {
            layout.Grouped = true;
        } else if (unit == u'0' || unit == u'#') {
            int& places = layout.HasPoint ? layout.DecimalPlaces : layout.WholePlaces;
            if (unit == u'0' && !layout.HasPoint && placesBeforeFirstZero < 0)
                placesBeforeFirstZero = places;
            ++places;
            if (unit == u'0' && layout.HasPoint)
                layout.LeastDecimals = places;
        }
        return 0;
    });
    layout.DecimalPlaces = std::min(layout.DecimalPlaces, maximumDecimals);
    layout.LeastDecimals = std::min(layout.LeastDecimals, maximumDecimals);
    if (placesBeforeFirstZero >= 0)
        layout.LeastWhole = layout.WholePlaces - placesBeforeFirstZero;
    return layout;
}

/// Rounds to what the section shows. A section without places shows no digits, so nothing is rounded away.
void RoundToMask(TDecimal& decimal, const MaskLayout& layout) {
    constexpr int anyDigits = std::numeric_limits<int>::max() / 2;
    if (layout.Scientific)
        decimal.Round(std::max(layout.WholePlaces + layout.DecimalPlaces, 1), anyDigits);
    else if (layout.HasPlaces())
        decimal.Round(maximumShownDigits + 1, layout.DecimalPlaces);
}

/// Writes one section; the decimal is rounded already.
class MaskWriter {
public:
    MaskWriter(const TDecimal& decimal, const MaskLayout& layout, const TFormatSettings& settings)
        : FDecimal(decimal), FLayout(layout), FSettings(settings) {
        if (layout.Scientific && !decimal.IsZero()) {
            FExponent = decimal.Exponent - layout.WholePlaces;
            FDecimal.Exponent = layout.WholePlaces;
        }
        FWholeDigits = std::max(FDecimal.Exponent, layout.LeastWhole);
        FDecimals = std::max(CountDecimals(FDecimal), layout.LeastDecimals);
        FPlacesLeft = layout.WholePlaces;
    }

    String Write(StringView section, bool withMinus) {
        FText = withMinus ? u"-" : u"";
        VisitMask(section, [this](StringView rest, bool isLiteral) { return WriteUnit(rest, isLiteral); });
        return std::move(FText);
    }

private:
    std::size_t WriteUnit(StringView rest, bool isLiteral) {
        const char16_t unit = rest.front();
        if (isLiteral) {
            FText += unit;
        } else if (const std::size_t length = ExponentMarkLength(rest)) {
            const int zeros = std::min(static_cast<int>(length) - 2, maximumExponentDigits);
            AppendExponent(FText, unit, FExponent, zeros, rest[1] == u'+');
            return length - 1;
        } else if (unit == u'.') {
            FBehindPoint = true;
        } else if (unit == u'0' || unit == u'#') {
            WritePlace();
        } else if (unit != u',') {
            FText += unit;
        }
        return 0;
    }

    void WritePlace() {
        if (!FBehindPoint) {
            WriteWholeDigitsDownTo(--FPlacesLeft);
            return;
        }
        WriteWholeDigitsDownTo(0);
        if (++FDecimalsSeen > FDecimals)
            return;
        if (FDecimalsSeen == 1)
            FText += FSettings.DecimalSeparator;
        FText += DigitUnit(FDecimal, FDecimalsSeen);
    }

    /// At the first place this writes the digits without a place too.
    void WriteWholeDigitsDownTo(int remaining) {
        for (; FWholeDigits > remaining; --FWholeDigits) {
            FText += DigitUnit(FDecimal, 1 - FWholeDigits);
            const bool ends = FWholeDigits == 1 || (FWholeDigits - 1) % 3 != 0;
            if (FLayout.Grouped && FSettings.ThousandSeparator != u'\0' && !ends)
                FText += FSettings.ThousandSeparator;
        }
    }

    TDecimal FDecimal;
    const MaskLayout& FLayout;
    const TFormatSettings& FSettings;
    String FText;
    int FExponent = 0;
    /// Digits before the separator that are still to be written.
    int FWholeDigits = 0;
    int FPlacesLeft = 0;
    int FDecimals = 0;
    int FDecimalsSeen = 0;
    bool FBehindPoint = false;
};

/// The section for a value of the given sign: 0 positive, 1 negative, 2 zero.
std::size_t ChooseSection(const MaskSections& sections, const TDecimal& decimal) {
    const std::size_t wanted = decimal.IsZero() ? 2 : decimal.Negative ? 1 : 0;
    return wanted < sections.Count && !sections.Parts[wanted].empty() ? wanted : 0;
}

String FormatDecimal(StringView mask, const TDecimal& value, const TFormatSettings& settings) {
    if (value.Kind != TDecimal::TKind::Number)
        return SpecialText(value);
    const MaskSections sections = SplitMask(mask);
    TDecimal decimal = value;
    std::size_t chosen = ChooseSection(sections, decimal);
    MaskLayout layout = MeasureMask(sections.Parts[chosen]);
    RoundToMask(decimal, layout);
    if (decimal.IsZero() && !value.IsZero()) {
        chosen = ChooseSection(sections, decimal);
        layout = MeasureMask(sections.Parts[chosen]);
    }
    const StringView section = sections.Parts[chosen];
    if (section.empty() || (!layout.Scientific && decimal.Exponent > maximumShownDigits))
        return WriteGeneral(value, generalPrecision, 0, settings);
    return MaskWriter(decimal, layout, settings).Write(section, decimal.Negative && chosen == 0);
}

} // namespace

String FloatToStr(Extended value, const TFormatSettings& settings) {
    return FloatToStrF(value, ffGeneral, generalPrecision, 0, settings);
}

String FloatToStrF(Extended value, TFloatFormat format, int precision, int digits, const TFormatSettings& settings) {
    return WriteDecimal(DecimalFromFloat(value), format, std::clamp(precision, 1, maximumShownDigits), digits,
                        settings);
}

String FormatFloat(StringView mask, Extended value, const TFormatSettings& settings) {
    return FormatDecimal(mask, DecimalFromFloat(value), settings);
}

String CurrToStr(Currency value, const TFormatSettings& settings) {
    return CurrToStrF(value, ffGeneral, 0, settings);
}

String CurrToStrF(Currency value, TFloatFormat format, int digits, const TFormatSettings& settings) {
    const TDecimal decimal = DecimalFromInteger(value.GetUnits(), Currency::decimals);
    return WriteDecimal(decimal, format, currencyPrecision, digits, settings);
}

String FormatCurr(StringView mask, Currency value, const TFormatSettings& settings) {
    return FormatDecimal(mask, DecimalFromInteger(value.GetUnits(), Currency::decimals), settings);
}

} // namespace framework
