#include "foundation/Hintinside_rules.h"
#include "foundation/Zorutils_rules.h"

#include <gtest/gtest.h>

namespace ZOR {
namespace {

constexpr TFrameColors ownColors{0x010203, static_cast<TColor>(0xFF00000F), 0x070809};

TEST(Frame, StateAndBorderDecidePaintingAndColour) {
    const struct {
        const char* Name;
        StringView State;
        bool Ctl3D;
        TFrameColors Colors;
        bool Paint;
        TColor Color;
    } rows[] = {
        {"nothing asked, sunken border: left to the framework", u"wNone", true, {}, false, 0x808080},
        {"nothing asked, flat border: grey", u"wNone", false, {}, true, 0x808080},
        {"required, sunken", u"wRequired", true, {}, true, 0xDD9746},
        {"required, flat", u"wRequired", false, {}, true, 0xDD9746},
        {"recommended", u"wRecommended", true, {}, true, 0x46C265},
        {"error", u"wError", true, {}, true, 0x0000FF},
        {"own colours for required", u"wRequired", true, ownColors, true, 0x010203},
        {"a system colour is passed on unresolved", u"wRecommended", true, ownColors, true,
         static_cast<TColor>(0xFF00000F)},
        {"own colours for error", u"wError", true, ownColors, true, 0x070809},
        {"grey is no property", u"wNone", false, ownColors, true, 0x808080},
        {"a name of somebody else's states", u"sBusy", true, {}, true, 0x808080},
        {"names are exact", u"wnone", true, {}, true, 0x808080},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.Name);
        const TFrameDecision decision = DecideFrame({row.State, row.Ctl3D, row.Colors, {121, 21}, true});
        EXPECT_EQ(decision.Paint, row.Paint);
        EXPECT_EQ(decision.Color, row.Color);
        EXPECT_EQ(decision.Outer, row.Paint ? (TRect{0, 0, 121, 21}) : TRect{});
    }
}

TEST(Frame, RingsNestAndDegenerateOnesDrawNothing) {
    const struct {
        const char* Name;
        TSize Size;
        bool ClearInnerRing;
        TRect Outer;
        TRect Inner;
    } rows[] = {
        {"both rings", {121, 21}, true, {0, 0, 121, 21}, {1, 1, 120, 20}},
        {"outer ring only", {121, 21}, false, {0, 0, 121, 21}, {}},
        {"smallest inner ring", {3, 3}, true, {0, 0, 3, 3}, {1, 1, 2, 2}},
        {"two high: no room inside", {121, 2}, true, {0, 0, 121, 2}, {}},
        {"one high: an inverted ring would overdraw the outer one", {121, 1}, true, {0, 0, 121, 1}, {}},
        {"one wide", {1, 21}, true, {0, 0, 1, 21}, {}},
        {"no height", {121, 0}, true, {}, {}},
        {"negative width", {-5, 21}, true, {}, {}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.Name);
        const TFrameDecision decision = DecideFrame({u"wRequired", true, {}, row.Size, row.ClearInnerRing});
        EXPECT_TRUE(decision.Paint);
        EXPECT_EQ(decision.Outer, row.Outer);
        EXPECT_EQ(decision.Inner, row.Inner);
    }
}

TEST(HintInside, TheOwnHintComesBeforeTheHint) {
    const struct {
        const char* Name;
        THintInside Field;
        StringView Text;
    } rows[] = {
        {"own hint alone", {true, true, true, u"street", u""}, u"street"},
        {"own hint before the hint", {true, true, true, u"street", u"abc"}, u"street"},
        {"hint where there is no own one", {true, true, true, u"", u"abc"}, u"abc"},
        {"neither", {true, true, true, u"", u""}, u""},
        {"focused", {false, true, true, u"street", u"abc"}, u""},
        {"switched off", {true, false, true, u"street", u"abc"}, u""},
        {"filled in", {true, true, false, u"street", u"abc"}, u""},
    };
    for (const auto& row : rows)
        EXPECT_TRUE(HintInsideText(row.Field) == row.Text) << row.Name;
}

TEST(HintInside, RectanglesShrinkToNothing) {
    const struct {
        const char* Name;
        TRect Client;
        THintInsidePlace Place;
    } rows[] = {
        {"an edit", {0, 0, 117, 17}, {{1, 1, 116, 16}, {2, 2, 115, 15}}},
        {"room for the background only", {0, 0, 117, 4}, {{1, 1, 116, 3}, {}}},
        {"no room at all", {0, 0, 2, 17}, {{}, {}}},
        {"not sized yet", {0, 0, 0, 0}, {{}, {}}},
    };
    for (const auto& row : rows)
        EXPECT_EQ(HintInsidePlace(row.Client), row.Place) << row.Name;
}

} // namespace
} // namespace ZOR
