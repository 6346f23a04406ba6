#include "foundation/Zormessages.h"

#include "framework/windows/hints.h"

namespace ZOR {

TMessageLanguage UserMessageLanguage() {
    return MessageLanguage(GetUserDefaultLangID());
}

bool ShowErrorMessage(TWinControl& control, const TMessageText& message) {
    HideHint();
    TWinControl* const parent = control.GetParent();
    const HWND owner = parent != nullptr ? parent->GetHandle() : nullptr;
    return MessageBoxW(owner, WideChars(message.Text), WideChars(message.Caption), MB_ICONERROR | MB_OK) != 0;
}

} // namespace ZOR
