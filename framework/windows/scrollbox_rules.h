#pragma once

// How far a box scrolls, decided without a window. All values are pixels along one direction.

namespace framework {

/// The position nearest to `wanted` at which a view of `extent` shows nothing beyond `range`.
int ClampScroll(int wanted, int range, int extent);
/// The position that shows what lies from `start` to `end` of the view, moved as little as need be; what is longer
/// than the view shows its start.
int ScrollToShow(int position, int start, int end, int extent);

/// Turns of a wheel added up until they make whole lines.
class TWheelSteps {
public:
    /// The whole notches or lines in `delta` (120 a notch, fine wheels send less) at `linesPerNotch`; a turn into the
    /// other direction starts afresh.
    int Add(int delta, int linesPerNotch);

private:
    int FRest = 0;
};

} // namespace framework
