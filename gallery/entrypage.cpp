#include "gallery/entrypage.h"

#include "controls/Zoredit.h"
#include "framework/system/numbers.h"
#include "framework/windows/button.h"
#include "framework/windows/label.h"
#include "gallery/entrychecks_rules.h"
#include "gallery/pages.h"

namespace gallery {

using ZOR::TZOREdit;

const TClassInfo& TEntryPage::StaticClass() {
    static const TClassInfo info = DescribeClass<TEntryPage>(
        u"TEntryPage", TForm::StaticClass(), {},
        {Method<&TEntryPage::FieldChange>(u"FieldChange"), Method<&TEntryPage::PostalCodeExit>(u"PostalCodeExit"),
         Method<&TEntryPage::TaxNumberExit>(u"TaxNumberExit"), Method<&TEntryPage::EmailExit>(u"EmailExit"),
         Method<&TEntryPage::PhoneExit>(u"PhoneExit"), Method<&TEntryPage::CheckClick>(u"CheckClick"),
         Method<&TEntryPage::ClearClick>(u"ClearClick"), Method<&TEntryPage::ReadOnlyClick>(u"ReadOnlyClick"),
         Method<&TEntryPage::EnabledClick>(u"EnabledClick"), Method<&TEntryPage::LabelledClick>(u"LabelledClick"),
         Method<&TEntryPage::SignsClick>(u"SignsClick"), Method<&TEntryPage::DigitsKeyPress>(u"DigitsKeyPress")});
    return info;
}

namespace {

const TPageClass registered(&TEntryPage::StaticClass);

constexpr TColor kProblemColor = 0x0000C0;
constexpr TColor kGoodColor = 0x2E7D32;

} // namespace

std::vector<TZOREdit*> TEntryPage::Fields() const {
    std::vector<TZOREdit*> fields;
    for (int i = 0; i < GetComponentCount(); ++i) {
        if (auto* field = As<TZOREdit>(GetComponent(i)))
            fields.push_back(field);
    }
    return fields;
}

void TEntryPage::ShowStatus(const String& text, TColor color) {
    if (auto* status = As<TLabel>(FindComponent(u"StatusLabel"))) {
        status->GetFont()->SetColor(color);
        status->SetText(text);
    }
}

void TEntryPage::FieldChange(TObject*) {
    int filled = 0;
    int required = 0;
    for (const TZOREdit* field : Fields()) {
        filled += field->GetTextLen() > 0 ? 1 : 0;
        required += field->GetFWymagany() == ZOR::wRequired && field->GetTextLen() == 0 ? 1 : 0;
    }
    ShowStatus(u"Wype\u0142nione pola: " + IntToStr(filled) + u", brakuje wymaganych: " + IntToStr(required),
               clGrayText);
}

void TEntryPage::Validate(TObject* sender, bool (*isValid)(StringView), const String& problem) {
    auto* field = As<TZOREdit>(sender);
    if (!field || field->GetTextLen() == 0 || isValid(field->GetText()))
        return; // the field has taken its error back itself when it was left
    field->SetFWymagany(ZOR::wError);
    ShowStatus(problem, kProblemColor);
}

void TEntryPage::PostalCodeExit(TObject* sender) {
    Validate(sender, IsPostalCode, u"Kod pocztowy ma posta\u0107 00-000.");
}

void TEntryPage::TaxNumberExit(TObject* sender) {
    Validate(sender, IsTaxNumber, u"Numer NIP jest b\u0142\u0119dny: nie zgadza si\u0119 cyfra kontrolna.");
}

void TEntryPage::EmailExit(TObject* sender) {
    Validate(sender, IsEmail, u"To nie jest adres e-mail.");
}

void TEntryPage::PhoneExit(TObject* sender) {
    Validate(sender, IsPhoneNumber, u"Numer telefonu ma dziewi\u0119\u0107 cyfr.");
}

void TEntryPage::CheckClick(TObject*) {
    TZOREdit* first = nullptr;
    int missing = 0;
    for (TZOREdit* field : Fields()) {
        const bool marked = field->GetFWymagany() == ZOR::wRequired || field->GetFWymagany() == ZOR::wError;
        if (!marked || field->GetTextLen() > 0)
            continue;
        field->SetFWymagany(ZOR::wError);
        first = first ? first : field;
        ++missing;
    }
    if (missing == 0) {
        ShowStatus(u"Wszystkie wymagane pola s\u0105 wype\u0142nione.", kGoodColor);
        return;
    }
    ShowStatus(u"Niewype\u0142nione wymagane pola: " + IntToStr(missing), kProblemColor);
    if (first->CanFocus())
        first->SetFocus();
}

void TEntryPage::ClearClick(TObject*) {
    for (TZOREdit* field : Fields()) {
        if (!field->GetReadOnly() && field->GetEnabled())
            field->Clear();
    }
}

void TEntryPage::ReadOnlyClick(TObject* sender) {
    const auto* box = As<TCheckBox>(sender);
    if (auto* notes = As<TZOREdit>(FindComponent(u"NotesEdit")); box && notes)
        notes->SetReadOnly(box->GetChecked());
}

void TEntryPage::EnabledClick(TObject* sender) {
    const auto* box = As<TCheckBox>(sender);
    if (auto* discount = As<TZOREdit>(FindComponent(u"DiscountEdit")); box && discount)
        discount->SetEnabled(box->GetChecked());
}

void TEntryPage::LabelledClick(TObject*) {
    ShowStatus(u"Klikni\u0119to pole albo jego etykiet\u0119.", kGoodColor);
}

void TEntryPage::SignsClick(TObject*) {
    // The button has the focus now: the signs are for the field before it.
    if (auto* name = As<TZOREdit>(FindComponent(u"NameEdit")); name && name->CanFocus()) {
        name->SetFocus();
        name->screenKeyboard();
    }
}

void TEntryPage::DigitsKeyPress(TObject*, char16_t& key) {
    if (key >= u' ' && (key < u'0' || key > u'9') && key != u'-' && key != u' ')
        key = 0;
}

} // namespace gallery
