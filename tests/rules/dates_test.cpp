#include "framework/system/dates.h"
#include "framework/system/exceptions.h"
#include "framework/system/strings.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace framework {
namespace {

TFormatSettings Polish() {
    TFormatSettings settings;
    settings.DecimalSeparator = u',';
    settings.DateSeparator = u'-';
    settings.ShortDateFormat = u"yyyy-MM-dd";
    settings.ShortMonthNames[9] = u"paź";
    settings.LongMonthNames[9] = u"październik";
    settings.TimeAMString.clear();
    settings.TimePMString.clear();
    return settings;
}

TFormatSettings German() {
    TFormatSettings settings;
    settings.DecimalSeparator = u',';
    settings.DateSeparator = u'.';
    settings.ShortDateFormat = u"dd.MM.yyyy";
    return settings;
}

TFormatSettings American() {
    TFormatSettings settings;
    settings.ShortDateFormat = u"M/d/yyyy";
    settings.ShortTimeFormat = u"h:mm AMPM";
    settings.LongTimeFormat = u"h:mm:ss AMPM";
    return settings;
}

const TDateTime beforeMidnight = EncodeTime(23, 59, 59, 999);

TEST(Dates, EncodeAndDecodeTheWholeCalendar) {
    const struct {
        int Year, Month, Day;
        TDateTime Value;
        int Weekday;
    } rows[] = {
        {1899, 12, 30, 0, 7},    {1899, 12, 31, 1, 1},       {1899, 12, 29, -1, 6},   {1900, 1, 1, 2, 2},
        {1753, 1, 1, -53688, 2}, {2024, 2, 29, 45351, 5},    {2000, 2, 29, 36585, 3}, {1900, 3, 1, 61, 5},
        {1, 1, 1, -693593, 2},   {9999, 12, 31, 2958465, 6},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.Value);
        EXPECT_EQ(EncodeDate(row.Year, row.Month, row.Day), row.Value);
        EXPECT_EQ(DecodeDate(row.Value), (TCalendarDate{row.Year, row.Month, row.Day}));
        EXPECT_EQ(DayOfWeek(row.Value), row.Weekday);
    }
    const TCalendarDate impossible[] = {{2023, 2, 29}, {1900, 2, 29}, {2024, 0, 1},  {2024, 13, 1}, {2024, 4, 31},
                                        {2024, 4, 0},  {0, 1, 1},     {10000, 1, 1}, {-1, 1, 1}};
    for (const TCalendarDate& date : impossible) {
        TDateTime value = 7;
        EXPECT_FALSE(TryEncodeDate(date.Year, date.Month, date.Day, value)) << date.Year << "-" << date.Month;
        EXPECT_EQ(value, 7);
        EXPECT_THROW(EncodeDate(date.Year, date.Month, date.Day), EConvertError);
    }
    for (const TDateTime beyond :
         {2958466.0, -693594.0, 1e300, std::nan(""), std::numeric_limits<double>::infinity()}) {
        EXPECT_EQ(DecodeDate(beyond), TCalendarDate{});
        EXPECT_EQ(DecodeTime(beyond), TClockTime{});
        EXPECT_THROW(FormatDateTime(u"", beyond), EConvertError);
        EXPECT_THROW(IncDay(beyond), EConvertError);
        EXPECT_THROW(StartOfTheMonth(beyond), EConvertError);
    }
}

// A counter that knows nothing but month lengths walks beside the conversion.
TEST(Dates, EveryDayFollowsTheOneBefore) {
    TCalendarDate expected{1, 1, 1};
    for (int day = -693593; day <= 2958465; ++day) {
        ASSERT_EQ(DecodeDate(day), expected) << day;
        ASSERT_EQ(EncodeDate(expected.Year, expected.Month, expected.Day), day);
        const bool isLeap = expected.Year % 400 == 0 || (expected.Year % 4 == 0 && expected.Year % 100 != 0);
        const int length = expected.Month == 2 ? 28 + (isLeap ? 1 : 0) : 30 + (expected.Month + expected.Month / 8) % 2;
        if (++expected.Day > length) {
            expected.Day = 1;
            if (++expected.Month > 12)
                expected = {expected.Year + 1, 1, 1};
        }
    }
}

TEST(Dates, TimesRoundAsAWhole) {
    const struct {
        TDateTime Value;
        TCalendarDate Date;
        TClockTime Time;
    } rows[] = {
        {45351 + beforeMidnight, {2024, 2, 29}, {23, 59, 59, 999}},
        {45351 + 86399.9996 / 86400, {2024, 3, 1}, {0, 0, 0, 0}},
        {45351 + 59.9996 / 86400, {2024, 2, 29}, {0, 1, 0, 0}},
        {45351 + 3599.9996 / 86400, {2024, 2, 29}, {1, 0, 0, 0}},
        {45351 + 59.9994 / 86400, {2024, 2, 29}, {0, 0, 59, 999}},
        {-1.25, {1899, 12, 29}, {6, 0, 0, 0}},
        {-0.25, {1899, 12, 30}, {6, 0, 0, 0}},
        {-1 - 86399.9996 / 86400, {1899, 12, 30}, {0, 0, 0, 0}},
        {2958465 + 86399.9999 / 86400, {9999, 12, 31}, {23, 59, 59, 999}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.Value);
        EXPECT_EQ(DecodeDate(row.Value), row.Date);
        EXPECT_EQ(DecodeTime(row.Value), row.Time);
    }
    EXPECT_EQ(TimeOf(-1.25), 0.25);
    EXPECT_EQ(DateOf(-1.25), -1);
    EXPECT_FALSE(std::signbit(DateOf(-0.25)));
    TDateTime value = 0;
    EXPECT_FALSE(TryEncodeTime(24, 0, 0, 0, value) || TryEncodeTime(0, 60, 0, 0, value) ||
                 TryEncodeTime(0, 0, 60, 0, value) || TryEncodeTime(0, 0, 0, 1000, value) ||
                 TryEncodeTime(-1, 0, 0, 0, value));
    for (int milliSecond = 0; milliSecond < MSecsPerDay; milliSecond += 997) {
        const TClockTime time{milliSecond / 3600000, milliSecond / 60000 % 60, milliSecond / 1000 % 60,
                              milliSecond % 1000};
        const TDateTime encoded = EncodeTime(time.Hour, time.Minute, time.Second, time.MilliSecond);
        ASSERT_EQ(DecodeTime(2958465 + encoded), time);
        ASSERT_EQ(DecodeTime(-693593 - encoded), time);
    }
}

TEST(Dates, StepByTheCalendar) {
    const struct {
        TDateTime From;
        TDateUnit Unit;
        int Count;
        TDateTime To;
    } rows[] = {
        {EncodeDate(2024, 1, 31), TDateUnit::Month, 1, EncodeDate(2024, 2, 29)},
        {EncodeDate(2023, 1, 31), TDateUnit::Month, 1, EncodeDate(2023, 2, 28)},
        {EncodeDate(2024, 3, 31), TDateUnit::Month, -1, EncodeDate(2024, 2, 29)},
        {EncodeDate(2024, 12, 15), TDateUnit::Month, 1, EncodeDate(2025, 1, 15)},
        {EncodeDate(2024, 1, 15), TDateUnit::Month, -13, EncodeDate(2022, 12, 15)},
        {EncodeDate(2024, 2, 29), TDateUnit::Year, 1, EncodeDate(2025, 2, 28)},
        {EncodeDate(2024, 2, 29), TDateUnit::Year, -4, EncodeDate(2020, 2, 29)},
        {EncodeDate(2024, 2, 29) + beforeMidnight, TDateUnit::Year, 1, EncodeDate(2025, 2, 28) + beforeMidnight},
        {EncodeDate(2024, 2, 28), TDateUnit::Day, 2, EncodeDate(2024, 3, 1)},
        {1.25, TDateUnit::Day, -2, -1.25},
        {-1.25, TDateUnit::Day, 1, 0.25},
        {0.25, TDateUnit::Month, -1, EncodeDateTime(1899, 11, 30, 6, 0, 0, 0)},
        {-1.75, TDateUnit::Hour, 7, 0.0 + 1.0 / 24},
        {0.0, TDateUnit::Hour, -6, -1.75},
        {EncodeDateTime(2024, 12, 31, 23, 59, 59, 999), TDateUnit::Second, 1, EncodeDateTime(2025, 1, 1, 0, 0, 0, 999)},
        {EncodeDateTime(2024, 3, 1, 0, 0, 0, 0), TDateUnit::Minute, -1, EncodeDateTime(2024, 2, 29, 23, 59, 0, 0)},
    };
    for (const auto& row : rows) {
        const auto stepped = SteppedDate(row.From, row.Unit, row.Count);
        ASSERT_TRUE(stepped);
        EXPECT_EQ(*stepped, row.To) << &row - rows << ": " << Utf8Encode(DateTimeToStr(*stepped));
    }
    const TDateTime last = EncodeDateTime(9999, 12, 31, 23, 59, 59, 999);
    const TDateTime first = EncodeDate(1, 1, 1);
    for (const TDateUnit unit :
         {TDateUnit::Year, TDateUnit::Month, TDateUnit::Day, TDateUnit::Hour, TDateUnit::Minute, TDateUnit::Second}) {
        EXPECT_FALSE(SteppedDate(last, unit, 1));
        EXPECT_FALSE(SteppedDate(first, unit, -1));
        EXPECT_FALSE(SteppedDate(45000, unit, std::numeric_limits<int>::max()) && unit != TDateUnit::Second &&
                     unit != TDateUnit::Minute);
    }
    EXPECT_THROW(IncHour(45000, std::numeric_limits<std::int64_t>::max()), EConvertError);
    EXPECT_EQ(IncMilliSecond(IncWeek(45351, -1), -1), 45343 + beforeMidnight);
    EXPECT_EQ(StartOfTheMonth(45351.5), 45323);
    EXPECT_EQ(StartOfTheYear(45351.5), 45292);
    EXPECT_EQ(DaysInMonth(45351), 29);
}

TEST(Dates, AreWrittenByFormats) {
    const TDateTime value = EncodeDateTime(2024, 3, 5, 14, 7, 9, 42);
    const TDateTime midnight = EncodeDate(2024, 3, 5);
    const struct {
        TDateTime Value;
        StringView Format;
        StringView Text;
    } rows[] = {
        {value, u"d dd ddd dddd", u"5 05 Tue Tuesday"},
        {value, u"m mm mmm mmmm", u"3 03 Mar March"},
        {value, u"M MM MMM MMMM", u"3 03 Mar March"},
        {value, u"y yy yyy yyyy", u"24 24 2024 2024"},
        {value, u"H HH n nn s ss z zzz", u"14 14 7 07 9 09 42 042"},
        {value, u"h:mm:ss", u"14:07:09"},
        {value, u"hh 'h' m", u"14 h 7"},
        {value, u"nn mm", u"07 03"},
        {value, u"h:nn am/pm, h AM/PM, h aM/Pm", u"2:07 pm, 2 PM, 2 Pm"},
        {value, u"h a/p h A/P hh ampm", u"2 p 2 P 02 PM"},
        {value, u"h, h am/pm", u"14, 2 pm"},
        {value, u"h \"am/pm\"", u"14 am/pm"},
        {EncodeTime(0, 30, 0, 0), u"h:nn am/pm", u"12:30 am"},
        {EncodeTime(12, 30, 0, 0), u"h:nn am/pm", u"12:30 pm"},
        {value, u"t", u"2:07 PM"},
        {value, u"tt", u"2:07:09 PM"},
        {value, u"ddddd", u"3/5/2024"},
        {value, u"dddddd", u"Tuesday, 05 March 2024"},
        {value, u"c", u"3/5/2024 2:07:09 PM"},
        {value, u"", u"3/5/2024 2:07:09 PM"},
        {midnight, u"c", u"3/5/2024"},
        {midnight + 86399.9996 / 86400, u"c", u"3/6/2024"},
        {midnight + 59.9996 / 86400, u"nn:ss", u"01:00"},
        {value, u"'it''s' \"d\" 'd", u"its d d"},
        {value, u"yyyy-mm-dd/hh:nn", u"2024-03-05/14:07"},
        {value, u"(d) x ą €", u"(5) x ą €"},
        {EncodeDate(9, 1, 2), u"yyyy yy", u"0009 09"},
        {-1.25, u"c", u"12/29/1899 6:00:00 AM"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(Utf8Encode(FormatDateTime(row.Format, row.Value, American())), Utf8Encode(row.Text))
            << Utf8Encode(row.Format);
    EXPECT_TRUE(DateTimeToStr(value, German()) == u"05.03.2024 14:07:09");
    EXPECT_TRUE(FormatDateTime(u"d mmmm yyyy", EncodeDate(2024, 10, 1), Polish()) == u"1 październik 2024");

    const TDateTexts parts = FormatDateTimeParts(u"ddddd 'd' hh:mm ampm", value, American());
    EXPECT_EQ(Utf8Encode(parts.Text), "3/5/2024 d 02:07 PM");
    EXPECT_EQ(Utf8Encode(parts.Letters), "m d yyyy   hh nn aa");

    TFormatSettings circular;
    circular.ShortDateFormat = u"ddddd d";
    circular.LongTimeFormat = u"tt c";
    EXPECT_FALSE(FormatDateTime(u"c", value, circular).empty());
    TFormatSettings bare;
    bare.DateSeparator = u'\0';
    EXPECT_TRUE(DateToStr(value, bare) == u"03052024");
}

TEST(Dates, AreReadInTheOrderOfTheSettings) {
    const int present = YearOf(Date());
    const struct {
        TFormatSettings Settings;
        StringView Text;
        TDateTime Value;
    } rows[] = {
        {Polish(), u"2024-02-29", 45351},
        {Polish(), u" 2024 - 2 - 29 ", 45351},
        {Polish(), u"2024-02-29 18:00", 45351.75},
        {Polish(), u"2024-02-29   6:00:00,5", 45351.25 + 0.5 / 86400},
        {Polish(), u"18:00", 0.75},
        {Polish(), u"1899-12-29 06:00", -1.25},
        {German(), u"29.2.2024", 45351},
        {German(), u"29.02.2024.", 45351},
        {German(), u"1.5", EncodeDate(present, 5, 1)},
        {German(), u"1.5 6:00", EncodeDate(present, 5, 1) + 0.25},
        {American(), u"2/29/2024 6:00 pm", 45351.75},
        {American(), u"2/29/2024 12:00:00.000 AM", 45351},
        {American(), u"2/29", present % 4 == 0 ? EncodeDate(present, 2, 29) : 0},
        {American(), u"5/1", EncodeDate(present, 5, 1)},
        {American(), u"1/1/0001", -693593},
        {American(), u"12/31/9999 11:59:59.999 PM", 2958465 + beforeMidnight},
    };
    for (const auto& row : rows) {
        TDateTime value = 0;
        EXPECT_EQ(TryStrToDateTime(row.Text, value, row.Settings), row.Value != 0) << Utf8Encode(row.Text);
        EXPECT_DOUBLE_EQ(value, row.Value) << Utf8Encode(row.Text);
    }
    TFormatSettings named = American();
    named.ShortDateFormat = u"d-mmm-yy";
    named.DateSeparator = u'-';
    EXPECT_EQ(StrToDate(u"29-FEB-2024", named), 45351);
    EXPECT_EQ(StrToDate(u"29-february-2024", named), 45351);
    EXPECT_THROW(StrToDate(u"feb-29-2024", named), EConvertError) << "a name where the day belongs";
    TFormatSettings odd = American();
    odd.ShortDateFormat = u"'year' yyyy/dd/MM";
    EXPECT_EQ(StrToDate(u"2024/29/2", odd), 45351);

    for (const StringView text : {u"", u" ", u"2", u"2/", u"2/29/2023", u"13/1/2024", u"2//2024", u"2-29-2024", u"x",
                                  u"2/29/20245", u"2/29/2024x", u"2/29/2024 x", u"2/29/202418:00", u"0/1/2024"}) {
        TDateTime value = 7;
        EXPECT_FALSE(TryStrToDate(text, value, American())) << Utf8Encode(text);
        EXPECT_EQ(value, 7);
        EXPECT_THROW(StrToDate(text, American()), EConvertError);
    }
    for (const StringView text : {u"24:00", u"12:60", u"1:00:60", u"13 pm", u"0 am", u"1:", u"1:2:", u"100:00",
                                  u"1:00:00.1234", u"1:00 2", u"pm"})
        EXPECT_THROW(StrToTime(text, American()), EConvertError) << Utf8Encode(text);
    EXPECT_EQ(StrToTime(u" pm 6", American()), 0.75);
    EXPECT_EQ(StrToTime(u"6", Polish()), 0.25);
}

TEST(Dates, TwoDigitYearsFallIntoTheWindow) {
    const struct {
        int Digits, Present, Window, Year;
    } rows[] = {
        {24, 2024, 50, 2024}, {73, 2024, 50, 2073}, {74, 2024, 50, 1974}, {99, 2024, 50, 1999},
        {0, 2024, 50, 2000},  {25, 2024, 1, 2025},  {22, 2024, 1, 2122},  {99, 2024, 0, 2099},
        {0, 1999, 0, 1900},   {49, 1999, 50, 1949}, {48, 1999, 50, 2048},
    };
    for (const auto& row : rows)
        EXPECT_EQ(YearOfTwoDigits(row.Digits, row.Present, row.Window), row.Year) << row.Digits << " " << row.Present;
    TFormatSettings settings = American();
    settings.TwoDigitYearCenturyWindow = 0;
    EXPECT_EQ(YearOf(StrToDate(u"1/1/99", settings)), YearOf(Date()) / 100 * 100 + 99);
    EXPECT_EQ(YearOf(StrToDate(u"1/1/099", settings)), 99) << "three digits are meant as they stand";
}

TEST(Dates, RoundTripThroughEveryFormat) {
    for (const TFormatSettings& settings : {Polish(), German(), American()}) {
        for (int day = -53688; day <= 182990; day += 13) {
            const double seconds = (day * 7919 % 86400 + 86400) % 86400;
            const TDateTime value = day < 0 ? day - seconds / 86400 : day + seconds / 86400;
            TDateTime again = 0;
            ASSERT_TRUE(TryStrToDateTime(DateTimeToStr(value, settings), again, settings));
            ASSERT_DOUBLE_EQ(again, value) << Utf8Encode(DateTimeToStr(value, settings));
        }
    }
}

TEST(Dates, TheSystemsFormatsAreTranslated) {
    const struct {
        StringView System, Ours;
        char16_t TimeSeparator = u':';
    } rows[] = {
        {u"HH:mm:ss", u"hh:mm:ss"},
        {u"h:mm tt", u"h:mm AMPM"},
        {u"H.mm", u"h:mm", u'.'},
        {u"d.MM.yyyy", u"d.MM.yyyy", u'\0'},
        {u"d. MMMM yyyy 'o' H:mm", u"d. MMMM yyyy 'o' h:mm"},
        {u"d 'de' MMMM 'de l''an' yyyy", u"d 'de' MMMM \"de l'an\" yyyy"},
        {u"d.MM.yyyy 'г.'", u"d.MM.yyyy 'г.'"},
        {u"yyyy gg", u"yyyy"},
        {u"H''mm", u"hmm"},
        {u"dcM", u"d'c'M"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(Utf8Encode(FromSystemFormat(row.System, row.TimeSeparator)), Utf8Encode(row.Ours));
}

TEST(Dates, NowIsBetweenTwoLooks) {
    const TDateTime before = Now();
    const TDateTime together = Date() + Time();
    const TDateTime after = Now();
    // A clock that is set back meanwhile, or midnight between the two calls, is let pass.
    if (before <= after && DateOf(before) == DateOf(after)) {
        EXPECT_TRUE(before <= together && together <= after);
    }
    EXPECT_GT(before, EncodeDate(2024, 1, 1));
}

} // namespace
} // namespace framework
