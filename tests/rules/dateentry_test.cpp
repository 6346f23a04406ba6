#include "datetime/Zordatetimepickeredit_rules.h"
#include "framework/system/strings.h"
#include "tests/support/datelocales.h"

#include <gtest/gtest.h>

namespace ZOR {
namespace {

using namespace datelocales;

TDateField Field(const TFormatSettings& settings, TDTDateFormat format = dfShort, TDateTimeView view = dtvDay) {
    return {settings, format, view, 0};
}

TDateField Typed(const TFormatSettings& locale, TDTDateFormat format) {
    return Field(EntrySettings(locale), format);
}

TFormatSettings DayFirstWithDashes() {
    TFormatSettings settings;
    settings.DateSeparator = u'-';
    settings.ShortDateFormat = u"dd-MM-yyyy";
    return settings;
}

TEST(DateEntry, SettingsMakeEveryLocaleTypeable) {
    const struct {
        TFormatSettings Locale;
        StringView ShortMask, LongMask;
    } rows[] = {
        {YearFirst(), u"9999-99-99", u"9999-99-99 99:99"},
        {DayFirst(), u"99.99.9999", u"99.99.9999 99:99"},
        {MonthFirst(), u"99/99/9999", u"99/99/9999 99:99"},
        {Crowded(), u"99.99.9999", u"99.99.9999 99:99"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(Utf8Encode(EntryMask(Typed(row.Locale, dfShort))), Utf8Encode(row.ShortMask));
        EXPECT_EQ(Utf8Encode(EntryMask(Typed(row.Locale, dfLong))), Utf8Encode(row.LongMask));
    }
    // Settings that were not prepared are followed to the letter.
    EXPECT_TRUE(EntryMask(Field(DayFirst())) == u"9.99.9999");
    EXPECT_TRUE(EntryMask(Field(MonthFirst(), dfLong)) == u"9/9/9999 9:99 A9P9");
    TFormatSettings odd = MonthFirst();
    odd.ShortDateFormat = u"'dnia' d-MMM-yy";
    odd.DateSeparator = u'x';
    EXPECT_TRUE(EntrySettings(odd).ShortDateFormat == u"dd-MM-yyyy");
    odd.ShortDateFormat.clear();
    EXPECT_TRUE(EntrySettings(odd).ShortDateFormat == u"MM-dd-yyyy");
}

// Texts as the native edit leaves them, the caret behind what was typed.
TEST(DateEntry, KeysRewriteTheText) {
    const TDateField yearFirst = Typed(YearFirst(), dfShort);
    const TDateField yearFirstTime = Typed(YearFirst(), dfLong);
    const TDateField dayFirst = Field(DayFirstWithDashes());
    const TDateField dayFirstPoints = Field(DayFirst());
    const TDateTime bound2010 = EncodeDate(2010, 6, 1);
    TDateField limited = yearFirst;
    limited.MaxLength = 10;
    const struct {
        const char* Name;
        const TDateField& Field;
        StringView Text;
        int Key, Caret;
        StringView Result;
        int Adjustment;
        TDateTime MinDate = 0;
    } rows[] = {
        {"first digit of all", yearFirst, u"2", u'2', 1, u"2000-01-01", 0},
        {"overwrites", yearFirst, u"20124-05-06", u'1', 3, u"2014-05-06", 0},
        {"overwrites before a separator", yearFirst, u"20243-05-06", u'4', 4, u"2024-05-06", 1},
        {"goes behind the separator", yearFirst, u"20247-05-06", u'7', 5, u"2024-75-06", 1},
        {"keypad", yearFirst, u"20124-05-06", 97, 3, u"2014-05-06", 0},
        {"one too many at the end", yearFirst, u"2024-05-067", u'7', 11, u"2024-05-06", 0},
        {"of several too many one is cut", yearFirst, u"2024-05-06789", u'9', 13, u"2024-05-0678", 0},
        {"backspace on the first digit", yearFirst, u"024-05-06", BackspaceKey, 0, u"0240-50-60", 0},
        {"backspace before the first digit", yearFirst, u"2024-05-06", BackspaceKey, 0, u"2024-05-06", 0},
        {"backspace", yearFirst, u"204-05-06", BackspaceKey, 2, u"2004-05-06", 0},
        {"backspace on a separator", yearFirst, u"202405-06", BackspaceKey, 4, u"2024-05-06", 1},
        {"backspace behind a separator fills no gap", yearFirst, u"2024-5-06", BackspaceKey, 5, u"2024-50-60", 1},
        {"backspace on the last digit", yearFirst, u"2024-05-2", BackspaceKey, 9, u"2024-05-20", 0},
        {"delete on the first digit", yearFirst, u"024-05-06", DeleteKey, 0, u"0024-05-06", -1},
        {"delete", yearFirst, u"204-05-06", DeleteKey, 2, u"2004-05-06", -1},
        {"delete on a separator", yearFirst, u"202405-06", DeleteKey, 4, u"2024-05-06", 1},
        {"other key", yearFirst, u"2024-05-06", u'x', 2, u"2024-05-06", -1},
        {"other key at a separator", yearFirst, u"2024-05-06", u'x', 4, u"2024-05-06", 1},
        {"no month and day 0", yearFirst, u"2024-00-00", u'x', 2, u"2024-01-01", -1},
        {"beyond the limit", limited, u"2024-071-15", u'0', 6, u"2024-01-01", 0},
        {"beyond the limit, at the end", limited, u"2024-05-067", u'7', 10, u"2024-05-06", 0},
        {"time", yearFirstTime, u"2024-05-06 132:30", u'3', 13, u"2024-05-06 13:30", 1},
        {"before the colon the rest moves up", yearFirstTime, u"2024-05-06 127:30", u'7', 14, u"2024-05-06 12:73", 1},
        {"date alone gets a time", yearFirstTime, u"2024-05-06", u'6', 10, u"2024-05-06 00:00", 1},
        {"no year, no bound", dayFirst, u"15-05-0000", u'x', 1, u"15-05-1900", -1},
        {"no year, bound", dayFirst, u"15-05-0000", u'x', 1, u"15-05-2010", -1, bound2010},
        {"no year but year first", yearFirst, u"0000-05-06", u'x', 1, u"0000-05-06", -1, bound2010},
        {"small years are taken for zeros", dayFirst, u"15-05-0024", u'x', 1, u"15-05-0124", -1},
        {"only the dash is looked for", dayFirstPoints, u"0.00.0000", u'x', 3, u"0.00.0000", -1},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.Name);
        String text(row.Text);
        EXPECT_EQ(zamienNaDate(text, row.Key, row.Caret, row.Field, row.MinDate), row.Adjustment);
        EXPECT_EQ(Utf8Encode(text), Utf8Encode(row.Result));
    }
}

/// What a single-line edit without limit does.
TEntryText NativeEdit(TEntryText state, int key) {
    const auto start = static_cast<std::size_t>(state.SelStart);
    if (state.SelLength > 0)
        state.Text.erase(start, static_cast<std::size_t>(state.SelLength));
    if (key >= u'0' && key <= u':')
        state.Text.insert(static_cast<std::size_t>(state.SelStart++), 1, static_cast<char16_t>(key));
    else if (state.SelLength == 0 && key == DeleteKey && start < state.Text.size())
        state.Text.erase(start, 1);
    else if (state.SelLength == 0 && key == BackspaceKey && start > 0)
        state.Text.erase(static_cast<std::size_t>(--state.SelStart), 1);
    state.SelLength = 0;
    return state;
}

/// Months and days of 0 become 1 where "-" stands before them.
String WithoutZeros(String text) {
    for (std::size_t at = text.find(u"-00"); at != String::npos; at = text.find(u"-00", at + 1))
        text[at + 2] = u'1';
    return text;
}

bool IsPlace(const String& text, int at) {
    return text[static_cast<std::size_t>(at)] >= u'0' && text[static_cast<std::size_t>(at)] <= u'9';
}

struct TMaskCase {
    TDateField Field;
    String Text;
};

std::vector<TMaskCase> EveryMask() {
    std::vector<TMaskCase> cases;
    for (const TFormatSettings& locale : All()) {
        for (const TDTDateFormat format : {dfShort, dfLong}) {
            const TDateField field = Typed(locale, format);
            cases.push_back({field, double_to_text(EncodeDateTime(2123, 11, 24, 13, 45, 0, 0), field)});
        }
    }
    return cases;
}

TEST(DateEntry, EveryKeyAtEveryCaretOfEveryMask) {
    for (const TMaskCase& mask : EveryMask()) {
        const int length = static_cast<int>(mask.Text.size());
        for (int caret = 0; caret <= length; ++caret) {
            SCOPED_TRACE(Utf8Encode(mask.Text) + " at " + std::to_string(caret));
            const TEntryText before{mask.Text, caret, 0};
            const auto press = [&](int key) {
                return RewriteTypedDate(before, NativeEdit(before, key), key, mask.Field);
            };

            int place = caret;
            while (place < length && !IsPlace(mask.Text, place))
                ++place;
            for (char16_t digit = u'0'; digit <= u'9'; ++digit) {
                String expected = mask.Text;
                int caretAfter = length;
                if (place < length) {
                    expected[static_cast<std::size_t>(place)] = digit;
                    caretAfter = place + (place + 1 < length && !IsPlace(mask.Text, place + 1) ? 2 : 1);
                }
                EXPECT_EQ(press(digit), (TEntryText{WithoutZeros(expected), caretAfter, 0})) << "digit " << int{digit};
            }

            String deleted = mask.Text;
            if (caret < length && IsPlace(mask.Text, caret))
                deleted[static_cast<std::size_t>(caret)] = u'0';
            const bool passes = caret < length && !IsPlace(mask.Text, caret);
            EXPECT_EQ(press(DeleteKey), (TEntryText{WithoutZeros(deleted), caret + (passes ? 1 : 0), 0}));

            String erased = mask.Text;
            if (caret == 1) {
                // The first digit goes, the others move up.
                String digits;
                for (int at = 1; at < length; ++at) {
                    if (IsPlace(mask.Text, at))
                        digits += mask.Text[static_cast<std::size_t>(at)];
                }
                digits += u'0';
                for (int at = 0, next = 0; at < length; ++at) {
                    if (IsPlace(mask.Text, at))
                        erased[static_cast<std::size_t>(at)] = digits[static_cast<std::size_t>(next++)];
                }
            } else if (caret > 0 && IsPlace(mask.Text, caret - 1)) {
                erased[static_cast<std::size_t>(caret - 1)] = u'0';
            }
            EXPECT_EQ(press(BackspaceKey), (TEntryText{WithoutZeros(erased), std::max(caret - 1, 0), 0}));
        }
    }
}

// The rewriting of the text alone, as it follows the native edit, gives the same wherever the caret is not at a
// separator; in front of the one of dates also for digits.
TEST(DateEntry, BothWaysAgreeAwayFromSeparators) {
    for (const TMaskCase& mask : EveryMask()) {
        const int length = static_cast<int>(mask.Text.size());
        for (int caret = 0; caret < length; ++caret) {
            const TEntryText before{mask.Text, caret, 0};
            const bool atDateSeparator =
                mask.Text[static_cast<std::size_t>(caret)] == mask.Field.Settings.DateSeparator;
            for (const int key : {int{u'7'}, DeleteKey, BackspaceKey}) {
                const int removed = key == BackspaceKey ? caret - 1 : caret;
                const bool isAway = removed >= 0 && IsPlace(mask.Text, removed) &&
                                    (key == u'7' || removed == 0 || IsPlace(mask.Text, removed - 1));
                if (!isAway && !(key == u'7' && atDateSeparator))
                    continue;
                SCOPED_TRACE(Utf8Encode(mask.Text) + " at " + std::to_string(caret) + " key " + std::to_string(key));
                TEntryText after = NativeEdit(before, key);
                const TEntryText rewritten = RewriteTypedDate(before, after, key, mask.Field);
                const int adjustment = zamienNaDate(after.Text, key, after.SelStart, mask.Field);
                EXPECT_EQ(Utf8Encode(after.Text), Utf8Encode(rewritten.Text));
                if (key == u'7') {
                    EXPECT_EQ(after.SelStart + adjustment, rewritten.SelStart);
                }
            }
        }
    }
}

TEST(DateEntry, SelectedDigitsBecomeZerosFirst) {
    const TDateField field = Typed(DayFirst(), dfLong);
    const StringView text = u"24.11.2123 13:45";
    const struct {
        int Start, Length, Key;
        StringView Result;
        int Caret;
    } rows[] = {
        {3, 2, DeleteKey, u"24.00.2123 13:45", 3},    {2, 5, BackspaceKey, u"24.00.0123 13:45", 2},
        {0, 2, BackspaceKey, u"00.11.2123 13:45", 0}, {3, 7, u'7', u"24.70.0000 13:45", 4},
        {5, 3, u'7', u"24.11.7023 13:45", 7},         {0, 16, u'7', u"70.00.0000 00:00", 1},
        {10, 1, DeleteKey, u"24.11.2123 13:45", 10},
    };
    for (const auto& row : rows) {
        const TEntryText before{String(text), row.Start, row.Length};
        const TEntryText result = RewriteTypedDate(before, NativeEdit(before, row.Key), row.Key, field);
        EXPECT_EQ(Utf8Encode(result.Text), Utf8Encode(row.Result)) << &row - rows;
        EXPECT_EQ(result.SelStart, row.Caret) << &row - rows;
    }
    const TEntryText all{String(text), 0, 16};
    EXPECT_EQ(RewriteTypedDate(all, NativeEdit(all, DeleteKey), DeleteKey, field), TEntryText{}) << "no date";
}

// A whole date typed into an empty field, and once more over itself, in every mask: without and with its separators.
TEST(DateEntry, ADateIsTypedDigitByDigit) {
    for (const TMaskCase& mask : EveryMask()) {
        for (const bool withSeparators : {false, true}) {
            TEntryText state;
            const auto type = [&](int key) {
                state = RewriteTypedDate(state, NativeEdit(state, key), key, mask.Field);
            };
            for (const TDateTime value :
                 {EncodeDateTime(2024, 2, 29, 18, 5, 0, 0), EncodeDateTime(1987, 10, 31, 9, 59, 0, 0)}) {
                const String expected = double_to_text(value, mask.Field);
                state.SelStart = 0;
                if (withSeparators)
                    type(SeparatorKey); // before the first digit it means nothing
                for (const char16_t unit : expected) {
                    if (unit >= u'0' && unit <= u'9')
                        type(unit);
                    else if (withSeparators && unit != u' ')
                        type(SeparatorKey);
                    EXPECT_EQ(state.Text.size(), expected.size());
                }
                EXPECT_EQ(Utf8Encode(state.Text), Utf8Encode(expected));
                EXPECT_EQ(state.SelStart, static_cast<int>(expected.size()));
            }
        }
    }
    constexpr int carets[] = {0, 1, 2, 5, 5, 5, 8, 8, 8, 9, 10};
    for (int caret = 0; caret < 11; ++caret) {
        const TEntryText before{u"2024-02-29", caret, 0};
        EXPECT_EQ(RewriteTypedDate(before, NativeEdit(before, SeparatorKey), SeparatorKey, Typed(YearFirst(), dfShort)),
                  (TEntryText{before.Text, carets[caret], 0}));
    }
}

TEST(DateEntry, KeyPressFilter) {
    const TDateField field = Typed(YearFirst(), dfLong);
    const struct {
        const char* Name;
        StringView Text;
        int Caret;
        bool UseMaskEdit;
        bool IsActive;
    } rows[] = {
        {"empty", u"", 0, false, true},
        {"date", u"2024-05-06", 10, false, false},
        {"date with mask", u"2024-05-06", 10, true, true},
        {"hours and minutes begun, caret at the end", u"2024-05-06 1230", 15, false, true},
        {"the same, caret inside", u"2024-05-06 1230", 3, false, false},
        {"five characters from the blank on", u"2024-05-06 12:3", 3, false, true},
        {"time complete", u"2024-05-06 12:30", 16, false, false},
        {"short", u" 1:", 3, false, false},
    };
    for (const auto& row : rows) {
        const TEntryText state{String(row.Text), row.Caret, 0};
        for (char16_t unit = 1; unit < 300; ++unit) {
            const bool isEntry = (unit >= u'0' && unit <= u':') || unit == 13 || unit == 8 || unit == u'-';
            const bool isCommand = unit == 1 || unit == 3 || unit == 22 || unit == 24 || unit == 26;
            EXPECT_EQ(AcceptsCharacter(unit, state, row.UseMaskEdit, field), !row.IsActive || isEntry || isCommand)
                << row.Name << ", character " << int{unit};
        }
    }
    TDateField picked = Field(YearFirst(), dfShort, dtvDay);
    picked.PicksOnly = true;
    for (const TDateField& closed :
         {Field(YearFirst(), dfShort, dtvMonth), Field(YearFirst(), dfShort, dtvYear), picked}) {
        const TEntryText state{double_to_text(EncodeDate(2024, 5, 6), closed), 0, 0};
        for (char16_t unit = 1; unit < 300; ++unit)
            EXPECT_EQ(AcceptsCharacter(unit, state, false, closed), unit == 1 || unit == 3) << int{unit};
    }
}

TEST(DateEntry, PastingIntoTheMask) {
    const struct {
        TDateField Field;
        StringView Clipboard;
        const char* Text;
    } rows[] = {
        {Typed(YearFirst(), dfShort), u" 2024-5-6\r\n", "2024-05-06"},
        {Typed(MonthFirst(), dfLong), u"5/6/2024 1230", "05/06/2024 12:30"},
        {Typed(YearFirst(), dfShort), u"noon", "refused"},
        {Typed(YearFirst(), dfShort), u"", "refused"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(Utf8Encode(PastedDate(row.Clipboard, row.Field).value_or(u"refused")), row.Text);
}

TEST(DateEntry, LeavingCompletesTheTime) {
    const TDateField field = Typed(YearFirst(), dfLong);
    const struct {
        StringView Text, Completed;
    } rows[] = {
        {u"2024-05-06 1230", u"2024-05-06 12:30"},
        {u"  2024-05-06 930 ", u"2024-05-06 9:30"},
        {u"2024-05-06 9", u"2024-05-06 9"},
        {u"2024-05-06 12", u"2024-05-06 :12"},
        {u"2024-05-06 12:30", u"2024-05-06 12:30"},
        {u"2024-05-06", u"2024-05-06"},
        {u"24-5-6 1230", u"24-5-6 1230"},
        {u"2024-05-06 1230 x", u"2024-05-06 12:30 x"},
        {u"one two three four", u"one two three four"},
        {u"", u""},
    };
    for (const auto& row : rows)
        EXPECT_EQ(Utf8Encode(CompletedOnExit(row.Text, field)), Utf8Encode(row.Completed));
    EXPECT_TRUE(CompletedOnExit(u" 2024-05-06 1230", Typed(YearFirst(), dfShort)) == u"2024-05-06 1230");
    EXPECT_TRUE(CompletedOnExit(u" październik 2024", Field(YearFirst(), dfLong, dtvMonth)) == u"październik 2024");
}

TEST(DateEntry, TheMessageShowsTheFormatInForce) {
    const TDateTime now = EncodeDateTime(2024, 10, 6, 12, 30, 0, 0);
    const TMessageText english = InvalidDateMessage(TMessageLanguage::English, now, Typed(MonthFirst(), dfLong));
    EXPECT_EQ(Utf8Encode(english.Text),
              "Invalid date format has been entered.\nExample of valid format [10/06/2024 12:30].");
    EXPECT_TRUE(english.Caption == u"Error");
    const TMessageText polish = InvalidDateMessage(TMessageLanguage::Polish, now, Field(YearFirst(), dfLong, dtvMonth));
    EXPECT_EQ(Utf8Encode(polish.Text),
              "Wprowadzono nieprawidłowy format daty.\nPrzykładowy prawidłowy format [październik 2024].");
    EXPECT_TRUE(polish.Caption == u"Błąd");
}

} // namespace
} // namespace ZOR
