#include "gallery/handlers_rules.h"

#include "framework/system/numbers.h"
#include "framework/system/strings.h"

#include <algorithm>

namespace gallery {

namespace {

void CollectHandlers(const TComponent& component, std::vector<THandler>& handlers) {
    for (const TPropInfo& property : component.ClassInfo().Properties()) {
        if (const TMethodInfo* method = property.Kind == tkMethod ? property.GetMethod(component) : nullptr)
            handlers.push_back({method->Name, property.Signature, component.GetName() + u"." + property.Name});
    }
}

const THandler* Find(const std::vector<THandler>& handlers, StringView name) {
    const auto found = std::find_if(handlers.begin(), handlers.end(),
                                    [&](const THandler& each) { return TNameEqual()(each.Name, name); });
    return found == handlers.end() ? nullptr : &*found;
}

} // namespace

TComponent* ComponentOf(TPersistent* object) {
    const auto isWhole = [](const TPersistent* each) {
        const auto* component = As<TComponent>(each);
        return component && !(component->GetComponentStyle().Contains(csSubComponent) && component->GetOwner());
    };
    while (object && !isWhole(object))
        object = object->GetOwner();
    return As<TComponent>(object);
}

TComponent* FormOf(TPersistent* object) {
    TComponent* component = ComponentOf(object);
    return component && component->GetOwnerComponent() ? component->GetOwnerComponent() : component;
}

std::vector<THandler> HandlersOf(TComponent& form) {
    std::vector<THandler> handlers;
    CollectHandlers(form, handlers);
    for (int i = 0; i < form.GetComponentCount(); ++i)
        CollectHandlers(*form.GetComponent(i), handlers);
    std::stable_sort(handlers.begin(), handlers.end(), [](const THandler& left, const THandler& right) {
        return CompareText(left.Name, right.Name) < 0;
    });
    const auto same = [](const THandler& left, const THandler& right) { return TNameEqual()(left.Name, right.Name); };
    handlers.erase(std::unique(handlers.begin(), handlers.end(), same), handlers.end());
    return handlers;
}

std::vector<String> FittingHandlers(TPersistent& object, const TPropInfo& event) {
    std::vector<String> names;
    TComponent* form = FormOf(&object);
    if (form && TakesNewHandlers(object)) {
        for (const THandler& handler : HandlersOf(*form)) {
            if (handler.Signature == event.Signature)
                names.push_back(handler.Name);
        }
    } else if (form) {
        for (const TMethodInfo& method : form->ClassInfo().Methods()) {
            if (method.Signature == event.Signature)
                names.push_back(method.Name);
        }
    }
    return names;
}

bool TakesNewHandlers(TPersistent& object) {
    return dynamic_cast<THandlerTaker*>(FormOf(&object)) != nullptr;
}

String UsualHandler(TPersistent& object, const TPropInfo& event) {
    TComponent* form = FormOf(&object);
    const TComponent* component = ComponentOf(&object);
    if (!form || !component)
        return {};
    String stem = component == form              ? String(u"Form")
                  : component->GetName().empty() ? component->ClassName().substr(1)
                                                 : component->GetName();
    stem += event.Name.starts_with(u"On") ? event.Name.substr(2) : event.Name;
    const std::vector<THandler> handlers = HandlersOf(*form);
    const auto isFree = [&](const String& name) {
        const THandler* present = Find(handlers, name);
        return present ? present->Signature == event.Signature : !form->FindComponent(name);
    };
    String name = stem;
    for (int number = 2; !isFree(name); ++number)
        name = stem + IntToStr(number);
    return name;
}

void WriteHandler(TPersistent& object, const TPropInfo& event, StringView name) {
    TComponent* form = FormOf(&object);
    auto* taker = dynamic_cast<THandlerTaker*>(form);
    const String wanted = Trim(name);
    if (taker && !wanted.empty()) {
        std::vector<THandler> handlers = HandlersOf(*form);
        const THandler* present = Find(handlers, wanted);
        if (present && present->Signature != event.Signature)
            throw EPropertyError(present->Name + u" handles " + present->Event + u", which has other parameters than " +
                                 event.Name);
        if (!present) {
            if (!IsValidIdent(wanted))
                throw EPropertyError(u"\"" + wanted +
                                     u"\" cannot be the name of a handler: it takes letters, digits and "
                                     u"underscores, with no digit at its beginning");
            if (form->FindComponent(wanted))
                throw EPropertyError(u"\"" + wanted + u"\" is the name of a component already");
            handlers.push_back({wanted, event.Signature, {}});
        }
        taker->TakeHandlers(handlers);
    }
    SetMethodProp(object, event.Name, form, wanted);
}

} // namespace gallery
