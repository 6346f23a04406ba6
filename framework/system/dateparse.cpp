// Text read as dates and times: StrToDate, StrToTime, StrToDateTime.

#include "framework/system/casemapping.h"
#include "framework/system/dates.h"
#include "framework/system/exceptions.h"
#include "framework/system/strings.h"

#include <algorithm>
#include <array>

namespace framework {

namespace {

bool StartsWithFolded(StringView text, StringView part) {
    return !part.empty() && text.size() >= part.size() && AnsiSameText(text.substr(0, part.size()), part);
}

struct TNumber {
    int Value = 0;
    int Digits = 0;
};

/// Takes parts of dates and times from the front of a text.
class TDateScanner {
public:
    TDateScanner(StringView text, const TFormatSettings& settings) : FText(text), FSettings(settings) { SkipBlanks(); }

    bool AtEnd() const { return FText.empty(); }

    /// True when there was one.
    bool SkipBlanks() {
        const std::size_t length = std::min(FText.find_first_not_of(u' '), FText.size());
        FText.remove_prefix(length);
        return length != 0;
    }

    bool TakeDate(TDateTime& value) {
        std::array<TDateUnit, 3> order = DateOrder(FSettings.ShortDateFormat);
        TCalendarDate date;
        TNumber parts[3];
        int count = 0;
        do {
            if (!TakeDatePart(parts[count]))
                return false;
        } while (++count < 3 && TakeDateSeparator());
        if (count < 2)
            return false;
        if (count == 2) {
            // The present year takes the place that was left out.
            std::stable_partition(order.begin(), order.end(), [](TDateUnit unit) { return unit != TDateUnit::Year; });
            parts[2] = {YearOf(Date()), 4};
        }
        for (int i = 0; i < 3; ++i)
            PutPart(date, order[static_cast<std::size_t>(i)], parts[i]);
        if (!TryEncodeDate(date.Year, date.Month, date.Day, value))
            return false;
        // Some locales write the separator behind the last part too.
        if (count == 3)
            Take(FSettings.DateSeparator);
        return true;
    }

    bool TakeTime(TDateTime& value) {
        int halfDay = TakeHalfDay();
        SkipBlanks();
        TNumber hour;
        TNumber minute;
        TNumber second;
        int milliSecond = 0;
        if (!TakeNumber(hour, 2))
            return false;
        if (TakeTimeSeparator() &&
            (!TakeNumber(minute, 2) || (TakeTimeSeparator() && (!TakeNumber(second, 2) || !TakeFraction(milliSecond)))))
            return false;
        if (halfDay < 0) {
            SkipBlanks();
            halfDay = TakeHalfDay();
        }
        if (halfDay >= 0) {
            if (hour.Value < 1 || hour.Value > 12)
                return false;
            hour.Value = hour.Value % 12 + halfDay;
        }
        SkipBlanks();
        return TryEncodeTime(hour.Value, minute.Value, second.Value, milliSecond, value);
    }

private:
    bool Take(char16_t unit) {
        if (FText.empty() || FText.front() != unit || unit == u'\0')
            return false;
        FText.remove_prefix(1);
        return true;
    }

    /// Takes all digits at the front, of which there may not be more than `limit`.
    bool TakeNumber(TNumber& number, int limit) {
        number = {};
        while (!FText.empty() && FText.front() >= u'0' && FText.front() <= u'9') {
            if (++number.Digits > limit)
                return false;
            number.Value = number.Value * 10 + (FText.front() - u'0');
            FText.remove_prefix(1);
        }
        return number.Digits != 0;
    }

    bool TakeDatePart(TNumber& number) { return TakeMonthName(number) || TakeNumber(number, 4); }

    /// The name of a month stands wherever the month does; TryEncodeDate finds out if that is another part's place.
    bool TakeMonthName(TNumber& number) {
        if (FText.empty() || (FText.front() >= u'0' && FText.front() <= u'9'))
            return false;
        std::size_t longest = 0;
        for (int month = 0; month < 12; ++month) {
            const auto index = static_cast<std::size_t>(month);
            for (const String* name : {&FSettings.LongMonthNames[index], &FSettings.ShortMonthNames[index]}) {
                if (name->size() > longest && StartsWithFolded(FText, *name)) {
                    longest = name->size();
                    number = {month + 1, 0};
                }
            }
        }
        FText.remove_prefix(longest);
        return longest != 0;
    }

    bool TakeDateSeparator() {
        const TDateScanner start = *this;
        const bool hadBlank = SkipBlanks();
        if (FSettings.DateSeparator == u' ' ? hadBlank : Take(FSettings.DateSeparator)) {
            SkipBlanks();
            return true;
        }
        FText = start.FText;
        return false;
    }

    bool TakeTimeSeparator() {
        const TDateScanner start = *this;
        SkipBlanks();
        if (Take(FSettings.TimeSeparator)) {
            SkipBlanks();
            return true;
        }
        FText = start.FText;
        return false;
    }

    /// Takes the fraction of a second if there is one.
    bool TakeFraction(int& milliSecond) {
        if (!Take(u'.') && !Take(FSettings.DecimalSeparator))
            return true;
        TNumber fraction;
        if (!TakeNumber(fraction, 3))
            return false;
        constexpr int weights[] = {0, 100, 10, 1};
        milliSecond = fraction.Value * weights[fraction.Digits];
        return true;
    }

    /// The hours to add for a marker of the half day, 0 or 12; -1 without a marker.
    int TakeHalfDay() {
        const struct {
            StringView Marker;
            int Hours;
        } rows[] = {{FSettings.TimeAMString, 0}, {FSettings.TimePMString, 12}, {u"AM", 0}, {u"PM", 12}};
        for (const auto& row : rows) {
            if (StartsWithFolded(FText, row.Marker)) {
                FText.remove_prefix(row.Marker.size());
                return row.Hours;
            }
        }
        return -1;
    }

    void PutPart(TCalendarDate& date, TDateUnit unit, TNumber number) const {
        const bool isName = number.Digits == 0;
        if (unit == TDateUnit::Month)
            date.Month = number.Value;
        else if (isName)
            date.Day = 0; // a name in the place of another part
        else if (unit == TDateUnit::Day)
            date.Day = number.Value;
        else if (number.Digits <= 2)
            date.Year = YearOfTwoDigits(number.Value, YearOf(Date()), FSettings.TwoDigitYearCenturyWindow);
        else
            date.Year = number.Value;
    }

    StringView FText;
    const TFormatSettings& FSettings;
};

TDateTime Demanded(bool converted, TDateTime value, StringView text, StringView what) {
    if (!converted)
        throw EConvertError(QuotedStr(text) + u" is not a valid " + String(what));
    return value;
}

} // namespace

std::array<TDateUnit, 3> DateOrder(StringView shortDateFormat) {
    std::array<TDateUnit, 3> order{TDateUnit::Month, TDateUnit::Day, TDateUnit::Year};
    std::size_t found = 0;
    const auto take = [&](TDateUnit unit) {
        const auto at = std::find(order.begin() + static_cast<std::ptrdiff_t>(found), order.end(), unit);
        if (at != order.end())
            std::rotate(order.begin() + static_cast<std::ptrdiff_t>(found++), at, at + 1);
    };
    char16_t quote = 0;
    for (const char16_t unit : shortDateFormat) {
        if (quote != 0 || unit == u'\'' || unit == u'"') {
            quote = quote == 0 ? unit : unit == quote ? u'\0' : quote;
            continue;
        }
        const char16_t letter = ToLowerCase(unit);
        if (letter == u'y')
            take(TDateUnit::Year);
        else if (letter == u'm')
            take(TDateUnit::Month);
        else if (letter == u'd')
            take(TDateUnit::Day);
    }
    return order;
}

int YearOfTwoDigits(int digits, int presentYear, int window) {
    const int first = window > 0 ? presentYear - window : presentYear / 100 * 100;
    const int year = first / 100 * 100 + digits;
    return year < first ? year + 100 : year;
}

bool TryStrToDate(StringView text, TDateTime& value, const TFormatSettings& settings) {
    TDateScanner scanner(text, settings);
    TDateTime date = 0;
    if (!scanner.TakeDate(date))
        return false;
    scanner.SkipBlanks();
    if (!scanner.AtEnd())
        return false;
    value = date;
    return true;
}

bool TryStrToTime(StringView text, TDateTime& value, const TFormatSettings& settings) {
    TDateScanner scanner(text, settings);
    TDateTime time = 0;
    if (!scanner.TakeTime(time) || !scanner.AtEnd())
        return false;
    value = time;
    return true;
}

bool TryStrToDateTime(StringView text, TDateTime& value, const TFormatSettings& settings) {
    TDateScanner scanner(text, settings);
    TDateTime date = 0;
    TDateTime time = 0;
    if (!scanner.TakeDate(date))
        return TryStrToTime(text, value, settings);
    const bool hadBlank = scanner.SkipBlanks();
    if (!scanner.AtEnd() && (!hadBlank || !scanner.TakeTime(time) || !scanner.AtEnd()))
        return false;
    value = date < 0 ? date - time : date + time;
    return true;
}

TDateTime StrToDate(StringView text, const TFormatSettings& settings) {
    TDateTime value = 0;
    const bool converted = TryStrToDate(text, value, settings);
    return Demanded(converted, value, text, u"date");
}

TDateTime StrToTime(StringView text, const TFormatSettings& settings) {
    TDateTime value = 0;
    const bool converted = TryStrToTime(text, value, settings);
    return Demanded(converted, value, text, u"time");
}

TDateTime StrToDateTime(StringView text, const TFormatSettings& settings) {
    TDateTime value = 0;
    const bool converted = TryStrToDateTime(text, value, settings);
    return Demanded(converted, value, text, u"date and time");
}

} // namespace framework
