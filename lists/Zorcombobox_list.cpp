#include "lists/Zorcombobox_list.h"

#include "framework/graphics/canvas.h"
#include "framework/graphics/handles.h"
#include "framework/graphics/textmetrics.h"
#include "framework/system/strings.h"
#include "framework/windows/accessibleobject.h"
#include "framework/windows/application.h"
#include "framework/windows/clipboard.h"

#include <algorithm>
#include <cstring>

namespace ZOR {

namespace {

constexpr TSize kDesignedSize{426, 286}; // of the rows
constexpr TColor kRowColor = 0xFFFFFF;
// Light enough for the black letters that belong to white rows.
constexpr TColor kSelectionColor = 0xF7D9BC;
constexpr TColor kMatchColor = 0x8CE6FF;
constexpr TColor kTextColor = 0x000000;
constexpr int kRowPadding = 2; // pixels at 96 per inch above and below a text together

int TextWidth(HDC dc, StringView text) {
    SIZE size{};
    GetTextExtentPoint32W(dc, WideData(text), static_cast<int>(text.size()), &size);
    return static_cast<int>(size.cx);
}

/// The width in pixels of the text that needs most, in one line.
int WidestText(const TStrings& items, const TFont& font) {
    const TWindowDC dc(nullptr);
    const TSelectedObject selected(dc, font.GetHandle());
    TSummedWidths widths(font);
    String widest;
    int sum = 0;
    for (int i = 0; i < items.GetCount(); ++i) {
        String text = items.Get(i);
        std::ranges::transform(text, text.begin(), InOneLine); // in place: OneLine would allocate for each item
        const int width = widths.Of(text);
        if (width <= sum)
            continue;
        sum = width;
        widest = std::move(text);
    }
    return std::max(sum, TextWidth(dc, widest));
}

/// Tells screen readers of the rows, which the window itself knows nothing of.
class TAccessibleRows final : public TNumberedObject {
public:
    using TNumberedObject::TNumberedObject;

    HRESULT STDMETHODCALLTYPE get_accName(VARIANT child, BSTR* name) override {
        const int row = RowOf(child);
        if (row < 0)
            return System().get_accName(child, name);
        try {
            return GiveText(List()->RowText(row), name);
        } catch (...) { // no exception may cross into the other program
            return E_OUTOFMEMORY;
        }
    }
    HRESULT STDMETHODCALLTYPE get_accRole(VARIANT child, VARIANT* role) override {
        *role = Number(RowOf(child) < 0 ? ROLE_SYSTEM_LIST : ROLE_SYSTEM_LISTITEM);
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE get_accState(VARIANT child, VARIANT* state) override {
        const int row = RowOf(child);
        if (row < 0)
            return System().get_accState(child, state);
        *state = Number(STATE_SYSTEM_SELECTABLE | (row == List()->GetRow() ? STATE_SYSTEM_SELECTED : 0) |
                        (PlaceOf(row).IsEmpty() ? STATE_SYSTEM_OFFSCREEN | STATE_SYSTEM_INVISIBLE : 0));
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE get_accSelection(VARIANT* children) override {
        *children = {};
        if (const TChoiceListBox* list = List(); list && list->GetRow() >= 0)
            *children = Number(list->GetRow() + 1);
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE accLocation(long* left, long* top, long* width, long* height, VARIANT child) override {
        const int row = RowOf(child);
        return row < 0 ? System().accLocation(left, top, width, height, child)
                       : GivePlace(PlaceOf(row), left, top, width, height);
    }
    HRESULT STDMETHODCALLTYPE accHitTest(long left, long top, VARIANT* child) override {
        TChoiceListBox* list = List();
        const int row = list ? list->RowAt(list->ScreenToClient({static_cast<int>(left), static_cast<int>(top)})) : -1;
        if (row < 0)
            return System().accHitTest(left, top, child);
        *child = Number(row + 1);
        return S_OK;
    }

protected:
    LONG Count() const override { return List() ? List()->GetRowCount() : 0; }

private:
    TChoiceListBox* List() const { return As<TChoiceListBox>(FindControl(Window())); }
    /// -1 for the list itself, and for what there is not.
    int RowOf(VARIANT child) const {
        return child.vt == VT_I4 && child.lVal > 0 && child.lVal <= Count() ? static_cast<int>(child.lVal) - 1 : -1;
    }
    /// Empty for a row that is scrolled away.
    TRect PlaceOf(int row) const {
        const RECT whole = ToWin(List()->RowRect(row));
        const RECT client = ToWin(List()->GetClientRect());
        RECT shown{};
        IntersectRect(&shown, &whole, &client);
        return FromWin(shown);
    }
};

} // namespace

int TChoiceListWidth::For(const TControlStrings& items, const TFont& font, int dropDownCount) {
    const LOGFONTW described = font.GetLogFont();
    if (FVersion != items.GetVersion() || std::memcmp(&FFont, &described, sizeof(FFont)) != 0) {
        FWidest = WidestText(items, font);
        FVersion = items.GetVersion();
        FFont = described;
    }
    const bool scrolls = items.GetCount() > ShownRows(items.GetCount(), dropDownCount);
    return FWidest + 2 * (ChoiceRowMargin + ChoiceListBorder) + (scrolls ? GetSystemMetrics(SM_CXVSCROLL) : 0);
}

void TellInOrder(TControl& field, const std::function<void()>& chosen, const std::function<void()>& closed) {
    TLifeGuard alive(field);
    try {
        chosen();
    } catch (...) {
        if (alive)
            closed();
        throw;
    }
    if (alive)
        closed();
}

String ClipboardLine(HWND window) {
    const std::optional<String> text = ClipboardText(window);
    return text ? Trim(OneLine(*text)) : String();
}

// The rows

const TClassInfo& TChoiceListBox::StaticClass() {
    static const TClassInfo info = DescribeClass<TChoiceListBox>(u"TChoiceListBox", TListBox::StaticClass());
    return info;
}

TChoiceListBox::TChoiceListBox(TComponent* owner) : TListBox(owner), FRowCanvas(std::make_shared<TCanvas>()) {
    SetStyle(lbOwnerDrawVariable);
    SetBorderStyle(bsNone);
    SetTabStop(false);
}

void TChoiceListBox::CreateParams(TCreateParams& params) {
    TListBox::CreateParams(params);
    params.Style &= ~static_cast<DWORD>(LBS_OWNERDRAWVARIABLE | LBS_HASSTRINGS);
    params.Style |= LBS_OWNERDRAWFIXED | LBS_NODATA;
}

void TChoiceListBox::CreateWnd() {
    const int row = FRow;
    TListBox::CreateWnd();
    Send(LB_SETCOUNT, static_cast<WPARAM>(FRowCount));
    SetRow(row);
}

void TChoiceListBox::KeepWindowState() {
    FRow = GetRow();
    Send(LB_SETCURSEL, static_cast<WPARAM>(-1)); // the base class looks for its own items
    TListBox::KeepWindowState();
}

void TChoiceListBox::CNDrawItem(TMessage& message) {
    PaintOwnerDrawn(*this, FRowCanvas, FRowCount, message,
                    [this](int index, TRect rect, TOwnerDrawState state) { DrawItem(index, rect, state); });
}

void TChoiceListBox::SetRows(const TStrings* texts) {
    FTexts = texts;
    FRowCount = texts->GetCount();
    FRow = -1;
    if (!HandleAllocated())
        return;
    Send(LB_SETCOUNT, static_cast<WPARAM>(FRowCount));
    Send(LB_SETCURSEL, static_cast<WPARAM>(-1));
    Invalidate();
}

String TChoiceListBox::RowText(int row) const {
    return FTexts && row >= 0 && row < FTexts->GetCount() ? OneLine(FTexts->Get(row)) : String();
}

void TChoiceListBox::Dispatch(TMessage& message) {
    const auto make = [](HWND window, IAccessible* system) -> TAccessibleObject* {
        return new TAccessibleRows(window, system);
    };
    if (message.Msg != WM_GETOBJECT || !AnswerWithObject(FHandle, message, make))
        TListBox::Dispatch(message);
}

int TChoiceListBox::GetRow() const {
    return HandleAllocated() ? static_cast<int>(Send(LB_GETCURSEL)) : FRow;
}

void TChoiceListBox::SetRow(int value) {
    FRow = value;
    if (HandleAllocated())
        Send(LB_SETCURSEL, static_cast<WPARAM>(value));
}

int TChoiceListBox::RowAt(TPoint point) const {
    if (!GetClientRect().Contains(point))
        return -1;
    const int row = GetTopIndex() + point.Y / std::max(GetItemHeight(), 1);
    return row < FRowCount ? row : -1;
}

TRect TChoiceListBox::RowRect(int row) const {
    RECT place{};
    if (HandleAllocated())
        Send(LB_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&place));
    return FromWin(place);
}

// The popup

const TClassInfo& Tform_list::StaticClass() {
    static const TClassInfo info = DescribeClass<Tform_list>(u"Tform_list", TZORPopup::StaticClass());
    return info;
}

Tform_list::Tform_list()
    : TZORPopup({.OnClickElsewhere = true, .OnEscape = false, .OnFocusLoss = true, .OnTargetMove = true}),
      list_box(new TChoiceListBox(this)), FNormalFont(std::make_unique<TFont>()), FMatchFont(std::make_unique<TFont>()),
      FSelectionColor(kSelectionColor), FMatchColor(kMatchColor) {
    SetBounds(0, 0, kDesignedSize.Width + 2 * ChoiceListBorder, kDesignedSize.Height + 2 * ChoiceListBorder);
    list_box->SetName(u"list_box");
    list_box->SetAlign(alClient);
    list_box->SetColor(kRowColor);
    list_box->SetParent(this);
    list_box->OnDrawItem = [this](TWinControl* control, int index, TRect rect, TOwnerDrawState state) {
        list_boxDrawItem(control, index, rect, state);
    };
    OnClose = [this](TObject* sender, TCloseAction& action) { FormClose(sender, action); };
}

Tform_list::~Tform_list() {
    Destroying();
    DestroyHandle(); // while the list box is there
}

void Tform_list::CreateParams(TCreateParams& params) {
    TZORPopup::CreateParams(params);
    params.Style |= WS_BORDER; // sets it off from white fields around
}

/// Whoever closes the window only closes the list; the field lets go of it later.
void Tform_list::FormClose(TObject*, TCloseAction& action) {
    action = caHide;
}

int Tform_list::Scaled(int pixels) const {
    return MulDiv(pixels, TheScreen().GetPixelsPerInch(TargetWindow()), 96);
}

void Tform_list::SetItems(const TControlStrings& items, TChoiceListWidth& width, int dropDownCount) {
    FItems = &items;
    FNeededWidth = &width;
    FDropDownCount = dropDownCount;
}

void Tform_list::SetSearchText(const String& value, const TTextFolding& folding) {
    if (FSearchText == value && FFolder.Folding() == folding)
        return;
    FSearchText = value;
    FFolder = TTextFolder(folding);
    list_box->Invalidate();
}

void Tform_list::Prepare() {
    if (const TWinControl* target = GetTarget()) {
        SetBiDiMode(target->GetBiDiMode());
        FNormalFont->Assign(target->GetFont());
        FNormalFont->SetColor(kTextColor);
        FMatchFont->Assign(FNormalFont.get());
        FMatchFont->SetStyle(FMatchFont->GetStyle() << fsBold);
    }
    FRowHeight = TTextMeasure(*FNormalFont).LineHeight() + Scaled(kRowPadding);
    list_box->SetItemHeight(FRowHeight + 1);
    if (!FItems)
        return;
    if (list_box->GetRowCount() != FItems->GetCount())
        list_box->SetRows(FItems);
    // In the font of what matches, should all of it match.
    FWidth = FNeededWidth->For(*FItems, *FMatchFont, FDropDownCount);
}

TRect Tform_list::PlaceFor(const TRect& target, const TRect& workArea) const {
    const int width = ChoiceListWidthOn(workArea, std::max(FWidth, target.Width()));
    const int rows = ShownRows(list_box->GetRowCount(), FDropDownCount);
    return ChoiceListPlace(target, width, FRowHeight, rows, workArea,
                           GetTarget() && GetTarget()->UseRightToLeftAlignment());
}

void Tform_list::Fit() {
    Prepare();
    FollowTarget();
    list_box->Invalidate();
}

void Tform_list::ShowRow(int row, bool atTop) {
    if (row >= list_box->GetRowCount())
        return;
    list_box->SetRow(row);
    const int shown = ShownRows(list_box->GetRowCount(), FDropDownCount);
    const int top = list_box->GetTopIndex();
    if (row >= 0 && (atTop || row < top || row >= top + shown))
        list_box->SetTopIndex(atTop ? row : std::max(row < top ? row : row - shown + 1, 0));
}

// Painting

void Tform_list::list_boxDrawItem(TWinControl*, int index, TRect rect, TOwnerDrawState state) {
    const TColor background = state.Contains(odSelected) ? FSelectionColor : kRowColor;
    const TWindowDC dc(list_box->GetHandle());
    const TSavedDC saved(dc);
    {
        const TUniqueBrush brush(CreateSolidBrush(ColorToRGB(background)));
        const RECT row = ToWin(rect);
        FillRect(dc, &row, brush.Get());
    }
    DrawRow(dc, rect, list_box->RowText(index));
}

void Tform_list::DrawRow(HDC dc, const TRect& rect, StringView text) const {
    const auto runs = SplitRow(text, MatchedCharacters(text, FSearchText, FFolder));
    const TFont* const fonts[] = {FNormalFont.get(), FMatchFont.get(), FNormalFont.get()};
    std::array<int, 3> widths{};
    for (std::size_t i = 0; i < runs.size(); ++i) {
        const TSelectedObject font(dc, fonts[i]->GetHandle());
        widths[i] = runs[i].empty() ? 0 : TextWidth(dc, runs[i]);
    }
    // DT_VCENTER centres nothing but single lines, which are asked for by another flag; so the text's own rectangle
    // lies in the middle of the row.
    const int height = TTextMeasure(*FNormalFont).LineHeight();
    const int top = (rect.Height() - height) / 2;
    const bool reversed = ReadsRightToLeft(text);
    const auto places = LayOutRow(rect, widths, GetTarget() && GetTarget()->UseRightToLeftAlignment(), reversed);
    SetTextAlign(dc, reversed ? TA_RTLREADING : 0u);
    SetBkMode(dc, TRANSPARENT);
    for (std::size_t i = 0; i < runs.size(); ++i) {
        if (runs[i].empty())
            continue;
        RECT place = ToWin(places[i]);
        if (i == 1) {
            const TUniqueBrush brush(CreateSolidBrush(ColorToRGB(FMatchColor)));
            FillRect(dc, &place, brush.Get());
        }
        place.top += top;
        place.right = std::max(place.right, static_cast<LONG>(rect.Right)); // slanted letters reach beyond their width
        const TSelectedObject font(dc, fonts[i]->GetHandle());
        SetTextColor(dc, ColorToRGB(fonts[i]->GetColor()));
        // The flags know no "&" as it is; two of them are one.
        const String shown = StringReplace(runs[i], u"&", u"&&", TReplaceFlags() << rfReplaceAll);
        DrawTextW(dc, WideChars(shown), static_cast<int>(shown.size()), &place, DT_VCENTER);
    }
}

// The loader

const TClassInfo& Tform_dropdown_loader::StaticClass() {
    static const TClassInfo info = DescribeClass<Tform_dropdown_loader>(u"Tform_dropdown_loader", TForm::StaticClass());
    return info;
}

Tform_list& Tform_dropdown_loader::Load() {
    if (!FList)
        FList = std::make_unique<Tform_list>();
    return *FList;
}

} // namespace ZOR
