#include "framework/db/datatypes.h"

#include "framework/system/components.h"
#include "framework/system/numbers.h"

#include <cstring>

namespace framework {

const TEnumInfo& DescribeEnum(TFieldType) {
    static const TEnumInfo info{
        u"TFieldType", {u"ftUnknown",      u"ftString",      u"ftSmallint", u"ftInteger",       u"ftWord",
                        u"ftBoolean",      u"ftFloat",       u"ftCurrency", u"ftBCD",           u"ftDate",
                        u"ftTime",         u"ftDateTime",    u"ftBytes",    u"ftVarBytes",      u"ftAutoInc",
                        u"ftBlob",         u"ftMemo",        u"ftGraphic",  u"ftFmtMemo",       u"ftParadoxOle",
                        u"ftDBaseOle",     u"ftTypedBinary", u"ftCursor",   u"ftFixedChar",     u"ftWideString",
                        u"ftLargeint",     u"ftADT",         u"ftArray",    u"ftReference",     u"ftDataSet",
                        u"ftOraBlob",      u"ftOraClob",     u"ftVariant",  u"ftInterface",     u"ftIDispatch",
                        u"ftGuid",         u"ftTimeStamp",   u"ftFMTBcd",   u"ftFixedWideChar", u"ftWideMemo",
                        u"ftOraTimeStamp", u"ftOraInterval", u"ftLongWord", u"ftShortint",      u"ftByte",
                        u"ftExtended",     u"ftConnection",  u"ftParams",   u"ftStream",        u"ftTimeStampOffset",
                        u"ftObject",       u"ftSingle"}};
    return info;
}

const TEnumInfo& DescribeEnum(TFieldKind) {
    static const TEnumInfo info{u"TFieldKind",
                                {u"fkData", u"fkCalculated", u"fkLookup", u"fkInternalCalc", u"fkAggregate"}};
    return info;
}

const TEnumInfo& DescribeEnum(TDataSetState) {
    static const TEnumInfo info{u"TDataSetState",
                                {u"dsInactive", u"dsBrowse", u"dsEdit", u"dsInsert", u"dsSetKey", u"dsCalcFields",
                                 u"dsFilter", u"dsNewValue", u"dsOldValue", u"dsCurValue", u"dsBlockRead",
                                 u"dsInternalCalc", u"dsOpening"}};
    return info;
}

void DatabaseError(const String& message) {
    throw EDatabaseError(message);
}

void DatabaseError(const String& message, const TComponent* component) {
    const bool isNamed = component && !component->GetName().empty();
    throw EDatabaseError(isNamed ? component->GetName() + u": " + message : message);
}

namespace {

Variant VariantOfDecimal(const TNumeric& value) {
    if (value.Scale == 0)
        return value.Units;
    if (TNumeric money; value.TryRescale(Currency::decimals, money))
        return Currency::FromUnits(money.Units);
    return value.AsDouble();
}

/// Without needless zeros, as money is written.
String TextOfDecimal(const TNumeric& value) {
    String text = value.AsText();
    const std::size_t point = text.find(u'.');
    if (point == String::npos)
        return text;
    text[point] = FormatSettings().DecimalSeparator;
    text.resize(text.find_last_not_of(u'0') + 1);
    if (text.size() == point + 1)
        text.pop_back();
    return text;
}

String TextOfBytes(TBytesView bytes) {
    String text(bytes.size(), u'\0');
    for (std::size_t i = 0; i < bytes.size(); ++i)
        text[i] = static_cast<char16_t>(bytes[i]);
    return text;
}

} // namespace

TFieldValue TFieldValue::Guid(const TGUID& value) {
    std::uint64_t halves[2];
    static_assert(sizeof halves == sizeof value);
    std::memcpy(halves, &value, sizeof value);
    TFieldValue result = OfWhole(TKind::Guid, static_cast<std::int64_t>(halves[0]));
    result.FSize = halves[1];
    return result;
}

TGUID TFieldValue::GuidValue() const {
    const std::uint64_t halves[2] = {static_cast<std::uint64_t>(FWhole), FSize};
    TGUID value;
    std::memcpy(&value, halves, sizeof value);
    return value;
}

TFieldValue TFieldValue::Of(const Variant& value) {
    switch (VarType(value)) {
    case varEmpty:
        return {};
    case varNull:
        return Null();
    case varBoolean:
        return Boolean(value.AsBoolean());
    case varInteger:
    case varInt64:
        return Integer(value.AsInteger());
    case varCurrency:
        return Money(value.AsCurrency());
    case varDate:
        return Date(value.AsDate());
    case varUString:
        return Text(value.BorrowText());
    default:
        return Float(static_cast<double>(value.AsFloat()));
    }
}

Variant TFieldValue::AsVariant() const {
    switch (FKind) {
    case TKind::Unassigned:
        return {};
    case TKind::Null:
        return Variant::Null();
    case TKind::Boolean:
        return FWhole != 0;
    case TKind::Integer:
        if (FWhole >= INT32_MIN && FWhole <= INT32_MAX)
            return static_cast<std::int32_t>(FWhole);
        return FWhole;
    case TKind::Float:
        return FFloating;
    case TKind::Money:
        return Currency::FromUnits(FWhole);
    case TKind::Decimal:
        return VariantOfDecimal({FWhole, FScale});
    case TKind::Date:
        return Variant::FromDate(FFloating);
    case TKind::Text:
        return Units();
    case TKind::Bytes:
    case TKind::Guid:
        break;
    }
    return AsString();
}

String TFieldValue::AsString() const {
    switch (FKind) {
    case TKind::Unassigned:
    case TKind::Null:
        return {};
    case TKind::Text:
        return String(Units());
    case TKind::Integer:
        return IntToStr(FWhole);
    case TKind::Decimal:
        return TextOfDecimal({FWhole, FScale});
    case TKind::Bytes:
        return TextOfBytes(Octets());
    case TKind::Guid:
        return GUIDToString(GuidValue());
    default:
        return AsVariant().AsString();
    }
}

std::int64_t TFieldValue::AsInteger() const {
    if (FKind == TKind::Integer)
        return FWhole;
    return IsNull() ? 0 : AsVariant().AsInteger();
}

double TFieldValue::AsFloat() const {
    switch (FKind) {
    case TKind::Float:
    case TKind::Date:
        return FFloating;
    case TKind::Integer:
        return static_cast<double>(FWhole);
    case TKind::Decimal:
        return TNumeric{FWhole, FScale}.AsDouble();
    default:
        return IsNull() ? 0 : static_cast<double>(AsVariant().AsFloat());
    }
}

bool TFieldValue::AsBoolean() const {
    if (FKind == TKind::Boolean || FKind == TKind::Integer)
        return FWhole != 0;
    return !IsNull() && AsVariant().AsBoolean();
}

Currency TFieldValue::AsCurrency() const {
    if (FKind == TKind::Money)
        return Currency::FromUnits(FWhole);
    return IsNull() ? Currency() : AsVariant().AsCurrency();
}

TDateTime TFieldValue::AsDate() const {
    if (FKind == TKind::Date)
        return FFloating;
    return IsNull() ? 0 : AsVariant().AsDate();
}

} // namespace framework
