// The bytes are a mask, a value, and what a person does in the field, parted by line ends. Malformed masks are refused;
// under all others the field goes on to show its mask whatever is typed, deleted or pasted, the caret stays inside, and
// the value that comes out makes the same field again.

#include "framework/system/strings.h"
#include "framework/windows/maskedit_rules.h"

#include <cstdio>
#include <cstdlib>

using namespace framework;

namespace {

void Demand(bool holds, const char* what, const String& mask, const String& text) {
    if (holds)
        return;
    std::fprintf(stderr, "%s: mask '%s', field '%s'\n", what, Utf8Encode(mask).c_str(), Utf8Encode(text).c_str());
    std::abort();
}

void Check(const TParsedMask& mask, const String& source, const TMaskEntry& entry) {
    Demand(ShowsMask(mask, entry.Text), "the mask is lost", source, entry.Text);
    Demand(entry.Start >= 0 && entry.Start <= entry.End && entry.End <= mask.Length(), "the caret is outside", source,
           entry.Text);
    for (std::size_t i = 0; i < mask.Places.size(); ++i) {
        const TMaskPlace& place = mask.Places[i];
        const char16_t unit = entry.Text[i];
        Demand(place.IsLiteral() || unit == mask.Blank || place.Accepts(unit), "a place holds what it refuses", source,
               entry.Text);
    }
    const String value = ValueFromMaskText(mask, entry.Text);
    // A value whose characters change with the letter case of their places, or that the blank is part of, may read
    // differently; what it reads as stays the same from then on.
    const String again = MaskTextFromValue(mask, value);
    Demand(MaskTextFromValue(mask, ValueFromMaskText(mask, again)) == again, "the value does not come back", source,
           entry.Text);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::vector<String> lines =
        SplitString(Utf8Decode({reinterpret_cast<const char*>(data), std::min<std::size_t>(size, 4096)}), u"\n");
    if (lines.empty())
        return 0;
    const String& source = lines[0];
    TParsedMask mask;
    try {
        mask = ParseMask(source);
    } catch (const EMaskError&) {
        return 0;
    }
    TMaskEntry entry{MaskTextFromValue(mask, lines.size() > 1 ? lines[1] : String()), 0, 0};
    MoveToPlace(mask, entry, 0);
    Check(mask, source, entry);
    for (std::size_t line = 2; line < lines.size(); ++line) {
        const String& text = lines[line];
        const char16_t action = text.empty() ? u'\0' : text.front();
        if (action == u'<') {
            BackspaceInMask(mask, entry);
        } else if (action == u'x') {
            DeleteInMask(mask, entry);
        } else if (action == u'"') {
            PasteIntoMask(mask, entry, StringView(text).substr(1));
        } else if (action == u'|') { // a selection from one place to another
            entry.Start = std::min<int>(text.size() > 1 ? text[1] % 32 : 0, mask.Length());
            entry.End = std::min<int>(entry.Start + (text.size() > 2 ? text[2] % 32 : 0), mask.Length());
        } else {
            for (const char16_t unit : text)
                TypeIntoMask(mask, entry, unit);
        }
        Check(mask, source, entry);
    }
    return 0;
}
