#pragma once

// The page "Dates": the terms of a contract, entered in date fields of every kind.

#include "framework/windows/forms.h"

namespace gallery {
using namespace framework;

class TDatesPage : public TForm {
    FRAMEWORK_CLASS(TDatesPage)

public:
    explicit TDatesPage(TComponent* owner) : TForm(owner) {}

private:
    // What forms/dates.dfm names.
    void FieldChange(TObject* sender);
    void PickerChange(TObject* sender);
    void CalendarClick(TObject* sender);

    /// Shows a value in a form that is the same in all countries.
    void ShowStatus(TObject* sender, TDateTime value);
};

} // namespace gallery
