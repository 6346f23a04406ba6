// Nothing but the installed files: a form read from text, with a framed edit whose properties answer.

#include "zor.h"

#include <cstdio>

using namespace framework;
using namespace ZOR;

int main() {
    Application->Initialize();
    RegisterStandardControls();
    RegisterPackage();
    const auto form = CreateFromTextForm("object Form1: TForm\n"
                                         "  object Edit1: TZOREdit\n"
                                         "    Width = 100\n"
                                         "    Text = 'found'\n"
                                         "    Wymagany = wRequired\n"
                                         "    BoundLabel.Active = True\n"
                                         "  end\n"
                                         "end\n",
                                         nullptr);
    auto* edit = As<TZOREdit>(form->FindComponent(u"Edit1"));
    if (!edit || edit->Width != 100 || edit->Wymagany != wRequired || !edit->BoundLabel->Label)
        return 1;
    edit->Width += 20;
    std::puts(Utf8Encode(edit->Text).c_str());
    return edit->Width == 120 && edit->Text == u"found" ? 0 : 1;
}
