#include "foundation/Zorpackage.h"

#include "buttons/Zorcolorbutton.h"
#include "controls/Zoredit.h"

namespace ZOR {

void RegisterPackage() {
    Zoredit::Register();
    Zorcolorbutton::Register();
}

} // namespace ZOR
