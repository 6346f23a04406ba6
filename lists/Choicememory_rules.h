#pragma once

// What a choice field remembers while a person is at it: what was there before, for Esc, and what its events have told
// of last, so that each choice is told once and nothing is told that the program has set. Items may come, go and move
// meanwhile. All choice fields share this.

#include "framework/system/stringlist.h"

#include <optional>

namespace ZOR {
using namespace framework;

/// What breaks lines, and other control characters, show as blanks.
constexpr char16_t InOneLine(char16_t unit) {
    return unit < u' ' || unit == 0x7F ? u' ' : unit;
}
/// A text as one line, in which positions stay.
String OneLine(StringView text);

/// What a choice field shows: a text, and which of the items it is.
struct TShownChoice {
    String Text;
    int Item = -1; ///< -1: none

    // The index follows its item. The item of a text that has none is the first to come that reads like it, letter case
    // aside, so that items which are cleared and filled in anew do not cost the choice.
    void ItemInserted(int index, StringView text);
    void ItemDeleted(int index);
    void ItemsCleared() { Item = -1; }
    void ItemsReplaced(const TStrings& items);
};

class TChoiceMemory {
public:
    /// What the program has set: there is no news in it, and nothing to come back to.
    void Set(const TShownChoice& shown);
    /// What shows is known to the program.
    void Note(const TShownChoice& shown);
    void NoteText(const String& text) { FToldText = text; }
    void ForgetItem() { FTold = {}; }
    /// The choice that OnSelect has told of last, or that the program has set.
    const TShownChoice& Told() const { return FTold; }

    /// The person begins; Esc will bring back what shows now, or what showed when this began.
    void Begin(const TShownChoice& shown);
    /// The person is done: Esc brings nothing back any more.
    void End() { FBefore.reset(); }
    const std::optional<TShownChoice>& Before() const { return FBefore; }
    /// What was there before; it is done with then.
    std::optional<TShownChoice> TakeBefore() { return std::exchange(FBefore, std::nullopt); }

    /// True where OnChange has to tell of the text; once.
    bool TextIsNews(const String& text) { return std::exchange(FToldText, text) != text; }
    /// True where OnSelect has to tell of the item; once. No item is no news, and the one told of stays that.
    bool ItemIsNews(const TShownChoice& shown);

    void ItemInserted(int index, StringView text);
    void ItemDeleted(int index);
    void ItemsCleared();
    void ItemsReplaced(const TStrings& items);

private:
    template <class TChange>
    void Apply(const TChange& change) {
        change(FTold);
        if (FBefore)
            change(*FBefore);
    }

    String FToldText; // by OnChange: typing is told of before it is a choice
    TShownChoice FTold;
    std::optional<TShownChoice> FBefore;
};

} // namespace ZOR
