#pragma once

// A dataset that a program can narrow to rows of its choice without asking the database again. The program walks the
// dataset, calls AddBookmark(n) on each row that it wants to keep, and sets FilteredByBookmarks: from then on only
// these rows are there, RecordCount counts them, and RecNo is the number that each was given. They come in their old
// order, whatever their numbers are; a scroll bar is right if they are numbered from 1 in that order.
//
//     int number = 0;
//     for (orders->First(); !orders->Eof; orders->Next())
//         if (orders->FieldByName(u"Total")->AsCurrency > limit)
//             orders->AddBookmark(++number);
//     orders->FilteredByBookmarks = true;
//
// The bookmarks are those of the rows that are open now: whoever opens others clears them. Refresh, which reads the
// same rows anew, finds them again. Where none is left, as in a detail whose master moves to another record, the
// narrowing ends as ClearBookmarks ends it, and everything shows.

#include "data/Zoradodataset_pas.h"
#include "data/Zoradodataset_rules.h"
#include "framework/db/adodataset.h"

namespace Zoradodataset {

/// Puts TZORADODataSet on the palette.
void Register();

} // namespace Zoradodataset

namespace ZOR {

class TZORADODataSet : public framework::TADODataSet {
    FRAMEWORK_CLASS(TZORADODataSet)

public:
    FRAMEWORK_PROPERTY(bool, FilteredByBookmarks, GetFilteredByBookmarks, SetFilteredByBookmarks);

    explicit TZORADODataSet(framework::TComponent* owner);
    ~TZORADODataSet() override;

    /// Registers the active record under a number from 1 on; under 0 it is counted but not shown. The view does not
    /// change: set FilteredByBookmarks to false and true for that. Numbers are never changed or checked, and two rows
    /// may have the same. EDatabaseError when there is no record, or a new one that is not posted yet.
    void AddBookmark(int number);
    /// Forgets all of them. A narrowed dataset has RecordCount 0 then, and shows everything once it reads a record.
    void ClearBookmarks();

    bool GetFilteredByBookmarks() const { return FFilteredByBookmarks; }
    /// Narrows the dataset or ends it; a change of the value posts or cancels what is being edited and goes to the
    /// first row. Without bookmarks it stays false, but goes to the first row as well.
    void SetFilteredByBookmarks(bool value);

    int GetRecordCount() override;
    /// Goes to the row with this number, of several to the first; EDatabaseError when none has it.
    void SetRecNo(int value) override;
    /// In the narrowed dataset a row that is found but not shown counts as not found. Errors come as plain Exception
    /// there.
    bool Locate(const framework::String& keyFields, const framework::Variant& keyValues,
                framework::TLocateOptions options) override;

    framework::TGetResult GetRecord(framework::TRecordBuffer buffer, framework::TGetMode mode, bool doCheck) override;
    framework::TGetResult InternalGetRecord(framework::TRecordBuffer buffer, framework::TGetMode mode,
                                            bool doCheck) override;
    /// Clears the first `count` values of a record buffer, so that they are read again; the header stays.
    void FinalizeZOR(framework::TRecordBuffer buffer, int count);

protected:
    void InternalRefresh() override;
    int NumberOfRow() override;
    void RowsReplaced() override;
    bool ShowsRow() override;

private:
    bool IsNarrowed();
    framework::TGetResult NextShownRecord(framework::TRecordBuffer buffer, framework::TGetMode mode, bool doCheck,
                                          int& number);
    void SkipHiddenRows(framework::TGetMode mode);
    bool GoToBookmark(const framework::OleVariant& bookmark);

    TBookmarkMap FBookmarks;
    bool FFilteredByBookmarks = false;
};

} // namespace ZOR
