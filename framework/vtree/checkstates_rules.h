#pragma once

// What check boxes of nodes become: by a click, and by those of their children.

#include "framework/vtree/virtualnode_rules.h"

#include <cstddef>

namespace framework {

constexpr bool IsPressed(TCheckState state) {
    return state % 2 != 0;
}
constexpr TCheckState PressedState(TCheckState state) {
    return static_cast<TCheckState>(state | 1);
}
constexpr TCheckState UnpressedState(TCheckState state) {
    return static_cast<TCheckState>(state & ~1);
}

/// The state after a click on a box in `state`; none that is pressed. A box in the third state becomes checked.
TCheckState NextCheckState(TCheckType type, TCheckState state);

/// Sums up the boxes of children: checked when all are, unchecked when none is, mixed otherwise.
class TCheckSummary {
public:
    void Add(TCheckState state);
    /// Nothing to say when there were no children with boxes.
    bool Empty() const { return FBoxes == 0; }
    TCheckState State() const;

private:
    std::size_t FBoxes = 0;
    std::size_t FChecked = 0;
    std::size_t FUnchecked = 0;
};

} // namespace framework
