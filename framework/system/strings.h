#pragma once

// Text helpers under their customary names. Positions in these helpers are 1-based, 0 meaning "not found";
// lengths and positions count UTF-16 units. Nothing here depends on the C locale.

#include "framework/system/sets.h"
#include "framework/system/types.h"

#include <concepts>
#include <type_traits>
#include <vector>

namespace framework {

/// UTF-16 to UTF-8; an unpaired surrogate becomes U+FFFD.
std::string Utf8Encode(StringView text);
/// UTF-8 to UTF-16; every malformed byte sequence becomes one U+FFFD.
String Utf8Decode(std::string_view text);
/// How many bytes at the start are well-formed UTF-8: all of them when the answer is the size.
std::size_t Utf8SoundLength(std::string_view text);
/// The halves of a character beyond U+FFFF, which takes two units.
constexpr bool IsHighSurrogate(char32_t unit) {
    return unit >= 0xD800 && unit <= 0xDBFF;
}
constexpr bool IsLowSurrogate(char32_t unit) {
    return unit >= 0xDC00 && unit <= 0xDFFF;
}
/// True when the 0-based index lies between the two halves of one character.
constexpr bool SplitsSurrogates(StringView text, std::size_t index) {
    return index > 0 && index < text.size() && IsHighSurrogate(text[index - 1]) && IsLowSurrogate(text[index]);
}
/// A text of 7-bit characters widened unit by unit, for literals and identifiers; other bytes become U+FFFD.
String AsciiToString(std::string_view text);

/// Without the leading and trailing blanks and control characters (all units up to U+0020).
String Trim(StringView text);
String TrimLeft(StringView text);
String TrimRight(StringView text);

/// Position of the first occurrence of `part` at or behind `offset`; 0 when there is none, when `part` is empty, or
/// when `offset` lies outside the text.
int Pos(StringView part, StringView text, int offset = 1);
/// The same as Pos with an offset.
inline int PosEx(StringView part, StringView text, int offset = 1) {
    return Pos(part, text, offset);
}

/// At most `count` units from position `index` (below 1 counts as 1); what lies outside the text is not there.
String Copy(StringView text, int index, int count);
/// Removes at most `count` units at `index`; an index outside the text removes nothing.
void Delete(String& text, int index, int count);
/// Puts `part` before position `index`, at the start for an index below 1, at the end for one beyond the text.
void Insert(StringView part, String& text, int index);
/// `unit` repeated; empty for a count below 1.
String StringOfChar(char16_t unit, int count);

/// Options of StringReplace, as in `TReplaceFlags() << rfReplaceAll << rfIgnoreCase`.
enum TReplaceFlag { rfReplaceAll, rfIgnoreCase };
using TReplaceFlags = Set<TReplaceFlag>;

/// `text` with the first occurrence of `oldPart`, or with rfReplaceAll every one from the left, replaced by
/// `newPart`. What was put in is not searched again; an empty `oldPart` replaces nothing. Every unit is copied once.
String StringReplace(StringView text, StringView oldPart, StringView newPart, TReplaceFlags flags = {});

/// Letters A to Z only; every other unit stays.
String UpperCase(StringView text);
String LowerCase(StringView text);
/// Letters of all scripts with simple case mapping; keeps the length, so U+00DF stays.
String AnsiUpperCase(StringView text);
String AnsiLowerCase(StringView text);

/// Unit by unit: negative, 0 or positive as `left` comes before, equals or follows `right`.
int CompareStr(StringView left, StringView right);
/// The same with a to z taken as A to Z.
int CompareText(StringView left, StringView right);
/// The same with the case of letters of all scripts ignored. An ordinal order, not a dictionary's.
int AnsiCompareText(StringView left, StringView right);
bool SameText(StringView left, StringView right);
bool AnsiSameText(StringView left, StringView right);

/// `text` in apostrophes, those inside doubled.
String QuotedStr(StringView text);
/// True for a letter (ASCII or beyond) or underscore followed by letters, digits and underscores; with `allowDots`
/// also for several such names joined by single dots.
bool IsValidIdent(StringView name, bool allowDots = false);

/// The pieces between the units of `delimiters`; empty pieces count, an empty text has none.
std::vector<String> SplitString(StringView text, StringView delimiters);
/// The lines of a text with line ends CR LF, LF or CR in any mixture; a line end at the very end opens no new line.
std::vector<String> SplitLines(StringView text);

/// Upper-case hexadecimal with at least `digits` digits (at most 32).
String UIntToHex(std::uint64_t value, int digits);
/// The same for any integer; a negative one is shown in the two's complement of its own width.
template <std::integral T>
String IntToHex(T value, int digits = static_cast<int>(sizeof(T) * 2)) {
    return UIntToHex(static_cast<std::make_unsigned_t<T>>(value), digits);
}

} // namespace framework
