#pragma once

// What columns are and what stands in them. A value keeps the exactness of its column: whole numbers have 64 bits,
// money and NUMERIC keep their decimal digits, times of day have steps of 100 nanoseconds. TDateTime and Variant, which
// have less, are what fields make of them.

#include "framework/system/dates.h"
#include "framework/system/guids.h"
#include "framework/system/types.h"
#include "framework/system/variants.h"

#include <compare>
#include <span>
#include <variant>
#include <vector>

namespace framework {

/// The type of a column.
enum DataTypeEnum {
    adEmpty = 0,
    adSmallInt = 2,          ///< 16 bits, signed
    adInteger = 3,           ///< 32 bits, signed
    adSingle = 4,            ///< float of 32 bits
    adDouble = 5,            ///< float of 64 bits
    adCurrency = 6,          ///< four decimals, exact
    adBoolean = 11,          ///< true or false
    adTinyInt = 16,          ///< 8 bits, signed
    adUnsignedTinyInt = 17,  ///< 8 bits
    adUnsignedSmallInt = 18, ///< 16 bits
    adUnsignedInt = 19,      ///< 32 bits
    adBigInt = 20,           ///< 64 bits, signed
    adGUID = 72,             ///< TGUID
    adWChar = 130,           ///< text of fixed length
    adNumeric = 131,         ///< decimal number, exact
    adDBDate = 133,          ///< date without a time
    adDBTime = 134,          ///< time of day
    adDBTimeStamp = 135,     ///< date and time
    adVarWChar = 202,        ///< text of a limited length
    adLongVarWChar = 203,    ///< text of any length
    adBinary = 128,          ///< bytes of fixed length
    adVarBinary = 204,       ///< bytes of a limited length
    adLongVarBinary = 205,   ///< bytes of any length
};

bool IsWholeNumberType(DataTypeEnum type);
/// adSingle and adDouble.
bool IsFloatType(DataTypeEnum type);
bool IsTextType(DataTypeEnum type);
bool IsBytesType(DataTypeEnum type);
/// adDBDate, adDBTime and adDBTimeStamp.
bool IsMomentType(DataTypeEnum type);

/// A column as the database describes it, and where it comes from.
struct TColumnInfo {
    String Name;
    DataTypeEnum Type = adVarWChar;
    /// The most UTF-16 units of a text or bytes of a binary; 0 where nothing limits it, and for all other types.
    std::int64_t Size = 0;
    /// Digits in all and behind the point of adNumeric and adCurrency; Scale also the digits of a second of a time. An
    /// adNumeric with Precision 0 has no limits, and its Scale is only what most of its values have.
    int Precision = 0;
    int Scale = 0;
    bool Nullable = true;
    /// Belongs to the key by which rows are found again.
    bool Key = false;
    /// The database gives the value when a row is inserted.
    bool AutoIncrement = false;
    /// Computed, or of a table that edits do not reach.
    bool ReadOnly = false;
    /// Of the table it comes from; empty for expressions.
    String BaseColumn;
};

/// A decimal number: Units times 10^-Scale, 0 to 18. Not normalised: 1.50 has the scale 2 and differs from 1.5 as an
/// object.
struct TNumeric {
    static constexpr int maximumScale = 18;

    std::int64_t Units = 0;
    int Scale = 0;

    /// The nearest float.
    double AsDouble() const;
    /// The digits, as in "-1.50".
    String AsText() const;
    /// The same number with another scale; false when digits would be lost or do not fit.
    bool TryRescale(int scale, TNumeric& value) const;
    friend bool operator==(const TNumeric&, const TNumeric&) = default;
};

/// A date, a time of day, or both, in steps of 100 nanoseconds since 1899-12-30 0:00. Times alone lie on that day.
struct TMoment {
    std::int64_t Ticks = 0;

    static constexpr std::int64_t ticksPerSecond = 10'000'000;
    static constexpr std::int64_t ticksPerDay = 86'400 * ticksPerSecond;

    /// Rounded to the millisecond, as every TDateTime is before it is taken apart.
    static TMoment FromDateTime(TDateTime value);
    TDateTime AsDateTime() const;
    friend auto operator<=>(const TMoment&, const TMoment&) = default;
};

using TBytes = std::vector<std::uint8_t>;
using TBytesView = std::span<const std::uint8_t>;

/// A value on its way into a recordset; std::monostate is NULL. A decimal number too wide for TNumeric travels as its
/// digits in a String, with "." as separator.
using TDataValue = std::variant<std::monostate, bool, std::int64_t, double, TNumeric, TMoment, String, TBytes, TGUID>;

/// A value for one column, 0-based.
struct TColumnValue {
    int Column = 0;
    TDataValue Value;
};

/// Reads [-]digits[.digits]; false for anything else and for what does not fit.
bool TryParseNumeric(StringView text, TNumeric& value);
bool TryParseNumeric(std::string_view text, TNumeric& value);
/// Whether it is a number as TryParseNumeric reads them, of any length.
bool IsNumericText(StringView text);

/// The value in the kind that columns of this type hold: std::int64_t for whole numbers, double for floats, TNumeric or
/// digits for decimal ones, and so on; std::monostate stays. Floats are rounded to the decimals of a decimal column,
/// moments lose the date or the time that the column does not have. EDatabaseError names the column when nothing else
/// can become of the value.
TDataValue AdaptValue(const TColumnInfo& column, TDataValue value);

} // namespace framework
