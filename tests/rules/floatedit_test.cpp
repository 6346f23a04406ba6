#include "numeric/Zorfloatedit_rules.h"

#include "framework/system/exceptions.h"
#include "tests/support/entrystory.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace ZOR {
namespace {

constexpr Extended Infinity = std::numeric_limits<Extended>::infinity();
constexpr Extended NaN = std::numeric_limits<Extended>::quiet_NaN();

TDecimalEntry Decimals(int decimals, Extended minimum = 0, Extended maximum = 0) {
    TDecimalEntry entry;
    entry.Decimals = decimals;
    entry.MinValue = minimum;
    entry.MaxValue = maximum;
    return entry;
}
const TDecimalEntry Plain;
const TDecimalEntry Signed = Decimals(2, -1000, 1000);

// A field in which keys are pressed one by one; '<' is backspace, '#' the native Delete.
String Typed(const char16_t* before, StringView keys, const TDecimalEntry& entry, const TFormatSettings& settings,
             const String& lastValidText = {}) {
    TSimulatedEdit edit;
    edit.Judge = [&](const TEntryState& state, const TEntryMemory& memory) {
        return FloatChange(state, memory, entry, settings);
    };
    edit.LastValidText = lastValidText;
    edit.Start(StateShown(before));
    for (const char16_t key : keys) {
        if (key == u'#')
            edit.Erase(1);
        else
            edit.Apply(FloatKeyPress(key == u'<' ? u'\b' : key, edit.State, entry, settings));
        EXPECT_TRUE(edit.RepairsSettle);
    }
    return ShownState(edit.State);
}

struct TStory {
    const char* Name;
    TDecimalEntry Entry;
    const char16_t* Before;
    const char16_t* Keys;
    const char16_t* After;
};

String WithPoints(String text) {
    std::replace(text.begin(), text.end(), u',', u'.');
    return text;
}

TEST(FloatEdit, TypingWhereTheCommaIsTheSeparator) {
    const TDecimalEntry disabled = [] {
        TDecimalEntry entry;
        entry.EditorEnabled = false;
        return entry;
    }();
    const TDecimalEntry readOnly = [] {
        TDecimalEntry entry;
        entry.ReadOnly = true;
        return entry;
    }();
    const TStory rows[] = {
        {"a number from the start", Plain, u"|", u"12,34", u"12,34|"},
        {"without a whole part", Plain, u"|", u",5", u",5|"},
        {"a separator twice behind a zero", Plain, u"|", u"0,,5", u"0,5|"},
        {"or in front of everything", Plain, u"|", u",,5", u",5|"},
        {"full decimals swallow digits at their end", Plain, u"12,34|", u"56", u"12,34|"},
        {"and are overtyped inside", Plain, u"12,|34", u"567", u"12,56|"},
        {"a selection of decimals counts from its start only", Plain, u"12,[34]", u"5", u"12,5|4"},
        {"decimals that are not full take insertions", Plain, u"12,|3", u"45", u"12,45|"},
        {"whole digits are inserted", Plain, u"1|2,34", u"9", u"19|2,34"},
        {"a selection across the separator is typed over", Plain, u"1[2,3]4", u"5", u"15|4"},
        {"the separator jumps over the one that is there", Plain, u"1|2,34", u",", u"12,|34"},
        {"even with all selected", Plain, u"[12,34]", u",", u"12,|34"},
        {"a digit over all of it starts anew with zeros", Plain, u"[12,34]", u"5", u"5|,00"},
        {"and goes on", Plain, u"[12,34]", u"56,7", u"56,7|0"},
        {"over all of a text without full decimals it replaces", Plain, u"[12,3]", u"5", u"5|"},
        {"a digit behind the zero of the mask replaces it", Plain, u"0|,00", u"5", u"5|,00"},
        {"but not before it", Plain, u"|0,00", u"5", u"5|0,00"},
        {"a second separator in decimals that are not full is taken back", Plain, u"12,3|", u",", u"12,3|0"},
        {"as is one between them", Plain, u"12,|3", u",", u"12,|30"},
        {"a separator may part whole digits", Plain, u"1|2345", u",", u"1,|2345"},
        {"other characters are refused", Plain, u"12|", u"aE ;\u0661\r\x7F", u"12|"},
        {"an exponent", Plain, u"2|", u"e3", u"2e3|"},
        {"a sign where no number can be below 0", Plain, u"|12", u"-", u"|12"},
        {"a plus", Plain, u"|", u"+5", u"+5|"},
        {"a negative number from the start", Signed, u"|", u"-1,5", u"-1,5|"},
        {"over all of it", Signed, u"[12,34]", u"-5", u"-5|,00"},
        {"a sign twice", Signed, u"|", u"--5", u"-5|"},
        {"a separator in an exponent", Plain, u"|", u"1e,2", u"1e2|"},
        {"a sign among digits is taken back", Signed, u"1|2", u"-", u"1|2,00"},
        {"and so is one typed over a decimal", Signed, u"12,|34", u"-", u"12,3|4"},
        {"no decimals, no separator", Decimals(0), u"12|", u",.5", u"125|"},
        {"below none likewise", Decimals(-3), u"12|", u",5", u"125|"},
        {"no decimals beside a separator that a program left", Decimals(0), u"12,|5", u"67", u"12,|5"},
        {"many decimals", Decimals(99), u"|", u"0,1234567890123456789", u"0,123456789012345678|"},
        {"backspace zeroes decimals, steps over the separator, erases digits", Plain, u"12,34|", u"<<<<", u"1|,00"},
        {"before the separator only", Plain, u"12|,34", u"<<<", u"|,34"},
        {"backspace over a selection of all", Plain, u"[12,34]", u"<", u"|"},
        {"backspace without a separator", Plain, u"12|", u"<", u"1|"},
        {"the native delete of the separator", Plain, u"12|,34", u"#", u"12|34"},
        {"commands change nothing and overtype nothing", Plain, u"12,|34", u"\x01\x03\x16\x18\x1A\x1B", u"12,|34"},
        {"nor do they wipe a selected value", Plain, u"[12,34]", u"\x03\x1A", u"[12,34]"},
        {"EditorEnabled false takes no text and no backspace", disabled, u"12,|34", u"5,<-", u"12,|34"},
    };
    for (const TStory& row : rows) {
        // What a program left before is the last valid text.
        const String last = StateShown(row.Before).Text;
        EXPECT_EQ(Utf8Encode(Typed(row.Before, row.Keys, row.Entry, Polish, last)), Utf8Encode(row.After)) << row.Name;
        EXPECT_EQ(Utf8Encode(Typed(row.Before, row.Keys, row.Entry, German, last)), Utf8Encode(row.After)) << row.Name;
        // The same story with points where the own separator follows the locale.
        TDecimalEntry following = row.Entry;
        following.SeparatorFollowsLocale = true;
        const String before = WithPoints(row.Before);
        EXPECT_EQ(Utf8Encode(Typed(before.c_str(), WithPoints(row.Keys), following, American, WithPoints(last))),
                  Utf8Encode(WithPoints(row.After)))
            << row.Name << ", with points";
    }
    // The native edit refuses what a read-only field passes on.
    const TKeyAction passed = FloatKeyPress(u'5', StateShown(u"12,|34"), readOnly, Polish);
    EXPECT_TRUE(passed.Key == u'5' && !passed.Text && !passed.Selection);
}

TEST(FloatEdit, TypingWhereTheCommaIsNotTheSeparator) {
    const TStory rows[] = {
        {"the point becomes a comma, which leads to the decimals", Plain, u"|", u"12.5", u"12.5|"},
        {"with nothing to go behind it", Plain, u"12|", u".", u"12.[00]"},
        {"of a zero", Plain, u"|", u"0.5", u"0.5|"},
        {"without a whole part", Plain, u"|", u".25", u"0.25|"},
        {"below zero", Signed, u"|", u"-0.5", u"-0.5|"},
        {"a point that is there already", Plain, u"[12.34]", u".5", u"12.5|"},
        {"twice", Plain, u"|", u"7..5", u"7.5|"},
        {"a number too great for decimals", Plain, u"1e18|", u".", u"1e18|"},
        {"a comma is refused", Plain, u"12|", u",5", u"125|"},
        {"decimals are free until the field is left", Plain, u"12.3|", u"456", u"12.3456|"},
        {"a point by chance takes none of them", Plain, u"12.3456|", u".", u"12.[3456]"},
        {"and erased freely", Plain, u"12.34|", u"<<<", u"12|"},
    };
    for (const TStory& row : rows)
        EXPECT_EQ(Utf8Encode(Typed(row.Before, row.Keys, row.Entry, American)), Utf8Encode(row.After)) << row.Name;
    EXPECT_EQ(Utf8Encode(Typed(u"12|", u".5", Decimals(0), American)), "125|") << "no decimals to go to";
    EXPECT_EQ(Utf8Encode(Typed(u"12|", u".", Plain, Polish)), "12|") << "a point where the comma separates";
    for (const TFormatSettings* settings : {&Polish, &German, &American})
        EXPECT_TRUE(IsValidFloatChar(KeypadDecimalChar(*settings), Plain, *settings));
}

TEST(FloatEdit, WhatTheHostSeesOfAKey) {
    const struct {
        const char* Name;
        const char16_t* Before;
        char16_t Key;
        bool ReachesHost;
        char16_t Seen;
    } rows[] = {
        {"an accepted key", u"1|", u'2', true, u'2'},
        {"a rejected key", u"1|", u'x', false, 0},
        {"an overtyped decimal", u"1,|23", u'4', true, 0},
        {"a digit that finds no room", u"1,23|", u'4', true, 0},
        {"a zeroed decimal", u"1,23|", u'\b', true, 0},
        {"a step over the separator", u"1,|23", u'\b', false, 0},
        {"a jump behind the separator", u"1|,23", u',', false, 0},
        {"a new number over all", u"[1,23]", u'4', false, u'4'},
        {"a command", u"[1,23]", u'\x03', true, u'\x03'},
        {"Enter", u"1|", u'\r', false, 0},
    };
    for (const auto& row : rows) {
        const TKeyAction action = FloatKeyPress(row.Key, StateShown(row.Before), Plain, Polish);
        EXPECT_EQ(action.ReachesHost, row.ReachesHost) << row.Name;
        EXPECT_EQ(static_cast<int>(action.Key), static_cast<int>(row.Seen)) << row.Name;
    }
}

TEST(FloatEdit, ChangeKeepsUnfinishedNumbersAndRepairsOthers) {
    const struct {
        const char16_t* Text;
        const char16_t* Last;
        const char* After; // null: stays
        bool IsValid;
    } rows[] = {
        {u"12,5|", u"", nullptr, true},
        {u" 12 |", u"", nullptr, true},
        {u"|", u"7", nullptr, false},
        {u"-|", u"7", nullptr, false},
        {u"-,|", u"7", nullptr, false},
        {u",|", u"7", nullptr, false},
        {u"12,|", u"7", nullptr, true},
        {u"1e|", u"7", nullptr, false},
        {u"1,5e-|", u"7", nullptr, false},
        {u"NAN|", u"7", nullptr, false},
        {u"1x|", u"7", "|7,00", true},
        {u"1x|", u"12,5", "1|2,50", true},
        {u"12,5,|", u"12,5", "12,5|0", true},
        {u"12.5|", u"12", "12|,00", true}, // typed so in no way, but a program may
        {u"x|", u"0", "|0", true},
        {u"e|", u"", "|", false},
        {u"-e|", u"", "|", false},
        {u"1e-+|", u"", "|", false},
        {u"1 e|", u"", "|", false},
        {u"1e99999|", u"1e9999|", "|", false},
        {u"x|", u"12.5", "|", false}, // remembered under another locale
        {u"12,5,|", u"123456789012345678,5", "12|3456789012345679,00", true},
        {u"1,,|", u"1234567890123456,78", "1|234567890123456,78", true}, // no double in between
    };
    for (const auto& row : rows) {
        const TEntryState state = StateShown(row.Text);
        const TEntryChange change = FloatChange(state, {row.Last}, Plain, Polish);
        SCOPED_TRACE(Utf8Encode(row.Text) + " after " + Utf8Encode(row.Last));
        EXPECT_EQ(change.IsValid, row.IsValid);
        EXPECT_EQ(change.Repair ? Utf8Encode(ShownState(*change.Repair)) : "stays", row.After ? row.After : "stays");
    }
}

// The text after the field was left; "!" for a conversion error.
std::string Left(StringView text, const TDecimalEntry& entry, const TFormatSettings& settings) {
    try {
        return Utf8Encode(LeaveFloat(text, entry, settings).value_or(String(text)));
    } catch (const EConvertError&) {
        return "!";
    }
}

TEST(FloatEdit, Leaving) {
    const TDecimalEntry percent = Decimals(2, 0, 100);
    const TDecimalEntry upsideDown = Decimals(0, 10, 5);
    const struct {
        TDecimalEntry Entry;
        const char16_t* Text;
        const char* After;
    } rows[] = {
        {Plain, u"7", "7,00"},
        {Plain, u"", "0,00"},
        {Plain, u"-", "0,00"},
        {Plain, u"-,", "0,00"},
        {Plain, u"12,", "12,00"},
        {Plain, u"1,5e", "1,50"},
        {Plain, u"2e3", "2000,00"},
        {Plain, u"-0", "0,00"},
        {Plain, u"-0,004", "0,00"},
        {Plain, u"1.5", "1,50"}, // points of a program read as the separator
        {Plain, u"1,005", "1,01"},
        {Plain, u"-1,005", "-1,01"},
        {Plain, u"abc", "!"},
        {Plain, u"1,2,3", "!"},
        {Plain, u"1e99999", "!"},
        {Decimals(0), u"7,5", "8"},
        {Decimals(-1), u"7", "7"},
        {Decimals(18), u"0,1", "0,100000000000000000"},
        {Plain, u"1234567890123456,78", "1234567890123456,78"},
        {Decimals(0), u"123456789012345678", "123456789012345678"},
        {Decimals(0), u"1e18", "1E18"},
        {Plain, u"1e-4940", "0,00"},
        {percent, u"100,01", "100,00"},
        {percent, u"-5", "0,00"},
        {percent, u"", "0,00"},
        {Decimals(2, 5, 10), u"", "5,00"},
        // Read as 10 and as 5, which are then written as 5 and as 10.
        {upsideDown, u"7", "5"},
        {upsideDown, u"11", "10"},
        {Plain, u"NAN", "NAN"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(Left(row.Text, row.Entry, Polish), row.After) << Utf8Encode(row.Text);
        EXPECT_EQ(Left(row.Text, row.Entry, German), row.After) << Utf8Encode(row.Text);
    }
    EXPECT_EQ(Left(u"12.345", Plain, American), "12.35");
    EXPECT_EQ(Left(u"12,3", Plain, American), "!");
}

TEST(FloatEdit, ValuesFromPrograms) {
    const struct {
        Extended Value;
        TDecimalEntry Entry;
        const char* Text;
        Extended Read;
    } rows[] = {
        {1234.5L, Plain, "1234,50", 1234.5L},
        {1e18L, Plain, "1E18", 1e18L},
        {-1e300L, Plain, "-1E300", -1e300L},
        {std::numeric_limits<Extended>::denorm_min(), Plain, "0,00", 0},
        {-0.0L, Plain, "0,00", 0},
        {Infinity, Plain, "INF", Infinity},
        {Infinity, Decimals(1, -5, 5), "5,0", 5},
        {-Infinity, Decimals(1, -5, 5), "-5,0", -5},
        {7, Decimals(0, 10, 5), "10", 5},
        {0.1L, Decimals(18), "0,100000000000000000", 0.1L},
    };
    for (const auto& row : rows) {
        const String text = WriteFloatValue({}, row.Value, row.Entry, Polish).value_or(u"(none)");
        EXPECT_EQ(Utf8Encode(text), row.Text);
        EXPECT_EQ(ReadFloatValue(text, row.Entry, Polish), row.Read) << row.Text;
        EXPECT_FALSE(WriteFloatValue(text, row.Value, row.Entry, Polish)) << row.Text << " is left alone";
    }
    for (const StringView zero : {u"-0", u"-,", u"-", u"-1e-4952", u"-0e"})
        EXPECT_FALSE(std::signbit(ReadFloatValue(zero, Plain, Polish))) << Utf8Encode(zero);
    const String none = WriteFloatValue({}, NaN, Decimals(1, -5, 5), Polish).value_or(u"(none)");
    EXPECT_EQ(Utf8Encode(none), "NAN");
    EXPECT_TRUE(std::isnan(ReadFloatValue(none, Decimals(1, -5, 5), Polish)));
    // The greatest float rounds up at 18 digits, but what is written must be a number.
    const Extended greatest = std::numeric_limits<Extended>::max();
    const String text = NumberText(-greatest, 2, Polish);
    EXPECT_NEAR(static_cast<double>(ReadFloatValue(text, Plain, Polish) / greatest), -1, 1e-12);
}

TEST(FloatEdit, Pasting) {
    const struct {
        const char16_t* Clipboard;
        const char* Text;
    } rows[] = {{u"12", "12"},    {u"12,3456", "12,3456"}, {u"-7\r\n", "-7"}, {u"abc", ""},
                {u"12.5", ""},    {u"1 234,5", ""},        {u"", ""},         {u"INF", ""},
                {u"1e99999", ""}, {u"12,", "12,"},         {u"-", ""}};
    for (const auto& row : rows)
        EXPECT_EQ(Utf8Encode(PasteFloat(row.Clipboard, Polish)), row.Text) << Utf8Encode(row.Clipboard);
    EXPECT_EQ(Utf8Encode(PasteFloat(u"12.5", American)), "12.5");
}

} // namespace
} // namespace ZOR
