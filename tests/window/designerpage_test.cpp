// The form designer as a person uses it: every component of the palette, the forms of the gallery, and what must not be
// lost on the way from a file to a file.

#include "framework/system/files.h"
#include "framework/system/formloader.h"
#include "framework/system/numbers.h"
#include "framework/windows/application.h"
#include "framework/windows/button.h"
#include "framework/windows/label.h"
#include "framework/windows/memo.h"
#include "gallery/collectiondialog.h"
#include "gallery/designerpage.h"
#include "gallery/designsurface.h"
#include "gallery/eventlog.h"
#include "gallery/eventsignatures.h"
#include "gallery/inspector.h"
#include "gallery/mainform.h"
#include "gallery/pagearea.h"
#include "gallery/pagelist.h"
#include "gallery/palettelist.h"
#include "tests/support/input.h"
#include "tests/support/messageboxes.h"
#include "zor.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace {

using namespace framework;
using namespace gallery;
using namespace testsupport;

class DesignerPage : public testing::Test {
protected:
    static void SetUpTestSuite() {
        Application->Initialize();
        RegisterStandardControls();
        ZOR::RegisterPackage();
        RegisterPageClasses();
        RegisterClasses({&TGalleryForm::StaticClass(), &TPageArea::StaticClass(), &TPageList::StaticClass(),
                         &TInspector::StaticClass(), &TEventLog::StaticClass()}); // of the gallery's main form
    }

    DesignerPage() : Window(ShowForm()) {
        Window->SetBounds(0, 0, 800, 620);
        Page = MakePage();
        Surface = As<TDesignSurface>(Page->FindComponent(u"Surface"));
        Palette = As<TPaletteList>(Page->FindComponent(u"Palette"));
        Folder = std::filesystem::temp_directory_path() / ("designer" + std::to_string(GetCurrentProcessId()));
        std::filesystem::create_directories(Folder);
    }
    ~DesignerPage() override {
        std::error_code ignored;
        std::filesystem::remove_all(Folder, ignored);
    }

    std::unique_ptr<TDesignerPage> MakePage() const {
        auto loaded = CreateFromTextForm(ReadFileBytes(u"gallery/forms/designer.dfm"), nullptr);
        std::unique_ptr<TDesignerPage> page(As<TDesignerPage>(loaded.release()));
        page->SetBorderStyle(framework::bsNone);
        page->SetParent(Window.get());
        page->SetVisible(true);
        return page;
    }
    template <class T>
    T& Part(const char16_t* name) const {
        return *As<T>(Page->FindComponent(name));
    }
    String Status() const { return Part<TLabel>(u"StatusLabel").GetText(); }
    void Click(const char16_t* button) const { Part<TButton>(button).Click(); }

    String FileOf(const std::string& name) const { return (Folder / name).u16string(); }
    bool OpenText(const std::string& text) const {
        std::ofstream(Folder / "opened.dfm", std::ios::binary) << text;
        return Page->OpenFile(FileOf("opened.dfm"));
    }
    std::string Saved() const {
        return Page->SaveFile(FileOf("saved.dfm")) ? ReadFileBytes(FileOf("saved.dfm")) : "not saved";
    }
    void ClickOnComponent(const String& name) const {
        const std::optional<TRect> spot = Surface->FindSpot({u"component", name});
        ASSERT_TRUE(spot) << Utf8Encode(name);
        ClickOn(*Surface, {spot->Left + 6, spot->Top + 6});
        ASSERT_TRUE(WaitFor([&] { return Surface->GetSelected()->GetName() == name; })) << Utf8Encode(name);
    }

    std::unique_ptr<TForm> Window;
    std::unique_ptr<TDesignerPage> Page;
    TDesignSurface* Surface = nullptr;
    TPaletteList* Palette = nullptr;
    std::filesystem::path Folder;
};

TEST_F(DesignerPage, PlacesEveryComponentAndSavesWhatItOpens) {
    ASSERT_TRUE(OpenText("object Form1: TForm\r\n  ClientHeight = 440\r\n  ClientWidth = 540\r\nend\r\n"));
    int placed = 0;
    for (const TPalettePage& page : PalettePages()) {
        for (const TClassInfo* each : page.Classes) {
            SCOPED_TRACE(Utf8Encode(each->Name()));
            const std::optional<TRect> row = Palette->FindSpot({u"row", each->Name()});
            ASSERT_TRUE(row);
            ClickOn(*Palette, {row->Left + 20, row->Top + 5});
            ASSERT_TRUE(WaitFor([&] { return Palette->GetChosen() == each; }));
            const TRect spot =
                *Surface->FindSpot({u"point", IntToStr(8 + placed % 8 * 64), IntToStr(10 + placed / 8 * 72)});
            ClickOn(*Surface, {spot.Left, spot.Top});
            ++placed;
            ASSERT_TRUE(WaitFor([&] { return Surface->GetForm()->GetComponentCount() == placed; }))
                << Utf8Encode(Status());
            EXPECT_EQ(Surface->GetSelected()->ClassName(), each->Name());
            EXPECT_EQ(Palette->GetChosen(), nullptr);
        }
    }
    ASSERT_GT(placed, 35);
    const std::string first = Saved();
    EXPECT_NE(first.find("  ClientWidth = 540\r\n"), std::string::npos) << "lines end as in the file that was opened";
    ASSERT_TRUE(Page->OpenFile(FileOf("saved.dfm"))) << Utf8Encode(Status());
    EXPECT_EQ(Surface->GetForm()->GetComponentCount(), placed);
    EXPECT_EQ(Saved(), first);
    EXPECT_FALSE(Page->IsChanged());
}

TEST_F(DesignerPage, APartThatLiesBesideItsControlStandsForIt) {
    ASSERT_TRUE(OpenText("object Form1: TForm\r\n  ClientHeight = 200\r\n  ClientWidth = 300\r\n"
                         "  object Tree1: TZORVirtualStringTree\r\n    Left = 20\r\n    Top = 20\r\n"
                         "    Width = 200\r\n    Height = 120\r\n    CheckBoxStyle = True\r\n"
                         "    SearchEditVisible = True\r\n  end\r\nend\r\n"));
    const TRect spot = *Surface->FindSpot({u"point", u"100", u"52"}); // on the search edit
    ClickOn(*Surface, {spot.Left, spot.Top});
    EXPECT_TRUE(WaitFor([&] { return Surface->GetSelected()->GetName() == u"Tree1"; }));
}

TEST_F(DesignerPage, OpensTheFormsOfTheGallery) {
    int forms = 0;
    for (const auto& each : std::filesystem::directory_iterator("gallery/forms")) {
        SCOPED_TRACE(each.path().filename().string());
        ASSERT_TRUE(Page->OpenFile(each.path().u16string())) << Utf8Encode(Status());
        const std::string first = Saved();
        EXPECT_EQ(first.find('\r'), std::string::npos);
        ASSERT_TRUE(Page->OpenFile(FileOf("saved.dfm"))) << Utf8Encode(Status());
        EXPECT_EQ(Saved(), first);
        // Its last control can be reached, however large the form is.
        const int count = Surface->GetForm()->GetComponentCount();
        for (int i = count; i-- > 0;) {
            const TComponent* component = Surface->GetForm()->GetComponent(i);
            const auto* control = As<TControl>(component);
            if (!control || control->GetParent() != Surface->GetForm() || component->GetName().empty())
                continue;
            const TRect spot = *Surface->FindSpot({u"component", component->GetName()});
            EXPECT_TRUE(Surface->GetClientRect().Contains({spot.Left, spot.Top})) << Utf8Encode(component->GetName());
            break;
        }
        ++forms;
    }
    EXPECT_GT(forms, 5);
}

constexpr char kLinked[] = "object Form1: TForm\n"
                           "  Left = 0\n"
                           "  Top = 0\n"
                           "  Caption = 'Linked'\n"
                           "  ClientHeight = 300\n"
                           "  ClientWidth = 500\n"
                           "  Color = clBtnFace\n"
                           "  Font.Charset = DEFAULT_CHARSET\n"
                           "  Font.Color = clWindowText\n"
                           "  Font.Height = -15\n"
                           "  Font.Name = 'Tahoma'\n"
                           "  Font.Style = []\n"
                           "  PixelsPerInch = 120\n"
                           "  TextHeight = 18\n"
                           "  object Label1: TLabel\n"
                           "    Left = 8\n"
                           "    Top = 200\n"
                           "    Width = 40\n"
                           "    Height = 18\n"
                           "    Caption = 'Name'\n"
                           "    FocusControl = Edit1\n"
                           "  end\n"
                           "  object Panel1: TPanel\n"
                           "    Left = 8\n"
                           "    Top = 8\n"
                           "    Width = 200\n"
                           "    Height = 100\n"
                           "    TabOrder = 0\n"
                           "    object Edit1: TEdit\n"
                           "      Left = 40\n"
                           "      Top = 40\n"
                           "      Width = 121\n"
                           "      Height = 26\n"
                           "      TabOrder = 0\n"
                           "      Text = 'Edit1'\n"
                           "    end\n"
                           "  end\n"
                           "  object Grid1: TZORDBGrid\n"
                           "    Left = 220\n"
                           "    Top = 8\n"
                           "    Width = 200\n"
                           "    Height = 120\n"
                           "    DataSource = Data.Customers\n"
                           "    TabOrder = 1\n"
                           "  end\n"
                           "  object Orders: TADODataSet\n"
                           "    Active = True\n"
                           "    CommandText = 'select * from orders'\n"
                           "    ConnectionString = 'DRIVER=Nobody'\n"
                           "    Left = 300\n"
                           "    Top = 200\n"
                           "    object OrdersId: TIntegerField\n"
                           "      FieldName = 'Id'\n"
                           "    end\n"
                           "  end\n"
                           "end\n";

TEST_F(DesignerPage, KeepsWhatItCannotShow) {
    ASSERT_TRUE(OpenText(kLinked)) << Utf8Encode(Status());
    EXPECT_NE(Status().find(u"Orders: "), String::npos) << "the dataset could not be opened: " << Utf8Encode(Status());
    // The size of 120 pixels an inch, the form that the grid refers to, and Active are all still there.
    const std::string saved = Saved();
    for (const char* line : {"  ClientWidth = 500\n", "  Font.Height = -15\n", "  PixelsPerInch = 120\n",
                             "    DataSource = Data.Customers\n", "    Active = True\n"})
        EXPECT_NE(saved.find(line), std::string::npos) << line << saved;

    // What others refer to can be deleted, alone and with what it lies in.
    for (const char16_t* name : {u"Edit1", u"Panel1"}) {
        ClickOnComponent(name);
        PressKey(VK_DELETE);
        ASSERT_TRUE(WaitFor([&] { return !Surface->GetForm()->FindComponent(name); }));
        EXPECT_FALSE(Surface->GetForm()->FindComponent(u"Edit1"));
        EXPECT_EQ(Surface->FormText().find("FocusControl"), std::string::npos);
        EXPECT_NE(Surface->FormText().find("DataSource = Data.Customers"), std::string::npos);
        Click(u"UndoButton");
        EXPECT_EQ(Surface->FormText(), saved);
    }

    // What is pasted leaves out the references that lead nowhere.
    ClickOnComponent(u"Label1");
    Click(u"CopyButton");
    ASSERT_TRUE(OpenText("object Form2: TForm\nend\n"));
    Click(u"PasteButton");
    ASSERT_EQ(Surface->GetForm()->GetComponentCount(), 1);
    EXPECT_NE(Status().find(u"FocusControl was left out"), String::npos) << Utf8Encode(Status());
    EXPECT_TRUE(Page->IsChanged());
}

TEST_F(DesignerPage, SavesTheHandlersThatEventsAreGiven) {
    ASSERT_TRUE(OpenText(kLinked));
    const std::string before = Surface->FormText();
    TForm& form = *As<TForm>(Surface->GetForm());
    const auto give = [&](TPersistent& object, const char16_t* event, const char16_t* handler) {
        WriteRow(*FindRow(object, event), handler);
        Surface->NoteChange();
    };
    give(form, u"OnCreate", u"FormCreate");
    give(*form.FindComponent(u"Edit1"), u"OnKeyPress", u"Typed");
    give(*form.FindComponent(u"Orders"), u"AfterScroll", u"OrdersScrolled");
    const std::string saved = Saved();
    for (const char* line :
         {"\n  OnCreate = FormCreate\n", "\n      OnKeyPress = Typed\n", "\n    AfterScroll = OrdersScrolled\n"})
        EXPECT_NE(saved.find(line), std::string::npos) << line << saved;
    ASSERT_TRUE(Page->OpenFile(FileOf("saved.dfm"))) << Utf8Encode(Status());
    EXPECT_EQ(Saved(), saved);
    TComponent& edit = *Surface->GetForm()->FindComponent(u"Edit1");
    EXPECT_EQ(RowChoices(*FindRow(edit, u"OnKeyPress")), (std::vector<String>{u"", u"Typed"}));
    give(edit, u"OnKeyPress", u"");
    EXPECT_EQ(Surface->FormText().find("OnKeyPress"), std::string::npos);
    Surface->Undo();
    EXPECT_EQ(Saved(), saved);
}

TEST_F(DesignerPage, SavesTheListsAndCollectionsOfEveryComponent) {
    int lists = 0;
    int collections = 0;
    for (const TClassInfo* each : RegisteredClasses()) {
        const bool isOnPalette =
            std::any_of(PalettePages().begin(), PalettePages().end(), [&](const TPalettePage& page) {
                return std::find(page.Classes.begin(), page.Classes.end(), each) != page.Classes.end();
            });
        if (!isOnPalette)
            continue;
        SCOPED_TRACE(Utf8Encode(each->Name()));
        ASSERT_TRUE(OpenText("object Form1: TForm\n  object Some1: " + Utf8Encode(each->Name()) + "\n  end\nend\n"));
        const auto component = [&] { return Surface->GetForm()->FindComponent(u"Some1"); };
        TInspectorTree tree;
        tree.SetRoot(component());
        for (std::size_t i = 0; i < tree.Rows().size(); ++i)
            tree.SetExpanded(i, true);
        std::vector<String> paths;
        for (const TInspectorRow& row : tree.Rows()) {
            if (RowEditor(row) == TRowEditor::Lines || RowItems(row))
                paths.push_back(row.Path);
        }
        for (const String& path : paths) {
            SCOPED_TRACE(Utf8Encode(path));
            const TInspectorRow row = *FindRow(*component(), path);
            if (TCollection* items = RowItems(row)) {
                items->Add();
                items->Add();
                ++collections;
            } else {
                WriteRow(row, u"one\r\ntwo");
                ++lists;
            }
            Surface->NoteChange();
            EXPECT_TRUE(Surface->CanUndo()) << "the form keeps it";
            const String shown = RowText(*FindRow(*component(), path));
            const std::string text = Surface->FormText();
            Surface->Replace(text);
            EXPECT_EQ(Surface->FormText(), text);
            EXPECT_EQ(RowText(*FindRow(*component(), path)), shown);
            Surface->Undo();
            EXPECT_FALSE(Surface->CanUndo()) << "one step";
        }
    }
    EXPECT_GE(lists, 8);
    EXPECT_GE(collections, 5);
}

TEST_F(DesignerPage, SavesTheTextThatIsInView) {
    ASSERT_TRUE(OpenText("object Form1: TForm\nend\n"));
    Click(u"TextButton");
    auto& memo = Part<TMemo>(u"TextMemo");
    ASSERT_TRUE(WaitFor([&] { return memo.Focused(); }));
    for (const char16_t* name : {u"UndoButton", u"PasteButton", u"DeleteButton"})
        EXPECT_FALSE(Part<TButton>(name).GetEnabled());
    memo.SetSelStart(static_cast<int>(memo.GetText().find(u"Left")));
    TypeText(u"Tag = 7 ");
    ASSERT_TRUE(WaitFor([&] { return memo.GetText().find(u"Tag = 7 Left") != String::npos; }));
    EXPECT_TRUE(Page->IsChanged());
    const std::string saved = Saved();
    EXPECT_NE(saved.find("  Tag = 7\n"), std::string::npos) << saved;
    memo.SetSelStart(0);
    TypeText(u"x");
    ASSERT_TRUE(WaitFor([&] { return memo.GetText().starts_with(u"x"); }));
    EXPECT_EQ(Saved(), "not saved");
    EXPECT_EQ(ReadFileBytes(FileOf("saved.dfm")), saved);
    EXPECT_NE(Status().find(u"(1,1)"), String::npos) << Utf8Encode(Status());
}

TEST_F(DesignerPage, SavesInTheLayoutAndTheEncodingOfTheFile) {
    ASSERT_TRUE(OpenText("object Form1: TForm\n  Caption = 'Za\xC5\xBC\xC3\xB3\xC5\x82\xC4\x87'\nend\n"));
    const TFormDocument form = ParseTextForm(Saved());
    const TFormLineEnd lf = TFormLineEnd::Lf;
    for (const TFormLayout& layout :
         {TFormLayout{lf, false, true}, TFormLayout{lf, true, true}, TFormLayout{TFormLineEnd::CrLf, false, false},
          TFormLayout{TFormLineEnd::CrLf, false, true, false, TFallbackEncoding::Windows1250}}) {
        const std::string bytes = WriteTextForm(form, layout);
        ASSERT_TRUE(OpenText(bytes)) << Utf8Encode(Status());
        EXPECT_EQ(Saved(), bytes);
    }
    // Still the code page: a letter that it lacks becomes a code, and only a name makes UTF-8 of it, which is told.
    const auto write = [&](const char16_t* property, const char16_t* value) {
        WriteRow(*FindRow(*Surface->GetForm(), property), value);
        Surface->NoteChange();
        return Saved();
    };
    EXPECT_NE(write(u"Caption", u"\u0141\u00F3d\u017A \u03A9")
                  .find("'\xA3\xF3"
                        "d\x9F '#937"),
              std::string::npos);
    EXPECT_EQ(Status().find(u"UTF-8"), String::npos);
    EXPECT_TRUE(write(u"Name", u"\u03A9").starts_with("\xEF\xBB\xBFobject \xCE\xA9: TForm\r\n"));
    EXPECT_NE(Status().find(u"in UTF-8"), String::npos) << Utf8Encode(Status());
}

TEST_F(DesignerPage, KeepsTheOldFileWhenWritingFails) {
    ASSERT_TRUE(OpenText(kLinked));
    const std::string before = ReadFileBytes(FileOf("opened.dfm"));
    WriteRow(*FindRow(*Surface->GetForm(), u"Caption"), u"Changed");
    Surface->NoteChange();
    const HANDLE held = CreateFileW(std::filesystem::path(FileOf("opened.dfm")).c_str(), GENERIC_READ, 0, nullptr,
                                    OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(held, INVALID_HANDLE_VALUE);
    EXPECT_FALSE(Page->SaveFile(FileOf("opened.dfm")));
    EXPECT_NE(Status().find(u"Cannot write file"), String::npos) << Utf8Encode(Status());
    CloseHandle(held);
    EXPECT_FALSE(Page->SaveFile(FileOf("nowhere/saved.dfm")));
    EXPECT_EQ(ReadFileBytes(FileOf("opened.dfm")), before);
    EXPECT_TRUE(Page->IsChanged());
    for (const auto& each : std::filesystem::directory_iterator(Folder))
        EXPECT_EQ(each.path().filename(), "opened.dfm") << "left of an attempt";
    EXPECT_TRUE(Page->SaveFile(FileOf("opened.dfm"))) << Utf8Encode(Status());
    EXPECT_FALSE(Page->IsChanged());
    EXPECT_NE(ReadFileBytes(FileOf("opened.dfm")).find("'Changed'"), std::string::npos);
}

TEST_F(DesignerPage, AsksBeforeAChangedFormGoes) {
    TBoxReader boxes;
    ASSERT_TRUE(OpenText("object Form1: TForm\nend\n"));
    EXPECT_TRUE(Page->MayLeave(true));
    EXPECT_TRUE(boxes.Seen.empty()) << "nothing was changed";
    WriteRow(*FindRow(*Surface->GetForm(), u"Caption"), u"Changed");
    Surface->NoteChange();
    const std::string changed = Surface->FormText();

    boxes.Answer = IDCANCEL;
    EXPECT_FALSE(Page->MayLeave(true));
    Click(u"NewButton");
    ASSERT_EQ(boxes.Seen.size(), 2U);
    EXPECT_EQ(boxes.Seen[0].Text, u"Save the changes to opened.dfm?");
    EXPECT_EQ(Surface->FormText(), changed) << "no new form";

    boxes.Answer = IDNO;
    EXPECT_TRUE(Page->MayLeave(false));
    EXPECT_TRUE(Page->IsUnsaved()) << "it stays in work";
    EXPECT_EQ(ReadFileBytes(FileOf("opened.dfm")).find("Changed"), std::string::npos);

    // A text in view that is no form is neither saved nor lost.
    Click(u"TextButton");
    Part<TMemo>(u"TextMemo").SetText(u"oops");
    Part<TMemo>(u"TextMemo").SetModified(true);
    boxes.Answer = IDYES;
    EXPECT_FALSE(Page->MayLeave(false));
    EXPECT_NE(Status().find(u"(1,1)"), String::npos) << Utf8Encode(Status());
    boxes.Answer = IDNO;
    EXPECT_TRUE(Page->MayLeave(false));
    Page->SetParent(nullptr);
    Page = MakePage();
    EXPECT_EQ(Part<TMemo>(u"TextMemo").GetText(), u"oops");
    Surface = As<TDesignSurface>(Page->FindComponent(u"Surface"));
    EXPECT_EQ(Surface->FormText(), changed);
    EXPECT_TRUE(Surface->CanUndo()) << "nor are the steps";

    boxes.Answer = IDYES;
    Part<TMemo>(u"TextMemo").SetText(Utf8Decode(changed));
    Part<TMemo>(u"TextMemo").SetModified(true);
    EXPECT_TRUE(Page->MayLeave(true));
    EXPECT_FALSE(Page->IsUnsaved());
    EXPECT_NE(ReadFileBytes(FileOf("opened.dfm")).find("'Changed'"), std::string::npos);
    boxes.Seen.clear();
    Click(u"NewButton");
    EXPECT_TRUE(boxes.Seen.empty());
    // A new form has a class of its own, which keeps to its name.
    WriteRow(*FindRow(*Surface->GetForm(), u"OnCreate"), u"FormCreate");
    WriteRow(*FindRow(*Surface->GetForm(), u"Name"), u"Customer");
    Surface->NoteChange();
    const std::string customer = Surface->FormText();
    EXPECT_TRUE(customer.starts_with("object Customer: TCustomer\n")) << customer;
    EXPECT_NE(customer.find("  OnCreate = FormCreate\n"), std::string::npos);
    Surface->Replace(customer);
    EXPECT_EQ(Surface->FormText(), customer);
}

TEST_F(DesignerPage, EndsADragThatIsTakenAwayAsAStep) {
    TBoxReader boxes;
    boxes.Answer = IDCANCEL;
    const struct {
        const char* Name;
        TPoint To;
        std::function<void()> TakeAway;
    } ways[] = {{"cancelled", {42, 10}, [&] { Surface->Perform(WM_CANCELMODE, 0, 0); }},
                {"a new form is wanted",
                 {42, 10},
                 [&] {
                     WORD key = 'N';
                     Page->KeyPressed(key, {ssCtrl});
                 }},
                {"somebody else has the mouse", {42, 560}, [&] { SetCapture(Window->GetHandle()); }}};
    for (const auto& way : ways) {
        SCOPED_TRACE(way.Name);
        ASSERT_TRUE(OpenText(kLinked));
        const TRect spot = *Surface->FindSpot({u"component", u"Edit1"});
        const auto at = [&](int x, int y) { return Surface->ClientToScreen({spot.Left + x, spot.Top + y}); };
        const std::string before = Surface->FormText();
        PressMouse(at(10, 10));
        MoveMouse(at(20, 20));
        MoveMouse(at(way.To.X, way.To.Y));
        EXPECT_TRUE(WaitFor([&] { return Surface->FormText() != before; }));
        way.TakeAway();
        EXPECT_TRUE(WaitFor([&] { return Surface->CanUndo(); }));
        ReleaseMouse();
        ReleaseCapture();
        Surface->Undo();
        EXPECT_EQ(Surface->FormText(), before);
    }
    EXPECT_EQ(boxes.Seen.size(), 1U) << "asked before the new form";
}

TEST_F(DesignerPage, KnowsAChangeOfACollectionThatRaisesOnItsWay) {
    struct TComplaining : TCollection {
        TComplaining() : TCollection(ItemsOf<TCollectionItem>()) {}
        void Update(TCollectionItem*) override { throw EListError(u"one too many"); }
    } items;
    TCollectionDialog dialog(nullptr);
    String told;
    TTimer person(nullptr);
    person.SetInterval(10);
    person.OnTimer = [&](TObject*) {
        person.SetEnabled(false);
        As<TButton>(dialog.FindComponent(u"ItemAdd"))->Click();
        told = As<TLabel>(dialog.FindComponent(u"ItemProblem"))->GetText();
        dialog.SetModalResult(mrOk);
    };
    EXPECT_TRUE(dialog.Edit(u"Items", items));
    EXPECT_EQ(items.GetCount(), 1);
    EXPECT_EQ(told, u"one too many");
}

TEST_F(DesignerPage, ScrollsWhileSomethingIsDraggedBeyondItsEdge) {
    ASSERT_TRUE(OpenText("object Form1: TForm\n  ClientHeight = 640\n  ClientWidth = 760\n"
                         "  object Edit1: TEdit\n    Left = 16\n    Top = 16\n  end\nend\n"));
    const std::string before = Surface->FormText();
    auto& edit = *As<TControl>(Surface->GetForm()->FindComponent(u"Edit1"));
    const TRect spot = *Surface->FindSpot({u"component", u"Edit1"});
    const auto at = [&](int x, int y) { return Surface->ClientToScreen({x, y}); };
    PressMouse(at(spot.Left + 10, spot.Top + 10));
    MoveMouse(at(spot.Left + 30, spot.Top + 20));
    MoveMouse(at(Surface->GetClientWidth() + 20, Surface->GetClientHeight() + 20));
    // To the ends of the form, and the edit with it.
    EXPECT_TRUE(WaitFor([&] { return edit.GetLeft() > 700 && edit.GetTop() > 600; }, 30000))
        << edit.GetLeft() << "," << edit.GetTop();
    EXPECT_GT(Surface->GetHorzScrollBar()->GetPosition(), 100);
    MoveMouse(at(-40, -40));
    EXPECT_TRUE(WaitFor([&] { return Surface->GetVertScrollBar()->GetPosition() == 0; }, 30000));
    ReleaseMouse();
    ASSERT_TRUE(WaitFor([&] { return Surface->CanUndo(); }));
    Surface->Undo();
    EXPECT_EQ(Surface->FormText(), before) << "one step";
}

TEST_F(DesignerPage, IsLeftByTheTabKeyBehindTheLastComponent) {
    ASSERT_TRUE(OpenText("object Form1: TForm\n  object Edit1: TEdit\n  end\n  object Edit2: TEdit\n  end\nend\n"));
    Surface->SetFocus();
    String way;
    for (int i = 0; i < 3; ++i) {
        const TComponent* before = Surface->GetSelected();
        PressKey(VK_TAB);
        ASSERT_TRUE(WaitFor([&] { return Surface->GetSelected() != before; }));
        way += Surface->GetSelected()->GetName() + (Surface->Focused() ? u" " : u"!");
    }
    EXPECT_EQ(way, u"Edit1 Edit2 Form1!");
    Surface->SetFocus();
    PressKey(VK_TAB, {ssShift});
    ASSERT_TRUE(WaitFor([&] { return Surface->GetSelected()->GetName() == u"Edit2"; }));
}

TEST_F(DesignerPage, KnowsTheSignatureOfEveryEvent) {
    for (const TClassInfo* each : RegisteredClasses()) {
        for (const TPropInfo& row : each->Properties())
            EXPECT_TRUE(row.Kind != tkMethod || FindSignature(row.Signature))
                << Utf8Encode(each->Name() + u"." + row.Name);
    }
}

} // namespace
