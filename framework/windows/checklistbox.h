#pragma once

// A list whose items have check boxes. A click on the box or the space key changes its state.

#include "framework/windows/button.h"
#include "framework/windows/listbox.h"

namespace framework {

class TCustomCheckListBox : public TCustomListBox {
    FRAMEWORK_CLASS(TCustomCheckListBox)

public:
    FRAMEWORK_PROPERTY(bool, AllowGrayed, GetAllowGrayed, SetAllowGrayed);
    FRAMEWORK_PROPERTY(bool, Checked[], GetChecked, SetChecked);
    FRAMEWORK_PROPERTY(bool, ItemEnabled[], GetItemEnabled, SetItemEnabled);
    FRAMEWORK_PROPERTY(TCheckBoxState, State[], GetState, SetState);

    /// The user changed the state of the item ItemIndex.
    TNotifyEvent OnClickCheck;

    explicit TCustomCheckListBox(TComponent* owner);

    /// Whether the user can choose the third state.
    bool GetAllowGrayed() const { return FAllowGrayed; }
    void SetAllowGrayed(bool value) { FAllowGrayed = value; }
    /// Set by the program, a state fires no event. EListError when the index is not in 0..Count-1. States go with their
    /// items when those move or are sorted.
    bool GetChecked(int index) const { return GetState(index) == cbChecked; }
    void SetChecked(int index, bool value) { SetState(index, value ? cbChecked : cbUnchecked); }
    TCheckBoxState GetState(int index) const;
    void SetState(int index, TCheckBoxState value);
    /// Whether the user can change the state. The text of an item that is not enabled is grey.
    bool GetItemEnabled(int index) const;
    void SetItemEnabled(int index, bool value);

protected:
    void CreateParams(TCreateParams& params) override;
    void CreateWnd() override;
    void DrawItem(int index, TRect rect, TOwnerDrawState state) override;
    void MouseDown(TMouseButton button, TShiftState shift, int x, int y) override;
    void KeyPress(char16_t& key) override;
    void CMFontChanged(TMessage& message) override;

    /// The user changed a state: fires OnClickCheck.
    virtual void ClickCheck();
    /// The place of the box within an item.
    TRect BoxRect(const TRect& item) const;

private:
    void Toggle(int index);
    void RepaintItem(int index);
    void FitItemHeight();
    TSize BoxSize() const;

    bool FAllowGrayed = false;
};

class TCheckListBox : public TCustomCheckListBox {
    FRAMEWORK_CLASS(TCheckListBox)

public:
    explicit TCheckListBox(TComponent* owner) : TCustomCheckListBox(owner) {}
};

} // namespace framework
