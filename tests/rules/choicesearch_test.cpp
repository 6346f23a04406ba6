// What is typed and what it finds: folding, the search through many items, which characters are highlighted, and the
// story of a search key by key.

#include "framework/system/strings.h"
#include "lists/Zorcombobox_rules.h"

#include <gtest/gtest.h>

using namespace ZOR;

namespace {

constexpr TTextFolding kPlain{.Case = TFoldedCase::Upper};
constexpr TTextFolding kSmart{.ListedAccents = true, .Case = TFoldedCase::Upper};
constexpr TTextFolding kAll{.AllAccents = true, .Case = TFoldedCase::Upper};
constexpr TTextFolding kBoth{.ListedAccents = true, .AllAccents = true, .Case = TFoldedCase::Upper};
constexpr TTextFolding kExact{};

std::unique_ptr<TStringList> List(const std::vector<String>& texts) {
    auto list = std::make_unique<TStringList>();
    list->SetLines(texts);
    return list;
}

TEST(TextFolding, ReplacesTheListedLettersAndNoOthers) {
    EXPECT_EQ(FoldAccents(u"zażółć gęślą jaźń ZAŻÓŁĆ GĘŚLĄ JAŹŃ"), u"zazolc gesla jazn ZAZOLC GESLA JAZN");
    EXPECT_EQ(FoldAccents(u"áâăäéëďîíĺľçčüúůôöřŕťňýž"), u"aaaaeediillccuuuoorrtnyz");
    EXPECT_EQ(FoldAccents(u"ÄÂÁÉËÇČĎÎÍĹĽŇÖÔÓŘŔŠŤÝÜÚŮŽ"), u"AAAEECCDIILLNOOORRSTYUUUZ");
    EXPECT_EQ(FoldAccents(u"Straße?"), u"StraSSea") << "a question mark counts as a";
    EXPECT_EQ(FoldAccents(u"šěűőĂĚŰŐàãøñ"), u"šěűőĂĚŰŐàãøñ") << "these are not in the table";
    EXPECT_EQ(TTextFolder(kAll).Fold(u"Šašek, Ěščřžýáíé, ŰŐ, àãøñ?ß"), u"SASEK, ESCRZYAIE, UO, AAON?ß");
    EXPECT_EQ(TTextFolder(kBoth).Fold(u"šß?"), u"SSSA");
    EXPECT_EQ(TTextFolder(ComboSearchFolding).Fold(u"MÖNCHENGLADBACH Łódź"), u"monchengladbach łódź");
}

struct TFindRow {
    const char* Name;
    TTextFolding Folding;
    TMatchPlace Place;
    StringView Text;
    int Item;
};

TEST(ChoiceIndex, FindsTheFirstItemThatMatches) {
    const auto items = List({u"", u"oko", u"Kolano", u"żółw", u"Kraków\r\nGłówny", u"Weißenfels", u"kolano",
                             u"\xD83D\xDE00 emoji", u"e\u0301tage", u"Přeštice", u"Köln", u"a"});
    const TFindRow rows[] = {
        {"anywhere", kPlain, TMatchPlace::Anywhere, u"ko", 1},
        {"at the beginning", kPlain, TMatchPlace::Beginning, u"ko", 2},
        {"letter case counts", kExact, TMatchPlace::Beginning, u"ko", 6},
        {"the whole text", kPlain, TMatchPlace::Whole, u"KOLANO", 2},
        {"no part for the whole", kPlain, TMatchPlace::Whole, u"kola", -1},
        {"nothing matches nothing", kPlain, TMatchPlace::Anywhere, u"", -1},
        {"an empty item is no whole match", kPlain, TMatchPlace::Whole, u"", -1},
        {"accents count", kPlain, TMatchPlace::Anywhere, u"zolw", -1},
        {"accents folded", kSmart, TMatchPlace::Anywhere, u"zolw", 3},
        {"and in what is typed", kSmart, TMatchPlace::Anywhere, u"ŻÓŁW", 3},
        {"a question mark is an a", kSmart, TMatchPlace::Anywhere, u"kol?no", 2},
        {"and is itself otherwise", kPlain, TMatchPlace::Anywhere, u"kol?no", -1},
        {"sharp s", kSmart, TMatchPlace::Anywhere, u"weissen", 5},
        {"a letter that is not listed", kSmart, TMatchPlace::Anywhere, u"prestice", -1},
        {"all accents", kAll, TMatchPlace::Anywhere, u"prestice", 9},
        {"a line end shows as blanks", kPlain, TMatchPlace::Anywhere, u"kraków  g", 4},
        {"and is one where it is typed", kPlain, TMatchPlace::Anywhere, u"kraków\r\ng", 4},
        {"not across items", kPlain, TMatchPlace::Anywhere, u"okoK", -1},
        {"half a character", kPlain, TMatchPlace::Anywhere, u"\xD83D", 7},
        {"the other half", kPlain, TMatchPlace::Beginning, u"\xDE00", -1},
        {"combining marks are units", kPlain, TMatchPlace::Anywhere, u"\u0301t", 8},
        {"umlauts", ComboSearchFolding, TMatchPlace::Beginning, u"KOLN", 10},
        {"the last and shortest", kExact, TMatchPlace::Whole, u"a", 11},
    };
    TChoiceIndex index;
    EXPECT_EQ(index.Find(u"a", TMatchPlace::Anywhere).Item, -1) << "no items";
    for (const TFindRow& row : rows) {
        SCOPED_TRACE(row.Name);
        index.Assign(*items, row.Folding);
        EXPECT_EQ(index.Find(row.Text, row.Place).Item, row.Item);
    }
    index.Assign(*items, kPlain);
    EXPECT_EQ(index.Find(u"KO", TMatchPlace::Anywhere, 2).Item, 2);
    EXPECT_EQ(index.Find(u"KO", TMatchPlace::Beginning, 3).Item, 6);
    EXPECT_EQ(index.Find(u"KO", TMatchPlace::Anywhere, 12).Item, -1);
    EXPECT_EQ(index.Find(u"GŁÓ", TMatchPlace::Anywhere).Position, 8);
    EXPECT_EQ(FindSameText(*items, u"ŻÓŁW"), 3);
    EXPECT_EQ(FindSameText(*items, u"zolw"), -1);
}

TEST(MatchedCharacters, CoverWhatMatchedAndNoMore) {
    struct TRow {
        StringView Text;
        StringView Search;
        TTextFolding Folding;
        TTextRange Expected;
    };
    const TRow rows[] = {
        {u"Kraków", u"ak", kPlain, {2, 2}},
        {u"oko oko", u"ko", kPlain, {1, 2}},
        {u"żółw", u"ol", kSmart, {1, 2}},
        {u"Weißenfels", u"iss", kSmart, {2, 2}},
        {u"Weißenfels", u"s", kSmart, {3, 1}}, // half of what the sharp s becomes
        {u"Weißenfels", u"se", kSmart, {3, 2}},
        {u"ßß", u"ssss", kSmart, {0, 2}},
        {u"x\xD83D\xDE00y", u"\xD83D", kPlain, {1, 2}},
        {u"x\xD83D\xDE00y", u"\xDE00y", kPlain, {1, 3}},
        {u"e\u0301e", u"e", kPlain, {0, 2}}, // the accent goes with its letter
        {u"ae\u0301", u"\u0301", kPlain, {1, 2}},
        {u"\u0301", u"\u0301", kPlain, {0, 1}},
        {u"Kraków", u"", kPlain, {}},
        {u"Kraków", u"krakow", kPlain, {}},
        {u"", u"a", kSmart, {}},
    };
    for (const TRow& row : rows) {
        SCOPED_TRACE(Utf8Encode(String(row.Text) + u" / " + String(row.Search)));
        EXPECT_EQ(MatchedCharacters(row.Text, row.Search, TTextFolder(row.Folding)), row.Expected);
    }
}

/// Types into the search one key after another; '<' stands for Backspace, '.' for a key that is no character.
class TSearchStory {
public:
    TSearchStory(const std::vector<String>& items, TBehavior behavior) : FBehavior(behavior) {
        FIndex.Assign(*List(items), ComboSearchFolding);
    }
    TSearchStep Type(StringView keys, bool afresh = false) {
        for (const char16_t key : keys) {
            const TSearchKey kind = key == u'<'   ? TSearchKey::Backspace
                                    : key == u'.' ? TSearchKey::Other
                                                  : TSearchKey::Character;
            FStep = StepSearch(FStep.Buffer, kind, key, afresh, FBehavior, FIndex);
        }
        return FStep;
    }

private:
    TChoiceIndex FIndex;
    TBehavior FBehavior;
    TSearchStep FStep;
};

TEST(ComboSearch, NarrowsRefusesAndGoesBack) {
    const std::vector<String> items{u"Kraków", u"Mönchengladbach", u"Köln"};
    TSearchStory anywhere(items, beStandard);
    EXPECT_EQ(anywhere.Type(u"m").Item, 1);
    TSearchStep step = anywhere.Type(u"o");
    EXPECT_EQ(step.Item, 1) << "a plain o finds the umlaut";
    EXPECT_EQ(step.Matched, (TTextRange{0, 2}));
    step = anywhere.Type(u"x");
    EXPECT_EQ(step.Item, -1);
    EXPECT_EQ(step.Buffer, u"mo") << "refused";
    EXPECT_EQ(anywhere.Type(u".").Matched, (TTextRange{0, 2})) << "looks again";
    step = anywhere.Type(u"<<");
    EXPECT_EQ(step.Buffer, u"");
    EXPECT_TRUE(step.DropSelection);
    EXPECT_EQ(step.Item, -1);
    EXPECT_TRUE(anywhere.Type(u"<").DropSelection) << "nothing left to remove";
    step = anywhere.Type(u"GLAD");
    EXPECT_EQ(step.Matched, (TTextRange{7, 4}));
    EXPECT_EQ(anywhere.Type(u"Ö", true).Item, 1)
        << "a fresh start forgets what was typed; the accent of Kraków is no umlaut";
    EXPECT_EQ(anywhere.Type(u"x", true).Buffer, u"") << "also when its first key is refused";

    TSearchStory beginning(items, beNewWyszukajPoczatek);
    EXPECT_EQ(beginning.Type(u"k").Item, 0);
    EXPECT_EQ(beginning.Type(u"ö").Item, 2);
    step = beginning.Type(u"g");
    EXPECT_EQ(step.Item, -1);
    EXPECT_EQ(step.Buffer, u"ko");
    TSearchStory pairs({u"x\xD83D\xDE00"}, beStandard);
    pairs.Type(u"x\xD83D\xDE00");
    EXPECT_EQ(pairs.Type(u"<").Buffer, u"x") << "both halves";
    TSearchStory empty({}, beStandard);
    EXPECT_EQ(empty.Type(u"a").Buffer, u"") << "no items, no keys";
}

} // namespace
