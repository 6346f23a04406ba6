#pragma once

// Text helpers under their customary names. Positions in these helpers are 1-based, 0 meaning "not found";
// nothing here depends on the C locale.

#include "framework/system/types.h"

namespace framework {

/// UTF-16 to UTF-8; an unpaired surrogate becomes U+FFFD.
std::string Utf8Encode(StringView text);
/// UTF-8 to UTF-16; every malformed byte sequence becomes one U+FFFD.
String Utf8Decode(std::string_view text);

} // namespace framework
