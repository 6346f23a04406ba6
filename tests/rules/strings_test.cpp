#include "framework/system/casemapping.h"
#include "framework/system/strings.h"

#include <gtest/gtest.h>

#include <climits>
#include <numeric>

namespace framework {
namespace {

TEST(Utf8, SoundTextGoesThereAndBack) {
    const struct {
        const char* Name;
        String Utf16;
        std::string Utf8;
    } rows[] = {
        {"empty", u"", ""},
        {"every length of a sequence", u"A\u0142\u20AC\U0001F600", "A\xC5\x82\xE2\x82\xAC\xF0\x9F\x98\x80"},
        {"edges of each length", u"\u007F\u0080\u07FF\u0800\uFFFF\U00010000\U0010FFFF",
         "\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80\xEF\xBF\xBF\xF0\x90\x80\x80\xF4\x8F\xBF\xBF"},
        {"NUL inside", String(u"a\0b", 3), std::string("a\0b", 3)},
        {"neighbours of the surrogates", u"\uD7FF\uE000", "\xED\x9F\xBF\xEE\x80\x80"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.Name);
        EXPECT_EQ(Utf8Encode(row.Utf16), row.Utf8);
        EXPECT_TRUE(Utf8Decode(row.Utf8) == row.Utf16);
        EXPECT_EQ(Utf8SoundLength(row.Utf8), row.Utf8.size());
    }
}

TEST(Utf8, UnpairedSurrogatesBecomeReplacements) {
    const std::string replaced = "\xEF\xBF\xBD";
    EXPECT_EQ(Utf8Encode(String{0xD83D}), replaced);
    EXPECT_EQ(Utf8Encode(String{0xDE00}), replaced);
    EXPECT_EQ(Utf8Encode(String{0xDE00, 0xD83D}), replaced + replaced);
    EXPECT_EQ(Utf8Encode(String{0xD83D, 0xD83D, 0xDE00, u'x'}), replaced + "\xF0\x9F\x98\x80x");
}

TEST(Utf8, MalformedSequencesBecomeOneReplacementEach) {
    const struct {
        const char* Name;
        std::string Bytes;
        String Expected;
    } rows[] = {
        {"lone follower", "a\x80z", u"a\uFFFDz"},
        {"torn at the end", "a\xE2\x82", u"a\uFFFD"},
        {"torn before a sound character", "\xE2\x82z", u"\uFFFDz"},
        {"torn before another lead", "\xF0\x9F\x98\xC5\x82", u"\uFFFD\u0142"},
        {"overlong slash", "\xC0\xAF", u"\uFFFD\uFFFD"},
        {"overlong three bytes", "\xE0\x9F\xBF", u"\uFFFD\uFFFD\uFFFD"},
        {"encoded surrogate", "\xED\xA0\x80", u"\uFFFD\uFFFD\uFFFD"},
        {"beyond U+10FFFF", "\xF4\x90\x80\x80", u"\uFFFD\uFFFD\uFFFD\uFFFD"},
        {"bytes that never occur", "\xFE\xFF\xF8", u"\uFFFD\uFFFD\uFFFD"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.Name);
        EXPECT_TRUE(Utf8Decode(row.Bytes) == row.Expected) << Utf8Encode(Utf8Decode(row.Bytes));
        // Wherever it stands among the blocks that are looked at together.
        const std::size_t fault = row.Bytes.front() == 'a' ? 1 : 0;
        for (const std::size_t before : {0, 31, 32, 61})
            EXPECT_EQ(Utf8SoundLength(std::string(before, ' ') + row.Bytes), before + fault);
    }
}

TEST(Positions, AreOneBasedAndForgiving) {
    EXPECT_EQ(Pos(u"b", u"abcb"), 2);
    EXPECT_EQ(Pos(u"b", u"abcb", 3), 4);
    EXPECT_EQ(PosEx(u"b", u"abcb", 5), 0);
    EXPECT_EQ(Pos(u"b", u"abcb", 0), 0);
    EXPECT_EQ(Pos(u"", u"abc"), 0);
    EXPECT_EQ(Pos(u"abcd", u"abc"), 0);

    EXPECT_TRUE(Copy(u"abcde", 2, 3) == u"bcd");
    EXPECT_TRUE(Copy(u"abcde", -4, 2) == u"ab");
    EXPECT_TRUE(Copy(u"abcde", 4, INT_MAX) == u"de");
    EXPECT_TRUE(Copy(u"abcde", 6, 1).empty());
    EXPECT_TRUE(Copy(u"abcde", 2, -1).empty());

    const struct {
        const char* Name;
        int Index;
        int Count;
        String AfterDelete;
        String AfterInsert;
    } rows[] = {
        {"inside", 2, 2, u"ad", u"aXYbcd"},
        {"to the end and beyond", 3, INT_MAX, u"ab", u"abXYcd"},
        {"before the text", 0, 2, u"abcd", u"XYabcd"},
        {"behind the text", 5, 1, u"abcd", u"abcdXY"},
        {"far behind", 900, 1, u"abcd", u"abcdXY"},
        {"nothing", 1, 0, u"abcd", u"XYabcd"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.Name);
        String text = u"abcd";
        Delete(text, row.Index, row.Count);
        EXPECT_TRUE(text == row.AfterDelete) << Utf8Encode(text);
        text = u"abcd";
        Insert(u"XY", text, row.Index);
        EXPECT_TRUE(text == row.AfterInsert) << Utf8Encode(text);
    }
}

TEST(Trimming, RemovesControlCharactersButNoOtherSpaces) {
    EXPECT_TRUE(Trim(u" \t\r\n a b \u0001") == u"a b");
    EXPECT_TRUE(TrimLeft(u"  a ") == u"a ");
    EXPECT_TRUE(TrimRight(u" a  ") == u" a");
    EXPECT_TRUE(Trim(u"\u00A0a\u3000") == u"\u00A0a\u3000");
    EXPECT_TRUE(Trim(u" \t ").empty());
}

TEST(StringReplace, FollowsItsFlags) {
    const TReplaceFlags all = {rfReplaceAll};
    const TReplaceFlags both = TReplaceFlags() << rfReplaceAll << rfIgnoreCase;
    const struct {
        const char* Name;
        String Text, Old, New;
        TReplaceFlags Flags;
        String Expected;
    } rows[] = {
        {"first only", u"a.b.c", u".", u",", {}, u"a,b.c"},
        {"all", u"a.b.c", u".", u",", all, u"a,b,c"},
        {"result is not searched again", u"aa", u"a", u"aa", all, u"aaaa"},
        {"overlapping occurrences from the left", u"aaa", u"aa", u"b", all, u"ba"},
        {"deleting", u"1 234 567", u" ", u"", all, u"1234567"},
        {"empty pattern", u"abc", u"", u"x", all, u"abc"},
        {"case matters", u"aAa", u"A", u"x", all, u"axa"},
        {"case ignored, the rest kept", u"\u0141\u00F3D\u0179 lodz \u0142\u00D3d\u017A", u"\u0142\u00F3d\u017A", u"X",
         both, u"X lodz X"},
        {"case ignored, first only", u"xXx", u"X", u"y", {rfIgnoreCase}, u"yXx"},
        {"pattern longer than the text", u"ab", u"abc", u"x", both, u"ab"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.Name);
        const String result = StringReplace(row.Text, row.Old, row.New, row.Flags);
        EXPECT_TRUE(result == row.Expected) << Utf8Encode(result);
    }
}

// A megabyte with a hit in every second unit; moving the tail for each hit would take minutes here.
TEST(StringReplace, CopesWithManyHitsInALongText) {
    constexpr std::size_t pairs = 512 * 1024;
    String text;
    for (std::size_t i = 0; i < pairs; ++i)
        text += u"a,";
    const String result = StringReplace(text, u",", u"<>", {rfReplaceAll});
    ASSERT_EQ(result.size(), pairs * 3);
    EXPECT_TRUE(result.substr(result.size() - 6) == u"a<>a<>");
}

TEST(Case, MapsLettersOfManyScripts) {
    const struct {
        const char* Name;
        String Lower;
        String Upper;
    } pairs[] = {
        {"ascii", u"az09_`{", u"AZ09_`{"},
        {"polish", u"za\u017C\u00F3\u0142\u0107 g\u0119\u015Bl\u0105 ja\u017A\u0144",
         u"ZA\u017B\u00D3\u0141\u0106 G\u0118\u015AL\u0104 JA\u0179\u0143"},
        {"czech", u"\u011B\u0161\u010D\u0159\u017E\u00FD\u00E1\u00ED\u016F\u0165\u010F\u0148",
         u"\u011A\u0160\u010C\u0158\u017D\u00DD\u00C1\u00CD\u016E\u0164\u010E\u0147"},
        {"german, sharp s stays", u"\u00E4\u00F6\u00FC\u00DF", u"\u00C4\u00D6\u00DC\u00DF"},
        {"greek", u"\u03B1\u03C3\u03C9\u03AC\u03CE\u1F80", u"\u0391\u03A3\u03A9\u0386\u038F\u1F88"},
        {"cyrillic", u"\u0430\u044F\u0451\u0456\u0491\u04CF", u"\u0410\u042F\u0401\u0406\u0490\u04C0"},
        {"latin capitals behind their small letters", u"\u00FF\u0180\u019E", u"\u0178\u0243\u0220"},
        {"vietnamese", u"\u1EA1\u1EFF", u"\u1EA0\u1EFE"},
        {"signs that look like a pair", u"\u00D7\u00F7\u2019", u"\u00D7\u00F7\u2019"},
        {"beyond the basic plane", u"\U0001F600x", u"\U0001F600X"},
    };
    for (const auto& pair : pairs) {
        SCOPED_TRACE(pair.Name);
        EXPECT_TRUE(AnsiUpperCase(pair.Lower) == pair.Upper) << Utf8Encode(AnsiUpperCase(pair.Lower));
        EXPECT_TRUE(AnsiLowerCase(pair.Upper) == pair.Lower) << Utf8Encode(AnsiLowerCase(pair.Upper));
        EXPECT_TRUE(AnsiSameText(pair.Lower, pair.Upper));
    }
    EXPECT_TRUE(UpperCase(u"z\u017C") == u"Z\u017C");
    EXPECT_TRUE(LowerCase(u"Z\u017B") == u"z\u017B");
}

// Guards the tables as a whole: mapping twice changes nothing more, and letters of one pair fold together.
TEST(Case, TablesAgreeWithEachOther) {
    int letters = 0;
    String all(0x10000, u'\0');
    std::iota(all.begin(), all.end(), u'\0');
    const String allLower = AnsiLowerCase(all);
    for (int code = 0; code < 0x10000; ++code) {
        const auto unit = static_cast<char16_t>(code);
        const char16_t lower = ToLowerCase(unit);
        ASSERT_EQ(allLower[unit], lower) << code;
        const char16_t upper = ToUpperCase(unit);
        ASSERT_EQ(ToLowerCase(lower), lower) << code;
        ASSERT_EQ(ToUpperCase(upper), upper) << code;
        ASSERT_EQ(FoldCase(lower), FoldCase(unit)) << code;
        ASSERT_EQ(FoldCase(upper), FoldCase(unit)) << code;
        letters += lower != unit || upper != unit;
    }
    EXPECT_GT(letters, 1400);
}

TEST(Comparing, OrdersByUnitWithAndWithoutCase) {
    EXPECT_LT(CompareStr(u"B", u"a"), 0);
    EXPECT_GT(CompareText(u"B", u"a"), 0);
    EXPECT_LT(CompareText(u"a", u"ab"), 0);
    EXPECT_GT(CompareText(u"_", u"a"), 0) << "letters compare as capitals";
    EXPECT_EQ(CompareText(u"", u""), 0);
    EXPECT_TRUE(SameText(u"TButton", u"tbutton"));
    EXPECT_FALSE(SameText(u"\u0141", u"\u0142"));
    EXPECT_EQ(AnsiCompareText(u"\u0141\u00D3D\u0179", u"\u0142\u00F3d\u017A"), 0);
    EXPECT_TRUE(AnsiSameText(u"\u03C3", u"\u03C2")) << "medial and final sigma";
    EXPECT_FALSE(AnsiSameText(u"stra\u00DFe", u"strasse"));
}

TEST(Identifiers, MayHoldLettersBeyondAscii) {
    for (const StringView name : {u"Edit1", u"_x", u"Nag\u0142\u00F3wek", u"\u540D\u524D", u"a", u"\U00020000"})
        EXPECT_TRUE(IsValidIdent(name)) << Utf8Encode(name);
    for (const StringView name : {u"", u"1a", u"a b", u"a-b", u"a.b", u"\u00D7", u"a\u2026", u"\u00A0a"})
        EXPECT_FALSE(IsValidIdent(name)) << Utf8Encode(name);
    EXPECT_FALSE(IsValidIdent(String{u'a', 0xD83D}));
    EXPECT_TRUE(IsValidIdent(u"Form1.Edit1.Text", true));
    for (const StringView name : {u".a", u"a.", u"a..b", u"a.1"})
        EXPECT_FALSE(IsValidIdent(name, true)) << Utf8Encode(name);
}

TEST(Splitting, KeepsEmptyPieces) {
    using Pieces = std::vector<String>;
    EXPECT_TRUE(SplitString(u"a;;b,", u";,") == (Pieces{u"a", u"", u"b", u""}));
    EXPECT_TRUE(SplitString(u"", u";").empty());
    EXPECT_TRUE(SplitLines(u"a\r\nb\nc\rd\n\re") == (Pieces{u"a", u"b", u"c", u"d", u"", u"e"}));
    EXPECT_TRUE(SplitLines(u"a\r\n") == Pieces{u"a"});
    EXPECT_TRUE(SplitLines(u"\n") == Pieces{u""});
    EXPECT_TRUE(SplitLines(u"").empty());
}

TEST(SmallHelpers, Write) {
    EXPECT_TRUE(QuotedStr(u"it's") == u"'it''s'");
    EXPECT_TRUE(StringOfChar(u'x', -1).empty());
    EXPECT_TRUE(IntToHex(255, 4) == u"00FF");
    EXPECT_TRUE(IntToHex(-1) == u"FFFFFFFF");
    EXPECT_TRUE(IntToHex(std::int8_t{-1}, 1) == u"FF");
    EXPECT_TRUE(IntToHex(0, 0) == u"0");
    EXPECT_TRUE(IntToHex(std::int64_t{INT64_MIN}, 1) == u"8000000000000000");
    EXPECT_TRUE(AsciiToString("ab\xC4") == u"ab\uFFFD");
}

} // namespace
} // namespace framework
