#pragma once

// How rows of published tables are made from accessors: the templates behind Property, Event, Method, Field and
// DescribeClass.
// A part of published.h, which includes it at its end; nobody else does.

#include <initializer_list>
#include <limits>
#include <memory>
#include <string>

namespace framework {

class TStrings;

/// Bytes of a tkBinary property.
using TBytes = std::vector<std::uint8_t>;

/// Lines of a tkStrings property.
using TLines = std::vector<String>;

namespace rows {

// What a member pointer belongs to and which value it gives: a field, a getter, or a setter.
template <class T>
struct Member;
template <class TValue, class TOwner>
struct Member<TValue TOwner::*> {
    using Owner = TOwner;
    using Value = std::remove_cvref_t<TValue>;
};
template <class TValue, class TOwner>
struct Member<TValue (TOwner::*)() const> {
    using Owner = TOwner;
    using Value = std::remove_cvref_t<TValue>;
};
template <class TValue, class TOwner>
struct Member<TValue (TOwner::*)()> {
    using Owner = TOwner;
    using Value = std::remove_cvref_t<TValue>;
};
template <class TOwner, class TArgument>
struct Member<void (TOwner::*)(TArgument)> {
    using Owner = TOwner;
    using Value = std::remove_cvref_t<TArgument>;
};

template <class T>
struct IsSet : std::false_type {};
template <class T>
struct IsSet<Set<T>> : std::true_type {
    using Element = T;
};
template <class T>
struct IsFunction : std::false_type {};
template <class TResult, class... TArguments>
struct IsFunction<std::function<TResult(TArguments...)>> : std::true_type {};
template <class T>
struct IsOwningPointer : std::false_type {};
template <class T>
struct IsOwningPointer<std::unique_ptr<T>> : std::true_type {};

template <auto Getter>
using ValueOf = typename Member<decltype(Getter)>::Value;

template <auto Getter>
decltype(auto) Read(const TPersistent& object) {
    using Owner = typename Member<decltype(Getter)>::Owner;
    // Getters of the documented interface are not all const; reading a property changes nothing a caller can see.
    auto& owner = const_cast<Owner&>(static_cast<const Owner&>(object));
    if constexpr (std::is_member_function_pointer_v<decltype(Getter)>)
        return (owner.*Getter)();
    else
        return (owner.*Getter);
}

template <auto Setter, class TValue>
void Write(TPersistent& object, TValue&& value) {
    using Owner = typename Member<decltype(Setter)>::Owner;
    auto& owner = static_cast<Owner&>(object);
    if constexpr (std::is_member_function_pointer_v<decltype(Setter)>)
        (owner.*Setter)(std::forward<TValue>(value));
    else
        owner.*Setter = std::forward<TValue>(value);
}

inline constexpr auto None = nullptr;
template <auto Setter>
inline constexpr bool Writable = !std::is_null_pointer_v<decltype(Setter)>;

template <auto Getter, auto Setter>
void FillOrdinal(TPropInfo& row) {
    using Value = ValueOf<Getter>;
    row.GetOrdinal = [](const TPersistent& object) -> std::int64_t {
        if constexpr (IsSet<Value>::value)
            return Read<Getter>(object).Bits();
        else
            return static_cast<std::int64_t>(Read<Getter>(object));
    };
    if constexpr (Writable<Setter>) {
        row.SetOrdinal = [](TPersistent& object, std::int64_t value) {
            if constexpr (IsSet<Value>::value)
                Write<Setter>(object, Value::FromBits(static_cast<std::uint32_t>(value)));
            else
                Write<Setter>(object, static_cast<Value>(value));
        };
    }
}

template <class TValue>
TValue FromVariant(const Variant& value) {
    if constexpr (std::is_same_v<TValue, String>)
        return value.AsString();
    else if constexpr (std::is_floating_point_v<TValue>)
        return static_cast<TValue>(value.AsFloat());
    else if constexpr (std::is_same_v<TValue, Currency>)
        return value.AsCurrency();
    else
        return value;
}

template <auto Getter, auto Setter>
void FillValue(TPropInfo& row) {
    using Value = ValueOf<Getter>;
    row.GetValue = [](const TPersistent& object) -> Variant { return Variant(Read<Getter>(object)); };
    if constexpr (Writable<Setter>)
        row.SetValue = [](TPersistent& object, const Variant& value) {
            Write<Setter>(object, FromVariant<Value>(value));
        };
}

template <auto Getter, auto Setter>
void FillInstance(TPropInfo& row) {
    using Value = ValueOf<Getter>;
    if constexpr (IsOwningPointer<Value>::value) {
        using Class = typename Value::element_type;
        row.ObjectClass = &Class::StaticClass;
        row.GetInstance = [](const TPersistent& object) -> TPersistent* { return Read<Getter>(object).get(); };
        if constexpr (Writable<Setter>)
            row.SetInstance = [](TPersistent& object, TPersistent* value) {
                Write<Setter>(object, static_cast<Class*>(value));
            };
    } else {
        using Class = std::remove_const_t<std::remove_pointer_t<Value>>;
        row.ObjectClass = &Class::StaticClass;
        row.GetInstance = [](const TPersistent& object) -> TPersistent* { return Read<Getter>(object); };
        if constexpr (Writable<Setter>)
            row.SetInstance = [](TPersistent& object, TPersistent* value) {
                Write<Setter>(object, static_cast<Class*>(value));
            };
    }
}

/// An event handler that is a published method of some object: keeps the method's name so that a text form can be
/// written back.
template <class TSignature>
struct BoundMethod;
template <class TResult, class... TArguments>
struct BoundMethod<TResult(TArguments...)> {
    TObject* Instance;
    const TMethodInfo* Method;

    TResult operator()(TArguments... arguments) const {
        using Invoker = TResult (*)(TObject*, TArguments...);
        return reinterpret_cast<Invoker>(Method->Invoker)(Instance, std::forward<TArguments>(arguments)...);
    }
};

template <class T>
struct SignatureOf;
template <class TSignature>
struct SignatureOf<std::function<TSignature>> {
    using Type = TSignature;
};

template <auto Field>
TPropInfo MakeEvent(StringView name) {
    using Function = ValueOf<Field>;
    using Bound = BoundMethod<typename SignatureOf<Function>::Type>;
    TPropInfo row;
    row.Name = name;
    row.Kind = tkMethod;
    row.Signature = typeid(Function);
    row.IsAssigned = [](const TPersistent& object) { return static_cast<bool>(Read<Field>(object)); };
    row.GetMethod = [](const TPersistent& object) -> const TMethodInfo* {
        const Function& handler = Read<Field>(object);
        const Bound* bound = handler.template target<Bound>();
        return bound ? bound->Method : nullptr;
    };
    row.GetMethodInstance = [](const TPersistent& object) -> TObject* {
        const Function& handler = Read<Field>(object);
        const Bound* bound = handler.template target<Bound>();
        return bound ? bound->Instance : nullptr;
    };
    row.SetMethod = [](TPersistent& object, TObject* instance, const TMethodInfo* method) {
        Write<Field>(object, method ? Function(Bound{instance, method}) : Function());
    };
    row.GetHandler = [](TPersistent& object) -> void* {
        using Owner = typename Member<decltype(Field)>::Owner;
        return &(static_cast<Owner&>(object).*Field);
    };
    return row;
}

template <class T>
struct MethodTraits;
template <class TResult, class TOwner, class... TArguments>
struct MethodTraits<TResult (TOwner::*)(TArguments...)> {
    using Function = std::function<TResult(TArguments...)>;
    template <auto Pointer>
    static TResult Invoke(TObject* instance, TArguments... arguments) {
        return (static_cast<TOwner*>(instance)->*Pointer)(std::forward<TArguments>(arguments)...);
    }
};

} // namespace rows

/// A row for a value or a sub-object, read and written by a field pointer or by accessors. No default: always
/// written, except that empty texts, zero floats and empty lists are not.
template <auto Getter, auto Setter = rows::None>
TPropInfo Property(StringView name) {
    using Value = rows::ValueOf<Getter>;
    TPropInfo row;
    row.Name = name;
    if constexpr (std::is_same_v<Value, TLines>) {
        row.Kind = tkStrings;
        row.GetLines = [](const TPersistent& object) -> TLines { return rows::Read<Getter>(object); };
        if constexpr (rows::Writable<Setter>)
            row.SetLines = [](TPersistent& object, const TLines& value) { rows::Write<Setter>(object, value); };
    } else if constexpr (std::is_same_v<Value, TBytes>) {
        row.Kind = tkBinary;
        row.GetBytes = [](const TPersistent& object) -> TBytes { return rows::Read<Getter>(object); };
        if constexpr (rows::Writable<Setter>)
            row.SetBytes = [](TPersistent& object, std::span<const std::uint8_t> value) {
                rows::Write<Setter>(object, TBytes(value.begin(), value.end()));
            };
    } else if constexpr (rows::IsSet<Value>::value) {
        row.Kind = tkSet;
        row.Enum = &DescribeEnum(typename rows::IsSet<Value>::Element{});
        rows::FillOrdinal<Getter, Setter>(row);
    } else if constexpr (std::is_enum_v<Value> || std::is_same_v<Value, bool>) {
        row.Kind = tkEnumeration;
        row.Enum = &DescribeEnum(Value{});
        rows::FillOrdinal<Getter, Setter>(row);
    } else if constexpr (std::is_same_v<Value, char16_t>) {
        row.Kind = tkWChar;
        row.MinValue = 0;
        row.MaxValue = 0xFFFF;
        rows::FillOrdinal<Getter, Setter>(row);
    } else if constexpr (std::is_integral_v<Value>) {
        static_assert(sizeof(Value) < 8 || std::is_signed_v<Value>, "integers up to INT64_MAX can be published");
        row.Kind = tkInteger;
        row.MinValue = std::numeric_limits<Value>::min();
        row.MaxValue = static_cast<std::int64_t>(std::numeric_limits<Value>::max());
        rows::FillOrdinal<Getter, Setter>(row);
    } else if constexpr (std::is_floating_point_v<Value> || std::is_same_v<Value, Currency>) {
        row.Kind = tkFloat;
        rows::FillValue<Getter, Setter>(row);
    } else if constexpr (std::is_same_v<Value, String>) {
        row.Kind = tkString;
        rows::FillValue<Getter, Setter>(row);
    } else if constexpr (std::is_same_v<Value, Variant>) {
        row.Kind = tkVariant;
        rows::FillValue<Getter, Setter>(row);
    } else {
        static_assert(std::is_pointer_v<Value> || rows::IsOwningPointer<Value>::value, "this type cannot be published");
        row.Kind = tkClass;
        rows::FillInstance<Getter, Setter>(row);
    }
    return row;
}

/// A row for an integer, enumeration, bool, character or set with the default that is left out of text forms. Floats
/// and texts have a rule instead, see StoredWhen.
template <auto Getter, auto Setter = rows::None>
TPropInfo Property(StringView name, rows::ValueOf<Getter> defaultValue) {
    TPropInfo row = Property<Getter, Setter>(name);
    static_assert(!std::is_floating_point_v<rows::ValueOf<Getter>>, "a float has no default");
    if constexpr (rows::IsSet<rows::ValueOf<Getter>>::value)
        row.DefaultOrdinal = defaultValue.Bits();
    else
        row.DefaultOrdinal = static_cast<std::int64_t>(defaultValue);
    return row;
}

/// A row for an event field.
template <auto Field>
TPropInfo Event(StringView name) {
    return rows::MakeEvent<Field>(name);
}

/// A method that text forms may name in events.
template <auto Pointer>
TMethodInfo Method(StringView name) {
    using Traits = rows::MethodTraits<decltype(Pointer)>;
    TMethodInfo method;
    method.Name = name;
    method.Signature = typeid(typename Traits::Function);
    method.Invoker = reinterpret_cast<void (*)()>(&Traits::template Invoke<Pointer>);
    return method;
}

/// A pointer member of a form class that holds the component of this name for as long as the form owns one. Give it
/// an initialiser, `= nullptr`. A text form of the class has to have the component; see LoadTextForm.
template <auto Member>
TFieldInfo Field(StringView name) {
    using Owner = typename rows::Member<decltype(Member)>::Owner;
    using Pointer = rows::ValueOf<Member>;
    static_assert(std::is_pointer_v<Pointer>, "a field points to a component, which its owner frees");
    TFieldInfo field;
    field.Name = name;
    field.ObjectClass = &std::remove_pointer_t<Pointer>::StaticClass;
    field.Get = [](const TComponent& owner) -> TComponent* { return static_cast<const Owner&>(owner).*Member; };
    field.Set = [](TComponent& owner, TComponent* value) {
        static_cast<Owner&>(owner).*Member = static_cast<Pointer>(value);
    };
    return field;
}

template <auto Rule>
TPropInfo TPropInfo::StoredWhen() const {
    TPropInfo row = *this;
    row.Stored = [](const TPersistent& object) -> bool { return rows::Read<Rule>(object); };
    return row;
}

/// The rows of one class in published order: single ones, and groups that several classes share.
class TPropRows {
public:
    TPropRows() = default;
    TPropRows(TPropInfo row) { FRows.push_back(std::move(row)); }
    TPropRows(std::vector<TPropInfo> rows) : FRows(std::move(rows)) {}
    TPropRows(std::initializer_list<TPropRows> parts) {
        for (const TPropRows& part : parts)
            FRows.insert(FRows.end(), part.FRows.begin(), part.FRows.end());
    }

    std::vector<TPropInfo> Take() && { return std::move(FRows); }

private:
    std::vector<TPropInfo> FRows;
};

/// The description of class T; components that can be built from an owner alone can then be created by name.
template <class T>
TClassInfo DescribeClass(StringView name, const TClassInfo& parent, TPropRows properties = {},
                         std::vector<TMethodInfo> methods = {}, std::vector<TFieldInfo> fields = {}) {
    TClassInfo::TFactory factory = nullptr;
    if constexpr (!std::is_abstract_v<T> && std::is_convertible_v<T*, TComponent*> &&
                  std::is_constructible_v<T, TComponent*>)
        factory = [](TComponent* owner) -> TComponent* { return new T(owner); };
    return TClassInfo(name, &parent, std::move(properties).Take(), std::move(methods), std::move(fields), factory);
}

} // namespace framework
