#include "numeric/Zorspinfloatedit.h"

#include "foundation/Zormessages.h"
#include "foundation/Zorpalette.h"
#include "framework/windows/clipboard.h"
#include "numeric/Zorfloatedit.h"

namespace ZOR {

const TEnumInfo& DescribeEnum(TTryb) {
    static const TEnumInfo info{u"TTryb", {TrybNames.begin(), TrybNames.end()}};
    return info;
}

const TClassInfo& TZORSpinFloatEdit::StaticClass() {
    using S = TZORSpinFloatEdit;
    static const TClassInfo info = DescribeClass<S>(
        u"TZORSpinFloatEdit", TEdit::StaticClass(),
        {numericrows::Text<S>(), Property<&S::GetFTryb, &S::SetFTryb>(u"Tryb", tStandard),
         numericrows::EditorEnabled<S>(),
         Property<&S::GetWrittenIncrement, &S::SetWrittenIncrement>(u"Increment").StoredWhen<&S::IncrementStored>(),
         Property<&S::GetDecimals, &S::SetDecimals>(u"Decimals", 2),
         Property<&S::GetMaxValue, &S::SetMaxValue>(u"MaxValue"),
         Property<&S::GetMinValue, &S::SetMinValue>(u"MinValue"),
         Property<&S::GetValue, &S::SetValue>(u"Value").StoredWhen<&S::ValueStored>(),
         Property<&S::GetAsCurrency>(u"AsCurrency"), framedrows::Wymagany<S>(),
         Property<&S::GetZaokraglaj, &S::SetZaokraglaj>(u"Zaokraglaj", false), framedrows::BorderColors<S>(),
         numericrows::ShowUpDown<S>(), framedrows::BoundLabel<S>(),
         Property<&S::GetFocusOnMinutes, &S::SetFocusOnMinutes>(u"FocusOnMinutes", false)});
    return info;
}

void Zorspinfloatedit::Register() {
    RegisterComponents(PalettePage, {&TZORSpinFloatEdit::StaticClass()});
}

TZORSpinFloatEdit::TZORSpinFloatEdit(TComponent* owner) : TZORSpinButtons(owner) {
    GetUpDown()->SetRange(-1, 1); // stays in the middle: every click asks, and the field steps itself
}

TSpinFloatEntry TZORSpinFloatEdit::Entry() const {
    TSpinFloatEntry entry;
    entry.Decimals = FDecimals;
    entry.EditorEnabled = GetEditorEnabled();
    entry.ReadOnly = GetReadOnly();
    entry.MinValue = FMinValue;
    entry.MaxValue = FMaxValue;
    entry.SeparatorFollowsLocale = TZORFloatEdit::SeparatorFollowsLocale;
    entry.Tryb = FTryb;
    entry.Increment = FIncrement;
    entry.Zaokraglaj = FZaokraglaj;
    return entry;
}

// Value and text

void TZORSpinFloatEdit::SetFTryb(TTryb value) {
    if (FTryb == value)
        return;
    const TTrybChange change = ChangeTryb(value, Entry(), FormatSettings());
    FTryb = value;
    FIncrement = change.Increment;
    FLastValidTime.clear();
    if (ReplaceText(change.Text))
        ShowRange(change.OutOfRange);
}

Extended TZORSpinFloatEdit::GetValue() const {
    return ReadSpinFloat(GetText(), Entry(), FormatSettings()).Value;
}

void TZORSpinFloatEdit::SetValue(Extended value) {
    const TSpinFloatWrite write = WriteSpinFloat(GetText(), value, Entry(), FormatSettings());
    if (write.SameValue || (write.Text && !ReplaceText(*write.Text)))
        return;
    ShowRange(write.OutOfRange);
}

void TZORSpinFloatEdit::ShowRange(bool outOfRange) {
    FOutOfRange = outOfRange;
    if (outOfRange)
        SetFWymagany(wError);
    else
        RestoreWymagany();
}

Currency TZORSpinFloatEdit::GetAsCurrency() const {
    return SpinFloatCurrency(GetValue());
}

bool TZORSpinFloatEdit::ValueStored() const {
    const TNumberReading reading = ReadSpinFloat(GetText(), Entry(), FormatSettings());
    if (FTryb != tStandard && reading.Value == 0)
        return false;
    return reading.Kind != TNumberText::Empty && reading.Kind != TNumberText::Unreadable;
}

bool TZORSpinFloatEdit::IncrementStored() const {
    return FIncrement != (FTryb == tStandard ? 0.01F : 1.0F);
}

int TZORSpinFloatEdit::CheckValueEx(Extended value) {
    const int side = CheckSpinFloatValueEx(value, Entry());
    FOutOfRange = side != 0;
    return side;
}

Extended TZORSpinFloatEdit::CheckValue(Extended value) const {
    return CheckSpinFloatValue(value, Entry());
}

Extended TZORSpinFloatEdit::RozRound(Extended value, Extended step, TUpDownDirection direction) {
    return ZOR::RozRound(value, step, static_cast<TStepDirection>(direction));
}

std::int64_t TZORSpinFloatEdit::round(Extended value) {
    return RoundTiesUp(value);
}

String TZORSpinFloatEdit::ValueToTimeStr(Extended value) const {
    return ZOR::ValueToTimeStr(value, ClockSeparator(FTryb, FormatSettings()));
}

// Typing and steps

char16_t TZORSpinFloatEdit::KeypadDecimal(char16_t) const {
    return KeypadDecimalChar(Entry(), FormatSettings());
}

void TZORSpinFloatEdit::KeyPress(char16_t& key) {
    PerformKey(SpinFloatKeyPress(key, EntryState(), Entry(), FormatSettings()), key);
}

void TZORSpinFloatEdit::KeyDown(WORD& key, TShiftState shift) {
    TLifeGuard alive(*this);
    TZORSpinButtons::KeyDown(key, shift);
    if (!alive || !shift.Empty() || (key != VK_LEFT && key != VK_RIGHT && key != VK_DELETE))
        return;
    const TCaretKey caretKey = key == VK_LEFT    ? TCaretKey::Left
                               : key == VK_RIGHT ? TCaretKey::Right
                                                 : TCaretKey::Delete;
    const auto action = SpinFloatKeyDown(caretKey, EntryState(), Entry(), FormatSettings());
    if (action && ApplyInput(action->Text, action->Selection))
        key = 0;
}

void TZORSpinFloatEdit::Change() {
    FOutOfRange = false;
    String& lastValid = FTryb == tStandard ? TZORFloatEdit::LastValidText() : FLastValidTime;
    TEntryChange change = SpinFloatChange(EntryState(), {lastValid, SettledText()}, Entry(), FormatSettings());
    if (change.Repair && (FTextFromProgram || !HandleAllocated()))
        change = {}; // what the program has written stays, and reads as MinValue
    if (SettleChange(change, lastValid))
        TZORSpinButtons::Change();
}

void TZORSpinFloatEdit::Paste() {
    if (!GetEditorEnabled() || GetReadOnly())
        return;
    if (const auto text = ClipboardText(GetHandle()))
        PutPasted(PasteSpinFloat(*text, Entry(), FormatSettings()));
}

void TZORSpinFloatEdit::ChangingEx(TObject*, bool& allowChange, int, TUpDownDirection direction) {
    allowChange = false;
    if (direction != updNone && TakesSteps())
        Step(direction == updUp ? 1 : -1);
}

void TZORSpinFloatEdit::Step(int steps) {
    const TEntryState before = EntryState();
    const TEntryState after = StepSpinFloat(before, steps, Entry(), FormatSettings());
    if (after == before)
        return;
    const bool changed = after.Text != before.Text;
    if (ApplyInput(changed ? std::optional(after.Text) : std::nullopt, after.Selection) && changed)
        RestoreWymagany();
}

// Focus

void TZORSpinFloatEdit::SelectPart(TTimePart part) {
    Select(TimePartSelection(GetText(), part, Entry(), FormatSettings()));
}

void TZORSpinFloatEdit::DoEnter() {
    FEnteredByClick = BeingClicked();
    if (FTryb != tStandard && !FEnteredByClick && (FFocusOnMinutes || GetAutoSelect()))
        SelectPart(FFocusOnMinutes ? TTimePart::Minutes : TTimePart::Hours);
    TZORSpinButtons::DoEnter();
}

void TZORSpinFloatEdit::Dispatch(TMessage& message) {
    if (message.Msg == WM_SETTEXT) {
        const bool outer = std::exchange(FTextFromProgram, true);
        const TAtScopeEnd set(*this, [this, outer] { FTextFromProgram = outer; });
        return TZORSpinButtons::Dispatch(message);
    }
    TLifeGuard alive(*this);
    TZORSpinButtons::Dispatch(message);
    if (alive && message.Msg == WM_LBUTTONUP && std::exchange(FEnteredByClick, false))
        SelectClickedPart();
}

/// The click that enters a duration selects a part; further ones place the caret.
void TZORSpinFloatEdit::SelectClickedPart() {
    if (FTryb != tStandard && GetAutoSelect() && GetSelLength() == 0)
        SelectPart(TimePartAt(EntryState(), Entry(), FormatSettings()));
}

void TZORSpinFloatEdit::CMExit(TMessage& message) {
    const TSpinFloatLeave leave = LeaveSpinFloat(GetText(), Entry(), FormatSettings());
    const bool wasOutOfRange = FOutOfRange;
    if (leave.Text && !ReplaceText(*leave.Text))
        return;
    FOutOfRange = wasOutOfRange; // the same value in full
    const bool isInOrder = leave.Accepted && !wasOutOfRange;
    TLifeGuard alive(*this);
    if (isInOrder)
        RestoreWymagany();
    else
        SetFWymagany(wError);
    if (!alive)
        return;
    if (isInOrder || !CanFocus()) // or its program takes it away: nobody is left to ask
        TZORSpinButtons::CMExit(message);
    else
        KeepPerson();
}

void TZORSpinFloatEdit::KeepPerson() {
    TLifeGuard alive(*this);
    // The focus comes back before the message and not after it, or the next field would be entered meanwhile and could
    // have a message of its own as it is left again.
    SetFocus();
    if (!alive)
        return;
    ReleaseCapture(); // the press that left the field ends with the message
    ShowBladValidacjiMessage();
    if (alive)
        SetFWymagany(wError); // the pointer has left the field for the message
}

void TZORSpinFloatEdit::ShowBladValidacjiMessage() {
    ShowErrorMessage(*this, RangeMessage(Entry(), UserMessageLanguage(), FormatSettings()));
}

} // namespace ZOR
