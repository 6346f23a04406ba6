#include "controls/Zorscrollbox.h"

#include "foundation/Zorpalette.h"

namespace ZOR {

const TClassInfo& TZORScrollBox::StaticClass() {
    static const TClassInfo info = DescribeClass<TZORScrollBox>(u"TZORScrollBox", TScrollBox::StaticClass());
    return info;
}

void Zorscrollbox::Register() {
    RegisterComponents(PalettePage, {&TZORScrollBox::StaticClass()});
}

} // namespace ZOR
