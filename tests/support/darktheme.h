#pragma once

// A theme with light letters on dark windows, as long as it lives: the colours of this desktop are others meanwhile.

#include "framework/graphics/win32.h"

#include <array>

namespace testsupport {

class TDarkTheme {
public:
    static constexpr COLORREF Face = 0x101010;
    static constexpr COLORREF Letters = 0xFFFFFF;

    TDarkTheme() {
        for (std::size_t i = 0; i < Which.size(); ++i)
            FBefore[i] = GetSysColor(Which[i]);
        Set({0x000000, Letters, Face, Letters});
    }
    TDarkTheme(const TDarkTheme&) = delete;
    TDarkTheme& operator=(const TDarkTheme&) = delete;
    ~TDarkTheme() { Set(FBefore); }

private:
    using TColors = std::array<COLORREF, 4>;
    static constexpr std::array<int, 4> Which{COLOR_WINDOW, COLOR_WINDOWTEXT, COLOR_BTNFACE, COLOR_BTNTEXT};

    static void Set(const TColors& colors) { ::SetSysColors(4, Which.data(), colors.data()); }

    TColors FBefore{};
};

} // namespace testsupport
