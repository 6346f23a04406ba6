#include "gallery/mainform.h"

#include "framework/system/strings.h"
#include "framework/windows/application.h"
#include "framework/windows/label.h"
#include "gallery/eventlog.h"
#include "gallery/files.h"
#include "gallery/inspector.h"
#include "gallery/pagearea.h"
#include "gallery/pagelist.h"

namespace gallery {

const TClassInfo& TGalleryForm::StaticClass() {
    static const TClassInfo info =
        DescribeClass<TGalleryForm>(u"TGalleryForm", TForm::StaticClass(), {},
                                    {Method<&TGalleryForm::PageListSelect>(u"PageListSelect"),
                                     Method<&TGalleryForm::ClearLogClick>(u"ClearLogClick"),
                                     Method<&TGalleryForm::InspectorWritten>(u"InspectorWritten"),
                                     Method<&TGalleryForm::InspectorProblem>(u"InspectorProblem"),
                                     Method<&TGalleryForm::FormKeyDown>(u"FormKeyDown")});
    return info;
}

TGalleryForm::TGalleryForm(TComponent* owner)
    : TForm(owner), FHooks([this](const String& component, const String& event, const String& arguments) {
          if (FLog)
              FLog->Add(component, event, arguments);
      }) {
}

TGalleryForm::~TGalleryForm() {
    TheScreen().OnActiveControlChange = nullptr;
    TheApplication().OnMessage = nullptr;
    TheApplication().OnIdle = nullptr;
    FHooks.Watch(nullptr);
    FPage.reset();
}

void TGalleryForm::Loaded() {
    TForm::Loaded();
    FPageList = As<TPageList>(FindComponent(u"PageList"));
    FInspector = As<TInspector>(FindComponent(u"Inspector"));
    FLog = As<TEventLog>(FindComponent(u"Log"));
    FPageArea = As<TPageArea>(FindComponent(u"PageArea"));
    if (!FPageList || !FInspector || !FLog || !FPageArea)
        throw EComponentError(u"The main form lacks PageList, Inspector, Log or PageArea");
    FInspectorHint = As<TLabel>(FindComponent(u"InspectorHintLabel"))->GetText();
    TheScreen().OnActiveControlChange = [this](TObject* sender) { ActiveControlChanged(sender); };
    TheApplication().OnMessage = [this](MSG& message, bool& handled) { InspectUnderMouse(message, handled); };
    TheApplication().OnIdle = [this](TObject*, bool&) { FInspector->RefreshValues(); };
}

// Pages

void TGalleryForm::ShowPages(StringView title) {
    FPages = FindPages();
    const std::size_t first = title.empty() ? 0 : FindPage(FPages, title);
    for (const TPage& page : FPages)
        FPageList->Add(page.Title);
    SetPageIndex(static_cast<int>(first));
}

int TGalleryForm::GetPageIndex() const {
    return FPageList->GetItemIndex();
}

void TGalleryForm::SetPageIndex(int value) {
    FPageList->SetItemIndex(value);
}

void TGalleryForm::PageListSelect(TObject*) {
    const int index = GetPageIndex();
    if (index < 0 || index == FPageIndex)
        return;
    if (!MayLeavePage(false)) {
        FPageList->SetItemIndex(FPageIndex);
        return;
    }
    ShowPage(LoadFormFile(FPages[static_cast<std::size_t>(index)].FormFile));
    FPageIndex = index;
}

bool TGalleryForm::MayLeavePage(bool forGood) {
    TInspectionSource* source = InspectionSource();
    if (!source)
        return true;
    if (!source->MayLeave(forGood))
        return false;
    FUnsavedPage = source->IsUnsaved() ? FPageIndex : -1;
    return true;
}

void TGalleryForm::ShowFile(const String& fileName) {
    std::unique_ptr<TCustomForm> page = LoadFormFile(fileName);
    const std::size_t separator = fileName.find_last_of(u"/\\");
    FPageList->Add(separator == String::npos ? fileName : fileName.substr(separator + 1));
    FPageList->OnSelect = nullptr;
    FPageList->SetItemIndex(0);
    ShowPage(std::move(page));
}

void TGalleryForm::ShowPage(std::unique_ptr<TCustomForm> page) {
    FHooks.Watch(nullptr);
    Inspect(nullptr);
    FLog->Clear();
    FPage = std::move(page);
    FPageArea->ShowPage(FPage.get());
    FHooks.Watch(FPage.get());
    TInspectionSource* source = InspectionSource();
    As<TLabel>(FindComponent(u"InspectorHintLabel"))->SetText(source ? source->InspectorHint() : FInspectorHint);
    if (source) {
        source->OnInspect = [this](TComponent* component) { Inspect(component); };
        source->OnFinishEdit = [this] { FInspector->FinishEdit(); };
        Inspect(source->GetInspected());
    } else {
        Inspect(FPage.get());
    }
    // Who walks through the list with the keyboard stays there.
    TWinControl* first = FPage->FindNextControl(nullptr, true, true, false);
    if (first && !FPageList->Focused())
        FocusControl(first);
    SetText(FPage->GetText().empty() ? u"ZOR Gallery" : FPage->GetText() + u" \u2013 ZOR Gallery");
}

void TGalleryForm::ScrollIntoView(const TControl& control) {
    FPageArea->ScrollIntoView(control);
}

TComponent* TGalleryForm::FindByName(StringView name) const {
    if (FPage) {
        if (TNameEqual()(FPage->GetName(), name))
            return FPage.get();
        if (TComponent* component = FPage->FindComponent(name))
            return component;
    }
    if (TNameEqual()(GetName(), name))
        return const_cast<TGalleryForm*>(this);
    return FindComponent(name);
}

bool TGalleryForm::CloseQuery() {
    // What was left unsaved on another page is asked about there, where it shows.
    if (FUnsavedPage >= 0 && FUnsavedPage != FPageIndex)
        SetPageIndex(FUnsavedPage);
    return MayLeavePage(true) && TForm::CloseQuery();
}

// Inspector and log

TInspectionSource* TGalleryForm::InspectionSource() const {
    return dynamic_cast<TInspectionSource*>(FPage.get());
}

void TGalleryForm::ActiveControlChanged(TObject*) {
    TWinControl* control = TheScreen().GetActiveControl();
    if (!control || !FPage || control == FPage.get() || !FPage->ContainsControl(control))
        return;
    if (!InspectionSource())
        Inspect(control);
    FPageArea->ScrollIntoView(*control);
}

void TGalleryForm::InspectUnderMouse(MSG& message, bool& handled) {
    if (message.message != WM_LBUTTONDOWN || GetKeyState(VK_CONTROL) >= 0 || !FPage || InspectionSource())
        return;
    POINT point{PointFromLParam(message.lParam).X, PointFromLParam(message.lParam).Y};
    ::ClientToScreen(message.hwnd, &point);
    TControl* control = FindDragTarget(FromWin(point), true);
    while (control && control->GetName().empty())
        control = control->GetParent(); // a caption label, for instance
    if (!control || !FPage->ContainsControl(control))
        return;
    // What takes the focus is inspected then, and may have a use of its own for such a click.
    const auto* window = As<TWinControl>(control);
    if (window && window->GetTabStop() && window->CanFocus())
        return;
    Inspect(control);
    handled = true;
}

void TGalleryForm::Inspect(TComponent* component) {
    if (!FInspector)
        return;
    FInspector->SetInspected(component);
    if (auto* label = As<TLabel>(FindComponent(u"InspectedLabel")))
        label->SetText(component ? component->GetName() + u": " + component->ClassName() : String());
}

void TGalleryForm::ShowLatest() {
    FInspector->RefreshValues();
    RedrawWindow(GetHandle(), nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    // Under Wine what was painted reaches the screen when the program waits.
    GdiFlush();
    MsgWaitForMultipleObjects(0, nullptr, FALSE, 0, QS_ALLINPUT);
}

void TGalleryForm::InspectorWritten(TObject*) {
    FHooks.Refresh(); // an event may have another handler now
    if (TInspectionSource* source = InspectionSource())
        source->InspectorWritten();
}

void TGalleryForm::InspectorProblem(TObject*) {
    auto* label = As<TLabel>(FindComponent(u"ProblemLabel"));
    if (!label)
        return;
    label->SetText(FInspector->GetProblem());
    label->GetParent()->SetVisible(!FInspector->GetProblem().empty());
    if (FInspector->GetItemIndex() >= 0)
        FInspector->ScrollIntoView(FInspector->GetItemIndex()); // the problem may have taken its place
}

void TGalleryForm::FormKeyDown(TObject*, WORD& key, TShiftState shift) {
    if (TInspectionSource* source = InspectionSource())
        source->KeyPressed(key, shift);
}

void TGalleryForm::ClearLogClick(TObject*) {
    FLog->Clear();
}

} // namespace gallery
