#include "framework/windows/textcontrol.h"

#include <algorithm>

namespace framework {

void TTextControl::KeepWindowState() {
    FSelection = GetSelection();
    TWinControl::KeepWindowState();
}

TTextControl::TSelection TTextControl::GetSelection() const {
    if (!HandleAllocated())
        return FSelection;
    DWORD start = 0;
    DWORD end = 0;
    // A combo box would answer CB_GETEDITSEL with 16 bits.
    if (const HWND window = TextWindow())
        SendMessageW(window, EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
    return {static_cast<int>(start), static_cast<int>(end)};
}

void TTextControl::SetSelection(TSelection value) {
    // A window takes -1 as "everything" and clips the rest; without one the text is clipped here in the same way.
    const int length = static_cast<int>(GetText().size());
    value.Start = std::clamp(value.Start, 0, length);
    value.End = std::clamp(value.End, value.Start, length);
    if (!HandleAllocated()) {
        FSelection = value;
    } else if (const HWND window = TextWindow()) {
        SendMessageW(window, EM_SETSEL, static_cast<WPARAM>(value.Start), value.End);
        SendMessageW(window, EM_SCROLLCARET, 0, 0);
    }
}

int TTextControl::GetSelLength() const {
    const TSelection selection = GetSelection();
    return selection.End - selection.Start;
}

void TTextControl::SetSelLength(int value) {
    const int start = GetSelStart();
    SetSelection({start, start + std::clamp(value, 0, INT_MAX - start)});
}

String TTextControl::GetSelText() const {
    const TSelection selection = GetSelection();
    const String text = GetText();
    const auto start = std::min(static_cast<std::size_t>(selection.Start), text.size());
    return text.substr(start, static_cast<std::size_t>(selection.End - selection.Start));
}

void TTextControl::SetSelText(const String& value) {
    if (HandleAllocated()) {
        if (const HWND window = TextWindow())
            SendMessageW(window, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(WideChars(value)));
        return;
    }
    const TSelection selection = FSelection;
    String text = GetText();
    text.replace(static_cast<std::size_t>(selection.Start), static_cast<std::size_t>(selection.End - selection.Start),
                 value);
    TLifeGuard alive(*this);
    SetText(text);
    if (alive)
        SetSelStart(selection.Start + static_cast<int>(value.size()));
}

} // namespace framework
