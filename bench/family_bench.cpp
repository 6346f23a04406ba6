// What it costs to open the gallery's page "Family", beside the same native windows made by hand: from the window tree
// of the open page each window's native class, styles, place, text, font and contents are noted, and windowless
// captions as STATIC windows. Both are made, shown and painted in turn; prints the medians and their ratio, with the
// aim for it.

#include "bench/measure.h"
#include "framework/system/formloader.h"
#include "framework/windows/application.h"
#include "framework/windows/checklistbox.h"
#include "framework/windows/label.h"
#include "framework/windows/monthcalendar.h"
#include "framework/windows/richedit.h"
#include "framework/windows/standardcontrols.h"
#include "package/Zorpackage.h"

#include <commctrl.h>
#include <filesystem>
#include <fstream>
#include <richedit.h>

using namespace framework;
using namespace bench;

namespace {

/// A window as somebody would make it by hand.
struct TPlainWindow {
    std::wstring ClassName;
    std::wstring Text;
    DWORD Style = 0;
    DWORD ExStyle = 0;
    RECT Place{};
    HFONT Font = nullptr;
    std::vector<String> Items;
    std::vector<TPlainWindow> Children; // topmost first, as new windows go below their siblings
};

constexpr const wchar_t* kAreaClass = L"PlainBenchArea";

/// The form's text without the handlers of the page's own class.
std::string PageText() {
    wchar_t program[MAX_PATH]{};
    GetModuleFileNameW(nullptr, program, MAX_PATH);
    const std::filesystem::path file =
        std::filesystem::path(program).parent_path() / "gallery" / "forms" / "family.dfm";
    std::ifstream stream(file, std::ios::binary);
    if (!stream)
        throw EFOpenError(u"The page's form is not there: " + file.u16string());
    std::string text;
    for (std::string line; std::getline(stream, line);) {
        const std::size_t start = std::min(line.find_first_not_of(' '), line.size());
        if (line.compare(start, 2, "On") != 0)
            text += line + "\n";
    }
    constexpr std::string_view pageClass = "TFamilyPage";
    return text.replace(text.find(pageClass), pageClass.size(), "TForm");
}

std::wstring NativeClass(const TWinControl& control) {
    if (As<TCustomRichEdit>(&control))
        return MSFTEDIT_CLASS;
    if (As<TCustomEdit>(&control))
        return WC_EDITW;
    if (As<TCustomListBox>(&control))
        return WC_LISTBOXW;
    if (As<TButtonControl>(&control))
        return WC_BUTTONW;
    if (As<TMonthCalendar>(&control))
        return MONTHCAL_CLASSW;
    return kAreaClass;
}

TPlainWindow Note(TControl& control) {
    TPlainWindow plain;
    plain.Text = WideChars(control.GetText());
    const TRect bounds = control.GetBoundsRect();
    plain.Place = ToWin(bounds);
    plain.Font = control.GetFont()->GetHandle();
    auto* window = As<TWinControl>(&control);
    if (!window) {
        plain.ClassName = WC_STATICW;
        plain.Style = WS_CHILD | WS_VISIBLE;
        return plain;
    }
    plain.ClassName = NativeClass(*window);
    plain.Style = static_cast<DWORD>(GetWindowLongPtrW(window->GetHandle(), GWL_STYLE));
    plain.ExStyle = static_cast<DWORD>(GetWindowLongPtrW(window->GetHandle(), GWL_EXSTYLE));
    if (auto* list = As<TCustomListBox>(window)) {
        plain.Items = list->GetItems()->GetLines();
        plain.Style &= ~static_cast<DWORD>(LBS_OWNERDRAWFIXED); // nobody paints for it
    }
    for (int i = window->GetControlCount(); i-- > 0;)
        plain.Children.push_back(Note(*window->GetControl(i)));
    return plain;
}

HWND Make(const TPlainWindow& plain, HWND parent) {
    const HWND window = CreateWindowExW(plain.ExStyle, plain.ClassName.c_str(), plain.Text.c_str(),
                                        parent ? plain.Style : plain.Style & ~static_cast<DWORD>(WS_VISIBLE),
                                        plain.Place.left, plain.Place.top, plain.Place.right - plain.Place.left,
                                        plain.Place.bottom - plain.Place.top, parent, nullptr, nullptr, nullptr);
    SendMessageW(window, WM_SETFONT, reinterpret_cast<WPARAM>(plain.Font), FALSE);
    for (const String& item : plain.Items)
        SendMessageW(window, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(WideChars(item)));
    for (const TPlainWindow& child : plain.Children)
        Make(child, window);
    return window;
}

void Settle(HWND window) {
    TheApplication().ProcessMessages();
    RedrawWindow(window, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    GdiFlush();
}

double OpenPage(const std::string& text) {
    std::unique_ptr<TComponent> page;
    const double time = Milliseconds([&] {
        page = CreateFromTextForm(text, nullptr);
        auto& form = static_cast<TForm&>(*page);
        form.Show();
        Settle(form.Handle);
    });
    page.reset();
    TheApplication().ProcessMessages();
    return time;
}

double OpenByHand(const TPlainWindow& plain) {
    HWND window = nullptr;
    const double time = Milliseconds([&] {
        window = Make(plain, nullptr);
        ShowWindow(window, SW_SHOW);
        Settle(window);
    });
    DestroyWindow(window);
    TheApplication().ProcessMessages();
    return time;
}

int CountWindows(const TPlainWindow& plain) {
    int count = 1;
    for (const TPlainWindow& child : plain.Children)
        count += CountWindows(child);
    return count;
}

void Run() {
    WNDCLASSW area{};
    area.lpfnWndProc = DefWindowProcW;
    area.hInstance = GetModuleHandleW(nullptr);
    area.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
    area.lpszClassName = kAreaClass;
    RegisterClassW(&area);

    const std::string text = PageText();
    const std::unique_ptr<TComponent> shown = CreateFromTextForm(text, nullptr);
    auto& form = static_cast<TForm&>(*shown);
    form.Show();
    Settle(form.Handle);
    TPlainWindow plain = Note(form);
    form.Hide(); // it lives on for the fonts
    std::printf("%d windows by hand, captions included\n", CountWindows(plain));
    PrintRatio("open the page Family", MedianPair([&] { return OpenPage(text); }, [&] { return OpenByHand(plain); }),
               "ms", 1.5);
}

} // namespace

int main() {
    TheApplication().Initialize();
    RegisterStandardControls();
    ZOR::RegisterPackage();
    try {
        Run();
    } catch (const std::exception& error) {
        std::printf("%s\n", error.what());
        return 1;
    }
    return 0;
}
