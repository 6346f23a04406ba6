#pragma once

// Published properties. Each class describes itself once, in published order:
//
//     const TClassInfo& TEdit::StaticClass() {
//         static const TClassInfo info = DescribeClass<TEdit>(u"TEdit", TCustomEdit::StaticClass(),
//             {Property<&TEdit::GetMaxLength, &TEdit::SetMaxLength>(u"MaxLength", 0),
//              Property<&TEdit::FHideSelection, &TEdit::SetHideSelection>(u"HideSelection", true),
//              Event<&TEdit::OnChange>(u"OnChange")});
//         return info;
//     }
//
// From this one table come access by name (GetPropValue, ...), text forms and the inspector. A form class goes on with
// the methods that its text form names in events, and the fields that hold its components:
//
//             {}, {Method<&TCustomerForm::SaveClick>(u"SaveClick")}, {Field<&TCustomerForm::NameEdit>(u"NameEdit")});

#include "framework/system/names.h"
#include "framework/system/objects.h"
#include "framework/system/sets.h"
#include "framework/system/variants.h"

#include <optional>
#include <span>
#include <type_traits>
#include <typeindex>
#include <utility>
#include <vector>

namespace framework {

class TComponent;
struct TMethodInfo;

enum TTypeKind {
    tkInteger,     ///< a signed integer of up to 64 bits, perhaps with identifiers (colours, cursors)
    tkEnumeration, ///< enumerators by name; bool is one with the names False and True
    tkSet,         ///< a Set over an enumeration
    tkFloat,
    tkString,
    tkWChar, ///< a char16_t, in a text form a text of one unit such as '*' or #0
    tkVariant,
    tkClass,   ///< a sub-object (its own published properties follow) or a reference to another component
    tkMethod,  ///< an event: a std::function
    tkStrings, ///< a list of lines, the content of a TStrings
    tkBinary,  ///< a block of bytes, such as a picture
};

/// The names of an enumeration, by ordinal from 0.
struct TEnumInfo {
    String TypeName;
    std::vector<String> Names;

    /// The ordinal of a name, letter case aside; nothing when the enumeration has no such name.
    std::optional<std::int64_t> Find(StringView name) const;
};

/// `DescribeEnum(TMyEnum)` beside an enumeration makes it publishable: it returns the names, once.
const TEnumInfo& DescribeEnum(bool);
const TEnumInfo& DescribeEnum(TAlignment);

/// Names for certain integers, such as clRed for colours. Unnamed integers are written as numbers.
struct TIdentifiers {
    /// Nothing when the value has no name.
    std::optional<String> (*ToName)(std::int64_t value);
    std::optional<std::int64_t> (*FromName)(StringView name);
    /// All names, in the order in which a person is offered them.
    std::vector<String> (*Names)();
};

/// What the number of a tkFloat property means to a person.
enum class TFloatKind { Number, Date, Time, DateTime };

/// One row of a class's published table.
struct TPropInfo {
    String Name;
    TTypeKind Kind = tkInteger;

    const TEnumInfo* Enum = nullptr;              ///< tkEnumeration and tkSet
    const TIdentifiers* Names = nullptr;          ///< tkInteger with named values
    TFloatKind FloatKind = TFloatKind::Number;    ///< tkFloat
    std::int64_t MinValue = INT64_MIN;            ///< least integer that the accessor's type can hold
    std::int64_t MaxValue = INT64_MAX;            ///< greatest such integer
    const TClassInfo& (*ObjectClass)() = nullptr; ///< tkClass: the declared class

    // Accessors: those of the row's kind are set, the others are null. A missing setter means read-only.
    std::int64_t (*GetOrdinal)(const TPersistent&) = nullptr; ///< tkInteger, tkEnumeration, tkSet (its bits), tkWChar
    void (*SetOrdinal)(TPersistent&, std::int64_t) = nullptr;
    Variant (*GetValue)(const TPersistent&) = nullptr; ///< tkFloat, tkString, tkVariant
    void (*SetValue)(TPersistent&, const Variant&) = nullptr;
    TPersistent* (*GetInstance)(const TPersistent&) = nullptr; ///< tkClass
    void (*SetInstance)(TPersistent&, TPersistent*) = nullptr;
    std::vector<String> (*GetLines)(const TPersistent&) = nullptr; ///< tkStrings
    void (*SetLines)(TPersistent&, const std::vector<String>&) = nullptr;
    std::vector<std::uint8_t> (*GetBytes)(const TPersistent&) = nullptr; ///< tkBinary
    void (*SetBytes)(TPersistent&, std::span<const std::uint8_t>) = nullptr;

    // Events.
    std::type_index Signature = typeid(void); ///< tkMethod: the std::function's type
    bool (*IsAssigned)(const TPersistent&) = nullptr;
    const TMethodInfo* (*GetMethod)(const TPersistent&) = nullptr; ///< null unless a published method is assigned
    TObject* (*GetMethodInstance)(const TPersistent&) = nullptr;   ///< the object whose method that is
    void (*SetMethod)(TPersistent&, TObject*, const TMethodInfo*) = nullptr; ///< null method: unassigned
    void* (*GetHandler)(TPersistent&) = nullptr; ///< the std::function itself, see EventHandler

    std::optional<std::int64_t> DefaultOrdinal;   ///< no value: always written
    bool (*Stored)(const TPersistent&) = nullptr; ///< a rule that must agree before the value is written
    bool IsStored = true;                         ///< false: readable in a text form, never written

    /// The row again with a rule that decides whether the value is written. A default stays a default: its value is
    /// left out whatever the rule says. Without one the rule alone decides, for empty texts too.
    template <auto Rule>
    TPropInfo StoredWhen() const;
    /// The row again, accepted in text forms but never written.
    TPropInfo NotStored() const;
    /// The row again with names for its integers.
    TPropInfo Named(const TIdentifiers& names) const;
    /// The row of a TDateTime, which is a double to the compiler: texts are taken as dates too, the empty one as 0.
    /// Text forms keep the number.
    TPropInfo Dated(TFloatKind kind) const;
    bool ReadOnly() const;
};

/// A method of a class that text forms may name in an event.
struct TMethodInfo {
    String Name;
    std::type_index Signature = typeid(void); ///< the type of std::function it fits
    void (*Invoker)() = nullptr;              ///< really R (*)(TObject*, Arguments...)
};

/// A member of a class that points to the owned component of its name, and is null while there is none of the member's
/// class.
struct TFieldInfo {
    String Name;
    const TClassInfo& (*ObjectClass)() = nullptr;
    TComponent* (*Get)(const TComponent& owner) = nullptr;
    void (*Set)(TComponent& owner, TComponent* value) = nullptr; ///< null, or of the member's class
};

/// Rows of one kind, the ancestors' first. A row that repeats an inherited name replaces it in its old place.
template <class TRow>
class TNamedRows {
public:
    void Add(std::vector<TRow> rows) {
        for (TRow& row : rows) {
            const auto [place, added] = FIndex.try_emplace(row.Name, FRows.size());
            if (added)
                FRows.push_back(std::move(row));
            else
                FRows[place->second] = std::move(row);
        }
    }
    const TRow* Find(StringView name) const {
        const auto found = FIndex.find(name);
        return found == FIndex.end() ? nullptr : &FRows[found->second];
    }
    std::span<const TRow> Rows() const { return FRows; }

private:
    std::vector<TRow> FRows;
    TNameMap<std::size_t> FIndex;
};

/// What describes a class at run time.
class TClassInfo {
public:
    using TFactory = TComponent* (*)(TComponent* owner);

    TClassInfo(StringView name, const TClassInfo* parent, std::vector<TPropInfo> ownProperties,
               std::vector<TMethodInfo> ownMethods, std::vector<TFieldInfo> ownFields, TFactory factory);

    const String& Name() const { return FName; }
    const TClassInfo* Parent() const { return FParent; }
    bool InheritsFrom(const TClassInfo& ancestor) const;

    // What is published, inherited rows included, in published order; see TNamedRows. The Find functions take a name in
    // any letter case and answer null when there is none.
    std::span<const TPropInfo> Properties() const { return FProperties.Rows(); }
    const TPropInfo* FindProperty(StringView name) const { return FProperties.Find(name); }
    std::span<const TMethodInfo> Methods() const { return FMethods.Rows(); }
    const TMethodInfo* FindMethod(StringView name) const { return FMethods.Find(name); }
    std::span<const TFieldInfo> Fields() const { return FFields.Rows(); }
    const TFieldInfo* FindField(StringView name) const { return FFields.Find(name); }

    /// True when the class is a component that can be created with an owner alone.
    bool CanCreate() const { return FFactory != nullptr; }
    /// A new component of this class; EComponentError when it cannot be created (an abstract class).
    TComponent* Create(TComponent* owner) const;

private:
    String FName;
    const TClassInfo* FParent;
    TNamedRows<TPropInfo> FProperties;
    TNamedRows<TMethodInfo> FMethods;
    TNamedRows<TFieldInfo> FFields;
    TFactory FFactory;
};

/// `object` as a T when its class is or descends from T, else null. Works across shared libraries, where class
/// descriptions are single but compiler type information may not be.
template <class T>
T* As(TObject* object) {
    return object && object->InheritsFrom(T::StaticClass()) ? static_cast<T*>(object) : nullptr;
}
template <class T>
const T* As(const TObject* object) {
    return object && object->InheritsFrom(T::StaticClass()) ? static_cast<const T*>(object) : nullptr;
}

// Access by name. All raise EPropertyError when the object has no such published property, when the property is of
// another kind, or when a value does not fit; the message names class and property.

/// True when the object publishes a property of that name, letter case aside.
bool IsPublishedProp(const TPersistent& object, StringView name);
const TPropInfo& GetPropInfo(const TPersistent& object, StringView name);

/// The value of a property that is not an object, an event or a block of bytes. With `preferStrings` enumerations
/// come as their names and sets as "[a,b]", otherwise as ordinals and bits.
Variant GetPropValue(const TPersistent& object, StringView name, bool preferStrings = true);
Variant GetPropValue(const TPersistent& object, const TPropInfo& property, bool preferStrings = true);
/// Writes a property; enumerations take their names or ordinals, sets "[a,b]" or bits, named integers their names,
/// characters a text of one unit (an empty one means #0) or the code.
void SetPropValue(TPersistent& object, StringView name, const Variant& value);
void SetPropValue(TPersistent& object, const TPropInfo& property, const Variant& value);

std::int64_t GetOrdProp(const TPersistent& object, StringView name);
void SetOrdProp(TPersistent& object, StringView name, std::int64_t value);
TPersistent* GetObjectProp(const TPersistent& object, StringView name);
/// Sets a reference, or assigns to a sub-object, whichever the property's setter does. EPropertyError when `value` is
/// not of the declared class.
void SetObjectProp(TPersistent& object, StringView name, TPersistent* value);
/// The name of the published method assigned to an event; empty when none is.
String GetMethodProp(const TPersistent& object, StringView name);
/// Assigns the method `methodName` of `instance` to an event; an empty name clears the event.
void SetMethodProp(TPersistent& object, StringView name, TObject* instance, StringView methodName);

/// True when a tkClass property holds an object that belongs to `object` and is streamed with it; false for a
/// reference to another component.
bool IsSubObject(const TPersistent& object, const TPropInfo& property);

/// EPropertyError unless the property is an event of this signature.
void CheckSignature(const TPersistent& object, const TPropInfo& event, std::type_index signature);
/// The handler that `event` holds now, for code that knows its signature; EPropertyError when it has another.
template <class TFunction>
TFunction& EventHandler(TPersistent& object, const TPropInfo& event) {
    CheckSignature(object, event, typeid(TFunction));
    return *static_cast<TFunction*>(event.GetHandler(object));
}

/// True when a text form has to carry the property: its stored-rule says so or its value differs from the default.
/// Sub-objects count as differing; their own properties decide. What cannot be read again is never stored.
bool IsStoredProp(const TPersistent& object, const TPropInfo& property);

/// The set of a tkSet property as a person writes it, "[a,b]", and back; nothing when a name is unknown.
String SetToText(const TEnumInfo& elements, std::int64_t bits);
std::optional<std::int64_t> TextToSet(const TEnumInfo& elements, StringView text);

} // namespace framework

#include "framework/system/published_rows.h"
