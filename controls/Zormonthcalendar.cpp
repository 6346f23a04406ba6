#include "controls/Zormonthcalendar.h"

#include "foundation/Zorpalette.h"

namespace ZOR {

const TClassInfo& TZORMonthCalendar::StaticClass() {
    namespace row = framedrows;
    using Self = TZORMonthCalendar;
    static const TClassInfo info = DescribeClass<Self>(
        u"TZORMonthCalendar", TMonthCalendar::StaticClass(),
        {row::Wymagany<Self>(), row::OnValidateRequest<Self>(), row::BorderColors<Self>(), row::BoundLabel<Self>()});
    return info;
}

void Zormonthcalendar::Register() {
    RegisterComponents(PalettePage, {&TZORMonthCalendar::StaticClass()});
}

} // namespace ZOR
