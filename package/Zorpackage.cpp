#include "package/Zorpackage.h"

#include "buttons/Zorcolorbutton.h"
#include "controls/Zorcheckbox.h"
#include "controls/Zorchecklistbox.h"
#include "controls/Zoredit.h"
#include "controls/Zorlistbox.h"
#include "controls/Zormaskedit.h"
#include "controls/Zormemo.h"
#include "controls/Zormonthcalendar.h"
#include "controls/Zorrichedit.h"
#include "controls/Zorscrollbox.h"
#include "data/Zoradodataset.h"
#include "data/Zordbgrid.h"
#include "data/Zorvirtualdbgrid.h"
#include "data/Zorvirtualstringtree.h"
#include "datetime/Zordatetimepicker.h"
#include "datetime/Zordatetimepickeredit.h"
#include "lists/Zorcombobox.h"
#include "lists/Zorcomboboxnew.h"
#include "numeric/Zorfloatedit.h"
#include "numeric/Zorspinedit.h"
#include "numeric/Zorspinfloatedit.h"

namespace ZOR {

void RegisterPackage() {
    framework::RegisterDataClasses();
    Zoradodataset::Register();
    Zorcheckbox::Register();
    Zorchecklistbox::Register();
    Zorcolorbutton::Register();
    Zorcombobox::Register();
    Zorcomboboxnew::Register();
    Zordatetimepicker::Register();
    Zordatetimepickeredit::Register();
    Zordbgrid::Register();
    Zoredit::Register();
    Zorfloatedit::Register();
    Zorlistbox::Register();
    Zormaskedit::Register();
    Zormemo::Register();
    Zormonthcalendar::Register();
    Zorrichedit::Register();
    Zorscrollbox::Register();
    Zorspinedit::Register();
    Zorspinfloatedit::Register();
    Zorvirtualdbgrid::Register();
    Zorvirtualstringtree::Register();
}

} // namespace ZOR
