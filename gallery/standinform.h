#pragma once

// Stands in for the form class of a program that is not here. A designer's form names such a class and the methods that
// handle its events; the stand-in bears the name and has methods of those names that do nothing, so that the form loads
// as it is and the log shows its events.

#include "framework/system/textform.h"
#include "framework/windows/forms.h"
#include "gallery/handlers_rules.h"

namespace gallery {
using namespace framework;

/// Outlives what is derived from it: components still call their handlers while they die.
struct TStandInClass {
    /// The last one is the form's. Those before it, which had other handlers, still hold what events name.
    std::vector<std::unique_ptr<TClassInfo>> Infos;
};

class TStandInForm : private TStandInClass, public TForm, public THandlerTaker {
public:
    /// A class named and furnished as `form` wants it. `rows` are published besides those of a form, or in their place.
    explicit TStandInForm(const TFormObject& form, std::vector<TPropInfo> rows = {});

    const TClassInfo& ClassInfo() const override { return *Infos.back(); }
    void TakeHandlers(const std::vector<THandler>& handlers) override;

protected:
    void RenameClass(const String& name);

private:
    String FClassName;
    std::vector<TPropInfo> FRows;
};

} // namespace gallery
