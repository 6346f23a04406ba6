#include "lists/Zorcombobox_list.h"

#include "framework/graphics/canvas.h"
#include "framework/graphics/handles.h"
#include "framework/graphics/textmetrics.h"
#include "framework/system/strings.h"
#include "framework/windows/application.h"

#include <algorithm>

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

} // namespace

int WidestText(const TStrings& items, const TFont& font) {
    const TWindowDC dc(nullptr);
    const TSelectedObject selected(dc, font.GetHandle());
    TSummedWidths widths(font);
    String widest;
    int sum = 0;
    for (int i = 0; i < items.GetCount(); ++i) {
        String text = items.Get(i);
        const int width = widths.Of(text);
        if (width <= sum)
            continue;
        sum = width;
        widest = std::move(text);
    }
    return std::max(sum, TextWidth(dc, OneLine(widest)));
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

void TChoiceListBox::SetRowCount(int value) {
    FRowCount = value;
    FRow = -1;
    if (!HandleAllocated())
        return;
    Send(LB_SETCOUNT, static_cast<WPARAM>(value));
    Send(LB_SETCURSEL, static_cast<WPARAM>(-1));
    Invalidate();
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

void Tform_list::SetItems(const TStrings* items, int dropDownCount) {
    FItems = items;
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
    const int count = FItems ? FItems->GetCount() : 0;
    if (list_box->GetRowCount() != count)
        list_box->SetRowCount(count);
    // In the font of what matches, should all of it match.
    FWidth = (FItems ? WidestText(*FItems, *FMatchFont) : 0) + 2 * (ChoiceRowMargin + ChoiceListBorder);
    if (count > ShownRows(count, FDropDownCount))
        FWidth += GetSystemMetrics(SM_CXVSCROLL);
}

TRect Tform_list::PlaceFor(const TRect& target, const TRect& workArea) const {
    const int width = std::min(std::max(FWidth, target.Width()), workArea.Width());
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
    if (FItems && index < FItems->GetCount())
        DrawRow(dc, rect, OneLine(FItems->Get(index)));
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
