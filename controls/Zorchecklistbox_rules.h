#pragma once

// When a click on the text of an item changes its check box as well. A click passes through several events, in which
// the list may have changed the box already; this keeps account of them.

namespace ZOR {

/// What has happened in the click so far. Each operation stands for an event, in the order in which they come.
class TCheckClick {
public:
    /// The left or another button went down: a new click begins.
    void MouseDown();
    /// A key went down or a character came.
    void Key();
    /// The list itself has changed a box, with the mouse or the space key.
    void BoxToggled(bool onText);
    /// The click is complete: whether the box of the chosen item is to be changed now. `onText` is the control's
    /// CheckOnClickString, `hasItem` whether an item is chosen.
    bool Click(bool onText, bool hasItem);

private:
    bool FPending = false; // a box was changed in this click already
    bool FMouse = false;   // the click came from the mouse
    bool FKey = false;     // the click came from the keyboard
};

} // namespace ZOR
