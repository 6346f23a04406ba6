#include "framework/windows/maskedit.h"

#include "framework/system/casemapping.h"
#include "framework/windows/clipboard.h"
#include "framework/windows/forms.h"

#include <algorithm>

namespace framework {

namespace {

// Keys that arrive as characters.
constexpr char16_t kControlV = 22;
constexpr char16_t kControlX = 24;

} // namespace

const TClassInfo& TCustomMaskEdit::StaticClass() {
    static const TClassInfo info = DescribeClass<TCustomMaskEdit>(u"TCustomMaskEdit", TCustomEdit::StaticClass());
    return info;
}

const TClassInfo& TMaskEdit::StaticClass() {
    namespace row = controlrows;
    namespace edit = editrows;
    using M = TCustomMaskEdit;
    static const TClassInfo info =
        DescribeClass<TMaskEdit>(u"TMaskEdit", TCustomMaskEdit::StaticClass(),
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
                                  Property<&M::GetEditMask, &M::SetEditMask>(u"EditMask"),
                                  row::Font(),
                                  edit::MaxLength(),
                                  row::ParentLinks(false),
                                  edit::PasswordChar(),
                                  edit::ReadOnly(),
                                  row::ShowHint(),
                                  row::TabOrder(),
                                  row::TabStop(true),
                                  Property<&M::GetText, &M::SetText>(u"Text").StoredWhen<&M::ValueStored>(),
                                  row::Visible(),
                                  edit::OnChange(),
                                  row::InputEvents()});
    return info;
}

TCustomMaskEdit::TCustomMaskEdit(TComponent* owner) : TCustomEdit(owner) {
}

// The mask and the value

void TCustomMaskEdit::SetEditMask(const TEditMask& value) {
    if (FEditMask == value)
        return;
    std::optional<TParsedMask> mask;
    if (!value.empty())
        mask = ParseMask(value);
    String shown = GetText();
    if (FMask && mask) { // what was entered goes from mask to mask without the literals
        TParsedMask before = *FMask;
        TParsedMask after = *mask;
        before.SaveLiterals = after.SaveLiterals = false;
        shown = MaskTextFromValue(after, ValueFromMaskText(before, GetEditText()));
    } else if (mask) {
        shown = MaskTextFromValue(*mask, shown);
    }
    FEditMask = value;
    FMask = std::move(mask);
    if (HandleAllocated())
        DoSetMaxLength(GetMaxLength());
    SetEditText(shown);
}

void TCustomMaskEdit::DoSetMaxLength(int value) {
    const bool limited = FMask && !FBeforeComposition; // what is composed may be longer for a while
    TCustomEdit::DoSetMaxLength(limited ? FMask->Length() : FMask ? 0 : value);
}

String TCustomMaskEdit::GetText() const {
    return FMask ? ValueFromMaskText(*FMask, GetEditText()) : GetEditText();
}

bool TCustomMaskEdit::IsEmpty() const {
    return FMask ? IsMaskTextEmpty(*FMask, GetEditText()) : GetTextLen() == 0;
}

void TCustomMaskEdit::WMSetText(TMessage& message) {
    if (!FMask || FBeforeComposition) {
        TCustomEdit::Dispatch(message);
        return;
    }
    const auto* text = reinterpret_cast<const char16_t*>(message.LParam);
    const StringView given = text ? StringView(text) : StringView();
    const String laid = IsMaskText(*FMask, given) ? String(given) : MaskTextFromValue(*FMask, given);
    message.LParam = reinterpret_cast<LPARAM>(laid.c_str());
    TCustomEdit::Dispatch(message);
}

// Editing

TMaskEntry TCustomMaskEdit::Entry() const {
    const TSelection selection = GetSelection();
    return {GetEditText(), selection.Start, selection.End};
}

/// Replaces what differs, so that the native undo takes back this change alone.
void TCustomMaskEdit::Show(const TMaskEntry& entry) {
    const String before = GetEditText();
    TLifeGuard alive(*this);
    if (before != entry.Text && before.size() == entry.Text.size()) {
        const auto first = std::mismatch(before.begin(), before.end(), entry.Text.begin()).first - before.begin();
        const auto last = before.rend() - std::mismatch(before.rbegin(), before.rend(), entry.Text.rbegin()).first;
        const String part = entry.Text.substr(static_cast<std::size_t>(first), static_cast<std::size_t>(last - first));
        FWriting = true;
        SendMessageW(FHandle, EM_SETSEL, static_cast<WPARAM>(first), last);
        if (alive)
            SendMessageW(FHandle, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(WideChars(part)));
        if (!alive)
            return;
        FWriting = false;
    } else if (before != entry.Text) { // after a composition, whose text had another length
        SetEditText(entry.Text);
        if (alive)
            SetModified(true);
    }
    if (alive && HandleAllocated())
        SetSelection({entry.Start, entry.End});
}

void TCustomMaskEdit::Edit(void (*change)(const TParsedMask& mask, TMaskEntry& entry)) {
    if (!MayEdit())
        return;
    TMaskEntry entry = Entry();
    change(*FMask, entry);
    Show(entry);
}

void TCustomMaskEdit::Paste(StringView text) {
    TMaskEntry entry = Entry();
    String cased(text);
    std::transform(cased.begin(), cased.end(), cased.begin(), [this](char16_t unit) { return CasedForField(unit); });
    PasteIntoMask(*FMask, entry, cased);
    Show(entry);
}

/// What could not be copied stays, such as while another program holds the clipboard. Passwords are never copied.
void TCustomMaskEdit::Cut() {
    const TSelection selection = GetSelection();
    if (selection.Start >= selection.End || GetPasswordChar())
        return;
    const String text = GetEditText().substr(static_cast<std::size_t>(selection.Start),
                                             static_cast<std::size_t>(selection.End - selection.Start));
    if (SetClipboardText(FHandle, text))
        Edit(DeleteInMask);
}

void TCustomMaskEdit::MoveCaret(int position) {
    TMaskEntry entry = Entry();
    MoveToPlace(*FMask, entry, position);
    SetSelection({entry.Start, entry.End});
}

char16_t TCustomMaskEdit::CasedForField(char16_t unit) const {
    if (GetCharCase() == ecNormal)
        return unit;
    return GetCharCase() == ecUpperCase ? ToUpperCase(unit) : ToLowerCase(unit);
}

void TCustomMaskEdit::Reset() {
    if (!FMask || !MayEdit())
        return;
    TLifeGuard alive(*this);
    SetEditText(FEnteredText);
    if (!alive)
        return;
    SetModified(false);
    if (HandleAllocated())
        SelectAll();
}

// Keys

void TCustomMaskEdit::KeyDown(WORD& key, TShiftState shift) {
    TLifeGuard alive(*this);
    TCustomEdit::KeyDown(key, shift);
    if (alive && FMask && key != 0 && !FBeforeComposition && HandleMaskKey(key, shift) && alive)
        key = 0;
}

bool TCustomMaskEdit::HandleMaskKey(WORD key, TShiftState shift) {
    const bool plain = !shift.Contains(ssShift) && !shift.Contains(ssCtrl);
    const TSelection selection = GetSelection();
    switch (key) {
    case VK_DELETE:
        if (shift.Contains(ssShift))
            CutToClipboard();
        else
            Edit(DeleteInMask);
        return true;
    case VK_INSERT:
        if (!shift.Contains(ssShift))
            return false;
        PasteFromClipboard();
        return true;
    case VK_ESCAPE:
        Reset();
        return true;
    case VK_LEFT:
    case VK_UP: // in a single line the same
        if (plain)
            MoveCaret(std::max(PlaceBefore(*FMask, selection.Start), 0));
        return plain;
    case VK_RIGHT:
    case VK_DOWN:
        if (plain)
            MoveCaret(selection.Start + 1);
        return plain;
    case VK_HOME:
        if (plain)
            MoveCaret(0);
        return plain;
    case VK_END:
        if (plain)
            MoveCaret(FMask->Length());
        return plain;
    default:
        return false;
    }
}

void TCustomMaskEdit::KeyPress(char16_t& key) {
    TLifeGuard alive(*this);
    TCustomEdit::KeyPress(key);
    if (!alive || !FMask || key == 0 || FBeforeComposition)
        return;
    const char16_t pressed = key;
    if (pressed < u' ' && pressed != VK_BACK && pressed != kControlV && pressed != kControlX)
        return;
    key = 0;
    if (pressed == kControlV) {
        PasteFromClipboard();
    } else if (pressed == kControlX) {
        CutToClipboard();
    } else if (pressed == VK_BACK) {
        Edit(BackspaceInMask);
    } else if (MayEdit()) {
        TMaskEntry entry = Entry();
        if (TypeIntoMask(*FMask, entry, CasedForField(pressed)))
            Show(entry);
        else
            MessageBeep(MB_OK);
    }
}

void TCustomMaskEdit::MouseUp(TMouseButton button, TShiftState shift, int x, int y) {
    TLifeGuard alive(*this);
    TCustomEdit::MouseUp(button, shift, x, y);
    if (alive && FMask && button == mbLeft && HandleAllocated() && GetSelLength() == 0)
        MoveCaret(GetSelStart());
}

// Entering and leaving

void TCustomMaskEdit::CMEnter(TMessage& message) {
    if (FReturning)
        return; // the person has not left
    FEnteredText = GetEditText();
    SetModified(false);
    TCustomEdit::CMEnter(message);
}

void TCustomMaskEdit::CMExit(TMessage& message) {
    if (GetModified() && MayEdit()) {
        TLifeGuard alive(*this);
        try {
            ValidateEdit();
        } catch (const EDBEditError&) {
            if (alive && CanFocus()) {
                FReturning = true;
                SetFocus();
                if (alive)
                    FReturning = false;
            }
            throw;
        }
        if (!alive)
            return;
    }
    TCustomEdit::CMExit(message);
}

void TCustomMaskEdit::ValidateEdit() {
    if (!FMask)
        return;
    const String text = GetEditText();
    const int missing = FirstMissingPlace(*FMask, text);
    if (missing < 0 || IsMaskTextEmpty(*FMask, text))
        return;
    if (HandleAllocated())
        MoveCaret(missing);
    ValidateError();
}

void TCustomMaskEdit::ValidateError() {
    throw EDBEditError(u"The entry \"" + GetEditText() + u"\" is not complete. Press Esc to undo it.");
}

// Messages

void TCustomMaskEdit::Dispatch(TMessage& message) {
    if (message.Msg == WM_SETTEXT)
        return WMSetText(message);
    if (!FMask)
        return TCustomEdit::Dispatch(message);
    switch (message.Msg) {
    case WM_PASTE:
        if (MayEdit()) {
            if (const std::optional<String> text = ClipboardText(FHandle))
                Paste(*text);
        }
        return;
    case WM_CUT:
        if (MayEdit())
            Cut();
        return;
    case WM_CLEAR:
        return Edit(DeleteInMask);
    case EM_REPLACESEL:
        if (FWriting || FBeforeComposition)
            break;
        // The program may, also in a field that is read-only, as in any edit.
        if (const auto* text = reinterpret_cast<const char16_t*>(message.LParam))
            Paste(text);
        return;
    case CM_WANTSPECIALKEY:
        // Esc first takes back what was typed; the next one may close a dialog.
        if (message.WParam == VK_ESCAPE && MayEdit() && GetEditText() != FEnteredText)
            message.Result = 1;
        return;
    case WM_IME_STARTCOMPOSITION:
        CompositionBegins();
        break;
    case WM_IME_ENDCOMPOSITION: {
        TLifeGuard alive(*this);
        TCustomEdit::Dispatch(message);
        if (alive)
            CompositionEnds();
        return;
    }
    default:
        break;
    }
    TCustomEdit::Dispatch(message);
}

void TCustomMaskEdit::CNCommand(TMessage& message) {
    if (!FBeforeComposition) // while a text is being composed nothing is entered yet
        TCustomEdit::CNCommand(message);
}

void TCustomMaskEdit::CompositionBegins() {
    FBeforeComposition = Entry();
    DoSetMaxLength(GetMaxLength());
}

void TCustomMaskEdit::CompositionEnds() {
    if (!FBeforeComposition)
        return;
    TMaskEntry entry = *std::exchange(FBeforeComposition, std::nullopt);
    DoSetMaxLength(GetMaxLength());
    String composed = GetEditText();
    if (composed == entry.Text)
        return Show(entry); // it was given up
    // What the input method has put in place of the selection goes the way of a pasted text.
    const auto kept = entry.Text.size() - static_cast<std::size_t>(entry.End - entry.Start);
    if (composed.size() >= kept)
        composed = composed.substr(static_cast<std::size_t>(entry.Start), composed.size() - kept);
    else
        composed.clear();
    PasteIntoMask(*FMask, entry, composed);
    Show(entry);
}

} // namespace framework
