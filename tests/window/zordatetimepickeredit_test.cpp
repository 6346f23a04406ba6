// The date field as a person meets it: typing, arrows, Delete, leaving, in the formats of several countries, and what
// hosts read and set meanwhile.

#include "framework/graphics/handles.h"
#include "framework/system/formloader.h"
#include "framework/windows/standardcontrols.h"
#include "package/Zorpackage.h"
#include "tests/support/dateform.h"
#include "tests/support/handlecount.h"

using namespace testsupport;

namespace {

TEST_F(DateEdit, StartsWithNoDate) {
    EXPECT_EQ(Edit->Date, 0);
    EXPECT_EQ(Edit->Text, u"");
    EXPECT_EQ(Edit->Width, 129);
    EXPECT_EQ(Edit->DateFormat, dfShort);
    EXPECT_EQ(Edit->DateTimeView, dtvDay);
    EXPECT_FALSE(Edit->ZORDroppedDown);
    Edit->Date = kDay + 0.75;
    EXPECT_EQ(Edit->Text, u"2024-03-15");
    EXPECT_EQ(Edit->Time, 0.75);
    Edit->Time = 1.25;
    EXPECT_EQ(Edit->DateTime, kDay + 0.25);
    EXPECT_EQ(TakeChanges(), 2);
    Edit->Value = kDay + 0.25;
    EXPECT_EQ(TakeChanges(), 0) << "an equal value is no change";
    Edit->Clear();
    EXPECT_EQ(Edit->Date, 0);
    EXPECT_EQ(TakeChanges(), 1);
}

TEST_F(DateEdit, KeepsInBounds) {
    Edit->MinDate = kDay;
    Edit->MaxDate = kDay - 5;
    Edit->Date = kDay;
    EXPECT_EQ(Edit->Date, kDay - 5) << "the upper bound is looked at first";
    Edit->SetFocus();
    Edit->calendar_pop();
    EXPECT_TRUE(Edit->ZORDroppedDown);
    Edit->calendar_pop();
    Edit->MinDate = 0;
    Edit->MaxDate = kDay;
    Edit->SelectAll();
    TypeText(u"2030-01-01");
    Leave();
    EXPECT_EQ(Edit->Date, kDay) << "typed beyond the bound";
    EXPECT_EQ(Edit->Text, u"2024-03-15");
}

TEST_F(DateEdit, TypesDatesAsEachCountryWritesThem) {
    const struct {
        const char* Name;
        const TFormatSettings* Settings;
        bool Masked;
        TDTDateFormat Format;
        const char16_t* Keys;
        const char16_t* Text;
        TDateTime Value;
    } rows[] = {
        {"free, year first", &kYearFirst, false, dfShort, u"2024-02-29", u"2024-02-29", EncodeDate(2024, 2, 29)},
        {"masked, year first", &kYearFirst, true, dfShort, u"20240229", u"2024-02-29", EncodeDate(2024, 2, 29)},
        {"free, Polish", &kPolish, false, dfShort, u"7.3.2024", u"07.03.2024", EncodeDate(2024, 3, 7)},
        {"masked, Polish", &kPolish, true, dfShort, u"15112023", u"15.11.2023", EncodeDate(2023, 11, 15)},
        {"masked, with dashes", &kYearFirst, true, dfShort, u"2024-02-29", u"2024-02-29", EncodeDate(2024, 2, 29)},
        {"free, German", &kGerman, false, dfShort, u"29.02.2024", u"29.02.2024", EncodeDate(2024, 2, 29)},
        {"masked, American", &kAmerican, true, dfShort, u"12312023", u"12/31/2023", EncodeDate(2023, 12, 31)},
        {"with a time", &kYearFirst, false, dfLong, u"2024-05-06 1230", u"2024-05-06 12:30",
         EncodeDateTime(2024, 5, 6, 12, 30, 0, 0)},
        {"masked, with a time", &kPolish, true, dfLong, u"060520242359", u"06.05.2024 23:59",
         EncodeDateTime(2024, 5, 6, 23, 59, 0, 0)},
        {"24 hours in America", &kAmerican, false, dfLong, u"3/15/2024 17:05", u"03/15/2024 17:05",
         EncodeDateTime(2024, 3, 15, 17, 5, 0, 0)},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.Name);
        Start(*row.Settings, row.Format);
        Edit->UseMaskEdit = row.Masked;
        TDateTime seen = 0;
        Edit->OnChange = [&](TObject*) { seen = Edit->Date; };
        TypeText(row.Keys);
        EXPECT_EQ(seen, row.Value) << "hosts read what is typed before the field is left";
        Leave();
        EXPECT_EQ(Edit->Text, row.Text);
        EXPECT_EQ(Edit->Value, row.Value);
        EXPECT_EQ(Edit->Wymagany, wNone);
    }
}

TEST_F(DateEdit, OverwritesAndEmptiesUnderTheMask) {
    Start(kYearFirst);
    Edit->UseMaskEdit = true;
    Edit->MaxLength = 10;
    Edit->Date = kDay;
    TakeChanges();
    Edit->SelStart = 3;
    TypeText(u"5");
    EXPECT_EQ(Edit->Text, u"2025-03-15");
    EXPECT_EQ(Edit->SelStart, 5) << "over the separator";
    TypeText(u"1x2");
    EXPECT_EQ(Edit->Text, u"2025-12-15") << "letters are not taken";
    EXPECT_EQ(TakeChanges(), 3) << "one for each digit";
    PressKey(VK_BACK);
    EXPECT_EQ(Edit->Text, u"2025-12-15") << "back over the separator";
    PressKey(VK_BACK);
    EXPECT_EQ(Edit->Text, u"2025-10-15");
    Edit->SelStart = 8;
    PressKey(VK_DELETE);
    EXPECT_EQ(Edit->Text, u"2025-10-05");
    EXPECT_EQ(Edit->Date, EncodeDate(2025, 10, 5));
    Edit->SelectAll();
    PressKey(VK_DELETE);
    EXPECT_EQ(Edit->Text, u"");
    EXPECT_EQ(Edit->Date, 0) << "emptied is no date";
    Leave();
    EXPECT_EQ(Edit->Wymagany, wNone);
    EXPECT_EQ(Edit->MaxLength, 10);
    Start(kPolish);
    Edit->UseMaskEdit = true;
    Edit->Date = kDay;
    Edit->SelStart = 1;
    TypeText(u".");
    EXPECT_EQ(Edit->Text, u"15.03.2024") << "no key to delete with";
    EXPECT_EQ(Edit->SelStart, 3);
}

TEST_F(DateEdit, StepsTheMarkedPart) {
    Start(kYearFirst, dfLong);
    Edit->Date = EncodeDate(2024, 1, 31);
    Edit->SelStart = 6;
    TakeChanges();
    PressKey(VK_UP);
    EXPECT_EQ(Edit->Text, u"2024-02-29 00:00");
    EXPECT_EQ(Edit->SelStart, 6);
    EXPECT_EQ(TakeChanges(), 1);
    Edit->SelStart = 16;
    PressKey(VK_DOWN);
    EXPECT_EQ(Edit->Text, u"2024-02-28 23:59");
    Start(kPolish);
    PressKey(VK_UP);
    EXPECT_EQ(Edit->Date, 0);
    PressKey(VK_DOWN);
    EXPECT_EQ(Edit->Date, Date()) << "Down without a date starts from today";
}

TEST_F(DateEdit, EntersMonthsAndYears) {
    Start(kYearFirst, dfShort, dtvMonth);
    Edit->Date = kDay;
    EXPECT_EQ(Edit->Date, EncodeDate(2024, 3, 1));
    EXPECT_EQ(Edit->Text, u"Mar 2024");
    TakeChanges();
    TypeText(u"o");
    EXPECT_EQ(Edit->Text, u"Oct 2024");
    TypeText(u"q");
    EXPECT_EQ(Edit->Text, u"Oct 2024");
    EXPECT_EQ(TakeChanges(), 1);
    PressKey(VK_DELETE);
    EXPECT_EQ(Edit->Text, u"");
    EXPECT_EQ(Edit->Date, 0);
    PressKey(VK_UP);
    EXPECT_EQ(Edit->Text, u"Oct 2024") << "brings the date back, and that is all";
    Edit->DateFormat = dfLong;
    EXPECT_EQ(Edit->Text, u"October 2024");
    Edit->DateTimeView = dtvYear;
    EXPECT_EQ(Edit->Text, u"2024");
    EXPECT_EQ(Edit->Date, EncodeDate(2024, 1, 1));
    PressKey(VK_DOWN);
    EXPECT_EQ(Edit->Text, u"2023");
    TypeText(u"7");
    EXPECT_EQ(Edit->Text, u"2023");
    Leave();
    EXPECT_EQ(Edit->Wymagany, wNone);
    Edit->DateTimeView = dtvDay;
    EXPECT_EQ(Edit->Text, u"2023-01-01 00:00") << "the snapped value stays";
}

TEST_F(DateEdit, LooksLikeADateFieldWithFrameAndHint) {
    Edit->HintLabel = u"date of birth";
    Edit->BoundLabel->Caption = u"Born";
    Edit->BoundLabel->Active = true;
    const auto pixel = [&](int x, int y) {
        Form->Update();
        Edit->Update();
        Application->ProcessMessages();
        const TWindowDC dc(Edit->Handle, TWindowDC::Whole);
        return GetPixel(dc, x, y);
    };
    const struct {
        TWymagany State;
        COLORREF Frame;
    } rows[] = {{wRequired, 0xDD9746}, {wError, 0x0000FF}, {wRecommended, 0x46C265}};
    for (const auto& row : rows) {
        Edit->Wymagany = row.State;
        for (const TPoint at : {TPoint{0, 0}, TPoint{Edit->Width - 1, Edit->Height - 1}, TPoint{60, 0}})
            EXPECT_EQ(pixel(at.X, at.Y), row.Frame);
    }
    Edit->SetBounds(100, 40, 150, 21);
    EXPECT_EQ(pixel(149, 5), 0x46C265u);
    Edit->Wymagany = wNone;
    EXPECT_NE(pixel(0, 0), 0x46C265u);

    const auto ink = [&] {
        Edit->Update();
        Application->ProcessMessages();
        const TWindowDC dc(Edit->Handle);
        int count = 0;
        for (int y = 4; y < Edit->Height - 4; ++y) {
            for (int x = 4; x < 100; ++x)
                count += GetPixel(dc, x, y) == ColorToRGB(clWindow) ? 0 : 1;
        }
        return count;
    };
    EXPECT_GT(ink(), 30) << "the hint";
    Edit->SetFocus();
    EXPECT_TRUE(WaitFor([&] { return ink() < 30; })) << "gone, but for the caret";
    Edit->Date = kDay;
    Leave();
    Edit->Clear();
    EXPECT_TRUE(WaitFor([&] { return ink() > 30; }));
    EXPECT_EQ(Edit->BoundLabel->Label->Left + Edit->BoundLabel->Label->Width + 8, Edit->Left);
}

TEST_F(DateEdit, ComesWholeFromATextForm) {
    RegisterStandardControls();
    RegisterPackage();
    const auto loaded = CreateFromTextForm(R"(object Form1: TForm
  object Due: TZORDateTimePickerEdit
    Wymagany = wRequired
    HintLabel = 'due'
    Style = csDropDownList
    Date = 45366.500000000000000000
    MinDate = 45000.000000000000000000
    DateFormat = dfLong
    DateTimeView = dtvMonth
    UseMaskEdit = True
    BoundLabel.Active = True
  end
  object Start: TZORDateTimePicker
    Date = 45366.250000000000000000
    Time = 45366.250000000000000000
    Wymagany = wRecommended
    ZORMode = True
    Checked = False
    ShowCheckbox = True
  end
end
)",
                                           nullptr);
    const auto* due = As<TZORDateTimePickerEdit>(loaded->FindComponent(u"Due"));
    ASSERT_NE(due, nullptr);
    EXPECT_EQ(due->Date, EncodeDate(2024, 3, 1));
    EXPECT_EQ(due->Text, u"March 2024");
    EXPECT_EQ(due->Style, csDropDownList);
    EXPECT_EQ(due->Wymagany, wRequired);
}

TEST_F(DateEdit, SurvivesWhatItsHandlersDo) {
    const struct {
        const char* Name;
        std::function<void(TZORDateTimePickerEdit&)> Input;
    } rows[] = {
        {"typing", [](TZORDateTimePickerEdit&) { TypeText(u"1"); }},
        {"stepping", [](TZORDateTimePickerEdit&) { PressKey(VK_DOWN); }},
        {"clearing", [](TZORDateTimePickerEdit& edit) { edit.Clear(); }},
        {"emptying",
         [](TZORDateTimePickerEdit& edit) {
             edit.SelectAll();
             PressKey(VK_DELETE);
         }},
    };
    for (const bool masked : {false, true}) {
        for (const auto& row : rows) {
            SCOPED_TRACE(std::string(row.Name) + (masked ? ", masked" : ""));
            Start(kYearFirst);
            Edit->UseMaskEdit = masked;
            Edit->Date = kDay;
            Edit->OnChange = [&](TObject*) { delete std::exchange(Edit, nullptr); };
            TZORDateTimePickerEdit& edit = *Edit;
            row.Input(edit);
            EXPECT_TRUE(WaitFor([&] { return Edit == nullptr; }));
        }
    }
    // The form dies while the message is on the screen.
    auto doomed = std::make_unique<TForm>(nullptr);
    auto* edit = new TZORDateTimePickerEdit(doomed.get());
    edit->Parent = doomed.get();
    auto* next = new TEdit(doomed.get());
    next->SetParent(doomed.get());
    ShowAndActivate(*doomed);
    edit->SetFocus();
    TypeText(u"9");
    TTimer timer(nullptr);
    timer.Interval = 50;
    timer.OnTimer = [&](TObject*) {
        const HWND box = FindWindowExW(nullptr, nullptr, L"#32770", nullptr);
        if (!box || !doomed)
            return;
        doomed.reset();
        timer.Enabled = false;
    };
    PressKey(VK_TAB);
    EXPECT_TRUE(WaitFor([&] { return doomed == nullptr; }));
}

TEST_F(DateEdit, LeavesNothingBehind) {
    const int lost = FontsLostByNativeCalendar();
    ExpectSteadyHandles(
        1000,
        [&] {
            TZORDateTimePickerEdit edit(nullptr);
            edit.Parent = Form.get();
            edit.HintLabel = u"hint";
            edit.Wymagany = wError;
            edit.BoundLabel->Active = true;
            Form->Update();
            edit.SetFocus();
            edit.calendar_pop();
            EXPECT_TRUE(edit.ZORDroppedDown);
            edit.GetCalendarPopup()->Update();
        },
        lost);
}

} // namespace
