#pragma once

// The user's habits of writing numbers and dates, as Windows keeps them.

#include "framework/system/formatsettings.h"

namespace framework {

/// The format settings of the user's locale (GetLocaleInfoEx with LOCALE_NAME_USER_DEFAULT).
TFormatSettings UserFormatSettings();

} // namespace framework
