#pragma once

// The popup of extra letters, clicked.

#include "controls/Extrasigns.h"
#include "framework/windows/application.h"
#include "tests/support/input.h"

#include <gtest/gtest.h>

namespace testsupport {

/// Clicks the key that stands for a small letter, and lets what follows happen.
inline void ClickSign(ZOR::Textrasignsfrm& popup, char16_t letter) {
    for (const ZOR::KEYDEF& key : popup.GetKeys()) {
        if (key.lower != letter)
            continue;
        ClickOn(popup, {(key.rect.Left + key.rect.Right) / 2, (key.rect.Top + key.rect.Bottom) / 2});
        framework::TheApplication().ProcessMessages();
        return;
    }
    ADD_FAILURE() << "no key for this letter";
}

} // namespace testsupport
