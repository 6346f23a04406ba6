#pragma once

// The framed list box: a list of texts to choose from with a requirement frame.

#include "foundation/Zorframed.h"
#include "framework/windows/listbox.h"

namespace ZOR {

inline constexpr TFraming ListBoxFraming{.Requirement = PlainRequirement,
                                         .StateChanged = TFrameRepaint::Repaint,
                                         .EnabledChanged = TFrameRepaint::Invalidate,
                                         .BoundLabel = false,
                                         .HintInside = false};

class TZORListBox : public TZORFramed<TListBox, ListBoxFraming> {
    FRAMEWORK_CLASS(TZORListBox)

public:
    explicit TZORListBox(TComponent* owner) : TZORFramed(owner) {}
};

namespace Zorlistbox {
/// Puts the control on the designer's palette.
void Register();
} // namespace Zorlistbox

} // namespace ZOR
