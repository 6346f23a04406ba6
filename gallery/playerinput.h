#pragma once

// A person's keys and mouse, by SendInput: they reach the window in the foreground like those of a keyboard.

#include "framework/graphics/win32.h"
#include "gallery/playerscript_rules.h"

namespace gallery {

using TInputs = std::vector<INPUT>;

TInputs KeyDownInputs(const std::vector<std::uint16_t>& keys);
/// In reverse order.
TInputs KeyUpInputs(const std::vector<std::uint16_t>& keys);
/// Presses and releases the key while the others are held.
TInputs KeyInputs(const TScriptKey& key);
/// Characters that the keyboard has without Ctrl and Alt come as its keys, all others as characters alone
/// (KEYEVENTF_UNICODE).
TInputs TextInputs(StringView text);
/// To a point of the screen, in pixels of the primary one.
TInputs MouseMoveInputs(TPoint point);
TInputs MouseButtonInputs(TScriptButton button, bool down);
/// In notches, away from the person when positive.
TInputs WheelInputs(int notches);

/// False when the system did not take them all.
bool Send(const TInputs& inputs);

} // namespace gallery
