#include "gallery/choicelist.h"

#include "framework/graphics/canvas.h"
#include "framework/graphics/textmetrics.h"

#include <algorithm>

namespace gallery {

namespace {

constexpr int kMostRows = 12;
constexpr int kBorder = 1;
constexpr int kTextMargin = 4;

} // namespace

const TClassInfo& TChoiceList::StaticClass() {
    static const TClassInfo info = DescribeClass<TChoiceList>(u"TChoiceList", TRowList::StaticClass());
    return info;
}

TChoiceList::TChoiceList(TComponent* owner) : TRowList(owner) {
    FRowPadding = 1;
    FTakesFocus = false;
    SetCtl3D(false);
    SetTabStop(false);
    SetVisible(false);
}

void TChoiceList::CreateParams(TCreateParams& params) {
    TRowList::CreateParams(params);
    params.Style |= WS_BORDER;
}

void TChoiceList::Open(std::vector<String> choices, const String& present, const TRect& place) {
    FChoices = std::move(choices);
    const TTextMeasure measure(*GetFont());
    int width = place.Width();
    for (const String& each : FChoices)
        width = std::max(width, measure.Extent(each).Width + 2 * (kTextMargin + kBorder) + 2);
    const int rows = std::clamp(GetCount(), 1, kMostRows);
    if (GetCount() > rows)
        width += GetSystemMetrics(SM_CXVSCROLL);
    const int height = rows * GetRowHeight() + 2 * kBorder;

    TWinControl* parent = GetParent();
    const TPoint below = parent->ScreenToClient({place.Right, place.Bottom});
    const TPoint above = parent->ScreenToClient({place.Left, place.Top});
    const bool fitsBelow = below.Y + height <= parent->GetClientHeight();
    // The right edges are in line, as the button that opens the list stands there.
    SetBounds(std::max(0, below.X - width), fitsBelow ? below.Y : std::max(0, above.Y - height), width, height);
    const auto found = std::find(FChoices.begin(), FChoices.end(), present);
    RowsChanged();
    SetTopIndex(0);
    SetItemIndex(-1);
    SetItemIndex(found == FChoices.end() ? -1 : static_cast<int>(found - FChoices.begin()));
    BringToFront();
    SetVisible(true);
}

bool TChoiceList::HandleKey(WORD key) {
    switch (key) {
    case VK_UP:
    case VK_DOWN:
    case VK_PRIOR:
    case VK_NEXT:
    case VK_HOME:
    case VK_END:
        KeyDown(key, {});
        return true;
    case VK_RETURN:
        Choose();
        return true;
    case VK_ESCAPE:
        Close();
        return true;
    default:
        return false;
    }
}

void TChoiceList::Choose() {
    const int row = GetItemIndex();
    Close();
    if (row >= 0 && OnChoose)
        OnChoose(String(FChoices[static_cast<std::size_t>(row)]));
}

TColor TChoiceList::RowBackground(int, bool selected) const {
    return selected ? clHighlight : GetColor();
}

void TChoiceList::PaintRow(TCanvas& canvas, int row, const TRect& rect, bool selected) {
    canvas.GetFont()->SetColor(selected ? clHighlightText : GetFont()->GetColor());
    const String text = RowText(row);
    TRect place{rect.Left + kTextMargin, rect.Top, rect.Right - kTextMargin, rect.Bottom};
    if (text.empty())
        canvas.GetFont()->SetColor(selected ? clHighlightText : clGrayText);
    canvas.TextRect(place, text.empty() ? StringView(u"(none)") : StringView(text),
                    DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS);
}

void TChoiceList::MouseMove(TShiftState shift, int x, int y) {
    TRowList::MouseMove(shift, x, y);
    if (const int row = RowAt(y); row >= 0)
        SetItemIndex(row);
}

void TChoiceList::MouseUp(TMouseButton button, TShiftState shift, int x, int y) {
    TRowList::MouseUp(button, shift, x, y);
    if (button == mbLeft && RowAt(y) >= 0 && RowAt(y) == GetItemIndex())
        Choose();
}

} // namespace gallery
