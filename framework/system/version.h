#pragma once

namespace framework {

/// The version of the framework and the library. Objects of one version do not fit another's code.
inline constexpr char FrameworkVersion[] = "1.0.0";

} // namespace framework
