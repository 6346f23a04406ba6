#include "framework/system/published.h"

#include "framework/system/components.h"
#include "framework/system/exceptions.h"
#include "framework/system/numbers.h"
#include "framework/system/strings.h"

namespace framework {

namespace {

[[noreturn]] void PropertyError(const TPersistent& object, StringView name, StringView problem) {
    throw EPropertyError(object.ClassName() + u"." + String(name) + u": " + String(problem));
}

void CheckWritable(const TPersistent& object, const TPropInfo& property) {
    if (property.ReadOnly())
        PropertyError(object, property.Name, u"the property is read-only");
}

/// The result of a conversion; one that fails is the property's refusal of the value.
template <class TConversion>
auto ConvertedOrRefused(const TPersistent& object, const TPropInfo& property, const TConversion& conversion) {
    try {
        return conversion();
    } catch (const EVariantError& error) {
        PropertyError(object, property.Name, error.GetMessageText());
    } catch (const EConvertError& error) {
        PropertyError(object, property.Name, error.GetMessageText());
    }
}

/// The value as the accessor takes it, so that what its setter raises is the setter's own word.
Variant ConvertedValue(const TPersistent& object, const TPropInfo& property, const Variant& value) {
    return ConvertedOrRefused(object, property, [&]() -> Variant {
        if (property.Kind == tkString)
            return value.AsString();
        if (property.Kind == tkFloat && property.FloatKind != TFloatKind::Number && VarIsStr(value))
            return value == u"" ? 0 : value.AsDate();
        if (property.Kind == tkFloat && VarType(value) != varCurrency && VarType(value) != varDate)
            return value.AsFloat();
        return value;
    });
}

/// The integer that a variant means for this property: a number, or one of the names that the property knows.
std::int64_t OrdinalFromVariant(const TPersistent& object, const TPropInfo& property, const Variant& value) {
    // As a number True would be -1, which no property of type bool has.
    if (VarType(value) == varBoolean)
        return value.AsBoolean() ? 1 : 0;
    if (!VarIsStr(value))
        return ConvertedOrRefused(object, property, [&] { return value.AsInteger(); });
    const String text = value.AsString();
    std::optional<std::int64_t> result;
    switch (property.Kind) {
    case tkEnumeration:
        result = property.Enum->Find(text);
        break;
    case tkSet:
        result = TextToSet(*property.Enum, text);
        break;
    case tkWChar:
        if (text.size() <= 1)
            result = text.empty() ? 0 : text.front();
        break;
    default:
        if (property.Names)
            result = property.Names->FromName(text);
        if (std::int64_t number = 0; !result && TryStrToInt64(text, number))
            result = number;
    }
    if (!result)
        PropertyError(object, property.Name, u"\"" + text + u"\" is not a value of the property");
    return *result;
}

void SetCheckedOrdinal(TPersistent& object, const TPropInfo& property, std::int64_t value) {
    CheckWritable(object, property);
    bool fits = value >= property.MinValue && value <= property.MaxValue;
    if (property.Kind == tkEnumeration)
        fits = value >= 0 && value < static_cast<std::int64_t>(property.Enum->Names.size());
    else if (property.Kind == tkSet)
        fits = value >= 0 && (value >> property.Enum->Names.size()) == 0;
    if (!fits)
        PropertyError(object, property.Name, IntToStr(value) + u" is out of range");
    property.SetOrdinal(object, value);
}

const TPropInfo& PropertyOfKind(const TPersistent& object, StringView name, TTypeKind kind, StringView problem) {
    const TPropInfo& property = GetPropInfo(object, name);
    if (property.Kind != kind)
        PropertyError(object, property.Name, problem);
    return property;
}

bool IsZeroValue(const Variant& value) {
    return VarIsStr(value) ? value.AsString().empty() : VarIsNumeric(value) && value.AsFloat() == 0;
}

} // namespace

std::optional<std::int64_t> TEnumInfo::Find(StringView name) const {
    for (std::size_t i = 0; i < Names.size(); ++i) {
        if (TNameEqual()(Names[i], name))
            return static_cast<std::int64_t>(i);
    }
    return std::nullopt;
}

const TEnumInfo& DescribeEnum(TAlignment) {
    static const TEnumInfo info{u"TAlignment", {u"taLeftJustify", u"taRightJustify", u"taCenter"}};
    return info;
}

const TEnumInfo& DescribeEnum(bool) {
    static const TEnumInfo info{u"Boolean", {u"False", u"True"}};
    return info;
}

TPropInfo TPropInfo::NotStored() const {
    TPropInfo row = *this;
    row.IsStored = false;
    return row;
}

TPropInfo TPropInfo::Named(const TIdentifiers& names) const {
    TPropInfo row = *this;
    row.Names = &names;
    return row;
}

TPropInfo TPropInfo::Dated(TFloatKind kind) const {
    TPropInfo row = *this;
    row.FloatKind = kind;
    return row;
}

bool TPropInfo::ReadOnly() const {
    return !SetOrdinal && !SetValue && !SetInstance && !SetLines && !SetBytes && !SetMethod;
}

TClassInfo::TClassInfo(StringView name, const TClassInfo* parent, std::vector<TPropInfo> ownProperties,
                       std::vector<TMethodInfo> ownMethods, std::vector<TFieldInfo> ownFields, TFactory factory)
    : FName(name), FParent(parent), FFactory(factory) {
    if (parent) {
        FProperties = parent->FProperties;
        FMethods = parent->FMethods;
        FFields = parent->FFields;
    }
    FProperties.Add(std::move(ownProperties));
    FMethods.Add(std::move(ownMethods));
    FFields.Add(std::move(ownFields));
}

bool TClassInfo::InheritsFrom(const TClassInfo& ancestor) const {
    for (const TClassInfo* info = this; info; info = info->FParent) {
        if (info == &ancestor)
            return true;
    }
    return false;
}

TComponent* TClassInfo::Create(TComponent* owner) const {
    if (!FFactory)
        throw EComponentError(u"A " + FName + u" cannot be created by name");
    return FFactory(owner);
}

bool IsPublishedProp(const TPersistent& object, StringView name) {
    return object.ClassInfo().FindProperty(name) != nullptr;
}

const TPropInfo& GetPropInfo(const TPersistent& object, StringView name) {
    const TPropInfo* property = object.ClassInfo().FindProperty(name);
    if (!property)
        PropertyError(object, name, u"there is no such published property");
    return *property;
}

Variant GetPropValue(const TPersistent& object, StringView name, bool preferStrings) {
    return GetPropValue(object, GetPropInfo(object, name), preferStrings);
}

Variant GetPropValue(const TPersistent& object, const TPropInfo& property, bool preferStrings) {
    switch (property.Kind) {
    case tkInteger:
        return Variant(property.GetOrdinal(object));
    case tkEnumeration: {
        const std::int64_t ordinal = property.GetOrdinal(object);
        if (!preferStrings)
            return Variant(ordinal);
        if (ordinal < 0 || ordinal >= static_cast<std::int64_t>(property.Enum->Names.size()))
            PropertyError(object, property.Name, u"the value has no name");
        return Variant(property.Enum->Names[static_cast<std::size_t>(ordinal)]);
    }
    case tkWChar: {
        const auto unit = static_cast<char16_t>(property.GetOrdinal(object));
        return preferStrings ? Variant(String(1, unit)) : Variant(std::int64_t{unit});
    }
    case tkSet: {
        const std::int64_t bits = property.GetOrdinal(object);
        return preferStrings ? Variant(SetToText(*property.Enum, bits)) : Variant(bits);
    }
    case tkFloat:
    case tkString:
    case tkVariant:
        return property.GetValue(object);
    default:
        PropertyError(object, property.Name, u"the property has no plain value");
    }
}

void SetPropValue(TPersistent& object, StringView name, const Variant& value) {
    SetPropValue(object, GetPropInfo(object, name), value);
}

void SetPropValue(TPersistent& object, const TPropInfo& property, const Variant& value) {
    switch (property.Kind) {
    case tkInteger:
    case tkEnumeration:
    case tkSet:
    case tkWChar:
        SetCheckedOrdinal(object, property, OrdinalFromVariant(object, property, value));
        break;
    case tkFloat:
    case tkString:
    case tkVariant:
        CheckWritable(object, property);
        property.SetValue(object, ConvertedValue(object, property, value));
        break;
    default:
        PropertyError(object, property.Name, u"the property has no plain value");
    }
}

std::int64_t GetOrdProp(const TPersistent& object, StringView name) {
    const TPropInfo& property = GetPropInfo(object, name);
    if (!property.GetOrdinal)
        PropertyError(object, property.Name, u"the property has no ordinal value");
    return property.GetOrdinal(object);
}

void SetOrdProp(TPersistent& object, StringView name, std::int64_t value) {
    const TPropInfo& property = GetPropInfo(object, name);
    if (!property.GetOrdinal)
        PropertyError(object, property.Name, u"the property has no ordinal value");
    SetCheckedOrdinal(object, property, value);
}

TPersistent* GetObjectProp(const TPersistent& object, StringView name) {
    return PropertyOfKind(object, name, tkClass, u"the property is not an object").GetInstance(object);
}

void SetObjectProp(TPersistent& object, StringView name, TPersistent* value) {
    const TPropInfo& property = PropertyOfKind(object, name, tkClass, u"the property is not an object");
    CheckWritable(object, property);
    if (value && !value->InheritsFrom(property.ObjectClass()))
        PropertyError(object, property.Name,
                      u"a " + value->ClassName() + u" is not a " + property.ObjectClass().Name());
    property.SetInstance(object, value);
}

String GetMethodProp(const TPersistent& object, StringView name) {
    const TMethodInfo* method =
        PropertyOfKind(object, name, tkMethod, u"the property is not an event").GetMethod(object);
    return method ? method->Name : String();
}

void SetMethodProp(TPersistent& object, StringView name, TObject* instance, StringView methodName) {
    const TPropInfo& property = PropertyOfKind(object, name, tkMethod, u"the property is not an event");
    if (methodName.empty()) {
        property.SetMethod(object, nullptr, nullptr);
        return;
    }
    const TMethodInfo* method = instance ? instance->ClassInfo().FindMethod(methodName) : nullptr;
    if (!method)
        PropertyError(object, property.Name, u"there is no published method \"" + String(methodName) + u"\"");
    if (method->Signature != property.Signature)
        PropertyError(object, property.Name, u"the method " + method->Name + u" has other parameters than the event");
    property.SetMethod(object, instance, method);
}

bool IsSubObject(const TPersistent& object, const TPropInfo& property) {
    TPersistent* instance = property.Kind == tkClass ? property.GetInstance(object) : nullptr;
    const auto* component = As<TComponent>(instance);
    return instance && (!component ||
                        (component->GetComponentStyle().Contains(csSubComponent) && component->GetOwner() == &object));
}

void CheckSignature(const TPersistent& object, const TPropInfo& event, std::type_index signature) {
    if (event.Kind != tkMethod || event.Signature != signature)
        PropertyError(object, event.Name, u"the property is not an event of this signature");
}

bool IsStoredProp(const TPersistent& object, const TPropInfo& property) {
    // Sub-objects have no setter as a rule.
    if (!property.IsStored || (property.ReadOnly() && property.Kind != tkClass))
        return false;
    if (property.Stored && !property.Stored(object))
        return false;
    // Objects and handlers of which a form cannot speak are left out even so.
    const bool ruled = property.Stored && !property.DefaultOrdinal;
    if (property.Kind == tkClass) {
        const bool written = ruled || property.GetInstance(object);
        return written && (!property.ReadOnly() || IsSubObject(object, property));
    }
    if (property.Kind == tkMethod)
        return property.GetMethod(object) || (ruled && !property.IsAssigned(object));
    if (ruled)
        return true;
    switch (property.Kind) {
    case tkInteger:
    case tkEnumeration:
    case tkSet:
    case tkWChar:
        return !property.DefaultOrdinal || property.GetOrdinal(object) != *property.DefaultOrdinal;
    case tkFloat:
    case tkString:
        return !IsZeroValue(property.GetValue(object));
    case tkVariant:
        return !VarIsEmpty(property.GetValue(object));
    case tkStrings:
        return !property.GetLines(object).empty();
    case tkBinary:
        return !property.GetBytes(object).empty();
    default:
        return false;
    }
}

String SetToText(const TEnumInfo& elements, std::int64_t bits) {
    String text = u"[";
    for (std::size_t i = 0; i < elements.Names.size(); ++i) {
        if (((bits >> i) & 1) == 0)
            continue;
        if (text.size() > 1)
            text += u',';
        text += elements.Names[i];
    }
    return text + u"]";
}

std::optional<std::int64_t> TextToSet(const TEnumInfo& elements, StringView text) {
    String inner = Trim(text);
    if (inner.size() >= 2 && inner.front() == u'[' && inner.back() == u']')
        inner = Trim(StringView(inner).substr(1, inner.size() - 2));
    std::int64_t bits = 0;
    std::size_t start = 0;
    while (start < inner.size()) {
        const std::size_t comma = std::min(inner.find(u',', start), inner.size());
        const auto element = elements.Find(Trim(StringView(inner).substr(start, comma - start)));
        if (!element)
            return std::nullopt;
        bits |= std::int64_t{1} << *element;
        start = comma + 1;
    }
    return bits;
}

} // namespace framework
