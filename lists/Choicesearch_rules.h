#pragma once

// How a typed text finds an item of a list: which items match, which is the first, and which of its characters it was
// that matched. All choice fields share this.

#include "foundation/Textfolding_rules.h"
#include "framework/system/stringlist.h"
#include "lists/Choicememory_rules.h"

#include <vector>

namespace ZOR {

/// Where a typed text has to stand in an item.
enum TBehavior {
    beStandard,            ///< anywhere
    beNew,                 ///< anywhere
    beNewWyszukajPoczatek, ///< at the beginning
};
const TEnumInfo& DescribeEnum(TBehavior);

/// A piece of a text, in UTF-16 units from 0; nothing when it is empty.
struct TTextRange {
    int Start = 0;
    int Length = 0;
    bool IsEmpty() const { return Length == 0; }
    friend bool operator==(const TTextRange&, const TTextRange&) = default;
};

enum class TMatchPlace { Anywhere, Beginning, Whole };

inline TMatchPlace PlaceOf(TBehavior behavior) {
    return behavior == beNewWyszukajPoczatek ? TMatchPlace::Beginning : TMatchPlace::Anywhere;
}

/// The texts of a list as they show, in one line each, prepared for searching: folded once and for all, one behind the
/// other, so that a key press neither converts nor allocates anything for each item.
class TChoiceIndex {
public:
    struct TMatch {
        int Item = -1;    ///< -1: none
        int Position = 0; ///< where the match begins in the folded text of the item, in UTF-16 units from 0
    };

    explicit TChoiceIndex(const TTextFolding& folding = {}) : FFolder(folding) { Prepare(0); }

    /// Takes the texts of a list, in its order. std::length_error when they need 4 GiB.
    void Assign(const TStrings& items, const TTextFolding& folding);
    /// The same where that has not been done yet for this version of the list and this folding.
    void Update(const TStrings& items, unsigned version, const TTextFolding& folding);

    int Count() const { return static_cast<int>(FStarts.size()); }
    const TTextFolder& Folder() const { return FFolder; }
    /// The first item at or behind `from` in which the text stands at that place. An empty text matches nothing.
    TMatch Find(StringView text, TMatchPlace place, int from = 0) const;
    /// The bytes that the index takes.
    std::size_t MemorySize() const;

private:
    void Prepare(std::size_t count);

    TTextFolder FFolder;
    // Each unit of the folded texts in one to three bytes, a byte that is none of them before, between and behind the
    // texts. A search is then one for bytes in memory, and a text at the beginning is one behind such a byte.
    std::string FBytes;
    std::vector<std::uint32_t> FStarts; // of each text
    std::optional<unsigned> FVersion;   // of the list, where that is known
};

/// The characters of a text that match: the first place where `search` stands in it, both folded. Where folding makes
/// two letters of one, that one counts as a whole; halves of characters and accents that follow their letter belong to
/// it.
TTextRange MatchedCharacters(StringView text, StringView search, const TTextFolder& folder);

/// The first item that reads like `text` in lower case; -1 when there is none.
int FindSameText(const TStrings& items, StringView text);

} // namespace ZOR
