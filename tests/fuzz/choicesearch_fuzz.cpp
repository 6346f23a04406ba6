// The bytes are items, a line each, and in the last line what is typed; the first byte also tells how all is folded.
// The search through the prepared texts finds what a search that folds every item finds; the highlight lies in the
// item, never cuts a character, and folds to what was typed; and no key of a search leaves a buffer that leads nowhere.

#include "framework/system/strings.h"
#include "lists/Zorcombobox_list_rules.h"
#include "lists/Zorcombobox_rules.h"

#include <cstdio>
#include <cstdlib>

using namespace ZOR;

namespace {

void Demand(bool holds, const char* what, StringView text) {
    if (holds)
        return;
    std::fprintf(stderr, "%s: '%s'\n", what, Utf8Encode(text).c_str());
    std::abort();
}

void CheckFind(const TStrings& items, const TTextFolding& folding, StringView typed) {
    TChoiceIndex index;
    index.Assign(items, folding);
    const TTextFolder& folder = index.Folder();
    const String part = folder.Fold(typed);
    int anywhere = -1;
    int beginning = -1;
    int whole = -1;
    for (int i = items.GetCount() - 1; i >= 0 && !part.empty(); --i) {
        const String item = OneLine(items.Get(i));
        const String folded = folder.Fold(item);
        const std::size_t at = folded.find(part);
        const TTextRange range = MatchedCharacters(item, typed, folder);
        Demand(range.IsEmpty() == (at == String::npos), "a match has a highlight", item);
        if (at == String::npos)
            continue;
        anywhere = i;
        beginning = at == 0 ? i : beginning;
        whole = folded == part ? i : whole;
        const auto start = static_cast<std::size_t>(range.Start);
        const std::size_t end = start + static_cast<std::size_t>(range.Length);
        Demand(end <= item.size() && !SplitsSurrogates(item, start) && !SplitsSurrogates(item, end), "cut", item);
        const auto runs = SplitRow(item, range);
        Demand(folder.Fold(runs[1]).find(part) != String::npos, "the highlight is not what matched", item);
        Demand(String(runs[0]).append(runs[1]).append(runs[2]) == item, "the runs are the item", item);
    }
    Demand(index.Find(typed, TMatchPlace::Anywhere).Item == anywhere, "found anywhere", typed);
    Demand(index.Find(typed, TMatchPlace::Beginning).Item == beginning, "found at the beginning", typed);
    Demand(index.Find(typed, TMatchPlace::Whole).Item == whole, "found as a whole", typed);
}

void CheckTyping(const TStrings& items, TBehavior behavior, StringView typed) {
    TChoiceIndex index;
    index.Assign(items, ComboSearchFolding);
    TSearchStep step;
    for (const char16_t unit : typed) {
        const TSearchKey kind = unit == u'<'   ? TSearchKey::Backspace
                                : unit == u'>' ? TSearchKey::Other
                                               : TSearchKey::Character;
        step = StepSearch(step.Buffer, kind, unit, unit == u'|', behavior, index);
        const int found = index.Find(step.Buffer, PlaceOf(behavior)).Item;
        Demand(step.Buffer.empty() == (found < 0), "a buffer that leads nowhere", step.Buffer);
        if (step.Item < 0)
            continue;
        Demand(step.Item == found, "the item of the buffer", step.Buffer);
        const String item = OneLine(items.Get(step.Item));
        Demand(index.Folder().Fold(Copy(item, step.Matched.Start + 1, step.Matched.Length)) == step.Buffer,
               "the highlight is the buffer", item);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::vector<String> lines =
        SplitString(Utf8Decode({reinterpret_cast<const char*>(data), std::min<std::size_t>(size, 4096)}), u"\n");
    if (lines.empty())
        return 0;
    String typed = std::move(lines.back());
    lines.pop_back();
    // UTF-8 has no lone halves of surrogate pairs; a dollar sign makes some.
    for (String& line : lines)
        line = StringReplace(line, u"$$", u"\xD83D", TReplaceFlags() << rfReplaceAll);
    typed = OneLine(StringReplace(typed, u"$$", u"\xD83D", TReplaceFlags() << rfReplaceAll));
    TStringList items;
    items.SetLines(lines);
    const int bits = data[0] & 7;
    CheckFind(items, {false, (bits & 1) != 0, (bits & 2) != 0, bits & 4 ? TFoldedCase::Upper : TFoldedCase::AsItIs},
              typed);
    CheckFind(items, ComboSearchFolding, typed);
    CheckTyping(items, beStandard, typed);
    CheckTyping(items, beNewWyszukajPoczatek, typed);
    return 0;
}
