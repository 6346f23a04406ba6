// What the person does to the field by keyboard and mouse, and what is told of it.

#include "lists/Zorcomboboxnew.h"

#include <algorithm>

namespace ZOR {

namespace {

constexpr int kWheelRows = 3; // that the wheel scrolls the open list at a notch

} // namespace

// The choice by the person

void TZORComboBoxnew::Step(int step) {
    const int current = GetDroppedDown() ? GetPopup()->list_box->GetRow() : FShown.Item;
    const bool byOne = step == 1 || step == -1;
    StepTo(byOne ? StepRow(current, GetItems()->GetCount(), step) : StepRows(current, GetItems()->GetCount(), step));
}

void TZORComboBoxnew::StepTo(int row) {
    if (row < 0 || row >= GetItems()->GetCount() || GetReadOnly())
        return;
    FMemory.Begin(FShown);
    Choose(row);
    if (GetDroppedDown()) {
        GetPopup()->ShowRow(row, false);
        GetPopup()->list_box->Invalidate();
    }
    if (ChoosesFromList())
        SelectAll();
    else
        SetSelStart(GetTextLen());
    Tell();
}

/// Closes the list, then does the rest, and tells of the closing last.
void TZORComboBoxnew::CloseAnd(const std::function<void()>& rest) {
    TLifeGuard alive(*this);
    const bool open = GetDroppedDown();
    FHoldCloseUp = true;
    {
        const TAtScopeEnd closed(*this, [this] { FHoldCloseUp = false; });
        dropdown_close();
    }
    if (!alive)
        return;
    if (open)
        TellClosedAfter(rest);
    else
        rest();
}

/// Takes a row and closes the list; without a row it only closes, and an item that was typed in full is chosen.
void TZORComboBoxnew::TakeRow(int row) {
    CloseAnd([this, row] {
        if (row < 0 || row >= GetItems()->GetCount() || GetReadOnly()) {
            TellChoice();
            return;
        }
        FMemory.End();
        Choose(row);
        SelectAll();
        Tell();
    });
}

/// Brings back the text and the item from before the list opened or something was typed.
void TZORComboBoxnew::Restore() {
    CloseAnd([this] {
        const std::optional<TShownChoice> before = FMemory.TakeBefore();
        if (!before)
            return;
        Show(*before);
        FollowText(); // the items may be others by now
        if (FShown.Item < 0)
            FMemory.ForgetItem();
        SelectAll();
        Tell();
    });
}

void TZORComboBoxnew::PressArrow() {
    TLifeGuard alive(*this);
    if (GetDroppedDown()) {
        dropdown_close();
        return;
    }
    if (!Focused() && CanFocus())
        SetFocus();
    if (!alive || !Focused())
        return;
    if (GetItems()->GetCount() == 0)
        Fire(*this, OnNewClick, this);
    else
        dropdown_pop();
}

void TZORComboBoxnew::cust_MouseMove(TObject*, TShiftState, int x, int y) {
    TChoiceListBox& list = *GetPopup()->list_box;
    const TPoint pointer = list.ClientToScreen({x, y});
    if (pointer == FPointer)
        return;
    FPointer = pointer;
    if (const int row = list.RowAt({x, y}); row >= 0 && row != list.GetRow())
        list.SetRow(row);
}

void TZORComboBoxnew::cust_MouseUp(TObject*, TMouseButton button, TShiftState, int x, int y) {
    if (button != mbLeft || !GetDroppedDown())
        return;
    if (const int row = GetPopup()->list_box->RowAt({x, y}); row >= 0)
        cust_Click(row);
}

void TZORComboBoxnew::cust_Click(int row) {
    TakeRow(row);
}

void TZORComboBoxnew::cust_acc_OnTimer(TObject*) {
    // Where the key was let go of in a message box or another program, nobody has said so here.
    if (FHeldKey == 0 || !Focused() || GetKeyState(FHeldKey) >= 0) {
        cust_KeyUp(FHeldKey);
        return;
    }
    const int current = GetDroppedDown() ? GetPopup()->list_box->GetRow() : FShown.Item;
    const int next = StepRow(current, GetItems()->GetCount(), FHeldKey == VK_UP ? -1 : 1);
    if (next != FShown.Item)
        StepTo(next);
}

// Keys

/// A key means a row of the items as they are now; false where a handler of this ended the field.
bool TZORComboBoxnew::BringListInLine() {
    TLifeGuard alive(*this);
    if (FListStale)
        fit_popup();
    return static_cast<bool>(alive);
}

/// Does what a key means to the field; false for keys that are the platform's.
bool TZORComboBoxnew::HandleOwnKey(WORD key, TShiftState shift) {
    if (!BringListInLine())
        return true;
    const bool alt = shift.Contains(ssAlt);
    switch (key) {
    case VK_F4:
        if (alt)
            return false; // closes the window
        SetFDroppedDown(!GetDroppedDown());
        return true;
    case VK_UP:
    case VK_DOWN:
        if (alt) {
            SetFDroppedDown(!GetDroppedDown());
        } else if (FHeldKey != key) { // the system repeats a key that is held; here the timer does
            FHeldKey = key;
            FAccTimer.SetEnabled(false);
            FAccTimer.SetEnabled(true);
            Step(key == VK_UP ? -1 : 1);
        }
        return true;
    case VK_PRIOR:
    case VK_NEXT:
        if (GetDroppedDown())
            Step((key == VK_PRIOR ? -1 : 1) * std::max(FDropDownCount - 1, 1));
        return true;
    case VK_RETURN:
        if (GetDroppedDown())
            TakeRow(GetPopup()->list_box->GetRow());
        else
            TellChoice();
        return true;
    default:
        return false;
    }
}

void TZORComboBoxnew::KeyDown(WORD& key, TShiftState shift) {
    TLifeGuard alive(*this);
    TZORArrowField::KeyDown(key, shift);
    if (alive && key != 0 && HandleOwnKey(key, shift) && alive)
        key = 0;
}

void TZORComboBoxnew::KeyUp(WORD& key, TShiftState shift) {
    cust_KeyUp(key);
    TZORArrowField::KeyUp(key, shift);
}

void TZORComboBoxnew::cust_KeyUp(WORD key) {
    if (key != FHeldKey)
        return;
    FHeldKey = 0;
    FAccTimer.SetEnabled(false);
}

/// Keys that the form would have otherwise. True: dealt with.
bool TZORComboBoxnew::HandlePopupKey(TMessage& message) {
    const bool typed = FMemory.Before() && FMemory.Before()->Text != FShown.Text;
    switch (message.WParam) {
    case VK_ESCAPE:
        if (!GetDroppedDown() && !typed)
            return false;
        message.Result = 1;
        Restore();
        return true;
    case VK_TAB:
        if (BringListInLine() && GetDroppedDown() && GetKeyState(VK_CONTROL) >= 0)
            TakeRow(GetPopup()->list_box->GetRow());
        return false; // and moves on
    default:
        return false;
    }
}

// Mouse

bool TZORComboBoxnew::DoMouseWheel(TShiftState shift, int wheelDelta, TPoint mousePos) {
    TLifeGuard alive(*this);
    if (TZORArrowField::DoMouseWheel(shift, wheelDelta, mousePos) || !alive)
        return true;
    if (!Focused())
        return false;
    FWheel += wheelDelta; // fine wheels turn by less than a notch at a time
    const int notches = FWheel / WHEEL_DELTA;
    FWheel -= notches * WHEEL_DELTA;
    if (GetDroppedDown()) {
        TChoiceListBox& list = *GetPopup()->list_box;
        list.SetTopIndex(std::max(list.GetTopIndex() - notches * kWheelRows, 0));
    } else if (notches != 0) {
        StepTo(FShown.Item < 0 ? 0 : StepRows(FShown.Item, GetItems()->GetCount(), -notches));
    }
    return true;
}

} // namespace ZOR
