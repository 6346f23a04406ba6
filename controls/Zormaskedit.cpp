#include "controls/Zormaskedit.h"

#include "foundation/Zormessages.h"
#include "foundation/Zorpalette.h"

namespace ZOR {

const TClassInfo& TZORMaskEdit::StaticClass() {
    static const TClassInfo info =
        DescribeClass<TZORMaskEdit>(u"TZORMaskEdit", TMaskEdit::StaticClass(), framedrows::All<TZORMaskEdit>());
    return info;
}

void TZORMaskEdit::ValidateError() {
    if (UserMessageLanguage() == TMessageLanguage::Polish)
        throw EDBEditError(u"Wpis \"" + GetEditText() + u"\" jest niepe\u0142ny. Klawisz Esc go cofa.");
    TMaskEdit::ValidateError();
}

void Zormaskedit::Register() {
    RegisterComponents(PalettePage, {&TZORMaskEdit::StaticClass()});
}

} // namespace ZOR
