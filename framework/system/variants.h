#pragma once

// A value whose type is known only at run time: field values, key values of searches, published properties.

#include "framework/system/currency.h"
#include "framework/system/formatsettings.h"

#include <compare>
#include <concepts>
#include <initializer_list>
#include <memory>
#include <utility>
#include <variant>
#include <vector>

namespace framework {

using TVarType = std::uint16_t;
constexpr TVarType varEmpty = 0;
constexpr TVarType varNull = 1;
constexpr TVarType varInteger = 3;
constexpr TVarType varDouble = 5;
constexpr TVarType varCurrency = 6;
constexpr TVarType varDate = 7;
constexpr TVarType varBoolean = 11;
constexpr TVarType varVariant = 12;
constexpr TVarType varInt64 = 20;
constexpr TVarType varUString = 258;
/// Combined with the element type; only varArray | varVariant occurs.
constexpr TVarType varArray = 0x2000;

/// Holds nothing yet, Null, a truth value, a whole number of 64 bits, an Extended, money, a date, a text, or a list of
/// variants. Texts and lists are shared between copies and never change, so copying is cheap for all kinds.
class Variant {
public:
    /// Unassigned.
    Variant() = default;
    /// Only a bool itself; a pointer does not become a truth value.
    template <std::same_as<bool> T>
    Variant(T value) : FValue(value) {}
    /// An unsigned number beyond the range of int64 is kept as Extended.
    template <WholeNumber T>
    Variant(T value) : FValue(FromInteger(value)) {}
    template <std::floating_point T>
    Variant(T value) : FValue(static_cast<Extended>(value)) {}
    Variant(Currency value) : FValue(value) {}
    Variant(String value) : FValue(std::make_shared<const String>(std::move(value))) {}
    Variant(StringView value) : Variant(String(value)) {}
    Variant(const char16_t* value) : Variant(String(value)) {}
    Variant(std::nullptr_t) = delete;

    static Variant Null();
    /// Days since 1899-12-30, told from a plain number by its kind.
    static Variant FromDate(TDateTime value);
    static Variant FromList(std::vector<Variant> elements);

    /// One of the var... codes. Integers of up to 32 bits are varInteger, wider ones and uint32 varInt64.
    TVarType GetVarType() const;

    // Each conversion raises EVariantError for Null, for a list, and for a value that has no counterpart. Nothing
    // assigned counts as 0, False, the empty text and the day 0. True counts as -1.

    /// Floats with up to 15 digits; dates as DateTimeToStr writes them.
    String AsString(const TFormatSettings& settings = FormatSettings()) const;
    /// The text itself while this variant keeps it; empty for every other kind.
    StringView BorrowText() const { return Get<TText>() ? StringView(**Get<TText>()) : StringView(); }
    /// Fractions are rounded, a half to the even neighbour; texts may be written as for StrToInt64 or StrToFloat.
    std::int64_t AsInteger(const TFormatSettings& settings = FormatSettings()) const;
    Extended AsFloat(const TFormatSettings& settings = FormatSettings()) const;
    /// Whether a number is not zero; texts are True, False (in any case) or a number.
    bool AsBoolean(const TFormatSettings& settings = FormatSettings()) const;
    Currency AsCurrency(const TFormatSettings& settings = FormatSettings()) const;
    /// Texts may be a number of days, written as for StrToDateTime, or 2024-12-31 with or without a time behind it.
    TDateTime AsDate(const TFormatSettings& settings = FormatSettings()) const;

    /// The elements of a list; 0 for every other kind.
    std::size_t Count() const;
    /// The element at the 0-based index; EVariantError for an index outside and for what is no list.
    const Variant& operator[](std::size_t index) const;

    /// Whole numbers and money are added exactly; a sum of whole numbers beyond int64 becomes Extended. With a float
    /// the sum is Extended, with a date a date. Two texts are joined; a text and a number are added as numbers. Null
    /// makes the sum Null.
    friend Variant operator+(const Variant& left, const Variant& right);
    Variant& operator+=(const Variant& other) { return *this = *this + other; }

    /// By value across the kinds of numbers, True being -1, in the precision of double where a float or date takes
    /// part, NaN being the least. A text is compared with a number as a number if it is one, and comes behind it if
    /// not. Texts are compared unit by unit, lists element by element. Unassigned comes before Null, both before all
    /// values. Containers stay sorted as long as they do not mix texts with other values, nor floats with whole
    /// numbers beyond 2^53.
    friend std::weak_ordering operator<=>(const Variant& left, const Variant& right) { return left.Compare(right); }
    friend bool operator==(const Variant& left, const Variant& right) { return std::is_eq(left.Compare(right)); }

private:
    struct TNull {};
    struct TInteger {
        std::int64_t Value;
        bool Wide;
    };
    struct TDate {
        TDateTime Value;
    };
    using TText = std::shared_ptr<const String>;
    using TList = std::shared_ptr<const std::vector<Variant>>;
    using TValue = std::variant<std::monostate, TNull, bool, TInteger, Extended, Currency, TDate, TText, TList>;

    template <WholeNumber T>
    static TValue FromInteger(T value) {
        if constexpr (std::unsigned_integral<T> && sizeof(T) == sizeof(std::int64_t)) {
            if (static_cast<std::int64_t>(value) < 0)
                return static_cast<Extended>(value);
        }
        constexpr bool isWide = sizeof(T) > 4 || (sizeof(T) == 4 && std::unsigned_integral<T>);
        return TInteger{static_cast<std::int64_t>(value), isWide};
    }

    template <typename T>
    const T* Get() const {
        return std::get_if<T>(&FValue);
    }
    bool IsWhole() const { return Get<bool>() || Get<TInteger>(); }
    bool IsFloating() const { return Get<Extended>() || Get<TDate>(); }

    [[noreturn]] void RaiseConversion(StringView target) const;
    bool TryToFloat(Extended& value, const TFormatSettings& settings) const;
    bool TryToDate(TDateTime& value, const TFormatSettings& settings) const;
    std::weak_ordering Compare(const Variant& other) const;
    std::weak_ordering CompareNumber(const Variant& other) const;
    std::weak_ordering CompareTextWith(const Variant& other) const;

    TValue FValue;
};

inline Variant Null() {
    return Variant::Null();
}
inline Variant Unassigned() {
    return {};
}
inline Variant VarFromDateTime(TDateTime value) {
    return Variant::FromDate(value);
}

inline TVarType VarType(const Variant& value) {
    return value.GetVarType();
}
inline bool VarIsEmpty(const Variant& value) {
    return VarType(value) == varEmpty;
}
inline bool VarIsNull(const Variant& value) {
    return VarType(value) == varNull;
}
inline bool VarIsStr(const Variant& value) {
    return VarType(value) == varUString;
}
inline bool VarIsArray(const Variant& value) {
    return (VarType(value) & varArray) != 0;
}
/// Whole numbers, floats, money and truth values, but neither dates nor texts.
bool VarIsNumeric(const Variant& value);

/// The value as text, `otherwise` for Null; raises EVariantError for a list.
String VarToStrDef(const Variant& value, StringView otherwise, const TFormatSettings& settings = FormatSettings());
/// The value as text, the empty one for Null.
String VarToStr(const Variant& value, const TFormatSettings& settings = FormatSettings());

/// A list of values, as for a search over several key fields.
Variant VarArrayOf(std::initializer_list<Variant> elements);

} // namespace framework
