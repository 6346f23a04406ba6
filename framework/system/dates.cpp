#include "framework/system/dates.h"

#include "framework/system/exceptions.h"
#include "framework/system/numbers.h"
#include "framework/system/published.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <ctime>

namespace framework {

namespace {

using std::chrono::days;
using std::chrono::sys_days;
using std::chrono::year_month_day;

constexpr sys_days dayZero = std::chrono::year{1899} / 12 / 30;
constexpr int firstDay = (sys_days(std::chrono::year{1} / 1 / 1) - dayZero).count();
constexpr int lastDay = (sys_days(std::chrono::year{9999} / 12 / 31) - dayZero).count();

constexpr std::int64_t MSecsPerSecond = 1000;
constexpr std::int64_t MSecsPerMinute = 60 * MSecsPerSecond;
constexpr std::int64_t MSecsPerHour = 60 * MSecsPerMinute;

/// A value on a scale that has no turn at the day 0.
struct TMoment {
    int Day = 0;
    std::int64_t MilliSeconds = 0;
};

/// False for NaN too.
bool IsInCalendar(TDateTime value) {
    const double whole = std::trunc(value);
    return whole >= firstDay && whole <= lastDay;
}

std::optional<TMoment> MomentOf(TDateTime value) {
    if (!IsInCalendar(value))
        return std::nullopt;
    const double whole = std::trunc(value);
    TMoment moment{static_cast<int>(whole), std::llround(std::fabs(value - whole) * MSecsPerDay)};
    if (moment.MilliSeconds == MSecsPerDay && moment.Day < lastDay)
        return TMoment{moment.Day + 1, 0};
    moment.MilliSeconds = std::min(moment.MilliSeconds, MSecsPerDay - 1);
    return moment;
}

/// The value of a day with a time of day from 0 to below 1.
TDateTime Joined(double day, double time) {
    return day < 0 ? day - time : day + time;
}

TDateTime ValueOf(TMoment moment) {
    return Joined(moment.Day, static_cast<double>(moment.MilliSeconds) / MSecsPerDay);
}

TCalendarDate CalendarDate(int day) {
    const year_month_day date(dayZero + days(day));
    return {static_cast<int>(date.year()), static_cast<int>(static_cast<unsigned>(date.month())),
            static_cast<int>(static_cast<unsigned>(date.day()))};
}

/// The day itself, not rounded to the next one just before midnight.
TCalendarDate DayItself(TDateTime value) {
    return DecodeDate(std::trunc(value));
}

std::optional<TDateTime> SteppedByMonths(TDateTime value, std::int64_t count) {
    const TCalendarDate date = DayItself(value);
    const std::int64_t months = date.Year * std::int64_t{12} + date.Month - 1 + count;
    constexpr std::int64_t firstMonth = 1 * 12;
    constexpr std::int64_t lastMonth = 9999 * 12 + 11;
    if (date.Year == 0 || months < firstMonth || months > lastMonth)
        return std::nullopt;
    const auto year = static_cast<int>(months / 12);
    const auto month = static_cast<int>(months % 12) + 1;
    return Joined(EncodeDate(year, month, std::min(date.Day, DaysInAMonth(year, month))), TimeOf(value));
}

std::optional<TDateTime> SteppedByDays(TDateTime value, std::int64_t count) {
    const double day = std::trunc(value) + static_cast<double>(count);
    if (!IsInCalendar(value) || !IsInCalendar(day))
        return std::nullopt;
    return Joined(day, TimeOf(value));
}

std::optional<TDateTime> SteppedByTime(TDateTime value, std::int64_t count, std::int64_t unit) {
    const auto moment = MomentOf(value);
    constexpr std::int64_t span = (std::int64_t{lastDay} - firstDay + 1) * MSecsPerDay;
    if (!moment || count > span / unit || count < -span / unit)
        return std::nullopt;
    const std::int64_t total = (moment->Day - firstDay) * MSecsPerDay + moment->MilliSeconds + count * unit;
    if (total < 0 || total >= span)
        return std::nullopt;
    return ValueOf({static_cast<int>(total / MSecsPerDay) + firstDay, total % MSecsPerDay});
}

TDateTime Demanded(std::optional<TDateTime> value) {
    if (!value)
        throw EConvertError(u"The date lies outside the years 1 to 9999");
    return *value;
}

} // namespace

const TEnumInfo& DescribeEnum(TDTDateFormat) {
    static const TEnumInfo info{u"TDTDateFormat", {u"dfShort", u"dfLong"}};
    return info;
}

bool TryEncodeDate(int year, int month, int day, TDateTime& value) {
    if (year < 1 || year > 9999 || day < 1 || day > DaysInAMonth(year, month))
        return false;
    const year_month_day date{std::chrono::year(year), std::chrono::month(static_cast<unsigned>(month)),
                              std::chrono::day(static_cast<unsigned>(day))};
    value = (sys_days(date) - dayZero).count();
    return true;
}

TDateTime EncodeDate(int year, int month, int day) {
    TDateTime value = 0;
    if (!TryEncodeDate(year, month, day, value))
        throw EConvertError(u"There is no day " + IntToStr(day) + u" of month " + IntToStr(month) + u" in the year " +
                            IntToStr(year));
    return value;
}

bool TryEncodeTime(int hour, int minute, int second, int milliSecond, TDateTime& value) {
    const auto isBelow = [](int part, int limit) { return part >= 0 && part < limit; };
    if (!isBelow(hour, 24) || !isBelow(minute, 60) || !isBelow(second, 60) || !isBelow(milliSecond, 1000))
        return false;
    value = static_cast<double>(hour * MSecsPerHour + minute * MSecsPerMinute + second * MSecsPerSecond + milliSecond) /
            MSecsPerDay;
    return true;
}

TDateTime EncodeTime(int hour, int minute, int second, int milliSecond) {
    TDateTime value = 0;
    if (!TryEncodeTime(hour, minute, second, milliSecond, value))
        throw EConvertError(u"There is no time " + IntToStr(hour) + u":" + IntToStr(minute) + u":" + IntToStr(second) +
                            u"." + IntToStr(milliSecond));
    return value;
}

TDateTime EncodeDateTime(int year, int month, int day, int hour, int minute, int second, int milliSecond) {
    return Joined(EncodeDate(year, month, day), EncodeTime(hour, minute, second, milliSecond));
}

TCalendarDate DecodeDate(TDateTime value) {
    const auto moment = MomentOf(value);
    return moment ? CalendarDate(moment->Day) : TCalendarDate{};
}

TClockTime DecodeTime(TDateTime value) {
    const auto moment = MomentOf(value);
    if (!moment)
        return {};
    const auto time = static_cast<int>(moment->MilliSeconds);
    return {time / static_cast<int>(MSecsPerHour), time / static_cast<int>(MSecsPerMinute) % 60,
            time / static_cast<int>(MSecsPerSecond) % 60, time % static_cast<int>(MSecsPerSecond)};
}

TDateTime DateOf(TDateTime value) {
    return std::trunc(value) + 0.0; // no negative zero
}

TDateTime ComposeDateTime(TDateTime date, TDateTime time) {
    return Joined(DateOf(date), TimeOf(time));
}

TDateTime TimeOf(TDateTime value) {
    return std::fabs(value - std::trunc(value));
}

int YearOf(TDateTime value) {
    return DecodeDate(value).Year;
}

int MonthOf(TDateTime value) {
    return DecodeDate(value).Month;
}

int DayOf(TDateTime value) {
    return DecodeDate(value).Day;
}

int HourOf(TDateTime value) {
    return DecodeTime(value).Hour;
}

int MinuteOf(TDateTime value) {
    return DecodeTime(value).Minute;
}

int SecondOf(TDateTime value) {
    return DecodeTime(value).Second;
}

int MilliSecondOf(TDateTime value) {
    return DecodeTime(value).MilliSecond;
}

int DayOfWeek(TDateTime value) {
    const auto moment = MomentOf(value);
    if (!moment)
        return 0;
    return static_cast<int>(std::chrono::weekday(dayZero + days(moment->Day)).c_encoding()) + 1;
}

bool IsLeapYear(int year) {
    return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

int DaysInAMonth(int year, int month) {
    if (month < 1 || month > 12)
        return 0;
    constexpr int lengths[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    return lengths[month - 1] + (month == 2 && IsLeapYear(year) ? 1 : 0);
}

int DaysInMonth(TDateTime value) {
    const TCalendarDate date = DecodeDate(value);
    return DaysInAMonth(date.Year, date.Month);
}

TDateTime StartOfTheMonth(TDateTime value) {
    const TCalendarDate date = DayItself(value);
    return Demanded(date.Year == 0 ? std::nullopt : std::optional(EncodeDate(date.Year, date.Month, 1)));
}

TDateTime StartOfTheYear(TDateTime value) {
    const TCalendarDate date = DayItself(value);
    return Demanded(date.Year == 0 ? std::nullopt : std::optional(EncodeDate(date.Year, 1, 1)));
}

TDateTime IncYear(TDateTime value, int count) {
    return Demanded(SteppedByMonths(value, std::int64_t{count} * 12));
}

TDateTime IncMonth(TDateTime value, int count) {
    return Demanded(SteppedByMonths(value, count));
}

TDateTime IncWeek(TDateTime value, int count) {
    return Demanded(SteppedByDays(value, std::int64_t{count} * 7));
}

TDateTime IncDay(TDateTime value, int count) {
    return Demanded(SteppedByDays(value, count));
}

TDateTime IncHour(TDateTime value, std::int64_t count) {
    return Demanded(SteppedByTime(value, count, MSecsPerHour));
}

TDateTime IncMinute(TDateTime value, std::int64_t count) {
    return Demanded(SteppedByTime(value, count, MSecsPerMinute));
}

TDateTime IncSecond(TDateTime value, std::int64_t count) {
    return Demanded(SteppedByTime(value, count, MSecsPerSecond));
}

TDateTime IncMilliSecond(TDateTime value, std::int64_t count) {
    return Demanded(SteppedByTime(value, count, 1));
}

std::optional<TDateTime> SteppedDate(TDateTime value, TDateUnit unit, int count) {
    switch (unit) {
    case TDateUnit::Year:
        return SteppedByMonths(value, std::int64_t{count} * 12);
    case TDateUnit::Month:
        return SteppedByMonths(value, count);
    case TDateUnit::Day:
        return SteppedByDays(value, count);
    case TDateUnit::Hour:
        return SteppedByTime(value, count, MSecsPerHour);
    case TDateUnit::Minute:
        return SteppedByTime(value, count, MSecsPerMinute);
    case TDateUnit::Second:
        return SteppedByTime(value, count, MSecsPerSecond);
    }
    return std::nullopt;
}

TDateTime Now() {
    using std::chrono::system_clock;
    const system_clock::time_point now = system_clock::now();
    const std::time_t seconds = system_clock::to_time_t(now);
    std::tm local{};
#if defined(_WIN32)
    localtime_s(&local, &seconds);
#else
    localtime_r(&seconds, &local);
#endif
    const auto sinceEpoch = std::chrono::duration_cast<std::chrono::milliseconds>(now.time_since_epoch()).count();
    // A leap second of the clock counts as the last one before it.
    return EncodeDateTime(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour, local.tm_min,
                          std::min(local.tm_sec, 59), static_cast<int>(sinceEpoch % MSecsPerSecond));
}

TDateTime Date() {
    return DateOf(Now());
}

TDateTime Time() {
    return TimeOf(Now());
}

} // namespace framework
