// A host of installed modules: it links to the framework alone and loads the package that it is told.

#include "framework/system/strings.h"
#include "framework/windows/application.h"
#include "framework/windows/packages.h"

#include <cstdio>

using namespace framework;

int main(int argc, char** argv) {
    Application->Initialize();
    if (argc < 2 || GetClass(u"TZOREdit"))
        return 1;
    const HMODULE package = LoadPackage(Utf8Decode(argv[1]));
    for (const TPalettePage& page : PalettePages())
        std::printf("%s: %d components\n", Utf8Encode(page.Name).c_str(), static_cast<int>(page.Classes.size()));
    if (!GetClass(u"TZOREdit"))
        return 1;
    UnloadPackage(package);
    return GetClass(u"TZOREdit") ? 1 : 0;
}
