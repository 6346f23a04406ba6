// What a form of framed edits costs, beside the same work done by hand with plain windows in the same run:
//
//   - creating, showing and destroying 500 framed edits with 500 caption labels, from a text form, against 500 EDIT and
//     500 STATIC windows,
//   - repainting a requirement frame, against the native non-client paint and the bare outline,
//   - sending a message through the control's whole WndProc chain, against a replaced window procedure.
//
// Prints medians; the aims are those of the project and are not asserted.

#include "bench/measure.h"
#include "controls/Zoredit.h"
#include "framework/graphics/handles.h"
#include "framework/system/formloader.h"
#include "framework/windows/application.h"
#include "framework/windows/standardcontrols.h"
#include "package/Zorpackage.h"

#include <string>

using namespace framework;
using namespace ZOR;
using namespace bench;

namespace {

constexpr int Fields = 500;
constexpr int Columns = 10;
constexpr int Repeats = 1000;

struct TPlace {
    int Left;
    int Top;
};

TPlace PlaceOfField(int index) {
    return {60 + index % Columns * 120, 4 + index / Columns * 17};
}

std::string FormText() {
    std::string text = "object BenchForm: TForm\r\n  Left = 0\r\n  Top = 0\r\n  BorderStyle = bsSingle\r\n"
                       "  ClientHeight = 860\r\n  ClientWidth = 1270\r\n  Position = poDesigned\r\n";
    for (int i = 0; i < Fields; ++i) {
        const TPlace place = PlaceOfField(i);
        const std::string number = std::to_string(i + 1);
        text += "  object Edit" + number + ": TZOREdit\r\n    Left = " + std::to_string(place.Left) +
                "\r\n    Top = " + std::to_string(place.Top) +
                "\r\n    Width = 50\r\n    Height = 16\r\n    AutoSize = False\r\n    TabOrder = " + std::to_string(i) +
                "\r\n    Text = 'text'\r\n    BoundLabel.Active = True\r\n    BoundLabel.Caption = 'Field " + number +
                "'\r\n  end\r\n";
    }
    return text + "end\r\n";
}

/// Everything that was sent or posted has been painted.
void Settle(HWND window) {
    TheApplication().ProcessMessages();
    RedrawWindow(window, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    GdiFlush();
}

struct TTimes {
    double Create = 0;
    double Destroy = 0;
};

TTimes PlainForm() {
    static const wchar_t* className = [] {
        WNDCLASSW windowClass{};
        windowClass.lpfnWndProc = DefWindowProcW;
        windowClass.hInstance = GetModuleHandleW(nullptr);
        windowClass.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
        windowClass.lpszClassName = L"PlainBenchForm";
        RegisterClassW(&windowClass);
        return windowClass.lpszClassName;
    }();
    TTimes times;
    HWND form = nullptr;
    const TUniqueFont font(CreateFontW(-11, 0, 0, 0, FW_NORMAL, 0, 0, 0, DEFAULT_CHARSET, 0, 0, 0, 0, L"Tahoma"));
    times.Create = Milliseconds([&] {
        form = CreateWindowExW(0, className, L"Plain", WS_POPUP | WS_CAPTION | WS_CLIPCHILDREN, 0, 0, 1280, 890,
                               nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
        for (int i = 0; i < Fields; ++i) {
            const TPlace place = PlaceOfField(i);
            const std::wstring caption = L"Field " + std::to_wstring(i + 1);
            const HWND label = CreateWindowExW(0, L"STATIC", caption.c_str(), WS_CHILD | WS_VISIBLE | SS_RIGHT,
                                               place.Left - 58, place.Top + 1, 50, 14, form, nullptr, nullptr, nullptr);
            SendMessageW(label, WM_SETFONT, reinterpret_cast<WPARAM>(font.Get()), FALSE);
            const HWND edit =
                CreateWindowExW(WS_EX_CLIENTEDGE, L"EDIT", L"text", WS_CHILD | WS_VISIBLE | WS_TABSTOP | ES_AUTOHSCROLL,
                                place.Left, place.Top, 50, 16, form, nullptr, nullptr, nullptr);
            SendMessageW(edit, WM_SETFONT, reinterpret_cast<WPARAM>(font.Get()), FALSE);
        }
        ShowWindow(form, SW_SHOW);
        Settle(form);
    });
    times.Destroy = Milliseconds([&] {
        DestroyWindow(form);
        TheApplication().ProcessMessages();
    });
    return times;
}

TTimes FramedForm(const std::string& text) {
    TTimes times;
    std::unique_ptr<TComponent> form;
    times.Create = Milliseconds([&] {
        form = CreateFromTextForm(text, nullptr);
        auto& shown = static_cast<TForm&>(*form);
        shown.Show();
        Settle(shown.Handle);
    });
    times.Destroy = Milliseconds([&] {
        form.reset();
        TheApplication().ProcessMessages();
    });
    return times;
}

void BenchForms() {
    const std::string text = FormText();
    std::vector<double> plainCreate;
    std::vector<double> plainDestroy;
    std::vector<double> create;
    std::vector<double> destroy;
    for (int round = 0; round < Rounds; ++round) {
        const TTimes plain = PlainForm();
        const TTimes framed = FramedForm(text);
        plainCreate.push_back(plain.Create);
        plainDestroy.push_back(plain.Destroy);
        create.push_back(framed.Create);
        destroy.push_back(framed.Destroy);
    }
    PrintRatio("create and show", {Median(create), Median(plainCreate)}, "ms", 0.9);
    PrintRatio("destroy", {Median(destroy), Median(plainDestroy)}, "ms", 0.9);
}

/// Median of several rounds, in microseconds for one of Repeats.
double MicrosecondsEach(const std::function<void()>& work) {
    std::vector<double> rounds;
    for (int round = 0; round < Rounds; ++round) {
        rounds.push_back(Milliseconds([&] {
            for (int i = 0; i < Repeats; ++i)
                work();
            GdiFlush();
        }));
    }
    return Median(rounds) * 1000 / Repeats;
}

WNDPROC nativeProcedure = nullptr;

LRESULT CALLBACK HandProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    return CallWindowProcW(nativeProcedure, window, message, wParam, lParam);
}

void BenchControl() {
    TForm form(nullptr);
    TZOREdit edit(&form);
    edit.Parent = &form;
    edit.SetBounds(10, 10, 150, 21);
    edit.Wymagany = wRequired;
    edit.BoundLabel->Active = true;
    form.Show();
    const HWND plain = CreateWindowExW(WS_EX_CLIENTEDGE, L"EDIT", L"", WS_CHILD | WS_VISIBLE | ES_AUTOHSCROLL, 10, 60,
                                       150, 21, form.Handle, nullptr, nullptr, nullptr);
    Settle(form.Handle);

    const double frame = MicrosecondsEach([&] { SendMessageW(edit.Handle, WM_NCPAINT, 1, 0); });
    const double native = MicrosecondsEach([&] { SendMessageW(plain, WM_NCPAINT, 1, 0); });
    const double bare = MicrosecondsEach([&] {
        const TWindowDC dc(plain, TWindowDC::Whole);
        const TSelectedObject hollow(dc, GetStockObject(NULL_BRUSH));
        Rectangle(dc, 0, 0, 150, 21);
    });
    PrintRatio("frame repaint", {frame, native}, "us", 0.5);
    std::printf("bare outline                 %9.2f us\n", bare);

    // A message that the native procedure answers at once, so that the way to it is what counts.
    nativeProcedure =
        reinterpret_cast<WNDPROC>(SetWindowLongPtrW(plain, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(HandProcedure)));
    const double framed = MicrosecondsEach([&] { SendMessageW(edit.Handle, EM_GETLIMITTEXT, 0, 0); });
    const double replaced = MicrosecondsEach([&] { SendMessageW(plain, EM_GETLIMITTEXT, 0, 0); });
    PrintRatio("message", {framed, replaced}, "us", 2.0);
}

} // namespace

int main() {
    TheApplication().Initialize();
    RegisterStandardControls();
    RegisterPackage();
    try {
        BenchForms();
        BenchControl();
    } catch (const std::exception& error) {
        std::printf("%s\n", error.what());
        return 1;
    }
    return 0;
}
