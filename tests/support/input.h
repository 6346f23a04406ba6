#pragma once

// A person at the keyboard and the mouse: input by SendInput, which reaches whatever window is in the foreground, and
// waiting for what it brings about.

#include "framework/windows/forms.h"

#include <functional>
#include <memory>

namespace testsupport {

/// Handles messages until the condition holds; false when it does not within the time.
bool WaitFor(const std::function<bool()>& condition, int milliseconds = 3000);

/// Presses and releases a key while the given modifier keys are held.
void PressKey(WORD key, framework::TShiftState modifiers = {});
/// Types characters, whatever the keyboard layout (KEYEVENTF_UNICODE).
void TypeText(framework::StringView text);
/// Moves the pointer there, in screen pixels.
void MoveMouse(framework::TPoint point);
/// Moves the pointer there and presses the left button; ReleaseMouse lets go of it.
void PressMouse(framework::TPoint point);
void ReleaseMouse();
/// The middle of a control, or a point in it.
void ClickOn(framework::TControl& control);
void ClickOn(framework::TControl& control, framework::TPoint point);

/// A form of 400 x 300 pixels, shown and in the foreground; fails the test when it does not get there.
std::unique_ptr<framework::TForm> ShowForm();
/// Shows a form that the test has filled, and brings it to the foreground.
void ShowAndActivate(framework::TForm& form);

/// The pixel of a control as it is on the form now, after all painting: 0x00BBGGRR.
COLORREF PixelOf(framework::TControl& control, framework::TPoint point);

} // namespace testsupport
