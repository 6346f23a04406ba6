#pragma once

// The vocabulary of the data room: kinds of columns, states and events of datasets, and the value of one field on its
// way between a recordset, a dataset and a field. The ordinals of the enumerations are documented and fixed.

#include "framework/db/databaseerrors.h"
#include "framework/db/datavalues.h"
#include "framework/system/currency.h"
#include "framework/system/guids.h"
#include "framework/system/sets.h"
#include "framework/system/variants.h"

#include <span>

namespace framework {

struct TEnumInfo;

/// What a column holds.
enum TFieldType {
    ftUnknown,
    ftString,
    ftSmallint, ///< 16 bits, signed
    ftInteger,  ///< 32 bits, signed
    ftWord,     ///< 16 bits, unsigned
    ftBoolean,
    ftFloat,    ///< double
    ftCurrency, ///< a double that is money
    ftBCD,      ///< exact, with up to four decimals
    ftDate,
    ftTime,
    ftDateTime,
    ftBytes,
    ftVarBytes,
    ftAutoInc, ///< 32 bits, given by the database
    ftBlob,
    ftMemo,
    ftGraphic,
    ftFmtMemo,
    ftParadoxOle,
    ftDBaseOle,
    ftTypedBinary,
    ftCursor,
    ftFixedChar,
    ftWideString,
    ftLargeint, ///< 64 bits, signed
    ftADT,
    ftArray,
    ftReference,
    ftDataSet,
    ftOraBlob,
    ftOraClob,
    ftVariant,
    ftInterface,
    ftIDispatch,
    ftGuid,
    ftTimeStamp,
    ftFMTBcd, ///< exact, with any number of decimals
    ftFixedWideChar,
    ftWideMemo,
    ftOraTimeStamp,
    ftOraInterval,
    ftLongWord, ///< 32 bits, unsigned
    ftShortint, ///< 8 bits, signed
    ftByte,     ///< 8 bits, unsigned
    ftExtended,
    ftConnection,
    ftParams,
    ftStream,
    ftTimeStampOffset,
    ftObject,
    ftSingle,
};

/// Where a field's value comes from.
enum TFieldKind { fkData, fkCalculated, fkLookup, fkInternalCalc, fkAggregate };

enum TDataSetState {
    dsInactive,
    dsBrowse,
    dsEdit,
    dsInsert,
    dsSetKey,
    dsCalcFields, ///< OnCalcFields is running
    dsFilter,     ///< OnFilterRecord is running
    dsNewValue,
    dsOldValue,
    dsCurValue,
    dsBlockRead,
    dsInternalCalc,
    dsOpening,
};

/// What data sources and links are told. The information that travels with each stands behind it.
enum TDataEvent {
    deFieldChange,        ///< the TField
    deRecordChange,       ///< the TField, or 0 for the whole record
    deDataSetChange,      ///< 0
    deDataSetScroll,      ///< by how many rows the shown ones moved
    deLayoutChange,       ///< 0
    deUpdateRecord,       ///< 0; what is being entered has to be stored in the fields
    deUpdateState,        ///< 0
    deCheckBrowseMode,    ///< 0
    dePropertyChange,     ///< 0
    deFieldListChange,    ///< 0
    deFocusControl,       ///< the TField
    deParentScroll,       ///< 0
    deConnectChange,      ///< whether connected
    deReconcileError,     ///< 0
    deDisabledStateChange ///< whether controls are enabled
};

/// What stands in a record buffer.
enum TBookmarkFlag : std::uint8_t { bfCurrent, bfBOF, bfEOF, bfInserted };

enum TGetMode { gmCurrent, gmNext, gmPrior };
enum TGetResult { grOK, grBOF, grEOF, grError };

/// rmExact: the record must still be there. rmCenter: it is shown in the middle of the links' rows.
enum TResyncModeElement { rmExact, rmCenter };
using TResyncMode = Set<TResyncModeElement>;

enum TLocateOption { loCaseInsensitive, loPartialKey };
using TLocateOptions = Set<TLocateOption>;

/// What a handler of a failed post, delete or edit wants: the exception, silence, or another attempt.
enum TDataAction { daFail, daAbort, daRetry };

const TEnumInfo& DescribeEnum(TFieldType);
const TEnumInfo& DescribeEnum(TFieldKind);
const TEnumInfo& DescribeEnum(TDataSetState);

[[noreturn]] void DatabaseError(const String& message);
/// With the name of the component in front.
[[noreturn]] void DatabaseError(const String& message, const class TComponent* component);

/// The value of one field in one record. Texts and bytes are borrowed from whoever gave the value, and live until that
/// moves to another record or changes; OleVariant (olevariant.h) owns such a value.
class TFieldValue {
public:
    enum class TKind : std::uint8_t {
        Unassigned, ///< nobody has put anything here yet
        Null,
        Boolean,
        Integer, ///< up to 64 bits, signed
        Float,   ///< double
        Money,   ///< ten-thousandths
        Decimal, ///< exact: a 64-bit integer times 10^-Scale; wider numbers travel as texts like -123.45
        Date,    ///< TDateTime
        Text,    ///< UTF-16
        Bytes,
        Guid,
    };

    constexpr TFieldValue() = default;
    static constexpr TFieldValue Null() { return OfWhole(TKind::Null, 0); }
    static constexpr TFieldValue Boolean(bool value) { return OfWhole(TKind::Boolean, value ? 1 : 0); }
    static constexpr TFieldValue Integer(std::int64_t value) { return OfWhole(TKind::Integer, value); }
    static constexpr TFieldValue Float(double value) { return OfFloat(TKind::Float, value); }
    static constexpr TFieldValue Money(Currency value) { return OfWhole(TKind::Money, value.GetUnits()); }
    static constexpr TFieldValue Decimal(TNumeric value) {
        TFieldValue result = OfWhole(TKind::Decimal, value.Units);
        result.FScale = static_cast<std::uint8_t>(value.Scale);
        return result;
    }
    static constexpr TFieldValue Date(TDateTime value) { return OfFloat(TKind::Date, value); }
    static TFieldValue Text(StringView text) { return OfBlock(TKind::Text, text.data(), text.size()); }
    static TFieldValue Bytes(TBytesView bytes) { return OfBlock(TKind::Bytes, bytes.data(), bytes.size()); }
    static TFieldValue Guid(const TGUID& value);
    /// Texts stay borrowed from the variant; a list is EVariantError.
    static TFieldValue Of(const Variant& value);

    constexpr TKind Kind() const { return FKind; }
    constexpr bool IsUnassigned() const { return FKind == TKind::Unassigned; }
    /// Also for what was never assigned.
    constexpr bool IsNull() const { return FKind <= TKind::Null; }

    // Each for its own kinds only.

    /// Boolean, Integer, Money, Decimal.
    constexpr std::int64_t Whole() const { return FWhole; }
    constexpr int Scale() const { return FScale; }
    /// Float, Date.
    constexpr double Floating() const { return FFloating; }
    StringView Units() const { return {static_cast<const char16_t*>(FData), static_cast<std::size_t>(FSize)}; }
    TBytesView Octets() const { return {static_cast<const std::uint8_t*>(FData), static_cast<std::size_t>(FSize)}; }
    TGUID GuidValue() const;

    // Conversions from any kind, as Variant makes them. Null gives 0, False and the empty text.
    String AsString() const;
    std::int64_t AsInteger() const;
    double AsFloat() const;
    bool AsBoolean() const;
    Currency AsCurrency() const;
    TDateTime AsDate() const;
    /// Bytes become a text of one unit each, a GUID its text. A decimal becomes money if four decimals hold it, else a
    /// float.
    Variant AsVariant() const;

private:
    static constexpr TFieldValue OfWhole(TKind kind, std::int64_t value) {
        TFieldValue result;
        result.FWhole = value;
        result.FKind = kind;
        return result;
    }
    static constexpr TFieldValue OfFloat(TKind kind, double value) {
        TFieldValue result;
        result.FFloating = value;
        result.FKind = kind;
        return result;
    }
    static TFieldValue OfBlock(TKind kind, const void* data, std::size_t size) {
        TFieldValue result;
        result.FData = data;
        result.FSize = size;
        result.FKind = kind;
        return result;
    }

    union {
        std::int64_t FWhole = 0;
        double FFloating;
        const void* FData;
    };
    std::uint64_t FSize = 0; // of what FData points to; the second half of a GUID, whose first is FWhole
    TKind FKind = TKind::Unassigned;
    std::uint8_t FScale = 0;
};

} // namespace framework
