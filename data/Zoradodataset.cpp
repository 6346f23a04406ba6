#include "data/Zoradodataset.h"

#include "foundation/Zorpalette.h"
#include "framework/system/applicationhooks.h"
#include "framework/system/strings.h"

#include <algorithm>
#include <map>

using namespace framework;
using namespace ZOR;

void Zoradodataset::Register() {
    RegisterComponents(PalettePage, {&TZORADODataSet::StaticClass()});
}

const TClassInfo& TZORADODataSet::StaticClass() {
    static const TClassInfo info = DescribeClass<TZORADODataSet>(u"TZORADODataSet", TADODataSet::StaticClass());
    return info;
}

TZORADODataSet::TZORADODataSet(TComponent* owner) : TADODataSet(owner) {
}

TZORADODataSet::~TZORADODataSet() {
    CloseToDie();
}

// The rows to be shown.

void TZORADODataSet::AddBookmark(int number) {
    CheckActive();
    TRecordBuffer buffer = IsEmpty() ? nullptr : ActiveBuffer();
    if (!buffer || GetBookmarkFlag(buffer) != bfCurrent)
        DatabaseError(u"There is no record to be marked", this);
    FBookmarks.Put(HeaderOf(buffer).Bookmark, number);
    if (FFilteredByBookmarks)
        ViewChanged();
}

void TZORADODataSet::ClearBookmarks() {
    FBookmarks.Clear();
    if (FFilteredByBookmarks)
        ViewChanged();
}

void TZORADODataSet::SetFilteredByBookmarks(bool value) {
    if (FFilteredByBookmarks == value)
        return;
    FFilteredByBookmarks = value && !FBookmarks.IsEmpty();
    ViewChanged();
    Operation([&] {
        CheckBrowseMode();
        DestroyLookupCursor();
        CheckBiDirectional();
        First();
        DestroyLookupCursor();
    });
}

/// The filter ends when it has nothing left to show.
bool TZORADODataSet::IsNarrowed() {
    if (FFilteredByBookmarks && FBookmarks.IsEmpty()) {
        FFilteredByBookmarks = false;
        ViewChanged();
    }
    return FFilteredByBookmarks;
}

int TZORADODataSet::GetRecordCount() {
    return FFilteredByBookmarks ? FBookmarks.GetCount() : TADODataSet::GetRecordCount();
}

void TZORADODataSet::SetRecNo(int value) {
    if (GetRecNo() == value)
        return;
    Operation([&] {
        FinishEditing();
        DoBeforeScroll();
        CursorPosChanged();
        if (FFilteredByBookmarks)
            GetRecordset()->SetBookmark(FBookmarks.BookmarkOf(value).ToVariant());
        else
            GetRecordset()->SetAbsolutePosition(value);
        Resync({rmCenter});
        DoAfterScroll();
    });
}

bool TZORADODataSet::Locate(const String& keyFields, const Variant& keyValues, TLocateOptions options) {
    if (!FFilteredByBookmarks)
        return TADODataSet::Locate(keyFields, keyValues, options);
    try {
        return TADODataSet::Locate(keyFields, keyValues, options);
    } catch (const Exception& error) {
        if (Pos(u"Record not found", error.GetMessageText()) > 0)
            return false;
        throw Exception(error.GetMessageText());
    }
}

int TZORADODataSet::NumberOfRow() {
    return FFilteredByBookmarks ? FBookmarks.NumberOf(OleVariant(GetRecordset()->GetBookmark()))
                                : TADODataSet::NumberOfRow();
}

void TZORADODataSet::RowsReplaced() {
    FBookmarks.Clear();
}

bool TZORADODataSet::ShowsRow() {
    // A narrowing without marks ends as soon as rows are read.
    return (!FFilteredByBookmarks || FBookmarks.IsEmpty() ||
            FBookmarks.NumberOf(OleVariant(GetRecordset()->GetBookmark())) != 0) &&
           TADODataSet::ShowsRow();
}

// Reading records.

TGetResult TZORADODataSet::GetRecord(TRecordBuffer buffer, TGetMode mode, bool doCheck) {
    return Guarded(doCheck, [&] {
        CheckBookmarks();
        if (MasterIsEmpty())
            return grEOF;
        int number = 0;
        const bool isNarrowed = IsNarrowed();
        const TGetResult result =
            isNarrowed ? NextShownRecord(buffer, mode, doCheck, number) : FilteredGetRecord(buffer, mode, doCheck);
        if (result == grOK)
            FillRecordBuffer(buffer, isNarrowed ? number : CurrentRecordNumber());
        return result;
    });
}

TGetResult TZORADODataSet::InternalGetRecord(TRecordBuffer buffer, TGetMode mode, bool doCheck) {
    return TADODataSet::InternalGetRecord(buffer, mode, doCheck);
}

void TZORADODataSet::FinalizeZOR(TRecordBuffer buffer, int count) {
    FinalizeValues(buffer, count);
}

/// On to the nearest row that is in the map under another number than 0. Without a row gmCurrent gives grError, also at
/// the ends of the recordset.
TGetResult TZORADODataSet::NextShownRecord(TRecordBuffer buffer, TGetMode mode, bool doCheck, int& number) {
    try {
        for (;;) {
            TGetResult result = InternalGetRecord(buffer, mode, doCheck);
            if (result == grOK)
                number = FBookmarks.NumberOf(OleVariant(GetRecordset()->GetBookmark()));
            const bool isFound = result == grOK && number != 0 && AcceptsRecord(buffer);
            if (!isFound && mode == gmCurrent)
                return grError;
            if (isFound || result != grOK)
                return result;
            SkipHiddenRows(mode);
        }
    } catch (const std::exception&) {
        CallOrLeave([&] { ApplicationHandleException(this); });
        CheckActive(); // the program may have closed it as it was told
        return grError;
    }
}

/// From a row that is not shown towards the next one that is, so that the step after this leads to it. Rows with higher
/// bookmarks come later, so nothing in between has to be looked at.
void TZORADODataSet::SkipHiddenRows(TGetMode mode) {
    _Recordset& rows = *GetRecordset();
    OleVariant place(rows.GetBookmark());
    for (;;) {
        const OleVariant target = mode == gmNext ? FBookmarks.NextShown(place) : FBookmarks.PriorShown(place);
        if (target.IsEmpty()) {
            mode == gmNext ? rows.MoveLast() : rows.MoveFirst();
            return;
        }
        if (GoToBookmark(target)) {
            mode == gmNext ? rows.MovePrevious() : rows.MoveNext();
            return;
        }
        place = target;
    }
}

/// False when the row has been deleted.
bool TZORADODataSet::GoToBookmark(const OleVariant& bookmark) {
    try {
        GetRecordset()->SetBookmark(bookmark.ToVariant());
        return true;
    } catch (const EDatabaseError&) {
        return false;
    }
}

// Reading all rows anew gives them other bookmarks. Those that are marked are found again by their keys; without a key
// by their places, as far as there are any.

void TZORADODataSet::InternalRefresh() {
    _Recordset& rows = *GetRecordset();
    if (FBookmarks.IsEmpty() || !rows.Supports(adResync)) {
        TADODataSet::InternalRefresh();
        return;
    }
    const TRowKey active = KeyOfRow();
    std::map<std::vector<OleVariant>, int> numbersByKey;
    std::vector<std::pair<int, int>> numbersByPlace;
    for (const TBookmarkMap::TEntry& entry : FBookmarks.GetEntries()) {
        if (!GoToBookmark(entry.Bookmark))
            continue;
        TRowKey key = KeyOfRow();
        if (key.Values.empty())
            numbersByPlace.emplace_back(key.Position, entry.Number);
        else
            numbersByKey[std::move(key.Values)] = entry.Number;
    }
    Requery();
    FBookmarks.Clear();
    for (const auto& [position, number] : numbersByPlace) {
        if (position > rows.GetRecordCount())
            break;
        rows.SetAbsolutePosition(position);
        FBookmarks.Put(OleVariant(rows.GetBookmark()), number);
    }
    for (rows.MoveFirst(); !numbersByKey.empty() && !rows.GetEOF(); rows.MoveNext()) {
        if (const auto found = numbersByKey.find(KeyOfRow().Values); found != numbersByKey.end())
            FBookmarks.Put(OleVariant(rows.GetBookmark()), found->second);
    }
    GoToRow(active);
}
