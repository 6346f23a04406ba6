#include "datetime/Zor_callendar_popup_unit.h"

#include <algorithm>

namespace ZOR {

namespace {

constexpr TSize kDesignedSize{173, 158};

} // namespace

const TClassInfo& Tzor_cal_popup_form::StaticClass() {
    static const TClassInfo info = DescribeClass<Tzor_cal_popup_form>(u"Tzor_cal_popup_form", TZORPopup::StaticClass());
    return info;
}

Tzor_cal_popup_form::Tzor_cal_popup_form() : FCalendar(new TMonthCalendar(this)) {
    SetBounds(0, 0, kDesignedSize.Width, kDesignedSize.Height);
    FCalendar->SetName(u"MonthCalendar1");
    FCalendar->SetTabStop(false);
    FCalendar->SetAlign(alClient);
    FCalendar->SetParent(this);
    FCalendar->OnClick = [this](TObject*) { Pick(); };
    FCalendar->OnViewChange = [this](TObject*) { ViewChanged(); };
}

Tzor_cal_popup_form::~Tzor_cal_popup_form() {
    Destroying();
    DestroyHandle(); // while the calendar is there
}

void Tzor_cal_popup_form::CreateParams(TCreateParams& params) {
    TZORPopup::CreateParams(params);
    params.Style |= WS_BORDER; // sets it off from white fields around
}

void Tzor_cal_popup_form::Prepare() {
    // The same letters as in the field; those of another monitor are larger, and so is the calendar.
    if (const TWinControl* target = GetTarget()) {
        SetBiDiMode(target->GetBiDiMode());
        if (!GetFont()->Equals(*target->GetFont()))
            SetFont(target->GetFont());
    }
    const TSize required = FCalendar->GetRequiredSize();
    FSize = {std::max(required.Width, kDesignedSize.Width) + GetWidth() - GetClientWidth(),
             std::max(required.Height, kDesignedSize.Height) + GetHeight() - GetClientHeight()};
}

TRect Tzor_cal_popup_form::PlaceFor(const TRect& target, const TRect& workArea) const {
    return PopupPlace(target, FSize, workArea, CalendarPlacing, GetTarget() && GetTarget()->UseRightToLeftAlignment());
}

void Tzor_cal_popup_form::DoShow() {
    TZORPopup::DoShow();
    // The person may have left another view behind, and the field may ask for another one now.
    if (FCalendar->GetCurrentView() != FView)
        FCalendar->SetCurrentView(FView);
}

/// The person went down from a decade to a year, or from a year to a month: the finer view shows what was picked.
void Tzor_cal_popup_form::ViewChanged() {
    if (IsOpen() && FCalendar->GetCurrentView() < FView)
        Pick();
}

void Tzor_cal_popup_form::Pick() {
    Fire(*this, OnPick, FCalendar);
}

} // namespace ZOR
