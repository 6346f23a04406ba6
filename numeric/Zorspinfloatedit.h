#pragma once

// The spin float edit: a field for a decimal number or for a duration in hours and minutes, with an up-down pair inside
// its right edge. Steps can keep to multiples of Increment. A value outside its range keeps the person in the field:
// a message tells what is expected, and the frame shows the error.

#include "numeric/Zorspinbuttons.h"
#include "numeric/Zorspinfloatedit_rules.h"

namespace ZOR {

const TEnumInfo& DescribeEnum(TTryb);

class TZORSpinFloatEdit : public TZORSpinButtons<TZORNumericEdit<TZORFramed<TEdit, DecimalFraming>>> {
    FRAMEWORK_CLASS(TZORSpinFloatEdit)

public:
    FRAMEWORK_PROPERTY(TTryb, Tryb, GetFTryb, SetFTryb);
    FRAMEWORK_PROPERTY(float, Increment, GetIncrement, SetIncrement);
    FRAMEWORK_PROPERTY(int, Decimals, GetDecimals, SetDecimals);
    FRAMEWORK_PROPERTY(Extended, MaxValue, GetMaxValue, SetMaxValue);
    FRAMEWORK_PROPERTY(Extended, MinValue, GetMinValue, SetMinValue);
    FRAMEWORK_PROPERTY(Extended, Value, GetValue, SetValue);
    FRAMEWORK_READ_PROPERTY(Currency, AsCurrency, GetAsCurrency);
    FRAMEWORK_PROPERTY(bool, Zaokraglaj, GetZaokraglaj, SetZaokraglaj);
    FRAMEWORK_PROPERTY(bool, FocusOnMinutes, GetFocusOnMinutes, SetFocusOnMinutes);

    explicit TZORSpinFloatEdit(TComponent* owner);

    TTryb GetFTryb() const { return FTryb; }
    /// Another mode starts at 0. Increment becomes 0.01 for numbers and at least 1 for durations.
    void SetFTryb(TTryb value);
    /// How far a step goes, of durations in minutes; with the caret in the hours, as many such steps at once as it
    /// takes for an hour or more. It means the shortest decimal of the single, so 0.01 is a hundredth.
    float GetIncrement() const { return FIncrement; }
    void SetIncrement(float value) { FIncrement = value; }
    /// Digits behind the separator of a number, used as 0 to 18.
    int GetDecimals() const { return FDecimals; }
    void SetDecimals(int value) { FDecimals = value; }
    /// Minutes for durations. A MaxValue of 0 and below leaves the top open; with both bounds equal there is no range,
    /// durations then staying below 10,000 hours. The bounds apply when Value is written and when the field is left.
    Extended GetMaxValue() const { return FMaxValue; }
    void SetMaxValue(Extended value) { FMaxValue = value; }
    Extended GetMinValue() const { return FMinValue; }
    void SetMinValue(Extended value) { FMinValue = value; }

    /// The number shown, or the duration in minutes, in or out of the range; MinValue for a text that cannot be read.
    Extended GetValue() const;
    /// Shows the value brought into the range. One that had to be brought there makes Wymagany wError, and the field is
    /// not left with it before its text was changed; any other ends an error. The value that is shown already changes
    /// nothing.
    void SetValue(Extended value);
    /// Value in ten-thousandths; beyond the range of Currency the nearest end of it.
    Currency GetAsCurrency() const;
    /// Whether durations become multiples of Increment when the field is left, and every step leads to one.
    bool GetZaokraglaj() const { return FZaokraglaj; }
    void SetZaokraglaj(bool value) { FZaokraglaj = value; }
    /// Whether the minutes are selected when a duration is entered, in place of the hours.
    bool GetFocusOnMinutes() const { return FFocusOnMinutes; }
    void SetFocusOnMinutes(bool value) { FFocusOnMinutes = value; }

    /// -1 for a value below the range, 1 above it, 0 within. Where it lies outside, the field is kept from being left
    /// as by a Value out of range, until its text changes or a value within is checked.
    int CheckValueEx(Extended value);
    /// The value brought into the range; with Zaokraglaj to the outermost multiple of Increment inside it.
    Extended CheckValue(Extended value) const;
    /// The multiple of `step` next to the value in that direction; the value itself for a step of 0.
    static Extended RozRound(Extended value, Extended step, TUpDownDirection direction);
    /// The nearest integer, ties towards plus infinity.
    static std::int64_t round(Extended value);
    /// Minutes as hours and minutes with the separator of the mode; that of times in both time modes.
    String ValueToTimeStr(Extended value) const;
    /// Tells that the value is out of range, to Polish users with the range. By its end the field may be gone.
    void ShowBladValidacjiMessage();

    // Published accessors that text forms need.
    Extended GetWrittenIncrement() const { return WrittenSingle(FIncrement); }
    void SetWrittenIncrement(Extended value) { FIncrement = static_cast<float>(value); }
    bool IncrementStored() const;
    /// An empty field is not 0, and the duration that a mode starts with needs no mention.
    bool ValueStored() const;

protected:
    void KeyPress(char16_t& key) override;
    void KeyDown(WORD& key, TShiftState shift) override;
    void Change() override;
    void Paste() override;
    char16_t KeypadDecimal(char16_t key) const override;
    void DoEnter() override;
    void Dispatch(TMessage& message) override;
    void CMExit(TMessage& message) override;
    void ChangingEx(TObject* sender, bool& allowChange, int newValue, TUpDownDirection direction) override;
    void Step(int steps) override;

private:
    TSpinFloatEntry Entry() const;
    void ShowRange(bool outOfRange);
    void SelectPart(TTimePart part);
    void SelectClickedPart();
    void KeepPerson();

    TTryb FTryb = tStandard;
    float FIncrement = 0.01F;
    int FDecimals = 2;
    Extended FMaxValue = 0;
    Extended FMinValue = 0;
    bool FZaokraglaj = false;
    bool FFocusOnMinutes = false;
    bool FEnteredByClick = false;
    bool FOutOfRange = false;      // the value set or checked last was, and the text has not changed since
    bool FTextFromProgram = false; // the text is being set as a whole
    String FLastValidTime;         // the last duration that could be read
};

namespace Zorspinfloatedit {
/// Puts the control on the designer's palette.
void Register();
} // namespace Zorspinfloatedit

} // namespace ZOR
