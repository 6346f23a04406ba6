// What typing costs in a float edit, beside a plain EDIT window on the same form in the same run: 10,000 key presses
// that take their way through the message loop, each shown before the next one comes. A number is typed over the one
// before.
//
// Prints medians; the aim is that of the project and is not asserted. Ends with 1 when a field does not hold what was
// typed.

#include "bench/measure.h"
#include "framework/windows/application.h"
#include "numeric/Zorfloatedit.h"
#include "numeric/Zorspinfloatedit.h"

#include <commctrl.h>

using namespace framework;
using namespace ZOR;
using namespace bench;

namespace {

constexpr int Keys = 1504; // a round: whole numbers
constexpr StringView Number = u"12345,67";

/// Types Number over and over; gives microseconds a key.
double Type(HWND window) {
    ::SetFocus(window);
    TheApplication().ProcessMessages();
    const double taken = Milliseconds([&] {
        for (int i = 0; i < Keys; ++i) {
            const auto place = static_cast<std::size_t>(i) % Number.size();
            if (place == 0)
                SendMessageW(window, EM_SETSEL, 0, -1);
            PostMessageW(window, WM_CHAR, Number[place], 1);
            TheApplication().ProcessMessages();
            UpdateWindow(window);
        }
    });
    return taken * 1000 / Keys;
}

bool Holds(HWND window, StringView wanted) {
    wchar_t text[32] = {};
    GetWindowTextW(window, text, ARRAYSIZE(text));
    return FromWide(text) == wanted;
}

} // namespace

int main() {
    TheApplication().Initialize();
    FormatSettings().DecimalSeparator = u',';

    TForm form(nullptr);
    form.SetBounds(50, 50, 400, 200);
    TZORFloatEdit number(nullptr);
    number.Parent = &form;
    number.SetBounds(20, 20, 120, 21);
    TZORSpinFloatEdit spin(nullptr);
    spin.Parent = &form;
    spin.SetBounds(20, 60, 120, 21);
    TEdit field(nullptr);
    field.Parent = &form;
    field.SetBounds(20, 100, 120, 21);
    form.Show();
    SetForegroundWindow(form.Handle);
    const HWND plain = CreateWindowExW(WS_EX_CLIENTEDGE, WC_EDITW, L"", WS_CHILD | WS_VISIBLE | ES_AUTOHSCROLL, 20, 130,
                                       120, 21, form.Handle, nullptr, nullptr, nullptr);
    SendMessageW(plain, WM_SETFONT, reinterpret_cast<WPARAM>(form.Font->GetHandle()), FALSE);
    TheApplication().ProcessMessages();

    struct TRow {
        const char* What;
        HWND Window;
        double Aim;
    };
    for (const TRow& row : {TRow{"edit", field.Handle, 1.3}, TRow{"float edit", number.Handle, 1.3},
                            TRow{"spin float edit", spin.Handle, 1.3}}) {
        const TPair pair = MedianPair([&] { return Type(row.Window); }, [&] { return Type(plain); });
        PrintRatio(row.What, pair, "us/key", row.Aim);
        if (!Holds(row.Window, Number) || !Holds(plain, Number)) {
            std::printf("%s does not hold what was typed\n", row.What);
            return 1;
        }
    }
    return 0;
}
