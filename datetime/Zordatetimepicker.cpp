#include "datetime/Zordatetimepicker.h"

#include "foundation/Zorpalette.h"

#include <commctrl.h>

namespace ZOR {

const TClassInfo& TZORDateTimePicker::StaticClass() {
    using D = TZORDateTimePicker;
    static const TClassInfo info = DescribeClass<D>(
        u"TZORDateTimePicker", TDateTimePicker::StaticClass(),
        {framedrows::Wymagany<D>(), Property<&D::GetFZORMode, &D::SetFZORMode>(u"ZORMode", false), controlrows::Ctl3D(),
         Property<&D::ZORGetChecked, &D::ZORSetChecked>(u"Checked", true), framedrows::OnValidateRequest<D>(),
         framedrows::BorderColors<D>(), framedrows::BoundLabel<D>(), controlrows::ParentCtl3D()});
    return info;
}

void TZORDateTimePicker::ZORSetChecked(bool value) {
    SetChecked(value);
}

void TZORDateTimePicker::SetChecked(bool value) {
    TZORFramed::SetChecked(value);
    if (GetChecked() == FInvertedCheck)
        FInvertedCheck = !GetChecked();
}

/// A value that the person has entered ends an error.
void TZORDateTimePicker::Change() {
    if (GetChecked() == FInvertedCheck)
        FInvertedCheck = !GetChecked();
    RestoreWymagany();
    TZORFramed::Change();
}

// Messages

void TZORDateTimePicker::WndProc(TMessage& message) {
    TLifeGuard alive(*this);
    TZORFramed::WndProc(message);
    if (!alive || !ShowsFrame())
        return;
    // The native one paints its border in these states by itself, without being asked.
    switch (message.Msg) {
    case CM_MOUSEENTER:
    case CM_MOUSELEAVE:
    case CM_ENTER:
    case CM_EXIT:
        RepaintFrame(*this, TFrameRepaint::Repaint);
        break;
    default:
        break;
    }
}

void TZORDateTimePicker::Dispatch(TMessage& message) {
    if (message.Msg == CM_CTL3DCHANGED)
        RepaintFrame(*this, TFrameRepaint::NonClient);
    else
        TZORFramed::Dispatch(message);
}

void TZORDateTimePicker::WMPaint(TMessage& message) {
    TLifeGuard alive(*this);
    TZORFramed::WMPaint(message);
    if (alive)
        PaintRequirementFrame(this, true);
}

void TZORDateTimePicker::CNNotify(TMessage& message) {
    TLifeGuard alive(*this);
    ParentWindowProc(message);
    if (alive)
        TZORFramed::CNNotify(message);
}

void TZORDateTimePicker::ParentWindowProc(const TMessage& message) {
    switch (reinterpret_cast<const NMHDR*>(message.LParam)->code) {
    case DTN_DATETIMECHANGE:
    case DTN_DROPDOWN:
    case NM_SETCURSOR: // the pointer crosses the parts that light up
        if (ShowsFrame())
            RepaintFrame(*this, TFrameRepaint::NonClient);
        break;
    default:
        break;
    }
}

void Zordatetimepicker::Register() {
    RegisterComponents(PalettePage, {&TZORDateTimePicker::StaticClass()});
}

} // namespace ZOR
