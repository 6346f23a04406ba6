#include "foundation/Zortheme.h"

#include "framework/graphics/win32.h"

namespace ZOR {

bool ThemeIsDark() {
    const auto brightness = [](int which) {
        const COLORREF color = GetSysColor(which);
        return 3 * GetRValue(color) + 6 * GetGValue(color) + GetBValue(color); // as eyes weigh them
    };
    return brightness(COLOR_WINDOW) < brightness(COLOR_WINDOWTEXT);
}

} // namespace ZOR
