#pragma once

// Dates and times of day. A TDateTime counts days since 1899-12-30; its fraction is the time of day, which counts
// forward from midnight for days before that date too, so -1.25 is 6 o'clock on 1899-12-29 and everything between -1
// and 1 lies on 1899-12-30.
//
// Times have milliseconds: a value is rounded to the nearest one as a whole before anything is taken out of it, so that
// a value just below midnight is 0:00 of the next day, never 24:00 and never 59 seconds of a minute that is over.
// Dates go from 0001-01-01 to 9999-12-31 of the Gregorian calendar, extended backwards. For values beyond, and for
// those that are no number, the Decode and ...Of functions answer 0; what has to return a date raises EConvertError.

#include "framework/system/formatsettings.h"

#include <array>
#include <optional>

namespace framework {

using TDate = TDateTime; ///< the fraction does not count
using TTime = TDateTime; ///< the whole days do not count

/// What a date field writes: the date as a short one, or in its long form.
enum TDTDateFormat { dfShort, dfLong };

struct TEnumInfo;
const TEnumInfo& DescribeEnum(TDTDateFormat);

inline constexpr std::int64_t MSecsPerDay = 86'400'000;

/// A day of the calendar; 0 in all parts stands for none.
struct TCalendarDate {
    int Year = 0;  ///< 1 to 9999
    int Month = 0; ///< 1 to 12
    int Day = 0;   ///< from 1
    friend bool operator==(const TCalendarDate&, const TCalendarDate&) = default;
};

/// A time on a 24-hour clock.
struct TClockTime {
    int Hour = 0;
    int Minute = 0;
    int Second = 0;
    int MilliSecond = 0;
    friend bool operator==(const TClockTime&, const TClockTime&) = default;
};

// Between parts and values. The Try functions leave `value` alone when they answer false, where the others raise
// EConvertError.

bool TryEncodeDate(int year, int month, int day, TDateTime& value);
TDateTime EncodeDate(int year, int month, int day);
/// Hours to 23, minutes and seconds to 59, milliseconds to 999.
bool TryEncodeTime(int hour, int minute, int second, int milliSecond, TDateTime& value);
TDateTime EncodeTime(int hour, int minute, int second, int milliSecond);
TDateTime EncodeDateTime(int year, int month, int day, int hour, int minute, int second, int milliSecond);

TCalendarDate DecodeDate(TDateTime value);
TClockTime DecodeTime(TDateTime value);

/// The whole days. Not rounded: 23:59:59.9999 belongs to its own day here.
TDateTime DateOf(TDateTime value);
/// The time of day, from 0 to below 1.
TDateTime TimeOf(TDateTime value);
/// The day of one value at the time of day of another. Not their sum: before day 0 time counts away from zero.
TDateTime ComposeDateTime(TDateTime date, TDateTime time);
int YearOf(TDateTime value);
int MonthOf(TDateTime value);
int DayOf(TDateTime value);
int HourOf(TDateTime value);
int MinuteOf(TDateTime value);
int SecondOf(TDateTime value);
int MilliSecondOf(TDateTime value);
/// 1 for Sunday to 7 for Saturday.
int DayOfWeek(TDateTime value);

bool IsLeapYear(int year);
/// The number of days in a month; 0 for a month outside 1 to 12.
int DaysInAMonth(int year, int month);
/// The number of days in the month of a value.
int DaysInMonth(TDateTime value);
TDateTime StartOfTheMonth(TDateTime value);
TDateTime StartOfTheYear(TDateTime value);

// Calendar arithmetic. The time of day is kept; a day that the month does not have becomes its last one. EConvertError
// beyond the years 1 to 9999.

TDateTime IncYear(TDateTime value, int count = 1);
TDateTime IncMonth(TDateTime value, int count = 1);
TDateTime IncWeek(TDateTime value, int count = 1);
TDateTime IncDay(TDateTime value, int count = 1);
TDateTime IncHour(TDateTime value, std::int64_t count = 1);
TDateTime IncMinute(TDateTime value, std::int64_t count = 1);
TDateTime IncSecond(TDateTime value, std::int64_t count = 1);
TDateTime IncMilliSecond(TDateTime value, std::int64_t count = 1);

/// The units in which a date can be stepped.
enum class TDateUnit { Year, Month, Day, Hour, Minute, Second };
/// The Inc functions by unit; nothing where they raise EConvertError.
std::optional<TDateTime> SteppedDate(TDateTime value, TDateUnit unit, int count);

/// The present moment in the local time zone, today, and the time of day.
TDateTime Now();
TDateTime Date();
TDateTime Time();

// Text. See TFormatSettings for the names and separators.

/// A value by a format. Letters count in either case; what is between apostrophes or quotation marks stands as it is,
/// as does every character that is not named here. An empty format means c. EConvertError beyond the years 1 to 9999.
///
/// c            ShortDateFormat, and unless the time is 0:00 a blank and LongTimeFormat
/// d dd         the day, as 1 to 31 or 01 to 31       ddd dddd       its name, short or long
/// ddddd        ShortDateFormat                       dddddd         LongDateFormat
/// m mm         the month, as 1 to 12 or 01 to 12     mmm mmmm       its name, short or long
/// y yy         the year, two digits                  yyyy           four digits
/// h hh         the hour                              n nn, m mm     the minute, the latter behind an h
/// s ss         the second                            z zzz          the millisecond, 0 to 999 or 000 to 999
/// t            ShortTimeFormat                       tt             LongTimeFormat
/// am/pm        that word, in the case written        a/p            the first letter of it, likewise
/// ampm         TimeAMString or TimePMString
/// /            DateSeparator                         :              TimeSeparator
///
/// Hours go from 1 to 12 where one of the markers for the half of the day follows before the next hour.
String FormatDateTime(StringView format, TDateTime value, const TFormatSettings& settings = FormatSettings());

/// A text by a format, and what each of its units tells: the letter of the part in lower case, n for minutes also where
/// the format has m, a for a marker of the half of the day; a blank for what stands there literally.
struct TDateTexts {
    String Text;
    String Letters;
};
TDateTexts FormatDateTimeParts(StringView format, TDateTime value, const TFormatSettings& settings = FormatSettings());

/// By ShortDateFormat, by LongTimeFormat, and by "c".
String DateToStr(TDateTime value, const TFormatSettings& settings = FormatSettings());
String TimeToStr(TDateTime value, const TFormatSettings& settings = FormatSettings());
String DateTimeToStr(TDateTime value, const TFormatSettings& settings = FormatSettings());

/// Two or three numbers, or names of months where ShortDateFormat has names, parted by DateSeparator and in the order
/// of ShortDateFormat; with two numbers the year is the present one. A year of one or two digits is sought by
/// TwoDigitYearCenturyWindow. Blanks may stand around each part, and a last separator behind them all.
bool TryStrToDate(StringView text, TDateTime& value, const TFormatSettings& settings = FormatSettings());
TDateTime StrToDate(StringView text, const TFormatSettings& settings = FormatSettings());
/// Hours on their own, or with minutes, seconds and, behind a point or the decimal separator, up to three digits of a
/// second, parted by TimeSeparator. AM or PM, or what the settings have for it, in front or behind turns the hours 1 to
/// 12 of the half day into those of the day.
bool TryStrToTime(StringView text, TDateTime& value, const TFormatSettings& settings = FormatSettings());
TDateTime StrToTime(StringView text, const TFormatSettings& settings = FormatSettings());
/// A date, a date and a time with blanks between them, or a time.
bool TryStrToDateTime(StringView text, TDateTime& value, const TFormatSettings& settings = FormatSettings());
TDateTime StrToDateTime(StringView text, const TFormatSettings& settings = FormatSettings());

/// Year, month and day in the order in which a short date format has their first letters; parts that it lacks follow in
/// the order month, day, year.
std::array<TDateUnit, 3> DateOrder(StringView shortDateFormat);

/// The year that one or two digits stand for while `presentYear` lasts: the one in the hundred years that begin
/// `window` years before it, or with 0 the one in the present century.
int YearOfTwoDigits(int digits, int presentYear, int window);

/// A date or time format of the system in the letters used here: its H and HH become h and hh, its tt AMPM, and a t
/// likewise; eras (g) are left out. `timeSeparator`, unless NUL, becomes the colon.
String FromSystemFormat(StringView systemFormat, char16_t timeSeparator = u'\0');

} // namespace framework
