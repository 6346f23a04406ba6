#include "numeric/Zorspinedit.h"

#include "foundation/Zorpalette.h"

namespace ZOR {

const TClassInfo& TZORSpinEdit::StaticClass() {
    using S = TZORSpinEdit;
    static const TClassInfo info = DescribeClass<S>(
        u"TZORSpinEdit", TEdit::StaticClass(),
        {numericrows::Text<S>(), numericrows::EditorEnabled<S>(),
         Property<&S::GetIncrement, &S::SetIncrement>(u"Increment", 1),
         Property<&S::GetMaxValue, &S::SetMaxValue>(u"MaxValue", 0),
         Property<&S::GetMinValue, &S::SetMinValue>(u"MinValue", 0),
         Property<&S::GetValue, &S::SetValue>(u"Value", 0).StoredWhen<&S::ValueStored>(), framedrows::Wymagany<S>(),
         framedrows::BorderColors<S>(), numericrows::ShowUpDown<S>(), framedrows::BoundLabel<S>()});
    return info;
}

void Zorspinedit::Register() {
    RegisterComponents(PalettePage, {&TZORSpinEdit::StaticClass()});
}

TZORSpinEdit::TZORSpinEdit(TComponent* owner) : TZORSpinButtons(owner) {
    // The native step that follows a click can miss where the range stopped the value.
    GetUpDown()->OnClick = [this](TObject*, TUDBtnType) { SynchronizeUpDown(); };
    SetText(u"0");
}

// Value and text

int TZORSpinEdit::GetValue() const {
    return StrToInt(GetText());
}

void TZORSpinEdit::SetValue(int value) {
    Show(CheckValue(value));
}

void TZORSpinEdit::Show(int value) {
    ReplaceText(IntToStr(value));
}

int TZORSpinEdit::CheckValue(int value) {
    const int checked = CheckSpinValue(value, FEntry);
    PutPosition(checked);
    return checked;
}

void TZORSpinEdit::PutPosition(int value) {
    const TSpinRange range = SpinRange(FEntry);
    GetUpDown()->SetRange(range.Min, range.Max);
    GetUpDown()->PutPosition(value);
}

bool TZORSpinEdit::ValueStored() const {
    std::int32_t value = 0;
    return TryStrToInt(GetText(), value);
}

void TZORSpinEdit::SynchronizeUpDown() {
    std::int32_t value = 0;
    if (TryStrToInt(GetText(), value))
        PutPosition(value);
}

// Typing and steps

bool TZORSpinEdit::IsValidChar(char16_t key) const {
    return IsValidSpinChar(key, GetEditorEnabled());
}

void TZORSpinEdit::KeyPress(char16_t& key) {
    if (!IsValidChar(key))
        key = 0;
    if (key != 0)
        TZORSpinButtons::KeyPress(key);
}

void TZORSpinEdit::ChangingEx(TObject*, bool&, int, TUpDownDirection direction) {
    static_assert(static_cast<int>(TStepDirection::Up) == updUp && static_cast<int>(TStepDirection::Down) == updDown);
    const auto step = static_cast<TStepDirection>(direction);
    TLifeGuard alive(*this);
    if (direction != updNone && TakesSteps()) {
        Show(StepSpinValue(GetValue(), step, FEntry));
        if (!alive)
            return;
        SetModified(true);
    }
    PutPosition(PositionBeforeStep(GetValue(), step));
}

void TZORSpinEdit::Step(int steps) {
    const TUpDownDirection direction = steps > 0 ? updUp : updDown;
    TLifeGuard alive(*this);
    for (int i = 0; alive && i < std::abs(steps); ++i) {
        bool allowChange = true;
        ChangingEx(this, allowChange, 0, direction);
    }
    if (alive)
        SynchronizeUpDown(); // no native step follows
}

// Focus

void TZORSpinEdit::DoExit() {
    CheckValue(GetValue());
    TLifeGuard alive(*this);
    if (const auto text = LeaveSpin(GetText(), FEntry))
        ReplaceText(*text);
    if (alive)
        TZORSpinButtons::DoExit();
}

} // namespace ZOR
