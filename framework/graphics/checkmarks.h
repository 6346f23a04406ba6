#pragma once

// Check boxes for those that paint them into rows of their own: themed where the system is, plain otherwise.

#include "framework/graphics/themes.h"

namespace framework {

enum class TCheckMark { Unchecked, Checked, Mixed };

struct TCheckLook {
    TCheckMark Mark = TCheckMark::Unchecked;
    bool Radio = false;
    bool Enabled = true;
    bool Pressed = false;
    bool Hot = false;
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

} // namespace framework
