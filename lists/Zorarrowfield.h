#pragma once

// A memo of one line that looks like a combo box: a gradient behind the text, and beside it an arrow that lights up
// under the mouse. What the arrow opens is up to the descendant.

#include "controls/Zorscreenkeyboard.h"
#include "framework/windows/memo.h"

namespace ZOR {

inline constexpr TFraming ArrowFieldFraming{.HintInPart = true}; // the hint keeps clear of the arrow

class TZORArrowField : public TZORScreenKeyboard<TZORFramed<TMemo, ArrowFieldFraming>> {
    FRAMEWORK_CLASS(TZORArrowField)

public:
    FRAMEWORK_PROPERTY(TColor, GradientColorUp, GetGradientColorUp, SetGradientColorUp);
    FRAMEWORK_PROPERTY(TColor, GradientColorDown, GetGradientColorDown, SetGradientColorDown);
    FRAMEWORK_PROPERTY(TColor, ArrowColor, GetArrowColor, SetArrowColor);

    TNotifyEvent OnEditClick; ///< the text was clicked

    explicit TZORArrowField(TComponent* owner);
    ~TZORArrowField() override;

    /// The field's background from top to bottom. While both are white, it is Color.
    TColor GetGradientColorUp() const { return FGradientColorUp; }
    void SetGradientColorUp(TColor value) { SetLook(FGradientColorUp, value); }
    TColor GetGradientColorDown() const { return FGradientColorDown; }
    void SetGradientColorDown(TColor value) { SetLook(FGradientColorDown, value); }
    TColor GetArrowColor() const { return FArrowColor; }
    void SetArrowColor(TColor value) { SetLook(FArrowColor, value); }
    /// The arrow's place in the client area; in a right-to-left field it is on the left.
    TRect ArrowRect() const;

    void SetEnabled(bool value) override;
    void WndProc(TMessage& message) override;

protected:
    void CreateParams(TCreateParams& params) override;
    void CreateWnd() override;
    void Dispatch(TMessage& message) override;
    void WMPaint(TMessage& message) override;
    void WMSetCursor(TMessage& message) override;
    void CMFontChanged(TMessage& message) override;
    void MouseUp(TMouseButton button, TShiftState shift, int x, int y) override;

    /// The mouse went down on the arrow, or on the text, which the native window acts on next.
    virtual void PressArrow() {}
    virtual void PressText() {}
    /// Whether what the arrow opens is open.
    virtual bool ArrowIsDown() const { return false; }
    /// Keeps the field's look in step with a message that has been handled.
    virtual void myWndMethod(const TMessage& message);
    void InvalidateArrow();

private:
    void SetLook(TColor& color, TColor value);
    bool HasGradient() const;
    bool OnArrow(TPoint point) const { return ArrowRect().Contains(point); }
    TRect TextArea() const;
    void PlaceText();
    void AnswerBackground(TMessage& message);
    void PaintArrow(HDC dc) const;

    TUniqueBitmap FGradientBitmap;
    TUniqueBrush FGradientBrush;
    int FGradientHeight = 0; // of the bitmap
    TColor FGradientColorUp = clWhite;
    TColor FGradientColorDown = clWhite;
    TColor FArrowColor = clBlack;
    bool FHot = false;         // the mouse is over the field
    bool FTextPressed = false; // the mouse went down on the text
};

} // namespace ZOR
