#include "gallery/designform.h"

#include "framework/graphics/canvas.h"
#include "gallery/designer_rules.h"

namespace gallery {

namespace {

constexpr TColor kGridDot = 0xB8B8B8;

} // namespace

TDesignForm::TDesignForm(const TFormObject& form)
    : TStandInForm(form, {Property<&TDesignForm::GetScreenLeft, &TDesignForm::SetScreenLeft>(u"Left"),
                          Property<&TDesignForm::GetScreenTop, &TDesignForm::SetScreenTop>(u"Top")}) {
}

std::unique_ptr<TDesignForm> TDesignForm::Load(const TFormDocument& document, TWinControl* parent,
                                               const TLoadOptions& options) {
    std::unique_ptr<TDesignForm> form(new TDesignForm(document.Root()));
    form->SetDesigning(true);
    form->SetVisible(false);
    form->SetParent(parent); // before its size, which is that of its inside from now on
    LoadTextForm(*form, document, options);
    return form;
}

void TDesignForm::Resize() {
    TStandInForm::Resize();
    if (OnSized)
        OnSized(this);
}

void TDesignForm::Paint() {
    TStandInForm::Paint();
    TCanvas& canvas = *GetCanvas();
    const TRect area = GetClientRect();
    for (int y = 0; y < area.Bottom; y += DesignGrid) {
        for (int x = 0; x < area.Right; x += DesignGrid)
            canvas.SetPixel(x, y, kGridDot);
    }
}

} // namespace gallery
