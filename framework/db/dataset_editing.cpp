// Datasets: editing records.

#include "framework/db/dataset.h"
#include "framework/system/strings.h"

#include <algorithm>

namespace framework {

template <class TBody>
void TDataSet::CheckOperation(TBody&& body, TDataSetErrorEvent TDataSet::*event) {
    for (;;) {
        CheckActive();
        try {
            UpdateCursorPos();
            body();
            return;
        } catch (const EDatabaseError& error) {
            TDataAction action = daFail;
            FireOrLeave(this->*event, this, error, action);
            if (action == daFail)
                throw;
            if (action == daAbort)
                throw EAbort();
        }
    }
}

void TDataSet::CheckBrowseMode() {
    CheckActive();
    CheckStill();
    if (FSources.IsEmpty() && FState == dsBrowse)
        return; // nobody is told, nothing is pending
    Operation([&] {
        DataEvent(deCheckBrowseMode, 0);
        if (FState != dsEdit && FState != dsInsert)
            return;
        UpdateRecord();
        if (FModified)
            Post();
        else
            Cancel();
    });
    CheckActive();
}

void TDataSet::FinishEditing() {
    if (FState == dsEdit || FState == dsInsert)
        CheckBrowseMode();
}

void TDataSet::UpdateRecord() {
    if (FState != dsEdit && FState != dsInsert)
        DatabaseError(u"Dataset not in edit or insert mode", this);
    Operation([&] { DataEvent(deUpdateRecord, 0); });
}

void TDataSet::Edit() {
    if (FState == dsEdit || FState == dsInsert)
        return;
    CheckStill();
    CheckActive();
    if (IsEmpty()) {
        Insert();
        return;
    }
    Operation([&] {
        CheckBrowseMode();
        CheckCanModify();
        FireOrLeave(BeforeEdit, this);
        CheckActive();
        CheckOperation([&] { InternalEdit(); }, &TDataSet::OnEditError);
        GetCalcFields(ActiveBuffer());
        SetState(dsEdit);
        DataEvent(deRecordChange, 0);
        FireOrLeave(AfterEdit, this);
    });
}

void TDataSet::Insert() {
    BeginInsert(false);
}

void TDataSet::Append() {
    BeginInsert(true);
}

void TDataSet::BeginInsert(bool append) {
    Operation([&] {
        CheckBrowseMode();
        CheckCanModify();
        FireOrLeave(BeforeInsert, this);
        DoBeforeScroll();
        Attempt(
            [&] {
                append ? PlaceAtEnd() : PlaceBeforeActive();
                InternalInsert();
                SetState(dsInsert);
                DoOnNewRecord();
            },
            [&] {
                if (!GetActive())
                    return; // a handler has closed it
                UpdateCursorPos();
                SetState(dsBrowse);
                Resync({});
            });
        FModified = false;
        DataEvent(deDataSetChange, 0);
        FireOrLeave(AfterInsert, this);
        DoAfterScroll();
    });
}

/// Opens the window for a new record at the place of the active one, whose bookmark it takes to find its place again.
void TDataSet::PlaceBeforeActive() {
    const bool isFirst = FWindow.Count == 0;
    const TBookmark place = isFirst ? TBookmark() : GetBookmarkData(ActiveBuffer());
    FWindow.Move(FWindow.Count, FWindow.Active);
    CursorPosChanged();
    TRecordBuffer buffer = ActiveBuffer();
    InternalInitRecord(buffer);
    SetBookmarkFlag(buffer, isFirst ? bfBOF : bfInserted);
    SetBookmarkData(buffer, place);
    FWindow.Count = std::min(FWindow.Count + 1, FWindow.Size);
    FBof = false;
    FEof = false;
}

void TDataSet::PlaceAtEnd() {
    ClearBuffers();
    InternalInitRecord(ActiveBuffer());
    SetBookmarkFlag(ActiveBuffer(), bfEOF);
    ActivateBuffers();
    CursorPosChanged();
    GetPriorRecords();
}

void TDataSet::ApplyDefaults() {
    for (int i = 0; i < FFields.GetCount(); ++i) {
        TField* field = FFields[i];
        String text = field->GetDefaultExpression();
        if (text.empty() || !field->GetCanModify())
            continue;
        if (text.size() > 1 && text.front() == u'\'' && text.back() == u'\'')
            text = StringReplace(StringView(text).substr(1, text.size() - 2), u"''", u"'", {rfReplaceAll});
        field->SetAsString(text);
    }
}

void TDataSet::Post() {
    CheckActive();
    if (FState != dsEdit && FState != dsInsert)
        return;
    Operation([&] {
        UpdateRecord();
        DataEvent(deCheckBrowseMode, 0);
        DoBeforePost();
        if (FState != dsEdit && FState != dsInsert)
            return; // a handler has ended the edit itself
        CheckRequiredFields();
        const bool isNew = FState == dsInsert;
        CheckOperation([&] { InternalPost(); }, &TDataSet::OnPostError);
        if (isNew)
            ViewChanged();
        CursorPosChanged();
        SetState(dsBrowse);
        Resync({});
        DoAfterPost();
    });
}

void TDataSet::CheckRequiredFields() {
    for (int i = 0; i < FFields.GetCount(); ++i) {
        TField* field = FFields[i];
        if (!field->GetRequired() || !field->GetCanModify() || !field->GetIsNull())
            continue;
        const String message = u"Field '" + field->GetDisplayName() + u"' must have a value";
        DataEvent(deFocusControl, reinterpret_cast<std::intptr_t>(field));
        DatabaseError(message, this);
    }
}

void TDataSet::Cancel() {
    if (FState != dsEdit && FState != dsInsert)
        return;
    Operation([&] {
        const bool scrolls = FState == dsInsert;
        DataEvent(deCheckBrowseMode, 0);
        FireOrLeave(BeforeCancel, this);
        CheckActive();
        if (scrolls)
            DoBeforeScroll();
        UpdateCursorPos();
        InternalCancel();
        SetState(dsBrowse);
        Resync({});
        FireOrLeave(AfterCancel, this);
        if (scrolls)
            DoAfterScroll();
    });
}

void TDataSet::Delete() {
    CheckActive();
    CheckStill();
    if (FState == dsInsert) {
        Cancel();
        return;
    }
    if (IsEmpty())
        DatabaseError(u"Cannot perform this operation on an empty dataset", this);
    Operation([&] {
        CheckCanModify();
        DataEvent(deCheckBrowseMode, 0);
        FireOrLeave(BeforeDelete, this);
        DoBeforeScroll();
        CheckOperation([&] { InternalDelete(); }, &TDataSet::OnDeleteError);
        ViewChanged();
        CursorPosChanged();
        SetState(dsBrowse);
        Resync({});
        FireOrLeave(AfterDelete, this);
        DoAfterScroll();
    });
}

void TDataSet::AppendRecord(std::initializer_list<Variant> values) {
    Operation([&] {
        Append();
        SetFieldsFrom(values);
        Post();
    });
}

void TDataSet::InsertRecord(std::initializer_list<Variant> values) {
    Operation([&] {
        Insert();
        SetFieldsFrom(values);
        Post();
    });
}

void TDataSet::SetFieldsFrom(std::initializer_list<Variant> values) {
    int index = 0;
    for (const Variant& value : values) {
        TField* field = FFields.GetField(index++);
        if (!VarIsEmpty(value))
            field->SetAsVariant(value);
    }
}

void TDataSet::ClearFields() {
    if (FState != dsEdit && FState != dsInsert)
        DatabaseError(u"Dataset not in edit or insert mode", this);
    Operation([&] {
        for (int i = 0; i < FFields.GetCount(); ++i) {
            if (FFields[i]->GetCanModify())
                FFields[i]->Clear();
        }
    });
}

void TDataSet::Refresh() {
    CheckActive();
    Operation([&] {
        FireOrLeave(BeforeRefresh, this);
        CheckBrowseMode();
        UpdateCursorPos();
        CursorPosChanged();
        InternalRefresh();
        Resync({});
        FireOrLeave(AfterRefresh, this);
    });
}

} // namespace framework
