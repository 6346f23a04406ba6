// Nothing but the installed files: a form read from text, with a framed edit whose properties answer. Then the programs
// that are named, each with its folder, which a newcomer has built: the form comes up, and ends well when it is closed.

#include "zor.h"

#include <cstdio>

using namespace framework;
using namespace ZOR;

static bool RunsAndEnds(const char* program, const char* folder, const wchar_t* caption) {
    STARTUPINFOA startup{};
    startup.cb = sizeof(startup);
    PROCESS_INFORMATION process{};
    if (!CreateProcessA(program, nullptr, nullptr, nullptr, FALSE, 0, nullptr, folder, &startup, &process))
        return false;
    HWND form = nullptr;
    for (int i = 0; i < 300 && !form; ++i) {
        Sleep(50);
        form = FindWindowW(nullptr, caption);
    }
    DWORD code = 1;
    if (form && PostMessageW(form, WM_CLOSE, 0, 0) && WaitForSingleObject(process.hProcess, 15000) == WAIT_OBJECT_0)
        GetExitCodeProcess(process.hProcess, &code);
    else
        TerminateProcess(process.hProcess, 1);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return code == 0;
}

int main(int argc, char** argv) {
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
    if (edit->Width != 120 || edit->Text != u"found")
        return 1;
    for (int i = 1; i + 1 < argc; i += 2)
        if (!RunsAndEnds(argv[i], argv[i + 1], L"Customer"))
            return 1;
    return 0;
}
