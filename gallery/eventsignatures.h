#pragma once

// What the event log knows of events by their signature: how to listen to one, and how a line shows its arguments. The
// signatures of the framework's controls are known; a unit contributes those of others:
//
//     const TEventSignature watched(&SignatureOf<ZOR::TZORFilterEvent>);

#include "framework/system/numbers.h"
#include "framework/windows/messages.h"
#include "gallery/contributions.h"
#include "gallery/eventhooks.h"

#include <typeindex>

namespace gallery {

struct TSignature {
    std::type_index Type;
    /// Null for events that nobody may listen to: it changes what a control does when they are assigned.
    std::unique_ptr<TEventHook> (*MakeHook)(TEventHooks&, TComponent&, const TPropInfo&);
    /// The invoker of a method that does nothing.
    void (*Ignore)();
};

using TEventSignature = TContribution<TSignature (*)()>;

/// Null for a signature that nobody has contributed.
const TSignature* FindSignature(std::type_index type);

// How a line shows arguments

String KeyText(WORD key);
String CharacterText(char16_t character);
String ButtonText(TMouseButton button);
String ShiftText(TShiftState shift);

/// Stands in for an argument of exactly this type, where others would be converted.
template <class TValue>
struct TExactly {
    template <class TOther>
    requires std::is_same_v<TOther, TValue>
    operator TOther() const;
};

/// One argument. Empty for the sender, whom the line names already, for other objects, and for what the handler is
/// asked to fill in.
template <class TArgument>
String ArgumentText(const std::remove_cvref_t<TArgument>& value) {
    using TValue = std::remove_cvref_t<TArgument>;
    using TReferred = std::remove_reference_t<TArgument>;
    constexpr bool isAnswer = std::is_lvalue_reference_v<TArgument> && !std::is_const_v<TReferred>;
    if constexpr (std::is_same_v<TValue, WORD>)
        return KeyText(value);
    else if constexpr (std::is_same_v<TValue, char16_t>)
        return CharacterText(value);
    else if constexpr (isAnswer || std::is_pointer_v<TValue>)
        return {};
    else if constexpr (std::is_same_v<TValue, TMouseButton>)
        return ButtonText(value);
    else if constexpr (std::is_same_v<TValue, TShiftState>)
        return ShiftText(value);
    else if constexpr (std::is_same_v<TValue, TPoint>)
        return IntToStr(value.X) + u"," + IntToStr(value.Y);
    else if constexpr (requires { DescribeEnum(TExactly<TValue>()); })
        return DescribeEnum(value).Names[static_cast<std::size_t>(value)];
    else if constexpr (std::is_convertible_v<TValue, StringView>)
        return u"'" + String(value) + u"'";
    else if constexpr (std::is_floating_point_v<TValue>)
        return FloatToStr(value);
    else if constexpr (std::is_integral_v<TValue> || std::is_enum_v<TValue>)
        return IntToStr(static_cast<std::int64_t>(value));
    else
        return {};
}

/// The arguments of one call, joined by blanks; the numbers of a place by a comma.
class TArgumentList {
public:
    template <class TArgument>
    void Add(const std::remove_cvref_t<TArgument>& value) {
        Add(ArgumentText<TArgument>(value), std::is_same_v<std::remove_cvref_t<TArgument>, int>);
    }
    const String& Text() const { return FText; }

private:
    void Add(const String& text, bool isNumber);

    String FText;
    bool FEndsInNumber = false;
};

// How to listen

template <class TFunction>
class THookOf;

template <class... TArguments>
class THookOf<std::function<void(TArguments...)>> final : public TEventHook {
    using TFunction = std::function<void(TArguments...)>;

public:
    THookOf(TEventHooks& hooks, TComponent& component, const TPropInfo& event) : TEventHook(hooks, component, event) {
        FMethod.Signature = typeid(TFunction);
        FMethod.Invoker = reinterpret_cast<void (*)()>(&Invoke);
    }

    void Install() override {
        const TMethodInfo* method = FEvent.GetMethod(FComponent);
        FMethod.Name = method ? method->Name : String();
        FPrevious = EventHandler<TFunction>(FComponent, FEvent);
        FEvent.SetMethod(FComponent, this, &FMethod);
    }
    void Remove() override {
        if (InPlace())
            EventHandler<TFunction>(FComponent, FEvent) = FPrevious;
    }
    static void Ignore(TObject*, TArguments...) {}

private:
    static void Invoke(TObject* instance, TArguments... arguments) {
        auto* hook = static_cast<THookOf*>(instance);
        TArgumentList list;
        (list.Add<TArguments>(arguments), ...);
        hook->FHooks.Report(hook->FComponent, hook->FEvent.Name, list.Text());
        // The handler may assign the event anew, or end this hook.
        const TFunction previous = hook->FPrevious;
        if (previous)
            previous(std::forward<TArguments>(arguments)...);
    }

    TFunction FPrevious;
};

/// For events such as `std::function<void(TObject* Sender, int Index)>`.
template <class TFunction>
TSignature SignatureOf() {
    return {typeid(TFunction),
            [](TEventHooks& hooks, TComponent& component, const TPropInfo& event) -> std::unique_ptr<TEventHook> {
                return std::make_unique<THookOf<TFunction>>(hooks, component, event);
            },
            reinterpret_cast<void (*)()>(&THookOf<TFunction>::Ignore)};
}

/// For events that a control asks in place of doing a thing itself, such as painting an item.
template <class TFunction>
TSignature UnwatchedSignatureOf() {
    TSignature signature = SignatureOf<TFunction>();
    signature.MakeHook = nullptr;
    return signature;
}

} // namespace gallery
