#pragma once

// A field without a window, for rules that work on text and caret: it types, erases and selects like a plain edit, and
// asks the rules what the native edit asks its control. States are written as a person sees them: "12|,34" with the
// caret, "[12],34" with a selection.

#include "framework/system/strings.h"
#include "numeric/Zornumericentry_rules.h"

#include <functional>

namespace ZOR {

inline TFormatSettings SettingsOf(char16_t decimalSeparator) {
    TFormatSettings settings;
    settings.DecimalSeparator = decimalSeparator;
    settings.ThousandSeparator = decimalSeparator == u'.' ? u',' : u'.';
    return settings;
}
inline const TFormatSettings Polish = [] {
    TFormatSettings settings = SettingsOf(u',');
    settings.ThousandSeparator = u'\u00A0';
    return settings;
}();
inline const TFormatSettings German = SettingsOf(u',');
inline const TFormatSettings American = SettingsOf(u'.');

inline String ShownState(const TEntryState& state) {
    String shown = state.Text;
    const auto start = static_cast<std::size_t>(state.Selection.Start);
    if (state.Selection.Length == 0)
        return shown.insert(start, u"|");
    shown.insert(start + static_cast<std::size_t>(state.Selection.Length), u"]");
    return shown.insert(start, u"[");
}

inline TEntryState StateShown(String shown) {
    const std::size_t caret = shown.find(u'|');
    if (caret != String::npos)
        return {shown.erase(caret, 1), {static_cast<int>(caret), 0}};
    const auto start = static_cast<int>(shown.find(u'['));
    const auto end = static_cast<int>(shown.find(u']'));
    std::erase_if(shown, [](char16_t unit) { return unit == u'[' || unit == u']'; });
    return {shown, {start, end - start - 1}};
}

class TSimulatedEdit {
public:
    TEntryState State;
    String LastValidText;
    /// What the control's Change finds.
    std::function<TEntryChange(const TEntryState& state, const TEntryMemory& memory)> Judge;

    void Start(TEntryState state) {
        State = std::move(state);
        FTextBefore = State.Text;
    }

    void SetText(String text) {
        State = {std::move(text), {0, 0}};
        Changed();
    }

    void Select(TEntrySelection selection) { State.Selection = SelectionWithin(selection, State.Text.size()); }

    void Apply(const TKeyAction& action) {
        if (action.Text)
            SetText(*action.Text);
        if (action.Selection)
            Select(*action.Selection);
        if (action.Key >= u' ')
            ReplaceSelection(String(1, action.Key));
        else if (action.Key == u'\b')
            Erase(-1);
    }

    /// Backspace (-1) or delete (1) of the native edit.
    void Erase(int direction) {
        if (State.Selection.Length == 0) {
            const int end = static_cast<int>(State.Text.size());
            if (direction < 0 ? State.Selection.Start == 0 : State.Selection.Start >= end)
                return;
            State.Selection = {State.Selection.Start + (direction < 0 ? -1 : 0), 1};
        }
        ReplaceSelection({});
    }

    void ReplaceSelection(const String& text) {
        State.Text.replace(static_cast<std::size_t>(State.Selection.Start),
                           static_cast<std::size_t>(State.Selection.Length), text);
        State.Selection = {State.Selection.Start + static_cast<int>(text.size()), 0};
        Changed();
    }

    /// A repair is itself a change, which must find nothing more to repair.
    void Changed() {
        TEntryChange change = Judge(State, {LastValidText, FTextBefore});
        RepairsSettle = true;
        if (change.Repair) {
            Repaired = true;
            State = *change.Repair;
            change = Judge(State, {LastValidText, FTextBefore});
            RepairsSettle = !change.Repair;
        }
        FTextBefore = State.Text;
        if (change.IsValid)
            LastValidText = State.Text;
    }

    bool RepairsSettle = true;
    bool Repaired = false; ///< at some time since somebody cleared it

private:
    String FTextBefore;
};

} // namespace ZOR
