#include "gallery/designerpage.h"

#include "framework/system/files.h"
#include "framework/system/numbers.h"
#include "framework/system/strings.h"
#include "framework/windows/application.h"
#include "framework/windows/button.h"
#include "framework/windows/label.h"
#include "framework/windows/latefunction.h"
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

// Needed when a file is to be chosen, not at each start.
const TLateFunction<decltype(::GetOpenFileNameW)> getOpenFileName(L"comdlg32.dll", "GetOpenFileNameW");
const TLateFunction<decltype(::GetSaveFileNameW)> getSaveFileName(L"comdlg32.dll", "GetSaveFileNameW");

/// The file that the person chooses, at first the one given; nothing when the dialog was cancelled.
std::optional<String> AskForFile(HWND owner, bool toSave, const String& present) {
    String name = present;
    name.resize(32768);
    OPENFILENAMEW dialog{};
    dialog.lStructSize = sizeof(dialog);
    dialog.hwndOwner = owner;
    dialog.lpstrFilter = L"Text forms (*.dfm)\0*.dfm\0All files\0*.*\0";
    dialog.lpstrDefExt = L"dfm";
    dialog.lpstrFile = WideChars(name);
    dialog.nMaxFile = static_cast<DWORD>(name.size());
    dialog.Flags = OFN_NOCHANGEDIR | OFN_PATHMUSTEXIST | (toSave ? OFN_OVERWRITEPROMPT : OFN_FILEMUSTEXIST);
    if (!(toSave ? getSaveFileName(&dialog) : getOpenFileName(&dialog)))
        return std::nullopt;
    name.resize(name.find(u'\0'));
    return name;
}

/// The form in work. It stays when the page goes, to be there when the page comes back.
struct TDesignWork {
    std::string Text; ///< as of the last step, lines ended by LF
    std::string Kept; ///< the same as it was opened or saved
    String FileName;  ///< empty for one that was never saved
    bool HasWindowsLines = true;
};

TDesignWork& Work() {
    static TDesignWork work{kNewForm, {}, {}, true};
    return work;
}

/// Writes all of a file or leaves the old one.
void ReplaceFile(const String& fileName, const std::string& bytes) {
    const std::filesystem::path path(fileName);
    const std::filesystem::path fresh(fileName + u".new");
    std::ofstream file(fresh, std::ios::binary | std::ios::trunc);
    const bool isWritten = !file.write(bytes.data(), static_cast<std::streamsize>(bytes.size())).flush().fail();
    file.close();
    std::error_code problem;
    if (isWritten)
        std::filesystem::rename(fresh, path, problem);
    if (!isWritten || problem) {
        std::filesystem::remove(fresh, problem);
        throw EWriteError(u"Cannot write file " + QuotedStr(fileName));
    }
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
    FSurface->OnProblem = [this](const String& problem) { Tell(problem); };
    const bool isNew = Work().Kept.empty();
    FSurface->Open(Work().Text);
    if (isNew)
        Work().Kept = Work().Text;
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
    Work().Text = FSurface->StepText();
    EnableButtons();
    const int count = FSurface->GetForm() ? FSurface->GetForm()->GetComponentCount() : 0;
    String status = IntToStr(count) + (count == 1 ? u" component" : u" components");
    for (const String& note : FSurface->TakeNotes())
        status += u"; " + note;
    Tell(status);
}

/// What works on components has nothing to work on while the form shows as text.
void TDesignerPage::EnableButtons() {
    const bool isForm = FSurface->GetVisible();
    const auto enable = [this](const char16_t* name, bool enabled) {
        if (auto* button = As<TButton>(FindComponent(name)))
            button->SetEnabled(enabled);
    };
    enable(u"UndoButton", isForm && FSurface->CanUndo());
    enable(u"RedoButton", isForm && FSurface->CanRedo());
    for (const char16_t* name : {u"CutButton", u"CopyButton", u"PasteButton", u"DeleteButton"})
        enable(name, isForm);
}

void TDesignerPage::SurfacePlaced(TObject*) {
    FPalette->SetItemIndex(-1);
}

void TDesignerPage::Tell(const String& text) {
    if (auto* label = As<TLabel>(FindComponent(u"StatusLabel")))
        label->SetText(text);
}

// Buttons

void TDesignerPage::OnSurface(void (TDesignSurface::*action)()) {
    FSurface->Try([&] { (FSurface->*action)(); });
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
    EnableButtons();
    if (asText) {
        memo->SetText(WithWindowsLines(FSurface->FormText()));
        memo->SetModified(false);
        memo->SetFocus();
    } else {
        FSurface->SetFocus();
    }
}

/// Makes the text in view the form; false when it is none. It stays then, to be corrected.
bool TDesignerPage::TakeText() {
    auto* memo = As<TMemo>(FindComponent(u"TextMemo"));
    if (FSurface->GetVisible() || !memo || !memo->GetModified())
        return true;
    const bool taken = FSurface->Try([&] { FSurface->Replace(WithPlainLines(memo->GetText())); });
    memo->SetModified(!taken);
    return taken;
}

void TDesignerPage::TextClick(TObject*) {
    if (FSurface->GetVisible())
        FSurface->Try([this] { ShowText(true); });
    else if (TakeText())
        ShowText(false);
}

// Files

bool TDesignerPage::IsChanged() const {
    const auto* memo = As<TMemo>(FindComponent(u"TextMemo"));
    return Work().Text != Work().Kept || (memo && memo->GetVisible() && memo->GetModified());
}

bool TDesignerPage::MayLeave() {
    return !IsChanged() || TheApplication().MessageDialog(u"The form was changed. Discard the changes?", u"Designer",
                                                          MB_YESNO | MB_ICONQUESTION | MB_DEFBUTTON2) == IDYES;
}

bool TDesignerPage::OpenFile(const String& fileName) {
    return FSurface->Try([&] {
        const std::string bytes = ReadFileBytes(fileName);
        FSurface->Open(bytes);
        Work().Kept = Work().Text;
        Work().FileName = fileName;
        Work().HasWindowsLines = bytes.find("\r\n") != std::string::npos;
        ShowText(false);
    });
}

bool TDesignerPage::SaveFile(const String& fileName) {
    return TakeText() && FSurface->Try([&] {
        const std::string text = FSurface->FormText();
        ReplaceFile(fileName, Work().HasWindowsLines ? Utf8Encode(WithWindowsLines(text)) : text);
        Work().Kept = Work().Text = text;
        Work().FileName = fileName;
        Tell(u"Saved as " + fileName);
    });
}

void TDesignerPage::OpenClick(TObject*) {
    if (!MayLeave())
        return;
    if (const std::optional<String> file = AskForFile(GetParentForm(this)->GetHandle(), false, {}))
        OpenFile(*file);
}

void TDesignerPage::SaveClick(TObject*) {
    if (!TakeText())
        return;
    if (const std::optional<String> file = AskForFile(GetParentForm(this)->GetHandle(), true, Work().FileName))
        SaveFile(*file);
}

} // namespace gallery
