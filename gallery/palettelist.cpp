#include "gallery/palettelist.h"

#include "framework/graphics/canvas.h"
#include "framework/windows/standardcontrols.h"

namespace gallery {

const TClassInfo& TPaletteList::StaticClass() {
    static const TClassInfo info = DescribeClass<TPaletteList>(u"TPaletteList", TRowList::StaticClass());
    return info;
}

TPaletteList::TPaletteList(TComponent* owner) : TRowList(owner) {
    // What the system brings comes last.
    for (const bool standard : {false, true}) {
        for (const TPalettePage& page : PalettePages()) {
            if ((page.Name == StandardPage) == standard)
                FClasses.insert(FClasses.end(), page.Classes.begin(), page.Classes.end());
        }
    }
}

const TClassInfo* TPaletteList::GetChosen() const {
    return GetItemIndex() < 0 ? nullptr : FClasses[static_cast<std::size_t>(GetItemIndex())];
}

String TPaletteList::RowText(int row) const {
    return FClasses[static_cast<std::size_t>(row)]->Name();
}

void TPaletteList::PaintRow(TCanvas& canvas, int row, const TRect& rect, bool selected) {
    canvas.GetFont()->SetColor(selected ? clHighlightText : clWindowText);
    TRect text{rect.Left + 8, rect.Top, rect.Right - 4, rect.Bottom};
    canvas.TextRect(text, RowText(row), DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS);
}

} // namespace gallery
