// The controls on a control: their order, layout, tab order, and the properties that reach them from above.

#include "framework/windows/wincontrol.h"

#include "framework/graphics/brushes.h"
#include "framework/graphics/canvas.h"
#include "framework/graphics/handles.h"
#include "framework/system/numbers.h"
#include "framework/windows/application.h"

#include <algorithm>

namespace framework {

const TClassInfo& TWinControl::StaticClass() {
    static const TClassInfo info = DescribeClass<TWinControl>(u"TWinControl", TControl::StaticClass());
    return info;
}

TWinControl::TWinControl(TComponent* owner) : TControl(owner), FBrush(std::make_unique<TBrush>()) {
    FControlStyle << csOpaque;
    FBrush->SetColor(GetColor());
    FBrush->OnChange = [this](TObject*) { Invalidate(); };
}

TWinControl::~TWinControl() {
    Destroying();
    FBrush->OnChange = nullptr;
    if (TCustomForm* form = GetParentForm(this); form && form != this)
        form->DefocusControl(this, true);
    // The window first, all children's windows with it in one call; then nothing can send messages any more.
    DestroyHandle();
    while (!FWindows.empty() || !FGraphics.empty()) {
        TControl* child = FWindows.empty() ? FGraphics.back() : FWindows.back();
        Remove(child);
    }
    SetParent(nullptr); // here, where the parent still knows this for a window
}

// Children

TControl* TWinControl::GetControl(int index) const {
    const auto place = static_cast<std::size_t>(index);
    if (index < 0 || index >= GetControlCount())
        throw EListError(u"Control index out of bounds (" + IntToStr(index) + u")");
    return place < FGraphics.size() ? FGraphics[place] : FWindows[place - FGraphics.size()];
}

void TWinControl::InsertControl(TControl* control) {
    control->SetParent(this);
}

void TWinControl::RemoveControl(TControl* control) {
    if (control->FParent == this)
        control->SetParent(nullptr);
}

void TWinControl::Insert(TControl* control) {
    auto* window = As<TWinControl>(control);
    if (window) {
        FWindows.push_back(window);
        FTabList.push_back(window);
    } else {
        FGraphics.push_back(control);
    }
    control->FParent = this;
    if (IsDestroying())
        return;
    TLifeGuard alive(*this);
    TLifeGuard controlAlive(*control);
    const auto stays = [&] { return alive && controlAlive && control->FParent == this; };
    if (!control->IsLoading())
        control->ApplyParentProperties();
    if (stays())
        Perform(CM_CONTROLLISTCHANGE, reinterpret_cast<WPARAM>(control), 1);
    if (stays() && window)
        window->UpdateControlState();
    if (!stays())
        return;
    if (!window)
        control->Invalidate();
    control->UpdateAnchorBase();
    AlignControl(control);
}

namespace {

/// Lets the others on the parent know that a control goes. Nothing may leave a destructor: what their handlers throw
/// when it dies is reported here.
template <class TBody>
void TellOfRemoval(const TControl& control, const TBody& body) {
    const bool dies = control.GetComponentState().Contains(csDestroying);
    try {
        body();
    } catch (...) {
        if (!dies)
            throw;
        TheApplication().HandleException(nullptr);
    }
}

} // namespace

void TWinControl::Remove(TControl* control) {
    TLifeGuard alive(*this);
    TLifeGuard controlAlive(*control);
    const auto stays = [&] { return alive && controlAlive && control->FParent == this; };
    if (!IsDestroying())
        TellOfRemoval(*control, [&] { Perform(CM_CONTROLLISTCHANGE, reinterpret_cast<WPARAM>(control), 0); });
    if (!stays())
        return;
    if (auto* window = As<TWinControl>(control)) {
        if (TCustomForm* form = GetParentForm(this); form && !window->IsDestroying())
            form->DefocusControl(window, true);
        if (!stays())
            return; // the handlers of those that were left saw to it
        window->DestroyHandle();
        std::erase(FWindows, window);
        std::erase(FTabList, window);
    } else {
        if (!IsDestroying())
            control->Invalidate();
        // Mostly the last one that came goes first.
        const auto found = std::find(FGraphics.rbegin(), FGraphics.rend(), control);
        if (found != FGraphics.rend())
            FGraphics.erase(std::next(found).base());
    }
    control->FParent = nullptr;
    ++FRemovals;
    if (!IsDestroying())
        TellOfRemoval(*control, [this] { Realign(); });
}

TControl* TWinControl::ControlAtPos(TPoint point, bool allowDisabled, bool allowWindows) const {
    const auto isHit = [&](TControl* child) {
        if (!child->GetBoundsRect().Contains(point) || !child->ShowsOnParent())
            return false;
        if (!child->GetEnabled() && !allowDisabled)
            return false;
        const TPoint inside{point.X - child->GetLeft(), point.Y - child->GetTop()};
        return child->Perform(CM_HITTEST, 0, PointToLParam(inside)) != 0;
    };
    if (allowWindows) {
        const auto window = std::find_if(FWindows.rbegin(), FWindows.rend(), isHit);
        if (window != FWindows.rend())
            return *window;
    }
    const auto graphic = std::find_if(FGraphics.rbegin(), FGraphics.rend(), isHit);
    return graphic == FGraphics.rend() ? nullptr : *graphic;
}

void TWinControl::Broadcast(TMessage& message) {
    TLifeGuard alive(*this);
    for (int i = 0; alive && i < GetControlCount() && message.Result == 0; ++i)
        GetControl(i)->WndProc(message);
}

void TWinControl::NotifyControls(UINT message) {
    TMessage record{message, 0, 0, 0};
    TLifeGuard alive(*this);
    for (int i = 0; alive && i < GetControlCount(); ++i) {
        record.Result = 0;
        GetControl(i)->WndProc(record);
    }
}

std::vector<TComponent*> TWinControl::GetChildren(TComponent* root) const {
    std::vector<TComponent*> children;
    for (int i = 0; i < GetControlCount(); ++i) {
        TControl* child = GetControl(i);
        if (child->GetOwnerComponent() == root)
            children.push_back(child);
    }
    return children;
}

void TWinControl::SetChildOrder(TComponent* child, int order) {
    // The order counts all children, the windowless ones first, as GetChildren lists them.
    const auto move = [order](auto& list, auto* item, std::size_t before) {
        const auto found = std::find(list.begin(), list.end(), item);
        if (found == list.end())
            return;
        list.erase(found);
        const auto wanted = order - static_cast<std::ptrdiff_t>(before);
        const auto place = std::clamp<std::ptrdiff_t>(wanted, 0, static_cast<std::ptrdiff_t>(list.size()));
        list.insert(list.begin() + place, item);
    };
    if (auto* window = As<TWinControl>(child))
        move(FWindows, window, FGraphics.size());
    else if (auto* control = As<TControl>(child))
        move(FGraphics, control, 0);
}

void TWinControl::SetChildZOrder(TControl* child, bool topmost) {
    const auto move = [topmost](auto& list, auto* item) {
        const auto found = std::find(list.begin(), list.end(), item);
        if (found == list.end())
            return;
        if (topmost)
            std::rotate(found, found + 1, list.end());
        else
            std::rotate(list.begin(), found, found + 1);
    };
    if (auto* window = As<TWinControl>(child)) {
        move(FWindows, window);
        if (window->HandleAllocated())
            SetWindowPos(window->FHandle, topmost ? HWND_TOP : HWND_BOTTOM, 0, 0, 0, 0,
                         SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    } else {
        move(FGraphics, child);
        child->Invalidate();
    }
}

void TWinControl::ScrollBy(int deltaX, int deltaY) {
    TLifeGuard alive(*this);
    WithoutAlign([&] {
        // The windowless ones first: a caption that its control places anew, as that moves, is then where it belongs.
        for (TControl* child : FGraphics)
            child->UpdateBoundsDirect(child->GetLeft() + deltaX, child->GetTop() + deltaY, child->GetWidth(),
                                      child->GetHeight());
        if (HandleAllocated())
            ScrollWindowEx(FHandle, deltaX, deltaY, nullptr, nullptr, nullptr, nullptr,
                           SW_SCROLLCHILDREN | SW_INVALIDATE | SW_ERASE);
        for (std::size_t i = 0; alive && i < FWindows.size(); ++i) {
            TWinControl* child = FWindows[i];
            if (child->HandleAllocated() && HandleAllocated())
                child->SizeFromWindow();
            else
                child->UpdateBoundsDirect(child->GetLeft() + deltaX, child->GetTop() + deltaY, child->GetWidth(),
                                          child->GetHeight());
        }
    });
}

// Layout

void TWinControl::DisableAlign() {
    ++FAlignLevel;
}

void TWinControl::EnableAlign() {
    if (--FAlignLevel == 0 && FControlState.Contains(csAlignmentNeeded))
        Realign();
}

/// A body that raises leaves the layout switched on, to be done at the next occasion.
void TWinControl::WithoutAlign(const std::function<void()>& body) {
    TLifeGuard alive(*this);
    DisableAlign();
    try {
        body();
    } catch (...) {
        if (alive)
            --FAlignLevel;
        throw;
    }
    if (alive)
        EnableAlign();
}

void TWinControl::Realign() {
    AlignControl(nullptr);
}

void TWinControl::AlignControl(TControl* control) {
    if (IsDestroying())
        return;
    if (FAlignLevel > 0 || IsLoading()) {
        if (!control || control != FPlaced)
            FControlState << csAlignmentNeeded;
        return;
    }
    TLifeGuard alive(*this);
    LayOut(control);
    if (alive && FControlStyle.Contains(csAcceptsControls))
        AdjustSize();
}

void TWinControl::LayOut(TControl* control) {
    // A child that moves may take others with it, such as its caption, and its handlers may show or hide some; two that
    // push each other are left at the third attempt.
    constexpr int kRounds = 3;
    TLifeGuard alive(*this);
    for (int round = 0; alive && round < kRounds; ++round) {
        FControlState >> csAlignmentNeeded;
        ++FAlignLevel;
        const TAtScopeEnd done(*this, [this] { --FAlignLevel; });
        TRect client = GetClientRect();
        AlignControls(round == 0 ? control : nullptr, client);
        if (!alive || !FControlState.Contains(csAlignmentNeeded))
            return;
    }
    FControlState >> csAlignmentNeeded;
}

/// False when a handler took the control or one of its children away.
bool TWinControl::PlaceChild(TControl& child, const TRect& place) {
    const unsigned removals = FRemovals;
    TLifeGuard alive(*this);
    FPlaced = &child;
    const TAtScopeEnd placed(*this, [this] { FPlaced = nullptr; });
    child.SetBoundsRect(place);
    return alive && FRemovals == removals;
}

void TWinControl::AlignControls(TControl*, TRect& client) {
    const TSize extent{client.Width(), client.Height()};
    AdjustClientRect(client);
    std::vector<TControl*> controls;
    std::vector<TAlignedChild> places;
    const TAnchors none{akLeft, akTop};
    for (int i = 0; i < GetControlCount(); ++i) {
        TControl* child = GetControl(i);
        if (child->FAlign == alNone || child->FAlign == alCustom) {
            if (child->FAnchors == none)
                continue;
            child->FAligning = true;
            const TAtScopeEnd aligned(*child, [child] { child->FAligning = false; });
            if (!PlaceChild(*child, AnchoredPlace(child->FAnchorBase, child->FAnchors, extent)))
                return;
        } else if (child->ShowsOnParent()) {
            controls.push_back(child);
            places.push_back({child->FAlign, child->GetBoundsRect()});
        }
    }
    const TRect whole = client;
    client = AlignChildren(whole, places);
    bool anyAnswered = false;
    for (std::size_t i = 0; i < controls.size(); ++i) {
        if (!PlaceChild(*controls[i], places[i].Place))
            return;
        const TRect taken = controls[i]->GetBoundsRect();
        anyAnswered = anyAnswered || taken != places[i].Place;
        places[i].Place = taken;
    }
    if (!anyAnswered)
        return;
    // Some child answers its place with a size of its own, such as text that wraps at a new width: the others make
    // room.
    client = AlignChildren(whole, places);
    for (std::size_t i = 0; i < controls.size(); ++i) {
        if (!PlaceChild(*controls[i], places[i].Place))
            return;
    }
}

namespace {

/// How far children reach along one axis of a parent, in pixels of its client area.
struct TReach {
    int Free = -1; // the far edge of those that lie where they were put; -1: there are none
    int Near = 0;  // the sum of those that keep to the near side
    int Far = 0;   // the sum of those that keep to the far side

    bool Decides() const { return Free >= 0 || Near > 0 || Far > 0; }
    /// What the client area needs, given what its edges take.
    int Needed(int nearEdge, int farEdge) const { return std::max(Free, nearEdge + Near) + Far + farEdge; }
};

} // namespace

bool TWinControl::CanAutoSize(int& newWidth, int& newHeight) {
    TReach width;
    TReach height;
    for (int i = 0; i < GetControlCount(); ++i) {
        const TControl& child = *GetControl(i);
        if (!child.ShowsOnParent())
            continue;
        const TRect place = child.GetBoundsRect();
        switch (child.GetAlign()) {
        case alTop:
            height.Near += place.Height();
            break;
        case alBottom:
            height.Far += place.Height();
            break;
        case alLeft:
            width.Near += place.Width();
            break;
        case alRight:
            width.Far += place.Width();
            break;
        case alClient:
            break; // takes whatever there is
        default:
            // One that keeps to the far side moves along with it.
            if (!child.GetAnchors().Contains(akRight))
                width.Free = std::max(width.Free, place.Right);
            if (!child.GetAnchors().Contains(akBottom))
                height.Free = std::max(height.Free, place.Bottom);
        }
    }
    const TRect client = GetClientRect();
    TRect inside = client;
    AdjustClientRect(inside);
    const bool widthIsImposed = GetAlign() == alTop || GetAlign() == alBottom || GetAlign() == alClient;
    const bool heightIsImposed = GetAlign() == alLeft || GetAlign() == alRight || GetAlign() == alClient;
    if (width.Decides() && !widthIsImposed)
        newWidth += width.Needed(inside.Left, client.Right - inside.Right) - client.Width();
    if (height.Decides() && !heightIsImposed)
        newHeight += height.Needed(inside.Top, client.Bottom - inside.Bottom) - client.Height();
    return true;
}

void TWinControl::ChangeScale(int m, int d) {
    TLifeGuard alive(*this);
    WithoutAlign([&] {
        ScaleControls(m, d);
        if (alive)
            TControl::ChangeScale(m, d);
    });
}

void TWinControl::ScaleControls(int m, int d) {
    TLifeGuard alive(*this);
    for (int i = 0; alive && i < GetControlCount(); ++i)
        GetControl(i)->ChangeScale(m, d);
}

// Tab order

int TWinControl::GetTabOrder() const {
    if (!GetParent())
        return -1;
    const auto& list = GetParent()->FTabList;
    const auto found = std::find(list.begin(), list.end(), this);
    return static_cast<int>(found - list.begin());
}

void TWinControl::SetTabOrder(int value) {
    if (GetParent() && GetParent()->IsLoading()) {
        FLoadingTabOrder = value; // the siblings that come before it may not be there yet
        return;
    }
    if (!GetParent())
        return;
    auto& list = GetParent()->FTabList;
    const auto found = std::find(list.begin(), list.end(), this);
    if (found == list.end())
        return;
    list.erase(found);
    const auto last = static_cast<std::ptrdiff_t>(list.size());
    list.insert(list.begin() + (value < 0 ? last : std::min<std::ptrdiff_t>(value, last)), this);
}

void TWinControl::FixupTabOrder() {
    std::stable_sort(FTabList.begin(), FTabList.end(), [](const TWinControl* left, const TWinControl* right) {
        // Those without a stated order keep their place behind the others.
        const auto key = [](const TWinControl* each) {
            return each->FLoadingTabOrder < 0 ? INT_MAX : each->FLoadingTabOrder;
        };
        return key(left) < key(right);
    });
    for (TWinControl* window : FTabList)
        window->FLoadingTabOrder = -1;
}

void TWinControl::SetTabStop(bool value) {
    if (FTabStop == value)
        return;
    FTabStop = value;
    ChangeWindowStyle(WS_TABSTOP, value);
    Perform(CM_TABSTOPCHANGED);
}

void TWinControl::GetTabOrderList(std::vector<TWinControl*>& list) const {
    for (TWinControl* window : FTabList) {
        list.push_back(window);
        window->GetTabOrderList(list);
    }
}

TWinControl* TWinControl::FindNextControl(TWinControl* current, bool goForward, bool checkTabStop,
                                          bool checkParent) const {
    std::vector<TWinControl*> list;
    GetTabOrderList(list);
    if (list.empty())
        return nullptr;
    const auto count = static_cast<std::ptrdiff_t>(list.size());
    const auto found = std::find(list.begin(), list.end(), current);
    std::ptrdiff_t start = found - list.begin();
    if (found == list.end())
        start = goForward ? count - 1 : 0;
    for (std::ptrdiff_t step = 1; step <= count; ++step) {
        TWinControl* candidate = list[static_cast<std::size_t>((start + (goForward ? step : count - step)) % count)];
        if (candidate->CanFocus() && (!checkTabStop || candidate->FTabStop) &&
            (!checkParent || candidate->GetParent() == this))
            return candidate;
    }
    return nullptr;
}

void TWinControl::SelectNext(TWinControl* current, bool goForward, bool checkTabStop) {
    if (TWinControl* next = FindNextControl(current, goForward, checkTabStop, !checkTabStop))
        next->SetFocus();
}

bool TWinControl::CanFocus() const {
    const TCustomForm* form = GetParentForm(this);
    if (!form)
        return false;
    for (const TWinControl* control = this; control != form; control = control->GetParent()) {
        if (!control->GetVisible() || !control->GetEnabled() || control->IsDestroying())
            return false;
    }
    return form->GetEnabled();
}

bool TWinControl::Focused() const {
    return FHandle && ::GetFocus() == FHandle;
}

void TWinControl::SetFocus() {
    if (TCustomForm* form = GetParentForm(this))
        form->FocusControl(this);
    else if (FHandle)
        ::SetFocus(FHandle);
    else
        throw EInvalidOperation(u"A control without a parent cannot have the focus");
}

// Properties that come from above

void TWinControl::SetBrush(TBrush* value) {
    FBrush->Assign(value);
}

void TWinControl::SetCtl3D(bool value) {
    FParentCtl3D = false;
    if (FCtl3D == value)
        return;
    FCtl3D = value;
    Perform(CM_CTL3DCHANGED);
}

void TWinControl::SetParentCtl3D(bool value) {
    if (FParentCtl3D == value)
        return;
    FParentCtl3D = value;
    if (GetParent() && !IsLoading())
        Perform(CM_PARENTCTL3DCHANGED);
}

void TWinControl::CMFontChanged(TMessage&) {
    TLifeGuard alive(*this);
    if (HandleAllocated())
        SendMessageW(FHandle, WM_SETFONT, reinterpret_cast<WPARAM>(GetFont()->GetHandle()), TRUE);
    if (alive)
        NotifyControls(CM_PARENTFONTCHANGED);
}

void TWinControl::CMColorChanged(TMessage&) {
    FBrush->SetColor(GetColor()); // which repaints
    NotifyControls(CM_PARENTCOLORCHANGED);
}

void TWinControl::CMBiDiModeChanged(TMessage&) {
    TLifeGuard alive(*this);
    RecreateWnd();
    if (alive)
        NotifyControls(CM_PARENTBIDIMODECHANGED);
}

void TWinControl::CMVisibleChanged(TMessage&) {
    TLifeGuard alive(*this);
    if (!GetVisible()) {
        if (TCustomForm* form = GetParentForm(this); form && form != this)
            form->DefocusControl(this, false);
    }
    if (alive)
        UpdateControlState();
}

void TWinControl::CMEnabledChanged(TMessage&) {
    TLifeGuard alive(*this);
    if (!GetEnabled()) {
        if (TCustomForm* form = GetParentForm(this); form && form != this)
            form->DefocusControl(this, false);
    }
    if (alive && HandleAllocated())
        EnableWindow(FHandle, GetEnabled());
}

void TWinControl::Loaded() {
    TLifeGuard alive(*this);
    TControl::Loaded();
    if (!alive)
        return;
    FixupTabOrder();
    Realign();
    if (alive)
        UpdateControlState();
}

// Finding controls

TCustomForm* GetParentForm(const TControl* control) {
    // A form that lies on another form is one of its controls: focus and keys belong to the outermost one.
    const TControl* top = control;
    while (top && top->GetParent())
        top = top->GetParent();
    return const_cast<TCustomForm*>(As<TCustomForm>(top));
}

TControl* FindDragTarget(TPoint screenPoint, bool allowDisabled) {
    const HWND window = WindowFromPoint({screenPoint.X, screenPoint.Y});
    TWinControl* control = FindOwningControl(window);
    if (!control)
        return nullptr;
    TControl* child = control->ControlAtPos(control->ScreenToClient(screenPoint), allowDisabled);
    return child ? child : control;
}

bool IsAccel(WORD charCode, const String& caption) {
    for (std::size_t i = 0; i + 1 < caption.size(); ++i) {
        if (caption[i] != u'&')
            continue;
        ++i;
        if (caption[i] == u'&')
            continue; // a doubled mark is a plain character
        const wchar_t pair[] = {static_cast<wchar_t>(caption[i]), static_cast<wchar_t>(charCode)};
        return CompareStringW(LOCALE_USER_DEFAULT, NORM_IGNORECASE, pair, 1, pair + 1, 1) == CSTR_EQUAL;
    }
    return false;
}

// Self-painting controls

const TClassInfo& TCustomControl::StaticClass() {
    static const TClassInfo info = DescribeClass<TCustomControl>(u"TCustomControl", TWinControl::StaticClass());
    return info;
}

TCustomControl::TCustomControl(TComponent* owner) : TWinControl(owner), FCanvas(std::make_shared<TCanvas>()) {
    FControlState << csCustomPaint;
}

TCustomControl::~TCustomControl() = default;

void TCustomControl::PaintWindow(HDC dc) {
    const TCanvasBinding binding(FCanvas, dc);
    Paint();
}

} // namespace framework
