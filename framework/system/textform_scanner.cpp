#include "framework/system/textform_scanner.h"

#include "framework/system/strings.h"

#include <algorithm>
#include <array>

namespace framework {

namespace {

enum : std::uint8_t { Blank = 1, Digit = 2, Letter = 4, Plain = 8 };

// Every character beyond ASCII counts as a letter. Plain ones stand for themselves between quotes.
constexpr std::array<std::uint8_t, 256> MakeClasses() {
    std::array<std::uint8_t, 256> classes{};
    for (unsigned byte = 0; byte < 256; ++byte) {
        std::uint8_t& kind = classes[byte];
        if (byte == ' ' || (byte >= '\t' && byte <= '\r'))
            kind |= Blank;
        if (byte >= '0' && byte <= '9')
            kind |= Digit;
        if ((byte >= 'A' && byte <= 'Z') || (byte >= 'a' && byte <= 'z') || byte == '_' || byte >= 0x80)
            kind |= Letter;
        if (byte >= ' ' && byte < 0x80 && byte != '\'')
            kind |= Plain;
    }
    return classes;
}

constexpr std::array<std::uint8_t, 256> Classes = MakeClasses();
constexpr std::uint8_t NoHexDigit = 16;

constexpr std::array<std::uint8_t, 256> MakeHexDigits() {
    std::array<std::uint8_t, 256> digits{};
    digits.fill(NoHexDigit);
    for (std::uint8_t i = 0; i < 10; ++i)
        digits[std::size_t{'0'} + i] = i;
    for (std::uint8_t i = 0; i < 6; ++i)
        digits[std::size_t{'a'} + i] = digits[std::size_t{'A'} + i] = static_cast<std::uint8_t>(10 + i);
    return digits;
}

constexpr std::array<std::uint8_t, 256> HexDigits = MakeHexDigits();

bool Is(char byte, unsigned kinds) {
    return (Classes[static_cast<unsigned char>(byte)] & kinds) != 0;
}
std::uint8_t HexDigit(char byte) {
    return HexDigits[static_cast<unsigned char>(byte)];
}
bool IsContinuation(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

// True when all eight bytes are plain: ASCII, no control character, no quote.
bool AllPlain(std::uint64_t word) {
    constexpr std::uint64_t ones = 0x0101010101010101u;
    constexpr std::uint64_t highs = ones * 0x80;
    const std::uint64_t belowBlank = (word - ones * 0x20) & ~word;
    const std::uint64_t withoutQuote = word ^ (ones * '\'');
    const std::uint64_t quotes = (withoutQuote - ones) & ~withoutQuote;
    return ((word | belowBlank | quotes) & highs) == 0;
}

void Widen(const char* from, const char* to, TFormTextPool& pool) {
    const std::size_t length = static_cast<std::size_t>(to - from);
    char16_t* room = pool.Extend(length);
    for (std::size_t i = 0; i < length; ++i)
        room[i] = static_cast<unsigned char>(from[i]);
}

void AppendCode(std::uint32_t code, TFormTextPool& pool) {
    if (code < 0x10000) {
        *pool.Extend(1) = static_cast<char16_t>(code);
        return;
    }
    char16_t* pair = pool.Extend(2);
    pair[0] = static_cast<char16_t>(0xD7C0 + (code >> 10));
    pair[1] = static_cast<char16_t>(0xDC00 | (code & 0x3FF));
}

// What a message shows of the text that was not expected.
std::string Excerpt(const char* at, const char* end) {
    if (at == end)
        return "the end of the text";
    if (Is(*at, Blank))
        return "a blank";
    const char* stop = at;
    for (int characters = 0; stop != end && !Is(*stop, Blank) && characters < 24; ++characters) {
        ++stop;
        while (stop != end && IsContinuation(*stop))
            ++stop;
    }
    return "\"" + std::string(at, stop) + "\"";
}

} // namespace

TFormScanner::TFormScanner(const std::string& source, const String& fileName, TFormLayout& layout)
    : FSource(source), FFileName(fileName), FLayout(layout), FAt(source.c_str()), FEnd(source.c_str() + source.size()),
      FLineStart(FAt) {
}

// ---- Blanks and identifiers ----

void TFormScanner::SkipBlanks() {
    for (;; ++FAt) {
        while (*FAt == ' ')
            ++FAt;
        if (!Is(*FAt, Blank))
            return;
        if (*FAt == '\n') {
            ++FLine;
            FLineStart = FAt + 1;
            FContinuationBytes = 0;
        }
    }
}

char TFormScanner::CurrentAfterBlanks() const {
    const char* at = FAt;
    while (Is(*at, Blank))
        ++at;
    return *at;
}

bool TFormScanner::AtIdentifier() const {
    return Is(*FAt, Letter);
}

std::string_view TFormScanner::Identifier(bool dotted) {
    const char* const start = FAt;
    unsigned char bits = 0;
    for (;;) {
        if (!Is(*FAt, Letter))
            Expected("a name");
        for (; Is(*FAt, Letter | Digit); ++FAt)
            bits |= static_cast<unsigned char>(*FAt);
        if (!dotted || *FAt != '.')
            break;
        ++FAt;
    }
    if (bits >= 0x80)
        FContinuationBytes += std::count_if(start, FAt, IsContinuation);
    return {start, static_cast<std::size_t>(FAt - start)};
}

// ---- Numbers ----

bool TFormScanner::AtNumber() const {
    return Is(*FAt, Digit) || *FAt == '-' || *FAt == '$';
}

TFormNumber TFormScanner::Number() {
    TFormNumber number;
    const char* const start = FAt;
    if (*FAt == '$') {
        number.Integer = Hexadecimal(start);
        number.Spelling = {start, static_cast<std::size_t>(FAt - start)};
        return number;
    }
    const bool negative = *FAt == '-';
    FAt += negative ? 1 : 0;
    const char* const digits = FAt;
    std::uint64_t magnitude = 0;
    bool fits = true;
    const std::uint64_t limit = (std::uint64_t{1} << 63) - (negative ? 0 : 1);
    for (; Is(*FAt, Digit); ++FAt) {
        const auto digit = static_cast<std::uint64_t>(*FAt - '0');
        fits = fits && magnitude <= (limit - digit) / 10;
        magnitude = magnitude * 10 + digit;
    }
    if (FAt == digits)
        Expected("a digit");
    if (*FAt == '.' || Is(*FAt, Letter)) {
        Float(number, start);
        return number;
    }
    if (!fits)
        FailAt(start, "the number does not fit into 64 bits");
    number.Integer = static_cast<std::int64_t>(negative ? 0 - magnitude : magnitude);
    const bool isPlain = *digits != '0' || (FAt - digits == 1 && !negative);
    if (!isPlain)
        number.Spelling = {start, static_cast<std::size_t>(FAt - start)};
    return number;
}

std::int64_t TFormScanner::Hexadecimal(const char* start) {
    ++FAt;
    const char* const digits = FAt;
    std::uint64_t value = 0;
    for (; HexDigit(*FAt) != NoHexDigit; ++FAt) {
        if ((value >> 60) != 0)
            FailAt(start, "the number does not fit into 64 bits");
        value = (value << 4) | HexDigit(*FAt);
    }
    if (FAt == digits || Is(*FAt, Letter))
        Expected("a hexadecimal digit");
    return static_cast<std::int64_t>(value);
}

// Behind the digits before the point.
void TFormScanner::Float(TFormNumber& number, const char* start) {
    number.Kind = TFormValueKind::Float;
    if (*FAt == '.') {
        ++FAt;
        while (Is(*FAt, Digit))
            ++FAt;
    }
    const bool hasExponent = *FAt == 'e' || *FAt == 'E';
    if (hasExponent) {
        ++FAt;
        FAt += *FAt == '-' || *FAt == '+' ? 1 : 0;
        if (!Is(*FAt, Digit))
            Expected("a digit of the exponent");
        while (Is(*FAt, Digit))
            ++FAt;
    }
    number.Spelling = {start, static_cast<std::size_t>(FAt - start)};
    if (*FAt != 0 && std::strchr("cCdDsS", *FAt) != nullptr)
        number.Suffix = *FAt++;
    if (Is(*FAt, Letter | Digit) || *FAt == '.')
        Expected("the end of the number");
    // Few digits without an exponent fit into every floating type, and converting is slow.
    constexpr std::size_t alwaysFits = 300;
    if (!hasExponent && number.Spelling.size() < alwaysFits)
        return;
    if (!FormFloatFits(AsciiToString(number.Spelling)))
        FailAt(start, "the number does not fit");
}

// ---- Strings ----

void TFormScanner::Text(TFormTextPool& pool) {
    for (;;) {
        while (AtString()) {
            if (*FAt == '#')
                Code(pool);
            else
                Quoted(pool);
        }
        SkipBlanks();
        if (*FAt != '+')
            return;
        ++FAt;
        SkipBlanks();
        if (!AtString())
            Expected("a string behind the +");
    }
}

void TFormScanner::Quoted(TFormTextPool& pool) {
    const char* const open = FAt++;
    for (;;) {
        const char* const run = FAt;
        std::uint64_t word = 0;
        for (; FEnd - FAt >= 8; FAt += 8) {
            std::memcpy(&word, FAt, 8);
            if (!AllPlain(word))
                break;
        }
        while (Is(*FAt, Plain))
            ++FAt;
        Widen(run, FAt, pool);

        if (*FAt == '\'') {
            ++FAt;
            if (*FAt != '\'')
                return;
            NoteQuote(false);
            *pool.Extend(1) = u'\'';
            ++FAt;
        } else if (static_cast<unsigned char>(*FAt) >= 0x80) {
            Beyond(pool);
        } else if (*FAt == '\n' || *FAt == '\r' || AtEnd()) {
            FailAt(open, "the string is not closed on its line");
        } else {
            *pool.Extend(1) = static_cast<unsigned char>(*FAt++);
        }
    }
}

// A run of characters beyond ASCII; the source is known to be well-formed.
void TFormScanner::Beyond(TFormTextPool& pool) {
    NoteRawText(true);
    for (; static_cast<unsigned char>(*FAt) >= 0x80;) {
        const auto lead = static_cast<unsigned char>(*FAt);
        const int followers = lead < 0xE0 ? 1 : lead < 0xF0 ? 2 : 3;
        std::uint32_t code = lead & (0x3Fu >> followers);
        for (int i = 1; i <= followers; ++i)
            code = (code << 6) | (static_cast<unsigned char>(FAt[i]) & 0x3F);
        AppendCode(code, pool);
        FAt += followers + 1;
        FContinuationBytes += followers;
    }
}

void TFormScanner::Code(TFormTextPool& pool) {
    const char* const start = FAt++;
    const std::uint32_t base = *FAt == '$' ? 16 : 10;
    FAt += base == 16 ? 1 : 0;
    const char* const digits = FAt;
    std::uint32_t code = 0;
    for (; HexDigit(*FAt) < base; ++FAt) {
        code = code * base + HexDigit(*FAt);
        if (code > 0x10FFFF)
            FailAt(start, "no character has so high a code");
    }
    if (FAt == digits)
        FailAt(start, "a # without the code of its character");
    if (code == '\'')
        NoteQuote(true);
    if (code >= 0x80)
        NoteRawText(false);
    AppendCode(code, pool);
}

void TFormScanner::NoteQuote(bool asCode) {
    if (!FKnowsQuotes)
        FLayout.QuotesAsCodes = asCode;
    FKnowsQuotes = true;
}

void TFormScanner::NoteRawText(bool raw) {
    if (!FKnowsRawText)
        FLayout.RawText = raw;
    FKnowsRawText = true;
}

// ---- Binary data ----

void TFormScanner::Binary(std::vector<std::uint8_t>& bytes) {
    const char* const open = FAt - 1;
    const void* const close = std::memchr(FAt, '}', static_cast<std::size_t>(FEnd - FAt));
    if (close == nullptr)
        FailAt(open, "the binary data is not closed");
    const std::size_t before = bytes.size();
    bytes.resize(before + static_cast<std::size_t>(static_cast<const char*>(close) - FAt) / 2);
    std::uint8_t* target = bytes.data() + before;
    for (;;) {
        std::uint8_t high = 0;
        std::uint8_t low = 0;
        while ((high = HexDigit(*FAt)) != NoHexDigit && (low = HexDigit(FAt[1])) != NoHexDigit) {
            *target++ = static_cast<std::uint8_t>((high << 4) | low);
            FAt += 2;
        }
        if (high != NoHexDigit)
            FailAt(FAt, "half a byte of binary data");
        SkipBlanks();
        if (*FAt == '}')
            break;
        if (HexDigit(*FAt) == NoHexDigit)
            Expected("a hexadecimal digit or }");
    }
    ++FAt;
    bytes.resize(static_cast<std::size_t>(target - bytes.data()));
}

// ---- Faults ----

void TFormScanner::Expected(const char* what) const {
    FailAt(FAt, std::string(what) + " is expected, not " + Excerpt(FAt, FEnd));
}

void TFormScanner::FailAt(const char* at, std::string_view problem) const {
    // Where the text stops making sense at a merge tool's marker, name it: the missing word is of no interest then.
    const char* line = at;
    while (line != FSource.c_str() && line[-1] != '\n')
        --line;
    for (const char* marker : {"<<<<<<<", "=======", ">>>>>>>", "|||||||"}) {
        if (std::strncmp(line, marker, 7) == 0) {
            at = line;
            problem = "the marker of an unresolved merge conflict";
        }
    }
    const TFormPlace place = PlaceOf(FSource, static_cast<std::size_t>(at - FSource.c_str()));
    throw EFormSyntax(FFileName, place.Line, place.Column, Utf8Decode(problem));
}

} // namespace framework
