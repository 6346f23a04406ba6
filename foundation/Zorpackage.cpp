#include "foundation/Zorpackage.h"

#include "buttons/Zorcolorbutton.h"
#include "controls/Zoredit.h"
#include "datetime/Zordatetimepicker.h"
#include "datetime/Zordatetimepickeredit.h"
#include "numeric/Zorfloatedit.h"
#include "numeric/Zorspinedit.h"
#include "numeric/Zorspinfloatedit.h"

namespace ZOR {

void RegisterPackage() {
    Zordatetimepicker::Register();
    Zordatetimepickeredit::Register();
    Zoredit::Register();
    Zorcolorbutton::Register();
    Zorfloatedit::Register();
    Zorspinedit::Register();
    Zorspinfloatedit::Register();
}

} // namespace ZOR
