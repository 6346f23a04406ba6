#include "framework/windows/standardcontrols.h"

#include "framework/windows/button.h"
#include "framework/windows/edit.h"
#include "framework/windows/forms.h"
#include "framework/windows/label.h"
#include "framework/windows/listbox.h"
#include "framework/windows/panel.h"
#include "framework/windows/timer.h"
#include "framework/windows/updown.h"

namespace framework {

void RegisterStandardControls() {
    RegisterClasses({&TForm::StaticClass(), &TLabel::StaticClass(), &TEdit::StaticClass(), &TButton::StaticClass(),
                     &TCheckBox::StaticClass(), &TListBox::StaticClass(), &TPanel::StaticClass(),
                     &TGroupBox::StaticClass(), &TTimer::StaticClass(),
                     &TUpDown::StaticClass()});
}

} // namespace framework
