#pragma once

// The framed mask edit: a field whose mask says what may be typed at each place, with a requirement frame, a caption
// label, and a hint inside while nothing is entered.

#include "foundation/Zorframed.h"
#include "framework/windows/maskedit.h"

namespace ZOR {

/// The mouse may cross the field and the person may leave it: an error stays until the program ends it.
inline constexpr TFraming MaskEditFraming{.Requirement = PlainRequirement, .StateChanged = TFrameRepaint::Repaint};

class TZORMaskEdit : public TZORFramed<TMaskEdit, MaskEditFraming> {
    FRAMEWORK_CLASS(TZORMaskEdit)

public:
    explicit TZORMaskEdit(TComponent* owner) : TZORFramed(owner) {}

protected:
    /// The literals of the mask alone are no entry.
    bool TextIsEmpty() const override { return IsEmpty(); }
    /// Says in the user's language what is missing.
    [[noreturn]] void ValidateError() override;
};

namespace Zormaskedit {
/// Puts the control on the designer's palette.
void Register();
} // namespace Zormaskedit

} // namespace ZOR
