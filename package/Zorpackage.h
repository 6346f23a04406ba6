#pragma once

// The package: all components of the library, registered in one call.

#include "foundation/Zorpalette.h"

namespace ZOR {

/// Registers every component with the palette and with text forms. A host calls it once, before it loads forms.
void RegisterPackage();

} // namespace ZOR
