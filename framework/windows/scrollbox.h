#pragma once

// An area larger than what shows of it: it scrolls by bars, wheel and keys.

#include "framework/windows/scrollbox_rules.h"
#include "framework/windows/wincontrol.h"

namespace framework {

class TScrollingWinControl;

enum TScrollBarKind { sbHorizontal, sbVertical };

/// One direction of a scrolling control, and its bar.
class TControlScrollBar : public TPersistent {
    FRAMEWORK_CLASS(TControlScrollBar)

public:
    FRAMEWORK_PROPERTY(int, Increment, GetIncrement, SetIncrement);
    FRAMEWORK_PROPERTY(int, Margin, GetMargin, SetMargin);
    FRAMEWORK_PROPERTY(int, Position, GetPosition, SetPosition);
    FRAMEWORK_PROPERTY(int, Range, GetRange, SetRange);
    FRAMEWORK_PROPERTY(bool, Tracking, GetTracking, SetTracking);
    FRAMEWORK_PROPERTY(bool, Visible, GetVisible, SetVisible);

    TControlScrollBar(TScrollingWinControl* control, TScrollBarKind kind);

    void Assign(TPersistent* source) override;

    /// Pixels that an arrow of the bar, an arrow key or a line of the wheel scrolls by.
    int GetIncrement() const { return FIncrement; }
    void SetIncrement(int value) { FIncrement = value > 0 ? value : 1; }
    /// With AutoScroll, pixels of free space behind the last child.
    int GetMargin() const { return FMargin; }
    void SetMargin(int value);
    /// Pixels that the area is scrolled by, from 0; values outside go to the nearest one possible.
    int GetPosition() const { return FPosition; }
    void SetPosition(int value);
    /// The extent of the area in pixels. With AutoScroll it follows the children.
    int GetRange() const { return FRange; }
    void SetRange(int value);
    bool RangeStored() const;
    /// Whether the area follows the thumb while it is being dragged, or jumps when it is let go.
    bool GetTracking() const { return FTracking; }
    void SetTracking(bool value) { FTracking = value; }
    /// Whether the bar shows when the area is larger than the control.
    bool GetVisible() const { return FVisible; }
    void SetVisible(bool value);

    /// Whether the area is larger than what shows of it.
    bool CanScroll() const { return FRange > Extent(); }
    TScrollBarKind GetKind() const { return FKind; }

private:
    friend class TScrollingWinControl;

    int Extent() const;
    void ScrollTo(int value);
    void Update();
    void HandleScroll(int code);

    TScrollingWinControl* FControl;
    TScrollBarKind FKind;
    int FIncrement;
    int FMargin = 0;
    int FPosition = 0;
    int FLoadedPosition = 0; // to be scrolled to when all that lies inside is there
    int FRange = 0;
    bool FTracking = false;
    bool FVisible = true;
    TWheelSteps FWheel;
};

class TScrollingWinControl : public TCustomControl {
    FRAMEWORK_CLASS(TScrollingWinControl)

public:
    FRAMEWORK_PROPERTY(bool, AutoScroll, GetAutoScroll, SetAutoScroll);
    FRAMEWORK_PROPERTY(TControlScrollBar*, HorzScrollBar, GetHorzScrollBar, SetHorzScrollBar);
    FRAMEWORK_PROPERTY(TControlScrollBar*, VertScrollBar, GetVertScrollBar, SetVertScrollBar);

    explicit TScrollingWinControl(TComponent* owner);
    ~TScrollingWinControl() override;

    /// Whether the ranges follow the children, so that all of them can be reached.
    bool GetAutoScroll() const { return FAutoScroll; }
    void SetAutoScroll(bool value);
    TControlScrollBar* GetHorzScrollBar() const { return FHorzScrollBar.get(); }
    void SetHorzScrollBar(TControlScrollBar* value) { FHorzScrollBar->Assign(value); }
    TControlScrollBar* GetVertScrollBar() const { return FVertScrollBar.get(); }
    void SetVertScrollBar(TControlScrollBar* value) { FVertScrollBar->Assign(value); }

    /// Scrolls as little as need be to show a control that lies inside, at whatever depth.
    void ScrollInView(TControl* control);

protected:
    friend class TControlScrollBar;

    /// A control inside has the focus now: with AutoScroll it is brought into view.
    virtual void AutoScrollInView(TControl* control);

    void CreateParams(TCreateParams& params) override;
    void CreateWnd() override;
    void Dispatch(TMessage& message) override;
    void AlignControls(TControl* changed, TRect& client) override;
    void AdjustClientRect(TRect& rect) override;
    bool DoMouseWheel(TShiftState shift, int wheelDelta, TPoint mousePos) override;
    void KeyDown(WORD& key, TShiftState shift) override;
    void MouseDown(TMouseButton button, TShiftState shift, int x, int y) override;
    void ChangeScale(int m, int d) override;
    void Loaded() override;

private:
    void UpdateScrollBars();
    void FitRanges();
    int ChildrenExtent(TScrollBarKind kind) const;
    bool ScrollByKey(WORD key, TShiftState shift);
    bool LeavesPagingToParent(const TWinControl& child) const;

    std::unique_ptr<TControlScrollBar> FHorzScrollBar;
    std::unique_ptr<TControlScrollBar> FVertScrollBar;
    bool FAutoScroll = true;
    bool FUpdating = false;
};

class TScrollBox : public TScrollingWinControl {
    FRAMEWORK_CLASS(TScrollBox)

public:
    FRAMEWORK_PROPERTY(TBorderStyle, BorderStyle, GetBorderStyle, SetBorderStyle);

    explicit TScrollBox(TComponent* owner);

    TBorderStyle GetBorderStyle() const { return FBorderStyle; }
    void SetBorderStyle(TBorderStyle value);

protected:
    void CreateParams(TCreateParams& params) override;

private:
    TBorderStyle FBorderStyle = bsSingle;
};

} // namespace framework
