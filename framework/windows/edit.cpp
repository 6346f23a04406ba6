#include "framework/windows/edit.h"

#include "framework/graphics/textmetrics.h"

#include <algorithm>
#include <commctrl.h>

namespace framework {

namespace {

constexpr int kInitialWidth = 121;
constexpr int kInitialHeight = 21;
constexpr char16_t kControlA = 1; // the character that Ctrl+A types

} // namespace

String ConvertCase(StringView text, TEditCharCase charCase) {
    String result(text);
    if (charCase == ecUpperCase)
        CharUpperBuffW(WideChars(result), static_cast<DWORD>(result.size()));
    else if (charCase == ecLowerCase)
        CharLowerBuffW(WideChars(result), static_cast<DWORD>(result.size()));
    return result;
}

const TEnumInfo& DescribeEnum(TEditCharCase) {
    static const TEnumInfo info{u"TEditCharCase", {u"ecNormal", u"ecUpperCase", u"ecLowerCase"}};
    return info;
}

const TClassInfo& TCustomEdit::StaticClass() {
    static const TClassInfo info =
        DescribeClass<TCustomEdit>(u"TCustomEdit", TWinControl::StaticClass(), {controlrows::TabStop(true)});
    return info;
}

namespace editrows {

using E = TCustomEdit;

TPropInfo Alignment() {
    return Property<&E::GetAlignment, &E::SetAlignment>(u"Alignment", taLeftJustify);
}

TPropInfo AutoSelect() {
    return Property<&E::GetAutoSelect, &E::SetAutoSelect>(u"AutoSelect", true);
}

TPropInfo BorderStyle() {
    return controlrows::ControlBorder(Property<&E::GetBorderStyle, &E::SetBorderStyle>(u"BorderStyle", bsSingle));
}

TPropInfo CharCase() {
    return Property<&E::GetCharCase, &E::SetCharCase>(u"CharCase", ecNormal);
}

TPropInfo HideSelection() {
    return Property<&E::GetHideSelection, &E::SetHideSelection>(u"HideSelection", true);
}

TPropInfo MaxLength() {
    return Property<&E::GetMaxLength, &E::SetMaxLength>(u"MaxLength", 0);
}

TPropInfo PasswordChar() {
    return Property<&E::GetPasswordChar, &E::SetPasswordChar>(u"PasswordChar", u'\0');
}

TPropInfo ReadOnly() {
    return Property<&E::GetReadOnly, &E::SetReadOnly>(u"ReadOnly", false);
}

TPropInfo OnChange() {
    return Event<&E::OnChange>(u"OnChange");
}

} // namespace editrows

const TClassInfo& TEdit::StaticClass() {
    namespace row = controlrows;
    namespace edit = editrows;
    static const TClassInfo info = DescribeClass<TEdit>(
        u"TEdit", TCustomEdit::StaticClass(),
        {row::Align(),
         edit::Alignment(),
         row::Anchors(),
         edit::AutoSelect(),
         row::AutoSize(true),
         row::BiDiMode(),
         edit::BorderStyle(),
         edit::CharCase(),
         row::Color(clWindow),
         row::Constraints(),
         row::Ctl3D(),
         row::DoubleBuffered(),
         row::Enabled(),
         row::Font(),
         edit::HideSelection(),
         edit::MaxLength(),
         Property<&TCustomEdit::GetNumbersOnly, &TCustomEdit::SetNumbersOnly>(u"NumbersOnly", false),
         row::ParentLinks(false),
         edit::PasswordChar(),
         edit::ReadOnly(),
         row::ShowHint(),
         row::TabOrder(),
         row::TabStop(true),
         row::Text(),
         row::Visible(),
         edit::OnChange(),
         row::InputEvents()});
    return info;
}

TCustomEdit::TCustomEdit(TComponent* owner) : TTextControl(owner) {
    FControlStyle >> csCaptureMouse; // the native control captures by itself while text is being selected
    SetBounds(0, 0, kInitialWidth, kInitialHeight);
    SetParentColor(false);
    SetTabStop(true);
    SetAutoSize(true);
}

// The window

void TCustomEdit::CreateParams(TCreateParams& params) {
    TWinControl::CreateParams(params);
    CreateSubClass(params, WC_EDITW);
    TAlignment shown = FAlignment;
    if (UseRightToLeftAlignment() && shown != taCenter)
        shown = shown == taLeftJustify ? taRightJustify : taLeftJustify;
    params.ExStyle &= ~static_cast<DWORD>(WS_EX_RIGHT); // would mean ES_RIGHT
    params.Style |= ES_AUTOHSCROLL;
    params.Style |= shown == taCenter ? ES_CENTER : shown == taRightJustify ? ES_RIGHT : ES_LEFT;
    params.Style |= FCharCase == ecUpperCase ? ES_UPPERCASE : FCharCase == ecLowerCase ? ES_LOWERCASE : 0;
    if (FPasswordChar)
        params.Style |= ES_PASSWORD;
    if (FReadOnly)
        params.Style |= ES_READONLY;
    if (!FHideSelection)
        params.Style |= ES_NOHIDESEL;
    if (FNumbersOnly)
        params.Style |= ES_NUMBER;
    AddBorder(params, FBorderStyle);
}

void TCustomEdit::CreateWnd() {
    const TSelection selection = GetSelection();
    TWinControl::CreateWnd();
    if (FPasswordChar)
        SendMessageW(FHandle, EM_SETPASSWORDCHAR, FPasswordChar, 0);
    DoSetMaxLength(std::max(FMaxLength, 0));
    SetSelection(selection);
    SendMessageW(FHandle, EM_SETMODIFY, FModified, 0);
    FReportedText = GetText();
}

void TCustomEdit::KeepWindowState() {
    FModified = GetModified();
    TTextControl::KeepWindowState();
}

bool TCustomEdit::IsMultiLine() const {
    return HandleAllocated() && (GetWindowLongPtrW(FHandle, GWL_STYLE) & ES_MULTILINE) != 0;
}

// Setters

void TCustomEdit::SetAlignment(TAlignment value) {
    if (FAlignment == value)
        return;
    FAlignment = value;
    RecreateWnd();
}

void TCustomEdit::SetBorderStyle(TBorderStyle value) {
    if (FBorderStyle == value)
        return;
    FBorderStyle = value;
    TLifeGuard alive(*this);
    AdjustSize();
    if (alive)
        RecreateWnd();
}

void TCustomEdit::SetCharCase(TEditCharCase value) {
    if (FCharCase == value)
        return;
    FCharCase = value;
    ChangeWindowStyle(ES_UPPERCASE | ES_LOWERCASE, false);
    if (value != ecNormal)
        ChangeWindowStyle(value == ecUpperCase ? ES_UPPERCASE : ES_LOWERCASE, true);
    SetText(ConvertCase(GetText(), value));
}

void TCustomEdit::SetHideSelection(bool value) {
    if (FHideSelection == value)
        return;
    FHideSelection = value;
    RecreateWnd();
}

void TCustomEdit::SetMaxLength(int value) {
    value = std::max(value, 0);
    if (FMaxLength == value)
        return;
    FMaxLength = value;
    if (HandleAllocated())
        DoSetMaxLength(value);
}

void TCustomEdit::DoSetMaxLength(int value) {
    SendMessageW(GetHandle(), EM_SETLIMITTEXT, static_cast<WPARAM>(value), 0);
}

bool TCustomEdit::GetModified() const {
    return HandleAllocated() ? SendMessageW(FHandle, EM_GETMODIFY, 0, 0) != 0 : FModified;
}

void TCustomEdit::SetModified(bool value) {
    FModified = value;
    if (HandleAllocated())
        SendMessageW(FHandle, EM_SETMODIFY, value, 0);
}

void TCustomEdit::SetNumbersOnly(bool value) {
    if (FNumbersOnly == value)
        return;
    FNumbersOnly = value;
    ChangeWindowStyle(ES_NUMBER, value);
}

void TCustomEdit::SetPasswordChar(char16_t value) {
    if (FPasswordChar == value)
        return;
    FPasswordChar = value;
    if (HandleAllocated()) {
        SendMessageW(FHandle, EM_SETPASSWORDCHAR, value, 0);
        Invalidate();
    }
}

void TCustomEdit::SetReadOnly(bool value) {
    if (FReadOnly == value)
        return;
    FReadOnly = value;
    if (HandleAllocated())
        SendMessageW(FHandle, EM_SETREADONLY, value, 0);
}

// Size

int TCustomEdit::GetFittingHeight() const {
    // Two pixels of air above and below the letters, inside the border.
    constexpr int kMargins = 4;
    const int border = GetCtl3D() ? GetSystemMetrics(SM_CYEDGE) : GetSystemMetrics(SM_CYBORDER);
    return TTextMeasure(*GetFont()).LineHeight() + kMargins + 2 * border;
}

void TCustomEdit::AdjustSize() {
    if (GetAutoSize() && FBorderStyle == bsSingle && !IsLoading())
        SetBounds(GetLeft(), GetTop(), GetWidth(), GetFittingHeight());
}

// Commands

void TCustomEdit::ClearSelection() {
    SendMessageW(GetHandle(), WM_CLEAR, 0, 0);
}

void TCustomEdit::CopyToClipboard() {
    SendMessageW(GetHandle(), WM_COPY, 0, 0);
}

void TCustomEdit::CutToClipboard() {
    SendMessageW(GetHandle(), WM_CUT, 0, 0);
}

void TCustomEdit::PasteFromClipboard() {
    SendMessageW(GetHandle(), WM_PASTE, 0, 0);
}

void TCustomEdit::Undo() {
    SendMessageW(GetHandle(), EM_UNDO, 0, 0);
}

void TCustomEdit::ClearUndo() {
    if (HandleAllocated())
        SendMessageW(FHandle, EM_EMPTYUNDOBUFFER, 0, 0);
}

bool TCustomEdit::CanUndo() const {
    return HandleAllocated() && SendMessageW(FHandle, EM_CANUNDO, 0, 0) != 0;
}

// Messages

void TCustomEdit::Dispatch(TMessage& message) {
    switch (message.Msg) {
    case WM_SETTEXT:
        return WMSetText(message);
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK: {
        TLifeGuard alive(*this);
        FPressed = true;
        TWinControl::Dispatch(message);
        if (alive)
            FPressed = false;
        return;
    }
    case CN_COMMAND:
        return CNCommand(message);
    case CM_CTL3DCHANGED: {
        TLifeGuard alive(*this);
        TWinControl::Dispatch(message);
        if (alive)
            AdjustSize();
        return;
    }
    default:
        TWinControl::Dispatch(message);
    }
}

void TCustomEdit::DefaultHandler(TMessage& message) {
    // Some systems' single-line window keeps the wheel to itself, although there is nothing to scroll in it.
    if (message.Msg == WM_MOUSEWHEEL && HandleAllocated() && !IsMultiLine())
        message.Result = SendMessageW(GetAncestor(FHandle, GA_PARENT), message.Msg, message.WParam, message.LParam);
    else
        TWinControl::DefaultHandler(message);
}

void TCustomEdit::WMSetText(TMessage& message) {
    if (!HandleAllocated()) {
        SetSelection({});
        FModified = false;
    }
    if (FCharCase == ecNormal || !message.LParam) {
        TWinControl::Dispatch(message);
        return;
    }
    const String text = ConvertCase(reinterpret_cast<const char16_t*>(message.LParam), FCharCase);
    message.LParam = reinterpret_cast<LPARAM>(text.c_str());
    TWinControl::Dispatch(message);
}

void TCustomEdit::CNCommand(TMessage& message) {
    // The text that a window is created with is no change.
    if (HighWord(message.WParam) != EN_CHANGE || FControlState.Contains(csCreating))
        return;
    // Windows tell of an undo twice, and of keys that a limit turned away; lines of any number are not compared.
    if (!IsMultiLine()) {
        String text = GetText();
        if (text == FReportedText)
            return;
        FReportedText = std::move(text);
    }
    Change();
}

void TCustomEdit::CMTextChanged(TMessage& message) {
    TLifeGuard alive(*this);
    TWinControl::CMTextChanged(message);
    // A single-line window reports the text set by the program itself (EN_CHANGE).
    if (alive && (!HandleAllocated() || IsMultiLine()))
        Change();
}

void TCustomEdit::Change() {
    Fire(*this, OnChange, this);
}

void TCustomEdit::KeyPress(char16_t& key) {
    TLifeGuard alive(*this);
    TWinControl::KeyPress(key);
    if (alive && key == kControlA) {
        SelectAll();
        key = 0;
    }
}

void TCustomEdit::CMEnter(TMessage& message) {
    // A click places the caret itself.
    if (FAutoSelect && !FPressed && !IsMultiLine())
        SelectAll();
    TWinControl::CMEnter(message);
}

void TCustomEdit::CMFontChanged(TMessage& message) {
    TLifeGuard alive(*this);
    TWinControl::CMFontChanged(message);
    if (alive)
        AdjustSize();
}

} // namespace framework
