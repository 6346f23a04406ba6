#include "gallery/designerpage.h"

#include "framework/system/files.h"
#include "framework/system/numbers.h"
#include "framework/system/strings.h"
#include "framework/windows/button.h"
#include "framework/windows/label.h"
#include "framework/windows/memo.h"
#include "gallery/designsurface.h"
#include "gallery/palettelist.h"

#include <commdlg.h>
#include <filesystem>
#include <fstream>

namespace gallery {

namespace {

const TPageClass page(&TDesignerPage::StaticClass);
const TPageClass surface(&TDesignSurface::StaticClass);
const TPageClass palette(&TPaletteList::StaticClass);

constexpr char kNewForm[] = "object Form1: TForm\n"
                            "  Left = 0\n"
                            "  Top = 0\n"
                            "  Caption = 'Form1'\n"
                            "  ClientHeight = 240\n"
                            "  ClientWidth = 400\n"
                            "end\n";

/// The file that the person chooses; nothing when the dialog was cancelled.
std::optional<String> AskForFile(HWND owner, bool toSave) {
    String name(32768, u'\0');
    OPENFILENAMEW dialog{};
    dialog.lStructSize = sizeof(dialog);
    dialog.hwndOwner = owner;
    dialog.lpstrFilter = L"Text forms (*.dfm)\0*.dfm\0All files\0*.*\0";
    dialog.lpstrDefExt = L"dfm";
    dialog.lpstrFile = WideChars(name);
    dialog.nMaxFile = static_cast<DWORD>(name.size());
    dialog.Flags = OFN_NOCHANGEDIR | OFN_PATHMUSTEXIST | (toSave ? OFN_OVERWRITEPROMPT : OFN_FILEMUSTEXIST);
    if (!(toSave ? GetSaveFileNameW(&dialog) : GetOpenFileNameW(&dialog)))
        return std::nullopt;
    name.resize(name.find(u'\0'));
    return name;
}

String WithWindowsLines(const std::string& text) {
    return StringReplace(Utf8Decode(text), u"\n", u"\r\n", {rfReplaceAll});
}

std::string WithPlainLines(const String& text) {
    return Utf8Encode(StringReplace(text, u"\r\n", u"\n", {rfReplaceAll}));
}

} // namespace

const TClassInfo& TDesignerPage::StaticClass() {
    using P = TDesignerPage;
    static const TClassInfo info =
        DescribeClass<TDesignerPage>(u"TDesignerPage", TForm::StaticClass(), {},
                                     {Method<&P::PaletteSelect>(u"PaletteSelect"), Method<&P::UndoClick>(u"UndoClick"),
                                      Method<&P::RedoClick>(u"RedoClick"), Method<&P::CutClick>(u"CutClick"),
                                      Method<&P::CopyClick>(u"CopyClick"), Method<&P::PasteClick>(u"PasteClick"),
                                      Method<&P::DeleteClick>(u"DeleteClick"), Method<&P::TextClick>(u"TextClick"),
                                      Method<&P::OpenClick>(u"OpenClick"), Method<&P::SaveClick>(u"SaveClick")});
    return info;
}

void TDesignerPage::Loaded() {
    TForm::Loaded();
    FPalette = As<TPaletteList>(FindComponent(u"Palette"));
    FSurface = As<TDesignSurface>(FindComponent(u"Surface"));
    if (!FPalette || !FSurface)
        throw EComponentError(u"The designer lacks Palette or Surface");
    FSurface->OnSelect = [this](TObject* sender) { SurfaceSelect(sender); };
    FSurface->OnChange = [this](TObject* sender) { SurfaceChange(sender); };
    FSurface->OnPlaced = [this](TObject* sender) { SurfacePlaced(sender); };
    FSurface->Open(kNewForm);
}

TComponent* TDesignerPage::GetInspected() const {
    return FSurface ? FSurface->GetSelected() : nullptr;
}

void TDesignerPage::InspectorWritten() {
    FSurface->NoteChange();
}

void TDesignerPage::PaletteSelect(TObject*) {
    FSurface->SetTool(FPalette->GetChosen());
    if (const TClassInfo* chosen = FPalette->GetChosen())
        Tell(u"Click on the form to place a " + chosen->Name() + u", drag for its size");
}

void TDesignerPage::SurfaceSelect(TObject*) {
    if (OnInspect)
        OnInspect(FSurface->GetSelected());
}

void TDesignerPage::SurfaceChange(TObject*) {
    const auto enable = [this](const char16_t* name, bool enabled) {
        if (auto* button = As<TButton>(FindComponent(name)))
            button->SetEnabled(enabled);
    };
    enable(u"UndoButton", FSurface->CanUndo());
    enable(u"RedoButton", FSurface->CanRedo());
    const int count = FSurface->GetForm() ? FSurface->GetForm()->GetComponentCount() : 0;
    Tell(IntToStr(count) + (count == 1 ? u" component" : u" components"));
}

void TDesignerPage::SurfacePlaced(TObject*) {
    FPalette->SetItemIndex(-1);
}

void TDesignerPage::Tell(const String& text) {
    if (auto* label = As<TLabel>(FindComponent(u"StatusLabel")))
        label->SetText(text);
}

bool TDesignerPage::Try(const std::function<void()>& action) {
    try {
        action();
        return true;
    } catch (const Exception& error) {
        Tell(Utf8Decode(error.what()));
        return false;
    }
}

// Buttons

void TDesignerPage::OnSurface(void (TDesignSurface::*action)()) {
    if (!FSurface->GetVisible())
        return;
    Try([&] { (FSurface->*action)(); });
    FSurface->SetFocus(); // where the keys do the same
}

void TDesignerPage::UndoClick(TObject*) {
    OnSurface(&TDesignSurface::Undo);
}

void TDesignerPage::RedoClick(TObject*) {
    OnSurface(&TDesignSurface::Redo);
}

void TDesignerPage::CutClick(TObject*) {
    OnSurface(&TDesignSurface::CutSelected);
}

void TDesignerPage::CopyClick(TObject*) {
    OnSurface(&TDesignSurface::CopySelected);
}

void TDesignerPage::PasteClick(TObject*) {
    OnSurface(&TDesignSurface::Paste);
}

void TDesignerPage::DeleteClick(TObject*) {
    OnSurface(&TDesignSurface::DeleteSelected);
}

void TDesignerPage::ShowText(bool asText) {
    auto* memo = As<TMemo>(FindComponent(u"TextMemo"));
    auto* button = As<TButton>(FindComponent(u"TextButton"));
    if (!memo || !button)
        return;
    memo->SetVisible(asText);
    FSurface->SetVisible(!asText);
    button->SetText(asText ? u"&Form" : u"&Text");
    if (asText) {
        memo->SetText(WithWindowsLines(FSurface->FormText()));
        memo->SetFocus();
    } else {
        FSurface->SetFocus();
    }
}

void TDesignerPage::TextClick(TObject*) {
    if (FSurface->GetVisible()) {
        Try([this] { ShowText(true); });
        return;
    }
    // A text that is no form can be corrected where it is.
    auto* memo = As<TMemo>(FindComponent(u"TextMemo"));
    if (Try([&] { FSurface->Replace(WithPlainLines(memo->GetText())); }))
        ShowText(false);
}

void TDesignerPage::OpenClick(TObject*) {
    const std::optional<String> file = AskForFile(GetParentForm(this)->GetHandle(), false);
    if (file)
        Try([&] {
            FSurface->Open(ReadFileBytes(*file));
            ShowText(false);
        });
}

void TDesignerPage::SaveClick(TObject*) {
    const std::optional<String> fileName = AskForFile(GetParentForm(this)->GetHandle(), true);
    if (!fileName)
        return;
    Try([&] {
        const std::string text = Utf8Encode(WithWindowsLines(FSurface->FormText()));
        std::ofstream file(std::filesystem::path(*fileName), std::ios::binary | std::ios::trunc);
        if (!file.write(text.data(), static_cast<std::streamsize>(text.size())).flush())
            throw EWriteError(u"Cannot write file " + QuotedStr(*fileName));
        Tell(u"Saved");
    });
}

} // namespace gallery
