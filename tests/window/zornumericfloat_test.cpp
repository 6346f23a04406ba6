// The float edit under real keys, in the user's locale and in others: typing, leaving, pasting, the range, the frame.

#include "framework/graphics/handles.h"
#include "framework/system/formloader.h"
#include "framework/system/formsaver.h"
#include "framework/windows/clipboard.h"
#include "framework/windows/mouse.h"
#include "framework/windows/standardcontrols.h"
#include "package/Zorpackage.h"
#include "tests/support/numericform.h"

namespace {

using namespace framework;
using namespace ZOR;
using namespace testsupport;

using FloatEdit = NumericForm<TZORFloatEdit>;

TEST_F(FloatEdit, TypesWithACommaWhereNumbersHaveOne) {
    FormatSettings() = SettingsOf(u',');
    Field.MinValue = -1000000;
    Field.MaxValue = 1000000;
    Try({
        {"into an empty field", u"|", u"12,34", u"12,34|"},
        {"the point is not taken", u"|", u"12.34", u"1234|"},
        {"a negative number", u"|", u"-7,5", u"-7,5|"},
        {"letters are not taken", u"|", u"1x2", u"12|"},
        {"decimals are typed over", u"1,|25", u"38", u"1,38|"},
        {"a comma goes behind the comma", u"1|2,34", u",", u"12,|34"},
        {"backspace zeroes decimals, steps over the comma, deletes", u"12,25|", u"\b\b\b\b", u"1|,00"},
        {"digits before the comma go in", u"1|,25", u"7", u"17|,25"},
        {"a digit over all", u"|12,34|", u"5", u"5|,00"},
        {"the mask's zero gives way", u"0|,00", u"5", u"5|,00"},
        {"a second comma is taken back", u"|", u"1,,5", u"1,5|0"},
        {"a lone minus stays", u"|", u"-", u"-|"},
    });
    Field.MinValue = 0;
    Put(u"|");
    TypeKeys(u"-4");
    EXPECT_EQ(Marked(), u"4|") << "no minus without negative values";
    Field.Decimals = 0;
    Put(u"|");
    TypeKeys(u"1,5");
    EXPECT_EQ(Marked(), u"15|");
    Leave();
    EXPECT_EQ(Field.Text, u"15");
}

TEST_F(FloatEdit, OneKeyIsOneChange) {
    FormatSettings() = SettingsOf(u',');
    Enter();
    const struct {
        String Before, Typed, After;
        int Changes;
    } rows[] = {
        {u"|12,34|", u"5", u"5|,00", 1}, {u"|12,34|", u"0", u"0|,00", 1}, {u"1,|25", u"9", u"1,9|5", 1},
        {u"1,25|", u"9", u"1,25|", 0},   {u"1,25|", u"\b", u"1,2|0", 1},  {u"|", u"7", u"7|", 1},
        {u"|", u"\b", u"|", 0},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(Utf8Encode(row.Before + u" and " + row.Typed));
        Put(row.Before);
        TypeKeys(row.Typed);
        EXPECT_EQ(Marked(), row.After);
        EXPECT_EQ(Changes, row.Changes);
        EXPECT_EQ(Field.Modified, row.Changes > 0);
    }
}

TEST_F(FloatEdit, WhatTheRulesTypeCanBeUndone) {
    FormatSettings() = SettingsOf(u',');
    Enter();
    Put(u"1,|25");
    TypeKeys(u"9");
    EXPECT_EQ(Field.Text, u"1,95");
    PressKey('Z', {ssCtrl});
    EXPECT_EQ(Field.Text, u"1,25");
    Put(u"1,25|");
    Field.MaxLength = 2;
    TypeKeys(u"\b");
    EXPECT_EQ(Field.Text, u"1,20") << "a limit to typing does not cut what is there";
}

TEST_F(FloatEdit, TypesDecimalsUnderAPoint) {
    FormatSettings() = SettingsOf(u'.');
    Try({{"the point leads to the decimals", u"|", u"12.", u"12.|00|"}, {"", u"|", u"0.5", u"0.5|"}});
    EXPECT_EQ(Changes, 3) << "one for each key";
    TZORFloatEdit::SeparatorFollowsLocale = true;
    Try({{"", u"|", u"12.34", u"12.34|"}, {"", u"1.|25", u"38", u"1.38|"}, {"", u"1.25|", u"\b\b\b", u"1|.00"}});
}

TEST_F(FloatEdit, DescendantsMayTakeOtherCharacters) {
    class TCapitalExponents : public TZORFloatEdit {
    public:
        using TZORFloatEdit::TZORFloatEdit;
        bool IsValidChar(char16_t key) const override { return key == u'E' || TZORFloatEdit::IsValidChar(key); }
    };
    TCapitalExponents field(nullptr);
    field.Parent = Form.get();
    field.SetFocus();
    TypeText(u"2E3");
    EXPECT_EQ(field.Value, 2000.0L);
}

TEST_F(FloatEdit, TheKeypadTypesTheSeparatorThatCounts) {
    for (const char16_t separator : {u',', u'.'}) {
        SCOPED_TRACE(separator == u',' ? "comma" : "point");
        FormatSettings() = SettingsOf(separator);
        TZORFloatEdit::SeparatorFollowsLocale = true;
        Enter();
        Put(u"|");
        PressKey('7');
        PressKey(VK_DECIMAL);
        PressKey('5');
        EXPECT_EQ(Field.Text, String(u"7") + separator + u"5");
        EXPECT_EQ(Field.Value, 7.5L);
    }
}

TEST_F(FloatEdit, LeavingWritesTheNumberInFullWithoutAChange) {
    FormatSettings() = SettingsOf(u',');
    Field.MinValue = -10;
    Field.MaxValue = 100;
    const struct {
        const char* Name;
        String Typed;
        String Left;
    } rows[] = {
        {"an open comma", u"7,", u"7,00"},
        {"above the range", u"250", u"100,00"},
        {"a lone minus", u"-", u"0,00"},
        {"nothing", u"", u"0,00"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.Name);
        Enter();
        Put(u"|");
        TypeKeys(row.Typed);
        Changes = 0;
        Leave();
        EXPECT_EQ(Field.Text, row.Left);
        EXPECT_EQ(Changes, 0);
    }
}

TEST_F(FloatEdit, AnUnreadableTextOnLeavingReachesTheApplication) {
    FormatSettings() = SettingsOf(u'.');
    Enter();
    Field.Text = u"1.5";
    FormatSettings() = SettingsOf(u','); // "1.5" reads with either separator, "1,5" does not with the point
    Leave();
    EXPECT_EQ(Field.Text, u"1,50");
    FormatSettings() = SettingsOf(u'.');
    int exits = 0;
    Field.OnExit = [&](TObject*) { ++exits; };
    Enter();
    Leave();
    EXPECT_EQ(TakeErrors().size(), 1u);
    EXPECT_EQ(Field.Text, u"1,50") << "nothing is lost";
    EXPECT_EQ(exits, 0);
    EXPECT_THROW(Field.GetValue(), EConvertError);
    Field.Text = u"2.5";
    Enter();
    Leave();
    EXPECT_EQ(exits, 1) << "the failed exit left nothing behind";
    EXPECT_GT(Changes, 0);
}

TEST_F(FloatEdit, AnUnreadableTextGivesWayToTheLastNumberOfAnyField) {
    FormatSettings() = SettingsOf(u',');
    TZORFloatEdit second(nullptr);
    second.Parent = Form.get();
    second.Text = u"42,00";
    Field.Text = u"7,00";
    second.Text = u"4x2";
    EXPECT_EQ(second.Text, u"7,00");
    Enter();
    Put(u"1,5|");
    TypeText(u"e");
    EXPECT_EQ(Field.Text, u"1,5e") << "an exponent just begun";
    Field.MinValue = -1;
    Put(u"-|");
    TypeText(u"-");
    EXPECT_EQ(Marked(), u"-|") << "what another field held is no help here";
    Leave();
    second.Value = 42;
    Enter();
    Field.SelStart = 0;
    TypeText(u"e");
    EXPECT_EQ(Field.Text, u"42,00") << "nor is the sign that stood here before";
    Put(u"12|,50");
    TypeText(u"e");
    EXPECT_EQ(Marked(), u"12|,50");
    EXPECT_EQ(Changes, 1) << "the repair told the host, what it repaired did not";
}

TEST_F(FloatEdit, PasteReplacesAllCutNothing) {
    FormatSettings() = SettingsOf(u',');
    Field.MaxValue = 5;
    Enter();
    const struct {
        const char* Name;
        String Clipboard;
        String After;
    } rows[] = {
        {"a number", u"12,5", u"12,5"}, {"no number", u"abc", u""},  {"a cell of a sheet", u"3,5\r\n", u"3,5"},
        {"nothing", u"", u""},          {"not finite", u"INF", u""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.Name);
        Put(u"1|,00");
        ASSERT_TRUE(SetClipboardText(nullptr, row.Clipboard));
        PressKey('V', {ssCtrl});
        EXPECT_EQ(Marked(), row.After + u"|") << "typing goes on behind it";
    }
    Put(u"|1,00|");
    PressKey('X', {ssCtrl});
    EXPECT_EQ(Field.Text, u"1,00");
    PressKey(VK_DELETE, {ssShift});
    EXPECT_EQ(Field.Text, u"1,00");
    PressKey('C', {ssCtrl});
    EXPECT_EQ(ClipboardText(nullptr), u"1,00") << "copying is free";
    {
        TClipboard clipboard(nullptr);
        clipboard.Clear();
    }
    PressKey('V', {ssCtrl});
    EXPECT_EQ(Field.Text, u"1,00") << "an empty clipboard changes nothing";
    SetClipboardText(nullptr, u"9");
    Field.ReadOnly = true;
    PressKey('V', {ssCtrl});
    Field.ReadOnly = false;
    Field.EditorEnabled = false;
    PressKey('V', {ssCtrl});
    TypeKeys(u"5\b\x7F");
    Field.ClearSelection();
    EXPECT_EQ(Field.Text, u"1,00");
    Field.Value = 3;
    EXPECT_EQ(Field.Text, u"3,00") << "the program may";
}

TEST_F(FloatEdit, ValuesGoThroughTheTextExactly) {
    FormatSettings() = SettingsOf(u',');
    Field.Decimals = 18;
    Field.Value = 0.123456789012345678L;
    EXPECT_EQ(Field.Text, u"0,123456789012345678");
    Field.Decimals = 0;
    Field.Value = 123456789012345678.0L;
    Enter();
    Leave();
    EXPECT_EQ(Field.Text, u"123456789012345678");
    EXPECT_EQ(Field.Value, 123456789012345678.0L);
    Field.Decimals = 2;
    Field.AsInt = 7;
    EXPECT_EQ(Field.Text, u"7");
    Field.Text = u"-2,99";
    EXPECT_EQ(Field.AsInt, -2);
    Field.VariantValue = Null();
    EXPECT_EQ(Field.Text, u"");
    EXPECT_TRUE(VarIsNull(Field.VariantValue));
    Field.VariantValue = 1.005L;
    EXPECT_EQ(Field.Text, u"1,01") << "ties away from zero";
    EXPECT_EQ(VarType(Field.VariantValue), varDouble);
}

TEST_F(FloatEdit, ProgramsDoNotMoveThePersonsCaret) {
    FormatSettings() = SettingsOf(u',');
    Enter();
    Put(u"12|3,00");
    Field.Value = 456;
    EXPECT_EQ(Marked(), u"45|6,00");
    Field.SelectAll();
    Field.Value = 1234;
    EXPECT_EQ(Marked(), u"|1234,00|");
    Changes = 0;
    Field.Value = 1234;
    EXPECT_EQ(Changes, 0);
}

TEST_F(FloatEdit, EnteringSelectsAllButAClickDoesNot) {
    Field.Value = 5;
    PressKey(VK_TAB);
    ASSERT_TRUE(WaitFor([&] { return Field.Focused(); }));
    EXPECT_EQ(Field.SelLength, 4);
    Other.SetFocus();
    ClickOn(Field, {110, 10});
    ASSERT_TRUE(WaitFor([&] { return Field.Focused(); }));
    EXPECT_EQ(Field.SelLength, 0);
}

TEST_F(FloatEdit, TheFrameFollowsTheState) {
    const auto frame = [&] {
        const TWindowDC dc(Field.Handle, TWindowDC::Whole);
        return GetPixel(dc, 0, 0);
    };
    Field.Value = 1;
    Field.Wymagany = wRequired;
    EXPECT_EQ(frame(), 0xDD9746u);
    Field.Wymagany = wError;
    EXPECT_EQ(frame(), 0x0000FFu);
    Enter();
    Leave();
    EXPECT_EQ(Field.Wymagany, wRequired);
    Field.Wymagany = wError;
    MoveMouse(Field.ClientToScreen({5, 5}));
    ASSERT_TRUE(WaitFor([&] { return MouseTracker().GetControl() == &Field; }));
    MoveMouse(Form->ClientToScreen({5, 5}));
    EXPECT_TRUE(WaitFor([&] { return Field.Wymagany == wRequired; }));
    Field.Height = 3;
    EXPECT_EQ(Field.Height, Field.GetMinHeight()) << "one line is always legible";
    EXPECT_GT(Field.GetMinHeight(), 10);
}

TEST_F(FloatEdit, HandlersMayTakeTheFieldAway) {
    const struct {
        const char* Name;
        std::function<void(TZORFloatEdit*& field)> Hook;
        std::function<void()> Act;
    } rows[] = {
        {"as it changes",
         [](auto*& field) { field->OnChange = [&](TObject*) { delete std::exchange(field, nullptr); }; },
         [] { PressKey(VK_HOME), TypeText(u"5"); }},
        {"as a key comes",
         [](auto*& field) { field->OnKeyPress = [&](TObject*, char16_t&) { delete std::exchange(field, nullptr); }; },
         [] { TypeText(u"5"); }},
        {"as a digit overtypes",
         [](auto*& field) { field->OnChange = [&](TObject*) { delete std::exchange(field, nullptr); }; },
         [] { PressKey(VK_BACK); }},
        {"as it is left", [](auto*& field) { field->OnExit = [&](TObject*) { delete std::exchange(field, nullptr); }; },
         [this] { Other.SetFocus(); }},
    };
    FormatSettings() = SettingsOf(u',');
    for (const auto& row : rows) {
        SCOPED_TRACE(row.Name);
        auto* field = new TZORFloatEdit(nullptr);
        field->Parent = Form.get();
        field->Value = 1.25L;
        field->SetFocus();
        field->SelStart = 4;
        row.Hook(field);
        row.Act();
        EXPECT_TRUE(WaitFor([&] { return field == nullptr; }));
        delete field;
    }
    Field.OnChange = [&](TObject*) { Field.RecreateWnd(); };
    Enter();
    Put(u"|");
    TypeText(u"12,5");
    EXPECT_EQ(Field.Text, u"12,5");
    EXPECT_TRUE(Field.Focused());
}

TEST_F(FloatEdit, FormsKeepTheValueUnderEveryLocaleAndFieldsGoWithoutATrace) {
    RegisterStandardControls();
    RegisterPackage();
    TForm form(nullptr);
    form.Name = u"Form";
    auto* price = new TZORFloatEdit(&form);
    price->Name = u"Price";
    price->Parent = &form;
    auto* empty = new TZORFloatEdit(&form);
    empty->Name = u"Empty";
    empty->Parent = &form;
    auto* zero = new TZORFloatEdit(&form);
    zero->Name = u"Zero";
    zero->Parent = &form;
    zero->Value = 0;
    FormatSettings() = SettingsOf(u',');
    price->MinValue = -1.5;
    price->MaxValue = 5000;
    price->Value = 1234.5;
    const std::string text = WriteTextForm(SaveTextForm(form));
    FormatSettings() = SettingsOf(u'.');
    const auto loaded = CreateFromTextForm(text, nullptr);
    const auto textOf = [&](const char16_t* name) { return As<TZORFloatEdit>(loaded->FindComponent(name))->GetText(); };
    EXPECT_EQ(textOf(u"Price"), u"1234.50");
    EXPECT_EQ(textOf(u"Empty"), u"");
    EXPECT_EQ(textOf(u"Zero"), u"0.00");
}

} // namespace
