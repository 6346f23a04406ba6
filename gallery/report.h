#pragma once

// Words for the person, or the program, that started the gallery.

#include "framework/system/types.h"

namespace gallery {
using namespace framework;

/// Writes a line in UTF-8 to the standard error output; false when the program was started without one.
bool WriteError(StringView text);
/// The same for the standard output.
bool WriteOutput(StringView text);

} // namespace gallery
