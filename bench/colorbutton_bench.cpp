// What painting a gradient button costs, beside owner-drawn native buttons painted by hand: with the gradient alone,
// and with the same picture.

#include "bench/measure.h"
#include "buttons/Zorcolorbutton.h"
#include "framework/graphics/handles.h"
#include "framework/windows/application.h"

using namespace framework;
using namespace ZOR;
using namespace bench;

namespace {

constexpr int Buttons = 1000;
constexpr int Columns = 25;
constexpr TSize Size{48, 20};

TPoint PlaceOfButton(int index) {
    return {index % Columns * (Size.Width + 2), index / Columns * (Size.Height + 2)};
}

/// What the window procedure of a form by hand paints.
enum class TFace {
    Gradient, ///< the filling alone
    Whole,    ///< the same picture: caption and outline too, in a window with rounded corners
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

HWND FormByHand(TFace face, HFONT font) {
    static const wchar_t* className = [] {
        WNDCLASSW windowClass{};
        windowClass.lpfnWndProc = HandForm;
        windowClass.hInstance = GetModuleHandleW(nullptr);
        windowClass.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
        windowClass.lpszClassName = L"HandBenchForm";
        RegisterClassW(&windowClass);
        return windowClass.lpszClassName;
    }();
    const HWND form = CreateWindowExW(0, className, L"By hand", WS_POPUP | WS_CLIPCHILDREN, 0, 0, 1260, 890, nullptr,
                                      nullptr, nullptr, nullptr);
    SetWindowLongPtrW(form, GWLP_USERDATA, static_cast<LONG_PTR>(face));
    for (int i = 0; i < Buttons; ++i) {
        const TPoint place = PlaceOfButton(i);
        const HWND button = CreateWindowExW(0, L"BUTTON", L"OK", WS_CHILD | WS_VISIBLE | BS_OWNERDRAW, place.X, place.Y,
                                            Size.Width, Size.Height, form, nullptr, nullptr, nullptr);
        SendMessageW(button, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
        if (face == TFace::Whole)
            SetWindowRgn(button, CreateRoundRectRgn(0, 0, Size.Width, Size.Height, 4, 4), FALSE);
    }
    ShowWindow(form, SW_SHOW);
    return form;
}

std::unique_ptr<TForm> FormOfColorButtons() {
    auto form = std::make_unique<TForm>(nullptr);
    form->SetBorderStyle(bsNone);
    form->SetBounds(0, 0, 1260, 890);
    for (int i = 0; i < Buttons; ++i) {
        auto* button = new TZORColorButton(form.get(), csBlue);
        const TPoint place = PlaceOfButton(i);
        button->SetBounds(place.X, place.Y, Size.Width, Size.Height);
        button->SetText(u"OK");
        button->SetParent(form.get());
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

} // namespace

int main() {
    TheApplication().Initialize();
    try {
        const auto form = FormOfColorButtons();
        const HFONT font = form->GetFont()->GetHandle();
        const auto ours = [&] { return PaintAll(form->GetHandle()); };
        const HWND filled = FormByHand(TFace::Gradient, font);
        PrintRatio("1,000 buttons, gradient only", MedianPair(ours, [&] { return PaintAll(filled); }), "ms", 1.3);
        DestroyWindow(filled);
        const HWND whole = FormByHand(TFace::Whole, font);
        PrintRatio("1,000 buttons, same picture", MedianPair(ours, [&] { return PaintAll(whole); }), "ms", 1.3);
        DestroyWindow(whole);
    } catch (const std::exception& error) {
        std::printf("%s\n", error.what());
        return 1;
    }
    return 0;
}
