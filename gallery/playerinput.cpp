#include "gallery/playerinput.h"

namespace gallery {

namespace {

INPUT KeyInput(std::uint16_t key, DWORD flags) {
    // Without this mark the keys of the arrow block count as those of the number pad.
    const bool extended = (key >= VK_PRIOR && key <= VK_DOWN) || key == VK_INSERT || key == VK_DELETE;
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = key;
    input.ki.wScan = static_cast<WORD>(MapVirtualKeyW(key, MAPVK_VK_TO_VSC));
    input.ki.dwFlags = flags | (extended ? KEYEVENTF_EXTENDEDKEY : 0);
    return input;
}

INPUT MouseInput(TPoint point, DWORD flags) {
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dwFlags = flags | MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE;
    // The screen counts as 65536 units wide and high; half a pixel more, so that rounding down hits the right one.
    input.mi.dx = MulDiv(2 * point.X + 1, 32768, GetSystemMetrics(SM_CXSCREEN));
    input.mi.dy = MulDiv(2 * point.Y + 1, 32768, GetSystemMetrics(SM_CYSCREEN));
    return input;
}

void Append(TInputs& inputs, const TInputs& more) {
    inputs.insert(inputs.end(), more.begin(), more.end());
}

} // namespace

TInputs KeyDownInputs(const std::vector<std::uint16_t>& keys) {
    TInputs inputs;
    for (const std::uint16_t key : keys)
        inputs.push_back(KeyInput(key, 0));
    return inputs;
}

TInputs KeyUpInputs(const std::vector<std::uint16_t>& keys) {
    TInputs inputs;
    for (auto key = keys.rbegin(); key != keys.rend(); ++key)
        inputs.push_back(KeyInput(*key, KEYEVENTF_KEYUP));
    return inputs;
}

TInputs KeyInputs(const TScriptKey& key) {
    TInputs inputs = KeyDownInputs(key.Held);
    inputs.push_back(KeyInput(key.Key, 0));
    inputs.push_back(KeyInput(key.Key, KEYEVENTF_KEYUP));
    Append(inputs, KeyUpInputs(key.Held));
    return inputs;
}

TInputs TextInputs(StringView text) {
    TInputs inputs;
    for (const char16_t character : text) {
        // Beyond ASCII some systems answer with the key of the bare letter.
        const SHORT scan = character < 0x80 ? VkKeyScanW(static_cast<wchar_t>(character)) : SHORT{-1};
        const int held = scan == -1 ? -1 : HIBYTE(scan);
        if (held == 0 || held == 1) {
            TScriptKey key{LOBYTE(scan), {}};
            if (held == 1)
                key.Held.push_back(VK_SHIFT);
            Append(inputs, KeyInputs(key));
        } else {
            Append(inputs, CharacterInputs({&character, 1}));
        }
    }
    return inputs;
}

TInputs CharacterInputs(StringView text) {
    TInputs inputs;
    for (const char16_t character : text) {
        for (const DWORD flags : {DWORD{KEYEVENTF_UNICODE}, DWORD{KEYEVENTF_UNICODE | KEYEVENTF_KEYUP}}) {
            INPUT input{};
            input.type = INPUT_KEYBOARD;
            input.ki.wScan = character;
            input.ki.dwFlags = flags;
            inputs.push_back(input);
        }
    }
    return inputs;
}

TInputs MouseMoveInputs(TPoint point) {
    return {MouseInput(point, 0)};
}

TInputs MouseButtonInputs(TPoint point, TScriptButton button, bool down) {
    constexpr DWORD kDown[] = {MOUSEEVENTF_LEFTDOWN, MOUSEEVENTF_RIGHTDOWN, MOUSEEVENTF_MIDDLEDOWN};
    constexpr DWORD kUp[] = {MOUSEEVENTF_LEFTUP, MOUSEEVENTF_RIGHTUP, MOUSEEVENTF_MIDDLEUP};
    return {MouseInput(point, (down ? kDown : kUp)[static_cast<int>(button)])};
}

TInputs WheelInputs(TPoint point, int notches) {
    INPUT input = MouseInput(point, MOUSEEVENTF_WHEEL);
    const int distance = notches * WHEEL_DELTA;
    input.mi.mouseData = static_cast<DWORD>(distance);
    return {input};
}

bool Send(const TInputs& inputs) {
    const auto count = static_cast<UINT>(inputs.size());
    return SendInput(count, const_cast<INPUT*>(inputs.data()), sizeof(INPUT)) == count;
}

} // namespace gallery
