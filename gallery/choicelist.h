#pragma once

// The list that drops down under a row of the inspector. It never takes the focus: the inspector hands its keys on.

#include "gallery/rowlist.h"

namespace gallery {

class TChoiceList : public TRowList {
    FRAMEWORK_CLASS(TChoiceList)

public:
    /// A choice was clicked, or Enter pressed.
    std::function<void(const String& choice)> OnChoose;

    explicit TChoiceList(TComponent* owner);

    /// Shows the choices below `place`, or above it when there is more room; `place` is in screen pixels and as wide as
    /// the list becomes at least.
    void Open(std::vector<String> choices, const String& present, const TRect& place);
    void Close() { SetVisible(false); }
    bool IsOpen() const { return GetVisible(); }
    /// Moves or ends the choice; false for keys that mean nothing to it.
    bool HandleKey(WORD key);

    int GetCount() const override { return static_cast<int>(FChoices.size()); }

protected:
    void CreateParams(TCreateParams& params) override;
    void PaintRow(TCanvas& canvas, int row, const TRect& rect, bool selected) override;
    String RowText(int row) const override { return FChoices[static_cast<std::size_t>(row)]; }
    TColor RowBackground(int row, bool selected) const override;
    void MouseMove(TShiftState shift, int x, int y) override;
    void MouseUp(TMouseButton button, TShiftState shift, int x, int y) override;

private:
    void Choose();

    std::vector<String> FChoices;
};

} // namespace gallery
