// The items of a check list: phrases, counts and orders, in tables and beside plain loops at random.

#include "data/Zorvirtualstringtree_rules.h"
#include "framework/system/strings.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

using namespace ZOR;

namespace {

std::vector<String> Texts(TCheckList& list, TCheckListOrder order) {
    std::vector<String> texts;
    for (const std::uint32_t index : list.Shown(order))
        texts.push_back(list.Item(index).text);
    return texts;
}

TEST(CheckList, PhrasesFindTextsLetterCaseAside) {
    struct TCase {
        const char16_t* Text;
        const char16_t* Phrase;
        bool Found;
    };
    const TCase cases[] = {
        {u"Krak\u00F3w", u"KRA", true},
        {u"Krak\u00F3w", u"krakow", false},
        {u"Krak\u00F3w", u"\u00D3W", true},
        {u"", u"a", false},
        {u"ab", u"abc", false},
        {u"a b", u" ", true},
        {u"\U0001F600x", u"\U0001F600", true},
        {u"stra\u00DFe", u"SS", false},
        {u"stra\u00DFe", u"\u00DF", true},
        {u"Diyarbak\u0131r", u"\u0131R", true},
        {u"\u0130zmir", u"zm", true},
        {u"a.b", u".", true},
    };
    for (const TCase& each : cases) {
        TCheckList list(&PlainSortKey);
        list.Add(1, each.Text);
        EXPECT_TRUE(list.SetPhrase(each.Phrase));
        EXPECT_EQ(list.IsVisible(0), each.Found) << Utf8Encode(each.Text) << " / " << Utf8Encode(each.Phrase);
        EXPECT_FALSE(list.SetPhrase(each.Phrase)) << "the same again";
        EXPECT_TRUE(list.SetPhrase(u""));
        EXPECT_TRUE(list.IsVisible(0));
    }
}

TEST(CheckList, BoxAndCaptionTellOfTheRightItems) {
    TCheckList list(&PlainSortKey);
    EXPECT_EQ(list.HeaderState(), csUncheckedNormal);
    for (const char16_t* text : {u"Gda\u0144sk", u"Gdynia", u"\u0141\u00F3d\u017A"})
        list.Add(0, text);
    list.SetState(2, csCheckedNormal);
    EXPECT_EQ(list.HeaderState(), csMixedNormal);
    list.SetPhrase(u"gd");
    EXPECT_EQ(list.HeaderState(), csUncheckedNormal) << "only a hidden one is checked";
    EXPECT_EQ(list.SetVisibleStates(csCheckedNormal), (std::vector<std::uint32_t>{0, 1}));
    EXPECT_EQ(list.HeaderState(), csCheckedNormal);
    list.SetState(0, csMixedNormal);
    EXPECT_EQ(list.VisibleCheckedCount(), 2u) << "the third state counts as checked";
    list.SetState(0, csUncheckedPressed);
    EXPECT_EQ(list.VisibleCheckedCount(), 1u);
    EXPECT_EQ(list.Caption(u"Cities", true), u"Cities: 2/3");
    EXPECT_EQ(list.Caption(u"Cities", false), u"Cities");
    list.SetPhrase(u"");
    EXPECT_EQ(list.HeaderState(), csMixedNormal);
    list.Clear();
    EXPECT_EQ(list.HeaderState(), csUncheckedNormal);
}

TEST(CheckList, OrdersKeepEqualTextsAsTheyCame) {
    TCheckList list(&PlainSortKey);
    for (const char16_t* text : {u"b", u"A", u"a", u"c", u"B"})
        list.Add(0, text);
    list.SetState(1, csCheckedNormal);
    list.SetState(0, csCheckedNormal);
    using TTexts = std::vector<String>;
    EXPECT_EQ(Texts(list, TCheckListOrder::AsAdded), (TTexts{u"b", u"A", u"a", u"c", u"B"}));
    EXPECT_EQ(Texts(list, TCheckListOrder::ByText), (TTexts{u"A", u"a", u"b", u"B", u"c"}));
    EXPECT_EQ(Texts(list, TCheckListOrder::ByTextDescending), (TTexts{u"c", u"b", u"B", u"A", u"a"}));
    EXPECT_EQ(Texts(list, TCheckListOrder::ByCheck), (TTexts{u"a", u"B", u"c", u"A", u"b"}));
    EXPECT_EQ(Texts(list, TCheckListOrder::ByCheckDescending), (TTexts{u"b", u"A", u"c", u"B", u"a"}));
    list.Add(0, u"aa");
    EXPECT_EQ(list.Compare(5, 2, false), 1) << "a new item has its place, too";
}

TEST(CheckList, RandomPhrasesAgreeWithAPlainLoop) {
    const unsigned randomSeed = std::random_device()();
    SCOPED_TRACE(testing::Message() << "seed " << randomSeed);
    std::mt19937 random(randomSeed);
    const auto text = [&](unsigned most) {
        String result;
        for (unsigned i = random() % (most + 1); i > 0; --i)
            result += u"abAB\u0104\u0105"[random() % 6];
        return result;
    };
    TCheckList list(&PlainSortKey);
    String phrase;
    for (int step = 0; step < 3000; ++step) {
        if (random() % 3 == 0 || list.Count() == 0)
            list.Add(step, text(step % 50 == 0 ? 300 : 12));
        if (random() % 200 == 0)
            list.Clear();
        if (list.Count() > 0 && random() % 2 == 0)
            list.SetState(random() % list.Count(), random() % 2 ? csCheckedNormal : csUncheckedNormal);
        if (random() % 4 == 0) {
            list.MatchNew(); // the phrase stays
        } else {
            phrase = random() % 3 == 0 ? phrase + text(1) : text(3);
            list.SetPhrase(u"?");
            list.SetPhrase(random() % 2 ? phrase.substr(0, phrase.size() / 2) : String(u"?"));
            list.SetPhrase(phrase);
        }
        std::size_t visible = 0;
        std::size_t checked = 0;
        for (std::size_t i = 0; i < list.Count(); ++i) {
            const bool found = AnsiLowerCase(list.Item(i).text).find(AnsiLowerCase(phrase)) != String::npos;
            ASSERT_EQ(list.IsVisible(i), found) << i << " " << Utf8Encode(phrase);
            visible += found ? 1 : 0;
            checked += found && list.Item(i).IsChecked() ? 1 : 0;
        }
        ASSERT_EQ(list.VisibleCount(), visible);
        ASSERT_EQ(list.VisibleCheckedCount(), checked);
        ASSERT_EQ(list.Shown(TCheckListOrder::ByText).size(), visible);
    }
}

} // namespace
