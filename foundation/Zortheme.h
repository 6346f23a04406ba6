#pragma once

// What controls with colours of their own have to know of the user's theme.

namespace ZOR {

/// Whether the theme writes light letters on dark windows, as dark themes of high contrast do (GetSysColor). Fixed
/// colours that were chosen for light windows then give way to the theme's own.
bool ThemeIsDark();

} // namespace ZOR
