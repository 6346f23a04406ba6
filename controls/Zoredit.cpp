#include "controls/Zoredit.h"

#include "foundation/Zorpalette.h"

namespace ZOR {

const TClassInfo& TZOREdit::StaticClass() {
    static const TClassInfo info =
        DescribeClass<TZOREdit>(u"TZOREdit", TEdit::StaticClass(), framedrows::All<TZOREdit>());
    return info;
}

void Zoredit::Register() {
    RegisterComponents(PalettePage, {&TZOREdit::StaticClass()});
}

} // namespace ZOR
