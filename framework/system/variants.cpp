#include "framework/system/variants.h"

#include "framework/system/dates.h"
#include "framework/system/exceptions.h"
#include "framework/system/numbers.h"
#include "framework/system/strings.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace framework {

namespace {

/// Reads 2024-12-31 and 2024-12-31 23:59:59, as programs write dates to one another.
bool TryReadProgramsDate(StringView text, TDateTime& value) {
    static const TFormatSettings settings = [] {
        TFormatSettings result;
        result.DateSeparator = u'-';
        result.ShortDateFormat = u"yyyy-MM-dd";
        return result;
    }();
    return text.size() >= 10 && text[4] == u'-' && text[7] == u'-' && TryStrToDateTime(text, value, settings);
}

/// Rounds a half to the even neighbour; false beyond the range.
bool TryRound(Extended value, std::int64_t& whole) {
    constexpr Extended limit = 9223372036854775808.0L;
    const Extended rounded = std::nearbyint(value);
    if (!(rounded >= -limit && rounded < limit))
        return false;
    whole = static_cast<std::int64_t>(rounded);
    return true;
}

/// NaN is equal to itself and below every number, so that sorting has a fixed ground.
std::weak_ordering OrderOfFloats(Extended left, Extended right) {
    if (std::isnan(left) || std::isnan(right))
        return std::isnan(right) <=> std::isnan(left);
    const auto narrowLeft = static_cast<double>(left);
    const auto narrowRight = static_cast<double>(right);
    if (narrowLeft != narrowRight)
        return narrowLeft < narrowRight ? std::weak_ordering::less : std::weak_ordering::greater;
    if (!std::isinf(narrowLeft) || left == right)
        return std::weak_ordering::equivalent;
    return left < right ? std::weak_ordering::less : std::weak_ordering::greater;
}

std::weak_ordering OrderOfMoney(std::int64_t whole, Currency money) {
    const std::int64_t units = money.GetUnits();
    if (whole != units / Currency::unitsPerOne)
        return whole <=> units / Currency::unitsPerOne;
    return 0 <=> units % Currency::unitsPerOne;
}

bool TryTextToBoolean(StringView text, bool& value) {
    value = SameText(text, u"True");
    return value || SameText(text, u"False");
}

} // namespace

Variant Variant::Null() {
    Variant result;
    result.FValue = TNull{};
    return result;
}

Variant Variant::FromDate(TDateTime value) {
    Variant result;
    result.FValue = TDate{value};
    return result;
}

Variant Variant::FromList(std::vector<Variant> elements) {
    Variant result;
    result.FValue = std::make_shared<const std::vector<Variant>>(std::move(elements));
    return result;
}

TVarType Variant::GetVarType() const {
    if (const auto* integer = Get<TInteger>())
        return integer->Wide ? varInt64 : varInteger;
    constexpr TVarType types[] = {varEmpty, varNull,    varBoolean,           varInt64, varDouble, varCurrency,
                                  varDate,  varUString, varArray | varVariant};
    static_assert(std::size(types) == std::variant_size_v<TValue>);
    return types[FValue.index()];
}

void Variant::RaiseConversion(StringView target) const {
    String what;
    if (VarIsEmpty(*this))
        what = u"an unassigned value";
    else if (VarIsNull(*this))
        what = u"Null";
    else if (VarIsArray(*this))
        what = u"a list of values";
    else if (const auto* date = Get<TDate>())
        what = u"the day number " + FloatToStr(date->Value);
    else if (Get<TText>())
        what = u"'" + AsString() + u"'";
    else
        what = AsString();
    throw EVariantError(u"Cannot convert " + what + u" to " + String(target));
}

String Variant::AsString(const TFormatSettings& settings) const {
    if (const auto* text = Get<TText>())
        return **text;
    if (const auto* integer = Get<TInteger>())
        return IntToStr(integer->Value);
    if (const auto* number = Get<Extended>())
        return FloatToStr(*number, settings);
    if (const auto* money = Get<Currency>())
        return CurrToStr(*money, settings);
    if (const auto* truth = Get<bool>())
        return *truth ? u"True" : u"False";
    if (const auto* date = Get<TDate>(); date && YearOf(date->Value) != 0)
        return DateTimeToStr(date->Value, settings);
    if (!VarIsEmpty(*this))
        RaiseConversion(u"a text");
    return {};
}

bool Variant::TryToFloat(Extended& value, const TFormatSettings& settings) const {
    if (const auto* integer = Get<TInteger>())
        value = static_cast<Extended>(integer->Value);
    else if (const auto* number = Get<Extended>())
        value = *number;
    else if (const auto* money = Get<Currency>())
        value = money->AsFloat();
    else if (const auto* date = Get<TDate>())
        value = date->Value;
    else if (const auto* truth = Get<bool>())
        value = *truth ? -1 : 0;
    else if (const auto* text = Get<TText>())
        return TryStrToFloat(**text, value, settings);
    else if (VarIsEmpty(*this))
        value = 0;
    else
        return false;
    return true;
}

Extended Variant::AsFloat(const TFormatSettings& settings) const {
    Extended value = 0;
    if (!TryToFloat(value, settings))
        RaiseConversion(u"a number");
    return value;
}

std::int64_t Variant::AsInteger(const TFormatSettings& settings) const {
    if (const auto* integer = Get<TInteger>())
        return integer->Value;
    std::int64_t whole = 0;
    if (const auto* text = Get<TText>(); text && TryStrToInt64(**text, whole))
        return whole;
    Extended value = 0;
    if (!TryToFloat(value, settings) || !TryRound(value, whole))
        RaiseConversion(u"an integer");
    return whole;
}

bool Variant::AsBoolean(const TFormatSettings& settings) const {
    if (const auto* truth = Get<bool>())
        return *truth;
    bool result = false;
    if (const auto* text = Get<TText>(); text && TryTextToBoolean(**text, result))
        return result;
    Extended value = 0;
    if (!TryToFloat(value, settings))
        RaiseConversion(u"a truth value");
    return value != 0;
}

Currency Variant::AsCurrency(const TFormatSettings& settings) const {
    if (const auto* money = Get<Currency>())
        return *money;
    try {
        if (const auto* text = Get<TText>())
            return StrToCurr(**text, settings);
        if (const auto* integer = Get<TInteger>())
            return Currency(integer->Value);
        Extended value = 0;
        if (TryToFloat(value, settings))
            return Currency(value);
    } catch (const EConvertError&) {
        // Told below, together with the kinds that are no number.
    }
    RaiseConversion(u"a currency value");
}

bool Variant::TryToDate(TDateTime& value, const TFormatSettings& settings) const {
    if (Extended number = 0; TryToFloat(number, settings)) {
        value = static_cast<TDateTime>(number);
        return true;
    }
    const auto* text = Get<TText>();
    return text && (TryStrToDateTime(**text, value, settings) || TryReadProgramsDate(Trim(**text), value));
}

TDateTime Variant::AsDate(const TFormatSettings& settings) const {
    TDateTime value = 0;
    if (!TryToDate(value, settings))
        RaiseConversion(u"a date");
    return value;
}

std::size_t Variant::Count() const {
    const auto* list = Get<TList>();
    return list ? (*list)->size() : 0;
}

const Variant& Variant::operator[](std::size_t index) const {
    const auto* list = Get<TList>();
    if (!list)
        throw EVariantError(u"The value is not a list");
    if (index >= (*list)->size())
        throw EVariantError(u"The list of values has no element " + UIntToStr(index));
    return (**list)[index];
}

Variant operator+(const Variant& left, const Variant& right) {
    if (VarIsNull(left) || VarIsNull(right))
        return Null();
    if (VarIsEmpty(left) && !VarIsArray(right))
        return right;
    if (VarIsEmpty(right) && !VarIsArray(left))
        return left;
    if (VarIsStr(left) && VarIsStr(right))
        return left.AsString() + right.AsString();
    if (left.Get<Variant::TDate>() || right.Get<Variant::TDate>())
        return Variant::FromDate(left.AsDate() + right.AsDate());
    if (left.IsWhole() && right.IsWhole()) {
        const std::int64_t first = left.AsInteger();
        const std::int64_t second = right.AsInteger();
        using Limits = std::numeric_limits<std::int64_t>;
        if (second > 0 ? first > Limits::max() - second : first < Limits::min() - second)
            return static_cast<Extended>(first) + static_cast<Extended>(second);
        const std::int64_t sum = first + second;
        const bool isWide = VarType(left) == varInt64 || VarType(right) == varInt64;
        const auto narrow = static_cast<std::int32_t>(sum);
        return isWide || narrow != sum ? Variant(sum) : Variant(narrow);
    }
    const auto isExact = [](const Variant& value) { return value.IsWhole() || value.Get<Currency>(); };
    if (isExact(left) && isExact(right))
        return left.AsCurrency() + right.AsCurrency();
    return left.AsFloat() + right.AsFloat();
}

std::weak_ordering Variant::CompareNumber(const Variant& other) const {
    if (IsFloating() || other.IsFloating())
        return OrderOfFloats(AsFloat(), other.AsFloat());
    const auto* money = Get<Currency>();
    const auto* otherMoney = other.Get<Currency>();
    if (money && otherMoney)
        return *money <=> *otherMoney;
    if (money)
        return 0 <=> OrderOfMoney(other.AsInteger(), *money);
    if (otherMoney)
        return OrderOfMoney(AsInteger(), *otherMoney);
    return AsInteger() <=> other.AsInteger();
}

/// This is a text, the other is neither a text nor a list.
std::weak_ordering Variant::CompareTextWith(const Variant& other) const {
    const String& text = **Get<TText>();
    bool truth = false;
    if (other.Get<bool>() && TryTextToBoolean(text, truth))
        return Variant(truth).CompareNumber(other);
    if (const auto* date = other.Get<TDate>()) {
        TDateTime value = 0;
        return TryToDate(value, FormatSettings()) ? OrderOfFloats(value, date->Value) : std::weak_ordering::greater;
    }
    std::int64_t whole = 0;
    if (TryStrToInt64(text, whole))
        return Variant(whole).CompareNumber(other);
    Currency money;
    if (other.Get<Currency>() && TryStrToCurr(text, money))
        return Variant(money).CompareNumber(other);
    Extended value = 0;
    return TryStrToFloat(text, value) ? Variant(value).CompareNumber(other) : std::weak_ordering::greater;
}

std::weak_ordering Variant::Compare(const Variant& other) const {
    // Unassigned, Null, values, lists.
    const auto rank = [](const Variant& value) {
        return VarIsArray(value) ? 3 : std::min<TVarType>(VarType(value), 2);
    };
    if (rank(*this) != rank(other))
        return rank(*this) <=> rank(other);
    if (rank(*this) < 2)
        return std::weak_ordering::equivalent;
    if (const auto* list = Get<TList>()) {
        const auto* otherList = other.Get<TList>();
        return std::lexicographical_compare_three_way((*list)->begin(), (*list)->end(), (*otherList)->begin(),
                                                      (*otherList)->end());
    }
    const auto* text = Get<TText>();
    const auto* otherText = other.Get<TText>();
    if (text && otherText)
        return **text <=> **otherText;
    if (text)
        return CompareTextWith(other);
    if (otherText)
        return 0 <=> other.CompareTextWith(*this);
    return CompareNumber(other);
}

bool VarIsNumeric(const Variant& value) {
    switch (VarType(value)) {
    case varInteger:
    case varInt64:
    case varDouble:
    case varCurrency:
    case varBoolean:
        return true;
    default:
        return false;
    }
}

String VarToStrDef(const Variant& value, StringView otherwise, const TFormatSettings& settings) {
    return VarIsNull(value) ? String(otherwise) : value.AsString(settings);
}

String VarToStr(const Variant& value, const TFormatSettings& settings) {
    return VarToStrDef(value, {}, settings);
}

Variant VarArrayOf(std::initializer_list<Variant> elements) {
    return Variant::FromList(elements);
}

} // namespace framework
