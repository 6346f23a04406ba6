#include "controls/Zorcheckbox.h"

#include "controls/Zorcheckbox_rules.h"
#include "foundation/Zorpalette.h"
#include "framework/graphics/handles.h"

namespace ZOR {

const TClassInfo& TZORCheckBox::StaticClass() {
    namespace row = framedrows;
    using Self = TZORCheckBox;
    static const TClassInfo info = DescribeClass<Self>(
        u"TZORCheckBox", TCheckBox::StaticClass(),
        {row::Wymagany<Self>(), row::OnValidateRequest<Self>(), row::BorderColors<Self>(), row::BoundLabel<Self>()});
    return info;
}

void TZORCheckBox::Dispatch(TMessage& message) {
    TLifeGuard alive(*this);
    TZORFramed::Dispatch(message);
    if (!alive)
        return;
    switch (message.Msg) {
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
    case WM_LBUTTONDOWN:
    case WM_LBUTTONUP:
    case WM_LBUTTONDBLCLK:
    case WM_MOUSEMOVE:
    case WM_MOUSELEAVE:
    case WM_KEYDOWN:
    case WM_KEYUP:
    case WM_ENABLE:
    case BM_SETCHECK:
    case BM_SETSTATE:
        PaintSquare(); // the native box paints itself outside of WM_PAINT then, over the square
        break;
    default:
        break;
    }
}

void TZORCheckBox::WMPaint(TMessage& message) {
    TLifeGuard alive(*this);
    PaintHandler(message);
    if (alive)
        PaintSquare();
    message.Result = 0;
}

void TZORCheckBox::PaintSquare() {
    if (Wymagany == wNone || !HandleAllocated() || !GetShowing())
        return;
    RECT window{};
    GetWindowRect(GetHandle(), &window);
    const bool captionAtLeft = GetAlignment() == taLeftJustify;
    const RECT square = ToWin(CheckBoxSquare({window.right - window.left, window.bottom - window.top},
                                             captionAtLeft != UseRightToLeftAlignment()));
    const TColor color = FrameColor(WymaganyName(Wymagany), BorderColors->GetFrameColors());
    const TUniqueBrush brush(CreateSolidBrush(static_cast<COLORREF>(color)));
    const TWindowDC dc(GetHandle(), TWindowDC::Whole);
    FrameRect(dc, &square, brush.Get());
}

void Zorcheckbox::Register() {
    RegisterComponents(PalettePage, {&TZORCheckBox::StaticClass()});
}

} // namespace ZOR
