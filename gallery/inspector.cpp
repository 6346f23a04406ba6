#include "gallery/inspector.h"

#include "framework/graphics/canvas.h"
#include "framework/system/strings.h"
#include "framework/windows/application.h"
#include "gallery/collectiondialog.h"
#include "gallery/handlers_rules.h"
#include "gallery/textdialog.h"

#include <algorithm>

namespace gallery {

namespace {

constexpr TColor kGridLine = 0xE4E4E4;
constexpr TColor kHeadingColor = 0xF4F4F4;
constexpr TColor kInactiveSelection = 0xE2E2E2;
constexpr TColor kSignColor = 0x808080;
constexpr int kSignSize = 9;
constexpr int kLevelIndent = 12;
constexpr int kTextMargin = 4;
constexpr int kButtonWidth = 17;
constexpr int kDividerGrip = 3; // pixels to either side at which the mouse takes hold of the dividing line
constexpr int kLeastColumn = 60;

} // namespace

/// The field that lies over a value while it is being edited.
class TInspectorEdit : public TEdit {
    FRAMEWORK_CLASS(TInspectorEdit)

public:
    explicit TInspectorEdit(TInspector* inspector) : TEdit(inspector), FInspector(*inspector) {
        SetBorderStyle(framework::bsNone);
        SetAutoSize(false);
        SetTabStop(false);
        SetVisible(false);
        SetParent(inspector);
    }

protected:
    void Dispatch(TMessage& message) override {
        // Enter and Esc belong to the edit, not to the buttons of a form.
        if (message.Msg == CM_WANTSPECIALKEY && (message.WParam == VK_RETURN || message.WParam == VK_ESCAPE))
            message.Result = 1;
        else
            TEdit::Dispatch(message);
    }
    void KeyDown(WORD& key, TShiftState shift) override {
        if (FInspector.HandleChoiceKey(key) || FInspector.HandleCommonKey(key, shift)) {
            key = 0;
            return;
        }
        const bool ends = key == VK_RETURN || key == VK_ESCAPE;
        const bool moves = key == VK_UP || key == VK_DOWN || key == VK_PRIOR || key == VK_NEXT;
        if (ends || moves) {
            FInspector.EndEdit(key != VK_ESCAPE);
            if (moves)
                FInspector.KeyDown(key, shift);
            key = 0;
            return;
        }
        TEdit::KeyDown(key, shift);
    }
    void KeyPress(char16_t& key) override {
        if (key == u'\r' || key == u'\n' || key == u'\x1B')
            key = 0; // the native field would beep
        else
            TEdit::KeyPress(key);
    }
    void MouseDown(TMouseButton button, TShiftState shift, int x, int y) override {
        TEdit::MouseDown(button, shift, x, y);
        if (button == mbLeft)
            FInspector.EditClicked();
    }
    void DoExit() override {
        TEdit::DoExit();
        FInspector.EndEdit(true);
    }

private:
    TInspector& FInspector;
};

const TClassInfo& TInspectorEdit::StaticClass() {
    static const TClassInfo info = DescribeClass<TInspectorEdit>(u"TInspectorEdit", TEdit::StaticClass());
    return info;
}

const TClassInfo& TInspector::StaticClass() {
    static const TClassInfo info = DescribeClass<TInspector>(
        u"TInspector", TRowList::StaticClass(),
        {Property<&TInspector::GetSelectedPath>(u"SelectedPath"),
         Property<&TInspector::GetSelectedText>(u"SelectedText"), Property<&TInspector::GetProblem>(u"Problem"),
         Event<&TInspector::OnWritten>(u"OnWritten"), Event<&TInspector::OnProblem>(u"OnProblem")});
    return info;
}

TInspector::TInspector(TComponent* owner)
    : TRowList(owner), FEdit(new TInspectorEdit(this)), FChoices(new TChoiceList(this)) {
    FRowPadding = 2;
    FChoices->OnChoose = [this](const String& choice) {
        EndEdit(false);
        Write(choice);
    };
}

TInspector::~TInspector() {
    Destroying();
    DestroyHandle(); // the edit must not be left any more once the rows are gone
}

void TInspector::Notification(TComponent* component, TOperation operation) {
    TRowList::Notification(component, operation);
    if (operation != opRemove)
        return;
    if (component == FTree.Root())
        SetInspected(nullptr);
}

// What is inspected

void TInspector::SetInspected(TPersistent* value) {
    if (value == FTree.Root())
        return;
    EndEdit(true);
    FChoices->Close();
    if (auto* component = As<TComponent>(value))
        FreeNotification(component);
    SetProblem({});
    FTree.SetRoot(value);
    TreeChanged();
}

void TInspector::TreeChanged() {
    // Tables differ from class to class: the selection keeps to the path.
    const auto row = FTree.IndexOf(FSelectedPath);
    FRebuilding = true;
    FShown.clear();
    RowsChanged();
    SetItemIndex(row ? static_cast<int>(*row) : -1);
    FRebuilding = false;
    Scrolled();
}

void TInspector::RefreshTree() {
    if (!FTree.Rebuild() && !FTreeChanged)
        return;
    FTreeChanged = false;
    EndEdit(false);
    TreeChanged();
}

void TInspector::RefreshValues() {
    RefreshTree();
    std::vector<String> values;
    const int end = std::min(GetCount(), GetTopIndex() + RowsInView() + 1);
    for (int row = GetTopIndex(); row < end; ++row)
        values.push_back(gallery::RowText(Row(row)));
    if (values == FShown)
        return;
    FShown = std::move(values);
    Invalidate();
}

const TInspectorRow* TInspector::SelectedRow() const {
    const int row = GetItemIndex();
    return row >= 0 && row < GetCount() ? &Row(row) : nullptr;
}

String TInspector::GetSelectedText() const {
    const TInspectorRow* row = SelectedRow();
    return row ? gallery::RowText(*row) : String();
}

void TInspector::SelectionChanged() {
    if (!FRebuilding) {
        EndEdit(true);
        FChoices->Close();
        SetProblem({});
        FSelectedPath = SelectedRow() ? SelectedRow()->Path : String();
    }
    TRowList::SelectionChanged();
}

void TInspector::Toggle(int row) {
    if (row < 0 || !Row(row).Expandable)
        return;
    EndEdit(true);
    FTree.Toggle(static_cast<std::size_t>(row));
    TreeChanged();
}

void TInspector::Expand(bool expanded) {
    const TInspectorRow* row = SelectedRow();
    if (row && row->Expandable && row->Expanded != expanded)
        Toggle(GetItemIndex());
}

// Changing values

void TInspector::SetProblem(const String& problem) {
    if (FProblem == problem)
        return;
    FProblem = problem;
    Fire(*this, OnProblem, this);
}

void TInspector::Write(const String& text) {
    RefreshTree();
    const TInspectorRow* selected = SelectedRow();
    if (!selected)
        return;
    const TInspectorRow row = *selected; // what a setter does may build the rows anew
    TLifeGuard alive(*this);
    String problem;
    try {
        WriteRow(row, text);
    } catch (const Exception& error) {
        problem = error.GetMessageText();
    }
    if (!alive)
        return;
    SetProblem(problem);
    if (!problem.empty())
        MessageBeep(MB_ICONWARNING);
    else if (!Fire(*this, OnWritten, this))
        return;
    RefreshValues();
    Invalidate();
}

void TInspector::BeginChange() {
    RefreshTree();
    const TInspectorRow* row = SelectedRow();
    if (!row)
        return;
    switch (RowEditor(*row)) {
    case TRowEditor::None:
        return Toggle(GetItemIndex());
    case TRowEditor::Choice:
        return OpenChoices();
    case TRowEditor::Text:
    case TRowEditor::TextOrChoice:
        return BeginEdit(ProposedText(*row));
    case TRowEditor::Lines:
    case TRowEditor::Items:
        OpenDialog();
        return;
    }
}

void TInspector::BeginEdit(const String& text) {
    ScrollIntoView(GetItemIndex());
    SetProblem({});
    FEdit->SetBoundsRect(EditRect());
    FEdit->SetText(text);
    FEdit->SetVisible(true);
    FEdit->SetFocus();
    FEdit->SelectAll();
}

void TInspector::EditClicked() {
    // The first click has brought the edit, so the system does not count the two as a double click.
    const bool isDouble = static_cast<DWORD>(GetMessageTime() - FClickTime) <= GetDoubleClickTime();
    const TInspectorRow* row = SelectedRow();
    if (!isDouble || !row || !FEdit->GetText().empty())
        return;
    FEdit->SetText(ProposedText(*row));
    FEdit->SelectAll();
}

bool TInspector::IsEditing() const {
    return FEdit->GetVisible();
}

void TInspector::EndEdit(bool write) {
    if (!IsEditing())
        return;
    const bool focused = FEdit->Focused();
    const String text = FEdit->GetText();
    FTreeChanged = FTree.Rebuild() || FTreeChanged;
    write = write && !FTreeChanged; // the text was for a row that may be gone
    FEdit->SetVisible(false);
    FChoices->Close();
    if (focused)
        SetFocus();
    if (write && text != GetSelectedText())
        Write(text);
    Invalidate();
}

bool TInspector::OpenDialog() {
    if (const TInspectorRow* row = SelectedRow(); !row || (!RowLines(*row) && !RowItems(*row)))
        return false;
    TLifeGuard alive(*this);
    EndEdit(true);
    if (!alive)
        return true;
    RefreshTree();
    FChoices->Close();
    SetProblem({});
    const TInspectorRow* selected = SelectedRow();
    const std::optional<String> lines = selected ? RowLines(*selected) : std::nullopt;
    TCollection* items = selected ? RowItems(*selected) : nullptr;
    if (!lines && !items)
        return true;
    const TComponent* component = ComponentOf(selected->Object);
    const String caption = (component ? component->GetName() + u"." : String()) + selected->Path;
    if (lines) {
        if (const std::optional<String> changed = TTextDialog(nullptr).Ask(caption, *lines); changed && alive)
            Write(*changed);
    } else if (TCollectionDialog(nullptr).Edit(caption, *items) && alive) {
        Fire(*this, OnWritten, this);
    }
    return true;
}

void TInspector::ButtonClicked() {
    if (HasDialog(GetItemIndex()))
        OpenDialog();
    else
        OpenChoices();
}

void TInspector::OpenChoices() {
    const TInspectorRow* row = SelectedRow();
    if (!row)
        return;
    std::vector<String> choices = RowChoices(*row);
    if (choices.empty() || RowEditor(*row) == TRowEditor::None)
        return;
    ScrollIntoView(GetItemIndex());
    TRect place = RowRect(GetItemIndex());
    place.Left = DividerX();
    const TPoint corner = ClientToScreen({place.Left, place.Top});
    FChoices->SetParent(GetParentForm(this));
    FChoices->Open(std::move(choices), gallery::RowText(*row),
                   Bounds(corner.X, corner.Y, place.Width(), place.Height()));
}

// Keys

bool TInspector::HandleChoiceKey(WORD key) {
    return FChoices->IsOpen() && FChoices->HandleKey(key);
}

bool TInspector::HandleCommonKey(WORD key, TShiftState shift) {
    if (key == VK_RETURN && shift.Contains(ssCtrl))
        return OpenDialog();
    if (key == VK_F4 || (key == VK_DOWN && shift.Contains(ssAlt))) {
        OpenChoices();
        return true;
    }
    return false;
}

void TInspector::Dispatch(TMessage& message) {
    if (message.Msg == CM_WANTSPECIALKEY &&
        (message.WParam == VK_RETURN || (message.WParam == VK_ESCAPE && FChoices->IsOpen()))) {
        message.Result = 1;
        return;
    }
    if (message.Msg == WM_SETCURSOR && LowWord(static_cast<std::uint64_t>(message.LParam)) == HTCLIENT) {
        POINT point{};
        GetCursorPos(&point);
        const int x = ScreenToClient(FromWin(point)).X;
        SetCursor(std::abs(x - DividerX()) <= kDividerGrip ? crSizeWE : crDefault);
    }
    TRowList::Dispatch(message);
}

void TInspector::KeyDown(WORD& key, TShiftState shift) {
    RefreshTree();
    bool handled = true;
    if (!HandleChoiceKey(key) && !HandleCommonKey(key, shift)) {
        switch (key) {
        case VK_RETURN:
        case VK_F2:
            BeginChange();
            break;
        case VK_RIGHT:
        case VK_ADD:
            Expand(true);
            break;
        case VK_LEFT:
        case VK_SUBTRACT:
            Expand(false);
            break;
        default:
            handled = false;
        }
    }
    if (handled)
        key = 0;
    else
        TRowList::KeyDown(key, shift);
}

void TInspector::KeyPress(char16_t& key) {
    RefreshTree();
    const TInspectorRow* row = SelectedRow();
    if (key > u' ' && row) {
        const TRowEditor editor = RowEditor(*row);
        if (editor == TRowEditor::Text || editor == TRowEditor::TextOrChoice) {
            BeginEdit(String(1, key));
            FEdit->SetSelStart(1);
            key = 0;
            return;
        }
    }
    if (key == u' ' && row && RowEditor(*row) == TRowEditor::Choice) {
        if (const String next = NextChoice(*row); !next.empty())
            Write(next);
        key = 0;
        return;
    }
    TRowList::KeyPress(key);
}

void TInspector::DoExit() {
    FChoices->Close();
    Invalidate();
    TRowList::DoExit();
}

// Mouse

void TInspector::MouseDown(TMouseButton button, TShiftState shift, int x, int y) {
    RefreshTree();
    if (button == mbLeft && std::abs(x - DividerX()) <= kDividerGrip && RowAt(y) >= 0) {
        FDragging = true;
        return;
    }
    const bool wasOpen = FChoices->IsOpen();
    const int before = GetItemIndex();
    FChoices->Close();
    TRowList::MouseDown(button, shift, x, y);
    const int row = RowAt(y);
    if (button != mbLeft || row < 0 || row != GetItemIndex())
        return;
    const TRect rect = RowRect(row);
    if (Row(row).Expandable && SignRect(Row(row), rect).Inflated(3, 3).Contains({x, y}))
        return Toggle(row);
    if (x < DividerX()) {
        if (shift.Contains(ssDouble) && Row(row).Expandable)
            Toggle(row);
        else if (shift.Contains(ssDouble) && HasDialog(row))
            OpenDialog();
        else if (shift.Contains(ssDouble) && ProposedText(Row(row)) != gallery::RowText(Row(row)))
            BeginChange();
        return;
    }
    if (HasButton(row) && ButtonRect(rect).Contains({x, y})) {
        if (!wasOpen || row != before)
            ButtonClicked();
        return;
    }
    const TRowEditor editor = RowEditor(Row(row));
    if (editor == TRowEditor::Text || editor == TRowEditor::TextOrChoice) {
        FClickTime = GetMessageTime();
        return BeginEdit(GetSelectedText());
    }
    if (editor == TRowEditor::None)
        return Toggle(row);
    if (HasDialog(row)) {
        if (shift.Contains(ssDouble))
            OpenDialog();
        return;
    }
    if (shift.Contains(ssDouble)) {
        if (const String next = NextChoice(Row(row)); !next.empty())
            Write(next);
    }
}

void TInspector::MouseMove(TShiftState shift, int x, int y) {
    TRowList::MouseMove(shift, x, y);
    if (!FDragging || GetClientWidth() <= 2 * kLeastColumn)
        return;
    const int divider = std::clamp(x, kLeastColumn, GetClientWidth() - kLeastColumn);
    FDividerPerMille = divider * 1000 / GetClientWidth();
    Invalidate();
    Scrolled();
}

void TInspector::MouseUp(TMouseButton button, TShiftState shift, int x, int y) {
    FDragging = false;
    TRowList::MouseUp(button, shift, x, y);
}

// Places

int TInspector::DividerX() const {
    return GetClientWidth() * FDividerPerMille / 1000;
}

bool TInspector::HasButton(int row) const {
    const TRowEditor editor = RowEditor(Row(row));
    return editor != TRowEditor::None && editor != TRowEditor::Text;
}

bool TInspector::HasDialog(int row) const {
    const TRowEditor editor = RowEditor(Row(row));
    return editor == TRowEditor::Lines || editor == TRowEditor::Items;
}

TRect TInspector::SignRect(const TInspectorRow& row, const TRect& rect) const {
    return Bounds(rect.Left + kTextMargin + row.Level * kLevelIndent, rect.Top + (rect.Height() - kSignSize) / 2,
                  kSignSize, kSignSize);
}

TRect TInspector::ButtonRect(const TRect& rect) const {
    return {rect.Right - kButtonWidth, rect.Top, rect.Right, rect.Bottom - 1};
}

TRect TInspector::EditRect() const {
    const int row = GetItemIndex();
    TRect rect = RowRect(row);
    rect.Left = DividerX() + kTextMargin - 1;
    rect.Top += FRowPadding;
    rect.Bottom -= 1;
    if (HasButton(row))
        rect.Right -= kButtonWidth;
    return rect;
}

void TInspector::Scrolled() {
    TRowList::Scrolled();
    if (IsEditing())
        FEdit->SetBoundsRect(EditRect());
    FChoices->Close();
}

std::optional<TRect> TInspector::FindSpot(const std::vector<String>& words) {
    RefreshTree();
    if (words.size() >= 2 && SameText(words[0], u"choice")) {
        auto place = FChoices->IsOpen() ? FChoices->FindSpot({u"row", words[1]}) : std::nullopt;
        if (!place)
            return place;
        const TPoint origin = ScreenToClient(FChoices->ClientToScreen({0, 0}));
        return place->Offset(origin.X, origin.Y);
    }
    if (words.size() < 2 || !SameText(words[0], u"row"))
        return std::nullopt;
    // Rows that others hide are opened from the outside in.
    for (std::size_t dot = words[1].find(u'.'); dot != String::npos; dot = words[1].find(u'.', dot + 1)) {
        const auto outer = FTree.IndexOf(StringView(words[1]).substr(0, dot));
        if (outer && FTree.SetExpanded(*outer, true))
            TreeChanged();
    }
    auto index = FTree.IndexOf(words[1]);
    if (const auto events = index ? std::nullopt : FTree.IndexOf(EventsPath(words[1]))) {
        if (FTree.SetExpanded(*events, true))
            TreeChanged();
        index = FTree.IndexOf(words[1]);
    }
    if (!index)
        return std::nullopt;
    const int row = static_cast<int>(*index);
    ScrollIntoView(row);
    TRect rect = RowRect(row);
    if (words.size() == 2) {
        rect.Right = DividerX() - kDividerGrip;
        rect.Left += kTextMargin + kSignSize + Row(row).Level * kLevelIndent + 4;
        return rect;
    }
    if (SameText(words[2], u"sign") && Row(row).Expandable)
        return SignRect(Row(row), rect);
    if (SameText(words[2], u"button") && HasButton(row))
        return ButtonRect(rect);
    if (!SameText(words[2], u"value"))
        return std::nullopt;
    rect.Left = DividerX() + kDividerGrip + 1;
    rect.Right -= kButtonWidth;
    return rect;
}

// Painting

bool TInspector::IsActive() const {
    return Focused() || FEdit->Focused();
}

void TInspector::Paint() {
    FTreeChanged = FTree.Rebuild() || FTreeChanged;
    TRowList::Paint();
}

void TInspector::PaintRow(TCanvas& canvas, int row, const TRect& rect, bool selected) {
    const TInspectorRow& line = Row(row);
    const int divider = DividerX();
    if (!line.Property) {
        canvas.GetBrush()->SetColor(kHeadingColor);
        canvas.FillRect(rect);
    }
    PaintName(canvas, line, {rect.Left, rect.Top, line.Property ? divider : rect.Right, rect.Bottom - 1}, selected);
    if (line.Property) {
        TRect value{divider + 1, rect.Top, rect.Right, rect.Bottom - 1};
        if (selected && HasButton(row)) {
            PaintButton(canvas, row, ButtonRect(rect));
            value.Right -= kButtonWidth;
        }
        PaintValue(canvas, line, value);
    }
    canvas.GetBrush()->SetColor(kGridLine);
    canvas.FillRect({rect.Left, rect.Bottom - 1, rect.Right, rect.Bottom});
    if (line.Property)
        canvas.FillRect({divider, rect.Top, divider + 1, rect.Bottom});
}

void TInspector::PaintButton(TCanvas& canvas, int row, const TRect& rect) {
    RECT button = ToWin(rect);
    if (!HasDialog(row)) {
        DrawFrameControl(canvas.GetHandle(), &button, DFC_SCROLL,
                         DFCS_SCROLLCOMBOBOX | (FChoices->IsOpen() ? DFCS_PUSHED : 0));
        return;
    }
    DrawFrameControl(canvas.GetHandle(), &button, DFC_BUTTON, DFCS_BUTTONPUSH);
    canvas.GetBrush()->SetColor(clBtnText);
    const int middle = (rect.Left + rect.Right) / 2;
    for (const int x : {middle - 5, middle - 1, middle + 3})
        canvas.FillRect(Bounds(x, rect.Top + rect.Height() / 2 + 1, 2, 2));
}

void TInspector::PaintName(TCanvas& canvas, const TInspectorRow& row, TRect rect, bool selected) {
    const bool marked = selected && IsActive();
    if (selected) {
        canvas.GetBrush()->SetColor(marked ? clHighlight : kInactiveSelection);
        canvas.FillRect(rect);
    }
    if (row.Expandable)
        PaintSign(canvas, row, SignRect(row, rect));
    canvas.GetBrush()->SetStyle(bsClear);
    canvas.GetFont()->SetColor(marked ? clHighlightText : GetFont()->GetColor());
    canvas.GetFont()->SetStyle(row.Property ? TFontStyles() : TFontStyles() << fsBold);
    rect.Left += kTextMargin + kSignSize + 4 + row.Level * kLevelIndent;
    canvas.TextRect(rect, row.Name, DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS);
}

void TInspector::PaintSign(TCanvas& canvas, const TInspectorRow& row, const TRect& rect) {
    canvas.GetBrush()->SetColor(clWindow);
    canvas.FillRect(rect);
    canvas.GetBrush()->SetColor(kSignColor);
    canvas.FrameRect(rect);
    canvas.GetBrush()->SetColor(clWindowText);
    const int middle = kSignSize / 2;
    canvas.FillRect({rect.Left + 2, rect.Top + middle, rect.Right - 2, rect.Top + middle + 1});
    if (!row.Expanded)
        canvas.FillRect({rect.Left + middle, rect.Top + 2, rect.Left + middle + 1, rect.Bottom - 2});
}

void TInspector::PaintValue(TCanvas& canvas, const TInspectorRow& row, TRect rect) {
    rect.Left += kTextMargin;
    rect.Right -= 2;
    if (const auto color = RowColor(row); color && *color != clNone && *color != clDefault) {
        const int side = rect.Height() - 4;
        const TRect swatch = Bounds(rect.Left, rect.Top + 2, side + 4, side);
        canvas.GetBrush()->SetColor(*color);
        canvas.FillRect(swatch);
        canvas.GetBrush()->SetColor(kSignColor);
        canvas.FrameRect(swatch);
        rect.Left = swatch.Right + kTextMargin;
    }
    const bool fixed = RowEditor(row) == TRowEditor::None && !row.Expandable;
    canvas.GetBrush()->SetStyle(bsClear);
    canvas.GetFont()->SetColor(fixed ? clGrayText : GetFont()->GetColor());
    canvas.GetFont()->SetStyle(RowModified(row) ? TFontStyles() << fsBold : TFontStyles());
    String text = gallery::RowText(row);
    std::replace_if(
        text.begin(), text.end(), [](char16_t c) { return c < u' '; }, u' ');
    canvas.TextRect(rect, text, DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS);
    canvas.GetFont()->SetStyle({});
}

} // namespace gallery
