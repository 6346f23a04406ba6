// The pages of docs/components: there is one for every component of the palette, its table is that of the class, its
// text forms load, and its picture is there.
//
// With ZOR_WRITE_DOCS set in the environment the tables and the pictures are written anew; tools/docs does that.

#include "framework/graphics/bitmaps.h"
#include "tests/support/input.h"
#include "tests/support/memoryrows.h"
#include "zor.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <regex>
#include <sstream>

using namespace framework;
using namespace testsupport;

namespace {

const std::filesystem::path docs = "docs";
constexpr char tableBegin[] = "<!-- published -->\n";
constexpr char tableEnd[] = "<!-- /published -->\n";

bool Writing() {
    return std::getenv("ZOR_WRITE_DOCS") != nullptr;
}

std::vector<const TClassInfo*> Components() {
    RegisterStandardControls();
    ZOR::RegisterPackage();
    for (const TPalettePage& page : PalettePages()) {
        if (page.Name == ZOR::PalettePage)
            return page.Classes;
    }
    return {};
}

std::string ReadFile(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

std::filesystem::path PageOf(const TClassInfo& info) {
    return docs / "components" / (Utf8Encode(info.Name()) + ".md");
}

std::string TypeOf(const TPropInfo& property) {
    switch (property.Kind) {
    case tkEnumeration:
        return "`" + Utf8Encode(property.Enum->TypeName) + "`";
    case tkSet:
        return "set of `" + Utf8Encode(property.Enum->TypeName) + "`";
    case tkClass:
        return "`" + Utf8Encode(property.ObjectClass().Name()) + "`";
    case tkMethod:
        return "event";
    case tkInteger:
        return property.Names ? "colour" : "integer";
    case tkFloat:
        return property.FloatKind == TFloatKind::Number ? "decimal"
               : property.FloatKind == TFloatKind::Date ? "date"
               : property.FloatKind == TFloatKind::Time ? "time"
                                                        : "date and time";
    case tkWChar:
        return "character";
    case tkStrings:
        return "list of texts";
    case tkBinary:
        return "bytes";
    case tkVariant:
        return "any value";
    default:
        return "text";
    }
}

std::string DefaultOf(const TPropInfo& property, const TComponent& fresh) {
    if (!property.DefaultOrdinal)
        return "";
    const std::optional<String> name = property.Names ? property.Names->ToName(*property.DefaultOrdinal) : std::nullopt;
    return "`" + Utf8Encode(name ? *name : GetPropValue(fresh, property).AsString()) + "`";
}

/// The rows that the class adds to those of its parent, and the names of the rest.
std::string PublishedTable(const TClassInfo& info) {
    const std::unique_ptr<TComponent> fresh(info.Create(nullptr));
    std::string own;
    std::string inherited;
    for (const TPropInfo& property : info.Properties()) {
        const std::string name = "`" + Utf8Encode(property.Name) + "`";
        if (info.Parent()->FindProperty(property.Name)) {
            inherited += (inherited.empty() ? "" : ", ") + name;
            continue;
        }
        own += "| " + name + " | " + TypeOf(property) + " | " + DefaultOf(property, *fresh) + " |\n";
    }
    return "| Property | Type | Default |\n|---|---|---|\n" + own + "\nAs in `" + Utf8Encode(info.Parent()->Name()) +
           "`: " + inherited + ".\n";
}

/// The blocks of the page in that language.
std::vector<std::string> Blocks(const std::string& page, const std::string& language) {
    std::vector<std::string> blocks;
    const std::string fence = "\n```" + language + "\n";
    for (std::size_t at = page.find(fence); at != std::string::npos; at = page.find(fence, at + 1)) {
        const std::size_t begin = at + fence.size();
        blocks.push_back(page.substr(begin, page.find("\n```\n", begin) + 1 - begin));
    }
    return blocks;
}

/// In place of the database that the example names.
void FillOrders(ZOR::TZORVirtualDBGrid& grid) {
    std::vector<TColumnInfo> columns = {MemoryColumn(u"id", adInteger), MemoryColumn(u"customer", adVarWChar, 40),
                                        MemoryColumn(u"total", adNumeric, 0, 2), MemoryColumn(u"paid", adBoolean)};
    TMemorySource::TRows rows;
    for (const char16_t* city : {u"Brno", u"Dresden", u"Gda\u0144sk", u"Krak\u00F3w", u"Praha"}) {
        const auto id = static_cast<std::int64_t>(rows.size() + 1);
        rows.push_back({id, String(city), TNumeric{id * 133700 + 95, 2}, id % 2 == 0});
    }
    auto source = std::make_unique<TMemorySource>(std::move(columns), std::move(rows));
    As<TADODataSet>(grid.DataSource->DataSet)->Recordset = std::make_shared<TClientRecordset>(std::move(source));
    grid.OnFooterDraw = ZOR::DrawFooterTotals;
    grid.Set_Selected(2);
}

/// As the page's C++ does it.
void ShowGoodCustomers(ZOR::TZORADODataSet& customers) {
    int number = 0;
    for (customers.First(); !customers.Eof; customers.Next()) {
        if (customers.FieldByName(u"credit")->AsCurrency >= Currency(4))
            customers.AddBookmark(++number);
    }
    customers.FilteredByBookmarks = true;
}

void Photograph(TForm& form, const std::filesystem::path& path) {
    for (int i = 0; i < form.GetComponentCount(); ++i) {
        // Its items come from code alone.
        if (auto* tree = As<ZOR::TZORVirtualStringTree>(form.GetComponent(i))) {
            int id = 0;
            for (const char16_t* city : {u"Brno", u"Dresden", u"Gda\u0144sk", u"Krak\u00F3w", u"Praha"})
                tree->AddToDeque(++id, city);
            tree->SetCheckListBox();
            tree->SetInfoLabelVisible(true);
        }
        if (auto* grid = As<ZOR::TZORVirtualDBGrid>(form.GetComponent(i)))
            FillOrders(*grid);
    }
    if (auto* marked = As<ZOR::TZORADODataSet>(form.FindComponent(u"Marked")))
        ShowGoodCustomers(*marked);
    ShowAndActivate(form);
    MoveMouse({form.Left + form.Width + 40, form.Top + form.Height + 40}); // away from what lights up below it
    Application->ProcessMessages();
    const TPoint corner = form.ClientToScreen({0, 0});
    CaptureScreen(Bounds(corner.X, corner.Y, form.ClientWidth, form.ClientHeight))->SaveToPng(path.u16string());
}

TEST(Docs, TellWhatEachComponentPublishes) {
    for (const TClassInfo* info : Components()) {
        const std::string name = Utf8Encode(info->Name());
        SCOPED_TRACE(name);
        const std::string page = ReadFile(PageOf(*info));
        ASSERT_EQ(page.substr(0, name.size() + 3), "# " + name + "\n");
        const std::size_t begin = page.find(tableBegin) + std::size(tableBegin) - 1;
        const std::size_t end = page.find(tableEnd);
        ASSERT_TRUE(end != std::string::npos && begin <= end) << "the page has no place for its table";
        const std::string table = PublishedTable(*info);
        if (Writing())
            std::ofstream(PageOf(*info), std::ios::binary) << page.substr(0, begin) << table << page.substr(end);
        else
            EXPECT_EQ(page.substr(begin, end - begin), table) << "tools/docs writes it anew";
    }
}

TEST(Docs, ShowFormsThatLoad) {
    // What an example opens are customers, whatever it asks for.
    SetRecordsetOpener([](TRecordsetQuery&) { return std::make_shared<TClientRecordset>(MakeCustomers(12)); });
    for (const TClassInfo* info : Components()) {
        const std::string name = Utf8Encode(info->Name());
        SCOPED_TRACE(name);
        const std::string page = ReadFile(PageOf(*info));
        const std::vector<std::string> forms = Blocks(page, "dfm");
        ASSERT_FALSE(forms.empty());
        EXPECT_NE(forms.front().find(": " + name + "\n"), std::string::npos) << "its example is of something else";
        const std::filesystem::path picture = docs / "pictures" / (name + ".png");
        for (const std::string& text : forms) {
            const auto component = CreateFromTextForm(text, nullptr);
            auto* form = As<TForm>(component.get());
            ASSERT_TRUE(form);
            if (Writing() && text == forms.front())
                Photograph(*form, picture);
        }
        EXPECT_TRUE(std::filesystem::exists(picture));
        EXPECT_NE(page.find("](../pictures/" + name + ".png)"), std::string::npos);
    }
    SetRecordsetOpener(nullptr);
}

/// The message in the ten minutes' guide is the one for this mistake.
TEST(Docs, NameThePlaceOfAMistake) {
    const std::string page = ReadFile(docs / "ten-minutes.md");
    std::string form = Blocks(page, "dfm").front();
    form = std::regex_replace(form, std::regex("Width = 200"), "Widht = 200");
    form = std::regex_replace(form, std::regex("TCustomerForm"), "TForm");
    TParseOptions options;
    options.FileName = u"customer.dfm";
    TForm root(nullptr);
    try {
        LoadTextForm(root, ParseTextForm(form, options));
        FAIL() << "it loads";
    } catch (const Exception& exception) {
        std::smatch told;
        ASSERT_TRUE(std::regex_search(page, told, std::regex("`(customer\\.dfm\\([^`]*)`")));
        EXPECT_EQ(std::regex_replace(told[1].str(), std::regex("\n"), " "), exception.what());
    }
}

/// Every link to a file of the tree leads somewhere.
TEST(Docs, LinkToWhatIsThere) {
    std::vector<std::filesystem::path> pages{"README.md"};
    for (const auto& entry : std::filesystem::recursive_directory_iterator(docs)) {
        if (entry.path().extension() == ".md")
            pages.push_back(entry.path());
    }
    const std::regex link(R"(\]\(([^)#: ]+)(#[^)]*)?\))");
    for (const std::filesystem::path& path : pages) {
        const std::string text = ReadFile(path);
        for (std::sregex_iterator each(text.begin(), text.end(), link), end; each != end; ++each)
            EXPECT_TRUE(std::filesystem::exists(path.parent_path() / (*each)[1].str())) << path << ": " << (*each)[1];
    }
}

} // namespace
