#pragma once

// The framed data grid: a data grid whose title row belongs to the application, whose scroll bars can be switched off
// for good, and which tells when columns have other widths.

#include "framework/dbgrid/dbgrid.h"

namespace ZOR {

using namespace framework;

/// `Column` is the one whose index is the number of the cell: with the indicator, the next after the painted one.
using TDrawTitleCellEvent =
    std::function<void(TObject* Sender, const TRect& Rect, TColumn* Column, TGridDrawState State)>;

class TZORDBGrid : public TDBGrid {
    FRAMEWORK_CLASS(TZORDBGrid)

public:
    FRAMEWORK_PROPERTY(bool, ShowScrollBars, Get_ShowScrollBars, Set_ShowScrollBars);
    FRAMEWORK_READ_PROPERTY(int, DefaultRowHeight, Get_DefaultRowHeight);

    /// Paints a title. Without a handler titles show the grid's background and nothing else. For the last column the
    /// indicator leaves no column to hand over, and its title is not asked for.
    TDrawTitleCellEvent OnDrawTitleCell;
    /// Columns have other widths, whoever changed them.
    TNotifyEvent OnColWidthsChanged;

    explicit TZORDBGrid(TComponent* owner) : TDBGrid(owner) {}

    /// Off, no scroll bar shows whatever happens. On again, they come back when the grid next brings them up to date.
    bool Get_ShowScrollBars() const { return FShowScrollBars; }
    void Set_ShowScrollBars(bool value);
    /// Pixels, the line below included.
    int Get_DefaultRowHeight() const { return GetDefaultRowHeight(); }

protected:
    void DrawCell(int column, int row, const TRect& rect, TGridDrawState state) override;
    void DrawTitleRest(const TRect&) override {}
    void UpdateScrollBar() override;
    void ColWidthsChanged() override;
    bool ConfirmDelete(bool selectedOnes) override;

private:
    bool FShowScrollBars = true;
};

namespace Zordbgrid {
/// Puts the control on the designer's palette, and makes the plain data grid known to text forms.
void Register();
} // namespace Zordbgrid

} // namespace ZOR
