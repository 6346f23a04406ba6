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

/// Paints one item in answer to CN_DRAWITEM: `drawItem` gets its index and place while `canvas` is bound to the item's
/// device context with the font and the colours that suit the state; the focus rectangle follows. `canvas` is shared,
/// so that it outlives a handler that frees the control.
void PaintOwnerDrawn(TWinControl& control, const std::shared_ptr<TCanvas>& canvas, int itemCount, TMessage& message,
                     const std::function<void(int, TRect, TOwnerDrawState)>& drawItem);
/// What an item looks like when the program leaves the painting to the control.
void DrawItemText(const TControl& control, TCanvas& canvas, TRect rect, StringView text);

} // namespace framework
