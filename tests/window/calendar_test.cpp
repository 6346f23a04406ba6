// The native calendar and date-time picker: values with and without a window, what the person picks and types.

#include "framework/system/formloader.h"
#include "framework/system/formsaver.h"
#include "framework/windows/application.h"
#include "framework/windows/datetimepicker.h"
#include "framework/windows/monthcalendar.h"
#include "framework/windows/systemtime.h"
#include "tests/support/handlecount.h"
#include "tests/support/input.h"

#include <commctrl.h>
#include <gtest/gtest.h>

using namespace framework;
using namespace testsupport;

namespace {

const TDateTime kDay = EncodeDate(2024, 3, 15);

/// Where the native calendar shows a day of its month, looked for by hit tests.
TPoint PlaceOfDay(HWND calendar, WORD day) {
    RECT client{};
    GetClientRect(calendar, &client);
    for (int y = client.bottom - 1; y > 0; y -= 4) {
        for (int x = 0; x < client.right; x += 4) {
            MCHITTESTINFO hit{};
            hit.cbSize = sizeof(hit);
            hit.pt = {x, y};
            SendMessageW(calendar, MCM_HITTEST, 0, reinterpret_cast<LPARAM>(&hit));
            if (hit.uHit == MCHT_CALENDARDATE && hit.st.wDay == day)
                return {x + 3, y - 3};
        }
    }
    ADD_FAILURE() << "no day " << day;
    return {};
}

TDateTime ShownDay(const TMonthCalendar& calendar) {
    SYSTEMTIME day{};
    EXPECT_TRUE(SendMessageW(calendar.GetHandle(), MCM_GETCURSEL, 0, reinterpret_cast<LPARAM>(&day)));
    return DateOf(FromSystemTime(day));
}

class CalendarTest : public testing::Test {
protected:
    CalendarTest() {
        Calendar.OnClick = [this](TObject*) { ++Clicks; };
        Calendar.OnSelChange = [this](TObject*) { ++Changes; };
    }
    void GiveWindow() {
        Calendar.SetParent(Form.get());
        Calendar.SetFocus();
        Application->ProcessMessages();
    }
    void ClickDay(WORD day) { ClickOn(Calendar, PlaceOfDay(Calendar.GetHandle(), day)); }

    std::unique_ptr<TForm> Form = ShowForm();
    TMonthCalendar Calendar{nullptr};
    int Clicks = 0;
    int Changes = 0;
};

TEST_F(CalendarTest, KeepsItsDateInBounds) {
    EXPECT_EQ(Calendar.GetDate(), Date());
    for (const bool withWindow : {false, true}) {
        SCOPED_TRACE(withWindow);
        if (withWindow)
            GiveWindow();
        Calendar.SetDate(kDay + 0.75);
        EXPECT_EQ(Calendar.GetDate(), kDay) << "days have no time";
        Calendar.SetMaxDate(kDay - 10);
        EXPECT_EQ(Calendar.GetDate(), kDay - 10);
        Calendar.SetMinDate(kDay - 20);
        Calendar.SetDate(kDay - 100);
        EXPECT_EQ(Calendar.GetDate(), kDay - 20);
        if (withWindow)
            EXPECT_EQ(ShownDay(Calendar), kDay - 20);
        Calendar.SetMinDate(0);
        Calendar.SetMaxDate(0);
        Calendar.SetDate(EncodeDate(1600, 2, 1));
        EXPECT_EQ(Calendar.GetDate(), EncodeDate(1600, 2, 1)) << "although the native one begins later";
        Calendar.SetDate(kDay);
    }
    EXPECT_EQ(ShownDay(Calendar), kDay);
    EXPECT_EQ(Clicks + Changes, 0) << "the program's own doing is not announced";
}

TEST_F(CalendarTest, TellsWhatThePersonPicks) {
    Calendar.SetDate(kDay);
    GiveWindow();
    int doubles = 0;
    Calendar.OnDblClick = [&](TObject*) { ++doubles; };
    ClickDay(20);
    EXPECT_EQ(Calendar.GetDate(), EncodeDate(2024, 3, 20));
    EXPECT_EQ(Clicks, 1);
    ClickDay(20);
    Application->ProcessMessages();
    EXPECT_EQ(doubles, 1);
    EXPECT_EQ(Changes, 1);
    Calendar.SetMaxDate(EncodeDate(2024, 3, 25));
    ClickDay(27);
    EXPECT_EQ(Calendar.GetDate(), EncodeDate(2024, 3, 20)) << "beyond the bound nothing is picked";
}

TEST_F(CalendarTest, MarksSeveralDays) {
    Calendar.SetMultiSelect(true);
    Calendar.SetMaxSelectRange(5);
    Calendar.SetDate(kDay);
    Calendar.SetEndDate(kDay + 9);
    EXPECT_EQ(Calendar.GetEndDate(), kDay + 4);
    GiveWindow();
    PressMouse(Calendar.ClientToScreen(PlaceOfDay(Calendar.GetHandle(), 5)));
    MoveMouse(Calendar.ClientToScreen(PlaceOfDay(Calendar.GetHandle(), 7)));
    ReleaseMouse();
    EXPECT_EQ(Calendar.GetDate(), EncodeDate(2024, 3, 5));
    EXPECT_EQ(Calendar.GetEndDate(), EncodeDate(2024, 3, 7));
    EXPECT_EQ(Clicks, 1);
    Calendar.SetWeekNumbers(true);
    EXPECT_EQ(Calendar.GetEndDate(), EncodeDate(2024, 3, 7)) << "kept in the next window";
    SYSTEMTIME range[2]{};
    EXPECT_TRUE(SendMessageW(Calendar.GetHandle(), MCM_GETSELRANGE, 0, reinterpret_cast<LPARAM>(range)));
    EXPECT_EQ(range[1].wDay, 7);
    EXPECT_TRUE(Calendar.Focused());
}

TEST_F(CalendarTest, SizesItselfAndTellsOfViews) {
    GiveWindow();
    Calendar.SetAutoSize(true);
    const TSize size = Calendar.GetRequiredSize();
    EXPECT_GT(size.Width, 100);
    EXPECT_EQ(Calendar.GetWidth(), size.Width);
    EXPECT_EQ(Calendar.GetHeight(), size.Height);
    Calendar.GetFont()->SetHeight(2 * Calendar.GetFont()->GetHeight());
    EXPECT_GT(Calendar.GetWidth(), size.Width);
    int views = 0;
    Calendar.OnViewChange = [&](TObject*) { ++views; };
    NMVIEWCHANGE change{};
    change.nmhdr = {Calendar.GetHandle(), 0, MCN_VIEWCHANGE};
    SendMessageW(Form->GetHandle(), WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&change));
    EXPECT_EQ(views, 1);
    EXPECT_EQ(Calendar.GetCurrentView(), cvMonth);
    Calendar.OnClick = [&](TObject*) { Calendar.RecreateWnd(); };
    ClickDay(12);
    EXPECT_EQ(DayOf(Calendar.GetDate()), 12);
}

TEST_F(CalendarTest, RangesSurviveTheirForm) {
    const struct {
        const char* Name;
        TDateTime First, Last;
        int Limit;
    } rows[] = {{"longer than usual", kDay, kDay + 50, 60},
                {"to the day when it was made", Date() - 3, Date(), 31},
                {"from the day when it was made", Date(), Date() + 5, 31}};
    RegisterClasses({&TMonthCalendar::StaticClass()});
    for (const auto& row : rows) {
        SCOPED_TRACE(row.Name);
        TMonthCalendar calendar(nullptr);
        calendar.SetMultiSelect(true);
        calendar.SetMaxSelectRange(row.Limit);
        calendar.SetDate(row.First);
        calendar.SetEndDate(row.Last);
        const std::string text = WriteTextForm(SaveTextForm(calendar));
        EXPECT_NE(text.find("\n  Date = "), std::string::npos) << "another day's calendar begins elsewhere: " << text;
        const auto loaded = CreateFromTextForm(text, nullptr);
        const auto& copy = static_cast<const TMonthCalendar&>(*loaded);
        EXPECT_EQ(copy.GetDate(), row.First);
        EXPECT_EQ(copy.GetEndDate(), row.Last);
    }
}

class PickerTest : public testing::Test {
protected:
    PickerTest() {
        Picker.OnChange = [this](TObject*) { ++Changes; };
    }
    void GiveWindow() {
        Picker.SetParent(Form.get());
        Picker.SetBounds(10, 10, 180, 24);
        Picker.SetFocus();
        Application->ProcessMessages();
    }
    int TakeChanges() { return std::exchange(Changes, 0); }
    TDateTime Shown() {
        SYSTEMTIME value{};
        const LRESULT state = SendMessageW(Picker.GetHandle(), DTM_GETSYSTEMTIME, 0, reinterpret_cast<LPARAM>(&value));
        return state == GDT_VALID ? FromSystemTime(value) : 0;
    }

    std::unique_ptr<TForm> Form = ShowForm();
    TDateTimePicker Picker{nullptr};
    int Changes = 0;
};

TEST_F(PickerTest, HoldsDateAndTimeApart) {
    for (const bool withWindow : {false, true}) {
        SCOPED_TRACE(withWindow);
        if (withWindow)
            GiveWindow();
        Picker.SetDateTime(kDay + 0.25);
        Picker.SetDate(kDay + 3.9);
        EXPECT_EQ(Picker.GetDateTime(), kDay + 3.25);
        Picker.SetTime(7.5);
        EXPECT_EQ(Picker.GetDateTime(), kDay + 3.5);
        Picker.SetMaxDate(kDay);
        EXPECT_EQ(Picker.GetDateTime(), kDay + 0.5);
        Picker.SetMinDate(kDay - 1);
        Picker.SetDate(kDay - 5);
        EXPECT_EQ(Picker.GetDate(), kDay - 1);
        Picker.SetMaxDate(0);
        Picker.SetMinDate(0);
        Picker.SetDate(-30);
        EXPECT_EQ(Picker.GetDateTime(), -30.5); // noon of that day
        Picker.SetTime(0.25);
        EXPECT_EQ(Picker.GetDateTime(), -30.25);
        Picker.SetDate(kDay - 1);
        Picker.SetTime(0.5);
    }
    EXPECT_EQ(Shown(), kDay - 0.5);
    EXPECT_EQ(Changes, 0);
    Picker.RecreateWnd();
    EXPECT_EQ(Shown(), kDay - 0.5);
}

TEST_F(PickerTest, TellsWhatThePersonTypes) {
    Picker.SetDateTime(kDay + 0.5);
    Picker.SetFormat(u"yyyy'-'MM'-'dd");
    GiveWindow();
    PressKey(VK_RIGHT); // some systems mark no part at first
    const TDateTime before = Picker.GetDateTime();
    PressKey(VK_UP);
    EXPECT_EQ(TakeChanges(), 1);
    EXPECT_NE(Picker.GetDateTime(), before);
    EXPECT_EQ(TimeOf(Picker.GetDateTime()), 0.5);
    EXPECT_EQ(Picker.GetDateTime(), Shown());
    Picker.SetKind(dtkTime);
    EXPECT_EQ(Shown(), Picker.GetDateTime());
}

TEST_F(PickerTest, AsksWhetherThereIsAValue) {
    Picker.SetShowCheckbox(true);
    Picker.SetDateTime(kDay);
    Picker.SetChecked(false);
    GiveWindow();
    EXPECT_EQ(Shown(), 0);
    EXPECT_EQ(Picker.GetDateTime(), kDay) << "the date waits";
    ClickOn(Picker, {9, 12});
    EXPECT_TRUE(WaitFor([&] { return Picker.GetChecked(); }));
    EXPECT_EQ(TakeChanges(), 1);
    EXPECT_EQ(Shown(), kDay);
    Picker.SetChecked(false);
    EXPECT_EQ(TakeChanges(), 0);
    Picker.RecreateWnd();
    EXPECT_EQ(Shown(), 0);
}

TEST_F(PickerTest, OpensItsCalendar) {
    Picker.SetDateTime(kDay + 0.5);
    String told;
    Picker.OnDropDown = [&](TObject*) { told += u"drop "; };
    Picker.OnCloseUp = [&](TObject*) { told += u"close "; };
    GiveWindow();
    ClickOn(Picker, {Picker.GetWidth() - 8, 12});
    ASSERT_TRUE(WaitFor([&] { return Picker.GetDroppedDown(); }));
    const auto calendar = reinterpret_cast<HWND>(SendMessageW(Picker.GetHandle(), DTM_GETMONTHCAL, 0, 0));
    ASSERT_NE(calendar, nullptr);
    const TPoint day = PlaceOfDay(calendar, 22);
    POINT place{day.X, day.Y};
    ClientToScreen(calendar, &place);
    PressMouse({place.x, place.y});
    ReleaseMouse();
    EXPECT_TRUE(WaitFor([&] { return !Picker.GetDroppedDown(); }));
    EXPECT_EQ(told, u"drop close ");
    EXPECT_EQ(Picker.GetDateTime(), EncodeDate(2024, 3, 22) + 0.5) << "the time of day stays";
    EXPECT_EQ(Picker.GetDateTime(), Shown());
    EXPECT_EQ(Changes, 1);
    Picker.OnDropDown = [&](TObject*) { Picker.SetDateMode(dmUpDown); };
    ClickOn(Picker, {Picker.GetWidth() - 8, 12});
    EXPECT_TRUE(WaitFor([&] { return Picker.GetDateMode() == dmUpDown; }));
}

TEST_F(PickerTest, GoesAwayWhileItTells) {
    auto picker = std::make_unique<TDateTimePicker>(nullptr);
    picker->SetParent(Form.get());
    picker->SetFocus();
    picker->OnChange = [&](TObject*) { picker.reset(); };
    PressKey(VK_RIGHT);
    PressKey(VK_UP);
    EXPECT_EQ(picker, nullptr);
    ExpectSteadyHandles(100, [this] {
        TDateTimePicker other(nullptr);
        other.SetParent(Form.get());
        other.Update();
    });
}

} // namespace
