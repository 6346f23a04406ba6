#pragma once

// A list of lines of equal height that draws only those in view: the common ground of the page list, the inspector,
// the event log and the list of choices. Descendants say how many rows there are and draw one.

#include "framework/windows/wincontrol.h"

#include <optional>

namespace gallery {
using namespace framework;

/// What scripts can point at inside a control, by words: `click Inspector row Wymagany`.
class TScriptSpots {
public:
    virtual ~TScriptSpots() = default;
    /// The place in the control's client pixels, scrolled into view if need be; nothing for words it does not know.
    virtual std::optional<TRect> FindSpot(const std::vector<String>& words) = 0;
};

class TRowList : public TCustomControl, public TScriptSpots {
    FRAMEWORK_CLASS(TRowList)

public:
    FRAMEWORK_PROPERTY(int, ItemIndex, GetItemIndex, SetItemIndex);
    FRAMEWORK_READ_PROPERTY(int, Count, GetCount);

    /// Another row was selected.
    TNotifyEvent OnSelect;

    explicit TRowList(TComponent* owner);

    virtual int GetCount() const { return 0; }
    /// The selected row; -1 when there is none.
    int GetItemIndex() const { return FItemIndex; }
    /// Indexes outside the list are moved to its ends; -1 selects none.
    void SetItemIndex(int value);
    int GetTopIndex() const { return FTopIndex; }
    void SetTopIndex(int value);
    void ScrollIntoView(int row);
    /// The row at a point of the client area; -1 below the last.
    int RowAt(int y) const;
    /// The place of a row in client pixels, whether in view or not.
    TRect RowRect(int row) const;
    int GetRowHeight() const;
    /// How many rows fit, parts of one not counted, at least 1.
    int RowsInView() const;

    /// Words: `row N` (from 1) or `row TEXT`, the first whose text is or begins with TEXT.
    std::optional<TRect> FindSpot(const std::vector<String>& words) override;

protected:
    /// Draws a row; its background is filled already, and the brush is clear.
    virtual void PaintRow(TCanvas& canvas, int row, const TRect& rect, bool selected) = 0;
    virtual String RowText(int row) const = 0;
    virtual TColor RowBackground(int row, bool selected) const;
    /// Rows that are no choice, as headings are, are passed over by keys and not taken by clicks.
    virtual bool CanSelect(int) const { return true; }
    /// The number or height of rows changed: puts scroll bar and selection in order and repaints.
    void RowsChanged();
    /// Rows went at the beginning: the selection and the view keep to the rows that they had. RowsChanged follows.
    void RowsRemovedAbove(int count);
    void InvalidateRow(int row);
    /// The user moved the selection, or the program did.
    virtual void SelectionChanged();
    /// The view scrolled: what lies on the rows has to follow.
    virtual void Scrolled() {}

    void CreateParams(TCreateParams& params) override;
    void CreateWnd() override;
    void Dispatch(TMessage& message) override;
    void Paint() override;
    void KeyDown(WORD& key, TShiftState shift) override;
    void MouseDown(TMouseButton button, TShiftState shift, int x, int y) override;
    bool DoMouseWheel(TShiftState shift, int wheelDelta, TPoint mousePos) override;
    void CMFontChanged(TMessage& message) override;

    /// Padding between the text of a row and its edges in pixels.
    int FRowPadding = 3;
    bool FTakesFocus = true;

private:
    int MaxTopIndex() const;
    void UpdateScrollBar();
    void WMVScroll(const TMessage& message);
    void KeepInRange();

    int FItemIndex = -1;
    int FTopIndex = 0;
    int FWheelRest = 0; // parts of a notch that have not scrolled yet
    mutable int FRowHeight = 0;
};

} // namespace gallery
