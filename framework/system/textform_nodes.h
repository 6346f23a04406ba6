#pragma once

// The inside of a form document: flat arrays of nodes that refer to each other by index, and the assembler with which
// the parser and the builder fill them. Nothing outside the text form files includes this.

#include "framework/system/textform.h"

#include <cstring>

namespace framework {

/// Text that only grows, with room handed out before it is written, so that decoding needs no pass to clear it.
class TFormTextPool {
public:
    std::uint32_t Size() const { return FSize; }
    StringView View(std::uint32_t start, std::uint32_t length) const { return {FText.get() + start, length}; }
    /// Room for that many units at the end, good until the next call.
    char16_t* Extend(std::size_t length) {
        if (length > FCapacity - FSize)
            Grow(length);
        char16_t* room = FText.get() + FSize;
        FSize += static_cast<std::uint32_t>(length);
        return room;
    }
    void Append(StringView text) {
        if (!text.empty())
            std::memcpy(Extend(text.size()), text.data(), text.size() * sizeof(char16_t));
    }

private:
    void Grow(std::size_t length);

    std::unique_ptr<char16_t[]> FText;
    std::uint32_t FSize = 0;
    std::uint32_t FCapacity = 0;
};

// Index 0 of every array means "none"; the names' index 0 is the empty name.

struct TFormObjectNode {
    std::uint32_t Name = 0;
    std::uint32_t ClassName = 0;
    std::uint32_t FirstProperty = 0;
    std::uint32_t FirstChild = 0;
    std::uint32_t Next = 0;
    std::uint32_t Line = 0;
    std::uint32_t Column = 0;
    std::int32_t Position = 0;
    TFormObjectKind Kind = TFormObjectKind::Object;
    bool HasPosition = false;
};

struct TFormPropertyNode {
    std::uint32_t Name = 0;
    std::uint32_t Value = 0;
    std::uint32_t Next = 0;
    std::uint32_t Line = 0;
    std::uint32_t Column = 0;
};

struct TFormValueNode {
    std::int64_t Integer = 0;
    /// By kind: the start in the text pool or in the bytes, or the first element or item.
    std::uint32_t Start = 0;
    std::uint32_t Length = 0;
    std::uint32_t Next = 0;
    std::uint32_t Line = 0;
    std::uint32_t Column = 0;
    TFormValueKind Kind = TFormValueKind::Integer;
    char Suffix = 0;
};

struct TFormNameNode {
    std::uint32_t Start = 0;
    std::uint32_t Length = 0;
};

/// The number that a Float's digits spell; false when no Extended is as large.
bool TryReadFormFloat(StringView digits, Extended& number);
/// The same answer without the number, which takes long to find for great exponents.
bool FormFloatFits(StringView digits);

/// All that a document owns.
struct TFormNodes {
    std::vector<TFormObjectNode> Objects{1};
    std::vector<TFormPropertyNode> Properties{1};
    std::vector<TFormValueNode> Values{1};
    std::vector<TFormNameNode> Names{1};
    std::vector<std::uint8_t> Bytes;
    TFormTextPool Text;
    String FileName;
    TFormLayout Layout;

    StringView Name(std::uint32_t index) const { return Text.View(Names[index].Start, Names[index].Length); }
};

/// Gives each spelling of a name one number, and the number of its lower-case spelling for comparisons.
class TFormNameTable {
public:
    TFormNameTable();
    /// The name must be well-formed UTF-8.
    std::uint32_t Intern(std::string_view name, TFormNodes& nodes);
    std::uint32_t Folded(std::uint32_t name) const { return FEntries[name].Folded; }

private:
    struct Entry {
        std::uint64_t Hash = 0;
        std::uint32_t Start = 0;
        std::uint32_t Length = 0;
        std::uint32_t Folded = 0;
    };

    std::uint32_t Add(std::string_view name, std::uint64_t hash, TFormNodes& nodes);
    void Rehash();

    std::vector<Entry> FEntries;
    std::vector<std::uint32_t> FSlots;
    std::string FSpellings;
};

/// Builds the tree from the outside in and sees to the uniqueness of names. The order of calls is the caller's duty.
class TFormAssembler {
public:
    enum class Open : std::uint8_t { Nothing, Object, Item, Set, List, Collection };

    TFormNodes& Nodes() { return *FNodes; }
    std::uint32_t Name(std::string_view utf8) { return FNames.Intern(utf8, *FNodes); }
    /// Where the nodes made from now on stand in the text.
    void At(std::uint32_t line, std::uint32_t column) {
        FLine = line;
        FColumn = column;
    }

    Open Innermost() const { return FFrames.empty() ? Open::Nothing : FFrames.back().What; }
    /// Whether the innermost open object or value has children, elements or items already.
    bool HasMembers() const { return FFrames.back().Last != 0; }
    std::size_t Depth() const { return FFrames.size(); }
    bool HasRoot() const { return FNodes->Objects.size() > 1; }
    bool AwaitsValue() const { return FProperty != 0; }

    /// Raises EFormSyntax when the name is taken.
    void OpenObject(TFormObjectKind kind, std::uint32_t name, std::uint32_t className,
                    std::optional<std::int32_t> position);
    void OpenProperty(std::uint32_t name);
    /// A new value for the awaiting property, or at the end of the open set or list.
    TFormValueNode& AddValue(TFormValueKind kind);
    void AddIdentifier(TFormValueKind kind, std::uint32_t name);
    /// Opens a Set, List or Collection.
    void OpenValue(TFormValueKind kind);
    void OpenItem(std::optional<std::int32_t> position);
    /// Closes what is innermost; raises EFormSyntax when an object or item has a property twice.
    void Close();

    TFormDocument Finish();

private:
    struct Frame {
        Open What = Open::Nothing;
        bool OpensScope = false;
        std::uint32_t Node = 0;
        std::uint32_t Last = 0;
        std::uint32_t LastProperty = 0;
    };
    /// The component names of the root or of one `inline` object.
    struct Scope {
        std::uint32_t Number = 0;
        std::size_t FirstOverwritten = 0;
    };
    struct Overwritten {
        std::uint32_t Name = 0;
        std::uint32_t Scope = 0;
    };

    std::uint32_t AddObject(TFormObjectKind kind, std::optional<std::int32_t> position);
    void ClaimName(std::uint32_t name);
    void EnterScope();
    void LeaveScope();
    void CheckProperties(std::uint32_t object);
    [[noreturn]] void Fail(std::uint32_t line, std::uint32_t column, StringView what, std::uint32_t name) const;

    std::shared_ptr<TFormNodes> FNodes = std::make_shared<TFormNodes>();
    TFormNameTable FNames;
    std::vector<Frame> FFrames;
    std::uint32_t FProperty = 0;
    std::uint32_t FLine = 0;
    std::uint32_t FColumn = 0;

    std::vector<Scope> FScopes;
    std::uint32_t FScopeCount = 0;
    /// By folded name: the scope that claimed it last, and what inner scopes must put back.
    std::vector<std::uint32_t> FClaims;
    std::vector<Overwritten> FOverwritten;
    /// By folded name: the object that was found to have such a property last.
    std::vector<std::uint32_t> FPropertyOwners;
};

} // namespace framework
