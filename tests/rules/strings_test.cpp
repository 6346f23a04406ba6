#include "framework/system/strings.h"

#include <gtest/gtest.h>

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
    }
}

} // namespace
} // namespace framework
