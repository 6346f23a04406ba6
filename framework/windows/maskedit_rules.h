#pragma once

// What happens to the text of a masked field when a person types, deletes or pastes, decided without a window. The text
// always shows the whole mask: literals, entered characters, and the blank where nothing was entered. The caret rests
// on places only; it jumps over literals.

#include "framework/system/maskutils.h"

namespace framework {

/// The text of a masked field with its selection, in UTF-16 units from 0.
struct TMaskEntry {
    String Text;
    int Start = 0;
    int End = 0;
    friend bool operator==(const TMaskEntry&, const TMaskEntry&) = default;
};

/// The mask with nothing entered.
String EmptyMaskText(const TParsedMask& mask);
/// Whether a text shows the mask: as long, and its literals where they belong.
bool ShowsMask(const TParsedMask& mask, StringView text);
/// The same, and its places hold blanks or what they take: the text of a field rather than a value.
bool IsMaskText(const TParsedMask& mask, StringView text);
/// Whether nothing is entered. A mask whose blank is a character that its places take, such as "00;1;0", has none
/// empty.
bool IsMaskTextEmpty(const TParsedMask& mask, StringView text);
/// The first required place without a character; -1 when there is none.
int FirstMissingPlace(const TParsedMask& mask, StringView text);

/// What a field shows for a value. A value without literals fills the places in turn, with "!" from the right; one that
/// is laid out as the mask goes where it says; any other is fitted as a pasted text is.
String MaskTextFromValue(const TParsedMask& mask, StringView value);
/// The value of what a field shows: blanks become spaces. Without literals those at the end, with "!" those in front,
/// are left out, so that an empty field has an empty value.
String ValueFromMaskText(const TParsedMask& mask, StringView text);

/// The first place at or behind `from`; the length of the mask when there is none.
int PlaceAt(const TParsedMask& mask, int from);
/// The last place before `before`; -1 when there is none.
int PlaceBefore(const TParsedMask& mask, int before);
/// Puts the caret on the place at or behind `position`, which is selected, or behind the last one.
void MoveToPlace(const TParsedMask& mask, TMaskEntry& entry, int position);

/// A typed character replaces the one at the caret, or all selected ones. One that the place refuses leads behind the
/// next literal of its kind, as "/" does in a date. False when it is of no use.
bool TypeIntoMask(const TParsedMask& mask, TMaskEntry& entry, char16_t unit);
/// Fits a text in from the selection on: each character goes to the next place that takes it, separators lead to the
/// literals they name, and what fits nowhere is left out.
void PasteIntoMask(const TParsedMask& mask, TMaskEntry& entry, StringView text);
/// Empties the selected places.
void DeleteInMask(const TParsedMask& mask, TMaskEntry& entry);
/// Empties the selected places or, when only the one at the caret is selected, the one before it.
void BackspaceInMask(const TParsedMask& mask, TMaskEntry& entry);

} // namespace framework
