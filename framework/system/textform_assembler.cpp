#include "framework/system/strings.h"
#include "framework/system/textform_nodes.h"

#include <algorithm>
#include <limits>

namespace framework {

namespace {

constexpr std::uint64_t HashFactor = 0x9E3779B97F4A7C15u;

std::uint64_t Load(const char* bytes, std::size_t count) {
    std::uint64_t word = 0;
    std::memcpy(&word, bytes, count);
    return word;
}

std::uint64_t MixIn(std::uint64_t hash, std::uint64_t word) {
    hash = (hash ^ word) * HashFactor;
    return hash ^ (hash >> 32);
}

std::uint64_t HashOf(std::string_view name) {
    const char* at = name.data();
    std::size_t left = name.size();
    std::uint64_t hash = left * HashFactor;
    for (; left > 8; at += 8, left -= 8)
        hash = MixIn(hash, Load(at, 8));
    if (left >= 4)
        return MixIn(MixIn(hash, Load(at, 4)), Load(at + left - 4, 4));
    for (; left > 0; ++at, --left)
        hash = MixIn(hash, static_cast<unsigned char>(*at));
    return hash;
}

bool IsUpperAscii(char letter) {
    return letter >= 'A' && letter <= 'Z';
}

} // namespace

void TFormTextPool::Grow(std::size_t length) {
    constexpr std::size_t limit = std::numeric_limits<std::uint32_t>::max();
    if (length > limit - FSize)
        throw EInvalidOperation(u"A form document cannot hold more text");
    const std::size_t wanted = std::max<std::size_t>({FSize + length, std::size_t{FCapacity} * 2, 1024});
    const std::size_t capacity = std::min(wanted, limit);
    std::unique_ptr<char16_t[]> larger(new char16_t[capacity]);
    if (FSize != 0)
        std::memcpy(larger.get(), FText.get(), FSize * sizeof(char16_t));
    FText = std::move(larger);
    FCapacity = static_cast<std::uint32_t>(capacity);
}

// ---- Names ----

TFormNameTable::TFormNameTable() : FEntries(1), FSlots(256) {
}

std::uint32_t TFormNameTable::Intern(std::string_view name, TFormNodes& nodes) {
    if (name.empty())
        return 0;
    const std::uint64_t hash = HashOf(name);
    const std::size_t mask = FSlots.size() - 1;
    for (std::size_t slot = hash & mask; FSlots[slot] != 0; slot = (slot + 1) & mask) {
        const Entry& entry = FEntries[FSlots[slot]];
        if (entry.Hash == hash && entry.Length == name.size() &&
            std::memcmp(FSpellings.data() + entry.Start, name.data(), name.size()) == 0)
            return FSlots[slot];
    }
    return Add(name, hash, nodes);
}

std::uint32_t TFormNameTable::Add(std::string_view name, std::uint64_t hash, TFormNodes& nodes) {
    const auto number = static_cast<std::uint32_t>(FEntries.size());
    FEntries.push_back(
        {hash, static_cast<std::uint32_t>(FSpellings.size()), static_cast<std::uint32_t>(name.size()), number});
    FSpellings.append(name);
    const String decoded = Utf8Decode(name);
    nodes.Names.push_back({nodes.Text.Size(), static_cast<std::uint32_t>(decoded.size())});
    nodes.Text.Append(decoded);
    Rehash();
    if (std::any_of(name.begin(), name.end(), IsUpperAscii)) {
        std::string folded(name);
        for (char& letter : folded)
            letter = IsUpperAscii(letter) ? static_cast<char>(letter + 32) : letter;
        const std::uint32_t foldedNumber = Intern(folded, nodes);
        FEntries[number].Folded = foldedNumber;
    }
    return number;
}

// Puts the newest entry into its slot; the slots stay at most half full.
void TFormNameTable::Rehash() {
    std::size_t first = FEntries.size() - 1;
    if (FEntries.size() * 2 > FSlots.size()) {
        FSlots.assign(FSlots.size() * 2, 0);
        first = 1;
    }
    const std::size_t mask = FSlots.size() - 1;
    for (std::size_t number = first; number < FEntries.size(); ++number) {
        std::size_t slot = FEntries[number].Hash & mask;
        while (FSlots[slot] != 0)
            slot = (slot + 1) & mask;
        FSlots[slot] = static_cast<std::uint32_t>(number);
    }
}

// ---- Building ----

std::uint32_t TFormAssembler::AddObject(TFormObjectKind kind, std::optional<std::int32_t> position) {
    const auto index = static_cast<std::uint32_t>(FNodes->Objects.size());
    TFormObjectNode& node = FNodes->Objects.emplace_back();
    node.Kind = kind;
    node.HasPosition = position.has_value();
    node.Position = position.value_or(0);
    node.Line = FLine;
    node.Column = FColumn;
    return index;
}

void TFormAssembler::OpenObject(TFormObjectKind kind, std::uint32_t name, std::uint32_t className,
                                std::optional<std::int32_t> position) {
    // The root's own name belongs to no scope: a child may bear it.
    if (!FFrames.empty() && name != 0)
        ClaimName(name);
    const std::uint32_t index = AddObject(kind, position);
    FNodes->Objects[index].Name = name;
    FNodes->Objects[index].ClassName = className;
    Frame frame;
    frame.What = Open::Object;
    frame.Node = index;
    frame.OpensScope = FFrames.empty() || kind == TFormObjectKind::Inline;
    if (!FFrames.empty()) {
        Frame& parent = FFrames.back();
        (parent.Last != 0 ? FNodes->Objects[parent.Last].Next : FNodes->Objects[parent.Node].FirstChild) = index;
        parent.Last = index;
    }
    FFrames.push_back(frame);
    if (frame.OpensScope)
        EnterScope();
}

void TFormAssembler::OpenProperty(std::uint32_t name) {
    const auto index = static_cast<std::uint32_t>(FNodes->Properties.size());
    FNodes->Properties.push_back({name, 0, 0, FLine, FColumn});
    Frame& owner = FFrames.back();
    (owner.LastProperty != 0 ? FNodes->Properties[owner.LastProperty].Next
                             : FNodes->Objects[owner.Node].FirstProperty) = index;
    owner.LastProperty = index;
    FProperty = index;
}

TFormValueNode& TFormAssembler::AddValue(TFormValueKind kind) {
    const auto index = static_cast<std::uint32_t>(FNodes->Values.size());
    TFormValueNode& node = FNodes->Values.emplace_back();
    node.Kind = kind;
    node.Line = FLine;
    node.Column = FColumn;
    if (FProperty != 0) {
        FNodes->Properties[FProperty].Value = index;
        FProperty = 0;
    } else {
        Frame& owner = FFrames.back();
        (owner.Last != 0 ? FNodes->Values[owner.Last].Next : FNodes->Values[owner.Node].Start) = index;
        owner.Last = index;
    }
    return node;
}

void TFormAssembler::AddIdentifier(TFormValueKind kind, std::uint32_t name) {
    TFormValueNode& node = AddValue(kind);
    node.Start = FNodes->Names[name].Start;
    node.Length = FNodes->Names[name].Length;
}

void TFormAssembler::OpenValue(TFormValueKind kind) {
    AddValue(kind);
    Frame frame;
    frame.What = kind == TFormValueKind::Set ? Open::Set : kind == TFormValueKind::List ? Open::List : Open::Collection;
    frame.Node = static_cast<std::uint32_t>(FNodes->Values.size() - 1);
    FFrames.push_back(frame);
}

void TFormAssembler::OpenItem(std::optional<std::int32_t> position) {
    Frame frame;
    frame.What = Open::Item;
    frame.Node = AddObject(TFormObjectKind::Item, position);
    Frame& collection = FFrames.back();
    (collection.Last != 0 ? FNodes->Objects[collection.Last].Next : FNodes->Values[collection.Node].Start) = frame.Node;
    collection.Last = frame.Node;
    FFrames.push_back(frame);
}

void TFormAssembler::Close() {
    const Frame frame = FFrames.back();
    if (frame.What == Open::Object || frame.What == Open::Item)
        CheckProperties(frame.Node);
    if (frame.OpensScope)
        LeaveScope();
    FFrames.pop_back();
}

// ---- Uniqueness ----

// One array says for each name which scope claimed it last. An inner scope that takes a name over from an outer one
// puts the claim back when it is left, so that the whole form costs one look per name.
void TFormAssembler::ClaimName(std::uint32_t name) {
    const std::uint32_t folded = FNames.Folded(name);
    if (folded >= FClaims.size())
        FClaims.resize(FNodes->Names.size());
    const std::uint32_t scope = FScopes.back().Number;
    if (FClaims[folded] == scope)
        Fail(FLine, FColumn, u"a component of this name is there already: ", name);
    if (FScopes.size() > 1)
        FOverwritten.push_back({folded, FClaims[folded]});
    FClaims[folded] = scope;
}

void TFormAssembler::EnterScope() {
    FScopes.push_back({++FScopeCount, FOverwritten.size()});
}

void TFormAssembler::LeaveScope() {
    for (std::size_t i = FOverwritten.size(); i-- > FScopes.back().FirstOverwritten;)
        FClaims[FOverwritten[i].Name] = FOverwritten[i].Scope;
    FOverwritten.resize(FScopes.back().FirstOverwritten);
    FScopes.pop_back();
}

// Done when the object is complete, since the items of its collections come between its own properties.
void TFormAssembler::CheckProperties(std::uint32_t object) {
    if (FPropertyOwners.size() < FNodes->Names.size())
        FPropertyOwners.resize(FNodes->Names.size());
    std::uint32_t index = FNodes->Objects[object].FirstProperty;
    while (index != 0) {
        const TFormPropertyNode& property = FNodes->Properties[index];
        std::uint32_t& owner = FPropertyOwners[FNames.Folded(property.Name)];
        if (owner == object)
            Fail(property.Line, property.Column, u"the property is given twice: ", property.Name);
        owner = object;
        index = property.Next;
    }
}

void TFormAssembler::Fail(std::uint32_t line, std::uint32_t column, StringView what, std::uint32_t name) const {
    throw EFormSyntax(FNodes->FileName, line, column, String(what).append(FNodes->Name(name)));
}

TFormDocument TFormAssembler::Finish() {
    std::shared_ptr<const TFormNodes> nodes = std::move(FNodes);
    return TFormDocument(std::move(nodes));
}

} // namespace framework
