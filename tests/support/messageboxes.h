#pragma once

// A person who reads message boxes and presses a button.

#include "framework/graphics/win32.h"
#include "framework/windows/timer.h"

#include <vector>

namespace testsupport {

struct TMessageBox {
    framework::String Caption;
    framework::String Text;
    bool HasErrorIcon = false;
    HWND Owner = nullptr;
    friend bool operator==(const TMessageBox& left, const TMessageBox& right) {
        return left.Caption == right.Caption && left.Text == right.Text;
    }
};

/// Answers each box that this thread shows while the object lives, and keeps what it said.
class TBoxReader {
public:
    TBoxReader();

    std::vector<TMessageBox> Seen;
    /// The button that is pressed: ID...
    int Answer = IDOK;
    /// Called before a box is answered.
    std::function<void()> OnBox;

private:
    void Look();

    HWND FAnswered = nullptr;
    framework::TTimer FTimer{nullptr};
};

} // namespace testsupport
