#include "framework/system/maskutils.h"

#include "framework/system/strings.h"

#include <gtest/gtest.h>

namespace framework {
namespace {

TFormatSettings German() {
    TFormatSettings settings;
    settings.DateSeparator = u'.';
    settings.TimeSeparator = u'-';
    return settings;
}

/// Places as a person would note them: their letter, small where they may stay empty, '#' for signs, "'x" for literals.
String Notation(const TParsedMask& mask) {
    String result;
    for (const TMaskPlace& place : mask.Places) {
        const StringView letters = place.Required ? u"'LAC0#" : u"'lac9#"; // in the order of TMaskPlaceKind
        result += letters[static_cast<std::size_t>(place.Kind)];
        if (place.IsLiteral())
            result += place.Literal;
        else if (place.Case != TMaskCase::Unchanged)
            result += place.Case == TMaskCase::Upper ? u'>' : u'<';
    }
    return result;
}

TEST(Mask, PlacesAndFields) {
    const struct {
        const char* What;
        StringView Mask;
        StringView Places;
        bool SaveLiterals = true;
        char16_t Blank = u'_';
        bool FromRight = false;
    } rows[] = {
        {"places of every kind", u"LlAaCc09#", u"LlAaCc09#"},
        {"a date", u"!99/99/0000;1;_", u"99'.99'.0000", true, u'_', true},
        {"a time in the user's separator", u"90:00;0", u"90'-00", false},
        {"a telephone number", u"(000)_000-0000;0;*", u"'(000')' 000'-0000", false, u'*'},
        {"escaped letters and separators", u"\\L\\/\\;\\\\\\!0", u"'L'/';'\\'!0"},
        {"letter cases, each until the next", u">L-a<L<>L>0", u"L>'-a>L<L0>"},
        {"a small letter before a capital one is no end of cases", u"<L>L", u"L<L>"},
        {"a blank of its own", u"00;1; ", u"00", true, u' '},
        {"a semicolon as blank", u"00;0;;", u"00", false, u';'},
        {"any second field but 0 keeps literals", u"00;x", u"00"},
        {"an empty second field", u"00;;*", u"00", true, u'*'},
        {"letters beyond ASCII are literals", u"\u017B0", u"'\u017B0"},
    };
    for (const auto& row : rows) {
        const TParsedMask mask = ParseMask(row.Mask, German());
        EXPECT_EQ(Utf8Encode(Notation(mask)), Utf8Encode(row.Places)) << row.What;
        EXPECT_EQ(mask.SaveLiterals, row.SaveLiterals) << row.What;
        EXPECT_EQ(mask.Blank, row.Blank) << row.What;
        EXPECT_EQ(mask.FromRight, row.FromRight) << row.What;
    }
}

TEST(Mask, MalformedMasksSayWhere) {
    const struct {
        StringView Mask;
        const char* Message;
    } rows[] = {
        {u"00\\", "Edit mask '00\\': nothing follows the last \\ (position 3)"},
        {u"00;10;_", "Edit mask '00;10;_': the second field is longer than one character (position 5)"},
        {u"00;1;__", "Edit mask '00;1;__': the third field is longer than one character (position 7)"},
        {u"00;1;_;", "Edit mask '00;1;_;': a mask has three fields (position 7)"},
        {u"00;;;;", "Edit mask '00;;;;': a mask has three fields (position 5)"},
        {u"it's;wrong", "Edit mask 'it''s;wrong': the second field is longer than one character (position 7)"},
    };
    for (const auto& row : rows) {
        try {
            ParseMask(row.Mask);
            ADD_FAILURE() << Utf8Encode(row.Mask) << " was taken";
        } catch (const EMaskError& error) {
            EXPECT_STREQ(error.what(), row.Message);
        }
    }
}

TEST(Mask, TextIsLaidIntoThePlaces) {
    const struct {
        StringView Mask;
        StringView Text;
        char16_t Blank;
        StringView Result;
    } rows[] = {
        {u"99/99/9999", u"24122026", u'0', u"24.12.2026"},
        {u"9999-99-99 99:99", u"", u'0', u"0000-00-00 00-00"},
        {u"!999.99", u"123", u'_', u"__1.23"},
        {u"!999", u"12345", u'_', u"123"},
        {u"\\A->LL<L;0;*", u"xyZ", u'*', u"A-XYz"},
        {u">c", u"\u017C", u' ', u"\u017B"}, // Polish z with dot
        {u"", u"abc", u'_', u""},
    };
    for (const auto& row : rows)
        EXPECT_EQ(Utf8Encode(MaskDoFormatText(row.Mask, row.Text, row.Blank, German())), Utf8Encode(row.Result))
            << Utf8Encode(row.Mask) << " with " << Utf8Encode(row.Text);
    EXPECT_THROW(MaskDoFormatText(u"9\\", u"1", u' '), EMaskError);
}

TEST(Mask, WhatAPlaceTakes) {
    const StringView samples = u"aZ\u0105\u017B\u00DF\u05D0\u4E2D" // letters of five scripts
                               u"5\u0665"                          // digits, an Arabic one
                               u"+- .\u00D7\u20AC\u3000\u2019\t\u007F\xD83D";
    const struct {
        StringView Mask;
        StringView Taken;
    } rows[] = {
        {u"L", u"aZ\u0105\u017B\u00DF\u05D0\u4E2D"},
        {u"a", u"aZ\u0105\u017B\u00DF\u05D0\u4E2D5"},
        {u"9", u"5"},
        {u"#", u"5+-"},
        {u"C", u"aZ\u0105\u017B\u00DF\u05D0\u4E2D5\u0665+- .\u00D7\u20AC\u3000\u2019"},
        {u"\\.", u"."},
    };
    for (const auto& row : rows) {
        const TParsedMask mask = ParseMask(row.Mask);
        String taken;
        for (const char16_t unit : samples) {
            if (mask.Places.front().Accepts(unit))
                taken += unit;
        }
        EXPECT_EQ(Utf8Encode(taken), Utf8Encode(row.Taken)) << Utf8Encode(row.Mask);
    }
}

} // namespace
} // namespace framework
