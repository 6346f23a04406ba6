#pragma once

// The items of controls that show a list of texts: kept here, sorted or not, while the window shows a copy.

#include "framework/system/stringlist.h"

#include <unordered_set>

namespace framework {

/// Keeps texts and objects in memory and tells the control of every change, so that its window can follow.
class TControlStrings : public TStrings {
public:
    TControlStrings() { FList.Duplicates = dupAccept; }
    ~TControlStrings() override;

    String Get(int index) const override { return FList.Get(index); }
    int GetCount() const override { return FList.GetCount(); }
    TObject* GetItemObject(int index) const override;
    void PutObject(int index, TObject* object) override;
    int IndexOf(StringView text) const override { return FList.IndexOf(text); }

    void Put(int index, const String& text) override;
    int AddObject(const String& text, TObject* object) override;
    void Insert(int index, const String& text) override;
    void InsertObject(int index, const String& text, TObject* object) override;
    void Delete(int index) override;
    void Clear() override;
    /// EListError when the items are sorted, as with Move.
    void Exchange(int first, int second) override;
    void Move(int from, int to) override;

    /// What a control notes for an item beside its text and object, 0 at first, such as the state of its box. It goes
    /// with the item wherever that moves.
    int GetMark(int index) const;
    void SetMark(int index, int mark);
    /// Another number after every change of the texts, so that what was made of them can be made anew.
    unsigned GetVersion() const { return FVersion; }

    bool GetSorted() const { return FList.GetSorted(); }
    /// Sorts by the user's alphabet. The current item stays current; what else is selected does not survive it.
    void SetSorted(bool value);

protected:
    /// What an item is to the control, so that a text put in its place becomes the same.
    struct TItemState {
        bool Current = false;
        bool Selected = false;
    };

    virtual void Inserted(int index, const String& text) = 0;
    virtual void Deleted(int index) = 0;
    virtual void Cleared() = 0;
    /// All items are others, or in another order.
    virtual void Replaced() = 0;
    virtual TItemState StateOf(int index) const = 0;
    virtual void SetStateOf(int index, TItemState state) = 0;

private:
    class TMarkedItem;

    void CheckUnsorted() const;
    TMarkedItem* MarkedItem(int index) const;
    void DropMark(int index);

    TStringList FList; // the object of a marked item is a TMarkedItem, which holds its own one
    // Objects are told apart by address alone: programs keep plain numbers in their place.
    std::unordered_set<const TObject*> FMarked;
    unsigned FVersion = 0;
};

/// The items of one control, whose window shows a copy or asks for what it shows. The control offers GetItemIndex and
/// SetItemIndex, and hears of changes through ItemInserted(index, text), ItemDeleted(index), ItemsCleared(),
/// ItemsReplaced() and ShowItems(whether they are to be shown again after many changes).
template <class TOwner>
class TItemStrings : public TControlStrings {
public:
    explicit TItemStrings(TOwner& owner) : FOwner(owner) {}

    TPersistent* GetOwner() const override { return &FOwner; }

protected:
    void SetUpdateState(bool updating) override { FOwner.ShowItems(!updating); }
    void Inserted(int index, const String& text) override { FOwner.ItemInserted(index, text); }
    void Deleted(int index) override { FOwner.ItemDeleted(index); }
    void Cleared() override { FOwner.ItemsCleared(); }
    void Replaced() override { FOwner.ItemsReplaced(); }
    TItemState StateOf(int index) const override { return {FOwner.GetItemIndex() == index, false}; }
    void SetStateOf(int index, TItemState state) override {
        if (state.Current)
            FOwner.SetItemIndex(index);
    }
    TOwner& Owner() const { return FOwner; }

private:
    TOwner& FOwner;
};

} // namespace framework
