#include "tests/support/input.h"

#include "framework/graphics/handles.h"
#include "framework/windows/application.h"
#include "gallery/playerinput.h"

#include <gtest/gtest.h>

namespace testsupport {

using namespace framework;
using namespace gallery;

namespace {

TPoint pointer; // where the pointer was last sent

void SendAndHandle(const TInputs& inputs) {
    EXPECT_TRUE(Send(inputs)) << "the system does not take input";
    TheApplication().ProcessMessages();
}

/// Whether the pointer keeps to a place until no echo can lead it back any more.
bool PointerStays(TPoint point) {
    const ULONGLONG end = GetTickCount64() + PointerEchoMilliseconds;
    do {
        TheApplication().ProcessMessages();
        POINT at{};
        if (!GetCursorPos(&at) || at.x != point.X || at.y != point.Y)
            return false;
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 2, QS_ALLINPUT);
    } while (GetTickCount64() < end);
    return true;
}

} // namespace

bool WaitFor(const std::function<bool()>& condition, int milliseconds) {
    const ULONGLONG end = GetTickCount64() + static_cast<ULONGLONG>(milliseconds);
    while (true) {
        TheApplication().ProcessMessages();
        if (condition())
            return true;
        if (GetTickCount64() >= end)
            return false;
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 5, QS_ALLINPUT);
    }
}

void PressKey(WORD key, TShiftState modifiers) {
    TScriptKey pressed{key, {}};
    if (modifiers.Contains(ssShift))
        pressed.Held.push_back(VK_SHIFT);
    if (modifiers.Contains(ssCtrl))
        pressed.Held.push_back(VK_CONTROL);
    if (modifiers.Contains(ssAlt))
        pressed.Held.push_back(VK_MENU);
    SendAndHandle(KeyInputs(pressed));
}

void TypeText(StringView text) {
    SendAndHandle(CharacterInputs(text));
}

void MoveMouse(TPoint point) {
    pointer = point;
    bool arrived = false;
    for (int i = 0; i < 20 && !arrived; ++i) {
        // A pointer that is there already is not told to anybody, not even to a window that came up below it.
        SendAndHandle(MouseMoveInputs({point.X + 1, point.Y}));
        SendAndHandle(MouseMoveInputs(point));
        arrived = PointerStays(point);
    }
    EXPECT_TRUE(arrived) << "the pointer did not get there";
}

void PressMouse(TPoint point) {
    MoveMouse(point);
    SendAndHandle(MouseButtonInputs(pointer, TScriptButton::Left, true));
}

void ReleaseMouse() {
    SendAndHandle(MouseButtonInputs(pointer, TScriptButton::Left, false));
}

void ClickOn(TControl& control) {
    ClickOn(control, {control.GetWidth() / 2, control.GetHeight() / 2});
}

void ClickOn(TControl& control, TPoint point) {
    PressMouse(control.ClientToScreen(point));
    ReleaseMouse();
}

std::unique_ptr<TForm> ShowForm() {
    auto form = std::make_unique<TForm>(nullptr);
    form->SetPosition(poDesigned);
    form->SetBounds(100, 100, 400, 300);
    ShowAndActivate(*form);
    return form;
}

void ShowAndActivate(TForm& form) {
    form.Show();
    SetForegroundWindow(form.GetHandle());
    EXPECT_TRUE(WaitFor([&] { return GetForegroundWindow() == form.GetHandle() && form.Active(); }))
        << "the form did not get into the foreground";
}

COLORREF PixelOf(TControl& control, TPoint point) {
    auto* parent = control.GetParent();
    EXPECT_NE(parent, nullptr);
    parent->Update();
    control.Update();
    TheApplication().ProcessMessages();
    const TPoint origin = parent->GetClientOrigin();
    const TPoint at = control.ClientToScreen(point);
    const TWindowDC dc(parent->GetHandle());
    return GetPixel(dc, at.X - origin.X, at.Y - origin.Y);
}

} // namespace testsupport
