#pragma once

// The palette of the form designer: the registered components below the names of their pages.

#include "gallery/rowlist.h"

namespace gallery {

class TPaletteList : public TRowList {
    FRAMEWORK_CLASS(TPaletteList)

public:
    explicit TPaletteList(TComponent* owner);

    /// The class of the selected row; null when none is selected.
    const TClassInfo* GetChosen() const;
    int GetCount() const override { return static_cast<int>(FRows.size()); }

protected:
    void PaintRow(TCanvas& canvas, int row, const TRect& rect, bool selected) override;
    String RowText(int row) const override { return Row(row).Text; }
    TColor RowBackground(int row, bool selected) const override;
    bool CanSelect(int row) const override { return Row(row).Class != nullptr; }

private:
    struct TRow {
        String Text;
        const TClassInfo* Class = nullptr; ///< null for a heading
    };

    const TRow& Row(int row) const { return FRows[static_cast<std::size_t>(row)]; }
    void AddPages(bool standard);

    std::vector<TRow> FRows;
};

} // namespace gallery
