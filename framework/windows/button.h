#pragma once

// Push buttons and check boxes over the native BUTTON window.

#include "framework/windows/forms.h"

namespace framework {

/// What push buttons and check boxes share: a press first moves the focus here, and when another control refuses to
/// give it up, the press does not count.
class TButtonControl : public TWinControl {
    FRAMEWORK_CLASS(TButtonControl)

public:
    FRAMEWORK_PROPERTY(bool, WordWrap, GetWordWrap, SetWordWrap);

    explicit TButtonControl(TComponent* owner);

    /// Whether a long caption is broken into several lines.
    bool GetWordWrap() const { return FWordWrap; }
    void SetWordWrap(bool value);

protected:
    void CreateParams(TCreateParams& params) override;
    void Dispatch(TMessage& message) override;
    void CMDialogChar(TMessage& message) override;
    /// The native button was clicked (BN_CLICKED).
    virtual void NativeClick() { Click(); }
    /// The accelerator key in the caption was pressed.
    virtual void AcceleratorPressed() { Click(); }

private:
    bool FWordWrap = false;
};

class TCustomButton : public TButtonControl {
    FRAMEWORK_CLASS(TCustomButton)

public:
    FRAMEWORK_PROPERTY(bool, Cancel, GetCancel, SetCancel);
    FRAMEWORK_PROPERTY(bool, Default, GetDefault, SetDefault);
    FRAMEWORK_PROPERTY(TModalResult, ModalResult, GetModalResult, SetModalResult);

    explicit TCustomButton(TComponent* owner);

    /// Whether Esc clicks the button, wherever on the form the focus is.
    bool GetCancel() const { return FCancel; }
    void SetCancel(bool value) { FCancel = value; }
    /// Whether Enter clicks the button while no other button has the focus.
    bool GetDefault() const { return FDefault; }
    void SetDefault(bool value);
    /// What a click sets the form's ModalResult to; mrNone leaves a modal form open.
    TModalResult GetModalResult() const { return FModalResult; }
    void SetModalResult(TModalResult value) { FModalResult = value; }

    /// Sets the form's ModalResult, then fires OnClick.
    void Click() override;

protected:
    void CreateParams(TCreateParams& params) override;
    void CreateWnd() override;
    void Dispatch(TMessage& message) override;
    void CMDialogKey(TMessage& message) override;
    /// Shows whether this is the button that Enter clicks now (BM_SETSTYLE).
    virtual void SetButtonStyle(bool isDefault);

private:
    void CMFocusChanged(TMessage& message);

    TModalResult FModalResult = mrNone;
    bool FCancel = false;
    bool FDefault = false;
    bool FActive = false; // Enter clicks this button now: it has the focus, or is the default and no button has
};

class TButton : public TCustomButton {
    FRAMEWORK_CLASS(TButton)

public:
    explicit TButton(TComponent* owner) : TCustomButton(owner) {}
};

enum TCheckBoxState { cbUnchecked, cbChecked, cbGrayed };
const TEnumInfo& DescribeEnum(TCheckBoxState);
/// Where a click leads from a state.
constexpr TCheckBoxState NextCheckBoxState(TCheckBoxState state, bool allowGrayed) {
    if (state == cbUnchecked)
        return allowGrayed ? cbGrayed : cbChecked;
    return state == cbGrayed ? cbChecked : cbUnchecked;
}

class TCustomCheckBox : public TButtonControl {
    FRAMEWORK_CLASS(TCustomCheckBox)

public:
    FRAMEWORK_PROPERTY(TAlignment, Alignment, GetAlignment, SetAlignment);
    FRAMEWORK_PROPERTY(bool, AllowGrayed, GetAllowGrayed, SetAllowGrayed);
    FRAMEWORK_PROPERTY(bool, Checked, GetChecked, SetChecked);
    FRAMEWORK_PROPERTY(TCheckBoxState, State, GetState, SetState);

    explicit TCustomCheckBox(TComponent* owner);

    /// The side of the box on which the caption stands: taRightJustify or taLeftJustify.
    TAlignment GetAlignment() const { return FAlignment; }
    void SetAlignment(TAlignment value);
    /// Whether the user can choose the third state.
    bool GetAllowGrayed() const { return FAllowGrayed; }
    void SetAllowGrayed(bool value) { FAllowGrayed = value; }
    bool GetChecked() const { return FState == cbChecked; }
    void SetChecked(bool value) { SetState(value ? cbChecked : cbUnchecked); }
    TCheckBoxState GetState() const { return FState; }
    /// A new state is a click: OnClick fires, whoever set it.
    void SetState(TCheckBoxState value);

protected:
    void CreateParams(TCreateParams& params) override;
    void CreateWnd() override;
    void NativeClick() override { Toggle(); }
    void AcceleratorPressed() override;
    /// The user's click: on to the next state.
    virtual void Toggle();

private:
    TCheckBoxState FState = cbUnchecked;
    TAlignment FAlignment = taRightJustify;
    bool FAllowGrayed = false;
};

class TCheckBox : public TCustomCheckBox {
    FRAMEWORK_CLASS(TCheckBox)

public:
    explicit TCheckBox(TComponent* owner) : TCustomCheckBox(owner) {}
};

} // namespace framework
