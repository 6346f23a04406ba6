#pragma once

// The rows that a query gave, and a cursor that stands on one of them, before the first or behind the last. Datasets
// know rows through this interface alone. Columns are numbered from 0.

#include "framework/db/databaseerrors.h"
#include "framework/db/datavalues.h"

#include <functional>

namespace framework {

/// What AbsolutePosition answers when the cursor stands on no row with a number.
enum PositionEnum {
    adPosEOF = -3,
    adPosBOF = -2,
    adPosUnknown = -1, ///< a new row that is not posted yet, or a deleted one
};

/// The state of the current row, bits.
enum RecordStatusEnum {
    adRecOK = 0,
    adRecNew = 1,     ///< begun by AddNew and not posted yet
    adRecDeleted = 4, ///< deleted while it was the current one
};

/// What Supports can be asked.
enum CursorOptionEnum {
    adMovePrevious = 0x200,
    adBookmark = 0x2000,
    adApproxPosition = 0x4000, ///< AbsolutePosition can be read and set
    adAddNew = 0x1000400,
    adDelete = 0x1000800,
    adUpdate = 0x1008000,
    adResync = 0x20000, ///< Requery reads the rows anew
};

/// Progress of a fetch: rows read so far, and how many there will be, or -1 while that is not known. Answering false
/// cancels the fetch, which then raises EFetchCancelled.
using TFetchProgress = std::function<bool(std::int64_t rows, std::int64_t count)>;

/// Rows with a cursor. Operations that need a current row raise EDatabaseError where there is none.
class _Recordset {
public:
    FRAMEWORK_READ_PROPERTY(int, RecordCount, GetRecordCount);
    FRAMEWORK_PROPERTY(Variant, Bookmark, GetBookmark, SetBookmark);
    FRAMEWORK_PROPERTY(int, AbsolutePosition, GetAbsolutePosition, SetAbsolutePosition);
    FRAMEWORK_READ_PROPERTY(int, Status, GetStatus);
    FRAMEWORK_READ_PROPERTY(bool, BOF, GetBOF);
    // There is no property EOF: the C library has a macro of that name.

    _Recordset() = default;
    _Recordset(const _Recordset&) = delete;
    _Recordset& operator=(const _Recordset&) = delete;
    virtual ~_Recordset() = default;

    // The rows and the cursor. A recordset opens on its first row; without rows it is at both ends at once.

    virtual int GetRecordCount() const = 0;
    /// The current row as a whole number that stays its own while other rows come and go. Rows of a higher bookmark
    /// come later. After Requery all rows have bookmarks that none had before.
    virtual Variant GetBookmark() const = 0;
    /// Goes to a row; EDatabaseError for an empty variant, a row that is gone and what never was a bookmark, and the
    /// cursor stays.
    virtual void SetBookmark(const Variant& value) = 0;
    /// From 1, or a PositionEnum.
    virtual int GetAbsolutePosition() const = 0;
    /// EDatabaseError outside 1..RecordCount.
    virtual void SetAbsolutePosition(int value) = 0;
    /// RecordStatusEnum of the current row; adRecOK at the ends.
    virtual int GetStatus() const = 0;
    virtual bool GetBOF() const = 0;
    virtual bool GetEOF() const = 0;

    virtual void MoveFirst() = 0;
    virtual void MoveLast() = 0;
    /// Behind the last row it raises EDatabaseError; before the first it goes to the first.
    virtual void MoveNext() = 0;
    /// Before the first row it raises EDatabaseError; behind the last it goes to the last.
    virtual void MovePrevious() = 0;
    /// Forwards or backwards, to one of the ends at most.
    virtual void Move(int count) = 0;
    /// Whether the recordset can do what a CursorOptionEnum names.
    virtual bool Supports(int options) const = 0;

    // Columns.

    virtual int GetColumnCount() const = 0;
    virtual const TColumnInfo& GetColumn(int column) const = 0;
    /// The number of a column, letter case aside; -1 when there is none.
    int FindColumn(StringView name) const;

    // Values of the current row. None of these allocates. NULL reads as 0, false or nothing, so ask IsNull first.
    // Asking a column for what it does not hold raises EDatabaseError. Views last until the row is edited or the rows
    // go.

    virtual bool IsNull(int column) const = 0;
    virtual bool GetBoolean(int column) const = 0;
    /// Of whole numbers and truth values.
    virtual std::int64_t GetInt64(int column) const = 0;
    /// Of all numbers; decimal ones are rounded to the nearest float.
    virtual double GetDouble(int column) const = 0;
    /// Of whole numbers, adNumeric and adCurrency. False when the digits do not fit; GetText has them then.
    virtual bool TryGetNumeric(int column, TNumeric& value) const = 0;
    /// Of texts, and the digits of an adNumeric that TryGetNumeric does not give.
    virtual StringView GetText(int column) const = 0;
    /// Of dates, times and both.
    virtual TMoment GetMoment(int column) const = 0;
    virtual TBytesView GetBytes(int column) const = 0;
    virtual TGUID GetGuid(int column) const = 0;

    /// Any value: whole numbers, Boolean and texts as such, floats as Extended, money as Currency, dates as dates, an
    /// adNumeric as Currency if that keeps all digits and as Extended otherwise, a GUID as its text, and bytes as a
    /// list of whole numbers.
    Variant GetVariant(int column) const;
    /// Any value, as Update takes it.
    TDataValue GetValue(int column) const;

    // Edits. They reach the database at once; what it refuses raises an exception, and all stays as it was.

    /// Begins a row, all of it NULL, which is the current one until Update or CancelUpdate. EReadOnlyDataError where
    /// rows cannot be edited.
    virtual void AddNew() = 0;
    /// Writes values of the current row, or the new row with the values given and the database's defaults in the other
    /// columns; the new row becomes the last one. Values that the database gave or changed itself are read back.
    /// ERecordChangedError when somebody else has changed one of these columns or deleted the row meanwhile. When it
    /// fails, a new row remains begun.
    virtual void Update(std::span<const TColumnValue> values) = 0;
    /// Gives up the new row; the one that was current before is so again. Nothing happens without a new row.
    virtual void CancelUpdate() = 0;
    /// Deletes the current row. It stays current, without values, until the cursor moves.
    virtual void Delete() = 0;

    /// Reads all rows anew and goes to the first. When it fails, the old ones are still there.
    virtual void Requery(const TFetchProgress& progress = {}) = 0;
    /// Frees the rows and what they came through. Nothing can be done with the recordset afterwards.
    virtual void Close() = 0;
};

} // namespace framework
