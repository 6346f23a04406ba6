#pragma once

// How many GDI objects and windows the process has, to find those that nobody gave back.

#include <functional>
#include <iosfwd>

namespace testsupport {

struct THandleCounts {
    int GdiObjects = 0; ///< fonts, pens, brushes, bitmaps, regions and device contexts
    int Windows = 0;    ///< top-level, child and message-only ones
    friend bool operator==(const THandleCounts&, const THandleCounts&) = default;
};
std::ostream& operator<<(std::ostream& stream, const THandleCounts& counts);

/// Every window is asked for, so this takes milliseconds when there are many.
THandleCounts CountHandles();

/// Calls `work` a few times, so that caches and window classes are made, then `rounds` times more, and fails the test
/// when the counts differ before and after. `work` gives back all it takes, but for the GDI objects that the system is
/// known to lose by itself.
void ExpectSteadyHandles(int rounds, const std::function<void()>& work, int knownLossPerRound = 0);

/// How many GDI objects the system's own calendar window loses each time it is given a font: 1 in Wine, which does not
/// delete the bold font that it derives. What is left for rounds that make one such window.
int FontsLostByNativeCalendar();

} // namespace testsupport
