#pragma once

// Painting by the program in place of a native control: the state of what is painted, and the events.

#include "framework/windows/wincontrol.h"

namespace framework {

/// The ODS_... bits of Win32, in their order.
enum TOwnerDrawStateElement {
    odSelected,
    odGrayed,
    odDisabled,
    odChecked,
    odFocused,
    odDefault,
    odHotLight,
    odInactive,
    odNoAccel,
    odNoFocusRect,
    odReserved1,
    odReserved2,
    odComboBoxEdit,
};
using TOwnerDrawState = Set<TOwnerDrawStateElement>;

using TDrawItemEvent = std::function<void(TWinControl* Control, int Index, TRect Rect, TOwnerDrawState State)>;
using TMeasureItemEvent = std::function<void(TWinControl* Control, int Index, int& Height)>;

/// The state of a DRAWITEMSTRUCT.
inline TOwnerDrawState OwnerDrawState(const DRAWITEMSTRUCT& item) {
    return TOwnerDrawState::FromBits(item.itemState & 0x1FFFu);
}

} // namespace framework
