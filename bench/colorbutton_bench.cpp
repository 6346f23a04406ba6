// What painting gradient buttons costs, beside owner-drawn native buttons painted by hand: with the gradient alone, and
// with the same picture in the same kind of window. The system works out what shows of a window from its siblings above
// it, and rounded ones take it longer; so the same number of buttons is painted in panels, too.

#include "bench/measure.h"
#include "buttons/Zorcolorbutton.h"
#include "framework/graphics/handles.h"
#include "framework/windows/application.h"
#include "framework/windows/panel.h"

using namespace framework;
using namespace ZOR;
using namespace bench;

namespace {

constexpr int Buttons = 1000;
constexpr int Columns = 25;
constexpr TSize Size{48, 20};
constexpr TSize Step{50, 22};

enum class TPlace {
    Form,  ///< all on one form
    Panels ///< each row on a panel
};

TRect RowOfButton(int index) {
    return Bounds(0, index / Columns * Step.Height, Columns * Step.Width, Step.Height);
}

TRect PlaceOfButton(int index, TPlace place) {
    return Bounds(index % Columns * Step.Width, place == TPlace::Form ? RowOfButton(index).Top : 0, Size.Width,
                  Size.Height);
}

/// What a program by hand makes of its buttons.
enum class TFace {
    Gradient, ///< the filling alone
    Whole,    ///< the same picture: caption and outline too, in a window with rounded corners, clipped at its siblings
};

void DrawByHand(const DRAWITEMSTRUCT& item, TFace face) {
    RECT rect = item.rcItem;
    TRIVERTEX corners[] = {{rect.left, rect.top, 0x4600, 0x8B00, 0xCB00, 0},
                           {rect.right, rect.bottom, 0x3300, 0x5F00, 0xA800, 0}};
    GRADIENT_RECT whole{0, 1};
    GradientFill(item.hDC, corners, 2, &whole, 1, GRADIENT_FILL_RECT_V);
    if (face == TFace::Gradient)
        return;
    SetBkMode(item.hDC, TRANSPARENT);
    SetTextColor(item.hDC, 0xFFFFFF);
    const TSelectedObject font(item.hDC, reinterpret_cast<HGDIOBJ>(SendMessageW(item.hwndItem, WM_GETFONT, 0, 0)));
    DrawTextW(item.hDC, L"OK", 2, &rect, DT_CENTER | DT_VCENTER | DT_SINGLELINE);
    const TSelectedObject hollow(item.hDC, GetStockObject(NULL_BRUSH));
    RoundRect(item.hDC, rect.left, rect.top, rect.right - 1, rect.bottom - 1, 5, 5);
}

LRESULT CALLBACK HandForm(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message != WM_DRAWITEM)
        return DefWindowProcW(window, message, wParam, lParam);
    const auto face = static_cast<TFace>(GetWindowLongPtrW(window, GWLP_USERDATA));
    DrawByHand(*reinterpret_cast<const DRAWITEMSTRUCT*>(lParam), face);
    return TRUE;
}

HWND WindowByHand(TFace face, HWND parent, DWORD style, const TRect& place) {
    static const wchar_t* className = [] {
        WNDCLASSW windowClass{};
        windowClass.lpfnWndProc = HandForm;
        windowClass.hInstance = GetModuleHandleW(nullptr);
        windowClass.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
        windowClass.lpszClassName = L"HandBenchForm";
        RegisterClassW(&windowClass);
        return windowClass.lpszClassName;
    }();
    const HWND window = CreateWindowExW(0, className, L"By hand", style | WS_CLIPCHILDREN, place.Left, place.Top,
                                        place.Width(), place.Height(), parent, nullptr, nullptr, nullptr);
    SetWindowLongPtrW(window, GWLP_USERDATA, static_cast<LONG_PTR>(face));
    return window;
}

constexpr TRect FormPlace{0, 0, 1260, 890};

HWND FormByHand(TFace face, TPlace place, HFONT font) {
    const HWND form = WindowByHand(face, nullptr, WS_POPUP, FormPlace);
    const DWORD style = face == TFace::Whole ? WS_CLIPSIBLINGS : 0;
    HWND parent = form;
    for (int i = 0; i < Buttons; ++i) {
        if (place == TPlace::Panels && i % Columns == 0)
            parent = WindowByHand(face, form, WS_CHILD | WS_VISIBLE, RowOfButton(i));
        const TRect at = PlaceOfButton(i, place);
        const HWND button = CreateWindowExW(0, L"BUTTON", L"OK", WS_CHILD | WS_VISIBLE | BS_OWNERDRAW | style, at.Left,
                                            at.Top, at.Width(), at.Height(), parent, nullptr, nullptr, nullptr);
        SendMessageW(button, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
        if (face == TFace::Whole)
            SetWindowRgn(button, CreateRoundRectRgn(0, 0, Size.Width, Size.Height, 4, 4), FALSE);
    }
    ShowWindow(form, SW_SHOW);
    return form;
}

std::unique_ptr<TForm> FormOfColorButtons(TPlace place) {
    auto form = std::make_unique<TForm>(nullptr);
    form->SetBorderStyle(bsNone);
    form->SetBoundsRect(FormPlace);
    TWinControl* parent = form.get();
    for (int i = 0; i < Buttons; ++i) {
        if (place == TPlace::Panels && i % Columns == 0) {
            auto* panel = new TPanel(form.get());
            panel->SetBevelOuter(bvNone);
            panel->SetBoundsRect(RowOfButton(i));
            panel->SetParent(form.get());
            parent = panel;
        }
        auto* button = new TZORColorButton(form.get(), csBlue);
        button->SetBoundsRect(PlaceOfButton(i, place));
        button->SetText(u"OK");
        button->SetParent(parent);
    }
    form->Show();
    return form;
}

double PaintAll(HWND form) {
    SetForegroundWindow(form);
    TheApplication().ProcessMessages();
    return Milliseconds([&] {
        RedrawWindow(form, nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN | RDW_UPDATENOW);
        GdiFlush();
    });
}

void Compare(const char* what, TPlace place, TFace face, double aim) {
    const auto form = FormOfColorButtons(place);
    const HWND hand = FormByHand(face, place, form->GetFont()->GetHandle());
    const auto ours = [&] { return PaintAll(form->GetHandle()); };
    PrintRatio(what, MedianPair(ours, [&] { return PaintAll(hand); }), "ms", aim);
    DestroyWindow(hand);
}

} // namespace

int main() {
    TheApplication().Initialize();
    try {
        Compare("one form, beside fillings", TPlace::Form, TFace::Gradient, 1.3);
        Compare("one form, the same by hand", TPlace::Form, TFace::Whole, 1.3);
        Compare("40 panels, beside fillings", TPlace::Panels, TFace::Gradient, 1.3);
        Compare("40 panels, the same by hand", TPlace::Panels, TFace::Whole, 1.3);
    } catch (const std::exception& error) {
        std::printf("%s\n", error.what());
        return 1;
    }
    return 0;
}
