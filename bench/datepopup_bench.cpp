// What it costs to open the calendar of a date field, beside a bare month calendar in a popup window of its own in the
// same run:
//
//   - the first opening, which makes the windows, against making and showing the bare ones,
//   - each later opening and closing, against showing and hiding the bare ones.
//
// Prints medians; the aims are those of the project and are not asserted.

#include "bench/measure.h"
#include "datetime/Zordatetimepickeredit.h"
#include "framework/windows/application.h"

#include <commctrl.h>

using namespace framework;
using namespace ZOR;
using namespace bench;

namespace {

constexpr int Openings = 20; // in each round

/// Everything that was sent or posted has been painted.
void Settle(HWND window) {
    TheApplication().ProcessMessages();
    RedrawWindow(window, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    GdiFlush();
}

class TBareCalendar {
public:
    TBareCalendar(HWND owner, HFONT font) {
        static const wchar_t* className = [] {
            WNDCLASSW windowClass{};
            windowClass.lpfnWndProc = DefWindowProcW;
            windowClass.hInstance = GetModuleHandleW(nullptr);
            windowClass.lpszClassName = L"BareCalendarPopup";
            RegisterClassW(&windowClass);
            return windowClass.lpszClassName;
        }();
        FWindow = CreateWindowExW(WS_EX_NOACTIVATE | WS_EX_TOOLWINDOW | WS_EX_TOPMOST, className, nullptr,
                                  WS_POPUP | WS_BORDER | WS_CLIPCHILDREN, 0, 0, 10, 10, owner, nullptr,
                                  GetModuleHandleW(nullptr), nullptr);
        const HWND calendar = CreateWindowExW(0, MONTHCAL_CLASSW, nullptr, WS_CHILD | WS_VISIBLE, 0, 0, 10, 10, FWindow,
                                              nullptr, nullptr, nullptr);
        SendMessageW(calendar, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
        RECT size{};
        SendMessageW(calendar, MCM_GETMINREQRECT, 0, reinterpret_cast<LPARAM>(&size));
        SetWindowPos(calendar, nullptr, 0, 0, size.right, size.bottom, SWP_NOZORDER | SWP_NOACTIVATE);
        SetWindowPos(FWindow, nullptr, 300, 200, size.right + 2, size.bottom + 2, SWP_NOZORDER | SWP_NOACTIVATE);
    }
    ~TBareCalendar() { DestroyWindow(FWindow); }
    TBareCalendar(const TBareCalendar&) = delete;
    TBareCalendar& operator=(const TBareCalendar&) = delete;

    void Show() {
        ShowWindow(FWindow, SW_SHOWNOACTIVATE);
        Settle(FWindow);
    }
    void Hide() {
        ShowWindow(FWindow, SW_HIDE);
        TheApplication().ProcessMessages();
    }

private:
    HWND FWindow;
};

void BenchPopup() {
    TForm form(nullptr);
    form.SetBounds(100, 100, 600, 400);
    form.Show();
    SetForegroundWindow(form.GetHandle());
    std::vector<double> bareFirst;
    std::vector<double> bareAgain;
    std::vector<double> first;
    std::vector<double> again;
    for (int round = 0; round < Rounds; ++round) {
        TZORDateTimePickerEdit field(&form);
        field.Parent = &form;
        field.SetBounds(200, 20, 129, 21);
        field.SetFocus();
        Settle(form.GetHandle());
        const auto open = [&] {
            field.calendar_pop();
            Settle(field.GetCalendarPopup()->GetHandle());
        };
        const auto close = [&] {
            field.calendar_pop();
            TheApplication().ProcessMessages();
        };
        first.push_back(Milliseconds(open));
        close();
        again.push_back(Milliseconds([&] {
                            for (int i = 0; i < Openings; ++i) {
                                open();
                                close();
                            }
                        }) /
                        Openings);

        std::unique_ptr<TBareCalendar> bare;
        bareFirst.push_back(Milliseconds([&] {
            bare = std::make_unique<TBareCalendar>(form.GetHandle(), field.GetFont()->GetHandle());
            bare->Show();
        }));
        bare->Hide();
        bareAgain.push_back(Milliseconds([&] {
                                for (int i = 0; i < Openings; ++i) {
                                    bare->Show();
                                    bare->Hide();
                                }
                            }) /
                            Openings);
    }
    PrintRatio("first opening", {Median(first), Median(bareFirst)}, "ms", 1.5);
    PrintRatio("open and close", {Median(again), Median(bareAgain)}, "ms", 1.5);
}

} // namespace

int main() {
    TheApplication().Initialize();
    try {
        BenchPopup();
    } catch (const std::exception& error) {
        std::printf("%s\n", error.what());
        return 1;
    }
    return 0;
}
