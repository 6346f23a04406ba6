#pragma once

// The user's habits of writing numbers and dates, as Windows keeps them.

#include "framework/system/formatsettings.h"

namespace framework {

/// The format settings of the user's locale (GetLocaleInfoEx with LOCALE_NAME_USER_DEFAULT), date and time formats in
/// the letters of FormatDateTime. Names of months are those that stand alone, not behind a day.
TFormatSettings UserFormatSettings();

} // namespace framework
