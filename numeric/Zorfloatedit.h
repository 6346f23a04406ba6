#pragma once

// The float edit: a field for a decimal number with a fixed number of decimals. The decimals are typed over, never
// away; what is no number does not stay; on leaving, the number is written in full and brought into its range.

#include "framework/system/variants.h"
#include "numeric/Zorfloatedit_rules.h"
#include "numeric/Zornumericedit.h"

namespace ZOR {

/// For hosts that validate a form: the field and whether it is in order.
using TValidateRequest = std::function<void(TObject* Sender, bool& Valid)>;

class TZORFloatEdit : public TZORNumericEdit<TZORFramed<TEdit, DecimalFraming>> {
    FRAMEWORK_CLASS(TZORFloatEdit)

public:
    FRAMEWORK_PROPERTY(int, Decimals, GetDecimals, SetDecimals);
    FRAMEWORK_PROPERTY(Extended, MaxValue, GetMaxValue, SetMaxValue);
    FRAMEWORK_PROPERTY(Extended, MinValue, GetMinValue, SetMinValue);
    FRAMEWORK_PROPERTY(Extended, Value, GetValue, SetValue);
    FRAMEWORK_PROPERTY(int, AsInt, GetAsInt, SetAsInt);
    FRAMEWORK_PROPERTY(Variant, VariantValue, GetVariantValue, SetVariantValue);

    /// The separator that the typing rules know is a comma under every locale. Where numbers are written with another
    /// one, it leads to the decimals all the same, but they are not kept to their number before the field is left. True
    /// lets the typed separator follow the locale, for every float edit and spin float edit of the program.
    static bool SeparatorFollowsLocale;

    /// Kept for the host, never fired by the control.
    TValidateRequest OnValidateRequest;

    explicit TZORFloatEdit(TComponent* owner);

    /// Digits behind the separator; 0 for whole numbers. Used as 0 to 18. Takes effect when the value is written next.
    int GetDecimals() const { return FDecimals; }
    void SetDecimals(int value) { FDecimals = value; }
    /// The bounds apply when Value is written, read, and when the field is left; with both equal there is no range. A
    /// "-" can be typed only where MinValue is below 0.
    Extended GetMaxValue() const { return FMaxValue; }
    void SetMaxValue(Extended value) { FMaxValue = value; }
    Extended GetMinValue() const { return FMinValue; }
    void SetMinValue(Extended value) { FMinValue = value; }

    /// The number shown, within the range; 0 for an empty field. EConvertError for a text that is no number, which a
    /// program may have set.
    Extended GetValue() const;
    /// Shows the number within the range. The same text is no change.
    void SetValue(Extended value);
    /// Value without its decimals; beyond the range of an int the nearest end of it.
    int GetAsInt() const;
    /// Shows the plain digits, without decimals and range until the field is left.
    void SetAsInt(int value);
    /// Null for an empty field, otherwise Value as a double.
    Variant GetVariantValue() const;
    /// Null empties the field. Other values are shown without regard to the range.
    void SetVariantValue(const Variant& value);

    /// The value brought into the range.
    Extended CheckValue(Extended value) const;
    /// Whether a person can type the character at all.
    virtual bool IsValidChar(char16_t key) const;

    /// Whether a form keeps Value: an empty field is not 0.
    bool ValueStored() const;

    /// The last text of any such field of the program that was a number: what an unreadable text gives way to.
    static String& LastValidText();

protected:
    void KeyPress(char16_t& key) override;
    void Change() override;
    void DoEnter() override;
    void DoExit() override;
    void Paste() override;
    char16_t KeypadDecimal(char16_t key) const override;

private:
    TDecimalEntry Entry() const;

    int FDecimals = 2;
    Extended FMaxValue = 0;
    Extended FMinValue = 0;
    bool FFocusChanging = false; // rewriting the text on the way in or out is no change to tell of
};

namespace Zorfloatedit {
/// Puts the control on the designer's palette.
void Register();
} // namespace Zorfloatedit

} // namespace ZOR
