#pragma once

// Hints: a few words beside the pointer, once it has rested over a control for a while.

#include "framework/windows/wincontrol.h"

namespace framework {

/// What is about to be shown; a control can change it in its answer to CM_HINTSHOW, which carries a pointer to it in
/// LParam. A non-zero result, or an empty text, shows nothing.
struct THintInfo {
    TControl* HintControl = nullptr;
    TPoint HintPos;              ///< left upper corner in screen pixels
    int HintMaxWidth = 0;        ///< pixels at which lines are broken
    TColor HintColor = clInfoBk; ///< background
    TRect CursorRect;            ///< in HintControl's pixels: the hint holds as long as the pointer is in there
    TPoint CursorPos;            ///< in HintControl's pixels
    int HideTimeout = 0;         ///< milliseconds after which the hint goes
    String HintStr;
};

/// The window with the words. It lets the mouse through and never takes the focus.
class THintWindow : public TCustomControl {
    FRAMEWORK_CLASS(THintWindow)

public:
    explicit THintWindow(TComponent* owner);

    /// The extent that a text needs with its margins, broken at `maxWidth` pixels.
    TSize CalcHintSize(int maxWidth, const String& text) const;
    /// Shows the text in that place of the screen.
    void ActivateHint(const TRect& place, const String& text);

protected:
    void CreateParams(TCreateParams& params) override;
    void Dispatch(TMessage& message) override;
    /// Looks like the system's tooltips; plain, with a thin frame, in a colour of its own or without themes.
    void Paint() override;

private:
    UINT DrawFlags() const;
    TColor PaintBackground();
};

/// The mouse came to lie over `control` (null: over none of ours). The hint of the control that was left goes; that of
/// this one comes after Application's HintPause, when ShowHint is on there or at a parent.
void HintMouseOver(TControl* control);
/// Takes away the hint that shows or waits; it comes again only when the mouse enters a control anew.
void HideHint();

} // namespace framework
