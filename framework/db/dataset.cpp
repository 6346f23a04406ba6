#include "framework/db/dataset.h"

#include "framework/db/datalinks.h"
#include "framework/system/applicationhooks.h"
#include "framework/system/strings.h"

namespace framework {

const TClassInfo& TDataSet::StaticClass() {
    static const TClassInfo info = DescribeClass<TDataSet>(u"TDataSet", TComponent::StaticClass());
    return info;
}

TDataSet::TDataSet(TComponent* owner) : TComponent(owner) {
}

TDataSet::~TDataSet() {
    Destroying();
    FState = dsInactive;
    FSources.Tell([](TDataSource& source) { source.SetDataSet(nullptr); });
    FFields.Clear();
    FreeBuffers();
}

void TDataSet::Notification(TComponent* component, TOperation operation) {
    TComponent::Notification(component, operation);
    if (operation != opRemove)
        return;
    for (TField* field : FFields) {
        if (field->FLookupDataSet == component)
            field->FLookupDataSet = nullptr;
    }
}

void TDataSet::Loaded() {
    TComponent::Loaded();
    if (!std::exchange(FOpenWhenLoaded, false))
        return;
    if (!GetComponentState().Contains(csDesigning)) {
        SetActive(true);
        return;
    }
    // A designer shows the form where its database is not there, too, and keeps what it says.
    try {
        SetActive(true);
    } catch (const std::exception&) {
        FOpenWhenPossible = true;
        ApplicationHandleException(this);
    }
}

std::vector<TComponent*> TDataSet::GetChildren(TComponent* root) const {
    std::vector<TComponent*> children;
    for (TField* field : FFields) {
        if (field->GetOwner() == root)
            children.push_back(field);
    }
    return children;
}

void TDataSet::SetFieldDefs(TFieldDefs* value) {
    FFieldDefs.Assign(value);
}

// Opening and closing.

void TDataSet::SetActive(bool value) {
    if (GetComponentState().Contains(csLoading)) {
        FOpenWhenLoaded = value;
        return;
    }
    FOpenWhenPossible = FOpenWhenPossible && value;
    if (value == (FState != dsInactive))
        return;
    if (!GetComponentState().Contains(csDestroying))
        CheckStill();
    Operation([&] { value ? DoOpen() : DoClose(); });
}

void TDataSet::CloseToDie() {
    Destroying();
    try {
        Close();
    } catch (const std::exception&) {
        ApplicationHandleException(this);
    }
    if (IsCursorOpen())
        CloseCursor(); // it was being closed when a handler freed it
}

void TDataSet::DoOpen() {
    DoBeforeOpen();
    if (FState != dsInactive)
        return; // the handler has opened it
    Attempt(
        [&] {
            FState = dsOpening;
            OpenCursor();
            SetState(dsBrowse);
        },
        [&] {
            SetState(dsInactive);
            CloseCursor();
        });
    DoAfterOpen();
}

void TDataSet::OpenCursor() {
    FDefaultFields = FFields.GetCount() == 0;
    InternalOpen();
    UpdateBufferCount();
    FillFrom(false);
}

void TDataSet::DoClose() {
    const bool tells = !GetComponentState().Contains(csDestroying);
    if (tells)
        DoBeforeClose();
    if (FState == dsInactive)
        return;
    SetState(dsInactive);
    CloseCursor();
    if (tells)
        DoAfterClose();
}

void TDataSet::CloseCursor() {
    FTemporaryBuffer = nullptr; // who reads in passing has lost his record
    ClearBuffers();
    FreeBuffers();
    InternalClose();
    BindFields(false);
    if (FDefaultFields)
        FFields.Clear();
    FDefaultFields = false;
    FModified = false;
}

void TDataSet::CheckActive() const {
    if (!IsCursorOpen() || FState == dsInactive)
        DatabaseError(u"Cannot perform this operation on a closed dataset", this);
}

void TDataSet::CheckInactive() const {
    if (FState != dsInactive)
        DatabaseError(u"Cannot perform this operation on an open dataset", this);
}

void TDataSet::CheckCanModify() {
    if (!GetCanModify())
        DatabaseError(u"Cannot modify a read-only dataset", this);
}

void TDataSet::CheckStill() const {
    if (FState == dsCalcFields || FState == dsFilter)
        DatabaseError(u"Cannot move while a record is being calculated or filtered", this);
}

// Events of the program.

void TDataSet::DoBeforeOpen() {
    FireOrLeave(BeforeOpen, this);
}

void TDataSet::DoAfterOpen() {
    FireOrLeave(AfterOpen, this);
    if (GetActive() && !IsEmpty())
        DoAfterScroll();
}

void TDataSet::DoBeforeClose() {
    FireOrLeave(BeforeClose, this);
}

void TDataSet::DoAfterClose() {
    FireOrLeave(AfterClose, this);
}

void TDataSet::DoBeforeScroll() {
    FireOrLeave(BeforeScroll, this);
    CheckActive();
}

void TDataSet::DoAfterScroll() {
    FireOrLeave(AfterScroll, this);
}

void TDataSet::DoBeforePost() {
    FireOrLeave(BeforePost, this);
}

void TDataSet::DoAfterPost() {
    FireOrLeave(AfterPost, this);
}

void TDataSet::DoOnCalcFields() {
    FireOrLeave(OnCalcFields, this);
}

void TDataSet::DoOnNewRecord() {
    FModified = false;
    ApplyDefaults();
    FireOrLeave(OnNewRecord, this);
}

// What data sources are told.

void TDataSet::SetState(TDataSetState value) {
    if (FState == value)
        return;
    FState = value;
    FModified = false;
    DataEvent(deUpdateState, 0);
}

void TDataSet::DataEvent(TDataEvent event, std::intptr_t info) {
    if (FSources.IsEmpty())
        return;
    if (FDisableCount > 0 && event != deDisabledStateChange && event != deConnectChange) {
        // Links must let go of records that are no longer there, whatever is disabled.
        const bool hasClosed = event == deUpdateState && FState == dsInactive;
        if (event == deLayoutChange)
            FMissedEvent = deLayoutChange;
        if (!hasClosed)
            return;
        FDisabledState = dsInactive;
    }
    CallOrLeave([&] { FSources.Tell([&](TDataSource& source) { source.DataEvent(event, info); }); });
}

void TDataSet::Announce(TDataEvent event, std::intptr_t info) {
    if (!GetComponentState().Contains(csDestroying))
        Operation([&] { DataEvent(event, info); });
}

void TDataSet::DisableControls() {
    if (FDisableCount++ > 0)
        return;
    FDisabledState = FState;
    FMissedEvent = deDataSetChange;
    Announce(deDisabledStateChange, 0);
}

void TDataSet::EnableControls() {
    if (FDisableCount == 0 || --FDisableCount > 0)
        return;
    Operation([&] {
        DataEvent(deDisabledStateChange, 1);
        if (FDisabledState != FState)
            DataEvent(deUpdateState, 0);
        if (FDisabledState != dsInactive && FState != dsInactive)
            DataEvent(FMissedEvent, 0);
    });
}

void TDataSet::AddDataSource(TDataSource* source) {
    FSources.Add(source);
    source->UpdateState();
}

void TDataSet::RemoveDataSource(TDataSource* source) {
    const TLifeGuard alive(*this);
    FSources.Remove(source);
    source->UpdateState();
    if (alive && GetActive())
        UpdateBufferCount();
}

bool TDataSet::IsLinkedTo(const TDataSource* source) const {
    while (source) {
        const TDataSet* other = source->GetDataSet();
        if (other == this)
            return true;
        source = other ? other->GetDataSource() : nullptr;
    }
    return false;
}

// Fields.

void TDataSet::AddField(TField& field) {
    CheckInactive();
    if (!field.GetFieldName().empty())
        FFields.CheckFieldName(field.GetFieldName());
    FFields.Add(&field);
    Announce(deFieldListChange, 0);
}

void TDataSet::RemoveField(TField& field) {
    if (!field.GetComponentState().Contains(csDestroying))
        CheckInactive();
    FFields.Remove(&field);
    Announce(deFieldListChange, 0);
}

void TDataSet::CreateFields() {
    for (int i = 0; i < FFieldDefs.GetCount(); ++i) {
        const TFieldDef& def = *FFieldDefs.GetItem(i);
        if (def.GetAttributes().Contains(faHiddenCol))
            continue;
        TField* field = def.CreateField(this);
        field->FDataSet = this;
        FFields.Add(field);
    }
}

void TDataSet::BindFields(bool binding) {
    FCalculatedCount = 0;
    int slot = 0;
    for (TField* field : FFields) {
        field->FSlot = binding ? slot++ : -1;
        field->FFieldNo = 0;
        if (std::exchange(field->FHasColumnSize, false))
            field->FSize = 0;
        if (!binding)
            continue;
        if (field->GetCalculated()) {
            ++FCalculatedCount;
            continue;
        }
        const int column = FFieldDefs.IndexOf(field->GetFieldName());
        if (column < 0)
            DatabaseError(u"Field '" + field->GetFieldName() + u"' not found", this);
        const TFieldDef& def = *FFieldDefs.GetItem(column);
        if (!field->Accepts(def.GetDataType()))
            DatabaseError(u"Type mismatch for field '" + field->GetFieldName() + u"': a " + field->ClassName() +
                              u" cannot read a column of type " + DescribeEnum(ftUnknown).Names[def.GetDataType()],
                          this);
        field->FFieldNo = column + 1;
        if (field->FSize == 0) {
            field->FSize = def.GetSize();
            field->FHasColumnSize = true;
        }
    }
}

std::vector<TField*> TDataSet::GetFieldList(StringView names) const {
    std::vector<TField*> fields;
    for (const String& name : SplitString(names, u";"))
        fields.push_back(FieldByName(Trim(name)));
    return fields;
}

Variant TDataSet::GetFieldValues(StringView names) const {
    if (names.find(u';') == StringView::npos)
        return FieldByName(names)->GetAsVariant();
    std::vector<Variant> values;
    for (TField* field : GetFieldList(names))
        values.push_back(field->GetAsVariant());
    return Variant::FromList(std::move(values));
}

void TDataSet::SetFieldValues(StringView names, const Variant& value) {
    const std::vector<TField*> fields = GetFieldList(names);
    if (fields.size() == 1) {
        fields.front()->SetAsVariant(value);
        return;
    }
    if (value.Count() != fields.size())
        DatabaseError(u"The number of values differs from that of the fields", this);
    for (std::size_t i = 0; i < fields.size(); ++i)
        fields[i]->SetAsVariant(value[i]);
}

bool TDataSet::ConvertFor(const TField& field, const TFieldValue& value, OleVariant& converted) {
    try {
        return field.TryConvertKey(value, converted);
    } catch (const Exception&) {
        return false;
    }
}

TRecordBuffer TDataSet::ActiveRecordBuffer() const {
    if (FTemporaryBuffer)
        return FTemporaryBuffer;
    return FWindow.Count > 0 ? ActiveBuffer() : nullptr;
}

TDataSet::TTemporaryState::TTemporaryState(TDataSet& dataSet, TDataSetState state, TRecordBuffer buffer)
    : FDataSet(dataSet), FAlive(dataSet), FState(std::exchange(dataSet.FState, state)),
      FBuffer(std::exchange(dataSet.FTemporaryBuffer, buffer)) {
}

TDataSet::TTemporaryState::~TTemporaryState() {
    if (!FAlive)
        return;
    FDataSet.FState = FState;
    FDataSet.FTemporaryBuffer = FBuffer;
}

// Calculated fields.

void TDataSet::GetCalcFields(TRecordBuffer buffer) {
    if (!HasCalculatedFields() || FState == dsCalcFields)
        return;
    const TTemporaryState state(*this, dsCalcFields, buffer);
    ClearCalcFields(buffer);
    for (int i = 0; i < FFields.GetCount(); ++i) {
        if (FFields[i]->GetFieldKind() == fkLookup)
            CalculateLookup(*FFields[i]);
    }
    DoOnCalcFields();
}

void TDataSet::CalculateLookup(TField& field) {
    TDataSet* lookup = field.GetLookupDataSet();
    if (!lookup || !lookup->GetActive() || field.GetKeyFields().empty())
        return;
    const Variant key = GetFieldValues(field.GetKeyFields());
    if (VarIsNull(key))
        return;
    const Variant found = lookup->Lookup(field.GetLookupKeyFields(), key, field.GetLookupResultField());
    if (!VarIsNull(found))
        field.SetAsVariant(found);
}

/// A field of the record in edit has a new value.
void TDataSet::FieldChanged(TField& field) {
    FModified = true;
    const TLifeGuard fieldIsAlive(field);
    const bool calculates = FAutoCalcFields && HasCalculatedFields();
    if (calculates) {
        UpdateCursorPos();
        GetCalcFields(ActiveBuffer());
    }
    if (fieldIsAlive)
        FireOrLeave(field.OnChange, &field);
    if (calculates || !fieldIsAlive)
        DataEvent(deRecordChange, 0);
    else
        DataEvent(deFieldChange, reinterpret_cast<std::intptr_t>(&field));
}

void TDataSet::StoreField(TField& field, const TFieldValue& value) {
    if (FState == dsCalcFields) {
        if (!field.GetCalculated())
            DatabaseError(u"Field '" + field.GetFieldName() + u"' is not calculated: OnCalcFields cannot set it", this);
        SetFieldData(field, value);
        return;
    }
    if (FState != dsEdit && FState != dsInsert)
        DatabaseError(u"Dataset not in edit or insert mode", this);
    if (field.GetReadOnly() || field.GetCalculated())
        DatabaseError(u"Field '" + field.GetDisplayName() + u"' cannot be modified", this);
    Operation([&] {
        bool goesOn = true;
        CallOrLeave([&] { goesOn = field.Validate(value); });
        if (!goesOn || (FState != dsEdit && FState != dsInsert))
            return; // the handler freed the field, or ended the edit
        SetFieldData(field, value);
        FieldChanged(field);
    });
}

} // namespace framework
