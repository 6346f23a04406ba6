#pragma once

// The main window of the gallery: pages on the left, the chosen page in the middle, the inspector on the right, the
// event log below. All of it comes from forms/main.dfm.

#include "gallery/eventhooks.h"
#include "gallery/pages.h"

namespace gallery {

class TEventLog;
class TInspector;
class TPageArea;
class TPageList;

class TGalleryForm : public TForm {
    FRAMEWORK_CLASS(TGalleryForm)

public:
    explicit TGalleryForm(TComponent* owner);
    ~TGalleryForm() override;

    /// Fills the list with the pages and shows the one with this title, the first when none is named. Raises what
    /// FindPages and FindPage raise.
    void ShowPages(StringView title);
    /// The pages in the list; none while a form of the user's takes their place.
    const std::vector<TPage>& GetPages() const { return FPages; }
    int GetPageIndex() const;
    void SetPageIndex(int value);
    /// Shows a form of the user's instead of the pages. Raises what LoadFormFile raises.
    void ShowFile(const String& fileName);
    /// The form in the middle; null while there is none.
    TCustomForm* GetPage() const { return FPage.get(); }
    /// Shows values that changed meanwhile, and all that is still to be painted, at once instead of when there is time.
    void ShowLatest();
    /// Scrolls a control of the page into view; nothing happens for others.
    void ScrollIntoView(const TControl& control);
    /// A component of the page or, failing that, of this window, by name.
    TComponent* FindByName(StringView name) const;

protected:
    void Loaded() override;
    bool CloseQuery() override;

private:
    // What forms/main.dfm names.
    void PageListSelect(TObject* sender);
    void ClearLogClick(TObject* sender);
    void InspectorWritten(TObject* sender);
    void InspectorProblem(TObject* sender);
    void FormKeyDown(TObject* sender, WORD& key, TShiftState shift);

    void ShowPage(std::unique_ptr<TCustomForm> page);
    void ActiveControlChanged(TObject* sender);
    /// Ctrl and a click inspect whatever lies under the mouse, also what cannot have the focus.
    void InspectUnderMouse(MSG& message, bool& handled);
    void Inspect(TComponent* component);
    /// Asks the page that shows; true when it lets go.
    bool MayLeavePage(bool forGood);
    /// The page, if it says itself what is inspected; null otherwise.
    TInspectionSource* InspectionSource() const;

    TPageList* FPageList = nullptr;
    TInspector* FInspector = nullptr;
    TEventLog* FLog = nullptr;
    TPageArea* FPageArea = nullptr;
    TEventHooks FHooks;
    std::vector<TPage> FPages;
    String FInspectorHint; // of pages that do not say themselves what is inspected
    int FPageIndex = -1;   // of the page that shows
    int FUnsavedPage = -1; // a page that was left with something unsaved
    std::unique_ptr<TCustomForm> FPage;
};

} // namespace gallery
