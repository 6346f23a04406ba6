#pragma once

// Forms: top-level windows that are loaded from text forms, own their components, know which of their controls is
// active, and move the focus by Tab, Enter, Esc and accelerator keys.

#include "framework/windows/wincontrol.h"

namespace framework {

enum TPosition {
    poDesigned,
    poDefault,
    poDefaultPosOnly,
    poDefaultSizeOnly,
    poScreenCenter,
    poDesktopCenter,
    poMainFormCenter,
    poOwnerFormCenter,
};
enum TBorderIcon { biSystemMenu, biMinimize, biMaximize, biHelp };
using TBorderIcons = Set<TBorderIcon>;
enum TWindowState { wsNormal, wsMinimized, wsMaximized };
enum TFormStyle { fsNormal, fsMDIChild, fsMDIForm, fsStayOnTop };
enum TCloseAction { caNone, caHide, caFree, caMinimize };

const TEnumInfo& DescribeEnum(TPosition);
const TEnumInfo& DescribeEnum(TBorderIcon);
const TEnumInfo& DescribeEnum(TWindowState);
const TEnumInfo& DescribeEnum(TFormStyle);

/// The results of ShowModal and of buttons.
using TModalResult = int;
inline constexpr TModalResult mrNone = 0;
inline constexpr TModalResult mrOk = 1;
inline constexpr TModalResult mrCancel = 2;
inline constexpr TModalResult mrAbort = 3;
inline constexpr TModalResult mrRetry = 4;
inline constexpr TModalResult mrIgnore = 5;
inline constexpr TModalResult mrYes = 6;
inline constexpr TModalResult mrNo = 7;

using TCloseEvent = std::function<void(TObject* Sender, TCloseAction& Action)>;
using TCloseQueryEvent = std::function<void(TObject* Sender, bool& CanClose)>;

class TCustomForm : public TWinControl {
    FRAMEWORK_CLASS(TCustomForm)

public:
    FRAMEWORK_PROPERTY(TWinControl*, ActiveControl, GetActiveControl, SetActiveControl);
    FRAMEWORK_PROPERTY(TFormBorderStyle, BorderStyle, GetBorderStyle, SetBorderStyle);
    FRAMEWORK_PROPERTY(TBorderIcons, BorderIcons, GetBorderIcons, SetBorderIcons);
    FRAMEWORK_PROPERTY(TFormStyle, FormStyle, GetFormStyle, SetFormStyle);
    FRAMEWORK_PROPERTY(TPosition, Position, GetPosition, SetPosition);
    FRAMEWORK_PROPERTY(TWindowState, WindowState, GetWindowState, SetWindowState);
    FRAMEWORK_PROPERTY(bool, KeyPreview, GetKeyPreview, SetKeyPreview);
    FRAMEWORK_PROPERTY(bool, Scaled, GetScaled, SetScaled);
    FRAMEWORK_PROPERTY(int, PixelsPerInch, GetPixelsPerInch, SetPixelsPerInch);
    FRAMEWORK_PROPERTY(TModalResult, ModalResult, GetModalResult, SetModalResult);
    FRAMEWORK_READ_PROPERTY(TCanvas*, Canvas, GetCanvas);

    TNotifyEvent OnActivate;
    TCloseEvent OnClose;
    TCloseQueryEvent OnCloseQuery;
    TNotifyEvent OnCreate;
    TNotifyEvent OnDeactivate;
    TNotifyEvent OnDestroy;
    TNotifyEvent OnHide;
    TNotifyEvent OnPaint;
    TNotifyEvent OnShow;

    explicit TCustomForm(TComponent* owner);
    ~TCustomForm() override;

    /// The control that has the focus whenever the form is active. Null leaves the form itself with the keyboard until
    /// a control is entered; a form that is activated without one begins with the first in the order of the Tab key.
    /// EInvalidOperation for a control of another form and for one that cannot have the focus.
    TWinControl* GetActiveControl() const { return FActiveControl; }
    void SetActiveControl(TWinControl* value);
    /// Another border makes the window anew and keeps the client area's size.
    TFormBorderStyle GetBorderStyle() const { return FBorderStyle; }
    void SetBorderStyle(TFormBorderStyle value);
    /// The buttons in the caption. biHelp is read and has no effect.
    TBorderIcons GetBorderIcons() const { return FBorderIcons; }
    void SetBorderIcons(TBorderIcons value);
    /// fsStayOnTop keeps the form above those of other programs. The MDI styles are read and have no effect.
    TFormStyle GetFormStyle() const { return FFormStyle; }
    void SetFormStyle(TFormStyle value);
    /// Where the form appears the first time it is shown.
    TPosition GetPosition() const { return FPosition; }
    void SetPosition(TPosition value) { FPosition = value; }
    TWindowState GetWindowState() const;
    void SetWindowState(TWindowState value);
    /// Whether the form's own key events come before those of the control with the focus.
    bool GetKeyPreview() const { return FKeyPreview; }
    void SetKeyPreview(bool value) { FKeyPreview = value; }
    bool GetScaled() const { return FScaled; }
    void SetScaled(bool value) { FScaled = value; }
    /// The resolution that the form's sizes stand for now. A text form names the one it was designed at; the loaded
    /// form is scaled to its monitor's unless Scaled is off.
    int GetPixelsPerInch() const { return FPixelsPerInch; }
    void SetPixelsPerInch(int value);
    TModalResult GetModalResult() const { return FModalResult; }
    void SetModalResult(TModalResult value) { FModalResult = value; }
    /// For OnPaint, and only while it runs.
    TCanvas* GetCanvas() const { return FCanvas.get(); }

    /// Shows without waiting. A form with WS_EX_NOACTIVATE among its styles leaves the activation where it is.
    void Show();
    void Hide() { SetVisible(false); }
    /// Shows above a disabled rest of the program and runs messages until ModalResult is set and OnCloseQuery agrees.
    /// mrCancel when the form is closed or hidden; mrNone when it is freed. EInvalidOperation when it is visible.
    TModalResult ShowModal();
    /// Asks OnCloseQuery, then OnClose how; the main form's closing ends the program.
    void Close();
    virtual bool CloseQuery();
    /// Frees the form once the handlers that run now have ended.
    void Release();
    /// Fires OnDestroy. A form class whose handlers use its own members, and which is freed by a plain delete, calls
    /// this first in its destructor.
    void BeforeDestruction() override;
    /// True while the form's window is the active one. While a message box or another program is in front it is not,
    /// but still Screen's ActiveForm; OnDeactivate waits until another form of the program becomes that.
    bool Active() const;

    /// Makes `control` (null: none) the focused one, telling those left (CM_EXIT) and entered (CM_ENTER); false when a
    /// handler moved the focus elsewhere meanwhile.
    bool SetFocusedControl(TWinControl* control);
    /// Moves to `control` as if it had been clicked.
    void FocusControl(TWinControl* control);
    /// While suspended, focus changes go unnoticed: a window is being made anew.
    void SuspendFocus(bool suspend) { FFocusSuspended += suspend ? 1 : -1; }
    TWinControl* GetFocusedControl() const { return FFocusedControl; }
    /// Forgets a control that dies, is hidden, disabled or moved away.
    void DefocusControl(TWinControl* control, bool removing);

    void SetBounds(int left, int top, int width, int height) override;
    TRect GetClientRect() const override;
    void SetVisible(bool value) override;
    void SetParent(TWinControl* value) override;
    std::vector<TComponent*> GetChildren(TComponent* root) const override;

    // Published accessors that text forms need.
    int GetDesignClientWidth() const { return GetClientWidth(); }
    void SetDesignClientWidth(int value);
    int GetDesignClientHeight() const { return GetClientHeight(); }
    void SetDesignClientHeight(int value);
    bool GetDesignVisible() const;
    void SetDesignVisible(bool value);

protected:
    void CreateParams(TCreateParams& params) override;
    void CreateWnd() override;
    void DestroyHandle() override;
    void Dispatch(TMessage& message) override;
    void Loaded() override;
    /// Fires OnCreate, once in the life of the form, then shows the form when its text form says so.
    void LoadFinished() override;
    void Updating() override;
    void Notification(TComponent* component, TOperation operation) override;
    void PaintWindow(HDC dc) override;
    void CMDialogKey(TMessage& message) override;
    void CMShowingChanged(TMessage& message) override;
    virtual void DoShow();
    virtual void DoHide();
    virtual void DoClose(TCloseAction& action);
    virtual void Activate();
    virtual void Deactivate();
    virtual void Paint();

private:
    friend class TWinControl;

    void WMActivate(TMessage& message);
    void WMDpiChanged(TMessage& message);
    void CloseModal();
    void ScaleTo(int m, int d);
    void ScaleWithClient(int m, int d);
    void PlaceOnScreen();
    void TakeWindowFocus();
    void ChooseActiveControl();
    void ScaleForMonitor();
    TSize BorderExtent() const;

    std::shared_ptr<TCanvas> FCanvas;
    TWinControl* FActiveControl = nullptr;
    TWinControl* FFocusedControl = nullptr;
    std::vector<HWND> FOwnedWindows; // of forms above this one, while its window is made anew
    TSize FPendingClient;            // client size from a text form, until the border is known
    TSize FRestoredClient;           // client size to which a minimised form comes back
    int FFocusMessages = 0;          // counts focus changes, so that one can see that another came in between
    int FFocusSuspended = 0;
    int FPixelsPerInch;
    int FDesignPixelsPerInch = 0; // the resolution that the text form was designed at
    bool FScaledOnLoad = false;   // from that to FPixelsPerInch
    bool FCreateTold = false;     // OnCreate was fired
    TFormBorderStyle FBorderStyle = bsSizeable;
    TBorderIcons FBorderIcons = {biSystemMenu, biMinimize, biMaximize};
    TFormStyle FFormStyle = fsNormal;
    TPosition FPosition = poDefaultPosOnly;
    TWindowState FWindowState = wsNormal;
    TModalResult FModalResult = mrNone;
    bool FKeyPreview = false;
    bool FScaled = true;
    bool FModal = false;
    bool FActive = false; // its window is the active one
    bool FPlaced = false;
    bool FShowOnLoad = false;
    bool FDestroyTold = false; // OnDestroy was fired
    bool FOldCreateOrder = false;
    int FTextHeight = 0;
};

class TForm : public TCustomForm {
    FRAMEWORK_CLASS(TForm)

public:
    explicit TForm(TComponent* owner) : TCustomForm(owner) {}
};

} // namespace framework
