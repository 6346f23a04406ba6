#include "gallery/palettelist.h"

#include "framework/graphics/canvas.h"
#include "framework/windows/standardcontrols.h"

namespace gallery {

const TClassInfo& TPaletteList::StaticClass() {
    static const TClassInfo info = DescribeClass<TPaletteList>(u"TPaletteList", TRowList::StaticClass());
    return info;
}

TPaletteList::TPaletteList(TComponent* owner) : TRowList(owner) {
    AddPages(false);
    AddPages(true); // what the system brings comes last
}

void TPaletteList::AddPages(bool standard) {
    for (const TPalettePage& page : PalettePages()) {
        if ((page.Name == StandardPage) != standard)
            continue;
        FRows.push_back({page.Name});
        for (const TClassInfo* each : page.Classes)
            FRows.push_back({each->Name(), each});
    }
}

const TClassInfo* TPaletteList::GetChosen() const {
    return GetItemIndex() < 0 ? nullptr : Row(GetItemIndex()).Class;
}

TColor TPaletteList::RowBackground(int row, bool selected) const {
    return CanSelect(row) ? TRowList::RowBackground(row, selected) : clBtnFace;
}

void TPaletteList::PaintRow(TCanvas& canvas, int row, const TRect& rect, bool selected) {
    const bool isHeading = !CanSelect(row);
    canvas.GetFont()->SetStyle(isHeading ? TFontStyles{fsBold} : TFontStyles());
    canvas.GetFont()->SetColor(isHeading ? clBtnText : selected && Focused() ? clHighlightText : clWindowText);
    TRect text{rect.Left + (isHeading ? 6 : 16), rect.Top, rect.Right - 4, rect.Bottom};
    canvas.TextRect(text, RowText(row), DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS);
}

} // namespace gallery
