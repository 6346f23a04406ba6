#pragma once

// The items of a check list: texts with check boxes, of which a phrase may hide some, in the order in which they show.
// What a list of a million items has to do at every typed letter is done here over plain arrays.

#include "framework/system/types.h"
#include "framework/vtree/checkstates_rules.h"

#include <cstdint>
#include <deque>
#include <string>
#include <vector>

namespace ZOR {
using namespace framework;

/// One item as the program gave it, and its box.
struct sCheckListBox { // NOLINT(readability-identifier-naming): a documented name
    int id = 0;        ///< the program's key of the item
    String text;
    TCheckState state = csUncheckedNormal;
    bool visible = true; ///< it matches the phrase that there was when the item was asked for

    bool IsChecked() const { return state > csUncheckedPressed; }
};

enum class TCheckListOrder {
    AsAdded,
    ByText,
    ByTextDescending,
    ByCheck, ///< unchecked before checked ones, each in the order of their texts
    ByCheckDescending,
};

class TCheckList {
public:
    /// A text as bytes that compare as a person sorts, letter case aside.
    using TSortKey = std::function<std::string(StringView text)>;

    explicit TCheckList(TSortKey sortKey) : FSortKey(std::move(sortKey)) {}

    /// A new item is unchecked; it counts as visible until MatchNew or another phrase says otherwise.
    void Add(int id, const String& text);
    void Clear();
    std::size_t Count() const { return FItems.size(); }
    const sCheckListBox& Item(std::size_t index) const;
    bool IsVisible(std::size_t index) const { return FVisible[index] != 0; }
    /// False when the item had the state already.
    bool SetState(std::size_t index, TCheckState state);
    /// All visible ones; the numbers of those that changed.
    std::vector<std::uint32_t> SetVisibleStates(TCheckState state);

    const String& Phrase() const { return FPhrase; }
    /// Hides the items whose texts do not contain the phrase, letter case aside, accents kept; an empty phrase hides
    /// none. False for the phrase that there is. A phrase that contains the last one looks only at what is still
    /// visible.
    bool SetPhrase(const String& phrase);
    /// Applies the phrase to the items that came since it was set.
    void MatchNew();
    /// Does now for all new items what their first phrase would have to do.
    void PrepareTexts();

    std::size_t CheckedCount() const { return FChecked; }
    std::size_t VisibleCount() const { return FMatches.size(); }
    std::size_t VisibleCheckedCount() const { return FVisibleChecked; }
    /// The box for all: of the visible items while there is a phrase, of all otherwise.
    TCheckState HeaderState() const;
    /// The caption with what is checked of all, as in "Cities: 3/10".
    String Caption(const String& text, bool withCounts) const;

    /// Whether the item's text begins with a text that is in lower case, letter case of the item aside.
    bool BeginsWith(std::size_t index, StringView lowerText);
    /// The numbers of the visible items in the order in which they show.
    std::vector<std::uint32_t> Shown(TCheckListOrder order);
    /// The place of an item among all, by text: equal texts have equal numbers.
    std::uint32_t Rank(std::size_t index);
    /// A number by which items come in this order.
    std::uint64_t OrderKey(std::size_t index, TCheckListOrder order);
    /// Negative, 0 or positive as the first item comes before, with or behind the second one.
    int Compare(std::size_t first, std::size_t second, bool byCheck);

private:
    void PrepareRanks();
    void CountVisibleChecked();
    void MatchAll(StringView phrase);
    void MatchVisible(StringView phrase, std::size_t from = 0);
    StringView LowerText(std::size_t index) const;

    TSortKey FSortKey;
    mutable std::deque<sCheckListBox> FItems; // what they tell of being visible is filled in when they are asked for
    String FPhrase;
    String FLowerPhrase;
    std::vector<std::uint8_t> FVisible;
    std::vector<std::uint32_t> FMatches; // the visible items, ascending
    std::size_t FMatched = 0;            // as many items from the first one on the phrase was applied to
    std::size_t FChecked = 0;
    std::size_t FVisibleChecked = 0;
    // Prepared once for all phrases and orders, as far as there are items.
    String FLowerTexts; // one behind the other
    std::vector<std::size_t> FLowerStarts;
    std::vector<std::uint32_t> FRanks;
    std::vector<std::uint32_t> FByRank; // item numbers
};

/// A text as bytes that compare as its units in lower case do, where there is nobody to ask how a person sorts.
std::string PlainSortKey(StringView text);

/// Where `part` lies in `text` at or behind `from`, npos for nowhere: as find does, several units at a time.
std::size_t FindPart(StringView text, StringView part, std::size_t from = 0);

} // namespace ZOR
