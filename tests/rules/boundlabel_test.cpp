#include "foundation/Zorboundlabel_rules.h"

#include <gtest/gtest.h>

namespace ZOR {
namespace {

TEST(BoundLabel, PlaceAndAlignmentOfEveryLayout) {
    const TRect control = Bounds(100, 20, 121, 21);
    const struct {
        TCaptionLayout Layout;
        StringView Name;
        TPoint Place; // of a label 40 x 13, 8 pixels away
        TAlignment Alignment;
    } rows[] = {
        {clLeft, u"clLeft", {52, 23}, taRightJustify},
        {clTopLeft, u"clTopLeft", {100, -1}, taLeftJustify},
        {clTopCenter, u"clTopCenter", {140, -1}, taCenter},
        {clTopRight, u"clTopRight", {181, -1}, taRightJustify},
        {clLeftTop, u"clLeftTop", {48, 23}, taRightJustify},
        {clBottomLeft, u"clBottomLeft", {100, 49}, taLeftJustify},
        {clBottomCenter, u"clBottomCenter", {140, 49}, taCenter},
        {clBottomRight, u"clBottomRight", {181, 49}, taRightJustify},
        {clRight, u"clRight", {229, 23}, taLeftJustify},
        {clRightTop, u"clRightTop", {229, 23}, taLeftJustify},
    };
    int ordinal = 0;
    for (const auto& row : rows) {
        SCOPED_TRACE(ordinal);
        EXPECT_EQ(row.Layout, ordinal);
        EXPECT_TRUE(CaptionLayoutNames[static_cast<std::size_t>(ordinal)] == row.Name);
        EXPECT_EQ(LabelPlace(control, {40, 13}, 8, row.Layout), row.Place);
        EXPECT_EQ(LabelAlignment(row.Layout), row.Alignment);
        ++ordinal;
    }
}

TEST(BoundLabel, HalvesAreCutTowardsZero) {
    // A label larger than its control by an odd number of pixels: -15 / 2 is -7, not -8.
    const TRect control = Bounds(100, 200, 25, 20);
    EXPECT_EQ(LabelPlace(control, {40, 35}, 0, clTopCenter), (TPoint{93, 165}));
    EXPECT_EQ(LabelPlace(control, {40, 35}, 0, clBottomCenter), (TPoint{93, 220}));
    EXPECT_EQ(LabelPlace(control, {40, 35}, 0, clLeft), (TPoint{60, 192}));
    EXPECT_EQ(LabelPlace(control, {40, 35}, 0, clRight), (TPoint{125, 192}));
}

TEST(BoundLabel, TopLayoutsIgnoreTheHeights) {
    // A tall control, unlike the edit above, tells "near the top" from "centred".
    const TRect memo = Bounds(10, 20, 50, 101);
    EXPECT_EQ(LabelPlace(memo, {40, 13}, -2, clLeftTop), (TPoint{-32, 23}));
    EXPECT_EQ(LabelPlace(memo, {40, 13}, -2, clRightTop), (TPoint{58, 23}));
    EXPECT_EQ(LabelPlace(memo, {40, 13}, -2, clRight), (TPoint{58, 63}));
}

} // namespace
} // namespace ZOR
