#pragma once

// The parts of controls that scripts can point at by words, as in `click Popup key 3`. The gallery's own lists know
// theirs (TScriptSpots); units contribute those of the library's controls:
//
//     const TPartFinder finder(&FindDay);

#include "framework/windows/control.h"
#include "gallery/contributions.h"

#include <optional>
#include <vector>

namespace gallery {
using namespace framework;

/// Finds the part of a control that the words name, in screen pixels; nothing for controls and words that are not its
/// own.
using TPartFinder = TContribution<std::optional<TRect> (*)(TControl& control, const std::vector<String>& words)>;

/// Asks the control itself and every finder.
std::optional<TRect> FindPart(TControl& control, const std::vector<String>& words);

/// A control with its border, in screen pixels.
TRect ScreenRect(const TControl& control);
/// A part of a control, given in its client pixels, in screen pixels.
TRect OnScreen(const TControl& control, const TRect& rect);

} // namespace gallery
