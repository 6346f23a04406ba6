#include "numeric/Zorspinbuttons.h"

#include "framework/graphics/brushes.h"

namespace ZOR {

namespace {

// A flat frame lies within the client area of its field, so the arrows stand under it: this many rows of theirs belong
// to the frame and the gap inside it.
constexpr int kFlatFrame = 2;

} // namespace

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
    switch (message.Msg) {
    case WM_LBUTTONDOWN:
        if (!IsDesigning() && !TakeFocus())
            return;
        break;
    case WM_NCCALCSIZE:
        TCustomUpDown::Dispatch(message);
        if (UnderFlatFrame())
            reinterpret_cast<RECT*>(message.LParam)->top += kFlatFrame;
        return;
    case WM_NCPAINT:
        if (UnderFlatFrame())
            return PaintUnderFrame();
        break;
    default:
        break;
    }
    TCustomUpDown::Dispatch(message);
}

bool TFieldUpDown::UnderFlatFrame() const {
    return GetParent() && !GetParent()->GetCtl3D();
}

void TFieldUpDown::PaintUnderFrame() {
    {
        const TWindowDC dc(FHandle, TWindowDC::Whole);
        const RECT strip{0, 0, GetWidth(), kFlatFrame};
        FillRect(dc, &strip, GetBrush()->GetHandle());
    }
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
