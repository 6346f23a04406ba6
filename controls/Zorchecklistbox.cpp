#include "controls/Zorchecklistbox.h"

#include "foundation/Zorpalette.h"

namespace ZOR {

const TClassInfo& TZORCheckListBox::StaticClass() {
    namespace row = framedrows;
    using Self = TZORCheckListBox;
    static const TClassInfo info = DescribeClass<Self>(
        u"TZORCheckListBox", TCheckListBox::StaticClass(),
        {row::Wymagany<Self>(),
         Property<&Self::GetCheckOnClickString, &Self::SetCheckOnClickString>(u"CheckOnClickString", false),
         row::OnValidateRequest<Self>(), row::BorderColors<Self>(), row::BoundLabel<Self>()});
    return info;
}

void TZORCheckListBox::MouseDown(TMouseButton button, TShiftState shift, int x, int y) {
    FClick.MouseDown();
    TZORFramed::MouseDown(button, shift, x, y);
}

void TZORCheckListBox::KeyDown(WORD& key, TShiftState shift) {
    FClick.Key(); // arrow keys choose without a character
    TZORFramed::KeyDown(key, shift);
}

void TZORCheckListBox::KeyPress(char16_t& key) {
    FClick.Key();
    TZORFramed::KeyPress(key);
}

void TZORCheckListBox::ClickCheck() {
    FClick.BoxToggled(FCheckOnClickString);
    TZORFramed::ClickCheck();
}

void TZORCheckListBox::Click() {
    const int index = ItemIndex;
    TLifeGuard alive(*this);
    if (FClick.Click(FCheckOnClickString, index >= 0) && GetItemEnabled(index)) {
        SetChecked(index, !GetChecked(index));
        TZORFramed::ClickCheck(); // the event alone
    }
    if (alive)
        TZORFramed::Click();
}

void TZORCheckListBox::WndProc(TMessage& message) {
    if (message.Msg == WM_HSCROLL)
        ScrollSideways(message);
    else
        TZORFramed::WndProc(message);
}

/// Scrolls, and paints everything anew with the frame. Where there is no frame to paint, the list hears of it a second
/// time, so that it scrolls two steps; this is meant.
void TZORCheckListBox::ScrollSideways(TMessage& message) {
    TLifeGuard alive(*this);
    TMessage again = message;
    TZORFramed::WndProc(message);
    if (!alive)
        return;
    Repaint();
    if (alive && !PaintRequirementFrame(this, true))
        TZORFramed::WndProc(again);
}

void Zorchecklistbox::Register() {
    RegisterComponents(PalettePage, {&TZORCheckListBox::StaticClass()});
}

} // namespace ZOR
