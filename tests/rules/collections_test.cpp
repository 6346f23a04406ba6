// Collections: places, numbers and paths of items, announcements, and items that die or move in a handler.

#include "framework/system/collections.h"
#include "framework/system/components.h"
#include "framework/system/exceptions.h"
#include "framework/system/strings.h"
#include "framework/system/updates.h"

#include <gtest/gtest.h>

using namespace framework;

namespace {

int livingItems = 0;

class TColumn : public TCollectionItem {
    FRAMEWORK_CLASS(TColumn)

public:
    explicit TColumn(TCollection* collection) : TCollectionItem(collection) { ++livingItems; }
    ~TColumn() override { --livingItems; }

    void SetWidth(int value) {
        FWidth = value;
        Changed(false);
    }
    int GetWidth() const { return FWidth; }
    void Assign(TPersistent* source) override {
        if (const auto* column = As<TColumn>(source))
            SetWidth(column->FWidth);
        else
            TCollectionItem::Assign(source);
    }

private:
    int FWidth = 64;
};

const TClassInfo& TColumn::StaticClass() {
    static const TClassInfo info = DescribeClass<TColumn>(
        u"TColumn", TCollectionItem::StaticClass(), {Property<&TColumn::GetWidth, &TColumn::SetWidth>(u"Width", 64)});
    return info;
}

class TColumns : public TOwnedCollection {
    FRAMEWORK_CLASS(TColumns)

public:
    explicit TColumns(TPersistent* owner) : TOwnedCollection(owner, ItemsOf<TColumn>()) {}

    std::string Log;
    std::function<void(TCollectionItem*, TCollectionNotification)> OnNotify;

protected:
    void Update(TCollectionItem* item) override { Log += item ? "u" + std::to_string(item->GetIndex()) + " " : "u "; }
    void Notify(TCollectionItem* item, TCollectionNotification action) override {
        Log += "+x-"[action];
        Log += std::to_string(As<TColumn>(item)->GetID()) + " ";
        if (OnNotify)
            OnNotify(item, action);
    }
};

const TClassInfo& TColumns::StaticClass() {
    static const TClassInfo info = DescribeClass<TColumns>(u"TColumns", TOwnedCollection::StaticClass());
    return info;
}

class TGrid : public TComponent {
    FRAMEWORK_CLASS(TGrid)

public:
    explicit TGrid(TComponent* owner) : TComponent(owner), FColumns(std::make_unique<TColumns>(this)) {}
    TColumns& Columns() { return *FColumns; }

private:
    std::unique_ptr<TColumns> FColumns;
};

const TClassInfo& TGrid::StaticClass() {
    static const TClassInfo info =
        DescribeClass<TGrid>(u"TGrid", TComponent::StaticClass(), {Property<&TGrid::FColumns>(u"Columns")});
    return info;
}

std::string Ids(const TCollection& collection) {
    std::string text;
    for (int i = 0; i < collection.GetCount(); ++i) {
        text += std::to_string(collection.GetItem(i)->GetID());
        EXPECT_EQ(collection.GetItem(i)->GetIndex(), i);
    }
    return text;
}

TEST(Collections, KeepItemsInOrderUnderNumbersOfTheirOwn) {
    TGrid grid(nullptr);
    TColumns& columns = grid.Columns();
    for (int i = 0; i < 4; ++i)
        columns.Add();
    columns.Insert(1);
    EXPECT_EQ(Ids(columns), "04123");
    columns.GetItem(0)->SetIndex(4);
    EXPECT_EQ(Ids(columns), "41230");
    columns.GetItem(3)->SetIndex(1);
    EXPECT_EQ(Ids(columns), "43120");
    columns.Delete(1);
    EXPECT_EQ(Ids(columns), "4120");
    delete columns.GetItem(0);
    columns.Add();
    EXPECT_EQ(Ids(columns), "1205");
    EXPECT_EQ(columns.FindItemID(5), columns.GetItem(3));
    EXPECT_EQ(columns.FindItemID(3), nullptr);
    EXPECT_THROW(columns.GetItem(4), EListError);
    EXPECT_THROW(columns.Insert(5), EListError);
    EXPECT_THROW(columns.GetItem(0)->SetIndex(-1), EListError);
    EXPECT_EQ(livingItems, 4);
}

TEST(Collections, NameTheirItemsByTheirPlace) {
    TGrid grid(nullptr);
    grid.SetName(u"Prices");
    grid.Columns().Add();
    EXPECT_EQ(grid.Columns().Add()->GetNamePath(), u"Prices.Columns[1]");
    EXPECT_EQ(grid.Columns().GetItem(1)->GetDisplayName(), u"TColumn");
    TColumn loose(nullptr);
    EXPECT_EQ(loose.GetNamePath(), u"TColumn");
}

TEST(Collections, AnnounceWhatHappens) {
    TGrid grid(nullptr);
    TColumns& columns = grid.Columns();
    columns.Add();
    columns.Add();
    As<TColumn>(columns.GetItem(1))->SetWidth(10);
    columns.GetItem(1)->SetIndex(0);
    columns.Delete(0);
    EXPECT_EQ(columns.Log, "+0 u +1 u u1 u -1 u ");
    columns.Log.clear();
    WithinUpdate(columns, [&] {
        columns.Add();
        columns.Delete(0);
    });
    EXPECT_EQ(columns.Log, "+2 -0 u ");
    columns.Log.clear();

    TGrid other(nullptr);
    TColumns& others = other.Columns();
    columns.GetItem(0)->SetCollection(&others);
    EXPECT_EQ(columns.Log, "x2 u ");
    EXPECT_EQ(others.Log, "+0 u ");
    EXPECT_EQ(columns.GetCount(), 0);
    EXPECT_EQ(others.GetItem(0)->GetOwner(), &others);

    const std::unique_ptr<TCollectionItem> taken(others.GetItem(0));
    taken->SetCollection(nullptr);
    EXPECT_EQ(taken->GetIndex(), -1);
    TOwnedCollection bare(nullptr, ItemsOf<TCollectionItem>());
    const std::unique_ptr<TCollectionItem> plain(bare.Add());
    EXPECT_THROW(plain->SetCollection(&columns), EListError);
}

TEST(Collections, SurviveHandlersThatTakeItemsAway) {
    TGrid grid(nullptr);
    TColumns& columns = grid.Columns();
    columns.OnNotify = [&](TCollectionItem* item, TCollectionNotification action) {
        if (action == cnAdded && item->GetID() == 1)
            delete item;
        if (action == cnDeleting && item->GetID() == 2)
            columns.OnNotify = nullptr, columns.Clear();
    };
    EXPECT_NE(columns.Add(), nullptr);
    EXPECT_EQ(columns.Add(), nullptr);
    EXPECT_NE(columns.Add(), nullptr);
    columns.Clear();
    EXPECT_EQ(columns.GetCount(), 0);
    EXPECT_EQ(livingItems, 0);
}

TEST(Collections, AreAssignedItemByItem) {
    TGrid grid(nullptr);
    TGrid copy(nullptr);
    for (const int width : {10, 20, 30})
        As<TColumn>(grid.Columns().Add())->SetWidth(width);
    copy.Columns().Add();
    copy.Columns().Log.clear();
    copy.Columns().Assign(&grid.Columns());
    EXPECT_EQ(copy.Columns().GetCount(), 3);
    EXPECT_EQ(As<TColumn>(copy.Columns().GetItem(2))->GetWidth(), 30);
    EXPECT_EQ(copy.Columns().Log, "-0 +1 +2 +3 u ");
    grid.Columns().Assign(&grid.Columns());
    EXPECT_EQ(grid.Columns().GetCount(), 3);
    EXPECT_THROW(grid.Columns().Assign(&grid), EConvertError);
}

} // namespace
