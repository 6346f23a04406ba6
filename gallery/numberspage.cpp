#include "gallery/numberspage.h"

#include "framework/windows/button.h"
#include "framework/windows/label.h"
#include "gallery/eventsignatures.h"
#include "gallery/ordersums_rules.h"
#include "gallery/pages.h"
#include "numeric/Zorfloatedit.h"
#include "numeric/Zorspinedit.h"
#include "numeric/Zorspinfloatedit.h"

namespace gallery {

using ZOR::TZORFloatEdit;
using ZOR::TZORSpinEdit;
using ZOR::TZORSpinFloatEdit;

const TClassInfo& TNumbersPage::StaticClass() {
    static const TClassInfo info = DescribeClass<TNumbersPage>(
        u"TNumbersPage", TForm::StaticClass(), {},
        {Method<&TNumbersPage::FieldChange>(u"FieldChange"), Method<&TNumbersPage::SeparatorClick>(u"SeparatorClick"),
         Method<&TNumbersPage::TypingClick>(u"TypingClick"), Method<&TNumbersPage::ArrowsClick>(u"ArrowsClick"),
         Method<&TNumbersPage::ZeroClick>(u"ZeroClick")});
    return info;
}

namespace {

const TPageClass registered(&TNumbersPage::StaticClass);
const TEventSignature validateRequest(&SignatureOf<ZOR::TValidateRequest>);

/// Fields that keep what the form says of them: they show how such fields look.
constexpr StringView kFixed[] = {u"NetEdit", u"LockedEdit", u"LockedTimeEdit", u"PlainEdit", u"PayEdit"};

bool IsFixed(const TComponent& field) {
    return std::find(std::begin(kFixed), std::end(kFixed), field.GetName()) != std::end(kFixed);
}

bool IsChecked(TObject* sender) {
    const auto* box = As<TCheckBox>(sender);
    return box && box->GetChecked();
}

} // namespace

TNumbersPage::TNumbersPage(TComponent* owner) : TForm(owner) {
    TZORFloatEdit::SeparatorFollowsLocale = true;
}

void TNumbersPage::Loaded() {
    TForm::Loaded();
    ShowSums();
}

void TNumbersPage::FieldChange(TObject*) {
    if (GetComponentState().Contains(csLoading) || FSumming)
        return;
    FSumming = true;
    const TAtScopeEnd done(*this, [this] { FSumming = false; });
    ShowSums();
}

void TNumbersPage::ShowSums() {
    const auto number = [this](const char16_t* name) { return As<TZORFloatEdit>(FindComponent(name)); };
    const auto amount = [this](const char16_t* name) { return As<TZORSpinFloatEdit>(FindComponent(name)); };
    const auto minutes = [&](const char16_t* name) { return static_cast<int>(amount(name)->GetValue()); };

    TOrderLine line;
    line.Quantity = number(u"QuantityEdit")->GetValue();
    line.Price = Currency(number(u"PriceEdit")->GetValue());
    line.DiscountPercent = number(u"DiscountEdit")->GetValue();
    line.Correction = Currency(number(u"CorrectionEdit")->GetValue());
    const Currency net = NetAmount(line);
    number(u"NetEdit")->SetValue(net.AsFloat());
    number(u"GrossEdit")->SetValue(GrossAmount(net).AsFloat());

    const TWorkDay day{minutes(u"StartEdit"), minutes(u"EndEdit"), minutes(u"BreakEdit"), minutes(u"OvertimeEdit"),
                       amount(u"RateEdit")->GetAsCurrency()};
    amount(u"PayEdit")->SetValue(Pay(day).AsFloat());

    if (auto* status = As<TLabel>(FindComponent(u"StatusLabel")))
        status->SetText(u"Brutto " + CurrToStrF(GrossAmount(net), ffNumber, 2) + u" z\u0142, przepracowano " +
                        amount(u"StartEdit")->ValueToTimeStr(WorkedMinutes(day)) + u", do wyp\u0142aty " +
                        CurrToStrF(Pay(day), ffNumber, 2) + u" z\u0142");
}

void TNumbersPage::SetInAllFields(const String& property, const Variant& value) {
    for (int i = 0; i < GetComponentCount(); ++i) {
        TComponent& field = *GetComponent(i);
        const bool isNumeric = As<TZORFloatEdit>(&field) || As<TZORSpinEdit>(&field) || As<TZORSpinFloatEdit>(&field);
        if (isNumeric && !IsFixed(field) && IsPublishedProp(field, property))
            SetPropValue(field, property, value);
    }
}

void TNumbersPage::SeparatorClick(TObject* sender) {
    TZORFloatEdit::SeparatorFollowsLocale = IsChecked(sender);
}

void TNumbersPage::TypingClick(TObject* sender) {
    SetInAllFields(u"EditorEnabled", IsChecked(sender));
}

void TNumbersPage::ArrowsClick(TObject* sender) {
    SetInAllFields(u"ShowUpDown", IsChecked(sender));
}

void TNumbersPage::ZeroClick(TObject*) {
    SetInAllFields(u"Value", 0);
}

} // namespace gallery
