#pragma once

// What the numeric fields share beyond the framing: the rectangle of their text, a least height, a cut and paste of
// their own, and EditorEnabled, with which a program keeps a person from typing. TZORNumericEdit is put over a framed
// edit; the rules of each field stay in its own unit.

#include "foundation/Zorframed.h"
#include "framework/windows/edit.h"
#include "numeric/Zornumericentry_rules.h"

namespace ZOR {

/// Framing of the fields for decimal numbers: no hint inside.
inline constexpr TFraming DecimalFraming{.HintInside = false};
/// Framing of the spin edit: it repaints as a whole when the program sets a state, and an error stays until the program
/// ends it.
inline constexpr TFraming SpinFraming{
    .Requirement = PlainRequirement, .StateChanged = TFrameRepaint::Repaint, .HintInside = false};

/// The least height in pixels of a field in that font.
int NumericMinHeight(const TFont& font);
/// Keeps the text left of `right`, in pixels of the client area (EM_SETRECTNP). Native single-line fields know margins
/// only, so one that has something inside names its right margin as well.
void SetNumericEditRect(TWinControl& edit, int right, std::optional<int> rightMargin);

/// Makes one text of the other in an edit window by replacing what differs (EM_REPLACESEL), which can be undone.
void TypeDifference(HWND edit, StringView before, StringView after);

template <class TBase>
class TZORNumericEdit : public TBase {
public:
    FRAMEWORK_PROPERTY(bool, EditorEnabled, GetEditorEnabled, SetEditorEnabled);

    explicit TZORNumericEdit(TComponent* owner) : TBase(owner) { this->FControlStyle >> csSetCaption; }

    /// Whether a person can type, cut and paste. Without it the value changes by the program and by steps only.
    bool GetEditorEnabled() const { return FEditorEnabled; }
    void SetEditorEnabled(bool value) { FEditorEnabled = value; }

    /// Pixels; a field that is made lower than this grows back.
    int GetMinHeight() const { return NumericMinHeight(*this->GetFont()); }
    /// Lays out the text beside what lies inside the field.
    void SetEditRect() {
        if (this->HandleAllocated())
            SetNumericEditRect(*this, EditRectRight(), RightMargin());
    }

    /// Forms keep the value instead, which reads the same under every locale.
    bool NumericTextStored() const { return false; }

protected:
    void CreateParams(TCreateParams& params) override {
        TBase::CreateParams(params);
        params.Style |= WS_CLIPCHILDREN;
    }
    void CreateWnd() override {
        TBase::CreateWnd();
        Arrange();
    }
    void Dispatch(TMessage& message) override {
        TLifeGuard alive(*this);
        switch (message.Msg) {
        case WM_CUT:
            return; // a cut never takes a number apart
        case WM_PASTE:
            return Paste();
        case WM_CLEAR:
            if (!FEditorEnabled)
                return;
            break;
        case WM_KEYDOWN:
            FKeypadDecimal = message.WParam == VK_DECIMAL;
            break;
        case WM_CHAR:
            if (std::exchange(FKeypadDecimal, false))
                message.WParam = KeypadDecimal(static_cast<char16_t>(message.WParam));
            break;
        case CM_MOUSEENTER:
        case CM_MOUSELEAVE:
            this->Repaint();
            break;
        case WM_SIZE:
        case CM_FONTCHANGED:
            TBase::Dispatch(message);
            if (alive && this->HandleAllocated() && !this->FControlState.Contains(csCreating))
                Arrange();
            return;
        default:
            break;
        }
        TBase::Dispatch(message);
    }
    void KeyDown(WORD& key, TShiftState shift) override {
        TLifeGuard alive(*this);
        TBase::KeyDown(key, shift);
        if (!alive || (key != VK_DELETE && key != VK_INSERT))
            return;
        // Native edits differ in whether Shift+Delete and Shift+Insert become WM_CUT and WM_PASTE.
        const bool isShifted = shift == TShiftState{ssShift};
        const bool isPaste = key == VK_INSERT && isShifted;
        if (isPaste || (key == VK_DELETE && (isShifted || !FEditorEnabled)))
            key = 0;
        if (isPaste)
            this->Perform(WM_PASTE);
    }

    /// Places what lies inside the field and the text beside it.
    virtual void Arrange() {
        if (this->GetHeight() < GetMinHeight())
            this->SetHeight(GetMinHeight());
        SetEditRect();
    }
    /// Where the text ends, in pixels of the client area.
    virtual int EditRectRight() const { return this->GetClientWidth() - 2; }
    /// Pixels that what lies inside the field needs; nothing where nothing does.
    virtual std::optional<int> RightMargin() const { return std::nullopt; }
    /// A paste by key or menu; without an answer of its own a field takes none.
    virtual void Paste() {}
    /// What the decimal key of the numeric keypad types where the keyboard layout makes `key` of it.
    virtual char16_t KeypadDecimal(char16_t key) const { return key; }

    TEntryState EntryState() const {
        const auto selection = this->GetSelection();
        return {this->GetText(), {selection.Start, selection.End - selection.Start}};
    }
    void Select(const TEntrySelection& selection) {
        this->SetSelection({selection.Start, selection.Start + selection.Length});
    }
    /// Sets the text from code without moving the caret: it stays where the person placed it, and what is selected as a
    /// whole stays so. False when a handler of the change destroyed the field.
    bool ReplaceText(const String& text) {
        TLifeGuard alive(*this);
        const TEntryState before = EntryState();
        const bool whole = !before.Text.empty() && before.Selection.Length == static_cast<int>(before.Text.size());
        this->SetText(text);
        if (!alive)
            return false;
        if (whole)
            this->SelectAll();
        else
            Select(before.Selection);
        return true;
    }
    /// Puts a state that the person's input led to into the field, as if it had been typed: it can be undone, and what
    /// has not changed is not painted again. False when a handler destroyed the field.
    bool ApplyInput(const std::optional<String>& text, const std::optional<TEntrySelection>& selection) {
        TLifeGuard alive(*this);
        const bool fits =
            this->GetMaxLength() == 0 || (text && text->size() <= static_cast<std::size_t>(this->GetMaxLength()));
        if (text && this->HandleAllocated() && fits)
            TypeDifference(this->GetHandle(), this->GetText(), *text);
        else if (text)
            this->SetText(*text);
        if (!alive)
            return false;
        if (text)
            this->SetModified(true);
        if (selection)
            Select(*selection);
        return true;
    }
    /// What was pasted is the whole text; the person types on behind it.
    void PutPasted(const String& text) { ApplyInput(text, TEntrySelection{static_cast<int>(text.size()), 0}); }
    /// Makes the native edit of an empty field forget: undoing what is typed now does not lead back to what was cleared
    /// before. To the host this is no change.
    void StartAfresh() {
        TLifeGuard alive(*this);
        {
            FPreparing = true;
            const TAtScopeEnd prepared(*this, [this] { FPreparing = false; });
            this->Perform(WM_SETTEXT, 0, reinterpret_cast<LPARAM>(u""));
        }
        if (alive)
            this->SetSelLength(1);
    }
    /// Carries out what the rules made of a key; the host hears of it where it shall.
    void PerformKey(const TKeyAction& action, char16_t& key) {
        key = action.Key;
        FPreparing = key != 0;
        const TAtScopeEnd prepared(*this, [this] { FPreparing = false; });
        if (!ApplyInput(action.Text, action.Selection) || !action.ReachesHost)
            return;
        FPreparing = false;
        TBase::KeyPress(key);
    }
    void CNCommand(TMessage& message) override {
        if (FPreparing && HighWord(message.WParam) == EN_CHANGE)
            this->Change();
        else
            TBase::CNCommand(message);
    }
    /// The text that a key is then typed into is judged like any other, but one key is one change for the host.
    void Change() override {
        if (!FPreparing)
            TBase::Change();
    }
    /// The text that stood before the change that is being told of.
    const String& SettledText() const { return FSettledText; }
    void TextStands() { FSettledText = this->GetText(); }
    /// Puts a text right that does not stand, and remembers one that does. True when the change that is being told of
    /// still is the last one: a repair is a change of its own, which the host has heard of by then.
    bool SettleChange(const TEntryChange& change, String& lastValidText) {
        TLifeGuard alive(*this);
        if (!change.Repair) {
            TextStands();
            if (change.IsValid)
                lastValidText = FSettledText;
            return true;
        }
        this->SetText(change.Repair->Text);
        if (alive)
            Select(change.Repair->Selection);
        return false;
    }

private:
    String FSettledText;
    bool FEditorEnabled = true;
    bool FPreparing = false;     // a key is about to be typed over a text that has just been set for it
    bool FKeypadDecimal = false; // the character on its way comes from the keypad's decimal key
};

/// The published rows of the numeric fields, for a control's own table in its own order.
namespace numericrows {

template <class TControl>
TPropInfo EditorEnabled() {
    return Property<&TControl::GetEditorEnabled, &TControl::SetEditorEnabled>(u"EditorEnabled", true);
}
/// Takes the place of the edit's own row.
template <class TControl>
TPropInfo Text() {
    return controlrows::Text().template StoredWhen<&TControl::NumericTextStored>();
}

} // namespace numericrows

} // namespace ZOR
