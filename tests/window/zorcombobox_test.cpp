// The search combo box used by keyboard and mouse: what typing finds and highlights, what is told of it, and that in
// the other styles it is the platform's.

#include "framework/graphics/textmetrics.h"
#include "framework/system/strings.h"
#include "framework/windows/application.h"
#include "framework/windows/button.h"
#include "framework/windows/clipboard.h"
#include "lists/Zorcombobox.h"
#include "tests/support/composition.h"
#include "tests/support/input.h"
#include "tests/support/signs.h"

#include <commctrl.h>
#include <gtest/gtest.h>

using namespace framework;
using namespace ZOR;
using namespace testsupport;

namespace {

class SearchCombo : public testing::Test {
protected:
    void SetUp() override {
        Box = std::make_unique<TZORComboBox>(nullptr);
        Box->SetParent(Form.get());
        Box->SetBounds(100, 40, 150, 21);
        Box->Items->SetTextStr(u"Kraków\nMönchengladbach\nKöln\nBrno\n");
        Box->Style = csDropDownList;
        Box->OnChange = [this](TObject*) { Told += u"change "; };
        Box->OnSelect = [this](TObject*) { Told += u"select "; };
        Box->OnDropDown = [this](TObject*) { Told += u"drop "; };
        Box->OnCloseUp = [this](TObject*) { Told += u"close "; };
        Box->OnEditClick = [this](TObject*) { Told += u"edit "; };
        Box->OnNewClick = [this](TObject*) { Told += u"new "; };
        Other.SetParent(Form.get());
        Other.SetBounds(20, 200, 100, 21);
        Box->SetFocus();
        Application->ProcessMessages();
    }
    String Taken() { return std::exchange(Told, {}); }
    bool IsOpen() const { return Box->DroppedDown; }
    TPoint PlaceOfRow(int row) const {
        COMBOBOXINFO info{};
        info.cbSize = sizeof(info);
        GetComboBoxInfo(Box->GetHandle(), &info);
        RECT area{};
        SendMessageW(info.hwndList, LB_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&area));
        POINT place{area.left + 10, (area.top + area.bottom) / 2};
        ClientToScreen(info.hwndList, &place);
        return FromWin(place);
    }
    /// What shows, with the selection in brackets.
    String Shown() const {
        String text = Box->Text;
        const int end = Box->SelStart + Box->SelLength;
        text.insert(static_cast<std::size_t>(end), u"]");
        text.insert(static_cast<std::size_t>(Box->SelStart), u"[");
        return text;
    }

    std::unique_ptr<TForm> Form = ShowForm();
    TEdit Other{nullptr};
    std::unique_ptr<TZORComboBox> Box;
    String Told;
};

TEST_F(SearchCombo, FindsWhatIsTypedAndRefusesTheRest) {
    TypeText(u"m");
    EXPECT_TRUE(IsOpen());
    EXPECT_EQ(Shown(), u"[M]önchengladbach");
    EXPECT_EQ(Box->ItemIndex, 1);
    TypeText(u"o");
    EXPECT_EQ(Shown(), u"[Mö]nchengladbach") << "a plain o finds the umlaut";
    EXPECT_EQ(Taken(), u"drop change ");
    TypeText(u"x");
    EXPECT_EQ(Shown(), u"[Mö]nchengladbach");
    EXPECT_EQ(Box->GetSearchBuffer(), u"mo");
    PressKey(VK_BACK);
    EXPECT_EQ(Shown(), u"[M]önchengladbach");
    PressKey(VK_BACK);
    EXPECT_EQ(Shown(), u"[]Mönchengladbach");
    PressKey(VK_BACK);
    EXPECT_EQ(Box->GetSearchBuffer(), u"");
    TypeText(u"KÖL");
    EXPECT_EQ(Shown(), u"[Köl]n");
    EXPECT_EQ(Taken(), u"change change ") << "to Kraków, and then to Köln";
    PressKey(VK_DELETE);
    EXPECT_EQ(Shown(), u"[Köl]n") << "nothing is taken out of an item";
    PressKey(VK_RETURN);
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(Box->GetKeyFlag(), 13);
    EXPECT_EQ(Shown(), u"[Köln]");
    EXPECT_EQ(Taken(), u"select close ");
    TypeText(u"zb");
    EXPECT_EQ(Box->GetSearchBuffer(), u"b") << "the next search begins afresh, its refused first key aside";
    EXPECT_EQ(Shown(), u"Mönchenglad[b]ach");
    PressKey(VK_ESCAPE);
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(Shown(), u"[Köln]") << "Esc brings back what was there";
    EXPECT_EQ(Box->ItemIndex, 2);
    EXPECT_EQ(Taken(), u"drop change change close ");
    Box->Behavior = beNewWyszukajPoczatek;
    TypeText(u"bra");
    EXPECT_EQ(Shown(), u"[Br]no");
}

TEST_F(SearchCombo, ChoosesByKeysAndMouseAndTellsOnce) {
    TButton cancel(nullptr);
    cancel.SetParent(Form.get());
    cancel.SetCancel(true);
    cancel.OnClick = [&](TObject*) { Told += u"cancel "; };
    PressKey(VK_DOWN);
    EXPECT_EQ(Shown(), u"[Kraków]");
    EXPECT_EQ(Taken(), u"change select ");
    PressKey(VK_F4);
    EXPECT_EQ(Taken(), u"drop ");
    PressKey(VK_ESCAPE);
    EXPECT_EQ(Taken(), u"close ");
    PressKey(VK_ESCAPE);
    EXPECT_EQ(Taken(), u"cancel ");
    COMBOBOXINFO info{};
    info.cbSize = sizeof(info);
    ASSERT_TRUE(GetComboBoxInfo(Box->GetHandle(), &info));
    const TRect button = FromWin(info.rcButton);
    const TPoint middle{(button.Left + button.Right) / 2, (button.Top + button.Bottom) / 2};
    ClickOn(*Box, middle);
    ASSERT_TRUE(WaitFor([&] { return IsOpen(); }));
    Taken();
    PressMouse(PlaceOfRow(3));
    ReleaseMouse();
    EXPECT_TRUE(WaitFor([&] { return !IsOpen(); }));
    EXPECT_EQ(Shown(), u"[Brno]");
    EXPECT_EQ(Taken(), u"change select close ");
    ClickOn(*Box, middle);
    ASSERT_TRUE(WaitFor([&] { return IsOpen(); }));
    PressMouse(PlaceOfRow(3));
    ReleaseMouse();
    EXPECT_TRUE(WaitFor([&] { return !IsOpen(); }));
    EXPECT_EQ(Taken(), u"drop close ") << "the same again is no choice";
    ClickOn(*Box, {10, 10});
    EXPECT_TRUE(WaitFor([&] { return Told == u"edit "; }));
    Box->Clear();
    Taken();
    ClickOn(*Box, middle);
    EXPECT_TRUE(WaitFor([&] { return Told == u"new "; }));
    EXPECT_FALSE(IsOpen());
}

TEST_F(SearchCombo, BringsBackTextAndItemOnEsc) {
    Box->ItemIndex = 2;
    PressKey(VK_F4);
    PressKey(VK_DOWN);
    Box->Items->Insert(0, u"Aachen");
    EXPECT_EQ(Taken(), u"drop change select ");
    PressKey(VK_ESCAPE);
    EXPECT_EQ(Shown(), u"[Köln]");
    EXPECT_EQ(Box->ItemIndex, 3) << "where its item is now";
    EXPECT_EQ(Taken(), u"change select close ") << "the item told of was another";
    PressKey(VK_F4);
    PressKey(VK_UP);
    Box->Items->Insert(0, u"Aš");
    EXPECT_EQ(Taken(), u"drop change select ");
    PressKey(VK_RETURN);
    EXPECT_EQ(Taken(), u"close ") << "it was told of, wherever it stands now";
    EXPECT_EQ(Box->ItemIndex, 3);
    TStringList others;
    others.SetLines({u"Köln", u"Mönchengladbach"});
    Box->Items = &others;
    EXPECT_EQ(Box->Text, u"Mönchengladbach");
    EXPECT_EQ(Box->ItemIndex, 1) << "filled in anew";
    Box->Style = csSimple;
    Box->Text = u"Olomouc";
    PressKey(VK_ESCAPE);
    EXPECT_EQ(Box->Text, u"Olomouc") << "a list that is always there closes by no key";
}

TEST_F(SearchCombo, OpensAListAsWideAsItsItems) {
    const auto listWidth = [this] {
        COMBOBOXINFO info{};
        info.cbSize = sizeof(info);
        GetComboBoxInfo(Box->GetHandle(), &info);
        RECT list{};
        GetWindowRect(info.hwndList, &list);
        return static_cast<int>(list.right - list.left);
    };
    Box->DroppedDown = true;
    EXPECT_EQ(listWidth(), Box->Width);
    Box->DroppedDown = false;
    const String longest = u"Brandýs nad Labem-Stará Boleslav, and whatever else lies around it";
    Box->Items->Add(longest);
    Box->DroppedDown = true;
    EXPECT_GT(listWidth(), TTextMeasure(*Box->Font).Extent(longest).Width);
    Box->DroppedDown = false;
    Box->Items->Add(String(3000, u'w'));
    Box->DroppedDown = true;
    EXPECT_LT(listWidth(), GetSystemMetrics(SM_CXSCREEN)) << "its scroll bar stays in sight";
    Box->DroppedDown = false;
    Box->Items->Delete(5);
    Box->Items->Delete(4);
    Box->DroppedDown = true;
    EXPECT_EQ(listWidth(), Box->Width);
}

TEST_F(SearchCombo, ShowsThatAnErrorHasEnded) {
    Box->ItemIndex = 0;
    Box->Wymagany = wRequired;
    MoveMouse(Box->ClientToScreen({40, 10}));
    Application->ProcessMessages();
    Box->Wymagany = wError;
    const COLORREF error = PixelOf(*Box, {0, 10});
    MoveMouse(Other.ClientToScreen({5, 40}));
    ASSERT_TRUE(WaitFor([&] { return Box->Wymagany == wRequired; }));
    EXPECT_NE(PixelOf(*Box, {0, 10}), error) << "under the eyes of the person";
}

TEST_F(SearchCombo, AnAcceleratorFindsTheChoiceTold) {
    TButton save(nullptr);
    save.SetParent(Form.get());
    save.SetBounds(20, 240, 80, 25);
    save.SetText(u"&Save");
    save.OnClick = [&](TObject*) { Told += u"save:" + Box->Text + u" "; };
    TypeText(u"br");
    PressKey('S', {ssAlt});
    ASSERT_TRUE(WaitFor([&] { return Told.ends_with(u"Brno "); }));
    EXPECT_EQ(Taken(), u"drop change change select close save:Brno ");
    EXPECT_FALSE(IsOpen());
}

TEST_F(SearchCombo, LeavesTheTextToItsItems) {
    EXPECT_EQ(Box->FindItemIndex(), 0);
    Box->Text = u"KÖLN";
    EXPECT_EQ(Box->FindItemIndex(), 2);
    Box->Text = u"Koln";
    EXPECT_EQ(Box->FindItemIndex(), 0) << "no item reads so";
    Box->ItemIndex = 3;
    Box->SelectAll();
    ASSERT_TRUE(SetClipboardText(Box->GetHandle(), u"lad\r\n"));
    PressKey('V', {ssCtrl});
    EXPECT_EQ(Shown(), u"Möncheng[lad]bach");
    PressKey('X', {ssCtrl});
    EXPECT_EQ(Box->Text, u"Mönchengladbach");
    EXPECT_EQ(ClipboardText(Box->GetHandle()), u"lad");
    ASSERT_TRUE(SetClipboardText(Box->GetHandle(), u"nowhere"));
    PressKey(VK_INSERT, {ssShift});
    EXPECT_EQ(Box->Text, u"Mönchengladbach");
    PressKey(VK_ESCAPE);
    SendMessageW(Box->GetHandle(), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(L"Brno"));
    EXPECT_EQ(Box->ItemIndex, 3);
    Other.SetFocus();
    const int item = Box->ItemIndex;
    SendMessageW(Box->GetHandle(), WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(-WHEEL_DELTA)), 0);
    EXPECT_EQ(Box->ItemIndex, item) << "the wheel turns only a field that was entered";
}

TEST_F(SearchCombo, TakesALetterOfThePopupForAKey) {
    Box->Items->SetTextStr(u"Plzeň\nTřeboň\nRaděň\n");
    PressKey(VK_F7);
    ASSERT_TRUE(Box->GetExtraSignsForm() && Box->GetExtraSignsForm()->Showing);
    ClickSign(*Box->GetExtraSignsForm(), u'ě');
    EXPECT_EQ(Shown(), u"Rad[ě]ň");
    ClickSign(*Box->GetExtraSignsForm(), u'ň');
    EXPECT_EQ(Shown(), u"Rad[ěň]") << "the same search goes on";
    EXPECT_FALSE(IsOpen()) << "it would cover the popup";
    EXPECT_EQ(Taken(), u"change ");
    Other.SetFocus();
    EXPECT_EQ(Taken(), u"select ");
    Box->SetFocus();
    PressKey(VK_F7);
    Box->Style = csDropDown;
    Box->Text = u"";
    ClickSign(*Box->GetExtraSignsForm(), u'ž');
    EXPECT_EQ(Box->Text, u"ž");
    EXPECT_EQ(Taken(), u"change ");
}

TEST_F(SearchCombo, TakesWhatIsComposedForKeys) {
    ComposeText(u"möx", [this] { EXPECT_EQ(Box->Text, u"") << "nothing is entered yet"; });
    EXPECT_EQ(Shown(), u"[Mö]nchengladbach");
    EXPECT_EQ(Taken(), u"drop change ");
}

TEST_F(SearchCombo, KeepsItsItemWhenTheMouseOnlyPassesOverOthers) {
    Box->ItemIndex = 0;
    PressKey(VK_F4);
    MoveMouse(PlaceOfRow(2));
    Application->ProcessMessages();
    PressMouse(Other.ClientToScreen({5, 5}));
    ReleaseMouse();
    EXPECT_TRUE(WaitFor([&] { return !IsOpen() && Other.Focused(); }));
    EXPECT_EQ(Box->Text, u"Kraków");
    EXPECT_EQ(Box->ItemIndex, 0);
    EXPECT_EQ(Taken(), u"drop close ");
}

TEST_F(SearchCombo, IsThePlatformsInOtherStyles) {
    Box->Style = csDropDown;
    TypeText(u"xyz");
    EXPECT_EQ(Box->Text, u"xyz");
    EXPECT_FALSE(IsOpen());
    Box->SelectAll();
    TypeText(u"kr");
    EXPECT_EQ(Shown(), u"Kr[aków]") << "completed as ever";
    EXPECT_EQ(Box->GetSearchBuffer(), u"");
}

TEST_F(SearchCombo, SurvivesHandlersThatChangeOrEndIt) {
    Box->OnDropDown = [this](TObject*) { Box->Items->Clear(); };
    TypeText(u"m");
    EXPECT_EQ(Box->ItemIndex, -1);
    Box->DroppedDown = false;
    Box->Items->SetTextStr(u"one\ntwo\n");
    Box->OnDropDown = nullptr;
    Box->OnChange = [this](TObject*) { Box->Items->Insert(0, u"zero"); };
    TypeText(u"t");
    EXPECT_EQ(Box->Text, u"two");
    EXPECT_EQ(Box->ItemIndex, 2);
    Application->OnException = [](TObject*, const std::exception&) {};
    Box->OnChange = [](TObject*) { throw Exception(u"no"); };
    PressKey(VK_RETURN);
    Taken();
    PressKey(VK_F4);
    PressMouse(PlaceOfRow(1));
    ReleaseMouse();
    EXPECT_TRUE(WaitFor([&] { return !IsOpen(); }));
    EXPECT_EQ(Taken(), u"close ") << "told all the same";
    Application->OnException = nullptr;
    Box->OnChange = nullptr;
    Box->OnSelect = [this](TObject*) { Box.reset(); };
    PressKey(VK_DOWN);
    PressKey(VK_UP);
    EXPECT_TRUE(WaitFor([&] { return Box == nullptr; }));
    Application->ProcessMessages();
}

} // namespace
