#include "tests/support/messageboxes.h"

namespace testsupport {

using namespace framework;

namespace {

String WindowText(HWND window) {
    wchar_t buffer[512];
    const int length = GetWindowTextW(window, buffer, ARRAYSIZE(buffer));
    return FromWide(buffer, static_cast<std::size_t>(length));
}

HWND FindBox() {
    HWND found = nullptr;
    EnumThreadWindows(
        GetCurrentThreadId(),
        [](HWND window, LPARAM result) -> BOOL {
            wchar_t name[16] = {};
            GetClassNameW(window, name, ARRAYSIZE(name));
            if (lstrcmpW(name, L"#32770") != 0 || !IsWindowVisible(window))
                return TRUE;
            *reinterpret_cast<HWND*>(result) = window;
            return FALSE;
        },
        reinterpret_cast<LPARAM>(&found));
    return found;
}

} // namespace

TBoxReader::TBoxReader() {
    FTimer.SetInterval(10);
    FTimer.OnTimer = [this](TObject*) { Look(); };
}

void TBoxReader::Look() {
    const HWND box = FindBox();
    if (!box || box == FAnswered)
        return;
    FAnswered = box;
    TMessageBox message;
    message.Caption = WindowText(box);
    for (HWND child = nullptr; (child = FindWindowExW(box, child, L"STATIC", nullptr)) != nullptr;) {
        if ((GetWindowLongPtrW(child, GWL_STYLE) & SS_TYPEMASK) != SS_ICON)
            message.Text = WindowText(child);
        else
            message.HasErrorIcon = SendMessageW(child, STM_GETICON, 0, 0) ==
                                   reinterpret_cast<LRESULT>(LoadIconW(nullptr, MAKEINTRESOURCEW(32513))); // IDI_ERROR
    }
    message.Owner = GetWindow(box, GW_OWNER);
    Seen.push_back(message);
    if (OnBox)
        OnBox();
    PostMessageW(box, WM_COMMAND, static_cast<WPARAM>(Answer), 0);
}

} // namespace testsupport
