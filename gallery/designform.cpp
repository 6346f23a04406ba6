#include "gallery/designform.h"

#include "framework/graphics/canvas.h"
#include "gallery/designer_rules.h"

namespace gallery {

namespace {

constexpr TColor kGridDot = 0xB8B8B8;
constexpr int kTileSize = 16 * DesignGrid; // pixels

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

void TDesignForm::SetName(const String& value) {
    const bool isNamesake = ClassName() == u"T" + GetName();
    TStandInForm::SetName(value);
    if (isNamesake && !value.empty())
        RenameClass(u"T" + value);
}

void TDesignForm::Resize() {
    TStandInForm::Resize();
    if (OnSized)
        OnSized(this);
}

/// A piece of the ground with its dots.
std::unique_ptr<TBitmap> TDesignForm::MakeTile() const {
    auto tile = std::make_unique<TBitmap>(kTileSize, kTileSize);
    TCanvas& canvas = *tile->GetCanvas();
    canvas.GetBrush()->SetColor(GetColor());
    canvas.FillRect({0, 0, kTileSize, kTileSize});
    for (int y = 0; y < kTileSize; y += DesignGrid) {
        for (int x = 0; x < kTileSize; x += DesignGrid)
            canvas.SetPixel(x, y, kGridDot);
    }
    return tile;
}

void TDesignForm::Paint() {
    TStandInForm::Paint();
    if (const std::uint32_t color = ColorToRGB(GetColor()); !FTile || FTileColor != color) {
        FTile = MakeTile();
        FTileColor = color;
    }
    // Dot by dot a large form takes too long to follow the mouse.
    TCanvas& canvas = *GetCanvas();
    const TRect clip = canvas.GetClipRect();
    for (int y = clip.Top / kTileSize * kTileSize; y < clip.Bottom; y += kTileSize) {
        for (int x = clip.Left / kTileSize * kTileSize; x < clip.Right; x += kTileSize)
            canvas.Draw(x, y, FTile.get());
    }
}

} // namespace gallery
