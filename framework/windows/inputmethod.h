#pragma once

// Input methods, with which one composes characters that no key has.

#include "framework/windows/messages.h"

namespace framework {

/// For a field that judges each character before it is in the text. Deals with what an input method tells a window:
/// the text that is being composed shows in the system's composition window at the caret, not in the field, and what
/// comes of it arrives in the window as if typed (WM_CHAR). False, nothing done, for all other messages.
bool ComposeApart(HWND window, TMessage& message);

} // namespace framework
