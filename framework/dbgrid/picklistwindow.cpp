#include "framework/dbgrid/picklistwindow.h"

#include "framework/dbgrid/dbgrid.h"
#include "framework/windows/application.h"

#include <algorithm>

namespace framework {

const TClassInfo& TPickListWindow::StaticClass() {
    static const TClassInfo info = DescribeClass<TPickListWindow>(u"TPickListWindow", TCustomListBox::StaticClass());
    return info;
}

namespace {

constexpr std::uint32_t kWatchInterval = 50; // milliseconds

} // namespace

TPickListWindow::TPickListWindow(TCustomDBGrid* grid) : TCustomListBox(grid), FGrid(grid) {
    SetVisible(false);
    SetTabStop(false);
    SetBorderStyle(bsNone); // CreateParams gives it a thin one
    FTimer.SetEnabled(false);
    FTimer.SetInterval(kWatchInterval);
    FTimer.OnTimer = [this](TObject*) { Watch(); };
}

void TPickListWindow::CreateParams(TCreateParams& params) {
    TCustomListBox::CreateParams(params);
    params.Style = (params.Style & ~static_cast<DWORD>(WS_CHILD | WS_TABSTOP)) | WS_POPUP | WS_BORDER;
    params.ExStyle |= WS_EX_TOOLWINDOW | WS_EX_TOPMOST | WS_EX_NOACTIVATE;
    // It belongs to the form of its grid, so that it stays above that and goes with it.
    params.WndParent = GetAncestor(FGrid->GetHandle(), GA_ROOT);
}

void TPickListWindow::Open(const TRect& cell, int rows) {
    const int border = 2 * GetSystemMetrics(SM_CYBORDER);
    HandleNeeded();
    const int height = std::clamp(GetCount(), 1, rows) * GetItemHeight() + border;
    const TRect area = TheScreen().GetWorkArea(cell);
    const bool above = cell.Bottom + height > area.Bottom && cell.Top - area.Top > area.Bottom - cell.Bottom;
    const int left = std::max(std::min<int>(cell.Left, area.Right - cell.Width()), static_cast<int>(area.Left));
    SetWindowPos(FHandle, HWND_TOPMOST, left, above ? cell.Top - height : cell.Bottom, cell.Width(), height,
                 SWP_NOACTIVATE | SWP_SHOWWINDOW);
    FCell = cell;
    GetCursorPos(&FRest);
    Pressed(); // what was pressed before does not count
    FTimer.SetEnabled(true);
}

void TPickListWindow::Close() {
    FTimer.SetEnabled(false);
    ShowWindow(FHandle, SW_HIDE);
}

/// Whether a mouse button is down, or was since this was last asked.
bool TPickListWindow::Pressed() {
    bool pressed = false;
    for (const int button : {VK_LBUTTON, VK_RBUTTON, VK_MBUTTON})
        pressed = (GetAsyncKeyState(button) & 0x8001) != 0 || pressed;
    return pressed;
}

/// The list hears nothing of presses elsewhere, nor when the form is moved.
void TPickListWindow::Watch() {
    POINT pointer{};
    GetCursorPos(&pointer);
    RECT own{};
    GetWindowRect(FHandle, &own);
    const bool pressed = Pressed() && ::GetCapture() != FHandle; // which its scroll bar may hold
    const bool inside = FromWin(own).Contains(FromWin(pointer)) || FCell.Contains(FromWin(pointer));
    if ((pressed && !inside) || FGrid->FocusOnScreen() != FCell || !IsWindowVisible(FGrid->GetHandle()))
        FGrid->CloseList(false);
}

void TPickListWindow::Step(int distance) {
    if (GetCount() > 0)
        SetItemIndex(std::clamp(GetItemIndex() + distance, 0, GetCount() - 1));
}

void TPickListWindow::Dispatch(TMessage& message) {
    // The native list would take the focus on a click.
    switch (message.Msg) {
    case WM_MOUSEACTIVATE:
        message.Result = MA_NOACTIVATE;
        return;
    case WM_MOUSEMOVE: {
        // The system tells of a pointer as well that lay there when the list opened.
        POINT pointer{};
        GetCursorPos(&pointer);
        if (pointer.x == FRest.x && pointer.y == FRest.y)
            return;
        FRest = {-1, -1};
        [[fallthrough]];
    }
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
        if (const int item = ItemAtPos(PointFromLParam(message.LParam), true); item >= 0)
            SetItemIndex(item);
        return;
    case WM_LBUTTONUP:
        if (ItemAtPos(PointFromLParam(message.LParam), true) >= 0)
            FGrid->CloseList(true);
        return;
    default:
        TCustomListBox::Dispatch(message);
    }
}

} // namespace framework
