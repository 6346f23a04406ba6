#include "controls/Extrasigns_rules.h"
#include "foundation/Gradient_rules.h"

#include "framework/system/strings.h"

#include <gtest/gtest.h>

namespace ZOR {
namespace {

TEST(ExtraSigns, TableAndShift) {
    const std::vector<KEYDEF> keys = ExtraSignKeys(ExtraSignsKeySize);
    String lower;
    String upper;
    for (const KEYDEF& key : keys) {
        lower += KeySign(key, false);
        upper += KeySign(key, true);
    }
    EXPECT_EQ(Utf8Encode(lower), "áäčďěéíĺľňöôřŕšťúüůýžß");
    EXPECT_EQ(Utf8Encode(upper), "ÁÄČĎĚÉÍĹĽŇÖÔŘŔŠŤÚÜŮÝŽß");
}

TEST(ExtraSigns, SizeOfThePopup) {
    const struct {
        int Keys;
        int KeySize;
        TSize Size;
    } rows[] = {
        {22, 24, {144, 96}}, {1, 24, {144, 24}},  {6, 24, {144, 24}},   {7, 24, {144, 48}},
        {11, 24, {144, 48}}, {12, 24, {144, 72}}, {22, 36, {216, 144}},
    };
    for (const auto& row : rows)
        EXPECT_EQ(ExtraSignsSize(row.Keys, row.KeySize), row.Size) << row.Keys << " keys of " << row.KeySize;
    EXPECT_EQ(ScaledExtraSignsKeySize(96), 24);
    EXPECT_EQ(ScaledExtraSignsKeySize(120), 30);
    EXPECT_EQ(ScaledExtraSignsKeySize(110), 28); // 27.5
    EXPECT_EQ(ScaledExtraSignsKeySize(192), 48);
}

TEST(ExtraSigns, EveryPointOfAKeyHitsIt) {
    const std::vector<KEYDEF> keys = ExtraSignKeys(24);
    const struct {
        const char* Name;
        TPoint Point;
        int Key; // from 1, 0 for none
    } rows[] = {
        {"first corner", {0, 0}, 1},
        {"last pixel of the first key", {23, 23}, 1},
        {"first pixel of its right neighbour", {24, 23}, 2},
        {"first pixel below", {23, 24}, 7},
        {"end of the first row", {143, 0}, 6},
        {"last key", {95, 95}, 22},
        {"free room behind the last key", {96, 95}, 0},
        {"right of the popup", {144, 0}, 0},
        {"above it", {5, -1}, 0},
    };
    for (const auto& row : rows) {
        const KEYDEF* key = KeyAt(keys, row.Point);
        EXPECT_EQ(key ? key - keys.data() + 1 : 0, row.Key) << row.Name;
    }
}

TEST(ExtraSigns, InsertionAtTheStartOfTheSelection) {
    const String emoji = u"x\U0001F600y";
    const struct {
        const char* Name;
        String Text;
        std::size_t Start;
        int Limit;
        String Expected; // empty: refused
        std::size_t Caret;
    } rows[] = {
        {"caret at the end", u"abc", 3, 0, u"abc\u010D", 4},
        {"caret at the start", u"abc", 0, 0, u"\u010Dabc", 1},
        {"caret inside", u"abc", 2, 0, u"ab\u010Dc", 3},
        {"caret beyond the text", u"abc", 99, 0, u"abc\u010D", 4},
        {"empty field", u"", 0, 0, u"\u010D", 1},
        {"full field", u"abcde", 2, 5, u"", 0},
        {"overfull field", u"abcdef", 2, 5, u"", 0},
        {"room for one", u"abcd", 4, 5, u"abcd\u010D", 5},
        {"a negative limit is none", u"abcd", 4, -1, u"abcd\u010D", 5},
        {"line ends are text", u"a\r\nb", 3, 0, u"a\r\n\u010Db", 4},
        {"before a surrogate pair", emoji, 1, 0, u"x\u010D\U0001F600y", 2},
        {"within a surrogate pair", emoji, 2, 0, u"x\u010D\U0001F600y", 2},
        {"behind a surrogate pair", emoji, 3, 0, u"x\U0001F600\u010Dy", 4},
        {"a lone surrogate is no pair", String{u'x', 0xDE00, u'y'}, 1, 0, String{u'x', 0x010D, 0xDE00, u'y'}, 2},
        {"a text that ends in half a pair", String{u'x', 0xD83D}, 2, 0, String{u'x', 0xD83D, 0x010D}, 3},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.Name);
        const auto insertion = InsertSign(row.Text, row.Start, row.Limit, u'\u010D');
        ASSERT_EQ(insertion.has_value(), !row.Expected.empty());
        if (!insertion)
            continue;
        EXPECT_TRUE(insertion->Text == row.Expected) << Utf8Encode(insertion->Text);
        EXPECT_EQ(insertion->Caret, row.Caret);
    }
}

TEST(Gradient, BandsCoverTheAreaWithoutGapOrOverlap) {
    for (TGradientAxis axis : {TGradientAxis::Vertical, TGradientAxis::Horizontal}) {
        for (const TRect area : {TRect{0, 0, 144, 96}, TRect{-7, 5, 1013, 811}, TRect{3, 3, 258, 258}, TRect{}}) {
            const bool vertical = axis == TGradientAxis::Vertical;
            int reached = vertical ? area.Top : area.Left;
            for (int i = 0; i < GradientBandCount; ++i) {
                const TRect band = GradientBand(area, 0, 0xFFFFFF, axis, i).Rect;
                EXPECT_EQ(vertical ? band.Top : band.Left, reached) << i;
                EXPECT_EQ(vertical ? band.Left : band.Top, vertical ? area.Left : area.Top);
                EXPECT_EQ(vertical ? band.Right : band.Bottom, vertical ? area.Right : area.Bottom);
                reached = vertical ? band.Bottom : band.Right;
            }
            EXPECT_EQ(reached, vertical ? area.Bottom : area.Right);
        }
    }
    // An extent whose product with the number of bands exceeds 32 bits.
    const TRect huge{0, 0, 10, 2'000'000'000};
    EXPECT_EQ(GradientBand(huge, 0, 0, TGradientAxis::Vertical, 254).Rect.Bottom, huge.Bottom);
}

TEST(Gradient, ColoursAreTheWholeSumCut) {
    const struct {
        const char* Name;
        TColor Start;
        TColor End;
        int Index;
        TColor Color;
    } rows[] = {
        {"starts with the start", 0x6B696B, 0x102030, 0, 0x6B696B},
        {"a falling channel falls at once", 0x00000A, 0x000000, 1, 0x000009},
        {"a rising channel waits", 0x000000, 0x00000A, 1, 0x000000},
        {"middle", 0x000000, 0xFFFFFF, 127, 0x7F7F7F},
        {"one step short of the end", 0x000000, 0xFFFFFF, 254, 0xFEFEFE},
        {"short of the end downwards", 0x00000A, 0x000000, 254, 0x000000},
        {"channels are apart", 0xFF0080, 0x00FF80, 51, 0xCC3380},
    };
    for (const auto& row : rows)
        EXPECT_EQ(GradientBand({}, row.Start, row.End, TGradientAxis::Vertical, row.Index).Color, row.Color)
            << row.Name;
}

} // namespace
} // namespace ZOR
