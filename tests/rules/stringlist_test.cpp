// Lists of texts: order, objects, text forms of a whole list, announcements, and the same for a list that offers only
// what TStrings demands.

#include "framework/system/exceptions.h"
#include "framework/system/stringlist.h"
#include "framework/system/strings.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <random>

using namespace framework;
using namespace std::string_literals;

namespace {

// As a control's list: the least that TStrings demands.
class TBareStrings : public TStrings {
public:
    String Get(int index) const override {
        CheckIndex(index);
        return FLines[static_cast<std::size_t>(index)];
    }
    int GetCount() const override { return static_cast<int>(FLines.size()); }
    void Insert(int index, const String& text) override { FLines.insert(FLines.begin() + index, text); }
    void Delete(int index) override {
        CheckIndex(index);
        FLines.erase(FLines.begin() + index);
    }
    void Clear() override { FLines.clear(); }

private:
    std::vector<String> FLines;
};

class TCounted : public TObject {
public:
    explicit TCounted(int& count) : FCount(count) { ++FCount; }
    ~TCounted() override { --FCount; }

private:
    int& FCount;
};

std::string Lines(const TStrings& strings) {
    std::string text;
    for (const String& line : strings.GetLines())
        text += Utf8Encode(line) + "|";
    return text;
}

void Fill(TStrings& strings, std::initializer_list<const char16_t*> lines) {
    for (const char16_t* line : lines)
        strings.Add(line);
}

std::string Problem(const std::function<void()>& action) {
    try {
        action();
    } catch (const Exception& error) {
        return error.what();
    }
    return "none";
}

template <class T>
class EveryList : public testing::Test {};
using TLists = testing::Types<TStringList, TBareStrings>;
TYPED_TEST_SUITE(EveryList, TLists);

TYPED_TEST(EveryList, PutsLinesWhereTheyAreAskedFor) {
    TypeParam list;
    Fill(list, {u"b", u"d"});
    list.Insert(0, u"a");
    list.Insert(2, u"c");
    EXPECT_EQ(Lines(list), "a|b|c|d|");
    list.Move(0, 3);
    EXPECT_EQ(Lines(list), "b|c|d|a|");
    list.Move(3, 1);
    EXPECT_EQ(Lines(list), "b|a|c|d|");
    list.Exchange(0, 3);
    EXPECT_EQ(Lines(list), "d|a|c|b|");
    list.Put(1, u"A");
    list.Delete(2);
    EXPECT_EQ(Lines(list), "d|A|b|");
    EXPECT_EQ(list.IndexOf(u"a"), 1);
    EXPECT_EQ(list.IndexOf(u"z"), -1);
    list.AddStrings(list);
    EXPECT_EQ(Lines(list), "d|A|b|d|A|b|");
    EXPECT_EQ(Problem([&] { list.Get(6); }), "List index out of bounds (6)");
    EXPECT_EQ(Problem([&] { list.Delete(-1); }), "List index out of bounds (-1)");
    EXPECT_EQ(Problem([&] { list.Exchange(0, 6); }), "List index out of bounds (6)");
}

TYPED_TEST(EveryList, FindsNamesAndValues) {
    TypeParam list;
    Fill(list, {u"no name", u"Width=10", u"=nameless", u"Height=a=b"});
    EXPECT_EQ(list.GetItemName(0), u"");
    EXPECT_EQ(list.GetValue(u"width"), u"10");
    EXPECT_EQ(list.GetValue(u"Height"), u"a=b");
    EXPECT_EQ(list.GetValue(u"no name"), u"");
    list.SetValue(u"WIDTH", u"20");
    list.SetValue(u"Depth", u"5");
    list.SetValue(u"Height", u"");
    list.SetValue(u"Nothing", u"");
    EXPECT_EQ(Lines(list), "no name|WIDTH=20|=nameless|Depth=5|");
    list.SetValueFromIndex(3, u"6");
    list.SetValueFromIndex(-1, u"added");
    EXPECT_EQ(list.GetValueFromIndex(3), u"6");
    EXPECT_EQ(Lines(list), "no name|WIDTH=20|=nameless|Depth=6|=added|");
}

TYPED_TEST(EveryList, CutsTextsAtAllLineEnds) {
    TypeParam list;
    list.SetTextStr(u"one\r\ntwo\nthree\rfour\r\n\r\n");
    EXPECT_EQ(Lines(list), "one|two|three|four||");
    EXPECT_EQ(list.GetTextStr(), u"one\r\ntwo\r\nthree\r\nfour\r\n\r\n");
    list.SetTextStr(u"");
    EXPECT_EQ(list.GetCount(), 0);
    EXPECT_EQ(list.GetTextStr(), u"");
}

struct TDelimitedCase {
    const char* Name;
    const char16_t* Text;
    const char* Lines;
    const char16_t* Written;
};

constexpr TDelimitedCase CommaCases[] = {
    {"empty", u"", "", u""},
    {"one empty item", u"\"\"", "|", u"\"\""},
    {"plain", u"a,b,c", "a|b|c|", u"a,b,c"},
    {"blanks separate too", u" a  b , c ", "a|b|c|", u"a,b,c"},
    {"empty items", u"a,,b,", "a||b||", u"a,,b,"},
    {"only a comma", u",", "||", u","},
    {"quoted", u"\"a b\",\"c,d\",\"e\"\"f\"", "a b|c,d|e\"f|", u"\"a b\",\"c,d\",\"e\"\"f\""},
    {"apostrophes are letters", u"'a',b", "'a'|b|", u"'a',b"},
    {"open quote", u"\"a b", "a b|", u"\"a b\""},
};

TYPED_TEST(EveryList, ReadsAndWritesCommaText) {
    for (const TDelimitedCase& each : CommaCases) {
        TypeParam list;
        list.Delimiter = u';';
        list.StrictDelimiter = true;
        list.SetCommaText(each.Text);
        EXPECT_EQ(Lines(list), each.Lines) << each.Name;
        EXPECT_EQ(Utf8Encode(list.GetCommaText()), Utf8Encode(each.Written)) << each.Name;
        EXPECT_EQ(list.Delimiter, u';') << each.Name;
    }
}

TYPED_TEST(EveryList, ReadsDelimitedTextByItsOwnRules) {
    TypeParam list;
    list.Delimiter = u';';
    list.QuoteChar = u'\'';
    list.StrictDelimiter = true;
    list.SetDelimitedText(u"a b; c;'d;e'");
    EXPECT_EQ(Lines(list), "a b| c|d;e|");
    EXPECT_EQ(list.GetDelimitedText(), u"a b; c;'d;e'");
    list.StrictDelimiter = false;
    EXPECT_EQ(list.GetDelimitedText(), u"'a b';' c';'d;e'");
    list.QuoteChar = u'\0'; // quotes nothing
    EXPECT_EQ(list.GetDelimitedText(), u"a b; c;d;e");
}

TYPED_TEST(EveryList, IsAssignedFromAnyOther) {
    TStringList source;
    Fill(source, {u"x", u"y"});
    source.NameValueSeparator = u':';
    TypeParam list;
    Fill(list, {u"old"});
    list.Assign(&source);
    EXPECT_TRUE(list.Equals(source));
    EXPECT_EQ(list.NameValueSeparator, u':');
    list.Assign(&list);
    EXPECT_EQ(Lines(list), "x|y|");
    list.Put(1, u"Y");
    EXPECT_FALSE(list.Equals(source));
    EXPECT_NE(Problem([&] { list.Assign(nullptr); }), "none");
}

TEST(StringList, KeepsItselfSorted) {
    TStringList list;
    Fill(list, {u"pear", u"Apple", u"fig", u"apple"});
    list.SetSorted(true);
    EXPECT_EQ(Lines(list), "Apple|apple|fig|pear|");
    EXPECT_EQ(list.Add(u"FIG"), 2);
    EXPECT_EQ(list.GetCount(), 4);
    list.Duplicates = dupAccept;
    EXPECT_EQ(list.Add(u"FIG"), 2);
    EXPECT_EQ(list.Add(u"banana"), 2);
    EXPECT_EQ(Lines(list), "Apple|apple|banana|FIG|fig|pear|");
    int place = -1;
    EXPECT_TRUE(list.Find(u"fig", place));
    EXPECT_EQ(place, 3);
    EXPECT_FALSE(list.Find(u"zebra", place));
    EXPECT_EQ(place, 6);

    list.Duplicates = dupError;
    EXPECT_EQ(Problem([&] { list.Add(u"pear"); }), "String list does not allow duplicates");
    for (const auto& action :
         std::initializer_list<std::function<void()>>{[&] { list.Insert(0, u"a"); }, [&] { list.Put(0, u"a"); },
                                                      [&] { list.Exchange(0, 1); }, [&] { list.Move(0, 1); }})
        EXPECT_EQ(Problem(action), "Operation not allowed on sorted list");
    EXPECT_EQ(Lines(list), "Apple|apple|banana|FIG|fig|pear|");
    EXPECT_EQ(Problem([&] { list.SetLines({u"x", u"X"}); }), "String list does not allow duplicates");
    TStringList known;
    Fill(known, {u"new", u"PEAR"});
    EXPECT_EQ(Problem([&] { list.AddStrings(known); }), "String list does not allow duplicates");
    EXPECT_EQ(Lines(list), "Apple|apple|banana|FIG|fig|pear|") << "all or none";

    // Many at once take the same places as one by one.
    for (const TDuplicates duplicates : {dupIgnore, dupAccept}) {
        TStringList more;
        TStringList single;
        Fill(more, {u"kiwi", u"PEAR", u"aa", u"Kiwi"});
        single.SetSorted(true);
        single.Duplicates = duplicates;
        TStringList all;
        all.Duplicates = duplicates;
        all.SetSorted(true);
        all.SetLines(more.GetLines());
        all.AddStrings(more);
        for (int i = 0; i < 2 * more.GetCount(); ++i)
            single.Add(more.Get(i % more.GetCount()));
        EXPECT_TRUE(std::ranges::equal(all.GetLines(), single.GetLines(),
                                       [](const String& left, const String& right) { return SameText(left, right); }))
            << Lines(all) << " " << Lines(single);
    }

    list.SetCaseSensitive(true);
    EXPECT_EQ(Lines(list), "Apple|FIG|apple|banana|fig|pear|");
    EXPECT_EQ(list.IndexOf(u"APPLE"), -1);
}

TEST(StringList, SortsOnceByAnyComparison) {
    TStringList list;
    Fill(list, {u"ccc", u"a", u"dd", u"bb"});
    list.CustomSort([](const TStringList& lines, int first, int second) {
        return static_cast<int>(lines.Get(first).size()) - static_cast<int>(lines.Get(second).size());
    });
    EXPECT_EQ(Lines(list), "a|dd|bb|ccc|");
    list.CustomSort([](const TStringList&, int, int) { return -1; }); // no order at all
    EXPECT_EQ(list.GetCount(), 4);
    list.Sort();
    EXPECT_EQ(Lines(list), "a|bb|ccc|dd|");
}

TEST(StringList, FreesItsObjectsWithTheirLines) {
    int alive = 0;
    {
        TStringList list;
        list.OwnsObjects = true;
        for (int i = 0; i < 5; ++i)
            list.AddObject(u"line", new TCounted(alive));
        list.Move(0, 4);
        list.Exchange(1, 2);
        list.Put(3, u"text");
        EXPECT_EQ(alive, 5);
        list.Delete(2);
        EXPECT_EQ(alive, 4);
        EXPECT_NE(list.GetItemObject(2), nullptr);
        EXPECT_EQ(list.IndexOfObject(list.GetItemObject(2)), 2);
    }
    EXPECT_EQ(alive, 0);
}

TEST(StringList, KeepsItsTextsThroughAnyChanges) {
    const unsigned randomSeed = std::random_device()();
    SCOPED_TRACE("randomSeed " + std::to_string(randomSeed));
    std::mt19937 random(randomSeed);
    const auto upTo = [&](std::size_t count) { return static_cast<int>(random() % count); };
    TStringList list;
    std::vector<String> expected;
    for (int step = 0; step < 4000; ++step) {
        const String text(random() % 60, static_cast<char16_t>(u'a' + upTo(26)));
        const int kind = upTo(100);
        if (kind == 0) {
            list.Clear();
            expected.clear();
        } else if (kind < 50 || expected.size() < 3) {
            const int place = upTo(expected.size() + 1);
            list.Insert(place, text);
            expected.insert(expected.begin() + place, text);
        } else if (const int place = upTo(expected.size()); kind < 75) {
            list.Put(place, text);
            expected[static_cast<std::size_t>(place)] = text;
        } else if (kind < 95) {
            list.Delete(place);
            expected.erase(expected.begin() + place);
        } else {
            list.Move(place, 0);
            std::rotate(expected.begin(), expected.begin() + place, expected.begin() + place + 1);
        }
        ASSERT_EQ(list.GetLines(), expected) << step;
    }
}

TEST(StringList, AnnouncesEachChangeOnce) {
    TStringList list;
    std::string log;
    list.OnChanging = [&](TObject*) { log += "<"; };
    list.OnChange = [&](TObject*) { log += Lines(list) + ">"; };
    list.Add(u"a");
    list.Put(0, u"b");
    EXPECT_EQ(log, "<a|><b|>");
    log.clear();
    list.SetTextStr(u"x\ny");
    EXPECT_EQ(log, "<x|y|>");
    log.clear();
    list.BeginUpdate();
    list.Add(u"z");
    list.Clear();
    list.Add(u"end");
    list.EndUpdate();
    EXPECT_EQ(log, "<end|>");
    log.clear();
    EXPECT_EQ(Problem([&] { list.Delete(1); }), "List index out of bounds (1)");
    EXPECT_EQ(log, "");

    // A handler that raises leaves the list usable, and the next change is announced again.
    list.OnChange = [](TObject*) { throw EConvertError(u"no"); };
    EXPECT_EQ(Problem([&] { list.SetTextStr(u"1"); }), "no");
    list.OnChange = [&](TObject*) { log += "!"; };
    list.Add(u"2");
    EXPECT_EQ(log, "<<!");

    auto* doomed = new TStringList;
    doomed->OnChange = [](TObject* sender) { delete sender; };
    doomed->Add(u"last");
}

} // namespace
