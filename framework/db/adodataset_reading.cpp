// Datasets over recordsets: moving the cursor, reading records, and searching.

#include "framework/db/adodataset.h"
#include "framework/system/dates.h"
#include "framework/system/strings.h"

#include <cmath>

namespace framework {

// The cursor.

void TCustomADODataSet::InternalFirst() {
    FRecordset->MoveFirst();
    if (!FRecordset->GetBOF())
        FRecordset->MovePrevious();
}

void TCustomADODataSet::InternalLast() {
    FRecordset->MoveLast();
    if (!FRecordset->GetEOF())
        FRecordset->MoveNext();
}

void TCustomADODataSet::InternalSetToRecord(TRecordBuffer buffer) {
    if (GetBookmarkSize() > 0)
        FRecordset->SetBookmark(HeaderOf(buffer).Bookmark.ToVariant());
}

void TCustomADODataSet::InternalGotoBookmark(const TBookmark& bookmark) {
    FRecordset->SetBookmark(bookmark.Value().ToVariant());
}

TGetResult TCustomADODataSet::InternalGetRecord(TRecordBuffer, TGetMode mode, bool) {
    _Recordset& rows = *FRecordset;
    switch (mode) {
    case gmNext:
        if ((GetState() != dsInactive || GetBookmarkSize() > 0) && !rows.GetEOF())
            rows.MoveNext();
        if (GetBookmarkSize() == 0 && ActiveBuffer())
            FinalizeValues(ActiveBuffer(), GetFieldCount());
        return rows.GetEOF() ? grEOF : grOK;
    case gmPrior:
        if (!rows.GetBOF())
            rows.MovePrevious();
        return rows.GetBOF() ? grBOF : grOK;
    case gmCurrent:
        if (rows.GetEOF())
            return grEOF;
        return rows.GetBOF() ? grBOF : grOK;
    }
    return grOK;
}

TGetResult TCustomADODataSet::FilteredGetRecord(TRecordBuffer buffer, TGetMode mode, bool doCheck) {
    for (;;) {
        const TGetResult result = InternalGetRecord(buffer, mode, doCheck);
        if (result != grOK || AcceptsRecord(buffer))
            return result;
        if (mode == gmCurrent)
            return grError;
    }
}

bool TCustomADODataSet::AcceptsRecord(TRecordBuffer buffer) {
    if (!GetFiltered() || !OnFilterRecord)
        return true;
    HeaderOf(buffer).RecordStatus = FRecordset->GetStatus();
    FinalizeValues(buffer, FSlotCount);
    const TTemporaryState state(*this, dsFilter, buffer);
    bool accepts = true;
    FireOrLeave(OnFilterRecord, this, accepts);
    return accepts;
}

void TCustomADODataSet::CheckBookmarks() const {
    if (GetBookmarkSize() == 0 && GetBufferCount() > 1)
        DatabaseError(u"Dataset does not support bookmarks, which are required for multi-record data controls", this);
}

bool TCustomADODataSet::MasterIsEmpty() const {
    if (!FMasterLink.GetActive())
        return false;
    const TDataSet& master = *FMasterLink.GetDataSet();
    return master.IsEmpty() || master.GetState() == dsInsert;
}

int TCustomADODataSet::CurrentRecordNumber() const {
    return ControlsDisabled() ? recordNumberNotTaken : FRecordset->GetAbsolutePosition();
}

void TCustomADODataSet::FillRecordBuffer(TRecordBuffer buffer, int recordNumber) {
    constexpr int withoutBookmark = 3; // a status whose rows cannot be found again
    TRecInfo& header = HeaderOf(buffer);
    header.RecordStatus = FRecordset->GetStatus();
    if (GetBookmarkSize() > 0 && header.RecordStatus != withoutBookmark) {
        header.BookmarkFlag = bfCurrent;
        header.Bookmark.SetInteger(FRecordset->GetBookmark().AsInteger());
        header.RecordNumber = recordNumber;
    } else {
        header.BookmarkFlag = bfNA;
    }
    FinalizeValues(buffer, FSlotCount);
    GetCalcFields(buffer);
}

TGetResult TCustomADODataSet::GetRecord(TRecordBuffer buffer, TGetMode mode, bool doCheck) {
    return Guarded(doCheck, [&] {
        CheckBookmarks();
        if (MasterIsEmpty())
            return grEOF;
        const TGetResult result = FilteredGetRecord(buffer, mode, doCheck);
        if (result == grOK)
            FillRecordBuffer(buffer, CurrentRecordNumber());
        return result;
    });
}

// Numbers and bookmarks.

int TCustomADODataSet::GetRecordCount() {
    CheckActive();
    return FRecordset->GetRecordCount();
}

int TCustomADODataSet::GetRecNo() {
    CheckActive();
    TRecordBuffer buffer = ActiveRecordBuffer();
    if (!buffer)
        return -1;
    TRecInfo& header = HeaderOf(buffer);
    if (header.RecordNumber == recordNumberNotTaken) {
        if (!IsTemporary(buffer))
            UpdateCursorPos();
        header.RecordNumber = NumberOfRow();
    }
    return header.RecordNumber;
}

void TCustomADODataSet::SetRecNo(int value) {
    if (GetRecNo() == value)
        return;
    Operation([&] {
        FinishEditing();
        DoBeforeScroll();
        CursorPosChanged();
        FRecordset->SetAbsolutePosition(value);
        Resync({rmCenter});
        DoAfterScroll();
    });
}

bool TCustomADODataSet::IsSequenced() {
    return FRecordset && FRecordset->Supports(adApproxPosition) && FCursorLocation == clUseClient;
}

/// Brings the recordset back to where it stood.
class TCustomADODataSet::TPlaceKeeper {
public:
    explicit TPlaceKeeper(std::shared_ptr<_Recordset> rows) : FRows(std::move(rows)) {
        FIsBof = FRows->GetBOF();
        if (!FIsBof && !FRows->GetEOF() && FRows->GetStatus() == adRecOK)
            FBookmark = FRows->GetBookmark();
    }
    TPlaceKeeper(const TPlaceKeeper&) = delete;
    TPlaceKeeper& operator=(const TPlaceKeeper&) = delete;
    ~TPlaceKeeper() {
        try {
            if (!VarIsEmpty(FBookmark))
                FRows->SetBookmark(FBookmark);
            else
                GoToEnd();
        } catch (const EDatabaseError&) { // NOLINT(bugprone-empty-catch): the row has gone meanwhile
        }
    }

private:
    void GoToEnd() {
        FIsBof ? FRows->MoveFirst() : FRows->MoveLast();
        if (FIsBof ? !FRows->GetBOF() : !FRows->GetEOF())
            FIsBof ? FRows->MovePrevious() : FRows->MoveNext();
    }

    std::shared_ptr<_Recordset> FRows;
    Variant FBookmark;
    bool FIsBof;
};

bool TCustomADODataSet::BookmarkValid(const TBookmark& bookmark) {
    if (!FRecordset || bookmark.IsEmpty())
        return false;
    const TPlaceKeeper place(FRecordset);
    try {
        FRecordset->SetBookmark(bookmark.Value().ToVariant());
        return true;
    } catch (const EDatabaseError&) {
        return false;
    }
}

bool TCustomADODataSet::BookmarkShown(const TBookmark& bookmark) {
    if (!BookmarkValid(bookmark))
        return false;
    bool shows = false;
    Operation([&] {
        const TPlaceKeeper place(FRecordset);
        FRecordset->SetBookmark(bookmark.Value().ToVariant());
        shows = ShowsRow();
    });
    return shows;
}

TRecordBuffer TCustomADODataSet::ReadInPassing(const TBookmark& bookmark) {
    try {
        FRecordset->SetBookmark(bookmark.Value().ToVariant());
    } catch (const EDatabaseError&) {
        return nullptr;
    }
    TRecordBuffer buffer = BufferAt(FPassingBuffer);
    FillRecordBuffer(buffer, recordNumberNotTaken);
    return buffer;
}

// Searching.

/// The values that a search wants in certain columns.
class TCustomADODataSet::TKeyMatcher {
public:
    TKeyMatcher(const TCustomADODataSet& dataSet, const String& names, const Variant& values, TLocateOptions options)
        : FDataSet(dataSet), FOptions(options) {
        const std::vector<TField*> fields = dataSet.GetFieldList(names);
        const bool isList = VarIsArray(values);
        if (fields.size() != (isList ? values.Count() : 1))
            DatabaseError(u"The number of values differs from that of the fields", &dataSet);
        for (std::size_t i = 0; i < fields.size(); ++i)
            AddKey(*fields[i], isList ? values[i] : values);
    }

    /// False when no row can have the values, such as a text in a column of numbers.
    bool IsPossible() const { return FIsPossible; }
    /// Whether the recordset's row has them.
    bool Matches() const {
        for (const TKey& key : FKeys) {
            if (!Matches(FDataSet.ReadColumn(key.Column), key.Wanted.View()))
                return false;
        }
        return true;
    }

private:
    struct TKey {
        int Column;
        OleVariant Wanted;
    };

    void AddKey(const TField& field, const Variant& value) {
        if (field.GetFieldNo() == 0)
            DatabaseError(u"Field '" + field.GetFieldName() + u"' has no column to be searched", &FDataSet);
        TKey key{field.GetFieldNo() - 1, OleVariant(TFieldValue::Null())};
        if (!VarIsNull(value) && !VarIsEmpty(value))
            FIsPossible = ConvertFor(field, TFieldValue::Of(value), key.Wanted) && FIsPossible;
        FKeys.push_back(std::move(key));
    }

    bool Matches(const TFieldValue& value, const TFieldValue& wanted) const {
        using TKind = TFieldValue::TKind;
        if (value.IsNull() || wanted.IsNull())
            return value.IsNull() && wanted.IsNull();
        if (wanted.Kind() == TKind::Boolean)
            return value.AsBoolean() == wanted.AsBoolean();
        if (value.Kind() == TKind::Integer && wanted.Kind() == TKind::Integer)
            return value.Whole() == wanted.Whole();
        if (value.Kind() == TKind::Date && wanted.Kind() == TKind::Date)
            return std::abs(value.Floating() - wanted.Floating()) < 0.5 / static_cast<double>(MSecsPerDay);
        if (value.Kind() == TKind::Text && wanted.Kind() == TKind::Text)
            return TextMatches(value.Units(), wanted.Units());
        return OleVariant(value) == OleVariant(wanted);
    }

    bool TextMatches(StringView text, StringView wanted) const {
        if (FOptions.Contains(loPartialKey))
            text = text.substr(0, wanted.size());
        return FOptions.Contains(loCaseInsensitive) ? AnsiSameText(text, wanted) : text == wanted;
    }

    const TCustomADODataSet& FDataSet;
    TLocateOptions FOptions;
    std::vector<TKey> FKeys;
    bool FIsPossible = true;
};

/// A buffer beside those of the window.
TRecordBuffer TCustomADODataSet::BufferAt(TRecordBuffer& place) {
    if (!place)
        place = AllocRecordBuffer();
    return place;
}

void TCustomADODataSet::FreeBufferAt(TRecordBuffer& place) {
    if (TRecordBuffer buffer = std::exchange(place, nullptr))
        FreeRecordBuffer(buffer);
}

void TCustomADODataSet::DestroyLookupCursor() {
    FreeBufferAt(FLookupBuffer);
}

/// Moves the recordset to the first row that has the values and passes OnFilterRecord.
bool TCustomADODataSet::LocateRecord(const String& keyFields, const Variant& keyValues, TLocateOptions options) {
    const TKeyMatcher matcher(*this, keyFields, keyValues, options);
    if (!matcher.IsPossible() || MasterIsEmpty())
        return false;
    for (FRecordset->MoveFirst(); !FRecordset->GetEOF(); FRecordset->MoveNext()) {
        if (matcher.Matches() && AcceptsRecord(LookupBuffer()))
            return true;
    }
    return false;
}

bool TCustomADODataSet::Locate(const String& keyFields, const Variant& keyValues, TLocateOptions options) {
    bool found = false;
    Operation([&] {
        CheckBrowseMode();
        DoBeforeScroll();
        CursorPosChanged();
        if (!LocateRecord(keyFields, keyValues, options))
            return;
        Resync({rmExact, rmCenter});
        found = true;
        DoAfterScroll();
    });
    return found;
}

Variant TCustomADODataSet::Lookup(const String& keyFields, const Variant& keyValues, const String& resultFields) {
    CheckActive();
    Variant result = Null();
    Operation([&] {
        const TPlaceKeeper place(FRecordset);
        if (!LocateRecord(keyFields, keyValues, {}))
            return;
        TRecordBuffer buffer = LookupBuffer();
        FillRecordBuffer(buffer, recordNumberNotTaken);
        const TTemporaryState state(*this, GetState(), buffer);
        result = GetFieldValues(resultFields);
    });
    return result;
}

} // namespace framework
