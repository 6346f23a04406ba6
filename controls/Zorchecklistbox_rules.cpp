#include "controls/Zorchecklistbox_rules.h"

namespace ZOR {

void TCheckClick::MouseDown() {
    FMouse = true;
    FKey = false;
    FPending = false; // of a press that led to no click
}

void TCheckClick::Key() {
    FKey = true;
    FMouse = false;
}

void TCheckClick::BoxToggled(bool onText) {
    if (onText && !FKey)
        FPending = true;
}

bool TCheckClick::Click(bool onText, bool hasItem) {
    const bool toggles = onText && !FPending && hasItem && FMouse;
    if (onText)
        FPending = false;
    FMouse = false;
    FKey = false;
    return toggles;
}

} // namespace ZOR
