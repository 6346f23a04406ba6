#include "framework/dbgrid/inplaceedit.h"

#include "framework/dbgrid/grids.h"
#include "framework/windows/accessibleobject.h"
#include "framework/windows/inputmethod.h"

namespace framework {

namespace {

constexpr char16_t kLineFeed = 10; // Ctrl+Enter
constexpr char16_t kReturn = 13;
constexpr char16_t kEscape = 27;

/// The system's object for the edit, under the name of the column.
class TEditorAccessible final : public TAccessibleObject {
public:
    using TAccessibleObject::TAccessibleObject;

    HRESULT STDMETHODCALLTYPE get_accName(VARIANT child, BSTR* name) override {
        const auto* editor = As<TInplaceEdit>(FindControl(Window()));
        if (!editor || child.vt != VT_I4 || child.lVal != CHILDID_SELF)
            return TAccessibleObject::get_accName(child, name);
        return GiveText(editor->GetAccessibleName(), name);
    }
};

} // namespace

const TClassInfo& TInplaceEdit::StaticClass() {
    static const TClassInfo info = DescribeClass<TInplaceEdit>(u"TInplaceEdit", TCustomEdit::StaticClass());
    return info;
}

TInplaceEdit::TInplaceEdit(TCustomGrid* grid) : TCustomEdit(grid), FGrid(grid) {
    SetAutoSize(false);
    SetAutoSelect(false);
    SetBorderStyle(bsNone);
    SetParentCtl3D(false);
    SetCtl3D(false);
    SetTabStop(false);
    SetVisible(false);
    SetParentColor(false);
}

void TInplaceEdit::Begin(const String& text) {
    FBeginning = true;
    const TAtScopeEnd done(*this, [this] { FBeginning = false; });
    FEntered = false;
    FBegun = text;
    SetText(text);
    if (HandleAllocated())
        SendMessageW(FHandle, EM_EMPTYUNDOBUFFER, 0, 0);
}

void TInplaceEdit::SetMargins(int pixels) {
    FMargins = pixels;
    if (HandleAllocated())
        SendMessageW(FHandle, EM_SETMARGINS, EC_LEFTMARGIN | EC_RIGHTMARGIN, MAKELPARAM(pixels, pixels));
}

void TInplaceEdit::CreateWnd() {
    FBeginning = true;
    const TAtScopeEnd done(*this, [this] { FBeginning = false; });
    TCustomEdit::CreateWnd();
    SetMargins(FMargins);
}

void TInplaceEdit::Change() {
    TLifeGuard alive(*this);
    TCustomEdit::Change();
    if (!alive || FBeginning)
        return;
    if (!FEntered) {
        // Most ways to change the text have asked already; other programs write it without any.
        FEntered = true;
        bool accepted = false;
        const TAtScopeEnd refused(*this, [&] {
            if (!accepted)
                PutBack();
        });
        accepted = FGrid->CanEditModify();
        if (!accepted || !alive)
            return;
    }
    FGrid->EditorChanged();
}

void TInplaceEdit::PutBack() {
    try {
        Begin(String(FBegun));
    } catch (...) { // the window is about to go
    }
}

void TInplaceEdit::WndProc(TMessage& message) {
    if (ComposeApart(FHandle, message))
        return; // what is composed will be typed
    switch (message.Msg) {
    case WM_CHAR:
        FAnnounced = message.LParam == kAnnounced;
        break;
    case WM_PASTE:
    case WM_CUT:
    case WM_CLEAR:
    case WM_UNDO:
    case EM_UNDO:
        // These change the text by a menu or by keys that the native edit knows.
        if (!FGrid->CanEditModify())
            return;
        break;
    default:
        break;
    }
    TCustomEdit::WndProc(message);
}

String TInplaceEdit::GetAccessibleName() const {
    return FGrid->EditorName();
}

void TInplaceEdit::Dispatch(TMessage& message) {
    if (message.Msg == WM_GETOBJECT &&
        AnswerWithObject(FHandle, message, [](HWND window, IAccessible* system) -> TAccessibleObject* {
            return new TEditorAccessible(window, system);
        }))
        return;
    if (message.Msg == WM_GETDLGCODE || message.Msg == CM_WANTSPECIALKEY) {
        // The grid knows which keys are its own.
        TCustomEdit::Dispatch(message);
        message.Result |= FGrid->Perform(message.Msg, message.WParam, message.LParam);
        return;
    }
    TLifeGuard alive(*this);
    TCustomEdit::Dispatch(message);
    if (alive && message.Msg == WM_KILLFOCUS && !FGrid->GetComponentState().Contains(csDestroying))
        FGrid->EditorLeft();
}

bool TInplaceEdit::IsForGrid(WORD key, TShiftState shift) const {
    switch (key) {
    case VK_UP:
    case VK_DOWN:
    case VK_PRIOR:
    case VK_NEXT:
    case VK_TAB:
    case VK_ESCAPE:
        return true;
    case VK_F4:
        return !shift.Contains(ssAlt);
    case VK_INSERT:
        return shift.Empty();
    case VK_DELETE: // of the record, not while words are being deleted
        return shift.Contains(ssCtrl) && !shift.Contains(ssShift) && !FEntered;
    case VK_HOME:
    case VK_END:
        return shift.Contains(ssCtrl) && !shift.Contains(ssShift);
    case VK_LEFT:
    case VK_RIGHT:
        return shift.Empty() && !FGrid->EditorKeepsArrows() && IsAtEdge(key == VK_RIGHT);
    default:
        return false;
    }
}

/// All of the text counts as selected for both ends.
bool TInplaceEdit::IsAtEdge(bool end) const {
    const int length = GetTextLen();
    if (GetSelLength() == length)
        return true;
    return GetSelLength() == 0 && GetSelStart() == (end ? length : 0);
}

void TInplaceEdit::KeyDown(WORD& key, TShiftState shift) {
    TLifeGuard alive(*this);
    if (key == VK_F2) {
        Deselect();
        key = 0;
        return;
    }
    if (IsForGrid(key, shift)) {
        FGrid->KeyDown(key, shift);
        key = 0;
        return;
    }
    // Of the others the grid's own handlers hear as well.
    if (!Fire(*FGrid, FGrid->OnKeyDown, FGrid, key, shift) || !alive)
        return;
    if ((key == VK_DELETE || key == VK_BACK) && !FGrid->CanEditModify() && alive)
        key = 0;
}

void TInplaceEdit::KeyPress(char16_t& key) {
    if (key == kReturn || key == kLineFeed || key == kEscape || key == u'\t') {
        FGrid->KeyPress(key);
        key = 0;
        return;
    }
    TLifeGuard alive(*this);
    if (!std::exchange(FAnnounced, false) && (!Fire(*FGrid, FGrid->OnKeyPress, FGrid, key) || !alive))
        return;
    if (key >= u' ' && !FGrid->CanEditAccept(key)) {
        key = 0;
        MessageBeep(0);
        return;
    }
    if (key != 0 && (key >= u' ' || key == VK_BACK) && !FGrid->CanEditModify()) {
        if (alive)
            key = 0;
        return;
    }
    if (alive)
        TCustomEdit::KeyPress(key);
}

void TInplaceEdit::KeyUp(WORD& key, TShiftState shift) {
    FGrid->KeyUp(key, shift);
}

bool TInplaceEdit::DoMouseWheel(TShiftState shift, int wheelDelta, TPoint mousePos) {
    return FGrid->DoMouseWheel(shift, wheelDelta, mousePos);
}

} // namespace framework
