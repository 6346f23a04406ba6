#include "framework/windows/maskedit_rules.h"

#include <algorithm>

namespace framework {

namespace {

const TMaskPlace& Place(const TParsedMask& mask, int index) {
    return mask.Places[static_cast<std::size_t>(index)];
}

char16_t& At(String& text, int index) {
    return text[static_cast<std::size_t>(index)];
}

/// A blank that the place would take counts as entered, or nobody could enter that character. Places for any
/// character would take every blank.
bool IsBlank(const TParsedMask& mask, const TMaskPlace& place, char16_t unit) {
    return unit == mask.Blank && (place.Kind == TMaskPlaceKind::Any || !place.Accepts(unit));
}

/// The first literal at or behind `from` that is this character; -1 when there is none.
int LiteralAt(const TParsedMask& mask, int from, char16_t unit) {
    for (int i = from; i < mask.Length(); ++i) {
        if (Place(mask, i).IsLiteral() && Place(mask, i).Literal == unit)
            return i;
    }
    return -1;
}

/// Goes over the literals at `at`, which a text may name or leave out. One that the next place would take, such as the
/// digits of a country code, counts as named only together with all the literals around it.
int SkipLiterals(const TParsedMask& mask, int at, StringView& text) {
    String run;
    int next = at;
    for (; next < mask.Length() && Place(mask, next).IsLiteral(); ++next)
        run += Place(mask, next).Literal;
    if (text.starts_with(run)) {
        text.remove_prefix(run.size());
        return next;
    }
    for (const char16_t literal : run) {
        const bool isEntry = next < mask.Length() && Place(mask, next).Accepts(literal);
        if (!isEntry && text.starts_with(literal))
            text.remove_prefix(1);
    }
    return next;
}

/// Lays a text into the places from `at` on; the position behind the last one used.
int FitText(const TParsedMask& mask, String& shown, int at, StringView text) {
    while (true) {
        at = SkipLiterals(mask, at, text);
        if (at == mask.Length() || text.empty())
            return at;
        const TMaskPlace& place = Place(mask, at);
        const char16_t unit = text.front();
        text.remove_prefix(1);
        if (unit == mask.Blank)
            ++at;
        else if (place.Accepts(unit))
            At(shown, at++) = place.Cased(unit);
        else if (const int literal = LiteralAt(mask, at, unit); literal >= 0)
            at = literal + 1;
        else if (unit == u' ')
            ++at; // how values show a place without a character
    }
}

void Blank(const TParsedMask& mask, String& text, int start, int end) {
    for (int i = start; i < end; ++i) {
        if (!Place(mask, i).IsLiteral())
            At(text, i) = mask.Blank;
    }
}

bool SelectsSeveral(const TMaskEntry& entry) {
    return entry.End - entry.Start > 1;
}

} // namespace

String EmptyMaskText(const TParsedMask& mask) {
    return MaskDoFormatText(mask, {}, mask.Blank);
}

bool ShowsMask(const TParsedMask& mask, StringView text) {
    if (text.size() != mask.Places.size())
        return false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (mask.Places[i].IsLiteral() && mask.Places[i].Literal != text[i])
            return false;
    }
    return true;
}

bool IsMaskText(const TParsedMask& mask, StringView text) {
    if (!ShowsMask(mask, text))
        return false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != mask.Blank && !mask.Places[i].Accepts(text[i]))
            return false;
    }
    return true;
}

bool IsMaskTextEmpty(const TParsedMask& mask, StringView text) {
    for (std::size_t i = 0; i < std::min(text.size(), mask.Places.size()); ++i) {
        if (!mask.Places[i].IsLiteral() && !IsBlank(mask, mask.Places[i], text[i]))
            return false;
    }
    return true;
}

int FirstMissingPlace(const TParsedMask& mask, StringView text) {
    for (int i = 0; i < mask.Length(); ++i) {
        const auto at = static_cast<std::size_t>(i);
        if (Place(mask, i).Required && (at >= text.size() || IsBlank(mask, Place(mask, i), text[at])))
            return i;
    }
    return -1;
}

String MaskTextFromValue(const TParsedMask& mask, StringView value) {
    String shown = EmptyMaskText(mask);
    const bool laidOut = mask.SaveLiterals && ShowsMask(mask, value);
    if (!laidOut && mask.SaveLiterals) {
        FitText(mask, shown, 0, value);
        return shown;
    }
    const String wanted = laidOut ? String(value) : MaskDoFormatText(mask, value, mask.Blank);
    for (int i = 0; i < mask.Length(); ++i) {
        const TMaskPlace& place = Place(mask, i);
        const char16_t unit = wanted[static_cast<std::size_t>(i)];
        if (!place.IsLiteral() && place.Accepts(unit) && unit != mask.Blank)
            At(shown, i) = place.Cased(unit);
    }
    return shown;
}

String ValueFromMaskText(const TParsedMask& mask, StringView text) {
    String value;
    for (std::size_t i = 0; i < std::min(text.size(), mask.Places.size()); ++i) {
        const TMaskPlace& place = mask.Places[i];
        if (place.IsLiteral() && !mask.SaveLiterals)
            continue;
        value += !place.IsLiteral() && IsBlank(mask, place, text[i]) ? u' ' : text[i];
    }
    if (mask.SaveLiterals)
        return value;
    if (mask.FromRight)
        return value.erase(0, std::min(value.find_first_not_of(u' '), value.size()));
    return value.erase(value.find_last_not_of(u' ') + 1);
}

int PlaceAt(const TParsedMask& mask, int from) {
    int place = std::clamp(from, 0, mask.Length());
    while (place < mask.Length() && Place(mask, place).IsLiteral())
        ++place;
    return place;
}

int PlaceBefore(const TParsedMask& mask, int before) {
    int place = std::clamp(before, 0, mask.Length()) - 1;
    while (place >= 0 && Place(mask, place).IsLiteral())
        --place;
    return place;
}

void MoveToPlace(const TParsedMask& mask, TMaskEntry& entry, int position) {
    entry.Start = PlaceAt(mask, position);
    entry.End = std::min(entry.Start + 1, mask.Length());
}

bool TypeIntoMask(const TParsedMask& mask, TMaskEntry& entry, char16_t unit) {
    const int at = PlaceAt(mask, entry.Start);
    if (at < mask.Length() && Place(mask, at).Accepts(unit)) {
        if (SelectsSeveral(entry))
            Blank(mask, entry.Text, entry.Start, entry.End);
        At(entry.Text, at) = Place(mask, at).Cased(unit);
        MoveToPlace(mask, entry, at + 1);
        return true;
    }
    const int literal = LiteralAt(mask, entry.Start, unit);
    if (literal < 0)
        return false;
    MoveToPlace(mask, entry, literal + 1);
    return true;
}

void PasteIntoMask(const TParsedMask& mask, TMaskEntry& entry, StringView text) {
    if (SelectsSeveral(entry))
        Blank(mask, entry.Text, entry.Start, entry.End);
    // From the first place on, the text may name the literals before it.
    const int at = entry.Start <= PlaceAt(mask, 0) ? 0 : entry.Start;
    MoveToPlace(mask, entry, FitText(mask, entry.Text, at, text));
}

void DeleteInMask(const TParsedMask& mask, TMaskEntry& entry) {
    Blank(mask, entry.Text, entry.Start, std::max(entry.End, std::min(entry.Start + 1, mask.Length())));
    MoveToPlace(mask, entry, entry.Start);
}

void BackspaceInMask(const TParsedMask& mask, TMaskEntry& entry) {
    if (SelectsSeveral(entry))
        return DeleteInMask(mask, entry);
    const int place = PlaceBefore(mask, entry.Start);
    if (place < 0)
        return;
    Blank(mask, entry.Text, place, place + 1);
    MoveToPlace(mask, entry, place);
}

} // namespace framework
