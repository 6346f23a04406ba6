#include "numeric/Zorfloatedit_rules.h"

#include "framework/system/strings.h"

#include <algorithm>
#include <cmath>

namespace ZOR {

namespace {

constexpr char16_t Backspace = u'\b';

TKeyAction Passes(char16_t key) {
    TKeyAction action;
    action.Key = key;
    return action;
}

TKeyAction Rejects() {
    TKeyAction action;
    action.ReachesHost = false;
    return action;
}

/// A field as the typing rules look at it. Column is the 1-based place of the own separator, 0 for none, which is also
/// the place of the caret right behind it.
struct TPlace {
    int Column = 0;
    int Length = 0;
    int Start = 0;
    int SelectionLength = 0;
    int Decimals = 0;

    TPlace(const TEntryState& state, int decimals, char16_t separator)
        : Length(static_cast<int>(state.Text.size())), Decimals(UsedDecimals(decimals)) {
        const std::size_t found = state.Text.find(separator);
        Column = found == String::npos ? 0 : static_cast<int>(found) + 1;
        const TEntrySelection selection = SelectionWithin(state.Selection, state.Text.size());
        Start = selection.Start;
        SelectionLength = selection.Length;
    }

    bool DecimalsAreFull() const { return Column > 0 && Length - Column >= Decimals; }
    bool AllIsSelected() const { return Start == 0 && SelectionLength == Length; }
};

String Mask(int decimals, char16_t separator) {
    String mask = u"0";
    if (decimals > 0)
        mask += separator + String(static_cast<std::size_t>(decimals), u'0');
    return mask;
}

/// The text with one character put in place of another, the caret at `caret`.
TKeyAction Overtypes(const TEntryState& state, int index, char16_t unit, int caret) {
    TKeyAction action;
    action.Text = state.Text;
    (*action.Text)[static_cast<std::size_t>(index)] = unit;
    action.Selection = TEntrySelection{caret, 0};
    return action;
}

/// The decimals take no more digits than they have: a key behind the separator overtypes, even where it is no digit,
/// which Change then takes back.
TKeyAction TypeIntoFullDecimals(char16_t key, const TEntryState& state, const TPlace& place) {
    const int end = place.Column + place.Decimals;
    if (place.Start >= end)
        return Passes(0);
    return Overtypes(state, place.Start, key, std::min(place.Start + 1, end));
}

TKeyAction TypeBeforeFullDecimals(char16_t key, const TEntryState& state, const TPlace& place, char16_t separator) {
    if (key == separator) {
        TKeyAction action = Rejects();
        action.Selection = TEntrySelection{place.Column, 0};
        return action;
    }
    const String mask = Mask(place.Decimals, separator);
    TKeyAction action = Passes(key);
    if (place.AllIsSelected()) {
        // The native edit types the key over the mask's whole digit, so that 5 over 12,34 gives 5,00.
        action.Text = mask;
        action.Selection = TEntrySelection{0, 1};
        action.ReachesHost = false;
    } else if (state.Text == mask && place.Start == 1) {
        action.Selection = TEntrySelection{0, 1};
    }
    return action;
}

/// Behind the separator backspace turns digits into zeros and then steps over the separator.
TKeyAction Erase(const TEntryState& state, const TPlace& place) {
    if (place.Column > 0 && place.Column < place.Start)
        return Overtypes(state, place.Start - 1, u'0', place.Start - 1);
    if (place.Column > 0 && place.Column == place.Start) {
        TKeyAction action = Rejects();
        action.Selection = TEntrySelection{place.Column - 1, 0};
        return action;
    }
    return Passes(Backspace);
}

/// How many decimals a text ends in; 0 where it has none, or an exponent behind them.
int FreeDecimals(const String& text, const TFormatSettings& settings) {
    const std::size_t separator = text.find(settings.DecimalSeparator);
    if (separator == String::npos || text.find_first_not_of(u"0123456789", separator + 1) != String::npos)
        return 0;
    return static_cast<int>(text.size() - separator) - 1;
}

/// The own separator typed where it makes no number: the number that stands there in full, its decimals selected, so
/// that the digits that follow are decimals.
TKeyAction LeadsToDecimals(const TEntryState& state, const TDecimalEntry& entry, const TFormatSettings& settings) {
    const int decimals = UsedDecimals(entry.Decimals);
    const TNumberReading reading = ReadNumber(state.Text, settings);
    if (decimals == 0 || reading.Kind == TNumberText::Unreadable || !std::isfinite(reading.Value))
        return Rejects();
    if (const int present = FreeDecimals(state.Text, settings); present > decimals) {
        TKeyAction action = Rejects(); // they are not rounded by a key that adds nothing
        action.Selection = TEntrySelection{static_cast<int>(state.Text.size()) - present, present};
        return action;
    }
    const bool isNegative = Trim(state.Text).starts_with(u'-'); // also before a 0 whose decimals are still to come
    String text = NumberText(std::fabs(reading.Value), decimals, settings);
    if (isNegative)
        text.insert(0, 1, u'-');
    const std::size_t column = text.find(settings.DecimalSeparator);
    if (column == String::npos)
        return Rejects(); // too great for decimals
    TKeyAction action;
    action.Selection = TEntrySelection{static_cast<int>(column) + 1, decimals};
    if (text != state.Text)
        action.Text = std::move(text);
    return action;
}

/// Whether a text is a number as it stands, even if more decimals are expected.
bool Converts(StringView text, TNumberText kind, const TFormatSettings& settings) {
    Extended value = 0;
    return kind == TNumberText::Number || (kind == TNumberText::Unfinished && TryStrToFloat(text, value, settings));
}

} // namespace

char16_t OwnSeparator(const TDecimalEntry& entry, const TFormatSettings& settings) {
    return entry.SeparatorFollowsLocale ? settings.DecimalSeparator : u',';
}

char16_t KeypadDecimalChar(const TFormatSettings& settings) {
    return settings.DecimalSeparator;
}

bool IsValidFloatChar(char16_t key, const TDecimalEntry& entry, const TFormatSettings& settings) {
    const bool isDigit = key >= u'0' && key <= u'9';
    const bool isTaken =
        isDigit || key == settings.DecimalSeparator || key == u'e' || key == u'+' || key == u'-' || IsCommandChar(key);
    const bool isSeparator = key == u'.' || key == u',' || key == settings.DecimalSeparator;
    if (!isTaken || (isSeparator && UsedDecimals(entry.Decimals) == 0))
        return false;
    if (key == u'-' && !(entry.MinValue < 0))
        return false;
    return entry.EditorEnabled || !ChangesText(key);
}

TKeyAction FloatKeyPress(char16_t key, const TEntryState& state, const TDecimalEntry& entry,
                         const TFormatSettings& settings) {
    return FloatAcceptedKey(IsValidFloatChar(key, entry, settings) ? key : u'\0', state, entry, settings);
}

TKeyAction FloatAcceptedKey(char16_t key, const TEntryState& state, const TDecimalEntry& entry,
                            const TFormatSettings& settings) {
    if (key == 0)
        return Rejects();
    if ((IsCommandChar(key) && key != Backspace) || entry.ReadOnly)
        return Passes(key);
    const char16_t separator = OwnSeparator(entry, settings);
    if (key == u'.')
        key = separator;
    if (key == separator && separator != settings.DecimalSeparator)
        return LeadsToDecimals(state, entry, settings);
    const TPlace place(state, entry.Decimals, separator);
    if (key == Backspace)
        return Erase(state, place);
    if (!place.DecimalsAreFull())
        return Passes(key);
    return place.Column <= place.Start ? TypeIntoFullDecimals(key, state, place)
                                       : TypeBeforeFullDecimals(key, state, place, separator);
}

TEntryChange FloatChange(const TEntryState& state, const TEntryMemory& memory, const TDecimalEntry& entry,
                         const TFormatSettings& settings) {
    const TNumberText kind = ReadNumber(state.Text, settings).Kind;
    TEntryChange change;
    if (kind != TNumberText::Unreadable) {
        change.IsValid = Converts(state.Text, kind, settings);
        return change;
    }
    const TNumberText before = ReadNumber(memory.TextBefore, settings).Kind;
    if (before == TNumberText::Unfinished && !Converts(memory.TextBefore, before, settings)) {
        change.Repair = RepairedState(state, String(memory.TextBefore));
        return change;
    }
    const TNumberReading last = ReadNumber(memory.LastValidText, settings);
    change.IsValid = Converts(memory.LastValidText, last.Kind, settings);
    String text;
    if (change.IsValid)
        text = last.Value != 0 ? NumberText(last.Value, entry.Decimals, settings) : String(memory.LastValidText);
    change.Repair = RepairedState(state, std::move(text));
    return change;
}

Extended CheckFloatValue(Extended value, const TDecimalEntry& entry) {
    if (entry.MinValue == entry.MaxValue)
        return value;
    if (value < entry.MinValue)
        return entry.MinValue;
    return value > entry.MaxValue ? entry.MaxValue : value;
}

Extended ReadFloatValue(StringView text, const TDecimalEntry& entry, const TFormatSettings& settings) {
    const TNumberReading reading = ReadNumberWithPoints(text, settings);
    if (reading.Kind == TNumberText::Empty)
        return 0;
    if (reading.Kind == TNumberText::Unreadable)
        return StrToFloat(text, settings); // raises
    return CheckFloatValue(reading.Value, entry);
}

std::optional<String> WriteFloatValue(StringView text, Extended value, const TDecimalEntry& entry,
                                      const TFormatSettings& settings) {
    String written = NumberText(CheckFloatValue(value, entry), entry.Decimals, settings);
    if (written == text)
        return std::nullopt;
    return written;
}

std::optional<String> LeaveFloat(StringView text, const TDecimalEntry& entry, const TFormatSettings& settings) {
    return WriteFloatValue(text, ReadFloatValue(text, entry, settings), entry, settings);
}

String PasteFloat(StringView clipboardText, const TFormatSettings& settings) {
    // Cells of a spreadsheet come with a line end.
    Extended value = 0;
    return TryStrToFloat(clipboardText, value, settings) && std::isfinite(value) ? Trim(clipboardText) : String();
}

} // namespace ZOR
