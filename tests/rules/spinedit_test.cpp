#include "numeric/Zorspinedit_rules.h"

#include <gtest/gtest.h>

#include <climits>

namespace ZOR {
namespace {

TEST(SpinEdit, Characters) {
    const struct {
        StringView Keys;
        bool Enabled;
        bool Disabled;
    } rows[] = {
        {u"0123456789+-", true, false},
        {u"\b", true, false},
        {u"\x01\x03\x16\x18\x1A\x1B", true, true},
        {u"\r .,eE\x7F\u0661", false, false},
    };
    for (const auto& row : rows) {
        for (const char16_t key : row.Keys) {
            EXPECT_EQ(IsValidSpinChar(key, true), row.Enabled) << static_cast<int>(key);
            EXPECT_EQ(IsValidSpinChar(key, false), row.Disabled) << static_cast<int>(key);
        }
    }
}

TEST(SpinEdit, RangeAndSteps) {
    const struct {
        const char* Name;
        TSpinEntry Entry; // Increment, MinValue, MaxValue
        int Value;
        int Checked;
        int Up;
        int Down;
    } rows[] = {
        {"no range", {5, 0, 0}, -7, -7, -2, -12},
        {"inside", {5, 0, 20}, 7, 7, 12, 2},
        {"at the top", {5, 0, 20}, 20, 20, 20, 15},
        {"above it", {5, 0, 20}, 21, 20, 20, 16},
        {"at the bottom", {5, 0, 20}, 3, 3, 8, 0},
        {"a maximum of 0 leaves the top open", {1, 10, 0}, 1000, 1000, 1001, 999},
        {"and the bottom closed", {1, 10, 0}, 5, 10, 10, 10},
        {"a negative maximum leaves the top open", {1, -5, -1}, 3, 3, 4, 2},
        {"upside down", {1, 10, 5}, 7, 10, 10, 10},
        {"no increment", {0, 0, 20}, 7, 7, 7, 7},
        {"a negative increment", {-5, 0, 20}, 7, 7, 2, 12},
        {"at the ends of the range of an int", {INT_MAX, 0, 0}, INT_MAX, INT_MAX, INT_MAX, 0},
        {"from the other end", {INT_MIN, 0, 0}, -2, -2, INT_MIN, INT_MAX - 1},
        {"below the least int", {1, 0, 0}, INT_MIN, INT_MIN, INT_MIN + 1, INT_MIN},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(CheckSpinValue(row.Value, row.Entry), row.Checked) << row.Name;
        EXPECT_EQ(StepSpinValue(row.Value, TStepDirection::Up, row.Entry), row.Up) << row.Name;
        EXPECT_EQ(StepSpinValue(row.Value, TStepDirection::Down, row.Entry), row.Down) << row.Name;
        EXPECT_EQ(StepSpinValue(row.Value, TStepDirection::None, row.Entry), row.Checked) << row.Name;
    }
    EXPECT_EQ(SpinRange({1, 0, 0}), (TSpinRange{0, 2000000000}));
    EXPECT_EQ(SpinRange({1, -5, -1}), (TSpinRange{-5, -1}));
    EXPECT_EQ(PositionBeforeStep(12, TStepDirection::Up), 11);
    EXPECT_EQ(PositionBeforeStep(12, TStepDirection::Down), 13);
    EXPECT_EQ(PositionBeforeStep(INT_MIN, TStepDirection::Up), INT_MIN);
    EXPECT_EQ(PositionBeforeStep(INT_MAX, TStepDirection::Down), INT_MAX);
}

} // namespace
} // namespace ZOR
