// Text fields: one change event for each change, what survives a new window, selection, limits, keys.

#include "framework/graphics/textmetrics.h"
#include "framework/windows/application.h"
#include "framework/windows/edit.h"
#include "tests/support/input.h"

#include <gtest/gtest.h>

using namespace framework;
using namespace testsupport;

namespace {

class EditTest : public testing::Test {
protected:
    EditTest() {
        Edit.OnChange = [this](TObject* sender) {
            EXPECT_EQ(sender, &Edit);
            ++Changes;
            Seen = Edit.GetText();
        };
    }

    void GiveWindow() {
        Other.SetParent(Form.get());
        Other.SetTop(50);
        Edit.SetParent(Form.get());
        Edit.SetFocus();
        ASSERT_TRUE(Edit.HandleAllocated());
    }
    int TakeChanges() { return std::exchange(Changes, 0); }

    std::unique_ptr<TForm> Form = ShowForm();
    TEdit Other{nullptr};
    TEdit Edit{nullptr};
    int Changes = 0;
    String Seen;
};

TEST_F(EditTest, ReportsEachChangeOnce) {
    for (const bool withWindow : {false, true}) {
        SCOPED_TRACE(withWindow ? "with a window" : "without a window");
        Edit.SetText({});
        TakeChanges();
        if (withWindow)
            GiveWindow();
        EXPECT_EQ(TakeChanges(), 0) << "a new window changes nothing";
        Edit.SetText(u"abc");
        EXPECT_EQ(TakeChanges(), 1);
        EXPECT_EQ(Seen, u"abc") << "the handler sees the new text";
        Edit.SetText(u"abc");
        EXPECT_EQ(TakeChanges(), 0) << "the same text is no change";
        Edit.SetSelStart(1);
        Edit.SetSelLength(1);
        EXPECT_EQ(TakeChanges(), 0);
        Edit.SetSelText(u"xyz");
        EXPECT_EQ(Edit.GetText(), u"axyzc");
        EXPECT_EQ(Edit.GetSelStart(), 4);
        EXPECT_EQ(TakeChanges(), 1);
        Edit.SetCharCase(ecUpperCase);
        EXPECT_EQ(Edit.GetText(), u"AXYZC");
        EXPECT_EQ(TakeChanges(), 1);
        Edit.SetCharCase(ecNormal);
        EXPECT_EQ(TakeChanges(), 0);
        Edit.Clear();
        EXPECT_EQ(TakeChanges(), 1);
        Edit.Clear();
        EXPECT_EQ(TakeChanges(), 0);
    }
    TypeText(u"zaz\u00F3\u0142\u0107");
    EXPECT_EQ(Edit.GetText(), u"zaz\u00F3\u0142\u0107");
    EXPECT_EQ(TakeChanges(), 6);
    Edit.SelectAll();
    Edit.CutToClipboard();
    EXPECT_EQ(TakeChanges(), 1);
    Edit.ClearUndo();
    Edit.PasteFromClipboard();
    EXPECT_EQ(Edit.GetText(), u"zaz\u00F3\u0142\u0107");
    EXPECT_EQ(TakeChanges(), 1);
    Edit.Undo();
    EXPECT_EQ(Edit.GetText(), u"");
    EXPECT_EQ(TakeChanges(), 1);
    PressKey(VK_LEFT);
    EXPECT_EQ(TakeChanges(), 0);
}

TEST_F(EditTest, KeepsItsStateThroughANewWindow) {
    struct TRow {
        const char* What;
        std::function<void()> Act;
    };
    const TRow rows[] = {
        {"alignment", [&] { Edit.SetAlignment(taRightJustify); }},
        {"border", [&] { Edit.SetBorderStyle(bsNone); }},
        {"its own recreation", [&] { Edit.RecreateWnd(); }},
        {"the form's recreation", [&] { Form->SetBorderStyle(bsDialog); }},
        {"another parent",
         [&] {
             Edit.SetParent(nullptr);
             Edit.SetParent(Form.get());
         }},
        {"from within a handler of the change",
         [&] {
             Edit.OnChange = [&](TObject*) { Edit.RecreateWnd(); };
             Edit.SetSelLength(0);
             Edit.SetSelText(u"!");
             Edit.SetSelStart(2);
             Edit.SetSelLength(3);
         }},
    };
    GiveWindow();
    Edit.SetMaxLength(8);
    for (const TRow& row : rows) {
        SCOPED_TRACE(row.What);
        Edit.SetText({});
        TypeText(u"some t");
        Edit.SetSelStart(2);
        Edit.SetSelLength(3);
        TakeChanges();
        const HWND before = Edit.GetHandle();
        row.Act();
        Edit.HandleNeeded();
        EXPECT_NE(Edit.GetHandle(), before);
        EXPECT_EQ(TakeChanges(), 0);
        EXPECT_EQ(Edit.GetText().substr(0, 2), u"so");
        EXPECT_EQ(Edit.GetSelStart(), 2);
        EXPECT_EQ(Edit.GetSelLength(), 3);
        EXPECT_TRUE(Edit.GetModified());
        EXPECT_EQ(SendMessageW(Edit.GetHandle(), EM_GETLIMITTEXT, 0, 0), 8);
        EXPECT_EQ(reinterpret_cast<HFONT>(SendMessageW(Edit.GetHandle(), WM_GETFONT, 0, 0)),
                  Edit.GetFont()->GetHandle());
        if (row.What != std::string("another parent"))
            EXPECT_TRUE(Edit.Focused());
        Edit.SetFocus();
    }
}

/// An edit that notes which messages reach its native window.
class TNativeProbe : public TEdit {
public:
    using TEdit::TEdit;

    static inline std::vector<UINT> Seen;

protected:
    void CreateParams(TCreateParams& params) override {
        TEdit::CreateParams(params);
        params.WinClassName = u"TNativeProbe";
        Native = std::exchange(params.WindowClass.lpfnWndProc, Note);
    }

private:
    static LRESULT CALLBACK Note(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        Seen.push_back(message);
        return CallWindowProcW(Native, window, message, wParam, lParam);
    }
    static inline WNDPROC Native = nullptr;
};

TEST_F(EditTest, RegisteredMessagesReachTheNativeWindow) {
    TNativeProbe probe(nullptr);
    probe.SetParent(Form.get());
    const UINT registered = RegisterWindowMessageW(L"of an input method");
    TNativeProbe::Seen.clear();
    probe.Perform(registered);
    probe.Perform(CM_GOTFOCUS);
    EXPECT_EQ(TNativeProbe::Seen, std::vector<UINT>{registered})
        << "messages of the framework are none of its business";
}

TEST_F(EditTest, SelectsBeyondSixteenBits) {
    const String text(100000, u'a');
    for (const bool withWindow : {false, true}) {
        SCOPED_TRACE(withWindow);
        if (withWindow)
            GiveWindow();
        Edit.SetText(text);
        Edit.SetSelStart(70000);
        Edit.SetSelLength(20000);
        EXPECT_EQ(Edit.GetSelStart(), 70000);
        EXPECT_EQ(Edit.GetSelLength(), 20000);
        EXPECT_EQ(Edit.GetSelText().size(), 20000u);
        Edit.SetSelLength(99999999);
        EXPECT_EQ(Edit.GetSelLength(), 30000) << "there is no text behind the end";
        Edit.SetSelStart(-5);
        EXPECT_EQ(Edit.GetSelStart(), 0);
        EXPECT_EQ(Edit.GetSelLength(), 0);
        Edit.SelectAll();
        EXPECT_EQ(Edit.GetSelLength(), 100000);
    }
}

TEST_F(EditTest, SelectsAllOnEnteringByKeyboardOnly) {
    GiveWindow();
    Edit.SetText(u"abcdef");
    Other.SetFocus();
    Edit.SetSelStart(6);
    PressKey(VK_TAB, {ssShift});
    PressKey(VK_TAB);
    PressKey(VK_TAB, {ssShift});
    ASSERT_EQ(Edit.Focused(), !Other.Focused());
    if (!Edit.Focused())
        PressKey(VK_TAB);
    ASSERT_TRUE(Edit.Focused());
    EXPECT_EQ(Edit.GetSelText(), u"abcdef");
    Other.SetFocus();
    Edit.SetSelStart(0);
    ClickOn(Edit, {100, 10});
    ASSERT_TRUE(Edit.Focused());
    EXPECT_EQ(Edit.GetSelLength(), 0);
    EXPECT_EQ(Edit.GetSelStart(), 6) << "the caret goes where the click was";
    PressKey('A', {ssCtrl});
    EXPECT_EQ(Edit.GetSelText(), u"abcdef");
    EXPECT_EQ(Edit.GetText(), u"abcdef");
    Edit.SetAutoSelect(false);
    Other.SetFocus();
    Edit.SetSelStart(3);
    Edit.SetFocus();
    EXPECT_EQ(Edit.GetSelLength(), 0);
}

TEST_F(EditTest, LimitsWhatIsTyped) {
    GiveWindow();
    struct TRow {
        const char* What;
        std::function<void(TEdit&)> Prepare;
        const char16_t* Typed;
        const char16_t* Text;
        int Changes;
    };
    for (const TRow& row : {
             TRow{"no limit", [](TEdit&) {}, u"abc", u"abc", 3},
             TRow{"two characters", [](TEdit& edit) { edit.SetMaxLength(2); }, u"abc", u"ab", 2},
             TRow{"limit taken away", [](TEdit& edit) { edit.SetMaxLength(0); }, u"abc", u"abc", 3},
             TRow{"digits", [](TEdit& edit) { edit.SetNumbersOnly(true); }, u"1a2", u"12", 2},
             TRow{"digits no more", [](TEdit& edit) { edit.SetNumbersOnly(false); }, u"1a2", u"1a2", 3},
             TRow{"capitals", [](TEdit& edit) { edit.SetCharCase(ecUpperCase); }, u"a\u0142", u"A\u0141", 2},
             TRow{"small letters", [](TEdit& edit) { edit.SetCharCase(ecLowerCase); }, u"A\u0141", u"a\u0142", 2},
             TRow{"read-only", [](TEdit& edit) { edit.SetReadOnly(true); }, u"abc", u"", 0},
             TRow{"filtered",
                  [](TEdit& edit) {
                      edit.SetReadOnly(false);
                      edit.OnKeyPress = [](TObject*, char16_t& key) { key = key == u'x' ? u'\0' : key; };
                  },
                  u"axb", u"ab", 2},
         }) {
        SCOPED_TRACE(row.What);
        Edit.SetText({});
        row.Prepare(Edit);
        TakeChanges();
        TypeText(row.Typed);
        EXPECT_EQ(Edit.GetText(), row.Text);
        EXPECT_EQ(TakeChanges(), row.Changes);
    }
    Edit.SetText(u"Mixed");
    EXPECT_EQ(Edit.GetText(), u"mixed") << "the program's text is converted as well";
}

TEST_F(EditTest, HidesAPassword) {
    Edit.SetPasswordChar(u'*');
    GiveWindow();
    EXPECT_EQ(SendMessageW(Edit.GetHandle(), EM_GETPASSWORDCHAR, 0, 0), '*');
    Edit.SetPasswordChar(u'#');
    EXPECT_EQ(SendMessageW(Edit.GetHandle(), EM_GETPASSWORDCHAR, 0, 0), '#');
    Edit.SetPasswordChar(0);
    EXPECT_EQ(SendMessageW(Edit.GetHandle(), EM_GETPASSWORDCHAR, 0, 0), 0);
    SetPropValue(Edit, u"PasswordChar", String(u"*"));
    EXPECT_EQ(Edit.GetPasswordChar(), u'*');
    SetPropValue(Edit, u"PasswordChar", String(1, u'\0'));
    EXPECT_EQ(Edit.GetPasswordChar(), 0);
}

TEST_F(EditTest, FitsItsHeightToFontAndBorder) {
    const auto fitting = [&](int border) { return TTextMeasure(*Edit.GetFont()).LineHeight() + 4 + 2 * border; };
    EXPECT_EQ(Edit.GetHeight(), fitting(GetSystemMetrics(SM_CYEDGE)));
    Edit.GetFont()->SetSize(20);
    EXPECT_EQ(Edit.GetHeight(), fitting(GetSystemMetrics(SM_CYEDGE)));
    GiveWindow();
    Edit.SetCtl3D(false);
    EXPECT_EQ(Edit.GetHeight(), fitting(GetSystemMetrics(SM_CYBORDER)));
    EXPECT_EQ(GetWindowLongPtrW(Edit.GetHandle(), GWL_EXSTYLE) & WS_EX_CLIENTEDGE, 0);
    Edit.SetAutoSize(false);
    Edit.GetFont()->SetSize(8);
    const int before = Edit.GetHeight();
    EXPECT_EQ(Edit.GetHeight(), before);
    EXPECT_GT(before, fitting(1));
}

TEST_F(EditTest, MirrorsItsAlignment) {
    GiveWindow();
    struct TRow {
        TAlignment Alignment;
        TBiDiMode BiDiMode;
        LONG_PTR Style;
    };
    for (const TRow& row :
         {TRow{taLeftJustify, bdLeftToRight, ES_LEFT}, TRow{taRightJustify, bdLeftToRight, ES_RIGHT},
          TRow{taLeftJustify, bdRightToLeft, ES_RIGHT}, TRow{taRightJustify, bdRightToLeft, ES_LEFT},
          TRow{taCenter, bdRightToLeft, ES_CENTER}, TRow{taLeftJustify, bdRightToLeftNoAlign, ES_LEFT}}) {
        Edit.SetAlignment(row.Alignment);
        Edit.SetBiDiMode(row.BiDiMode);
        EXPECT_EQ(GetWindowLongPtrW(Edit.GetHandle(), GWL_STYLE) & (ES_RIGHT | ES_CENTER), row.Style);
        EXPECT_EQ(GetWindowLongPtrW(Edit.GetHandle(), GWL_EXSTYLE) & WS_EX_RIGHT, 0);
    }
}

// Handlers may free the control that calls them.
TEST_F(EditTest, MayDieInItsHandlers) {
    Other.SetParent(Form.get());
    const auto fresh = [&] {
        auto* edit = new TEdit(nullptr);
        edit->SetParent(Form.get());
        edit->SetTop(100);
        edit->SetFocus();
        return edit;
    };
    TEdit* edit = fresh();
    edit->OnChange = [](TObject* sender) { delete sender; };
    TypeText(u"a");
    edit = fresh();
    edit->OnKeyPress = [](TObject* sender, char16_t&) { delete sender; };
    PressKey('A', {ssCtrl});
    edit = fresh();
    edit->OnExit = [](TObject* sender) { delete sender; };
    Other.SetFocus();
    edit = fresh();
    Other.SetFocus();
    edit->OnClick = [](TObject* sender) { delete sender; };
    ClickOn(*edit);
    edit = new TEdit(nullptr);
    edit->OnChange = [](TObject* sender) { delete sender; };
    edit->SetText(u"a");
    TheApplication().ProcessMessages();
    EXPECT_EQ(Form->GetControlCount(), 1);
}

} // namespace
