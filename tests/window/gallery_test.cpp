// Runs the gallery as a program of its own and listens to what it says.

#include "framework/graphics/handles.h"
#include "framework/system/numbers.h"
#include "framework/system/strings.h"
#include "framework/windows/locale.h"
#include "tests/support/databases.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace {

using namespace framework;
namespace files = std::filesystem;

constexpr DWORD kPlayMilliseconds = 120000;
constexpr DWORD kBoxMilliseconds = 20000;

files::path GalleryProgram() {
    wchar_t path[MAX_PATH]{};
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    return files::path(path).parent_path() / "gallery" / "gallery.exe";
}

std::string ReadAll(const files::path& file) {
    std::ostringstream text;
    text << std::ifstream(file, std::ios::binary).rdbuf();
    return text.str();
}

class Gallery : public testing::Test {
protected:
    struct TOutcome {
        DWORD ExitCode = 0;
        std::string Output; ///< standard output and errors
    };

    Gallery() {
        static int tests = 0;
        Folder = files::temp_directory_path() /
                 ("gallery_test" + std::to_string(GetCurrentProcessId()) + "-" + std::to_string(++tests));
        files::create_directories(Folder);
        KeepDataIn(Folder);
    }
    ~Gallery() override {
        std::error_code ignored;
        files::remove_all(Folder, ignored);
    }

    files::path WriteFile(const std::string& name, const std::string& content) const {
        std::ofstream(Folder / name, std::ios::binary) << content;
        return Folder / name;
    }

    /// What the gallery keeps for a person; each test begins with nothing.
    static void KeepDataIn(const files::path& folder) { SetEnvironmentVariableW(L"LOCALAPPDATA", folder.c_str()); }

    /// Starts the gallery; null for `output` gives it neither output nor errors to write to.
    static TUniqueKernelHandle Start(const std::wstring& arguments, HANDLE output) {
        STARTUPINFOW start{};
        start.cb = sizeof(start);
        start.dwFlags = STARTF_USESTDHANDLES;
        start.hStdOutput = start.hStdError = output;
        std::wstring command = L"\"" + GalleryProgram().wstring() + L"\" " + arguments;
        PROCESS_INFORMATION made{};
        if (!CreateProcessW(nullptr, command.data(), nullptr, nullptr, TRUE, DETACHED_PROCESS, nullptr, nullptr, &start,
                            &made)) {
            ADD_FAILURE() << "the gallery could not be started: " << GetLastError();
            return {};
        }
        CloseHandle(made.hThread);
        return TUniqueKernelHandle(made.hProcess);
    }

    static DWORD WaitForEnd(const TUniqueKernelHandle& process) {
        if (WaitForSingleObject(process.Get(), kPlayMilliseconds) != WAIT_OBJECT_0) {
            ADD_FAILURE() << "the gallery did not end by itself";
            TerminateProcess(process.Get(), 99);
        }
        DWORD exitCode = 0;
        GetExitCodeProcess(process.Get(), &exitCode);
        return exitCode;
    }

    TOutcome Run(const std::wstring& arguments) {
        SECURITY_ATTRIBUTES inherited{sizeof(inherited), nullptr, TRUE};
        // A file of its own each time: what the program started may hold the last one open a little longer.
        const files::path log = Folder / ("output" + std::to_string(++Runs) + ".txt");
        const TUniqueKernelHandle output(CreateFileW(log.c_str(), GENERIC_WRITE, FILE_SHARE_READ, &inherited,
                                                     CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
        if (output.Get() == INVALID_HANDLE_VALUE) {
            ADD_FAILURE() << "no file for the output: " << GetLastError();
            return {};
        }
        const TUniqueKernelHandle process = Start(arguments, output.Get());
        return {WaitForEnd(process), ReadAll(log)};
    }

    files::path Folder;
    int Runs = 0;
};

TEST_F(Gallery, RefusesFormsItCannotShow) {
    const struct {
        const char* Name;
        const char* Form;
        const char* Place;
        const char* Problem;
    } rows[] = {
        {"syntax", "object Form1: TForm\n  Left = )\nend\n", "(2,10)", "expected"},
        {"class", "object Form1: TForm\n  object Edit1: TNoSuchEdit\n  end\nend\n", "(2,3)", "TNoSuchEdit"},
        {"property", "object Form1: TForm\n  object Edit1: TZOREdit\n    Wymagane = wNone\n  end\nend\n", "(3,5)",
         "Edit1.Wymagane"},
        {"value", "object Form1: TForm\n  object Edit1: TZOREdit\n    Wymagany = wNever\n  end\nend\n", "(3,5)",
         "Edit1.Wymagany"},
        {"nested", "object Form1: TForm\n  object Edit1: TZOREdit\n    BoundLabel.Layout = clMiddle\n  end\nend\n",
         "(3,5)", "Edit1.BoundLabel.Layout"},
        {"handler", "object EntryPage: TEntryPage\n  OnClick = NoSuchMethod\nend\n", "(2,3)", "NoSuchMethod"},
        {"root", "object Panel1: TPanel\nend\n", "(1,1)", "TPanel"},
    };
    for (const auto& row : rows) {
        const files::path form = WriteFile(std::string(row.Name) + ".dfm", row.Form);
        const TOutcome outcome = Run(L"\"" + form.wstring() + L"\"");
        EXPECT_EQ(outcome.ExitCode, 2u) << row.Name;
        EXPECT_NE(outcome.Output.find(std::string(row.Name) + ".dfm" + row.Place), std::string::npos) << outcome.Output;
        EXPECT_NE(outcome.Output.find(row.Problem), std::string::npos) << outcome.Output;
    }
}

TEST_F(Gallery, RefusesWhatItDoesNotUnderstand) {
    const TOutcome missing = Run(L"\"" + (Folder / "nowhere.dfm").wstring() + L"\"");
    EXPECT_EQ(missing.ExitCode, 2u);
    EXPECT_NE(missing.Output.find("nowhere.dfm"), std::string::npos) << missing.Output;
    const TOutcome page = Run(L"--page Nowhere --quiet");
    EXPECT_EQ(page.ExitCode, 2u);
    EXPECT_NE(page.Output.find("no page Nowhere among Entry"), std::string::npos) << page.Output;
    const TOutcome option = Run(L"--loud");
    EXPECT_EQ(option.ExitCode, 2u);
    EXPECT_NE(option.Output.find("--loud"), std::string::npos) << option.Output;
    const files::path script = WriteFile("bad.txt", "key F7\nkey Nothing\n");
    const TOutcome command = Run(L"--play \"" + script.wstring() + L"\"");
    EXPECT_EQ(command.ExitCode, 2u);
    EXPECT_NE(command.Output.find("bad.txt(2): \"Nothing\" is not a key"), std::string::npos) << command.Output;
}

/// The message box of a process; null while there is none.
HWND FindMessageBox(DWORD process) {
    for (HWND box = nullptr; (box = FindWindowExW(nullptr, box, L"#32770", L"ZOR Gallery")) != nullptr;) {
        DWORD owner = 0;
        GetWindowThreadProcessId(box, &owner);
        if (owner == process && IsWindowVisible(box))
            return box;
    }
    return nullptr;
}

TEST_F(Gallery, TellsAPersonInAMessageBox) {
    const std::wstring form = L"\"" + WriteFile("torn.dfm", "object Form1: TForm\n").wstring() + L"\"";
    const TUniqueKernelHandle process = Start(form, nullptr);
    const DWORD id = GetProcessId(process.Get());
    HWND box = nullptr;
    const ULONGLONG end = GetTickCount64() + kBoxMilliseconds;
    while (!(box = FindMessageBox(id)) && GetTickCount64() < end &&
           WaitForSingleObject(process.Get(), 10) == WAIT_TIMEOUT) {
    }
    ASSERT_TRUE(box) << "no message box";
    wchar_t text[500]{};
    GetDlgItemTextW(box, 0xFFFF, text, 500);
    EXPECT_NE(std::wstring(text).find(L"torn.dfm(2,1)"), std::wstring::npos) << Utf8Encode(FromWide(text));
    PostMessageW(box, WM_COMMAND, IDOK, 0);
    EXPECT_EQ(WaitForEnd(process), 2u);

    const TUniqueKernelHandle quiet = Start(form + L" --quiet", nullptr);
    EXPECT_EQ(WaitForEnd(quiet), 2u) << "nobody was asked";
}

TEST_F(Gallery, PlaysFormsOfOthers) {
    // The class of the form and its methods belong to a program that is not here.
    const files::path form = WriteFile("own.dfm", "object Form1: TForm1\n"
                                                  "  Caption = 'Own'\n"
                                                  "  object NameEdit: TZOREdit\n"
                                                  "    Left = 8\n"
                                                  "    Top = 40\n"
                                                  "    OnKeyDown = NameEditKeyDown\n"
                                                  "    Wymagany = wRequired\n"
                                                  "  end\n"
                                                  "end\n");
    const files::path good = WriteFile("good.txt", "click NameEdit\n"
                                                   "type \"Ala\"\n"
                                                   "expect NameEdit.Text = \"Ala\"\n"
                                                   "expect NameEdit.OnKeyDown = NameEditKeyDown\n"
                                                   "expect InspectedLabel.Caption = \"NameEdit: TZOREdit\"\n"
                                                   "click Form1 at 300,150 with Ctrl\n"
                                                   "expect InspectedLabel.Caption = \"Form1: TForm1\"\n"
                                                   "expect Log.RecentLines contains \"NameEdit.OnChange\"\n");
    const std::wstring own = L"\"" + form.wstring() + L"\" --play ";
    const TOutcome outcome = Run(own + L"\"" + good.wstring() + L"\"");
    EXPECT_EQ(outcome.ExitCode, 0u) << outcome.Output;

    const struct {
        const char* Script;
        const char* Problem;
    } rows[] = {
        {"\nexpect NameEdit.Wymagany = wError\n",
         "bad.txt(2): expected NameEdit.Wymagany = \"wError\", found \"wRequired\""},
        {"click SaveButton\n", "bad.txt(1): there is no SaveButton"},
        {"click Inspector row Nonsense\n", "bad.txt(1): Inspector does not know its part row Nonsense"},
        {"expect NameEdit.Wymagane = x\n", "bad.txt(1): a TZOREdit has no published property Wymagane"},
    };
    for (const auto& row : rows) {
        const files::path bad = WriteFile("bad.txt", row.Script);
        const TOutcome failed = Run(own + L"\"" + bad.wstring() + L"\"");
        EXPECT_EQ(failed.ExitCode, 1u) << row.Script;
        EXPECT_NE(failed.Output.find(row.Problem), std::string::npos) << failed.Output;
    }
}

TEST_F(Gallery, AssignsHandlersInTheInspectorAndGoesOnHearingOfThem) {
    const files::path script = WriteFile("events.txt", "click CompanyEdit\n"
                                                       "type \"x\"\n"
                                                       "expect StatusLabel.Caption contains \"brakuje\"\n"
                                                       "click Inspector row \"(Events)\" double\n"
                                                       "click Inspector row OnChange value\n"
                                                       "key F4\n"
                                                       "click Inspector choice ClearClick\n"
                                                       "expect CompanyEdit.OnChange = ClearClick\n"
                                                       "click ClearLogButton\n"
                                                       "click CompanyEdit\n"
                                                       "key End\n"
                                                       "type \"y\"\n"
                                                       "expect CompanyEdit.Text = \"\"\n"
                                                       "expect Log.RecentLines contains \"CompanyEdit.OnChange\"\n");
    const TOutcome outcome = Run(L"--play \"" + script.wstring() + L"\"");
    EXPECT_EQ(outcome.ExitCode, 0u) << outcome.Output;
}

TEST_F(Gallery, ShowsOrdersAsTheDatabaseHoldsThem) {
    const TOutcome played = Run(L"--tour --page orders --shots \"" + Folder.wstring() + L"\"");
    ASSERT_EQ(played.ExitCode, 0u) << played.Output;
    const auto connection =
        std::make_shared<TOdbcConnection>(databases::SQLiteConnection(Folder / "ZOR Gallery" / "orders.db"));
    const auto row = [&](const String& sql) { return OpenRecordset(connection, sql); };
    const auto text = [](const Variant& value) {
        return FormatCurr(u"#,##0.00", value.AsCurrency(), UserFormatSettings());
    };

    // What the script has entered is there, and the order costs what its items cost.
    const auto card = row(u"SELECT shipping, note FROM orders WHERE id = 16");
    EXPECT_EQ(card->GetVariant(0).AsCurrency(), Currency(1234));
    EXPECT_EQ(card->GetVariant(1).AsString(), u"Szk\u0142o!");
    const auto customer = row(u"SELECT name, city FROM customers WHERE id = (SELECT customer_id FROM orders "
                              u"WHERE id = 15)");
    EXPECT_EQ(customer->GetVariant(0).AsString(), u"Zofia Kr\u00F3l");
    EXPECT_EQ(customer->GetVariant(1).AsString(), u"Krak\u00F3w");
    const auto item = row(u"SELECT quantity, price, (SELECT goods FROM orders WHERE id = 20) FROM items "
                          u"WHERE order_id = 20 ORDER BY id");
    Currency goods;
    EXPECT_EQ(item->GetVariant(0).AsInteger(), 12);
    for (; !item->GetEOF(); item->MoveNext())
        goods += item->GetVariant(1).AsCurrency() * Currency(item->GetVariant(0).AsInteger());
    item->MoveFirst();
    EXPECT_EQ(item->GetVariant(2).AsCurrency(), goods);

    // Another program changes an amount; the next gallery adds up what it finds.
    connection->Execute(u"UPDATE orders SET goods = goods + 0.01 WHERE id = 6000");
    const auto sums = row(u"SELECT sum(goods), sum(shipping) FROM orders");
    const String status = u"Zam\u00F3wienia: 6000, zaznaczone: 0, towary: " + text(sums->GetVariant(0)) +
                          u", dostawa: " + text(sums->GetVariant(1));
    const files::path script =
        WriteFile("sums.txt", "wait StatusLabel.Caption = \"" + Utf8Encode(status) + "\" within 20000\n");
    const TOutcome outcome = Run(L"--page orders --play \"" + script.wstring() + L"\"");
    EXPECT_EQ(outcome.ExitCode, 0u) << outcome.Output;
}

TEST_F(Gallery, SaysWhyThereAreNoOrders) {
    KeepDataIn(WriteFile("file", "no folder"));
    const files::path script = WriteFile("none.txt", "expect MessageLabel.Caption contains \"Nie ma danych\"\n"
                                                     "expect OrdersGrid.Enabled = False\n");
    const TOutcome outcome = Run(L"--page orders --play \"" + script.wstring() + L"\"");
    EXPECT_EQ(outcome.ExitCode, 0u) << outcome.Output;
}

/// The name of a page's form and script.
class GalleryPage : public Gallery, public testing::WithParamInterface<std::string> {};

std::vector<std::string> Pages() {
    std::vector<std::string> pages;
    for (const auto& entry : files::directory_iterator(GalleryProgram().parent_path() / "scripts"))
        pages.push_back(entry.path().stem().string());
    return pages;
}

TEST_P(GalleryPage, PlaysItsScript) {
    const files::path shots = Folder / "shots";
    const std::wstring page = files::path(GetParam()).wstring();
    const TOutcome outcome = Run(L"--tour --page " + page + L" --shots \"" + shots.wstring() + L"\"");
    EXPECT_EQ(outcome.ExitCode, 0u) << outcome.Output;
    ASSERT_TRUE(files::exists(shots)) << "no picture";
    for (const auto& entry : files::directory_iterator(shots))
        EXPECT_EQ(ReadAll(entry.path()).substr(1, 3), "PNG") << entry.path();
}

INSTANTIATE_TEST_SUITE_P(Gallery, GalleryPage, testing::ValuesIn(Pages()), [](const auto& page) {
    std::string name = page.param;
    std::replace(name.begin(), name.end(), '-', '_');
    return name;
});

} // namespace
