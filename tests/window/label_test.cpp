// Labels: their size, the way their accelerator leads, and what they paint.

#include "framework/graphics/textmetrics.h"
#include "framework/windows/edit.h"
#include "framework/windows/label.h"
#include "framework/windows/panel.h"
#include "tests/support/input.h"

#include <gtest/gtest.h>
#include <oleacc.h>

using namespace framework;
using namespace testsupport;

namespace {

const String kLongText = u"the quick brown fox jumps over the lazy dog";

TSize PlainExtent(const TLabel& label, StringView text) {
    return TTextMeasure(*label.GetFont()).Extent(text);
}

int LinesOf(const TLabel& label) {
    const int line = PlainExtent(label, u"x").Height;
    EXPECT_EQ(label.GetHeight() % line, 0);
    return label.GetHeight() / line;
}

TEST(LabelSize, FollowsWhatIsShown) {
    TLabel label(nullptr);
    struct TRow {
        const char16_t* Caption;
        bool ShowAccelChar;
        const char16_t* Shown;
    };
    for (const TRow& row : {TRow{u"Name", true, u"Name"}, TRow{u"&Name", true, u"Name"}, TRow{u"R&&D", true, u"R&D"},
                            TRow{u"&Name", false, u"&Name"}, TRow{u"", true, u" "}}) {
        label.SetShowAccelChar(row.ShowAccelChar);
        label.SetText(row.Caption);
        const TSize shown = PlainExtent(label, row.Shown);
        EXPECT_EQ(label.GetWidth(), shown.Width) << label.GetWidth();
        EXPECT_EQ(label.GetHeight(), shown.Height);
    }
    label.SetText(u"two\nlines");
    EXPECT_EQ(LinesOf(label), 2);
    label.GetFont()->SetSize(24);
    EXPECT_EQ(label.GetWidth(), PlainExtent(label, u"lines").Width);
    label.SetAutoSize(false);
    label.SetText(kLongText);
    EXPECT_EQ(LinesOf(label), 2) << "a fixed label keeps its size";
}

TEST(LabelSize, WrapsWithinItsWidth) {
    TLabel label(nullptr);
    label.SetWordWrap(true);
    label.SetWidth(90);
    label.SetText(kLongText);
    EXPECT_LE(label.GetWidth(), 90);
    EXPECT_GE(LinesOf(label), 3);
    const int wrapped = label.GetWidth();
    label.AdjustBounds();
    EXPECT_EQ(label.GetWidth(), wrapped) << "measuring again finds the same lines";
    // A caption beside a field is laid out as if there were room without end, unless it has a limit.
    label.SetBounds(0, 0, 9999, 0);
    label.AdjustBounds();
    EXPECT_EQ(label.GetWidth(), PlainExtent(label, kLongText).Width);
    EXPECT_EQ(LinesOf(label), 1);
    label.GetConstraints()->SetMaxWidth(70);
    label.AdjustBounds();
    EXPECT_LE(label.GetWidth(), 70);
    EXPECT_GE(LinesOf(label), 4);
}

TEST(LabelSize, KeepsTheEdgeThatItIsAlignedTo) {
    TLabel label(nullptr);
    struct TRow {
        TAlignment Alignment;
        TBiDiMode BiDiMode;
        bool RightEdgeStays;
    };
    for (const TRow& row : {TRow{taLeftJustify, bdLeftToRight, false}, TRow{taRightJustify, bdLeftToRight, true},
                            TRow{taLeftJustify, bdRightToLeft, true}, TRow{taRightJustify, bdRightToLeft, false},
                            TRow{taRightJustify, bdRightToLeftNoAlign, true}}) {
        label.SetAlignment(row.Alignment);
        label.SetBiDiMode(row.BiDiMode);
        label.SetText(u"short");
        label.SetLeft(200);
        const int right = label.GetLeft() + label.GetWidth();
        label.SetText(u"quite a bit longer");
        if (row.RightEdgeStays)
            EXPECT_EQ(label.GetLeft() + label.GetWidth(), right);
        else
            EXPECT_EQ(label.GetLeft(), 200);
    }
}

TEST(LabelSize, SpansItsParentAndWrapsAnewWithIt) {
    const auto form = ShowForm();
    TLabel label(nullptr);
    label.SetWordWrap(true);
    label.SetAlign(alTop);
    label.SetParent(form.get());
    label.SetText(kLongText);
    EXPECT_EQ(label.GetWidth(), form->GetClientWidth());
    const int lines = LinesOf(label);
    TPanel below(nullptr);
    below.SetAlign(alClient);
    below.SetParent(form.get());
    form->SetClientWidth(120);
    EXPECT_EQ(label.GetWidth(), 120);
    EXPECT_GT(LinesOf(label), lines);
    EXPECT_EQ(below.GetTop(), label.GetHeight()) << "what lies below makes room";
    form->SetClientWidth(380);
    EXPECT_EQ(LinesOf(label), lines);
}

class LabelOnForm : public testing::Test {
protected:
    LabelOnForm() {
        First.SetParent(Form.get());
        Second.SetParent(Form.get());
        Label.SetParent(Form.get());
        Second.SetTop(40);
        Label.SetBounds(10, 100, 0, 0);
        Label.SetText(u"S&econd");
        First.SetFocus();
    }

    std::unique_ptr<TForm> Form = ShowForm();
    TEdit First{nullptr};
    TEdit Second{nullptr};
    TLabel Label{nullptr};
};

TEST_F(LabelOnForm, AcceleratorLeadsToItsControl) {
    PressKey('E', {ssAlt});
    EXPECT_TRUE(First.Focused()) << "there is no control to lead to yet";
    Label.SetFocusControl(&Second);
    Label.SetEnabled(false);
    PressKey('E', {ssAlt});
    EXPECT_TRUE(First.Focused());
    Label.SetEnabled(true);
    Label.SetShowAccelChar(false);
    PressKey('E', {ssAlt});
    EXPECT_TRUE(First.Focused());
    Label.SetShowAccelChar(true);
    PressKey('E', {ssAlt});
    EXPECT_TRUE(Second.Focused());
    EXPECT_EQ(Second.GetText(), u"") << "the key itself is not typed";
}

TEST_F(LabelOnForm, ForgetsAControlThatDies) {
    auto third = std::make_unique<TEdit>(nullptr);
    third->SetParent(Form.get());
    Label.SetFocusControl(third.get());
    third.reset();
    EXPECT_EQ(Label.GetFocusControl(), nullptr);
    PressKey('E', {ssAlt});
    EXPECT_TRUE(First.Focused());
    // A label that dies first must not be told.
    auto other = std::make_unique<TLabel>(nullptr);
    other->SetFocusControl(&Second);
    other.reset();
    Second.SetParent(nullptr);
}

TEST_F(LabelOnForm, IsTheNameThatAScreenReaderTells) {
    // As another program asks: by a message to the window.
    const auto ask = [&](auto question) {
        void* object = nullptr;
        EXPECT_EQ(AccessibleObjectFromWindow(Second.GetHandle(), static_cast<DWORD>(OBJID_CLIENT),
                                             __uuidof(IAccessible), &object),
                  S_OK);
        auto* accessible = static_cast<IAccessible*>(object);
        VARIANT self{};
        self.vt = VT_I4;
        self.lVal = CHILDID_SELF;
        BSTR answer = nullptr;
        if (accessible) {
            (accessible->*question)(self, &answer);
            accessible->Release();
        }
        String text = answer ? FromWide(answer, SysStringLen(answer)) : String();
        SysFreeString(answer);
        return text;
    };
    const String unnamed = ask(&IAccessible::get_accName); // as the system does it
    Label.SetFocusControl(&Second);
    EXPECT_EQ(ask(&IAccessible::get_accName), u"Second");
    EXPECT_EQ(ask(&IAccessible::get_accKeyboardShortcut), u"Alt+E");
    Label.SetText(u"R&&D");
    EXPECT_EQ(ask(&IAccessible::get_accName), u"R&D");
    EXPECT_EQ(ask(&IAccessible::get_accKeyboardShortcut), u"");
    Label.SetFocusControl(nullptr);
    EXPECT_EQ(ask(&IAccessible::get_accName), unnamed);
}

/// The box around all pixels of a colour within a control; empty when there are none.
TRect InkOf(TControl& control, COLORREF color) {
    TRect ink{control.GetWidth(), control.GetHeight(), 0, 0};
    for (int y = 0; y < control.GetHeight(); ++y) {
        for (int x = 0; x < control.GetWidth(); ++x) {
            if (PixelOf(control, {x, y}) != color)
                continue;
            ink = {std::min(ink.Left, x), std::min(ink.Top, y), std::max(ink.Right, x + 1),
                   std::max(ink.Bottom, y + 1)};
        }
    }
    return ink;
}

TEST_F(LabelOnForm, PaintsItsStateAndPlace) {
    constexpr COLORREF kRed = RGB(255, 0, 0);
    Label.SetAutoSize(false);
    Label.GetFont()->SetQuality(fqNonAntialiased);
    Label.GetFont()->SetColor(clRed);
    Label.SetBounds(10, 100, 60, 40);
    Label.SetText(u"HH");
    const TSize text = PlainExtent(Label, u"HH");
    ASSERT_LT(text.Width, 30);
    ASSERT_LT(text.Height, 20);

    TRect ink = InkOf(Label, kRed);
    EXPECT_FALSE(ink.IsEmpty());
    EXPECT_TRUE(ink.Right <= text.Width && ink.Bottom <= text.Height);
    Label.SetAlignment(taRightJustify);
    EXPECT_GE(InkOf(Label, kRed).Left, 60 - text.Width);
    Label.SetAlignment(taCenter);
    ink = InkOf(Label, kRed);
    EXPECT_NEAR(ink.Left, 60 - ink.Right, 4) << "but for the air around the letters";
    Label.SetLayout(tlCenter);
    const TRect centred = InkOf(Label, kRed);
    EXPECT_EQ(centred.Top, ink.Top + (40 - text.Height) / 2);
    Label.SetLayout(tlBottom);
    EXPECT_EQ(InkOf(Label, kRed).Top, ink.Top + 40 - text.Height);
    Label.SetEnabled(false);
    EXPECT_TRUE(InkOf(Label, kRed).IsEmpty());
    EXPECT_FALSE(InkOf(Label, ColorToRGB(clGrayText)).IsEmpty());
    Label.SetColor(clLime);
    EXPECT_EQ(PixelOf(Label, {2, 2}), ColorToRGB(Form->GetColor())) << "transparent until told otherwise";
    Label.SetTransparent(false);
    EXPECT_EQ(PixelOf(Label, {2, 2}), RGB(0, 255, 0));
}

} // namespace
