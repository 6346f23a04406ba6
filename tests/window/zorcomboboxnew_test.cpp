// The choice field with a list of its own, used by keyboard and mouse: what is found, taken and told of, and how the
// list opens and closes.

#include "framework/system/formloader.h"
#include "framework/system/strings.h"
#include "framework/windows/application.h"
#include "framework/windows/button.h"
#include "framework/windows/clipboard.h"
#include "tests/support/choicefield.h"
#include "tests/support/composition.h"
#include "tests/support/signs.h"

#include <gtest/gtest.h>

using namespace framework;
using namespace ZOR;
using namespace testsupport;

namespace {

TEST_F(ChoiceField, OpensAndFindsWhatIsTyped) {
    TypeText(u"k");
    ASSERT_TRUE(IsOpen());
    EXPECT_EQ(Row(), 1);
    TypeText(u"o");
    EXPECT_EQ(Row(), 2) << "the k of Kraków has no o behind it";
    EXPECT_EQ(Field->Text, u"ko");
    EXPECT_EQ(Field->ItemIndex, -1) << "merely highlighted";
    TypeText(u"x");
    EXPECT_EQ(Field->Text, u"ko") << "a key that would leave no match";
    EXPECT_EQ(Taken(), u"change change ");
    EXPECT_TRUE(Field->Focused());
    EXPECT_EQ(GetForegroundWindow(), Form->GetHandle());
    PressKey(VK_RETURN);
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(Field->Text, u"oko");
    EXPECT_EQ(Field->get_id_sel(), 102);
    EXPECT_EQ(Taken(), u"change select close ");
    TypeText(u"B");
    EXPECT_EQ(Field->Text, u"B") << "everything is selected after a choice";
    TypeText(u"rno");
    EXPECT_EQ(Field->ItemIndex, 0) << "the whole text";
    PressKey(VK_LEFT);
    PressKey(VK_BACK);
    EXPECT_EQ(Field->Text, u"Bro") << "taking away is always allowed";
    EXPECT_EQ(Row(), -1);
    TypeText(u"x");
    EXPECT_EQ(Field->Text, u"Bro") << "judged by the text that it would become";
    TypeText(u"n");
    EXPECT_EQ(Field->Text, u"Brno");
}

TEST_F(ChoiceField, SearchesAsItsPropertiesSay) {
    struct TRow {
        TBehavior Behavior;
        bool CaseSensitive;
        bool Smart;
        bool Local;
        const char16_t* Text;
        int Item;
    };
    for (const TRow& row : {TRow{beStandard, false, false, false, u"KO", 2},
                            {beNewWyszukajPoczatek, false, false, false, u"ko", -1},
                            {beStandard, true, false, false, u"Ko", -1},
                            {beStandard, false, false, false, u"lodz", -1},
                            {beStandard, false, true, false, u"lodz", 3},
                            {beStandard, false, true, false, u"weiss", 4},
                            {beStandard, false, true, false, u"kr?k", 1},
                            {beStandard, false, false, true, u"monch", 5},
                            {beStandard, false, false, false, u"", -1}}) {
        Field->Behavior = row.Behavior;
        Field->CaseSensitive = row.CaseSensitive;
        Field->SmartSearch = row.Smart;
        Field->IgnoreLocalChars = row.Local;
        EXPECT_EQ(Field->findItemPos(row.Text), row.Item) << Utf8Encode(row.Text);
    }
    Field->Text = u"Łód";
    EXPECT_TRUE(Field->key_allowed(u'ź'));
    EXPECT_FALSE(Field->key_allowed(u'x'));
    EXPECT_TRUE(Field->key_allowed(0));
    EXPECT_TRUE(Field->key_allowed(8));
    Field->Clear();
    EXPECT_FALSE(Field->key_allowed(u'a')) << "nothing to choose from";
}

TEST_F(ChoiceField, OpensAndClosesByMouseAndKeyboard) {
    for (int round = 0; round < 3; ++round) {
        const auto toggle = [&] {
            if (round == 0)
                PressKey(VK_F4);
            else if (round == 1)
                PressKey(VK_DOWN, {ssAlt});
            else
                ClickOn(*Field, Arrow());
        };
        toggle();
        ASSERT_TRUE(WaitFor([&] { return IsOpen(); })) << round;
        toggle();
        ASSERT_TRUE(WaitFor([&] { return !IsOpen(); })) << round;
        EXPECT_EQ(Taken(), u"close ") << round;
    }
    EXPECT_TRUE(WaitFor([&] { return Field->GetPopup() == nullptr; })) << "let go of after a while";
    ClickOn(*Field, {20, 10});
    EXPECT_TRUE(WaitFor([&] { return Told == u"edit "; }));
    Taken();
    PressKey(VK_F4);
    PressMouse(Other.ClientToScreen({5, 5}));
    ReleaseMouse();
    EXPECT_TRUE(WaitFor([&] { return !IsOpen() && Other.Focused(); })) << "the click counts where it went";
    Field->Clear();
    Taken();
    ClickOn(*Field, Arrow());
    EXPECT_TRUE(WaitFor([&] { return Told == u"new "; }));
    EXPECT_FALSE(IsOpen());
    Field->AddItem(u"a", nullptr);
    Field->Enabled = false;
    Field->DroppedDown = true;
    EXPECT_FALSE(IsOpen());
    Field->Enabled = true;
    Field->ReadOnly = true;
    Field->DroppedDown = true;
    EXPECT_FALSE(IsOpen());
}

TEST_F(ChoiceField, TakesARowByTheMouse) {
    PressKey(VK_F4);
    ASSERT_TRUE(IsOpen());
    EXPECT_EQ(Row(), -1);
    MoveMouse(PlaceOfRow(3));
    EXPECT_TRUE(WaitFor([&] { return Row() == 3; })) << "the row under the mouse is highlighted";
    EXPECT_EQ(Field->ItemIndex, -1);
    PressMouse(PlaceOfRow(4));
    EXPECT_TRUE(Field->Focused());
    ReleaseMouse();
    EXPECT_TRUE(WaitFor([&] { return !IsOpen(); }));
    EXPECT_EQ(Field->Text, u"Weißenfels");
    EXPECT_EQ(Field->ItemIndex, 4);
    EXPECT_EQ(Taken(), u"change select close ");
    PressKey(VK_F4);
    EXPECT_EQ(Row(), 4);
    PressMouse(PlaceOfRow(4));
    ReleaseMouse();
    EXPECT_TRUE(WaitFor([&] { return !IsOpen(); }));
    EXPECT_EQ(Taken(), u"close ") << "the same again is no choice";
}

TEST_F(ChoiceField, EscBringsBackWhatWasThere) {
    TButton cancel(nullptr);
    cancel.SetParent(Form.get());
    cancel.SetCancel(true);
    cancel.OnClick = [&](TObject*) { Told += u"cancel "; };
    for (const TComboBoxStyle style : {csDropDown, csDropDownList}) {
        Field->Style = style;
        Field->ItemIndex = 3;
        Field->SelectAll();
        TypeText(u"k");
        PressKey(VK_DOWN);
        EXPECT_EQ(Field->ItemIndex, 2) << "the row below Kraków";
        Taken();
        PressKey(VK_ESCAPE);
        EXPECT_FALSE(IsOpen());
        EXPECT_EQ(Field->Text, u"Łódź");
        EXPECT_EQ(Field->ItemIndex, 3);
        EXPECT_EQ(Taken(), u"change select close ") << "the row below Kraków was told of";
        PressKey(VK_ESCAPE);
        EXPECT_EQ(Taken(), u"cancel ") << "the next one is the form's";
    }
}

TEST_F(ChoiceField, LeavingTakesNoHighlightedRowButTabDoes) {
    Field->TabOrder = 0;
    Field->ItemIndex = 0;
    Field->SelectAll();
    TypeText(u"kr");
    Other.SetFocus();
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(Field->Text, u"kr") << "free text stays";
    EXPECT_EQ(Field->ItemIndex, -1);
    Field->Style = csDropDownList;
    Field->ItemIndex = 0;
    Field->SetFocus();
    Taken();
    TypeText(u"kr");
    Other.SetFocus();
    EXPECT_EQ(Field->Text, u"Brno") << "only items can be chosen";
    EXPECT_EQ(Field->ItemIndex, 0);
    Field->SetFocus();
    TypeText(u"kr");
    Taken();
    PressKey(VK_TAB);
    EXPECT_TRUE(Other.Focused());
    EXPECT_EQ(Field->ItemIndex, 1);
    EXPECT_EQ(Taken(), u"change select close ");
}

TEST_F(ChoiceField, TellsOfAnItemTypedInFullOnceWhateverEndsIt) {
    Field->TabOrder = 0;
    for (int way = 0; way < 5; ++way) {
        Field->SetFocus();
        Field->ItemIndex = -1;
        TypeText(u"brno");
        ASSERT_TRUE(IsOpen()) << way;
        EXPECT_EQ(Taken(), u"change change change change ") << way << ", and no choice while more may follow";
        String told = u"change select close "; // with the item's own letter case
        if (way == 0) {
            PressKey(VK_RETURN);
            PressKey(VK_RETURN);
        } else if (way == 1) {
            PressKey(VK_TAB);
        } else if (way == 2) {
            PressMouse(PlaceOfRow(0));
            ReleaseMouse();
        } else {
            told = u"select close ";
            if (way == 3)
                Other.SetFocus();
            else
                PressKey(VK_F4);
        }
        EXPECT_TRUE(WaitFor([&] { return !IsOpen(); })) << way;
        EXPECT_EQ(Taken(), told) << way;
        Other.SetFocus();
        EXPECT_EQ(Taken(), u"") << way;
    }
    Field->SetFocus();
    Field->ItemIndex = -1;
    TypeText(u"brn");
    Field->InsertItem(0, u"Aachen", nullptr);
    TypeText(u"o");
    Taken();
    PressKey(VK_RETURN);
    EXPECT_EQ(Taken(), u"change select close ");
    EXPECT_EQ(Field->Text, u"Brno") << "the rows of the items as they are now";
    Field->InsertItem(0, u"Aalen", nullptr);
    PressKey(VK_RETURN);
    EXPECT_EQ(Taken(), u"") << "the same item";
}

TEST_F(ChoiceField, ComesBackToTheLastChoiceWhereOnlyItemsCanBeChosen) {
    Field->Style = csDropDownList;
    Field->ItemIndex = 0;
    PressKey(VK_DOWN);
    TypeText(u"we");
    Taken();
    Other.SetFocus();
    EXPECT_EQ(Field->Text, u"Kraków") << "stepping has told of it";
    EXPECT_EQ(Field->ItemIndex, 1);
    EXPECT_EQ(Taken(), u"change close ");
}

TEST_F(ChoiceField, GoesOnAsBeforeWhenAHandlerThrows) {
    Application->OnException = [](TObject*, const std::exception&) {};
    Field->OnChange = [this](TObject*) {
        Told += u"throw ";
        throw Exception(u"no");
    };
    TypeText(u"k");
    PressKey(VK_RETURN);
    EXPECT_EQ(Taken(), u"throw throw close ");
    Field->OnChange = [this](TObject*) { Told += u"change "; };
    Field->Text = u"oko";
    EXPECT_EQ(Taken(), u"") << "set by the program";
    TypeText(u"x");
    EXPECT_EQ(Field->Text, u"oko");
    Field->SelectAll();
    TypeText(u"b");
    EXPECT_EQ(Taken(), u"change ");
    Application->OnException = nullptr;
}

TEST_F(ChoiceField, StepsThroughTheItemsAndGoesOnWhileAKeyIsHeld) {
    PressKey(VK_UP);
    EXPECT_EQ(Field->ItemIndex, 0);
    PressKey(VK_DOWN);
    EXPECT_EQ(Field->ItemIndex, 1);
    EXPECT_EQ(Field->Text, u"Kraków");
    EXPECT_EQ(Taken(), u"change select change select ");
    PressKey(VK_F4);
    EXPECT_EQ(Row(), 1);
    INPUT down{};
    down.type = INPUT_KEYBOARD;
    down.ki.wVk = VK_DOWN;
    SendInput(1, &down, sizeof(down));
    EXPECT_TRUE(WaitFor([&] { return Field->ItemIndex == 2; }));
    SendInput(1, &down, sizeof(down)); // as the keyboard repeats it
    Application->ProcessMessages();
    EXPECT_EQ(Field->ItemIndex, 2) << "the timer sets the pace";
    EXPECT_TRUE(WaitFor([&] { return Field->ItemIndex == 5; }));
    EXPECT_EQ(Row(), 5);
    Taken();
    EXPECT_FALSE(WaitFor([&] { return !Told.empty(); }, 700)) << "at the end nothing more is told";
    down.ki.dwFlags = KEYEVENTF_KEYUP;
    SendInput(1, &down, sizeof(down));
    PressKey(VK_PRIOR);
    EXPECT_EQ(Field->ItemIndex, 0);
    PressKey(VK_RETURN);
    EXPECT_EQ(Taken(), u"change select close ") << "stepping has told of the choice, Enter closes";
    const auto turn = [&](int notches) {
        SendMessageW(Field->GetHandle(), WM_MOUSEWHEEL, MAKEWPARAM(0, notches * WHEEL_DELTA), 0);
    };
    turn(-1);
    EXPECT_EQ(Field->ItemIndex, 1);
    Other.SetFocus();
    turn(-1);
    EXPECT_EQ(Field->ItemIndex, 1) << "only a field that was entered";
}

TEST_F(ChoiceField, StopsSteppingWhenTheKeyIsLetGoOfElsewhere) {
    INPUT down{};
    down.type = INPUT_KEYBOARD;
    down.ki.wVk = VK_DOWN;
    INPUT up = down;
    up.ki.dwFlags = KEYEVENTF_KEYUP;
    SendInput(1, &down, sizeof(down));
    EXPECT_TRUE(WaitFor([&] { return Field->ItemIndex == 0; }));
    ::SetFocus(nullptr); // as a message box takes it
    SendInput(1, &up, sizeof(up));
    Application->ProcessMessages();
    ::SetFocus(Field->GetHandle());
    PressKey(VK_DOWN);
    EXPECT_EQ(Field->ItemIndex, 1) << "pressed anew";
    Form->KeyPreview = true;
    Form->OnKeyUp = [](TObject*, WORD& key, TShiftState) { key = 0; };
    PressKey(VK_DOWN);
    EXPECT_EQ(Field->ItemIndex, 2);
    EXPECT_FALSE(WaitFor([&] { return Field->ItemIndex != 2; }, 700)) << "the form keeps the release to itself";
    PressKey(VK_DOWN);
    EXPECT_EQ(Field->ItemIndex, 3);
}

TEST_F(ChoiceField, KeepsTheItemThroughChangesOfTheItems) {
    Field->ItemIndex = 3;
    Field->InsertItem(0, u"Aachen", nullptr);
    EXPECT_EQ(Field->ItemIndex, 4);
    Field->DeleteItem(1);
    EXPECT_EQ(Field->ItemIndex, 3);
    Field->InsertItem(1, u"Łódź", Number(7));
    EXPECT_EQ(Field->get_id_sel(), 103) << "of two that read the same";
    Field->Sorted = true;
    EXPECT_EQ(Field->get_id_sel(), 103);
    EXPECT_EQ(Field->Items->Strings[Field->ItemIndex], u"Łódź");
    Field->AddItem(u"Aalen", nullptr);
    EXPECT_EQ(Field->get_id_sel(), 103);
    Field->Sorted = false;
    Field->Items->Move(Field->ItemIndex, 0);
    EXPECT_EQ(Field->ItemIndex, 0);
    Field->Items->Strings[0] = u"Lodz";
    EXPECT_EQ(Field->Text, u"Lodz");
    EXPECT_EQ(Field->get_id_sel(), 103);
    Field->DeleteItem(0);
    EXPECT_EQ(Field->ItemIndex, -1);
    EXPECT_EQ(Field->get_id_sel(), -1);
    EXPECT_EQ(Field->Text, u"Lodz") << "what stands in a free text is the person's";
    Field->Text = u"AACHEN";
    EXPECT_EQ(Field->Items->Strings[Field->ItemIndex], u"Aachen");
    Field->Text = u"two\r\nlines\r\n";
    EXPECT_EQ(Field->Text, u"two  lines");
    Field->ItemIndex = 99;
    EXPECT_EQ(Field->ItemIndex, -1);
    EXPECT_EQ(Taken(), u"") << "the program's own doing is not announced";
}

TEST_F(ChoiceField, KeepsTheChoiceWhenItsItemsAreFilledInAnew) {
    TStringList others;
    others.SetLines({u"Aachen", u"łódź", u"Brno"});
    for (const TComboBoxStyle style : {csDropDown, csDropDownList}) {
        Field->Style = style;
        Field->Items->SetTextStr(u"Brno\nŁódź\n");
        Field->ItemIndex = 0;
        PressKey(VK_DOWN);
        EXPECT_EQ(Taken(), u"change select ");
        Field->Items = &others;
        EXPECT_EQ(Field->ItemIndex, 1);
        EXPECT_EQ(Field->Text, u"Łódź");
        PressKey(VK_F4);
        PressKey(VK_RETURN);
        EXPECT_EQ(Taken(), u"change close ") << "with its letters as they are now, and no other item";
        Field->Items->Clear();
        Field->AddItem(u"Łódź", nullptr);
        EXPECT_EQ(Field->ItemIndex, style == csDropDown ? 0 : -1) << "gone where only items can be chosen";
    }
    Field->Items->SetTextStr(u"Olomouc\n");
    EXPECT_EQ(Field->Text, u"");
    Field->OnChange = [&](TObject*) { Field->Items = &others; };
    TypeText(u"o");
    TypeText(u"brno");
    Taken();
    PressKey(VK_RETURN);
    EXPECT_EQ(Taken(), u"select close ") << "filled in while it was typed";
}

TEST_F(ChoiceField, JudgesWhatIsComposedAsWhatIsTyped) {
    ComposeText(u"kö", [this] {
        EXPECT_EQ(Field->Text, u"") << "nothing is entered yet";
        EXPECT_EQ(Taken(), u"");
    });
    EXPECT_EQ(Field->Text, u"k") << "no item has the other behind it";
    EXPECT_EQ(Row(), 1);
    EXPECT_EQ(Taken(), u"change ");
}

TEST_F(ChoiceField, TakesALongTextFromRightToLeft) {
    const String name =
        u"\u05D9\u05E8\u05D5\u05E9\u05DC\u05D9\u05DD \u05E9\u05DC \u05DE\u05E2\u05DC\u05D4 "
        u"\u05D5\u05E9\u05DC \u05DE\u05D8\u05D4 \u05D5\u05DB\u05DC \u05E9\u05DB\u05D5\u05E0\u05D5\u05EA\u05D9\u05D4";
    Field->BiDiMode = bdRightToLeft;
    Field->Width = 60;
    Field->AddItem(name, nullptr);
    TypeText(name);
    EXPECT_EQ(Field->Text, name) << "longer than there is room";
    EXPECT_EQ(Field->ItemIndex, 6);
    Field->Text = u"";
    Field->ItemIndex = 6;
    EXPECT_EQ(Field->Text, name);
}

TEST_F(ChoiceField, IsReadFromATextFormWithItsItem) {
    Zorcomboboxnew::Register();
    for (const char* sorted : {"", "  Sorted = True\n"}) {
        const auto read = CreateFromTextForm(std::string("object Town: TZORComboBoxnew\n  ItemIndex = 2\n") + sorted +
                                                 "  Text = 'Cieszyn'\n"
                                                 "  Items.Strings = (\n    'Aachen'\n    'Brno'\n    'Cieszyn')\nend\n",
                                             nullptr);
        auto& town = dynamic_cast<TZORComboBoxnew&>(*read);
        EXPECT_EQ(town.ItemIndex, 2) << sorted;
        EXPECT_EQ(town.Text, u"Cieszyn") << sorted;
    }
}

TEST_F(ChoiceField, TakesALetterOfThePopupThatAnItemHas) {
    PressKey(VK_F7);
    Textrasignsfrm* signs = Field->GetExtraSignsForm();
    ASSERT_TRUE(signs && signs->Showing);
    ClickSign(*signs, u'ö');
    EXPECT_EQ(Field->Text, u"ö");
    ClickSign(*signs, u'ž');
    EXPECT_EQ(Field->Text, u"ö") << "no item has it behind the other";
    EXPECT_EQ(Taken(), u"change ");
}

TEST_F(ChoiceField, PastesWhatAnItemMatches) {
    ASSERT_TRUE(SetClipboardText(Field->GetHandle(), u"Brno\r\n"));
    PressKey('V', {ssCtrl});
    EXPECT_EQ(Field->Text, u"Brno");
    EXPECT_EQ(Field->ItemIndex, 0);
    PressKey('V', {ssCtrl});
    EXPECT_EQ(Field->Text, u"Brno") << "twice is no item";
    EXPECT_EQ(Taken(), u"change ");
}

TEST_F(ChoiceField, TakesACharacterOfTwoHalvesAsOne) {
    Field->AddItem(u"A \xD83D\xDE00", nullptr);
    TypeText(u"\xD83D\xDE01");
    EXPECT_EQ(Field->Text, u"") << "the first half alone would match";
    TypeText(u"\xD83D\xDE00");
    EXPECT_EQ(Field->Text, u"\xD83D\xDE00");
    EXPECT_EQ(Row(), 6);
    EXPECT_EQ(Taken(), u"change ");
}

} // namespace
