#include "framework/windows/controlstrings.h"

#include "framework/system/updates.h"

namespace framework {

void TControlStrings::Put(int index, const String& text) {
    CheckIndex(index);
    if (FList.Get(index) == text)
        return;
    const TItemState state = StateOf(index);
    TObject* object = FList.GetItemObject(index);
    WithinUpdate(*this, [&] {
        Delete(index);
        const int place = FList.GetSorted() ? AddObject(text, object) : index;
        if (!FList.GetSorted())
            InsertObject(index, text, object);
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
    FList.Delete(index);
    Deleted(index);
}

void TControlStrings::Clear() {
    if (FList.GetCount() == 0)
        return;
    FList.Clear();
    Cleared();
}

void TControlStrings::SetSorted(bool value) {
    FList.SetSorted(value);
    if (value)
        Replaced();
}

} // namespace framework
