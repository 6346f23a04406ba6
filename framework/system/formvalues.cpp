#include "framework/system/formvalues.h"

#include "framework/system/exceptions.h"
#include "framework/system/numbers.h"

namespace framework {

namespace {

[[noreturn]] void Refuse(StringView problem) {
    throw EPropertyError(String(problem));
}

[[noreturn]] void RefuseName(StringView name) {
    Refuse(u"\"" + String(name) + u"\" is not a value of the property");
}

/// Keeps the place of an element for as long as it is read without a fault.
class TElementPlace {
public:
    TElementPlace(TFormPlace& place, const TFormValue& element) : FPlace(place), FOuter(place) {
        FPlace = {element.Line(), element.Column()};
    }
    void Leave() { FPlace = FOuter; }

private:
    TFormPlace& FPlace;
    TFormPlace FOuter;
};

std::int64_t ReadInteger(const TPropInfo& property, const TFormValue& value) {
    if (value.Kind() == TFormValueKind::Identifier) {
        const auto named = property.Names ? property.Names->FromName(value.Text()) : std::nullopt;
        if (!named)
            RefuseName(value.Text());
        return *named;
    }
    if (value.Kind() != TFormValueKind::Integer)
        Refuse(property.Names ? u"an integer or one of the property's names is expected" : u"an integer is expected");
    const std::int64_t number = value.AsInteger();
    // Hexadecimal digits may use all bits of 32, so $FF000005 is a system colour.
    const bool isHexadecimal = value.Text().find(u'$') != StringView::npos;
    if (isHexadecimal && property.MaxValue == INT32_MAX && number > INT32_MAX && number <= UINT32_MAX)
        return static_cast<std::int32_t>(static_cast<std::uint32_t>(number));
    return number;
}

std::int64_t ReadEnumerator(const TEnumInfo& names, const TFormValue& value) {
    if (value.Kind() != TFormValueKind::Identifier)
        Refuse(u"a name of " + names.TypeName + u" is expected");
    const auto ordinal = names.Find(value.Text());
    if (!ordinal)
        RefuseName(value.Text());
    return *ordinal;
}

std::int64_t ReadSet(const TEnumInfo& names, const TFormValue& value, TFormPlace& place) {
    if (value.Kind() != TFormValueKind::Set)
        Refuse(u"a set of " + names.TypeName + u" is expected");
    std::int64_t bits = 0;
    for (const TFormValue element : value.Elements()) {
        TElementPlace elementPlace(place, element);
        const std::int64_t ordinal =
            element.Kind() == TFormValueKind::Integer ? element.AsInteger() : ReadEnumerator(names, element);
        if (ordinal < 0 || ordinal >= static_cast<std::int64_t>(names.Names.size()))
            Refuse(IntToStr(ordinal) + u" is out of range");
        bits |= std::int64_t{1} << ordinal;
        elementPlace.Leave();
    }
    return bits;
}

std::int64_t ReadCharacter(const TFormValue& value) {
    if (value.Kind() != TFormValueKind::String || value.Text().size() != 1)
        Refuse(u"a text of one character is expected");
    return value.Text().front();
}

Variant ReadNumber(const TFormValue& value) {
    const Extended number = value.AsExtended();
    switch (value.Suffix()) {
    case 'c':
    case 'C':
        return Currency(number);
    case 'd':
    case 'D':
        return Variant::FromDate(static_cast<TDateTime>(number));
    default:
        return number;
    }
}

Variant ReadVariant(const TFormValue& value) {
    switch (value.Kind()) {
    case TFormValueKind::Integer:
        return value.AsInteger();
    case TFormValueKind::Float:
        return ReadNumber(value);
    case TFormValueKind::String:
        return value.Text();
    case TFormValueKind::Null:
        return Null();
    case TFormValueKind::Nil:
        return Unassigned();
    case TFormValueKind::Identifier:
        if (value.IsIdentifier(u"True") || value.IsIdentifier(u"False"))
            return value.IsIdentifier(u"True");
        RefuseName(value.Text());
    default:
        Refuse(u"a number, a text, True, False, Null or a list of these is expected");
    }
}

Variant ReadVariantOrList(const TFormValue& value, TFormPlace& place) {
    if (value.Kind() != TFormValueKind::List)
        return ReadVariant(value);
    std::vector<Variant> elements;
    for (const TFormValue element : value.Elements()) {
        TElementPlace elementPlace(place, element);
        elements.push_back(ReadVariant(element));
        elementPlace.Leave();
    }
    return Variant::FromList(std::move(elements));
}

std::vector<String> ReadLines(const TFormValue& value, TFormPlace& place) {
    if (value.Kind() != TFormValueKind::List)
        Refuse(u"a list of texts is expected");
    std::vector<String> lines;
    for (const TFormValue element : value.Elements()) {
        TElementPlace elementPlace(place, element);
        if (element.Kind() != TFormValueKind::String)
            Refuse(u"a text is expected");
        lines.emplace_back(element.Text());
        elementPlace.Leave();
    }
    return lines;
}

Variant ReadPlainValue(const TPropInfo& property, const TFormValue& value, TFormPlace& place) {
    switch (property.Kind) {
    case tkInteger:
        return ReadInteger(property, value);
    case tkEnumeration:
        return ReadEnumerator(*property.Enum, value);
    case tkSet:
        return ReadSet(*property.Enum, value, place);
    case tkWChar:
        return ReadCharacter(value);
    case tkFloat:
        if (value.Kind() != TFormValueKind::Float && value.Kind() != TFormValueKind::Integer)
            Refuse(u"a number is expected");
        return value.AsExtended();
    case tkString:
        if (value.Kind() != TFormValueKind::String)
            Refuse(u"a text is expected");
        return value.Text();
    case tkVariant:
        return ReadVariantOrList(value, place);
    default:
        Refuse(u"the property has no plain value");
    }
}

void WriteVariant(TFormBuilder& builder, const Variant& value) {
    switch (VarType(value)) {
    case varEmpty:
        builder.Identifier(u"nil");
        break;
    case varNull:
        builder.Identifier(u"Null");
        break;
    case varBoolean:
        builder.Identifier(value.AsBoolean() ? u"True" : u"False");
        break;
    case varInteger:
    case varInt64:
        builder.Integer(value.AsInteger());
        break;
    case varCurrency:
        builder.Float(value.AsFloat(), 'c');
        break;
    case varDate:
        builder.Float(value.AsDate(), 'd');
        break;
    case varUString:
        builder.Text(value.AsString());
        break;
    default:
        builder.Float(value.AsFloat());
    }
}

void WriteVariantOrList(TFormBuilder& builder, const Variant& value) {
    if (!VarIsArray(value)) {
        WriteVariant(builder, value);
        return;
    }
    builder.BeginList();
    for (std::size_t i = 0; i < value.Count(); ++i)
        WriteVariant(builder, value[i]);
    builder.EndList();
}

void WriteInteger(TFormBuilder& builder, const TPropInfo& property, std::int64_t value) {
    const auto name = property.Names ? property.Names->ToName(value) : std::nullopt;
    if (name)
        builder.Identifier(*name);
    else
        builder.Integer(value);
}

void WriteSet(TFormBuilder& builder, const TEnumInfo& names, std::int64_t bits) {
    builder.BeginSet();
    for (std::size_t i = 0; i < names.Names.size(); ++i) {
        if (((bits >> i) & 1) != 0)
            builder.Identifier(names.Names[i]);
    }
    builder.EndSet();
}

} // namespace

void ReadFormValue(TPersistent& object, const TPropInfo& property, const TFormValue& value, TFormPlace& place) {
    if (property.ReadOnly())
        Refuse(u"the property is read-only");
    switch (property.Kind) {
    case tkStrings:
        property.SetLines(object, ReadLines(value, place));
        break;
    case tkBinary:
        if (value.Kind() != TFormValueKind::Binary)
            Refuse(u"a block of bytes is expected");
        property.SetBytes(object, value.Bytes());
        break;
    default:
        SetPropValue(object, property, ReadPlainValue(property, value, place));
    }
}

void WriteFormValue(TFormBuilder& builder, const TPersistent& object, const TPropInfo& property) {
    switch (property.Kind) {
    case tkInteger:
        WriteInteger(builder, property, property.GetOrdinal(object));
        break;
    case tkEnumeration:
        builder.Identifier(GetPropValue(object, property).AsString());
        break;
    case tkSet:
        WriteSet(builder, *property.Enum, property.GetOrdinal(object));
        break;
    case tkWChar:
    case tkString:
        builder.Text(GetPropValue(object, property).AsString());
        break;
    case tkFloat:
        WriteVariant(builder, property.GetValue(object));
        break;
    case tkVariant:
        WriteVariantOrList(builder, property.GetValue(object));
        break;
    case tkStrings:
        builder.BeginList();
        for (const String& line : property.GetLines(object))
            builder.Text(line);
        builder.EndList();
        break;
    case tkBinary:
        builder.Binary(property.GetBytes(object));
        break;
    case tkClass:
    case tkMethod:
        throw EPropertyError(object.ClassName() + u"." + property.Name + u": the property has no plain value");
    }
}

} // namespace framework
