#pragma once

// The page "Entry": a customer and contract card as offices fill them in, made of framed edits.

#include "framework/windows/forms.h"

namespace ZOR {
class TZOREdit;
}

namespace gallery {
using namespace framework;

class TEntryPage : public TForm {
    FRAMEWORK_CLASS(TEntryPage)

public:
    explicit TEntryPage(TComponent* owner) : TForm(owner) {}

private:
    // What forms/entry.dfm names.
    void FieldChange(TObject* sender);
    void PostalCodeExit(TObject* sender);
    void TaxNumberExit(TObject* sender);
    void EmailExit(TObject* sender);
    void PhoneExit(TObject* sender);
    void CheckClick(TObject* sender);
    void ClearClick(TObject* sender);
    void ReadOnlyClick(TObject* sender);
    void EnabledClick(TObject* sender);
    void LabelledClick(TObject* sender);
    void SignsClick(TObject* sender);
    void DigitsKeyPress(TObject* sender, char16_t& key);

    /// Marks a filled-in field that does not hold what it should.
    void Validate(TObject* sender, bool (*isValid)(StringView text), const String& problem);
    void ShowStatus(const String& text, TColor color);
    /// All framed edits of the page, in the order of the form.
    std::vector<ZOR::TZOREdit*> Fields() const;
};

} // namespace gallery
