#pragma once

// The palette of the form designer: the registered components, page by page.

#include "gallery/rowlist.h"

namespace gallery {

class TPaletteList : public TRowList {
    FRAMEWORK_CLASS(TPaletteList)

public:
    explicit TPaletteList(TComponent* owner);

    /// The class of the selected row; null when none is selected.
    const TClassInfo* GetChosen() const;
    int GetCount() const override { return static_cast<int>(FClasses.size()); }

protected:
    void PaintRow(TCanvas& canvas, int row, const TRect& rect, bool selected) override;
    String RowText(int row) const override;

private:
    std::vector<const TClassInfo*> FClasses;
};

} // namespace gallery
