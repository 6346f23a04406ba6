#include "foundation/Zorpackage.h"

#include "buttons/Zorcolorbutton.h"
#include "controls/Zoredit.h"
#include "datetime/Zordatetimepicker.h"
#include "datetime/Zordatetimepickeredit.h"

namespace ZOR {

void RegisterPackage() {
    Zordatetimepicker::Register();
    Zordatetimepickeredit::Register();
    Zoredit::Register();
    Zorcolorbutton::Register();
}

} // namespace ZOR
