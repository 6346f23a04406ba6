// Text of several lines, plain and formatted: lines and their ends, keys that lead out, large pastes, streams.

#include "framework/system/strings.h"
#include "framework/windows/application.h"
#include "framework/windows/button.h"
#include "framework/windows/clipboard.h"
#include "framework/windows/richedit.h"
#include "tests/support/input.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <richedit.h>
#include <sstream>

using namespace framework;
using namespace testsupport;

namespace {

/// Runs with a memo and with a rich edit, which claim the same behaviour.
template <class T>
class Memo : public testing::Test {
protected:
    void SetUp() override {
        Form = ShowForm();
        Edit = new T(Form.get());
        Edit->OnChange = [this](TObject*) { ++Changes; };
    }
    void GiveWindow() {
        Edit->Parent = Form.get();
        Edit->SetBounds(10, 10, 200, 100);
        Edit->HandleNeeded();
        Edit->SetFocus();
        Application->ProcessMessages();
        Changes = 0;
    }
    int TakeChanges() { return std::exchange(Changes, 0); }

    std::unique_ptr<TForm> Form;
    T* Edit = nullptr;
    int Changes = 0;
};

using MemoClasses = testing::Types<TMemo, TRichEdit>;
TYPED_TEST_SUITE(Memo, MemoClasses);

TYPED_TEST(Memo, LinesAndTextAreOne) {
    for (const bool withWindow : {false, true}) {
        SCOPED_TRACE(withWindow ? "with a window" : "without a window");
        if (withWindow)
            this->GiveWindow();
        TStrings& lines = *this->Edit->Lines;
        lines.Text = u"one\r\ntwo";
        EXPECT_EQ(lines.Count, 2);
        lines.Add(u"three");
        EXPECT_EQ(this->Edit->GetText(), u"one\r\ntwo\r\nthree\r\n");
        lines.Insert(0, u"zero");
        lines.Put(2, u"TWO");
        lines.Delete(1);
        lines.Add(u"");
        EXPECT_EQ(lines.CommaText, u"zero,TWO,three,");
        EXPECT_EQ(lines.Get(2), u"three");
        lines.Delete(3);
        lines.Delete(2);
        EXPECT_EQ(this->Edit->GetText(), u"zero\r\nTWO\r\n");
        EXPECT_THROW(lines.Get(2), EListError);
        lines.Text = u"a\nb\rc\r\n\r\nd"; // ends of every kind
        EXPECT_EQ(this->Edit->GetText(), u"a\r\nb\r\nc\r\n\r\nd");
        EXPECT_EQ(lines.Count, 5);
        this->Edit->SelStart = 1;
        this->Edit->SelText = u"A\n"; // and inserted ones
        EXPECT_EQ(lines.CommaText, u"aA,,b,c,,d");
        lines.Delete(1);
        lines.Put(0, u"a");
        lines.Exchange(0, 4);
        EXPECT_EQ(lines.CommaText, u"d,b,c,,a");
        lines.Clear();
        EXPECT_EQ(lines.Count, 0);
        EXPECT_EQ(this->Edit->GetText(), u"");
    }
}

TYPED_TEST(Memo, TellsOfEachChangeOnce) {
    this->GiveWindow();
    this->Edit->Text = u"set";
    EXPECT_EQ(this->TakeChanges(), 1);
    this->Edit->Text = u"set";
    EXPECT_EQ(this->TakeChanges(), 0) << "the same text is no change";
    this->Edit->Lines->CommaText = u"a,b,c";
    EXPECT_EQ(this->TakeChanges(), 1);
    this->Edit->Lines->Add(u"d");
    EXPECT_EQ(this->TakeChanges(), 1);
    TypeText(u"x");
    EXPECT_TRUE(WaitFor([&] { return this->Changes > 0; }));
    Application->ProcessMessages();
    EXPECT_EQ(this->TakeChanges(), 1);
}

TYPED_TEST(Memo, KeysThatLeadOut) {
    this->GiveWindow();
    TButton ok(nullptr);
    ok.Parent = this->Form.get();
    ok.SetBounds(10, 150, 75, 25);
    ok.Default = true;
    ok.Cancel = true;
    int clicks = 0;
    ok.OnClick = [&](TObject*) { ++clicks; };
    TypeText(u"a");
    PressKey(VK_RETURN);
    TypeText(u"b");
    EXPECT_TRUE(WaitFor([&] { return this->Edit->GetText() == u"a\r\nb"; }));
    PressKey(VK_ESCAPE);
    EXPECT_TRUE(WaitFor([&] { return clicks == 1; })) << "Esc is the cancel button's";
    this->Edit->WantReturns = false;
    PressKey(VK_RETURN);
    EXPECT_TRUE(WaitFor([&] { return clicks == 2; }));
    EXPECT_EQ(this->Edit->GetText(), u"a\r\nb");

    this->Edit->WantTabs = true;
    PressKey(VK_TAB);
    EXPECT_TRUE(WaitFor([&] { return this->Edit->GetText() == u"a\r\nb\t"; }));
    PressKey(VK_TAB, {ssShift});
    EXPECT_TRUE(WaitFor([&] { return ok.Focused(); })) << "there is a way out by the keyboard";
    this->Edit->WantTabs = false;
    this->Edit->SetFocus();
    PressKey(VK_TAB);
    EXPECT_TRUE(WaitFor([&] { return ok.Focused(); }));
}

TYPED_TEST(Memo, TakesAMegabyteFromTheClipboard) {
    this->GiveWindow();
    String text;
    while (text.size() < (1u << 20))
        text += u"The quick brown fox jumps over the lazy dog and comes back. \u0105\u0119\n";
    ASSERT_TRUE(SetClipboardText(this->Form->Handle, text));
    PressKey('V', {ssCtrl});
    const String expected = StringReplace(text, u"\n", u"\r\n", TReplaceFlags() << rfReplaceAll);
    EXPECT_TRUE(WaitFor([&] { return this->Edit->GetTextLen() == static_cast<int>(expected.size()); }, 30000))
        << this->Edit->GetTextLen() << " of " << expected.size();
    EXPECT_TRUE(this->Edit->GetText() == expected);
    EXPECT_EQ(this->Edit->Lines->Count, std::count(text.begin(), text.end(), u'\n'));
    EXPECT_EQ(this->Edit->Lines->Get(777).size(), 62u);

    // A fresh one, as Wine takes minutes to delete a megabyte from a rich edit window.
    delete this->Edit;
    this->Edit = new TypeParam(this->Form.get());
    this->GiveWindow();
    this->Edit->MaxLength = 100;
    this->Edit->PasteFromClipboard();
    EXPECT_LE(this->Edit->GetTextLen(), 102); // rich text counts a line end once
    EXPECT_GE(this->Edit->GetTextLen(), 99);

    this->Edit->Text = u"a\r\nb";
    this->Edit->MaxLength =
        std::is_same_v<TypeParam, TRichEdit> ? 6 : 8; // room for a line end, a letter and half a face
    ASSERT_TRUE(SetClipboardText(this->Form->Handle, u"\nc\U0001F600"));
    this->Edit->SelStart = 4;
    this->Edit->PasteFromClipboard();
    EXPECT_EQ(Utf8Encode(this->Edit->GetText()), "a\r\nb\r\nc");
}

TYPED_TEST(Memo, KeepsItsStateInANewWindow) {
    this->GiveWindow();
    this->Edit->ScrollBars = ssVertical;
    for (int i = 0; i < 40; ++i)
        this->Edit->Lines->Add(u"line " + IntToHex(i, 2));
    this->Edit->SelStart = 30;
    this->Edit->SelLength = 5;
    const String text = this->Edit->Text;
    const String selected = this->Edit->SelText;
    this->TakeChanges();
    this->Edit->WordWrap = false; // makes a new window
    EXPECT_EQ(this->Edit->GetText(), text);
    EXPECT_EQ(this->Edit->SelText, selected);
    EXPECT_EQ(this->Edit->SelStart, 30);
    EXPECT_TRUE(this->Edit->Focused());
    EXPECT_EQ(this->TakeChanges(), 0);
    this->Edit->Parent = nullptr;
    EXPECT_EQ(this->Edit->Lines->Count, 40);
}

TYPED_TEST(Memo, LinesInStreamsAndFiles) {
    this->GiveWindow();
    std::istringstream utf8("\xEF\xBB\xBFza\xC5\xBC\xC3\xB3\xC5\x82\xC4\x87\ng\xC4\x99\xC5\x9Bl\xC4\x85");
    this->Edit->Lines->LoadFromStream(utf8);
    EXPECT_EQ(Utf8Encode(this->Edit->Text), "zażółć\r\ngęślą");
    std::istringstream utf16(std::string("\xFF\xFE\x41\x00\x7A\x01", 6));
    this->Edit->Lines->LoadFromStream(utf16);
    EXPECT_EQ(Utf8Encode(this->Edit->Text), "Aź");
    std::istringstream other("za\xBF\xF3\xB3\xE6"); // code page 1250
    EXPECT_THROW(this->Edit->Lines->LoadFromStream(other), EConvertError);
    EXPECT_EQ(Utf8Encode(this->Edit->Text), "Aź");
    this->Edit->Lines->SaveToFile(u"memo_test.tmp");
    this->Edit->Text = u"";
    this->Edit->Lines->LoadFromFile(u"memo_test.tmp");
    EXPECT_EQ(Utf8Encode(Trim(this->Edit->GetText())), "A\xC5\xBA");
    std::filesystem::remove(u"memo_test.tmp");
    EXPECT_THROW(this->Edit->Lines->LoadFromFile(u"no/such/file"), EFOpenError);
    EXPECT_THROW(this->Edit->Lines->SaveToFile(u"no/such/folder/file"), EFCreateError);
}

// Formatting

class RichEdit : public testing::Test {
protected:
    void SetUp() override {
        Form = ShowForm();
        Edit = new TRichEdit(Form.get());
        Edit->Parent = Form.get();
        Edit->SetBounds(10, 10, 300, 150);
    }
    bool IsBold(int start, int length) {
        Edit->SelStart = start;
        Edit->SelLength = length;
        CHARFORMATW format{};
        format.cbSize = sizeof(format);
        SendMessageW(Edit->Handle, EM_GETCHARFORMAT, SCF_SELECTION, reinterpret_cast<LPARAM>(&format));
        // The mask tells what all of the selection has in common.
        return (format.dwMask & CFM_BOLD) != 0 && (format.dwEffects & CFE_BOLD) != 0;
    }

    std::unique_ptr<TForm> Form;
    TRichEdit* Edit = nullptr;
};

TEST_F(RichEdit, LoadsAndSavesRtf) {
    std::istringstream in("{\\rtf1\\ansi\\ansicpg1250 plain {\\b bold} and \\u380?\\par second}");
    Edit->Lines->LoadFromStream(in);
    EXPECT_EQ(Utf8Encode(Trim(Edit->Text)), "plain bold and \xC5\xBC\r\nsecond");
    EXPECT_EQ(Edit->Lines->Get(1), u"second");
    EXPECT_TRUE(IsBold(6, 4));
    EXPECT_FALSE(IsBold(0, 5));
    EXPECT_EQ(Edit->SelText, u"plain");

    std::ostringstream out;
    Edit->Lines->SaveToStream(out);
    EXPECT_TRUE(out.str().starts_with("{\\rtf")) << out.str();
    Edit->Text = u"";
    EXPECT_FALSE(IsBold(0, 0));
    std::istringstream again(out.str());
    Edit->Lines->LoadFromStream(again);
    EXPECT_TRUE(IsBold(6, 4));

    Edit->HideScrollBars = false; // makes a new window
    EXPECT_TRUE(IsBold(6, 4)) << "formatting survives a new window";
    Edit->Parent = nullptr;
    EXPECT_EQ(Edit->Lines->Get(1), u"second");
    Edit->Parent = Form.get();
    EXPECT_TRUE(IsBold(6, 4));

    Edit->PlainText = true;
    std::ostringstream plain;
    Edit->Lines->SaveToStream(plain);
    EXPECT_EQ(Utf8Encode(Trim(Utf8Decode(plain.str()))), "plain bold and \xC5\xBC\r\nsecond");
}

TEST_F(RichEdit, AlignsItsText) {
    Edit->Text = u"abc";
    const auto left = [&] {
        POINTL at{};
        SendMessageW(Edit->Handle, EM_POSFROMCHAR, reinterpret_cast<WPARAM>(&at), 0);
        return at.x;
    };
    EXPECT_LT(left(), 10);
    Edit->Alignment = taRightJustify;
    EXPECT_GT(left(), 200);
    Edit->Text = u"def";
    EXPECT_GT(left(), 200) << "a new text, too";
    Edit->Parent = nullptr;
    Edit->Text = u"ghi"; // without a window
    Edit->Parent = Form.get();
    EXPECT_GT(left(), 200);
    std::istringstream formatted("{\\rtf1\\ansi\\pard\\ql abc\\par}");
    Edit->Lines->LoadFromStream(formatted);
    Edit->RecreateWnd();
    EXPECT_LT(left(), 10) << "what is formatted has its own";
    Edit->Alignment = taCenter;
    EXPECT_GT(left(), 100);
}

} // namespace
