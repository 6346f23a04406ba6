#pragma once

// The spin edit: a field for a whole number with an up-down pair inside its right edge. The arrows and the Up and Down
// keys step the number; leaving the field brings it into its range. Cut and paste never change it.

#include "numeric/Zorspinbuttons.h"
#include "numeric/Zorspinedit_rules.h"

namespace ZOR {

class TZORSpinEdit : public TZORSpinButtons<TZORNumericEdit<TZORFramed<TEdit, SpinFraming>>> {
    FRAMEWORK_CLASS(TZORSpinEdit)

public:
    FRAMEWORK_PROPERTY(int, Increment, GetIncrement, SetIncrement);
    FRAMEWORK_PROPERTY(int, MaxValue, GetMaxValue, SetMaxValue);
    FRAMEWORK_PROPERTY(int, MinValue, GetMinValue, SetMinValue);
    FRAMEWORK_PROPERTY(int, Value, GetValue, SetValue);

    explicit TZORSpinEdit(TComponent* owner);

    /// How far one click, arrow key or notch of the wheel goes; a negative step goes the other way.
    int GetIncrement() const { return FEntry.Increment; }
    void SetIncrement(int value) { FEntry.Increment = value; }
    /// 0 and below leave the top open; with both bounds equal there is no range. The bounds apply when Value is written
    /// and when the field is left.
    int GetMaxValue() const { return FEntry.MaxValue; }
    void SetMaxValue(int value) { FEntry.MaxValue = value; }
    int GetMinValue() const { return FEntry.MinValue; }
    void SetMinValue(int value) { FEntry.MinValue = value; }

    /// The number shown. EConvertError for an empty text and for one that is no whole number of 32 bits.
    int GetValue() const;
    void SetValue(int value);
    /// The value brought into the range; the up-down takes it over.
    int CheckValue(int value);
    /// Whether a person can type the character at all.
    virtual bool IsValidChar(char16_t key) const;

    /// Whether a form keeps Value: one that cannot be read is not there.
    bool ValueStored() const;

protected:
    void KeyPress(char16_t& key) override;
    void DoExit() override;
    void ChangingEx(TObject* sender, bool& allowChange, int newValue, TUpDownDirection direction) override;
    void Step(int steps) override;

private:
    void Show(int value);
    void PutPosition(int value);
    void SynchronizeUpDown();

    TSpinEntry FEntry;
};

namespace Zorspinedit {
/// Puts the control on the designer's palette.
void Register();
} // namespace Zorspinedit

} // namespace ZOR
