#include "framework/system/maskutils.h"

#include "framework/system/casemapping.h"
#include "framework/system/numbers.h"
#include "framework/system/strings.h"

#include <algorithm>

namespace framework {

namespace {

bool IsDigit(char16_t unit) {
    return unit >= u'0' && unit <= u'9';
}

/// Letters of all scripts: everything behind ASCII that is not in a block of signs.
bool IsLetter(char16_t unit) {
    if (unit < 0x80)
        return (unit >= u'A' && unit <= u'Z') || (unit >= u'a' && unit <= u'z');
    if (unit < 0xC0)
        return unit == 0xAA || unit == 0xB5 || unit == 0xBA;
    constexpr struct {
        char16_t First;
        char16_t Last;
    } signs[] = {
        {0xD7, 0xD7},     // multiplication
        {0xF7, 0xF7},     // division
        {0x02C2, 0x036F}, // marks on letters
        {0x0590, 0x05CF}, // Hebrew points
        {0x0600, 0x061F}, // Arabic signs and punctuation
        {0x0660, 0x066D}, // Arabic digits
        {0x06F0, 0x06F9}, // more of them
        {0x0964, 0x096F}, // Indian punctuation and digits
        {0x2000, 0x2BFF}, // punctuation, currency, arrows, mathematics, boxes
        {0x2E00, 0x2E7F}, // more punctuation
        {0x3000, 0x3004}, // ideographic punctuation
        {0x3008, 0x3030}, // brackets and marks
        {0xD800, 0xF8FF}, // halves of surrogate pairs, private use
        {0xFE10, 0xFE6F}, // marks and forms of punctuation
        {0xFEFF, 0xFF20}, // fullwidth signs and digits
        {0xFF3B, 0xFF40}, // more of them
        {0xFF5B, 0xFF65}, // more of them
        {0xFFE0, 0xFFFF}, // fullwidth currency, specials
    };
    return std::none_of(std::begin(signs), std::end(signs),
                        [unit](const auto& block) { return unit >= block.First && unit <= block.Last; });
}

/// Reads the places of a mask from left to right.
class TMaskParser {
public:
    TMaskParser(StringView mask, const TFormatSettings& settings) : FMask(mask), FSettings(settings) {}

    TParsedMask Parse() {
        while (FAt < FMask.size() && FMask[FAt] != u';')
            ParsePlace(FMask[FAt++]);
        if (const StringView field = NextField(u"second"); !field.empty())
            FResult.SaveLiterals = field.front() != u'0';
        if (const StringView field = NextField(u"third"); !field.empty())
            FResult.Blank = field.front();
        if (FAt < FMask.size())
            Fail(u"a mask has three fields", FAt);
        return std::move(FResult);
    }

private:
    [[noreturn]] void Fail(StringView fault, std::size_t at) const {
        throw EMaskError(u"Edit mask " + QuotedStr(FMask) + u": " + String(fault) + u" (position " + IntToStr(at + 1) +
                         u")");
    }

    void ParsePlace(char16_t unit) {
        switch (unit) {
        case u'\\':
            if (FAt == FMask.size())
                Fail(u"nothing follows the last \\", FAt - 1);
            return AddLiteral(FMask[FAt++]);
        case u'!':
            FResult.FromRight = true;
            return;
        case u'>':
            FCase = TMaskCase::Upper;
            return;
        case u'<':
            FCase = TMaskCase::Lower;
            if (FAt < FMask.size() && FMask[FAt] == u'>') {
                FCase = TMaskCase::Unchanged;
                ++FAt;
            }
            return;
        case u'/':
            return AddLiteral(FSettings.DateSeparator);
        case u':':
            return AddLiteral(FSettings.TimeSeparator);
        case u'_':
            return AddLiteral(u' ');
        case u'L':
        case u'l':
            return AddPlace(TMaskPlaceKind::Letter, unit == u'L');
        case u'A':
        case u'a':
            return AddPlace(TMaskPlaceKind::LetterOrDigit, unit == u'A');
        case u'C':
        case u'c':
            return AddPlace(TMaskPlaceKind::Any, unit == u'C');
        case u'0':
        case u'9':
            return AddPlace(TMaskPlaceKind::Digit, unit == u'0');
        case u'#':
            return AddPlace(TMaskPlaceKind::DigitOrSign, false);
        default:
            return AddLiteral(unit);
        }
    }

    void AddLiteral(char16_t unit) { FResult.Places.push_back({TMaskPlaceKind::Literal, FCase, false, unit}); }
    void AddPlace(TMaskPlaceKind kind, bool required) { FResult.Places.push_back({kind, FCase, required, 0}); }

    /// The field behind the semicolon that comes next, of one character or none. It may be a semicolon itself where
    /// that is the last character.
    StringView NextField(StringView which) {
        if (FAt == FMask.size())
            return {};
        ++FAt;
        const std::size_t start = FAt;
        const bool isLast = FAt + 1 == FMask.size();
        if (FAt < FMask.size() && (FMask[FAt] != u';' || isLast))
            ++FAt;
        if (FAt < FMask.size() && FMask[FAt] != u';')
            Fail(u"the " + String(which) + u" field is longer than one character", FAt);
        return FMask.substr(start, FAt - start);
    }

    StringView FMask;
    const TFormatSettings& FSettings;
    std::size_t FAt = 0;
    TMaskCase FCase = TMaskCase::Unchanged;
    TParsedMask FResult;
};

} // namespace

bool TMaskPlace::Accepts(char16_t unit) const {
    switch (Kind) {
    case TMaskPlaceKind::Literal:
        return unit == Literal;
    case TMaskPlaceKind::Letter:
        return IsLetter(unit);
    case TMaskPlaceKind::LetterOrDigit:
        return IsLetter(unit) || IsDigit(unit);
    case TMaskPlaceKind::Any:
        return unit >= u' ' && unit != 0x7F && (unit < 0xD800 || unit > 0xDFFF);
    case TMaskPlaceKind::Digit:
        return IsDigit(unit);
    case TMaskPlaceKind::DigitOrSign:
        return IsDigit(unit) || unit == u'+' || unit == u'-';
    }
    return false;
}

char16_t TMaskPlace::Cased(char16_t unit) const {
    if (Case == TMaskCase::Unchanged)
        return unit;
    return Case == TMaskCase::Upper ? ToUpperCase(unit) : ToLowerCase(unit);
}

int TParsedMask::EntryCount() const {
    return static_cast<int>(
        std::count_if(Places.begin(), Places.end(), [](const TMaskPlace& place) { return !place.IsLiteral(); }));
}

TParsedMask ParseMask(StringView mask, const TFormatSettings& settings) {
    return TMaskParser(mask, settings).Parse();
}

String MaskDoFormatText(const TParsedMask& mask, StringView text, char16_t blank) {
    const auto entries = static_cast<std::size_t>(mask.EntryCount());
    // What is longer than the mask loses its end; what is shorter leaves the first or the last places blank.
    const std::size_t firstFilled = mask.FromRight && text.size() < entries ? entries - text.size() : 0;
    String result;
    result.reserve(mask.Places.size());
    std::size_t entry = 0;
    for (const TMaskPlace& place : mask.Places) {
        if (place.IsLiteral()) {
            result += place.Literal;
            continue;
        }
        const bool filled = entry >= firstFilled && entry - firstFilled < text.size();
        result += filled ? place.Cased(text[entry - firstFilled]) : blank;
        ++entry;
    }
    return result;
}

String MaskDoFormatText(StringView mask, StringView text, char16_t blank, const TFormatSettings& settings) {
    return MaskDoFormatText(ParseMask(mask, settings), text, blank);
}

} // namespace framework
