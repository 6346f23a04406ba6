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

const TEnumInfo& DescribeEnum(TFilterOption) {
    static const TEnumInfo info{u"TFilterOption", {u"foCaseInsensitive", u"foNoPartialCompare"}};
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

Extended PowerOfTen(int exponent) {
    Extended power = 1;
    for (; exponent > 0; --exponent)
        power *= 10;
    return power;
}

Variant VariantOfDecimal(std::int64_t units, int scale) {
    if (scale == 0)
        return units;
    std::int64_t wider = units;
    for (int decimals = scale; decimals < Currency::decimals; ++decimals) {
        if (wider > INT64_MAX / 10 || wider < INT64_MIN / 10)
            return static_cast<Extended>(units) / PowerOfTen(scale);
        wider *= 10;
    }
    for (int decimals = scale; decimals > Currency::decimals; --decimals) {
        if (wider % 10 != 0)
            return static_cast<Extended>(units) / PowerOfTen(scale);
        wider /= 10;
    }
    return Currency::FromUnits(wider);
}

/// Without needless zeros, as money is written.
String TextOfDecimal(std::int64_t units, int scale) {
    const auto magnitude = static_cast<std::uint64_t>(units);
    String digits = UIntToStr(units < 0 ? 0 - magnitude : magnitude);
    const auto decimals = static_cast<std::size_t>(scale);
    if (digits.size() <= decimals)
        digits.insert(0, decimals + 1 - digits.size(), u'0');
    std::size_t kept = digits.size();
    while (kept > digits.size() - decimals && digits[kept - 1] == u'0')
        --kept;
    const std::size_t whole = digits.size() - decimals;
    digits.resize(kept);
    if (kept > whole)
        digits.insert(whole, 1, FormatSettings().DecimalSeparator);
    return units < 0 ? u"-" + digits : digits;
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
        return VariantOfDecimal(FWhole, FScale);
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
        return TextOfDecimal(FWhole, FScale);
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
        return static_cast<double>(static_cast<Extended>(FWhole) / PowerOfTen(FScale));
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
