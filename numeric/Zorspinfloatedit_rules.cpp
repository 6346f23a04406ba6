#include "numeric/Zorspinfloatedit_rules.h"

#include "framework/system/strings.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace ZOR {

namespace {

bool IsDuration(const TSpinFloatEntry& entry) {
    return entry.Tryb != tStandard;
}

/// The notation in which the field shows its durations.
TDurationForm ShownForm(const TSpinFloatEntry& entry, const TFormatSettings& settings) {
    const TMinutesForm minutes = entry.Tryb == tTimeDecimal ? TMinutesForm::Hundredths : TMinutesForm::Minutes;
    return {minutes, TrybSeparator(entry.Tryb, settings), entry.MinValue < 0};
}

/// Hours and minutes.
TDurationForm ClockForm(const TSpinFloatEntry& entry, const TFormatSettings& settings) {
    return {TMinutesForm::Minutes, ClockSeparator(entry.Tryb, settings), entry.MinValue < 0};
}

/// The notation of a text, which its separator tells: where hundredths show, hours and minutes can be typed as well.
TDurationForm FormOf(StringView text, const TSpinFloatEntry& entry, const TFormatSettings& settings) {
    const TDurationForm clock = ClockForm(entry, settings);
    return text.find(clock.Separator) != StringView::npos ? clock : ShownForm(entry, settings);
}

/// The same duration in another notation, the minutes selected.
TEntryState InForm(const TEntryState& state, const TDurationForm& from, const TDurationForm& to) {
    const TNumberReading reading = ReadDuration(state.Text, from);
    if (reading.Kind != TNumberText::Number && reading.Kind != TNumberText::Unfinished)
        return GoToMinutes(state, to);
    TEntryState after{DurationText(reading.Value, to), {}};
    if (state.Text.front() == u'-' && after.Text.front() != u'-')
        after.Text.insert(0, 1, u'-'); // the digits that make it negative are still to come
    after.Selection = TimePartSelection(after.Text, TTimePart::Minutes, to.Separator);
    return after;
}

bool IsReadable(TNumberText kind) {
    return kind != TNumberText::Empty && kind != TNumberText::Unreadable;
}

/// The last decimal of the field as a number.
Extended LastDecimal(const TSpinFloatEntry& entry) {
    Extended unit = 1;
    for (int place = UsedDecimals(entry.Decimals); place > 0; --place)
        unit *= 10;
    return 1 / unit;
}

String PlainText(Extended value, const TSpinFloatEntry& entry, const TFormatSettings& settings) {
    return IsDuration(entry) ? DurationText(value, ShownForm(entry, settings))
                             : NumberText(value, entry.Decimals, settings);
}

/// A bound of the range, or the outermost multiple of Increment inside it.
Extended Bound(Extended bound, TStepDirection inwards, const TSpinFloatEntry& entry) {
    if (!entry.Zaokraglaj)
        return bound;
    const Extended multiple = RozRound(bound, std::fabs(WrittenSingle(entry.Increment)), inwards);
    return CheckSpinFloatValueEx(multiple, entry) == 0 ? multiple : bound;
}

/// A step that the field's text can show: for durations whole minutes, and at least the last place of the text.
Extended UsedStep(const TSpinFloatEntry& entry) {
    const Extended step = WrittenSingle(entry.Increment);
    if (step == 0)
        return step;
    const Extended least = IsDuration(entry) ? 1 : LastDecimal(entry);
    const Extended size = IsDuration(entry) ? std::floor(std::fabs(step) + 0.5L) : std::fabs(step);
    return std::copysign(std::max(size, least), step);
}

Extended Stepped(Extended value, int steps, TTimePart part, const TSpinFloatEntry& entry) {
    constexpr int minutesPerHour = 60;
    const Extended unit = UsedStep(entry);
    if (IsDuration(entry) && part == TTimePart::Hours) {
        const Extended hour = RozRound(minutesPerHour, std::fabs(unit), TStepDirection::Up);
        const Extended stepped = value + steps * std::copysign(hour, unit);
        return entry.Zaokraglaj ? RozRound(stepped, unit, TStepDirection::None) : stepped;
    }
    if (entry.Zaokraglaj && !IsMultiple(value, unit)) {
        const bool goesUp = (steps > 0) == (unit > 0);
        value = RozRound(value, std::fabs(unit), goesUp ? TStepDirection::Up : TStepDirection::Down);
        steps -= steps > 0 ? 1 : -1;
    }
    return DecimalSum(value, steps * unit);
}

/// What leads from one state to another; the native edit gets no key.
TKeyAction Becomes(const TEntryState& before, TEntryState after) {
    TKeyAction action;
    action.Selection = after.Selection;
    if (after.Text != before.Text)
        action.Text = std::move(after.Text);
    return action;
}

TKeyAction DurationKeyPress(char16_t key, const TEntryState& state, const TSpinFloatEntry& entry,
                            const TFormatSettings& settings) {
    const TDurationForm form = FormOf(state.Text, entry, settings);
    const TDurationForm clock = ClockForm(entry, settings);
    const bool isDigit = key >= u'0' && key <= u'9';
    TKeyAction rejects;
    rejects.ReachesHost = false;
    if (isDigit) {
        std::optional<TEntryState> typed = TypeDurationDigit(key, state, form);
        return typed ? Becomes(state, std::move(*typed)) : TKeyAction{};
    }
    if (key == form.Separator || key == clock.Separator || key == u'.' || key == u',' || key == u':') {
        const bool asksForClock = key == u':' || key == clock.Separator;
        const TDurationForm asked = asksForClock ? clock : ShownForm(entry, settings);
        return Becomes(state, asked.Minutes == form.Minutes ? GoToMinutes(state, form) : InForm(state, form, asked));
    }
    const bool isNegative = !state.Text.empty() && state.Text.front() == u'-';
    if ((key == u'-' && form.MayBeNegative) || (key == u'+' && isNegative))
        return Becomes(state, TurnSign(state, form));
    return rejects;
}

} // namespace

char16_t TrybSeparator(TTryb mode, const TFormatSettings& settings) {
    if (mode != tTime)
        return settings.DecimalSeparator;
    return settings.TimeSeparator != u'\0' ? settings.TimeSeparator : u':';
}

char16_t ClockSeparator(TTryb mode, const TFormatSettings& settings) {
    if (mode != tTimeDecimal)
        return TrybSeparator(mode, settings);
    const char16_t separator = TrybSeparator(tTime, settings);
    return separator == settings.DecimalSeparator ? u':' : separator;
}

// Value and range

String SpinFloatText(Extended value, const TSpinFloatEntry& entry, const TFormatSettings& settings) {
    String text = PlainText(value, entry, settings);
    if (entry.MinValue == entry.MaxValue || CheckSpinFloatValueEx(value, entry) != 0)
        return text;
    // Rounding may have led out of the range.
    const int side = CheckSpinFloatValueEx(ReadSpinFloat(text, entry, settings).Value, entry);
    if (side == 0)
        return text;
    const Extended unit = IsDuration(entry) ? 1 : LastDecimal(entry);
    const TStepDirection inwards = side < 0 ? TStepDirection::Up : TStepDirection::Down;
    return PlainText(RozRound(value, unit, inwards), entry, settings);
}

TNumberReading ReadSpinFloat(StringView text, const TSpinFloatEntry& entry, const TFormatSettings& settings) {
    TNumberReading reading =
        IsDuration(entry) ? ReadDuration(text, FormOf(text, entry, settings)) : ReadNumberWithPoints(text, settings);
    const bool countsAsZeros = entry.Tryb == tTimeDecimal && reading.Kind == TNumberText::Empty;
    if (!IsReadable(reading.Kind) && !countsAsZeros)
        reading.Value = entry.MinValue;
    return reading;
}

int CheckSpinFloatValueEx(Extended value, const TSpinFloatEntry& entry) {
    if (entry.MinValue == entry.MaxValue)
        return 0;
    if (value < entry.MinValue)
        return -1;
    return entry.MaxValue > 0 && value > entry.MaxValue ? 1 : 0;
}

Extended CheckSpinFloatValue(Extended value, const TSpinFloatEntry& entry) {
    if (entry.MinValue == entry.MaxValue) {
        constexpr Extended limit = UnboundedMinutes;
        return IsDuration(entry) ? std::clamp(value, -limit, limit) : value;
    }
    const int side = CheckSpinFloatValueEx(value, entry);
    if (side == 0)
        return value;
    return side < 0 ? Bound(entry.MinValue, TStepDirection::Up, entry)
                    : Bound(entry.MaxValue, TStepDirection::Down, entry);
}

TSpinFloatWrite WriteSpinFloat(StringView text, Extended value, const TSpinFloatEntry& entry,
                               const TFormatSettings& settings) {
    TSpinFloatWrite write;
    const TNumberReading present = ReadSpinFloat(text, entry, settings);
    const Extended unit = LastDecimal(entry);
    write.SameValue = IsReadable(present.Kind) && RozRound(present.Value, unit, TStepDirection::None) ==
                                                      RozRound(value, unit, TStepDirection::None);
    if (write.SameValue)
        return write;
    String written = SpinFloatText(CheckSpinFloatValue(value, entry), entry, settings);
    if (written != text)
        write.Text = std::move(written);
    write.OutOfRange = CheckSpinFloatValueEx(value, entry) != 0;
    return write;
}

TTrybChange ChangeTryb(TTryb mode, const TSpinFloatEntry& entry, const TFormatSettings& settings) {
    TSpinFloatEntry changed = entry;
    changed.Tryb = mode;
    if (mode == tStandard)
        changed.Increment = 0.01F;
    else if (!(changed.Increment >= 1))
        changed.Increment = 1;
    // A new duration begins at nothing even where the range does not.
    const Extended shown = mode == tTime ? 0 : CheckSpinFloatValue(0, changed);
    const String text = mode == tTime ? PlainText(shown, changed, settings) : SpinFloatText(shown, changed, settings);
    return {changed.Increment, text, CheckSpinFloatValueEx(0, changed) != 0};
}

namespace {

/// Whether a typed value lies within the range, and a duration without one within all durations.
bool CanBeLeft(Extended value, const TSpinFloatEntry& entry) {
    if (IsDuration(entry) && entry.MinValue == entry.MaxValue)
        return std::fabs(value) <= UnboundedMinutes;
    return CheckSpinFloatValueEx(value, entry) == 0;
}

} // namespace

TSpinFloatLeave LeaveSpinFloat(StringView text, const TSpinFloatEntry& entry, const TFormatSettings& settings) {
    TSpinFloatLeave leave;
    const TNumberReading reading = ReadSpinFloat(text, entry, settings);
    if (reading.Kind == TNumberText::Unreadable)
        return leave;
    Extended value = reading.Value;
    Extended rounded = value;
    if (IsDuration(entry) && entry.Zaokraglaj)
        rounded = RozRound(value, WrittenSingle(entry.Increment), TStepDirection::None);
    // One of the two within the range is enough: rounding may lead into it, and where it leads out, back to its end.
    leave.Accepted = CanBeLeft(value, entry) || CanBeLeft(rounded, entry);
    if (leave.Accepted)
        value = CheckSpinFloatValue(rounded, entry);
    String written = SpinFloatText(value, entry, settings);
    if (written != text)
        leave.Text = std::move(written);
    return leave;
}

namespace {

/// As the message writes it: a duration in hours and minutes, with their separator also where the field shows
/// hundredths of an hour, so that it can be typed as it is read.
String BoundText(Extended bound, const TSpinFloatEntry& entry, const TFormatSettings& settings) {
    if (!IsDuration(entry))
        return NumberText(bound, entry.Decimals, settings);
    return ValueToTimeStr(bound, ClockSeparator(entry.Tryb, settings));
}

} // namespace

TMessageText RangeMessage(const TSpinFloatEntry& entry, TMessageLanguage language, const TFormatSettings& settings) {
    if (language != TMessageLanguage::Polish)
        return {u"An invalid value.", u"Error"};
    TMessageText message{u"Wprowadzono nieprawidłową wartość.", u"Błąd"};
    if (entry.MinValue == entry.MaxValue)
        return message;
    const bool hasTop = entry.MaxValue > 0;
    const StringView range =
        hasTop ? u"\nWartość powinna mieścić się w zakresie [%1 - %2]." : u"\nWartość powinna być większa od [%1].";
    const String filled = StringReplace(range, u"%1", BoundText(entry.MinValue, entry, settings));
    message.Text += StringReplace(filled, u"%2", BoundText(entry.MaxValue, entry, settings));
    return message;
}

Currency SpinFloatCurrency(Extended value) {
    using Limits = std::numeric_limits<std::int64_t>;
    const Currency greatest = Currency::FromUnits(Limits::max());
    const Currency least = Currency::FromUnits(Limits::min());
    if (std::isnan(value))
        return {};
    if (value >= greatest.AsFloat())
        return greatest;
    return value <= least.AsFloat() ? least : Currency(value);
}

// Keys, caret and wheel

char16_t KeypadDecimalChar(const TSpinFloatEntry& entry, const TFormatSettings& settings) {
    return TrybSeparator(entry.Tryb, settings);
}

TKeyAction SpinFloatKeyPress(char16_t key, const TEntryState& state, const TSpinFloatEntry& entry,
                             const TFormatSettings& settings) {
    if (!IsDuration(entry))
        return FloatKeyPress(key, state, entry, settings);
    constexpr char16_t backspace = u'\b';
    TKeyAction action;
    action.Key = key;
    action.ReachesHost = false;
    const bool isRefused = key == 0 || key == u'\r' || (!entry.EditorEnabled && ChangesText(key));
    if (isRefused) {
        action.Key = 0;
        return action;
    }
    action.ReachesHost = true;
    if (entry.ReadOnly || (IsCommandChar(key) && key != backspace))
        return action;
    if (key != backspace)
        return DurationKeyPress(key, state, entry, settings);
    std::optional<TEntryState> erased = EraseInDuration(false, state, FormOf(state.Text, entry, settings));
    return erased ? Becomes(state, std::move(*erased)) : action;
}

std::optional<TKeyAction> SpinFloatKeyDown(TCaretKey key, const TEntryState& state, const TSpinFloatEntry& entry,
                                           const TFormatSettings& settings) {
    if (!IsDuration(entry))
        return std::nullopt;
    const TDurationForm form = FormOf(state.Text, entry, settings);
    if (key != TCaretKey::Delete) {
        const std::optional<TEntrySelection> selection = CrossSeparator(key == TCaretKey::Right, state, form);
        if (!selection)
            return std::nullopt;
        TKeyAction action;
        action.Selection = selection;
        return action;
    }
    if (!entry.EditorEnabled)
        return TKeyAction{};
    if (entry.ReadOnly)
        return std::nullopt;
    std::optional<TEntryState> erased = EraseInDuration(true, state, form);
    if (!erased)
        return std::nullopt;
    return Becomes(state, std::move(*erased));
}

TEntryChange SpinFloatChange(const TEntryState& state, const TEntryMemory& memory, const TSpinFloatEntry& entry,
                             const TFormatSettings& settings) {
    if (!IsDuration(entry))
        return FloatChange(state, memory, entry, settings);
    TEntryChange change;
    const TNumberText kind = ReadSpinFloat(state.Text, entry, settings).Kind;
    change.IsValid = kind == TNumberText::Number;
    if (kind != TNumberText::Unreadable)
        return change;
    const bool lastIsValid = ReadSpinFloat(memory.LastValidText, entry, settings).Kind == TNumberText::Number;
    change.Repair = RepairedState(state, lastIsValid ? String(memory.LastValidText) : PlainText(0, entry, settings));
    change.IsValid = true;
    return change;
}

String PasteSpinFloat(StringView clipboardText, const TSpinFloatEntry& entry, const TFormatSettings& settings) {
    if (!IsDuration(entry))
        return PasteFloat(clipboardText, settings);
    const TNumberReading reading = ReadSpinFloat(clipboardText, entry, settings);
    return IsReadable(reading.Kind) ? PlainText(reading.Value, entry, settings) : String();
}

TTimePart TimePartAt(const TEntryState& state, const TSpinFloatEntry& entry, const TFormatSettings& settings) {
    return IsDuration(entry) ? TimePartAt(state, FormOf(state.Text, entry, settings).Separator) : TTimePart::Hours;
}

TEntrySelection TimePartSelection(StringView text, TTimePart part, const TSpinFloatEntry& entry,
                                  const TFormatSettings& settings) {
    if (!IsDuration(entry))
        return {0, static_cast<int>(text.size())};
    return TimePartSelection(text, part, FormOf(text, entry, settings).Separator);
}

TEntryState StepSpinFloat(const TEntryState& state, int steps, const TSpinFloatEntry& entry,
                          const TFormatSettings& settings) {
    if (steps == 0 || UsedStep(entry) == 0 || entry.ReadOnly)
        return state;
    const TTimePart part = TimePartAt(state, entry, settings);
    const Extended value = ReadSpinFloat(state.Text, entry, settings).Value;
    const Extended stepped = CheckSpinFloatValue(Stepped(value, steps, part, entry), entry);
    TEntryState after{SpinFloatText(stepped, entry, settings), {}};
    const TEntrySelection before = SelectionWithin(state.Selection, state.Text.size());
    if (IsDuration(entry) || before.Length == static_cast<int>(state.Text.size())) {
        after.Selection = TimePartSelection(after.Text, part, entry, settings);
    } else {
        const int growth = static_cast<int>(after.Text.size()) - static_cast<int>(state.Text.size());
        after.Selection = SelectionWithin({before.Start + growth, before.Length}, after.Text.size());
    }
    return after;
}

} // namespace ZOR
