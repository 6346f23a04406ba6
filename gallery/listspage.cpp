#include "gallery/listspage.h"

#include "framework/system/numbers.h"
#include "framework/system/updates.h"
#include "framework/windows/button.h"
#include "framework/windows/label.h"
#include "gallery/files.h"
#include "gallery/pages.h"
#include "gallery/scriptparts.h"
#include "lists/Zorcomboboxnew.h"

namespace gallery {

const TClassInfo& TListsPage::StaticClass() {
    static const TClassInfo info = DescribeClass<TListsPage>(
        u"TListsPage", TForm::StaticClass(), {},
        {Method<&TListsPage::PageCreate>(u"PageCreate"), Method<&TListsPage::BoxSelect>(u"BoxSelect"),
         Method<&TListsPage::BoxNewClick>(u"BoxNewClick"), Method<&TListsPage::ManyClick>(u"ManyClick"),
         Method<&TListsPage::SortClick>(u"SortClick")});
    return info;
}

namespace {

const TPageClass registered(&TListsPage::StaticClass);

constexpr int kMany = 100000;

/// `arrow`: what opens the list of a choice field.
std::optional<TRect> FindArrow(TControl& control, const std::vector<String>& words) {
    const auto* field = As<ZOR::TZORComboBoxnew>(&control);
    if (!field || words.size() != 1 || words[0] != u"arrow")
        return std::nullopt;
    return OnScreen(control, field->ArrowRect());
}

/// `row N`: one of the rows that the open list shows, from 0.
std::optional<TRect> FindRow(TControl& control, const std::vector<String>& words) {
    const auto* list = As<ZOR::Tform_list>(&control);
    int row = 0;
    if (!list || words.size() != 2 || words[0] != u"row" || !TryStrToInt(words[1], row))
        return std::nullopt;
    RECT place{};
    row += list->list_box->GetTopIndex();
    if (SendMessageW(list->list_box->GetHandle(), LB_GETITEMRECT, static_cast<WPARAM>(row),
                     reinterpret_cast<LPARAM>(&place)) == LB_ERR)
        return std::nullopt;
    return OnScreen(*list->list_box, FromWin(place));
}

const TPartFinder arrows(&FindArrow);
const TPartFinder rows(&FindRow);

/// The items of a field of either kind; null for other components.
TStrings* ItemsOf(TComponent* component) {
    if (auto* field = As<ZOR::TZORComboBoxnew>(component))
        return field->GetItems();
    auto* box = As<TCustomComboBox>(component);
    return box ? box->GetItems() : nullptr;
}

} // namespace

void TListsPage::ShowStatus(const String& text) {
    if (auto* status = As<TLabel>(FindComponent(u"StatusLabel")))
        status->SetText(text);
}

void TListsPage::PageCreate(TObject*) {
    TStringList places;
    places.LoadFromFile(ProgramFolder() + u"data\\places.txt");
    for (int i = 0; i < GetComponentCount(); ++i) {
        TComponent* component = GetComponent(i);
        const String& name = component->GetName();
        TStrings* items = ItemsOf(component);
        if (items && items->GetCount() == 0 && name != u"EmptyBox" && name != u"ManyBox")
            items->Assign(&places);
    }
    if (auto* disabled = As<ZOR::TZORComboBoxnew>(FindComponent(u"DisabledBox")))
        disabled->SetItemIndex(disabled->GetItems()->IndexOf(u"Gdańsk"));
    ShowStatus(IntToStr(places.GetCount()) + u" miejscowości");
}

void TListsPage::BoxSelect(TObject* sender) {
    auto* component = As<TControl>(static_cast<TPersistent*>(sender));
    if (component)
        ShowStatus(component->GetName() + u": " + component->GetText());
}

/// There is nothing to choose from: now there is.
void TListsPage::BoxNewClick(TObject* sender) {
    auto* component = As<TComponent>(static_cast<TPersistent*>(sender));
    if (TStrings* items = ItemsOf(component)) {
        items->Add(u"Nowa pozycja");
        ShowStatus(component->GetName() + u": lista była pusta");
    }
}

void TListsPage::ManyClick(TObject*) {
    const TStrings* places = ItemsOf(FindComponent(u"TownBox"));
    TStrings* items = ItemsOf(FindComponent(u"ManyBox"));
    if (!places || places->GetCount() == 0 || !items)
        return;
    WithinUpdate(*items, [&] {
        items->Clear();
        for (int i = 0; i < kMany; ++i)
            items->Add(places->Get(i % places->GetCount()) + u" " + IntToStr(i / places->GetCount() + 1));
    });
    ShowStatus(u"ManyBox: " + IntToStr(items->GetCount()));
}

void TListsPage::SortClick(TObject* sender) {
    auto* field = As<ZOR::TZORComboBoxnew>(FindComponent(u"ManyBox"));
    const auto* box = As<TCheckBox>(static_cast<TPersistent*>(sender));
    if (field && box)
        field->SetSorted(box->GetChecked());
}

} // namespace gallery
