#pragma once

namespace framework {

/// The page of the palette that they stand on.
inline constexpr char16_t StandardPage[] = u"Standard";

/// Makes the classes of this room known to text forms. Calling it again is harmless.
void RegisterStandardControls();

} // namespace framework
