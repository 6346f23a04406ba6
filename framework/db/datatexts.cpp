#include "framework/db/datatexts.h"

#include "framework/system/numbers.h"
#include "framework/system/strings.h"

#include <charconv>
#include <cmath>
#include <limits>

namespace framework {

namespace {

/// 1899-12-30 in days since 0000-03-01.
constexpr int epochDays = 693'899;
constexpr int daysOfCentury = 36'524;
constexpr int daysOfFourCenturies = 146'097;

/// Days since 1899-12-30. Years begin in March here, so that the leap day is their last.
int DaysOf(int year, int month, int day) {
    const int shifted = month <= 2 ? year - 1 : year;
    const int monthFromMarch = (month + 9) % 12;
    return shifted * 365 + shifted / 4 - shifted / 100 + shifted / 400 + (monthFromMarch * 153 + 2) / 5 + day - 1 -
           epochDays;
}

/// Reads digits and the signs between them from left to right.
class TReader {
public:
    explicit TReader(std::string_view text) : FText(text) {}

    bool AtEnd() const { return FAt == FText.size(); }
    bool Skip(char sign) {
        if (AtEnd() || FText[FAt] != sign)
            return false;
        ++FAt;
        return true;
    }
    bool Digits(int count, int& value) {
        if (FText.size() - FAt < static_cast<std::size_t>(count))
            return false;
        value = 0;
        for (; count > 0; --count, ++FAt) {
            if (FText[FAt] < '0' || FText[FAt] > '9')
                return false;
            value = value * 10 + (FText[FAt] - '0');
        }
        return true;
    }
    /// Digits behind the point, as ticks; digits beyond seven must be zeros.
    bool Fraction(int& ticks) {
        ticks = 0;
        int weight = static_cast<int>(TMoment::ticksPerSecond) / 10;
        const std::size_t first = FAt;
        for (; !AtEnd() && FText[FAt] >= '0' && FText[FAt] <= '9'; ++FAt) {
            if (weight == 0 && FText[FAt] != '0')
                return false;
            ticks += (FText[FAt] - '0') * weight;
            weight /= 10;
        }
        return FAt > first;
    }

private:
    std::string_view FText;
    std::size_t FAt = 0;
};

bool ReadDate(TReader& reader, TMomentParts& parts) {
    return reader.Digits(4, parts.Year) && reader.Skip('-') && reader.Digits(2, parts.Month) && reader.Skip('-') &&
           reader.Digits(2, parts.Day);
}

bool ReadTime(TReader& reader, TMomentParts& parts) {
    if (!reader.Digits(2, parts.Hour) || !reader.Skip(':') || !reader.Digits(2, parts.Minute))
        return false;
    if (reader.Skip(':') && !reader.Digits(2, parts.Second))
        return false;
    return !reader.Skip('.') || reader.Fraction(parts.Ticks);
}

void AppendDigits(String& text, int value, int digits) {
    const std::size_t at = text.size();
    text.resize(at + static_cast<std::size_t>(digits));
    for (int i = digits - 1; i >= 0; --i, value /= 10)
        text[at + static_cast<std::size_t>(i)] = static_cast<char16_t>(u'0' + value % 10);
}

String TextOfParts(const TMomentParts& parts, DataTypeEnum type) {
    String text;
    if (type != adDBTime) {
        AppendDigits(text, parts.Year, 4);
        text += u'-';
        AppendDigits(text, parts.Month, 2);
        text += u'-';
        AppendDigits(text, parts.Day, 2);
    }
    if (type == adDBTimeStamp)
        text += u' ';
    if (type != adDBDate) {
        AppendDigits(text, parts.Hour, 2);
        text += u':';
        AppendDigits(text, parts.Minute, 2);
        text += u':';
        AppendDigits(text, parts.Second, 2);
    }
    return text;
}

} // namespace

bool TryParseWhole(std::string_view text, std::int64_t& value) {
    const bool negative = !text.empty() && text.front() == '-';
    // Up to 18 digits cannot overflow, and that is what nearly all numbers have.
    const std::size_t digits = text.size() - (negative ? 1 : 0);
    if (digits == 0)
        return false;
    if (digits > 18) {
        const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
        return result.ec == std::errc() && result.ptr == text.data() + text.size();
    }
    std::int64_t number = 0;
    for (const char digit : text.substr(negative ? 1 : 0)) {
        if (digit < '0' || digit > '9')
            return false;
        number = number * 10 + (digit - '0');
    }
    value = negative ? -number : number;
    return true;
}

bool TryParseDouble(std::string_view text, double& value) {
    const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
    return result.ec == std::errc() && result.ptr == text.data() + text.size();
}

bool TryParseMoment(std::string_view text, DataTypeEnum type, TMoment& value) {
    TReader reader(text);
    // Times alone lie on the day from which all are counted.
    TMomentParts parts = {1899, 12, 30};
    if (type != adDBTime && !ReadDate(reader, parts))
        return false;
    if (type == adDBTime && !ReadTime(reader, parts))
        return false;
    if (type == adDBTimeStamp && !reader.AtEnd()) {
        if (!(reader.Skip(' ') || reader.Skip('T')) || !ReadTime(reader, parts))
            return false;
    }
    return reader.AtEnd() && TryMakeMoment(parts, value);
}

bool TryMakeMoment(const TMomentParts& parts, TMoment& value) {
    if (parts.Year < 1 || parts.Year > 9999 || parts.Month < 1 || parts.Month > 12 || parts.Day < 1 ||
        (parts.Day > 28 && parts.Day > DaysInAMonth(parts.Year, parts.Month)))
        return false;
    if (parts.Hour < 0 || parts.Hour > 23 || parts.Minute < 0 || parts.Minute > 59 || parts.Second < 0 ||
        parts.Second > 59)
        return false;
    value.Ticks = DaysOf(parts.Year, parts.Month, parts.Day) * TMoment::ticksPerDay +
                  (parts.Hour * 3600 + parts.Minute * 60 + parts.Second) * TMoment::ticksPerSecond + parts.Ticks;
    return true;
}

TMomentParts PartsOf(TMoment value) {
    std::int64_t days = value.Ticks / TMoment::ticksPerDay;
    std::int64_t rest = value.Ticks % TMoment::ticksPerDay;
    if (rest < 0) {
        --days;
        rest += TMoment::ticksPerDay;
    }
    // The year that begins in March, from the days since one of these that a multiple of 400 years begins with.
    const auto day = static_cast<int>(days) + epochDays;
    const int era = day / daysOfFourCenturies;
    const int dayOfEra = day % daysOfFourCenturies;
    const int yearOfEra =
        (dayOfEra - dayOfEra / 1460 + dayOfEra / daysOfCentury - dayOfEra / (daysOfFourCenturies - 1)) / 365;
    const int dayOfYear = dayOfEra - (yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100);
    const int monthFromMarch = (dayOfYear * 5 + 2) / 153;

    TMomentParts parts;
    parts.Day = dayOfYear - (monthFromMarch * 153 + 2) / 5 + 1;
    parts.Month = monthFromMarch < 10 ? monthFromMarch + 3 : monthFromMarch - 9;
    parts.Year = era * 400 + yearOfEra + (parts.Month <= 2 ? 1 : 0);
    const auto seconds = static_cast<int>(rest / TMoment::ticksPerSecond);
    parts.Hour = seconds / 3600;
    parts.Minute = seconds / 60 % 60;
    parts.Second = seconds % 60;
    parts.Ticks = static_cast<int>(rest % TMoment::ticksPerSecond);
    return parts;
}

String MomentText(TMoment value, DataTypeEnum type) {
    const TMomentParts parts = PartsOf(value);
    String text = TextOfParts(parts, type);
    if (type != adDBDate && parts.Ticks != 0) {
        text += u'.';
        AppendDigits(text, parts.Ticks, 7);
        text.erase(text.find_last_not_of(u'0') + 1);
    }
    return text;
}

String MomentTextWithMilliSeconds(TMoment value, DataTypeEnum type) {
    const TMomentParts parts = PartsOf(value);
    String text = TextOfParts(parts, type);
    if (type != adDBDate) {
        text += u'.';
        AppendDigits(text, parts.Ticks / static_cast<int>(TMoment::ticksPerSecond / 1000), 3);
    }
    return text;
}

namespace {

struct TDeclaredType {
    const char16_t* Word; ///< somewhere in the declaration
    DataTypeEnum Type;
};

/// The first that fits counts.
constexpr TDeclaredType declaredTypes[] = {
    {u"TINYINT", adSmallInt}, // signed and unsigned alike
    {u"SMALLINT", adSmallInt},
    {u"INT2", adSmallInt},
    {u"BIGINT", adBigInt},
    {u"BIG INT", adBigInt},
    {u"INT8", adBigInt},
    {u"UNSIGNED", adBigInt},
    {u"INTERVAL", adVarWChar},
    {u"FLOA", adDouble},
    {u"POINT", adVarWChar},
    {u"INT", adInteger},
    {u"GUID", adGUID},
    {u"UNIQUEIDENTIFIER", adGUID},
    {u"UUID", adGUID},
    {u"BOOL", adBoolean},
    {u"BIT", adBoolean},
    {u"NUMERIC", adNumeric},
    {u"NUMBER", adNumeric},
    {u"DEC", adNumeric},
    {u"MONEY", adCurrency},
    {u"CURRENCY", adCurrency},
    {u"TIMESTAMP", adDBTimeStamp},
    {u"DATETIME", adDBTimeStamp},
    {u"DATE", adDBDate},
    {u"TIME", adDBTime},
    {u"REAL", adDouble},
    {u"DOUB", adDouble},
    {u"BINARY", adVarBinary},
    {u"BLOB", adLongVarBinary},
    {u"TEXT", adLongVarWChar},
    {u"CLOB", adLongVarWChar},
};

/// The numbers in parentheses behind a type; 0 where they are missing.
std::array<int, 2> DeclaredNumbers(StringView declaration) {
    std::array<int, 2> numbers{};
    const std::size_t open = declaration.find(u'(');
    if (open == StringView::npos)
        return numbers;
    const String inside(declaration.substr(open + 1, declaration.find(u')', open) - open - 1));
    const std::vector<String> pieces = SplitString(inside, u",");
    for (std::size_t i = 0; i < std::min(pieces.size(), numbers.size()); ++i)
        numbers[i] = std::max(0, StrToIntDef(Trim(pieces[i]), 0));
    return numbers;
}

} // namespace

void ApplyDeclaredType(StringView declaration, TColumnInfo& info) {
    if (declaration.empty())
        return;
    const String upper = UpperCase(declaration);
    const auto [first, second] = DeclaredNumbers(declaration);
    info.Type = adVarWChar;
    for (const TDeclaredType& declared : declaredTypes) {
        if (Pos(declared.Word, upper) > 0) {
            info.Type = declared.Type;
            break;
        }
    }
    const bool sized = IsTextType(info.Type) || IsBytesType(info.Type);
    info.Size = sized ? first : 0;
    info.Precision = info.Scale = 0;
    if (info.Type == adCurrency) {
        info.Precision = 19;
        info.Scale = Currency::decimals;
    } else if (info.Type == adNumeric) {
        // Without numbers there is no limit, but mostly few decimals.
        info.Precision = first;
        info.Scale = first > 0 ? second : Currency::decimals;
    }
}

namespace {

/// Whether it has the form in which SQLite writes floats: 0.5, 2.0, 1.5e-05, and 1e+30 as drivers shorten it. The same
/// number in another form, such as 1.10, is a text whose form says something.
bool IsWrittenFloat(std::string_view text) {
    constexpr std::size_t mostDigits = 17; // that a float has
    constexpr char digits[] = "0123456789";
    const auto skipDigits = [&] {
        const std::size_t count = std::min(text.find_first_not_of(digits), text.size());
        text.remove_prefix(count);
        return count;
    };
    if (text.starts_with('-'))
        text.remove_prefix(1);
    const bool leadingZero = text.starts_with('0');
    const std::size_t whole = skipDigits();
    if (whole == 0 || (leadingZero && whole > 1) || text.empty())
        return false;
    if (text.front() == '.') {
        text.remove_prefix(1);
        const std::string_view fraction = text;
        const std::size_t count = skipDigits();
        if (count == 0 || (count > 1 && fraction[count - 1] == '0'))
            return false;
        // Zeros in front of the first other digit do not count.
        const std::size_t zeros = leadingZero ? std::min(fraction.find_first_not_of('0'), count) : 0;
        if (whole + count - zeros > mostDigits + (leadingZero ? 1 : 0))
            return false;
    }
    if (text.empty())
        return true;
    if (!text.starts_with("e+") && !text.starts_with("e-"))
        return false;
    text.remove_prefix(2);
    return skipDigits() >= 2 && text.empty();
}

} // namespace

void TTextJudge::Add(StringView text) {
    FAny = true;
    if (text.size() > 40 || text.empty()) {
        FWhole = FFloat = FDate = FTimeStamp = false;
        return;
    }
    if (!FFloat && !FTimeStamp)
        return;
    std::string ascii;
    for (const char16_t unit : text)
        ascii += unit < 0x80 ? static_cast<char>(unit) : '?';
    std::int64_t whole = 0;
    double number = 0;
    TMoment moment;
    const bool isWhole = TryParseWhole(ascii, whole) && Int64ToStr(whole) == text;
    FWhole = FWhole && isWhole;
    FFloat = FFloat && (isWhole || (IsWrittenFloat(ascii) && TryParseDouble(ascii, number)));
    FDate = FDate && TryParseMoment(ascii, adDBDate, moment);
    FTimeStamp = FTimeStamp && ascii.size() >= 19 && TryParseMoment(ascii, adDBTimeStamp, moment);
}

DataTypeEnum TTextJudge::GetType() const {
    if (!FAny)
        return adVarWChar;
    if (FWhole)
        return adBigInt;
    if (FFloat)
        return adDouble;
    if (FDate)
        return adDBDate;
    return FTimeStamp ? adDBTimeStamp : adVarWChar;
}

} // namespace framework
