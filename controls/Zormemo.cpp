#include "controls/Zormemo.h"

#include "foundation/Zorpalette.h"

namespace ZOR {

const TClassInfo& TZORMemo::StaticClass() {
    static const TClassInfo info =
        DescribeClass<TZORMemo>(u"TZORMemo", TMemo::StaticClass(), framedrows::All<TZORMemo>());
    return info;
}

void TZORMemo::WndProc(TMessage& message) {
    TLifeGuard alive(*this);
    TZORScreenKeyboard::WndProc(message);
    if (alive && message.Msg == WM_MOUSEWHEEL)
        RepaintFrame(*this, TFrameRepaint::NonClient); // its scroll bars have moved inside the frame
}

void Zormemo::Register() {
    RegisterComponents(PalettePage, {&TZORMemo::StaticClass()});
}

} // namespace ZOR
