#pragma once

// The words of a form's text, one at a time, and where they stand.

#include "framework/system/textform_nodes.h"
#include "framework/system/textform_source.h"

namespace framework {

struct TFormNumber {
    TFormValueKind Kind = TFormValueKind::Integer;
    std::int64_t Integer = 0;
    /// The digits of a Float, or of an Integer that is not spelled as the plain decimal number.
    std::string_view Spelling;
    char Suffix = 0;
};

class TFormScanner {
public:
    /// The source must outlive the scanner and hold well-formed UTF-8 without NUL.
    TFormScanner(const std::string& source, const String& fileName, TFormLayout& layout);

    /// The byte at hand, NUL at the end.
    char Current() const { return *FAt; }
    bool AtEnd() const { return FAt == FEnd; }
    TFormPlace Here() const { return {FLine, static_cast<std::uint32_t>(FAt - FLineStart - FContinuationBytes + 1)}; }
    void Advance() { ++FAt; }
    void SkipBlanks();
    /// The next byte that is not blank, without going there.
    char CurrentAfterBlanks() const;

    bool AtIdentifier() const;
    /// With `dotted`, a path of identifiers.
    std::string_view Identifier(bool dotted);
    bool AtNumber() const;
    TFormNumber Number();
    bool AtString() const { return *FAt == '\'' || *FAt == '#'; }
    /// Decodes the string at hand and all that are joined to it; stops behind the blanks that follow.
    void Text(TFormTextPool& pool);
    /// The hex digits up to and with the closing brace.
    void Binary(std::vector<std::uint8_t>& bytes);

    /// Raises "... is expected, not ..." at the present place.
    [[noreturn]] void Expected(const char* what) const;
    [[noreturn]] void FailAt(const char* at, std::string_view problem) const;
    const char* Position() const { return FAt; }

private:
    void Quoted(TFormTextPool& pool);
    void Beyond(TFormTextPool& pool);
    void Code(TFormTextPool& pool);
    void Float(TFormNumber& number, const char* start);
    std::int64_t Hexadecimal(const char* start);
    void NoteQuote(bool asCode);
    void NoteRawText(bool raw);

    const std::string& FSource;
    const String& FFileName;
    TFormLayout& FLayout;
    bool FKnowsQuotes = false;
    bool FKnowsRawText = false;
    const char* FAt;
    const char* FEnd;
    const char* FLineStart;
    std::ptrdiff_t FContinuationBytes = 0;
    std::uint32_t FLine = 1;
};

} // namespace framework
