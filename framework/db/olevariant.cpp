#include "framework/db/olevariant.h"

#include <algorithm>
#include <atomic>
#include <memory>

namespace framework {

/// A text, a block of bytes or a GUID that several variants hold.
struct OleVariant::TShared {
    std::atomic<std::size_t> Holders = 1;
    String Text;
    TBytes Bytes;
    TGUID Guid;
};

OleVariant::OleVariant(const OleVariant& other) {
    std::memcpy(FStorage, other.FStorage, sizeof FStorage);
    if (Tag() >= FirstShared)
        Read<TShared*>(valuePlace)->Holders.fetch_add(1, std::memory_order_relaxed);
}

OleVariant::OleVariant(OleVariant&& other) noexcept {
    std::memcpy(FStorage, other.FStorage, sizeof FStorage);
    std::memset(other.FStorage, 0, sizeof other.FStorage);
}

OleVariant::OleVariant(const Variant& value) : OleVariant() {
    Put(TFieldValue::Of(value));
}

OleVariant::OleVariant(const TFieldValue& value) : OleVariant() {
    Put(value);
}

OleVariant& OleVariant::operator=(OleVariant other) noexcept {
    std::swap(FStorage, other.FStorage);
    return *this;
}

void OleVariant::Put(const TFieldValue& value) {
    using TKind = TFieldValue::TKind;
    switch (value.Kind()) {
    case TKind::Unassigned:
    case TKind::Null:
        break;
    case TKind::Float:
    case TKind::Date:
        Write(valuePlace, value.Floating());
        break;
    case TKind::Text:
    case TKind::Bytes:
    case TKind::Guid: {
        auto shared = std::make_unique<TShared>();
        if (value.Kind() == TKind::Text)
            shared->Text = value.Units();
        else if (value.Kind() == TKind::Guid)
            shared->Guid = value.GuidValue();
        else
            shared->Bytes.assign(value.Octets().begin(), value.Octets().end());
        Write(valuePlace, shared.release());
        break;
    }
    default:
        Write(scalePlace, static_cast<std::uint8_t>(value.Scale()));
        Write(valuePlace, value.Whole());
    }
    Write(0, static_cast<std::uint16_t>(value.Kind()));
}

void OleVariant::Release() {
    auto* shared = Read<TShared*>(valuePlace);
    if (shared->Holders.fetch_sub(1, std::memory_order_acq_rel) == 1)
        delete shared;
}

TFieldValue OleVariant::View() const {
    using TKind = TFieldValue::TKind;
    switch (static_cast<TKind>(Tag())) {
    case TKind::Unassigned:
        return {};
    case TKind::Null:
        return TFieldValue::Null();
    case TKind::Boolean:
        return TFieldValue::Boolean(Read<std::int64_t>(valuePlace) != 0);
    case TKind::Integer:
        return TFieldValue::Integer(Read<std::int64_t>(valuePlace));
    case TKind::Float:
        return TFieldValue::Float(Read<double>(valuePlace));
    case TKind::Money:
        return TFieldValue::Money(Currency::FromUnits(Read<std::int64_t>(valuePlace)));
    case TKind::Decimal:
        return TFieldValue::Decimal({Read<std::int64_t>(valuePlace), Read<std::uint8_t>(scalePlace)});
    case TKind::Date:
        return TFieldValue::Date(Read<double>(valuePlace));
    case TKind::Text:
        return TFieldValue::Text(Read<TShared*>(valuePlace)->Text);
    case TKind::Bytes:
        return TFieldValue::Bytes(Read<TShared*>(valuePlace)->Bytes);
    case TKind::Guid:
        break;
    }
    return TFieldValue::Guid(Read<TShared*>(valuePlace)->Guid);
}

namespace {

bool IsExact(const TFieldValue& value) {
    using TKind = TFieldValue::TKind;
    return value.Kind() == TKind::Integer || value.Kind() == TKind::Money || value.Kind() == TKind::Decimal;
}

TNumeric NumericOf(const TFieldValue& value) {
    return {value.Whole(), value.Kind() == TFieldValue::TKind::Money ? Currency::decimals : value.Scale()};
}

/// Digit by digit, as a double tells no more than the first 15 of 18 apart.
std::weak_ordering CompareExact(TNumeric left, TNumeric right) {
    const int scale = std::max(left.Scale, right.Scale);
    // What has no room at the larger scale is further from 0 than anything that has that scale.
    if (!left.TryRescale(scale, left))
        return left.Units <=> 0;
    if (!right.TryRescale(scale, right))
        return 0 <=> right.Units;
    return left.Units <=> right.Units;
}

} // namespace

std::weak_ordering OleVariant::Compare(const OleVariant& other) const {
    if (IsInteger() && other.IsInteger())
        return Read<std::int64_t>(valuePlace) <=> other.Read<std::int64_t>(valuePlace);
    if (const TFieldValue left = View(), right = other.View(); IsExact(left) && IsExact(right))
        return CompareExact(NumericOf(left), NumericOf(right));
    return ToVariant() <=> other.ToVariant();
}

} // namespace framework
