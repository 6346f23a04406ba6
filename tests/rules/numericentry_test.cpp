#include "numeric/Zornumericentry_rules.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>

namespace ZOR {
namespace {

constexpr TStepDirection None = TStepDirection::None;
constexpr TStepDirection Up = TStepDirection::Up;
constexpr TStepDirection Down = TStepDirection::Down;
constexpr Extended Infinity = std::numeric_limits<Extended>::infinity();
constexpr Extended NaN = std::numeric_limits<Extended>::quiet_NaN();

// What a float spells to 18 digits: two values that a person sees as the same are the same here.
String Digits(Extended value) {
    return FloatToStrF(value, ffGeneral, 18, 0, TFormatSettings::Invariant());
}

TEST(NumericEntry, RozRound) {
    const Extended tiny = std::numeric_limits<Extended>::denorm_min();
    const struct {
        Extended Value;
        Extended Step;
        Extended Nearest;
        Extended Up;
        Extended Down;
    } rows[] = {
        {5, 2, 6, 6, 4},
        {-5, 2, -4, -4, -6},
        {5, -2, 4, 4, 6}, // the quotient -2.5 goes to -2, -2 and -3
        {5, 0, 5, 5, 5},
        {0.3L, 0.1L, 0.3L, 0.3L, 0.3L},
        {0.35L, 0.1L, 0.4L, 0.4L, 0.3L},
        {-0.35L, 0.1L, -0.3L, -0.3L, -0.4L},
        {1.005L, 0.01L, 1.01L, 1.01L, 1},
        {-0.004L, 0.01L, 0, 0, -0.01L},
        {0, 3, 0, 0, 0},
        {999999999999999.99L, 0.05L, 1000000000000000, 1000000000000000, 999999999999999.95L},
        {1e30L, 4e29L, 1.2e30L, 1.2e30L, 8e29L},
        {1e18L, 0.01L, 1e18L, 1e18L, 1e18L},
        {123456.789L, 1e-15L, 123456.789L, 123456.789L, 123456.789L},
        {5, 1e300L, 0, 1e300L, 0},
        {1, tiny, 1, 1, 1},
        {tiny, 1, 0, 1, 0},
        {Infinity, 2, Infinity, Infinity, Infinity},
        {5, Infinity, 5, 5, 5},
        {5, NaN, 5, 5, 5},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(Digits(RozRound(row.Value, row.Step, None)), Digits(row.Nearest)) << row.Value << " by " << row.Step;
        EXPECT_EQ(Digits(RozRound(row.Value, row.Step, Up)), Digits(row.Up)) << row.Value << " by " << row.Step;
        EXPECT_EQ(Digits(RozRound(row.Value, row.Step, Down)), Digits(row.Down)) << row.Value << " by " << row.Step;
    }
    // A step that the value cannot count changes no bit of it.
    for (const Extended value : {1 / 3.0L, 2e17L / 3, 1e300L / 7})
        EXPECT_EQ(RozRound(value, value * 1.7e-25L, Up), value);
    EXPECT_FALSE(std::signbit(RozRound(-0.004L, 0.01L, None)));
    EXPECT_TRUE(std::isnan(RozRound(NaN, 2, None)));
    EXPECT_TRUE(IsMultiple(0.3L, WrittenSingle(0.1F)));
    EXPECT_TRUE(IsMultiple(-1e30L, 1e29L));
    EXPECT_TRUE(IsMultiple(7, 0));
    EXPECT_FALSE(IsMultiple(0.35L, WrittenSingle(0.1F)));
    EXPECT_FALSE(IsMultiple(NaN, 2));
}

// Multiples of random decimal steps are found to be such, and the values between them go to the right neighbour.
TEST(NumericEntry, RozRoundOfRandomDecimals) {
    const auto seed = std::random_device{}();
    RecordProperty("randomSeed", std::to_string(seed));
    SCOPED_TRACE("randomSeed " + std::to_string(seed));
    std::mt19937 random(seed);
    for (int round = 0; round < 20000; ++round) {
        const int decimals = static_cast<int>(random() % 6);
        const Extended scale = std::pow(10.0L, static_cast<Extended>(decimals));
        const auto step = static_cast<std::int64_t>(1 + random() % 5000);
        const auto count = static_cast<std::int64_t>(random() % 2000001) - 1000000;
        const auto rest = static_cast<std::int64_t>(random() % static_cast<unsigned>(step));
        const Extended value = static_cast<Extended>(count * step + rest) / scale;
        const Extended unit = static_cast<Extended>(step) / scale;
        const Extended below = static_cast<Extended>(count * step) / scale;
        const Extended above = static_cast<Extended>(count * step + step) / scale;
        ASSERT_EQ(IsMultiple(value, unit), rest == 0) << value << " by " << unit;
        ASSERT_EQ(RozRound(value, unit, Down), below) << value << " by " << unit;
        ASSERT_EQ(RozRound(value, unit, Up), rest == 0 ? below : above) << value << " by " << unit;
        ASSERT_EQ(RozRound(value, unit, None), 2 * rest >= step ? above : below) << value << " by " << unit;
        ASSERT_EQ(DecimalSum(value, unit), static_cast<Extended>(count * step + rest + step) / scale);
    }
}

TEST(NumericEntry, WholeNumbers) {
    const struct {
        Extended Value;
        std::int64_t TiesUp;
        int Truncated;
    } rows[] = {
        {2.5L, 3, 2},
        {-2.5L, -2, -2},
        {2.4999999999L, 2, 2},
        {-2.6L, -3, -2},
        {-0.5L, 0, 0},
        {2147483647.9L, 2147483648, INT_MAX},
        {-1e18L, -1000000000000000000, INT_MIN},
        {1e300L, INT64_MAX, INT_MAX},
        {-Infinity, INT64_MIN, INT_MIN},
        {NaN, 0, 0},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(RoundTiesUp(row.Value), row.TiesUp) << row.Value;
        EXPECT_EQ(TruncatedToInt(row.Value), row.Truncated) << row.Value;
    }
}

TEST(NumericEntry, SinglesMeanTheirShortestDecimal) {
    EXPECT_EQ(WrittenSingle(0.01F), 0.01L);
    EXPECT_EQ(WrittenSingle(-0.1F), -0.1L);
    EXPECT_EQ(WrittenSingle(3e38F), 3e38L);
    EXPECT_EQ(WrittenSingle(std::numeric_limits<float>::infinity()), 0);
    EXPECT_EQ(WrittenSingle(std::numeric_limits<float>::quiet_NaN()), 0);
    EXPECT_GT(WrittenSingle(std::numeric_limits<float>::denorm_min()), 0);
}

} // namespace
} // namespace ZOR
