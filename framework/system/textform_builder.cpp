#include "framework/system/strings.h"
#include "framework/system/textform_nodes.h"

#include <array>
#include <charconv>
#include <cmath>

namespace framework {

namespace {

bool IsLetter(char16_t unit) {
    return (unit >= u'A' && unit <= u'Z') || (unit >= u'a' && unit <= u'z') || unit == u'_' || unit >= 0x80;
}

bool IsDigit(char16_t unit) {
    return unit >= u'0' && unit <= u'9';
}

bool HasSoundSurrogates(StringView text) {
    return Utf8Decode(Utf8Encode(text)) == text;
}

// What the parser would take for one name, or for a path of names.
bool IsName(StringView text, bool dotted) {
    bool startsName = true;
    for (const char16_t unit : text) {
        if (startsName ? !IsLetter(unit) : !(IsLetter(unit) || IsDigit(unit) || (dotted && unit == u'.')))
            return false;
        startsName = unit == u'.';
    }
    return !startsName && HasSoundSurrogates(text);
}

std::string CheckedName(StringView text, bool dotted) {
    if (!IsName(text, dotted))
        throw EInvalidOperation(u"No name for a form: \"" + String(text) + u"\"");
    return Utf8Encode(text);
}

bool IsAsciiWord(std::string_view text, std::string_view lowerCaseWord) {
    return text.size() == lowerCaseWord.size() &&
           std::equal(text.begin(), text.end(), lowerCaseWord.begin(),
                      [](char letter, char lower) { return (letter | 0x20) == lower; });
}

void Demand(bool condition, const char16_t* problem) {
    if (!condition)
        throw EInvalidOperation(problem);
}

bool IsDouble(Extended value) {
    return static_cast<Extended>(static_cast<double>(value)) == value;
}

bool GivesBack(std::string_view digits, Extended value) {
    Extended read = 0;
    TryReadFormFloat(Utf8Decode(digits), read);
    return IsDouble(value) ? static_cast<double>(read) == static_cast<double>(value) : read == value;
}

// 18 decimals. A double has zeros behind the digits that it needs, so that 0.1 is no 0.100000000000000006.
std::string FixedDigits(Extended value) {
    constexpr std::size_t decimals = 18;
    std::array<char, 64> digits;
    char* const end = digits.data() + digits.size();
    if (IsDouble(value)) {
        const auto shortest = std::to_chars(digits.data(), end, static_cast<double>(value), std::chars_format::fixed);
        std::string text(digits.data(), shortest.ec == std::errc() ? shortest.ptr : digits.data());
        const std::size_t point = std::min(text.find('.'), text.size());
        if (!text.empty() && text.size() <= point + 1 + decimals) {
            if (point == text.size())
                text += '.';
            text.append(point + 1 + decimals - text.size(), '0');
            return text;
        }
    }
    const auto fixed = std::to_chars(digits.data(), end, value, std::chars_format::fixed, static_cast<int>(decimals));
    return std::string(digits.data(), fixed.ptr);
}

// The customary fixed form where it gives the number back, else the shortest digits with an exponent.
std::string FloatDigits(Extended value) {
    constexpr Extended fixedLimit = 1e15L;
    if (std::fabs(value) < fixedLimit) {
        std::string text = FixedDigits(value);
        if (GivesBack(text, value))
            return text;
    }
    std::array<char, 64> digits;
    char* const end = digits.data() + digits.size();
    const auto shortest =
        IsDouble(value) ? std::to_chars(digits.data(), end, static_cast<double>(value), std::chars_format::scientific)
                        : std::to_chars(digits.data(), end, value, std::chars_format::scientific);
    return std::string(digits.data(), shortest.ptr);
}

} // namespace

TFormBuilder::TFormBuilder() : FAssembler(std::make_unique<TFormAssembler>()) {
}
TFormBuilder::~TFormBuilder() = default;

// ---- Objects and properties ----

void TFormBuilder::BeginObject(TFormObjectKind kind, StringView name, StringView className,
                               std::optional<std::int32_t> position) {
    Demand(kind != TFormObjectKind::Item, u"An item belongs to a collection");
    Demand(!FAssembler->AwaitsValue(), u"A property has no value yet");
    const bool isRoot = !FAssembler->HasRoot();
    Demand(isRoot || FAssembler->Innermost() == TFormAssembler::Open::Object,
           u"An object belongs into an object, and a form has one root");
    const std::uint32_t nameNumber = name.empty() ? 0 : FAssembler->Name(CheckedName(name, false));
    FAssembler->OpenObject(kind, nameNumber, FAssembler->Name(CheckedName(className, true)), position);
}

void TFormBuilder::EndObject() {
    Demand(FAssembler->Innermost() == TFormAssembler::Open::Object && !FAssembler->AwaitsValue(),
           u"No object can end here");
    FAssembler->Close();
}

void TFormBuilder::Property(StringView name) {
    const auto innermost = FAssembler->Innermost();
    Demand(!FAssembler->AwaitsValue(), u"A property has no value yet");
    Demand(innermost == TFormAssembler::Open::Item ||
               (innermost == TFormAssembler::Open::Object && !FAssembler->HasMembers()),
           u"A property belongs into an item, or into an object before its children");
    FAssembler->OpenProperty(FAssembler->Name(CheckedName(name, true)));
}

// ---- Values ----

void TFormBuilder::ExpectValue(TFormValueKind kind) const {
    const auto innermost = FAssembler->Innermost();
    const bool fitsSet = kind == TFormValueKind::Identifier || kind == TFormValueKind::Integer;
    Demand(FAssembler->AwaitsValue() || innermost == TFormAssembler::Open::List ||
               (innermost == TFormAssembler::Open::Set && fitsSet),
           u"No such value can stand here");
}

void TFormBuilder::Integer(std::int64_t value) {
    ExpectValue(TFormValueKind::Integer);
    FAssembler->AddValue(TFormValueKind::Integer).Integer = value;
}

void TFormBuilder::Float(Extended value, char suffix) {
    ExpectValue(TFormValueKind::Float);
    Demand(suffix == 0 || suffix == 'c' || suffix == 'd' || suffix == 's', u"No suffix of a number");
    if (!std::isfinite(value))
        throw EConvertError(u"A form holds finite numbers only");
    TFormValueNode& node = FAssembler->AddValue(TFormValueKind::Float);
    const String digits = Utf8Decode(FloatDigits(value));
    node.Start = FAssembler->Nodes().Text.Size();
    node.Length = static_cast<std::uint32_t>(digits.size());
    node.Suffix = suffix;
    FAssembler->Nodes().Text.Append(digits);
}

void TFormBuilder::Text(StringView value) {
    ExpectValue(TFormValueKind::String);
    TFormValueNode& node = FAssembler->AddValue(TFormValueKind::String);
    node.Start = FAssembler->Nodes().Text.Size();
    node.Length = static_cast<std::uint32_t>(value.size());
    FAssembler->Nodes().Text.Append(value);
}

void TFormBuilder::Identifier(StringView name) {
    const std::string word = CheckedName(name, true);
    const TFormValueKind kind = IsAsciiWord(word, "nil")    ? TFormValueKind::Nil
                                : IsAsciiWord(word, "null") ? TFormValueKind::Null
                                                            : TFormValueKind::Identifier;
    // A set's member may be called nil; it stays a name there.
    const bool inSet = FAssembler->Innermost() == TFormAssembler::Open::Set;
    ExpectValue(TFormValueKind::Identifier);
    FAssembler->AddIdentifier(inSet ? TFormValueKind::Identifier : kind, FAssembler->Name(word));
}

void TFormBuilder::Binary(std::span<const std::uint8_t> bytes) {
    ExpectValue(TFormValueKind::Binary);
    TFormValueNode& node = FAssembler->AddValue(TFormValueKind::Binary);
    std::vector<std::uint8_t>& pool = FAssembler->Nodes().Bytes;
    Demand(bytes.size() <= UINT32_MAX - pool.size(), u"A form document cannot hold more data");
    node.Start = static_cast<std::uint32_t>(pool.size());
    node.Length = static_cast<std::uint32_t>(bytes.size());
    pool.insert(pool.end(), bytes.begin(), bytes.end());
}

// ---- Sets, lists, collections ----

void TFormBuilder::BeginSet() {
    ExpectValue(TFormValueKind::Set);
    FAssembler->OpenValue(TFormValueKind::Set);
}

void TFormBuilder::EndSet() {
    Close(TFormValueKind::Set);
}

void TFormBuilder::BeginList() {
    ExpectValue(TFormValueKind::List);
    FAssembler->OpenValue(TFormValueKind::List);
}

void TFormBuilder::EndList() {
    Close(TFormValueKind::List);
}

void TFormBuilder::BeginCollection() {
    ExpectValue(TFormValueKind::Collection);
    FAssembler->OpenValue(TFormValueKind::Collection);
}

void TFormBuilder::EndCollection() {
    Close(TFormValueKind::Collection);
}

void TFormBuilder::BeginItem(std::optional<std::int32_t> position) {
    Demand(FAssembler->Innermost() == TFormAssembler::Open::Collection, u"An item belongs into a collection");
    FAssembler->OpenItem(position);
}

void TFormBuilder::EndItem() {
    Demand(FAssembler->Innermost() == TFormAssembler::Open::Item && !FAssembler->AwaitsValue(),
           u"No item can end here");
    FAssembler->Close();
}

void TFormBuilder::Close(TFormValueKind kind) {
    const auto innermost = FAssembler->Innermost();
    Demand((kind == TFormValueKind::Set && innermost == TFormAssembler::Open::Set) ||
               (kind == TFormValueKind::List && innermost == TFormAssembler::Open::List) ||
               (kind == TFormValueKind::Collection && innermost == TFormAssembler::Open::Collection),
           u"No such value can end here");
    FAssembler->Close();
}

TFormDocument TFormBuilder::Finish() {
    Demand(FAssembler->HasRoot() && FAssembler->Depth() == 0, u"A form needs one finished root");
    TFormDocument document = FAssembler->Finish();
    FAssembler = std::make_unique<TFormAssembler>();
    return document;
}

} // namespace framework
