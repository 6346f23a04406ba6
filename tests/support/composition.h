#pragma once

// A person who composes characters with an input method.

#include "framework/windows/application.h"

#include <gtest/gtest.h>
#include <imm.h>

namespace testsupport {

/// Composes a text in the window with the focus and takes it; `whileComposing` runs before it is taken.
inline void ComposeText(
    framework::StringView text, const std::function<void()>& whileComposing = [] {}) {
    const HWND window = GetFocus();
    const HIMC context = ImmGetContext(window);
    ASSERT_NE(context, nullptr);
    ImmSetOpenStatus(context, TRUE);
    framework::String composed(text);
    EXPECT_TRUE(ImmSetCompositionStringW(context, SCS_SETSTR, composed.data(),
                                         static_cast<DWORD>(composed.size() * sizeof(char16_t)), nullptr, 0));
    framework::TheApplication().ProcessMessages();
    whileComposing();
    EXPECT_TRUE(ImmNotifyIME(context, NI_COMPOSITIONSTR, CPS_COMPLETE, 0));
    ImmReleaseContext(window, context);
    framework::TheApplication().ProcessMessages();
}

} // namespace testsupport
