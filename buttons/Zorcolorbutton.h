#pragma once

// A push button that stands out: a vertical run of two colours, rounded corners, and a shade lighter under the mouse,
// darker while pressed. It is pressed in all the ways of a plain button.

#include "buttons/Zorcolorbutton_rules.h"
#include "framework/graphics/canvas.h"
#include "framework/windows/button.h"
#include "framework/windows/ownerdraw.h"

namespace ZOR {

const TEnumInfo& DescribeEnum(TZORColorStyles);

using TStateChangeEvent = std::function<void(TPersistent* Control)>;
/// `State` is that of the button as Windows reports it, `Rect` its whole area.
using TDrawButtonEvent = std::function<void(TWinControl* Control, TRect Rect, TOwnerDrawState State)>;

/// The four colours of a button. System colours follow the user's theme.
class TZORColors : public TPersistent {
    FRAMEWORK_CLASS(TZORColors)

public:
    FRAMEWORK_PROPERTY(TColor, GradientStart, getGradientStart, setGradientStart);
    FRAMEWORK_PROPERTY(TColor, GradientEnd, getGradientEnd, setGradientEnd);
    FRAMEWORK_PROPERTY(TColor, Frame, getFrame, setFrame);
    FRAMEWORK_PROPERTY(TColor, Border, getBorder, setBorder);

    /// Fired by every write of a colour, also of the one that is there already, and once by Assign. The button that
    /// owns the colours listens here; a host that takes the event over repaints the button itself.
    TStateChangeEvent OnStateChangeEvent;

    explicit TZORColors(TPersistent* owner = nullptr) : FOwner(owner) {}

    /// The top of the gradient.
    TColor getGradientStart() const { return FGradientStart; }
    void setGradientStart(TColor value);
    /// The bottom of the gradient.
    TColor getGradientEnd() const { return FGradientEnd; }
    void setGradientEnd(TColor value);
    /// The ring that marks the button that Enter presses.
    TColor getFrame() const { return FFrame; }
    void setFrame(TColor value);
    /// The outline.
    TColor getBorder() const { return FBorder; }
    void setBorder(TColor value);
    TPersistent* GetOwner() const override { return FOwner; }

    /// Takes the four colours of another TZORColors.
    void Assign(TPersistent* source) override;

private:
    void Changed();
    void Store(TColor& color, TColor value);

    TPersistent* FOwner;
    TColor FGradientStart = DefaultButtonColors.GradientStart;
    TColor FGradientEnd = DefaultButtonColors.GradientEnd;
    TColor FFrame = DefaultButtonColors.Frame;
    TColor FBorder = DefaultButtonColors.Border;
};

class TZORColorButton : public TButton {
    FRAMEWORK_CLASS(TZORColorButton)

public:
    /// After the button's own painting, on its Canvas.
    TDrawButtonEvent OnDrawButton;
    FRAMEWORK_PROPERTY(TZORColors*, Colors, getColors, setColors);
    FRAMEWORK_PROPERTY(TZORColorStyles, ColorStyles, getColorStyles, setColorStyles);
    FRAMEWORK_READ_PROPERTY(TCanvas*, Canvas, GetCanvas);

    explicit TZORColorButton(TComponent* owner) : TZORColorButton(owner, csNone) {}
    TZORColorButton(TComponent* owner, TZORColorStyles style);
    ~TZORColorButton() override;

    TZORColors* getColors() const { return FColors.get(); }
    /// Copies the colours; the style becomes csUser.
    void setColors(TZORColors* value) { FColors->Assign(value); }
    TZORColorStyles getColorStyles() const { return FColorStyles; }
    /// Sets all colours of the style, that of the font included; csUser changes none. While a form is loaded, which
    /// names the font first, a font colour that differs from the plain one stays.
    void setColorStyles(TZORColorStyles value);
    /// For OnDrawButton; it draws on nothing at other times.
    TCanvas* GetCanvas() const { return FCanvas.get(); }

    /// The channels of a colour, 0 to 255; system colours are looked up.
    static void GetRGB(TColor color, int& red, int& green, int& blue);
    /// The colour a step lighter or darker, see ShadedColor; system colours are looked up.
    static TColor RozjasnijSciemnij(TColor color, bool brighten);
    /// Cuts the corners off a control's window (SetWindowRgn), with arcs of 4 x 4 pixels.
    static void RoundCornerOf(TWinControl* control);

protected:
    void CreateParams(TCreateParams& params) override;
    void CreateWnd() override;
    void Dispatch(TMessage& message) override;
    void SetButtonStyle(bool isDefault) override;
    void WMEraseBkgnd(TMessage& message) override;
    void WMSize(TMessage& message) override;

private:
    void Inicjalizuj();
    void DefaultColors();
    void ApplyStyle(const TColorButtonStyle& style);
    void ColorsChange(TPersistent* sender);
    void ListenToColors();
    void SetHot(bool value);
    void KeepShape();
    void CNDrawItem(TMessage& message);
    TColorButtonFace Face() const;
    void DrawButton(TCanvas& canvas, const TRect& rect, TOwnerDrawState state);
    void DrawCaption(TCanvas& canvas, TRect rect);

    std::unique_ptr<TZORColors> FColors;
    std::shared_ptr<TCanvas> FCanvas; // shared with a painting that runs: a handler may free the button
    TZORColorStyles FColorStyles = csNone;
    std::optional<TSize> FShapedSize; // of which the window has got the rounded shape
    TRect FShape;                     // what that shape reaches over
    bool FHot = false;                // the mouse is over the button
    bool FDefaultLook = false;        // Enter presses this button now
};

namespace Zorcolorbutton {
/// Puts the control on the designer's palette.
void Register();
} // namespace Zorcolorbutton

} // namespace ZOR
