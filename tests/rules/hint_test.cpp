// What a hint says and where it goes.

#include "framework/windows/hint_rules.h"

#include <gtest/gtest.h>

using namespace framework;

namespace {

TEST(HintText, IsSplitAtTheFirstBar) {
    struct TRow {
        const char16_t* Hint;
        const char16_t* Short;
        const char16_t* Long;
    };
    for (const TRow& row :
         {TRow{u"", u"", u""}, TRow{u"Save", u"Save", u"Save"},
          TRow{u"Save|Saves the file", u"Save", u"Saves the file"}, TRow{u"|Only long", u"", u"Only long"},
          TRow{u"Only short|", u"Only short", u""}, TRow{u"a|b|c", u"a", u"b|c"}}) {
        EXPECT_EQ(GetShortHint(row.Hint), row.Short);
        EXPECT_EQ(GetLongHint(row.Hint), row.Long);
    }
}

TEST(HintPlace, StaysInTheWorkAreaAndOffThePointer) {
    const TRect area{0, 0, 800, 560};
    const TRect left{-800, 0, 0, 600};
    struct TRow {
        const char* What;
        TPoint Pointer;
        TSize Hint;
        TRect Area;
        TPoint Place;
    };
    for (const TRow& row : {
             TRow{"below the pointer", {100, 100}, {80, 20}, area, {100, 120}},
             TRow{"pushed back at the right edge", {790, 100}, {80, 20}, area, {720, 120}},
             TRow{"above when there is no room below", {100, 550}, {80, 20}, area, {100, 530}},
             TRow{"just fitting below", {100, 520}, {80, 20}, area, {100, 540}},
             TRow{"wider than the screen: its beginning shows", {400, 100}, {900, 20}, area, {0, 120}},
             TRow{"on a monitor to the left", {-5, 100}, {80, 20}, left, {-80, 120}},
             TRow{"higher than the screen: its top shows", {100, 300}, {80, 700}, area, {100, 0}},
         })
        EXPECT_EQ(PlaceHint(row.Pointer, 20, row.Hint, row.Area), row.Place) << row.What;
}

} // namespace
