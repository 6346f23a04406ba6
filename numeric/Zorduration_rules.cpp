#include "numeric/Zorduration_rules.h"

#include "framework/system/strings.h"

#include <algorithm>
#include <cmath>

namespace ZOR {

namespace {

constexpr int MinutesPerHour = 60;
constexpr std::size_t MaximumHourDigits = 9;
constexpr std::size_t MinutesDigits = 2;
constexpr std::size_t HourDigitsThatLeadOn = 2;
const String NoMinutes(MinutesDigits, u'0');

/// A duration's text taken apart, and what of each part is selected.
struct TParts {
    bool IsNegative = false;
    bool HasSeparator = false;
    String Hours;
    String Minutes;

    bool InHours = true;
    bool AllIsSelected = false;
    bool SignIsSelected = false;
    bool SeparatorIsSelected = false;
    std::size_t From = 0; ///< of the selection, within the part where it begins
    std::size_t To = 0;   ///< its end within the same part
    std::size_t MinutesTo = 0;

    TParts(const TEntryState& state, char16_t separator);

    std::size_t SignLength() const { return IsNegative ? 1 : 0; }
    bool NothingIsSelected() const { return From == To && !SignIsSelected && !SeparatorIsSelected; }

    TEntryState Whole(char16_t separator, TEntrySelection selection) const {
        String text = IsNegative ? u"-" : u"";
        text += Hours;
        text += separator;
        text += Minutes;
        return {std::move(text), selection};
    }
    TEntryState WithCaretInHours(std::size_t place, char16_t separator) const {
        return Whole(separator, {static_cast<int>(SignLength() + place), 0});
    }
    TEntryState WithCaretInMinutes(std::size_t place, char16_t separator) const {
        return Whole(separator, {static_cast<int>(SignLength() + Hours.size() + 1 + place), 0});
    }
    TEntryState WithPart(TTimePart part, char16_t separator) const {
        TEntryState state = Whole(separator, {});
        state.Selection = TimePartSelection(state.Text, part, separator);
        return state;
    }
};

TParts::TParts(const TEntryState& state, char16_t separator) {
    const TEntrySelection selection = SelectionWithin(state.Selection, state.Text.size());
    const auto start = static_cast<std::size_t>(selection.Start);
    const std::size_t end = start + static_cast<std::size_t>(selection.Length);
    const StringView text = state.Text;

    IsNegative = !text.empty() && text.front() == u'-';
    const std::size_t border = std::min(text.find(separator), text.size());
    HasSeparator = border < text.size();
    Hours = text.substr(SignLength(), border - SignLength());
    Minutes = HasSeparator ? text.substr(border + 1) : StringView();

    const auto within = [](std::size_t place, std::size_t partStart, std::size_t length) {
        return place <= partStart ? 0 : std::min(place - partStart, length);
    };
    InHours = start <= border;
    AllIsSelected = start == 0 && end == text.size();
    SignIsSelected = IsNegative && start == 0 && end > 0;
    SeparatorIsSelected = HasSeparator && InHours && end > border;
    const std::size_t partStart = InHours ? SignLength() : border + 1;
    const std::size_t length = InHours ? Hours.size() : Minutes.size();
    From = within(start, partStart, length);
    To = within(end, partStart, length);
    MinutesTo = within(end, border + 1, Minutes.size());
}

/// A part's digits; blanks around them do not count. False where anything else stands there.
bool TryReadDigits(StringView digits, Extended& value) {
    constexpr Extended greatest = 1e17L;
    value = 0;
    for (const char16_t unit : digits) {
        if (unit < u'0' || unit > u'9')
            return false;
        value = std::min(value * 10 + (unit - u'0'), greatest);
    }
    return true;
}

/// The minutes in decimals of an hour, to the nearest, ties up.
std::int64_t MinutesInDecimals(StringView decimals) {
    constexpr std::size_t countedDigits = 16;
    std::int64_t units = 0;
    std::int64_t hour = 1;
    for (const char16_t unit : decimals.substr(0, countedDigits)) {
        units = units * 10 + (unit - u'0');
        hour *= 10;
    }
    return (units * MinutesPerHour + hour / 2) / hour;
}

bool TakeMinus(StringView& part) {
    const bool isNegative = !part.empty() && part.front() == u'-';
    if (isNegative)
        part.remove_prefix(1);
    return isNegative;
}

void AppendTwoDigits(String& text, std::int64_t number) {
    if (number < 10)
        text += u'0';
    text += IntToStr(number);
}

std::int64_t WholeMinutes(Extended value) {
    constexpr Extended greatest = 9e18L;
    if (std::isnan(value))
        return 0;
    return static_cast<std::int64_t>(std::clamp(value, -greatest, greatest));
}

} // namespace

String ValueToTimeStr(Extended value, char16_t separator) {
    const std::int64_t total = std::abs(WholeMinutes(value));
    String text = value < 0 ? u"-" : u"";
    AppendTwoDigits(text, total / MinutesPerHour);
    text += separator;
    AppendTwoDigits(text, total % MinutesPerHour);
    return text;
}

String DurationText(Extended value, const TDurationForm& form) {
    const std::int64_t minutes = WholeMinutes(value);
    String text = ValueToTimeStr(static_cast<Extended>(minutes), form.Separator);
    if (form.Minutes == TMinutesForm::Hundredths) {
        text.resize(text.size() - MinutesDigits);
        // Sixtieths and hundredths are never tied.
        const std::int64_t rest = std::abs(minutes) % MinutesPerHour;
        AppendTwoDigits(text, (rest * 100 + MinutesPerHour / 2) / MinutesPerHour);
    }
    return text;
}

TNumberReading ReadDuration(StringView text, const TDurationForm& form) {
    const String trimmed = Trim(text);
    if (trimmed.empty())
        return {text.empty() ? TNumberText::Empty : TNumberText::Unreadable, 0};
    const std::size_t border = std::min(trimmed.find(form.Separator), trimmed.size());
    const bool hasSeparator = border < trimmed.size();
    if (!hasSeparator && form.Minutes == TMinutesForm::Minutes)
        return {TNumberText::Unreadable, 0};
    StringView hours = StringView(trimmed).substr(0, border);
    StringView minutes = StringView(trimmed).substr(hasSeparator ? border + 1 : border);
    bool isNegative = TakeMinus(hours);
    isNegative = TakeMinus(minutes) || isNegative;
    Extended whole = 0;
    Extended rest = 0;
    if (!TryReadDigits(hours, whole) || !TryReadDigits(minutes, rest))
        return {TNumberText::Unreadable, 0};
    if (form.Minutes == TMinutesForm::Hundredths)
        rest = static_cast<Extended>(MinutesInDecimals(minutes));
    const bool isFinished = !hours.empty() && (!minutes.empty() || !hasSeparator);
    const Extended value = whole * MinutesPerHour + rest;
    return {isFinished ? TNumberText::Number : TNumberText::Unfinished, isNegative && value != 0 ? -value : value};
}

TTimePart TimePartAt(const TEntryState& state, char16_t separator) {
    return TParts(state, separator).InHours ? TTimePart::Hours : TTimePart::Minutes;
}

TEntrySelection TimePartSelection(StringView text, TTimePart part, char16_t separator) {
    const std::size_t border = std::min(text.find(separator), text.size());
    const std::size_t sign = !text.empty() && text.front() == u'-' ? 1 : 0;
    const std::size_t start = part == TTimePart::Hours ? sign : std::min(border + 1, text.size());
    const std::size_t end = part == TTimePart::Hours ? border : text.size();
    return {static_cast<int>(start), static_cast<int>(end - start)};
}

std::optional<TEntryState> TypeDurationDigit(char16_t digit, const TEntryState& state, const TDurationForm& form) {
    TParts parts(state, form.Separator);
    if (parts.InHours) {
        if (parts.SignIsSelected)
            parts.IsNegative = false;
        if (parts.SeparatorIsSelected)
            parts.Minutes.erase(0, parts.MinutesTo);
        if ((parts.SeparatorIsSelected || !parts.HasSeparator) && parts.Minutes.empty())
            parts.Minutes = NoMinutes;
        const bool isFull = parts.Hours.size() >= HourDigitsThatLeadOn;
        if (parts.NothingIsSelected() && isFull && parts.From < parts.Hours.size())
            ++parts.To; // typed over, as minutes are; hours of more digits grow at their end
        parts.Hours.replace(parts.From, parts.To - parts.From, 1, digit);
        if (parts.Hours.size() > MaximumHourDigits)
            return std::nullopt;
        const bool leadsOn = parts.Hours.size() == HourDigitsThatLeadOn && parts.From + 1 == parts.Hours.size();
        return leadsOn ? parts.WithPart(TTimePart::Minutes, form.Separator)
                       : parts.WithCaretInHours(parts.From + 1, form.Separator);
    }
    if (parts.From == parts.To) {
        if (parts.From >= std::max(MinutesDigits, parts.Minutes.size()))
            return std::nullopt;
        parts.To = std::min(parts.From + 1, parts.Minutes.size());
    }
    parts.Minutes.replace(parts.From, parts.To - parts.From, 1, digit);
    return parts.WithCaretInMinutes(parts.From + 1, form.Separator);
}

TEntryState GoToMinutes(const TEntryState& state, const TDurationForm& form) {
    TParts parts(state, form.Separator);
    if (!parts.HasSeparator) {
        if (parts.Hours.empty())
            parts.Hours = u"0";
        parts.Minutes = NoMinutes;
    }
    return parts.WithPart(TTimePart::Minutes, form.Separator);
}

TEntryState TurnSign(const TEntryState& state, const TDurationForm& form) {
    TParts parts(state, form.Separator);
    if (parts.AllIsSelected) {
        parts.IsNegative = true;
        parts.Hours = parts.Minutes = NoMinutes;
        return parts.WithPart(TTimePart::Hours, form.Separator);
    }
    if (!parts.HasSeparator)
        parts.Minutes = NoMinutes;
    TEntrySelection selection = SelectionWithin(state.Selection, state.Text.size());
    selection.Start = std::max(selection.Start + (parts.IsNegative ? -1 : 1), 0);
    parts.IsNegative = !parts.IsNegative;
    return parts.Whole(form.Separator, selection);
}

std::optional<TEntryState> EraseInDuration(bool forward, const TEntryState& state, const TDurationForm& form) {
    TParts parts(state, form.Separator);
    if (parts.AllIsSelected)
        return TEntryState{};
    if (!parts.HasSeparator)
        return std::nullopt;
    if (parts.NothingIsSelected()) {
        const TEntrySelection selection = SelectionWithin(state.Selection, state.Text.size());
        const bool isAtSign = parts.InHours && parts.IsNegative && selection.Start == (forward ? 0 : 1);
        const bool isAtSeparator = forward ? parts.InHours && parts.From == parts.Hours.size() && !isAtSign
                                           : !parts.InHours && parts.From == 0;
        if (isAtSign)
            parts.SignIsSelected = true;
        else if (isAtSeparator)
            return forward ? parts.WithCaretInMinutes(0, form.Separator)
                           : parts.WithCaretInHours(parts.Hours.size(), form.Separator);
        else if (forward)
            parts.To = std::min(parts.To + 1, (parts.InHours ? parts.Hours : parts.Minutes).size());
        else
            parts.From -= parts.From > 0 ? 1 : 0;
    }
    if (parts.InHours) {
        if (parts.SignIsSelected)
            parts.IsNegative = false;
        parts.Hours.erase(parts.From, parts.To - parts.From);
        if (parts.SeparatorIsSelected)
            parts.Minutes.replace(0, parts.MinutesTo, parts.MinutesTo, u'0');
        return parts.WithCaretInHours(parts.From, form.Separator);
    }
    parts.Minutes.replace(parts.From, parts.To - parts.From, parts.To - parts.From, u'0');
    const bool stepsOver = forward && SelectionWithin(state.Selection, state.Text.size()).Length == 0;
    return parts.WithCaretInMinutes(stepsOver ? parts.To : parts.From, form.Separator);
}

std::optional<TEntrySelection> CrossSeparator(bool forward, const TEntryState& state, const TDurationForm& form) {
    const TParts parts(state, form.Separator);
    if (!parts.HasSeparator)
        return std::nullopt;
    const TEntrySelection selection = SelectionWithin(state.Selection, state.Text.size());
    const TTimePart here = parts.InHours ? TTimePart::Hours : TTimePart::Minutes;
    const TTimePart there = parts.InHours ? TTimePart::Minutes : TTimePart::Hours;
    const TEntrySelection part = TimePartSelection(state.Text, here, form.Separator);
    const int border = forward ? part.Start + part.Length : part.Start;
    const bool isAtBorder = selection.Length == 0 && selection.Start == border;
    if (parts.InHours != forward || (selection != part && !isAtBorder))
        return std::nullopt;
    return TimePartSelection(state.Text, there, form.Separator);
}

} // namespace ZOR
