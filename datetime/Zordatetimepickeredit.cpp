#include "datetime/Zordatetimepickeredit.h"

#include "foundation/Zormessages.h"
#include "foundation/Zorpalette.h"
#include "framework/windows/clipboard.h"

#include <algorithm>

namespace ZOR {

namespace {

constexpr int kInitialWidth = 129;

} // namespace

const TClassInfo& TZORDateTimePickerEdit::StaticClass() {
    namespace row = controlrows;
    using D = TZORDateTimePickerEdit;
    static const TClassInfo info = DescribeClass<D>(
        u"TZORDateTimePickerEdit", TCustomComboBox::StaticClass(),
        {framedrows::Wymagany<D>(), framedrows::ShowHintInside<D>(), framedrows::HintLabel<D>(),
         Property<&D::GetStyle2, &D::SetStyle2>(u"Style", csDropDown),
         Property<&D::GetFDateTime, &D::SetFDate>(u"Date").Dated(TFloatKind::DateTime),
         // The same value once more; a form that is read may name it so, one that is written names it once.
         Property<&D::GetFDateTime, &D::SetFDate>(u"Value").Dated(TFloatKind::DateTime).NotStored(),
         Property<&D::GetFDateTime, &D::SetFDateTime>(u"DateTime").Dated(TFloatKind::DateTime).NotStored(),
         Property<&D::GetFMinDate, &D::SetFMinDate>(u"MinDate").Dated(TFloatKind::DateTime),
         Property<&D::GetFMaxDate, &D::SetFMaxDate>(u"MaxDate").Dated(TFloatKind::DateTime),
         Property<&D::GetFTime, &D::SetFTime>(u"Time").Dated(TFloatKind::Time).NotStored(),
         Property<&D::GetZORDroppedDown, &D::SetZORDroppedDown>(u"ZORDroppedDown", false).NotStored(),
         Property<&D::GetFDateFormat, &D::SetFDateFormat>(u"DateFormat", dfShort),
         Property<&D::GetFDateTimeView, &D::SetFDateTimeView>(u"DateTimeView", dtvDay),
         framedrows::OnValidateRequest<D>(), framedrows::BorderColors<D>(),
         Property<&D::GetUseMaskEdit, &D::SetUseMaskEdit>(u"UseMaskEdit", false), framedrows::BoundLabel<D>(),
         row::Align(), row::Anchors(), row::BiDiMode(), row::Color(clWindow), row::Constraints(), row::Ctl3D(),
         row::DoubleBuffered(), row::Enabled(), row::Font(),
         Property<&D::GetMaxLength, &D::SetMaxLength>(u"MaxLength", 0), row::ParentLinks(false), row::ShowHint(),
         row::TabOrder(), row::TabStop(true), row::Visible(), Event<&D::OnChange>(u"OnChange"), row::OnClick(),
         Event<&D::OnCloseUp>(u"OnCloseUp"), row::OnDblClick(), Event<&D::OnDropDown>(u"OnDropDown"),
         row::FocusEvents(), row::KeyEvents(), row::MouseEvents(), Event<&D::OnSelect>(u"OnSelect")});
    return info;
}

TZORDateTimePickerEdit::TZORDateTimePickerEdit(TComponent* owner) : TZORFramedCombo(owner) {
    SetAutoComplete(false);
    SetBounds(0, 0, kInitialWidth, GetHeight());
}

TZORDateTimePickerEdit::~TZORDateTimePickerEdit() {
    Destroying();
    DestroyHandle();
}

TDateField TZORDateTimePickerEdit::Field() const {
    const bool picksOnly = FPublishedStyle != csDropDown && FPublishedStyle != csSimple;
    return {EntrySettings(FormatSettings()), FDateFormat, FView, GetMaxLength(), picksOnly};
}

TDateCheck TZORDateTimePickerEdit::CheckedText() const {
    const TDateField field = Field();
    return ZOR::sprawdz_combosa(CompletedOnExit(GetText(), field), field);
}

/// Whether the text reads as the value, however it is written.
bool TZORDateTimePickerEdit::TextShowsValue() const {
    const TDateField field = Field();
    const TDateCheck check = CheckedText();
    return check.Valid && double_to_text(check.Value, field) == double_to_text(FValue.Current(), field);
}

TEntryText TZORDateTimePickerEdit::EntryText() const {
    return {GetText(), GetSelStart(), GetSelLength()};
}

// The value

void TZORDateTimePickerEdit::Announce() {
    if (IsLoading())
        return;
    const bool outer = std::exchange(FAnnouncing, true);
    const TAtScopeEnd told(*this, [this, outer] { FAnnouncing = outer; });
    TZORFramedCombo::Change();
}

void TZORDateTimePickerEdit::SetFWymagany(TWymagany value) {
    FTextInError = false;
    FTextOfError.reset();
    if (value == wError)
        FTextOfError = GetText();
    TZORFramedCombo::SetFWymagany(value);
}

void TZORDateTimePickerEdit::EndErrorOfAnotherText(const String& text) {
    if (text != FTextOfError)
        RestoreWymagany();
}

/// Shows a value that the program has set, and tells of it.
void TZORDateTimePickerEdit::ValueChanged(bool changed) {
    if (!changed)
        return;
    set_text();
    Announce();
}

void TZORDateTimePickerEdit::SetFDate(TDateTime value) {
    const bool changed = FValue.SetDate(value, FView);
    // What was half typed belongs to another record. A handler that echoes the value leaves the person typing.
    if (!changed && value == FValue.Current() && !FAnnouncing && !TextShowsValue())
        set_text();
    ValueChanged(changed);
}

void TZORDateTimePickerEdit::SetFTime(TDateTime value) {
    ValueChanged(FValue.SetTime(value));
}

void TZORDateTimePickerEdit::SetBound(bool (TDateValue::*setBound)(TDateTime, TDateTimeView), TDateTime value) {
    if (FBeforeTyping)
        (*FBeforeTyping.*setBound)(value, FView);
    const bool changed = (FValue.*setBound)(value, FView);
    ShowDateInCalendar();
    ValueChanged(changed);
}

void TZORDateTimePickerEdit::SetFMinDate(TDateTime value) {
    SetBound(&TDateValue::SetMinDate, value);
}

void TZORDateTimePickerEdit::SetFMaxDate(TDateTime value) {
    SetBound(&TDateValue::SetMaxDate, value);
}

void TZORDateTimePickerEdit::SetFDateFormat(TDTDateFormat value) {
    if (FDateFormat == value)
        return;
    FDateFormat = value;
    if (FValue.HasDate())
        set_text();
}

void TZORDateTimePickerEdit::SetFDateTimeView(TDateTimeView value) {
    if (FView == value)
        return;
    FView = value;
    FMonthEntry = {};
    const bool changed = FValue.SetView(value);
    if (FValue.HasDate())
        set_text();
    ValueChanged(changed);
}

void TZORDateTimePickerEdit::Clear() {
    const bool changed = FValue.Clear();
    set_text();
    if (changed)
        Announce();
}

void TZORDateTimePickerEdit::Loaded() {
    TZORFramedCombo::Loaded();
    set_text(); // by the format and the view that the text form has named last
}

// The text

void TZORDateTimePickerEdit::set_text() {
    FShowingText = true;
    SetText(double_to_text(FValue.Current(), Field()));
    FShowingText = false;
    TextIsRead();
    ShowDateInCalendar();
}

/// The text agrees with the value.
void TZORDateTimePickerEdit::TextIsRead() {
    FBeforeTyping.reset();
    if (std::exchange(FTextInError, false))
        RestoreWymagany();
}

bool TZORDateTimePickerEdit::sprawdz_combosa() {
    const TDateField field = Field();
    const String text = GetText();
    const TDateCheck check = ZOR::sprawdz_combosa(text, field);
    if (!check.Valid) {
        FTextInError = true;
        TZORFramedCombo::SetFWymagany(wError);
        return false;
    }
    const bool changed = FValue.Enter(check.Value, field);
    TextIsRead();
    if (!text.empty()) // the program may be asking for a date
        EndErrorOfAnotherText(text);
    if (changed)
        Announce();
    return true;
}

/// Takes over the value of a text that is being typed. While it cannot be read, the value is the one before it.
void TZORDateTimePickerEdit::TakeText() {
    if (!FBeforeTyping)
        FBeforeTyping = FValue;
    FValue = *FBeforeTyping;
    const TDateCheck check = CheckedText();
    if (!check.Valid)
        return;
    FValue.Enter(check.Value, Field());
    if (std::exchange(FTextInError, false))
        RestoreWymagany();
    ShowDateInCalendar();
}

void TZORDateTimePickerEdit::CMTextChanged(TMessage& message) {
    if (!FShowingText)
        TakeText(); // the program has set it
    TZORFramedCombo::CMTextChanged(message);
}

void TZORDateTimePickerEdit::Change() {
    if (FTyping) {
        FTypedChange = true; // told of once the mask has had its say
        return;
    }
    TakeText();
    Announce();
}

// Keys

void TZORDateTimePickerEdit::RestoreByEscape(int caret) {
    if (FBeforeTyping)
        FValue = *FBeforeTyping;
    set_text();
    RestoreWymagany();
    SetSelStart(caret);
    Announce();
}

void TZORDateTimePickerEdit::ClearByDelete() {
    const bool hadText = GetTextLen() != 0;
    const bool changed = FValue.ClearByDelete();
    set_text();
    if (changed || hadText)
        Announce();
}

void TZORDateTimePickerEdit::StepPart(int caret, int step) {
    const TDateField field = Field();
    if (!whats_marked(FValue, caret, step, Now(), field))
        return;
    set_text();
    SetSelStart(CaretAfterStep(GetText(), caret, field));
    Announce();
}

/// Whether Esc gives something up here: an error, or a text that cannot be read.
bool TZORDateTimePickerEdit::EscIsOwn() const {
    return GetFWymagany() == wError || (FBeforeTyping && !CheckedText().Valid);
}

/// Does what a key means to the field; false for keys that are the platform's.
bool TZORDateTimePickerEdit::HandleOwnKey(WORD key, TShiftState shift) {
    const int caret = GetSelStart();
    const bool alt = shift.Contains(ssAlt);
    switch (key) {
    case VK_F4:
        if (alt)
            return false; // closes the window
        calendar_pop();
        return true;
    case VK_UP:
    case VK_DOWN:
        if (alt)
            calendar_pop();
        else
            StepPart(caret, key == VK_UP ? 1 : -1);
        return true;
    case VK_RETURN:
        if (!GetZORDroppedDown())
            return false;
        FPopup->CloseUp();
        return true;
    case VK_ESCAPE:
        if (!EscIsOwn())
            return false;
        RestoreByEscape(caret);
        return true;
    case VK_DELETE:
        if (!Field().TypingIsClosed())
            return false;
        ClearByDelete();
        return true;
    default:
        return false;
    }
}

void TZORDateTimePickerEdit::KeyDown(WORD& key, TShiftState shift) {
    TLifeGuard alive(*this);
    if (key == VK_DELETE)
        FTypedKey = DeleteKey;
    const bool own = HandleOwnKey(key, shift);
    if (alive)
        TZORFramedCombo::KeyDown(key, shift);
    if (!alive)
        return;
    if (own)
        key = 0; // the native one would do something else with it
    if (FTyping)
        FBeforeKey = EntryText();
}

void TZORDateTimePickerEdit::TypeMonth(char16_t character) {
    const TDateField field = Field();
    const int caret = GetSelStart();
    const TDateTime before = FValue.Current();
    if (!whats_marked_ex(FMonthEntry, character, GetTickCount64(), FValue, Now(), field) || FValue.Current() == before)
        return;
    set_text();
    SetSelStart(caret);
    Announce();
}

void TZORDateTimePickerEdit::KeyPress(char16_t& key) {
    TLifeGuard alive(*this);
    if (FView == dtvMonth)
        TypeMonth(key);
    if (!alive)
        return;
    if (!AcceptsCharacter(key, EntryText(), FUseMaskEdit, Field())) {
        key = 0;
        return;
    }
    TZORFramedCombo::KeyPress(key);
    if (!alive)
        return;
    FTypedKey = key == u':' || key == Field().Settings.DateSeparator ? SeparatorKey : key;
    FBeforeKey = EntryText();
}

// A key, or a command of the menu, runs through the filter and the native edit first; the mask then rewrites what has
// become of the text, and the change is told of once.
void TZORDateTimePickerEdit::TypeKey(TMessage& message) {
    FBeforeKey = EntryText();
    const HWND edit = GetEditHandle();
    const int limit = GetMaxLength();
    FTypedKey = 0;
    FTypedChange = false;
    FTyping = true;
    TLifeGuard alive(*this);
    {
        const TAtScopeEnd typed(*this, [this, edit, limit] {
            FTyping = false;
            if (limit > 0 && edit == GetEditHandle())
                SendMessageW(edit, EM_SETLIMITTEXT, static_cast<WPARAM>(limit), 0);
        });
        // The mask cuts what a digit makes too long; the native limit would not let it in.
        if (IsMasked() && limit > 0)
            SendMessageW(edit, EM_SETLIMITTEXT, static_cast<WPARAM>(limit) + 1, 0);
        PassToEdit(message);
    }
    if (!alive || !FTypedChange)
        return;
    RewriteTyped();
    TakeText();
    if (GetText() != FBeforeKey.Text)
        Announce();
}

/// The keys of cut and paste come here once more, as the messages that the native edit makes of them.
void TZORDateTimePickerEdit::PassToEdit(TMessage& message) {
    switch (message.Msg) {
    case WM_PASTE:
        if (IsMasked())
            return PasteDate();
        break;
    case WM_CUT:
    case WM_CLEAR:
        FTypedKey = DeleteKey;
        break;
    default:
        break;
    }
    TZORFramedCombo::EditWndProc(message);
}

/// Into the mask goes what it can show: a date.
void TZORDateTimePickerEdit::PasteDate() {
    const auto clipboard = ClipboardText(GetHandle());
    const auto text = clipboard ? PastedDate(*clipboard, Field()) : std::nullopt;
    FTypedKey = 0;
    if (!text)
        return;
    SetEditText(*text);
    SetSelStart(GetTextLen());
    FTypedChange = true;
}

void TZORDateTimePickerEdit::RewriteTyped() {
    if (!IsMasked() || FTypedKey == 0)
        return;
    const TEntryText after = EntryText();
    const TEntryText result = RewriteTypedDate(FBeforeKey, after, FTypedKey, Field(), FValue.MinDate());
    if (result == after)
        return;
    if (result.Text != after.Text)
        SetEditText(result.Text);
    SetSelection({result.SelStart, result.SelStart + result.SelLength});
}

void TZORDateTimePickerEdit::EditWndProc(TMessage& message) {
    switch (message.Msg) {
    case WM_CHAR:
        return TypeKey(message);
    case WM_KEYDOWN:
        if (message.WParam == VK_DELETE)
            return TypeKey(message);
        break;
    case WM_PASTE:
    case WM_CUT:
    case WM_CLEAR:
    case WM_UNDO:
    case EM_UNDO:
        if (Field().TypingIsClosed())
            return;
        if (FTyping)
            return PassToEdit(message);
        return TypeKey(message);
    case WM_LBUTTONDOWN:
        if (GetZORDroppedDown()) {
            TLifeGuard alive(*this);
            FPopup->CloseUp();
            if (!alive)
                return;
        }
        break;
    default:
        break;
    }
    TZORFramedCombo::EditWndProc(message);
}

// The calendar

void TZORDateTimePickerEdit::WndProc(TMessage& message) {
    TLifeGuard alive(*this);
    if (FPopup && FPopup->HandleTargetMessage(message))
        return;
    if (!alive)
        return;
    switch (message.Msg) {
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK: {
        const TPoint point = PointFromLParam(message.LParam);
        if (!OnDropButton(point))
            break;
        calendar_pop();
        if (alive)
            MouseDown(mbLeft, ShiftStateFromMouse(message.WParam), point.X, point.Y);
        return;
    }
    case CB_SHOWDROPDOWN: // whoever asks for the list gets the calendar
        SetZORDroppedDown(message.WParam != 0);
        message.Result = TRUE;
        return;
    case CB_GETDROPPEDSTATE:
        message.Result = GetZORDroppedDown() ? TRUE : FALSE;
        return;
    case CM_WANTSPECIALKEY:
        if (message.WParam == VK_ESCAPE && EscIsOwn()) {
            message.Result = 1; // brings the value back; the form's Cancel comes next
            return;
        }
        break;
    default:
        break;
    }
    TZORFramedCombo::WndProc(message);
}

void TZORDateTimePickerEdit::SetZORDroppedDown(bool value) {
    if (GetZORDroppedDown() != value)
        calendar_pop();
}

void TZORDateTimePickerEdit::calendar_pop() {
    if (GetZORDroppedDown())
        FPopup->CloseUp();
    else
        OpenCalendar();
}

void TZORDateTimePickerEdit::OpenCalendar() {
    if (IsLoading() || IsDesigning() || !GetParent() || !CanFocus())
        return;
    if (!FPopup) {
        FPopup = std::make_unique<Tzor_cal_popup_form>();
        FPopup->OnPick = [this](TObject*) { cust_cal_Click(); };
        FPopup->OnCloseUp = [this](TObject*) { CloseUp(); };
    }
    TLifeGuard alive(*this);
    if (!Focused())
        SetFocus(); // the one that is left comes first
    if (!alive || !Focused())
        return;
    DropDown();
    if (!alive)
        return;
    FPopup->SetView(FView == dtvYear ? cvDecade : FView == dtvMonth ? cvYear : cvMonth);
    ShowDateInCalendar();
    FPopup->PopUp(*this);
    if (alive && !GetZORDroppedDown())
        CloseUp(); // a handler, or the focus elsewhere, was against it
}

void TZORDateTimePickerEdit::ShowDateInCalendar() {
    if (!FPopup)
        return;
    TMonthCalendar& calendar = *FPopup->GetCalendar();
    const TDateTime minDate = DateOf(FValue.MinDate());
    const TDateTime maxDate = DateOf(FValue.MaxDate());
    const bool apart = minDate != 0 && maxDate != 0 && minDate > maxDate; // then the upper one counts
    calendar.SetMinDate(minDate == 0 || apart ? 0 : std::max(minDate, LowestDate));
    calendar.SetMaxDate(maxDate);
    calendar.SetDate(FValue.HasDate() ? FValue.Current() : Now());
}

void TZORDateTimePickerEdit::cust_cal_Click() {
    TLifeGuard alive(*this);
    FValue.SetDate(DateOf(FPopup->GetCalendar()->GetDate()), FView);
    set_text();
    EndErrorOfAnotherText(GetText());
    FPopup->CloseUp();
    if (!alive)
        return;
    Announce(); // also when the same day was picked
    if (alive)
        Fire(*this, OnSelect, this);
}

// Leaving

/// The text without blanks around it, with a time that was typed without its separator, and read; what can be read
/// shows as the bounds and the view make it.
void TZORDateTimePickerEdit::CompleteText() {
    TLifeGuard alive(*this);
    const String text = GetText();
    const String completed = CompletedOnExit(text, Field());
    const bool isTextOfError = text == FTextOfError;
    if (completed != text)
        SetEditText(completed);
    if (!alive)
        return;
    if (isTextOfError)
        FTextOfError = completed;
    if (sprawdz_combosa() && alive && GetText() != double_to_text(FValue.Current(), Field()))
        set_text();
    if (alive && isTextOfError && FTextOfError)
        FTextOfError = GetText(); // the same in full
}

// An error that the program has set on an empty field is told of as well: nothing but a date, or Esc, ends it.
void TZORDateTimePickerEdit::DoExit() {
    TLifeGuard alive(*this);
    CompleteText();
    if (!alive || (GetFWymagany() == wError && !TellInvalid()))
        return;
    TZORFramedCombo::DoExit();
}

/// Shows the message and gives the focus back; false when the field is not to be left, or gone.
bool TZORDateTimePickerEdit::TellInvalid() {
    if (FTellingInvalid)
        return false; // the message itself takes the focus
    TLifeGuard alive(*this);
    TCustomForm* form = GetParentForm(this);
    {
        FTellingInvalid = true;
        const TAtScopeEnd told(*this, [this] { FTellingInvalid = false; });
        // Nobody else is entered while the box comes and goes.
        TWinControl& suspended = form ? static_cast<TWinControl&>(*form) : *this;
        if (form)
            form->SuspendFocus(true);
        const TAtScopeEnd resumed(suspended, [form] {
            if (form)
                form->SuspendFocus(false);
        });
        ShowErrorMessage(*this, InvalidDateMessage(UserMessageLanguage(), Now(), Field()));
    }
    if (!alive)
        return false;
    if (CanFocus())
        SetFocus();
    else if (form)
        form->Perform(WM_SETFOCUS); // to the control that was entered
    return static_cast<bool>(alive);
}

void Zordatetimepickeredit::Register() {
    RegisterComponents(PalettePage, {&TZORDateTimePickerEdit::StaticClass()});
}

} // namespace ZOR
