#pragma once

// A dataset lets a program walk records one at a time and change them, while controls show several of them around the
// active one. It keeps a window of record buffers over whatever its descendant reads from: the descendant moves a
// cursor and fills buffers, this class decides when, keeps states and events, and tells data sources of every change.

#include "framework/db/bookmarks.h"
#include "framework/db/fielddefs.h"
#include "framework/db/fields.h"
#include "framework/db/notifylist.h"

#include <exception>

namespace framework {

class TDataLink;
class TDataSet;
class TDataSource;

/// One record with what the descendant keeps beside it.
using TRecordBuffer = unsigned char*;

using TDataSetNotifyEvent = std::function<void(TDataSet* DataSet)>;
using TDataSetErrorEvent = std::function<void(TDataSet* DataSet, const EDatabaseError& E, TDataAction& Action)>;
using TFilterRecordEvent = std::function<void(TDataSet* DataSet, bool& Accept)>;

class TDataSet : public TComponent {
    FRAMEWORK_CLASS(TDataSet)

public:
    FRAMEWORK_PROPERTY(bool, Active, GetActive, SetActive);
    FRAMEWORK_READ_PROPERTY(TDataSetState, State, GetState);
    FRAMEWORK_READ_PROPERTY(bool, Bof, GetBof);
    FRAMEWORK_READ_PROPERTY(bool, Eof, GetEof);
    FRAMEWORK_READ_PROPERTY(int, RecordCount, GetRecordCount);
    FRAMEWORK_PROPERTY(int, RecNo, GetRecNo, SetRecNo);
    FRAMEWORK_READ_PROPERTY(bool, Modified, GetModified);
    FRAMEWORK_READ_PROPERTY(bool, CanModify, GetCanModify);
    FRAMEWORK_READ_PROPERTY(TFields&, Fields, GetFields);
    FRAMEWORK_READ_PROPERTY(int, FieldCount, GetFieldCount);
    FRAMEWORK_READ_PROPERTY(TFieldDefs*, FieldDefs, GetFieldDefs);
    FRAMEWORK_READ_PROPERTY(bool, DefaultFields, GetDefaultFields);
    FRAMEWORK_PROPERTY(Variant, FieldValues[], GetFieldValues, SetFieldValues);
    FRAMEWORK_PROPERTY(TBookmark, Bookmark, GetBookmark, GotoBookmark);
    FRAMEWORK_PROPERTY(bool, Filtered, GetFiltered, SetFiltered);
    FRAMEWORK_PROPERTY(bool, AutoCalcFields, GetAutoCalcFields, SetAutoCalcFields);
    FRAMEWORK_READ_PROPERTY(TDataSource*, DataSource, GetDataSource);

    // A handler that raises in a Before event stops the operation. Any handler may destroy the dataset.
    TDataSetNotifyEvent BeforeOpen;
    TDataSetNotifyEvent AfterOpen;
    TDataSetNotifyEvent BeforeClose;
    TDataSetNotifyEvent AfterClose;
    TDataSetNotifyEvent BeforeInsert;
    TDataSetNotifyEvent AfterInsert;
    TDataSetNotifyEvent BeforeEdit;
    TDataSetNotifyEvent AfterEdit;
    TDataSetNotifyEvent BeforePost;
    TDataSetNotifyEvent AfterPost;
    TDataSetNotifyEvent BeforeCancel;
    TDataSetNotifyEvent AfterCancel;
    TDataSetNotifyEvent BeforeDelete;
    TDataSetNotifyEvent AfterDelete;
    TDataSetNotifyEvent BeforeRefresh;
    TDataSetNotifyEvent AfterRefresh;
    TDataSetNotifyEvent BeforeScroll;
    TDataSetNotifyEvent AfterScroll;
    /// Sets the calculated fields of one record from its other fields; it can set no others.
    TDataSetNotifyEvent OnCalcFields;
    TDataSetErrorEvent OnDeleteError;
    TDataSetErrorEvent OnEditError;
    TDataSetErrorEvent OnPostError;
    /// Gives a new record its first values; they do not count as a modification.
    TDataSetNotifyEvent OnNewRecord;
    /// While Filtered: whether a record is shown. The fields read the record in question.
    TFilterRecordEvent OnFilterRecord;

    explicit TDataSet(TComponent* owner);
    ~TDataSet() override;

    bool GetActive() const { return FState != dsInactive && FState != dsOpening; }
    void SetActive(bool value);
    /// What a form says of Active: in a designer also true for a dataset that could not be opened there.
    bool GetStoredActive() const { return GetActive() || FOpenWhenPossible; }
    void Open() { SetActive(true); }
    void Close() { SetActive(false); }
    TDataSetState GetState() const { return FState; }
    /// The active record is known to be the first one, or there is none.
    bool GetBof() const { return FBof; }
    /// The last move wanted to go beyond the last record, or there is none.
    bool GetEof() const { return FEof; }
    bool IsEmpty() const { return FWindow.Count == 0; }
    /// -1 where the number is not known.
    virtual int GetRecordCount() { return -1; }
    /// The number of the active record from 1; -1 where it has none.
    virtual int GetRecNo() { return -1; }
    virtual void SetRecNo(int value);
    /// Whether RecNo can stand for the place of a scroll bar.
    virtual bool IsSequenced() { return true; }
    /// The record in edit has been changed.
    bool GetModified() const { return FModified; }
    virtual bool GetCanModify() { return true; }

    TFields& GetFields() { return FFields; }
    int GetFieldCount() const { return FFields.GetCount(); }
    TFieldDefs* GetFieldDefs() { return &FFieldDefs; }
    void SetFieldDefs(TFieldDefs* value);
    /// The fields were made by opening, not by a form.
    bool GetDefaultFields() const { return FDefaultFields || GetFieldCount() == 0; }
    TField* FieldByName(StringView name) const { return FFields.FieldByName(name); }
    TField* FindField(StringView name) const { return FFields.FindField(name); }
    /// The fields of names parted by semicolons; EDatabaseError when one is missing.
    std::vector<TField*> GetFieldList(StringView names) const;
    /// The values of several fields: a list when there is more than one name.
    Variant GetFieldValues(StringView names) const;
    void SetFieldValues(StringView names, const Variant& value);

    // Moving. Each posts or cancels a pending edit first, see CheckBrowseMode.

    void First();
    void Last();
    void Next() { MoveBy(1); }
    void Prior() { MoveBy(-1); }
    /// By so many records, ending at the first or last one; the answer is how far it went.
    int MoveBy(int distance);

    // Changing. A failed post leaves the record in edit with its values; see OnPostError.

    /// Begins to edit the active record, or inserts one when there is none.
    void Edit();
    /// Begins a record before the active one, or behind all.
    void Insert();
    void Append();
    /// Writes the record. A field that is required and Null is EDatabaseError, and takes the focus.
    void Post();
    void Cancel();
    void Delete();
    /// Appends a record and posts it; the values are those of the first fields.
    void AppendRecord(std::initializer_list<Variant> values);
    void InsertRecord(std::initializer_list<Variant> values);
    /// Reads all records anew and goes to the one that was active, if it is still there.
    void Refresh();
    /// Reads the records of the window anew around the one on which the cursor stands; with rmExact EDatabaseError
    /// "Record not found" when that is gone, otherwise its neighbour becomes active.
    void Resync(TResyncMode mode);
    /// Where the dataset stands: its record, the row of the window that shows it, and the ends that it was moved to.
    struct TPlace {
        TBookmark Record;
        int Row = 0;
        bool Bof = false;
        bool Eof = false;
    };
    TPlace GetPlace() { return {GetBookmark(), FWindow.Active, FBof, FEof}; }
    /// Back to it, so that what shows the records looks as before. EDatabaseError when the record does not show any
    /// more.
    void GoToPlace(const TPlace& place);
    /// Moves the cursor to the active record. It may be elsewhere, since records are read ahead.
    void UpdateCursorPos();
    /// To be called by whoever has moved the cursor himself, before Resync.
    void CursorPosChanged() { FWindow.Cursor = -1; }
    /// Posts a record in edit if it was modified, and gives it up otherwise.
    void CheckBrowseMode();
    /// Has what is being entered in controls stored in the fields.
    void UpdateRecord();
    void ClearFields();

    // Bookmarks stay valid until the dataset is closed.

    TBookmark GetBookmark();
    /// EDatabaseError when the record is gone. An empty bookmark is ignored.
    void GotoBookmark(const TBookmark& value);
    virtual bool BookmarkValid(const TBookmark& bookmark);
    /// Valid, and no filter keeps the record out.
    virtual bool BookmarkShown(const TBookmark& bookmark);
    /// Negative, 0 or positive as the first comes before, equals or follows the second; an empty one comes first.
    virtual int CompareBookmarks(const TBookmark& left, const TBookmark& right);
    void FreeBookmark(TBookmark& bookmark) { bookmark = {}; }

    /// Has fields read another record than the active one. Nothing moves, nobody is told, and what is being edited
    /// stays so: for those who show many records, such as grids while they paint.
    class TPassingReader {
    public:
        explicit TPassingReader(TDataSet& dataSet) : FDataSet(dataSet), FAlive(dataSet) {}
        TPassingReader(const TPassingReader&) = delete;
        TPassingReader& operator=(const TPassingReader&) = delete;
        ~TPassingReader() { Leave(); }

        /// False where there is no such record, or another one is being calculated or filtered; then fields read the
        /// active one.
        bool GoTo(const TBookmark& bookmark);
        /// Fields read the active record again. Whoever reads in passing does it as soon as the dataset tells of
        /// anything.
        void Leave();

    private:
        TDataSet& FDataSet;
        TLifeGuard FAlive;
        TRecordBuffer FBuffer = nullptr;
    };

    // Searching: names parted by semicolons, a value or a list of values.

    /// Goes to the first record with these values; false, and nothing happens, when there is none.
    virtual bool Locate(const String& keyFields, const Variant& keyValues, TLocateOptions options);
    /// The values of other fields in such a record; Null when there is none. The dataset does not move.
    virtual Variant Lookup(const String& keyFields, const Variant& keyValues, const String& resultFields);

    // Between the two, which can be nested, controls are not told anything; they show everything anew at the end.

    void DisableControls();
    void EnableControls();
    bool ControlsDisabled() const { return FDisableCount > 0; }

    bool GetFiltered() const { return FFiltered; }
    virtual void SetFiltered(bool value);
    /// Another number than before when other records may be shown: a filter came or went, a record was posted anew or
    /// deleted, the master moved. The same when the records are edited, or read again by Refresh.
    unsigned GetViewNumber() const { return FViewNumber; }
    bool GetAutoCalcFields() const { return FAutoCalcFields; }
    /// Calculated fields are set anew after each change of a field, not only when a record is read.
    void SetAutoCalcFields(bool value) { FAutoCalcFields = value; }
    virtual TDataSource* GetDataSource() const { return nullptr; }
    /// Whether the dataset of `source` is this one, or depends on it at any remove.
    bool IsLinkedTo(const TDataSource* source) const;

    // The window of buffers, for descendants and links.

    TRecordBuffer ActiveBuffer() const { return FWindow.Buffers.empty() ? nullptr : FWindow.At(FWindow.Active); }
    int GetBufferCount() const { return FWindow.Size; }
    /// How many of the buffers hold records.
    int GetBufferedCount() const { return FWindow.Count; }
    int GetActiveRecord() const { return FWindow.Active; }
    /// The bytes of a bookmark in a buffer; 0 when records cannot be found again.
    int GetBookmarkSize() const { return FBookmarkSize; }

    std::vector<TComponent*> GetChildren(TComponent* root) const override;

protected:
    friend class TField;
    friend class TFields;
    friend class TDataSource;
    friend class TDataLink;

    // What a descendant provides.

    virtual bool IsCursorOpen() const = 0;
    /// Opens the cursor, fills FieldDefs, creates default fields and binds all.
    virtual void InternalOpen() = 0;
    virtual void InternalClose() = 0;
    /// Before the first record, behind the last one.
    virtual void InternalFirst() = 0;
    virtual void InternalLast() = 0;
    virtual void InternalSetToRecord(TRecordBuffer buffer) = 0;
    virtual void InternalGotoBookmark(const TBookmark& bookmark) = 0;
    /// Moves the cursor as `mode` says and reads the record there. With `doCheck` failures raise.
    virtual TGetResult GetRecord(TRecordBuffer buffer, TGetMode mode, bool doCheck) = 0;
    virtual TRecordBuffer AllocRecordBuffer() = 0;
    virtual void FreeRecordBuffer(TRecordBuffer buffer) = 0;
    /// Moves the cursor to a record and reads it into a buffer that is none of the window's; null when it is gone.
    virtual TRecordBuffer ReadInPassing(const TBookmark&) { return nullptr; }
    /// Makes the buffer a new record.
    virtual void InternalInitRecord(TRecordBuffer buffer) = 0;
    virtual void ClearCalcFields(TRecordBuffer buffer) = 0;
    virtual TBookmarkFlag GetBookmarkFlag(TRecordBuffer buffer) const = 0;
    virtual void SetBookmarkFlag(TRecordBuffer buffer, TBookmarkFlag value) = 0;
    virtual TBookmark GetBookmarkData(TRecordBuffer buffer) const = 0;
    virtual void SetBookmarkData(TRecordBuffer buffer, const TBookmark& value) = 0;
    /// The value of a field in the record that ActiveRecordBuffer gives, or in OldValue state the stored one.
    virtual TFieldValue GetFieldData(const TField& field) = 0;
    /// Keeps a value, which already fits the field, in that record.
    virtual void SetFieldData(TField& field, const TFieldValue& value) = 0;
    virtual void InternalEdit() {}
    virtual void InternalInsert() {}
    virtual void InternalCancel() {}
    /// Writes the active buffer and leaves the cursor on the record.
    virtual void InternalPost() = 0;
    virtual void InternalDelete() = 0;
    /// Reads anew and leaves the cursor on the record where it was, or near.
    virtual void InternalRefresh() {}

    // What descendants use and may extend.

    virtual void DoBeforeOpen();
    virtual void DoAfterOpen();
    virtual void DoBeforeClose();
    virtual void DoAfterClose();
    virtual void DoBeforeScroll();
    virtual void DoAfterScroll();
    virtual void DoBeforePost();
    virtual void DoAfterPost();
    virtual void DoOnCalcFields();
    virtual void DoOnNewRecord();
    virtual void DataEvent(TDataEvent event, std::intptr_t info);
    void Notification(TComponent* component, TOperation operation) override;
    void Loaded() override;

    /// Closes the dataset at the beginning of a destructor. Each class that provides a cursor, or overrides what has to
    /// do with it, calls it in its own.
    void CloseToDie();
    void SetState(TDataSetState value);
    /// To be called before anybody is told, see GetViewNumber.
    void ViewChanged() { ++FViewNumber; }
    void SetBookmarkSize(int value) { FBookmarkSize = value; }
    /// EDatabaseError unless open, or unless closed.
    void CheckActive() const;
    void CheckInactive() const;
    virtual void CheckCanModify();
    /// Moves only forwards when the dataset is told so; it never is here.
    void CheckBiDirectional() const {}
    void CreateFields();
    /// Ties the fields to the columns of FieldDefs, or loosens them. EDatabaseError when a column is missing or of a
    /// kind that the field cannot read.
    void BindFields(bool binding);
    int SlotOf(const TField& field) const { return field.FSlot; }
    bool HasCalculatedFields() const { return FCalculatedCount > 0; }
    /// Sets the calculated fields of the record on which the cursor stands.
    void GetCalcFields(TRecordBuffer buffer);
    /// The cursor goes to the record of the buffer with this index.
    void SetCurrentRecord(int index);
    void ClearBuffers();
    /// Fills the window from the first or the last record on.
    void FillFrom(bool last);
    /// Posts or cancels what is being edited, if anything is.
    void FinishEditing();
    /// Whether fields read this buffer instead of the active record for now.
    bool IsTemporary(TRecordBuffer buffer) const { return buffer == FTemporaryBuffer && !IsBuffered(buffer); }
    /// `value` in the kind that the field keeps; false when no record can have it there.
    static bool ConvertFor(const TField& field, const TFieldValue& value, OleVariant& converted);
    /// The record that fields read: the active one, or the one that is being calculated or filtered; null when none.
    TRecordBuffer ActiveRecordBuffer() const;
    /// While it lives, fields read `buffer` in the given state, without anybody being told.
    class TTemporaryState {
    public:
        TTemporaryState(TDataSet& dataSet, TDataSetState state, TRecordBuffer buffer);
        TTemporaryState(const TTemporaryState&) = delete;
        TTemporaryState& operator=(const TTemporaryState&) = delete;
        ~TTemporaryState();

    private:
        TDataSet& FDataSet;
        TLifeGuard FAlive;
        TDataSetState FState;
        TRecordBuffer FBuffer;
    };

    // An operation in which handlers are called. A handler may destroy the dataset: what calls it then leaves the
    // whole operation, and the program that began it goes on behind it.

    /// Runs `body`, and ends it silently where the dataset died; what its last handler raised goes on.
    template <class TBody>
    void Operation(TBody&& body) {
        const bool isOutermost = FDepth++ == 0;
        try {
            body();
        } catch (const TGone& gone) {
            if (gone.Who != this)
                --FDepth;
            if (gone.Who != this || !isOutermost)
                throw;
            if (gone.Cause)
                std::rethrow_exception(gone.Cause);
            return;
        } catch (...) {
            --FDepth;
            throw;
        }
        --FDepth;
    }
    /// Runs `body`; when it fails and the dataset lives, runs `repair` before the exception goes on.
    template <class TBody, class TRepair>
    void Attempt(TBody&& body, TRepair&& repair) {
        try {
            body();
        } catch (const TGone& gone) {
            if (gone.Who != this)
                repair();
            throw;
        } catch (...) {
            repair();
            throw;
        }
    }
    /// Calls what is not ours; ends the operation when that destroyed the dataset.
    template <class TBody>
    void CallOrLeave(TBody&& body) {
        const TLifeGuard alive(*this);
        try {
            body();
        } catch (const TGone&) {
            throw;
        } catch (...) {
            if (!alive)
                throw TGone{this, std::current_exception()};
            throw;
        }
        if (!alive)
            throw TGone{this, nullptr};
    }
    /// Calls an event in this way.
    template <class TFunction, class... TArguments>
    void FireOrLeave(const TFunction& event, TArguments&&... arguments) {
        if (!event)
            return;
        CallOrLeave([&, handler = event] { handler(std::forward<TArguments>(arguments)...); });
    }
    /// Tries `body` until it succeeds or the handler of `event` gives up.
    template <class TBody>
    void CheckOperation(TBody&& body, TDataSetErrorEvent TDataSet::*event);

private:
    /// Thrown through the operations of a dataset that died in a handler; nobody else sees it.
    struct TGone {
        const TDataSet* Who;      // not to be looked into
        std::exception_ptr Cause; // what the handler raised after it had destroyed the dataset
    };

    /// Record buffers in the order of their records, and one more that reads ahead.
    struct TWindow {
        std::vector<TRecordBuffer> Buffers;
        int Size = 0;    // records that fit; Buffers has one more
        int Count = 0;   // records that are there
        int Active = 0;  // the index of the active record
        int Cursor = -1; // the index of the record on which the cursor stands, -1 for elsewhere

        TRecordBuffer At(int index) const { return Buffers[static_cast<std::size_t>(index)]; }
        /// Takes the buffer at one index to another; those between move by one.
        void Move(int from, int to);
    };

    void CheckStill() const;
    bool IsBuffered(TRecordBuffer buffer) const;
    /// DataEvent from outside any operation.
    void Announce(TDataEvent event, std::intptr_t info);
    void OpenCursor();
    void CloseCursor();
    void DoOpen();
    void DoClose();
    void SetWindowSize(int size);
    void UpdateBufferCount();
    void FreeBuffers();
    void ActivateBuffers();
    bool GetNextRecord();
    bool GetPriorRecord();
    int GetNextRecords();
    int GetPriorRecords();
    void ShiftLinks(int rows);
    void GoToEnd(bool last);
    bool StepForward(int& scrolled);
    bool StepBackward(int& scrolled);
    bool ReadAtCursor(bool exact);
    void ReadAround(int before, bool exact);
    void BeginInsert(bool append);
    void PlaceBeforeActive();
    void PlaceAtEnd();
    void CheckRequiredFields();
    void SetFieldsFrom(std::initializer_list<Variant> values);
    void ApplyDefaults();
    /// Stores what a field was assigned, with all that follows from it.
    void StoreField(TField& field, const TFieldValue& value);
    void CalculateLookup(TField& field);
    void FieldChanged(TField& field);
    void AddField(TField& field);
    void RemoveField(TField& field);
    void AddDataSource(TDataSource* source);
    void RemoveDataSource(TDataSource* source);

    TFields FFields{*this};
    TFieldDefs FFieldDefs{this};
    TNotifyList<TDataSource> FSources;
    TWindow FWindow;
    TRecordBuffer FTemporaryBuffer = nullptr; // while a record is calculated or filtered
    TDataSetState FState = dsInactive;
    TDataSetState FDisabledState = dsInactive; // when controls were disabled
    TDataEvent FMissedEvent = deDataSetChange; // the gravest since then
    int FDisableCount = 0;
    int FDepth = 0;
    int FBookmarkSize = 0;
    int FCalculatedCount = 0;
    unsigned FViewNumber = 0;
    bool FBof = true;
    bool FEof = true;
    bool FModified = false;
    bool FFiltered = false;
    bool FAutoCalcFields = true;
    bool FDefaultFields = false;
    bool FOpenWhenLoaded = false;
    bool FOpenWhenPossible = false; // in a designer, where it failed
};

} // namespace framework
