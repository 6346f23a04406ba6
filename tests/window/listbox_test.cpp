// Lists of choices: items and selection with and without a window, the user's choice, painting by the program.

#include "framework/graphics/canvas.h"
#include "framework/system/updates.h"
#include "framework/windows/listbox.h"
#include "tests/support/input.h"

#include <gtest/gtest.h>

using namespace framework;
using namespace testsupport;

namespace {

class ListBoxTest : public testing::Test {
protected:
    ListBoxTest() {
        List.SetItemIndex(-1);
        List.OnClick = [this](TObject*) { ++Clicks; };
    }

    void Fill(const char16_t* commaText) { List.GetItems()->SetCommaText(commaText); }
    void GiveWindow() {
        List.SetParent(Form.get());
        List.SetBounds(10, 10, 150, 150);
        List.SetFocus();
    }
    int TakeClicks() { return std::exchange(Clicks, 0); }
    /// What the window shows; the items themselves without one.
    String Shown() {
        if (!List.HandleAllocated())
            return List.GetItems()->GetCommaText();
        String text;
        const auto count = static_cast<int>(SendMessageW(List.GetHandle(), LB_GETCOUNT, 0, 0));
        for (int i = 0; i < count; ++i) {
            wchar_t buffer[64]{};
            SendMessageW(List.GetHandle(), LB_GETTEXT, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(buffer));
            text += (i > 0 ? u"," : u"") + FromWide(buffer);
        }
        EXPECT_EQ(text, List.GetItems()->GetCommaText());
        return text;
    }
    void ClickItem(int index) {
        const TRect place = List.ItemRect(index);
        ClickOn(List, {place.Left + 10, (place.Top + place.Bottom) / 2 + 2});
    }
    String SelectedItems() {
        String result;
        for (int i = 0; i < List.GetCount(); ++i)
            result += List.GetSelected(i) ? List.GetItems()->Get(i) : String();
        return result;
    }

    std::unique_ptr<TForm> Form = ShowForm();
    TListBox List{nullptr};
    int Clicks = 0;
};

TEST_F(ListBoxTest, KeepsItemsAndChoiceTogether) {
    for (const bool withWindow : {false, true}) {
        SCOPED_TRACE(withWindow ? "with a window" : "without a window");
        if (withWindow)
            GiveWindow();
        Fill(u"b,c,d");
        EXPECT_EQ(List.GetItemIndex(), -1);
        List.SetItemIndex(1);
        List.GetItems()->Insert(0, u"a");
        EXPECT_EQ(Shown(), u"a,b,c,d");
        EXPECT_EQ(SelectedItems(), u"c") << "the choice stays with its item";
        EXPECT_EQ(List.GetItemIndex(), 2);
        List.GetItems()->Delete(0);
        EXPECT_EQ(SelectedItems(), u"c");
        List.GetItems()->Put(1, u"C");
        EXPECT_EQ(Shown(), u"b,C,d");
        EXPECT_EQ(SelectedItems(), u"C");
        List.GetItems()->Delete(1);
        EXPECT_EQ(List.GetItemIndex(), -1);
        List.GetItems()->Exchange(0, 1);
        EXPECT_EQ(Shown(), u"d,b");
        List.AddItem(u"e", &List);
        EXPECT_EQ(List.GetItems()->GetItemObject(2), &List);
        EXPECT_THROW(List.SetItemIndex(3), EListError);
        EXPECT_THROW(List.GetItems()->Get(3), EListError);
        EXPECT_THROW(List.SetSelected(-1, true), EListError);
        List.Clear();
        EXPECT_EQ(Shown(), u"");
        EXPECT_EQ(List.GetItemIndex(), -1);
        EXPECT_EQ(TakeClicks(), 0) << "the program chooses without a click";
    }
}

TEST_F(ListBoxTest, SortsByTheAlphabet) {
    for (const bool withWindow : {false, true}) {
        SCOPED_TRACE(withWindow);
        if (withWindow)
            GiveWindow();
        List.SetSorted(false);
        Fill(u"pear,Apple,fig");
        EXPECT_EQ(Shown(), u"pear,Apple,fig");
        List.SetSorted(true);
        EXPECT_EQ(Shown(), u"Apple,fig,pear");
        EXPECT_EQ(List.GetItems()->Add(u"banana"), 1);
        EXPECT_EQ(List.GetItems()->Add(u"fig"), 2) << "twice the same is allowed";
        List.GetItems()->Put(0, u"zucchini");
        EXPECT_EQ(Shown(), u"banana,fig,fig,pear,zucchini");
    }
}

TEST_F(ListBoxTest, TellsTheUsersChoiceOnce) {
    GiveWindow();
    Fill(u"a,b,c,d");
    int doubleClicks = 0;
    List.OnDblClick = [&](TObject*) { ++doubleClicks; };
    ClickItem(1);
    EXPECT_EQ(List.GetItemIndex(), 1);
    EXPECT_EQ(TakeClicks(), 1);
    PressKey(VK_DOWN);
    EXPECT_EQ(List.GetItemIndex(), 2);
    EXPECT_EQ(TakeClicks(), 1);
    PressKey(VK_HOME);
    EXPECT_EQ(List.GetItemIndex(), 0);
    EXPECT_EQ(TakeClicks(), 1);
    ClickItem(3);
    ClickItem(3);
    EXPECT_EQ(doubleClicks, 1);
    EXPECT_EQ(List.ItemAtPos({5, List.ItemRect(2).Top + 1}, true), 2);
    EXPECT_EQ(List.ItemAtPos({5, 100}, true), -1);
    EXPECT_EQ(List.ItemAtPos({5, 100}, false), 4);
    EXPECT_EQ(List.ItemAtPos({5, -3}, false), -1);
}

TEST_F(ListBoxTest, SelectsSeveral) {
    List.SetMultiSelect(true);
    Fill(u"a,b,c,d,e");
    List.SetSelected(1, true);
    List.SetSelected(3, true);
    GiveWindow();
    EXPECT_EQ(SelectedItems(), u"bd") << "chosen before there was a window";
    ClickItem(0);
    PressKey(VK_DOWN, {ssShift});
    PressKey(VK_DOWN, {ssShift});
    EXPECT_EQ(SelectedItems(), u"abc");
    ClickItem(4);
    EXPECT_EQ(SelectedItems(), u"e");
    List.SetExtendedSelect(false);
    EXPECT_EQ(SelectedItems(), u"e") << "kept in the next window";
    ClickItem(1);
    ClickItem(2);
    EXPECT_EQ(SelectedItems(), u"bce");
    EXPECT_EQ(List.GetSelCount(), 3);
    List.DeleteSelected();
    EXPECT_EQ(Shown(), u"a,d");
    List.SelectAll();
    EXPECT_EQ(SelectedItems(), u"ad");
    List.ClearSelection();
    EXPECT_EQ(List.GetSelCount(), 0);
}

TEST_F(ListBoxTest, KeepsItsStateThroughANewWindow) {
    GiveWindow();
    for (int i = 0; i < 100; ++i)
        List.GetItems()->AddObject(u"item", Form.get());
    List.SetItemIndex(70);
    List.SetTopIndex(65);
    List.RecreateWnd();
    EXPECT_EQ(List.GetCount(), 100);
    EXPECT_EQ(SendMessageW(List.GetHandle(), LB_GETCOUNT, 0, 0), 100);
    EXPECT_EQ(List.GetItemIndex(), 70);
    EXPECT_EQ(List.GetTopIndex(), 65);
    EXPECT_EQ(List.GetItems()->GetItemObject(99), Form.get());
    List.SetVisible(false);
    WithinUpdate(*List.GetItems(), [&] { List.GetItems()->Add(u"unseen"); });
    EXPECT_FALSE(IsWindowVisible(List.GetHandle())) << "an update does not show a hidden list";
}

TEST_F(ListBoxTest, LetsTheProgramPaint) {
    List.SetStyle(lbOwnerDrawVariable);
    List.SetItemHeight(20);
    List.OnMeasureItem = [](TWinControl*, int index, int& height) { height += 10 * index; };
    List.OnDrawItem = [this](TWinControl* control, int index, TRect rect, TOwnerDrawState state) {
        EXPECT_EQ(control, &List);
        EXPECT_EQ(rect.Height(), 20 + 10 * index);
        if (state.Contains(odSelected))
            EXPECT_EQ(List.GetCanvas()->GetBrush()->GetColor(), clHighlight);
        else
            List.GetCanvas()->GetBrush()->SetColor(index == 0 ? clLime : clFuchsia);
        List.GetCanvas()->FillRect(rect);
    };
    Fill(u"a,b,c");
    GiveWindow();
    List.SetItemIndex(1);
    List.Update();
    const auto at = [&](int index) {
        const TRect place = List.ItemRect(index);
        return PixelOf(List, {place.Right - 5, place.Top + 7});
    };
    EXPECT_EQ(List.ItemRect(2), (TRect{0, 50, List.GetClientWidth(), 90}));
    EXPECT_EQ(at(0), RGB(0, 255, 0));
    EXPECT_EQ(at(1), ColorToRGB(clHighlight));
    EXPECT_EQ(at(2), RGB(255, 0, 255));
}

} // namespace
