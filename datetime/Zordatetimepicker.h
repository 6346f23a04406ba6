#pragma once

// The system's own date-time picker with a requirement frame and a caption label. It keeps its editing, its calendar
// and its check box.

#include "foundation/Zorframed.h"
#include "framework/windows/datetimepicker.h"

namespace ZOR {

inline constexpr TFraming DatePickerFraming{.Requirement = DateRequirement,
                                            .StateChanged = TFrameRepaint::Repaint,
                                            .EnabledChanged = TFrameRepaint::Repaint,
                                            .HintInside = false};

class TZORDateTimePicker : public TZORFramed<TDateTimePicker, DatePickerFraming> {
    FRAMEWORK_CLASS(TZORDateTimePicker)

public:
    FRAMEWORK_PROPERTY(bool, ZORMode, GetFZORMode, SetFZORMode);
    FRAMEWORK_PROPERTY(bool, Ctl3D, GetCtl3D, SetFCtl3D);
    FRAMEWORK_PROPERTY(bool, Checked, ZORGetChecked, ZORSetChecked);

    explicit TZORDateTimePicker(TComponent* owner) : TZORFramed(owner) {}

    /// Kept for the form; it changes nothing in what the picker shows or does.
    bool GetFZORMode() const { return FZORMode; }
    void SetFZORMode(bool value) { FZORMode = value; }
    /// Whether the native border shows while there is no requirement, instead of a grey line. Only the frame is painted
    /// anew; the window stays.
    void SetFCtl3D(bool value) { SetCtl3D(value); }
    bool ZORGetChecked() const { return GetChecked(); }
    void ZORSetChecked(bool value);
    void SetChecked(bool value) override;
    /// Always the opposite of Checked once that was set.
    bool GetInvertedCheck() const { return FInvertedCheck; }

    void WndProc(TMessage& message) override;

protected:
    void Dispatch(TMessage& message) override;
    void WMPaint(TMessage& message) override;
    void CNNotify(TMessage& message) override;
    void Change() override;
    /// The picker's notifications as they reach its parent (WM_NOTIFY), before the picker acts on them.
    virtual void ParentWindowProc(const TMessage& message);

private:
    /// Whether a frame stands over the native border: a state's, or the grey one of a flat picker.
    bool ShowsFrame() const { return GetFWymagany() != wNone || !GetCtl3D(); }

    bool FZORMode = false;
    bool FInvertedCheck = false;
};

namespace Zordatetimepicker {
/// Puts the control on the designer's palette.
void Register();
} // namespace Zordatetimepicker

} // namespace ZOR
