// Combo boxes: text, items and choice with and without a window, what the person types and chooses, the parts.

#include "framework/graphics/canvas.h"
#include "framework/system/formloader.h"
#include "framework/windows/application.h"
#include "framework/windows/combobox.h"
#include "framework/windows/standardcontrols.h"
#include "tests/support/handlecount.h"
#include "tests/support/input.h"

#include <gtest/gtest.h>

using namespace framework;
using namespace testsupport;

namespace {

class ComboBoxTest : public testing::Test {
protected:
    ComboBoxTest() {
        Box.OnChange = [this](TObject*) { Events += u"change "; };
        Box.OnSelect = [this](TObject*) { Events += u"select "; };
        Box.OnClick = [this](TObject*) { Events += u"click "; };
        Box.OnDropDown = [this](TObject*) { Events += u"drop "; };
        Box.OnCloseUp = [this](TObject*) { Events += u"close "; };
    }

    void Fill(const char16_t* commaText) { Box.GetItems()->SetCommaText(commaText); }
    void GiveWindow() {
        Box.SetParent(Form.get());
        Box.SetBounds(10, 10, 150, 21);
        Box.SetFocus();
        Application->ProcessMessages();
    }
    String Taken() { return std::exchange(Events, {}); }
    HWND ListWindow() {
        COMBOBOXINFO info{};
        info.cbSize = sizeof(info);
        EXPECT_TRUE(GetComboBoxInfo(Box.GetHandle(), &info));
        return info.hwndList;
    }
    HWND EditWindow() {
        COMBOBOXINFO info{};
        info.cbSize = sizeof(info);
        EXPECT_TRUE(GetComboBoxInfo(Box.GetHandle(), &info));
        return info.hwndItem;
    }
    TPoint Button() { return {Box.GetWidth() - 8, Box.GetHeight() / 2}; }

    std::unique_ptr<TForm> Form = ShowForm();
    TComboBox Box{nullptr};
    String Events;
};

TEST_F(ComboBoxTest, KeepsTextItemsAndChoiceTogether) {
    for (const bool withWindow : {false, true}) {
        SCOPED_TRACE(withWindow ? "with a window" : "without a window");
        if (withWindow)
            GiveWindow();
        Box.SetText({});
        Fill(u"b,c,d");
        EXPECT_EQ(Box.GetItemIndex(), -1);
        Box.SetItemIndex(1);
        EXPECT_EQ(Box.GetText(), u"c");
        Box.GetItems()->Insert(0, u"a");
        EXPECT_EQ(Box.GetItemIndex(), 2) << "the choice stays with its item";
        Box.SetText(u"B");
        EXPECT_EQ(Box.GetItemIndex(), 1) << "the item of that text, letter case aside";
        EXPECT_EQ(Box.GetText(), u"B");
        Box.SetText(u"own words");
        EXPECT_EQ(Box.GetItemIndex(), -1);
        EXPECT_EQ(Box.GetText(), u"own words");
        Box.SetItemIndex(3);
        Box.GetItems()->Delete(3);
        EXPECT_EQ(Box.GetItemIndex(), -1);
        EXPECT_EQ(Box.GetText(), u"d") << "a text that can be typed does not go with its item";
        Box.SetItemIndex(7);
        EXPECT_EQ(Box.GetItemIndex(), -1);
        EXPECT_EQ(Box.GetText(), u"");
        Box.AddItem(u"e", &Box);
        EXPECT_EQ(Box.GetItems()->GetItemObject(3), &Box);
        Box.SetItemIndex(3);
        Box.GetItems()->Put(3, u"f");
        EXPECT_EQ(Box.GetText(), u"f");
        EXPECT_EQ(Box.GetItems()->GetItemObject(3), &Box);
        Box.Clear();
        EXPECT_EQ(Box.GetText(), u"");
        EXPECT_EQ(Box.GetCount(), 0);
        EXPECT_EQ(Taken(), u"") << "the program's own doing is not announced";
    }
}

TEST_F(ComboBoxTest, ChoosesFromTheListAlone) {
    Box.SetStyle(csDropDownList);
    for (const bool withWindow : {false, true}) {
        SCOPED_TRACE(withWindow);
        if (withWindow)
            GiveWindow();
        Fill(u"pear,Apple,fig");
        Box.SetText(u"apple");
        EXPECT_EQ(Box.GetItemIndex(), 1);
        EXPECT_EQ(Box.GetText(), u"Apple");
        Box.SetSorted(true);
        EXPECT_EQ(Box.GetItems()->GetCommaText(), u"Apple,fig,pear");
        EXPECT_EQ(Box.GetText(), u"Apple");
        EXPECT_EQ(Box.GetItemIndex(), 0);
        Box.SetText(u"plum");
        EXPECT_EQ(Box.GetItemIndex(), -1) << "there is no such item";
        EXPECT_EQ(Box.GetText(), u"");
        Box.SetSorted(false);
    }
    Taken();
    PressKey(VK_DOWN);
    PressKey(VK_DOWN);
    EXPECT_EQ(Box.GetText(), u"fig");
    EXPECT_EQ(Taken(), u"click select click select ");
    TypeText(u"p");
    EXPECT_EQ(Box.GetText(), u"pear");
    EXPECT_EQ(Taken(), u"click select ");
}

TEST_F(ComboBoxTest, TellsEachChangeOnce) {
    Box.SetAutoComplete(false);
    GiveWindow();
    Fill(u"alpha,beta,gamma");
    Taken();
    TypeText(u"x");
    EXPECT_EQ(Taken(), u"change ");
    EXPECT_EQ(Box.GetText(), u"x");
    PressKey('Z', {ssCtrl});
    EXPECT_EQ(Taken(), u"change ");
    EXPECT_EQ(Box.GetText(), u"");
    Box.SetMaxLength(3);
    TypeText(u"abcd");
    EXPECT_EQ(Box.GetText(), u"abc");
    EXPECT_EQ(Taken(), u"change change change ");
    Box.SetText(u"beta");
    PressKey(VK_DOWN);
    EXPECT_EQ(Box.GetText(), u"gamma");
    EXPECT_EQ(Taken(), u"click select ");
    Box.OnSelect = nullptr;
    PressKey(VK_UP);
    EXPECT_EQ(Taken(), u"click change ") << "where nobody listens to the choice, it is a change";
}

TEST_F(ComboBoxTest, CompletesWhatIsTyped) {
    GiveWindow();
    Fill(u"Kraków,Krosno,Łódź");
    TypeText(u"kr");
    EXPECT_EQ(Box.GetText(), u"Kraków");
    EXPECT_EQ(Box.GetSelText(), u"aków");
    EXPECT_EQ(Box.GetItemIndex(), 0);
    EXPECT_EQ(Taken(), u"change change ");
    TypeText(u"o");
    EXPECT_EQ(Box.GetText(), u"Krosno");
    EXPECT_EQ(Box.GetSelText(), u"sno");
    PressKey(VK_BACK);
    EXPECT_EQ(Box.GetText(), u"Kro");
    EXPECT_EQ(Box.GetItemIndex(), -1);
    PressKey(VK_HOME);
    TypeText(u"x");
    EXPECT_EQ(Box.GetText(), u"xKro") << "in the middle of a text nothing is added";
    Box.SelectAll();
    TypeText(u"ł");
    EXPECT_EQ(Box.GetText(), u"Łódź");
}

TEST_F(ComboBoxTest, DropsItsListDown) {
    GiveWindow();
    for (int i = 0; i < 30; ++i)
        Box.GetItems()->Add(u"item" + String(1, static_cast<char16_t>(u'A' + i)));
    Box.SetDropDownCount(5);
    Taken();
    ClickOn(Box, Button());
    ASSERT_TRUE(WaitFor([&] { return Box.GetDroppedDown(); }));
    RECT list{};
    GetClientRect(ListWindow(), &list);
    EXPECT_EQ(list.bottom / Box.GetItemHeight(), 5);
    RECT place{};
    GetWindowRect(ListWindow(), &place);
    PressMouse({place.left + 20, place.top + 2 * Box.GetItemHeight() + 5});
    ReleaseMouse();
    ASSERT_TRUE(WaitFor([&] { return !Box.GetDroppedDown(); }));
    EXPECT_EQ(Box.GetText(), u"itemC");
    const String events = Taken();
    EXPECT_EQ(events.substr(0, 5), u"drop ");
    EXPECT_NE(events.find(u"click select "), String::npos);
    EXPECT_EQ(events.find(u"select "), events.rfind(u"select "));
    EXPECT_EQ(events.find(u"close "), events.rfind(u"close "));
    EXPECT_TRUE(Box.Focused());

    // Esc closes the list and nothing else.
    int formKeys = 0;
    Box.OnKeyDown = [&](TObject*, WORD& key, TShiftState) { formKeys += key == VK_ESCAPE ? 1 : 0; };
    PressKey(VK_DOWN, {ssAlt});
    EXPECT_TRUE(Box.GetDroppedDown());
    PressKey(VK_ESCAPE);
    EXPECT_FALSE(Box.GetDroppedDown());
    EXPECT_EQ(formKeys, 1);
    EXPECT_EQ(Taken(), u"drop close ");
}

TEST_F(ComboBoxTest, IsOneControlToTheFocusTheKeysAndTheMouse) {
    TEdit other(nullptr);
    other.SetParent(Form.get());
    other.SetBounds(10, 100, 100, 21);
    String told;
    Box.OnEnter = [&](TObject*) { told += u"enter "; };
    Box.OnExit = [&](TObject*) { told += u"exit "; };
    Box.OnMouseEnter = [&](TObject*) { told += u"over "; };
    Box.OnMouseLeave = [&](TObject*) { told += u"left "; };
    GiveWindow();
    EXPECT_EQ(::GetFocus(), EditWindow());
    EXPECT_TRUE(Box.Focused());
    EXPECT_EQ(Form->GetActiveControl(), &Box);
    Box.SetText(u"Kielce");
    Box.SelectAll();
    ASSERT_EQ(Box.GetSelLength(), 6);
    other.SetFocus();
    EXPECT_EQ(Box.GetSelLength(), 0) << "only the field with the focus shows a selection";
    EXPECT_EQ(std::exchange(told, {}), u"enter exit ");
    TPoint down{};
    Box.OnMouseDown = [&](TObject*, TMouseButton, TShiftState, int x, int y) { down = {x, y}; };
    MoveMouse(Box.ClientToScreen({60, 12})); // an echo may lead the pointer out once more on its way
    EXPECT_TRUE(WaitFor([&] { return told.ends_with(u"over "); }));
    told.clear();
    ClickOn(Box, {60, 12});
    EXPECT_EQ(down, (TPoint{60, 12})) << "in the combo box's own coordinates";
    EXPECT_EQ(std::exchange(told, {}), u"enter ");
    MoveMouse(Box.ClientToScreen(Button()));
    EXPECT_EQ(told, u"") << "from part to part is not out and in again";
    MoveMouse(Form->ClientToScreen({300, 200}));
    EXPECT_TRUE(WaitFor([&] { return told.ends_with(u"left "); }));
    // Every key comes once, whatever the parts pass on to each other.
    int downs = 0;
    int ups = 0;
    Fill(u"a,b");
    Box.OnKeyDown = [&](TObject*, WORD&, TShiftState) { ++downs; };
    Box.OnKeyUp = [&](TObject*, WORD&, TShiftState) { ++ups; };
    for (const WORD key : {VK_UP, VK_DOWN, VK_F4, VK_DOWN, VK_RETURN, VK_F4, VK_ESCAPE, VK_HOME})
        PressKey(key);
    EXPECT_EQ(downs, 8);
    EXPECT_EQ(ups, 8);
    Box.OnKeyPress = [](TObject*, char16_t& key) { key = key == u'x' ? u'y' : u'\0'; };
    Box.SetText({});
    TypeText(u"axb");
    EXPECT_EQ(Box.GetText(), u"y") << "a handler's other key, or none";
}

TEST_F(ComboBoxTest, KeepsItsStateThroughANewWindow) {
    GiveWindow();
    Fill(u"one,two,three");
    Box.SetText(u"a text of its own");
    Box.SetSelStart(2);
    Box.SetSelLength(4);
    Box.RecreateWnd();
    EXPECT_EQ(Box.GetText(), u"a text of its own");
    EXPECT_EQ(Box.GetSelText(), u"text");
    EXPECT_TRUE(Box.Focused());
    Box.SetDroppedDown(true);
    Box.SetItemIndex(2);
    Box.SetCtl3D(false);
    EXPECT_FALSE(Box.GetDroppedDown());
    EXPECT_EQ(Box.GetItemIndex(), 2);
    EXPECT_EQ(SendMessageW(Box.GetHandle(), CB_GETCOUNT, 0, 0), 3);
    Box.SetStyle(csDropDownList);
    EXPECT_EQ(Box.GetText(), u"three");
    Box.SetStyle(csSimple);
    EXPECT_EQ(Box.GetText(), u"three");
    Box.SetCharCase(ecUpperCase);
    EXPECT_EQ(Box.GetText(), u"THREE");
    EXPECT_EQ(Box.GetItemIndex(), 2);
    EXPECT_NE(Taken().find(u"drop close "), String::npos);
}

TEST_F(ComboBoxTest, LetsTheProgramPaint) {
    Box.SetStyle(csOwnerDrawVariable);
    Box.SetItemHeight(20);
    Box.OnMeasureItem = [](TWinControl*, int index, int& height) { height += 10 * index; };
    std::vector<int> painted;
    Box.OnDrawItem = [&](TWinControl*, int index, TRect rect, TOwnerDrawState state) {
        painted.push_back(index);
        if (!state.Contains(odComboBoxEdit))
            EXPECT_EQ(rect.Height(), 20 + 10 * index);
        Box.GetCanvas()->GetBrush()->SetColor(clFuchsia);
        Box.GetCanvas()->FillRect(rect);
    };
    Fill(u"a,b,c");
    GiveWindow();
    Box.SetItemIndex(1);
    Box.Update();
    EXPECT_EQ(PixelOf(Box, {30, Box.GetHeight() / 2}), RGB(255, 0, 255));
    painted.clear();
    Box.SetDroppedDown(true);
    EXPECT_TRUE(WaitFor([&] { return painted.size() >= 3; }));
    Box.SetDroppedDown(false);
}

TEST_F(ComboBoxTest, SurvivesWhatItsHandlersDo) {
    const struct {
        const char* Name;
        std::function<void(TComboBox&, const std::function<void()>&)> Hook;
        std::function<void(TComboBox&)> Input;
    } rows[] = {
        {"typing", [](TComboBox& box, const auto& act) { box.OnChange = [act](TObject*) { act(); }; },
         [](TComboBox&) { TypeText(u"q"); }},
        {"completing", [](TComboBox& box, const auto& act) { box.OnChange = [act](TObject*) { act(); }; },
         [](TComboBox&) { TypeText(u"o"); }},
        {"a key",
         [](TComboBox& box, const auto& act) { box.OnKeyDown = [act](TObject*, WORD&, TShiftState) { act(); }; },
         [](TComboBox&) { PressKey(VK_HOME); }},
        {"a character", [](TComboBox& box, const auto& act) { box.OnKeyPress = [act](TObject*, char16_t&) { act(); }; },
         [](TComboBox&) { TypeText(u"q"); }},
        {"choosing", [](TComboBox& box, const auto& act) { box.OnSelect = [act](TObject*) { act(); }; },
         [](TComboBox&) { PressKey(VK_DOWN); }},
        {"dropping", [](TComboBox& box, const auto& act) { box.OnDropDown = [act](TObject*) { act(); }; },
         [](TComboBox&) { PressKey(VK_F4); }},
        {"closing", [](TComboBox& box, const auto& act) { box.OnCloseUp = [act](TObject*) { act(); }; },
         [](TComboBox&) {
             PressKey(VK_F4);
             PressKey(VK_ESCAPE);
         }},
        {"leaving", [](TComboBox& box, const auto& act) { box.OnExit = [act](TObject*) { act(); }; },
         [](TComboBox&) { PressKey(VK_TAB); }},
        {"a press of the mouse",
         [](TComboBox& box, const auto& act) {
             box.OnMouseDown = [act](TObject*, TMouseButton, TShiftState, int, int) { act(); };
         },
         [](TComboBox& box) {
             ClickOn(box, {30, 10});
         }},
    };
    TEdit other(nullptr);
    other.SetParent(Form.get());
    other.SetBounds(10, 100, 100, 21);
    for (const auto& row : rows) {
        for (const bool destroys : {true, false}) {
            SCOPED_TRACE(std::string(row.Name) + (destroys ? ", destroyed" : ", made anew"));
            auto box = std::make_unique<TComboBox>(nullptr);
            box->SetParent(Form.get());
            box->SetBounds(10, 10, 150, 21);
            box->GetItems()->SetCommaText(u"one,two,three");
            box->SetFocus();
            Application->ProcessMessages();
            bool acted = false;
            row.Hook(*box, [&] {
                if (std::exchange(acted, true))
                    return;
                if (destroys)
                    box.reset();
                else
                    box->RecreateWnd();
            });
            row.Input(*box);
            EXPECT_TRUE(WaitFor([&] { return acted; }));
            if (!destroys) {
                ASSERT_NE(box, nullptr);
                box->SetText(u"two");
                EXPECT_EQ(box->GetItemIndex(), 1);
            }
            box.reset();
            Application->ProcessMessages();
        }
    }
}

TEST_F(ComboBoxTest, IsReadFromATextForm) {
    RegisterStandardControls();
    const auto box = CreateFromTextForm(R"(object ComboBox1: TComboBox
  Style = csDropDownList
  ItemHeight = 13
  ItemIndex = 1
  Sorted = True
  TabOrder = 0
  Text = 'second'
  Items.Strings = (
    'first'
    'second')
end)",
                                        nullptr);
    auto* combo = As<TComboBox>(box.get());
    ASSERT_NE(combo, nullptr);
    EXPECT_EQ(combo->GetItemIndex(), 1);
    EXPECT_EQ(combo->GetText(), u"second");
    EXPECT_THROW(combo->GetItems()->Move(0, 1), EListError);
    EXPECT_THROW(combo->GetItems()->Exchange(0, 1), EListError);
    EXPECT_EQ(combo->GetItems()->GetCommaText(), u"first,second") << "sorted, they stay where they belong";
}

TEST_F(ComboBoxTest, WritesRightToLeft) {
    Box.SetBiDiMode(bdRightToLeft);
    GiveWindow();
    Box.SetText(u"abc");
    EXPECT_NE(GetWindowLongPtrW(EditWindow(), GWL_STYLE) & ES_RIGHT, 0);
    if (PointFromLParam(SendMessageW(EditWindow(), EM_POSFROMCHAR, 1, 0)).X <= 75)
        GTEST_SKIP() << "Wine's edit window takes its alignment only as it is created";
}

TEST_F(ComboBoxTest, GivesBackWhatItTook) {
    for (const TComboBoxStyle style : {csDropDown, csSimple, csOwnerDrawFixed}) {
        ExpectSteadyHandles(100, [&] {
            TComboBox box(nullptr);
            box.SetStyle(style);
            box.SetParent(Form.get());
            box.GetItems()->Add(u"a");
            box.Update();
        });
    }
}

} // namespace
