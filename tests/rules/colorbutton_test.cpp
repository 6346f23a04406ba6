// The gradient button's shades and which state wins.

#include "buttons/Zorcolorbutton_rules.h"

#include <gtest/gtest.h>

using namespace ZOR;

TEST(ColorButton, ShadesStayColours) {
    struct TRow {
        TColor Color;
        TColor Darker;
        TColor Lighter;
    };
    for (const TRow& row : {TRow{0x000000, 0x000000, 0x0A0A0A},
                            {0x050505, 0x000000, 0x0F0F0F},
                            {0xF8F8F8, 0xEEEEEE, 0xFFFFFF},
                            {0xFFFFFF, 0xF5F5F5, 0xFFFFFF},
                            // Each channel by itself: nothing is carried into the next.
                            {0x00FF05, 0x00F500, 0x0AFF0F}}) {
        EXPECT_EQ(ShadedColor(row.Color, false), row.Darker) << std::hex << row.Color;
        EXPECT_EQ(ShadedColor(row.Color, true), row.Lighter) << std::hex << row.Color;
    }
}

TEST(ColorButton, DisabledGoesBeforePressedAndPressedBeforeHot) {
    const TColorButtonFace normal{0x404040, 0x202020, 0x0000FF};
    const TColorButtonFace disabled{0xF4F4F4, 0xF4F4F4, 0x808080};
    const TColorButtonFace pressed{0x363636, 0x161616, 0x0000FF};
    const TColorButtonFace hot{0x4A4A4A, 0x2A2A2A, 0x0000FF};
    struct TRow {
        TColorButtonState State;
        const TColorButtonFace& Face;
    };
    for (const TRow& row : {TRow{{}, normal},
                            {{false, false, true}, hot},
                            {{false, true, false}, pressed},
                            {{false, true, true}, pressed},
                            {{true, false, true}, disabled},
                            {{true, true, true}, disabled}})
        EXPECT_EQ(FaceInState(normal, row.State), row.Face);
}
