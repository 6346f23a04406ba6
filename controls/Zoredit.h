#pragma once

// The framed edit: one line of text with a requirement frame, a caption label, a hint inside while it is empty, and F7
// for letters that the keyboard lacks.

#include "controls/Zorscreenkeyboard.h"
#include "framework/windows/edit.h"

namespace ZOR {

class TZOREdit : public TZORScreenKeyboard<TZORFramed<TEdit>> {
    FRAMEWORK_CLASS(TZOREdit)

public:
    explicit TZOREdit(TComponent* owner) : TZORScreenKeyboard(owner) {}
};

namespace Zoredit {
/// Puts the control on the designer's palette.
void Register();
} // namespace Zoredit

} // namespace ZOR
