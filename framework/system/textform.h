#pragma once

// Text forms: the files in which form designers keep objects, their properties and their children.
//
//     object CustomerForm: TCustomerForm
//       Left = 200
//       Caption = 'Customers'
//       object NameEdit: TEdit
//         Anchors = [akLeft, akTop]
//       end
//     end
//
// ParseTextForm reads such a text into a TFormDocument, WriteTextForm gives the text back, and TFormBuilder makes a
// document by hand. The document knows nothing of classes or components: creating those from it is the loader's work.

#include "framework/system/exceptions.h"
#include "framework/system/types.h"

#include <cstddef>
#include <iterator>
#include <memory>
#include <optional>
#include <span>
#include <vector>

namespace framework {

/// A place in a form's text, both 1-based, the column counted in characters (code points), a tab being one; 0 when
/// there is no text.
struct TFormPlace {
    std::uint32_t Line = 0;
    std::uint32_t Column = 0;
};

/// A form that cannot be read. The message reads "file(line,column): problem"; without a file name it starts at the
/// bracket, and without a position (a document built by hand) it is the problem alone.
class EFormError : public Exception {
public:
    EFormError(StringView fileName, std::uint32_t line, std::uint32_t column, StringView problem);
    const String& FileName() const { return FFileName; }
    /// As in TFormPlace.
    std::uint32_t Line() const { return FLine; }
    std::uint32_t Column() const { return FColumn; }
    /// The message without the place.
    const String& Problem() const { return FProblem; }

private:
    String FFileName;
    String FProblem;
    std::uint32_t FLine;
    std::uint32_t FColumn;
};

/// A text that is no form.
class EFormSyntax : public EFormError {
public:
    using EFormError::EFormError;
};

/// What introduces an object: `object`, `inherited`, `inline`, or `item` inside a collection.
enum class TFormObjectKind : std::uint8_t { Object, Inherited, Inline, Item };

/// What stands behind the `=` of a property. True and False are identifiers; `nil` and `Null` have kinds of their own.
enum class TFormValueKind : std::uint8_t {
    Integer,
    Float,
    String,
    Identifier,
    Nil,
    Null,
    Set,
    List,
    Collection,
    Binary
};

enum class TFormLineEnd : std::uint8_t { CrLf, Lf };

/// How bytes that are not UTF-8 are read.
enum class TFallbackEncoding : std::uint8_t {
    /// They are an error.
    None,
    /// The whole file is in code page 1250 (Central European), unless it is UTF-8.
    Windows1250,
    /// The whole file is in code page 1252 (Western), unless it is UTF-8.
    Windows1252
};

/// How a form's text is laid out where the syntax leaves a choice. The default is what designers write.
struct TFormLayout {
    TFormLineEnd LineEnd = TFormLineEnd::CrLf;
    /// The text begins with the UTF-8 byte order mark.
    bool ByteOrderMark = false;
    /// Characters beyond ASCII stand in strings as they are; otherwise as # codes. In names they always do.
    bool RawText = false;
    /// A quote inside a string stands as #39; otherwise doubled.
    bool QuotesAsCodes = false;
    /// The code page that the bytes are in; None for UTF-8. No byte order mark goes with one. Characters of strings
    /// which the page lacks stand as # codes.
    TFallbackEncoding CodePage = TFallbackEncoding::None;
    friend bool operator==(const TFormLayout&, const TFormLayout&) = default;
};

class TFormAssembler;
struct TFormNodes;
struct TFormObjectNode;
struct TFormPropertyNode;
struct TFormValueNode;

/// A walk along siblings of one parent, for range-based `for`.
template <class Item>
class TFormRange {
public:
    class Iterator {
    public:
        using iterator_category = std::input_iterator_tag;
        using value_type = Item;
        using difference_type = std::ptrdiff_t;
        using pointer = void;
        using reference = Item;

        Iterator() = default;
        Iterator(const TFormNodes* nodes, std::uint32_t index) : FNodes(nodes), FIndex(index) {}
        Item operator*() const { return Item(FNodes, FIndex); }
        Iterator& operator++() {
            FIndex = Item(FNodes, FIndex).NextIndex();
            return *this;
        }
        Iterator operator++(int) {
            Iterator before = *this;
            ++*this;
            return before;
        }
        friend bool operator==(const Iterator& left, const Iterator& right) { return left.FIndex == right.FIndex; }

    private:
        const TFormNodes* FNodes = nullptr;
        std::uint32_t FIndex = 0;
    };

    TFormRange(const TFormNodes* nodes, std::uint32_t first) : FNodes(nodes), FFirst(first) {}
    Iterator begin() const { return Iterator(FNodes, FFirst); }
    Iterator end() const { return Iterator(FNodes, 0); }
    bool empty() const { return FFirst == 0; }

private:
    const TFormNodes* FNodes;
    std::uint32_t FFirst;
};

class TFormObject;

// TFormObject, TFormProperty and TFormValue are references into a document, cheap to copy. They, and every view of text
// or bytes they give, are good for as long as the document or a copy of it lives.

/// The value of a property, or an element of a set or list.
class TFormValue {
public:
    TFormValue(const TFormNodes* nodes, std::uint32_t index) : FNodes(nodes), FIndex(index) {}

    TFormValueKind Kind() const;
    std::uint32_t Line() const;
    std::uint32_t Column() const;

    /// The number of an Integer; any other kind raises EConvertError.
    std::int64_t AsInteger() const;
    /// The number of a Float (its suffix leaves the number as it is) or of an Integer; any other kind raises
    /// EConvertError.
    Extended AsExtended() const;
    /// A String's text decoded, an identifier as it was spelled, a Float's digits without the suffix; an Integer's
    /// digits only when they differ from the plain decimal number ($FF, 007). Empty for the other kinds.
    StringView Text() const;
    /// `c` (currency), `d` (date and time) or `s` (single) behind a Float, in the letter case of the text; 0 for none.
    char Suffix() const;
    /// The bytes of a Binary; empty for the other kinds.
    std::span<const std::uint8_t> Bytes() const;
    /// The values of a List, the identifiers and integers of a Set; empty for the other kinds.
    TFormRange<TFormValue> Elements() const;
    /// The items of a Collection, whose kind is Item; empty for the other kinds.
    TFormRange<TFormObject> Items() const;
    /// True for an Identifier of this name, letter case of ASCII ignored.
    bool IsIdentifier(StringView name) const;

    std::uint32_t NextIndex() const;

private:
    const TFormValueNode& Node() const;

    const TFormNodes* FNodes;
    std::uint32_t FIndex;
};

/// One `Name = value` of an object or item. The name may be a path such as `Font.Name`.
class TFormProperty {
public:
    TFormProperty(const TFormNodes* nodes, std::uint32_t index) : FNodes(nodes), FIndex(index) {}

    StringView Name() const;
    TFormValue Value() const;
    std::uint32_t Line() const;
    std::uint32_t Column() const;

    std::uint32_t NextIndex() const;

private:
    const TFormPropertyNode& Node() const;

    const TFormNodes* FNodes;
    std::uint32_t FIndex;
};

/// An object with its properties and children, or an item of a collection (which has neither name, class nor children).
class TFormObject {
public:
    TFormObject(const TFormNodes* nodes, std::uint32_t index) : FNodes(nodes), FIndex(index) {}

    TFormObjectKind Kind() const;
    /// Empty in `object TClass`.
    StringView Name() const;
    StringView ClassName() const;
    /// The number of `[n]` behind the header: the place among the parent's children, or the index of the item.
    std::optional<std::int32_t> Position() const;
    TFormRange<TFormProperty> Properties() const;
    TFormRange<TFormObject> Children() const;
    /// Where the introducing keyword stands.
    std::uint32_t Line() const;
    std::uint32_t Column() const;

    std::uint32_t NextIndex() const;

private:
    const TFormObjectNode& Node() const;

    const TFormNodes* FNodes;
    std::uint32_t FIndex;
};

/// A form as a tree that never changes once it is made; copies share it. Copying and destroying take no stack, however
/// deep the form is nested.
class TFormDocument {
public:
    TFormDocument() = default;

    /// The outermost object. A default-constructed document has none and raises EInvalidOperation.
    TFormObject Root() const;
    bool IsEmpty() const { return !FNodes; }
    /// The name given to ParseTextForm, for messages about this form.
    const String& FileName() const;
    /// The layout the text was found in (the first line end, code or quote decides); the default when built by hand.
    /// Writing with it gives back, byte for byte, a text that was in the customary layout.
    const TFormLayout& Layout() const;

private:
    friend class TFormAssembler;
    explicit TFormDocument(std::shared_ptr<const TFormNodes> nodes) : FNodes(std::move(nodes)) {}

    std::shared_ptr<const TFormNodes> FNodes;
};

struct TParseOptions {
    /// For messages only.
    String FileName;
    /// Never applied to a file that begins with the UTF-8 byte order mark.
    TFallbackEncoding FallbackEncoding = TFallbackEncoding::None;
    /// How many objects, items, collections and lists may be open at once. Designers' forms stay below 30. The parser,
    /// the document and the writer stand any depth; the default protects readers of the document that recurse.
    std::uint32_t NestingLimit = 1000;
};

/// Reads a form: UTF-8, with or without the byte order mark, lines ended by LF or CRLF. Raises EFormSyntax for anything
/// that is no form, also for a property given twice in one object, a component name given twice in one root (an
/// `inline` object opens a scope of its own; ASCII letter case does not count), a number that does not fit, and for
/// texts of 2 GiB and more.
TFormDocument ParseTextForm(std::string_view bytes, const TParseOptions& options = {});
/// The same for a file, which messages then name. Raises what ReadFileBytes raises, too.
TFormDocument ParseTextFormFile(const String& fileName, TParseOptions options = {});

/// Writes the customary layout: two blanks a level (never more than 256), strings cut after 64 characters, 32 bytes of
/// binary data a line. Parsing the result and writing it again gives the same bytes, in a code page when it is given to
/// the parser as fallback. Raises EConvertError when a name has characters that the layout's code page lacks, or when
/// the bytes would be read as UTF-8.
std::string WriteTextForm(const TFormDocument& document, const TFormLayout& layout = {});

/// Makes a document from the outside in: every Begin is closed by its End, every property gets exactly one value.
///
///     TFormBuilder builder;
///     builder.BeginObject(TFormObjectKind::Object, u"Form1", u"TForm1");
///     builder.Property(u"Left");
///     builder.Integer(200);
///     builder.EndObject();
///     TFormDocument document = builder.Finish();
///
/// A call out of order and a name that is no identifier raise EInvalidOperation; a property or component name given
/// twice raises EFormSyntax. After an exception the builder can only be destroyed.
class TFormBuilder {
public:
    TFormBuilder();
    ~TFormBuilder();
    TFormBuilder(const TFormBuilder&) = delete;
    TFormBuilder& operator=(const TFormBuilder&) = delete;

    /// Children come after the properties of their parent. The name may be empty; Item is not allowed here.
    void BeginObject(TFormObjectKind kind, StringView name, StringView className,
                     std::optional<std::int32_t> position = std::nullopt);
    void EndObject();

    /// Starts a property, whose value the next call gives. The name may be a path.
    void Property(StringView name);
    void Integer(std::int64_t value);
    /// Written with 18 decimals where these give the number back as a double or, if it is none, as Extended; otherwise
    /// with an exponent and the digits needed. The suffix is 0, 'c', 'd' or 's'. NaN and infinities raise
    /// EConvertError.
    void Float(Extended value, char suffix = 0);
    void Text(StringView value);
    /// May be dotted. `nil` and `Null` become values of those kinds.
    void Identifier(StringView name);
    void Binary(std::span<const std::uint8_t> bytes);
    /// A set takes Identifier and Integer calls until its end, a list any values.
    void BeginSet();
    void EndSet();
    void BeginList();
    void EndList();
    /// A collection takes items, an item properties.
    void BeginCollection();
    void EndCollection();
    void BeginItem(std::optional<std::int32_t> position = std::nullopt);
    void EndItem();

    /// The document; the builder is empty afterwards. Raises EInvalidOperation while something is open, or without a
    /// root.
    TFormDocument Finish();

private:
    void ExpectValue(TFormValueKind kind) const;
    void Close(TFormValueKind kind);

    std::unique_ptr<TFormAssembler> FAssembler;
};

} // namespace framework
