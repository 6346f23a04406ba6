#pragma once

// What screen readers and other assistive programs are told beyond what Windows knows by itself: labels have no
// windows, so that the names they give to fields have to be passed on.

#include "framework/windows/wincontrol.h"

namespace framework {

/// The name that a label gives to a control: the caption, without its accelerator mark, of a label on the same form
/// whose FocusControl it is. Empty without such a label.
String AccessibleName(const TWinControl& control);
/// The accelerator key of that caption, as in "Alt+N"; empty when it has none.
String AccessibleShortcut(const TWinControl& control);

/// Answers WM_GETOBJECT for the window of a control, or a part inside it, that a label names: with the system's own
/// object, in which name and shortcut are the label's. False, the message untouched, for all others.
bool AnswerAccessibility(HWND window, TMessage& message);

} // namespace framework
