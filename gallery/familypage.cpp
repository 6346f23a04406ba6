#include "gallery/familypage.h"

#include "controls/Zorcheckbox.h"
#include "controls/Zorchecklistbox.h"
#include "controls/Zorlistbox.h"
#include "controls/Zormaskedit.h"
#include "controls/Zormemo.h"
#include "controls/Zormonthcalendar.h"
#include "controls/Zorrichedit.h"
#include "framework/system/numbers.h"
#include "framework/windows/label.h"
#include "gallery/pages.h"
#include "gallery/scriptparts.h"

#include <sstream>

namespace gallery {

const TClassInfo& TFamilyPage::StaticClass() {
    static const TClassInfo info = DescribeClass<TFamilyPage>(
        u"TFamilyPage", TForm::StaticClass(), {},
        {Method<&TFamilyPage::PageCreate>(u"PageCreate"), Method<&TFamilyPage::ScopeClickCheck>(u"ScopeClickCheck"),
         Method<&TFamilyPage::BranchClick>(u"BranchClick"), Method<&TFamilyPage::TermClick>(u"TermClick"),
         Method<&TFamilyPage::ConsentClick>(u"ConsentClick"), Method<&TFamilyPage::CheckClick>(u"CheckClick"),
         Method<&TFamilyPage::AvailableClick>(u"AvailableClick")});
    return info;
}

namespace {

const TPageClass registered(&TFamilyPage::StaticClass);

constexpr TColor kProblemColor = 0x0000C0;
constexpr TColor kGoodColor = 0x2E7D32;

/// `click ScopeList item 2 box` and `click BranchList item 2 text`, items counted from 0.
std::optional<TRect> FindListItem(TControl& control, const std::vector<String>& words) {
    auto* list = As<TCustomListBox>(&control);
    std::int32_t index = 0;
    if (!list || words.size() != 3 || words[0] != u"item" || !TryStrToInt(words[1], index) || index < 0 ||
        index >= list->GetCount())
        return std::nullopt;
    TRect item = list->ItemRect(index);
    const int box = As<TCustomCheckListBox>(list) ? item.Height() : 0;
    if (words[2] == u"box")
        item.Right = item.Left + box;
    else if (words[2] == u"text")
        item.Left += box + 4;
    else
        return std::nullopt;
    return OnScreen(control, item);
}

const TPartFinder finder(&FindListItem);

constexpr const char* kReport =
    "{\\rtf1\\ansi\\deff0{\\fonttbl{\\f0 Segoe UI;}}{\\colortbl;\\red192\\green0\\blue0;}\\f0\\fs18 "
    "{\\b Oddano:} pralka, model 400.\\par {\\b Stan:} {\\cf1 p\\u281?kni\\u281?ty b\\u281?ben}, "
    "{\\i \\u347?lady wody}.\\par Klient czeka na wycen\\u281?.}";

} // namespace

void TFamilyPage::ShowStatus(const String& text, TColor color) {
    if (auto* status = As<TLabel>(FindComponent(u"StatusLabel"))) {
        status->GetFont()->SetColor(color);
        status->SetText(text);
    }
}

void TFamilyPage::PageCreate(TObject*) {
    std::istringstream report(kReport);
    if (auto* edit = As<ZOR::TZORRichEdit>(FindComponent(u"ReportEdit")))
        edit->GetLines()->LoadFromStream(report);
}

void TFamilyPage::ScopeClickCheck(TObject* sender) {
    const auto* list = As<ZOR::TZORCheckListBox>(sender);
    int checked = 0;
    for (int i = 0; list && i < list->GetCount(); ++i)
        checked += list->GetChecked(i) ? 1 : 0;
    ShowStatus(u"Zakres: " + IntToStr(checked) + u" z " + IntToStr(list ? list->GetCount() : 0), clGrayText);
}

void TFamilyPage::BranchClick(TObject* sender) {
    const auto* list = As<ZOR::TZORListBox>(sender);
    if (list && list->GetItemIndex() >= 0)
        ShowStatus(u"Oddzia\u0142: " + list->GetItems()->Get(list->GetItemIndex()), clGrayText);
}

void TFamilyPage::TermClick(TObject* sender) {
    if (const auto* calendar = As<ZOR::TZORMonthCalendar>(sender))
        ShowStatus(u"Termin: " + DateToStr(calendar->GetDate()), clGrayText);
}

void TFamilyPage::ConsentClick(TObject* sender) {
    if (auto* box = As<ZOR::TZORCheckBox>(sender))
        box->SetFWymagany(box->GetChecked() ? ZOR::wNone : ZOR::wRequired);
}

void TFamilyPage::AvailableClick(TObject* sender) {
    const auto* box = As<ZOR::TZORCheckBox>(sender);
    // Where a control has no caption of its own, the label beside it goes with it.
    for (const char16_t* name : {u"PhoneEdit", u"NotesMemo", u"ReportLabel", u"ReportEdit", u"BranchLabel",
                                 u"BranchList", u"ScopeList", u"UrgentBox", u"TermCalendar"}) {
        if (auto* control = As<TControl>(FindComponent(name)); control && box)
            control->SetEnabled(box->GetChecked());
    }
}

void TFamilyPage::CheckClick(TObject*) {
    int missing = 0;
    const auto mark = [&](auto* field, bool empty) {
        if (!field || !empty || field->GetFWymagany() == ZOR::wNone || field->GetFWymagany() == ZOR::wRecommended)
            return;
        field->SetFWymagany(ZOR::wError);
        ++missing;
    };
    for (int i = 0; i < GetComponentCount(); ++i) {
        TComponent* component = GetComponent(i);
        if (auto* edit = As<ZOR::TZORMaskEdit>(component))
            mark(edit, edit->IsEmpty());
        else if (auto* memo = As<ZOR::TZORMemo>(component))
            mark(memo, memo->GetTextLen() == 0);
        else if (auto* list = As<ZOR::TZORListBox>(component))
            mark(list, list->GetItemIndex() < 0);
        else if (auto* box = As<ZOR::TZORCheckBox>(component))
            mark(box, box->GetState() == cbUnchecked);
    }
    if (missing == 0)
        ShowStatus(u"Zlecenie jest kompletne.", kGoodColor);
    else
        ShowStatus(u"Brakuje p\u00F3l: " + IntToStr(missing), kProblemColor);
}

} // namespace gallery
