#include "controls/Zorscreenkeyboard.h"

namespace ZOR {

void TSignsKeyboard::Toggle(TWinControl& field, std::function<int()> lengthLimit) {
    if (!FExtraSignsForm) {
        FExtraSignsForm = std::make_unique<Textrasignsfrm>();
        FExtraSignsForm->SetLengthLimit(std::move(lengthLimit));
    }
    if (FExtraSignsForm->IsOpen())
        FExtraSignsForm->CloseUp();
    else
        FExtraSignsForm->PopUp(field);
}

void TSignsKeyboard::Follow() {
    if (IsOpen())
        FExtraSignsForm->FollowTarget();
}

void TSignsKeyboard::ShiftChanged() {
    if (IsOpen())
        FExtraSignsForm->Invalidate();
}

void TSignsKeyboard::Hide() {
    if (FExtraSignsForm)
        FExtraSignsForm->CloseUp();
}

} // namespace ZOR
