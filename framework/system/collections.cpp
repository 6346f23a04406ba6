#include "framework/system/collections.h"

#include "framework/system/exceptions.h"
#include "framework/system/numbers.h"
#include "framework/system/updates.h"

#include <algorithm>

namespace framework {

namespace {

void CheckRange(int index, int count) {
    if (index < 0 || index >= count)
        throw EListError(u"List index out of bounds (" + IntToStr(index) + u")");
}

} // namespace

const TClassInfo& TCollectionItem::StaticClass() {
    static const TClassInfo info = DescribeClass<TCollectionItem>(u"TCollectionItem", TPersistent::StaticClass());
    return info;
}

TCollectionItem::TCollectionItem(TCollection* collection) {
    if (collection)
        collection->InsertItem(this);
}

TCollectionItem::~TCollectionItem() {
    if (!FCollection)
        return;
    TCollection* collection = FCollection;
    collection->RemoveItem(this);
    collection->Changed();
}

void TCollectionItem::SetCollection(TCollection* value) {
    if (value == FCollection)
        return;
    if (value && !InheritsFrom(value->ItemClass()))
        throw EListError(u"A " + ClassName() + u" cannot join a collection of " + value->ItemClass().Name());
    if (TCollection* old = FCollection) {
        old->Notify(this, cnExtracting);
        old->RemoveItem(this);
        old->Changed();
    }
    if (value) {
        value->InsertItem(this);
        value->Notify(this, cnAdded);
        value->Changed();
    }
}

int TCollectionItem::GetIndex() const {
    return FCollection ? FCollection->IndexOf(this) : -1;
}

void TCollectionItem::SetIndex(int value) {
    if (!FCollection)
        return;
    const int current = GetIndex();
    CheckRange(value, FCollection->GetCount());
    if (value != current)
        FCollection->MoveItem(current, value);
}

void TCollectionItem::SetDisplayName(const String&) {
    Changed(false);
}

TPersistent* TCollectionItem::GetOwner() const {
    return FCollection;
}

String TCollectionItem::GetNamePath() const {
    return FCollection ? FCollection->GetNamePath() + u"[" + IntToStr(GetIndex()) + u"]" : ClassName();
}

std::weak_ptr<const void> TCollectionItem::LifeToken() {
    if (!FLife)
        FLife = std::make_shared<char>();
    return FLife;
}

void TCollectionItem::Changed(bool allItems) {
    if (FCollection)
        FCollection->Changed(allItems ? nullptr : this);
}

const TClassInfo& TCollection::StaticClass() {
    static const TClassInfo info = DescribeClass<TCollection>(u"TCollection", TPersistent::StaticClass());
    return info;
}

const TClassInfo& TOwnedCollection::StaticClass() {
    static const TClassInfo info = DescribeClass<TOwnedCollection>(u"TOwnedCollection", TCollection::StaticClass());
    return info;
}

TCollection::TCollection(TCollectionItemClass itemClass) : FItemClass(itemClass) {
}

TCollection::~TCollection() {
    ++FUpdateCount; // nobody is left to hear of it
    while (!FItems.empty())
        delete FItems.back();
}

TCollectionItem* TCollection::GetItem(int index) const {
    CheckRange(index, GetCount());
    return FItems[static_cast<std::size_t>(index)];
}

void TCollection::SetItem(int index, TCollectionItem* value) {
    GetItem(index)->Assign(value);
}

int TCollection::IndexOf(const TCollectionItem* item) const {
    const auto found = std::ranges::find(FItems, item);
    return found == FItems.end() ? -1 : static_cast<int>(found - FItems.begin());
}

TCollectionItem* TCollection::Add() {
    return AddAt(GetCount());
}

TCollectionItem* TCollection::Insert(int index) {
    CheckRange(index, GetCount() + 1);
    return AddAt(index);
}

TCollectionItem* TCollection::AddAt(int index) {
    TCollectionItem* item = FItemClass.Create(this);
    // The constructor put it at the end.
    std::rotate(FItems.begin() + index, FItems.end() - 1, FItems.end());
    const auto alive = item->LifeToken();
    Notify(item, cnAdded);
    Changed();
    return alive.expired() ? nullptr : item;
}

void TCollection::Delete(int index) {
    TCollectionItem* item = GetItem(index);
    const auto alive = item->LifeToken();
    Notify(item, cnDeleting);
    if (alive.expired())
        return;
    // The item tells nobody while it dies, so that an exception of Update finds no destructor in its way.
    ++FUpdateCount;
    delete item;
    --FUpdateCount;
    Changed();
}

void TCollection::Clear() {
    if (FItems.empty())
        return;
    WithinUpdate(*this, [this] {
        while (!FItems.empty())
            Delete(GetCount() - 1);
    });
}

TCollectionItem* TCollection::FindItemID(int id) const {
    const auto found = std::ranges::find_if(FItems, [id](const TCollectionItem* each) { return each->FID == id; });
    return found == FItems.end() ? nullptr : *found;
}

void TCollection::InsertItem(TCollectionItem* item) {
    FItems.push_back(item);
    item->FCollection = this;
    item->FID = FNextID++;
}

void TCollection::RemoveItem(TCollectionItem* item) {
    // Clear and the destructor take items from the end.
    const auto found = std::find(FItems.rbegin(), FItems.rend(), item);
    if (found != FItems.rend())
        FItems.erase(std::next(found).base());
    item->FCollection = nullptr;
}

void TCollection::MoveItem(int from, int to) {
    const auto begin = FItems.begin();
    if (from < to)
        std::rotate(begin + from, begin + from + 1, begin + to + 1);
    else
        std::rotate(begin + to, begin + from, begin + from + 1);
    Changed();
}

void TCollection::EndUpdate() {
    if (FUpdateCount > 0)
        --FUpdateCount;
    Changed();
}

void TCollection::Changed(TCollectionItem* item) {
    if (FUpdateCount == 0)
        Update(item);
}

void TCollection::Update(TCollectionItem*) {
}

void TCollection::Notify(TCollectionItem*, TCollectionNotification) {
}

void TCollection::Assign(TPersistent* source) {
    const auto* collection = As<TCollection>(source);
    if (!collection) {
        TPersistent::Assign(source);
        return;
    }
    if (collection == this)
        return;
    WithinUpdate(*this, [&] {
        Clear();
        for (TCollectionItem* item : collection->FItems) {
            if (TCollectionItem* copy = Add())
                copy->Assign(item);
        }
    });
}

String TCollection::GetNamePath() const {
    const TPersistent* owner = GetOwner();
    if (!owner)
        return ClassName();
    for (const TPropInfo& property : owner->ClassInfo().Properties()) {
        if (property.Kind == tkClass && property.GetInstance(*owner) == this)
            return owner->GetNamePath() + u"." + property.Name;
    }
    return owner->GetNamePath() + u"." + ClassName();
}

} // namespace framework
