// What the framed controls have in common and where they differ, as one table over all of them; then what each does by
// itself.

#include "controls/Zorcheckbox.h"
#include "controls/Zorcheckbox_rules.h"
#include "controls/Zorchecklistbox.h"
#include "controls/Zorlistbox.h"
#include "controls/Zormaskedit.h"
#include "controls/Zormemo.h"
#include "controls/Zormonthcalendar.h"
#include "controls/Zorrichedit.h"
#include "controls/Zorscrollbox.h"
#include "foundation/Zorpalette.h"
#include "framework/graphics/handles.h"
#include "framework/system/strings.h"
#include "framework/windows/application.h"
#include "tests/support/input.h"

#include <gtest/gtest.h>

namespace {

using namespace framework;
using namespace ZOR;
using namespace testsupport;

struct TMember {
    const TClassInfo& Class;
    const char* Additions;   // published behind those of the native base, in order
    bool ErrorEndsOnLeaving; // with something entered
};

const std::vector<TMember>& Family() {
    static const std::vector<TMember> members{
        {TZORMaskEdit::StaticClass(), "Wymagany ShowHintInside HintLabel OnValidateRequest BorderColors BoundLabel",
         false},
        {TZORMemo::StaticClass(), "Wymagany ShowHintInside HintLabel OnValidateRequest BorderColors BoundLabel", true},
        {TZORRichEdit::StaticClass(), "Wymagany OnValidateRequest BorderColors", false},
        {TZORListBox::StaticClass(), "Wymagany OnValidateRequest BorderColors", false},
        {TZORCheckBox::StaticClass(), "Wymagany OnValidateRequest BorderColors BoundLabel", false},
        {TZORCheckListBox::StaticClass(), "Wymagany CheckOnClickString OnValidateRequest BorderColors BoundLabel",
         false},
        {TZORMonthCalendar::StaticClass(), "Wymagany OnValidateRequest BorderColors BoundLabel", false},
        {TZORScrollBox::StaticClass(), "", false},
    };
    return members;
}

bool IsFramed(const TMember& member) {
    return *member.Additions != '\0';
}

COLORREF WindowPixel(TWinControl& control, TPoint at) {
    const TWindowDC dc(control.GetHandle(), TWindowDC::Whole);
    return GetPixel(dc, at.X, at.Y);
}

class FramedFamily : public testing::Test {
protected:
    void SetUp() override {
        Form = ShowForm();
        Other = new TEdit(Form.get());
        Other->Parent = Form.get();
        Other->SetBounds(10, 240, 80, 21);
        Other->SetFocus();
    }
    void TearDown() override {
        Form.reset();
        Application->ProcessMessages();
    }
    TWinControl& Make(const TMember& member) {
        auto* control = static_cast<TWinControl*>(member.Class.Create(Form.get()));
        control->Name = u"Subject";
        control->Parent = Form.get();
        control->SetBounds(120, 20, 200, member.Class.Name() == u"TZORCheckBox" ? 17 : 170);
        Application->ProcessMessages();
        return *control;
    }
    static void Require(TWinControl& control, const char16_t* state) {
        SetPropValue(control, u"Wymagany", String(state));
    }
    static String State(TWinControl& control) { return GetPropValue(control, u"Wymagany", true).AsString(); }
    /// The pixel that belongs to the frame wherever the control paints it.
    COLORREF Frame(TWinControl& control) {
        Form->Update();
        Application->ProcessMessages();
        return WindowPixel(control, control.ClassName() == u"TZORCheckBox" ? TPoint{0, 2} : TPoint{0, 0});
    }

    std::unique_ptr<TForm> Form;
    TEdit* Other = nullptr;
};

TEST_F(FramedFamily, PublishesItsAdditionsInOrder) {
    for (const TMember& member : Family()) {
        String names;
        const auto& all = member.Class.Properties();
        const std::size_t inherited = member.Class.Parent()->Properties().size();
        for (std::size_t i = inherited; i < all.size(); ++i)
            names += (names.empty() ? u"" : u" ") + all[i].Name;
        EXPECT_EQ(Utf8Encode(names), member.Additions) << Utf8Encode(member.Class.Name());
    }
}

TEST_F(FramedFamily, ShowsEachStateAndForgetsItWhileDisabled) {
    for (const TMember& member : Family()) {
        if (!IsFramed(member))
            continue;
        SCOPED_TRACE(Utf8Encode(member.Class.Name()));
        TWinControl& control = Make(member);
        const COLORREF plain = Frame(control);
        EXPECT_NE(plain, 0xDD9746u);
        Require(control, u"wRequired");
        EXPECT_EQ(Frame(control), 0xDD9746u);
        control.Width = control.Width + 10;
        EXPECT_EQ(Frame(control), 0xDD9746u) << "after resizing";
        Require(control, u"wRecommended");
        EXPECT_EQ(Frame(control), 0x46C265u);
        SetPropValue(*As<TPersistent>(GetObjectProp(control, u"BorderColors")), u"ErrorColor", 0x123456);
        Require(control, u"wError");
        EXPECT_EQ(Frame(control), 0x123456u);
        Require(control, u"wNone");
        EXPECT_EQ(Frame(control), plain) << "the native look is back";

        Require(control, u"wError");
        Require(control, u"wRequired");
        control.Enabled = false;
        EXPECT_EQ(State(control), u"wNone");
        EXPECT_NE(Frame(control), 0xDD9746u);
        control.Enabled = true;
        EXPECT_EQ(State(control), u"wRequired");
        EXPECT_EQ(Frame(control), 0xDD9746u);
        control.RecreateWnd();
        EXPECT_EQ(State(control), u"wRequired");
        EXPECT_EQ(Frame(control), 0xDD9746u) << "in a new window";
        delete &control;
    }
}

TEST_F(FramedFamily, ErrorsEndWhereThePersonCanEndThem) {
    for (const TMember& member : Family()) {
        if (!IsFramed(member))
            continue;
        SCOPED_TRACE(Utf8Encode(member.Class.Name()));
        TWinControl& control = Make(member);
        control.Perform(WM_SETTEXT, 0, reinterpret_cast<LPARAM>(u"entered"));
        Require(control, u"wRequired");
        Require(control, u"wError");
        control.SetFocus();
        MoveMouse(control.ClientToScreen({5, 5}));
        Application->ProcessMessages();
        Other->SetFocus();
        Application->ProcessMessages();
        EXPECT_EQ(State(control), member.ErrorEndsOnLeaving ? u"wRequired" : u"wError");
        MoveMouse(Form->ClientToScreen({5, 5}));
        Application->ProcessMessages();
        delete &control;
    }
}

TEST_F(FramedFamily, ScrollBarsShowBesideTheFrame) {
    // Frames that replace the native border must not swallow the bars that belong to it.
    for (const TClassInfo* each :
         {&TZORMemo::StaticClass(), &TZORRichEdit::StaticClass(), &TZORListBox::StaticClass()}) {
        SCOPED_TRACE(Utf8Encode(each->Name()));
        auto* control = static_cast<TWinControl*>(each->Create(Form.get()));
        Require(*control, u"wRequired");
        if (auto* memo = As<TCustomMemo>(control)) {
            memo->ScrollBars = ssVertical;
            memo->SetText(StringReplace(StringOfChar(u'x', 50), u"x", u"x\r\n", TReplaceFlags() << rfReplaceAll));
        } else {
            for (int i = 0; i < 50; ++i)
                static_cast<TListBox*>(control)->Items->Add(u"x");
        }
        control->Parent = Form.get();
        control->SetBounds(120, 20, 150, 100);
        EXPECT_EQ(Frame(*control), 0xDD9746u);
        int bar = 0;
        for (int y = 4; y < 96; ++y)
            bar += WindowPixel(*control, {142, y}) != 0xFFFFFF ? 1 : 0;
        EXPECT_GT(bar, 30) << "the bar is not painted";
        EXPECT_EQ(WindowPixel(*control, {149, 50}), 0xDD9746u);
        delete control;
    }
}

TEST_F(FramedFamily, FramesLeaveTheInsideAlone) {
    for (const TMember& member : Family()) {
        if (!IsFramed(member))
            continue;
        SCOPED_TRACE(Utf8Encode(member.Class.Name()));
        TWinControl& control = Make(member);
        control.Perform(WM_SETTEXT, 0, reinterpret_cast<LPARAM>(u"text"));
        if (auto* list = As<TCustomListBox>(&control))
            list->Items->CommaText = u"some,items";
        const auto inside = [&] {
            const TWindowDC dc(control.Handle);
            std::vector<COLORREF> pixels;
            for (int y = 3; y < std::min(control.ClientHeight - 3, 40); ++y) {
                for (int x = 20; x < 90; ++x)
                    pixels.push_back(GetPixel(dc, x, y));
            }
            return pixels;
        };
        Frame(control);
        const auto before = inside();
        for (const char16_t* state : {u"wNone", u"wRequired"}) {
            Require(control, state);
            Frame(control);
            SendMessageW(control.Handle, WM_NCPAINT, 0, 0);
            EXPECT_EQ(inside(), before) << Utf8Encode(state);
        }
        delete &control;
    }
}

TEST_F(FramedFamily, MayDieInTheirEvents) {
    for (const TMember& member : Family()) {
        if (!IsFramed(member))
            continue;
        SCOPED_TRACE(Utf8Encode(member.Class.Name()));
        TWinControl& control = Make(member);
        bool gone = false;
        const TNotifyEvent die = [&](TObject* sender) {
            delete sender;
            gone = true;
        };
        if (auto* list = As<TCustomListBox>(&control))
            list->Items->CommaText = u"a,b,c,d,e,f,g,h,i,j";
        if (auto* masked = As<TMaskEdit>(&control))
            masked->EditMask = u"99;0";
        if (auto* edit = As<TCustomEdit>(&control)) {
            edit->OnChange = die;
            edit->SetFocus();
            TypeText(u"1");
        } else {
            control.OnClick = die;
            ClickOn(control); // in the middle: an item, a day
        }
        EXPECT_TRUE(WaitFor([&] { return gone; }));
        Application->ProcessMessages();
    }
}

// The mask edit

TEST_F(FramedFamily, MaskEditHintsUntilSomethingIsEntered) {
    auto* edit = new TZORMaskEdit(Form.get());
    edit->EditMask = u"99-99;1;_";
    edit->HintLabel = u"W"; // something wide
    edit->Parent = Form.get();
    edit->SetBounds(120, 20, 100, 21);
    const auto inkBehindHint = [&] {
        Form->Update();
        Application->ProcessMessages();
        const TWindowDC dc(edit->Handle);
        int ink = 0;
        for (int y = 2; y < 17; ++y) {
            for (int x = 20; x < 90; ++x) // where the mask goes on
                ink += GetPixel(dc, x, y) != 0xFFFFFF ? 1 : 0;
        }
        return ink;
    };
    EXPECT_EQ(inkBehindHint(), 0) << "the hint in place of the empty mask";
    edit->Text = u"12-34";
    EXPECT_GT(inkBehindHint(), 0);
    edit->Text = u"";
    edit->SetFocus();
    edit->SelLength = 0;
    EXPECT_GT(inkBehindHint(), 0) << "with the focus the mask shows";

    Application->OnException = [](TObject*, const std::exception&) {};
    edit->EditMask = u"00-00;1;_";
    TypeText(u"1");
    PressKey(VK_TAB); // is refused
    PressKey(VK_ESCAPE);
    EXPECT_TRUE(WaitFor([&] { return edit->IsEmpty(); }));
    EXPECT_TRUE(edit->Focused());
    edit->SelLength = 0;
    EXPECT_GT(inkBehindHint(), 0) << "a field that was not left still has the focus";
    Application->OnException = nullptr;
}

TEST_F(FramedFamily, MaskEditTellsWhatIsMissingInTheUsersLanguage) {
    const bool polish = GetUserDefaultLangID() == 0x0415;
    TZORMaskEdit edit(nullptr);
    edit.EditMask = u"00;1;_";
    edit.Text = u"1";
    try {
        edit.ValidateEdit();
        ADD_FAILURE() << "an incomplete entry was taken";
    } catch (const EDBEditError& error) {
        EXPECT_NE(error.GetMessageText().find(polish ? u"niepe\u0142ny" : u"not complete"), String::npos);
    }
}

// The memo

TEST_F(FramedFamily, MemoTakesLettersOfThePopupAsOneChange) {
    auto* memo = new TZORMemo(Form.get());
    memo->Parent = Form.get();
    memo->SetBounds(120, 20, 150, 80);
    memo->MaxLength = 3;
    memo->Text = u"abc";
    memo->SetFocus();
    memo->SelStart = 3;
    int changes = 0;
    String keys;
    memo->OnChange = [&](TObject*) { ++changes; };
    memo->OnKeyUp = [&](TObject*, WORD& key, TShiftState) { keys += IntToHex(static_cast<int>(key), 2) + u" "; };
    PressKey(VK_F7);
    ASSERT_TRUE(WaitFor([&] { return memo->GetExtraSignsForm() && memo->GetExtraSignsForm()->GetShowing(); }));
    Textrasignsfrm& popup = *memo->GetExtraSignsForm();
    const TRect key = popup.GetKeys().front().rect;
    const LPARAM at = PointToLParam({key.Left + 5, key.Top + 5});
    popup.Perform(WM_LBUTTONDOWN, MK_LBUTTON, at);
    popup.Perform(WM_LBUTTONUP, 0, at);
    Application->ProcessMessages();
    EXPECT_EQ(Utf8Encode(memo->Text), "abcá") << "the popup knows no limit here";
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(keys, u"00 ") << "hosts hear of the letter's key-up, not of F7";
    PressKey(VK_F7);
    EXPECT_TRUE(WaitFor([&] { return !popup.GetShowing(); }));
}

// The check box

TEST_F(FramedFamily, CheckBoxWearsItsFrameAroundTheBox) {
    EXPECT_EQ(CheckBoxSquare({97, 17}, false), (TRect{0, 2, 13, 15}));
    EXPECT_EQ(CheckBoxSquare({97, 17}, true), (TRect{84, 2, 97, 15}));
    auto* box = new TZORCheckBox(Form.get());
    box->Caption = u"caption";
    box->Parent = Form.get();
    box->SetBounds(120, 20, 97, 17);
    box->Wymagany = wRequired;
    const auto isFramed = [&](const TRect& square) {
        Form->Update();
        Application->ProcessMessages();
        return WindowPixel(*box, {square.Left, square.Top}) == 0xDD9746 &&
               WindowPixel(*box, {square.Right - 1, square.Bottom - 1}) == 0xDD9746 &&
               WindowPixel(*box, {square.Left, square.Top - 1}) != 0xDD9746 &&
               WindowPixel(*box, {square.Left + 20, square.Top + 13}) != 0xDD9746;
    };
    EXPECT_TRUE(isFramed({0, 2, 13, 15}));
    PressMouse(box->ClientToScreen({6, 8}));
    Application->ProcessMessages();
    EXPECT_TRUE(isFramed({0, 2, 13, 15})) << "while it is pressed";
    ReleaseMouse();
    EXPECT_TRUE(WaitFor([&] { return box->Checked; }));
    EXPECT_TRUE(isFramed({0, 2, 13, 15})) << "after the click";
    Other->SetFocus();
    EXPECT_TRUE(isFramed({0, 2, 13, 15})) << "without the focus";
    box->Checked = false;
    EXPECT_TRUE(isFramed({0, 2, 13, 15})) << "changed by the program";
}

// The check-list box

class CheckClicks : public FramedFamily {
protected:
    void SetUp() override {
        FramedFamily::SetUp();
        List = new TZORCheckListBox(Form.get());
        List->Items->CommaText = u"alpha,beta,gamma";
        List->Parent = Form.get();
        List->SetBounds(120, 20, 150, 120);
        List->OnClickCheck = [this](TObject*) { Told += List->Checked[List->ItemIndex] ? u"+" : u"-"; };
        List->OnClick = [this](TObject*) { Told += u"c"; };
        List->SetFocus();
        Application->ProcessMessages();
    }
    TPoint At(int index, int x) {
        const TRect item = List->ItemRect(index);
        return {item.Left + x, (item.Top + item.Bottom) / 2};
    }
    /// What the list told of a click on the text of an item, or on its box.
    std::string Click(int index, bool onText) {
        Told.clear();
        ClickOn(*List, At(index, onText ? 40 : 8));
        WaitFor([&] { return Told.find(u'c') != String::npos; });
        Application->ProcessMessages();
        return Utf8Encode(Told);
    }
    std::string Press(WORD key) {
        Told.clear();
        PressKey(key);
        Application->ProcessMessages();
        return Utf8Encode(Told);
    }

    TZORCheckListBox* List = nullptr;
    String Told;
};

TEST_F(CheckClicks, TextTogglesOnceWhenAskedFor) {
    EXPECT_EQ(Click(1, true), "c");
    List->CheckOnClickString = true;
    EXPECT_EQ(Click(0, true), "+c");
    EXPECT_TRUE(List->Checked[0]);
    EXPECT_EQ(Click(1, true), "+c"); // so that the next one is no double click
    EXPECT_EQ(Click(0, true), "-c");
    EXPECT_EQ(Click(2, false), "+c") << "its box: by the list alone";
    EXPECT_EQ(Click(2, true), "-c") << "and then its text";
    EXPECT_EQ(Press(VK_UP), "c");
    EXPECT_EQ(Press(VK_SPACE), "-") << "the space key is the list's own";
    ClickOn(*List, {60, 110}); // below the items
    Application->ProcessMessages();
    EXPECT_EQ(Press(VK_UP), "c") << "keys never toggle, whatever the mouse did before";
    List->ItemEnabled[0] = false;
    EXPECT_EQ(Click(0, true), "c");
}

TEST_F(CheckClicks, ItemsMayGoInTheEvents) {
    List->CheckOnClickString = true;
    List->OnClickCheck = [this](TObject*) { List->Items->Clear(); };
    ClickOn(*List, At(1, 40));
    EXPECT_TRUE(WaitFor([&] { return List->Count == 0; }));
    List->Items->CommaText = u"alpha,beta,gamma";
    List->OnClickCheck = [this](TObject*) { delete std::exchange(List, nullptr); };
    ClickOn(*List, At(2, 40));
    EXPECT_TRUE(WaitFor([&] { return List == nullptr; }));
    Application->ProcessMessages();
}

TEST_F(CheckClicks, ScrollsSidewaysUnderItsFrame) {
    List->ScrollWidth = 600;
    List->Wymagany = wRequired;
    const auto position = [&] { return GetScrollPos(List->Handle, SB_HORZ); };
    SendMessageW(List->Handle, WM_HSCROLL, SB_LINEDOWN, 0);
    const int step = position();
    EXPECT_GT(step, 0);
    EXPECT_EQ(Frame(*List), 0xDD9746u);
    List->Wymagany = wNone;
    SendMessageW(List->Handle, WM_HSCROLL, SB_LINEDOWN, 0);
    EXPECT_EQ(position(), 3 * step) << "without a frame the list hears of it twice";
}

// The scroll box

TEST_F(FramedFamily, ScrollBoxStaysWhereItIs) {
    auto* box = new TZORScrollBox(Form.get());
    box->Parent = Form.get();
    box->SetBounds(10, 10, 150, 100);
    const auto add = [&](int top) {
        auto* edit = new TZORMaskEdit(Form.get());
        edit->Parent = box;
        edit->SetBounds(60, top, 60, 21);
        edit->BoundLabel->Caption = u"name";
        edit->BoundLabel->Active = true;
        return edit;
    };
    auto* first = add(10);
    auto* last = add(500);
    first->SetFocus();
    PressKey(VK_TAB);
    EXPECT_TRUE(WaitFor([&] { return last->Focused(); }));
    EXPECT_EQ(box->VertScrollBar->Position, 0);
    box->ScrollInView(last);
    EXPECT_EQ(last->Top + last->Height, box->ClientHeight) << "on request it comes into view";
    // Captions scroll along.
    for (int i = 0; i < box->GetControlCount(); ++i) {
        if (auto* label = As<TLabel>(box->GetControl(i)); label && label->FocusControl == last)
            EXPECT_EQ(label->Top, last->Top + (last->Height - label->Height) / 2 - 1);
    }
}

} // namespace
