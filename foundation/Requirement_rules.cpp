#include "foundation/Requirement_rules.h"

namespace ZOR {

bool TRequirement::Set(TWymagany state) {
    if (state == FCurrent)
        return false;
    if (FPolicy.SetterRemembers && state != wError)
        FSaved = state;
    return Show(state);
}

bool TRequirement::SetEnabled(bool enabled) {
    if (!enabled && FCurrent != wNone) {
        FSaved = FCurrent;
        return Show(wNone);
    }
    if (FSaved == wNone)
        return false;
    // Painted even if the state was shown before: the control's enabled look has changed under the frame.
    FCurrent = FSaved;
    return true;
}

bool TRequirement::Restore() {
    if (FSaved == wError)
        FSaved = wNone;
    return Show(FSaved);
}

bool TRequirement::EndError(bool ends, bool textEmpty) {
    return ends && FCurrent == wError && !textEmpty && Show(FSaved);
}

bool TRequirement::Show(TWymagany state) {
    const bool changed = state != FCurrent;
    FCurrent = state;
    return changed;
}

} // namespace ZOR
