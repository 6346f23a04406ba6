#include "numeric/Zorfloatedit.h"

#include "foundation/Zorpalette.h"
#include "framework/windows/clipboard.h"

namespace ZOR {

bool TZORFloatEdit::SeparatorFollowsLocale = false;

const TClassInfo& TZORFloatEdit::StaticClass() {
    using F = TZORFloatEdit;
    static const TClassInfo info =
        DescribeClass<F>(u"TZORFloatEdit", TEdit::StaticClass(),
                         {numericrows::Text<F>(), Property<&F::GetDecimals, &F::SetDecimals>(u"Decimals", 2),
                          numericrows::EditorEnabled<F>(), Property<&F::GetMaxValue, &F::SetMaxValue>(u"MaxValue"),
                          Property<&F::GetMinValue, &F::SetMinValue>(u"MinValue"),
                          Property<&F::GetValue, &F::SetValue>(u"Value").StoredWhen<&F::ValueStored>(),
                          framedrows::Wymagany<F>(), Event<&F::OnValidateRequest>(u"OnValidateRequest"),
                          framedrows::BorderColors<F>(), framedrows::BoundLabel<F>()});
    return info;
}

void Zorfloatedit::Register() {
    RegisterComponents(PalettePage, {&TZORFloatEdit::StaticClass()});
}

TZORFloatEdit::TZORFloatEdit(TComponent* owner) : TZORNumericEdit(owner) {
}

String& TZORFloatEdit::LastValidText() {
    static String text;
    return text;
}

TDecimalEntry TZORFloatEdit::Entry() const {
    return {FDecimals, GetEditorEnabled(), GetReadOnly(), FMinValue, FMaxValue, SeparatorFollowsLocale};
}

// Value and text

Extended TZORFloatEdit::GetValue() const {
    return ReadFloatValue(GetText(), Entry(), FormatSettings());
}

void TZORFloatEdit::SetValue(Extended value) {
    if (const auto text = WriteFloatValue(GetText(), value, Entry(), FormatSettings()))
        ReplaceText(*text);
}

bool TZORFloatEdit::ValueStored() const {
    const TNumberText kind = ReadNumberWithPoints(GetText(), FormatSettings()).Kind;
    return kind != TNumberText::Empty && kind != TNumberText::Unreadable;
}

int TZORFloatEdit::GetAsInt() const {
    return TruncatedToInt(GetValue());
}

void TZORFloatEdit::SetAsInt(int value) {
    ReplaceText(IntToStr(value));
}

Variant TZORFloatEdit::GetVariantValue() const {
    if (TextIsEmpty())
        return Null();
    return static_cast<double>(GetValue());
}

void TZORFloatEdit::SetVariantValue(const Variant& value) {
    ReplaceText(VarIsNull(value) ? String() : NumberText(value.AsFloat(), FDecimals, FormatSettings()));
}

Extended TZORFloatEdit::CheckValue(Extended value) const {
    return CheckFloatValue(value, Entry());
}

// Typing

bool TZORFloatEdit::IsValidChar(char16_t key) const {
    return IsValidFloatChar(key, Entry(), FormatSettings());
}

char16_t TZORFloatEdit::KeypadDecimal(char16_t) const {
    return KeypadDecimalChar(FormatSettings());
}

void TZORFloatEdit::KeyPress(char16_t& key) {
    if (!IsValidChar(key))
        key = 0;
    TLifeGuard alive(*this);
    const bool isCommand = IsCommandChar(key) && key != u'\b';
    const TKeyAction action = FloatAcceptedKey(key, EntryState(), Entry(), FormatSettings());
    PerformKey(action, key);
    if (alive && !isCommand && action.ReachesHost && TextIsEmpty())
        StartAfresh();
}

void TZORFloatEdit::Change() {
    if (FFocusChanging)
        return TextStands();
    const TEntryMemory memory{LastValidText(), SettledText()};
    if (SettleChange(FloatChange(EntryState(), memory, Entry(), FormatSettings()), LastValidText()))
        TZORNumericEdit::Change();
}

void TZORFloatEdit::Paste() {
    if (!GetEditorEnabled() || GetReadOnly())
        return;
    if (const auto text = ClipboardText(GetHandle()))
        PutPasted(PasteFloat(*text, FormatSettings()));
}

// Focus

void TZORFloatEdit::DoEnter() {
    FFocusChanging = false; // an exit that failed is over
    TZORNumericEdit::DoEnter();
}

void TZORFloatEdit::DoExit() {
    {
        FFocusChanging = true;
        const TAtScopeEnd changed(*this, [this] { FFocusChanging = false; });
        if (const auto text = LeaveFloat(GetText(), Entry(), FormatSettings()))
            ReplaceText(*text);
    }
    TZORNumericEdit::DoExit();
}

} // namespace ZOR
