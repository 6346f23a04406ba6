#pragma once

// Whole files at once.

#include "framework/system/types.h"

namespace framework {

/// The bytes of a file. EFOpenError, which names it, when it cannot be opened or read.
std::string ReadFileBytes(const String& fileName);

} // namespace framework
