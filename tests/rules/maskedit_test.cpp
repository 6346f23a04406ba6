#include "framework/windows/maskedit_rules.h"
#include "framework/windows/scrollbox_rules.h"

#include "framework/system/strings.h"

#include <gtest/gtest.h>

namespace framework {
namespace {

/// A field as "12|3|_" with its selection between bars; one bar is a caret.
TMaskEntry Parse(String shown) {
    TMaskEntry entry;
    entry.Start = Pos(u"|", shown) - 1;
    Delete(shown, entry.Start + 1, 1);
    const int second = Pos(u"|", shown);
    entry.End = second == 0 ? entry.Start : second - 1;
    if (second > 0)
        Delete(shown, second, 1);
    entry.Text = shown;
    return entry;
}

std::string Show(const TMaskEntry& entry) {
    String shown = entry.Text;
    if (entry.End > entry.Start)
        Insert(u"|", shown, entry.End + 1);
    Insert(u"|", shown, entry.Start + 1);
    return Utf8Encode(shown);
}

/// Plays actions: < backspace, x delete, h home, "..." a paste, any other character is typed.
TMaskEntry Play(const TParsedMask& mask, TMaskEntry entry, StringView actions) {
    for (std::size_t i = 0; i < actions.size(); ++i) {
        switch (actions[i]) {
        case u'<':
            BackspaceInMask(mask, entry);
            break;
        case u'x':
            DeleteInMask(mask, entry);
            break;
        case u'h':
            MoveToPlace(mask, entry, 0);
            break;
        case u'"': {
            const std::size_t end = actions.find(u'"', i + 1);
            PasteIntoMask(mask, entry, actions.substr(i + 1, end - i - 1));
            i = end;
            break;
        }
        default:
            TypeIntoMask(mask, entry, actions[i]);
        }
    }
    return entry;
}

TEST(MaskEntry, TypingDeletingAndPasting) {
    const struct {
        const char* What;
        StringView Mask;
        StringView Before;
        StringView Actions;
        const char* After;
    } rows[] = {
        {"the caret jumps over literals", u"99-99", u"|_|_-__", u"123", "12-3|_|"},
        {"a full field takes no more", u"99-99", u"|_|_-__", u"12345", "12-34|"},
        {"a literal leads behind itself", u"99-99", u"1|_|-__", u"-", "1_-|_|_"},
        {"typing over a selection empties it", u"99-99", u"|12-34|", u"5", "5|_|-__"},
        {"a letter case of the place", u">ll<ll", u"|_|___", u"aBcD", "ABcd|"},
        {"a refused character keeps the selection's text", u"99-99", u"|12-34|", u"z", "|12-34|"},
        {"backspace goes over literals", u"99-99", u"12-|3|4", u"<", "1|_|-34"},
        {"backspace at the start", u"(99)", u"(|1|2)", u"<", "(|1|2)"},
        {"backspace empties a selection", u"99-99", u"1|2-3|4", u"<", "1|_|-_4"},
        {"delete stays where it is", u"99-99", u"1|2|-34", u"xx", "1|_|-34"},
        {"delete at the end", u"99-99", u"12-34|", u"x", "12-34|"},
        {"a date with its separators", u"99-99-9999", u"|_|_-__-____", u"\"1-2-2024\"", "1_-2_-2024|"},
        {"digits alone", u"99-99-9999", u"|_|_-__-____", u"\"01022024\"", "01-02-2024|"},
        {"other separators are left out", u"99-99-9999", u"|_|_-__-____", u"\"01.02.2024\"", "01-02-2024|"},
        {"longer than the mask", u"99-99", u"|_|_-__", u"\"123456789\"", "12-34|"},
        {"a paste into the middle", u"99-99", u"1|2|-34", u"\"98\"", "19-8|4|"},
        {"a paste over a selection", u"99-99", u"|12-34|", u"\"5\"", "5|_|-__"},
        {"nothing of it fits", u"99-99", u"|_|_-__", u"\"abc\"", "|_|_-__"},
        {"a telephone number with everything", u"(000) 000-0000", u"(|_|__) ___-____", u"\"(555) 123-4567\"",
         "(555) 123-4567|"},
        {"a country code of literal digits", u"+48 000", u"+48 |_|__", u"\"+48 555\"", "+48 555|"},
        {"the same left out", u"+48 000", u"+48 |_|__", u"\"485\"", "+48 485|"},
        {"a part of the literals", u"(000) 000", u"(|_|__) ___", u"\"555)12\"", "(555) 12|_|"},
        {"a mask of literals alone", u"\\a-b", u"|a-b|", u"x1<\"q\"", "a-b|"},
        {"an empty mask", u"", u"|", u"1<x\"q\"h", "|"},
        {"blank as a digit", u"00;1;0", u"|00|", u"7<", "|0|0"},
    };
    for (const auto& row : rows) {
        const TParsedMask mask = ParseMask(row.Mask);
        EXPECT_EQ(Show(Play(mask, Parse(String(row.Before)), row.Actions)), row.After) << row.What;
    }
}

TEST(MaskEntry, ValuesGoInAndOut) {
    const struct {
        const char* What;
        StringView Mask;
        StringView Value;
        StringView Shown;
        StringView Again;
        bool Empty = false;
    } rows[] = {
        {"blanks are spaces", u"99-99;1;_", u"1 -3 ", u"1_-3_", u"1 -3 "},
        {"nothing entered, literals saved", u"99-99;1;_", u"", u"__-__", u"  -  ", true},
        {"nothing entered, none saved", u"99-99;0;_", u"", u"__-__", u"", true},
        {"a hole in the middle", u"99-99;0;_", u"1 3", u"1_-3_", u"1 3"},
        {"short, from the right", u"!99-99;0;_", u"123", u"_1-23", u"123"},
        {"too long", u"99-99;0;_", u"123456", u"12-34", u"1234"},
        {"what no place takes is left out", u"99-99;0;_", u"1x3", u"1_-3_", u"1 3"},
        {"a foreign layout is fitted", u"99-99;1;_", u"1234", u"12-34", u"12-34"},
        {"another separator, too", u"99-99;1;_", u"12/34", u"12-34", u"12-34"},
        {"capitals", u">LL;0", u"ab", u"AB", u"AB"},
        {"spaces in a text of any kind", u"cccc;0;_", u"a b", u"a b_", u"a b"},
        {"zeros as blanks are digits", u"00-00;0;0", u"12", u"12-00", u"1200"},
    };
    for (const auto& row : rows) {
        const TParsedMask mask = ParseMask(row.Mask);
        const String shown = MaskTextFromValue(mask, row.Value);
        EXPECT_EQ(Utf8Encode(shown), Utf8Encode(row.Shown)) << row.What;
        EXPECT_EQ(Utf8Encode(ValueFromMaskText(mask, shown)), Utf8Encode(row.Again)) << row.What;
        EXPECT_EQ(MaskTextFromValue(mask, row.Again), shown) << row.What << ": the value does not come back";
        EXPECT_EQ(IsMaskTextEmpty(mask, shown), row.Empty) << row.What;
    }
}

TEST(MaskEntry, RequiredPlaces) {
    const struct {
        StringView Mask;
        StringView Shown;
        int Missing;
    } rows[] = {
        {u"00-99", u"12-__", -1}, {u"00-99", u"1_-__", 1}, {u"00-99", u"__-34", 0}, {u"##", u"__", -1},
        {u"LAC0", u"xy__", 2},    {u"00;1;0", u"00", -1},  {u"CC; ; ", u"  ", 0},   {u"", u"", -1},
    };
    for (const auto& row : rows)
        EXPECT_EQ(FirstMissingPlace(ParseMask(row.Mask), row.Shown), row.Missing) << Utf8Encode(row.Shown);
}

TEST(ScrollRules, LargeThingsShowTheirStartAndTheWheelForgetsTheOtherWay) {
    EXPECT_EQ(ScrollToShow(40, 20, 150, 100), 60);
    TWheelSteps wheel;
    EXPECT_EQ(wheel.Add(-120, 3), -3);
    EXPECT_EQ(wheel.Add(30, 1), 0);
    EXPECT_EQ(wheel.Add(-119, 1), 0); // the 30 are forgotten
    EXPECT_EQ(wheel.Add(-1, 1), -1);
}

} // namespace
} // namespace framework
