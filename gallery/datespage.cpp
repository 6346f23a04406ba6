#include "gallery/datespage.h"

#include "datetime/Zordatetimepicker.h"
#include "datetime/Zordatetimepickeredit.h"
#include "framework/system/numbers.h"
#include "framework/windows/label.h"
#include "gallery/pages.h"
#include "gallery/scriptparts.h"

#include <commctrl.h>

namespace gallery {

const TClassInfo& TDatesPage::StaticClass() {
    static const TClassInfo info = DescribeClass<TDatesPage>(u"TDatesPage", TForm::StaticClass(), {},
                                                             {Method<&TDatesPage::FieldChange>(u"FieldChange"),
                                                              Method<&TDatesPage::PickerChange>(u"PickerChange"),
                                                              Method<&TDatesPage::CalendarClick>(u"CalendarClick")});
    return info;
}

namespace {

const TPageClass registered(&TDatesPage::StaticClass);

/// `day N` of a calendar, its own or that of an open popup: the place that shows this day of its month. The calendar is
/// asked from its end, since the days at its beginning may belong to the month before.
std::optional<TRect> FindDay(TControl& control, const std::vector<String>& words) {
    auto* popup = As<ZOR::Tzor_cal_popup_form>(&control);
    auto* calendar = popup ? popup->GetCalendar() : As<TMonthCalendar>(&control);
    if (!calendar || words.size() != 2 || words[0] != u"day")
        return std::nullopt;
    constexpr int kStep = 4; // pixels
    const TRect client = calendar->GetClientRect();
    for (int y = client.Bottom - kStep; y > 0; y -= kStep) {
        for (int x = 0; x < client.Right; x += kStep) {
            MCHITTESTINFO hit{};
            hit.cbSize = sizeof(hit);
            hit.pt = {x, y};
            SendMessageW(calendar->GetHandle(), MCM_HITTEST, 0, reinterpret_cast<LPARAM>(&hit));
            if (hit.uHit == MCHT_CALENDARDATE && IntToStr(hit.st.wDay) == words[1])
                return OnScreen(*calendar, Bounds(x + kStep, y - kStep, kStep, kStep));
        }
    }
    return std::nullopt;
}

/// `button`: what opens the calendar of a date field.
std::optional<TRect> FindDropButton(TControl& control, const std::vector<String>& words) {
    auto* combo = As<TCustomCombo>(&control);
    COMBOBOXINFO info{};
    info.cbSize = sizeof(info);
    if (!combo || words.size() != 1 || words[0] != u"button" || !GetComboBoxInfo(combo->GetHandle(), &info))
        return std::nullopt;
    return OnScreen(control, FromWin(info.rcButton));
}

const TPartFinder days(&FindDay);
const TPartFinder dropButtons(&FindDropButton);

} // namespace

void TDatesPage::ShowStatus(TObject* sender, TDateTime value) {
    auto* status = As<TLabel>(FindComponent(u"StatusLabel"));
    const auto* component = As<TComponent>(static_cast<TPersistent*>(sender));
    if (status && component)
        status->SetText(component->GetName() + u": " +
                        (value == 0 ? String(u"brak daty") : FormatDateTime(u"yyyy'-'mm'-'dd hh':'nn", value)));
}

void TDatesPage::FieldChange(TObject* sender) {
    ShowStatus(sender, static_cast<ZOR::TZORDateTimePickerEdit*>(sender)->GetFDateTime());
}

void TDatesPage::PickerChange(TObject* sender) {
    const auto& picker = *static_cast<TDateTimePicker*>(sender);
    ShowStatus(sender, picker.GetChecked() ? picker.GetDateTime() : 0);
}

void TDatesPage::CalendarClick(TObject* sender) {
    ShowStatus(sender, static_cast<TMonthCalendar*>(sender)->GetDate());
}

} // namespace gallery
