#include "framework/windows/controlstrings.h"

#include "framework/system/exceptions.h"
#include "framework/system/strings.h"
#include "framework/system/updates.h"

#include <memory>

namespace framework {

/// Stands in for the object of an item that has a mark; few have.
class TControlStrings::TMarkedItem : public TObject {
public:
    TMarkedItem(TObject* object, int mark) : Object(object), Mark(mark) {}

    TObject* Object;
    int Mark;
};

TControlStrings::~TControlStrings() {
    for (int i = 0; i < FList.GetCount(); ++i)
        DropMark(i);
}

/// Null for an item without a mark.
TControlStrings::TMarkedItem* TControlStrings::MarkedItem(int index) const {
    TObject* object = FList.GetItemObject(index);
    return FMarked.contains(object) ? static_cast<TMarkedItem*>(object) : nullptr;
}

TObject* TControlStrings::GetItemObject(int index) const {
    const TMarkedItem* marked = MarkedItem(index);
    return marked ? marked->Object : FList.GetItemObject(index);
}

void TControlStrings::PutObject(int index, TObject* object) {
    if (TMarkedItem* marked = MarkedItem(index))
        marked->Object = object;
    else
        FList.PutObject(index, object);
}

int TControlStrings::GetMark(int index) const {
    const TMarkedItem* marked = MarkedItem(index);
    return marked ? marked->Mark : 0;
}

void TControlStrings::SetMark(int index, int mark) {
    if (TMarkedItem* marked = MarkedItem(index)) {
        marked->Mark = mark;
    } else if (mark != 0) {
        auto made = std::make_unique<TMarkedItem>(FList.GetItemObject(index), mark);
        FMarked.insert(made.get());
        FList.PutObject(index, made.release());
    }
}

void TControlStrings::DropMark(int index) {
    const std::unique_ptr<TMarkedItem> marked(MarkedItem(index));
    if (!marked)
        return;
    FList.PutObject(index, marked->Object);
    FMarked.erase(marked.get());
}

/// Where an item stands in a sorted list is not up to the program.
void TControlStrings::CheckUnsorted() const {
    if (FList.GetSorted())
        throw EListError(u"Operation not allowed on sorted list");
}

void TControlStrings::Exchange(int first, int second) {
    CheckUnsorted();
    CheckIndex(first);
    CheckIndex(second);
    const bool firstIsCurrent = StateOf(first).Current;
    const bool secondIsCurrent = StateOf(second).Current;
    TStrings::Exchange(first, second);
    const int mark = GetMark(first); // marks kept their places so far, as they do when a text is replaced
    SetMark(first, GetMark(second));
    SetMark(second, mark);
    if (firstIsCurrent != secondIsCurrent)
        SetStateOf(firstIsCurrent ? second : first, {true, false});
}

void TControlStrings::Move(int from, int to) {
    CheckUnsorted();
    CheckIndex(from);
    const int mark = GetMark(from);
    const TItemState state = StateOf(from);
    TStrings::Move(from, to);
    SetMark(to, mark);
    SetStateOf(to, state);
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
    ++FVersion;
    Inserted(index, text);
    return index;
}

void TControlStrings::Insert(int index, const String& text) {
    InsertObject(index, text, nullptr);
}

void TControlStrings::InsertObject(int index, const String& text, TObject* object) {
    FList.InsertObject(index, text, object);
    ++FVersion;
    Inserted(index, text);
}

void TControlStrings::Delete(int index) {
    CheckIndex(index);
    DropMark(index);
    FList.Delete(index);
    ++FVersion;
    Deleted(index);
}

void TControlStrings::Clear() {
    if (FList.GetCount() == 0)
        return;
    for (int i = 0; i < FList.GetCount(); ++i)
        DropMark(i);
    FList.Clear();
    ++FVersion;
    Cleared();
}

void TControlStrings::SetSorted(bool value) {
    // Without an order to change nothing is replaced: a form that is loading names its item before it has any.
    if (!value || FList.GetCount() < 2) {
        FList.SetSorted(value);
        return;
    }
    // The current item stays the current one. Sorting keeps the order of those that read alike, so the item is found
    // again by how many of them stand before it.
    int current = 0;
    while (current < GetCount() && !StateOf(current).Current)
        ++current;
    const TItemState state = current < GetCount() ? StateOf(current) : TItemState();
    const String text = state.Current ? Get(current) : String();
    int before = 0;
    for (int i = 0; state.Current && i < current; ++i)
        before += AnsiSameText(Get(i), text) ? 1 : 0;
    FList.SetSorted(true);
    ++FVersion;
    Replaced();
    if (const int place = IndexOf(text) + before; state.Current && !StateOf(place).Current)
        SetStateOf(place, {true, false});
}

} // namespace framework
