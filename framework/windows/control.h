#pragma once

// TControl: something visible on a form, with or without a window of its own. It has a place, a parent, a text,
// colours and a font that may follow the parent's, and receives messages through WndProc.

#include "framework/graphics/colors.h"
#include "framework/graphics/fonts.h"
#include "framework/system/components.h"
#include "framework/windows/layout_rules.h"
#include "framework/windows/messages.h"

#include <memory>

namespace framework {

class TControl;
class TWinControl;
class TCustomForm;
class TCanvas;

enum TBiDiMode { bdLeftToRight, bdRightToLeft, bdRightToLeftNoAlign, bdRightToLeftReadingOnly };
enum TFormBorderStyle { bsNone, bsSingle, bsSizeable, bsDialog, bsToolWindow, bsSizeToolWin };
/// The border of a control that is no form: bsNone or bsSingle.
using TBorderStyle = TFormBorderStyle;

const TEnumInfo& DescribeEnum(TAlign);
const TEnumInfo& DescribeEnum(TAnchorKind);
const TEnumInfo& DescribeEnum(TBiDiMode);
const TEnumInfo& DescribeEnum(TFormBorderStyle);

/// A cursor by its framework number: 0 inherits the parent's, negative ones are the system's.
using TCursor = std::int16_t;
inline constexpr TCursor crDefault = 0;
inline constexpr TCursor crNone = -1;
inline constexpr TCursor crArrow = -2;
inline constexpr TCursor crCross = -3;
inline constexpr TCursor crIBeam = -4;
inline constexpr TCursor crSizeNESW = -6;
inline constexpr TCursor crSizeNS = -7;
inline constexpr TCursor crSizeNWSE = -8;
inline constexpr TCursor crSizeWE = -9;
inline constexpr TCursor crUpArrow = -10;
inline constexpr TCursor crHourGlass = -11;
inline constexpr TCursor crNo = -18;
inline constexpr TCursor crAppStart = -19;
inline constexpr TCursor crHelp = -20;
inline constexpr TCursor crHandPoint = -21;
inline constexpr TCursor crSizeAll = -22;
const TIdentifiers& CursorIdentifiers();

enum TControlStateElement {
    csClicked,         ///< the left button went down here and a release inside will be a click
    csAlignmentNeeded, ///< a layout was asked for while alignment was switched off
    csCreating,        ///< the window, or those of the children, are being made
    csCustomPaint,     ///< PaintWindow paints, not the native procedure
    csDestroyingHandle,
};
using TControlState = Set<TControlStateElement>;

enum TControlStyleElement {
    csAcceptsControls,
    csCaptureMouse,    ///< the left button's press captures the mouse until its release
    csClickEvents,     ///< presses and releases become OnClick and OnDblClick
    csSetCaption,      ///< the text starts as the component's name in a designer
    csOpaque,          ///< paints all of its rectangle
    csDoubleClicks,    ///< without it, the second press of a double click is a press like the first
    csNoDesignVisible, ///< in a designer it shows only where it is visible
    csNoStdEvents,     ///< no events for keys and mouse buttons
};
using TControlStyle = Set<TControlStyleElement>;

using TMouseEvent = std::function<void(TObject* Sender, TMouseButton Button, TShiftState Shift, int X, int Y)>;
using TMouseMoveEvent = std::function<void(TObject* Sender, TShiftState Shift, int X, int Y)>;
using TMouseWheelEvent =
    std::function<void(TObject* Sender, TShiftState Shift, int WheelDelta, TPoint MousePos, bool& Handled)>;

/// Limits to a control's size in pixels; 0 means no limit.
class TSizeConstraints : public TPersistent {
    FRAMEWORK_CLASS(TSizeConstraints)

public:
    FRAMEWORK_PROPERTY(int, MaxHeight, GetMaxHeight, SetMaxHeight);
    FRAMEWORK_PROPERTY(int, MaxWidth, GetMaxWidth, SetMaxWidth);
    FRAMEWORK_PROPERTY(int, MinHeight, GetMinHeight, SetMinHeight);
    FRAMEWORK_PROPERTY(int, MinWidth, GetMinWidth, SetMinWidth);

    explicit TSizeConstraints(TControl* control) : FControl(control) {}

    void Assign(TPersistent* source) override;
    int GetMaxHeight() const { return FMaxHeight; }
    void SetMaxHeight(int value) { Change(FMaxHeight, value); }
    int GetMaxWidth() const { return FMaxWidth; }
    void SetMaxWidth(int value) { Change(FMaxWidth, value); }
    int GetMinHeight() const { return FMinHeight; }
    void SetMinHeight(int value) { Change(FMinHeight, value); }
    int GetMinWidth() const { return FMinWidth; }
    void SetMinWidth(int value) { Change(FMinWidth, value); }
    /// All limits times m / d, for a form that moves to another resolution.
    void Scale(int m, int d);

private:
    void Change(int& limit, int value);

    TControl* FControl;
    int FMaxHeight = 0;
    int FMaxWidth = 0;
    int FMinHeight = 0;
    int FMinWidth = 0;
};

class TControl : public TComponent {
    FRAMEWORK_CLASS(TControl)

public:
    FRAMEWORK_PROPERTY(int, Left, GetLeft, SetLeft);
    FRAMEWORK_PROPERTY(int, Top, GetTop, SetTop);
    FRAMEWORK_PROPERTY(int, Width, GetWidth, SetWidth);
    FRAMEWORK_PROPERTY(int, Height, GetHeight, SetHeight);
    FRAMEWORK_PROPERTY(int, ClientWidth, GetClientWidth, SetClientWidth);
    FRAMEWORK_PROPERTY(int, ClientHeight, GetClientHeight, SetClientHeight);
    FRAMEWORK_READ_PROPERTY(TRect, ClientRect, GetClientRect);
    FRAMEWORK_PROPERTY(TRect, BoundsRect, GetBoundsRect, SetBoundsRect);
    FRAMEWORK_PROPERTY(TWinControl*, Parent, GetParent, SetParent);
    FRAMEWORK_PROPERTY(TAlign, Align, GetAlign, SetAlign);
    FRAMEWORK_PROPERTY(TAnchors, Anchors, GetAnchors, SetAnchors);
    FRAMEWORK_PROPERTY(TSizeConstraints*, Constraints, GetConstraints, SetConstraints);
    FRAMEWORK_PROPERTY(bool, Visible, GetVisible, SetVisible);
    FRAMEWORK_PROPERTY(bool, Enabled, GetEnabled, SetEnabled);
    FRAMEWORK_PROPERTY(bool, AutoSize, GetAutoSize, SetAutoSize);
    FRAMEWORK_PROPERTY(String, Caption, GetText, SetText);
    FRAMEWORK_PROPERTY(String, Text, GetText, SetText);
    FRAMEWORK_PROPERTY(TColor, Color, GetColor, SetColor);
    FRAMEWORK_PROPERTY(TFont*, Font, GetFont, SetFont);
    FRAMEWORK_PROPERTY(bool, ParentColor, GetParentColor, SetParentColor);
    FRAMEWORK_PROPERTY(bool, ParentFont, GetParentFont, SetParentFont);
    FRAMEWORK_PROPERTY(bool, ParentShowHint, GetParentShowHint, SetParentShowHint);
    FRAMEWORK_PROPERTY(bool, ParentBiDiMode, GetParentBiDiMode, SetParentBiDiMode);
    FRAMEWORK_PROPERTY(TBiDiMode, BiDiMode, GetBiDiMode, SetBiDiMode);
    FRAMEWORK_PROPERTY(bool, ShowHint, GetShowHint, SetShowHint);
    FRAMEWORK_PROPERTY(String, Hint, GetHint, SetHint);
    FRAMEWORK_PROPERTY(TCursor, Cursor, GetCursor, SetCursor);

    TNotifyEvent OnClick;
    TNotifyEvent OnDblClick;
    TMouseEvent OnMouseDown;
    TMouseMoveEvent OnMouseMove;
    TMouseEvent OnMouseUp;
    TNotifyEvent OnMouseEnter;
    TNotifyEvent OnMouseLeave;
    TMouseWheelEvent OnMouseWheel;
    TNotifyEvent OnResize;

    explicit TControl(TComponent* owner);
    ~TControl() override;

    void SetName(const String& value) override;

    // Place, in pixels of the parent's client area (of the screen for a form).
    int GetLeft() const { return FLeft; }
    void SetLeft(int value) { SetBounds(value, FTop, FWidth, FHeight); }
    int GetTop() const { return FTop; }
    void SetTop(int value) { SetBounds(FLeft, value, FWidth, FHeight); }
    int GetWidth() const { return FWidth; }
    void SetWidth(int value) { SetBounds(FLeft, FTop, value, FHeight); }
    int GetHeight() const { return FHeight; }
    void SetHeight(int value) { SetBounds(FLeft, FTop, FWidth, value); }
    /// Moves and sizes in one step, within the constraints.
    virtual void SetBounds(int left, int top, int width, int height);
    TRect GetBoundsRect() const { return Bounds(FLeft, FTop, FWidth, FHeight); }
    void SetBoundsRect(const TRect& value) { SetBounds(value.Left, value.Top, value.Width(), value.Height()); }
    /// The inside, with its left upper corner at 0, 0.
    virtual TRect GetClientRect() const { return {0, 0, FWidth, FHeight}; }
    int GetClientWidth() const { return GetClientRect().Width(); }
    int GetClientHeight() const { return GetClientRect().Height(); }
    void SetClientWidth(int value);
    void SetClientHeight(int value);
    /// Where the client area's left upper corner lies on the screen.
    virtual TPoint GetClientOrigin() const;
    TPoint ClientToScreen(TPoint point) const;
    TPoint ScreenToClient(TPoint point) const;

    TAlign GetAlign() const { return FAlign; }
    void SetAlign(TAlign value);
    TAnchors GetAnchors() const { return FAnchors; }
    void SetAnchors(TAnchors value);
    bool AnchorsStored() const;
    TSizeConstraints* GetConstraints() const { return FConstraints.get(); }
    void SetConstraints(TSizeConstraints* value) { FConstraints->Assign(value); }
    bool GetAutoSize() const { return FAutoSize; }
    virtual void SetAutoSize(bool value);
    /// Lets a control that sizes itself to its content do so now.
    virtual void AdjustSize();

    TWinControl* GetParent() const { return FParent; }
    /// Moves the control onto another parent, or off every one with null. A control is not owned by its parent.
    virtual void SetParent(TWinControl* value);
    TComponent* GetParentComponent() const override;
    void SetParentComponent(TComponent* parent) override;
    /// True when `control` is this one or lies inside it.
    bool IsParentOf(const TControl* control) const;
    void BringToFront();
    void SendToBack();

    bool GetVisible() const { return FVisible; }
    virtual void SetVisible(bool value);
    /// Whether it shows where its parent does: designers show what is not visible, too, unless csNoDesignVisible.
    bool ShowsOnParent() const;
    void Show() { SetVisible(true); }
    void Hide() { SetVisible(false); }
    bool GetEnabled() const { return FEnabled; }
    virtual void SetEnabled(bool value);

    /// Caption or text, whichever the control calls it. A control with a window keeps it there while it has one.
    String GetText() const;
    /// The length of the text in UTF-16 units.
    int GetTextLen() const;
    void SetText(const String& value);
    /// Written unless it is empty.
    bool TextStored() const { return !GetText().empty(); }

    TColor GetColor() const { return FColor; }
    void SetColor(TColor value);
    bool ColorStored() const { return !FParentColor; }
    TFont* GetFont() const { return FFont.get(); }
    void SetFont(TFont* value) { FFont->Assign(value); }
    bool FontStored() const { return !FParentFont; }
    bool GetParentColor() const { return FParentColor; }
    void SetParentColor(bool value);
    bool GetParentFont() const { return FParentFont; }
    void SetParentFont(bool value);
    bool GetParentShowHint() const { return FParentShowHint; }
    void SetParentShowHint(bool value);
    bool GetParentBiDiMode() const { return FParentBiDiMode; }
    void SetParentBiDiMode(bool value);
    TBiDiMode GetBiDiMode() const { return FBiDiMode; }
    virtual void SetBiDiMode(TBiDiMode value);
    bool BiDiModeStored() const { return !FParentBiDiMode; }
    bool UseRightToLeftAlignment() const { return FBiDiMode == bdRightToLeft; }
    bool UseRightToLeftReading() const { return FBiDiMode != bdLeftToRight; }
    bool UseRightToLeftScrollBar() const { return FBiDiMode == bdRightToLeft || FBiDiMode == bdRightToLeftNoAlign; }
    bool GetShowHint() const { return FShowHint; }
    void SetShowHint(bool value);
    bool ShowHintStored() const { return !FParentShowHint; }
    const String& GetHint() const { return FHint; }
    virtual void SetHint(const String& value) { FHint = value; }
    TCursor GetCursor() const { return FCursor; }
    void SetCursor(TCursor value);

    TControlState GetControlState() const { return FControlState; }
    TControlStyle GetControlStyle() const { return FControlStyle; }
    void SetControlStyle(TControlStyle value) { FControlStyle = value; }

    /// Sends a message to this control alone, through its WndProc; no window is needed.
    LRESULT Perform(UINT message, WPARAM wParam = 0, LPARAM lParam = 0);
    virtual void Invalidate();
    virtual void Update();
    void Repaint();
    virtual void Refresh() { Repaint(); }
    /// A program's click: fires OnClick.
    virtual void Click();
    virtual void DblClick();
    /// Grabs or releases the mouse for a drag that began here.
    void SetMouseCapture(bool value);
    bool GetMouseCapture() const;
    /// The release of a button that is down now will be no click.
    void CancelClick() { FControlState >> csClicked; }
    /// All sizes, the font and the constraints times m / d.
    virtual void ChangeScale(int m, int d);
    /// Notes the present place as the one that anchors keep to.
    void UpdateAnchorBase();

    /// Every message for the control passes here first; descendants override and call the inherited one.
    virtual void WndProc(TMessage& message);

protected:
    /// Typed handlers hang here: a switch over message numbers that ends in the inherited Dispatch.
    virtual void Dispatch(TMessage& message);
    /// What happens to a message that nobody handled; for windows, the native window procedure.
    virtual void DefaultHandler(TMessage& message);

    virtual bool CanAutoSize(int& newWidth, int& newHeight);
    virtual void Resize();
    /// Asks the parent to lay its children out again.
    void RequestAlign();
    virtual void MouseDown(TMouseButton button, TShiftState shift, int x, int y);
    virtual void MouseMove(TShiftState shift, int x, int y);
    virtual void MouseUp(TMouseButton button, TShiftState shift, int x, int y);
    virtual bool DoMouseWheel(TShiftState shift, int wheelDelta, TPoint mousePos);
    /// The WM_... mouse messages turned into the calls above.
    void WMButtonDown(TMessage& message, TMouseButton button, TShiftState extra);
    void WMButtonUp(TMessage& message, TMouseButton button);
    void WMMouseMove(TMessage& message);
    virtual void CMMouseEnter(TMessage& message);
    virtual void CMMouseLeave(TMessage& message);
    virtual void CMVisibleChanged(TMessage& message);
    virtual void CMEnabledChanged(TMessage& message);
    virtual void CMFontChanged(TMessage& message);
    virtual void CMColorChanged(TMessage& message);
    virtual void CMTextChanged(TMessage& message);
    virtual void CMBiDiModeChanged(TMessage& message);
    virtual void CMHitTest(TMessage& message);

    void Loaded() override;
    void UpdateBoundsDirect(int left, int top, int width, int height);
    void InvalidateControl(bool wasVisible, bool wasOpaque);
    bool IsLoading() const { return GetComponentState().Contains(csLoading); }
    bool IsDesigning() const { return GetComponentState().Contains(csDesigning); }
    bool IsDestroying() const { return GetComponentState().Contains(csDestroying); }

    TControlState FControlState;
    TControlStyle FControlStyle = {csCaptureMouse, csClickEvents, csSetCaption, csDoubleClicks};
    String FText;

private:
    friend class TWinControl;
    friend class TCustomForm;

    void FontChanged();
    void ApplyParentProperties();
    /// Takes a property over from the parent while `flag` is on. The setter counts as a change of its own, which would
    /// end the following.
    void Follow(bool& flag, const std::function<void()>& takeOver);

    TWinControl* FParent = nullptr;
    int FLeft = 0;
    int FTop = 0;
    int FWidth = 0;
    int FHeight = 0;
    TAnchorBase FAnchorBase;
    std::unique_ptr<TSizeConstraints> FConstraints;
    std::unique_ptr<TFont> FFont;
    String FHint;
    TColor FColor = clWindow;
    TCursor FCursor = crDefault;
    TAlign FAlign = alNone;
    TAnchors FAnchors = {akLeft, akTop};
    TBiDiMode FBiDiMode = bdLeftToRight;
    bool FAutoSize = false;
    bool FVisible = true;
    bool FEnabled = true;
    bool FParentColor = true;
    bool FParentFont = true;
    bool FParentShowHint = true;
    bool FParentBiDiMode = true;
    bool FShowHint = false;
    bool FAligning = false;
    bool FScaling = false;
};

/// The rows that nearly every visible control publishes, for its own table.
namespace controlrows {
/// Narrows a row over TBorderStyle to the two values that a control takes.
TPropInfo ControlBorder(TPropInfo row);
TPropInfo Align(TAlign defaultValue = alNone);
TPropInfo Anchors();
TPropInfo AutoSize(bool defaultValue);
TPropInfo BiDiMode();
TPropInfo Caption();
TPropInfo Color(TColor defaultValue);
TPropInfo Constraints();
TPropInfo Enabled();
TPropInfo Font();
TPropInfo ParentBiDiMode();
TPropInfo ParentColor(bool defaultValue);
TPropInfo ParentFont();
TPropInfo ParentShowHint();
TPropInfo ShowHint();
TPropInfo Text();
TPropInfo Visible();
TPropInfo OnClick();
TPropInfo OnDblClick();
TPropInfo OnMouseDown();
TPropInfo OnMouseEnter();
TPropInfo OnMouseLeave();
TPropInfo OnMouseMove();
TPropInfo OnMouseUp();
TPropInfo OnMouseWheel();
TPropInfo OnResize();
/// OnMouseDown, OnMouseEnter, OnMouseLeave, OnMouseMove and OnMouseUp.
TPropRows MouseEvents();
} // namespace controlrows

/// A control without a window: it paints itself on its parent and hears the mouse through it. Light: a form can hold
/// thousands.
class TGraphicControl : public TControl {
    FRAMEWORK_CLASS(TGraphicControl)

public:
    explicit TGraphicControl(TComponent* owner);
    ~TGraphicControl() override;

protected:
    /// Paints with GetCanvas(), whose origin is the control's left upper corner.
    virtual void Paint() {}
    TCanvas* GetCanvas() const { return FCanvas.get(); }
    void Dispatch(TMessage& message) override;

private:
    void WMPaint(TMessage& message);

    std::shared_ptr<TCanvas> FCanvas;
};

} // namespace framework
