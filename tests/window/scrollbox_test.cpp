// The scroll box: ranges from its children, bars, wheel and keys, and controls that come into view when asked to.

#include "framework/system/formloader.h"
#include "framework/windows/application.h"
#include "framework/windows/edit.h"
#include "framework/windows/label.h"
#include "framework/windows/panel.h"
#include "framework/windows/scrollbox.h"
#include "framework/windows/standardcontrols.h"
#include "tests/support/input.h"

#include <gtest/gtest.h>

using namespace framework;
using namespace testsupport;

namespace {

class ScrollBoxTest : public testing::Test {
protected:
    void SetUp() override {
        Form = ShowForm();
        Box = new TScrollBox(Form.get());
        Box->Parent = Form.get();
        Box->SetBounds(10, 10, 200, 150);
        Near = Add(10, 10);
        Far = Add(300, 400);
        Near->SetFocus();
        Application->ProcessMessages();
    }
    TEdit* Add(int left, int top) {
        auto* edit = new TEdit(Form.get());
        edit->Parent = Box;
        edit->SetBounds(left, top, 100, 21);
        return edit;
    }
    bool HasBar(LONG_PTR style) { return (GetWindowLongPtrW(Box->Handle, GWL_STYLE) & style) != 0; }
    int Vertical() { return Box->VertScrollBar->Position; }
    int Horizontal() { return Box->HorzScrollBar->Position; }
    void Wheel(int delta, WPARAM keys = 0) {
        SendMessageW(Near->Handle, WM_MOUSEWHEEL, keys | static_cast<WPARAM>(delta << 16), 0);
    }

    std::unique_ptr<TForm> Form;
    TScrollBox* Box = nullptr;
    TEdit* Near = nullptr;
    TEdit* Far = nullptr;
};

TEST_F(ScrollBoxTest, RangesFollowTheChildren) {
    EXPECT_EQ(Box->HorzScrollBar->Range, 400);
    EXPECT_EQ(Box->VertScrollBar->Range, 421);
    EXPECT_TRUE(HasBar(WS_VSCROLL) && HasBar(WS_HSCROLL));
    Box->VertScrollBar->Margin = 9;
    EXPECT_EQ(Box->VertScrollBar->Range, 430);
    Box->VertScrollBar->Position = 1000;
    EXPECT_EQ(Vertical(), 430 - Box->ClientHeight);
    EXPECT_EQ(Near->Top, 10 - Vertical());
    Far->Top = Far->Top - 200; // the area becomes smaller: no further down than its end
    EXPECT_EQ(Box->VertScrollBar->Range, 230);
    EXPECT_EQ(Vertical(), 230 - Box->ClientHeight);
    EXPECT_EQ(Far->Top, 200 - Vertical());
    Far->Visible = false;
    EXPECT_FALSE(HasBar(WS_VSCROLL)) << "nothing to scroll";
    EXPECT_FALSE(HasBar(WS_HSCROLL));
    EXPECT_EQ(Vertical(), 0);
    EXPECT_EQ(Near->Top, 10);
    Far->Visible = true;
    Box->Height = 500;
    EXPECT_FALSE(HasBar(WS_VSCROLL));
    Box->Height = 100;
    EXPECT_TRUE(HasBar(WS_VSCROLL));
    Box->VertScrollBar->Visible = false;
    EXPECT_FALSE(HasBar(WS_VSCROLL));
    Box->VertScrollBar->Position = 20;
    EXPECT_EQ(Near->Top, -10) << "the program scrolls without a bar";
    Box->AutoScroll = false;
    Box->VertScrollBar->Range = 50;
    EXPECT_EQ(Vertical(), 0);
}

TEST_F(ScrollBoxTest, CarriesAllItsChildren) {
    auto* label = new TLabel(Form.get());
    label->Parent = Box;
    label->Caption = u"label";
    label->SetBounds(20, 60, 60, 13);
    auto* stretched = Add(10, 80);
    stretched->Anchors = {akLeft, akTop, akRight};
    auto* panel = new TPanel(Form.get());
    panel->Parent = Box;
    panel->Height = 20;
    panel->Align = alTop;
    EXPECT_EQ(panel->Width, 400) << "aligned to the whole area";
    Box->VertScrollBar->Position = 40;
    Box->HorzScrollBar->Position = 15;
    EXPECT_EQ(label->Top, 20);
    EXPECT_EQ(label->Left, 5);
    EXPECT_EQ(stretched->Top, 40);
    EXPECT_EQ(panel->Top, -40);
    EXPECT_EQ(panel->Left, -15);
    const int width = stretched->Width;
    Box->Width = Box->Width + 30;
    EXPECT_EQ(stretched->Width, width + 30);
    EXPECT_EQ(stretched->Top, 40);
    Box->RecreateWnd();
    EXPECT_EQ(label->Top, 20);
    EXPECT_EQ(stretched->Top, 40);
    EXPECT_EQ(Vertical(), 40);
    SCROLLINFO info{};
    info.cbSize = sizeof(info);
    info.fMask = SIF_ALL;
    GetScrollInfo(Box->Handle, SB_VERT, &info);
    EXPECT_EQ(info.nPos, 40);
    EXPECT_EQ(info.nMax, 420);
}

TEST_F(ScrollBoxTest, WheelBarsAndKeys) {
    Wheel(-120);
    EXPECT_EQ(Vertical(), 24) << "three lines of eight pixels";
    Wheel(-60);
    EXPECT_EQ(Vertical(), 32) << "a line and a half; the half is kept";
    Wheel(-60);
    EXPECT_EQ(Vertical(), 48);
    Wheel(1200);
    EXPECT_EQ(Vertical(), 0);
    Wheel(-120, MK_SHIFT);
    EXPECT_EQ(Horizontal(), 24);
    EXPECT_EQ(Vertical(), 0);

    PressKey(VK_NEXT); // the edit has no use for it
    EXPECT_TRUE(WaitFor([&] { return Vertical() == Box->ClientHeight - 8; }));
    PressKey(VK_PRIOR);
    EXPECT_TRUE(WaitFor([&] { return Vertical() == 0; }));
    EXPECT_TRUE(Near->Focused());

    SendMessageW(Box->Handle, WM_VSCROLL, SB_LINEDOWN, 0);
    EXPECT_EQ(Vertical(), 8);
    SendMessageW(Box->Handle, WM_VSCROLL, SB_BOTTOM, 0);
    EXPECT_EQ(Vertical(), 421 - Box->ClientHeight);
    TEdit outside(nullptr);
    outside.Parent = Form.get();
    outside.SetBounds(250, 10, 80, 21);
    outside.SetFocus();
    ClickOn(*Box, {5, 5});
    EXPECT_TRUE(WaitFor([&] { return Box->Focused(); })) << "a click beside the children makes the keys scroll";
    PressKey(VK_HOME);
    EXPECT_TRUE(WaitFor([&] { return Vertical() == 0; }));
    PressKey(VK_DOWN);
    PressKey(VK_RIGHT);
    EXPECT_TRUE(WaitFor([&] { return Vertical() == 8 && Horizontal() == 32; }));
}

TEST_F(ScrollBoxTest, BringsIntoView) {
    Box->ScrollInView(Far);
    EXPECT_EQ(Vertical(), 421 - Box->ClientHeight);
    EXPECT_EQ(Horizontal(), 400 - Box->ClientWidth);
    const int vertical = Vertical();
    Box->ScrollInView(Far);
    EXPECT_EQ(Vertical(), vertical);
    Box->ScrollInView(Near);
    EXPECT_EQ(Vertical(), 10);
    EXPECT_EQ(Horizontal(), 10);
    Box->ScrollInView(nullptr);
    Box->ScrollInView(Box);
    Far->SetFocus();
    EXPECT_TRUE(WaitFor([&] { return Vertical() == vertical; })) << "the control with the focus";
    Box->AutoScroll = false;
    Near->SetFocus();
    Application->ProcessMessages();
    EXPECT_EQ(Vertical(), vertical);
}

TEST_F(ScrollBoxTest, IsReadFromAForm) {
    RegisterStandardControls();
    constexpr std::string_view text = R"(object Page: TForm
  ClientWidth = 300
  ClientHeight = 200
  object Box: TScrollBox
    Left = 0
    Top = 0
    Width = 120
    Height = 90
    VertScrollBar.Position = 30
    VertScrollBar.Increment = 16
    object Low: TEdit
      Left = 8
      Top = 300
      Width = 60
      Height = 21
    end
  end
end
)";
    const std::unique_ptr<TComponent> root = CreateFromTextForm(text, nullptr);
    auto* box = As<TScrollBox>(root->FindComponent(u"Box"));
    auto* low = As<TEdit>(root->FindComponent(u"Low"));
    ASSERT_TRUE(box && low);
    EXPECT_EQ(box->VertScrollBar->Range, 321);
    EXPECT_EQ(box->VertScrollBar->Position, 30);
    EXPECT_EQ(low->Top, 270) << "children are stored where they lie in the unscrolled area";
}

} // namespace
