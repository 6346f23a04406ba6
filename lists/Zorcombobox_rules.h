#pragma once

// The search of the combo box that is chosen from by typing: the characters collect in a buffer, and a key that would
// lead nowhere is refused.

#include "lists/Choicesearch_rules.h"

namespace ZOR {

/// What counts as alike in this search: letter case aside, and umlauts are found by their plain vowels. Positions in
/// folded and original texts are the same.
inline constexpr TTextFolding ComboSearchFolding{
    .Umlauts = true, .ListedAccents = false, .AllAccents = false, .Case = TFoldedCase::Lower};

enum class TSearchKey {
    Character, ///< a letter or another printable character
    Backspace,
    Other, ///< changes nothing in the buffer, yet looks again
};

/// What a key makes of the search.
struct TSearchStep {
    String Buffer;              ///< what has been typed so far, folded
    int Item = -1;              ///< to be selected and shown; -1: text and item stay
    TTextRange Matched;         ///< what of the item's text to highlight
    bool DropSelection = false; ///< nothing is typed any more: the caret goes to the beginning, unless an item is shown
};

/// One key of a search over `items`, which are folded by ComboSearchFolding. `afresh`: everything is selected and the
/// list is closed, so that the buffer begins empty.
TSearchStep StepSearch(StringView buffer, TSearchKey kind, char16_t key, bool afresh, TBehavior behavior,
                       const TChoiceIndex& items);

} // namespace ZOR
