#pragma once

// Datasets over recordsets: a statement is carried out on a connection, all its rows come into the client's memory, and
// the dataset walks and changes them there; what it posts goes to the database at once.

#include "framework/db/datalinks.h"
#include "framework/db/parameters.h"
#include "framework/db/recordinfo.h"
#include "framework/db/recordset.h"
#include "framework/db/sqlstatement.h"

namespace framework {

class TCustomADODataSet;
class TOdbcConnection;

/// Where the rows of a recordset are. All recordsets of this library keep them at the client.
enum TCursorLocation { clUseServer, clUseClient };
/// What came of an event that can be answered; esCancel as an answer ends what goes on.
enum TEventStatus { esOK, esErrorsOccured, esCantDeny, esCancel, esUnwantedEvent };

const TEnumInfo& DescribeEnum(TCursorLocation);

/// `Progress`: rows that have come so far. `MaxProgress`: how many there will be, or -1 while that is not known.
using TFetchProgressEvent =
    std::function<void(TCustomADODataSet* DataSet, int Progress, int MaxProgress, TEventStatus& EventStatus)>;

/// What a dataset asks of a database.
struct TRecordsetQuery {
    String ConnectionString;
    std::shared_ptr<TOdbcConnection> Connection; ///< to be used; the opener leaves a new one here when there is none
    String Statement;                            ///< with `?` for each parameter
    std::vector<TSqlParameter> Parameters;
    TFetchProgress Progress;
};
using TRecordsetOpener = std::function<std::shared_ptr<_Recordset>(TRecordsetQuery& query)>;
/// Takes the place of ODBC as the way to recordsets, for all datasets that open from then on; an empty one restores it.
void SetRecordsetOpener(TRecordsetOpener opener);

/// A value as recordsets take it.
TDataValue DataValueOf(const TFieldValue& value);
/// The kind of field that shows a column.
TFieldType FieldTypeOf(const TColumnInfo& column);

class TCustomADODataSet : public TDataSet {
    FRAMEWORK_CLASS(TCustomADODataSet)

public:
    FRAMEWORK_PROPERTY(String, ConnectionString, GetConnectionString, SetConnectionString);
    FRAMEWORK_PROPERTY(String, CommandText, GetCommandText, SetCommandText);
    FRAMEWORK_PROPERTY(TParameters*, Parameters, GetParameters, SetParameters);
    FRAMEWORK_PROPERTY(bool, ParamCheck, GetParamCheck, SetParamCheck);
    FRAMEWORK_PROPERTY(TCursorLocation, CursorLocation, GetCursorLocation, SetCursorLocation);
    FRAMEWORK_PROPERTY(TDataSource*, DataSource, GetDataSource, SetDataSource);
    FRAMEWORK_PROPERTY(std::shared_ptr<_Recordset>, Recordset, GetRecordset, SetRecordset);
    FRAMEWORK_READ_PROPERTY(int, RecordStatus, GetRecordStatus);

    /// Rows are being fetched: about every thousand, and when all are there. Answering esCancel, or closing the
    /// dataset, ends it; opening then raises EFetchCancelled, which is silent, and the dataset is closed.
    TFetchProgressEvent OnFetchProgress;

    explicit TCustomADODataSet(TComponent* owner);
    ~TCustomADODataSet() override;

    const String& GetConnectionString() const { return FConnectionString; }
    /// Of ODBC, as in "DRIVER=SQLite3;Database=orders.db".
    void SetConnectionString(const String& value);
    /// The connection that an open dataset uses, or the one that was given to it; null for none.
    const std::shared_ptr<TOdbcConnection>& GetConnection() const { return FConnection; }
    /// Shares a connection with other datasets, in place of one of its own by ConnectionString; null ends that.
    void SetConnection(std::shared_ptr<TOdbcConnection> value);
    const String& GetCommandText() const { return FCommandText; }
    /// A statement that gives rows. With ParamCheck the Parameters become those that it names.
    void SetCommandText(const String& value);
    TParameters* GetParameters() { return &FParameters; }
    void SetParameters(TParameters* value) { FParameters.Assign(value); }
    bool GetParamCheck() const { return FParamCheck; }
    void SetParamCheck(bool value) { FParamCheck = value; }
    TCursorLocation GetCursorLocation() const { return FCursorLocation; }
    void SetCursorLocation(TCursorLocation value);
    TDataSource* GetDataSource() const override { return FMasterLink.GetDataSource(); }
    /// The master: parameters with the names of its fields take the values of its active record, and the rows are
    /// fetched anew whenever these change.
    void SetDataSource(TDataSource* value);

    /// The rows; null while closed. Who moves it calls Resync.
    const std::shared_ptr<_Recordset>& GetRecordset() const { return FRecordset; }
    /// Opens the dataset on rows that came from elsewhere, or with null closes it.
    void SetRecordset(std::shared_ptr<_Recordset> value);
    /// RecordStatusEnum of the active record.
    int GetRecordStatus() const;

    int GetRecordCount() override;
    int GetRecNo() override;
    void SetRecNo(int value) override;
    bool IsSequenced() override;
    bool GetCanModify() override { return FCanModify; }
    bool BookmarkValid(const TBookmark& bookmark) override;
    bool BookmarkShown(const TBookmark& bookmark) override;
    /// Finds data fields only. A text is compared unit by unit, or with loCaseInsensitive letter case aside; with
    /// loPartialKey texts need only begin so.
    bool Locate(const String& keyFields, const Variant& keyValues, TLocateOptions options) override;
    Variant Lookup(const String& keyFields, const Variant& keyValues, const String& resultFields) override;

protected:
    bool IsCursorOpen() const override { return FRecordset != nullptr; }
    void InternalOpen() override;
    void InternalClose() override;
    void InternalFirst() override;
    void InternalLast() override;
    void InternalSetToRecord(TRecordBuffer buffer) override;
    void InternalGotoBookmark(const TBookmark& bookmark) override;
    TGetResult GetRecord(TRecordBuffer buffer, TGetMode mode, bool doCheck) override;
    TRecordBuffer ReadInPassing(const TBookmark& bookmark) override;
    TRecordBuffer AllocRecordBuffer() override;
    void FreeRecordBuffer(TRecordBuffer buffer) override;
    void InternalInitRecord(TRecordBuffer buffer) override;
    void ClearCalcFields(TRecordBuffer buffer) override;
    TBookmarkFlag GetBookmarkFlag(TRecordBuffer buffer) const override;
    void SetBookmarkFlag(TRecordBuffer buffer, TBookmarkFlag value) override;
    TBookmark GetBookmarkData(TRecordBuffer buffer) const override;
    void SetBookmarkData(TRecordBuffer buffer, const TBookmark& value) override;
    TFieldValue GetFieldData(const TField& field) override;
    void SetFieldData(TField& field, const TFieldValue& value) override;
    void InternalCancel() override;
    void InternalPost() override;
    void InternalDelete() override;
    void InternalRefresh() override;
    void CheckCanModify() override;

    // The steps of GetRecord, for descendants that read records in a way of their own.

    /// Moves the recordset as `mode` says; no filter has a say here.
    virtual TGetResult InternalGetRecord(TRecordBuffer buffer, TGetMode mode, bool doCheck);
    /// The same on to the next record that OnFilterRecord accepts, while Filtered.
    TGetResult FilteredGetRecord(TRecordBuffer buffer, TGetMode mode, bool doCheck);
    /// What OnFilterRecord says of the recordset's row, for which it gets `buffer`; true unless Filtered.
    bool AcceptsRecord(TRecordBuffer buffer);
    /// Whether the recordset's row is one of those that the dataset shows.
    virtual bool ShowsRow() { return AcceptsRecord(LookupBuffer()); }
    /// EDatabaseError when several records are wanted and they cannot be found again.
    void CheckBookmarks() const;
    /// There is a master, and it has no record to whom any could belong.
    bool MasterIsEmpty() const;
    /// Fills the header of a buffer from the recordset's row, empties its values and calculates fields.
    void FillRecordBuffer(TRecordBuffer buffer, int recordNumber);
    /// The number of the recordset's row, unless controls are disabled: then it is left until somebody asks.
    int CurrentRecordNumber() const;
    /// The number of the recordset's row, for RecNo where it was left until somebody asked.
    virtual int NumberOfRow() { return FRecordset->GetAbsolutePosition(); }
    /// Forgets what the values of a buffer were; they are read again.
    void FinalizeValues(TRecordBuffer buffer, int count);
    /// Goes on with `body` unless it raises: then raises the same, or without `doCheck` answers grError.
    template <class TBody>
    TGetResult Guarded(bool doCheck, TBody&& body) {
        try {
            return body();
        } catch (const std::exception&) {
            if (doCheck)
                throw;
            return grError;
        }
    }
    /// Frees what searches keep from one to the next.
    void DestroyLookupCursor();
    /// The rows are those of another master record now.
    virtual void RowsReplaced() {}
    /// Has the recordset read its rows anew.
    void Requery();
    static TRecInfo& HeaderOf(TRecordBuffer buffer) { return *reinterpret_cast<TRecInfo*>(buffer); }
    static OleVariant* ValuesOf(TRecordBuffer buffer) {
        return reinterpret_cast<OleVariant*>(buffer + sizeof(TRecInfo));
    }
    const TDataLink& MasterLink() const { return FMasterLink; }

    /// What finds a row again after the rows were read anew: its key, or where there is none its place.
    struct TRowKey {
        std::vector<OleVariant> Values;
        int Position = adPosUnknown;
    };
    TRowKey KeyOfRow() const;
    void GoToRow(const TRowKey& key);

private:
    class TPlaceKeeper;
    class TKeyMatcher;

    TFieldValue ReadColumn(int column) const;
    bool IsNewRecord(TRecordBuffer buffer) const;
    std::shared_ptr<_Recordset> OpenRecordset();
    std::vector<String> ColumnNames() const;
    void TakeColumns();
    void ReadFieldDefs();
    std::vector<TColumnValue> ChangedValues();
    TFetchProgress ProgressHandler();
    bool LocateRecord(const String& keyFields, const Variant& keyValues, TLocateOptions options);
    TRecordBuffer BufferAt(TRecordBuffer& place);
    TRecordBuffer LookupBuffer() { return BufferAt(FLookupBuffer); }
    void FreeBufferAt(TRecordBuffer& place);
    void MasterChanged();
    /// Calls `body` with each parameter that the master has a field for, and that field.
    template <class TBody>
    void EachMasterValue(TBody&& body);
    void TakeMasterValues();

    TMasterDataLink FMasterLink{*this};
    TParameters FParameters{this};
    std::shared_ptr<_Recordset> FRecordset;
    std::shared_ptr<_Recordset> FGivenRecordset; // set from outside, to be opened on
    std::shared_ptr<TOdbcConnection> FConnection;
    std::vector<String> FColumnNames; // when it was opened
    std::vector<DataTypeEnum> FColumnTypes;
    TRecordBuffer FLookupBuffer = nullptr;  // of searches, and of rows asked whether they show
    TRecordBuffer FPassingBuffer = nullptr; // of the record read in passing, whose calculations may search
    String FConnectionString;
    String FCommandText;
    int FSlotCount = 0;
    TCursorLocation FCursorLocation = clUseClient;
    bool FParamCheck = true;
    bool FCanModify = false;
    bool FSharesConnection = false;
    bool FMasterWasEmpty = false;
};

/// The dataset for forms.
class TADODataSet : public TCustomADODataSet {
    FRAMEWORK_CLASS(TADODataSet)

public:
    explicit TADODataSet(TComponent* owner) : TCustomADODataSet(owner) {}
};

/// The palette page of datasets and data sources.
inline constexpr char16_t DataAccessPage[] = u"Data Access";

/// Makes datasets, data sources and all fields known to text forms, and the former to designers.
void RegisterDataClasses();

} // namespace framework
