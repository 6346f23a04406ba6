#pragma once

// The list that drops down from a choice field: how large it is and where it opens, how its rows are stepped through,
// and how a row is put together from the characters that match and those around them.

#include "foundation/Popup_rules.h"
#include "lists/Choicesearch_rules.h"

#include <array>

namespace ZOR {

inline constexpr int ChoiceRowMargin = 2;  ///< pixels between a row's edge and its text
inline constexpr int ChoiceListBorder = 1; ///< pixels around the rows

/// How many rows the list shows before it scrolls.
int ShownRows(int itemCount, int dropDownCount);

/// The width of a list whose items need so many pixels: one that would fill the monitor keeps the margin at which it
/// begins.
int ChoiceListWidthOn(const TRect& workArea, int needed);

/// The place of the list's window, border included. Each of its rows takes `rowHeight` pixels and one more; the rows
/// without the border decide whether the list opens below the field or above. Either way the border covers that of
/// the field.
TRect ChoiceListPlace(const TRect& field, int width, int rowHeight, int rows, const TRect& workArea, bool rightToLeft);

/// The row above (-1) or below (1) the present one, and the first where none is chosen; -1 for an empty list.
int StepRow(int current, int count, int step);
/// The same by several rows at once, as far as there are rows.
int StepRows(int current, int count, int step);

/// True for texts that are read from right to left: the first letter that has a direction decides.
bool ReadsRightToLeft(StringView text);

/// The text before the match, the match, and the text behind it. Without a match the first is everything.
std::array<StringView, 3> SplitRow(StringView text, TTextRange match);

/// The places of the three runs side by side in a row, each as wide as it was measured; in the order of the runs.
std::array<TRect, 3> LayOutRow(const TRect& row, const std::array<int, 3>& widths, bool flushRight, bool rightToLeft);

} // namespace ZOR
