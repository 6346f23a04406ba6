#include "gallery/pagearea_rules.h"

#include <gtest/gtest.h>

namespace gallery {
namespace {

constexpr TSize kBars{17, 15};

TEST(PageArea, GivesAPageTheRoomItWasDesignedFor) {
    const struct {
        const char* Name;
        TSize Area;
        TPageLayout Expected;
    } rows[] = {
        {"room to spare", {500, 400}, {{500, 400}, {500, 400}, {0, 0}}},
        {"just fits", {300, 200}, {{300, 200}, {300, 200}, {0, 0}}},
        {"too low", {317, 199}, {{300, 199}, {300, 200}, {0, 1}}},
        {"too low, and its bar makes it too narrow", {316, 199}, {{299, 184}, {300, 200}, {1, 16}}},
        {"too narrow, and its bar makes it too low", {299, 214}, {{282, 199}, {300, 200}, {18, 1}}},
        {"too narrow alone", {299, 215}, {{299, 200}, {300, 200}, {1, 0}}},
        {"no room at all", {10, 5}, {{0, 0}, {300, 200}, {300, 200}}},
    };
    for (const auto& row : rows)
        EXPECT_EQ(LayOutPage(row.Area, {300, 200}, kBars), row.Expected) << row.Name;
}

TEST(PageArea, ScrollsNoFurtherThanNeeded) {
    const TPageLayout layout{{100, 50}, {300, 200}, {200, 150}};
    const struct {
        const char* Name;
        TRect Control;
        TPoint Before;
        TPoint After;
    } rows[] = {
        {"in view", Bounds(20, 30, 80, 20), {20, 10}, {20, 10}},
        {"below and to the right", Bounds(150, 90, 50, 20), {0, 0}, {100, 60}},
        {"above and to the left", Bounds(30, 40, 20, 10), {120, 90}, {30, 40}},
        {"larger than the view", Bounds(60, 70, 150, 90), {0, 0}, {60, 70}},
        {"at the very end", Bounds(290, 190, 30, 30), {0, 0}, {200, 150}},
    };
    for (const auto& row : rows)
        EXPECT_EQ(ScrollToShow(row.Control, row.Before, layout), row.After) << row.Name;
}

} // namespace
} // namespace gallery
