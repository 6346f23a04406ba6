#pragma once

// The page with the form designer: the palette, the surface, and the same form as text. What is made here is a text
// form that programs load.

#include "framework/windows/forms.h"
#include "gallery/pages.h"

namespace gallery {

class TDesignSurface;
class TPaletteList;

class TDesignerPage : public TForm, public TInspectionSource {
    FRAMEWORK_CLASS(TDesignerPage)

public:
    explicit TDesignerPage(TComponent* owner) : TForm(owner) {}

    TComponent* GetInspected() const override;
    void InspectorWritten() override;

protected:
    void Loaded() override;

private:
    // What the form names.
    void PaletteSelect(TObject* sender);
    void SurfaceSelect(TObject* sender);
    void SurfaceChange(TObject* sender);
    void SurfacePlaced(TObject* sender);
    void UndoClick(TObject* sender);
    void RedoClick(TObject* sender);
    void CutClick(TObject* sender);
    void CopyClick(TObject* sender);
    void PasteClick(TObject* sender);
    void DeleteClick(TObject* sender);
    void TextClick(TObject* sender);
    void OpenClick(TObject* sender);
    void SaveClick(TObject* sender);

    /// Does it, and tells in the status line why when it fails; false then.
    bool Try(const std::function<void()>& action);
    void OnSurface(void (TDesignSurface::*action)());
    void Tell(const String& text);
    void ShowText(bool asText);

    TPaletteList* FPalette = nullptr;
    TDesignSurface* FSurface = nullptr;
};

} // namespace gallery
