// Masked fields under real input: typing, pasting, input methods, leaving with an incomplete entry, and the life of the
// window.

#include "framework/windows/application.h"
#include "framework/windows/clipboard.h"
#include "framework/windows/maskedit.h"
#include "tests/support/input.h"

#include <gtest/gtest.h>

using namespace framework;
using namespace testsupport;

namespace {

class MaskEditTest : public testing::Test {
protected:
    void SetUp() override {
        Form = ShowForm();
        Edit = Add<TMaskEdit>(20);
        Other = Add<TEdit>(60);
        Edit->OnChange = [this](TObject*) { ++Changes; };
        Application->OnException = [this](TObject*, const std::exception& error) { Errors.emplace_back(error.what()); };
    }
    void TearDown() override {
        Form.reset();
        Application->OnException = nullptr;
        EXPECT_TRUE(Errors.empty()) << Errors.front();
    }
    template <class T>
    T* Add(int top) {
        auto* control = new T(Form.get());
        control->Parent = Form.get();
        control->SetBounds(20, top, 150, 21);
        return control;
    }
    void Use(const String& mask, const String& text = {}) {
        Other->SetFocus();
        Edit->EditMask = mask;
        Edit->Text = text;
        Edit->SetFocus();
        Application->ProcessMessages();
        Changes = 0;
        Errors.clear();
    }
    /// Types a text; the field has it when a key behind it arrives, too.
    void Type(StringView text) {
        TypeText(text);
        Application->ProcessMessages();
    }
    bool Shows(const String& text) {
        return WaitFor([&] { return Edit->GetEditText() == text; });
    }
    std::string Error() {
        WaitFor([&] { return !Errors.empty(); });
        std::string error = Errors.empty() ? std::string() : Errors.front();
        Errors.clear();
        return error;
    }

    std::unique_ptr<TForm> Form;
    TMaskEdit* Edit = nullptr;
    TEdit* Other = nullptr;
    int Changes = 0;
    std::vector<std::string> Errors;
};

TEST_F(MaskEditTest, TakesWhatTheMaskAllows) {
    Use(u"(000) 000;0;_");
    EXPECT_EQ(Edit->EditText, u"(___) ___");
    EXPECT_EQ(Edit->Text, u"");
    Type(u"1a2");
    EXPECT_TRUE(Shows(u"(12_) ___"));
    EXPECT_EQ(Changes, 2) << "one change for each character that fits";
    Type(u"345678");
    EXPECT_TRUE(Shows(u"(123) 456"));
    EXPECT_EQ(Edit->Text, u"123456");
    PressKey(VK_BACK);
    PressKey(VK_LEFT);
    PressKey(VK_LEFT);
    PressKey(VK_DELETE);
    EXPECT_TRUE(Shows(u"(123) _5_"));
    for (const WORD back : {VK_LEFT, VK_UP}) {
        Edit->SelStart = 6;
        PressKey(back);
        EXPECT_TRUE(WaitFor([&] { return Edit->SelStart == 3 && Edit->SelLength == 1; })) << "over the bracket";
        PressKey(back == VK_LEFT ? VK_RIGHT : VK_DOWN);
        EXPECT_TRUE(WaitFor([&] { return Edit->SelStart == 6; }));
    }
    PressKey(VK_HOME);
    EXPECT_TRUE(WaitFor([&] { return Edit->SelStart == 1 && Edit->SelLength == 1; })) << "the caret skips literals";
    PressKey(VK_END);
    EXPECT_TRUE(WaitFor([&] { return Edit->SelStart == 9; }));
    ClickOn(*Edit, {3, 8}); // on the bracket
    EXPECT_TRUE(WaitFor([&] { return Edit->SelStart == 1; }));

    Edit->ReadOnly = true;
    const String before = Edit->EditText;
    Type(u"9");
    PressKey(VK_DELETE);
    PressKey(VK_BACK);
    Application->ProcessMessages();
    EXPECT_EQ(Edit->GetEditText(), before);
    Edit->SelStart = 6;
    Edit->SelText = u"8";
    EXPECT_EQ(Edit->EditText, u"(123) 85_") << "the program may";
}

TEST_F(MaskEditTest, EventsOfKeysComeFirst) {
    Use(u"99;0");
    Edit->OnKeyPress = [](TObject*, char16_t& key) { key = key == u'1' ? u'\0' : key == u'2' ? u'7' : key; };
    Type(u"123");
    EXPECT_TRUE(Shows(u"73"));
}

TEST_F(MaskEditTest, PastesCutsAndUndoes) {
    Use(u"99-99-9999;1;_");
    ASSERT_TRUE(SetClipboardText(Form->Handle, u"24.12.2026 and more"));
    Edit->SelectAll();
    PressKey('V', {ssCtrl});
    EXPECT_TRUE(Shows(u"24-12-2026"));
    EXPECT_EQ(Changes, 1);
    Edit->SelectAll();
    PressKey('X', {ssCtrl});
    EXPECT_TRUE(Shows(u"__-__-____"));
    EXPECT_EQ(ClipboardText(Form->Handle).value_or(u""), u"24-12-2026");
    Edit->Undo();
    EXPECT_TRUE(Shows(u"24-12-2026"));
    Edit->SelStart = 0;
    Edit->CutToClipboard();
    EXPECT_EQ(Edit->EditText, u"24-12-2026") << "nothing is selected";
    {
        const TClipboard elsewhere(Other->Handle);
        Edit->SelectAll();
        Edit->CutToClipboard();
        EXPECT_EQ(Edit->EditText, u"24-12-2026") << "another window has the clipboard";
    }
    Edit->SelText = u"1";
    EXPECT_EQ(Edit->EditText, u"1_-__-____") << "what is selected after the undo is replaced";

    ASSERT_TRUE(SetClipboardText(Form->Handle, String(1 << 20, u'7')));
    Edit->SelectAll();
    PressKey(VK_INSERT, {ssShift});
    EXPECT_TRUE(Shows(u"77-77-7777")) << "a text much longer than the mask";
}

TEST_F(MaskEditTest, IsNotLeftIncomplete) {
    Use(u"00-00;1;_");
    Type(u"12");
    ASSERT_TRUE(Shows(u"12-__"));
    PressKey(VK_TAB);
    EXPECT_EQ(Error(), "The entry \"12-__\" is not complete. Press Esc to undo it.");
    EXPECT_TRUE(Edit->Focused());
    EXPECT_EQ(Edit->SelStart, 3) << "at the first place that is missing";
    PressKey(VK_ESCAPE);
    EXPECT_TRUE(Shows(u"__-__"));
    PressKey(VK_TAB);
    EXPECT_TRUE(WaitFor([&] { return Other->Focused(); })) << "nothing entered is no incomplete entry";

    Use(u"00-00;0;_", u"1234");
    Type(u"9");
    ASSERT_TRUE(Shows(u"9_-__"));
    PressKey(VK_ESCAPE);
    EXPECT_TRUE(Shows(u"12-34")) << "Esc brings back a whole entry without saved literals";

    Use(u"00-00;1;_", u"1");
    PressKey(VK_TAB);
    EXPECT_TRUE(WaitFor([&] { return Other->Focused(); })) << "what the program has set is not the person's fault";
    EXPECT_THROW(Edit->ValidateEdit(), EDBEditError) << "but the program may ask";

    Use(u"00-99;1;_");
    Type(u"12");
    PressKey(VK_TAB);
    EXPECT_TRUE(WaitFor([&] { return Other->Focused(); })) << "optional places may stay empty";
}

TEST_F(MaskEditTest, MasksComeAndGo) {
    Edit->Text = u"1234";
    Edit->EditMask = u"99-99;1;_";
    EXPECT_EQ(Edit->EditText, u"12-34");
    EXPECT_THROW(Edit->EditMask = u"99;10;_", EMaskError);
    EXPECT_EQ(Edit->EditMask, u"99-99;1;_");
    EXPECT_EQ(Edit->Text, u"12-34");
    Edit->EditMask = u"0/0/0/0;0;*";
    EXPECT_EQ(Edit->Text, u"1234");
    Edit->EditText = u"";
    EXPECT_TRUE(Edit->IsEmpty());
    Edit->EditMask = u"";
    Edit->Text = u"any text \u0105";
    EXPECT_EQ(Edit->Text, u"any text \u0105");
}

TEST_F(MaskEditTest, LeavesComposedTextAlone) {
    Use(u"LLLL;0;_");
    const HWND window = Edit->Handle;
    // As an input method does it: the text grows in the window, is replaced, and stands when the composition ends.
    SendMessageW(window, WM_IME_STARTCOMPOSITION, 0, 0);
    SendMessageW(window, EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(L"ni"));
    const String during = Edit->EditText;
    EXPECT_NE(during.find(u"ni"), String::npos);
    EXPECT_NE(during, u"ni__") << "rewritten before the composition ended";
    EXPECT_EQ(Changes, 0);
    SendMessageW(window, EM_SETSEL, 0, 2);
    SendMessageW(window, EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(L"\u4F60\u597D1"));
    SendMessageW(window, WM_IME_ENDCOMPOSITION, 0, 0);
    EXPECT_EQ(Edit->EditText, u"\u4F60\u597D__") << "the digit has no place";
    EXPECT_EQ(Changes, 1);
    SendMessageW(window, WM_IME_STARTCOMPOSITION, 0, 0);
    SendMessageW(window, WM_IME_ENDCOMPOSITION, 0, 0);
    EXPECT_EQ(Edit->SelStart, 2) << "given up, a composition moves nothing";
    PressKey(VK_TAB);
    EXPECT_NE(Error().find("not complete"), std::string::npos) << "what was composed counts as entered";
    Type(u"a");
    EXPECT_TRUE(Shows(u"\u4F60\u597Da_"));
}

TEST_F(MaskEditTest, KeepsItsStateInANewWindow) {
    Use(u"99-99;1;_");
    Type(u"123");
    ASSERT_TRUE(Shows(u"12-3_"));
    const int start = Edit->SelStart;
    Edit->RecreateWnd();
    EXPECT_EQ(Edit->EditText, u"12-3_");
    EXPECT_EQ(Edit->SelStart, start);
    EXPECT_TRUE(Edit->Focused());
    Type(u"4");
    EXPECT_TRUE(Shows(u"12-34"));
    Edit->RecreateWnd();
    Edit->CharCase = ecUpperCase;
    PressKey(VK_ESCAPE);
    EXPECT_TRUE(Shows(u"__-__")) << "Esc knows what was there on entering";
}

} // namespace
