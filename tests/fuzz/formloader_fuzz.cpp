// Any form is either refused with a place or makes components; those are saved, and what was saved loads to the same.
// Properties and events of the zoo destroy components and items at the worst of moments.

#include "framework/system/formsaver.h"
#include "tests/support/formzoo.h"

#include <cstdio>
#include <cstdlib>

using namespace framework;
using namespace testsupport;

namespace {

[[noreturn]] void Complain(const char* what, const std::string& text) {
    std::fprintf(stderr, "%s:\n%s\n", what, text.c_str());
    std::abort();
}

std::unique_ptr<TComponent> Load(const TFormDocument& document, bool skipping) {
    TLoadOptions options;
    options.SkipUnknownProperties = skipping;
    options.SkipUnknownClasses = skipping;
    options.OnSkipped = [](const TSkippedPart&) {};
    try {
        return CreateFromTextForm(document, nullptr, options);
    } catch (const EFormLoad& error) {
        if (error.Line() == 0 || error.Column() == 0)
            Complain("no place", error.what());
        return nullptr;
    }
}

std::string Save(TComponent& root) {
    try {
        return WriteTextForm(SaveTextForm(root));
    } catch (const EComponentError&) { // a reference to what has no name
        return {};
    } catch (const EConvertError&) { // a float that overflowed
        return {};
    }
}

void Try(const TFormDocument& document, bool skipping) {
    const auto form = Load(document, skipping);
    if (!form)
        return;
    const std::string saved = Save(*form);
    // Handlers that destroy others do so again, and then something else is left.
    if (saved.empty() || saved.find("BoxKills") != std::string::npos)
        return;
    const auto again = Load(ParseTextForm(saved), false);
    if (!again)
        Complain("saved, but not loaded again", saved);
    const std::string savedAgain = Save(*again);
    if (savedAgain != saved)
        Complain("saved differently", saved + "\n---\n" + savedAgain);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    RegisterZoo();
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    TFormDocument document;
    try {
        document = ParseTextForm(bytes);
    } catch (const EFormSyntax&) {
        return 0;
    }
    Try(document, false);
    Try(document, true);
    TZooBox::log.clear();
    if (TZooBox::living != 0)
        Complain("components left", std::string(bytes));
    return 0;
}
