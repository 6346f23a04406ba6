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
/// Characters that the keyboard has without Ctrl and Alt come as its keys, all others as characters alone.
TInputs TextInputs(StringView text);
/// Characters alone, whatever the keyboard has (KEYEVENTF_UNICODE).
TInputs CharacterInputs(StringView text);

// Points are in pixels of the primary screen. Whatever the mouse does carries its place: a late report of an earlier
// movement cannot lead it astray.

TInputs MouseMoveInputs(TPoint point);
TInputs MouseButtonInputs(TPoint point, TScriptButton button, bool down);
/// In notches, away from the person when positive.
TInputs WheelInputs(TPoint point, int notches);

/// Under Wine the display echoes every movement of the pointer a little later, and the echo of an earlier one leads it
/// back: only a pointer that stays for this time, in milliseconds, has arrived.
inline constexpr unsigned PointerEchoMilliseconds = 25;

/// False when the system did not take them all.
bool Send(const TInputs& inputs);

} // namespace gallery
