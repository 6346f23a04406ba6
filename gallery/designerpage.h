#pragma once

// The page with the form designer: the palette, the surface, and the same form as text. What is made here is a text
// form that programs load.

#include "framework/windows/forms.h"
#include "framework/windows/memo.h"
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
    String InspectorHint() const override;
    /// Ctrl+N, O and S as everywhere.
    void KeyPressed(WORD& key, TShiftState shift) override;
    bool MayLeave(bool forGood) override;
    bool IsUnsaved() const override { return IsChanged(); }

    /// Shows the form of a file. False, with the reason in the status line, when that cannot be done; the form before
    /// stays then.
    bool OpenFile(const String& fileName);
    /// Writes what shows, form or text, in the layout and the encoding of the file that was opened; false, with the
    /// reason in the status line, when it could not.
    bool SaveFile(const String& fileName);
    /// Whether something differs from the file, or from the new form.
    bool IsChanged() const;

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
    void TextMemoChange(TObject* sender);
    void NewClick(TObject* sender);
    void OpenClick(TObject* sender);
    void SaveClick(TObject* sender);
    void SaveAsClick(TObject* sender);

    void OnSurface(void (TDesignSurface::*action)());
    /// What is being typed in the inspector or dragged becomes part of the form. Keys get here in the midst of both.
    void FinishChanges();
    void Tell(const String& text);
    TMemo& TextMemo() const;
    bool ShowsText() const;
    void ShowText(bool asText);
    bool TakeText();
    void ShowState();
    void Begin(const std::string& bytes, const String& fileName);
    bool Save();
    bool SaveAs();
    /// Whether the present form may go: it is saved now, or the person does not want it to be.
    bool AskToSave(const String& note = {});

    TPaletteList* FPalette = nullptr;
    TDesignSurface* FSurface = nullptr;
};

} // namespace gallery
