// Where popups open: every corner of every monitor, and popups that hardly fit.

#include "foundation/Popup_rules.h"

#include <gtest/gtest.h>

using namespace ZOR;

namespace {

constexpr TRect kScreen{0, 0, 1000, 700};
constexpr TRect kLeftMonitor{-1280, 200, 0, 1000};

struct TRow {
    const char* Name;
    TRect Field;
    TSize Popup;
    TRect Area;
    TPopupPlacing Placing;
    bool RightToLeft;
    TPoint Expected; // left upper corner
};

TEST(PopupPlace, StaysBesideTheFieldAndOnItsMonitor) {
    const TSize calendar{173, 158};
    const TSize list{300, 200};
    const TRow rows[] = {
        {"calendar below, flush right", {400, 100, 529, 121}, calendar, kScreen, CalendarPlacing, false, {356, 121}},
        {"calendar above", {400, 600, 529, 621}, calendar, kScreen, CalendarPlacing, false, {356, 442}},
        {"just fits below", {400, 521, 529, 542}, calendar, kScreen, CalendarPlacing, false, {356, 542}},
        {"one pixel too low", {400, 522, 529, 543}, calendar, kScreen, CalendarPlacing, false, {356, 364}},
        {"near the left edge", {10, 100, 100, 121}, calendar, kScreen, CalendarPlacing, false, {0, 121}},
        {"beyond the right edge", {950, 100, 1100, 121}, calendar, kScreen, CalendarPlacing, false, {827, 121}},
        {"right to left", {400, 100, 529, 121}, calendar, kScreen, CalendarPlacing, true, {400, 121}},
        {"on the left monitor", {-1270, 300, -1200, 321}, calendar, kLeftMonitor, CalendarPlacing, false, {-1280, 321}},
        {"low on the left monitor",
         {-700, 900, -571, 921},
         calendar,
         kLeftMonitor,
         CalendarPlacing,
         false,
         {-744, 742}},
        {"list below", {400, 100, 529, 121}, list, kScreen, ChoiceListPlacing, false, {398, 119}},
        {"list above does not overlap", {400, 600, 529, 621}, list, kScreen, ChoiceListPlacing, false, {398, 400}},
        {"the overlap does not decide", {400, 480, 529, 501}, list, kScreen, ChoiceListPlacing, false, {398, 280}},
        {"list at the left edge", {1, 100, 129, 121}, list, kScreen, ChoiceListPlacing, false, {0, 119}},
        {"list flush right", {850, 100, 979, 121}, list, kScreen, ChoiceListPlacing, false, {677, 119}},
        {"list that fits with neither", {150, 100, 260, 121}, {900, 200}, kScreen, ChoiceListPlacing, false, {10, 119}},
        {"more room above", {400, 500, 529, 521}, {100, 600}, kScreen, CalendarPlacing, false, {429, 0}},
        {"more room below", {400, 150, 529, 171}, {100, 600}, kScreen, CalendarPlacing, false, {429, 100}},
        {"larger than the screen", {400, 300, 529, 321}, {2000, 900}, kScreen, ChoiceListPlacing, false, {0, 0}},
        {"field above the screen", {400, -90, 529, -69}, calendar, kScreen, CalendarPlacing, false, {356, 0}},
        {"field below the screen", {400, 900, 529, 921}, calendar, kScreen, CalendarPlacing, false, {356, 542}},
    };
    for (const TRow& row : rows) {
        SCOPED_TRACE(row.Name);
        const TRect place = PopupPlace(row.Field, row.Popup, row.Area, row.Placing, row.RightToLeft);
        EXPECT_EQ(place.Left, row.Expected.X);
        EXPECT_EQ(place.Top, row.Expected.Y);
        EXPECT_EQ(place.Width(), row.Popup.Width);
        EXPECT_EQ(place.Height(), row.Popup.Height);
    }
}

} // namespace
