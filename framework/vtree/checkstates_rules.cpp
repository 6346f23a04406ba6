#include "framework/vtree/checkstates_rules.h"

namespace framework {

TCheckState NextCheckState(TCheckType type, TCheckState state) {
    if (type == ctNone)
        return UnpressedState(state);
    if (type == ctRadioButton)
        return csCheckedNormal;
    return UnpressedState(state) == csCheckedNormal ? csUncheckedNormal : csCheckedNormal;
}

void TCheckSummary::Add(TCheckState state) {
    ++FBoxes;
    FChecked += UnpressedState(state) == csCheckedNormal ? 1 : 0;
    FUnchecked += UnpressedState(state) == csUncheckedNormal ? 1 : 0;
}

TCheckState TCheckSummary::State() const {
    if (FChecked == FBoxes)
        return csCheckedNormal;
    return FUnchecked == FBoxes ? csUncheckedNormal : csMixedNormal;
}

} // namespace framework
