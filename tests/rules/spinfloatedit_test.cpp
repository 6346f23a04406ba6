#include "numeric/Zorspinfloatedit_rules.h"

#include "tests/support/entrystory.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <limits>

namespace ZOR {
namespace {

constexpr Extended Infinity = std::numeric_limits<Extended>::infinity();
constexpr Extended NaN = std::numeric_limits<Extended>::quiet_NaN();

struct TRange {
    Extended Min = 0;
    Extended Max = 0;
};

TSpinFloatEntry Entry(TTryb mode, TRange range = {}, float increment = 1, bool rounds = false, int decimals = 2) {
    TSpinFloatEntry entry;
    entry.Tryb = mode;
    entry.MinValue = range.Min;
    entry.MaxValue = range.Max;
    entry.Increment = increment;
    entry.Zaokraglaj = rounds;
    entry.Decimals = decimals;
    return entry;
}

constexpr TRange Signed{-6000, 6000};

// Keys by one character each: '<' backspace, '#' Delete, 'L' and 'R' the arrows, '^' and 'v' a step up and down.
String Typed(const char16_t* before, StringView keys, const TSpinFloatEntry& entry, const TFormatSettings& settings) {
    TSimulatedEdit edit;
    edit.Judge = [&](const TEntryState& state, const TEntryMemory& memory) {
        return SpinFloatChange(state, memory, entry, settings);
    };
    edit.Start(StateShown(before));
    edit.LastValidText = edit.State.Text;
    for (const char16_t key : keys) {
        const std::size_t named = StringView(u"LR#").find(key);
        if (named != StringView::npos) {
            constexpr TCaretKey names[] = {TCaretKey::Left, TCaretKey::Right, TCaretKey::Delete};
            const auto action = SpinFloatKeyDown(names[named], edit.State, entry, settings);
            if (action)
                edit.Apply(*action);
            else if (key == u'#')
                edit.Erase(1);
            else
                edit.Select({edit.State.Selection.Start + (key == u'L' ? -1 : 1), 0});
        } else if (key == u'^' || key == u'v') {
            edit.Start(StepSpinFloat(edit.State, key == u'^' ? 1 : -1, entry, settings));
        } else {
            edit.Apply(SpinFloatKeyPress(key == u'<' ? u'\b' : key, edit.State, entry, settings));
        }
        EXPECT_TRUE(edit.RepairsSettle);
        EXPECT_NE(ReadSpinFloat(edit.State.Text, entry, settings).Kind, TNumberText::Unreadable);
    }
    return ShownState(edit.State);
}

TEST(SpinFloatEdit, TypingDurations) {
    const TSpinFloatEntry time = Entry(tTime);
    const TSpinFloatEntry negative = Entry(tTime, Signed);
    TSpinFloatEntry disabled = time;
    disabled.EditorEnabled = false;
    const struct {
        const char* Name;
        TSpinFloatEntry Entry;
        const char16_t* Before;
        const char16_t* Keys;
        const char16_t* After;
    } rows[] = {
        {"two digits of hours lead on to the minutes", time, u"[00]:00", u"0130", u"01:30|"},
        {"one digit waits for the separator", time, u"[00]:00", u"1:5", u"1:5|"},
        {"point and comma lead on, too", time, u"[08]:15", u"9.30", u"9:30|"},
        {"into an empty field", time, u"|", u"730", u"73:0|"},
        {"over all of the text", time, u"[12:34]", u"5", u"5|:00"},
        {"across the separator", time, u"1[2:3]4", u"5", u"15:[4]"},
        {"there and back with the arrows", time, u"12:[34]", u"LR", u"12:[34]"},
        {"more digits of hours are inserted", time, u"12|:34", u"56", u"1256|:34"},
        {"up to nine", time, u"123456789|:00", u"1", u"123456789|:00"},
        {"in front of the hours", time, u"|5:30", u"1", u"1|5:30"},
        {"minutes are overtyped", time, u"01:|30", u"45", u"01:45|"},
        {"and take no third digit", time, u"01:30|", u"4", u"01:30|"},
        {"selected minutes are replaced", time, u"01:[30]", u"4", u"01:4|"},
        {"no other characters", time, u"0|1:30", u"e ax\u0661", u"0|1:30"},
        {"no sign where nothing is below 0", time, u"0|1:30", u"-+", u"0|1:30"},
        {"the sign turns wherever the caret is", negative, u"01:3|0", u"-", u"-01:3|0"},
        {"and back", negative, u"-01:[30]", u"-", u"01:[30]"},
        {"a plus takes it away", negative, u"-[01]:30", u"++", u"[01]:30"},
        {"a sign over all of the text begins anew", negative, u"[12:34]", u"-130", u"-13:0|"},
        {"a sign into an empty field", negative, u"|", u"-", u"-[00]:00"},
        {"a digit over a selected sign", negative, u"[-0]1:30", u"5", u"5|1:30"},
        {"a digit before the sign", negative, u"|-1:30", u"5", u"-5|1:30"},
        {"backspace zeroes minutes, steps over the separator, erases hours and stops", time, u"12:34|", u"<<<<<<",
         u"|:00"},
        {"backspace takes the sign away", negative, u"-|1:30", u"<", u"|1:30"},
        {"backspace over a part", time, u"01:[30]", u"<", u"01:|00"},
        {"over hours", time, u"[01]:30", u"<", u"|:30"},
        {"across the separator", time, u"1[2:3]4", u"<", u"1|:04"},
        {"over all of the text", time, u"[12:34]", u"<", u"|"},
        {"delete erases hours, steps over the separator, zeroes minutes and stops", time, u"|12:34", u"######",
         u":00|"},
        {"delete takes the sign away", negative, u"|-1:30", u"#", u"|1:30"},
        {"delete over all of the text", time, u"[12:34]", u"#", u"|"},
        {"commands change nothing", time, u"[12:34]", u"\x03\x16\x1A", u"[12:34]"},
        {"EditorEnabled false", disabled, u"0|1:30", u"5-<#.", u"0|1:30"},
        {"right from selected hours", time, u"[01]:30", u"R", u"01:[30]"},
        {"right from the end of the hours", time, u"01|:30", u"R", u"01:[30]"},
        {"right within the hours", time, u"0|1:30", u"R", u"01|:30"},
        {"right from the minutes is the native edit's", time, u"01:|30", u"R", u"01:3|0"},
        {"left from selected minutes, beside a sign", negative, u"-01:[30]", u"L", u"-[01]:30"},
        {"left from the start of the minutes", time, u"01:|30", u"L", u"[01]:30"},
        {"left within the minutes", time, u"01:3|0", u"L", u"01:|30"},
        {"steps of minutes", time, u"01:[59]", u"^^v", u"02:[00]"},
        {"steps of hours", time, u"[09]:59", u"^", u"[10]:59"},
        {"through 0 without a minus on it", negative, u"-00:[01]", u"^^v", u"00:[00]"},
        {"down below 0", negative, u"[00]:30", u"v", u"-[00]:30"},
        {"not beyond 9999:59", time, u"[9999]:30", u"^", u"[9999]:59"},
        {"a step from an empty field", time, u"|", u"^", u"[01]:00"},
        {"a step that finds unfinished minutes", time, u"1:|", u"^", u"01:[01]"},
        {"steps at the end of the range", Entry(tTime, {10, 90}), u"01:[29]", u"^^", u"01:[30]"},
        {"steps bring a typed value into the range", Entry(tTime, {10, 90}), u"05:[00]", u"v", u"01:[30]"},
        {"steps to multiples", Entry(tTime, {}, 15, true), u"01:[10]", u"^^", u"01:[30]"},
        {"and down", Entry(tTime, {}, 15, true), u"01:[10]", u"v", u"01:[00]"},
        {"an hour is made of quarters", Entry(tTime, {0, 600}, 15), u"[01]:30", u"^^v", u"[02]:30"},
        {"and takes two of more than half of one", Entry(tTime, {0, 600}, 40), u"[01]:30", u"^", u"[02]:50"},
        {"a longer step is longer", Entry(tTime, {0, 600}, 90), u"[01]:30", u"^", u"[03]:00"},
        {"backwards as well", Entry(tTime, {0, 600}, -15), u"[01]:30", u"^", u"[00]:30"},
        {"hours stay multiples of minutes", Entry(tTime, {}, 2, true), u"[01]:31", u"^", u"[02]:32"},
        {"less than a minute is a minute", Entry(tTime, {}, 0.25F), u"01:[30]", u"^", u"01:[31]"},
        {"no step", Entry(tTime, {}, 0), u"1:|5", u"^v", u"1:|5"},
        {"a step backwards", Entry(tTime, {}, -5), u"01:[30]", u"^", u"01:[25]"},
        {"a huge step", Entry(tTime, {0, 100}, 3e38F), u"00:[30]", u"^", u"01:[40]"},
    };
    for (const auto& row : rows) {
        for (const TFormatSettings* settings : {&Polish, &German, &American}) {
            EXPECT_EQ(Utf8Encode(Typed(row.Before, row.Keys, row.Entry, *settings)), Utf8Encode(row.After)) << row.Name;
        }
    }
    const TSpinFloatEntry hundredths = Entry(tTimeDecimal);
    EXPECT_EQ(Utf8Encode(Typed(u"[00],00", u"0175", hundredths, Polish)), "01,75|");
    EXPECT_EQ(Utf8Encode(Typed(u"[00].00", u"1,5", hundredths, American)), "1.5|");
    EXPECT_EQ(Utf8Encode(Typed(u"01,[50]", u"^", hundredths, German)), "01,[52]");
    EXPECT_EQ(Utf8Encode(Typed(u"5|", u"1", hundredths, Polish)), "51,[00]");
    // Hours and minutes where hundredths show, and back.
    EXPECT_EQ(Utf8Encode(Typed(u"[00],00", u"1:30", hundredths, Polish)), "01:30|");
    EXPECT_EQ(Utf8Encode(Typed(u"[00],00", u"01:30", hundredths, Polish)), "01:30|");
    EXPECT_EQ(Utf8Encode(Typed(u"01,5|0", u":", hundredths, Polish)), "01:[30]");
    EXPECT_EQ(Utf8Encode(Typed(u"|", u"1:75,", hundredths, American)), "02.[25]");
    EXPECT_EQ(Utf8Encode(Typed(u"[00]:45", u"^", hundredths, German)), "[01],75");
    EXPECT_EQ(Utf8Encode(Typed(u"-[00],00", u"0:3", Entry(tTimeDecimal, Signed), Polish)), "-00:3|");
    TFormatSettings points = Polish;
    points.TimeSeparator = u'.';
    EXPECT_EQ(Utf8Encode(Typed(u"[00],00", u"1.30", hundredths, points)), "01.30|");
    points.DecimalSeparator = u'.';
    EXPECT_EQ(Utf8Encode(Typed(u"[00].00", u"1.5", hundredths, points)), "1.5|") << "a point of both is the decimals'";
    EXPECT_EQ(Utf8Encode(Typed(u"[00].00", u"1:5", hundredths, points)), "01:5|");
}

TEST(SpinFloatEdit, TypingAndSteppingNumbers) {
    const struct {
        const char* Name;
        TSpinFloatEntry Entry;
        const char16_t* Before;
        const char16_t* Keys;
        const char16_t* After;
    } rows[] = {
        {"typing is the float edit's", Entry(tStandard), u"[12,34]", u"5,6", u"5,6|0"},
        {"the caret keeps its distance from the end", Entry(tStandard), u"9|,50", u"^", u"10|,50"},
        {"what was all selected is", Entry(tStandard), u"[9,50]", u"^", u"[10,50]"},
        {"steps in hundredths", Entry(tStandard, {}, 0.01F), u"0,99|", u"^", u"1,00|"},
        {"through 0", Entry(tStandard, {-5, 5}, 0.1F), u"0,10|", u"vv", u"-0,10|"},
        {"to 0 without a minus", Entry(tStandard, {-5, 5}, 0.1F), u"-0,10|", u"^", u"0,00|"},
        {"to the end of the range", Entry(tStandard, {0, 10}, 3), u"9,00|", u"^", u"10,00|"},
        {"or the last multiple before it", Entry(tStandard, {0, 10}, 3, true), u"9,00|", u"^", u"9,00|"},
        {"to the next multiple", Entry(tStandard, {}, 0.25F, true), u"1,10|", u"^^", u"1,50|"},
        {"to the next multiple below", Entry(tStandard, {}, 0.25F, true), u"1,10|", u"v", u"1,00|"},
        {"a step that the decimals cannot show", Entry(tStandard, {}, 0.01F, false, 0), u"7|", u"^", u"8|"},
        {"a huge step", Entry(tStandard, {}, 3e38F), u"1,00|", u"^", u"3E38|"},
        {"from an empty field", Entry(tStandard, {5, 10}), u"|", u"^", u"[6,00]"},
        {"a range upside down", Entry(tStandard, {10, 5}), u"7,00|", u"^", u"10,00|"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(Utf8Encode(Typed(row.Before, row.Keys, row.Entry, Polish)), Utf8Encode(row.After)) << row.Name;

    // A thousand tenths are a hundred, with decimals that show every error.
    for (const int decimals : {1, 2, 15}) {
        const TSpinFloatEntry entry = Entry(tStandard, {}, 0.1F, false, decimals);
        TEntryState state{SpinFloatText(0, entry, Polish), {}};
        for (int step = 0; step < 1000; ++step)
            state = StepSpinFloat(state, 1, entry, Polish);
        EXPECT_EQ(ReadSpinFloat(state.Text, entry, Polish).Value, 100) << decimals;
        EXPECT_EQ(Utf8Encode(StepSpinFloat(state, -1000, entry, Polish).Text),
                  Utf8Encode(SpinFloatText(0, entry, Polish)));
    }
}

TEST(SpinFloatEdit, TextsOfDurations) {
    const struct {
        Extended Value;
        const char* Time;
        const char* Hundredths;
    } rows[] = {
        {0, "00:00", "00,00"},      {65, "01:05", "01,08"},
        {90, "01:30", "01,50"},     {-5, "-00:05", "-00,08"},
        {6000, "100:00", "100,00"}, {7559.9L, "125:59", "125,98"},
        {-0.5L, "00:00", "00,00"},  {-599999, "-9999:59", "-9999,98"},
        {NaN, "00:00", "00,00"},    {Infinity, "150000000000000000:00", "150000000000000000,00"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(Utf8Encode(SpinFloatText(row.Value, Entry(tTime), Polish)), row.Time);
        EXPECT_EQ(Utf8Encode(SpinFloatText(row.Value, Entry(tTimeDecimal), Polish)), row.Hundredths);
    }
    EXPECT_EQ(Utf8Encode(ValueToTimeStr(-0.5L, u'.')), "-00.00");
    EXPECT_EQ(Utf8Encode(SpinFloatText(90, Entry(tTimeDecimal), American)), "01.50");
    for (const TTryb mode : {tTime, tTimeDecimal}) {
        for (Extended minutes = -599999; minutes <= 599999; minutes += 7) {
            const TNumberReading reading =
                ReadSpinFloat(SpinFloatText(minutes, Entry(mode), Polish), Entry(mode), Polish);
            ASSERT_TRUE(reading.Kind == TNumberText::Number && reading.Value == minutes) << minutes;
        }
    }
    TFormatSettings odd = Polish;
    odd.TimeSeparator = u'\0';
    EXPECT_EQ(Utf8Encode(SpinFloatText(65, Entry(tTime), odd)), "01:05");
    odd.TimeSeparator = u'.';
    EXPECT_EQ(Utf8Encode(Typed(u"[01].05", u"0230", Entry(tTime), odd)), "02.30|");
}

TEST(SpinFloatEdit, Reading) {
    constexpr Extended least = 7; // MinValue, what cannot be read
    const struct {
        TTryb Mode;
        const char16_t* Text;
        TNumberText Kind;
        Extended Value;
    } rows[] = {
        {tStandard, u"", TNumberText::Empty, least},
        {tStandard, u"abc", TNumberText::Unreadable, least},
        {tStandard, u"500", TNumberText::Number, 500},
        {tStandard, u"1.5", TNumberText::Number, 1.5L},
        {tStandard, u"-", TNumberText::Unfinished, 0},
        {tTime, u"", TNumberText::Empty, least},
        {tTime, u"130", TNumberText::Unreadable, least},
        {tTime, u"-", TNumberText::Unreadable, least},
        {tTime, u"1:30", TNumberText::Number, 90},
        {tTime, u"1:75", TNumberText::Number, 135},
        {tTime, u"1:", TNumberText::Unfinished, 60},
        {tTime, u":5", TNumberText::Unfinished, 5},
        {tTime, u":", TNumberText::Unfinished, 0},
        {tTime, u"-1:30", TNumberText::Number, -90},
        {tTime, u"1:-30", TNumberText::Number, -90},
        {tTime, u"-1:-30", TNumberText::Number, -90},
        {tTime, u"-0:00", TNumberText::Number, 0},
        {tTime, u" 1:30 ", TNumberText::Number, 90},
        {tTime, u"1:3:0", TNumberText::Unreadable, least},
        {tTime, u"1:x", TNumberText::Unreadable, least},
        {tTime, u"99999999999999999999999:00", TNumberText::Number, 6e18L},
        {tTimeDecimal, u"01,50", TNumberText::Number, 90},
        {tTimeDecimal, u"1,5", TNumberText::Number, 90},
        {tTimeDecimal, u"2", TNumberText::Number, 120},
        {tTimeDecimal, u",5", TNumberText::Unfinished, 30},
        {tTimeDecimal, u"2,", TNumberText::Unfinished, 120},
        {tTimeDecimal, u"-1,75", TNumberText::Number, -105},
        {tTimeDecimal, u"0,075", TNumberText::Number, 5}, // 4.5 minutes, exactly
        {tTimeDecimal, u"-0,075", TNumberText::Number, -5},
        {tTimeDecimal, u"0,99999999999999999999999", TNumberText::Number, 60},
        {tTimeDecimal, u"1:30", TNumberText::Number, 90},
        {tTimeDecimal, u"1:3,0", TNumberText::Unreadable, least},
        {tTimeDecimal, u"", TNumberText::Empty, 0},
    };
    for (const auto& row : rows) {
        const TNumberReading reading = ReadSpinFloat(row.Text, Entry(row.Mode, {least, 100}), Polish);
        EXPECT_EQ(static_cast<int>(reading.Kind), static_cast<int>(row.Kind)) << Utf8Encode(row.Text);
        EXPECT_EQ(reading.Value, row.Value) << Utf8Encode(row.Text);
        EXPECT_EQ(std::signbit(reading.Value), row.Value < 0) << Utf8Encode(row.Text);
    }
}

TEST(SpinFloatEdit, Range) {
    const struct {
        const char* Name;
        TSpinFloatEntry Entry;
        Extended Value;
        int Side;
        Extended Checked;
    } rows[] = {
        {"no range", Entry(tStandard), 1e18L, 0, 1e18L},
        {"no range of a duration", Entry(tTime), 600000, 0, 599999},
        {"nor below", Entry(tTimeDecimal, {5, 5}), -1e18L, 0, -599999},
        {"below", Entry(tStandard, {10, 20}), 9.99L, -1, 10},
        {"above", Entry(tTime, {10, 20}), 21, 1, 20},
        {"no top", Entry(tStandard, {10, 0}), 1e18L, 0, 1e18L},
        {"a negative maximum is no top", Entry(tStandard, {-5, -1}), 3, 0, 3},
        {"the least multiple", Entry(tStandard, {10, 20}, 3, true), 1, -1, 12},
        {"the greatest multiple", Entry(tStandard, {10, 20}, 3, true), 50, 1, 18},
        {"of a negative increment", Entry(tStandard, {10, 20}, -3, true), 1, -1, 12},
        {"of tenths", Entry(tStandard, {0.3L, 20}, 0.1F, true), 0, -1, 0.3L},
        {"no multiple in the range", Entry(tStandard, {11, 14}, 5, true), 1, -1, 11},
        {"upside down, below", Entry(tStandard, {10, 5}), 7, -1, 10},
        {"upside down, above", Entry(tStandard, {10, 5}), 11, 1, 5},
        {"infinity", Entry(tStandard, {10, 20}), Infinity, 1, 20},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(CheckSpinFloatValueEx(row.Value, row.Entry), row.Side) << row.Name;
        EXPECT_EQ(CheckSpinFloatValue(row.Value, row.Entry), row.Checked) << row.Name;
    }
    EXPECT_TRUE(std::isnan(CheckSpinFloatValue(NaN, Entry(tTime))));
}

TEST(SpinFloatEdit, Writing) {
    const struct {
        const char* Name;
        TSpinFloatEntry Entry;
        const char16_t* Text;
        Extended Value;
        const char* After;
        bool OutOfRange;
    } rows[] = {
        {"a number", Entry(tStandard), u"", 12.345L, "12,35", false},
        {"the same to the decimals is left alone", Entry(tStandard), u"1,5", 1.501L, "1,5", false},
        {"the same as an empty text is written", Entry(tStandard), u"", 0, "0,00", false},
        {"the same as an unreadable text is written", Entry(tTime), u"130", 0, "00:00", false},
        {"beyond the range", Entry(tStandard, {0, 10}), u"1,00", 11, "10,00", true},
        {"no decimals", Entry(tStandard, {}, 1, false, -2), u"", 2.5L, "3", false},
        {"eighteen", Entry(tStandard, {}, 1, false, 18), u"", 0.1L, "0,100000000000000000", false},
        {"a huge number", Entry(tStandard), u"", 1e18L, "1E18", false},
        {"not a number", Entry(tStandard), u"", NaN, "NAN", false},
        {"a duration", Entry(tTime), u"00:00", 6000, "100:00", false},
        {"beyond all durations", Entry(tTime), u"00:00", 1e18L, "9999:59", false},
        {"a bound that the decimals cannot show", Entry(tStandard, {0, 1.005L}), u"", 2, "1,00", true},
        {"from the other side", Entry(tStandard, {1.001L, 5}), u"", 0, "1,01", true},
        {"a bound within a minute", Entry(tTime, {10.5L, 90}), u"", 0, "00:11", true},
    };
    for (const auto& row : rows) {
        const TSpinFloatWrite write = WriteSpinFloat(row.Text, row.Value, row.Entry, Polish);
        EXPECT_EQ(Utf8Encode(write.Text.value_or(row.Text)), row.After) << row.Name;
        EXPECT_EQ(write.OutOfRange, row.OutOfRange) << row.Name;
    }
    const struct {
        TTryb Mode;
        TSpinFloatEntry Before;
        float Increment;
        const char* Text;
        bool OutOfRange;
    } changes[] = {
        {tTime, Entry(tStandard, {}, 0.01F), 1, "00:00", false},
        {tTime, Entry(tTimeDecimal, {10, 20}, 15), 15, "00:00", true},
        {tTimeDecimal, Entry(tTime, {}, std::numeric_limits<float>::quiet_NaN()), 1, "00,00", false},
        {tTimeDecimal, Entry(tTime, {30, 60}, -5), 1, "00,50", true},
        {tStandard, Entry(tTime, {}, 15), 0.01F, "0,00", false},
    };
    for (const auto& row : changes) {
        const TTrybChange change = ChangeTryb(row.Mode, row.Before, Polish);
        EXPECT_EQ(change.Increment, row.Increment);
        EXPECT_EQ(Utf8Encode(change.Text), row.Text);
        EXPECT_EQ(change.OutOfRange, row.OutOfRange) << row.Text;
    }
}

TEST(SpinFloatEdit, Leaving) {
    const struct {
        const char* Name;
        TSpinFloatEntry Entry;
        const char16_t* Text;
        bool Accepted;
        const char* After;
    } rows[] = {
        {"in full", Entry(tStandard), u"7", true, "7,00"},
        {"empty", Entry(tStandard, {5, 10}), u"", true, "5,00"},
        {"an empty duration", Entry(tTime), u"", true, "00:00"},
        {"unfinished", Entry(tStandard), u"-", true, "0,00"},
        {"unreadable", Entry(tStandard), u"abc", false, "abc"},
        {"unreadable duration", Entry(tTime), u"130", false, "130"},
        {"above the range", Entry(tStandard, {0, 10}), u"11", false, "11,00"},
        {"below the range", Entry(tTime, {10, 0}), u"0:5", false, "00:05"},
        {"a duration in full", Entry(tTime), u"1:5", true, "01:05"},
        {"many minutes", Entry(tTime), u"1:75", true, "02:15"},
        {"in hundredths", Entry(tTimeDecimal), u"1,5", true, "01,50"},
        {"whole hours", Entry(tTimeDecimal), u"2", true, "02,00"},
        {"minus zero", Entry(tTime, Signed), u"-00:00", true, "00:00"},
        {"hours and minutes become hundredths", Entry(tTimeDecimal), u"1:30", true, "01,50"},
        {"the longest duration", Entry(tTime), u"9999:59", true, "9999:59"},
        {"a duration beyond all", Entry(tTime), u"99999:0", false, "99999:00"},
        {"below all", Entry(tTimeDecimal), u"-10000,00", false, "-10000,00"},
        {"where the range is greater", Entry(tTime, {0, 1e6L}), u"10000:00", true, "10000:00"},
        {"rounded", Entry(tTime, {}, 15, true), u"1:10", true, "01:15"},
        {"a tie, up", Entry(tTime, Signed, 2, true), u"-0:5", true, "-00:04"},
        {"rounded, but within the range", Entry(tTime, {0, 100}, 15, true), u"1:38", true, "01:30"},
        {"rounded into the range", Entry(tTime, {0, 90}, 15, true), u"1:32", true, "01:30"},
        {"outside of it all the same", Entry(tTime, {0, 90}, 15, true), u"1:41", false, "01:41"},
        {"numbers are not rounded", Entry(tStandard, {}, 0.25F, true), u"1,1", true, "1,10"},
        {"a multiple of tenths of a minute", Entry(tTime, {}, 0.1F, true), u"1:10", true, "01:10"},
    };
    for (const auto& row : rows) {
        const TSpinFloatLeave leave = LeaveSpinFloat(row.Text, row.Entry, Polish);
        EXPECT_EQ(leave.Accepted, row.Accepted) << row.Name;
        const String after = leave.Text.value_or(row.Text);
        EXPECT_EQ(Utf8Encode(after), row.After) << row.Name;
        const TSpinFloatLeave again = LeaveSpinFloat(after, row.Entry, Polish);
        EXPECT_TRUE(again.Accepted == row.Accepted && !again.Text) << row.Name << ", left again";
    }
    // What was clamped can be left.
    const TSpinFloatEntry narrow = Entry(tStandard, {0, 1.005L});
    EXPECT_TRUE(LeaveSpinFloat(*WriteSpinFloat(u"", 5, narrow, Polish).Text, narrow, Polish).Accepted);
}

TEST(SpinFloatEdit, Message) {
    const struct {
        TSpinFloatEntry Entry;
        const char* Range;
    } rows[] = {
        {Entry(tStandard), ""},
        {Entry(tStandard, {3, 3}), ""},
        {Entry(tStandard, {10, 0}), "\nWartość powinna być większa od [10,00]."},
        {Entry(tStandard, {-5, -1}, 1, false, 0), "\nWartość powinna być większa od [-5]."},
        {Entry(tStandard, {-0.5L, 1000}), "\nWartość powinna mieścić się w zakresie [-0,50 - 1000,00]."},
        {Entry(tTime, {30, 6000}), "\nWartość powinna mieścić się w zakresie [00:30 - 100:00]."},
        {Entry(tTimeDecimal, {30, 90}), "\nWartość powinna mieścić się w zakresie [00:30 - 01:30]."},
    };
    for (const auto& row : rows) {
        const TMessageText polish = RangeMessage(row.Entry, TMessageLanguage::Polish, Polish);
        EXPECT_EQ(Utf8Encode(polish.Text), std::string("Wprowadzono nieprawidłową wartość.") + row.Range);
        EXPECT_EQ(Utf8Encode(polish.Caption), "Błąd");
        const TMessageText english = RangeMessage(row.Entry, TMessageLanguage::English, American);
        EXPECT_EQ(Utf8Encode(english.Text + u"/" + english.Caption), "An invalid value./Error");
    }
}

TEST(SpinFloatEdit, ChangePasteSelectionMoney) {
    const TSpinFloatEntry time = Entry(tTime);
    const struct {
        const char16_t* Text;
        const char16_t* Last;
        const char* After; // null: stays
        bool IsValid;
    } changes[] = {
        {u"1:30|", u"", nullptr, true},       {u"1:|", u"", nullptr, false},       {u"|", u"", nullptr, false},
        {u"01|30", u"01:30", "01|:30", true}, {u"0130|", u"12,5", "0|0:00", true},
    };
    for (const auto& row : changes) {
        const TEntryChange change = SpinFloatChange(StateShown(row.Text), {row.Last}, time, Polish);
        EXPECT_EQ(change.IsValid, row.IsValid) << Utf8Encode(row.Text);
        EXPECT_EQ(change.Repair ? Utf8Encode(ShownState(*change.Repair)) : "stays", row.After ? row.After : "stays");
    }
    EXPECT_EQ(Utf8Encode(PasteSpinFloat(u"1:5\r\n", time, Polish)), "01:05");
    EXPECT_EQ(Utf8Encode(PasteSpinFloat(u"130", time, Polish)), "");
    EXPECT_EQ(Utf8Encode(PasteSpinFloat(u"2", Entry(tTimeDecimal), Polish)), "02,00");
    EXPECT_EQ(Utf8Encode(PasteSpinFloat(u"1:30", Entry(tTimeDecimal), Polish)), "01,50");
    EXPECT_EQ(Utf8Encode(PasteSpinFloat(u"12,345", Entry(tStandard), Polish)), "12,345");

    EXPECT_EQ(TimePartSelection(u"-01:30", TTimePart::Hours, time, Polish), (TEntrySelection{1, 2}));
    EXPECT_EQ(TimePartSelection(u"-01:30", TTimePart::Minutes, time, Polish), (TEntrySelection{4, 2}));
    EXPECT_EQ(TimePartSelection(u"130", TTimePart::Minutes, time, Polish), (TEntrySelection{3, 0}));
    EXPECT_EQ(TimePartSelection(u"1,50", TTimePart::Minutes, Entry(tStandard), Polish), (TEntrySelection{0, 4}));

    EXPECT_EQ(SpinFloatCurrency(1.00005L), Currency::FromUnits(10001));
    EXPECT_EQ(SpinFloatCurrency(1e30L), Currency::FromUnits(INT64_MAX));
    EXPECT_EQ(SpinFloatCurrency(-Infinity), Currency::FromUnits(INT64_MIN));
    EXPECT_EQ(SpinFloatCurrency(NaN), Currency());

    for (const TFormatSettings* settings : {&Polish, &German, &American}) {
        EXPECT_EQ(KeypadDecimalChar(Entry(tTime), *settings), u':');
        EXPECT_EQ(KeypadDecimalChar(Entry(tTimeDecimal), *settings), settings->DecimalSeparator);
    }
}

} // namespace
} // namespace ZOR
