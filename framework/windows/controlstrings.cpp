#include "framework/windows/controlstrings.h"

#include "framework/system/updates.h"

namespace framework {

namespace {

/// Stands in for the object of an item that has a mark; few have.
class TMarkedItem : public TObject {
public:
    TMarkedItem(TObject* object, int mark) : Object(object), Mark(mark) {}

    TObject* Object;
    int Mark;
};

} // namespace

TControlStrings::~TControlStrings() {
    for (int i = 0; i < FList.GetCount(); ++i)
        DropMark(i);
}

TObject* TControlStrings::GetItemObject(int index) const {
    TObject* object = FList.GetItemObject(index);
    const auto* marked = dynamic_cast<TMarkedItem*>(object);
    return marked ? marked->Object : object;
}

void TControlStrings::PutObject(int index, TObject* object) {
    if (auto* marked = dynamic_cast<TMarkedItem*>(FList.GetItemObject(index)))
        marked->Object = object;
    else
        FList.PutObject(index, object);
}

int TControlStrings::GetMark(int index) const {
    const auto* marked = dynamic_cast<TMarkedItem*>(FList.GetItemObject(index));
    return marked ? marked->Mark : 0;
}

void TControlStrings::SetMark(int index, int mark) {
    TObject* object = FList.GetItemObject(index);
    if (auto* marked = dynamic_cast<TMarkedItem*>(object))
        marked->Mark = mark;
    else if (mark != 0)
        FList.PutObject(index, new TMarkedItem(object, mark));
}

void TControlStrings::DropMark(int index) {
    if (auto* marked = dynamic_cast<TMarkedItem*>(FList.GetItemObject(index))) {
        FList.PutObject(index, marked->Object);
        delete marked;
    }
}

void TControlStrings::Exchange(int first, int second) {
    TStrings::Exchange(first, second);
    const int mark = GetMark(first); // marks kept their places so far, as they do when a text is replaced
    SetMark(first, GetMark(second));
    SetMark(second, mark);
}

void TControlStrings::Move(int from, int to) {
    CheckIndex(from);
    const int mark = GetMark(from);
    TStrings::Move(from, to);
    SetMark(to, mark);
}

void TControlStrings::Put(int index, const String& text) {
    CheckIndex(index);
    if (FList.Get(index) == text)
        return;
    const TItemState state = StateOf(index);
    TObject* object = GetItemObject(index);
    const int mark = GetMark(index);
    WithinUpdate(*this, [&] {
        Delete(index);
        const int place = FList.GetSorted() ? AddObject(text, object) : index;
        if (!FList.GetSorted())
            InsertObject(index, text, object);
        SetMark(place, mark);
        SetStateOf(place, state);
    });
}

int TControlStrings::AddObject(const String& text, TObject* object) {
    const int index = FList.AddObject(text, object);
    Inserted(index, text);
    return index;
}

void TControlStrings::Insert(int index, const String& text) {
    InsertObject(index, text, nullptr);
}

void TControlStrings::InsertObject(int index, const String& text, TObject* object) {
    FList.InsertObject(index, text, object);
    Inserted(index, text);
}

void TControlStrings::Delete(int index) {
    CheckIndex(index);
    DropMark(index);
    FList.Delete(index);
    Deleted(index);
}

void TControlStrings::Clear() {
    if (FList.GetCount() == 0)
        return;
    for (int i = 0; i < FList.GetCount(); ++i)
        DropMark(i);
    FList.Clear();
    Cleared();
}

void TControlStrings::SetSorted(bool value) {
    FList.SetSorted(value);
    if (value)
        Replaced();
}

} // namespace framework
