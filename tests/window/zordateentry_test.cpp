// The date field where things go wrong or come from elsewhere: texts that are no date, errors of the host's, Esc, the
// clipboard, handlers of keys, styles and new windows.

#include "foundation/Zormessages.h"
#include "framework/windows/clipboard.h"
#include "tests/support/dateform.h"
#include "tests/support/messageboxes.h"

using namespace testsupport;

namespace {

TEST_F(DateEdit, CommandsLeaveADateBehind) {
    const auto send = [&](UINT command) { SendMessageW(EditPart(), command, 0, 0); };
    for (const bool fromMenu : {false, true}) {
        SCOPED_TRACE(fromMenu ? "from the menu" : "by keys");
        const auto command = [&](WORD key, UINT message) {
            if (fromMenu)
                send(message);
            else
                PressKey(key, {ssCtrl});
        };
        Start(kYearFirst);
        Edit->UseMaskEdit = true;
        Edit->Date = kDay;
        TakeChanges();
        ASSERT_TRUE(SetClipboardText(nullptr, u"rubbish"));
        command('V', WM_PASTE);
        EXPECT_EQ(Edit->Text, u"2024-03-15");
        ASSERT_TRUE(SetClipboardText(nullptr, u"2023-1-2"));
        command('V', WM_PASTE);
        EXPECT_EQ(Edit->Text, u"2023-01-02");
        EXPECT_EQ(Edit->Date, EncodeDate(2023, 1, 2));
        Edit->SelStart = 8;
        Edit->SelLength = 2;
        command('X', WM_CUT);
        EXPECT_EQ(Edit->Text, u"2023-01-01") << "no gap stays";
        EXPECT_EQ(TakeChanges(), 2);
        Edit->UseMaskEdit = false;
        Edit->SelectAll();
        command('V', WM_PASTE);
        EXPECT_EQ(Edit->Text, u"02") << "what was cut, into a free text";
        Edit->Date = kDay;
        for (const TDateTimeView view : {dtvMonth, dtvYear}) {
            Edit->DateTimeView = view;
            Edit->SelectAll();
            TakeChanges();
            const String text = Edit->Text;
            command('V', WM_PASTE);
            command('X', WM_CUT);
            command('Z', WM_UNDO);
            send(WM_CLEAR);
            EXPECT_EQ(Edit->Text, text);
            EXPECT_EQ(TakeChanges(), 0);
        }
        PressKey('A', {ssCtrl});
        PressKey('C', {ssCtrl});
        EXPECT_EQ(ClipboardText(nullptr), u"2024");
    }
}

TEST_F(DateEdit, ADropDownListTakesNoTyping) {
    Edit->Style = csDropDownList;
    Edit->Date = kDay;
    Edit->SetFocus();
    std::vector<WORD> heard;
    Edit->OnKeyDown = [&](TObject*, WORD& key, TShiftState) { heard.push_back(key); };
    TypeText(u"2020");
    PressKey(VK_BACK);
    SendMessageW(EditPart(), WM_CLEAR, 0, 0);
    EXPECT_EQ(Edit->Text, u"2024-03-15");
    PressKey(VK_UP);
    EXPECT_EQ(Edit->Date, EncodeDate(2025, 3, 15));
    heard.clear();
    PressKey(VK_DELETE);
    EXPECT_EQ(Edit->Date, 0);
    EXPECT_EQ(heard, std::vector<WORD>{VK_DELETE}) << "the host hears of it";
    PressKey(VK_UP);
    EXPECT_EQ(Edit->Date, EncodeDate(2025, 3, 15));
}

TEST_F(DateEdit, HandlersOfAKeyHaveTheirSayFirst) {
    Start(kYearFirst);
    Edit->UseMaskEdit = true;
    Edit->MaxLength = 10;
    Edit->Date = kDay;
    Edit->OnKeyPress = [&](TObject*, char16_t&) {
        Edit->Date = EncodeDate(1999, 9, 9);
        Edit->SelStart = 5;
    };
    TypeText(u"1");
    EXPECT_EQ(Edit->Text, u"1999-19-09") << "typed into the date that the handler has set";
    Application->OnException = [](TObject*, const std::exception&) {};
    Edit->OnKeyPress = [](TObject*, char16_t&) { throw EConvertError(u"no"); };
    TypeText(u"1");
    Application->OnException = nullptr;
    EXPECT_EQ(SendMessageW(EditPart(), EM_GETLIMITTEXT, 0, 0), 10);
}

TEST_F(DateEdit, TellsOfATextThatIsNoDate) {
    for (const bool withTime : {false, true}) {
        SCOPED_TRACE(withTime);
        Start(kYearFirst, withTime ? dfLong : dfShort);
        Edit->Wymagany = wRequired;
        int exits = 0;
        int entered = 0;
        Edit->OnExit = [&](TObject*) { ++exits; };
        Other.OnEnter = [&](TObject*) { ++entered; };
        Edit->Date = kDay;
        Edit->SelectAll();
        TypeText(u"2024-02-31");
        EXPECT_EQ(Edit->Wymagany, wRequired) << "nobody is told while typing";
        TBoxReader boxes;
        PressKey(VK_TAB);
        ASSERT_TRUE(WaitFor([&] { return boxes.Seen.size() == 1; }));
        const TMessageBox box = boxes.Seen[0];
        EXPECT_EQ(box.Owner, Form->GetHandle());
        const TMessageText expected = InvalidDateMessage(
            UserMessageLanguage(), Now(), {EntrySettings(kYearFirst), withTime ? dfLong : dfShort, dtvDay, 0});
        EXPECT_EQ(box.Caption, expected.Caption);
        // The example is the present moment; only its minute may have passed meanwhile.
        EXPECT_EQ(box.Text.substr(0, box.Text.find(u'[')), expected.Text.substr(0, expected.Text.find(u'[')));
        EXPECT_EQ(box.Text.size(), expected.Text.size());
        EXPECT_EQ(Edit->Wymagany, wError);
        EXPECT_EQ(Edit->Text, u"2024-02-31") << "what was typed stays";
        EXPECT_EQ(Edit->Date, kDay);
        EXPECT_TRUE(WaitFor([&] { return Edit->Focused(); }));
        EXPECT_EQ(entered, 0) << "nobody else was entered on the way";
        EXPECT_EQ(exits, 1);
        TakeChanges();
        PressKey(VK_ESCAPE);
        EXPECT_EQ(Edit->Text, withTime ? u"2024-03-15 00:00" : u"2024-03-15");
        EXPECT_EQ(Edit->Wymagany, wRequired);
        EXPECT_EQ(TakeChanges(), 1);
        // Given up before anybody was told.
        Edit->SelectAll();
        TypeText(u"2024-9");
        PressKey(VK_ESCAPE);
        EXPECT_EQ(Edit->Date, kDay);
        EXPECT_EQ(Edit->Text, withTime ? u"2024-03-15 00:00" : u"2024-03-15");
        // Corrected by typing, or emptied: both end the error.
        Edit->SelectAll();
        TypeText(u"rubbish");
        TypeText(u"1");
        Leave();
        EXPECT_EQ(boxes.Seen.size(), 2u);
        EXPECT_EQ(Edit->Wymagany, wError);
        Edit->SelectAll();
        TypeText(u"2023-01-02");
        EXPECT_EQ(Edit->Wymagany, wRequired);
        Edit->SelectAll();
        TypeText(u"9");
        Leave();
        EXPECT_EQ(Edit->Wymagany, wError);
        Edit->SelectAll();
        PressKey(VK_BACK);
        Leave();
        EXPECT_EQ(Edit->Wymagany, wRequired);
        EXPECT_EQ(Edit->Date, 0);
        EXPECT_TRUE(Other.Focused());
        EXPECT_EQ(entered, 1);
        Other.OnEnter = nullptr;
    }
}

TEST_F(DateEdit, AnErrorOfTheHostsIsToldOfUntilTheFieldIsFilled) {
    Start(kYearFirst);
    Edit->Wymagany = wRequired;
    Edit->Wymagany = wError;
    TBoxReader boxes;
    Leave();
    EXPECT_EQ(boxes.Seen.size(), 1u);
    EXPECT_EQ(Edit->Wymagany, wError) << "still empty";
    EXPECT_TRUE(Edit->Focused());
    TypeText(u"2024-01-01");
    Leave();
    EXPECT_EQ(Edit->Wymagany, wRequired);
    EXPECT_TRUE(Other.Focused());
    Edit->Clear();
    Edit->Wymagany = wError;
    Edit->SetFocus();
    PressKey(VK_ESCAPE);
    Leave();
    EXPECT_TRUE(Other.Focused()) << "Esc lets a person leave it empty";

    // A date that the host does not accept stays wrong as long as it is the same.
    Edit->Date = kDay;
    Edit->SetFocus();
    Edit->SelectAll();
    TypeText(u"2024-1-2");
    Edit->Wymagany = wError;
    for (int attempt = 0; attempt < 2; ++attempt) {
        Leave();
        EXPECT_EQ(Edit->Wymagany, wError);
        EXPECT_EQ(Edit->Text, u"2024-01-02");
        EXPECT_TRUE(Edit->Focused());
    }
    EXPECT_EQ(boxes.Seen.size(), 3u);
    PressKey(VK_UP);
    Leave();
    EXPECT_EQ(Edit->Wymagany, wRequired);
    EXPECT_TRUE(Other.Focused());
}

TEST_F(DateEdit, TheValueHeldBringsItsTextBack) {
    Start(kYearFirst);
    for (const TDateTime held : {kDay, TDateTime{0}}) {
        Edit->Date = held;
        const String shown = Edit->Text;
        Edit->SelectAll();
        TypeText(u"2024-99");
        Edit->Date = Edit->Date; // the next record has the same
        EXPECT_EQ(Edit->Text, shown);
        EXPECT_EQ(Edit->Wymagany, wNone);
    }
    Edit->OnChange = [&](TObject*) { Edit->Date = Edit->Date; };
    TypeText(u"2024-3-1");
    EXPECT_EQ(Edit->Text, u"2024-3-1") << "a host that echoes the value does not disturb the typing";
    EXPECT_EQ(Edit->Date, EncodeDate(2024, 3, 1));
}

TEST_F(DateEdit, KeepsItsStateThroughANewWindow) {
    Start(kPolish, dfLong);
    Edit->UseMaskEdit = true;
    Edit->DateTime = EncodeDateTime(2024, 3, 15, 8, 5, 0, 0);
    Edit->SelStart = 4;
    Edit->calendar_pop();
    Edit->Ctl3D = false;
    EXPECT_FALSE(Edit->ZORDroppedDown);
    EXPECT_EQ(Edit->Text, u"15.03.2024 08:05");
    EXPECT_EQ(Edit->SelStart, 4);
    EXPECT_TRUE(Edit->Focused());
    TypeText(u"1");
    EXPECT_EQ(Edit->Text, u"15.01.2024 08:05") << "the mask knows the new window";
    Edit->BiDiMode = bdRightToLeft;
    PressKey(VK_UP);
    EXPECT_EQ(Edit->Text, u"15.01.2025 08:05");
}

} // namespace
