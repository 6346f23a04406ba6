// What a person does to the tree: mouse, keys, typing to find a node, and resting the pointer for a hint.

#include "framework/system/strings.h"
#include "framework/vtree/checkstates_rules.h"
#include "framework/vtree/virtualtree.h"
#include "framework/windows/application.h"
#include "framework/windows/clipboard.h"
#include "framework/windows/hints.h"

#include <algorithm>

namespace framework {

// Messages

void TBaseVirtualTree::WndProc(TMessage& message) {
    if (!IsDestroying() && HandleAllocated() && (HandleHeaderMouse(message) || HandleCapturedMouse(message)))
        return;
    TCustomControl::WndProc(message);
}

/// The header lies outside of the client area: the mouse arrives there by other messages.
bool TBaseVirtualTree::HandleHeaderMouse(TMessage& message) {
    if (IsDesigning())
        return false;
    TLifeGuard alive(*this);
    switch (message.Msg) {
    case WM_NCMOUSEMOVE:
        TrackNonClientLeave();
        SetHotNode(nullptr);
        HintMouseOver(this);
        if (alive)
            FHeader->MouseMove({}, ScreenToClient(PointFromLParam(message.LParam)));
        return !alive;
    case WM_NCMOUSELEAVE:
        FTrackingLeave = false;
        FHeader->MouseLeave();
        return false;
    case WM_NCLBUTTONDOWN:
    case WM_NCLBUTTONDBLCLK: {
        const TPoint point = ScreenToClient(PointFromLParam(message.LParam));
        if (!InHeader(point))
            return false;
        HideHint();
        if (CanFocus() && !Focused())
            SetFocus();
        if (!alive)
            return true;
        return message.Msg == WM_NCLBUTTONDOWN ? FHeader->MouseDown(mbLeft, {}, point) : FHeader->DblClick(point);
    }
    case WM_SETCURSOR: {
        POINT pointer{};
        GetCursorPos(&pointer);
        if (FHeader->DividerAt(ScreenToClient(FromWin(pointer))) == NoColumn)
            return false;
        ::SetCursor(TheScreen().CursorHandle(crSizeWE));
        message.Result = TRUE;
        return true;
    }
    default:
        return false;
    }
}

/// While a column is dragged or resized the mouse belongs to the header.
bool TBaseVirtualTree::HandleCapturedMouse(TMessage& message) {
    if (!FHeader->IsBusy())
        return false;
    switch (message.Msg) {
    case WM_MOUSEMOVE:
        FHeader->MouseMove(ShiftStateFromMouse(message.WParam), PointFromLParam(message.LParam));
        return true;
    case WM_LBUTTONUP:
        FHeader->MouseUp(mbLeft, ShiftStateFromMouse(message.WParam), PointFromLParam(message.LParam));
        return true;
    case WM_CAPTURECHANGED:
    case WM_CANCELMODE:
        FHeader->CancelMode();
        return false;
    default:
        return false;
    }
}

void TBaseVirtualTree::TrackNonClientLeave() {
    if (FTrackingLeave)
        return;
    TRACKMOUSEEVENT request{sizeof(request), TME_LEAVE | TME_NONCLIENT, FHandle, 0};
    FTrackingLeave = TrackMouseEvent(&request) != FALSE;
}

void TBaseVirtualTree::Dispatch(TMessage& message) {
    switch (message.Msg) {
    case WM_NCCALCSIZE:
        return WMNCCalcSize(message);
    case WM_NCHITTEST:
        TCustomControl::Dispatch(message);
        if (InHeader(ScreenToClient(PointFromLParam(message.LParam))))
            message.Result = HTBORDER;
        return;
    case WM_VSCROLL:
    case WM_HSCROLL:
        if (message.LParam != 0)
            break; // of a scroll bar that is a control of its own
        return HandleScroll(message.Msg == WM_VSCROLL ? SB_VERT : SB_HORZ, LowWord(message.WParam));
    case WM_MOUSEHWHEEL: {
        const auto delta = static_cast<std::int16_t>(HighWord(message.WParam));
        const int distance = FSidewaysWheel.Add(delta, 3) * LineExtent();
        if (EnsureLayout())
            ScrollTo(FScrollX + (UseRightToLeftAlignment() ? -distance : distance), FScrollY);
        return;
    }
    case WM_CAPTURECHANGED:
    case WM_CANCELMODE:
        // At the end of a click the button is up; held down, it was taken away.
        if (message.Msg == WM_CANCELMODE || GetKeyState(VK_LBUTTON) < 0)
            ReleaseBox();
        break;
    case WM_PAINT: {
        TLifeGuard alive(*this);
        if (EnsureLayout() && FHeaderDirty) // bars that come or go now are not painted over
            PaintHeaderBand();
        if (!alive || !HandleAllocated())
            return;
        break;
    }
    case WM_SIZE: {
        TLifeGuard alive(*this);
        TCustomControl::Dispatch(message);
        if (alive && !FInLayout) {
            FLayoutDirty = true;
            Invalidate();
            InvalidateHeader();
        }
        return;
    }
    case WM_THEMECHANGED:
        FBoxSize = {};
        Invalidate();
        InvalidateHeader();
        break;
    case WM_GETDLGCODE:
        message.Result = DLGC_WANTARROWS | DLGC_WANTCHARS;
        return;
    case WM_GETOBJECT:
        if (AnswerAccessible(message))
            return;
        break;
    case CM_GOTFOCUS:
    case CM_LOSTFOCUS: // the selection shows in another colour
        Invalidate();
        break;
    case CM_HINTSHOW:
        HintShow(*reinterpret_cast<THintInfo*>(message.LParam));
        return;
    default:
        break;
    }
    TCustomControl::Dispatch(message);
}

void TBaseVirtualTree::CMFontChanged(TMessage& message) {
    FWidths.reset();
    FPaintedWidth = 0;
    TLifeGuard alive(*this);
    TCustomControl::CMFontChanged(message);
    if (!alive)
        return;
    FHeader->ParentFontChanged();
    if (!alive || !HasMisc(toVariableNodeHeight))
        return;
    for (TVirtualNode* node = FStore->First(TNodeMeasure::Initialized); node;
         node = FStore->Next(node, TNodeMeasure::Initialized))
        FStore->SetState(node, vsHeightMeasured, false);
    StructureChanged();
}

void TBaseVirtualTree::CMEnabledChanged(TMessage& message) {
    TLifeGuard alive(*this);
    TCustomControl::CMEnabledChanged(message);
    if (!alive)
        return;
    Invalidate(); // texts and boxes are grey while it is disabled
    InvalidateHeader();
}

// Mouse

void TBaseVirtualTree::MouseDown(TMouseButton button, TShiftState shift, int x, int y) {
    TLifeGuard alive(*this);
    if (CanFocus() && !Focused())
        SetFocus();
    if (alive)
        TCustomControl::MouseDown(button, shift, x, y);
    const bool selects = button == mbLeft || (button == mbRight && HasSelection(toRightClickSelect));
    if (!alive || !selects || IsDesigning())
        return;
    const THitInfo hit = GetHitTestInfoAt({x, y});
    if (!hit.HitNode) {
        if (button == mbLeft && !shift.Contains(ssShift) && !shift.Contains(ssCtrl))
            UnselectOthers();
        return;
    }
    FClickedNode.Set(hit.HitNode);
    if (button == mbLeft && PressOn(hit, shift))
        return;
    const bool onRow = HasSelection(toFullRowSelect) || HasSelection(toExtendedFocus);
    if (!onRow && !(hit.HitPositions.Contains(hiOnItemLabel) && IsMainColumn(hit.HitColumn)))
        return;
    const TNodeRef node(*FStore, hit.HitNode);
    FSearchText.clear();
    BeginRange(shift);
    if (!ChangeFocus(hit.HitNode, ColumnToFocus(hit.HitColumn)) || !node)
        return;
    if (button == mbLeft || !hit.HitNode->Has(vsSelected))
        SelectByUser(hit.HitNode, shift, false);
    if (!alive || !node || button != mbLeft || !shift.Contains(ssDouble))
        return;
    if (HasMisc(toToggleOnDblClick))
        ToggleNode(hit.HitNode);
    if (alive && node)
        DoNodeDblClick(hit);
}

/// A press on the button or the box of a node; true when it was on one of them.
bool TBaseVirtualTree::PressOn(const THitInfo& hit, TShiftState shift) {
    (void)shift;
    if (hit.HitPositions.Contains(hiOnItemButton)) {
        FClickedNode.Set(nullptr);
        ToggleNode(hit.HitNode);
        return true;
    }
    if (!hit.HitPositions.Contains(hiOnItemCheckbox) || HasMisc(toReadOnly) || hit.HitNode->Has(vsDisabled))
        return false;
    FPressedBox.Set(hit.HitNode);
    PutCheckState(hit.HitNode, PressedState(hit.HitNode->GetCheckState()));
    return true;
}

void TBaseVirtualTree::MouseMove(TShiftState shift, int x, int y) {
    TLifeGuard alive(*this);
    TCustomControl::MouseMove(shift, x, y);
    if (!alive || IsDesigning())
        return;
    const THitInfo hit = GetHitTestInfoAt({x, y});
    if (TVirtualNode* box = FPressedBox.Get()) {
        const bool over = hit.HitNode == box && hit.HitPositions.Contains(hiOnItemCheckbox);
        PutCheckState(box, over ? PressedState(box->GetCheckState()) : UnpressedState(box->GetCheckState()));
    }
    if (HasPaint(toHotTrack))
        SetHotNode(hit.HitNode);
}

void TBaseVirtualTree::MouseUp(TMouseButton button, TShiftState shift, int x, int y) {
    TLifeGuard alive(*this);
    const TNodeRef box(*FStore, FPressedBox.Get());
    const TNodeRef clicked(*FStore, FClickedNode.Get());
    ReleaseBox();
    FClickedNode.Set(nullptr);
    TCustomControl::MouseUp(button, shift, x, y);
    if (!alive)
        return;
    const THitInfo hit = GetHitTestInfoAt({x, y});
    if (alive && box) {
        if (hit.HitNode == box.Get() && hit.HitPositions.Contains(hiOnItemCheckbox))
            ClickCheck(box.Get());
    }
    if (alive && clicked && hit.HitNode == clicked.Get() && button == mbLeft)
        DoNodeClick(hit);
}

/// The box that is held down is so no longer.
void TBaseVirtualTree::ReleaseBox() {
    if (TVirtualNode* box = FPressedBox.Get())
        PutCheckState(box, UnpressedState(box->GetCheckState()));
    FPressedBox.Set(nullptr);
}

void TBaseVirtualTree::DoNodeClick(const THitInfo& hit) {
    Fire(*this, OnNodeClick, this, hit.HitNode, hit.HitColumn);
}

void TBaseVirtualTree::DoNodeDblClick(const THitInfo& hit) {
    Fire(*this, OnNodeDblClick, this, hit.HitNode, hit.HitColumn);
}

void TBaseVirtualTree::CMMouseLeave(TMessage& message) {
    SetHotNode(nullptr);
    TCustomControl::CMMouseLeave(message);
}

void TBaseVirtualTree::SetHotNode(TVirtualNode* node) {
    if (FHotNode.Get() == node)
        return;
    InvalidateNode(FHotNode.Get());
    FHotNode.Set(node);
    InvalidateNode(node);
}

// Keys

void TBaseVirtualTree::KeyDown(WORD& key, TShiftState shift) {
    FKeyUsed = false;
    TLifeGuard alive(*this);
    TCustomControl::KeyDown(key, shift);
    if (!alive || key == 0 || shift.Contains(ssAlt))
        return;
    if (key == VK_ESCAPE && FHeader->IsBusy()) {
        SetMouseCapture(false);
        key = 0;
        return;
    }
    const bool goesOn = key == VK_SPACE && !shift.Contains(ssCtrl) && SearchGoesOnWith(u' ');
    if (!alive || goesOn)
        return;
    const WORD pressed = key;
    if ((!NavigationKey(pressed, shift) && !CommandKey(pressed, shift)) || !alive)
        return;
    key = 0;
    // The characters of these keys are on their way already.
    FKeyUsed = pressed == VK_SPACE || pressed == VK_ADD || pressed == VK_SUBTRACT || pressed == VK_MULTIPLY;
    FSearchText.clear();
}

TVirtualNode* TBaseVirtualTree::PageFrom(TVirtualNode* node, bool down) {
    const std::int64_t top = TNodeStore::PlaceOf(node, TNodeMeasure::Height);
    const int page = std::max(GetClientHeight() - node->GetNodeHeight(), node->GetNodeHeight());
    const std::int64_t to = down ? top + page : top - page;
    if (to < 0)
        return FStore->First(TNodeMeasure::Rows);
    TVirtualNode* found = FStore->NodeAt(to, TNodeMeasure::Height);
    return found ? found : FStore->Last(TNodeMeasure::Rows);
}

/// The node to which a key leads from the focused one; null for other keys.
TVirtualNode* TBaseVirtualTree::NodeForKey(WORD key) {
    TVirtualNode* from = FFocusedNode.Get();
    if (from && RowOf(from) < 0)
        from = nullptr;
    switch (key) {
    case VK_UP:
        return from ? FStore->Previous(from, TNodeMeasure::Rows) : FStore->Last(TNodeMeasure::Rows);
    case VK_DOWN:
        return from ? FStore->Next(from, TNodeMeasure::Rows) : FStore->First(TNodeMeasure::Rows);
    case VK_PRIOR:
        return from ? PageFrom(from, false) : FStore->First(TNodeMeasure::Rows);
    case VK_NEXT:
        return from ? PageFrom(from, true) : FStore->First(TNodeMeasure::Rows);
    case VK_HOME:
        return FStore->First(TNodeMeasure::Rows);
    case VK_END:
        return FStore->Last(TNodeMeasure::Rows);
    default:
        return nullptr;
    }
}

bool TBaseVirtualTree::NavigationKey(WORD key, TShiftState shift) {
    const bool sideways = key == VK_LEFT || key == VK_RIGHT;
    const bool ends = key == VK_HOME || key == VK_END;
    const bool cells = HasMisc(toGridExtensions) && HasSelection(toExtendedFocus);
    if (UseRightToLeftAlignment() && sideways)
        key = key == VK_LEFT ? VK_RIGHT : VK_LEFT;
    if (cells && (sideways || (ends && !shift.Contains(ssCtrl))))
        return ColumnKey(key);
    if (sideways)
        return BranchKey(key);
    if (!EnsureLayout())
        return true;
    TVirtualNode* to = NodeForKey(key);
    if (!to)
        return key == VK_UP || key == VK_DOWN || key == VK_PRIOR || key == VK_NEXT || ends;
    TLifeGuard alive(*this);
    const TNodeRef node(*FStore, to);
    BeginRange(shift);
    if (!InitNode(to) || !ChangeFocus(to, ColumnToFocus(FFocusedColumn)) || !alive || !node)
        return true;
    if (!ends || !shift.Contains(ssCtrl) || shift.Contains(ssShift))
        SelectByUser(to, shift, true);
    else
        SelectByUser(to, TShiftState(shift) >> ssCtrl, true);
    return true;
}

/// From cell to cell. Rows and branches stay as they are.
bool TBaseVirtualTree::ColumnKey(WORD key) {
    const TVirtualTreeColumns& columns = *FHeader->GetColumns();
    const bool forward = key == VK_RIGHT || key == VK_HOME;
    TColumnIndex column = key == VK_HOME  ? columns.GetFirstVisibleColumn()
                          : key == VK_END ? columns.GetLastVisibleColumn()
                          : forward       ? columns.GetNextVisibleColumn(FFocusedColumn)
                                          : columns.GetPreviousVisibleColumn(FFocusedColumn);
    if (FFocusedColumn == NoColumn)
        column = columns.GetFirstVisibleColumn();
    while (column != NoColumn && !columns.GetColumn(column)->GetOptions().Contains(coAllowFocus))
        column = forward ? columns.GetNextVisibleColumn(column) : columns.GetPreviousVisibleColumn(column);
    if (column != NoColumn)
        ChangeFocus(FFocusedNode.Get(), column);
    return true;
}

/// Left and right: into a branch and out of it, or sideways through what is too wide.
bool TBaseVirtualTree::BranchKey(WORD key) {
    TVirtualNode* node = FFocusedNode.Get();
    TVirtualNode* to = nullptr;
    if (node && key == VK_RIGHT && node->Has(vsHasChildren)) {
        if (!node->Has(vsExpanded)) {
            SetExpanded(node, true);
            return true;
        }
        to = FStore->Next(node, TNodeMeasure::Rows);
        if (to && to->GetParent() != node)
            to = nullptr; // all children are hidden
    } else if (node && key == VK_LEFT) {
        if (node->Has(vsExpanded)) {
            SetExpanded(node, false);
            return true;
        }
        to = node->GetParent() == FStore->Root() ? nullptr : node->GetParent();
    }
    if (!to) {
        ScrollTo(FScrollX + (key == VK_RIGHT ? LineExtent() : -LineExtent()), FScrollY);
        return true;
    }
    TLifeGuard alive(*this);
    const TNodeRef still(*FStore, to);
    if (InitNode(to) && ChangeFocus(to, FFocusedColumn) && still)
        SelectByUser(to, {}, true);
    return true;
}

bool TBaseVirtualTree::CommandKey(WORD key, TShiftState shift) {
    TVirtualNode* node = FFocusedNode.Get();
    const bool ctrl = shift.Contains(ssCtrl);
    switch (key) {
    case 'A':
        if (ctrl)
            SelectAll();
        return ctrl;
    case 'C':
    case VK_INSERT:
        if (ctrl)
            CopyToClipboard();
        return ctrl;
    case VK_SPACE:
        if (ctrl && !HasSelection(toMultiSelect) && ClickHeaderBox())
            return true;
        if (!node)
            return false;
        if (ctrl && HasSelection(toMultiSelect)) {
            FRangeAnchor.Set(node);
            SetSelected(node, !node->Has(vsSelected));
            return true;
        }
        if (!ShowsBox(node))
            return false;
        CheckSelected();
        return true;
    case VK_ADD:
        if (node)
            SetExpanded(node, true);
        return node != nullptr;
    case VK_SUBTRACT:
        if (node)
            SetExpanded(node, false);
        return node != nullptr;
    case VK_MULTIPLY:
        if (node)
            FullExpand(node);
        return node != nullptr;
    default:
        return false;
    }
}

/// Ctrl and the space key where only one row can be selected: the first box in the header, which checks all. Where
/// several can be selected, Ctrl+A and the space key do that.
bool TBaseVirtualTree::ClickHeaderBox() {
    const TVirtualTreeColumns& columns = *FHeader->GetColumns();
    TColumnIndex column = FHeader->IsVisible() ? columns.GetFirstVisibleColumn() : NoColumn;
    while (column != NoColumn && !FHeader->ShowsBox(column))
        column = columns.GetNextVisibleColumn(column);
    if (column != NoColumn)
        FHeader->ClickColumn(column);
    return column != NoColumn;
}

/// The space key: the box of the focused node changes, and with it those of all nodes that are selected together.
void TBaseVirtualTree::CheckSelected() {
    TNodeRef focused(*FStore, FFocusedNode.Get());
    TLifeGuard alive(*this);
    ClickCheck(focused.Get());
    if (!alive || !focused || !focused.Get()->Has(vsSelected) || GetSelectedCount() < 2)
        return;
    const TCheckState state = focused.Get()->GetCheckState();
    FCheckingSeveral = true;
    const TAtScopeEnd checked(*this, [this] {
        FCheckingSeveral = false;
        DoCheckedSeveral();
    });
    TNodeWalk walk(FStore, GetFirstSelected(), &TNodeWalk::NextBy<TNodeMeasure::Selected>);
    for (; alive && walk; walk.Step()) {
        if (TVirtualNode* each = walk.Node(); each != focused.Get() && ShowsBox(each) && each->GetCheckState() != state)
            ClickCheck(each);
    }
}

void TBaseVirtualTree::KeyPress(char16_t& key) {
    TLifeGuard alive(*this);
    TCustomControl::KeyPress(key);
    if (!alive)
        return;
    if (std::exchange(FKeyUsed, false))
        key = 0;
    if (key == 0 || FIncrementalSearch == isNone)
        return;
    if (key < u' ' && key != u'\b')
        return;
    const char16_t letter = std::exchange(key, u'\0');
    SearchFor(letter);
}

// Typing to find a node

int TBaseVirtualTree::DoIncrementalSearch(TVirtualNode* node, const String& text) {
    int result = 1;
    if (OnIncrementalSearch) {
        Fire(*this, OnIncrementalSearch, this, node, text, result);
        return result;
    }
    const TVirtualTreeColumns& columns = *FHeader->GetColumns();
    TLifeGuard alive(*this);
    const TNodeRef still(*FStore, node);
    String found = NodeText(node, columns.GetCount() == 0 ? NoColumn : ColumnToFocus(FFocusedColumn));
    if (!HasSelection(toExtendedFocus)) {
        // A main column may have nothing but boxes: then the row is searched by what it says first.
        for (TColumnIndex column = NoColumn; alive && still && found.empty();) {
            column = column == NoColumn ? columns.GetFirstVisibleColumn() : columns.GetNextVisibleColumn(column);
            if (column == NoColumn)
                break;
            found = NodeText(node, column);
        }
    }
    return AnsiSameText(found.substr(0, text.size()), text) ? 0 : 1;
}

TVirtualNode* TBaseVirtualTree::FindText(TVirtualNode* from, const String& text) {
    const TNodeMeasure order = FIncrementalSearch == isAll ? TNodeMeasure::Nodes : TNodeMeasure::Rows;
    TLifeGuard alive(*this);
    TNodeRef start(*FStore, from ? from : FStore->First(order));
    TNodeRef node(*FStore, start.Get());
    // Handlers may add nodes, and take away the one that it began with.
    for (std::size_t left = FStore->Count() + 1; alive && node && left > 0; --left) {
        const bool there = !SearchAsksForNodes() || InitNode(node.Get());
        if (!alive || !there || !node)
            return nullptr;
        const bool found = DoIncrementalSearch(node.Get(), text) == 0;
        if (!alive || !node)
            return nullptr;
        if (found)
            return InitNode(node.Get()) ? node.Get() : nullptr;
        node.Set(FStore->Next(node.Get(), order));
        if (!node)
            node.Set(FStore->First(order));
        if (node.Get() == start.Get())
            return nullptr;
    }
    return nullptr;
}

/// Whether letters were typed just now, and some text goes on with this one.
bool TBaseVirtualTree::SearchGoesOnWith(char16_t letter) {
    if (FSearchText.empty() || GetTickCount64() - FSearchTime > static_cast<ULONGLONG>(FSearchTimeout))
        return false;
    return FindText(FFocusedNode.Get(), FSearchText + letter) != nullptr;
}

/// Letters typed shortly after one another make one text; the same letter again goes on to the next node with it.
void TBaseVirtualTree::SearchFor(char16_t letter) {
    const ULONGLONG now = GetTickCount64();
    if (now - std::exchange(FSearchTime, now) > static_cast<ULONGLONG>(FSearchTimeout))
        FSearchText.clear();
    TVirtualNode* from = FFocusedNode.Get();
    if (letter == u'\b') {
        if (!FSearchText.empty())
            FSearchText.pop_back();
        return;
    }
    const bool again = FSearchText.size() == 1 && AnsiSameText(FSearchText, String(1, letter));
    if (!again)
        FSearchText += letter;
    if (from && FSearchText.size() == 1) {
        const TNodeMeasure order = FIncrementalSearch == isAll ? TNodeMeasure::Nodes : TNodeMeasure::Rows;
        from = FStore->Next(from, order);
    }
    TLifeGuard alive(*this);
    TVirtualNode* node = FindText(from, FSearchText);
    if (!alive)
        return;
    if (!node) {
        if (!again)
            FSearchText.pop_back(); // as if it had not been typed
        return;
    }
    const TNodeRef still(*FStore, node);
    if (ChangeFocus(node, ColumnToFocus(FFocusedColumn)) && still)
        SelectSingle(node);
}

// Hints

String TBaseVirtualTree::DoGetNodeHint(TVirtualNode* node, TColumnIndex column) {
    String hint;
    Fire(*this, OnGetHint, this, node, column, hint);
    return hint;
}

void TBaseVirtualTree::HintShow(THintInfo& info) {
    TLifeGuard alive(*this);
    if (InHeader(info.CursorPos)) {
        const TColumnIndex column = FHeader->HitTest(info.CursorPos).Column;
        info.HintStr.clear();
        if (column == NoColumn || !FHeader->GetOptions().Contains(hoShowHint))
            return;
        const TVirtualTreeColumn& found = *FHeader->GetColumns()->GetColumn(column);
        info.CursorRect = HeaderCellRect(column);
        const bool cut = FHeader->CaptionWidth(column) > found.GetWidth();
        info.HintStr = !found.GetHint().empty() ? found.GetHint() : cut ? found.GetText() : String();
        return;
    }
    if (FHintMode == hmDefault)
        return;
    const THitInfo hit = GetHitTestInfoAt(info.CursorPos);
    info.HintStr.clear();
    if (!hit.HitNode || !InitNode(hit.HitNode))
        return;
    info.CursorRect = GetDisplayRect(hit.HitNode, hit.HitColumn);
    if (FHintMode == hmHint) {
        info.HintStr = DoGetNodeHint(hit.HitNode, hit.HitColumn);
        return;
    }
    const TRect content = LayoutOf(hit.HitNode, hit.HitColumn, info.CursorRect).Content;
    const TRect shown{std::max(content.Left, 0), content.Top, std::min(content.Right, GetClientWidth()),
                      content.Bottom};
    const TNodeRef still(*FStore, hit.HitNode);
    const int width = DoGetNodeWidth(hit.HitNode, hit.HitColumn) + 2 * FTextMargin;
    if (!alive || !still || width <= shown.Width())
        return;
    info.HintStr = NodeText(hit.HitNode, hit.HitColumn).substr(0, 2000); // more fits on no screen
    info.HintPos = ClientToScreen({shown.Left, shown.Top});
}

// Copying

String TBaseVirtualTree::NodeText(TVirtualNode*, TColumnIndex) {
    return {};
}

int TBaseVirtualTree::DoGetNodeWidth(TVirtualNode*, TColumnIndex) {
    return 0;
}

String TBaseVirtualTree::ContentToText() {
    String all;
    TLifeGuard alive(*this);
    TNodeRef node(*FStore, GetSelectedCount() > 0 ? GetFirstSelected() : FFocusedNode.Get());
    const bool several = GetSelectedCount() > 0;
    while (alive && node && InitNode(node.Get())) {
        TColumnIndex column = FHeader->GetColumns()->GetFirstVisibleColumn();
        bool first = true;
        do {
            if (!CopiesColumn(column)) {
                column = FHeader->GetColumns()->GetNextVisibleColumn(column);
                continue;
            }
            String text = NodeText(node.Get(), column);
            if (!alive || !node)
                return all;
            std::replace_if(
                text.begin(), text.end(), [](char16_t c) { return c == u'\t' || c == u'\r' || c == u'\n'; }, u' ');
            all += first ? text : u"\t" + text;
            first = false;
            column = FHeader->GetColumns()->GetNextVisibleColumn(column);
        } while (column != NoColumn);
        all += u"\r\n";
        node.Set(several ? GetNextSelected(node.Get()) : nullptr);
    }
    return all;
}

void TBaseVirtualTree::CopyToClipboard() {
    TLifeGuard alive(*this);
    const String text = ContentToText();
    if (alive && !text.empty())
        SetClipboardText(FHandle, text);
}

} // namespace framework
