#pragma once

// The framed check-list box: items with check boxes, a requirement frame and a caption label. On request a click on the
// text of an item changes its box, too.

#include "controls/Zorchecklistbox_rules.h"
#include "foundation/Zorframed.h"
#include "framework/windows/checklistbox.h"

namespace ZOR {

inline constexpr TFraming CheckListBoxFraming{.Requirement = PlainRequirement,
                                              .StateChanged = TFrameRepaint::Repaint,
                                              .Place = TFramePlace::OverBorder,
                                              .HintInside = false};

class TZORCheckListBox : public TZORFramed<TCheckListBox, CheckListBoxFraming> {
    FRAMEWORK_CLASS(TZORCheckListBox)

public:
    FRAMEWORK_PROPERTY(bool, CheckOnClickString, GetCheckOnClickString, SetCheckOnClickString);

    explicit TZORCheckListBox(TComponent* owner) : TZORFramed(owner) {}

    /// Whether a click on an item's text changes its box. The keyboard changes it by the space key alone.
    bool GetCheckOnClickString() const { return FCheckOnClickString; }
    void SetCheckOnClickString(bool value) { FCheckOnClickString = value; }

    void Click() override;
    void WndProc(TMessage& message) override;

protected:
    void ClickCheck() override;
    void MouseDown(TMouseButton button, TShiftState shift, int x, int y) override;
    void KeyDown(WORD& key, TShiftState shift) override;
    void KeyPress(char16_t& key) override;

private:
    void ScrollSideways(TMessage& message);

    TCheckClick FClick;
    bool FCheckOnClickString = false;
};

namespace Zorchecklistbox {
/// Puts the control on the designer's palette.
void Register();
} // namespace Zorchecklistbox

} // namespace ZOR
