#include "controls/Zorrichedit.h"

#include "foundation/Zorpalette.h"

namespace ZOR {

const TClassInfo& TZORRichEdit::StaticClass() {
    namespace row = framedrows;
    using Self = TZORRichEdit;
    static const TClassInfo info =
        DescribeClass<Self>(u"TZORRichEdit", TRichEdit::StaticClass(),
                            {row::Wymagany<Self>(), row::OnValidateRequest<Self>(), row::BorderColors<Self>()});
    return info;
}

void Zorrichedit::Register() {
    RegisterComponents(PalettePage, {&TZORRichEdit::StaticClass()});
}

} // namespace ZOR
