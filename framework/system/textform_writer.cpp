// Writes forms in the layout that designers use, so that a form which only passed through shows no differences.

#include "framework/system/strings.h"
#include "framework/system/textform.h"
#include "framework/system/textform_source.h"

#include <algorithm>

namespace framework {

namespace {

constexpr std::size_t PieceLength = 64;
constexpr std::size_t BytesPerLine = 32;
constexpr std::size_t IndentationStep = 2;
// Without a bound the blanks of a deeply nested form would outgrow all the rest.
constexpr std::size_t WidestIndentation = 256;

const char* Keyword(TFormObjectKind kind) {
    switch (kind) {
    case TFormObjectKind::Inherited:
        return "inherited ";
    case TFormObjectKind::Inline:
        return "inline ";
    default:
        return "object ";
    }
}

class TTextFormWriter {
public:
    explicit TTextFormWriter(const TFormLayout& layout) : FLayout(layout) {}
    std::string Write(const TFormDocument& document);

private:
    enum class Open : std::uint8_t { Object, Item, Collection, List };
    // What is open, and which of its parts come next; a default-constructed iterator stands at the end.
    struct Frame {
        Open What;
        TFormRange<TFormProperty>::Iterator Property;
        TFormRange<TFormObject>::Iterator Object;
        TFormRange<TFormValue>::Iterator Element;
    };

    void Object(TFormObject object);
    void Item(TFormObject item);
    void Position(TFormObject object);
    void NextPart();
    void NextOfObject(Frame& frame);
    void Close(std::string_view end);
    void Value(TFormValue value);
    void Number(TFormValue value);
    void Set(TFormValue value);
    void Binary(std::span<const std::uint8_t> bytes);
    void Text(StringView text);
    void Piece(StringView piece);
    bool StandsForItself(StringView piece, std::size_t index) const;
    void Quoted(StringView run);
    void Ascii(StringView text);
    void Name(StringView name);
    void NewLine();

    const TFormLayout FLayout;
    std::vector<Frame> FFrames;
    std::size_t FLevel = 0;
    std::string FOut;
};

std::string TTextFormWriter::Write(const TFormDocument& document) {
    if (FLayout.ByteOrderMark && FLayout.CodePage == TFallbackEncoding::None)
        FOut = "\xEF\xBB\xBF";
    Object(document.Root());
    while (!FFrames.empty())
        NextPart();
    NewLine();
    return std::move(FOut);
}

void TTextFormWriter::NewLine() {
    FOut += FLayout.LineEnd == TFormLineEnd::CrLf ? "\r\n" : "\n";
    FOut.append(std::min(FLevel * IndentationStep, WidestIndentation), ' ');
}

// ---- Structure ----

void TTextFormWriter::Object(TFormObject object) {
    FOut += Keyword(object.Kind());
    if (!object.Name().empty()) {
        Name(object.Name());
        FOut += ": ";
    }
    Name(object.ClassName());
    Position(object);
    FFrames.push_back({Open::Object, object.Properties().begin(), object.Children().begin(), {}});
    ++FLevel;
}

void TTextFormWriter::Item(TFormObject item) {
    FOut += "item";
    Position(item);
    FFrames.push_back({Open::Item, item.Properties().begin(), {}, {}});
    ++FLevel;
}

void TTextFormWriter::Position(TFormObject object) {
    if (const auto position = object.Position())
        FOut += " [" + std::to_string(*position) + "]";
}

void TTextFormWriter::NextPart() {
    Frame& frame = FFrames.back();
    switch (frame.What) {
    case Open::Object:
    case Open::Item:
        NextOfObject(frame);
        break;
    case Open::Collection:
        if (frame.Object == decltype(frame.Object)())
            return Close(">");
        NewLine();
        Item(*frame.Object++);
        break;
    case Open::List:
        if (frame.Element == decltype(frame.Element)())
            return Close(")");
        NewLine();
        Value(*frame.Element++);
        break;
    }
}

void TTextFormWriter::NextOfObject(Frame& frame) {
    if (frame.Property != decltype(frame.Property)()) {
        const TFormProperty property = *frame.Property++;
        NewLine();
        Name(property.Name());
        FOut += " = ";
        Value(property.Value());
    } else if (frame.Object != decltype(frame.Object)()) {
        NewLine();
        Object(*frame.Object++);
    } else {
        --FLevel;
        NewLine();
        FOut += "end";
        FFrames.pop_back();
    }
}

void TTextFormWriter::Close(std::string_view end) {
    --FLevel;
    FOut += end;
    FFrames.pop_back();
}

// ---- Values ----

// Leaves lists and collections open; their parts follow from the main loop.
void TTextFormWriter::Value(TFormValue value) {
    switch (value.Kind()) {
    case TFormValueKind::Integer:
    case TFormValueKind::Float:
        Number(value);
        break;
    case TFormValueKind::String:
        Text(value.Text());
        break;
    case TFormValueKind::Identifier:
    case TFormValueKind::Nil:
    case TFormValueKind::Null:
        Name(value.Text());
        break;
    case TFormValueKind::Set:
        Set(value);
        break;
    case TFormValueKind::Binary:
        Binary(value.Bytes());
        break;
    case TFormValueKind::List:
        FOut += '(';
        FFrames.push_back({Open::List, {}, {}, value.Elements().begin()});
        ++FLevel;
        break;
    case TFormValueKind::Collection:
        FOut += '<';
        FFrames.push_back({Open::Collection, {}, value.Items().begin(), {}});
        ++FLevel;
        break;
    }
}

void TTextFormWriter::Number(TFormValue value) {
    if (value.Text().empty())
        FOut += std::to_string(value.AsInteger());
    Ascii(value.Text());
    if (value.Suffix() != 0)
        FOut += value.Suffix();
}

void TTextFormWriter::Set(TFormValue value) {
    std::string_view separator = "[";
    for (const TFormValue element : value.Elements()) {
        FOut += separator;
        Value(element);
        separator = ", ";
    }
    FOut += value.Elements().empty() ? "[]" : "]";
}

void TTextFormWriter::Binary(std::span<const std::uint8_t> bytes) {
    constexpr const char* digits = "0123456789ABCDEF";
    FOut += '{';
    ++FLevel;
    for (std::size_t start = 0; start < bytes.size(); start += BytesPerLine) {
        // Less than a line stays behind the brace.
        if (bytes.size() >= BytesPerLine)
            NewLine();
        for (const std::uint8_t byte : bytes.subspan(start, std::min(BytesPerLine, bytes.size() - start))) {
            FOut += digits[byte >> 4];
            FOut += digits[byte & 15];
        }
    }
    --FLevel;
    FOut += '}';
}

// ---- Text ----

void TTextFormWriter::Text(StringView text) {
    if (text.empty()) {
        FOut += "''";
        return;
    }
    ++FLevel;
    if (text.size() > PieceLength)
        NewLine();
    for (std::size_t start = 0; start < text.size();) {
        if (start != 0) {
            FOut += " +";
            NewLine();
        }
        std::size_t end = std::min(start + PieceLength, text.size());
        // Two codes may stand on two lines, a character as UTF-8 cannot.
        if (FLayout.RawText && SplitsSurrogates(text, end))
            --end;
        Piece(text.substr(start, end - start));
        start = end;
    }
    --FLevel;
}

void TTextFormWriter::Piece(StringView piece) {
    for (std::size_t at = 0; at < piece.size();) {
        std::size_t end = at;
        while (end < piece.size() && StandsForItself(piece, end))
            ++end;
        if (end > at) {
            FOut += '\'';
            Quoted(piece.substr(at, end - at));
            FOut += '\'';
        } else {
            FOut += '#' + std::to_string(static_cast<unsigned>(piece[at]));
            ++end;
        }
        at = end;
    }
}

bool TTextFormWriter::StandsForItself(StringView piece, std::size_t index) const {
    const char16_t unit = piece[index];
    if (unit < 0x80)
        return unit >= u' ' && (unit != u'\'' || !FLayout.QuotesAsCodes);
    if (!FLayout.RawText)
        return false;
    if (FLayout.CodePage != TFallbackEncoding::None)
        return ToCodePage(unit, FLayout.CodePage).has_value();
    const bool isSurrogate = IsHighSurrogate(unit) || IsLowSurrogate(unit);
    return !isSurrogate || SplitsSurrogates(piece, index) || SplitsSurrogates(piece, index + 1);
}

void TTextFormWriter::Quoted(StringView run) {
    for (;;) {
        const std::size_t quote = run.find(u'\'');
        const StringView part = run.substr(0, quote);
        if (FLayout.RawText)
            FOut += Utf8Encode(part);
        else
            Ascii(part);
        if (quote == run.npos)
            return;
        FOut += "''";
        run.remove_prefix(quote + 1);
    }
}

void TTextFormWriter::Ascii(StringView text) {
    const std::size_t before = FOut.size();
    FOut.resize(before + text.size());
    std::transform(text.begin(), text.end(), FOut.begin() + static_cast<std::ptrdiff_t>(before),
                   [](char16_t unit) { return static_cast<char>(unit); });
}

void TTextFormWriter::Name(StringView name) {
    if (std::all_of(name.begin(), name.end(), [](char16_t unit) { return unit < 0x80; }))
        Ascii(name);
    else
        FOut += Utf8Encode(name);
}

std::string InCodePage(const std::string& text, TFallbackEncoding codePage) {
    std::string bytes;
    for (const char16_t unit : Utf8Decode(text)) {
        const std::optional<char> byte = ToCodePage(unit, codePage);
        if (!byte)
            throw EConvertError(u"A name has characters that the code page of the form lacks");
        bytes += *byte;
    }
    return bytes;
}

bool IsTakenForUtf8(const std::string& bytes) {
    const bool isAscii =
        std::all_of(bytes.begin(), bytes.end(), [](char c) { return static_cast<signed char>(c) >= 0; });
    return !isAscii && Utf8SoundLength(bytes) == bytes.size();
}

} // namespace

std::string WriteTextForm(const TFormDocument& document, const TFormLayout& layout) {
    std::string text = TTextFormWriter(layout).Write(document);
    if (layout.CodePage == TFallbackEncoding::None)
        return text;
    text = InCodePage(text, layout.CodePage);
    if (!IsTakenForUtf8(text))
        return text;
    // By chance, as a form with hardly any such letters may be.
    TFormLayout inCodes = layout;
    inCodes.RawText = false;
    text = InCodePage(TTextFormWriter(inCodes).Write(document), layout.CodePage);
    if (IsTakenForUtf8(text))
        throw EConvertError(u"The bytes of the code page would be read as UTF-8");
    return text;
}

} // namespace framework
