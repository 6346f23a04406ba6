#pragma once

// Everything a host program needs: the application, forms with the standard controls, text forms, and the library.

#include "buttons/Zorcolorbutton.h"
#include "controls/Zoredit.h"
#include "foundation/Zorpackage.h"
#include "framework/system/formloader.h"
#include "framework/system/numbers.h"
#include "framework/system/stringlist.h"
#include "framework/system/strings.h"
#include "framework/windows/application.h"
#include "framework/windows/button.h"
#include "framework/windows/combobox.h"
#include "framework/windows/datetimepicker.h"
#include "framework/windows/edit.h"
#include "framework/windows/hints.h"
#include "framework/windows/label.h"
#include "framework/windows/listbox.h"
#include "framework/windows/monthcalendar.h"
#include "framework/windows/panel.h"
#include "framework/windows/standardcontrols.h"
#include "framework/windows/timer.h"
#include "framework/windows/updown.h"
