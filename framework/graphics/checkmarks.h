#pragma once

// Check boxes for those that paint them into rows of their own: themed where the system is, plain otherwise.

#include "framework/graphics/themes.h"

#include <vector>

namespace framework {

enum class TCheckMark { Unchecked, Checked, Mixed };

struct TCheckLook {
    TCheckMark Mark = TCheckMark::Unchecked;
    bool Radio = false;
    bool Enabled = true;
    bool Pressed = false;
    bool Hot = false;
    friend bool operator==(const TCheckLook&, const TCheckLook&) = default;
};

/// Holds the theme while it is in scope: make one for all the boxes of a painting.
class TCheckPainter {
public:
    /// Opened for no window: a control's own one would paint its border by it from then on.
    explicit TCheckPainter(bool themed = true);

    /// Pixels of a box.
    TSize Size() const;
    void Draw(HDC dc, const TRect& place, const TCheckLook& look) const;

private:
    TThemeHandle FTheme;
};

/// The boxes of one painting. One that equals another on the same ground is copied from it, which takes a fraction of
/// the time that a theme takes.
class TCheckSeries {
public:
    explicit TCheckSeries(bool themed = true) : FPainter(themed), FSize(FPainter.Size()) {}

    TSize Size() const { return FSize; }
    /// `ground` tells what lies below: equal numbers, equal pixels.
    void Draw(HDC dc, const TRect& place, const TCheckLook& look, std::uint32_t ground);

private:
    struct TDrawn {
        TCheckLook Look;
        std::uint32_t Ground;
        TRect Place;
    };

    TCheckPainter FPainter;
    TSize FSize;
    std::vector<TDrawn> FDrawn;
};

} // namespace framework
