#include "gallery/pages.h"

#include "framework/system/strings.h"
#include "gallery/files.h"

#include <algorithm>
#include <filesystem>
#include <tuple>

namespace gallery {

namespace {

constexpr char16_t kMainForm[] = u"main.dfm";

/// "Check list" of a page named "check-list".
String TitleOf(const String& name) {
    if (name.empty())
        return name;
    return UpperCase(name.substr(0, 1)) + StringReplace(name.substr(1), u"-", u" ", {rfReplaceAll});
}

std::int64_t OrderOf(const String& formFile) {
    const TFormDocument form = ParseFormFile(formFile);
    for (const TFormProperty property : form.Root().Properties()) {
        if (SameText(property.Name(), u"Tag") && property.Value().Kind() == TFormValueKind::Integer)
            return property.Value().AsInteger();
    }
    return 0;
}

} // namespace

void RegisterPageClasses() {
    for (const TPageClass* page = TPageClass::First(); page; page = page->Next())
        RegisterClasses({&page->Value()()});
}

std::vector<TPage> FindPages() {
    std::vector<std::pair<std::int64_t, TPage>> found;
    const String folder = ProgramFolder() + u"forms\\";
    for (const auto& entry : std::filesystem::directory_iterator(std::filesystem::path(folder))) {
        const String file = entry.path().filename().u16string();
        if (entry.path().extension() != u".dfm" || SameText(file, kMainForm))
            continue;
        const String name = entry.path().stem().u16string();
        found.push_back(
            {OrderOf(folder + file), {TitleOf(name), folder + file, ProgramFolder() + u"scripts\\" + name + u".txt"}});
    }
    std::sort(found.begin(), found.end(), [](const auto& left, const auto& right) {
        return std::tie(left.first, left.second.Title) < std::tie(right.first, right.second.Title);
    });
    std::vector<TPage> pages;
    for (auto& each : found)
        pages.push_back(std::move(each.second));
    return pages;
}

std::size_t FindPage(const std::vector<TPage>& pages, StringView title) {
    const String wanted = TitleOf(String(title));
    String titles;
    for (std::size_t i = 0; i < pages.size(); ++i) {
        if (SameText(pages[i].Title, wanted))
            return i;
        titles += (titles.empty() ? u"" : u", ") + pages[i].Title;
    }
    throw EListError(u"there is no page " + String(title) + u" among " + titles);
}

} // namespace gallery
