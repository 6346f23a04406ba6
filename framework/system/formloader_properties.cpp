// How the loader sets properties: paths through sub-objects, collections, events, references between components.

#include "framework/system/collections.h"
#include "framework/system/formloader_core.h"

#include <algorithm>

namespace framework {

namespace {

/// The first name of a path, which is cut off.
StringView TakeName(StringView& path) {
    const std::size_t dot = std::min(path.find(u'.'), path.size());
    const StringView name = path.substr(0, dot);
    path.remove_prefix(std::min(dot + 1, path.size()));
    return name;
}

[[noreturn]] void Refuse(String problem) {
    throw EPropertyError(std::move(problem));
}

} // namespace

void TFormLoader::ReadProperty(const TFormProperty& property) {
    At({property.Line(), property.Column()}, property.Name());
    WithPlace([&] {
        const TDestination destination = FindDestination(*FFrames.back().Target, property);
        if (!destination.Property)
            return;
        FTargetClass = &destination.Object->ClassInfo();
        FTargetProperty = destination.Property;
        if (destination.Property->Kind == tkClass)
            ReadObjectProperty(destination, property);
        else if (destination.Property->Kind == tkMethod)
            ReadEvent(destination, property.Value());
        else
            ReadFormValue(*destination.Object, *destination.Property, property.Value(), FPlace);
    });
}

/// Follows a path such as Font.Name; every name but the last is that of an object.
TFormLoader::TDestination TFormLoader::FindDestination(TPersistent& start, const TFormProperty& property) {
    TDestination place{&start};
    for (StringView path = property.Name(); !path.empty();) {
        if (place.Property) {
            if (place.Property->Kind != tkClass)
                Refuse(place.Property->Name + u" is no object");
            TPersistent* next = place.Property->GetInstance(*place.Object);
            if (!next)
                Refuse(u"there is no object " + place.Property->Name);
            place.Object = next;
        }
        const StringView name = TakeName(path);
        place.Property = place.Object->ClassInfo().FindProperty(name);
        if (place.Property)
            continue;
        const String problem = u"a " + place.Object->ClassName() + u" has no published property " + String(name);
        if (!FOptions.SkipUnknownProperties)
            Refuse(problem);
        Skip(problem, place.Object->ClassName());
        break;
    }
    return place;
}

void TFormLoader::ReadObjectProperty(const TDestination& destination, const TFormProperty& property) {
    TPersistent& object = *destination.Object;
    const TPropInfo& info = *destination.Property;
    switch (property.Value().Kind()) {
    case TFormValueKind::Collection: {
        auto* collection = As<TCollection>(info.GetInstance(object));
        if (!collection)
            Refuse(u"the property is no collection");
        OpenCollection(*collection, property);
        break;
    }
    case TFormValueKind::Identifier:
        if (info.ReadOnly())
            Refuse(u"the property is read-only");
        FReferences.push_back(
            {FFrames.back().Life, FFrames.back().Target, property, FFrames.back().Scope, ObjectPath()});
        break;
    case TFormValueKind::Nil:
        if (IsSubObject(object, info))
            Refuse(u"the property always has an object");
        SetObjectProp(object, info.Name, nullptr);
        break;
    default:
        Refuse(u"the name of a component is expected");
    }
}

void TFormLoader::ReadEvent(const TDestination& destination, const TFormValue& value) {
    const String& event = destination.Property->Name;
    if (value.Kind() == TFormValueKind::Nil) {
        SetMethodProp(*destination.Object, event, nullptr, {});
        return;
    }
    if (value.Kind() != TFormValueKind::Identifier)
        Refuse(u"the name of a method is expected");
    const TLoadedComponent& scope = *FFrames.back().Scope;
    const StringView path = value.Text();
    const std::size_t dot = path.rfind(u'.');
    if (dot != StringView::npos) {
        TComponent* instance = FindNamed(path.substr(0, dot), scope);
        if (!instance)
            Refuse(u"there is no component " + String(path.substr(0, dot)));
        SetMethodProp(*destination.Object, event, instance, path.substr(dot + 1));
        return;
    }
    // Parts of an inline frame call methods of the form, and those which the frame gave them itself.
    TComponent* instance = FRoot->Component;
    if (!instance->ClassInfo().FindMethod(path) && scope.Component->ClassInfo().FindMethod(path))
        instance = scope.Component;
    SetMethodProp(*destination.Object, event, instance, path);
}

// References between components

void TFormLoader::ResolveReferences() {
    for (const TReference& reference : FReferences) {
        if (!reference.Life.Lasts() || !FRoot->Alive)
            continue;
        At({reference.Property.Line(), reference.Property.Column()}, reference.Property.Name(), reference.ObjectPath);
        WithPlace([&] { Resolve(reference); });
    }
}

void TFormLoader::Resolve(const TReference& reference) {
    const TDestination destination = FindDestination(*reference.Target, reference.Property);
    FTargetClass = &destination.Object->ClassInfo();
    FTargetProperty = destination.Property;
    const StringView path = reference.Property.Value().Text();
    TComponent* component = FindNamed(path, *reference.Scope);
    if (!component) {
        const String problem = u"there is no component " + String(path);
        StringView rest = path;
        if (!FSkippedNames.contains(TakeName(rest)))
            Refuse(problem);
        Skip(problem, destination.Object->ClassName());
        return;
    }
    SetObjectProp(*destination.Object, destination.Property->Name, component);
}

/// Finds the component that a form calls `path`: among those of the inline frame and of the root, the root itself, or
/// by way of another root.
TComponent* TFormLoader::FindNamed(StringView path, const TLoadedComponent& scope) const {
    const TComponent& root = *FRoot->Component;
    const StringView first = TakeName(path);
    TComponent* found = scope.Alive ? scope.Component->FindComponent(first) : nullptr;
    if (!found)
        found = root.FindComponent(first);
    if (!found && (TNameEqual()(first, root.GetName()) || TNameEqual()(first, FDocument.Root().Name())))
        found = FRoot->Component;
    if (!found && FOptions.FindRoot)
        found = FOptions.FindRoot(first);
    if (!found && root.GetOwnerComponent())
        found = root.GetOwnerComponent()->FindComponent(first);
    while (found && !path.empty())
        found = found->FindComponent(TakeName(path));
    return found;
}

} // namespace framework
