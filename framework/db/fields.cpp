#include "framework/db/fields.h"

#include "framework/db/dataset.h"
#include "framework/db/olevariant.h"
#include "framework/system/dates.h"
#include "framework/system/numbers.h"
#include "framework/system/strings.h"

#include <algorithm>

namespace framework {

const TClassInfo& TField::StaticClass() {
    static const TClassInfo info = DescribeClass<TField>(
        u"TField", TComponent::StaticClass(),
        {Property<&TField::GetAlignment, &TField::SetAlignment>(u"Alignment").StoredWhen<&TField::IsAlignmentStored>(),
         Property<&TField::GetDefaultExpression, &TField::SetDefaultExpression>(u"DefaultExpression"),
         Property<&TField::GetDisplayLabel, &TField::SetDisplayLabel>(u"DisplayLabel")
             .StoredWhen<&TField::IsDisplayLabelStored>(),
         Property<&TField::GetDisplayWidth, &TField::SetDisplayWidth>(u"DisplayWidth")
             .StoredWhen<&TField::IsDisplayWidthStored>(),
         Property<&TField::GetFieldKind, &TField::SetFieldKind>(u"FieldKind", fkData),
         Property<&TField::GetFieldName, &TField::SetFieldName>(u"FieldName"),
         Property<&TField::GetIndex, &TField::SetIndex>(u"Index").NotStored(),
         Property<&TField::GetKeyFields, &TField::SetKeyFields>(u"KeyFields"),
         Property<&TField::GetLookupDataSet, &TField::SetLookupDataSet>(u"LookupDataSet"),
         Property<&TField::GetLookupKeyFields, &TField::SetLookupKeyFields>(u"LookupKeyFields"),
         Property<&TField::GetLookupResultField, &TField::SetLookupResultField>(u"LookupResultField"),
         Property<&TField::GetReadOnly, &TField::SetReadOnly>(u"ReadOnly", false),
         Property<&TField::GetRequired, &TField::SetRequired>(u"Required", false),
         Property<&TField::GetSize, &TField::SetSize>(u"Size", 0),
         Property<&TField::GetVisible, &TField::SetVisible>(u"Visible", true), Event<&TField::OnChange>(u"OnChange"),
         Event<&TField::OnGetText>(u"OnGetText"), Event<&TField::OnSetText>(u"OnSetText"),
         Event<&TField::OnValidate>(u"OnValidate")});
    return info;
}

TField::TField(TComponent* owner) : TComponent(owner) {
}

TField::~TField() {
    Destroying();
    if (FDataSet)
        FDataSet->RemoveField(*this);
}

void TField::Notification(TComponent* component, TOperation operation) {
    TComponent::Notification(component, operation);
    if (operation == opRemove && component == FLookupDataSet)
        FLookupDataSet = nullptr;
}

TComponent* TField::GetParentComponent() const {
    return FDataSet;
}

void TField::SetParentComponent(TComponent* parent) {
    SetDataSet(As<TDataSet>(parent));
}

void TField::CheckInactive() const {
    if (FDataSet)
        FDataSet->CheckInactive();
}

void TField::PropertyChanged(bool layout) {
    if (FDataSet && FDataSet->GetActive())
        FDataSet->Announce(layout ? deLayoutChange : deDataSetChange, 0);
}

// Properties.

void TField::SetDataSet(TDataSet* value) {
    if (FDataSet == value)
        return;
    CheckInactive();
    if (value) {
        value->AddField(*this);
    }
    if (TDataSet* former = std::exchange(FDataSet, value))
        former->RemoveField(*this);
}

void TField::SetFieldName(const String& value) {
    if (FFieldName == value)
        return;
    CheckInactive();
    if (FDataSet && !value.empty() && !TNameEqual()(value, FFieldName))
        FDataSet->GetFields().CheckFieldName(value);
    FFieldName = value;
    if (FDataSet)
        FDataSet->GetFields().NamesChanged();
}

void TField::SetFieldKind(TFieldKind value) {
    CheckInactive();
    FFieldKind = value;
}

int TField::GetIndex() const {
    return FDataSet ? FDataSet->GetFields().IndexOf(this) : -1;
}

void TField::SetIndex(int value) {
    if (!FDataSet || value == GetIndex())
        return;
    FDataSet->GetFields().Move(this, value);
    PropertyChanged(true);
}

void TField::SetSize(int value) {
    CheckInactive();
    FSize = value;
}

void TField::SetAlignment(TAlignment value) {
    if (FAlignment == value)
        return;
    FAlignment = value;
    PropertyChanged(false);
}

void TField::SetDisplayLabel(const String& value) {
    if (FDisplayLabel == value)
        return;
    FDisplayLabel = value;
    PropertyChanged(true);
}

void TField::SetDisplayWidth(int value) {
    if (FDisplayWidth == value)
        return;
    FDisplayWidth = value;
    PropertyChanged(true);
}

void TField::SetReadOnly(bool value) {
    if (FReadOnly == value)
        return;
    FReadOnly = value;
    PropertyChanged(false);
}

void TField::SetVisible(bool value) {
    if (FVisible == value)
        return;
    FVisible = value;
    PropertyChanged(true);
}

void TField::SetKeyFields(const String& value) {
    CheckInactive();
    FKeyFields = value;
}

void TField::SetLookupDataSet(TDataSet* value) {
    CheckInactive();
    if (value && value == FDataSet)
        DatabaseError(u"Circular datalinks are not allowed", this);
    FLookupDataSet = value;
    if (value)
        value->FreeNotification(this);
}

void TField::SetLookupKeyFields(const String& value) {
    CheckInactive();
    FLookupKeyFields = value;
}

void TField::SetLookupResultField(const String& value) {
    CheckInactive();
    FLookupResultField = value;
}

bool TField::GetCanModify() const {
    return FDataSet && !FReadOnly && !GetCalculated() && FDataSet->GetCanModify();
}

void TField::FocusControl() {
    if (FDataSet)
        FDataSet->Announce(deFocusControl, reinterpret_cast<std::intptr_t>(this));
}

// Values.

TFieldValue TField::GetData() const {
    if (FValidated)
        return *FValidated;
    if (!FDataSet)
        DatabaseError(u"Field '" + GetDisplayName() + u"' has no dataset");
    return FSlot >= 0 ? FDataSet->GetFieldData(*this) : TFieldValue::Null();
}

Variant TField::GetOldValue() const {
    if (!FDataSet || FSlot < 0)
        return Variant::Null();
    const TDataSet::TTemporaryState state(*FDataSet, dsOldValue, FDataSet->FTemporaryBuffer);
    return FDataSet->GetFieldData(*this).AsVariant();
}

void TField::RaiseConversion(const TFieldValue& value, StringView kind) const {
    String text;
    try {
        text = value.AsString();
    } catch (const EVariantError&) {
        text = u"?"; // a date that no calendar has
    }
    DatabaseError(u"'" + text + u"' is not a valid " + String(kind) + u" for field '" + GetDisplayName() + u"'",
                  FDataSet);
}

void TField::RaiseRange(const String& value, const String& least, const String& greatest) const {
    DatabaseError(value + u" is not between " + least + u" and " + greatest + u", the range of field '" +
                      GetDisplayName() + u"'",
                  FDataSet);
}

template <class TBody>
auto TField::Converting(StringView kind, TBody&& body) const {
    const TFieldValue value = GetData();
    try {
        return body(value);
    } catch (const EVariantError&) {
        RaiseConversion(value, kind);
    } catch (const EConvertError&) {
        RaiseConversion(value, kind);
    }
}

String TField::GetAsString() const {
    const TFieldValue value = GetData();
    if (value.Kind() == TFieldValue::TKind::Text)
        return String(value.Units());
    return value.IsNull() ? String() : PlainText(value);
}

String TField::PlainText(const TFieldValue& value) const {
    return value.AsString();
}

int TField::GetAsInteger() const {
    const std::int64_t value = GetAsLargeInt();
    if (value < INT32_MIN || value > INT32_MAX)
        RaiseConversion(GetData(), u"32-bit integer value");
    return static_cast<int>(value);
}

std::int64_t TField::GetAsLargeInt() const {
    const TFieldValue value = GetData();
    if (value.Kind() == TFieldValue::TKind::Integer)
        return value.Whole();
    return Converting(u"integer value", [](const TFieldValue& data) { return data.AsInteger(); });
}

double TField::GetAsFloat() const {
    return Converting(u"floating point value", [this](const TFieldValue& data) { return Readable(data).AsFloat(); });
}

Currency TField::GetAsCurrency() const {
    return Converting(u"currency value", [this](const TFieldValue& data) { return Readable(data).AsCurrency(); });
}

TDateTime TField::GetAsDateTime() const {
    return Converting(u"date", [](const TFieldValue& data) { return data.AsDate(); });
}

bool TField::GetAsBoolean() const {
    return Converting(u"boolean value", [](const TFieldValue& data) { return data.AsBoolean(); });
}

Variant TField::GetAsVariant() const {
    const TFieldValue value = Readable(GetData());
    return value.IsNull() ? Variant::Null() : value.AsVariant();
}

TBytes TField::GetAsBytes() const {
    const TFieldValue value = GetData();
    if (value.Kind() == TFieldValue::TKind::Bytes)
        return TBytes(value.Octets().begin(), value.Octets().end());
    const std::string text = Utf8Encode(GetAsString());
    return TBytes(text.begin(), text.end());
}

String TField::FormattedText(bool display) {
    if (!OnGetText) {
        const TFieldValue value = GetData();
        return value.IsNull() && !IsBlob() ? String() : TextOf(value, display);
    }
    String text;
    Fire(*this, OnGetText, this, text, display);
    return text;
}

String TField::TextOf(const TFieldValue& value, bool) const {
    return PlainText(value);
}

void TField::SetEditText(const String& value) {
    if (OnSetText)
        Fire(*this, OnSetText, this, value);
    else
        SetAsString(value);
}

void TField::SetData(const TFieldValue& value) {
    if (!FDataSet)
        DatabaseError(u"Field '" + GetDisplayName() + u"' has no dataset");
    const bool isEmptyText = value.Kind() == TFieldValue::TKind::Text && value.Units().empty();
    if (value.IsNull() || (isEmptyText && !KeepsEmptyText())) {
        FDataSet->StoreField(*this, TFieldValue::Null());
        return;
    }
    OleVariant keeper;
    TFieldValue converted;
    try {
        converted = Converted(value, keeper);
    } catch (const EVariantError&) {
        RaiseConversion(value, u"value");
    } catch (const EConvertError&) {
        RaiseConversion(value, u"value");
    }
    FDataSet->StoreField(*this, converted);
}

bool TField::TryConvertKey(const TFieldValue& value, OleVariant& converted) const {
    OleVariant keeper;
    converted = OleVariant(Converted(value, keeper));
    return true;
}

bool TField::Validate(const TFieldValue& value) {
    if (!OnValidate)
        return true;
    const TLifeGuard alive(*this);
    const TFieldValue* const outer = std::exchange(FValidated, &value);
    try {
        if (!Fire(*this, OnValidate, this))
            return false;
    } catch (...) {
        if (alive)
            FValidated = outer;
        throw;
    }
    FValidated = outer;
    return true;
}

void TField::Assign(TPersistent* source) {
    if (!source) {
        Clear();
        return;
    }
    if (const auto* field = As<TField>(source)) {
        const OleVariant value(field->GetData());
        SetData(value.View());
        return;
    }
    TComponent::Assign(source);
}

bool TField::IsValidChar(char16_t unit) const {
    return unit >= u' ';
}

// The list.

TField* TFields::GetField(int index) const {
    if (index < 0 || index >= GetCount())
        DatabaseError(u"There is no field with the index " + IntToStr(index), &FDataSet);
    return FList[static_cast<std::size_t>(index)];
}

TField* TFields::FindField(StringView name) const {
    constexpr std::size_t few = 8;
    if (FList.size() <= few) {
        for (TField* field : FList) {
            if (TNameEqual()(field->GetFieldName(), name))
                return field;
        }
        return nullptr;
    }
    if (FIndex.empty()) {
        for (TField* field : FList)
            FIndex.emplace(field->GetFieldName(), field);
    }
    const auto found = FIndex.find(name);
    return found == FIndex.end() ? nullptr : found->second;
}

TField* TFields::FieldByName(StringView name) const {
    TField* field = FindField(name);
    if (!field)
        DatabaseError(u"Field '" + String(name) + u"' not found", &FDataSet);
    return field;
}

TField* TFields::FieldByNumber(int fieldNo) const {
    for (TField* field : FList) {
        if (field->GetFieldNo() == fieldNo)
            return field;
    }
    return nullptr;
}

int TFields::IndexOf(const TField* field) const {
    const auto found = std::find(FList.begin(), FList.end(), field);
    return found == FList.end() ? -1 : static_cast<int>(found - FList.begin());
}

void TFields::CheckFieldName(StringView name) const {
    if (name.empty())
        DatabaseError(u"A field has no name", &FDataSet);
    if (FindField(name))
        DatabaseError(u"There is a field '" + String(name) + u"' already", &FDataSet);
}

void TFields::Add(TField* field) {
    FList.push_back(field);
    NamesChanged();
}

void TFields::Remove(TField* field) {
    std::erase(FList, field);
    NamesChanged();
}

void TFields::Move(TField* field, int index) {
    const int from = IndexOf(field);
    const int to = std::clamp(index, 0, GetCount() - 1);
    if (from < to)
        std::rotate(FList.begin() + from, FList.begin() + from + 1, FList.begin() + to + 1);
    else
        std::rotate(FList.begin() + to, FList.begin() + from, FList.begin() + from + 1);
}

void TFields::Clear() {
    while (!FList.empty()) {
        TField* field = FList.back();
        FList.pop_back();
        NamesChanged();
        field->FDataSet = nullptr;
        delete field;
    }
}

} // namespace framework
