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

/// Designers call a form that one of its components refers to its Owner.
bool MeansOwner(StringView name) {
    return TNameEqual()(name, u"Owner");
}

TComponent* FindPart(TComponent* start, StringView path) {
    while (start && !path.empty()) {
        const StringView name = TakeName(path);
        TComponent* part = start->FindComponent(name);
        start = part || !MeansOwner(name) ? part : start;
    }
    return start;
}

} // namespace

void TFormLoader::ReadProperty(const TFormProperty& property) {
    At({property.Line(), property.Column()}, property.Name());
    WithPlace([&] {
        const TDestination destination = FindKnown(*FFrames.back().Target, property.Name());
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
TFormLoader::TDestination TFormLoader::FindDestination(TPersistent& start, StringView path) {
    TDestination place{&start};
    while (!path.empty()) {
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
        if (!place.Property) {
            place.Unknown = name;
            break;
        }
    }
    return place;
}

/// The same; an unknown name is refused or skipped.
TFormLoader::TDestination TFormLoader::FindKnown(TPersistent& start, StringView path) {
    const TDestination place = FindDestination(start, path);
    if (place.Property)
        return place;
    const String problem = u"a " + place.Object->ClassName() + u" has no published property " + String(place.Unknown);
    if (!FOptions.SkipUnknownProperties)
        Refuse(problem);
    Skip(problem, place.Object->ClassName());
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
        FReferences.push_back({{FFrames.back().Life, FFrames.back().Target, String(property.Name()),
                                String(property.Value().Text()), FPlace, ObjectPath()},
                               FFrames.back().Scope});
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
    for (const TScopedReference& each : FReferences) {
        if (!each.Reference.Life.Lasts() || !FRoot->Alive)
            continue;
        At(each.Reference.Place, each.Reference.Property, each.Reference.ObjectPath);
        WithPlace([&] { Resolve(each); });
    }
}

void TFormLoader::Resolve(const TScopedReference& scoped) {
    const TReference& reference = scoped.Reference;
    TComponent* component = FindNamed(reference.Wanted, *scoped.Scope);
    if (component) {
        SetReference(reference, component);
        return;
    }
    StringView rest = reference.Wanted;
    const StringView first = TakeName(rest);
    const String problem = u"there is no component " + reference.Wanted;
    const bool waits = !rest.empty() && !FindFirst(first, *scoped.Scope);
    if (FSkippedNames.contains(first) || (FOptions.SkipUnknownReferences && !waits))
        Skip(problem, FindDestination(*reference.Target, reference.Property).Object->ClassName());
    else if (waits)
        TWaitingReferences::Current().Add(reference, *FRoot->Component, FFileName, FSession->Number());
    else
        Refuse(problem);
}

void TFormLoader::SetReference(const TReference& reference, TComponent* component) {
    const TDestination destination = FindDestination(*reference.Target, reference.Property);
    if (!destination.Property)
        Refuse(u"there is no property " + String(destination.Unknown) + u" any more");
    FTargetClass = &destination.Object->ClassInfo();
    FTargetProperty = destination.Property;
    SetObjectProp(*destination.Object, destination.Property->Name, component);
}

/// Finds what a form calls `name`: a component of the inline frame or of the root, the root itself, or another root.
TComponent* TFormLoader::FindFirst(StringView name, const TLoadedComponent& scope) const {
    const TComponent& root = *FRoot->Component;
    TComponent* found = scope.Alive ? scope.Component->FindComponent(name) : nullptr;
    if (!found)
        found = root.FindComponent(name);
    if (!found &&
        (MeansOwner(name) || TNameEqual()(name, root.GetName()) || TNameEqual()(name, FDocument.Root().Name())))
        found = FRoot->Component;
    if (!found && FOptions.FindRoot)
        found = FOptions.FindRoot(name);
    if (!found && root.GetOwnerComponent())
        found = root.GetOwnerComponent()->FindComponent(name);
    return found;
}

TComponent* TFormLoader::FindNamed(StringView path, const TLoadedComponent& scope) const {
    const StringView first = TakeName(path);
    return FindPart(FindFirst(first, scope), path);
}

// References to forms that come later

void TFormLoader::ResolveWaiting(const TFindWaited& find) {
    TWaitingReferences::Current().ForEach([&](TWaitingReference& each) {
        StringView path = each.Reference.Wanted;
        TComponent* root = find(each, TakeName(path));
        if (!root || !each.Lasts())
            return;
        each.Settled = true;
        FFileName = each.FileName;
        At(each.Reference.Place, each.Reference.Property, each.Reference.ObjectPath);
        WithPlace([&] {
            TComponent* component = FindPart(root, path);
            if (!component)
                Refuse(u"there is no component " + each.Reference.Wanted);
            SetReference(each.Reference, component);
        });
    });
}

std::vector<TPendingReference> PendingReferences() {
    std::vector<TPendingReference> result;
    TWaitingReferences::Current().ForEach([&](const TWaitingReference& each) {
        const TReference& reference = each.Reference;
        result.push_back({each.FileName, reference.ObjectPath, reference.Property, reference.Wanted,
                          reference.Place.Line, reference.Place.Column});
    });
    return result;
}

void ResolvePendingReferences(const TFindRoot& findRoot) {
    const TFormDocument none;
    const TLoadOptions options;
    TFormLoader(none, options).ResolveWaiting([&](const TWaitingReference& each, StringView name) {
        TComponent* root = findRoot ? findRoot(name) : nullptr;
        const TComponent* owner = each.Root.Alive ? each.Root.Component->GetOwnerComponent() : nullptr;
        return root || !owner ? root : owner->FindComponent(name);
    });
}

} // namespace framework
