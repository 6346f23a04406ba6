#include "gallery/designerpage.h"

#include "framework/system/files.h"
#include "framework/system/numbers.h"
#include "framework/system/strings.h"
#include "framework/windows/application.h"
#include "framework/windows/button.h"
#include "framework/windows/label.h"
#include "framework/windows/latefunction.h"
#include "gallery/designsurface.h"
#include "gallery/files.h"
#include "gallery/palettelist.h"

#include <commdlg.h>
#include <optional>
#include <utility>

namespace gallery {

namespace {

const TPageClass page(&TDesignerPage::StaticClass);
const TPageClass surface(&TDesignSurface::StaticClass);
const TPageClass palette(&TPaletteList::StaticClass);

constexpr char kNewForm[] = "object Form1: TForm1\r\n"
                            "  Left = 0\r\n"
                            "  Top = 0\r\n"
                            "  Caption = 'Form1'\r\n"
                            "  ClientHeight = 240\r\n"
                            "  ClientWidth = 400\r\n"
                            "end\r\n";

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
    TFormLayout Layout;
    std::optional<TDesignHistory> Steps; ///< when the page went
    std::optional<String> View;          ///< the text in view that was no form when the page went
};

TDesignWork& Work() {
    static TDesignWork work{kNewForm, {}, {}, {}, {}, {}};
    return work;
}

/// "customer.dfm".
String NameOfWork() {
    const String& file = Work().FileName;
    return file.empty() ? String(u"the new form") : file.substr(file.find_last_of(u"/\\") + 1);
}

} // namespace

const TClassInfo& TDesignerPage::StaticClass() {
    using P = TDesignerPage;
    static const TClassInfo info = DescribeClass<TDesignerPage>(
        u"TDesignerPage", TForm::StaticClass(), {},
        {Method<&P::PaletteSelect>(u"PaletteSelect"), Method<&P::UndoClick>(u"UndoClick"),
         Method<&P::RedoClick>(u"RedoClick"), Method<&P::CutClick>(u"CutClick"), Method<&P::CopyClick>(u"CopyClick"),
         Method<&P::PasteClick>(u"PasteClick"), Method<&P::DeleteClick>(u"DeleteClick"),
         Method<&P::TextClick>(u"TextClick"), Method<&P::NewClick>(u"NewClick"), Method<&P::OpenClick>(u"OpenClick"),
         Method<&P::SaveClick>(u"SaveClick"), Method<&P::SaveAsClick>(u"SaveAsClick"),
         Method<&P::TextMemoChange>(u"TextMemoChange")});
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
    if (std::optional<TDesignHistory> steps = std::exchange(Work().Steps, std::nullopt))
        FSurface->Resume(*std::move(steps));
    else
        FSurface->Open(Work().Text);
    if (isNew)
        Work().Kept = Work().Text;
    if (const std::optional<String> view = std::exchange(Work().View, std::nullopt)) {
        ShowText(true);
        TextMemo().SetText(*view);
        TextMemo().SetModified(true);
    }
    ShowState();
}

TComponent* TDesignerPage::GetInspected() const {
    return FSurface ? FSurface->GetSelected() : nullptr;
}

String TDesignerPage::InspectorHint() const {
    return u"A double click on an event names its handler";
}

void TDesignerPage::KeyPressed(WORD& key, TShiftState shift) {
    if (shift != TShiftState{ssCtrl} || (key != 'N' && key != 'O' && key != 'S'))
        return;
    const WORD pressed = std::exchange(key, WORD{0});
    if (pressed == 'N')
        NewClick(this);
    else if (pressed == 'O')
        OpenClick(this);
    else
        SaveClick(this);
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
    ShowState();
    const int count = FSurface->GetForm() ? FSurface->GetForm()->GetComponentCount() : 0;
    String status = IntToStr(count) + (count == 1 ? u" component" : u" components");
    for (const String& note : FSurface->TakeNotes())
        status += u"; " + note;
    Tell(status);
}

/// The buttons and the name of the file. What works on components has nothing to work on while the form shows as text.
void TDesignerPage::ShowState() {
    const bool isForm = !ShowsText();
    const auto enable = [this](const char16_t* name, bool enabled) {
        if (auto* button = As<TButton>(FindComponent(name)))
            button->SetEnabled(enabled);
    };
    enable(u"UndoButton", isForm && FSurface->CanUndo());
    enable(u"RedoButton", isForm && FSurface->CanRedo());
    for (const char16_t* name : {u"CutButton", u"CopyButton", u"PasteButton", u"DeleteButton"})
        enable(name, isForm);
    if (auto* label = As<TLabel>(FindComponent(u"FileLabel")))
        label->SetText((Work().FileName.empty() ? String() : NameOfWork()) + (IsChanged() ? u" (changed)" : u""));
}

void TDesignerPage::SurfacePlaced(TObject*) {
    FPalette->SetItemIndex(-1);
}

void TDesignerPage::Tell(const String& text) {
    if (auto* label = As<TLabel>(FindComponent(u"StatusLabel")))
        label->SetText(text);
}

// Buttons

void TDesignerPage::FinishChanges() {
    if (OnFinishEdit)
        OnFinishEdit();
    FSurface->FinishDrag();
}

void TDesignerPage::OnSurface(void (TDesignSurface::*action)()) {
    FinishChanges();
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

TMemo& TDesignerPage::TextMemo() const {
    return *As<TMemo>(FindComponent(u"TextMemo"));
}

bool TDesignerPage::ShowsText() const {
    return !FSurface->GetVisible();
}

void TDesignerPage::ShowText(bool asText) {
    if (asText) {
        TFormLayout layout;
        layout.RawText = true; // letters are easier to read than codes
        TextMemo().SetText(Utf8Decode(FSurface->FormText(layout)));
        TextMemo().SetModified(false);
    }
    TextMemo().SetVisible(asText);
    FSurface->SetVisible(!asText);
    if (auto* button = As<TButton>(FindComponent(u"TextButton")))
        button->SetText(asText ? u"&Form" : u"Te&xt");
    ShowState();
}

/// Makes the text in view the form; false when it is none. It stays then, to be corrected.
bool TDesignerPage::TakeText() {
    FinishChanges();
    if (!ShowsText() || !TextMemo().GetModified())
        return true;
    const bool taken = FSurface->Try([this] { FSurface->Replace(Utf8Encode(TextMemo().GetText())); });
    TextMemo().SetModified(!taken);
    return taken;
}

void TDesignerPage::TextClick(TObject*) {
    FinishChanges();
    if (ShowsText() && TakeText()) {
        ShowText(false);
        FSurface->SetFocus();
    } else if (!ShowsText() && FSurface->Try([this] { ShowText(true); })) {
        TextMemo().SetFocus();
    }
}

void TDesignerPage::TextMemoChange(TObject*) {
    if (FSurface)
        ShowState();
}

// Files

bool TDesignerPage::IsChanged() const {
    return Work().Text != Work().Kept || Work().View || (ShowsText() && TextMemo().GetModified());
}

bool TDesignerPage::AskToSave(const String& note) {
    FinishChanges();
    if (!IsChanged())
        return true;
    const String question = u"Save the changes to " + NameOfWork() + u"?" + note;
    switch (TheApplication().MessageDialog(question, u"Designer", MB_YESNOCANCEL | MB_ICONQUESTION)) {
    case IDYES:
        return Save();
    case IDNO:
        return true;
    default:
        return false;
    }
}

bool TDesignerPage::MayLeave(bool forGood) {
    if (!AskToSave(forGood ? u"" : u"\n\nUnsaved, it stays in work until the gallery is closed."))
        return false;
    // A text that is no form waits as it is.
    if (!TakeText())
        Work().View = TextMemo().GetText();
    Work().Steps = FSurface->GetSteps();
    return true;
}

/// Shows the form that a file holds, or the new one without a file's name.
void TDesignerPage::Begin(const std::string& bytes, const String& fileName) {
    const TFormLayout layout = FSurface->Open(bytes);
    Work() = {Work().Text, Work().Text, fileName, layout, {}, {}};
    ShowText(false);
}

bool TDesignerPage::OpenFile(const String& fileName) {
    return FSurface->Try([&] { Begin(ReadFileBytes(fileName), fileName); });
}

bool TDesignerPage::SaveFile(const String& fileName) {
    return TakeText() && FSurface->Try([&] {
        TFormLayout layout = Work().Layout;
        String note;
        std::string bytes;
        try {
            bytes = FSurface->FormText(layout);
        } catch (const EConvertError& error) {
            layout.CodePage = TFallbackEncoding::None;
            layout.ByteOrderMark = true;
            bytes = FSurface->FormText(layout);
            note = u" in UTF-8: " + error.GetMessageText();
        }
        ReplaceFileBytes(fileName, bytes);
        Work() = {FSurface->FormText(), FSurface->FormText(), fileName, layout, {}, {}};
        ShowState();
        Tell(u"Saved as " + fileName + note);
    });
}

bool TDesignerPage::Save() {
    return Work().FileName.empty() ? SaveAs() : SaveFile(Work().FileName);
}

bool TDesignerPage::SaveAs() {
    if (!TakeText()) // before a file is asked for
        return false;
    const std::optional<String> file = AskForFile(GetParentForm(this)->GetHandle(), true, Work().FileName);
    return file && SaveFile(*file);
}

void TDesignerPage::NewClick(TObject*) {
    if (AskToSave())
        FSurface->Try([this] { Begin(kNewForm, {}); });
}

void TDesignerPage::OpenClick(TObject*) {
    if (!AskToSave())
        return;
    if (const std::optional<String> file = AskForFile(GetParentForm(this)->GetHandle(), false, {}))
        OpenFile(*file);
}

void TDesignerPage::SaveClick(TObject*) {
    Save();
}

void TDesignerPage::SaveAsClick(TObject*) {
    SaveAs();
}

} // namespace gallery
