// A control that a newcomer adds: the framing comes from the library, the table from a few rows, and nothing is copied.

#include "controls/Zorscreenkeyboard.h"
#include "framework/graphics/handles.h"
#include "framework/windows/application.h"
#include "framework/windows/edit.h"
#include "tests/support/input.h"

#include <gtest/gtest.h>

namespace {

using namespace framework;
using namespace ZOR;
using namespace testsupport;

class TZORCodeEdit : public TZORScreenKeyboard<TZORFramed<TEdit>> {
    FRAMEWORK_CLASS(TZORCodeEdit)

public:
    FRAMEWORK_PROPERTY(bool, CheckDigit, GetCheckDigit, SetCheckDigit);

    explicit TZORCodeEdit(TComponent* owner) : TZORScreenKeyboard(owner) {}

    bool GetCheckDigit() const { return FCheckDigit; }
    void SetCheckDigit(bool value) { FCheckDigit = value; }

private:
    bool FCheckDigit = false;
};

const TClassInfo& TZORCodeEdit::StaticClass() {
    static const TClassInfo info = DescribeClass<TZORCodeEdit>(
        u"TZORCodeEdit", TEdit::StaticClass(),
        {framedrows::All<TZORCodeEdit>(),
         Property<&TZORCodeEdit::GetCheckDigit, &TZORCodeEdit::SetCheckDigit>(u"CheckDigit", false)});
    return info;
}

TEST(NewControl, HasTheFramingAndItsOwnProperty) {
    const auto form = ShowForm();
    TZORCodeEdit edit(form.get());
    edit.Parent = form.get();
    SetPropValue(edit, u"Wymagany", u"wRequired");
    SetPropValue(edit, u"CheckDigit", true);
    EXPECT_EQ(edit.Wymagany, wRequired);
    EXPECT_TRUE(edit.CheckDigit);
    EXPECT_FALSE(IsStoredProp(edit, GetPropInfo(edit, u"HintLabel")));
    edit.SetFocus();
    PressKey(VK_F7);
    EXPECT_TRUE(WaitFor([&] { return edit.GetExtraSignsForm() && edit.GetExtraSignsForm()->Showing; }));
    PressKey(VK_F7);
    EXPECT_TRUE(WaitFor([&] { return !edit.GetExtraSignsForm()->Showing; }));
}

constexpr TFraming kPlainFraming{.Requirement = PlainRequirement,
                                 .StateChanged = TFrameRepaint::Repaint,
                                 .EnabledChanged = TFrameRepaint::Invalidate,
                                 .BoundLabel = false,
                                 .HintInside = false};

class TPlainFramedEdit : public TZORFramed<TEdit, kPlainFraming> {
    FRAMEWORK_CLASS(TPlainFramedEdit)

public:
    explicit TPlainFramedEdit(TComponent* owner) : TZORFramed(owner) {}
};

const TClassInfo& TPlainFramedEdit::StaticClass() {
    static const TClassInfo info = DescribeClass<TPlainFramedEdit>(u"TPlainFramedEdit", TEdit::StaticClass(),
                                                                   {framedrows::Wymagany<TPlainFramedEdit>(),
                                                                    framedrows::OnValidateRequest<TPlainFramedEdit>(),
                                                                    framedrows::BorderColors<TPlainFramedEdit>()});
    return info;
}

TEST(NewControl, MayDifferByItsFraming) {
    const auto form = ShowForm();
    TPlainFramedEdit box(form.get());
    box.Parent = form.get();
    box.Text = u"filled";
    EXPECT_EQ(box.BoundLabel, nullptr);
    EXPECT_FALSE(IsPublishedProp(box, u"BoundLabel"));
    box.Wymagany = wError;
    box.SetFocus();
    TEdit other(form.get());
    other.Top = 60;
    other.Parent = form.get();
    other.SetFocus();
    EXPECT_EQ(box.Wymagany, wError) << "here only the program ends an error";
    const auto framePixel = [&] {
        const TWindowDC dc(box.Handle, TWindowDC::Whole);
        return GetPixel(dc, 0, 0);
    };
    EXPECT_EQ(framePixel(), 0x0000FFu) << "repainting a control takes its frame along";
    box.Wymagany = wRequired;
    EXPECT_EQ(framePixel(), 0xDD9746u);
    box.Enabled = false;
    Application->ProcessMessages();
    EXPECT_NE(framePixel(), 0xDD9746u);
    box.Enabled = true;
    Application->ProcessMessages();
    EXPECT_EQ(framePixel(), 0xDD9746u);
}

} // namespace
