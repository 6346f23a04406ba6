#include "gallery/pagelist.h"

#include "framework/graphics/canvas.h"

namespace gallery {

namespace {

constexpr TColor kSelected = 0xF7E6D3;
constexpr TColor kMark = 0xDD9746;
constexpr int kMarkWidth = 3;

} // namespace

const TClassInfo& TPageList::StaticClass() {
    static const TClassInfo info = DescribeClass<TPageList>(u"TPageList", TRowList::StaticClass());
    return info;
}

TPageList::TPageList(TComponent* owner) : TRowList(owner) {
    FRowPadding = 7;
}

void TPageList::Add(const String& title) {
    FTitles.push_back(title);
    RowsChanged();
}

TColor TPageList::RowBackground(int row, bool selected) const {
    return selected ? kSelected : TRowList::RowBackground(row, false);
}

void TPageList::PaintRow(TCanvas& canvas, int row, const TRect& rect, bool selected) {
    if (selected) {
        canvas.GetBrush()->SetColor(kMark);
        canvas.FillRect(Bounds(rect.Left, rect.Top, kMarkWidth, rect.Height()));
    }
    canvas.GetBrush()->SetStyle(bsClear);
    canvas.GetFont()->SetColor(clWindowText);
    TRect text{rect.Left + 14, rect.Top, rect.Right - 4, rect.Bottom};
    canvas.TextRect(text, RowText(row), DT_SINGLELINE | DT_VCENTER | DT_END_ELLIPSIS | DT_NOPREFIX);
    if (selected && Focused())
        canvas.DrawFocusRect({rect.Left + kMarkWidth, rect.Top, rect.Right, rect.Bottom});
}

} // namespace gallery
