#pragma once

// Messages about what was entered, shown by a field to the person who left it.

#include "foundation/Zormessages_rules.h"
#include "framework/windows/wincontrol.h"

namespace ZOR {

/// The language of the user who runs the program (GetUserDefaultLangID).
TMessageLanguage UserMessageLanguage();

/// An error box with an OK button above the control's parent window (MessageBoxW with MB_ICONERROR). It returns after
/// the person has answered; by then the control may be gone. Returns false where the box could not be shown.
bool ShowErrorMessage(TWinControl& control, const TMessageText& message);

} // namespace ZOR
