// Datasets: the window of record buffers, and moving it.

#include "framework/db/datalinks.h"
#include "framework/db/dataset.h"

#include <algorithm>

namespace framework {

void TDataSet::TWindow::Move(int from, int to) {
    const auto begin = Buffers.begin();
    if (from < to)
        std::rotate(begin + from, begin + from + 1, begin + to + 1);
    else
        std::rotate(begin + to, begin + from, begin + from + 1);
}

// The size of the window follows what the links show.

void TDataSet::UpdateBufferCount() {
    if (!IsCursorOpen())
        return;
    Operation([&] {
        int size = 1;
        FSources.Tell([&](TDataSource& source) { size = std::max(size, source.LargestBufferCount()); });
        SetWindowSize(size);
    });
}

void TDataSet::SetWindowSize(int size) {
    if (size == FWindow.Size)
        return;
    const bool grows = size > FWindow.Size;
    if (!grows && FWindow.Active >= size) {
        const int dropped = FWindow.Active - size + 1;
        std::rotate(FWindow.Buffers.begin(), FWindow.Buffers.begin() + dropped, FWindow.Buffers.end());
        FWindow.Active -= dropped;
        FWindow.Count -= dropped;
        FWindow.Cursor = std::max(FWindow.Cursor - dropped, -1);
        ShiftLinks(-dropped);
    }
    while (static_cast<int>(FWindow.Buffers.size()) > size + 1) {
        FreeRecordBuffer(FWindow.Buffers.back());
        FWindow.Buffers.pop_back();
    }
    while (static_cast<int>(FWindow.Buffers.size()) < size + 1)
        FWindow.Buffers.push_back(AllocRecordBuffer());
    FWindow.Size = size;
    FWindow.Count = std::min(FWindow.Count, size);
    if (FWindow.Cursor >= FWindow.Count)
        CursorPosChanged();
    if (grows && FWindow.Count > 0) {
        GetNextRecords();
        ShiftLinks(GetPriorRecords());
    }
}

void TDataSet::ShiftLinks(int rows) {
    if (rows != 0)
        FSources.Tell([&](TDataSource& source) { source.ShiftLinks(rows); });
}

bool TDataSet::IsBuffered(TRecordBuffer buffer) const {
    const auto end = FWindow.Buffers.begin() + FWindow.Count;
    return std::find(FWindow.Buffers.begin(), end, buffer) != end;
}

void TDataSet::FreeBuffers() {
    for (TRecordBuffer buffer : FWindow.Buffers)
        FreeRecordBuffer(buffer);
    FWindow = {};
}

void TDataSet::ClearBuffers() {
    FWindow.Count = 0;
    FWindow.Active = 0;
    CursorPosChanged();
    FBof = true;
    FEof = true;
}

/// The first buffer holds the record on which the cursor stands, and nothing else is known yet.
void TDataSet::ActivateBuffers() {
    FWindow.Count = 1;
    FWindow.Active = 0;
    FWindow.Cursor = 0;
    FBof = false;
    FEof = false;
}

// The cursor.

void TDataSet::SetCurrentRecord(int index) {
    if (FWindow.Cursor == index)
        return;
    CursorPosChanged();
    TRecordBuffer buffer = FWindow.At(index);
    switch (GetBookmarkFlag(buffer)) {
    case bfCurrent:
    case bfInserted:
        InternalSetToRecord(buffer);
        break;
    case bfBOF:
        InternalFirst();
        break;
    case bfEOF:
        InternalLast();
        break;
    }
    FWindow.Cursor = index;
}

void TDataSet::UpdateCursorPos() {
    if (FWindow.Count > 0)
        SetCurrentRecord(FWindow.Active);
}

// Reading records into the window, at its ends.

bool TDataSet::GetNextRecord() {
    TGetMode mode = gmNext;
    if (FWindow.Count > 0) {
        SetCurrentRecord(FWindow.Count - 1);
        // A new record stands before the one that it bears the bookmark of.
        if (FState == dsInsert && FWindow.Cursor == FWindow.Active && GetBookmarkFlag(ActiveBuffer()) == bfInserted)
            mode = gmCurrent;
    }
    if (GetRecord(FWindow.At(FWindow.Count), mode, true) != grOK) {
        CursorPosChanged();
        return false;
    }
    if (FWindow.Count == 0)
        ActivateBuffers();
    else if (FWindow.Count < FWindow.Size)
        ++FWindow.Count;
    else
        FWindow.Move(0, FWindow.Count);
    FWindow.Cursor = FWindow.Count - 1;
    return true;
}

bool TDataSet::GetPriorRecord() {
    if (FWindow.Count > 0)
        SetCurrentRecord(0);
    if (GetRecord(FWindow.At(FWindow.Count), gmPrior, true) != grOK) {
        CursorPosChanged();
        return false;
    }
    if (FWindow.Count == 0) {
        ActivateBuffers();
        return true;
    }
    FWindow.Move(FWindow.Count, 0);
    if (FWindow.Count < FWindow.Size) {
        ++FWindow.Count;
        ++FWindow.Active;
    }
    FWindow.Cursor = 0;
    return true;
}

int TDataSet::GetNextRecords() {
    int read = 0;
    while (FWindow.Count < FWindow.Size && GetNextRecord())
        ++read;
    return read;
}

int TDataSet::GetPriorRecords() {
    int read = 0;
    while (FWindow.Count < FWindow.Size && GetPriorRecord())
        ++read;
    return read;
}

void TDataSet::FillFrom(bool last) {
    ClearBuffers();
    if (last) {
        InternalLast();
        GetPriorRecord();
        GetPriorRecords();
        FWindow.Active = std::max(FWindow.Count - 1, 0);
        FEof = true;
    } else {
        InternalFirst();
        GetNextRecord();
        GetNextRecords();
        FBof = true;
    }
}

// Moving.

void TDataSet::GoToEnd(bool last) {
    Operation([&] {
        CheckBrowseMode();
        DoBeforeScroll();
        FillFrom(last);
        DataEvent(deDataSetChange, 0);
        DoAfterScroll();
    });
}

void TDataSet::First() {
    GoToEnd(false);
}

void TDataSet::Last() {
    GoToEnd(true);
}

int TDataSet::MoveBy(int distance) {
    int moved = 0;
    Operation([&] {
        CheckBrowseMode();
        if (distance == 0 || (distance > 0 ? FEof : FBof))
            return;
        DoBeforeScroll();
        FBof = false;
        FEof = false;
        const int countBefore = FWindow.Count;
        int scrolled = 0;
        while (moved < distance && StepForward(scrolled))
            ++moved;
        while (moved > distance && StepBackward(scrolled))
            --moved;
        // A window that was not full shows more records now.
        if (FWindow.Count != countBefore)
            DataEvent(deDataSetChange, 0);
        else
            DataEvent(deDataSetScroll, scrolled);
        DoAfterScroll();
    });
    return moved;
}

bool TDataSet::StepForward(int& scrolled) {
    if (FWindow.Active < FWindow.Count - 1) {
        ++FWindow.Active;
        return true;
    }
    const bool wasFull = FWindow.Count == FWindow.Size;
    if (!GetNextRecord()) {
        FEof = true;
        return false;
    }
    if (wasFull)
        --scrolled;
    FWindow.Active = FWindow.Count - 1;
    return true;
}

bool TDataSet::StepBackward(int& scrolled) {
    if (FWindow.Active > 0) {
        --FWindow.Active;
        return true;
    }
    if (!GetPriorRecord()) {
        FBof = true;
        return false;
    }
    ++scrolled;
    FWindow.Active = 0;
    return true;
}

void TDataSet::SetRecNo(int) {
    DatabaseError(u"The dataset has no record numbers", this);
}

void TDataSet::Resync(TResyncMode mode) {
    CheckActive();
    CheckStill();
    Operation([&] {
        ReadAround(mode.Contains(rmCenter) ? (FWindow.Size - 1) / 2 : FWindow.Active, mode.Contains(rmExact));
        DataEvent(deDataSetChange, 0);
    });
}

/// Fills the window around the record on which the cursor stands, with `before` records before it where there are any.
void TDataSet::ReadAround(int before, bool exact) {
    if (!ReadAtCursor(exact)) {
        ClearBuffers();
        return;
    }
    FWindow.Move(FWindow.Count, 0);
    ActivateBuffers();
    for (int i = 0; i < before && GetPriorRecord(); ++i) {
    }
    GetNextRecords();
    GetPriorRecords();
}

void TDataSet::GoToPlace(const TPlace& place) {
    if (place.Record.IsEmpty())
        return;
    Operation([&] {
        CheckBrowseMode();
        CheckStill();
        DoBeforeScroll();
        CursorPosChanged();
        InternalGotoBookmark(place.Record);
        ReadAround(std::min(place.Row, FWindow.Size - 1), true);
        FBof = place.Bof;
        FEof = place.Eof;
        DataEvent(deDataSetChange, 0);
        DoAfterScroll();
    });
}

/// Reads the record on which the cursor stands, or unless `exact` a neighbour of it, into the spare buffer.
bool TDataSet::ReadAtCursor(bool exact) {
    CursorPosChanged();
    if (exact) {
        if (GetRecord(FWindow.At(FWindow.Count), gmCurrent, true) != grOK)
            DatabaseError(u"Record not found", this);
        return true;
    }
    for (const TGetMode mode : {gmCurrent, gmNext, gmPrior}) {
        if (GetRecord(FWindow.At(FWindow.Count), mode, false) == grOK)
            return true;
        CheckActive(); // while a failure was being told of, the program may have closed it
    }
    return false;
}

// Reading in passing. The cursor is left where it was needed last; the window takes it back when it needs it.

bool TDataSet::TPassingReader::GoTo(const TBookmark& bookmark) {
    Leave();
    if (!FAlive || bookmark.IsEmpty() || FDataSet.FTemporaryBuffer)
        return false;
    const TDataSetState state = FDataSet.FState;
    if (state != dsBrowse && state != dsEdit && state != dsInsert)
        return false;
    TRecordBuffer buffer = nullptr;
    FDataSet.CursorPosChanged();
    FDataSet.Operation([&] { buffer = FDataSet.ReadInPassing(bookmark); });
    if (!FAlive || FDataSet.FState != state)
        return false; // a handler has calculated more than fields
    FDataSet.FTemporaryBuffer = FBuffer = buffer;
    return buffer != nullptr;
}

void TDataSet::TPassingReader::Leave() {
    TRecordBuffer buffer = std::exchange(FBuffer, nullptr);
    if (!FAlive || !buffer)
        return;
    FDataSet.CursorPosChanged();
    if (FDataSet.FTemporaryBuffer == buffer)
        FDataSet.FTemporaryBuffer = nullptr;
}

// Bookmarks.

TBookmark TDataSet::GetBookmark() {
    if (FBookmarkSize == 0 || FWindow.Count == 0 || GetBookmarkFlag(ActiveBuffer()) != bfCurrent)
        return {};
    return GetBookmarkData(ActiveBuffer());
}

void TDataSet::GotoBookmark(const TBookmark& value) {
    GoToPlace({value, (FWindow.Size - 1) / 2});
}

bool TDataSet::BookmarkValid(const TBookmark&) {
    return false;
}

bool TDataSet::BookmarkShown(const TBookmark& bookmark) {
    return BookmarkValid(bookmark);
}

int TDataSet::CompareBookmarks(const TBookmark& left, const TBookmark& right) {
    const std::weak_ordering order = left.Value() <=> right.Value();
    return std::is_lt(order) ? -1 : std::is_gt(order);
}

bool TDataSet::Locate(const String&, const Variant&, TLocateOptions) {
    return false;
}

Variant TDataSet::Lookup(const String&, const Variant&, const String&) {
    return Variant::Null();
}

void TDataSet::SetFiltered(bool value) {
    if (FFiltered == value)
        return;
    if (!GetActive()) {
        FFiltered = value;
        return;
    }
    Operation([&] {
        CheckBrowseMode();
        FFiltered = value;
        ViewChanged();
        First();
    });
}

} // namespace framework
