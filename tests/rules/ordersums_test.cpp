// The sums of the gallery's page of numbers.

#include "gallery/ordersums_rules.h"

#include <gtest/gtest.h>

using namespace gallery;

namespace {

Currency Zloty(std::int64_t hundredths) {
    return Currency::FromUnits(hundredths * 100);
}

TEST(OrderSums, AmountsAreWholeHundredths) {
    EXPECT_EQ(NetAmount({1.5L, Zloty(999), 10, Zloty(-50)}), Zloty(1299)) << "13.4865 rounds before the correction";
    EXPECT_EQ(NetAmount({1, Zloty(-5), 10, Zloty(0)}), Zloty(-5)) << "a half away from zero";
    EXPECT_EQ(GrossAmount(Zloty(1299)), Zloty(1598));
}

TEST(OrderSums, WorkGoesOverMidnightAndNeverBelowNothing) {
    EXPECT_EQ(WorkedMinutes({480, 975, 30, 0, {}}), 465);
    EXPECT_EQ(WorkedMinutes({1320, 360, 30, 0, {}}), 450);
    EXPECT_EQ(WorkedMinutes({480, 490, 30, 0, {}}), 0);
    EXPECT_EQ(Pay({480, 975, 30, 90, Zloty(6000)}), Zloty(60000));
    EXPECT_EQ(Pay({0, 1, 0, 0, Zloty(5050)}), Zloty(84));
}

} // namespace
