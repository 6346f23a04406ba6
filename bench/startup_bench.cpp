// From the start of the process to the first painted window: the gallery with a page of controls beside a bare program,
// which is this one started anew. Painted means that the window is visible and neither it nor a window in it waits for
// painting any more.

#include "bench/measure.h"
#include "framework/graphics/win32.h"

#include <string>

namespace {

using namespace framework;

constexpr wchar_t kBareCaption[] = L"Bare program";

int RunBareProgram() {
    WNDCLASSW windowClass{};
    windowClass.lpfnWndProc = [](HWND window, UINT message, WPARAM wParam, LPARAM lParam) -> LRESULT {
        if (message == WM_DESTROY)
            PostQuitMessage(0);
        return DefWindowProcW(window, message, wParam, lParam);
    };
    windowClass.lpszClassName = kBareCaption;
    windowClass.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
    RegisterClassW(&windowClass);
    const HWND window = CreateWindowW(kBareCaption, kBareCaption, WS_OVERLAPPEDWINDOW | WS_VISIBLE, 60, 60, 1000, 640,
                                      nullptr, nullptr, nullptr, nullptr);
    CreateWindowW(L"EDIT", L"text", WS_CHILD | WS_VISIBLE | WS_BORDER, 20, 20, 200, 22, window, nullptr, nullptr,
                  nullptr);
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    return 0;
}

struct TSearch {
    DWORD Process;
    HWND Window = nullptr;
};

HWND MainWindowOf(DWORD process) {
    TSearch search{process};
    EnumWindows(
        [](HWND window, LPARAM parameter) -> BOOL {
            auto& wanted = *reinterpret_cast<TSearch*>(parameter);
            DWORD owner = 0;
            GetWindowThreadProcessId(window, &owner);
            RECT rect;
            if (owner == wanted.Process && IsWindowVisible(window) && GetWindowRect(window, &rect) &&
                rect.right - rect.left > 300)
                wanted.Window = window;
            return !wanted.Window;
        },
        reinterpret_cast<LPARAM>(&search));
    return search.Window;
}

bool WaitsForPainting(HWND window) {
    bool waits = GetUpdateRect(window, nullptr, FALSE) != FALSE;
    EnumChildWindows(
        window,
        [](HWND child, LPARAM parameter) -> BOOL {
            if (IsWindowVisible(child) && GetUpdateRect(child, nullptr, FALSE))
                *reinterpret_cast<bool*>(parameter) = true;
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&waits));
    return waits;
}

/// Milliseconds from CreateProcess to the painted window; negative when none came within 20 seconds.
double TimeToPaint(std::wstring command) {
    STARTUPINFOW startup{};
    startup.cb = sizeof(startup);
    PROCESS_INFORMATION process{};
    HWND window = nullptr;
    const double time = bench::Milliseconds([&] {
        if (!CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup, &process))
            return;
        const ULONGLONG end = GetTickCount64() + 20000;
        while (GetTickCount64() < end) {
            window = MainWindowOf(process.dwProcessId);
            if (window && !WaitsForPainting(window))
                return;
            window = nullptr;
            Sleep(1);
        }
    });
    if (window)
        PostMessageW(window, WM_CLOSE, 0, 0);
    if (!process.hProcess)
        return -1;
    if (!window || WaitForSingleObject(process.hProcess, 10000) != WAIT_OBJECT_0)
        TerminateProcess(process.hProcess, 1);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return window ? time : -1;
}

} // namespace

int main(int argc, char** argv) {
    if (argc > 1 && std::string(argv[1]) == "--bare")
        return RunBareProgram();
    wchar_t path[MAX_PATH];
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    const std::wstring self = path;
    const std::wstring folder = self.substr(0, self.find_last_of(L'\\') + 1);
    const std::wstring gallery = L"\"" + folder + L"gallery\\gallery.exe\"";
    const bench::TPair pair = bench::MedianPair([&] { return TimeToPaint(gallery); },
                                                [&] { return TimeToPaint(L"\"" + self + L"\" --bare"); });
    if (pair.Ours < 0 || pair.Peer < 0) {
        std::printf("A program did not show a window; is the gallery built?\n");
        return 1;
    }
    std::printf("start to first painted page %9.0f ms   bare program %9.0f ms   %+.0f ms (aim: at most +150)\n",
                pair.Ours, pair.Peer, pair.Ours - pair.Peer);
    return 0;
}
