// The calendar that drops down from the date field: how it opens and closes, where, what is picked, and what becomes of
// it when its field, the form or the value changes meanwhile.

#include "datetime/Zordatetimepickeredit.h"
#include "framework/system/strings.h"
#include "framework/windows/application.h"
#include "framework/windows/button.h"
#include "framework/windows/edit.h"
#include "tests/support/input.h"

#include <commctrl.h>
#include <gtest/gtest.h>

using namespace framework;
using namespace ZOR;
using namespace testsupport;

namespace {

const TDateTime kDay = EncodeDate(2024, 3, 15);

/// Where a calendar shows a day of its month, in screen pixels; looked for by hit tests from the bottom, so that days
/// of the month before, which stand at the top, are not found.
TPoint PlaceOfDay(const TMonthCalendar& calendar, WORD day) {
    const TRect client = calendar.GetClientRect();
    for (int y = client.Bottom - 1; y > 0; y -= 4) {
        for (int x = 0; x < client.Right; x += 4) {
            MCHITTESTINFO hit{};
            hit.cbSize = sizeof(hit);
            hit.pt = {x, y};
            SendMessageW(calendar.GetHandle(), MCM_HITTEST, 0, reinterpret_cast<LPARAM>(&hit));
            if (hit.uHit == MCHT_CALENDARDATE && hit.st.wDay == day)
                return calendar.ClientToScreen({x + 3, y - 3});
        }
    }
    ADD_FAILURE() << "no day " << day;
    return {};
}

/// Press and release together: a press on a caption does not return before the release.
void ClickAtOnce(TPoint point) {
    MoveMouse(point);
    INPUT inputs[2]{};
    inputs[0].type = inputs[1].type = INPUT_MOUSE;
    inputs[0].mi.dwFlags = MOUSEEVENTF_LEFTDOWN;
    inputs[1].mi.dwFlags = MOUSEEVENTF_LEFTUP;
    SendInput(2, inputs, sizeof(INPUT));
}

class DatePopup : public testing::Test {
protected:
    void SetUp() override {
        Edit = std::make_unique<TZORDateTimePickerEdit>(nullptr);
        Edit->Parent = Form.get();
        Edit->SetBounds(100, 40, 129, 21);
        Edit->OnChange = [this](TObject*) { Told += u"change "; };
        Edit->OnSelect = [this](TObject*) { Told += u"select "; };
        Edit->OnDropDown = [this](TObject*) { Told += u"drop "; };
        Edit->OnCloseUp = [this](TObject*) { Told += u"close "; };
        Other.SetParent(Form.get());
        Other.SetBounds(20, 200, 100, 21);
        Edit->SetFocus();
        Application->ProcessMessages();
    }
    TPoint Button() const { return {Edit->Width - 9, Edit->Height / 2}; }
    bool IsOpen() const { return Edit->ZORDroppedDown; }
    TMonthCalendar& Calendar() const { return *Edit->GetCalendarPopup()->GetCalendar(); }
    void Open() {
        Edit->calendar_pop();
        ASSERT_TRUE(IsOpen());
        Application->ProcessMessages();
        Told.clear();
    }
    String Taken() { return std::exchange(Told, {}); }
    TDateTime Shown() const {
        SYSTEMTIME day{};
        SendMessageW(Calendar().GetHandle(), MCM_GETCURSEL, 0, reinterpret_cast<LPARAM>(&day));
        TDateTime value = 0;
        TryEncodeDate(day.wYear, day.wMonth, day.wDay, value);
        return value;
    }

    std::unique_ptr<TForm> Form = ShowForm();
    TEdit Other{nullptr};
    std::unique_ptr<TZORDateTimePickerEdit> Edit;
    String Told;
};

TEST_F(DatePopup, OpensAndClosesByMouseAndKeyboard) {
    EXPECT_EQ(Edit->GetCalendarPopup(), nullptr) << "made when it is first needed";
    ClickOn(*Edit, Button());
    ASSERT_TRUE(WaitFor([&] { return IsOpen(); }));
    Tzor_cal_popup_form& popup = *Edit->GetCalendarPopup();
    const HWND window = popup.GetHandle();
    EXPECT_TRUE(IsWindowVisible(window));
    EXPECT_TRUE(Edit->Focused());
    EXPECT_EQ(GetForegroundWindow(), Form->GetHandle());
    EXPECT_TRUE(Form->Active());
    ClickOn(*Edit, Button());
    EXPECT_TRUE(WaitFor([&] { return !IsOpen(); })) << "the button closes as well";
    for (const bool byF4 : {true, false}) {
        byF4 ? PressKey(VK_F4) : PressKey(VK_DOWN, {ssAlt});
        ASSERT_TRUE(IsOpen());
        byF4 ? PressKey(VK_F4) : PressKey(VK_UP, {ssAlt});
        ASSERT_FALSE(IsOpen());
    }
    Edit->DroppedDown = true;
    EXPECT_TRUE(IsOpen()) << "whoever asks for the list";
    PressKey(VK_RETURN);
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(Taken(), u"drop close drop close drop close drop close ");
    EXPECT_EQ(popup.GetHandle(), window) << "one popup for the field";
    EXPECT_EQ(Edit->Date, 0) << "opened and closed, it leaves no date";
    Other.SetFocus();
    ClickOn(*Edit, Button());
    EXPECT_TRUE(WaitFor([&] { return IsOpen() && Edit->Focused(); })) << "the field takes the focus";
    Edit->Enabled = false;
    EXPECT_FALSE(IsOpen());
    Edit->calendar_pop();
    EXPECT_FALSE(IsOpen());
}

TEST_F(DatePopup, EscClosesItAlone) {
    TButton cancel(nullptr);
    cancel.SetParent(Form.get());
    cancel.SetCancel(true);
    int clicks = 0;
    cancel.OnClick = [&](TObject*) { ++clicks; };
    Open();
    PressKey(VK_ESCAPE);
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(clicks, 0);
    EXPECT_EQ(Edit->Date, 0);
    PressKey(VK_ESCAPE);
    EXPECT_EQ(clicks, 1) << "the next one is the form's";
}

TEST_F(DatePopup, PicksADay) {
    Edit->DateTime = kDay + 0.5;
    ClickOn(*Edit, Button());
    ASSERT_TRUE(WaitFor([&] { return IsOpen(); }));
    EXPECT_EQ(Shown(), kDay);
    Taken();
    PressMouse(PlaceOfDay(Calendar(), 20));
    EXPECT_TRUE(Edit->Focused()) << "no click takes the focus from the field";
    ReleaseMouse();
    EXPECT_TRUE(WaitFor([&] { return !IsOpen(); }));
    EXPECT_EQ(Edit->Date, EncodeDate(2024, 3, 20));
    EXPECT_EQ(Taken(), u"close change select ");
    EXPECT_EQ(GetForegroundWindow(), Form->GetHandle());
    // Beyond the bounds there is nothing to pick; the same day once more is a choice as well.
    Edit->MinDate = EncodeDate(2024, 3, 18);
    Edit->MaxDate = EncodeDate(2024, 3, 22);
    Open();
    PressMouse(PlaceOfDay(Calendar(), 25));
    ReleaseMouse();
    EXPECT_EQ(Edit->Date, EncodeDate(2024, 3, 20));
    PressMouse(PlaceOfDay(Calendar(), 20));
    ReleaseMouse();
    EXPECT_TRUE(WaitFor([&] { return !IsOpen(); }));
    EXPECT_EQ(Taken(), u"close change select ");
}

TEST_F(DatePopup, AClickElsewhereClosesItAndCounts) {
    TButton button(nullptr);
    button.SetParent(Form.get());
    button.SetBounds(300, 150, 80, 25);
    int clicks = 0;
    button.OnClick = [&](TObject*) { ++clicks; };
    Open();
    ClickOn(button);
    EXPECT_FALSE(IsOpen());
    EXPECT_TRUE(WaitFor([&] { return clicks == 1; }));
    Edit->SetFocus();
    Open();
    PressMouse(Form->ClientToScreen({350, 250})); // the bare form
    EXPECT_FALSE(IsOpen());
    ReleaseMouse();
    Open();
    ClickAtOnce(Form->ClientToScreen({300, -10})); // its caption
    EXPECT_TRUE(WaitFor([&] { return !IsOpen(); }));
    Edit->SetFocus();
    Edit->Date = kDay;
    Open();
    ClickOn(*Edit, {30, 10});
    EXPECT_FALSE(IsOpen()) << "the text of the field";
    EXPECT_TRUE(Edit->Focused());
    // In the calendar itself, beside the days, nothing closes.
    Open();
    PressMouse(Calendar().ClientToScreen({Calendar().Width - 14, 14}));
    ReleaseMouse();
    EXPECT_TRUE(IsOpen());
    EXPECT_TRUE(Edit->Focused());
    EXPECT_EQ(Edit->Date, kDay);
}

TEST_F(DatePopup, ClosesWhenItsFieldIsLeftMovedOrGone) {
    TForm another(nullptr);
    const struct {
        const char* Name;
        std::function<void()> Away;
        std::function<void()> Back;
    } rows[] = {
        {"left by Tab", [] { PressKey(VK_TAB); }, [&] { Edit->SetFocus(); }},
        {"another form", [&] { ShowAndActivate(another); }, [&] { ShowAndActivate(*Form); }},
        {"form moved", [&] { Form->Left = Form->Left + 20; }, [] {}},
        {"field moved", [&] { Edit->Top = Edit->Top + 5; }, [] {}},
        {"form minimised", [&] { Form->WindowState = wsMinimized; },
         [&] {
             Form->WindowState = wsNormal;
             ShowAndActivate(*Form);
         }},
        {"form hidden", [&] { Form->Hide(); }, [&] { ShowAndActivate(*Form); }},
        {"field hidden", [&] { Edit->Visible = false; }, [&] { Edit->Visible = true; }},
        {"field disabled", [&] { Edit->Enabled = false; }, [&] { Edit->Enabled = true; }},
        {"field made anew", [&] { Edit->Ctl3D = !Edit->Ctl3D; }, [] {}},
        {"form made anew", [&] { Form->BorderStyle = bsDialog; }, [&] { ShowAndActivate(*Form); }},
        {"field taken away", [&] { Edit->Parent = nullptr; }, [&] { Edit->Parent = Form.get(); }},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.Name);
        Edit->SetFocus();
        Application->ProcessMessages();
        Open();
        row.Away();
        EXPECT_TRUE(WaitFor([&] { return !IsOpen(); }));
        EXPECT_FALSE(Edit->GetCalendarPopup()->HandleAllocated() &&
                     IsWindowVisible(Edit->GetCalendarPopup()->GetHandle()));
        row.Back();
        Application->ProcessMessages();
    }
    Edit->SetFocus();
    Open();
    Edit.reset();
    Application->ProcessMessages();
    // The form goes with everything on it while the calendar is open.
    auto doomed = std::make_unique<TForm>(nullptr);
    auto* edit = new TZORDateTimePickerEdit(doomed.get());
    edit->Parent = doomed.get();
    ShowAndActivate(*doomed);
    edit->SetFocus();
    edit->calendar_pop();
    ASSERT_TRUE(edit->ZORDroppedDown);
    const HWND window = edit->GetCalendarPopup()->GetHandle();
    doomed.reset();
    EXPECT_FALSE(IsWindow(window));
    SetForegroundWindow(Form->GetHandle());
}

TEST_F(DatePopup, FollowsTheValueWhileOpen) {
    Open();
    EXPECT_EQ(Shown(), Date()) << "without a date it shows today";
    Edit->Date = kDay;
    EXPECT_TRUE(IsOpen());
    EXPECT_EQ(Shown(), kDay);
    Edit->SelStart = Pos(u"15", Edit->Text);
    PressKey(VK_UP);
    EXPECT_EQ(Shown(), kDay + 1) << "stepped by the arrows";
    Edit->Clear();
    EXPECT_EQ(Shown(), Date());
    PressKey(VK_ESCAPE);
    EXPECT_EQ(Edit->Date, 0);
}

TEST_F(DatePopup, OpensInsideTheScreen) {
    const TRect area = TheScreen().GetWorkArea(Form->BoundsRect);
    const auto field = [&] {
        RECT place{};
        GetWindowRect(Edit->GetHandle(), &place);
        return FromWin(place);
    };
    Open();
    const TRect below = Edit->GetCalendarPopup()->BoundsRect;
    EXPECT_EQ(below.Top, field().Bottom);
    EXPECT_EQ(below.Right, field().Right);
    EXPECT_GE(below.Width(), Calendar().GetRequiredSize().Width);
    EXPECT_GE(below.Height(), 158);
    Edit->calendar_pop();

    Form->SetBounds(area.Left - 90, area.Bottom - 110, 400, 110);
    Open();
    const TRect above = Edit->GetCalendarPopup()->BoundsRect;
    EXPECT_EQ(above.Bottom, field().Top) << "above, where there is no room below";
    EXPECT_EQ(above.Left, area.Left) << "and not beyond the left edge";
    Edit->calendar_pop();

    Form->SetBounds(100, 100, 400, 300);
    Edit->BiDiMode = bdRightToLeft;
    Open();
    EXPECT_EQ(Edit->GetCalendarPopup()->Left, field().Left);
    EXPECT_EQ(Calendar().BiDiMode, bdRightToLeft);
    Edit->calendar_pop();
    // On a finer monitor the letters are larger, and so is the calendar.
    Edit->BiDiMode = bdLeftToRight;
    Form->ScaleControls(2, 1);
    Edit->Font->Height = 2 * Edit->Font->Height;
    Edit->SetFocus();
    Open();
    EXPECT_GT(Edit->GetCalendarPopup()->Width, below.Width());
    EXPECT_EQ(Edit->GetCalendarPopup()->Top, field().Bottom);
}

/// Stands between the calendar and its window: answers for the views that a system may lack.
class TViews {
public:
    explicit TViews(HWND calendar) : FCalendar(calendar) {
        current = this;
        FNative =
            reinterpret_cast<WNDPROC>(SetWindowLongPtrW(calendar, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(Procedure)));
    }
    ~TViews() { SetWindowLongPtrW(FCalendar, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(FNative)); }

    /// The person goes down to a finer view, whose date is now the calendar's.
    void GoTo(LRESULT view, TDateTime date) {
        View = view;
        const TCalendarDate parts = DecodeDate(date);
        SYSTEMTIME day{};
        day.wYear = static_cast<WORD>(parts.Year);
        day.wMonth = static_cast<WORD>(parts.Month);
        day.wDay = static_cast<WORD>(parts.Day);
        SendMessageW(FCalendar, MCM_SETCURSEL, 0, reinterpret_cast<LPARAM>(&day));
        NMVIEWCHANGE change{};
        change.nmhdr = {FCalendar, 0, MCN_VIEWCHANGE};
        SendMessageW(GetParent(FCalendar), WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&change));
    }
    LRESULT View = MCMV_MONTH;
    int Switched = 0;

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        if (message == MCM_SETCURRENTVIEW) {
            current->View = lParam;
            ++current->Switched;
            return TRUE;
        }
        if (message == MCM_GETCURRENTVIEW)
            return current->View;
        return CallWindowProcW(current->FNative, window, message, wParam, lParam);
    }
    static inline TViews* current = nullptr;
    HWND FCalendar;
    WNDPROC FNative;
};

TEST_F(DatePopup, PicksMonthsAndYearsInTheirViews) {
    Edit->Date = kDay;
    Open();
    Edit->calendar_pop();
    TViews views(Calendar().GetHandle());
    Edit->DateTimeView = dtvMonth;
    Open();
    EXPECT_EQ(views.View, MCMV_YEAR) << "the months of a year";
    views.GoTo(MCMV_DECADE, kDay);
    EXPECT_TRUE(IsOpen()) << "a coarser view picks nothing";
    views.GoTo(MCMV_YEAR, kDay);
    EXPECT_TRUE(IsOpen());
    Taken();
    views.GoTo(MCMV_MONTH, EncodeDate(2024, 7, 19));
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(Edit->Date, EncodeDate(2024, 7, 1));
    EXPECT_EQ(Taken(), u"close change select ");
    Edit->DateTimeView = dtvYear;
    Open();
    EXPECT_EQ(views.View, MCMV_DECADE);
    views.GoTo(MCMV_YEAR, EncodeDate(2026, 7, 1));
    EXPECT_EQ(Edit->Date, EncodeDate(2026, 1, 1));
    Edit->DateTimeView = dtvDay;
    const int switched = views.Switched;
    views.View = MCMV_MONTH;
    Open();
    EXPECT_EQ(views.Switched, switched);
    Edit->calendar_pop();
}

TEST_F(DatePopup, TheFieldMayDieInEachOfItsEvents) {
    const auto pick = [&] {
        PressMouse(PlaceOfDay(Calendar(), 20));
        ReleaseMouse();
    };
    const struct {
        const char* Name;
        TNotifyEvent TZORDateTimePickerEdit::*Event;
        bool WhileOpen;
        std::function<void()> Input;
    } rows[] = {
        {"opening", &TZORDateTimePickerEdit::OnDropDown, false, [] { PressKey(VK_F4); }},
        {"picking", &TZORDateTimePickerEdit::OnChange, true, pick},
        {"selecting", &TZORDateTimePickerEdit::OnSelect, true, pick},
        {"closing by a pick", &TZORDateTimePickerEdit::OnCloseUp, true, pick},
        {"closing by Esc", &TZORDateTimePickerEdit::OnCloseUp, true, [] { PressKey(VK_ESCAPE); }},
        {"closing by a click elsewhere", &TZORDateTimePickerEdit::OnCloseUp, true,
         [&] {
             PressMouse(Form->ClientToScreen({350, 250}));
             ReleaseMouse();
         }},
        {"closing by Tab", &TZORDateTimePickerEdit::OnCloseUp, true, [] { PressKey(VK_TAB); }},
        {"closing as the form moves", &TZORDateTimePickerEdit::OnCloseUp, true,
         [&] { Form->SetBounds(Form->Left, Form->Top + 3, Form->Width, Form->Height); }},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.Name);
        Edit.reset();
        SetUp();
        if (row.WhileOpen)
            Open();
        (*Edit).*row.Event = [&](TObject*) { Edit.reset(); };
        row.Input();
        EXPECT_TRUE(WaitFor([&] { return Edit == nullptr; }));
        Application->ProcessMessages();
    }
}

} // namespace
