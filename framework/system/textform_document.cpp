#include "framework/system/decimal.h"
#include "framework/system/names.h"
#include "framework/system/strings.h"
#include "framework/system/textform_nodes.h"

namespace framework {

namespace {

String Place(StringView fileName, std::uint32_t line, std::uint32_t column, StringView problem) {
    String message(fileName);
    if (line != 0)
        message += Utf8Decode("(" + std::to_string(line) + "," + std::to_string(column) + ")");
    if (!message.empty())
        message += u": ";
    return message.append(problem);
}

} // namespace

EFormError::EFormError(StringView fileName, std::uint32_t line, std::uint32_t column, StringView problem)
    : Exception(Place(fileName, line, column, problem)), FFileName(fileName), FProblem(problem), FLine(line),
      FColumn(column) {
}

bool TryReadFormFloat(StringView digits, Extended& number) {
    TWrittenNumber written;
    return TryParseNumber(digits, u'.', written) && TryMakeFloat(written, number);
}

bool FormFloatFits(StringView digits) {
    TWrittenNumber written;
    return TryParseNumber(digits, u'.', written) && FitsExtended(written);
}

// ---- Values ----

const TFormValueNode& TFormValue::Node() const {
    return FNodes->Values[FIndex];
}
TFormValueKind TFormValue::Kind() const {
    return Node().Kind;
}
std::uint32_t TFormValue::Line() const {
    return Node().Line;
}
std::uint32_t TFormValue::Column() const {
    return Node().Column;
}
char TFormValue::Suffix() const {
    return Node().Suffix;
}
std::uint32_t TFormValue::NextIndex() const {
    return Node().Next;
}

std::int64_t TFormValue::AsInteger() const {
    if (Kind() != TFormValueKind::Integer)
        throw EConvertError(Place(FNodes->FileName, Line(), Column(), u"the value is no integer"));
    return Node().Integer;
}

Extended TFormValue::AsExtended() const {
    if (Kind() == TFormValueKind::Integer)
        return static_cast<Extended>(Node().Integer);
    if (Kind() != TFormValueKind::Float)
        throw EConvertError(Place(FNodes->FileName, Line(), Column(), u"the value is no number"));
    Extended number = 0;
    TryReadFormFloat(Text(), number);
    return number;
}

StringView TFormValue::Text() const {
    switch (Kind()) {
    case TFormValueKind::Integer:
    case TFormValueKind::Float:
    case TFormValueKind::String:
    case TFormValueKind::Identifier:
    case TFormValueKind::Nil:
    case TFormValueKind::Null:
        return FNodes->Text.View(Node().Start, Node().Length);
    default:
        return {};
    }
}

std::span<const std::uint8_t> TFormValue::Bytes() const {
    if (Kind() != TFormValueKind::Binary)
        return {};
    return {FNodes->Bytes.data() + Node().Start, Node().Length};
}

TFormRange<TFormValue> TFormValue::Elements() const {
    const bool hasElements = Kind() == TFormValueKind::Set || Kind() == TFormValueKind::List;
    return {FNodes, hasElements ? Node().Start : 0};
}

TFormRange<TFormObject> TFormValue::Items() const {
    return {FNodes, Kind() == TFormValueKind::Collection ? Node().Start : 0};
}

bool TFormValue::IsIdentifier(StringView name) const {
    return Kind() == TFormValueKind::Identifier && TNameEqual()(Text(), name);
}

// ---- Properties ----

const TFormPropertyNode& TFormProperty::Node() const {
    return FNodes->Properties[FIndex];
}
StringView TFormProperty::Name() const {
    return FNodes->Name(Node().Name);
}
TFormValue TFormProperty::Value() const {
    return {FNodes, Node().Value};
}
std::uint32_t TFormProperty::Line() const {
    return Node().Line;
}
std::uint32_t TFormProperty::Column() const {
    return Node().Column;
}
std::uint32_t TFormProperty::NextIndex() const {
    return Node().Next;
}

// ---- Objects ----

const TFormObjectNode& TFormObject::Node() const {
    return FNodes->Objects[FIndex];
}
TFormObjectKind TFormObject::Kind() const {
    return Node().Kind;
}
StringView TFormObject::Name() const {
    return FNodes->Name(Node().Name);
}
StringView TFormObject::ClassName() const {
    return FNodes->Name(Node().ClassName);
}
TFormRange<TFormProperty> TFormObject::Properties() const {
    return {FNodes, Node().FirstProperty};
}
TFormRange<TFormObject> TFormObject::Children() const {
    return {FNodes, Node().FirstChild};
}
std::uint32_t TFormObject::Line() const {
    return Node().Line;
}
std::uint32_t TFormObject::Column() const {
    return Node().Column;
}
std::uint32_t TFormObject::NextIndex() const {
    return Node().Next;
}

std::optional<std::int32_t> TFormObject::Position() const {
    if (!Node().HasPosition)
        return std::nullopt;
    return Node().Position;
}

// ---- The document ----

TFormObject TFormDocument::Root() const {
    if (IsEmpty())
        throw EInvalidOperation(u"An empty form document has no root");
    return {FNodes.get(), 1};
}

const String& TFormDocument::FileName() const {
    static const String none;
    return FNodes ? FNodes->FileName : none;
}

const TFormLayout& TFormDocument::Layout() const {
    static const TFormLayout customary;
    return FNodes ? FNodes->Layout : customary;
}

} // namespace framework
