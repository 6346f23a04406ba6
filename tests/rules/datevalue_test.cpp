#include "datetime/Zordatetimepickeredit_rules.h"
#include "framework/system/strings.h"
#include "tests/support/datelocales.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace ZOR {
namespace {

using namespace datelocales;

TDateField Field(const TFormatSettings& settings, TDTDateFormat format = dfShort, TDateTimeView view = dtvDay) {
    return {settings, format, view, 0};
}

const TDateTime march15 = EncodeDate(2024, 3, 15);

TEST(DateText, ViewsHaveTheirFormats) {
    const TDateTime value = march15 + 0.75;
    const struct {
        TFormatSettings Settings;
        TDTDateFormat Format;
        TDateTimeView View;
        StringView Text;
    } rows[] = {
        {YearFirst(), dfShort, dtvDay, u"2024-03-15"},
        {YearFirst(), dfLong, dtvDay, u"2024-03-15 18:00"},
        {YearFirst(), dfShort, dtvMonth, u"mar 2024"},
        {YearFirst(), dfLong, dtvMonth, u"marzec 2024"},
        {YearFirst(), dfLong, dtvYear, u"2024"},
        {DayFirst(), dfShort, dtvDay, u"15.03.2024"},
        {DayFirst(), dfShort, dtvMonth, u"Mrz. 2024"},
        {MonthFirst(), dfLong, dtvDay, u"3/15/2024 6:00 PM"},
        {EntrySettings(MonthFirst()), dfLong, dtvDay, u"03/15/2024 18:00"},
        {Crowded(), dfShort, dtvMonth, u"Mar. 2024"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(Utf8Encode(double_to_text(value, Field(row.Settings, row.Format, row.View))), Utf8Encode(row.Text));
    TFormatSettings replaced = MonthFirst();
    replaced.ShortMonthNames[2] = u"Mar.";
    EXPECT_EQ(Utf8Encode(double_to_text(value, Field(replaced, dfShort, dtvMonth))), "Mar/ 2024");
    for (const TDateTime none : {0.0, 0.99, -1.0, -53688.0, 2958466.0, std::nan("")})
        EXPECT_TRUE(double_to_text(none, Field(YearFirst())).empty()) << none;
    EXPECT_TRUE(setDateFormatEx(dfShort, static_cast<TDateTimeView>(3)).empty());
}

void ExpectDaysToComeBack(const TDateField& field, int stride) {
    const TDateTime last = EncodeDate(2400, 12, 31);
    TDateTime read = 0;
    for (TDateTime day = 1; day <= last; day += stride) {
        const int minute = static_cast<int>(day) * 577 % 1440;
        const bool hasTime = field.View == dtvDay && field.HasTime();
        const TDateTime value =
            SnappedToView(hasTime ? day + EncodeTime(minute / 60, minute % 60, 0, 0) : day, field.View);
        if (value == read)
            continue;
        const String text = double_to_text(value, field);
        ASSERT_EQ(sprawdz_combosa(text, field), (TDateCheck{true, value})) << Utf8Encode(text);
        read = value;
    }
}

// Every day where the field prepares the settings, some where they are followed to the letter.
TEST(DateText, EveryDayComesBackFromItsText) {
    for (const TDTDateFormat format : {dfShort, dfLong}) {
        for (const TDateTimeView view : {dtvDay, dtvMonth, dtvYear}) {
            for (const TFormatSettings& locale : {YearFirst(), DayFirst(), MonthFirst()})
                ExpectDaysToComeBack(Field(EntrySettings(locale), format, view), 1);
            for (const TFormatSettings& locale : All())
                ExpectDaysToComeBack(Field(locale, format, view), 13);
        }
    }
}

TEST(DateText, WhatAPersonMayWrite) {
    const TDateTime march = EncodeDate(2024, 3, 1);
    const TDateField day = Field(EntrySettings(DayFirst()));
    const TDateField time = Field(EntrySettings(DayFirst()), dfLong);
    const TDateField month = Field(YearFirst(), dfShort, dtvMonth);
    const TDateField year = Field(YearFirst(), dfShort, dtvYear);
    const struct {
        const TDateField& Field;
        StringView Text;
        TDateTime Value;
    } valid[] = {
        {day, u"", 0},
        {day, u"   ", 0},
        {day, u" 15.3.2024 ", march15},
        {time, u"15.03.2024", march15},
        {time, u"15.03.2024 9:05", march15 + EncodeTime(9, 5, 0, 0)},
        {day, u"31.12.1899", 1},
        {day, u"31.12.9999", 2958465},
        {month, u"marzec 2024", march},
        {month, u"MAR 2024", march},
        {month, u"marz 2024", march},
        {month, u"3 2024", march},
        {month, u"03-2024", march},
        {month, u"grudzień 1899", 1},
        {year, u" 2024 ", EncodeDate(2024, 1, 1)},
        {year, u"1899", 1},
    };
    for (const auto& row : valid)
        EXPECT_EQ(sprawdz_combosa(row.Text, row.Field), (TDateCheck{true, row.Value})) << Utf8Encode(row.Text);
    const struct {
        const TDateField& Field;
        StringView Text;
    } invalid[] = {
        {day, u"x"},          {day, u"30.02.2024"},     {day, u"15.03.2024 9:05"},   {day, u"30.12.1899"},
        {day, u"00.00.0000"}, {time, u"9:05"},          {time, u"15.03.2024 24:00"}, {time, u"15.03.2024 :12"},
        {month, u"2024"},     {month, u"13 2024"},      {month, u"0 2024"},          {month, u"mrz 2024"},
        {month, u"marzec"},   {month, u"marzec 20245"}, {month, u"listopad 1899"},   {year, u"1898"},
        {year, u"mar 2024"},

        {year, u"0000"},      {year, u"2024-"},
    };
    for (const auto& row : invalid)
        EXPECT_EQ(sprawdz_combosa(row.Text, row.Field), TDateCheck{}) << Utf8Encode(row.Text);
}

TEST(DateValue, IsHeldInsideItsBoundsAndView) {
    const TDateTime low = EncodeDateTime(2020, 5, 10, 12, 0, 0, 0);
    const TDateTime high = EncodeDateTime(2030, 6, 20, 8, 30, 0, 0);
    const struct {
        const char* Name;
        TDateTime MinDate, MaxDate, Value;
        TDateTimeView View;
        TDateTime Result;
    } rows[] = {
        {"free", 0, 0, march15 + 0.5, dtvDay, march15 + 0.5},
        {"above", low, high, EncodeDate(2031, 1, 1), dtvDay, high},
        {"above, later that day", low, high, DateOf(high) + 0.9, dtvDay, high},
        {"below, keeps its time", low, high, march15 - 3000.25, dtvDay, DateOf(low) + 0.75},
        {"1 January 1753", 0, 0, -60000, dtvDay, LowestDate},
        {"bound before 1753", -60000, 0, -70000, dtvDay, LowestDate},
        {"0 is below the lower bound", low, 0, 0.5, dtvDay, DateOf(low) + 0.5},
        {"month", 0, 0, march15 + 0.5, dtvMonth, EncodeDate(2024, 3, 1)},
        {"year", 0, 0, march15 + 0.5, dtvYear, EncodeDate(2024, 1, 1)},
        {"month of the upper bound", 0, high, EncodeDate(2031, 1, 1), dtvMonth, EncodeDate(2030, 6, 1)},
        {"first month", 0, 0, 1.5, dtvMonth, 1},
        {"bounds crossed, above both", high, low, EncodeDate(2040, 1, 1), dtvDay, low},
        {"bounds crossed, between", high, low, EncodeDate(2025, 1, 1), dtvDay, low},
        {"bounds crossed, below both", high, low, EncodeDate(2010, 1, 1), dtvDay, DateOf(high)},
        {"beyond the calendar", 0, 0, 1e9, dtvDay, 2958465 + EncodeTime(23, 59, 59, 999)},
        {"infinity", 0, 0, std::numeric_limits<double>::infinity(), dtvYear, EncodeDate(9999, 1, 1)},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.Name);
        TDateValue value;
        value.SetMinDate(row.MinDate, row.View);
        value.SetMaxDate(row.MaxDate, row.View);
        EXPECT_TRUE(value.SetDate(row.Value, row.View));
        EXPECT_EQ(value.Current(), row.Result) << Utf8Encode(DateTimeToStr(value.Current()));
        EXPECT_FALSE(value.SetDate(value.Current(), row.View));
        EXPECT_FALSE(value.SetDate(std::nan(""), row.View));
    }
}

TEST(DateValue, TimeIsSetAlone) {
    TDateValue value;
    EXPECT_TRUE(value.SetTime(0.25));
    EXPECT_FALSE(value.HasDate());
    value.SetDate(march15 + 0.25, dtvDay);
    EXPECT_TRUE(value.SetTime(1.75));
    EXPECT_EQ(value.Current(), march15 + 0.75);
    EXPECT_FALSE(value.SetTime(0.75) || value.SetTime(std::nan("")));
    value.SetMaxDate(march15 + 0.8, dtvDay);
    value.SetTime(0.9);
    EXPECT_EQ(value.Current(), march15 + 0.8);
    value.SetMinDate(march15 + 0.5, dtvDay);
    value.SetTime(0.1);
    EXPECT_EQ(value.Current(), march15 + 0.5);

    TDateValue none;
    none.SetMinDate(march15, dtvDay);
    EXPECT_TRUE(none.SetTime(0.5));
    EXPECT_EQ(none.Current(), march15) << "a time alone is below the bound";
}

TEST(DateValue, BoundsAndViewsMoveIt) {
    TDateValue value;
    value.SetDate(march15 + 0.5, dtvDay);
    EXPECT_TRUE(value.SetMinDate(march15 + 10, dtvDay));
    EXPECT_EQ(value.Current(), march15 + 10.5);
    EXPECT_FALSE(value.SetMaxDate(march15 + 20, dtvDay));
    EXPECT_TRUE(value.SetMaxDate(march15 + 5, dtvDay)) << "crossed";
    EXPECT_EQ(value.Current(), march15 + 5);

    TDateValue viewed;
    EXPECT_FALSE(viewed.SetView(dtvMonth));
    viewed.SetDate(march15, dtvDay);
    EXPECT_TRUE(viewed.SetView(dtvMonth));
    EXPECT_EQ(viewed.Current(), EncodeDate(2024, 3, 1));
    EXPECT_FALSE(viewed.SetView(dtvDay));
    EXPECT_TRUE(viewed.SetView(dtvYear));
    EXPECT_EQ(viewed.Current(), EncodeDate(2024, 1, 1));
    EXPECT_FALSE(viewed.SetView(dtvDay)) << "what was snapped stays";
}

TEST(DateValue, DeleteClearsAndAnArrowBringsBack) {
    const TDateField field = Field(YearFirst(), dfShort, dtvMonth);
    TDateValue value;
    value.SetMinDate(march15 - 100, dtvMonth);
    value.SetDate(march15, dtvMonth);
    for (const int step : {1, -1}) {
        EXPECT_TRUE(value.ClearByDelete());
        EXPECT_EQ(value.Current(), 0) << "whatever the bound";
        EXPECT_FALSE(value.ClearByDelete()) << "a second Delete forgets nothing";
        EXPECT_TRUE(whats_marked(value, 0, step, march15, field));
        EXPECT_EQ(value.Current(), EncodeDate(2024, 3, 1)) << "and no step is made";
        EXPECT_FALSE(value.ClearedByDelete());
    }
    EXPECT_TRUE(whats_marked(value, 0, 1, march15, field));
    EXPECT_EQ(value.Current(), EncodeDate(2024, 4, 1));
    EXPECT_TRUE(value.Clear());
    EXPECT_FALSE(whats_marked(value, 0, 1, march15, field)) << "what the person has emptied stays so";
    value.ClearByDelete();
    EXPECT_FALSE(value.ClearedByDelete()) << "there was nothing to clear";
    value.SetDate(march15, dtvMonth);
    value.ClearByDelete();
    value.SetDate(march15 + 40, dtvMonth);
    EXPECT_FALSE(value.ClearedByDelete()) << "a new date ends the matter";
}

TEST(DateValue, EnteredTextsKeepWhatTheyDoNotShow) {
    TDateValue value;
    const TDateTime precise = march15 + EncodeTime(9, 5, 33, 250);
    value.SetDate(precise, dtvDay);
    EXPECT_FALSE(value.Enter(march15, Field(YearFirst())));
    EXPECT_FALSE(value.Enter(march15 + EncodeTime(9, 5, 0, 0), Field(YearFirst(), dfLong)));
    EXPECT_EQ(value.Current(), precise);
    EXPECT_TRUE(value.Enter(march15, Field(YearFirst(), dfLong)));
    EXPECT_EQ(value.Current(), march15);
    EXPECT_TRUE(value.Enter(0, Field(YearFirst())));
    EXPECT_FALSE(value.HasDate() || value.Enter(0, Field(YearFirst())));
}

TEST(DateStep, TheCaretMarksThePart) {
    // For each caret the part: Y year, M month, d day, h hour, m minute, - none.
    const struct {
        TDateField Field;
        std::string Parts;
    } rows[] = {
        {Field(EntrySettings(YearFirst())), "YYYYYMMMddd-"},
        {Field(EntrySettings(DayFirst()), dfLong), "dddMMMYYYYYhhhmmm-"},
        {Field(MonthFirst(), dfLong), "MMdddYYYYYhhmmmmmm-"}, // 3/15/2024 6:05 PM
        {Field(YearFirst(), dfShort, dtvMonth), "MMMMYYYYY-"},
        {Field(YearFirst(), dfLong, dtvMonth), "MMMMMMMYYYYY-"},
        {Field(YearFirst(), dfLong, dtvYear), "YYYYY-"},
    };
    const TDateTime value = march15 + EncodeTime(18, 5, 0, 0);
    for (const auto& row : rows) {
        std::string parts;
        for (int caret = 0; caret < static_cast<int>(row.Parts.size()); ++caret) {
            const auto part = MarkedPart(caret, value, row.Field);
            parts += part ? "YMdhms"[static_cast<int>(*part)] : '-';
        }
        EXPECT_EQ(parts, row.Parts) << Utf8Encode(double_to_text(value, row.Field));
        EXPECT_FALSE(MarkedPart(-1, value, row.Field));
        EXPECT_FALSE(MarkedPart(0, 0, row.Field));
    }
}

TEST(DateStep, UpAndDownStayInsideTheBounds) {
    const TDateField day = Field(EntrySettings(YearFirst()), dfLong);
    const TDateField month = Field(YearFirst(), dfShort, dtvMonth);
    const TDateField year = Field(YearFirst(), dfShort, dtvYear);
    const TDateTime leap = EncodeDate(2024, 2, 29);
    const struct {
        const char* Name;
        const TDateField& Field;
        TDateTime MinDate, MaxDate, Value;
        int Caret, Step;
        TDateTime Result;
    } rows[] = {
        {"year of 29 February", day, 0, 0, leap, 0, 1, EncodeDate(2025, 2, 28)},
        {"month from its end", day, 0, 0, EncodeDate(2024, 3, 31), 5, -1, leap},
        {"day over the month", day, 0, 0, leap, 10, 1, EncodeDate(2024, 3, 1)},
        {"minute over midnight", day, 0, 0, leap, 16, -1, EncodeDateTime(2024, 2, 28, 23, 59, 0, 0)},
        {"end of the last day", day, 0, 0, EncodeDateTime(9999, 12, 31, 23, 59, 0, 0), 16, 1,
         EncodeDateTime(9999, 12, 31, 23, 59, 0, 0)},
        {"last year", year, 0, 0, EncodeDate(9999, 1, 1), 0, 1, EncodeDate(9999, 1, 1)},
        {"first day", day, 0, 0, 1, 10, -1, 1},
        {"a year below the first day", day, 0, 0, EncodeDate(1900, 6, 1), 0, -1, 1},
        {"first year", year, 0, 0, EncodeDate(1900, 1, 1), 0, -1, 1},
        {"lower bound with its time", day, leap + 0.5, 0, leap + 0.75, 11, -20, leap + 0.5},
        {"upper bound with its time", day, 0, leap + 0.5, leap + 0.25, 5, 1, leap + 0.5},
        {"at the upper bound", day, 0, leap + 0.5, leap + 0.5, 5, 1, leap + 0.5},
        {"month that begins before the bound", month, march15, 0, EncodeDate(2024, 4, 1), 0, -1, march15},
        {"month before it", month, march15, 0, march15, 0, -1, march15},
        {"year that begins before the bound", year, march15, 0, EncodeDate(2025, 1, 1), 0, -1, march15},
        {"bounds crossed", day, leap + 10, leap, leap - 5, 10, 1, leap},
        {"beyond the text", day, 0, 0, leap, 17, 1, leap},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.Name);
        TDateValue value;
        value.SetDate(row.Value, row.Field.View);
        value.SetMinDate(row.MinDate, row.Field.View);
        value.SetMaxDate(row.MaxDate, row.Field.View);
        for (int i = 0; i < std::abs(row.Step); ++i)
            whats_marked(value, row.Caret, row.Step > 0 ? 1 : -1, march15, row.Field);
        EXPECT_EQ(value.Current(), row.Result) << Utf8Encode(DateTimeToStr(value.Current()));
    }
}

TEST(DateStep, DownWithoutADateStartsFromToday) {
    const TDateTime now = march15 + 0.625;
    const struct {
        TDateField Field;
        TDateTime MinDate, MaxDate, Result;
    } rows[] = {
        {Field(YearFirst()), 0, 0, march15},
        {Field(YearFirst(), dfLong), 0, 0, now},
        {Field(YearFirst(), dfShort, dtvMonth), 0, 0, EncodeDate(2024, 3, 1)},
        {Field(YearFirst()), 0, march15 - 5, march15 - 5},
        {Field(YearFirst()), march15 + 5, 0, march15 + 5},
    };
    for (const auto& row : rows) {
        TDateValue value;
        value.SetMinDate(row.MinDate, row.Field.View);
        value.SetMaxDate(row.MaxDate, row.Field.View);
        EXPECT_FALSE(whats_marked(value, 0, 1, now, row.Field)) << "Up has nothing to step";
        EXPECT_TRUE(whats_marked(value, 0, -1, now, row.Field));
        EXPECT_EQ(value.Current(), row.Result);
    }
}

TEST(DateStep, TheCaretGoesBackToItsPlace) {
    const TDateField longMonth = Field(YearFirst(), dfLong, dtvMonth);
    EXPECT_EQ(CaretAfterStep(u"maj 2024", 2, longMonth), 3);
    EXPECT_EQ(CaretAfterStep(u"maj 2024", 3, longMonth), 3);
    EXPECT_EQ(CaretAfterStep(u"maj 2024", 8, longMonth), 8);
    EXPECT_EQ(CaretAfterStep(u"maj 2024", 12, longMonth), 8);
    EXPECT_EQ(CaretAfterStep(u"maj 2024", 1, Field(YearFirst(), dfShort, dtvMonth)), 1);
    EXPECT_EQ(CaretAfterStep(u"2024-05-06 12:30", 5, Field(YearFirst(), dfLong)), 5);
}

TEST(DateStep, MonthsAreNamedByTheirFirstLettersOrNumbers) {
    const struct {
        const char* Name;
        StringView Typed;
        int Month; ///< from May on
        bool IsUnderstood = true;
        std::uint64_t Pause = 200;
    } rows[] = {
        {"letter", u"g", 12},
        {"capital", u"G", 12},
        {"first of several", u"m", 3},
        {"told apart", u"maj", 5},
        {"the same letter again", u"mm", 5},
        {"and again", u"mmm", 3},
        {"beyond ASCII", u"paź", 10},
        {"letters of another month", u"sg", 12},
        {"number", u"7", 7},
        {"two digits", u"11", 11},
        {"leading zero", u"04", 4},
        {"zero alone", u"0", 5},
        {"no such number", u"14", 4},
        {"number behind a letter", u"g2", 2},
        {"slowly", u"12", 2, true, MonthEntryPause + 1},
        {"nothing of the kind", u"x", 5, false},
        {"a blank", u" ", 5, false},
        {"a control character", u"\u001B", 5, false},
    };
    const TDateField field = Field(YearFirst(), dfLong, dtvMonth);
    for (const auto& row : rows) {
        SCOPED_TRACE(row.Name);
        TDateValue value;
        value.SetDate(EncodeDate(2024, 5, 1), dtvMonth);
        TMonthEntry entry;
        std::uint64_t clock = 100000;
        bool understood = false;
        for (const char16_t character : row.Typed) {
            understood = whats_marked_ex(entry, character, clock += row.Pause, value, march15, field);
            EXPECT_TRUE(sprawdz_combosa(double_to_text(value.Current(), field), field).Valid);
        }
        EXPECT_EQ(understood, row.IsUnderstood);
        EXPECT_EQ(MonthOf(value.Current()), row.Month);
        EXPECT_EQ(YearOf(value.Current()), 2024);
    }

    TDateValue bounded;
    bounded.SetMinDate(march15, dtvMonth);
    TMonthEntry entry;
    whats_marked_ex(entry, u'1', 0, bounded, march15 + 400, field);
    EXPECT_EQ(bounded.Current(), EncodeDate(2025, 1, 1)) << "without a date in the present year";
    bounded.SetDate(march15 + 30, dtvMonth);
    whats_marked_ex(entry, u'1', 10000, bounded, march15, field);
    EXPECT_EQ(bounded.Current(), march15) << "held at the bound";
    bounded.SetDate(EncodeDate(2031, 8, 1), dtvMonth);
    bounded.ClearByDelete();
    whats_marked_ex(entry, u'9', 20000, bounded, march15, field);
    EXPECT_EQ(bounded.Current(), EncodeDate(2031, 9, 1)) << "the year of the date that Delete took";
}

} // namespace
} // namespace ZOR
