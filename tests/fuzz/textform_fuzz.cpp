// Any bytes are either refused with EFormSyntax or read into a document whose text is stable: what the writer wrote is
// read and written back byte for byte, in every layout. Only a code page may be refused on the way out.

#include "framework/system/textform.h"

#include <cstdio>
#include <cstdlib>

using namespace framework;

namespace {

void DemandStable(const TFormDocument& document, const TFormLayout& layout) {
    const std::string written = WriteTextForm(document, layout);
    TParseOptions options;
    options.FallbackEncoding = layout.CodePage;
    const TFormDocument again = ParseTextForm(written, options);
    if (WriteTextForm(again, layout) != written) {
        std::fprintf(stderr, "not stable:\n%s\n", written.c_str());
        std::abort();
    }
}

// Every value answers every question, whatever its kind.
void Read(const TFormDocument& document) {
    for (const TFormProperty property : document.Root().Properties()) {
        const TFormValue value = property.Value();
        if (value.Kind() == TFormValueKind::Float || value.Kind() == TFormValueKind::Integer)
            value.AsExtended();
        if (value.Line() < property.Line() || value.Column() == 0)
            std::abort();
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    for (const TFallbackEncoding encoding : {TFallbackEncoding::None, TFallbackEncoding::Windows1250}) {
        TParseOptions options;
        options.FallbackEncoding = encoding;
        TFormDocument document;
        try {
            document = ParseTextForm(bytes, options);
        } catch (const EFormSyntax& error) {
            if (error.Line() == 0 || error.Column() == 0)
                std::abort();
            continue;
        }
        Read(document);
        try {
            DemandStable(document, document.Layout());
        } catch (const EConvertError&) {
            // The letters of a name, which no code can stand for, would be read as UTF-8.
            if (document.Layout().CodePage == TFallbackEncoding::None)
                throw;
        }
        DemandStable(document, {TFormLineEnd::Lf, false, true, false});
        DemandStable(document, {TFormLineEnd::CrLf, true, false, true});
        break;
    }
    return 0;
}
