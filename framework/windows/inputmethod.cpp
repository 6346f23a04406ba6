#include "framework/windows/inputmethod.h"

#include <imm.h>

namespace framework {

namespace {

/// At the caret, in the font of the text around it.
void PlaceComposition(HWND window) {
    const HIMC context = ImmGetContext(window);
    if (!context)
        return;
    COMPOSITIONFORM form{};
    form.dwStyle = CFS_POINT;
    GetCaretPos(&form.ptCurrentPos);
    ImmSetCompositionWindow(context, &form);
    LOGFONTW font{};
    const auto handle = reinterpret_cast<HFONT>(SendMessageW(window, WM_GETFONT, 0, 0));
    if (handle && GetObjectW(handle, sizeof(font), &font))
        ImmSetCompositionFontW(context, &font);
    ImmReleaseContext(window, context);
}

} // namespace

bool ComposeApart(HWND window, TMessage& message) {
    switch (message.Msg) {
    case WM_IME_STARTCOMPOSITION:
        PlaceComposition(window);
        break;
    case WM_IME_COMPOSITION:
    case WM_IME_ENDCOMPOSITION:
    case WM_IME_CHAR:
        break;
    default:
        return false;
    }
    message.Result = DefWindowProcW(window, message.Msg, message.WParam, message.LParam);
    return true;
}

} // namespace framework
