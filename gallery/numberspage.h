#pragma once

// The page "Numbers": a line of an order and a time sheet, made of the numeric fields in all their modes and states.

#include "framework/windows/forms.h"

namespace gallery {
using namespace framework;

class TNumbersPage : public TForm {
    FRAMEWORK_CLASS(TNumbersPage)

public:
    explicit TNumbersPage(TComponent* owner);

protected:
    void Loaded() override;

private:
    // What forms/numbers.dfm names.
    void FieldChange(TObject* sender);
    void SeparatorClick(TObject* sender);
    void TypingClick(TObject* sender);
    void ArrowsClick(TObject* sender);
    void ZeroClick(TObject* sender);

    void ShowSums();
    void SetInAllFields(const String& property, const Variant& value);

    bool FSumming = false; // the sums are fields, too
};

} // namespace gallery
