#pragma once

// How numbers, money, dates and times are written for a person. Conversions take such settings as an argument and
// fall back on the process-wide ones; they never ask the C locale.

#include "framework/system/types.h"

#include <array>

namespace framework {

/// The formatting habits of one locale. Default-constructed settings are the invariant ones.
struct TFormatSettings {
    char16_t DecimalSeparator = u'.';
    /// u'\0' for locales that do not group digits.
    char16_t ThousandSeparator = u',';
    char16_t DateSeparator = u'/';
    char16_t TimeSeparator = u':';
    char16_t ListSeparator = u',';

    // In the letters of FormatDateTime.
    String ShortDateFormat = u"MM/dd/yyyy";
    String LongDateFormat = u"dddd, dd MMMM yyyy";
    String ShortTimeFormat = u"hh:mm";
    String LongTimeFormat = u"hh:mm:ss";
    String TimeAMString = u"AM";
    String TimePMString = u"PM";

    String CurrencyString = u"\u00A4";
    /// Place of the currency sign around 1: 0 "$1", 1 "1$", 2 "$ 1", 3 "1 $".
    std::uint8_t CurrencyFormat = 0;
    /// The same for -1: 0 "($1)", 1 "-$1", 2 "$-1", 3 "$1-", 4 "(1$)", 5 "-1$", 6 "1-$", 7 "1$-", 8 "-1 $",
    /// 9 "-$ 1", 10 "1 $-", 11 "$ 1-", 12 "$ -1", 13 "1- $", 14 "($ 1)", 15 "(1 $)"; others count as 0.
    std::uint8_t NegCurrFormat = 0;
    /// Digits behind the decimal separator of an amount of money, 0 to 18.
    std::uint8_t CurrencyDecimals = 2;

    /// How many years back from the present year the hundred years begin in which a two-digit year is sought;
    /// 0 takes every two-digit year into the present century.
    std::uint16_t TwoDigitYearCenturyWindow = 50;

    /// January first.
    std::array<String, 12> ShortMonthNames = {u"Jan", u"Feb", u"Mar", u"Apr", u"May", u"Jun",
                                              u"Jul", u"Aug", u"Sep", u"Oct", u"Nov", u"Dec"};
    std::array<String, 12> LongMonthNames = {u"January",   u"February", u"March",    u"April",
                                             u"May",       u"June",     u"July",     u"August",
                                             u"September", u"October",  u"November", u"December"};
    /// Sunday first.
    std::array<String, 7> ShortDayNames = {u"Sun", u"Mon", u"Tue", u"Wed", u"Thu", u"Fri", u"Sat"};
    std::array<String, 7> LongDayNames = {u"Sunday",   u"Monday", u"Tuesday", u"Wednesday",
                                          u"Thursday", u"Friday", u"Saturday"};

    /// English, culture-neutral settings, for files and protocols.
    static TFormatSettings Invariant() { return {}; }
};

/// The settings of the process, invariant until a program changes them. The Windows rooms fill them from the user's
/// locale at start. Not synchronised: change them before other threads convert.
TFormatSettings& FormatSettings();

} // namespace framework
