#pragma once

// The framing for fields with an edit part and a drop button: the native combo box paints its border itself, so the
// frame comes over it, and the hint stands in the edit part.

#include "foundation/Zorframed.h"
#include "framework/windows/combobox.h"

namespace ZOR {

/// Frames a combo box; the requirement differs from field to field.
constexpr TFraming ComboFraming(TRequirementPolicy requirement) {
    TFraming framing;
    framing.Requirement = requirement;
    framing.StateChanged = TFrameRepaint::Repaint;
    framing.EnabledChanged = TFrameRepaint::Repaint;
    framing.Place = TFramePlace::OverClient;
    framing.HintInPart = true;
    return framing;
}

template <class TBase, const TFraming& Framing>
class TZORFramedCombo : public TZORFramed<TBase, Framing> {
public:
    explicit TZORFramedCombo(TComponent* owner) : TZORFramed<TBase, Framing>(owner) {}

protected:
    void EditWndProc(TMessage& message) override {
        if (message.Msg == WM_PAINT) {
            if (const String hint = this->HintToShow(); !hint.empty()) {
                PaintHintInside(this->GetEditHandle(), *this, hint, message);
                return;
            }
        }
        TZORFramed<TBase, Framing>::EditWndProc(message);
    }
    /// Whether a point of the client area lies on the drop button.
    bool OnDropButton(TPoint point) const {
        COMBOBOXINFO info{};
        info.cbSize = sizeof(info);
        return GetComboBoxInfo(this->GetHandle(), &info) && FromWin(info.rcButton).Contains(point);
    }
};

} // namespace ZOR
