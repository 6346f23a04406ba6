#pragma once

// The framed rich edit: formatted text with a requirement frame.

#include "foundation/Zorframed.h"
#include "framework/windows/richedit.h"

namespace ZOR {

inline constexpr TFraming RichEditFraming{
    .Requirement = PlainRequirement, .StateChanged = TFrameRepaint::Repaint, .BoundLabel = false, .HintInside = false};

class TZORRichEdit : public TZORFramed<TRichEdit, RichEditFraming> {
    FRAMEWORK_CLASS(TZORRichEdit)

public:
    explicit TZORRichEdit(TComponent* owner) : TZORFramed(owner) {}
};

namespace Zorrichedit {
/// Puts the control on the designer's palette.
void Register();
} // namespace Zorrichedit

} // namespace ZOR
