#pragma once

// The simple case mapping of Unicode (one unit to one unit, so that text keeps its length and positions) for the
// bicameral scripts of data entry: Latin, Greek, Cyrillic, Armenian, and the Roman, circled and fullwidth letters.
// Independent of locale and platform; U+00DF has no capital here.

#include <cstddef>

namespace framework {

/// The small letter of a capital or title letter; any other unit unchanged.
char16_t ToLowerCase(char16_t unit);
/// The small letters of many units; stretches of ASCII go by several at a time.
void LowerCaseInPlace(char16_t* units, std::size_t count);
/// The capital of a small or title letter; any other unit unchanged.
char16_t ToUpperCase(char16_t unit);
/// One representative for all units that differ in case only: final and medial sigma, micro sign and mu, and the
/// dotted and dotless i fall together.
char16_t FoldCase(char16_t unit);

} // namespace framework
