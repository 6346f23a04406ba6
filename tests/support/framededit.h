#pragma once

// A framed edit on a form with another one to go to, and a person who clicks letters in its popup.

#include "controls/Zoredit.h"
#include "framework/windows/application.h"
#include "framework/windows/mouse.h"
#include "tests/support/input.h"

#include <gtest/gtest.h>

namespace testsupport {

using namespace framework;
using namespace ZOR;

class FramedEdit : public testing::Test {
protected:
    void SetUp() override {
        Form = ShowForm();
        Edit = Add(u"Edit", 40);
        Other = Add(u"Other", 100);
        Other->SetFocus();
        Application->OnException = [this](TObject*, const std::exception& error) { Errors.emplace_back(error.what()); };
    }
    void TearDown() override {
        Form.reset();
        Application->ProcessMessages();
        Application->OnException = nullptr;
        EXPECT_TRUE(Errors.empty()) << Errors.front();
    }

    TZOREdit* Add(const String& name, int top) {
        auto* edit = new TZOREdit(Form.get());
        edit->Name = name;
        edit->Parent = Form.get();
        edit->SetBounds(150, top, 121, 21);
        return edit;
    }
    void Leave() {
        Other->SetFocus();
        Application->ProcessMessages();
    }
    void Paint() {
        Form->Update();
        Application->ProcessMessages();
    }
    /// Clicks a key of the popup that stands for a letter.
    template <class TField>
    void ClickSign(TField& edit, char16_t lower, TShiftState modifiers = {}) {
        Textrasignsfrm& popup = *edit.GetExtraSignsForm();
        for (const KEYDEF& key : popup.GetKeys()) {
            if (key.lower != lower)
                continue;
            const TPoint middle{(key.rect.Left + key.rect.Right) / 2, (key.rect.Top + key.rect.Bottom) / 2};
            // The pointer first: Wine takes the modifier keys anew from the display when it moves.
            // On a busy machine the display may lead it back, long after it arrived.
            bool isThere = false;
            for (int attempt = 0; attempt < 5 && !isThere; ++attempt) {
                MoveMouse(popup.ClientToScreen(middle));
                isThere = WaitFor([&] { return MouseTracker().GetControl() == &popup; }, 1000);
            }
            ASSERT_TRUE(isThere);
            const bool shift = modifiers.Contains(ssShift);
            if (shift)
                HoldKey(VK_SHIFT, true);
            ASSERT_TRUE(WaitFor([&] { return (GetAsyncKeyState(VK_SHIFT) < 0) == shift; }));
            popup.Perform(WM_LBUTTONDOWN, MK_LBUTTON, PointToLParam(middle));
            popup.Perform(WM_LBUTTONUP, 0, PointToLParam(middle));
            if (shift)
                HoldKey(VK_SHIFT, false);
            Application->ProcessMessages();
        }
    }
    static void HoldKey(WORD key, bool down) {
        INPUT input{};
        input.type = INPUT_KEYBOARD;
        input.ki.wVk = key;
        input.ki.dwFlags = down ? 0 : KEYEVENTF_KEYUP;
        SendInput(1, &input, sizeof(input));
    }

    std::unique_ptr<TForm> Form;
    TZOREdit* Edit = nullptr;
    TZOREdit* Other = nullptr;
    std::vector<std::string> Errors;
};

} // namespace testsupport
