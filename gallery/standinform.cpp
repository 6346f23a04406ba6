#include "gallery/standinform.h"

#include "gallery/eventsignatures.h"

namespace gallery {

namespace {

/// The handlers that a form assigns to events. What a class does not publish is left to the loader, which says so.
void CollectHandlers(const TFormObject& object, const TClassInfo* info, std::vector<THandler>& handlers) {
    for (const TFormProperty property : object.Properties()) {
        const TPropInfo* event = info ? info->FindProperty(property.Name()) : nullptr;
        if (event && event->Kind == tkMethod && property.Value().Kind() == TFormValueKind::Identifier &&
            FindSignature(event->Signature))
            handlers.push_back({String(property.Value().Text()), event->Signature, {}});
    }
    for (const TFormObject child : object.Children())
        CollectHandlers(child, GetClass(child.ClassName()), handlers);
}

} // namespace

TStandInForm::TStandInForm(const TFormObject& form, std::vector<TPropInfo> rows)
    : TForm(nullptr), FClassName(form.ClassName()), FRows(std::move(rows)) {
    std::vector<THandler> handlers;
    CollectHandlers(form, &TForm::StaticClass(), handlers);
    TStandInForm::TakeHandlers(handlers);
}

void TStandInForm::RenameClass(const String& name) {
    FClassName = name;
    TakeHandlers(HandlersOf(*this));
}

void TStandInForm::TakeHandlers(const std::vector<THandler>& handlers) {
    std::vector<TMethodInfo> methods;
    for (const THandler& handler : handlers) {
        const TSignature* signature = FindSignature(handler.Signature);
        if (!signature)
            throw EPropertyError(handler.Name + u" cannot be made: nobody knows the parameters of its event");
        methods.push_back({handler.Name, handler.Signature, signature->Ignore});
    }
    Infos.push_back(std::make_unique<TClassInfo>(FClassName, &TForm::StaticClass(), FRows, std::move(methods),
                                                 std::vector<TFieldInfo>(), nullptr));
}

} // namespace gallery
