#pragma once

// Stands in for the form class of a program that is not here. A designer's form names such a class and the methods that
// handle its events; the stand-in bears the name and has methods of those names that do nothing, so that the form loads
// as it is and the log shows its events.

#include "framework/system/textform.h"
#include "framework/windows/forms.h"

namespace gallery {
using namespace framework;

/// Outlives what is derived from it: components still call their handlers while they die.
struct TStandInClass {
    std::unique_ptr<TClassInfo> Info;
};

class TStandInForm : private TStandInClass, public TForm {
public:
    /// A class named and furnished as `form` wants it. `rows` are published besides those of a form, or in their place.
    explicit TStandInForm(const TFormObject& form, std::vector<TPropInfo> rows = {});

    const TClassInfo& ClassInfo() const override { return *Info; }
};

} // namespace gallery
