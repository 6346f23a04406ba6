// The framed date-time picker: its frame in every state, its check box, and errors that end with an entered value.

#include "datetime/Zordatetimepicker.h"
#include "framework/graphics/handles.h"
#include "framework/windows/application.h"
#include "framework/windows/edit.h"
#include "tests/support/input.h"

#include <gtest/gtest.h>

using namespace framework;
using namespace ZOR;
using namespace testsupport;

namespace {

const TDateTime kDay = EncodeDate(2024, 3, 15);

/// Counts the non-client paintings it is asked for.
class TCountingPicker : public TZORDateTimePicker {
public:
    explicit TCountingPicker(TComponent* owner) : TZORDateTimePicker(owner) {}
    void WndProc(TMessage& message) override {
        FramesAsked += message.Msg == WM_NCPAINT ? 1 : 0;
        TZORDateTimePicker::WndProc(message);
    }
    int FramesAsked = 0;
};

class FramedPicker : public testing::Test {
protected:
    void SetUp() override {
        Other.SetParent(Form.get());
        Other.SetBounds(200, 200, 100, 21);
        Picker = std::make_unique<TCountingPicker>(nullptr);
        Picker->DateTime = kDay + 0.5;
        Picker->Parent = Form.get();
        Picker->SetBounds(100, 40, 150, 22);
        Other.SetFocus();
        Application->ProcessMessages();
    }
    COLORREF Corner() {
        Form->Update();
        Picker->Update();
        Application->ProcessMessages();
        const TWindowDC dc(Picker->GetHandle(), TWindowDC::Whole);
        return GetPixel(dc, 0, 10);
    }

    std::unique_ptr<TForm> Form = ShowForm();
    TEdit Other{nullptr};
    std::unique_ptr<TCountingPicker> Picker;
};

TEST_F(FramedPicker, ShowsItsFrameOverTheNativePainting) {
    const struct {
        const char* Name;
        TWymagany State;
        bool Ctl3D;
        COLORREF Frame;
    } rows[] = {
        {"required", wRequired, true, 0xDD9746},
        {"recommended", wRecommended, true, 0x46C265},
        {"error", wError, true, 0x0000FF},
        {"none, flat", wNone, false, 0x808080},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.Name);
        Picker->Ctl3D = row.Ctl3D;
        Picker->Wymagany = row.State;
        EXPECT_EQ(Corner(), row.Frame);
        Picker->Repaint();
        EXPECT_EQ(Corner(), row.Frame);
        MoveMouse(Picker->ClientToScreen({75, 10}));
        EXPECT_EQ(Corner(), row.Frame) << "under the pointer";
        MoveMouse(Form->ClientToScreen({5, 5}));
        Picker->Width = Picker->Width == 150 ? 160 : 150;
        EXPECT_EQ(Corner(), row.Frame) << "resized";
        Picker->SetFocus();
        EXPECT_EQ(Corner(), row.Frame) << "entered";
        Other.SetFocus();
        EXPECT_EQ(Corner(), row.Frame) << "left";
    }
    Picker->Ctl3D = true;
    Picker->Wymagany = wNone;
    EXPECT_NE(Corner(), 0x808080u);
    const HWND window = Picker->GetHandle();
    Picker->FramesAsked = 0;
    Picker->Ctl3D = true;
    EXPECT_EQ(Picker->FramesAsked, 0);
    Picker->Ctl3D = false;
    EXPECT_GT(Picker->FramesAsked, 0);
    EXPECT_EQ(Picker->GetHandle(), window) << "the window stays";
    Picker->BoundLabel->Caption = u"From";
    Picker->BoundLabel->Active = true;
    Picker->Left = 120;
    EXPECT_EQ(Picker->BoundLabel->Label->Left + Picker->BoundLabel->Label->Width + 8, 120);
}

TEST_F(FramedPicker, AnEnteredValueEndsAnError) {
    Picker->Wymagany = wRecommended;
    Picker->Wymagany = wError;
    Picker->Format = u"yyyy'-'MM'-'dd";
    Picker->SetFocus();
    Application->ProcessMessages();
    Other.SetFocus();
    EXPECT_EQ(Picker->Wymagany, wError) << "leaving alone does not";
    Picker->SetFocus();
    Application->ProcessMessages();
    PressKey(VK_RIGHT);
    PressKey(VK_UP);
    EXPECT_NE(Picker->DateTime, kDay + 0.5);
    EXPECT_EQ(Picker->Wymagany, wRecommended);
    Picker->Enabled = false;
    EXPECT_EQ(Picker->Wymagany, wNone);
    Picker->Enabled = true;
    EXPECT_EQ(Picker->Wymagany, wRecommended);
}

TEST_F(FramedPicker, KeepsTheOppositeOfItsCheck) {
    Picker->ShowCheckbox = true;
    for (const bool checked : {false, true, true, false, false, true}) {
        Picker->Checked = checked;
        EXPECT_EQ(Picker->Checked, checked);
        EXPECT_EQ(Picker->GetInvertedCheck(), !checked);
    }
    int changes = 0;
    Picker->OnChange = [&](TObject*) { ++changes; };
    Picker->SetFocus();
    ClickOn(*Picker, {9, 10});
    EXPECT_TRUE(WaitFor([&] { return !Picker->Checked; }));
    EXPECT_TRUE(Picker->GetInvertedCheck());
    EXPECT_EQ(changes, 1);
}

TEST_F(FramedPicker, MayDieAsItTells) {
    Picker->Wymagany = wError;
    Picker->OnChange = [&](TObject*) { Picker.reset(); };
    Picker->SetFocus();
    Application->ProcessMessages();
    PressKey(VK_RIGHT);
    PressKey(VK_UP);
    EXPECT_EQ(Picker, nullptr);
}

} // namespace
