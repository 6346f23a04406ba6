#include "tests/support/input.h"

#include "framework/graphics/handles.h"
#include "framework/windows/application.h"

#include <gtest/gtest.h>

#include <vector>

namespace testsupport {

using namespace framework;

namespace {

INPUT KeyInput(WORD key, DWORD flags) {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = key;
    input.ki.wScan = static_cast<WORD>(MapVirtualKeyW(key, MAPVK_VK_TO_VSC));
    input.ki.dwFlags = flags;
    return input;
}

TPoint pointer; // where the pointer was last sent

/// Each mouse input carries the place: a late report of an earlier movement cannot lead a click astray.
INPUT MouseInput(DWORD flags) {
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dwFlags = flags | MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE;
    // The screen is 65536 units wide and high; half a pixel more, so that rounding down hits the right one.
    input.mi.dx = MulDiv(2 * pointer.X + 1, 32768, GetSystemMetrics(SM_CXSCREEN));
    input.mi.dy = MulDiv(2 * pointer.Y + 1, 32768, GetSystemMetrics(SM_CYSCREEN));
    return input;
}

void Send(std::vector<INPUT> inputs) {
    const auto count = static_cast<UINT>(inputs.size());
    EXPECT_EQ(SendInput(count, inputs.data(), sizeof(INPUT)), count);
    TheApplication().ProcessMessages();
}

/// Whether the pointer keeps to a place for a while. Under Wine the display echoes every movement a little later, and
/// the echo of an earlier one leads the pointer back.
bool PointerStays(TPoint point) {
    constexpr ULONGLONG kLongerThanAnEcho = 25; // milliseconds
    const ULONGLONG end = GetTickCount64() + kLongerThanAnEcho;
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
    std::vector<WORD> held;
    if (modifiers.Contains(ssShift))
        held.push_back(VK_SHIFT);
    if (modifiers.Contains(ssCtrl))
        held.push_back(VK_CONTROL);
    if (modifiers.Contains(ssAlt))
        held.push_back(VK_MENU);
    std::vector<INPUT> inputs;
    for (WORD each : held)
        inputs.push_back(KeyInput(each, 0));
    inputs.push_back(KeyInput(key, 0));
    inputs.push_back(KeyInput(key, KEYEVENTF_KEYUP));
    for (auto each = held.rbegin(); each != held.rend(); ++each)
        inputs.push_back(KeyInput(*each, KEYEVENTF_KEYUP));
    Send(inputs);
}

void TypeText(StringView text) {
    std::vector<INPUT> inputs;
    for (char16_t character : text) {
        for (DWORD flags : {DWORD{KEYEVENTF_UNICODE}, DWORD{KEYEVENTF_UNICODE | KEYEVENTF_KEYUP}}) {
            INPUT input{};
            input.type = INPUT_KEYBOARD;
            input.ki.wScan = character;
            input.ki.dwFlags = flags;
            inputs.push_back(input);
        }
    }
    Send(inputs);
}

void MoveMouse(TPoint point) {
    pointer = point;
    bool arrived = false;
    for (int i = 0; i < 20 && !arrived; ++i) {
        Send({MouseInput(0)});
        arrived = PointerStays(point);
    }
    EXPECT_TRUE(arrived) << "the pointer did not get there";
}

void PressMouse(TPoint point) {
    MoveMouse(point);
    Send({MouseInput(MOUSEEVENTF_LEFTDOWN)});
}

void ReleaseMouse() {
    Send({MouseInput(MOUSEEVENTF_LEFTUP)});
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
