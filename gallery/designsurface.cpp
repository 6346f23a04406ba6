#include "gallery/designsurface.h"

#include "framework/graphics/canvas.h"
#include "framework/system/formsaver.h"
#include "framework/system/numbers.h"
#include "framework/system/strings.h"
#include "framework/windows/application.h"
#include "framework/windows/clipboard.h"
#include "framework/windows/label.h"

#include <algorithm>
#include <map>
#include <utility>

namespace gallery {

namespace {

constexpr TPoint kFormPlace{12, 40}; // of the form's client area on the surface
constexpr int kCaptionHeight = 28;
constexpr int kScrollStep = 24; // pixels
constexpr int kIconSize = 28;   // of a component that a program does not show
constexpr int kDragThreshold = 4;
constexpr int kDragScrollMilliseconds = 30;
constexpr int kMostDragScroll = 32; // pixels each time
constexpr TColor kMark = 0xDD9746;
constexpr TColor kOtherMark = 0x909090;

bool IsControl(const TComponent* component) {
    return As<TControl>(component) != nullptr;
}

/// Has no place in a program, so that the designer shows it as a picture: not a control, nor a part of another
/// component, as a dataset's fields are.
bool IsIcon(const TComponent* component) {
    return !IsControl(component) && !component->HasParent();
}

} // namespace

/// A grip, a side of the frame that chooses, or the picture of a component without a window.
class TDesignMark : public TCustomControl {
public:
    TDesignMark() : TCustomControl(nullptr) {
        SetEnabled(false); // the surface gets its clicks
        SetVisible(false);
    }
    void Show(const TRect& rect, TColor outline, TColor inside, const String& text = {}) {
        FOutline = outline;
        FInside = inside;
        FLetters = text;
        SetBoundsRect(rect);
        SetVisible(true);
        BringToFront();
        Invalidate();
    }

protected:
    void Paint() override {
        TCanvas& canvas = *GetCanvas();
        canvas.GetBrush()->SetColor(FInside);
        canvas.GetPen()->SetColor(FOutline);
        canvas.Rectangle(0, 0, GetWidth(), GetHeight());
        if (FLetters.empty())
            return;
        canvas.GetBrush()->SetStyle(bsClear);
        canvas.GetFont()->SetColor(clWindowText);
        TRect text = GetClientRect();
        canvas.TextRect(text, FLetters, DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX);
    }

private:
    TColor FOutline = kMark;
    TColor FInside = clWhite;
    String FLetters;
};

const TClassInfo& TDesignSurface::StaticClass() {
    namespace row = controlrows;
    static const TClassInfo info = DescribeClass<TDesignSurface>(
        u"TDesignSurface", TScrollingWinControl::StaticClass(),
        {row::Align(), row::Anchors(), row::Color(clWindow), row::TabOrder(), row::TabStop(true), row::Visible()});
    return info;
}

TDesignSurface::TDesignSurface(TComponent* owner) : TScrollingWinControl(owner), FHost(new TCustomControl(nullptr)) {
    FControlStyle << csAcceptsControls; // so that it does not paint over its form
    SetAutoScroll(false);               // its extent is that of the form, whatever marks lie over it
    for (TControlScrollBar* bar : {GetHorzScrollBar(), GetVertScrollBar()}) {
        bar->SetIncrement(kScrollStep);
        bar->SetTracking(true);
    }
    SetBounds(0, 0, 400, 300);
    SetColor(clAppWorkSpace);
    SetTabStop(true);
    FHost->SetControlStyle(FControlStyle);
    FHost->SetEnabled(false);
    FHost->SetParent(this);
    FScrollTimer.SetEnabled(false);
    FScrollTimer.SetInterval(kDragScrollMilliseconds);
    FScrollTimer.OnTimer = [this](TObject*) { ScrollDragged(); };
}

TDesignSurface::~TDesignSurface() {
    FSelected.clear();
    if (FForm)
        FForm->OnSized = nullptr;
}

// The form

TFormLayout TDesignSurface::Show(const std::string& text, const TShowing& how) {
    TParseOptions parsing;
    parsing.FallbackEncoding = TFallbackEncoding::Windows1250; // what designers of this part of the world wrote
    std::vector<String> notes;
    TLoadOptions loading;
    loading.SkipUnknownReferences = how.LeaveOutReferences;
    loading.OnSkipped = [&](const TSkippedPart& part) {
        notes.push_back(part.Object + u"." + part.Property + u" was left out: " + part.Problem);
    };
    TExceptionEvent others = std::exchange(TheApplication().OnException, [&](TObject* sender, const std::exception& e) {
        const auto* component = As<TComponent>(sender);
        notes.push_back((component ? component->GetName() + u": " : String()) + Utf8Decode(e.what()));
    });
    const TAtScopeEnd restored(TheApplication(), [&] { TheApplication().OnException = std::move(others); });
    const TFormDocument document = ParseTextForm(text, parsing);
    std::unique_ptr<TDesignForm> form = TDesignForm::Load(document, FHost.get(), loading);
    FNotes = std::move(notes);
    Select({});
    form->SetBounds(0, 0, form->GetWidth(), form->GetHeight());
    form->OnSized = [this](TObject*) { FitHost(); };
    FForm = std::move(form);
    FitHost();
    FForm->SetVisible(true);
    std::vector<TComponent*> found;
    for (const std::string& name : how.Selected) {
        if (TComponent* component = FForm->FindComponent(Utf8Decode(name)))
            found.push_back(component);
    }
    Select(std::move(found));
    return document.Layout();
}

TFormLayout TDesignSurface::Open(const std::string& text) {
    const TFormLayout layout = Show(text, {{}});
    PaintNow();
    FHistory.Begin(FormText());
    if (OnChange)
        OnChange(this);
    return layout;
}

void TDesignSurface::Resume(TDesignHistory steps) {
    Show(steps.Present(), {{}});
    FHistory = std::move(steps);
    if (OnChange)
        OnChange(this);
}

void TDesignSurface::Replace(const std::string& text) {
    Show(text, {SelectedNames()});
    NoteChange();
}

std::string TDesignSurface::FormText() const {
    TFormLayout layout;
    layout.LineEnd = TFormLineEnd::Lf;
    return FormText(layout);
}

std::string TDesignSurface::FormText(const TFormLayout& layout) const {
    return FForm ? WriteTextForm(SaveTextForm(*FForm), layout) : std::string();
}

bool TDesignSurface::Try(const std::function<void()>& action) {
    try {
        action();
        return true;
    } catch (const Exception& error) {
        if (!OnProblem)
            throw;
        OnProblem(error.GetMessageText());
        return false;
    }
}

void TDesignSurface::FitHost() {
    if (!FForm)
        return;
    const TSize size{FForm->GetWidth(), FForm->GetHeight()};
    GetHorzScrollBar()->SetRange(size.Width + 2 * kFormPlace.X);
    GetVertScrollBar()->SetRange(size.Height + kFormPlace.Y + kFormPlace.X);
    FHost->SetBounds(kFormPlace.X - GetHorzScrollBar()->GetPosition(), kFormPlace.Y - GetVertScrollBar()->GetPosition(),
                     size.Width, size.Height);
    Invalidate();
    PlaceMarks();
}

// Steps and the clipboard

/// Controls put off some of their changes until they are painted, such as a grid the columns of its header. A step
/// comes after those.
void TDesignSurface::PaintNow() const {
    if (FHost->HandleAllocated())
        RedrawWindow(FHost->GetHandle(), nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
}

void TDesignSurface::NoteChange() {
    // What sizes itself does so when the form is loaded, too.
    for (TComponent* component : FSelected) {
        if (auto* control = As<TControl>(component))
            control->AdjustSize();
    }
    PaintNow();
    FHistory.Add(FormText());
    Invalidate(); // the caption
    PlaceMarks();
    if (OnChange)
        OnChange(this);
}

void TDesignSurface::Undo() {
    if (!CanUndo())
        return;
    Show(FHistory.Undo(), {SelectedNames()});
    if (OnChange)
        OnChange(this);
}

void TDesignSurface::Redo() {
    if (!CanRedo())
        return;
    Show(FHistory.Redo(), {SelectedNames()});
    if (OnChange)
        OnChange(this);
}

void TDesignSurface::CopySelected() {
    const std::string objects = ObjectTexts(FormText(), SelectedNames());
    if (!objects.empty())
        SetClipboardText(GetHandle(), StringReplace(Utf8Decode(objects), u"\n", u"\r\n", {rfReplaceAll}));
}

void TDesignSurface::CutSelected() {
    CopySelected();
    DeleteSelected();
}

void TDesignSurface::DeleteSelected() {
    std::vector<TComponent*> doomed;
    for (int i = 0; FForm && i < FForm->GetComponentCount(); ++i) {
        if (IsInSelected(*FForm->GetComponent(i)))
            doomed.push_back(FForm->GetComponent(i));
    }
    if (doomed.empty())
        return;
    Select({});
    // The younger ones first; one may take others along. Who refers to them hears of it.
    for (auto each = doomed.rbegin(); each != doomed.rend(); ++each) {
        for (int i = 0; i < FForm->GetComponentCount(); ++i) {
            if (FForm->GetComponent(i) == *each) {
                delete *each;
                break;
            }
        }
    }
    NoteChange();
}

void TDesignSurface::Paste() {
    const std::optional<String> text = ClipboardText(GetHandle());
    if (!text || !FForm)
        return;
    const auto* container = As<TWinControl>(GetSelected());
    const bool takesControls = container && container->GetControlStyle().Contains(csAcceptsControls);
    const String& parent = takesControls ? container->GetName() : FForm->GetName();
    const TPastedObjects pasted = WithObjects(FormText(), Utf8Encode(*text), Utf8Encode(parent));
    if (pasted.Names.empty())
        return;
    Show(pasted.Form, {pasted.Names, true});
    NoteChange();
}

// The selection

TComponent* TDesignSurface::GetSelected() const {
    return FSelected.empty() ? FForm.get() : FSelected.back();
}

bool TDesignSurface::IsSelected(const TComponent* component) const {
    return std::find(FSelected.begin(), FSelected.end(), component) != FSelected.end();
}

void TDesignSurface::Select(std::vector<TComponent*> components) {
    FSelected = std::move(components);
    PlaceMarks();
    if (OnSelect)
        OnSelect(this);
}

void TDesignSurface::SelectAll() {
    std::vector<TComponent*> all;
    for (int i = 0; FForm && i < FForm->GetComponentCount(); ++i)
        all.push_back(FForm->GetComponent(i));
    Select(std::move(all));
}

std::vector<std::string> TDesignSurface::SelectedNames() const {
    std::vector<std::string> names;
    for (const TComponent* component : FSelected)
        names.push_back(Utf8Encode(component->GetName()));
    return names;
}

/// Whether it, or what it lies in, is selected.
bool TDesignSurface::IsInSelected(const TComponent& component) const {
    const TComponent* each = &component;
    while (each && !IsSelected(each))
        each = each->GetParentComponent();
    return each != nullptr;
}

std::vector<TComponent*> TDesignSurface::Movable() const {
    std::vector<TComponent*> movable;
    for (TComponent* component : FSelected) {
        const TComponent* outer = component->GetParentComponent();
        if (component != FForm.get() && !(outer && IsInSelected(*outer)) && (IsControl(component) || IsIcon(component)))
            movable.push_back(component);
    }
    return movable;
}

TRect TDesignSurface::PlaceOf(const TComponent& component) const {
    const auto* control = As<TControl>(&component);
    if (!control)
        return Bounds(component.GetDesignLeft(), component.GetDesignTop(), kIconSize, kIconSize);
    if (control == FForm.get())
        return FForm->GetClientRect();
    const TPoint corner =
        FForm->ScreenToClient(control->GetParent()->ClientToScreen({control->GetLeft(), control->GetTop()}));
    return Bounds(corner.X, corner.Y, control->GetWidth(), control->GetHeight());
}

/// What a click at a point of the form means: a component that the form owns, or the form itself.
TComponent* TDesignSurface::ComponentAt(TPoint point) const {
    for (int i = FForm->GetComponentCount() - 1; i >= 0; --i) {
        TComponent* component = FForm->GetComponent(i);
        if (IsIcon(component) && PlaceOf(*component).Contains(point))
            return component;
    }
    TControl* hit = FForm.get();
    for (auto* window = As<TWinControl>(hit); window; window = As<TWinControl>(hit)) {
        TControl* inner = window->ControlAtPos(window->ScreenToClient(FForm->ClientToScreen(point)), true);
        if (!inner)
            break;
        hit = inner;
    }
    // A part of a control stands for the control, and a caption for what it is glued to.
    while (hit != FForm.get() && hit->GetOwnerComponent() != FForm.get()) {
        const auto* label = As<TLabel>(hit);
        auto* whole = As<TControl>(hit->GetOwnerComponent()); // which need not be what it lies on
        TControl* meant = label && label->GetFocusControl() ? label->GetFocusControl()
                          : whole                           ? whole
                                                            : hit->GetParent();
        hit = meant ? meant : FForm.get();
    }
    return hit;
}

TWinControl* TDesignSurface::ContainerAt(TPoint point) const {
    auto* control = As<TControl>(ComponentAt(point));
    while (control) {
        auto* window = As<TWinControl>(control);
        if (window && window->GetControlStyle().Contains(csAcceptsControls))
            return window;
        control = control->GetParent();
    }
    return FForm.get();
}

// Mouse

void TDesignSurface::PlaceTool(TPoint point) {
    const TClassInfo& info = *std::exchange(FTool, nullptr);
    if (OnPlaced)
        OnPlaced(this);
    std::set<String> taken{FForm->GetName()};
    for (int i = 0; i < FForm->GetComponentCount(); ++i)
        taken.insert(FForm->GetComponent(i)->GetName());
    std::unique_ptr<TComponent> created(info.Create(FForm.get()));
    created->SetName(FreeComponentName(info.Name(), taken));
    if (auto* control = As<TControl>(created.get())) {
        TWinControl* container = ContainerAt(point);
        const TPoint inside = container->ScreenToClient(FForm->ClientToScreen(point));
        control->SetBounds(SnappedToGrid(inside.X), SnappedToGrid(inside.Y), control->GetWidth(), control->GetHeight());
        control->SetParent(container);
    } else {
        created->SetDesignLeft(SnappedToGrid(point.X));
        created->SetDesignTop(SnappedToGrid(point.Y));
    }
    Select({created.release()}); // the form owns it
    FPlacing = true;
    FGrip = {1, 1};
    FDrag = IsControl(GetSelected()) ? TDrag::Size : TDrag::Move;
}

void TDesignSurface::MouseDown(TMouseButton button, TShiftState shift, int x, int y) {
    TScrollingWinControl::MouseDown(button, shift, x, y);
    SetFocus();
    if (button != mbLeft || !FForm)
        return;
    const TPoint point = OnForm(x, y);
    FDragStart = point;
    FDragPoint = point;
    FPlacing = false;
    if (FTool) {
        Try([&] { PlaceTool(point); });
    } else if (const auto grip = FSelected.size() <= 1 && IsControl(GetSelected())
                                     ? GripAt(PlaceOf(*GetSelected()), point)
                                     : std::nullopt;
               grip && (!FSelected.empty() || (grip->Horizontal >= 0 && grip->Vertical >= 0))) {
        FDrag = TDrag::Size;
        FGrip = *grip;
    } else {
        TComponent* hit = ComponentAt(point);
        if (hit == FForm.get()) {
            FDrag = TDrag::Choose;
            if (!shift.Contains(ssShift))
                Select({});
        } else if (shift.Contains(ssShift)) {
            std::vector<TComponent*> selected = FSelected;
            if (IsSelected(hit))
                std::erase(selected, hit);
            else
                selected.push_back(hit);
            Select(std::move(selected));
        } else {
            if (!IsSelected(hit))
                Select({hit});
            FDrag = TDrag::Move;
        }
    }
    FDragPlaces.clear();
    if (FDrag == TDrag::Size) {
        FDragPlaces.push_back(PlaceOf(*GetSelected()));
    } else {
        for (const TComponent* each : Movable())
            FDragPlaces.push_back(PlaceOf(*each));
    }
}

void TDesignSurface::MoveBy(TComponent& component, TPoint distance) {
    if (auto* control = As<TControl>(&component)) {
        control->SetBounds(control->GetLeft() + distance.X, control->GetTop() + distance.Y, control->GetWidth(),
                           control->GetHeight());
    } else {
        component.SetDesignLeft(component.GetDesignLeft() + distance.X);
        component.SetDesignTop(component.GetDesignTop() + distance.Y);
    }
}

void TDesignSurface::DragTo(TPoint point) {
    const TPoint drag{point.X - FDragStart.X, point.Y - FDragStart.Y};
    switch (FDrag) {
    case TDrag::Size: {
        auto* control = As<TControl>(GetSelected());
        // What was just placed has its corner at the mouse from the first movement on.
        TRect from = FDragPlaces.front();
        if (FPlacing)
            from = {from.Left, from.Top, FDragStart.X, FDragStart.Y};
        const TRect sized = SnappedSize(from, FGrip, drag);
        const TRect now = PlaceOf(*control);
        if (control == FForm.get())
            FForm->SetBounds(0, 0, sized.Width(), sized.Height());
        else
            control->SetBounds(control->GetLeft() + sized.Left - now.Left, control->GetTop() + sized.Top - now.Top,
                               sized.Width(), sized.Height());
        break;
    }
    case TDrag::Move: {
        const std::vector<TComponent*> movable = Movable();
        // All move as far as the first one does, which lands on the grid.
        const TPoint distance = movable.empty() ? TPoint{} : SnappedMove(FDragPlaces.front(), drag);
        for (std::size_t i = 0; i < movable.size(); ++i) {
            const TRect now = PlaceOf(*movable[i]);
            MoveBy(*movable[i],
                   {FDragPlaces[i].Left + distance.X - now.Left, FDragPlaces[i].Top + distance.Y - now.Top});
        }
        break;
    }
    default:
        break;
    }
    PlaceMarks();
}

void TDesignSurface::MouseMove(TShiftState shift, int x, int y) {
    TScrollingWinControl::MouseMove(shift, x, y);
    if (FDrag == TDrag::None)
        return;
    FScrollTimer.SetEnabled(!GetClientRect().Contains({x, y}));
    DragOn({x, y});
}

void TDesignSurface::DragOn(TPoint pointer) {
    if (!GetMouseCapture()) // somebody took it, so that no button comes up here any more
        return FinishDrag();
    FPointer = pointer;
    FDragPoint = OnForm(pointer.X, pointer.Y);
    if (std::abs(FDragPoint.X - FDragStart.X) >= kDragThreshold ||
        std::abs(FDragPoint.Y - FDragStart.Y) >= kDragThreshold)
        DragTo(FDragPoint);
}

/// The farther the mouse is beyond an edge, the faster.
void TDesignSurface::ScrollDragged() {
    const auto scroll = [](TControlScrollBar& bar, int pointer, int extent) {
        const int beyond = pointer < 0 ? pointer : std::max(0, pointer - extent + 1);
        bar.SetPosition(bar.GetPosition() + std::clamp(beyond, -kMostDragScroll, kMostDragScroll));
    };
    scroll(*GetHorzScrollBar(), FPointer.X, GetClientWidth());
    scroll(*GetVertScrollBar(), FPointer.Y, GetClientHeight());
    DragOn(FPointer);
}

void TDesignSurface::MouseUp(TMouseButton button, TShiftState shift, int x, int y) {
    TScrollingWinControl::MouseUp(button, shift, x, y);
    if (button == mbLeft)
        FinishDrag();
}

void TDesignSurface::FinishDrag() {
    if (FDrag != TDrag::None)
        Try([this] { EndDrag(); });
}

void TDesignSurface::EndDrag() {
    const TDrag drag = std::exchange(FDrag, TDrag::None);
    FScrollTimer.SetEnabled(false);
    if (drag == TDrag::Choose)
        ChooseInFrame();
    else
        NoteChange();
}

void TDesignSurface::ChooseInFrame() {
    const TRect frame = FrameBetween(FDragStart, FDragPoint);
    std::vector<TComponent*> touched = FSelected;
    for (int i = 0; !frame.IsEmpty() && i < FForm->GetComponentCount(); ++i) {
        TComponent* component = FForm->GetComponent(i);
        const TRect place = PlaceOf(*component);
        const bool touches = place.Left < frame.Right && place.Right > frame.Left && place.Top < frame.Bottom &&
                             place.Bottom > frame.Top;
        const bool isOnForm = IsIcon(component) || component->GetParentComponent() == FForm.get();
        if (touches && isOnForm && !IsSelected(component))
            touched.push_back(component);
    }
    Select(std::move(touched));
}

// Keys

void TDesignSurface::KeyDown(WORD& key, TShiftState shift) {
    if (!FForm || FDrag != TDrag::None)
        return;
    switch (key) {
    case VK_LEFT:
        HandleArrow({-1, 0}, shift);
        break;
    case VK_RIGHT:
        HandleArrow({1, 0}, shift);
        break;
    case VK_UP:
        HandleArrow({0, -1}, shift);
        break;
    case VK_DOWN:
        HandleArrow({0, 1}, shift);
        break;
    case VK_TAB:
        if (!SelectNeighbour(shift.Contains(ssShift) ? -1 : 1))
            GetParentForm(this)->SelectNext(this, !shift.Contains(ssShift), true);
        break;
    case VK_DELETE:
        Try([this] { DeleteSelected(); });
        break;
    case VK_ESCAPE:
        if (TComponent* container = FSelected.empty() ? nullptr : FSelected.back()->GetParentComponent();
            container && container != FForm.get())
            Select({container});
        else
            Select({});
        break;
    default:
        if (!shift.Contains(ssCtrl) || !HandleCommand(key)) {
            TScrollingWinControl::KeyDown(key, shift);
            return;
        }
    }
    key = 0;
}

bool TDesignSurface::HandleCommand(WORD key) {
    using S = TDesignSurface;
    static const std::map<WORD, void (S::*)()> commands{{'A', &S::SelectAll}, {'C', &S::CopySelected},
                                                        {'V', &S::Paste},     {'X', &S::CutSelected},
                                                        {'Y', &S::Redo},      {'Z', &S::Undo}};
    const auto command = commands.find(key);
    if (command == commands.end())
        return false;
    Try([&] { (this->*command->second)(); });
    return true;
}

void TDesignSurface::HandleArrow(TPoint direction, TShiftState shift) {
    for (TComponent* component : Movable()) {
        auto* control = As<TControl>(component);
        if (shift.Contains(ssShift)) {
            if (control)
                control->SetBounds(control->GetLeft(), control->GetTop(),
                                   std::max(control->GetWidth() + direction.X, LeastDesignSize),
                                   std::max(control->GetHeight() + direction.Y, LeastDesignSize));
        } else {
            const int step = shift.Contains(ssCtrl) ? 1 : DesignGrid;
            MoveBy(*component, {direction.X * step, direction.Y * step});
        }
    }
    NoteChange();
}

/// The next component, or the one before; false, with none selected, behind the last.
bool TDesignSurface::SelectNeighbour(int step) {
    const int count = FForm->GetComponentCount();
    int next = step > 0 ? 0 : count - 1;
    for (int i = 0; i < count; ++i) {
        if (FForm->GetComponent(i) == GetSelected())
            next = i + step;
    }
    const bool isThere = next >= 0 && next < count;
    Select(isThere ? std::vector{FForm->GetComponent(next)} : std::vector<TComponent*>());
    return isThere;
}

void TDesignSurface::Dispatch(TMessage& message) {
    switch (message.Msg) {
    case WM_GETDLGCODE:
        message.Result = DLGC_WANTARROWS | DLGC_WANTTAB | DLGC_WANTALLKEYS;
        return;
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
        Invalidate();
        break;
    case WM_CANCELMODE:
        FinishDrag();
        break;
    default:
        break;
    }
    TScrollingWinControl::Dispatch(message);
}

// What is drawn over the form

TDesignMark& TDesignSurface::NextMark() {
    if (FUsedMarks == FMarks.size()) {
        FMarks.push_back(std::make_unique<TDesignMark>());
        FMarks.back()->SetParent(this);
    }
    return *FMarks[FUsedMarks++];
}

void TDesignSurface::PlaceMarks() {
    FUsedMarks = 0;
    if (FForm) {
        for (int i = 0; i < FForm->GetComponentCount(); ++i) {
            const TComponent* component = FForm->GetComponent(i);
            if (IsIcon(component))
                NextMark().Show(OnSurface(PlaceOf(*component)), IsSelected(component) ? kMark : clBtnShadow, clBtnFace,
                                component->ClassName().substr(1, 2));
        }
        const bool single = FSelected.size() == 1;
        for (const TComponent* component : FSelected) {
            for (const TGrip grip : DesignGrips()) {
                const bool isCorner = grip.Horizontal != 0 && grip.Vertical != 0;
                if (IsControl(component) && (single || isCorner))
                    NextMark().Show(OnSurface(GripRect(PlaceOf(*component), grip)), single ? kMark : kOtherMark,
                                    single ? clWhite : kOtherMark);
            }
        }
        for (const TGrip grip : DesignGrips()) {
            if (FSelected.empty() && grip.Horizontal >= 0 && grip.Vertical >= 0)
                NextMark().Show(OnSurface(GripRect(FForm->GetClientRect(), grip)), kMark, clWhite);
        }
        if (FDrag == TDrag::Choose) {
            TRect frame = OnSurface(FrameBetween(FDragStart, FDragPoint));
            ++frame.Right; // the pixel under the mouse as well
            ++frame.Bottom;
            for (const TRect& side : {TRect{frame.Left, frame.Top, frame.Right, frame.Top + 1},
                                      TRect{frame.Left, frame.Bottom - 1, frame.Right, frame.Bottom},
                                      TRect{frame.Left, frame.Top, frame.Left + 1, frame.Bottom},
                                      TRect{frame.Right - 1, frame.Top, frame.Right, frame.Bottom}})
                NextMark().Show(side, kOtherMark, kOtherMark);
        }
    }
    for (std::size_t i = FUsedMarks; i < FMarks.size(); ++i)
        FMarks[i]->SetVisible(false);
}

void TDesignSurface::Paint() {
    if (!FForm)
        return;
    TCanvas& canvas = *GetCanvas();
    const TRect host = FHost->GetBoundsRect();
    TRect caption{host.Left, host.Top - kCaptionHeight, host.Right, host.Top};
    canvas.GetBrush()->SetColor(clWhite);
    canvas.GetPen()->SetColor(Focused() ? kMark : kOtherMark);
    canvas.Rectangle(host.Left - 1, caption.Top - 1, host.Right + 1, host.Bottom + 1);
    canvas.GetBrush()->SetStyle(bsClear);
    canvas.GetFont()->SetColor(clWindowText);
    caption.Left += 10;
    canvas.TextRect(caption, FForm->GetText(), DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS);
}

std::optional<TRect> TDesignSurface::FindSpot(const std::vector<String>& words) {
    if (!FForm)
        return std::nullopt;
    if (words.size() == 2 && words[0] == u"component") {
        TComponent* component = FForm->FindComponent(words[1]);
        ScrollInView(As<TControl>(component));
        return component ? std::optional(OnSurface(PlaceOf(*component))) : std::nullopt;
    }
    if (words.size() == 3 && words[0] == u"point")
        return OnSurface(Bounds(StrToInt(words[1]), StrToInt(words[2]), 1, 1));
    return std::nullopt;
}

} // namespace gallery
