#pragma once

// The looks that Windows gives its own controls, for those that paint themselves in the same style.

#include "framework/graphics/handles.h"

#include <uxtheme.h>

namespace framework {

/// The parts of one class of themed controls (OpenThemeData); empty while themes are off, as in high contrast.
using TThemeHandle = TUniqueHandle<HTHEME, ::CloseThemeData>;

} // namespace framework
