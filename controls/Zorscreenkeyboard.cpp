#include "controls/Zorscreenkeyboard.h"

namespace ZOR {

void TSignsKeyboard::Toggle(TWinControl& field, std::function<int()> lengthLimit) {
    if (!FExtraSignsForm) {
        FExtraSignsForm = std::make_unique<Textrasignsfrm>();
        FExtraSignsForm->SetLengthLimit(std::move(lengthLimit));
    }
    FExtraSignsForm->SetTarget(field.GetHandle());
    const bool open = IsOpen();
    FExtraSignsForm->Hide(); // also when it only believes to be shown: its window goes with that of a form made anew
    if (!open)
        FExtraSignsForm->Show();
}

void TSignsKeyboard::Follow(TWinControl& field) {
    if (!IsOpen() || !field.HandleAllocated())
        return;
    FExtraSignsForm->SetTarget(field.GetHandle()); // another one after the window was made anew
    FExtraSignsForm->MoveUnderTarget();
}

void TSignsKeyboard::ShiftChanged() {
    if (IsOpen())
        FExtraSignsForm->Invalidate();
}

void TSignsKeyboard::Hide() {
    if (FExtraSignsForm)
        FExtraSignsForm->Hide();
}

} // namespace ZOR
