#pragma once

// The message box that the program shows, as scripts see it: `wait for MessageBox`, `expect MessageBox.Text = "Done"`.

#include "framework/graphics/win32.h"
#include "framework/system/objects.h"

namespace gallery {
using namespace framework;

class TMessageBoxView : public TPersistent {
    FRAMEWORK_CLASS(TMessageBoxView)

public:
    FRAMEWORK_READ_PROPERTY(String, Caption, GetCaption);
    FRAMEWORK_READ_PROPERTY(String, Text, GetText);

    /// Null while there is none.
    HWND Find() const;
    /// Empty while there is none.
    String GetCaption() const;
    String GetText() const;
};

} // namespace gallery
