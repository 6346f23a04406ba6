#pragma once

// Where children go when their parent's size changes: alignment to its sides, anchors, size limits. Pure arithmetic
// over rectangles in pixels.

#include "framework/system/sets.h"
#include "framework/system/types.h"

#include <span>

namespace framework {

enum TAlign { alNone, alTop, alBottom, alLeft, alRight, alClient, alCustom };

enum TAnchorKind { akLeft, akTop, akRight, akBottom };
using TAnchors = Set<TAnchorKind>;

/// Where a control lay when a person or a program placed it, and how large its parent's client area was then.
struct TAnchorBase {
    TRect Place;
    TSize Parent;
};

/// The control's place in a parent of another size: an anchored side keeps its distance to the parent's side; a
/// control anchored to neither side of an axis keeps its centre in proportion.
TRect AnchoredPlace(const TAnchorBase& base, TAnchors anchors, TSize parent);

/// A width or height within limits in pixels; a limit of 0 means none, and the lower limit wins over the upper.
int ConstrainedExtent(int extent, int minimum, int maximum);

/// A child that keeps to a side of its parent.
struct TAlignedChild {
    TAlign Align = alNone;
    TRect Place; ///< in: where it lies; out: where it goes
};

/// Places children within `client` in the customary order: top, bottom, left, right, then the rest for alClient.
/// Among children of one side those nearer to it come first. What is left of `client` is returned.
TRect AlignChildren(TRect client, std::span<TAlignedChild> children);

} // namespace framework
