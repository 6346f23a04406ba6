#include "controls/Zorlistbox.h"

#include "foundation/Zorpalette.h"

namespace ZOR {

const TClassInfo& TZORListBox::StaticClass() {
    namespace row = framedrows;
    using Self = TZORListBox;
    static const TClassInfo info =
        DescribeClass<Self>(u"TZORListBox", TListBox::StaticClass(),
                            {row::Wymagany<Self>(), row::OnValidateRequest<Self>(), row::BorderColors<Self>()});
    return info;
}

void Zorlistbox::Register() {
    RegisterComponents(PalettePage, {&TZORListBox::StaticClass()});
}

} // namespace ZOR
