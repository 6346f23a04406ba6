#pragma once

// The page with the buttons of a till: it counts what is pressed, and paints a badge on one of them.

#include "framework/windows/forms.h"
#include "framework/windows/ownerdraw.h"

#include <map>

namespace gallery {
using namespace framework;

class TButtonsPage : public TForm {
    FRAMEWORK_CLASS(TButtonsPage)

public:
    explicit TButtonsPage(TComponent* owner) : TForm(owner) {}

    void ButtonClick(TObject* sender);
    void DrawBadge(TWinControl* control, TRect rect, TOwnerDrawState state);

private:
    std::map<TObject*, int> FPresses;
};

} // namespace gallery
