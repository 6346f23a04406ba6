#pragma once

// The framed memo: text of several lines with a requirement frame, a caption label, a hint inside while it is empty,
// and F7 for letters that the keyboard lacks.

#include "controls/Zorscreenkeyboard.h"
#include "framework/windows/memo.h"

namespace ZOR {

class TZORMemo : public TZORScreenKeyboard<TZORFramed<TMemo>, TSignsNotice::KeyUp> {
    FRAMEWORK_CLASS(TZORMemo)

public:
    explicit TZORMemo(TComponent* owner) : TZORScreenKeyboard(owner) {}

    void WndProc(TMessage& message) override;

protected:
    /// Letters of the popup go in whatever MaxLength says.
    int GetSignsLimit() const override { return 0; }
};

namespace Zormemo {
/// Puts the control on the designer's palette.
void Register();
} // namespace Zormemo

} // namespace ZOR
