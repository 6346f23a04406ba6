#pragma once

namespace framework {

/// Makes the classes of this room known to text forms. Calling it again is harmless.
void RegisterStandardControls();

} // namespace framework
