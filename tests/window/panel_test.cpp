// Panels and group boxes: the room they leave to their children, and what they paint.

#include "framework/graphics/canvas.h"
#include "framework/windows/button.h"
#include "framework/windows/panel.h"
#include "tests/support/input.h"

#include <gtest/gtest.h>

using namespace framework;
using namespace testsupport;

namespace {

TEST(Panel, LeavesTheRoomWithinItsBevels) {
    TPanel panel(nullptr);
    TButton child(nullptr);
    panel.SetBounds(0, 0, 100, 60);
    child.SetParent(&panel);
    child.SetAlign(alClient);
    struct TRow {
        TPanelBevel Outer;
        TPanelBevel Inner;
        int BevelWidth;
        int BorderWidth;
        int Inset;
    };
    for (const TRow& row :
         {TRow{bvRaised, bvNone, 1, 0, 1}, TRow{bvNone, bvNone, 5, 0, 0}, TRow{bvRaised, bvLowered, 1, 0, 2},
          TRow{bvLowered, bvNone, 3, 4, 7}, TRow{bvSpace, bvSpace, 2, 1, 5}, TRow{bvNone, bvNone, 1, 6, 6}}) {
        panel.SetBevelOuter(row.Outer);
        panel.SetBevelInner(row.Inner);
        panel.SetBevelWidth(row.BevelWidth);
        panel.SetBorderWidth(row.BorderWidth);
        EXPECT_EQ(child.GetBoundsRect(), (TRect{row.Inset, row.Inset, 100 - row.Inset, 60 - row.Inset}));
    }
    panel.SetBevelWidth(0);
    panel.SetBorderWidth(-1);
    EXPECT_EQ(panel.GetBevelWidth(), 1);
    EXPECT_EQ(panel.GetBorderWidth(), 0);
}

TEST(Panel, PaintsBevelsAndCaption) {
    const auto form = ShowForm();
    TPanel panel(nullptr);
    panel.SetParent(form.get());
    panel.SetBounds(20, 20, 60, 40);
    panel.SetColor(clLime);
    panel.SetBevelWidth(2);
    const COLORREF light = ColorToRGB(clBtnHighlight);
    const COLORREF dark = ColorToRGB(clBtnShadow);
    const COLORREF face = RGB(0, 255, 0);
    const auto at = [&](int x, int y) { return PixelOf(panel, {x, y}); };
    for (const TPanelBevel bevel : {bvRaised, bvLowered}) {
        panel.SetBevelOuter(bevel);
        const COLORREF upper = bevel == bvRaised ? light : dark;
        const COLORREF lower = bevel == bvRaised ? dark : light;
        EXPECT_EQ(at(30, 0), upper);
        EXPECT_EQ(at(1, 20), upper);
        EXPECT_EQ(at(30, 38), lower);
        EXPECT_EQ(at(59, 20), lower);
        EXPECT_EQ(at(2, 2), face);
        EXPECT_EQ(at(57, 37), face);
    }
    // A larger panel keeps nothing of its former lower and right edges.
    panel.SetBounds(20, 20, 80, 60);
    EXPECT_EQ(at(59, 20), face);
    EXPECT_EQ(at(30, 39), face);
    EXPECT_EQ(at(79, 20), light);
    panel.SetBevelOuter(bvSpace);
    EXPECT_EQ(at(0, 0), face);

    const auto hasInk = [&](int left, int right) {
        for (int y = 0; y < 60; ++y) {
            for (int x = left; x < right; ++x) {
                if (at(x, y) != face)
                    return true;
            }
        }
        return false;
    };
    EXPECT_FALSE(hasInk(0, 80));
    panel.SetText(u"i");
    EXPECT_TRUE(hasInk(30, 50));
    EXPECT_FALSE(hasInk(0, 30) || hasInk(50, 80));
    panel.SetAlignment(taLeftJustify);
    EXPECT_TRUE(hasInk(0, 30));
    panel.SetBiDiMode(bdRightToLeft);
    EXPECT_TRUE(hasInk(50, 80));
    panel.SetShowCaption(false);
    EXPECT_FALSE(hasInk(0, 80));
}

TEST(Panel, SizesItselfToItsChildren) {
    const auto form = ShowForm();
    TPanel panel(nullptr);
    TButton button(nullptr);
    TPanel bar(nullptr);
    panel.SetParent(form.get());
    panel.SetBounds(20, 20, 200, 150);
    panel.SetBevelWidth(2);
    button.SetParent(&panel);
    button.SetBounds(10, 30, 75, 25);
    panel.SetAutoSize(true);
    EXPECT_EQ(panel.GetBoundsRect(), Bounds(20, 20, 87, 57));
    button.SetLeft(50);
    EXPECT_EQ(panel.GetBoundsRect(), Bounds(20, 20, 127, 57)) << "a child moved";
    bar.SetHeight(20);
    bar.SetAlign(alBottom);
    bar.SetParent(&panel);
    EXPECT_EQ(panel.GetBoundsRect(), Bounds(20, 20, 127, 77));
    EXPECT_EQ(bar.GetBoundsRect(), Bounds(2, 55, 123, 20));
    button.SetVisible(false);
    EXPECT_EQ(panel.GetBoundsRect(), Bounds(20, 20, 127, 24)) << "nobody decides the width now";
    panel.SetAlign(alLeft);
    EXPECT_EQ(panel.GetHeight(), form->GetClientHeight()) << "the parent does";
}

TEST(Panel, LetsItsParentShowThrough) {
    const auto form = ShowForm();
    form->OnPaint = [&](TObject*) {
        form->GetCanvas()->GetBrush()->SetColor(clFuchsia);
        form->GetCanvas()->FillRect({0, 0, 70, 300});
    };
    TPanel panel(nullptr);
    panel.SetBevelOuter(bvNone);
    panel.SetParent(form.get());
    panel.SetBounds(20, 20, 100, 40);
    panel.SetParentColor(true);
    for (const bool buffered : {false, true}) {
        form->SetDoubleBuffered(buffered);
        panel.Invalidate();
        EXPECT_EQ(PixelOf(panel, {49, 20}), RGB(255, 0, 255));
        EXPECT_EQ(PixelOf(panel, {50, 20}), ColorToRGB(clBtnFace));
    }
    panel.SetParentBackground(false);
    EXPECT_EQ(PixelOf(panel, {49, 20}), ColorToRGB(clBtnFace));
}

TEST(GroupBox, LeadsToItsFirstControl) {
    const auto form = ShowForm();
    TButton outside(nullptr);
    TGroupBox group(nullptr);
    TCheckBox disabled(nullptr);
    TCheckBox first(nullptr);
    outside.SetParent(form.get());
    group.SetParent(form.get());
    group.SetBounds(20, 60, 200, 100);
    group.SetText(u"O&ptions");
    for (TCheckBox* box : {&disabled, &first})
        box->SetParent(&group);
    first.SetAlign(alTop);
    disabled.SetEnabled(false);
    EXPECT_GT(first.GetTop(), 8) << "below the caption";
    outside.SetFocus();
    PressKey('P', {ssAlt});
    EXPECT_TRUE(first.Focused());
    EXPECT_FALSE(first.GetChecked());
}

} // namespace
