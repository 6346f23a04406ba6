#pragma once

// What a hint says and where its window goes, decided without a window.

#include "framework/system/types.h"

namespace framework {

/// The part of a hint that pops up beside the pointer: all before the first '|'.
String GetShortHint(StringView hint);
/// The part of a hint meant for a status line: all behind the first '|', or the whole hint when it has none.
String GetLongHint(StringView hint);

/// The left upper corner of a hint window, in screen pixels. It goes below the pointer, `cursorHeight` pixels under its
/// hot spot, or above the hot spot where there is no room below, and never leaves `workArea`.
TPoint PlaceHint(TPoint hotSpot, int cursorHeight, TSize hint, const TRect& workArea);

} // namespace framework
