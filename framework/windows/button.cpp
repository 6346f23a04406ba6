#include "framework/windows/button.h"

#include <commctrl.h>

namespace framework {

namespace {

constexpr TSize kButtonSize{75, 25};
constexpr TSize kCheckBoxSize{97, 17};

/// The two alignments that put a caption on a side of a check box.
const TEnumInfo& LeftOrRight() {
    static const TEnumInfo info{u"TLeftRight", {u"taLeftJustify", u"taRightJustify"}};
    return info;
}

TPropInfo CheckBoxAlignment() {
    TPropInfo row =
        Property<&TCustomCheckBox::GetAlignment, &TCustomCheckBox::SetAlignment>(u"Alignment", taRightJustify);
    row.Enum = &LeftOrRight();
    return row;
}

TPropInfo WordWrapRow() {
    return Property<&TButtonControl::GetWordWrap, &TButtonControl::SetWordWrap>(u"WordWrap", false);
}

} // namespace

const TEnumInfo& DescribeEnum(TCheckBoxState) {
    static const TEnumInfo info{u"TCheckBoxState", {u"cbUnchecked", u"cbChecked", u"cbGrayed"}};
    return info;
}

const TClassInfo& TButtonControl::StaticClass() {
    static const TClassInfo info = DescribeClass<TButtonControl>(u"TButtonControl", TWinControl::StaticClass());
    return info;
}

const TClassInfo& TCustomButton::StaticClass() {
    static const TClassInfo info = DescribeClass<TCustomButton>(u"TCustomButton", TButtonControl::StaticClass());
    return info;
}

const TClassInfo& TCustomCheckBox::StaticClass() {
    static const TClassInfo info = DescribeClass<TCustomCheckBox>(u"TCustomCheckBox", TButtonControl::StaticClass());
    return info;
}

const TClassInfo& TButton::StaticClass() {
    namespace row = controlrows;
    static const TClassInfo info = DescribeClass<TButton>(
        u"TButton", TCustomButton::StaticClass(),
        {row::Align(),
         row::Anchors(),
         row::BiDiMode(),
         Property<&TCustomButton::GetCancel, &TCustomButton::SetCancel>(u"Cancel", false),
         row::Caption(),
         row::Constraints(),
         Property<&TCustomButton::GetDefault, &TCustomButton::SetDefault>(u"Default", false),
         row::DoubleBuffered(),
         row::Enabled(),
         row::Font(),
         Property<&TCustomButton::GetModalResult, &TCustomButton::SetModalResult>(u"ModalResult", mrNone),
         row::ParentBiDiMode(),
         row::ParentFont(),
         row::ParentShowHint(),
         row::ShowHint(),
         row::TabOrder(),
         row::TabStop(true),
         row::Visible(),
         WordWrapRow(),
         row::OnClick(),
         row::FocusEvents(),
         row::KeyEvents(),
         row::MouseEvents()});
    return info;
}

const TClassInfo& TCheckBox::StaticClass() {
    namespace row = controlrows;
    static const TClassInfo info = DescribeClass<TCheckBox>(
        u"TCheckBox", TCustomCheckBox::StaticClass(),
        {row::Align(),
         CheckBoxAlignment(),
         Property<&TCustomCheckBox::GetAllowGrayed, &TCustomCheckBox::SetAllowGrayed>(u"AllowGrayed", false),
         row::Anchors(),
         row::BiDiMode(),
         row::Caption(),
         Property<&TCustomCheckBox::GetChecked, &TCustomCheckBox::SetChecked>(u"Checked", false),
         row::Color(clWindow),
         row::Constraints(),
         row::Ctl3D(),
         row::DoubleBuffered(),
         row::Enabled(),
         row::Font(),
         row::ParentLinks(true),
         row::ShowHint(),
         Property<&TCustomCheckBox::GetState, &TCustomCheckBox::SetState>(u"State", cbUnchecked),
         row::TabOrder(),
         row::TabStop(true),
         row::Visible(),
         WordWrapRow(),
         row::OnClick(),
         row::FocusEvents(),
         row::KeyEvents(),
         row::MouseEvents()});
    return info;
}

// What both share

TButtonControl::TButtonControl(TComponent* owner) : TWinControl(owner) {
    // The native button captures the mouse and finds out about clicks by itself.
    FControlStyle >> csCaptureMouse >> csClickEvents >> csDoubleClicks;
    SetTabStop(true);
}

void TButtonControl::CreateParams(TCreateParams& params) {
    TWinControl::CreateParams(params);
    CreateSubClass(params, WC_BUTTONW);
    if (FWordWrap)
        params.Style |= BS_MULTILINE;
}

void TButtonControl::SetWordWrap(bool value) {
    if (FWordWrap == value)
        return;
    FWordWrap = value;
    RecreateWnd();
}

void TButtonControl::Dispatch(TMessage& message) {
    switch (message.Msg) {
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
        if (!IsDesigning() && !Focused()) {
            TLifeGuard alive(*this);
            ::SetFocus(FHandle);
            if (!alive || !Focused())
                return;
        }
        break;
    case CN_COMMAND:
        if (HighWord(message.WParam) == BN_CLICKED)
            NativeClick();
        return;
    default:
        break;
    }
    TWinControl::Dispatch(message);
}

void TButtonControl::CMDialogChar(TMessage& message) {
    if (!IsAccel(static_cast<WORD>(message.WParam), GetText()) || !CanFocus()) {
        TWinControl::CMDialogChar(message);
        return;
    }
    message.Result = 1;
    AcceleratorPressed();
}

// Push buttons

TCustomButton::TCustomButton(TComponent* owner) : TButtonControl(owner) {
    SetBounds(0, 0, kButtonSize.Width, kButtonSize.Height);
}

void TCustomButton::CreateParams(TCreateParams& params) {
    TButtonControl::CreateParams(params);
    params.Style |= FActive ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON;
}

void TCustomButton::CreateWnd() {
    TButtonControl::CreateWnd();
    SetButtonStyle(FActive);
}

void TCustomButton::SetDefault(bool value) {
    if (FDefault == value)
        return;
    FDefault = value;
    // All buttons of the form find out anew who is the one that Enter clicks.
    if (TCustomForm* form = GetParentForm(this))
        form->Perform(CM_FOCUSCHANGED, 0, reinterpret_cast<LPARAM>(form->GetActiveControl()));
    else
        FActive = value;
}

void TCustomButton::SetButtonStyle(bool isDefault) {
    if (HandleAllocated())
        SendMessageW(FHandle, BM_SETSTYLE, isDefault ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON, TRUE);
}

void TCustomButton::Dispatch(TMessage& message) {
    if (message.Msg == CM_FOCUSCHANGED)
        CMFocusChanged(message);
    else
        TButtonControl::Dispatch(message);
}

void TCustomButton::CMFocusChanged(TMessage& message) {
    TWinControl* focused = reinterpret_cast<TWinControl*>(message.LParam);
    const bool active = As<TCustomButton>(focused) ? focused == this : FDefault;
    if (active != FActive) {
        FActive = active;
        SetButtonStyle(active);
    }
    TButtonControl::Dispatch(message);
}

void TCustomButton::CMDialogKey(TMessage& message) {
    const bool meant = (message.WParam == VK_RETURN && FActive) || (message.WParam == VK_ESCAPE && FCancel);
    const TShiftState modifiers = ShiftStateFromKeyboard() * TShiftState{ssShift, ssAlt, ssCtrl};
    if (!meant || !modifiers.Empty() || !CanFocus()) {
        TButtonControl::CMDialogKey(message);
        return;
    }
    message.Result = 1;
    Click();
}

void TCustomButton::Click() {
    if (TCustomForm* form = GetParentForm(this))
        form->SetModalResult(FModalResult);
    TButtonControl::Click();
}

// Check boxes

TCustomCheckBox::TCustomCheckBox(TComponent* owner) : TButtonControl(owner) {
    SetBounds(0, 0, kCheckBoxSize.Width, kCheckBoxSize.Height);
}

void TCustomCheckBox::CreateParams(TCreateParams& params) {
    TButtonControl::CreateParams(params);
    params.Style |= BS_3STATE; // not the automatic one: the state lives here
    const bool mirrored = UseRightToLeftAlignment();
    params.ExStyle &= ~static_cast<DWORD>(WS_EX_RIGHT); // would move the caption away from its box
    if ((FAlignment == taLeftJustify) != mirrored)
        params.Style |= BS_LEFTTEXT;
    if (mirrored)
        params.Style |= BS_RIGHT; // the text begins at the right
}

void TCustomCheckBox::CreateWnd() {
    TButtonControl::CreateWnd();
    SendMessageW(FHandle, BM_SETCHECK, static_cast<WPARAM>(FState), 0);
}

void TCustomCheckBox::SetAlignment(TAlignment value) {
    if (FAlignment == value)
        return;
    FAlignment = value;
    RecreateWnd();
}

void TCustomCheckBox::SetState(TCheckBoxState value) {
    if (FState == value)
        return;
    FState = value;
    if (HandleAllocated())
        SendMessageW(FHandle, BM_SETCHECK, static_cast<WPARAM>(value), 0);
    if (!IsLoading())
        Click();
}

void TCustomCheckBox::Toggle() {
    SetState(NextCheckBoxState(FState, FAllowGrayed));
}

void TCustomCheckBox::AcceleratorPressed() {
    TLifeGuard alive(*this);
    SetFocus();
    if (alive && Focused())
        Toggle();
}

} // namespace framework
