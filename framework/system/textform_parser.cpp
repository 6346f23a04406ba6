// The grammar of text forms. The open objects, collections and lists lie on the assembler's stack, so a form's nesting
// costs no stack of the program.

#include "framework/system/files.h"
#include "framework/system/textform_scanner.h"

#include <limits>

namespace framework {

namespace {

bool IsWord(std::string_view text, std::string_view lowerCaseWord) {
    if (text.size() != lowerCaseWord.size())
        return false;
    for (std::size_t i = 0; i < text.size(); ++i)
        if ((text[i] | 0x20) != lowerCaseWord[i])
            return false;
    return true;
}

std::optional<TFormObjectKind> ObjectKeyword(std::string_view word) {
    if (IsWord(word, "object"))
        return TFormObjectKind::Object;
    if (IsWord(word, "inherited"))
        return TFormObjectKind::Inherited;
    if (IsWord(word, "inline"))
        return TFormObjectKind::Inline;
    return std::nullopt;
}

class TTextFormParser {
public:
    TTextFormParser(const std::string& source, const TParseOptions& options, const TFormLayout& layout)
        : FOptions(options), FScanner(source, FOptions.FileName, FAssembler.Nodes().Layout) {
        FAssembler.Nodes().FileName = options.FileName;
        FAssembler.Nodes().Layout = layout;
    }

    TFormDocument Parse();

private:
    void ObjectPart();
    void ItemPart();
    void CollectionPart();
    void ListPart();
    void Header(TFormObjectKind kind, TFormPlace place);
    void Property(std::string_view name, TFormPlace place);
    void Value();
    void Number();
    void Text();
    void Word();
    void Set();
    void Binary();
    std::optional<std::int32_t> Position();
    void Deepen();
    void At(TFormPlace place) { FAssembler.At(place.Line, place.Column); }

    const TParseOptions& FOptions;
    TFormAssembler FAssembler;
    TFormScanner FScanner;
};

TFormDocument TTextFormParser::Parse() {
    FScanner.SkipBlanks();
    const TFormPlace place = FScanner.Here();
    const char* const start = FScanner.Position();
    const auto kind = FScanner.AtIdentifier() ? ObjectKeyword(FScanner.Identifier(false)) : std::nullopt;
    if (!kind)
        FScanner.FailAt(start, "a form begins with object, inherited or inline");
    Header(*kind, place);
    while (FAssembler.Depth() != 0) {
        FScanner.SkipBlanks();
        switch (FAssembler.Innermost()) {
        case TFormAssembler::Open::Object:
            ObjectPart();
            break;
        case TFormAssembler::Open::Item:
            ItemPart();
            break;
        case TFormAssembler::Open::Collection:
            CollectionPart();
            break;
        default:
            ListPart();
            break;
        }
    }
    FScanner.SkipBlanks();
    if (!FScanner.AtEnd())
        FScanner.Expected("the end of the text");
    return FAssembler.Finish();
}

// ---- Objects and items ----

// Words are keywords by their position alone: before a `=`, each of them names a property.
void TTextFormParser::ObjectPart() {
    const TFormPlace place = FScanner.Here();
    const char* const start = FScanner.Position();
    if (!FScanner.AtIdentifier())
        FScanner.Expected("a property, an object or end");
    const std::string_view word = FScanner.Identifier(true);
    const bool isEnd = IsWord(word, "end");
    const auto kind = isEnd ? std::nullopt : ObjectKeyword(word);
    if ((isEnd || kind) && FScanner.CurrentAfterBlanks() != '=') {
        if (isEnd)
            FAssembler.Close();
        else
            Header(*kind, place);
        return;
    }
    if (FAssembler.HasMembers())
        FScanner.FailAt(start, "a property behind a child of its object");
    Property(word, place);
}

void TTextFormParser::ItemPart() {
    const TFormPlace place = FScanner.Here();
    if (!FScanner.AtIdentifier())
        FScanner.Expected("a property or end");
    const std::string_view word = FScanner.Identifier(true);
    if (IsWord(word, "end") && FScanner.CurrentAfterBlanks() != '=')
        FAssembler.Close();
    else
        Property(word, place);
}

void TTextFormParser::Header(TFormObjectKind kind, TFormPlace place) {
    Deepen();
    FScanner.SkipBlanks();
    std::string_view name;
    std::string_view className = FScanner.Identifier(true);
    FScanner.SkipBlanks();
    if (FScanner.Current() == ':') {
        if (className.find('.') != className.npos)
            FScanner.FailAt(className.data(), "the name of a component has no dots");
        FScanner.Advance();
        FScanner.SkipBlanks();
        name = className;
        className = FScanner.Identifier(true);
        FScanner.SkipBlanks();
    }
    const auto position = Position();
    At(place);
    const std::uint32_t nameNumber = FAssembler.Name(name);
    FAssembler.OpenObject(kind, nameNumber, FAssembler.Name(className), position);
}

void TTextFormParser::Property(std::string_view name, TFormPlace place) {
    At(place);
    FAssembler.OpenProperty(FAssembler.Name(name));
    FScanner.SkipBlanks();
    if (FScanner.Current() != '=')
        FScanner.Expected("=");
    FScanner.Advance();
    FScanner.SkipBlanks();
    Value();
}

// `[n]`, or nothing.
std::optional<std::int32_t> TTextFormParser::Position() {
    if (FScanner.Current() != '[')
        return std::nullopt;
    FScanner.Advance();
    FScanner.SkipBlanks();
    if (!FScanner.AtNumber())
        FScanner.Expected("a position");
    const char* const start = FScanner.Position();
    const TFormNumber number = FScanner.Number();
    using Limits = std::numeric_limits<std::int32_t>;
    if (number.Kind != TFormValueKind::Integer || number.Integer < Limits::min() || number.Integer > Limits::max())
        FScanner.FailAt(start, "a position is an integer of 32 bits");
    FScanner.SkipBlanks();
    if (FScanner.Current() != ']')
        FScanner.Expected("]");
    FScanner.Advance();
    return static_cast<std::int32_t>(number.Integer);
}

void TTextFormParser::Deepen() {
    if (FAssembler.Depth() >= FOptions.NestingLimit)
        FScanner.FailAt(FScanner.Position(),
                        "the form is nested deeper than " + std::to_string(FOptions.NestingLimit) + " levels");
}

// ---- Values ----

// Leaves lists and collections open; their parts follow from the main loop.
void TTextFormParser::Value() {
    At(FScanner.Here());
    if (FScanner.AtString())
        return Text();
    if (FScanner.AtIdentifier())
        return Word();
    if (FScanner.AtNumber())
        return Number();
    switch (FScanner.Current()) {
    case '[':
        return Set();
    case '{':
        return Binary();
    case '(':
    case '<':
        Deepen();
        FAssembler.OpenValue(FScanner.Current() == '(' ? TFormValueKind::List : TFormValueKind::Collection);
        return FScanner.Advance();
    default:
        FScanner.Expected("a value");
    }
}

void TTextFormParser::Number() {
    const TFormNumber number = FScanner.Number();
    TFormValueNode& node = FAssembler.AddValue(number.Kind);
    node.Integer = number.Integer;
    node.Suffix = number.Suffix;
    TFormTextPool& pool = FAssembler.Nodes().Text;
    node.Start = pool.Size();
    node.Length = static_cast<std::uint32_t>(number.Spelling.size());
    char16_t* room = pool.Extend(number.Spelling.size());
    for (const char digit : number.Spelling)
        *room++ = static_cast<unsigned char>(digit);
}

void TTextFormParser::Text() {
    TFormValueNode& node = FAssembler.AddValue(TFormValueKind::String);
    TFormTextPool& pool = FAssembler.Nodes().Text;
    node.Start = pool.Size();
    FScanner.Text(pool);
    node.Length = pool.Size() - node.Start;
}

void TTextFormParser::Word() {
    const std::string_view word = FScanner.Identifier(true);
    const TFormValueKind kind = IsWord(word, "nil")    ? TFormValueKind::Nil
                                : IsWord(word, "null") ? TFormValueKind::Null
                                                       : TFormValueKind::Identifier;
    FAssembler.AddIdentifier(kind, FAssembler.Name(word));
}

void TTextFormParser::Set() {
    FAssembler.OpenValue(TFormValueKind::Set);
    FScanner.Advance();
    FScanner.SkipBlanks();
    while (FScanner.Current() != ']') {
        At(FScanner.Here());
        const char* const start = FScanner.Position();
        if (FScanner.AtNumber())
            Number();
        else
            FAssembler.AddIdentifier(TFormValueKind::Identifier, FAssembler.Name(FScanner.Identifier(true)));
        if (FAssembler.Nodes().Values.back().Kind == TFormValueKind::Float)
            FScanner.FailAt(start, "a set holds names and integers");
        FScanner.SkipBlanks();
        if (FScanner.Current() == ',') {
            FScanner.Advance();
            FScanner.SkipBlanks();
            if (FScanner.Current() == ']')
                FScanner.Expected("an element behind the comma");
        } else if (FScanner.Current() != ']') {
            FScanner.Expected("a comma or ]");
        }
    }
    FScanner.Advance();
    FAssembler.Close();
}

void TTextFormParser::ListPart() {
    if (FScanner.Current() == ')') {
        FScanner.Advance();
        FAssembler.Close();
    } else if (FScanner.AtEnd()) {
        FScanner.Expected("a value or )");
    } else {
        Value();
    }
}

void TTextFormParser::CollectionPart() {
    const TFormPlace place = FScanner.Here();
    const char* const start = FScanner.Position();
    if (FScanner.Current() == '>') {
        FScanner.Advance();
        FAssembler.Close();
        return;
    }
    if (!FScanner.AtIdentifier())
        FScanner.Expected("item or >");
    if (!IsWord(FScanner.Identifier(false), "item"))
        FScanner.FailAt(start, "a collection holds items");
    Deepen();
    FScanner.SkipBlanks();
    const auto position = Position();
    At(place);
    FAssembler.OpenItem(position);
}

void TTextFormParser::Binary() {
    FScanner.Advance();
    TFormValueNode& node = FAssembler.AddValue(TFormValueKind::Binary);
    std::vector<std::uint8_t>& bytes = FAssembler.Nodes().Bytes;
    node.Start = static_cast<std::uint32_t>(bytes.size());
    FScanner.Binary(bytes);
    node.Length = static_cast<std::uint32_t>(bytes.size()) - node.Start;
}

} // namespace

TFormDocument ParseTextForm(std::string_view bytes, const TParseOptions& options) {
    TFormLayout layout;
    const std::string source = ReadFormSource(bytes, options, layout);
    return TTextFormParser(source, options, layout).Parse();
}

TFormDocument ParseTextFormFile(const String& fileName, TParseOptions options) {
    options.FileName = fileName;
    return ParseTextForm(ReadFileBytes(fileName), options);
}

} // namespace framework
