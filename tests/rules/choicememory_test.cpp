// What a choice field remembers while items come, go and move under it.

#include "lists/Choicememory_rules.h"

#include <gtest/gtest.h>

using namespace ZOR;

namespace {

TEST(ChoiceMemory, FollowsItsItemsAndTellsOnce) {
    TStringList items;
    TChoiceMemory memory;
    const auto insert = [&](int index, const char16_t* text) {
        items.Insert(index, text);
        memory.ItemInserted(index, text);
    };
    const auto remove = [&](int index) {
        items.Delete(index);
        memory.ItemDeleted(index);
    };
    for (const char16_t* name : {u"Oslo", u"Kraków", u"Brno"})
        insert(0, name);
    memory.Set({u"Brno", 0});
    memory.Begin({u"Brno", 0});
    EXPECT_FALSE(memory.ItemIsNews({u"Brno", 0})) << "set by the program";
    EXPECT_TRUE(memory.TextIsNews(u"Oslo"));
    EXPECT_TRUE(memory.ItemIsNews({u"Oslo", 2}));
    EXPECT_FALSE(memory.TextIsNews(u"Oslo"));
    memory.Begin({u"Oslo", 2});
    insert(1, u"Plzeň");
    EXPECT_FALSE(memory.ItemIsNews({u"Oslo", 3})) << "the same item in another place";
    EXPECT_FALSE(memory.ItemIsNews({u"Osl", -1}));
    insert(0, u"oslo");
    EXPECT_EQ(memory.Told().Item, 4) << "another of that name changes nothing";
    EXPECT_EQ(memory.Before()->Item, 1) << "from when the person began";
    remove(4);
    EXPECT_EQ(memory.Told().Item, -1);
    remove(0);
    EXPECT_EQ(memory.Before()->Item, 0);

    items.Clear();
    memory.ItemsCleared();
    EXPECT_EQ(memory.Before()->Item, -1);
    insert(0, u"");
    insert(1, u"OSLO");
    insert(2, u"Brno");
    insert(3, u"Brno");
    EXPECT_EQ(memory.Told().Item, 1) << "filled in anew";
    EXPECT_EQ(memory.Before()->Item, 2) << "the first of its name";
    items.Sort();
    memory.ItemsReplaced(items);
    EXPECT_EQ(memory.Told().Item, 3);
    EXPECT_EQ(memory.TakeBefore()->Item, 1);
    EXPECT_FALSE(memory.Before());
    EXPECT_TRUE(memory.TextIsNews(u"Zlín"));
    insert(4, u"Zlín");
    EXPECT_TRUE(memory.ItemIsNews({u"Zlín", 4})) << "typed, and filled in only then";
    TShownChoice lines{u"two  lines"};
    lines.ItemInserted(0, u"two\r\nlines");
    EXPECT_EQ(lines.Item, 0) << "as it shows";
}

} // namespace
