#pragma once

// TWinControl: a control with a window. It creates the window when it is first needed, keeps the children's order and
// layout, hands notifications back to them, and moves the focus.

#include "framework/windows/control.h"

#include <vector>

namespace framework {

struct TCreateParams {
    String Caption;
    DWORD Style = 0;
    DWORD ExStyle = 0;
    int X = 0;
    int Y = 0;
    int Width = 0;
    int Height = 0;
    HWND WndParent = nullptr;
    WNDCLASSW WindowClass{};
    String WinClassName; ///< the class registered for this control
};

using TKeyEvent = std::function<void(TObject* Sender, WORD& Key, TShiftState Shift)>;
using TKeyPressEvent = std::function<void(TObject* Sender, char16_t& Key)>;

class TBrush;

class TWinControl : public TControl {
    FRAMEWORK_CLASS(TWinControl)

public:
    FRAMEWORK_READ_PROPERTY(HWND, Handle, GetHandle);
    FRAMEWORK_PROPERTY(TBrush*, Brush, GetBrush, SetBrush);
    FRAMEWORK_PROPERTY(int, TabOrder, GetTabOrder, SetTabOrder);
    FRAMEWORK_PROPERTY(bool, TabStop, GetTabStop, SetTabStop);
    FRAMEWORK_PROPERTY(bool, Ctl3D, GetCtl3D, SetCtl3D);
    FRAMEWORK_PROPERTY(bool, ParentCtl3D, GetParentCtl3D, SetParentCtl3D);
    FRAMEWORK_PROPERTY(bool, DoubleBuffered, GetDoubleBuffered, SetDoubleBuffered);
    FRAMEWORK_READ_PROPERTY(int, ControlCount, GetControlCount);
    FRAMEWORK_READ_PROPERTY(TControl*, Controls[], GetControl);
    FRAMEWORK_READ_PROPERTY(bool, Showing, GetShowing);

    TNotifyEvent OnEnter;
    TNotifyEvent OnExit;
    TKeyEvent OnKeyDown;
    TKeyPressEvent OnKeyPress;
    TKeyEvent OnKeyUp;

    explicit TWinControl(TComponent* owner);
    ~TWinControl() override;

    /// The window, created now if there is none. EInvalidOperation when the control has no parent and is no form.
    HWND GetHandle() const;
    bool HandleAllocated() const { return FHandle != nullptr; }
    void HandleNeeded() const;
    /// Destroys the window and makes another, keeping the focus and whatever KeepWindowState kept.
    void RecreateWnd();

    /// What the background is painted with; its colour is Color until it is given another.
    TBrush* GetBrush() const { return FBrush.get(); }
    void SetBrush(TBrush* value);

    // Children. Graphic ones lie below those with windows.
    int GetControlCount() const { return static_cast<int>(FGraphics.size() + FWindows.size()); }
    /// Graphic controls first; EListError when the index is not in 0..ControlCount-1.
    TControl* GetControl(int index) const;
    /// The same as setting the child's Parent to this control.
    void InsertControl(TControl* control);
    /// The same as setting the Parent of a child to null; other controls are left alone.
    void RemoveControl(TControl* control);
    bool ContainsControl(const TControl* control) const { return IsParentOf(control); }
    /// The topmost child at a point of the client area; null when there is none.
    TControl* ControlAtPos(TPoint point, bool allowDisabled, bool allowWindows = true) const;
    /// Sends a message to every child until one gives a non-zero result.
    void Broadcast(TMessage& message);
    void NotifyControls(UINT message);
    /// Between the two the layout rests; the last EnableAlign does what was asked for meanwhile.
    void DisableAlign();
    void EnableAlign();
    /// Runs `body` between the two, whatever it raises.
    void WithoutAlign(const std::function<void()>& body);
    /// Lays the children out now.
    void Realign();
    /// Moves all children by so many pixels.
    void ScrollBy(int deltaX, int deltaY);
    std::vector<TComponent*> GetChildren(TComponent* root) const override;
    void SetChildOrder(TComponent* child, int order) override;
    void SetChildZOrder(TControl* child, bool topmost);

    int GetTabOrder() const;
    /// The place among the parent's windows in the order of the Tab key, from 0; during loading it takes effect once
    /// all are there.
    void SetTabOrder(int value);
    bool GetTabStop() const { return FTabStop; }
    void SetTabStop(bool value);
    /// All windows inside in the order of the Tab key, each followed by its own children.
    void GetTabOrderList(std::vector<TWinControl*>& list) const;
    /// The control after or before `current` in that order, going round.
    TWinControl* FindNextControl(TWinControl* current, bool goForward, bool checkTabStop, bool checkParent) const;
    void SelectNext(TWinControl* current, bool goForward, bool checkTabStop);
    bool CanFocus() const;
    virtual bool Focused() const;
    /// Gives the keyboard focus to the control, as its form's active control. EInvalidOperation when it cannot have
    /// it (invisible or disabled).
    virtual void SetFocus();

    bool GetCtl3D() const { return FCtl3D; }
    void SetCtl3D(bool value);
    bool Ctl3DStored() const { return !FParentCtl3D; }
    bool GetParentCtl3D() const { return FParentCtl3D; }
    void SetParentCtl3D(bool value);
    /// Whether a control that paints itself does so in memory first, so that nothing flickers.
    bool GetDoubleBuffered() const { return FDoubleBuffered; }
    void SetDoubleBuffered(bool value) { FDoubleBuffered = value; }
    bool GetShowing() const { return FShowing; }
    void UpdateControlState();

    void SetBounds(int left, int top, int width, int height) override;
    TRect GetClientRect() const override;
    TPoint GetClientOrigin() const override;
    void Invalidate() override;
    void Update() override;
    void Refresh() override;
    void ChangeScale(int m, int d) override;
    /// Scales the children alone.
    void ScaleControls(int m, int d);
    /// Paints the control and everything in it onto a device context (WM_PRINT and its parts).
    void PaintTo(HDC dc, int x, int y);

    void WndProc(TMessage& message) override;

protected:
    virtual void CreateParams(TCreateParams& params);
    /// Turns the parameters into those of a descendant of a native class such as "EDIT", registered under this
    /// control's own class name (quicker than subclassing each window).
    /// EInvalidOperation when the program knows no such class (its library is not loaded).
    void CreateSubClass(TCreateParams& params, const wchar_t* nativeClass);
    /// The border of a control that has one: sunken with Ctl3D, a thin line without.
    void AddBorder(TCreateParams& params, TBorderStyle border) const;
    /// Turns style bits of a window that is there on or off; one that is made later gets them by CreateParams.
    void ChangeWindowStyle(DWORD style, bool present);
    virtual void CreateWindowHandle(const TCreateParams& params);
    /// Makes the window and brings it into the control's state.
    virtual void CreateWnd();
    virtual void DestroyWnd();
    virtual void CreateHandle();
    virtual void DestroyHandle();
    /// The window is about to go: takes what it alone knows (text, selection, ...) into the control, from where
    /// CreateWnd brings it into the next window.
    virtual void KeepWindowState();

    void Dispatch(TMessage& message) override;
    void DefaultHandler(TMessage& message) override;
    /// Calls a native procedure, of this window or of a part inside it, so that none is destroyed while it runs.
    void CallNative(WNDPROC procedure, HWND window, TMessage& message);
    /// The window is gone or left to its native procedure; descendants let go of the parts inside it.
    virtual void ForgetWindow();

    virtual void AlignControls(TControl* changed, TRect& client);
    /// With AutoSize, the extent at which all visible children just fit; one that no child decides stays as it is.
    bool CanAutoSize(int& newWidth, int& newHeight) override;
    /// The client area less what a descendant keeps for itself (bevels).
    virtual void AdjustClientRect(TRect& rect) { (void)rect; }
    virtual void DoEnter();
    virtual void DoExit();
    virtual void KeyDown(WORD& key, TShiftState shift);
    virtual void KeyPress(char16_t& key);
    virtual void KeyUp(WORD& key, TShiftState shift);
    virtual void PaintWindow(HDC dc) { (void)dc; }
    /// The WM_PAINT work: the native painting, or PaintWindow, then the graphic children.
    void PaintHandler(TMessage& message);
    void PaintControls(HDC dc);
    virtual void WMEraseBkgnd(TMessage& message);
    virtual void WMPaint(TMessage& message);
    virtual void WMNCPaint(TMessage& message) { DefaultHandler(message); }
    virtual void WMSize(TMessage& message);
    virtual void WMMove(TMessage& message);
    virtual void WMSetCursor(TMessage& message);
    virtual void CMEnter(TMessage& message);
    virtual void CMExit(TMessage& message);
    virtual void CMDialogKey(TMessage& message) { Broadcast(message); }
    virtual void CMDialogChar(TMessage& message) { Broadcast(message); }
    virtual void CMShowingChanged(TMessage& message);
    virtual void CMRecreateWnd(TMessage& message);
    virtual void CNKeyDown(TMessage& message);
    virtual void CNChar(TMessage& message);
    virtual void CNNotify(TMessage& message) { DefaultReflected(message); }
    void CMVisibleChanged(TMessage& message) override;
    void CMEnabledChanged(TMessage& message) override;
    void CMFontChanged(TMessage& message) override;
    void CMColorChanged(TMessage& message) override;
    void CMBiDiModeChanged(TMessage& message) override;
    void Loaded() override;

    /// The message loop offers a key; true when the control consumed it.
    bool DoKeyDown(TMessage& message);
    bool DoKeyPress(TMessage& message);
    bool DoKeyUp(TMessage& message);
    /// Colours and brush for the native painting of this control, in answer to CN_CTLCOLOR...
    void AnswerColors(TMessage& message);
    /// Passes a notification that came back to the child on to the native procedure in its original form, where the
    /// native class understands it.
    void DefaultReflected(TMessage& message);

    HWND FHandle = nullptr;
    WNDPROC FDefWndProc = nullptr;

private:
    friend class TControl;
    friend class TCustomForm;
    friend LRESULT CALLBACK ControlWindowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

    void MainWndProc(TMessage& message);
    void Insert(TControl* control);
    void Remove(TControl* control);
    bool NativeCallRunning() const;
    void AbandonWindow();
    void KeepStates();
    void AlignControl(TControl* control);
    void LayOut(TControl* control);
    bool PlaceChild(TControl& child, const TRect& place);
    bool IsNewPaintFailure(const TMessage& message);
    void UpdateShowing();
    void CreateChildHandles();
    bool IsControlMouseMessage(TMessage& message);
    bool ReflectToChild(TMessage& message);
    void MouseWheel(TMessage& message);
    void FixupTabOrder();
    void SizeFromWindow();

    std::unique_ptr<TBrush> FBrush;
    std::vector<TControl*> FGraphics;   // bottom first
    std::vector<TWinControl*> FWindows; // bottom first
    std::vector<TWinControl*> FTabList; // order of the Tab key
    int FLoadingTabOrder = -1;
    const TControl* FPlaced = nullptr; // the child that the layout is just moving; its own request asks for nothing new
    unsigned FRemovals = 0;            // counts children that went, so that a walk over them can see it
    UINT FFailedPaint = 0;             // the painting message that raised an exception last
    int FAlignLevel = 0;
    int FNativeDepth = 0; // how many calls of the window's native procedure are running
    bool FTabStop = false;
    bool FCtl3D = true;
    bool FParentCtl3D = true;
    bool FDoubleBuffered = false;
    bool FShowing = false;
    bool FRecreating = false;
};

namespace controlrows {
TPropInfo Ctl3D();
TPropInfo DoubleBuffered();
TPropInfo ParentCtl3D();
TPropInfo TabOrder();
TPropInfo TabStop(bool defaultValue);
TPropInfo OnEnter();
TPropInfo OnExit();
TPropInfo OnKeyDown();
TPropInfo OnKeyPress();
TPropInfo OnKeyUp();
/// OnEnter and OnExit.
TPropRows FocusEvents();
/// OnKeyDown, OnKeyPress and OnKeyUp.
TPropRows KeyEvents();
/// What the mouse, the focus and the keys bring: OnClick, OnDblClick, FocusEvents, KeyEvents and MouseEvents.
TPropRows InputEvents();
/// What a control follows its parent in: ParentBiDiMode, ParentColor, ParentCtl3D, ParentFont and ParentShowHint.
TPropRows ParentLinks(bool parentColor);
} // namespace controlrows

/// True while the native procedure of any control runs: a window that died meanwhile must not be freed yet.
bool NativeProcedureRunning();
/// How many handlers of messages and events are running, one inside the other.
int HandlerDepth();
/// Counts as a handler while it lives: for those that the message loop calls without a window's procedure.
class THandlerScope {
public:
    THandlerScope();
    ~THandlerScope();
    THandlerScope(const THandlerScope&) = delete;
    THandlerScope& operator=(const THandlerScope&) = delete;
};

/// The control that a window belongs to; null for windows that are not ours.
TWinControl* FindControl(HWND window);
/// The control of a window or of its nearest ancestor that has one.
TWinControl* FindOwningControl(HWND window);
/// The topmost control at a point of the screen, graphic ones and, on request, disabled ones included.
TControl* FindDragTarget(TPoint screenPoint, bool allowDisabled);
/// The outermost form a control lies on, the form itself included; null when it lies on none.
TCustomForm* GetParentForm(const TControl* control);
/// `caption` with its accelerator marks: true when `charCode` is the letter behind a single &.
bool IsAccel(WORD charCode, const String& caption);

/// A control that paints itself in its own window.
class TCustomControl : public TWinControl {
    FRAMEWORK_CLASS(TCustomControl)

public:
    explicit TCustomControl(TComponent* owner);
    ~TCustomControl() override;

protected:
    virtual void Paint() {}
    void PaintWindow(HDC dc) override;
    TCanvas* GetCanvas() const { return FCanvas.get(); }

private:
    std::shared_ptr<TCanvas> FCanvas;
};

} // namespace framework
