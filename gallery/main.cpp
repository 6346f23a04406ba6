// The gallery: shows every control of the library on forms that can be inspected and played.

#include "framework/system/strings.h"
#include "framework/windows/application.h"
#include "framework/windows/standardcontrols.h"
#include "gallery/eventlog.h"
#include "gallery/files.h"
#include "gallery/inspector.h"
#include "gallery/pagearea.h"
#include "gallery/pagelist.h"
#include "gallery/player.h"
#include "gallery/report.h"
#include "package/Zorpackage.h"

#include <shellapi.h>

namespace gallery {

namespace {

constexpr char16_t kUsage[] =
    u"gallery [form.dfm | --page title] [--tour | --play script] [--shots folder] [--quiet]\n"
    u"  form.dfm         shows this form in place of the pages\n"
    u"  --page title     begins with this page\n"
    u"  --tour           plays the scripts of all pages, or of that one, and ends: 0 when all went well, else 1\n"
    u"  --play script    plays this input script instead\n"
    u"  --shots folder   where the pictures of scripts go\n"
    u"  --quiet          no message box when a file cannot be used, only a line of error output and exit code 2";

constexpr int kBadInput = 2;

struct TOptions {
    String FormFile;
    String Page;
    bool Tour = false;
    String Script;
    String Shots;
    bool Quiet = false;

    bool Plays() const { return Tour || !Script.empty(); }
};

class EUsage : public Exception {
public:
    using Exception::Exception;
};

TOptions ParseOptions(const std::vector<String>& arguments) {
    TOptions options;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const String& argument = arguments[i];
        const auto value = [&]() -> String {
            if (i + 1 == arguments.size())
                throw EUsage(argument + u" needs a value\n" + kUsage);
            return arguments[++i];
        };
        if (argument == u"--page")
            options.Page = value();
        else if (argument == u"--tour")
            options.Tour = true;
        else if (argument == u"--play")
            options.Script = value();
        else if (argument == u"--shots")
            options.Shots = value();
        else if (argument == u"--quiet")
            options.Quiet = true;
        else if (argument.substr(0, 2) == u"--" || !options.FormFile.empty())
            throw EUsage(argument + u" is not understood\n" + kUsage);
        else
            options.FormFile = argument;
    }
    if (!options.FormFile.empty() && (options.Tour || !options.Page.empty()))
        throw EUsage(u"A form of one's own takes the place of the pages\n" + String(kUsage));
    if (options.Tour && !options.Script.empty())
        throw EUsage(u"The tour has scripts of its own\n" + String(kUsage));
    return options;
}

std::vector<String> CommandLine() {
    int count = 0;
    wchar_t** words = CommandLineToArgvW(GetCommandLineW(), &count);
    std::vector<String> arguments;
    for (int i = 1; i < count; ++i)
        arguments.push_back(FromWide(words[i]));
    LocalFree(words);
    return arguments;
}

/// True when the error output goes to a file or another program, which then is the one to be told.
bool ErrorsAreCollected() {
    const HANDLE output = GetStdHandle(STD_ERROR_HANDLE);
    const DWORD type = output && output != INVALID_HANDLE_VALUE ? GetFileType(output) : FILE_TYPE_UNKNOWN;
    return type == FILE_TYPE_DISK || type == FILE_TYPE_PIPE;
}

int Refuse(const String& problem, bool quiet) {
    WriteError(problem);
    if (!quiet && !ErrorsAreCollected())
        TheApplication().MessageDialog(problem, u"ZOR Gallery", MB_OK | MB_ICONERROR);
    return kBadInput;
}

void RegisterAll() {
    RegisterStandardControls();
    ZOR::RegisterPackage();
    RegisterClasses({&TGalleryForm::StaticClass(), &TPageArea::StaticClass(), &TPageList::StaticClass(),
                     &TInspector::StaticClass(), &TEventLog::StaticClass()});
    RegisterPageClasses();
}

std::unique_ptr<TGalleryForm> MakeGallery(const TOptions& options) {
    std::unique_ptr<TCustomForm> form = LoadFormFile(ProgramFolder() + u"forms\\main.dfm");
    if (!As<TGalleryForm>(form.get()))
        throw EComponentError(u"forms\\main.dfm does not hold a TGalleryForm");
    std::unique_ptr<TGalleryForm> gallery(static_cast<TGalleryForm*>(form.release()));
    if (options.FormFile.empty())
        gallery->ShowPages(options.Page);
    else
        gallery->ShowFile(options.FormFile);
    return gallery;
}

/// Null when nothing is to be played.
std::unique_ptr<TPlayer> MakePlayer(TGalleryForm& gallery, const TOptions& options) {
    if (!options.Plays())
        return nullptr;
    auto player = std::make_unique<TPlayer>(gallery, options.Shots);
    if (!options.Tour) {
        player->Add(options.Script, std::nullopt);
        return player;
    }
    const std::vector<TPage>& pages = gallery.GetPages();
    for (int page = 0; page < static_cast<int>(pages.size()); ++page) {
        if (options.Page.empty() || page == gallery.GetPageIndex())
            player->Add(pages[static_cast<std::size_t>(page)].ScriptFile, page);
    }
    return player;
}

int Run(const TOptions& options) {
    std::unique_ptr<TGalleryForm> gallery;
    std::unique_ptr<TPlayer> player;
    try {
        gallery = MakeGallery(options);
        player = MakePlayer(*gallery, options);
    } catch (const std::exception& error) {
        return Refuse(Utf8Decode(error.what()), options.Quiet || options.Plays());
    }
    if (player) {
        // Nobody is there to answer a message box: an exception in a handler ends the play.
        TheApplication().OnException = [&player](TObject*, const std::exception& error) {
            player->Fail(u"an exception reached the program: " + Utf8Decode(error.what()));
        };
        player->Start();
    }
    TheApplication().SetMainForm(gallery.get());
    TheApplication().Run();
    TheApplication().OnException = nullptr;
    return player ? player->ExitCode() : 0;
}

} // namespace

} // namespace gallery

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int) {
    using namespace gallery;
    TheApplication().SetTitle(u"ZOR Gallery");
    TheApplication().Initialize();
    RegisterAll();
    TOptions options;
    try {
        options = ParseOptions(CommandLine());
    } catch (const EUsage& error) {
        return Refuse(error.GetMessageText(), false);
    }
    return Run(options);
}
