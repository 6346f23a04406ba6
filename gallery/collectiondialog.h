#pragma once

// The items of a collection in a window of its own: the list of them, and what the chosen one publishes. Changes are
// made at once, so that the form behind shows them. Ins adds an item, Del deletes one, Ctrl+Up and Ctrl+Down move it;
// Esc closes.

#include "framework/system/collections.h"
#include "framework/windows/forms.h"
#include "framework/windows/listbox.h"

namespace gallery {
using namespace framework;

class TInspector;

class TCollectionDialog : public TForm {
    FRAMEWORK_CLASS(TCollectionDialog)

public:
    explicit TCollectionDialog(TComponent* owner);

    /// Lets a person change the collection; true when that was done.
    bool Edit(const String& caption, TCollection& collection);

private:
    // What the form names.
    void ItemSelect(TObject* sender);
    void ItemKeyDown(TObject* sender, WORD& key, TShiftState shift);
    void AddClick(TObject* sender);
    void DeleteClick(TObject* sender);
    void UpClick(TObject* sender);
    void DownClick(TObject* sender);
    void ItemWritten(TObject* sender);
    void ItemProblem(TObject* sender);

    /// Null when none is chosen.
    TCollectionItem* Chosen() const;
    /// Changes the collection and goes on to the item that `change` answers with the index of; tells what it raises.
    void Change(const std::function<int()>& change);
    void MoveBy(int step);
    void ShowItems(int chosen);
    void Tell(const String& problem);

    TCollection* FCollection = nullptr;
    TListBox* FList = nullptr;
    TInspector* FInspector = nullptr;
    bool FChanged = false;
};

} // namespace gallery
