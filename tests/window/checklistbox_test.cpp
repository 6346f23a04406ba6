// Lists with check boxes: states that go with their items, the user's clicks and keys, painting, handlers that change
// or free the list.

#include "framework/graphics/handles.h"
#include "framework/system/strings.h"
#include "framework/windows/application.h"
#include "framework/windows/checklistbox.h"
#include "tests/support/input.h"

#include <gtest/gtest.h>

using namespace framework;
using namespace testsupport;

namespace {

class CheckListBox : public testing::Test {
protected:
    void SetUp() override {
        Form = ShowForm();
        List = new TCheckListBox(Form.get());
        List->Items->CommaText = u"d,b,c,a";
        List->OnClickCheck = [this](TObject*) { ++Checks; };
        List->OnClick = [this](TObject*) { ++Clicks; };
    }
    void GiveWindow() {
        List->Parent = Form.get();
        List->SetBounds(10, 10, 150, 120);
        List->SetFocus();
        Application->ProcessMessages();
    }
    /// The items with their states: + checked, ~ grayed, ! not enabled.
    String States() {
        String result;
        for (int i = 0; i < List->Count; ++i) {
            result += List->Items->Get(i);
            result += List->State[i] == cbChecked ? u"+" : List->State[i] == cbGrayed ? u"~" : u"";
            result += List->ItemEnabled[i] ? u"" : u"!";
        }
        return result;
    }
    bool Becomes(const String& states) {
        return WaitFor([&] { return States() == states; });
    }
    TPoint BoxOf(int index) {
        const TRect item = List->ItemRect(index);
        return {item.Left + 8, (item.Top + item.Bottom) / 2};
    }
    TPoint TextOf(int index) { return {BoxOf(index).X + 30, BoxOf(index).Y}; }

    std::unique_ptr<TForm> Form;
    TCheckListBox* List = nullptr;
    int Checks = 0;
    int Clicks = 0;
};

TEST_F(CheckListBox, StatesGoWithTheirItems) {
    for (const bool withWindow : {false, true}) {
        SCOPED_TRACE(withWindow ? "with a window" : "without a window");
        if (withWindow)
            GiveWindow();
        List->Sorted = false;
        List->Items->CommaText = u"d,b,c,a";
        List->Items->PutObject(1, List);
        List->Checked[1] = true;
        List->State[2] = cbGrayed;
        List->ItemEnabled[3] = false;
        EXPECT_EQ(States(), u"db+c~a!");
        EXPECT_EQ(List->Items->GetItemObject(1), List) << "the object is there beside the state";
        EXPECT_EQ(List->Items->IndexOfObject(List), 1);
        List->Items->Insert(0, u"e");
        List->Items->Put(2, u"B");
        EXPECT_EQ(States(), u"edB+c~a!");
        List->Items->Move(2, 4);
        List->Items->Exchange(0, 3);
        EXPECT_EQ(States(), u"a!dc~eB+");
        EXPECT_EQ(List->Items->GetItemObject(4), List);
        List->Sorted = true;
        EXPECT_EQ(States(), u"a!B+c~de");
        List->Items->Delete(0);
        List->RecreateWnd();
        EXPECT_EQ(States(), u"B+c~de");
        EXPECT_THROW(List->Checked[4] = true, EListError);
        EXPECT_THROW(List->GetState(-1), EListError);
        List->Clear();
        List->Items->Add(u"x");
        EXPECT_EQ(States(), u"x");
    }
    EXPECT_EQ(Checks, 0) << "the program sets states without an event";
}

TEST_F(CheckListBox, UserChangesStates) {
    GiveWindow();
    List->ItemEnabled[3] = false;
    ClickOn(*List, BoxOf(1));
    EXPECT_TRUE(Becomes(u"db+ca!"));
    EXPECT_EQ(Checks, 1);
    EXPECT_TRUE(WaitFor([&] { return Clicks == 1; })) << Clicks;
    ClickOn(*List, BoxOf(1)); // soon enough to count as a double click
    EXPECT_TRUE(Becomes(u"dbca!"));
    ClickOn(*List, TextOf(2));
    EXPECT_TRUE(WaitFor([&] { return List->ItemIndex == 2; }));
    EXPECT_EQ(States(), u"dbca!") << "the text chooses, it does not check";
    PressKey(VK_SPACE);
    EXPECT_TRUE(Becomes(u"dbc+a!"));
    List->AllowGrayed = true;
    PressKey(VK_SPACE);
    EXPECT_TRUE(Becomes(u"dbca!"));
    PressKey(VK_SPACE);
    EXPECT_TRUE(Becomes(u"dbc~a!"));
    PressKey(VK_SPACE);
    EXPECT_TRUE(Becomes(u"dbc+a!"));
    EXPECT_EQ(Checks, 6);
    PressKey(VK_DOWN);
    PressKey(VK_SPACE);
    ClickOn(*List, BoxOf(3));
    ClickOn(*List, {60, 110}); // below the last item
    Application->ProcessMessages();
    EXPECT_EQ(States(), u"dbc+a!") << "an item that is not enabled keeps its state";
    EXPECT_EQ(Checks, 6);
}

TEST_F(CheckListBox, ShowsItsStates) {
    GiveWindow();
    ::SetFocus(nullptr); // no item has a focus rectangle
    Form->Update();
    const auto picture = [&](int index, int width = 18) {
        const TRect item = List->ItemRect(index);
        std::vector<COLORREF> pixels;
        for (int y = item.Top; y < item.Bottom; ++y) {
            for (int x = item.Left; x < item.Left + width; ++x)
                pixels.push_back(PixelOf(*List, {x, y}));
        }
        return pixels;
    };
    const auto empty = picture(0);
    EXPECT_EQ(picture(1), empty);
    EXPECT_GT(std::count_if(empty.begin(), empty.end(), [](COLORREF color) { return color != 0xFFFFFF; }), 20)
        << "there is a box";
    TListBox plain(nullptr);
    plain.Parent = Form.get();
    plain.SetBounds(200, 10, 100, 100);
    Form->Update();
    const auto border = [](TWinControl& list) {
        const TWindowDC dc(list.Handle, TWindowDC::Whole);
        return GetPixel(dc, 0, 50);
    };
    EXPECT_EQ(border(*List), border(plain)) << "the border of any list";
    const auto withText = picture(3, 40);
    List->Checked[1] = true;
    List->State[2] = cbGrayed;
    List->ItemEnabled[3] = false;
    Form->Update();
    EXPECT_NE(picture(1), empty);
    EXPECT_NE(picture(2), empty);
    EXPECT_NE(picture(2), picture(1));
    EXPECT_NE(picture(3, 40), withText) << "what is not enabled is grey";
    List->Checked[1] = false;
    Form->Update();
    EXPECT_EQ(picture(1), empty);
    List->Font->Size = 20;
    EXPECT_GT(List->ItemRect(0).Height(), 28) << "items grow with the font";
}

TEST_F(CheckListBox, HandlersMayChangeAndFreeTheList) {
    GiveWindow();
    List->OnClickCheck = [this](TObject*) { List->Clear(); };
    ClickOn(*List, BoxOf(1));
    EXPECT_TRUE(Becomes(u""));
    List->Items->CommaText = u"a,b";
    List->OnClickCheck = [this](TObject*) { delete std::exchange(List, nullptr); };
    ClickOn(*List, BoxOf(1));
    EXPECT_TRUE(WaitFor([&] { return List == nullptr; }));
    Application->ProcessMessages();
}

} // namespace
