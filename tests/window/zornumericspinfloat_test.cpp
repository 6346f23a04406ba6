// The spin float edit under real keys: numbers and durations, steps, the message that keeps a person in the field.

#include "foundation/Zormessages.h"
#include "framework/system/formloader.h"
#include "framework/system/formsaver.h"
#include "framework/windows/clipboard.h"
#include "framework/windows/standardcontrols.h"
#include "numeric/Zorspinfloatedit.h"
#include "package/Zorpackage.h"
#include "tests/support/messageboxes.h"
#include "tests/support/numericform.h"

#include <cmath>

namespace {

using namespace framework;
using namespace ZOR;
using namespace testsupport;

class SpinFloatEdit : public NumericForm<TZORSpinFloatEdit> {
protected:
    void SetUp() override { FormatSettings() = SettingsOf(u','); }
    void ClickArrow(bool upper) {
        TFieldUpDown& arrows = *Field.GetUpDown();
        ClickOn(arrows, {arrows.Width / 2, upper ? 3 : arrows.Height - 4});
    }
    void Wheel(int notches) { Field.Perform(WM_MOUSEWHEEL, MAKEWPARAM(0, notches * WHEEL_DELTA), 0); }
};

TEST_F(SpinFloatEdit, NumbersStepByTheWrittenIncrement) {
    Field.Increment = 0.1F;
    Field.Value = 0;
    ClickArrow(true);
    EXPECT_EQ(Field.Text, u"0,10");
    EXPECT_TRUE(Field.Focused());
    PressKey(VK_DOWN);
    Wheel(3);
    EXPECT_EQ(Field.Text, u"0,30");
    for (int i = 0; i < 997; ++i)
        Field.Perform(WM_KEYDOWN, VK_UP);
    EXPECT_EQ(Field.Text, u"100,00");
    EXPECT_EQ(Field.Value, 100.0L) << "a thousand tenths";
    Put(u"1|00,05");
    Field.Zaokraglaj = true;
    PressKey(VK_UP);
    EXPECT_EQ(Marked(), u"1|00,10") << "to the next multiple, the caret stays";
    Field.MaxValue = 100;
    Field.MinValue = 99;
    PressKey(VK_UP);
    EXPECT_EQ(Field.Text, u"100,00");
    EXPECT_EQ(Field.Wymagany, wNone) << "a step that stops at the end is no error";
    Other.SetFocus();
    Wheel(-1);
    EXPECT_EQ(Field.Text, u"100,00") << "the wheel needs the focus";
    Enter();
    Field.ReadOnly = true;
    Wheel(-1);
    PressKey(VK_DOWN);
    ClickArrow(false);
    EXPECT_EQ(Field.Text, u"100,00");
}

TEST_F(SpinFloatEdit, DurationsAreTypedInTwoParts) {
    Field.Tryb = tTime;
    EXPECT_EQ(Field.Text, u"00:00");
    EXPECT_EQ(Field.Increment, 1.0F);
    Field.MinValue = -6000;
    Field.MaxValue = 60000;
    Try({
        {"four digits", u"|00|:00", u"0745", u"07:45|"},
        {"over full hours", u"|08:00", u"0745", u"07:45|"},
        {"a separator leads on", u"|00|:00", u"7:5", u"7:5|"},
        {"letters are not taken", u"|00|:00", u"xe1", u"1|:00"},
        {"a minus turns the sign", u"01:|30|", u"-", u"-01:|30|"},
        {"the arrow crosses", u"|01|:30", u"\u2192", u"01:|30|"},
        {"and back", u"01:|30|", u"\u2190", u"|01|:30"},
        {"delete keeps the separator", u"01|:30", u"\x7F", u"01:|30"},
    });
    Field.OnKeyDown = [](TObject*, WORD& key, TShiftState) { key = key == VK_RIGHT ? 0 : key; };
    Put(u"|01|:30");
    PressKey(VK_RIGHT);
    EXPECT_EQ(Marked(), u"|01|:30") << "the host has the first word";
}

TEST_F(SpinFloatEdit, EnteringSelectsAPart) {
    Field.Tryb = tTime;
    Field.Value = 90;
    PressKey(VK_TAB);
    ASSERT_TRUE(WaitFor([&] { return Field.Focused(); }));
    EXPECT_EQ(Marked(), u"|01|:30");
    Other.SetFocus();
    Field.FocusOnMinutes = true;
    Enter();
    EXPECT_EQ(Marked(), u"01:|30|");
    PressKey(VK_UP);
    EXPECT_EQ(Marked(), u"01:|31|");
    PressKey(VK_LEFT);
    PressKey(VK_UP);
    ClickArrow(true);
    EXPECT_EQ(Marked(), u"|03|:31") << "hours where the caret stands in the hours";
    Other.SetFocus();
    ClickArrow(false);
    EXPECT_EQ(Marked(), u"03:|30|");
    Other.SetFocus();
    ClickOn(Field, {10, 10});
    ASSERT_TRUE(WaitFor([&] { return Field.Focused(); }));
    EXPECT_EQ(Marked(), u"|03|:30") << "the part that was clicked";
    ClickOn(Field, {90, 10});
    EXPECT_TRUE(WaitFor([&] { return Marked() == u"03:30|"; })) << "a further click places the caret";
    Other.SetFocus();
    Field.AutoSelect = false;
    Field.FocusOnMinutes = false;
    Field.SelStart = 1;
    Enter();
    EXPECT_EQ(Marked(), u"0|3:30");
}

TEST_F(SpinFloatEdit, EveryModeReadsBackWhatItShows) {
    const struct {
        const char* Name;
        TTryb Mode;
        char16_t Decimal, Time;
        Extended Value;
        String Text;
        Extended Back;
    } rows[] = {
        {"negative minutes", tTime, u',', u':', -5, u"-00:05", -5},
        {"another time separator", tTime, u',', u'.', 65, u"01.05", 65},
        {"hundredths of an hour", tTimeDecimal, u'.', u':', 90, u"01.50", 90},
        {"beyond the bounds", tTime, u',', u':', 1e9L, u"9999:59", 599999},
        {"eighteen digits", tStandard, u'.', u':', 1234567890123456.78L, u"1234567890123456.78", 1234567890123456.78L},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.Name);
        FormatSettings() = SettingsOf(row.Decimal, row.Time);
        TZORSpinFloatEdit field(nullptr);
        field.Parent = Form.get();
        field.Tryb = row.Mode;
        field.Value = row.Value;
        EXPECT_EQ(field.Text, row.Text);
        EXPECT_EQ(field.Value, row.Back);
        field.SetFocus();
        Other.SetFocus();
        ASSERT_TRUE(WaitFor([&] { return Other.Focused(); }));
        EXPECT_EQ(field.Text, row.Text) << "leaving changes nothing";
    }
    Field.Decimals = 0;
    for (const Extended odd : {static_cast<Extended>(NAN), static_cast<Extended>(-INFINITY), 1e300L, 1e-320L}) {
        for (const TTryb mode : {tStandard, tTime, tTimeDecimal}) {
            Field.Tryb = mode;
            Field.Value = odd;
            Enter();
            PressKey(VK_UP);
            Leave();
        }
    }
    Field.Tryb = tStandard;
    Field.Value = 12.345L;
    EXPECT_EQ(Field.AsCurrency, Currency(12));
}

TEST_F(SpinFloatEdit, LeavingWritesInFullAndSnaps) {
    Field.Tryb = tTime;
    Field.Increment = 15;
    Field.Zaokraglaj = true;
    Enter();
    Put(u"|1:5");
    Leave();
    EXPECT_EQ(Field.Text, u"01:00");
    Enter();
    TypeKeys(u"0108");
    Leave();
    EXPECT_EQ(Field.Text, u"01:15");
    Field.Zaokraglaj = false;
    Enter();
    Put(u"|1:5");
    Leave();
    EXPECT_EQ(Field.Text, u"01:05");
    Field.Tryb = tStandard;
    EXPECT_EQ(Field.Increment, 0.01F);
    Enter();
    Field.SelectAll();
    TypeKeys(u"7,5");
    Leave();
    EXPECT_EQ(Field.Text, u"7,50");
}

TEST_F(SpinFloatEdit, AValueOutOfRangeKeepsThePersonInTheField) {
    Field.MinValue = 10;
    Field.MaxValue = 20;
    Field.Value = 12;
    Field.Wymagany = wRequired;
    Other.TabOrder = 1;
    Field.TabOrder = 0;
    std::vector<String> told;
    Field.OnExit = [&](TObject*) { told.push_back(u"exit"); };
    Other.OnEnter = [&](TObject*) { told.push_back(u"other entered"); };
    Enter();
    Put(u"|12,00|");
    TypeKeys(u"7");
    TBoxReader boxes;
    boxes.OnBox = [&] { Field.Perform(CM_MOUSELEAVE); }; // the pointer goes to the box, which ends an error as a rule
    PressKey(VK_TAB);
    ASSERT_TRUE(WaitFor([&] { return boxes.Seen.size() == 1; }));
    const bool polish = UserMessageLanguage() == TMessageLanguage::Polish;
    const TMessageBox expected = polish ? TMessageBox{u"Błąd", u"Wprowadzono nieprawidłową wartość.\nWartość powinna "
                                                               u"mieścić się w zakresie [10,00 - 20,00]."}
                                        : TMessageBox{u"Error", u"An invalid value."};
    EXPECT_EQ(boxes.Seen[0].Caption, expected.Caption);
    EXPECT_EQ(boxes.Seen[0].Text, expected.Text);
    EXPECT_EQ(boxes.Seen[0].Owner, Form->Handle);
    ASSERT_TRUE(WaitFor([&] { return Field.Focused(); }));
    EXPECT_EQ(Field.Wymagany, wError);
    EXPECT_EQ(Field.Text, u"7,00") << "what was typed stays";
    EXPECT_TRUE(told.empty());
    ClickOn(Other);
    ASSERT_TRUE(WaitFor([&] { return boxes.Seen.size() == 2; })) << "a click does not get away either";
    ASSERT_TRUE(WaitFor([&] { return Field.Focused(); }));
    Field.SelectAll();
    TypeKeys(u"15");
    PressKey(VK_TAB);
    ASSERT_TRUE(WaitFor([&] { return Other.Focused(); }));
    EXPECT_EQ(boxes.Seen.size(), 2u);
    EXPECT_EQ(Field.Wymagany, wRequired);
    EXPECT_EQ(told, (std::vector<String>{u"exit", u"other entered"}));

    // A program's value out of range is brought into it, shown as an error, and the person has to say yes to it.
    Field.Value = 25;
    EXPECT_EQ(Field.Text, u"20,00");
    EXPECT_EQ(Field.Wymagany, wError);
    Enter();
    PressKey(VK_TAB);
    ASSERT_TRUE(WaitFor([&] { return boxes.Seen.size() == 3 && Field.Focused(); }));
    EXPECT_EQ(Field.Text, u"20,00");
    Field.SelectAll();
    TypeKeys(u"20");
    Leave();
    EXPECT_EQ(Field.Wymagany, wRequired);
    Field.Value = 5;
    Field.Value = 15;
    EXPECT_EQ(Field.Wymagany, wRequired) << "the next right value ends the error";
    EXPECT_EQ(Field.CheckValueEx(25), 1);
    EXPECT_EQ(Field.CheckValueEx(15), 0);
    Enter();
    Leave();
    EXPECT_EQ(boxes.Seen.size(), 3u);
}

TEST_F(SpinFloatEdit, TwoWrongFieldsDoNotHoldThePersonForEver) {
    TZORSpinFloatEdit second(nullptr);
    second.Parent = Form.get();
    second.SetBounds(150, 160, 120, 21);
    for (TZORSpinFloatEdit* each : {&Field, &second}) {
        each->MinValue = 10;
        each->MaxValue = 20;
        each->Text = u"5";
    }
    TBoxReader boxes;
    Enter();
    ClickOn(second);
    EXPECT_TRUE(WaitFor([&] { return boxes.Seen.size() == 1 && Field.Focused(); }));
    ClickOn(*second.GetUpDown(), {7, 3});
    EXPECT_TRUE(WaitFor([&] { return boxes.Seen.size() == 2 && Field.Focused(); }));
    EXPECT_EQ(second.Text, u"5") << "the press that found no way in steps nothing";
    int exits = 0;
    Field.OnExit = [&](TObject*) { ++exits; };
    Field.Enabled = false;
    EXPECT_TRUE(WaitFor([&] { return !Field.Focused(); })) << "a program can always take the field out";
    EXPECT_EQ(exits, 1);
    EXPECT_EQ(boxes.Seen.size(), 2u) << "without a word to the person";
}

TEST_F(SpinFloatEdit, UnreadableTextsNeverStay) {
    Field.Tryb = tTime;
    Field.Value = 95;
    Enter();
    Field.SelectAll();
    PressKey('X', {ssCtrl});
    PressKey(VK_DELETE, {ssShift});
    EXPECT_EQ(Field.Text, u"01:35") << "cut takes nothing";
    Field.SelectAll();
    Field.ClearSelection();
    EXPECT_EQ(Field.Value, 0.0L);
    const struct {
        TTryb Mode;
        String Clipboard;
        String After;
    } rows[] = {
        {tTime, u"2:05", u"02:05"}, {tTime, u"noon", u""}, {tStandard, u"12,5", u"12,5"}, {tStandard, u"x", u""}};
    for (const auto& row : rows) {
        Field.Tryb = row.Mode;
        Enter();
        SetClipboardText(nullptr, row.Clipboard);
        PressKey('V', {ssCtrl});
        EXPECT_EQ(Field.Text, row.After) << Utf8Encode(row.Clipboard);
    }
    Field.Tryb = tTimeDecimal;
    Field.EditorEnabled = false;
    Field.Value = 90;
    TypeKeys(u"5\b\x7F-");
    PressKey('V', {ssCtrl});
    EXPECT_EQ(Field.Text, u"01,50");
    PressKey(VK_UP);
    EXPECT_NE(Field.Text, u"01,50") << "steps stay";
}

TEST_F(SpinFloatEdit, ATextOfTheProgramsStaysAndReadsAsTheLeastValue) {
    for (const bool hasWindow : {true, false}) {
        for (const TTryb mode : {tStandard, tTime, tTimeDecimal}) {
            TZORSpinFloatEdit field(nullptr);
            if (hasWindow)
                field.Parent = Form.get();
            field.Tryb = mode;
            field.MinValue = 10;
            field.Value = 95;
            const String text = mode == tTime ? u"130" : u"noon";
            field.Text = text;
            EXPECT_EQ(field.Text, text);
            EXPECT_EQ(field.Value, 10.0L);
            if (!hasWindow)
                continue;
            field.SetFocus();
            field.SelStart = 0;
            field.SetSelText(u"x");
            EXPECT_EQ(field.Value, 95.0L) << "what is put in by hand is put right";
        }
    }
}

TEST_F(SpinFloatEdit, ADurationBeyondAllIsToldOfAndNotCut) {
    Field.Tryb = tTime;
    Enter();
    Put(u"12|:34");
    TypeKeys(u"345");
    TBoxReader boxes;
    PressKey(VK_TAB);
    ASSERT_TRUE(WaitFor([&] { return boxes.Seen.size() == 1 && Field.Focused(); }));
    EXPECT_EQ(Field.Text, u"12345:34");
    EXPECT_EQ(Field.Wymagany, wError);
    Field.Text = u"00:00";
}

TEST_F(SpinFloatEdit, TheKeypadTypesTheSeparatorOfTheMode) {
    Enter();
    Field.SelectAll();
    TypeKeys(u"7");
    PressKey(VK_DECIMAL);
    PressKey('5');
    EXPECT_EQ(Field.Value, 7.5L);
    for (const TTryb mode : {tTime, tTimeDecimal}) {
        Field.Tryb = mode;
        Put(mode == tTime ? u"|00|:00" : u"|00|,00");
        TypeKeys(u"7");
        PressKey(VK_DECIMAL);
        TypeKeys(u"50");
        EXPECT_EQ(Field.Value, mode == tTime ? 470.0L : 450.0L);
    }
}

TEST_F(SpinFloatEdit, HandlersMayTakeTheFieldAway) {
    const struct {
        const char* Name;
        std::function<void(TZORSpinFloatEdit& field)> Act;
    } rows[] = {
        {"a click",
         [](TZORSpinFloatEdit& field) {
             ClickOn(*field.GetUpDown(), {7, 3});
         }},
        {"a key", [](TZORSpinFloatEdit&) { PressKey(VK_UP); }},
        {"typing", [](TZORSpinFloatEdit&) { TypeText(u"5"); }},
        {"a mode", [](TZORSpinFloatEdit& field) { field.Tryb = tTimeDecimal; }},
        {"a value", [](TZORSpinFloatEdit& field) { field.Value = 77; }},
        {"leaving",
         [this](TZORSpinFloatEdit& field) {
             field.Increment = 15;
             field.Zaokraglaj = true;
             Other.SetFocus();
         }},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.Name);
        auto* field = new TZORSpinFloatEdit(nullptr);
        field->Parent = Form.get();
        field->SetBounds(10, 150, 100, 21);
        field->Tryb = tTime;
        field->Value = 65;
        field->SetFocus();
        field->OnChange = [&](TObject*) { delete std::exchange(field, nullptr); };
        row.Act(*field);
        EXPECT_TRUE(WaitFor([&] { return field == nullptr; }));
        delete field;
    }
    auto* field = new TZORSpinFloatEdit(nullptr);
    field->Parent = Form.get();
    field->MinValue = 10;
    field->Text = u"5";
    field->SetFocus();
    TBoxReader boxes;
    boxes.OnBox = [&] { delete std::exchange(field, nullptr); };
    Other.SetFocus();
    EXPECT_EQ(boxes.Seen.size(), 1u) << "gone while its message is shown";
    EXPECT_EQ(field, nullptr);
    Field.OnChange = [&](TObject*) { Field.RecreateWnd(); };
    Field.Value = 1;
    ClickArrow(true);
    EXPECT_EQ(Field.Text, u"1,01");
}

TEST_F(SpinFloatEdit, ComesFromAFormAndGoesWithoutATrace) {
    RegisterStandardControls();
    RegisterPackage();
    const std::string text = "object F: TForm\r\n"
                             "  object Work: TZORSpinFloatEdit\r\n"
                             "    Tryb = tTime\r\n"
                             "    Increment = 15.000000000000000000\r\n"
                             "    MaxValue = 1440.000000000000000000\r\n"
                             "    Value = 485.000000000000000000\r\n"
                             "    Wymagany = wRequired\r\n"
                             "    FocusOnMinutes = True\r\n"
                             "  end\r\n"
                             "end\r\n";
    const auto form = CreateFromTextForm(text, nullptr);
    auto& work = *As<TZORSpinFloatEdit>(form->FindComponent(u"Work"));
    EXPECT_EQ(work.Text, u"08:05");
    EXPECT_EQ(work.Wymagany, wRequired);
    const std::string saved = WriteTextForm(SaveTextForm(*form));
    const auto again = CreateFromTextForm(saved, nullptr);
    EXPECT_EQ(As<TZORSpinFloatEdit>(again->FindComponent(u"Work"))->GetText(), u"08:05");
    EXPECT_NE(saved.find("Increment = 15.0"), std::string::npos) << saved;
    EXPECT_EQ(saved.find("    Text ="), std::string::npos) << saved;
}

} // namespace
