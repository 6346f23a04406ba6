#include "gallery/standinform.h"

#include "gallery/eventsignatures.h"

namespace gallery {

namespace {

/// The handlers that a form assigns to events, as methods that do nothing. What a class does not publish is left to the
/// loader, which says so.
void CollectMethods(const TFormObject& object, const TClassInfo* info, std::vector<TMethodInfo>& methods) {
    for (const TFormProperty property : object.Properties()) {
        const TPropInfo* event = info ? info->FindProperty(property.Name()) : nullptr;
        if (!event || event->Kind != tkMethod || property.Value().Kind() != TFormValueKind::Identifier)
            continue;
        const TSignature* signature = FindSignature(event->Signature);
        if (!signature)
            continue;
        TMethodInfo method;
        method.Name = property.Value().Text();
        method.Signature = event->Signature;
        method.Invoker = signature->Ignore;
        methods.push_back(method);
    }
    for (const TFormObject child : object.Children())
        CollectMethods(child, GetClass(child.ClassName()), methods);
}

} // namespace

TStandInForm::TStandInForm(const TFormObject& form, std::vector<TPropInfo> rows) : TForm(nullptr) {
    std::vector<TMethodInfo> methods;
    CollectMethods(form, &TForm::StaticClass(), methods);
    Info = std::make_unique<TClassInfo>(form.ClassName(), &TForm::StaticClass(), std::move(rows), std::move(methods),
                                        std::vector<TFieldInfo>(), nullptr);
}

} // namespace gallery
