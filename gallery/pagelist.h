#pragma once

// The list of pages on the left of the gallery.

#include "gallery/rowlist.h"

namespace gallery {

class TPageList : public TRowList {
    FRAMEWORK_CLASS(TPageList)

public:
    explicit TPageList(TComponent* owner);

    void Add(const String& title);
    int GetCount() const override { return static_cast<int>(FTitles.size()); }

protected:
    void PaintRow(TCanvas& canvas, int row, const TRect& rect, bool selected) override;
    String RowText(int row) const override { return FTitles[static_cast<std::size_t>(row)]; }
    TColor RowBackground(int row, bool selected) const override;

private:
    std::vector<String> FTitles;
};

} // namespace gallery
