#include "gallery/files.h"

#include "framework/system/formloader.h"
#include "framework/windows/packages.h"
#include "gallery/standinform.h"

namespace gallery {

String ProgramFolder() {
    const String path = ModuleFileName(nullptr);
    return path.substr(0, path.find_last_of(u'\\') + 1);
}

TFormDocument ParseFormFile(const String& fileName) {
    TParseOptions parsing;
    parsing.FallbackEncoding = TFallbackEncoding::Windows1250;
    return ParseTextFormFile(fileName, parsing);
}

std::unique_ptr<TCustomForm> LoadFormFile(const String& fileName) {
    const TFormDocument document = ParseFormFile(fileName);
    const TFormObject root = document.Root();
    const TClassInfo* info = GetClass(root.ClassName());
    std::unique_ptr<TCustomForm> form;
    if (!info)
        form = std::make_unique<TStandInForm>(root);
    else if (info->InheritsFrom(TCustomForm::StaticClass()))
        form.reset(static_cast<TCustomForm*>(info->Create(nullptr)));
    else
        throw EFormSyntax(fileName, root.Line(), root.Column(), u"a " + info->Name() + u" is not a form");
    LoadTextForm(*form, document);
    return form;
}

} // namespace gallery
