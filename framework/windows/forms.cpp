#include "framework/windows/forms.h"

#include "framework/graphics/brushes.h"
#include "framework/graphics/canvas.h"
#include "framework/windows/application.h"

#include <algorithm>

namespace framework {

const TEnumInfo& DescribeEnum(TPosition) {
    static const TEnumInfo info{u"TPosition",
                                {u"poDesigned", u"poDefault", u"poDefaultPosOnly", u"poDefaultSizeOnly",
                                 u"poScreenCenter", u"poDesktopCenter", u"poMainFormCenter", u"poOwnerFormCenter"}};
    return info;
}

const TEnumInfo& DescribeEnum(TBorderIcon) {
    static const TEnumInfo info{u"TBorderIcon", {u"biSystemMenu", u"biMinimize", u"biMaximize", u"biHelp"}};
    return info;
}

const TEnumInfo& DescribeEnum(TWindowState) {
    static const TEnumInfo info{u"TWindowState", {u"wsNormal", u"wsMinimized", u"wsMaximized"}};
    return info;
}

const TEnumInfo& DescribeEnum(TFormStyle) {
    static const TEnumInfo info{u"TFormStyle", {u"fsNormal", u"fsMDIChild", u"fsMDIForm", u"fsStayOnTop"}};
    return info;
}

const TClassInfo& TCustomForm::StaticClass() {
    static const TClassInfo info = DescribeClass<TCustomForm>(
        u"TCustomForm", TWinControl::StaticClass(),
        // Designers write these two; they have no effect any more.
        {Property<&TCustomForm::FOldCreateOrder, &TCustomForm::FOldCreateOrder>(u"OldCreateOrder", false).NotStored(),
         Property<&TCustomForm::FTextHeight, &TCustomForm::FTextHeight>(u"TextHeight", 0).NotStored()});
    return info;
}

const TClassInfo& TForm::StaticClass() {
    namespace shared = controlrows;
    static const TClassInfo info = DescribeClass<TForm>(
        u"TForm", TCustomForm::StaticClass(),
        {// The size of the client area is what is written; the border depends on the system.
         Property<&TForm::GetWidth, &TForm::SetWidth>(u"Width").NotStored(),
         Property<&TForm::GetHeight, &TForm::SetHeight>(u"Height").NotStored(),
         Property<&TForm::GetActiveControl, &TForm::SetActiveControl>(u"ActiveControl"), shared::Align(),
         shared::Anchors(), shared::AutoSize(false), shared::BiDiMode(),
         Property<&TForm::GetBorderIcons, &TForm::SetBorderIcons>(u"BorderIcons",
                                                                  {biSystemMenu, biMinimize, biMaximize}),
         Property<&TForm::GetBorderStyle, &TForm::SetBorderStyle>(u"BorderStyle", bsSizeable), shared::Caption(),
         Property<&TForm::GetDesignClientHeight, &TForm::SetDesignClientHeight>(u"ClientHeight"),
         Property<&TForm::GetDesignClientWidth, &TForm::SetDesignClientWidth>(u"ClientWidth"),
         // A form states its colour and font even when they are the usual ones: its controls
         // follow them on every system.
         Property<&TForm::GetColor, &TForm::SetColor>(u"Color")
             .Named(ColorIdentifiers())
             .StoredWhen<&TForm::ColorStored>(),
         shared::Constraints(), shared::Ctl3D(), shared::DoubleBuffered(), shared::Enabled(), shared::Font(),
         Property<&TForm::GetParentFont, &TForm::SetParentFont>(u"ParentFont", false),
         Property<&TForm::GetFormStyle, &TForm::SetFormStyle>(u"FormStyle", fsNormal),
         Property<&TForm::GetKeyPreview, &TForm::SetKeyPreview>(u"KeyPreview", false),
         Property<&TForm::GetPixelsPerInch, &TForm::SetPixelsPerInch>(u"PixelsPerInch"),
         Property<&TForm::GetPosition, &TForm::SetPosition>(u"Position", poDefaultPosOnly),
         Property<&TForm::GetScaled, &TForm::SetScaled>(u"Scaled", true), shared::ShowHint(),
         Property<&TForm::GetDesignVisible, &TForm::SetDesignVisible>(u"Visible", false),
         Property<&TForm::GetWindowState, &TForm::SetWindowState>(u"WindowState", wsNormal),
         Event<&TForm::OnActivate>(u"OnActivate"), shared::OnClick(), Event<&TForm::OnClose>(u"OnClose"),
         Event<&TForm::OnCloseQuery>(u"OnCloseQuery"), Event<&TForm::OnCreate>(u"OnCreate"), shared::OnDblClick(),
         Event<&TForm::OnDestroy>(u"OnDestroy"), Event<&TForm::OnDeactivate>(u"OnDeactivate"),
         Event<&TForm::OnHide>(u"OnHide"), shared::OnKeyDown(), shared::OnKeyPress(), shared::OnKeyUp(),
         shared::OnMouseDown(), shared::OnMouseMove(), shared::OnMouseUp(), shared::OnMouseWheel(),
         Event<&TForm::OnPaint>(u"OnPaint"), shared::OnResize(), Event<&TForm::OnShow>(u"OnShow")});
    return info;
}

TCustomForm::TCustomForm(TComponent* owner)
    : TWinControl(owner), FCanvas(std::make_shared<TCanvas>()), FPixelsPerInch(TheScreen().GetPixelsPerInch()) {
    FControlStyle = {csAcceptsControls, csCaptureMouse, csClickEvents, csSetCaption, csDoubleClicks};
    FControlState << csCustomPaint;
    TWinControl::SetBounds(0, 0, 320, 240);
    SetColor(clBtnFace);
    SetParentFont(false);
    TWinControl::SetVisible(false);
    TheScreen().FForms.push_back(this);
}

TCustomForm::~TCustomForm() {
    TCustomForm::BeforeDestruction();
    Destroying();
    FActiveControl = nullptr;
    FFocusedControl = nullptr;
    std::erase(TheScreen().FForms, this);
    if (TheScreen().FActiveForm == this)
        TheScreen().SetActive(nullptr, nullptr);
    DestroyHandle();
}

void TCustomForm::BeforeDestruction() {
    if (FDestroyTold)
        return;
    FDestroyTold = true;
    try {
        Fire(*this, OnDestroy, this);
    } catch (...) {
        TheApplication().HandleException(this);
    }
}

// Window

void TCustomForm::CreateParams(TCreateParams& params) {
    TWinControl::CreateParams(params);
    params.Style &= ~DWORD{WS_VISIBLE | WS_TABSTOP};
    if (GetParent())
        return;
    params.Style &= ~DWORD{WS_CHILD};
    params.Style |= WS_POPUP | WS_CLIPCHILDREN;
    params.ExStyle |= WS_EX_CONTROLPARENT;
    if (TCustomForm* main = TheApplication().GetMainForm(); main && main != this && main->HandleAllocated())
        params.WndParent = main->GetHandle();
    switch (FBorderStyle) {
    case bsNone:
        break;
    case bsSingle:
        params.Style |= WS_CAPTION | WS_BORDER;
        break;
    case bsSizeable:
        params.Style |= WS_CAPTION | WS_THICKFRAME;
        break;
    case bsDialog:
        params.Style |= WS_CAPTION;
        params.ExStyle |= WS_EX_DLGMODALFRAME | WS_EX_WINDOWEDGE;
        break;
    case bsToolWindow:
        params.Style |= WS_CAPTION;
        params.ExStyle |= WS_EX_TOOLWINDOW;
        break;
    case bsSizeToolWin:
        params.Style |= WS_CAPTION | WS_THICKFRAME;
        params.ExStyle |= WS_EX_TOOLWINDOW;
        break;
    }
    if (FBorderStyle != bsNone && FBorderIcons.Contains(biSystemMenu))
        params.Style |= WS_SYSMENU;
    if (FBorderStyle == bsSingle || FBorderStyle == bsSizeable) {
        if (FBorderIcons.Contains(biMinimize))
            params.Style |= WS_MINIMIZEBOX;
        if (FBorderIcons.Contains(biMaximize))
            params.Style |= WS_MAXIMIZEBOX;
    }
    if (FFormStyle == fsStayOnTop)
        params.ExStyle |= WS_EX_TOPMOST;
}

void TCustomForm::CreateWnd() {
    PlaceOnScreen();
    TWinControl::CreateWnd();
    for (HWND window : std::exchange(FOwnedWindows, {})) {
        if (IsWindow(window) && !GetWindow(window, GW_OWNER))
            SetWindowLongPtrW(window, GWLP_HWNDPARENT, reinterpret_cast<LONG_PTR>(FHandle));
    }
    ScaleForMonitor();
}

void TCustomForm::DestroyHandle() {
    // Windows destroys what a window owns along with it; the other forms live on, and lie above the next window again.
    for (const TCustomForm* form : TheScreen().FForms) {
        if (HandleAllocated() && form->HandleAllocated() && GetWindow(form->FHandle, GW_OWNER) == FHandle) {
            SetWindowLongPtrW(form->FHandle, GWLP_HWNDPARENT, 0);
            FOwnedWindows.push_back(form->FHandle);
        }
    }
    TWinControl::DestroyHandle();
}

void TCustomForm::SetBounds(int left, int top, int width, int height) {
    if (!HandleAllocated() || !IsIconic(FHandle)) {
        TWinControl::SetBounds(left, top, width, height);
        return;
    }
    // What moves is the place to which the minimised window will come back.
    width = ConstrainedExtent(std::max(width, 0), GetConstraints()->GetMinWidth(), GetConstraints()->GetMaxWidth());
    height = ConstrainedExtent(std::max(height, 0), GetConstraints()->GetMinHeight(), GetConstraints()->GetMaxHeight());
    WINDOWPLACEMENT placement{};
    placement.length = sizeof(placement);
    if (!GetWindowPlacement(FHandle, &placement))
        return;
    RECT& place = placement.rcNormalPosition; // in pixels of the work area, hence relative to the present bounds
    place.left += left - GetLeft();
    place.top += top - GetTop();
    place.right = place.left + width;
    place.bottom = place.top + height;
    placement.showCmd = SW_SHOWMINNOACTIVE;
    SetWindowPlacement(FHandle, &placement);
    UpdateBoundsDirect(left, top, width, height);
}

TSize TCustomForm::BorderExtent() const {
    const TRect client = GetClientRect();
    return {GetWidth() - client.Width(), GetHeight() - client.Height()};
}

TRect TCustomForm::GetClientRect() const {
    if (HandleAllocated() && IsIconic(FHandle))
        return {0, 0, FRestoredClient.Width, FRestoredClient.Height};
    return TWinControl::GetClientRect();
}

void TCustomForm::SetDesignClientWidth(int value) {
    FPendingClient.Width = value;
    SetClientWidth(value);
}

void TCustomForm::SetDesignClientHeight(int value) {
    FPendingClient.Height = value;
    SetClientHeight(value);
}

void TCustomForm::PlaceOnScreen() {
    if (FPlaced || GetParent() || IsDesigning())
        return;
    FPlaced = true;
    const TRect area = TheScreen().GetWorkArea(GetBoundsRect());
    const auto centre = [this](const TRect& within) {
        SetBounds(within.Left + (within.Width() - GetWidth()) / 2, within.Top + (within.Height() - GetHeight()) / 2,
                  GetWidth(), GetHeight());
    };
    switch (FPosition) {
    case poDesigned:
        break;
    case poMainFormCenter:
    case poOwnerFormCenter: {
        const auto* owner = As<TCustomForm>(GetOwnerComponent());
        const TCustomForm* around = FPosition == poOwnerFormCenter && owner ? owner : TheApplication().GetMainForm();
        centre(around && around != this ? around->GetBoundsRect() : area);
        break;
    }
    case poScreenCenter:
    case poDesktopCenter:
        centre(area);
        break;
    case poDefault:
    case poDefaultPosOnly:
    case poDefaultSizeOnly: {
        if (FPosition != poDefaultPosOnly) // as large as the system makes windows
            SetBounds(GetLeft(), GetTop(), MulDiv(area.Width(), 3, 4), MulDiv(area.Height(), 3, 4));
        if (FPosition == poDefaultSizeOnly)
            break;
        // A step from the form before, as the system places windows.
        static int cascade = 0;
        const int step = GetSystemMetrics(SM_CYCAPTION) + GetSystemMetrics(SM_CYSIZEFRAME);
        cascade = (cascade + 1) % 8;
        SetBounds(area.Left + cascade * step, area.Top + cascade * step, GetWidth(), GetHeight());
    }
    }
}

void TCustomForm::SetBorderStyle(TFormBorderStyle value) {
    if (FBorderStyle == value)
        return;
    const TRect client = GetClientRect();
    FBorderStyle = value;
    TLifeGuard alive(*this);
    RecreateWnd();
    if (alive && !HandleAllocated() && !IsLoading()) {
        SetClientWidth(client.Width());
        SetClientHeight(client.Height());
    }
}

void TCustomForm::SetBorderIcons(TBorderIcons value) {
    if (FBorderIcons == value)
        return;
    FBorderIcons = value;
    RecreateWnd();
}

void TCustomForm::SetFormStyle(TFormStyle value) {
    if (FFormStyle == value)
        return;
    FFormStyle = value;
    if (HandleAllocated())
        SetWindowPos(FHandle, value == fsStayOnTop ? HWND_TOPMOST : HWND_NOTOPMOST, 0, 0, 0, 0,
                     SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
}

TWindowState TCustomForm::GetWindowState() const {
    if (!HandleAllocated() || !GetShowing())
        return FWindowState; // the state in which it will be shown
    return IsIconic(FHandle) ? wsMinimized : IsZoomed(FHandle) ? wsMaximized : wsNormal;
}

void TCustomForm::SetWindowState(TWindowState value) {
    FWindowState = value;
    if (HandleAllocated() && GetShowing())
        ShowWindow(FHandle, value == wsMinimized   ? SW_SHOWMINIMIZED
                            : value == wsMaximized ? SW_SHOWMAXIMIZED
                                                   : SW_SHOWNORMAL);
}

void TCustomForm::SetParent(TWinControl* value) {
    if (value == GetParent())
        return;
    DestroyHandle();
    TWinControl::SetParent(value);
}

std::vector<TComponent*> TCustomForm::GetChildren(TComponent* root) const {
    std::vector<TComponent*> children = TWinControl::GetChildren(root);
    if (root == this) {
        for (int i = 0; i < GetComponentCount(); ++i) {
            if (TComponent* component = GetComponent(i); !component->HasParent() && !As<TControl>(component))
                children.push_back(component);
        }
    }
    return children;
}

// Loading and scaling

void TCustomForm::Updating() {
    // A second text form, that of a descendant, means the pixels that the first one was designed in.
    if (std::exchange(FScaledOnLoad, false))
        ScaleWithClient(FDesignPixelsPerInch, FPixelsPerInch);
    FPendingClient = {};
}

void TCustomForm::SetPixelsPerInch(int value) {
    if (value <= 0)
        return;
    if (IsLoading())
        FDesignPixelsPerInch = value;
    else
        FPixelsPerInch = value;
}

void TCustomForm::Loaded() {
    // The border may have become known after the client size was read.
    if (FPendingClient.Width > 0)
        SetClientWidth(FPendingClient.Width);
    if (FPendingClient.Height > 0)
        SetClientHeight(FPendingClient.Height);
    FPendingClient = {};
    TWinControl::Loaded();
    // In a designer the form keeps the pixels that it was designed in, so that looking at it changes nothing.
    if ((!FScaled || IsDesigning()) && FDesignPixelsPerInch > 0)
        FPixelsPerInch = FDesignPixelsPerInch;
    FScaledOnLoad = FDesignPixelsPerInch > 0 && FDesignPixelsPerInch != FPixelsPerInch;
    TLifeGuard alive(*this);
    if (FScaledOnLoad)
        ScaleWithClient(FPixelsPerInch, FDesignPixelsPerInch);
    if (!alive)
        return;
    if (FActiveControl && !FActiveControl->CanFocus())
        FActiveControl = nullptr;
}

void TCustomForm::LoadFinished() {
    const bool isCreated = std::exchange(FCreateTold, true);
    if ((isCreated || Fire(*this, OnCreate, this)) && FShowOnLoad)
        SetVisible(true);
}

/// Everything on the form; its own size is the caller's matter.
void TCustomForm::ScaleTo(int m, int d) {
    TLifeGuard alive(*this);
    WithoutAlign([&] {
        GetConstraints()->Scale(m, d);
        ScaleControls(m, d);
        if (alive)
            GetFont()->SetHeight(MulDiv(GetFont()->GetHeight(), m, d));
    });
}

void TCustomForm::ScaleWithClient(int m, int d) {
    const TRect client = GetClientRect();
    TLifeGuard alive(*this);
    ScaleTo(m, d);
    if (!alive)
        return;
    SetClientWidth(MulDiv(client.Width(), m, d));
    if (alive)
        SetClientHeight(MulDiv(client.Height(), m, d));
}

void TCustomForm::ScaleForMonitor() {
    const int monitor = TheScreen().GetPixelsPerInch(FHandle);
    if (!FScaled || GetParent() || IsDesigning() || monitor == FPixelsPerInch)
        return;
    const TRect client = GetClientRect();
    const TSize border = BorderExtent();
    TLifeGuard alive(*this);
    ScaleTo(monitor, FPixelsPerInch);
    if (!alive)
        return;
    SetBounds(GetLeft(), GetTop(), MulDiv(client.Width(), monitor, FPixelsPerInch) + border.Width,
              MulDiv(client.Height(), monitor, FPixelsPerInch) + border.Height);
    FPixelsPerInch = monitor;
}

void TCustomForm::WMDpiChanged(TMessage& message) {
    const int monitor = HighWord(message.WParam);
    if (!FScaled || monitor == FPixelsPerInch || monitor == 0) {
        DefaultHandler(message);
        return;
    }
    TLifeGuard alive(*this);
    ScaleTo(monitor, FPixelsPerInch);
    if (!alive)
        return;
    FPixelsPerInch = monitor;
    const TRect place = FromWin(*reinterpret_cast<const RECT*>(message.LParam));
    Invalidate();
    SetBoundsRect(place);
}

// Showing and closing

bool TCustomForm::GetDesignVisible() const {
    return IsDesigning() ? FShowOnLoad : GetVisible();
}

void TCustomForm::SetDesignVisible(bool value) {
    if (IsLoading() || IsDesigning())
        FShowOnLoad = value; // once everything on it is there
    else
        SetVisible(value);
}

void TCustomForm::SetVisible(bool value) {
    TLifeGuard alive(*this);
    try {
        TWinControl::SetVisible(value);
    } catch (...) {
        // A form that could not be shown is not visible, so that the next attempt is one.
        if (alive && value && !GetShowing())
            FVisible = false;
        throw;
    }
}

void TCustomForm::Show() {
    SetVisible(true);
    if (GetParent() || !HandleAllocated() || !GetShowing())
        return;
    if ((GetWindowLongPtrW(FHandle, GWL_EXSTYLE) & WS_EX_NOACTIVATE) == 0)
        SetWindowPos(FHandle, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
}

void TCustomForm::CMShowingChanged(TMessage& message) {
    if (GetParent()) {
        TWinControl::CMShowingChanged(message);
        return;
    }
    TLifeGuard alive(*this);
    if (!GetShowing()) {
        DoHide();
        if (alive && HandleAllocated())
            ShowWindow(FHandle, SW_HIDE);
        // Mostly the system has activated another form by now.
        if (alive && TheScreen().GetActiveForm() == this) {
            TheScreen().SetActive(nullptr, nullptr);
            if (alive && !IsDestroying())
                Perform(CM_DEACTIVATE);
        }
        return;
    }
    DoShow();
    if (!alive || !HandleAllocated() || !GetShowing())
        return;
    int command = SW_SHOWNORMAL;
    if (GetWindowLongPtrW(FHandle, GWL_EXSTYLE) & WS_EX_NOACTIVATE)
        command = SW_SHOWNOACTIVATE;
    else if (FWindowState != wsNormal)
        command = FWindowState == wsMaximized ? SW_SHOWMAXIMIZED : SW_SHOWMINIMIZED;
    ShowWindow(FHandle, command);
}

void TCustomForm::DoShow() {
    Fire(*this, OnShow, this);
}

void TCustomForm::DoHide() {
    Fire(*this, OnHide, this);
}

bool TCustomForm::CloseQuery() {
    bool canClose = true;
    if (!Fire(*this, OnCloseQuery, this, canClose))
        return false;
    return canClose;
}

void TCustomForm::DoClose(TCloseAction& action) {
    Fire(*this, OnClose, this, action);
}

void TCustomForm::Close() {
    if (FModal) {
        FModalResult = mrCancel;
        return;
    }
    TLifeGuard alive(*this);
    if (!CloseQuery() || !alive)
        return;
    TCloseAction action = caHide;
    DoClose(action);
    if (!alive || action == caNone)
        return;
    if (TheApplication().GetMainForm() == this)
        TheApplication().Terminate();
    else if (action == caHide)
        Hide();
    else if (action == caMinimize)
        SetWindowState(wsMinimized);
    else
        Release();
}

void TCustomForm::Release() {
    TheApplication().QueueRelease(this);
}

TModalResult TCustomForm::ShowModal() {
    if (GetVisible() || FModal)
        throw EInvalidOperation(u"A form that is visible already cannot be shown modally");
    ReleaseCapture(); // a drag that is going on ends here
    const HWND activeBefore = GetActiveWindow();
    std::vector<HWND> disabled;
    for (TCustomForm* form : TheScreen().FForms) {
        // A popup of this form's own fields stays usable.
        const bool ours = HandleAllocated() && form->HandleAllocated() && GetWindow(form->FHandle, GW_OWNER) == FHandle;
        if (form != this && !ours && form->HandleAllocated() && !form->GetParent() && IsWindowEnabled(form->FHandle))
            disabled.push_back(form->FHandle);
    }
    for (HWND window : disabled)
        EnableWindow(window, FALSE);
    TLifeGuard alive(*this);
    // The others can be active again before this one goes, or the system would choose another program's window.
    const auto finish = [&] {
        for (HWND window : disabled)
            EnableWindow(window, TRUE);
        if (alive) {
            FModal = false;
            Hide();
        }
    };
    FModal = true;
    FModalResult = mrNone;
    TModalResult result = mrNone;
    try {
        Show();
        while (alive && result == mrNone) {
            TheApplication().HandleMessage();
            if (!alive)
                break;
            if (TheApplication().GetTerminated())
                FModalResult = mrCancel;
            else if (FModalResult != mrNone)
                CloseModal();
            if (alive)
                result = GetVisible() || FModalResult != mrNone ? FModalResult : mrCancel;
        }
    } catch (...) {
        finish();
        throw;
    }
    finish();
    if (activeBefore)
        SetActiveWindow(activeBefore);
    return result;
}

/// Asks whether the result that was set may close the form; when not, or when asking fails, the form stays open and the
/// result is taken back.
void TCustomForm::CloseModal() {
    TLifeGuard alive(*this);
    TCloseAction action = caNone;
    try {
        if (CloseQuery() && alive) {
            action = caHide;
            DoClose(action);
        }
    } catch (...) {
        action = caNone;
        TheApplication().HandleException(alive ? this : nullptr);
    }
    if (!alive)
        return;
    if (action == caNone)
        FModalResult = mrNone;
    else if (action == caFree)
        Release();
}

bool TCustomForm::Active() const {
    return FActive;
}

// Messages

void TCustomForm::Dispatch(TMessage& message) {
    switch (message.Msg) {
    case WM_ACTIVATE:
        return WMActivate(message);
    case WM_ACTIVATEAPP:
        if (!GetParent())
            TheApplication().SetActive(message.WParam != 0); // all forms are told; the first one counts
        break;
    case WM_CLOSE:
        return Close();
    case WM_QUERYENDSESSION: // the user logs off: what was not saved may keep the program
        message.Result = GetParent() || !GetVisible() || CloseQuery();
        return;
    case WM_DPICHANGED:
        return WMDpiChanged(message);
    case WM_MOUSEACTIVATE:
        if (HandleAllocated() && (GetWindowLongPtrW(FHandle, GWL_EXSTYLE) & WS_EX_NOACTIVATE)) {
            message.Result = MA_NOACTIVATE;
            return;
        }
        break;
    case WM_SETFOCUS:
        return TakeWindowFocus();
    case WM_SIZE:
        if (message.WParam != SIZE_MINIMIZED) {
            const TRect client = TWinControl::GetClientRect();
            FRestoredClient = {client.Width(), client.Height()};
        }
        break;
    case CM_ACTIVATE:
        return Activate();
    case CM_DEACTIVATE:
        return Deactivate();
    case CM_RELEASE:
        return Release();
    default:
        break;
    }
    TWinControl::Dispatch(message);
}

void TCustomForm::PaintWindow(HDC dc) {
    const TCanvasBinding binding(FCanvas, dc);
    Paint();
}

void TCustomForm::Paint() {
    Fire(*this, OnPaint, this);
}

void TCustomForm::Notification(TComponent* component, TOperation operation) {
    TWinControl::Notification(component, operation);
    if (operation != opRemove)
        return;
    if (component == FActiveControl)
        FActiveControl = nullptr;
    if (component == FFocusedControl)
        FFocusedControl = nullptr;
}

} // namespace framework
