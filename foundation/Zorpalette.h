#pragma once

namespace ZOR {

/// The designer's palette page on which all components of the library stand.
inline constexpr char16_t PalettePage[] = u"ZOR";

} // namespace ZOR
