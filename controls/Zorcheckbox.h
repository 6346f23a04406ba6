#pragma once

// The framed check box: its requirement shows as a coloured square around the box.

#include "foundation/Zorframed.h"
#include "framework/windows/button.h"

namespace ZOR {

inline constexpr TFraming CheckBoxFraming{.Requirement = PlainRequirement,
                                          .StateChanged = TFrameRepaint::Repaint,
                                          .EnabledChanged = TFrameRepaint::Repaint,
                                          .Place = TFramePlace::Own,
                                          .HintInside = false};

class TZORCheckBox : public TZORFramed<TCheckBox, CheckBoxFraming> {
    FRAMEWORK_CLASS(TZORCheckBox)

public:
    explicit TZORCheckBox(TComponent* owner) : TZORFramed(owner) {}

protected:
    void Dispatch(TMessage& message) override;
    void WMPaint(TMessage& message) override;

private:
    void PaintSquare();
};

namespace Zorcheckbox {
/// Puts the control on the designer's palette.
void Register();
} // namespace Zorcheckbox

} // namespace ZOR
