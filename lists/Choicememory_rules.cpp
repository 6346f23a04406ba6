#include "lists/Choicememory_rules.h"

#include "framework/system/strings.h"

#include <algorithm>

namespace ZOR {

String OneLine(StringView text) {
    String line(text);
    std::ranges::transform(line, line.begin(), InOneLine);
    return line;
}

void TShownChoice::ItemInserted(int index, StringView text) {
    if (Item >= index)
        ++Item;
    else if (Item < 0 && !text.empty() && text.size() == Text.size() && AnsiSameText(OneLine(text), OneLine(Text)))
        Item = index;
}

void TShownChoice::ItemDeleted(int index) {
    if (Item == index)
        Item = -1;
    else if (Item > index)
        --Item;
}

void TShownChoice::ItemsReplaced(const TStrings& items) {
    Item = -1;
    for (int i = 0; i < items.GetCount() && Item < 0; ++i)
        ItemInserted(i, items.Get(i));
}

void TChoiceMemory::Set(const TShownChoice& shown) {
    Note(shown);
    FBefore.reset();
}

void TChoiceMemory::Note(const TShownChoice& shown) {
    FToldText = shown.Text;
    FTold = shown;
}

void TChoiceMemory::Begin(const TShownChoice& shown) {
    if (!FBefore)
        FBefore = shown;
}

bool TChoiceMemory::ItemIsNews(const TShownChoice& shown) {
    if (shown.Item < 0)
        return false;
    return std::exchange(FTold, shown).Item != shown.Item;
}

void TChoiceMemory::ItemInserted(int index, StringView text) {
    Apply([&](TShownChoice& shown) { shown.ItemInserted(index, text); });
}

void TChoiceMemory::ItemDeleted(int index) {
    Apply([&](TShownChoice& shown) { shown.ItemDeleted(index); });
}

void TChoiceMemory::ItemsCleared() {
    Apply([](TShownChoice& shown) { shown.ItemsCleared(); });
}

void TChoiceMemory::ItemsReplaced(const TStrings& items) {
    Apply([&](TShownChoice& shown) { shown.ItemsReplaced(items); });
}

} // namespace ZOR
