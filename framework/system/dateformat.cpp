// Dates and times as text: FormatDateTime and what rests on it.

#include "framework/system/dates.h"
#include "framework/system/exceptions.h"
#include "framework/system/names.h"
#include "framework/system/numbers.h"

#include <algorithm>

namespace framework {

namespace {

bool IsQuote(char16_t unit) {
    return unit == u'\'' || unit == u'"';
}

/// Which marker for the half of the day stands somewhere in a format.
enum class THalfDayMarker { None, Word, Letter, Names };

constexpr StringView halfDayMarkers[] = {u"", u"am/pm", u"a/p", u"ampm"};

THalfDayMarker HalfDayMarkerAt(StringView format) {
    const auto stands = [format](StringView marker) { return TNameEqual()(format.substr(0, marker.size()), marker); };
    for (const THalfDayMarker marker : {THalfDayMarker::Word, THalfDayMarker::Letter, THalfDayMarker::Names}) {
        if (stands(halfDayMarkers[static_cast<int>(marker)]))
            return marker;
    }
    return THalfDayMarker::None;
}

/// The length of the text in quotes at the front, quotes included; it may lack the last one.
std::size_t QuotedLength(StringView format) {
    const std::size_t end = format.find(format.front(), 1);
    return end == StringView::npos ? format.size() : end + 1;
}

/// Whether the hour before this rest of a format is one of half a day.
bool HasHalfDayMarker(StringView format) {
    while (!format.empty() && FoldNameChar(format.front()) != u'h') {
        if (HalfDayMarkerAt(format) != THalfDayMarker::None)
            return true;
        format.remove_prefix(IsQuote(format.front()) ? QuotedLength(format) : 1);
    }
    return false;
}

class TDateWriter {
public:
    TDateWriter(TDateTime value, const TFormatSettings& settings)
        : FSettings(settings), FDate(DecodeDate(value)), FTime(DecodeTime(value)),
          FDayName(static_cast<std::size_t>(DayOfWeek(value)) - 1) {}

    void Write(StringView format) {
        // A format that contains itself ends here.
        constexpr int deepest = 3;
        if (FDepth == deepest)
            return;
        ++FDepth;
        char16_t lastLetter = 0;
        while (!format.empty()) {
            const char16_t letter = WriteFront(format, lastLetter);
            // What a format within this one has written is marked already.
            FLetters.resize(FText.size(), letter);
        }
        --FDepth;
    }

    TDateTexts Take() { return {std::move(FText), std::move(FLetters)}; }

private:
    /// Writes what stands at the front of the format and removes it there. Returns the letter of that part, or a blank.
    char16_t WriteFront(StringView& format, char16_t& lastLetter) {
        const char16_t unit = format.front();
        if (IsQuote(unit)) {
            const std::size_t length = QuotedLength(format);
            const bool isClosed = length > 1 && format[length - 1] == unit;
            FText += format.substr(1, length - (isClosed ? 2 : 1));
            format.remove_prefix(length);
            return u' ';
        }
        char16_t letter = FoldNameChar(unit);
        if (const THalfDayMarker marker = HalfDayMarkerAt(format); marker != THalfDayMarker::None) {
            const std::size_t length = halfDayMarkers[static_cast<int>(marker)].size();
            WriteHalfDay(marker, format.substr(0, length));
            format.remove_prefix(length);
            return lastLetter = u'a';
        }
        const auto end = std::find_if(format.begin(), format.end(),
                                      [letter](char16_t other) { return FoldNameChar(other) != letter; });
        const auto run = static_cast<std::size_t>(end - format.begin());
        if (letter == u'm' && lastLetter == u'h')
            letter = u'n';
        const StringView rest = format.substr(run);
        const bool isPart = WriteLetter(letter, run, rest);
        if (!isPart)
            WriteLiteral(format.substr(0, run));
        if (letter >= u'a' && letter <= u'z')
            lastLetter = letter;
        format = rest;
        return isPart ? letter : u' ';
    }

    bool WriteLetter(char16_t letter, std::size_t run, StringView rest) {
        switch (letter) {
        case u'c':
            WriteGeneral();
            return true;
        case u'd':
            WriteDay(run);
            return true;
        case u'm':
            if (run < 3)
                WriteNumber(FDate.Month, run);
            else
                FText += (run == 3 ? FSettings.ShortMonthNames : FSettings.LongMonthNames)[MonthIndex()];
            return true;
        case u'y':
            WriteNumber(run < 3 ? FDate.Year % 100 : FDate.Year, run < 3 ? 2 : 4);
            return true;
        case u'h':
            WriteNumber(HasHalfDayMarker(rest) ? (FTime.Hour + 11) % 12 + 1 : FTime.Hour,
                        std::min<std::size_t>(run, 2));
            return true;
        case u'n':
            WriteNumber(FTime.Minute, std::min<std::size_t>(run, 2));
            return true;
        case u's':
            WriteNumber(FTime.Second, std::min<std::size_t>(run, 2));
            return true;
        case u'z':
            WriteNumber(FTime.MilliSecond, run == 1 ? 1 : 3);
            return true;
        case u't':
            Write(run == 1 ? FSettings.ShortTimeFormat : FSettings.LongTimeFormat);
            return true;
        default:
            return false;
        }
    }

    void WriteLiteral(StringView text) {
        for (const char16_t unit : text) {
            const char16_t separator = unit == u'/'   ? FSettings.DateSeparator
                                       : unit == u':' ? FSettings.TimeSeparator
                                                      : unit;
            if (separator != u'\0')
                FText += separator;
        }
    }

    void WriteGeneral() {
        Write(FSettings.ShortDateFormat);
        if (FTime != TClockTime{}) {
            FText += u' ';
            FLetters += u' ';
            Write(FSettings.LongTimeFormat);
        }
    }

    void WriteDay(std::size_t run) {
        if (run < 3)
            WriteNumber(FDate.Day, run);
        else if (run < 5)
            FText += (run == 3 ? FSettings.ShortDayNames : FSettings.LongDayNames)[FDayName];
        else
            Write(run == 5 ? FSettings.ShortDateFormat : FSettings.LongDateFormat);
    }

    void WriteHalfDay(THalfDayMarker marker, StringView written) {
        const bool isMorning = FTime.Hour < 12;
        if (marker == THalfDayMarker::Names)
            FText += isMorning ? FSettings.TimeAMString : FSettings.TimePMString;
        else if (marker == THalfDayMarker::Word)
            FText += written.substr(isMorning ? 0 : 3, 2);
        else
            FText += written[isMorning ? 0 : 2];
    }

    void WriteNumber(int number, std::size_t digits) {
        const String text = IntToStr(number);
        if (text.size() < digits)
            FText.append(digits - text.size(), u'0');
        FText += text;
    }

    std::size_t MonthIndex() const { return static_cast<std::size_t>(FDate.Month) - 1; }

    const TFormatSettings& FSettings;
    TCalendarDate FDate;
    TClockTime FTime;
    std::size_t FDayName;
    String FText;
    String FLetters;
    int FDepth = 0;
};

/// Takes the quoted text at the front of a system format, where two apostrophes stand for one.
String TakeSystemLiteral(StringView& format) {
    String text;
    for (format.remove_prefix(1); !format.empty(); format.remove_prefix(1)) {
        if (format.front() == u'\'') {
            format.remove_prefix(1);
            if (format.empty() || format.front() != u'\'')
                break;
        }
        text += format.front();
    }
    return text;
}

String Quoted(const String& text) {
    const char16_t quote = text.find(u'\'') == String::npos ? u'\'' : u'"';
    return quote + text + quote;
}

} // namespace

TDateTexts FormatDateTimeParts(StringView format, TDateTime value, const TFormatSettings& settings) {
    if (DecodeDate(value).Year == 0)
        throw EConvertError(u"The day number " + FloatToStr(value, settings) + u" lies outside the years 1 to 9999");
    TDateWriter writer(value, settings);
    writer.Write(format.empty() ? StringView(u"c") : format);
    return writer.Take();
}

String FormatDateTime(StringView format, TDateTime value, const TFormatSettings& settings) {
    return FormatDateTimeParts(format, value, settings).Text;
}

String DateToStr(TDateTime value, const TFormatSettings& settings) {
    return FormatDateTime(settings.ShortDateFormat, value, settings);
}

String TimeToStr(TDateTime value, const TFormatSettings& settings) {
    return FormatDateTime(settings.LongTimeFormat, value, settings);
}

String DateTimeToStr(TDateTime value, const TFormatSettings& settings) {
    return FormatDateTime(u"c", value, settings);
}

String FromSystemFormat(StringView systemFormat, char16_t timeSeparator) {
    String result;
    while (!systemFormat.empty()) {
        const char16_t unit = systemFormat.front();
        if (unit == u'\'') {
            if (const String text = TakeSystemLiteral(systemFormat); !text.empty())
                result += Quoted(text);
            continue;
        }
        const std::size_t run = std::min(systemFormat.find_first_not_of(unit), systemFormat.size());
        systemFormat.remove_prefix(run);
        const char16_t folded = FoldNameChar(unit);
        if (unit == u'H')
            result.append(run, u'h');
        else if (unit == u't')
            result += u"AMPM";
        else if (unit == timeSeparator && unit != u'\0')
            result.append(run, u':');
        else if (folded >= u'a' && folded <= u'z' && StringView(u"dMyghms").find(unit) == StringView::npos)
            result += Quoted(String(run, unit));
        else if (unit != u'g')
            result.append(run, unit);
    }
    // An era that was left out leaves its blank behind.
    const std::size_t first = result.find_first_not_of(u' ');
    return first == String::npos ? String() : result.substr(first, result.find_last_not_of(u' ') - first + 1);
}

} // namespace framework
