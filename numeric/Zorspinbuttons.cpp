#include "numeric/Zorspinbuttons.h"

namespace ZOR {

const TClassInfo& TFieldUpDown::StaticClass() {
    static const TClassInfo info = DescribeClass<TFieldUpDown>(u"TFieldUpDown", TCustomUpDown::StaticClass());
    return info;
}

void TFieldUpDown::PutPosition(int value) {
    FSilent = true;
    SetPosition(value);
    FSilent = false;
}

bool TFieldUpDown::CanChange(int newValue, TUpDownDirection direction) {
    return FSilent || TCustomUpDown::CanChange(newValue, direction);
}

void TFieldUpDown::Dispatch(TMessage& message) {
    if (message.Msg == WM_LBUTTONDOWN && !IsDesigning() && !TakeFocus())
        return;
    TLifeGuard alive(*this);
    TCustomUpDown::Dispatch(message);
    // A flat frame lies within the client area, so the arrows have just painted over it.
    if (message.Msg == WM_PAINT && alive && GetParent() && !GetParent()->GetCtl3D())
        RepaintFrame(*GetParent(), TFrameRepaint::NonClient);
}

bool TFieldUpDown::TakeFocus() {
    TWinControl* field = GetParent();
    if (!field || field->Focused())
        return true;
    TLifeGuard alive(*this);
    if (field->CanFocus())
        field->SetFocus();
    // Another field may have asked the person something as it was left; by now the button is up again, and the native
    // window would step for ever.
    return alive && field->Focused() && GetKeyState(VK_LBUTTON) < 0;
}

} // namespace ZOR
