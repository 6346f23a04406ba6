#include "framework/db/datalinks.h"

#include <algorithm>

namespace framework {

// The data source.

const TClassInfo& TDataSource::StaticClass() {
    static const TClassInfo info = DescribeClass<TDataSource>(
        u"TDataSource", TComponent::StaticClass(),
        {Property<&TDataSource::GetAutoEdit, &TDataSource::SetAutoEdit>(u"AutoEdit", true),
         Property<&TDataSource::GetDataSet, &TDataSource::SetDataSet>(u"DataSet"),
         Property<&TDataSource::GetEnabled, &TDataSource::SetEnabled>(u"Enabled", true),
         Event<&TDataSource::OnStateChange>(u"OnStateChange"), Event<&TDataSource::OnDataChange>(u"OnDataChange"),
         Event<&TDataSource::OnUpdateData>(u"OnUpdateData")});
    return info;
}

TDataSource::TDataSource(TComponent* owner) : TComponent(owner) {
}

TDataSource::~TDataSource() {
    Destroying();
    OnStateChange = nullptr;
    SetDataSet(nullptr);
    FLinks.Tell([](TDataLink& link) {
        link.SetDataSourceFixed(false);
        link.SetDataSource(nullptr);
    });
}

void TDataSource::Notification(TComponent* component, TOperation operation) {
    TComponent::Notification(component, operation);
    if (operation == opRemove && component == FDataSet)
        SetDataSet(nullptr);
}

void TDataSource::SetDataSet(TDataSet* value) {
    if (FDataSet == value)
        return;
    if (value && IsLinkedTo(value))
        DatabaseError(u"Circular datalinks are not allowed", this);
    const TLifeGuard alive(*this);
    if (TDataSet* former = std::exchange(FDataSet, nullptr)) {
        if (!former->GetComponentState().Contains(csDestroying))
            former->RemoveFreeNotification(this);
        former->RemoveDataSource(this);
    }
    if (!alive || !value || FDataSet)
        return;
    FDataSet = value;
    value->FreeNotification(this);
    value->AddDataSource(this);
}

bool TDataSource::IsLinkedTo(const TDataSet* dataSet) const {
    while (dataSet) {
        const TDataSource* master = dataSet->GetDataSource();
        if (master == this)
            return true;
        dataSet = master ? master->GetDataSet() : nullptr;
    }
    return false;
}

void TDataSource::SetEnabled(bool value) {
    FEnabled = value;
    UpdateState();
}

void TDataSource::Edit() {
    if (FAutoEdit && FState == dsBrowse)
        FDataSet->Edit();
}

void TDataSource::UpdateState() {
    const TDataSetState state = FEnabled && FDataSet && FDataSet->GetActive() ? FDataSet->GetState() : dsInactive;
    if (FState == state)
        return;
    const TDataSetState before = std::exchange(FState, state);
    const TLifeGuard alive(*this);
    FLinks.Tell([](TDataLink& link) { link.DataEvent(deUpdateState, 0); });
    if (!alive || GetComponentState().Contains(csDestroying))
        return;
    if (Fire(*this, OnStateChange, this) && before == dsInactive && FState != dsInactive)
        TellOfChange(nullptr);
}

void TDataSource::TellOfChange(TField* field) {
    Fire(*this, OnDataChange, this, field);
}

void TDataSource::DataEvent(TDataEvent event, std::intptr_t info) {
    if (event == deUpdateState) {
        UpdateState();
        return;
    }
    if (FState == dsInactive)
        return;
    const TLifeGuard alive(*this);
    FLinks.Tell([&](TDataLink& link) { link.DataEvent(event, info); });
    if (!alive)
        return;
    switch (event) {
    case deFieldChange:
    case deRecordChange:
        TellOfChange(reinterpret_cast<TField*>(info));
        break;
    case deDataSetChange:
    case deDataSetScroll:
    case deLayoutChange:
        TellOfChange(nullptr);
        break;
    case deUpdateRecord:
        Fire(*this, OnUpdateData, this);
        break;
    default:
        break;
    }
}

int TDataSource::LargestBufferCount() const {
    int largest = 1;
    if (FEnabled)
        FLinks.Tell([&](TDataLink& link) { largest = std::max(largest, link.GetBufferCount()); });
    return largest;
}

void TDataSource::ShiftLinks(int rows) {
    FLinks.Tell([&](TDataLink& link) { link.FFirstRecord = std::max(link.FFirstRecord + rows, 0); });
}

// The link.

const TClassInfo& TDataLink::StaticClass() {
    static const TClassInfo info = DescribeClass<TDataLink>(u"TDataLink", TPersistent::StaticClass());
    return info;
}

TDataLink::~TDataLink() {
    FLife.reset();
    if (!FDataSource)
        return;
    FDataSource->FLinks.Remove(this);
    TDataSet* dataSet = FDataSource->GetDataSet();
    if (dataSet && dataSet->GetActive() && !dataSet->GetComponentState().Contains(csDestroying))
        dataSet->UpdateBufferCount();
}

void TDataLink::SetDataSource(TDataSource* value) {
    if (FDataSource == value)
        return;
    if (FDataSourceFixed)
        DatabaseError(u"Operation not allowed: the data source of this link is fixed");
    const TStillThere alive(*this);
    if (FDataSource) {
        FDataSource->FLinks.Remove(this);
        TDataSet* former = std::exchange(FDataSource, nullptr)->GetDataSet();
        if (former && former->GetActive() && !former->GetComponentState().Contains(csDestroying))
            former->UpdateBufferCount();
        if (alive)
            UpdateState();
    }
    if (!alive || !value || FDataSource)
        return;
    FDataSource = value;
    value->FLinks.Add(this);
    UpdateState();
}

void TDataLink::UpdateState() {
    const TDataSetState state = FDataSource ? FDataSource->GetState() : dsInactive;
    const TStillThere alive(*this);
    if (const bool active = state != dsInactive; active != FActive) {
        FActive = active;
        FFirstRecord = 0;
        if (active) {
            GetDataSet()->UpdateBufferCount();
            if (!alive || !FActive)
                return; // a handler has freed the dataset
            Follow(0);
        }
        ActiveChanged();
    }
    if (!alive)
        return;
    const bool editing = FActive && !FReadOnly && (state == dsEdit || state == dsInsert);
    if (editing == FEditing)
        return;
    FEditing = editing;
    EditingChanged();
}

void TDataLink::SetReadOnly(bool value) {
    FReadOnly = value;
    UpdateState();
}

bool TDataLink::Edit() {
    const TStillThere alive(*this);
    if (!FReadOnly && FDataSource)
        FDataSource->Edit();
    return alive && FEditing;
}

void TDataLink::UpdateRecord() {
    const TStillThere alive(*this);
    FUpdating = true;
    try {
        UpdateData();
    } catch (...) {
        if (alive)
            FUpdating = false;
        throw;
    }
    if (alive)
        FUpdating = false;
}

void TDataLink::SetBufferCount(int value) {
    FBufferCount = std::max(value, 1);
    if (!FActive)
        return;
    const TStillThere alive(*this);
    GetDataSet()->UpdateBufferCount();
    if (alive && FActive)
        Follow(0);
}

int TDataLink::GetRecordCount() const {
    return FActive ? std::clamp(GetDataSet()->GetBufferedCount() - FFirstRecord, 0, FBufferCount) : 0;
}

int TDataLink::GetActiveRecord() const {
    return FActive ? GetDataSet()->GetActiveRecord() - FFirstRecord : 0;
}

void TDataLink::SetActiveRecord(int value) {
    if (!FActive)
        return;
    if (value < 0 || value >= std::max(GetRecordCount(), 1))
        DatabaseError(u"The link sees no such record");
    GetDataSet()->FWindow.Active = value + FFirstRecord;
}

bool TDataLink::GetBof() const {
    return !FActive || GetDataSet()->GetBof();
}

bool TDataLink::GetEof() const {
    return !FActive || GetDataSet()->GetEof();
}

int TDataLink::MoveBy(int distance) {
    return FActive ? GetDataSet()->MoveBy(distance) : 0;
}

/// The dataset's buffers have moved by `scrolled`: keeps the same records in view, but for what it takes to see the
/// active one. How far the records have moved in this link's view.
int TDataLink::Follow(int scrolled) {
    const int active = GetDataSet()->GetActiveRecord();
    const int sameRecords = FFirstRecord + scrolled;
    // Nothing stays blank as long as there are records before.
    const int last = GetDataSet()->GetBufferedCount() - FBufferCount;
    FFirstRecord = std::max(std::min(std::clamp(sameRecords, active - FBufferCount + 1, active), last), 0);
    return sameRecords - FFirstRecord;
}

void TDataLink::DataEvent(TDataEvent event, std::intptr_t info) {
    if (event == deUpdateState) {
        UpdateState();
        return;
    }
    if (!FActive)
        return;
    switch (event) {
    case deFieldChange:
    case deRecordChange:
        if (!FUpdating)
            RecordChanged(reinterpret_cast<TField*>(info));
        break;
    case deDataSetChange:
        Follow(0);
        DataSetChanged();
        break;
    case deDataSetScroll:
        DataSetScrolled(Follow(static_cast<int>(info)));
        break;
    case deLayoutChange:
        Follow(0);
        LayoutChanged();
        break;
    case deUpdateRecord:
        UpdateRecord();
        break;
    case deCheckBrowseMode:
        CheckBrowseMode();
        break;
    case deFocusControl:
        FocusControl(reinterpret_cast<TField*>(info));
        break;
    default:
        break;
    }
}

void TDataLink::DataSetChanged() {
    RecordChanged(nullptr);
}

void TDataLink::DataSetScrolled(int) {
    DataSetChanged();
}

void TDataLink::LayoutChanged() {
    DataSetChanged();
}

void TDataLink::RecordChanged(TField*) {
}

void TDataLink::FocusControl(TField*) {
}

// The link to a master.

const TClassInfo& TMasterDataLink::StaticClass() {
    static const TClassInfo info = DescribeClass<TMasterDataLink>(u"TMasterDataLink", TDataLink::StaticClass());
    return info;
}

void TMasterDataLink::SetFieldNames(const String& value) {
    FFieldNames = value;
    ActiveChanged();
}

void TMasterDataLink::ActiveChanged() {
    Fire(FDetail, GetActive() ? OnMasterChange : OnMasterDisable, this);
}

void TMasterDataLink::CheckBrowseMode() {
    if (FDetail.GetActive())
        FDetail.CheckBrowseMode();
}

void TMasterDataLink::RecordChanged(TField* field) {
    if (field && !FFieldNames.empty()) {
        const std::vector<TField*> watched = GetDataSet()->GetFieldList(FFieldNames);
        if (std::find(watched.begin(), watched.end(), field) == watched.end())
            return;
    }
    Fire(FDetail, OnMasterChange, this);
}

} // namespace framework
