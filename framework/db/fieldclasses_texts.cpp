// Fields of texts and of blocks of bytes.

#include "framework/db/fieldclasses.h"

#include "framework/db/olevariant.h"
#include "framework/system/numbers.h"
#include "framework/system/strings.h"

#include <algorithm>

namespace framework {

using TKind = TFieldValue::TKind;

namespace {

bool IsTextColumn(TFieldType type) {
    switch (type) {
    case ftString:
    case ftMemo:
    case ftFmtMemo:
    case ftFixedChar:
    case ftWideString:
    case ftFixedWideChar:
    case ftWideMemo:
        return true;
    default:
        return false;
    }
}

bool IsBytesColumn(TFieldType type) {
    switch (type) {
    case ftBytes:
    case ftVarBytes:
    case ftBlob:
    case ftGraphic:
    case ftTypedBinary:
        return true;
    default:
        return false;
    }
}

TFieldValue KeepText(OleVariant& keeper, StringView text) {
    keeper = OleVariant(TFieldValue::Text(text));
    return keeper.View();
}

/// Bytes are those of a text in UTF-8.
TFieldValue AsText(const TFieldValue& value, OleVariant& keeper) {
    if (value.Kind() == TFieldValue::TKind::Text)
        return value;
    if (value.Kind() != TFieldValue::TKind::Bytes)
        return KeepText(keeper, value.AsString());
    const TBytesView bytes = value.Octets();
    return KeepText(keeper, Utf8Decode({reinterpret_cast<const char*>(bytes.data()), bytes.size()}));
}

/// As databases count: what takes two units is one character.
std::ptrdiff_t CharacterCount(StringView text) {
    return std::count_if(text.begin(), text.end(), [](char16_t unit) { return unit < 0xDC00 || unit > 0xDFFF; });
}

TFieldValue KeepBytes(OleVariant& keeper, TBytesView bytes) {
    keeper = OleVariant(TFieldValue::Bytes(bytes));
    return keeper.View();
}

} // namespace

// Texts.

const TClassInfo& TStringField::StaticClass() {
    static const TClassInfo info = DescribeClass<TStringField>(u"TStringField", TField::StaticClass());
    return info;
}

TStringField::TStringField(TComponent* owner) : TField(owner) {
    SetDataType(ftString);
}

bool TStringField::Accepts(TFieldType columnType) const {
    return IsTextColumn(columnType) || columnType == ftGuid;
}

int TStringField::GetDefaultWidth() const {
    return GetSize() > 0 ? GetSize() : 10;
}

TFieldValue TStringField::Converted(const TFieldValue& value, OleVariant& keeper) const {
    const TFieldValue text = AsText(value, keeper);
    if (GetSize() > 0 && CharacterCount(text.Units()) > GetSize())
        DatabaseError(u"'" + String(text.Units()) + u"' is longer than the " + IntToStr(GetSize()) +
                      u" characters of field '" + GetDisplayName() + u"'");
    return text;
}

const TClassInfo& TWideStringField::StaticClass() {
    static const TClassInfo info = DescribeClass<TWideStringField>(u"TWideStringField", TStringField::StaticClass());
    return info;
}

TWideStringField::TWideStringField(TComponent* owner) : TStringField(owner) {
    SetDataType(ftWideString);
}

// Blocks of bytes, and long texts.

const TClassInfo& TBlobField::StaticClass() {
    static const TClassInfo info = DescribeClass<TBlobField>(u"TBlobField", TField::StaticClass());
    return info;
}

TBlobField::TBlobField(TComponent* owner, TFieldType type) : TField(owner) {
    SetDataType(type);
}

bool TBlobField::Accepts(TFieldType columnType) const {
    return IsBytesColumn(columnType);
}

int TBlobField::GetBlobSize() const {
    const TFieldValue value = GetData();
    return static_cast<int>(value.Kind() == TKind::Text ? value.Units().size() : value.Octets().size());
}

String TBlobField::TextOf(const TFieldValue& value, bool) const {
    const String kind = u"(" + DescribeEnum(ftUnknown).Names[GetDataType()].substr(2) + u")";
    return value.IsNull() ? kind : UpperCase(kind);
}

TFieldValue TBlobField::Converted(const TFieldValue& value, OleVariant& keeper) const {
    if (value.Kind() == TKind::Bytes)
        return value;
    const String text = value.AsString();
    TBytes bytes(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] > 0xFF)
            DatabaseError(u"A text with characters beyond U+00FF cannot be the bytes of field '" + GetDisplayName() +
                          u"'");
        bytes[i] = static_cast<std::uint8_t>(text[i]);
    }
    return KeepBytes(keeper, bytes);
}

const TClassInfo& TGraphicField::StaticClass() {
    static const TClassInfo info = DescribeClass<TGraphicField>(u"TGraphicField", TBlobField::StaticClass());
    return info;
}

const TClassInfo& TMemoField::StaticClass() {
    static const TClassInfo info = DescribeClass<TMemoField>(u"TMemoField", TBlobField::StaticClass());
    return info;
}

bool TMemoField::Accepts(TFieldType columnType) const {
    return IsTextColumn(columnType);
}

TFieldValue TMemoField::Converted(const TFieldValue& value, OleVariant& keeper) const {
    return AsText(value, keeper);
}

const TClassInfo& TWideMemoField::StaticClass() {
    static const TClassInfo info = DescribeClass<TWideMemoField>(u"TWideMemoField", TMemoField::StaticClass());
    return info;
}

const TClassInfo& TVarBytesField::StaticClass() {
    static const TClassInfo info = DescribeClass<TVarBytesField>(u"TVarBytesField", TBlobField::StaticClass());
    return info;
}

TFieldValue TVarBytesField::Converted(const TFieldValue& value, OleVariant& keeper) const {
    const TFieldValue bytes = TBlobField::Converted(value, keeper);
    if (GetSize() > 0 && bytes.Octets().size() > static_cast<std::size_t>(GetSize()))
        DatabaseError(u"Field '" + GetDisplayName() + u"' holds no more than " + IntToStr(GetSize()) + u" bytes");
    return bytes;
}

const TClassInfo& TBytesField::StaticClass() {
    static const TClassInfo info = DescribeClass<TBytesField>(u"TBytesField", TVarBytesField::StaticClass());
    return info;
}

// Identifiers.

const TClassInfo& TGuidField::StaticClass() {
    static const TClassInfo info = DescribeClass<TGuidField>(u"TGuidField", TField::StaticClass());
    return info;
}

TGuidField::TGuidField(TComponent* owner) : TField(owner) {
    SetDataType(ftGuid);
}

bool TGuidField::Accepts(TFieldType columnType) const {
    return columnType == ftGuid || IsTextColumn(columnType);
}

TGUID TGuidField::GetAsGuid() const {
    const TFieldValue value = GetData();
    if (value.Kind() == TKind::Guid)
        return value.GuidValue();
    TGUID guid;
    if (!value.IsNull() && !TryStringToGUID(value.AsString(), guid))
        RaiseConversion(value, u"identifier");
    return guid;
}

void TGuidField::SetAsGuid(const TGUID& value) {
    SetData(TFieldValue::Guid(value));
}

TFieldValue TGuidField::Converted(const TFieldValue& value, OleVariant&) const {
    return value.Kind() == TKind::Guid ? value : TFieldValue::Guid(StringToGUID(value.AsString()));
}

} // namespace framework
