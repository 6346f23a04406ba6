#pragma once

// Collections: ordered items that belong to an object and are streamed with it, such as the columns of a grid.
//
//     class TColumn : public TCollectionItem {
//         FRAMEWORK_CLASS(TColumn)
//     public:
//         explicit TColumn(TCollection* collection) : TCollectionItem(collection) {}
//     };
//
//     FColumns(std::make_unique<TOwnedCollection>(this, ItemsOf<TColumn>()))

#include "framework/system/published.h"

#include <memory>

namespace framework {

class TCollection;

/// One item of a collection. Add and Insert of the collection make items; destroying one takes it out.
class TCollectionItem : public TPersistent {
    FRAMEWORK_CLASS(TCollectionItem)

public:
    FRAMEWORK_PROPERTY(TCollection*, Collection, GetCollection, SetCollection);
    FRAMEWORK_READ_PROPERTY(int, ID, GetID);
    FRAMEWORK_PROPERTY(int, Index, GetIndex, SetIndex);
    FRAMEWORK_PROPERTY(String, DisplayName, GetDisplayName, SetDisplayName);

    /// Joins `collection` at its end, without its Notify: what derives from this class is not built yet.
    explicit TCollectionItem(TCollection* collection);
    ~TCollectionItem() override;

    TCollection* GetCollection() const { return FCollection; }
    /// Moves the item to another collection of the same item class, or to none; then the caller owns it.
    virtual void SetCollection(TCollection* value);
    /// A number that no other item of the collection ever had.
    int GetID() const { return FID; }
    /// The 0-based place in the collection, -1 in none.
    int GetIndex() const;
    /// Moves the item; EListError when the place is not in 0..Count-1.
    virtual void SetIndex(int value);
    /// How designers list the item; the class name unless overridden.
    virtual String GetDisplayName() const { return ClassName(); }
    virtual void SetDisplayName(const String& value);

    TPersistent* GetOwner() const override;
    /// The path of the collection with the index, as in "Grid.Columns[2]".
    String GetNamePath() const override;

    /// Expires when the item dies, for those who call handlers while they work on it.
    std::weak_ptr<const void> LifeToken();

protected:
    /// Tells the collection that this item, or with true all of them, must be shown anew.
    void Changed(bool allItems);

private:
    friend class TCollection;

    TCollection* FCollection = nullptr;
    int FID = 0;
    std::shared_ptr<const void> FLife;
};

/// Makes the items of a collection, which are all of one class.
struct TCollectionItemClass {
    const TClassInfo* Class;
    TCollectionItem* (*Create)(TCollection* collection);
};

template <class TItem>
TCollectionItemClass ItemsOf() {
    return {&TItem::StaticClass(), [](TCollection* collection) -> TCollectionItem* { return new TItem(collection); }};
}

enum TCollectionNotification {
    cnAdded,      ///< the item has joined
    cnExtracting, ///< it is about to leave for another collection
    cnDeleting,   ///< it is about to be destroyed
};

class TCollection : public TPersistent {
    FRAMEWORK_CLASS(TCollection)

public:
    FRAMEWORK_READ_PROPERTY(int, Count, GetCount);
    FRAMEWORK_PROPERTY(TCollectionItem*, Items[], GetItem, SetItem);

    explicit TCollection(TCollectionItemClass itemClass);
    ~TCollection() override;

    const TClassInfo& ItemClass() const { return *FItemClass.Class; }
    int GetCount() const { return static_cast<int>(FItems.size()); }
    /// EListError "List index out of bounds (n)" when there is no such item.
    TCollectionItem* GetItem(int index) const;
    /// Assigns to the item at `index`.
    void SetItem(int index, TCollectionItem* value);

    /// A new item at the end; null in the odd case that Notify or Update destroyed it at once.
    TCollectionItem* Add();
    /// A new item before the one at `index`; an index equal to Count adds it at the end.
    TCollectionItem* Insert(int index);
    void Delete(int index);
    void Clear();
    /// The item with this ID; null when there is none.
    TCollectionItem* FindItemID(int id) const;

    /// Between the two, which can be nested, Update is not called; it follows once at the end.
    void BeginUpdate() { ++FUpdateCount; }
    void EndUpdate();

    /// Makes as many items as `source` has, each assigned from its counterpart.
    void Assign(TPersistent* source) override;
    /// The path of the owner with the name under which it publishes this collection.
    String GetNamePath() const override;

protected:
    /// Called after a change of one item, or of any number of them with null. It must not raise when an item is
    /// destroyed by other means than the collection's methods.
    virtual void Update(TCollectionItem* item);
    virtual void Notify(TCollectionItem* item, TCollectionNotification action);
    /// Calls Update, unless an update is going on.
    void Changed(TCollectionItem* item = nullptr);
    bool IsUpdating() const { return FUpdateCount > 0; }

private:
    friend class TCollectionItem;

    TCollectionItem* AddAt(int index);
    void InsertItem(TCollectionItem* item);
    void RemoveItem(TCollectionItem* item);
    void MoveItem(int from, int to);
    int IndexOf(const TCollectionItem* item) const;

    TCollectionItemClass FItemClass;
    std::vector<TCollectionItem*> FItems;
    int FUpdateCount = 0;
    int FNextID = 0;
};

/// A collection that knows to whom it belongs.
class TOwnedCollection : public TCollection {
    FRAMEWORK_CLASS(TOwnedCollection)

public:
    TOwnedCollection(TPersistent* owner, TCollectionItemClass itemClass) : TCollection(itemClass), FOwner(owner) {}
    TPersistent* GetOwner() const override { return FOwner; }

private:
    TPersistent* FOwner;
};

} // namespace framework
