#pragma once

// The scroll box of the family. It stays where the person has scrolled it to: a control inside that gets the focus does
// not bring itself into view.

#include "framework/windows/scrollbox.h"

namespace ZOR {

using namespace framework;

class TZORScrollBox : public TScrollBox {
    FRAMEWORK_CLASS(TZORScrollBox)

public:
    explicit TZORScrollBox(TComponent* owner) : TScrollBox(owner) {}

protected:
    void AutoScrollInView(TControl*) override {}
};

namespace Zorscrollbox {
/// Puts the control on the designer's palette.
void Register();
} // namespace Zorscrollbox

} // namespace ZOR
