#include "datetime/Zordatetimepickeredit_rules.h"

#include "framework/system/casemapping.h"
#include "framework/system/maskutils.h"
#include "framework/system/numbers.h"
#include "framework/system/published.h"
#include "framework/system/strings.h"

#include <algorithm>
#include <cmath>

namespace ZOR {

namespace {

constexpr char16_t DigitPlace = u'9';
constexpr TDateTime firstDate = 1; ///< 1899-12-31, the first day that is a date
constexpr TDateTime lastDate = 2958465;

bool IsDigit(char16_t unit) {
    return unit >= u'0' && unit <= u'9';
}

int Length(StringView text) {
    return static_cast<int>(text.size());
}

/// "-", "." and "/" each become the separator of the locale.
void UseDateSeparator(String& text, const TFormatSettings& settings) {
    for (char16_t& unit : text) {
        if (unit == u'-' || unit == u'.' || unit == u'/')
            unit = settings.DateSeparator;
    }
}

void RemoveUnit(String& text, char16_t unit) {
    text.erase(std::remove(text.begin(), text.end(), unit), text.end());
}

/// The format that the field shows its values by.
String DisplayFormat(const TDateField& field) {
    if (field.View != dtvDay)
        return setDateFormatEx(field.Format, field.View);
    const TFormatSettings& settings = field.Settings;
    return field.HasTime() ? settings.ShortDateFormat + u' ' + settings.ShortTimeFormat : settings.ShortDateFormat;
}

} // namespace

const TEnumInfo& DescribeEnum(TDateTimeView) {
    static const TEnumInfo info{u"TDateTimeView", {u"dtvDay", u"dtvMonth", u"dtvYear"}};
    return info;
}

TFormatSettings EntrySettings(const TFormatSettings& locale) {
    TFormatSettings settings = locale;
    const char16_t separator = locale.DateSeparator;
    const bool canPart = separator >= u' ' && separator != u':' && separator != u'\'' && separator != u'"' &&
                         !IsDigit(separator) && ToUpperCase(separator) == ToLowerCase(separator);
    settings.DateSeparator = canPart ? separator : u'-';
    settings.ShortDateFormat.clear();
    for (const TDateUnit unit : DateOrder(locale.ShortDateFormat)) {
        if (!settings.ShortDateFormat.empty())
            settings.ShortDateFormat += settings.DateSeparator;
        settings.ShortDateFormat += unit == TDateUnit::Year ? u"yyyy" : unit == TDateUnit::Month ? u"MM" : u"dd";
    }
    settings.TimeSeparator = u':';
    settings.ShortTimeFormat = u"hh:mm";
    settings.LongTimeFormat = u"hh:mm:ss";
    return settings;
}

bool HasDate(TDateTime value) {
    return value >= firstDate;
}

// Typing.

bool IsNumKey(int key) {
    return key >= 96 && key <= 105;
}

String EntryMask(const TDateField& field) {
    String mask = field.Settings.ShortDateFormat;
    if (field.HasTime())
        mask += u' ' + field.Settings.ShortTimeFormat;
    const StringView letters = field.HasTime() ? u"yMdhm" : u"yMd";
    for (char16_t& unit : mask) {
        if (letters.find(unit) != StringView::npos)
            unit = DigitPlace;
    }
    UseDateSeparator(mask, field.Settings);
    return mask;
}

namespace {

bool IsNumeric(int key) {
    return (key >= u'0' && key <= u'9') || IsNumKey(key);
}

/// Whether the mask has a separator, and nothing else but digits, beside the caret: the places are counted from 1, so
/// these are the one before the caret and, but for the end of the mask, the one behind it.
bool IsBesideSeparator(const String& mask, int caret, const TDateField& field) {
    String slice;
    if (caret + 2 < Length(mask))
        slice = Copy(mask, caret, 2);
    else if (caret < Length(mask))
        slice = Copy(mask, caret, 1);
    RemoveUnit(slice, DigitPlace);
    return slice.size() == 1 &&
           (slice[0] == u' ' || slice[0] == field.Settings.DateSeparator || slice[0] == field.Settings.TimeSeparator);
}

/// Makes room for the digit that was typed, or fills the gap that a key has left.
void EvenOut(String& text, int key, int caret, bool besideSeparator, const TDateField& field) {
    const int length = Length(text);
    const int limit = field.MaxLength;
    if (limit <= 0 || length <= limit) {
        if (caret > 0 && caret < length && IsNumeric(key)) {
            const bool isSeparator = text[static_cast<std::size_t>(caret)] == field.Settings.DateSeparator;
            Delete(text, caret + (isSeparator ? 2 : 1), 1);
        } else if (caret < length && (key == BackspaceKey || key == DeleteKey)) {
            if (caret == 0 || !besideSeparator)
                text.insert(static_cast<std::size_t>(caret), 1, u'0');
        }
    } else if (limit > 1) {
        const String rest = text.substr(static_cast<std::size_t>(caret));
        text.resize(static_cast<std::size_t>(caret));
        text += StringOfChar(u'0', limit - 1 - caret) + rest;
        text.resize(static_cast<std::size_t>(limit));
    }
}

/// Lays digits into the mask, zeros where they do not reach. Surplus digits stay behind it.
String LaidIntoMask(const String& digits, const String& mask, const TDateField& field) {
    TParsedMask places;
    places.Places.reserve(mask.size());
    for (const char16_t unit : mask) {
        TMaskPlace place;
        if (unit == DigitPlace)
            place.Kind = TMaskPlaceKind::Digit;
        else
            place.Literal = unit == u':' ? field.Settings.TimeSeparator : unit;
        places.Places.push_back(place);
    }
    String text = MaskDoFormatText(places, digits, u'0');
    const auto entries = static_cast<std::size_t>(places.EntryCount());
    if (digits.size() > entries)
        text += StringView(digits).substr(entries);
    return text;
}

/// Cuts the one digit that a key may have added.
void CutSurplus(String& text, const String& mask, const TDateField& field) {
    bool isLonger = Length(text) > Length(mask);
    if (field.HasTime()) {
        const std::size_t separator = text.find(field.Settings.TimeSeparator);
        isLonger = separator != String::npos && text.size() - separator - 1 > 2;
    }
    if (isLonger)
        text.pop_back();
}

/// Zeros stand for the year of the lower bound and for the first month and day. That only the "-" is looked for,
/// whatever the separator of the locale, is meant.
void ReplaceZeros(String& text, TDateTime minDate, const TDateField& field) {
    if (Pos(u"y", field.Settings.ShortDateFormat) > 1) {
        // The day 0 lies at the end of 1899 and stands for "no bound".
        const int year = YearOf(minDate);
        const String digits = IntToStr(year == 1899 || year == 0 ? 1900 : year);
        text = StringReplace(text, u"-0000", u"-" + StringOfChar(u'0', 4 - Length(digits)) + digits,
                             TReplaceFlags() << rfReplaceAll);
    }
    text = StringReplace(text, u"-00", u"-01", TReplaceFlags() << rfReplaceAll);
}

} // namespace

int zamienNaDate(String& text, int key, int caret, const TDateField& field, TDateTime minDate) {
    const String mask = EntryMask(field);
    caret = std::clamp(caret, 0, Length(text));
    const bool besideSeparator = IsBesideSeparator(mask, caret, field);
    EvenOut(text, key, caret, besideSeparator, field);

    RemoveUnit(text, field.Settings.DateSeparator);
    if (field.HasTime()) {
        RemoveUnit(text, u' ');
        RemoveUnit(text, field.Settings.TimeSeparator);
    }
    if (key == BackspaceKey && caret == 0)
        Delete(text, 1, 1);
    text = LaidIntoMask(text, mask, field);
    CutSurplus(text, mask, field);
    ReplaceZeros(text, minDate, field);

    if (besideSeparator)
        return 1;
    return IsNumeric(key) || key == BackspaceKey ? 0 : -1;
}

namespace {

/// No key: the digits stay as they are and are only laid into the mask.
constexpr int NoKey = 0;

bool FillsMask(const String& text, const String& mask, const TDateField& field) {
    return std::equal(text.begin(), text.end(), mask.begin(), mask.end(), [&field](char16_t unit, char16_t place) {
        if (place == DigitPlace)
            return IsDigit(unit);
        return unit == (place == u':' ? field.Settings.TimeSeparator : place);
    });
}

/// What a key does to a text that fills its mask, told from the state before the key. The text that the native edit
/// has made of it does not count: it has moved the digits behind the caret.
TEntryText KeyOnFullText(TEntryText state, int key, const String& mask, const TDateField& field, TDateTime minDate) {
    String& text = state.Text;
    const int length = Length(text);
    const auto isPlace = [&mask](int at) { return mask[static_cast<std::size_t>(at)] == DigitPlace; };
    const auto put = [&](int at, char16_t digit) {
        if (isPlace(at))
            text[static_cast<std::size_t>(at)] = digit;
    };
    int caret = std::clamp(state.SelStart, 0, length);
    const int selectionEnd = std::clamp(caret + state.SelLength, caret, length);
    for (int at = caret; at < selectionEnd; ++at)
        put(at, u'0');
    if (IsNumeric(key)) {
        while (caret < length && !isPlace(caret))
            ++caret;
        if (caret == length)
            return {text, length, 0};
        put(caret++, static_cast<char16_t>(IsNumKey(key) ? key - 96 + u'0' : key));
    } else if (selectionEnd == caret && key == BackspaceKey && caret > 0) {
        put(--caret, u'0');
    } else if (selectionEnd == caret && key == DeleteKey && caret < length) {
        put(caret, u'0');
        if (!isPlace(caret))
            ++caret;
    }
    const bool passesSeparator = zamienNaDate(text, NoKey, caret, field, minDate) == 1 && IsNumeric(key);
    return {text, std::min(caret + (passesSeparator ? 1 : 0), Length(text)), 0};
}

/// What a separator does that was typed into an empty text or one that fills its mask: it stands there already.
TEntryText SeparatorTyped(TEntryText state, const String& mask) {
    const int length = Length(state.Text);
    for (int at = state.SelStart; state.SelLength == 0 && at < std::min(state.SelStart + 2, length); ++at) {
        if (mask[static_cast<std::size_t>(at)] != DigitPlace) {
            state.SelStart = at + 1;
            break;
        }
    }
    return state;
}

} // namespace

TEntryText RewriteTypedDate(const TEntryText& before, const TEntryText& after, int key, const TDateField& field,
                            TDateTime minDate) {
    const String mask = EntryMask(field);
    if (key == SeparatorKey)
        return before.Text.empty() || FillsMask(before.Text, mask, field) ? SeparatorTyped(before, mask) : after;
    const bool isKnown = IsNumeric(key) || key == BackspaceKey || key == DeleteKey;
    if (!isKnown || after.Text == before.Text || after.Text.empty())
        return after;
    const bool dropsFirst = key == BackspaceKey && before.SelLength == 0 && after.SelStart == 0;
    if (!dropsFirst && FillsMask(before.Text, mask, field))
        return KeyOnFullText(before, key, mask, field, minDate);
    TEntryText result = after;
    const int adjustment = zamienNaDate(result.Text, key, after.SelStart, field, minDate);
    // Only a key that goes forward passes a separator forward; -1 holds the caret of a key that adds nothing.
    if (key != BackspaceKey && adjustment > 0)
        ++result.SelStart;
    result.SelStart = std::clamp(result.SelStart, 0, Length(result.Text));
    result.SelLength = 0;
    return result;
}

bool AcceptsCharacter(char16_t character, const TEntryText& state, bool useMaskEdit, const TDateField& field) {
    constexpr StringView readingCommands = u"\u0001\u0003";       // Ctrl with A, C
    constexpr StringView writingCommands = u"\u0016\u0018\u001A"; // Ctrl with V, X, Z
    if (readingCommands.find(character) != StringView::npos)
        return true;
    if (field.TypingIsClosed())
        return false;
    if (writingCommands.find(character) != StringView::npos)
        return true;
    constexpr std::size_t timeLength = 5;
    const StringView text = state.Text;
    const StringView time = text.substr(text.size() - std::min(text.size(), timeLength));
    const bool isInTime = time.size() == timeLength && time[0] == u' ' &&
                          (state.SelStart == Length(text) || time.find(u':') != StringView::npos);
    if (!text.empty() && !useMaskEdit && !isInTime)
        return true;
    constexpr char16_t enter = 13;
    return (character >= u'0' && character <= u':') || character == enter || character == BackspaceKey ||
           character == field.Settings.DateSeparator;
}

// Text and value.

String setDateFormatEx(TDTDateFormat format, TDateTimeView view) {
    switch (view) {
    case dtvMonth:
        return format == dfLong ? u"MMMM yyyy" : u"MMM yyyy";
    case dtvYear:
        return u"yyyy";
    default:
        return {};
    }
}

String double_to_text(TDateTime value, const TDateField& field) {
    if (!HasDate(value) || YearOf(value) == 0)
        return {};
    String text = FormatDateTime(DisplayFormat(field), value, field.Settings);
    UseDateSeparator(text, field.Settings);
    return text;
}

namespace {

StringView WithoutEndingSeparators(StringView text, const TFormatSettings& settings) {
    while (!text.empty() && (text.back() == u' ' || text.back() == settings.DateSeparator))
        text.remove_suffix(1);
    return text;
}

enum class TNameMatch { Whole, Beginning };

/// Whether a text is the name of a month as the field shows it, or its beginning.
bool MatchesMonth(StringView text, String name, TNameMatch match, const TFormatSettings& settings) {
    UseDateSeparator(name, settings);
    const StringView whole = match == TNameMatch::Whole ? WithoutEndingSeparators(name, settings) : StringView(name);
    const bool fits = match == TNameMatch::Whole ? whole.size() == text.size() : whole.size() >= text.size();
    return fits && !text.empty() && AnsiSameText(whole.substr(0, text.size()), text);
}

/// The first month from `first` on, and around the year, whose long or short name fits; 0 for none.
int FindMonth(StringView text, int first, TNameMatch match, const TFormatSettings& settings) {
    for (int i = 0; i < 12; ++i) {
        const auto month = static_cast<std::size_t>((first - 1 + i) % 12);
        if (MatchesMonth(text, settings.LongMonthNames[month], match, settings) ||
            MatchesMonth(text, settings.ShortMonthNames[month], match, settings))
            return static_cast<int>(month) + 1;
    }
    return 0;
}

/// Takes a year of up to four digits from the end of a text; 0 for none.
int TakeYear(StringView& text, const TFormatSettings& settings) {
    std::size_t digits = 0;
    while (digits < text.size() && IsDigit(text[text.size() - 1 - digits]))
        ++digits;
    if (digits == 0 || digits > 4)
        return 0;
    const auto year = static_cast<int>(StrToInt(text.substr(text.size() - digits)));
    text.remove_suffix(digits);
    return digits > 2 ? year : YearOfTwoDigits(year, YearOf(Date()), settings.TwoDigitYearCenturyWindow);
}

/// The month of a text, by its number, its name, or as much of a name as to find one; 0 for none.
int MonthOfText(StringView text, const TFormatSettings& settings) {
    text = WithoutEndingSeparators(text, settings);
    if (!text.empty() && text.size() <= 2 && std::all_of(text.begin(), text.end(), IsDigit)) {
        const int month = StrToInt(text);
        return month <= 12 ? month : 0;
    }
    const int whole = FindMonth(text, 1, TNameMatch::Whole, settings);
    return whole != 0 ? whole : FindMonth(text, 1, TNameMatch::Beginning, settings);
}

bool TryReadDay(StringView text, const TDateField& field, TDateTime& value) {
    const TFormatSettings& settings = field.Settings;
    if (!field.HasTime())
        return TryStrToDate(text, value, settings);
    if (settings.TimeSeparator != u'-' && settings.TimeSeparator != u'.')
        return TryStrToDateTime(text, value, settings);
    // A time is shown with the date's separator then.
    TFormatSettings shown = settings;
    shown.TimeSeparator = settings.DateSeparator;
    return TryStrToDateTime(text, value, shown) || TryStrToDateTime(text, value, settings);
}

/// The value of a month or year whose last day is `last`.
TDateCheck HeldPeriod(TDateTime first, TDateTime last) {
    return HasDate(last) ? TDateCheck{true, std::max(first, firstDate)} : TDateCheck{};
}

TDateCheck ReadMonth(StringView text, const TFormatSettings& settings) {
    const int year = TakeYear(text, settings);
    const int month = MonthOfText(text, settings);
    TDateTime first = 0;
    if (!TryEncodeDate(year, month, 1, first))
        return {};
    return HeldPeriod(first, first + DaysInAMonth(year, month) - 1);
}

TDateCheck ReadYear(StringView text, const TFormatSettings& settings) {
    const int year = TakeYear(text, settings);
    TDateTime first = 0;
    TDateTime last = 0;
    if (!text.empty() || !TryEncodeDate(year, 1, 1, first) || !TryEncodeDate(year, 12, 31, last))
        return {};
    return HeldPeriod(first, last);
}

} // namespace

TDateCheck sprawdz_combosa(StringView text, const TDateField& field) {
    const String trimmed = Trim(text);
    if (trimmed.empty())
        return {true, 0};
    if (field.View == dtvMonth)
        return ReadMonth(trimmed, field.Settings);
    if (field.View == dtvYear)
        return ReadYear(trimmed, field.Settings);
    TDateTime value = 0;
    return TryReadDay(trimmed, field, value) && HasDate(value) ? TDateCheck{true, value} : TDateCheck{};
}

std::optional<String> PastedDate(StringView clipboardText, const TDateField& field) {
    const TDateCheck check = sprawdz_combosa(CompletedOnExit(clipboardText, field), field);
    if (!check.Valid || check.Value == 0)
        return std::nullopt;
    return double_to_text(check.Value, field);
}

String CompletedOnExit(StringView text, const TDateField& field) {
    String completed = Trim(text);
    const bool lacksSeparator = completed.find(u' ') != String::npos && completed.find(u':') == String::npos;
    if (field.View != dtvDay || !field.HasTime() || !lacksSeparator ||
        completed.size() < field.Settings.ShortDateFormat.size() + 2)
        return completed;
    const auto last = std::find_if(completed.rbegin(), completed.rend(), IsDigit);
    const auto first = std::find_if_not(last, completed.rend(), IsDigit);
    if (first - last >= 2)
        completed.insert(last.base() - 2, u':');
    return completed;
}

TMessageText InvalidDateMessage(TMessageLanguage language, TDateTime now, const TDateField& field) {
    TMessageText message =
        language == TMessageLanguage::Polish
            ? TMessageText{u"Wprowadzono nieprawidłowy format daty.\nPrzykładowy prawidłowy format [%1].", u"Błąd"}
            : TMessageText{u"Invalid date format has been entered.\nExample of valid format [%1].", u"Error"};
    message.Text = StringReplace(message.Text, u"%1", double_to_text(now, field));
    return message;
}

// The value.

TDateTime SnappedToView(TDateTime value, TDateTimeView view) {
    if (view == dtvDay || !HasDate(value) || YearOf(value) == 0)
        return value;
    return std::max(view == dtvMonth ? StartOfTheMonth(value) : StartOfTheYear(value), firstDate);
}

namespace {

bool IsBound(TDateTime value) {
    return std::trunc(value) != 0;
}

} // namespace

TDateTime TDateValue::Lowest() const {
    return IsBound(FMinDate) ? std::max(FMinDate, LowestDate) : LowestDate;
}

TDateTime TDateValue::Bounded(TDateTime value) const {
    if (IsBound(FMaxDate) && value > FMaxDate)
        value = FMaxDate;
    else if (IsBound(FMinDate) && value < FMinDate)
        value = FMinDate < LowestDate ? LowestDate : ComposeDateTime(FMinDate, value);
    // The last millisecond of the calendar is where text ends too.
    return std::clamp(value, LowestDate, lastDate + EncodeTime(23, 59, 59, 999));
}

void TDateValue::Take(TDateTime value) {
    FPreviousDate = FDateTime;
    FDateTime = value;
    FClearedByDelete = false;
}

bool TDateValue::SetDate(TDateTime value, TDateTimeView view) {
    if (value == FDateTime || std::isnan(value))
        return false;
    Take(SnappedToView(Bounded(value), view));
    return true;
}

bool TDateValue::SetTime(TDateTime value) {
    if (!std::isfinite(value))
        return false;
    const TDateTime old = FDateTime;
    FDateTime = ComposeDateTime(FDateTime, value);
    if (IsBound(FMaxDate) && FDateTime > FMaxDate)
        FDateTime = FMaxDate;
    else if (IsBound(FMinDate) && FDateTime < FMinDate)
        FDateTime = Lowest();
    return FDateTime != old;
}

bool TDateValue::SetBound(TDateTime TDateValue::*bound, TDateTime value, TDateTimeView view) {
    if (std::isnan(value))
        return false;
    this->*bound = value;
    const TDateTime bounded = Bounded(FDateTime);
    if (!HasDate() || bounded == FDateTime)
        return false;
    Take(SnappedToView(bounded, view));
    return true;
}

bool TDateValue::SetMinDate(TDateTime value, TDateTimeView view) {
    return SetBound(&TDateValue::FMinDate, value, view);
}

bool TDateValue::SetMaxDate(TDateTime value, TDateTimeView view) {
    return SetBound(&TDateValue::FMaxDate, value, view);
}

bool TDateValue::SetView(TDateTimeView view) {
    const TDateTime old = FDateTime;
    FDateTime = SnappedToView(FDateTime, view);
    return FDateTime != old;
}

bool TDateValue::Clear() {
    if (FDateTime == 0)
        return false;
    Take(0);
    return true;
}

bool TDateValue::ClearByDelete() {
    const bool hadDate = HasDate();
    const bool changed = Clear();
    FClearedByDelete = FClearedByDelete || hadDate;
    return changed;
}

bool TDateValue::RestoreCleared(TDateTimeView view) {
    if (!FClearedByDelete || !ZOR::HasDate(FPreviousDate))
        return false;
    FClearedByDelete = false;
    return StepTo(FPreviousDate, view);
}

bool TDateValue::Enter(TDateTime value, const TDateField& field) {
    if (value == 0)
        return Clear();
    return double_to_text(value, field) != double_to_text(FDateTime, field) && SetDate(value, field.View);
}

bool TDateValue::StepTo(TDateTime value, TDateTimeView view) {
    value = std::max({SnappedToView(Bounded(value), view), Lowest(), firstDate});
    if (IsBound(FMaxDate))
        value = std::min(value, FMaxDate);
    if (!ZOR::HasDate(value) || value == FDateTime)
        return false;
    Take(value);
    return true;
}

// Stepping.

std::optional<TDateUnit> MarkedPart(int caret, TDateTime value, const TDateField& field) {
    if (!HasDate(value) || YearOf(value) == 0)
        return std::nullopt;
    const String letters = FormatDateTimeParts(DisplayFormat(field), value, field.Settings).Letters;
    if (caret < 0 || caret > Length(letters))
        return std::nullopt;
    // From the caret to the left until a part is found.
    for (int at = std::min(caret, Length(letters) - 1); at >= 0; --at) {
        switch (letters[static_cast<std::size_t>(at)]) {
        case u'y':
            return TDateUnit::Year;
        case u'm':
            return TDateUnit::Month;
        case u'd':
            return TDateUnit::Day;
        case u'h':
            return TDateUnit::Hour;
        case u'n':
            return TDateUnit::Minute;
        case u's':
            return TDateUnit::Second;
        default:
            break;
        }
    }
    return std::nullopt;
}

bool whats_marked(TDateValue& value, int caret, int step, TDateTime now, const TDateField& field) {
    if (value.RestoreCleared(field.View))
        return true;
    if (!value.HasDate())
        return step < 0 && value.StepTo(field.HasTime() ? now : DateOf(now), field.View);
    const auto part = MarkedPart(caret, value.Current(), field);
    const auto stepped = part ? SteppedDate(value.Current(), *part, step) : std::nullopt;
    return stepped && value.StepTo(*stepped, field.View);
}

int CaretAfterStep(StringView text, int caret, const TDateField& field) {
    const std::size_t blank = text.find(u' ');
    if (field.View == dtvMonth && field.HasTime() && blank != StringView::npos && static_cast<int>(blank) > caret)
        return static_cast<int>(blank);
    return std::clamp(caret, 0, Length(text));
}

namespace {

/// The month that the entry means with the character added; the entry keeps what was understood of it.
std::optional<int> MonthOfEntry(String& typed, char16_t character, int current, const TFormatSettings& settings) {
    if (!typed.empty() && IsDigit(typed[0]) != IsDigit(character))
        typed.clear();
    typed += character;
    if (IsDigit(character)) {
        if (typed.size() > 2 || StrToInt(typed) > 12)
            typed = String(1, character);
        return StrToInt(typed);
    }
    if (const int month = FindMonth(typed, 1, TNameMatch::Beginning, settings); month != 0)
        return month;
    const bool isRepeated =
        std::all_of(typed.begin(), typed.end(), [&](char16_t unit) { return FoldCase(unit) == FoldCase(character); });
    typed = String(1, character);
    const int month = FindMonth(typed, isRepeated ? current % 12 + 1 : 1, TNameMatch::Beginning, settings);
    return month != 0 ? std::optional(month) : std::nullopt;
}

} // namespace

bool whats_marked_ex(TMonthEntry& entry, char16_t character, std::uint64_t milliseconds, TDateValue& value,
                     TDateTime now, const TDateField& field) {
    if (milliseconds - entry.LastKey > MonthEntryPause)
        entry.Typed.clear();
    entry.LastKey = milliseconds;
    TDateTime base = value.HasDate() ? value.Current() : now;
    if (value.ClearedByDelete() && HasDate(value.Previous()))
        base = value.Previous();
    const TCalendarDate date = DecodeDate(base);
    const auto month =
        character > u' ' ? MonthOfEntry(entry.Typed, character, date.Month, field.Settings) : std::nullopt;
    if (!month) {
        entry.Typed.clear();
        return false;
    }
    // A zero waits for the digit behind it.
    if (TDateTime first = 0; TryEncodeDate(date.Year, *month, 1, first))
        value.StepTo(first, field.View);
    return true;
}

} // namespace ZOR
