#pragma once

// A recordset that holds all its rows in memory. Where they come from, and where edits go, is a row source's affair;
// without one the recordset stands for itself, as a list that a program fills.

#include "framework/db/columnstore.h"
#include "framework/db/liverows.h"
#include "framework/db/recordset.h"

namespace framework {

/// Gives the rows of a recordset and carries edits to where the rows belong. Whatever fails raises an exception and has
/// then changed nothing.
class TRowSource {
public:
    virtual ~TRowSource() = default;

    virtual TRowStore Fetch(const TFetchProgress& progress) = 0;
    /// EReadOnlyDataError when rows cannot be edited.
    virtual void CheckEditable() = 0;
    /// Inserts a row with these values. What the database made of them, and gave itself, is returned.
    virtual std::vector<TColumnValue> Insert(const TRowStore& rows, std::span<const TColumnValue> values) = 0;
    /// Writes values of a row, and returns what the database made of them. ERecordChangedError when that row is no
    /// longer what it was.
    virtual std::vector<TColumnValue> Update(const TRowStore& rows, int row, std::span<const TColumnValue> values) = 0;
    virtual void Delete(const TRowStore& rows, int row) = 0;
};

class TClientRecordset : public _Recordset {
public:
    /// Rows of a program's own; edits stay in memory.
    explicit TClientRecordset(TRowStore rows);
    /// Fetches the rows.
    explicit TClientRecordset(std::unique_ptr<TRowSource> source, const TFetchProgress& progress = {});

    int GetRecordCount() const override { return FLive.GetCount(); }
    Variant GetBookmark() const override;
    void SetBookmark(const Variant& value) override;
    int GetAbsolutePosition() const override;
    void SetAbsolutePosition(int value) override;
    int GetStatus() const override;
    bool GetBOF() const override { return FPlace == TPlace::Before || IsEmpty(); }
    bool GetEOF() const override { return FPlace == TPlace::Behind || IsEmpty(); }

    void MoveFirst() override;
    void MoveLast() override;
    void MoveNext() override;
    void MovePrevious() override;
    void Move(int count) override;
    bool Supports(int options) const override;

    int GetColumnCount() const override { return FRows.GetColumnCount(); }
    const TColumnInfo& GetColumn(int column) const override;

    bool IsNull(int column) const override;
    bool GetBoolean(int column) const override;
    std::int64_t GetInt64(int column) const override;
    double GetDouble(int column) const override;
    bool TryGetNumeric(int column, TNumeric& value) const override;
    StringView GetText(int column) const override;
    TMoment GetMoment(int column) const override;
    TBytesView GetBytes(int column) const override;
    TGUID GetGuid(int column) const override;

    void AddNew() override;
    void Update(std::span<const TColumnValue> values) override;
    void CancelUpdate() override;
    void Delete() override;

    void Requery(const TFetchProgress& progress = {}) override;
    void Close() override;

    /// The rows by number, deleted ones among them, for work over whole columns.
    const TRowStore& GetRows() const { return FRows; }

private:
    enum class TPlace : std::uint8_t { Before, OnRow, Behind, NewRow };

    /// No rows, and none being added.
    bool IsEmpty() const { return FLive.GetCount() == 0 && FPlace != TPlace::NewRow; }
    void Open(TRowStore rows);
    void GoTo(int row, TPlace otherwise);
    /// A value of the current row; that of a new row is nothing.
    template <class T>
    T Read(int column, T (TColumnStore::*getter)(int) const) const;
    int CheckedRow() const;
    const TColumnStore& CheckedColumn(int column) const;
    std::vector<TColumnValue> Adapted(std::span<const TColumnValue> values) const;
    void Store(int row, std::span<const TColumnValue> values);

    std::unique_ptr<TRowSource> FSource;
    TRowStore FRows;
    TLiveRows FLive;
    /// The bookmark of row 0.
    std::int64_t FFirstBookmark = 1;
    int FRow = -1;
    TPlace FPlace = TPlace::Before;
    int FRowBeforeNew = -1;
    TPlace FPlaceBeforeNew = TPlace::Before;
};

} // namespace framework
