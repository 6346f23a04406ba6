#include "framework/windows/scrollbox_rules.h"

#include <algorithm>

namespace framework {

int ClampScroll(int wanted, int range, int extent) {
    return std::clamp(wanted, 0, std::max(range - extent, 0));
}

int ScrollToShow(int position, int start, int end, int extent) {
    if (start < 0 || end - start > extent)
        return position + start;
    return end > extent ? position + end - extent : position;
}

int TWheelSteps::Add(int delta, int linesPerNotch) {
    constexpr int kNotch = 120;
    if ((delta < 0) != (FRest < 0))
        FRest = 0;
    FRest += delta * linesPerNotch;
    const int steps = FRest / kNotch;
    FRest -= steps * kNotch;
    return steps;
}

} // namespace framework
