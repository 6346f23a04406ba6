#include "framework/windows/standardcontrols.h"

#include "framework/windows/button.h"
#include "framework/windows/checklistbox.h"
#include "framework/windows/combobox.h"
#include "framework/windows/datetimepicker.h"
#include "framework/windows/edit.h"
#include "framework/windows/forms.h"
#include "framework/windows/label.h"
#include "framework/windows/listbox.h"
#include "framework/windows/maskedit.h"
#include "framework/windows/memo.h"
#include "framework/windows/monthcalendar.h"
#include "framework/windows/panel.h"
#include "framework/windows/richedit.h"
#include "framework/windows/scrollbox.h"
#include "framework/windows/timer.h"
#include "framework/windows/updown.h"

namespace framework {

void RegisterStandardControls() {
    RegisterClasses({&TForm::StaticClass()});
    // clang-format off
    RegisterComponents(StandardPage, {
        &TButton::StaticClass(),
        &TCheckBox::StaticClass(),
        &TCheckListBox::StaticClass(),
        &TComboBox::StaticClass(),
        &TDateTimePicker::StaticClass(),
        &TEdit::StaticClass(),
        &TGroupBox::StaticClass(),
        &TLabel::StaticClass(),
        &TListBox::StaticClass(),
        &TMaskEdit::StaticClass(),
        &TMemo::StaticClass(),
        &TMonthCalendar::StaticClass(),
        &TPanel::StaticClass(),
        &TRichEdit::StaticClass(),
        &TScrollBox::StaticClass(),
        &TTimer::StaticClass(),
        &TUpDown::StaticClass(),
    });
    // clang-format on
}

} // namespace framework
