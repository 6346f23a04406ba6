#pragma once

// What edits and combo boxes have in common: a text that is edited in their own window or in a part of it, and what of
// it is selected.

#include "framework/windows/wincontrol.h"

#include <climits>

namespace framework {

class TTextControl : public TWinControl {
public:
    FRAMEWORK_PROPERTY(int, SelStart, GetSelStart, SetSelStart);
    FRAMEWORK_PROPERTY(int, SelLength, GetSelLength, SetSelLength);
    FRAMEWORK_PROPERTY(String, SelText, GetSelText, SetSelText);

    /// Selection in UTF-16 units, from 0. Positions beyond the text are moved to its end. Where no text can be edited
    /// nothing is ever selected.
    int GetSelStart() const { return GetSelection().Start; }
    /// Puts the caret there, with nothing selected.
    void SetSelStart(int value) { SetSelection({value, value}); }
    int GetSelLength() const;
    void SetSelLength(int value);
    virtual String GetSelText() const;
    /// Replaces the selection; the caret follows the new text. The user can undo it (EM_REPLACESEL).
    void SetSelText(const String& value);
    void SelectAll() { SetSelection({0, INT_MAX}); }

protected:
    struct TSelection {
        int Start = 0;
        int End = 0;
    };

    explicit TTextControl(TComponent* owner) : TWinControl(owner) {}

    void KeepWindowState() override;
    /// The EDIT window, null without one.
    virtual HWND TextWindow() const { return FHandle; }
    TSelection GetSelection() const;
    void SetSelection(TSelection value);

private:
    TSelection FSelection; // while there is no window
};

} // namespace framework
