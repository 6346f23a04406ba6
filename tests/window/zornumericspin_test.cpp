// The spin edit under real keys and clicks: steps, the range, what is typed, leaving, the place of the arrows.

#include "framework/graphics/handles.h"
#include "framework/system/formloader.h"
#include "framework/windows/clipboard.h"
#include "framework/windows/standardcontrols.h"
#include "numeric/Zorspinedit.h"
#include "package/Zorpackage.h"
#include "tests/support/numericform.h"

namespace {

using namespace framework;
using namespace ZOR;
using namespace testsupport;

class SpinEdit : public NumericForm<TZORSpinEdit> {
protected:
    TFieldUpDown& Arrows() { return *Field.GetUpDown(); }
    void ClickArrow(bool upper) { ClickOn(Arrows(), {Arrows().Width / 2, upper ? 3 : Arrows().Height - 4}); }
};

TEST_F(SpinEdit, ClicksKeysAndTheWheelStep) {
    Field.Increment = 5;
    Field.Value = 7;
    ClickArrow(true);
    EXPECT_EQ(Field.Text, u"12");
    EXPECT_TRUE(Field.Focused()) << "the arrows belong to the field";
    EXPECT_EQ(Arrows().Position, 12);
    PressKey(VK_UP);
    EXPECT_EQ(Field.Value, 17);
    EXPECT_EQ(Arrows().Position, 17) << "as after a click";
    PressKey(VK_DOWN);
    ClickArrow(false);
    EXPECT_EQ(Field.Value, 7);
    EXPECT_EQ(Arrows().Position, 7);
    EXPECT_TRUE(Field.Modified);
    Put(u"1|23");
    PressKey(VK_UP);
    EXPECT_EQ(Marked(), u"1|28") << "the caret stays";
    Field.Perform(WM_MOUSEWHEEL, MAKEWPARAM(0, 2 * WHEEL_DELTA), 0);
    EXPECT_EQ(Field.Value, 138);
    Field.Perform(WM_MOUSEWHEEL, MAKEWPARAM(0, -WHEEL_DELTA / 2), 0);
    EXPECT_EQ(Field.Value, 138);
    Field.Perform(WM_MOUSEWHEEL, MAKEWPARAM(0, -WHEEL_DELTA / 2), 0);
    EXPECT_EQ(Field.Value, 133) << "fine wheels add up";
    Other.SetFocus();
    Field.Perform(WM_MOUSEWHEEL, MAKEWPARAM(0, WHEEL_DELTA), 0);
    EXPECT_EQ(Field.Value, 133) << "a field without focus lets the wheel pass";
    Enter();
    Field.ReadOnly = true;
    PressKey(VK_UP);
    ClickArrow(true);
    EXPECT_EQ(Field.Value, 133);
}

TEST_F(SpinEdit, TheRangeHoldsStepsAndValues) {
    const struct {
        const char* Name;
        int Min, Max, Value, Shown, AfterUp;
    } rows[] = {
        {"open top, low", 10, 0, 5, 10, 11},
        {"open top, high", 10, 0, 5000, 5000, 5001},
        {"both ends", 1, 12, 13, 12, 12},
        {"the wrong way round", 10, 5, 7, 10, 5},
        {"32 bits", 0, 0, INT_MAX, INT_MAX, INT_MAX},
    };
    Enter();
    for (const auto& row : rows) {
        SCOPED_TRACE(row.Name);
        Field.MinValue = row.Min;
        Field.MaxValue = row.Max;
        Field.Value = row.Value;
        EXPECT_EQ(Field.Value, row.Shown);
        PressKey(VK_UP);
        EXPECT_EQ(Field.Value, row.AfterUp);
    }
    Field.MinValue = 10;
    Field.MaxValue = 20;
    Field.Text = u"3";
    ClickArrow(true);
    EXPECT_EQ(Field.Value, 10);
    EXPECT_EQ(Arrows().Position, 10) << "the range stopped the value, and the arrows with it";
    Field.Text = u"50";
    ClickArrow(false);
    EXPECT_EQ(Field.Value, 20);
    EXPECT_EQ(Arrows().Position, 20);
    Field.Increment = 0;
    ClickArrow(true);
    Field.Increment = -3;
    ClickArrow(true);
    EXPECT_EQ(Field.Value, 17);
}

TEST_F(SpinEdit, TakesWholeNumbersOnly) {
    Enter();
    Put(u"|0|");
    TypeKeys(u"-1a,2.5e");
    EXPECT_EQ(Field.Text, u"-125");
    SetClipboardText(nullptr, u"77");
    PressKey('V', {ssCtrl});
    PressKey(VK_INSERT, {ssShift});
    Field.SelectAll();
    PressKey('X', {ssCtrl});
    PressKey(VK_DELETE, {ssShift});
    EXPECT_EQ(Field.Text, u"-125") << "neither paste nor cut";
    PressKey('C', {ssCtrl});
    EXPECT_EQ(ClipboardText(nullptr), u"-125");
    Field.EditorEnabled = false;
    TypeKeys(u"9\b\x7F");
    EXPECT_EQ(Field.Text, u"-125");
    PressKey(VK_UP);
    EXPECT_EQ(Field.Text, u"-124") << "steps stay";
}

TEST_F(SpinEdit, LeavingBringsTheNumberIntoItsRange) {
    Field.MinValue = -10;
    Field.MaxValue = 100;
    const struct {
        String Typed, Left;
    } rows[] = {{u"250", u"100"}, {u"-11", u"-10"}, {u"007", u"007"}, {u"+5", u"+5"}, {u"-0", u"0"}};
    for (const auto& row : rows) {
        SCOPED_TRACE(Utf8Encode(row.Typed));
        Enter();
        Put(u"|0|");
        TypeKeys(row.Typed);
        Leave();
        EXPECT_EQ(Field.Text, row.Left);
    }
    for (const String& bad : {String(u""), String(u"-"), String(u"abc"), String(u"99999999999")}) {
        SCOPED_TRACE(Utf8Encode(bad));
        Enter();
        Field.Text = bad;
        Leave();
        EXPECT_EQ(TakeErrors().size(), 1u);
        EXPECT_EQ(Field.Text, bad) << "nothing is lost";
        Enter();
        PressKey(VK_UP);
        EXPECT_EQ(TakeErrors().size(), 1u);
        ClickArrow(true);
        EXPECT_EQ(TakeErrors().size(), 1u);
        EXPECT_EQ(Field.Text, bad);
        Field.Value = 1;
        Other.SetFocus();
    }
}

TEST_F(SpinEdit, TheArrowsStandInsideTheFrameBesideTheText) {
    for (const bool sunken : {true, false}) {
        SCOPED_TRACE(sunken ? "sunken" : "flat");
        Field.Ctl3D = sunken;
        for (const int height : {21, 40, 5}) {
            Field.Height = height;
            EXPECT_GE(Field.Height, Field.GetMinHeight());
            EXPECT_TRUE(Arrows().BoundsRect == Bounds(Field.Width - 15 - 5, 0, 15, Field.Height - 5));
            EXPECT_LE(Arrows().Left + Arrows().Width, Field.ClientWidth);
        }
    }
    Arrows().Repaint();
    {
        const TWindowDC dc(Field.Handle, TWindowDC::Whole);
        EXPECT_EQ(GetPixel(dc, Arrows().Left + 5, 0), 0x808080u) << "a flat frame goes on above the arrows";
        EXPECT_EQ(GetPixel(dc, Arrows().Left + 5, 1), 0xFFFFFFu) << "and does not touch them";
    }
    const auto textRight = [&] {
        RECT rect{};
        SendMessageW(Field.Handle, EM_GETRECT, 0, reinterpret_cast<LPARAM>(&rect));
        return static_cast<int>(rect.right);
    };
    EXPECT_LE(textRight(), Arrows().Left);
    const int beside = textRight();
    Field.Font->Size = 12;
    EXPECT_EQ(textRight(), beside) << "a new font keeps the room of the arrows";
    Field.BiDiMode = bdRightToLeft;
    EXPECT_EQ(textRight(), beside);
    EXPECT_EQ(Arrows().Left, Field.Width - 15 - 5);
    Field.ShowUpDown = false;
    EXPECT_FALSE(IsWindowVisible(Arrows().Handle));
    EXPECT_EQ(textRight(), beside) << "until the next resize";
    Field.Width = 140;
    EXPECT_GT(textRight(), beside + 20);
    Field.ShowUpDown = true;
    Field.ChangeScale(2, 1);
    EXPECT_EQ(Arrows().Width, 30);
    EXPECT_EQ(Arrows().Left, Field.Width - 30 - 5);
    EXPECT_LE(textRight(), Arrows().Left);
    Field.Enabled = false;
    EXPECT_FALSE(IsWindowEnabled(Arrows().Handle)) << "grey with the field";
}

TEST_F(SpinEdit, TheArrowsStayVisible) {
    const auto ink = [&](const TRect& area) {
        Application->ProcessMessages();
        const TWindowDC dc(Field.Handle);
        int count = 0;
        for (int y = area.Top; y < area.Bottom; ++y) {
            for (int x = area.Left; x < area.Right; ++x)
                count += GetPixel(dc, x, y) != 0xFFFFFF ? 1 : 0;
        }
        return count;
    };
    for (const int height : {21, 22}) {
        Field.Wymagany = wNone;
        Field.Height = height;
        Form->Update();
        const TRect arrows = Arrows().BoundsRect;
        const int drawn = ink(arrows);
        EXPECT_GT(drawn, 50);
        MoveMouse(Field.ClientToScreen({5, 5}));
        MoveMouse(Form->ClientToScreen({5, 5}));
        EXPECT_EQ(ink(arrows), drawn) << "the pointer came and went";
        Field.Value = height;
        Field.Wymagany = wRequired;
        EXPECT_EQ(ink(arrows), drawn) << "a frame as well";
        // Between the buttons the field shows, not what was on the screen before.
        const TWindowDC dc(Field.Handle);
        EXPECT_NE(GetPixel(dc, arrows.Left + 1, (arrows.Top + arrows.Bottom) / 2), 0u);
    }
}

TEST_F(SpinEdit, AnErrorStaysUntilTheProgramEndsIt) {
    const auto frame = [&] {
        const TWindowDC dc(Field.Handle, TWindowDC::Whole);
        return GetPixel(dc, 0, 0);
    };
    Field.Wymagany = wRequired;
    EXPECT_EQ(frame(), 0xDD9746u);
    Field.Wymagany = wError;
    EXPECT_EQ(frame(), 0x0000FFu);
    Enter();
    Leave();
    EXPECT_EQ(Field.Wymagany, wError);
    Field.Enabled = false;
    EXPECT_EQ(Field.Wymagany, wNone);
    Field.Enabled = true;
    EXPECT_EQ(Field.Wymagany, wError);
}

TEST_F(SpinEdit, HandlersMayTakeTheFieldAway) {
    const struct {
        const char* Name;
        std::function<void(TZORSpinEdit& field)> Act;
    } rows[] = {
        {"a click",
         [](TZORSpinEdit& field) {
             ClickOn(*field.GetUpDown(), {7, 3});
         }},
        {"a key", [](TZORSpinEdit&) { PressKey(VK_UP); }},
        {"the wheel", [](TZORSpinEdit& field) { field.Perform(WM_MOUSEWHEEL, MAKEWPARAM(0, 5 * WHEEL_DELTA), 0); }},
        {"typing", [](TZORSpinEdit&) { PressKey('5'); }},
        {"leaving", [this](TZORSpinEdit& field) { field.MinValue = 10, field.MaxValue = 20, Other.SetFocus(); }},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.Name);
        auto* field = new TZORSpinEdit(nullptr);
        field->Parent = Form.get();
        field->SetBounds(10, 150, 100, 21);
        field->SetFocus();
        field->OnChange = [&](TObject*) { delete std::exchange(field, nullptr); };
        row.Act(*field);
        EXPECT_TRUE(WaitFor([&] { return field == nullptr; }));
        delete field;
    }
    Field.OnChange = [&](TObject*) { Field.RecreateWnd(); };
    ClickArrow(true);
    EXPECT_EQ(Field.Value, 1);
    EXPECT_EQ(Arrows().Position, 1);
}

TEST_F(SpinEdit, ComesFromAFormAndGoesWithoutATrace) {
    RegisterStandardControls();
    RegisterPackage();
    const auto form = CreateFromTextForm("object F: TForm\n"
                                         "  object Count: TZORSpinEdit\n"
                                         "    Text = '5'\n"
                                         "    MaxValue = 12\n"
                                         "    MinValue = 2\n"
                                         "    Value = 7\n"
                                         "    ShowUpDown = False\n"
                                         "  end\n"
                                         "end\n",
                                         nullptr);
    auto& count = *As<TZORSpinEdit>(form->FindComponent(u"Count"));
    EXPECT_EQ(count.Value, 7);
    EXPECT_FALSE(count.ShowUpDown);
}

} // namespace
