// Where children go when their parent changes its size.

#include "framework/windows/layout_rules.h"

#include <gtest/gtest.h>

#include <vector>

namespace framework {

inline void PrintTo(const TRect& rect, std::ostream* stream) {
    *stream << rect.Left << "," << rect.Top << " " << rect.Width() << "x" << rect.Height();
}

} // namespace framework

namespace {

using namespace framework;

TEST(Anchors, KeepDistancesToAnchoredSides) {
    const TAnchorBase base{Bounds(10, 20, 100, 30), {200, 100}};
    const struct {
        const char* Name;
        TAnchors Anchors;
        TSize Parent;
        TRect Expected;
    } rows[] = {
        {"left and top stay", {akLeft, akTop}, {300, 200}, Bounds(10, 20, 100, 30)},
        {"right moves along", {akRight, akTop}, {300, 100}, Bounds(110, 20, 100, 30)},
        {"left and right stretch", {akLeft, akRight, akTop}, {300, 100}, Bounds(10, 20, 200, 30)},
        {"bottom moves along", {akLeft, akBottom}, {200, 150}, Bounds(10, 70, 100, 30)},
        {"top and bottom stretch", {akLeft, akTop, akBottom}, {200, 150}, Bounds(10, 20, 100, 80)},
        {"all sides shrink", {akLeft, akTop, akRight, akBottom}, {150, 90}, Bounds(10, 20, 50, 20)},
        {"never to less than nothing", {akLeft, akTop, akRight, akBottom}, {20, 10}, {10, 20, 10, 20}},
        {"no side keeps the middle in proportion", {}, {400, 200}, Bounds(70, 55, 100, 30)},
        {"an unknown parent keeps the place", {akLeft, akTop}, {0, 0}, Bounds(10, 20, 100, 30)},
    };
    for (const auto& row : rows)
        EXPECT_EQ(AnchoredPlace(base, row.Anchors, row.Parent), row.Expected) << row.Name;
    EXPECT_EQ(AnchoredPlace({Bounds(1, 2, 3, 4), {0, 0}}, {}, {50, 50}), Bounds(1, 2, 3, 4)) << "no size to relate to";
}

TEST(Alignment, TopAndBottomComeBeforeTheSidesAndTheRestIsTheClients) {
    std::vector<TAlignedChild> children{
        {alClient, Bounds(0, 0, 5, 5)}, {alLeft, Bounds(0, 0, 30, 5)},  {alBottom, Bounds(0, 90, 5, 20)},
        {alTop, Bounds(0, 50, 5, 10)},  {alTop, Bounds(0, 0, 5, 25)},   {alRight, Bounds(80, 0, 15, 5)},
        {alNone, Bounds(7, 7, 7, 7)},   {alLeft, Bounds(40, 0, 10, 5)},
    };
    const TRect rest = AlignChildren(Bounds(0, 0, 200, 100), children);
    const TRect expected[] = {{40, 35, 185, 80}, {0, 35, 30, 80},    {0, 80, 200, 100}, {0, 25, 200, 35},
                              {0, 0, 200, 25},   {185, 35, 200, 80}, {7, 7, 14, 14},    {30, 35, 40, 80}};
    for (std::size_t i = 0; i < children.size(); ++i)
        EXPECT_EQ(children[i].Place, expected[i]) << i;
    EXPECT_EQ(rest, (TRect{40, 35, 185, 80}));
}

TEST(Alignment, ChildrenThatDoNotFitGetNoNegativeSize) {
    std::vector<TAlignedChild> children{
        {alLeft, Bounds(0, 0, 70, 5)}, {alRight, Bounds(0, 0, 70, 5)}, {alClient, Bounds(0, 0, 1, 1)}};
    AlignChildren(Bounds(0, 0, 100, 50), children);
    for (const TAlignedChild& child : children) {
        EXPECT_GE(child.Place.Width(), 0);
        EXPECT_EQ(child.Place.Height(), 50);
    }
}

} // namespace
