#pragma once

// The pages of the gallery. A page is a text form in the folder "forms" beside the program, with the script that shows
// it at work in the folder "scripts", both of the page's name: forms\numbers.dfm, scripts\numbers.txt. Pages stand in
// the order of their forms' Tags. A page whose form has handlers contributes the class that publishes them.

#include "framework/windows/control.h"
#include "gallery/contributions.h"

#include <functional>
#include <vector>

namespace gallery {
using namespace framework;

struct TPage {
    String Title; ///< "Numbers"
    String FormFile;
    String ScriptFile;
};

/// A page that says itself what the inspector shows, in place of the control with the focus.
class TInspectionSource {
public:
    virtual ~TInspectionSource() = default;
    /// Fired with what is to be inspected from now on; whoever shows the page listens.
    std::function<void(TComponent* component)> OnInspect;
    /// Fired where what is being typed in the inspector is to be written first; whoever shows the page listens.
    std::function<void()> OnFinishEdit;
    virtual TComponent* GetInspected() const = 0;
    /// The inspector has written a property.
    virtual void InspectorWritten() = 0;
    /// What a person should know about the inspector of this page, in one line.
    virtual String InspectorHint() const = 0;
    /// A key that was pressed anywhere in the window, before the control with the focus hears of it; 0 when it is used.
    virtual void KeyPressed(WORD& /*key*/, TShiftState /*shift*/) {}
    /// Asked before another page shows, or with `forGood` before the program ends; may ask the person. False to stay.
    virtual bool MayLeave(bool /*forGood*/) { return true; }
    /// Whether the page keeps something that is not saved, and would be lost with the program.
    virtual bool IsUnsaved() const { return false; }
};

/// Contributes a form class: `const TPageClass registered(&TNumbersPage::StaticClass);`
using TPageClass = TContribution<const TClassInfo& (*)()>;

/// Makes the contributed classes known to text forms. Call once, before the first form is loaded.
void RegisterPageClasses();

/// The pages of the folder "forms", in their order. Raises what ParseFormFile raises.
std::vector<TPage> FindPages();
/// The index of the page with this title or name, regardless of case; EListError, which names those there are, without
/// one.
std::size_t FindPage(const std::vector<TPage>& pages, StringView title);

} // namespace gallery
