#pragma once

// Between datasets and what shows them: a data source stands on the form and names a dataset; each control has a data
// link to a source, through which it hears of changes and sees a stretch of records around the active one.

#include "framework/db/dataset.h"

namespace framework {

using TDataChangeEvent = std::function<void(TObject* Sender, TField* Field)>;

class TDataSource : public TComponent {
    FRAMEWORK_CLASS(TDataSource)

public:
    FRAMEWORK_PROPERTY(bool, AutoEdit, GetAutoEdit, SetAutoEdit);
    FRAMEWORK_PROPERTY(TDataSet*, DataSet, GetDataSet, SetDataSet);
    FRAMEWORK_PROPERTY(bool, Enabled, GetEnabled, SetEnabled);
    FRAMEWORK_READ_PROPERTY(TDataSetState, State, GetState);

    /// The dataset went into another state.
    TNotifyEvent OnStateChange;
    /// A field was changed, or with null any part of what is shown: another record is active, records came or went.
    TDataChangeEvent OnDataChange;
    /// The record is about to be posted, and what was entered in controls is in the fields.
    TNotifyEvent OnUpdateData;

    explicit TDataSource(TComponent* owner);
    ~TDataSource() override;

    /// Controls put the dataset in edit when a person begins to enter something.
    bool GetAutoEdit() const { return FAutoEdit; }
    void SetAutoEdit(bool value) { FAutoEdit = value; }
    TDataSet* GetDataSet() const { return FDataSet; }
    /// EDatabaseError when the dataset would depend on itself.
    void SetDataSet(TDataSet* value);
    /// A disabled source looks as if its dataset were closed.
    bool GetEnabled() const { return FEnabled; }
    void SetEnabled(bool value);
    TDataSetState GetState() const { return FState; }
    /// Puts the dataset in edit if AutoEdit allows.
    void Edit();
    /// Whether the dataset takes its master records through this source, at any remove.
    bool IsLinkedTo(const TDataSet* dataSet) const;

protected:
    void Notification(TComponent* component, TOperation operation) override;

private:
    friend class TDataLink;
    friend class TDataSet;

    void DataEvent(TDataEvent event, std::intptr_t info);
    void UpdateState();
    void TellOfChange(TField* field);
    int LargestBufferCount() const;
    void ShiftLinks(int rows);

    TNotifyList<TDataLink> FLinks;
    TDataSet* FDataSet = nullptr;
    TDataSetState FState = dsInactive;
    bool FAutoEdit = true;
    bool FEnabled = true;
};

/// Hears of the changes of a dataset through a data source, and sees BufferCount of its records, among them the active
/// one. A control derives its own link and overrides what it wants to hear; it may do anything then, even destroy the
/// link.
class TDataLink : public TPersistent {
    FRAMEWORK_CLASS(TDataLink)

public:
    FRAMEWORK_READ_PROPERTY(bool, Active, GetActive);
    FRAMEWORK_PROPERTY(int, ActiveRecord, GetActiveRecord, SetActiveRecord);
    FRAMEWORK_PROPERTY(int, BufferCount, GetBufferCount, SetBufferCount);
    FRAMEWORK_READ_PROPERTY(TDataSet*, DataSet, GetDataSet);
    FRAMEWORK_PROPERTY(TDataSource*, DataSource, GetDataSource, SetDataSource);
    FRAMEWORK_PROPERTY(bool, DataSourceFixed, GetDataSourceFixed, SetDataSourceFixed);
    FRAMEWORK_READ_PROPERTY(bool, Bof, GetBof);
    FRAMEWORK_READ_PROPERTY(bool, Eof, GetEof);
    FRAMEWORK_READ_PROPERTY(bool, Editing, GetEditing);
    FRAMEWORK_PROPERTY(bool, ReadOnly, GetReadOnly, SetReadOnly);
    FRAMEWORK_READ_PROPERTY(int, RecordCount, GetRecordCount);

    TDataLink() = default;
    ~TDataLink() override;

    /// The source is enabled and its dataset open.
    bool GetActive() const { return FActive; }
    TDataSource* GetDataSource() const { return FDataSource; }
    /// EDatabaseError when it is fixed.
    void SetDataSource(TDataSource* value);
    TDataSet* GetDataSet() const { return FDataSource ? FDataSource->GetDataSet() : nullptr; }
    bool GetDataSourceFixed() const { return FDataSourceFixed; }
    void SetDataSourceFixed(bool value) { FDataSourceFixed = value; }

    // The records that the link sees are numbered from 0.

    /// How many records at most; at least 1.
    int GetBufferCount() const { return FBufferCount; }
    virtual void SetBufferCount(int value);
    /// How many there are.
    virtual int GetRecordCount() const;
    /// The active one. Setting it makes the fields read another record, of those that the link sees, until it is set
    /// back; nobody is told and nothing moves.
    virtual int GetActiveRecord() const;
    virtual void SetActiveRecord(int value);
    bool GetBof() const;
    bool GetEof() const;
    virtual int MoveBy(int distance);

    /// The dataset is in edit, and the link not ReadOnly.
    bool GetEditing() const { return FEditing; }
    bool GetReadOnly() const { return FReadOnly; }
    void SetReadOnly(bool value);
    /// Asks the source to put the dataset in edit; whether it is then.
    bool Edit();
    /// Has UpdateData store what is being entered.
    void UpdateRecord();

protected:
    friend class TDataSource;

    // What there is to hear. The defaults do nothing, or call the more general one that they name.

    virtual void DataEvent(TDataEvent event, std::intptr_t info);
    virtual void ActiveChanged() {}
    virtual void EditingChanged() {}
    virtual void CheckBrowseMode() {}
    /// Records came, went or changed; everything is to be shown anew. Calls RecordChanged(nullptr).
    virtual void DataSetChanged();
    /// Another record is active, and the rows have moved by `distance`, upwards when negative. Calls DataSetChanged.
    virtual void DataSetScrolled(int distance);
    /// Fields are shown otherwise. Calls DataSetChanged.
    virtual void LayoutChanged();
    /// One field of the active record, or with null all of them.
    virtual void RecordChanged(TField* field);
    virtual void FocusControl(TField* field);
    /// What is being entered is to be stored in the fields.
    virtual void UpdateData() {}

private:
    friend class TDataSet;

    /// Tells whether the link outlived a callback.
    class TStillThere {
    public:
        explicit TStillThere(const TDataLink& link) : FLife(link.FLife) {}
        explicit operator bool() const { return !FLife.expired(); }

    private:
        std::weak_ptr<const char> FLife;
    };

    void UpdateState();
    int Follow(int scrolled);

    TDataSource* FDataSource = nullptr;
    std::shared_ptr<const char> FLife = std::make_shared<const char>();
    int FBufferCount = 1;
    int FFirstRecord = 0; // of the dataset's buffers, the first that this link sees
    bool FActive = false;
    bool FEditing = false;
    bool FReadOnly = false;
    bool FUpdating = false;
    bool FDataSourceFixed = false;
};

/// The link of a detail dataset to its master.
class TMasterDataLink : public TDataLink {
    FRAMEWORK_CLASS(TMasterDataLink)

public:
    FRAMEWORK_PROPERTY(String, FieldNames, GetFieldNames, SetFieldNames);

    /// Another master record is active, or its fields were changed.
    TNotifyEvent OnMasterChange;
    /// The master was closed.
    TNotifyEvent OnMasterDisable;

    explicit TMasterDataLink(TDataSet& detail) : FDetail(detail) {}

    const String& GetFieldNames() const { return FFieldNames; }
    /// The master's fields that count, parted by semicolons; a change of others is not told. Empty for all.
    void SetFieldNames(const String& value);

protected:
    void ActiveChanged() override;
    void CheckBrowseMode() override;
    void RecordChanged(TField* field) override;

private:
    TDataSet& FDetail;
    String FFieldNames;
};

} // namespace framework
