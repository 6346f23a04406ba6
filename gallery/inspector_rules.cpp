#include "gallery/inspector_rules.h"

#include "framework/system/dates.h"
#include "framework/system/numbers.h"
#include "framework/system/strings.h"
#include "gallery/handlers_rules.h"

#include <algorithm>

namespace gallery {

namespace {

bool IsReference(const TPropInfo& property) {
    return property.Kind == tkClass && property.ObjectClass().InheritsFrom(TComponent::StaticClass());
}

/// The sub-object that can be opened under a row; null for references to other components and for everything else.
TPersistent* SubObject(const TPersistent& object, const TPropInfo& property) {
    return IsSubObject(object, property) ? property.GetInstance(object) : nullptr;
}

/// The row of the lines: the row itself, or the only one below it, as of a list box's Items. Without a property when it
/// holds no lines.
TInspectorRow ListRow(const TInspectorRow& row) {
    TInspectorRow list = row;
    if (row.Property && row.Property->Kind == tkClass) {
        list.Object = SubObject(*row.Object, *row.Property);
        const auto inner = list.Object ? list.Object->ClassInfo().Properties() : std::span<const TPropInfo>();
        list.Property = inner.size() == 1 ? &inner.front() : nullptr;
    }
    if (list.Property && list.Property->Kind != tkStrings)
        list.Property = nullptr;
    return list;
}

bool HoldsColor(const TPropInfo& property) {
    return property.Kind == tkInteger && property.Names && property.Names->FromName(u"clWindow");
}

String NamedInteger(const TPropInfo& property, std::int64_t value) {
    if (property.Names) {
        if (const auto name = property.Names->ToName(value))
            return *name;
    }
    return HoldsColor(property) ? u"$" + IntToHex(static_cast<std::int32_t>(value), 8) : IntToStr(value);
}

/// A number, or the date that it stands for; 0 is none.
String FloatText(const TPropInfo& property, const Variant& value) {
    const auto number = static_cast<TDateTime>(value.AsFloat());
    if (property.FloatKind == TFloatKind::Number || (number != 0 && YearOf(number) == 0))
        return VarToStr(value);
    if (number == 0)
        return {};
    return property.FloatKind == TFloatKind::Date   ? DateToStr(number)
           : property.FloatKind == TFloatKind::Time ? TimeToStr(number)
                                                    : DateTimeToStr(number);
}

String ObjectText(const TInspectorRow& row) {
    const TPersistent* value = row.Property->GetInstance(*row.Object);
    if (IsReference(*row.Property) && !SubObject(*row.Object, *row.Property)) {
        const auto* component = As<TComponent>(value);
        return component ? component->GetName() : String();
    }
    if (const auto* collection = As<TCollection>(value))
        return u"(" + CountText(static_cast<std::size_t>(collection->GetCount()), u"item") + u")";
    return u"(" + (value ? value->ClassName() : String(u"none")) + u")";
}

String EnumText(const TPropInfo& property, std::int64_t ordinal) {
    const auto& names = property.Enum->Names;
    const bool known = ordinal >= 0 && ordinal < static_cast<std::int64_t>(names.size());
    return known ? names[static_cast<std::size_t>(ordinal)] : IntToStr(ordinal);
}

bool HasLineBreak(StringView text) {
    return text.find_first_of(u"\r\n") != StringView::npos;
}

void WriteReference(const TInspectorRow& row, StringView name) {
    TComponent* root = FormOf(row.Object);
    TComponent* component = nullptr;
    if (!name.empty()) {
        component = root ? root->FindComponent(name) : nullptr;
        if (!component && root && TNameEqual()(root->GetName(), name))
            component = root;
        if (!component)
            throw EPropertyError(u"There is no component named \"" + String(name) + u"\"");
    }
    SetObjectProp(*row.Object, row.Property->Name, component);
}

void WriteElement(const TInspectorRow& row, StringView text) {
    const auto chosen = DescribeEnum(bool{}).Find(Trim(text));
    if (!chosen)
        throw EPropertyError(u"\"" + String(text) + u"\" is neither True nor False");
    const std::int64_t bit = std::int64_t{1} << row.Element;
    const std::int64_t bits = row.Property->GetOrdinal(*row.Object);
    SetPropValue(*row.Object, *row.Property, Variant(*chosen ? bits | bit : bits & ~bit));
}

} // namespace

String RowText(const TInspectorRow& row) {
    if (!row.Property)
        return {};
    if (const TInspectorRow list = ListRow(row); list.Property)
        return u"(" + CountText(list.Property->GetLines(*list.Object).size(), u"line") + u")";
    const TPropInfo& property = *row.Property;
    switch (property.Kind) {
    case tkInteger:
        return NamedInteger(property, property.GetOrdinal(*row.Object));
    case tkEnumeration:
        return EnumText(property, property.GetOrdinal(*row.Object));
    case tkSet: {
        const std::int64_t bits = property.GetOrdinal(*row.Object);
        if (row.Element >= 0)
            return DescribeEnum(bool{}).Names[static_cast<std::size_t>((bits >> row.Element) & 1)];
        return SetToText(*property.Enum, bits);
    }
    case tkWChar: {
        const auto c = static_cast<char16_t>(property.GetOrdinal(*row.Object));
        return c > 0 && c < u' ' ? u"#" + IntToStr(static_cast<int>(c)) : c == 0 ? String() : String(1, c);
    }
    case tkFloat:
        return FloatText(property, property.GetValue(*row.Object));
    case tkString:
        return VarToStr(property.GetValue(*row.Object));
    case tkVariant: {
        const Variant value = property.GetValue(*row.Object);
        return VarIsArray(value) ? String(u"(list)") : VarToStr(value);
    }
    case tkClass:
        return ObjectText(row);
    case tkMethod: {
        const TMethodInfo* method = property.GetMethod(*row.Object);
        return method ? method->Name : String();
    }
    case tkStrings:
        break;
    case tkBinary: {
        const std::size_t size = property.GetBytes(*row.Object).size();
        return size == 0 ? String(u"(none)") : u"(" + IntToStr(size) + u" bytes)";
    }
    }
    return {};
}

std::optional<String> RowLines(const TInspectorRow& row) {
    if (row.Property && row.Property->Kind == tkString && !row.Property->ReadOnly())
        return RowText(row);
    const TInspectorRow list = ListRow(row);
    if (!list.Property || list.Property->ReadOnly())
        return std::nullopt;
    const std::vector<String> lines = list.Property->GetLines(*list.Object);
    String text;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        text += lines[i];
        if (i + 1 < lines.size() || lines[i].empty())
            text += u"\r\n";
    }
    return text;
}

TCollection* RowItems(const TInspectorRow& row) {
    const bool mayHold = row.Property && row.Property->Kind == tkClass && row.Property->IsStored;
    return mayHold ? As<TCollection>(SubObject(*row.Object, *row.Property)) : nullptr;
}

TRowEditor RowEditor(const TInspectorRow& row) {
    if (RowItems(row))
        return TRowEditor::Items;
    if (const TInspectorRow list = ListRow(row); list.Property)
        return list.Property->ReadOnly() ? TRowEditor::None : TRowEditor::Lines;
    if (!row.Property || row.Property->ReadOnly())
        return TRowEditor::None;
    switch (row.Property->Kind) {
    case tkInteger:
        return row.Property->Names ? TRowEditor::TextOrChoice : TRowEditor::Text;
    case tkEnumeration:
        return TRowEditor::Choice;
    case tkSet:
        return row.Element >= 0 ? TRowEditor::Choice : TRowEditor::Text;
    case tkString:
        // A line of the inspector cannot show where such a text breaks.
        return HasLineBreak(RowText(row)) ? TRowEditor::Lines : TRowEditor::Text;
    case tkWChar:
    case tkFloat:
    case tkVariant:
        return TRowEditor::Text;
    case tkClass:
        return IsReference(*row.Property) ? TRowEditor::Choice : TRowEditor::None;
    case tkMethod:
        return TakesNewHandlers(*row.Object) ? TRowEditor::TextOrChoice : TRowEditor::Choice;
    case tkStrings:
    case tkBinary:
        break;
    }
    return TRowEditor::None;
}

std::vector<String> RowChoices(const TInspectorRow& row) {
    if (!row.Property)
        return {};
    const TPropInfo& property = *row.Property;
    std::vector<String> choices;
    switch (property.Kind) {
    case tkInteger:
        return property.Names ? property.Names->Names() : choices;
    case tkEnumeration:
        return property.Enum->Names;
    case tkSet:
        return row.Element >= 0 ? DescribeEnum(bool{}).Names : choices;
    case tkClass:
        if (const TComponent* root = FormOf(row.Object); root && IsReference(property)) {
            choices.emplace_back(); // nothing
            for (int i = 0; i < root->GetComponentCount(); ++i) {
                const TComponent* each = root->GetComponent(i);
                if (each->InheritsFrom(property.ObjectClass()) && !each->GetName().empty())
                    choices.push_back(each->GetName());
            }
            std::sort(choices.begin(), choices.end(),
                      [](const String& left, const String& right) { return CompareText(left, right) < 0; });
        }
        return choices;
    case tkMethod:
        choices = FittingHandlers(*row.Object, property);
        choices.emplace(choices.begin()); // nothing
        return choices;
    default:
        return choices;
    }
}

void WriteRow(const TInspectorRow& row, StringView text) {
    if (!row.Property)
        throw EPropertyError(row.Name + u" cannot be written");
    if (row.Element >= 0)
        WriteElement(row, text);
    else if (row.Property->Kind == tkMethod)
        WriteHandler(*row.Object, *row.Property, text);
    else if (const TInspectorRow list = ListRow(row); list.Property && list.Property->SetLines)
        list.Property->SetLines(*list.Object, SplitLines(text));
    else if (row.Property->Kind == tkClass)
        WriteReference(row, text);
    else if (row.Property->Kind == tkWChar && text.size() > 1 && text.front() == u'#')
        SetPropValue(*row.Object, *row.Property, Variant(StrToInt64(text.substr(1))));
    else
        SetPropValue(*row.Object, *row.Property, Variant(text));
}

bool RowModified(const TInspectorRow& row) {
    if (!row.Property)
        return false;
    const TPropInfo& property = *row.Property;
    if (property.Stored && !property.Stored(*row.Object))
        return false; // it follows the parent, for instance
    if (property.DefaultOrdinal) {
        const std::int64_t value = property.GetOrdinal(*row.Object);
        if (row.Element >= 0)
            return ((value ^ *property.DefaultOrdinal) >> row.Element & 1) != 0;
        return value != *property.DefaultOrdinal;
    }
    return (property.Kind == tkString || property.Kind == tkMethod) && !RowText(row).empty();
}

std::optional<TColor> RowColor(const TInspectorRow& row) {
    if (!row.Property || !HoldsColor(*row.Property))
        return std::nullopt;
    return static_cast<TColor>(row.Property->GetOrdinal(*row.Object));
}

String ProposedText(const TInspectorRow& row) {
    String text = RowText(row);
    if (text.empty() && row.Property && row.Property->Kind == tkMethod && TakesNewHandlers(*row.Object))
        return UsualHandler(*row.Object, *row.Property);
    return text;
}

String NextChoice(const TInspectorRow& row) {
    const std::vector<String> choices = RowChoices(row);
    if (choices.empty() || RowEditor(row) == TRowEditor::None)
        return {};
    const auto found = std::find(choices.begin(), choices.end(), RowText(row));
    return found == choices.end() || found + 1 == choices.end() ? choices.front() : *(found + 1);
}

std::optional<TInspectorRow> FindRow(TPersistent& object, StringView path) {
    const std::size_t dot = path.find(u'.');
    const StringView name = path.substr(0, dot);
    const TPropInfo* property = object.ClassInfo().FindProperty(name);
    if (!property)
        return std::nullopt;
    TInspectorRow row;
    row.Name = property->Name;
    row.Path = path;
    row.Object = &object;
    row.Property = property;
    if (dot == StringView::npos)
        return row;
    const StringView rest = path.substr(dot + 1);
    if (property->Kind == tkSet) {
        const auto element = property->Enum->Find(rest);
        if (!element)
            return std::nullopt;
        row.Element = static_cast<int>(*element);
        return row;
    }
    TPersistent* inner = property->Kind == tkClass ? property->GetInstance(object) : nullptr;
    return inner ? FindRow(*inner, rest) : std::nullopt;
}

String CountText(std::size_t count, StringView what) {
    return IntToStr(count) + u" " + String(what) + (count == 1 ? u"" : u"s");
}

String EventsPath(StringView path) {
    const std::size_t dot = path.rfind(u'.');
    return String(path.substr(0, dot == StringView::npos ? 0 : dot + 1)) + u"(" + EventsHeading + u")";
}

void TInspectorTree::SetRoot(TPersistent* root) {
    FRoot = root;
    Rebuild();
}

bool TInspectorTree::Rebuild() {
    std::vector<TInspectorRow> before;
    before.swap(FRows);
    if (FRoot)
        AddObject(*FRoot, {}, 0);
    return !std::equal(before.begin(), before.end(), FRows.begin(), FRows.end(),
                       [](const TInspectorRow& left, const TInspectorRow& right) {
                           return left.Object == right.Object && left.Property == right.Property &&
                                  left.Path == right.Path && left.Expanded == right.Expanded &&
                                  left.Expandable == right.Expandable;
                       });
}

void TInspectorTree::AddObject(TPersistent& object, const String& prefix, int level) {
    std::vector<const TPropInfo*> properties;
    std::vector<const TPropInfo*> events;
    for (const TPropInfo& property : object.ClassInfo().Properties())
        (property.Kind == tkMethod ? events : properties).push_back(&property);
    const auto byName = [](const TPropInfo* left, const TPropInfo* right) {
        return CompareText(left->Name, right->Name) < 0;
    };
    std::sort(properties.begin(), properties.end(), byName);
    std::sort(events.begin(), events.end(), byName);
    for (const TPropInfo* property : properties)
        AddProperty(object, *property, prefix, level);
    if (events.empty())
        return;
    TInspectorRow heading;
    heading.Name = EventsHeading;
    heading.Path = EventsPath(prefix);
    heading.Level = level;
    heading.Expandable = true;
    heading.Expanded = FOpen.count(heading.Path) != 0;
    FRows.push_back(heading);
    if (!heading.Expanded)
        return;
    for (const TPropInfo* event : events)
        AddProperty(object, *event, prefix, level + 1);
}

void TInspectorTree::AddProperty(TPersistent& object, const TPropInfo& property, const String& prefix, int level) {
    TInspectorRow row;
    row.Name = property.Name;
    row.Path = prefix + property.Name;
    row.Level = level;
    row.Object = &object;
    row.Property = &property;
    TPersistent* inner = SubObject(object, property);
    const bool hasParts = inner && !inner->ClassInfo().Properties().empty() && !ListRow(row).Property;
    row.Expandable = property.Kind == tkSet || hasParts;
    row.Expanded = row.Expandable && FOpen.count(row.Path) != 0;
    FRows.push_back(row);
    if (!row.Expanded)
        return;
    if (inner)
        AddObject(*inner, row.Path + u".", level + 1);
    else
        AddElements(row);
}

void TInspectorTree::AddElements(const TInspectorRow& set) {
    const auto& names = set.Property->Enum->Names;
    for (std::size_t i = 0; i < names.size(); ++i) {
        TInspectorRow row = set;
        row.Name = names[i];
        row.Path = set.Path + u"." + names[i];
        row.Level = set.Level + 1;
        row.Expandable = false;
        row.Expanded = false;
        row.Element = static_cast<int>(i);
        FRows.push_back(row);
    }
}

bool TInspectorTree::SetExpanded(std::size_t row, bool expanded) {
    if (row >= FRows.size() || !FRows[row].Expandable || FRows[row].Expanded == expanded)
        return false;
    return Toggle(row);
}

bool TInspectorTree::Toggle(std::size_t row) {
    if (row >= FRows.size() || !FRows[row].Expandable)
        return false;
    const String path = FRows[row].Path;
    if (!FOpen.erase(path))
        FOpen.insert(path);
    Rebuild();
    return true;
}

std::optional<std::size_t> TInspectorTree::IndexOf(StringView path) const {
    for (std::size_t i = 0; i < FRows.size(); ++i) {
        if (TNameEqual()(FRows[i].Path, path))
            return i;
    }
    return std::nullopt;
}

} // namespace gallery
