#pragma once

// A field with an edit mask (framework/system/maskutils.h): literals stand where they belong, each place takes the
// characters it is meant for, and the field is not left while a required place is empty.

#include "framework/windows/edit.h"
#include "framework/windows/maskedit_rules.h"

#include <optional>

namespace framework {

/// A field was to be left while places that have to be filled in are empty.
class EDBEditError : public Exception {
public:
    using Exception::Exception;
};

class TCustomMaskEdit : public TCustomEdit {
    FRAMEWORK_CLASS(TCustomMaskEdit)

public:
    FRAMEWORK_PROPERTY(TEditMask, EditMask, GetEditMask, SetEditMask);
    FRAMEWORK_PROPERTY(String, EditText, GetEditText, SetEditText);
    FRAMEWORK_READ_PROPERTY(bool, IsMasked, GetIsMasked);
    FRAMEWORK_PROPERTY(String, Text, GetText, SetText);

    explicit TCustomMaskEdit(TComponent* owner);

    const TEditMask& GetEditMask() const { return FEditMask; }
    /// A new mask keeps the value as far as it fits. EMaskError for a malformed mask, which changes nothing. An empty
    /// mask makes the field an ordinary edit.
    void SetEditMask(const TEditMask& value);
    bool GetIsMasked() const { return FMask.has_value(); }
    /// What the field shows, literals and blanks included.
    String GetEditText() const { return TCustomEdit::GetText(); }
    void SetEditText(const String& value) { TCustomEdit::SetText(value); }
    /// The value: with spaces in place of blanks, and without the literals when the mask says so.
    String GetText() const;
    void SetText(const String& value) { TCustomEdit::SetText(value); }
    /// Whether nothing is entered.
    bool IsEmpty() const;
    bool ValueStored() const { return !IsEmpty(); }

    /// EDBEditError when something but not everything that has to be is filled in; the caret goes there first.
    /// Called when the field is left after a change.
    void ValidateEdit();
    /// Gives back the text with which the field was entered, as Esc does.
    void Reset();
    void Clear() override { SetText({}); }

protected:
    void Dispatch(TMessage& message) override;
    void KeyDown(WORD& key, TShiftState shift) override;
    void KeyPress(char16_t& key) override;
    void MouseUp(TMouseButton button, TShiftState shift, int x, int y) override;
    void CMEnter(TMessage& message) override;
    void CMExit(TMessage& message) override;
    void CNCommand(TMessage& message) override;
    void DoSetMaxLength(int value) override;

    /// Raises the error of ValidateEdit.
    [[noreturn]] virtual void ValidateError();

private:
    bool MayEdit() const { return !GetReadOnly() && !IsDesigning(); }
    TMaskEntry Entry() const;
    void Show(const TMaskEntry& entry);
    void Edit(void (*change)(const TParsedMask& mask, TMaskEntry& entry));
    void MoveCaret(int position);
    bool HandleMaskKey(WORD key, TShiftState shift);
    void Paste(StringView text);
    void Cut();
    void WMSetText(TMessage& message);
    void CompositionBegins();
    void CompositionEnds();
    char16_t CasedForField(char16_t unit) const;

    TEditMask FEditMask;
    std::optional<TParsedMask> FMask;
    std::optional<TMaskEntry> FBeforeComposition; // while an input method composes text in the window
    String FEnteredText;                          // what the field showed as it was entered
    bool FWriting = false;                        // the control itself writes into the window
    bool FReturning = false;                      // the focus comes back because the entry is incomplete
};

class TMaskEdit : public TCustomMaskEdit {
    FRAMEWORK_CLASS(TMaskEdit)

public:
    explicit TMaskEdit(TComponent* owner) : TCustomMaskEdit(owner) {}
};

} // namespace framework
