#include "lists/Zorcombobox_rules.h"

#include "framework/system/strings.h"

namespace ZOR {

TSearchStep StepSearch(StringView buffer, TSearchKey kind, char16_t key, bool afresh, TBehavior behavior,
                       const TChoiceIndex& items) {
    TSearchStep step;
    if (!afresh)
        step.Buffer = buffer;
    const String before = step.Buffer;
    if (kind == TSearchKey::Character) {
        step.Buffer += items.Folder().Fold(StringView(&key, 1));
    } else if (kind == TSearchKey::Backspace) {
        if (SplitsSurrogates(step.Buffer, step.Buffer.size() - 1))
            step.Buffer.pop_back(); // a character of two halves goes as a whole
        if (!step.Buffer.empty())
            step.Buffer.pop_back();
        step.DropSelection = step.Buffer.empty();
    }
    const TChoiceIndex::TMatch match = items.Find(step.Buffer, PlaceOf(behavior));
    step.Item = match.Item;
    if (match.Item >= 0)
        step.Matched = {match.Position, static_cast<int>(step.Buffer.size())};
    else if (kind == TSearchKey::Character)
        step.Buffer = before;
    return step;
}

} // namespace ZOR
