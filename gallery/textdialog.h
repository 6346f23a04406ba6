#pragma once

// A text of several lines in a window of its own: what one line of the inspector cannot show. Ctrl+Enter is OK, Esc
// Cancel.

#include "framework/windows/forms.h"
#include "framework/windows/memo.h"

#include <optional>

namespace gallery {
using namespace framework;

class TTextDialog : public TForm {
    FRAMEWORK_CLASS(TTextDialog)

public:
    explicit TTextDialog(TComponent* owner);

    /// Lets a person change the text; nothing when it stays as it is. Lines end in CR LF.
    std::optional<String> Ask(const String& caption, const String& text);

private:
    void MemoChange(TObject* sender);
    void FormKeyDown(TObject* sender, WORD& key, TShiftState shift);

    TMemo* FMemo = nullptr;
};

} // namespace gallery
