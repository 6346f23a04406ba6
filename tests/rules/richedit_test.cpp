#include "framework/windows/richedit_rules.h"

#include <gtest/gtest.h>

namespace framework {
namespace {

TEST(Rtf, BecomesReadableEverywhere) {
    const struct {
        const char* What;
        const char* Utf8;
        const char* Rtf;
    } rows[] = {
        {"the window's own form", "{\\urtf1\\deff0 a}", "{\\rtf1\\ansi\\uc1\\deff0 a}"},
        {"without a version", "{\\urtf\\deff0 a}", "{\\rtf1\\ansi\\uc1\\deff0 a}"},
        {"the usual form stays", "{\\rtf1\\ansi a\\'b9}", "{\\rtf1\\ansi a\\'b9}"},
        {"letters", "{\\urtf1 z\xC5\xBC\xC4\x85 x}", "{\\rtf1\\ansi\\uc1 z\\u380?\\u261? x}"},
        {"beyond 32767 and beyond the first plane", "\xE8\x80\x80\xF0\x9F\x98\x80", "\\u-32768?\\u-10179?\\u-8704?"},
        {"torn bytes", "a\xC5", "a\\u-3?"},
        {"nothing", "", ""},
    };
    for (const auto& row : rows)
        EXPECT_EQ(RtfFromUtf8(row.Utf8), row.Rtf) << row.What;
    EXPECT_TRUE(IsRtf("{\\rtf1 x}"));
    EXPECT_FALSE(IsRtf("{\\rt"));
    EXPECT_FALSE(IsRtf(" {\\rtf1 x}"));
}

} // namespace
} // namespace framework
