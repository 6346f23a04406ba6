// Painting: the rows that show, into memory first, and nothing of the others. Handlers may do anything meanwhile; when
// they change the rows, the painting stops, as the change has asked for another one.

#include "framework/graphics/bufferedpaint.h"
#include "framework/graphics/canvas.h"
#include "framework/graphics/checkmarks.h"
#include "framework/vtree/virtualtree.h"

#include <algorithm>
#include <optional>
#include <vsstyle.h>

namespace framework {

/// What one painting needs again and again.
struct TBaseVirtualTree::TRowPainting {
    struct TColumn {
        TColumnIndex Index = NoColumn;
        int Position = 0;
        int Left = 0;
        int Right = 0;
    };

    HDC DC = nullptr;
    std::shared_ptr<TCanvas> Canvas;
    TRect Area;
    std::vector<TColumn> Columns;       // those within the area
    std::optional<TCheckPainter> Boxes; // made with the first box
    std::optional<TThemeHandle> Theme;  // opened with the first button
    TUniqueBrush Background;
    TUniqueBrush GridLines;
    TUniqueBitmap SelectionPixel; // for a selection that shines through, made with its first cell
    TUniqueMemoryDC SelectionDC;
    TColor Selection = clNone; // clNone while the selection does not show
    bool Blended = false;
    unsigned Version = 0; // of the structure
};

namespace {

void FillArea(HDC dc, const TRect& area, HBRUSH brush) {
    const RECT rect = ToWin(area);
    FillRect(dc, &rect, brush);
}

bool IsWithin(const TRect& part, const TRect& whole) {
    return part.IsEmpty() || (part.Left >= whole.Left && part.Top >= whole.Top && part.Right <= whole.Right &&
                              part.Bottom <= whole.Bottom);
}

/// A dotted line of single pixels from one point to another straight below or beside it.
void DottedLine(HDC dc, int left, int top, int right, int bottom, COLORREF color) {
    for (int y = top; y <= bottom; ++y) {
        for (int x = left; x <= right; ++x) {
            if ((x + y) % 2 == 0)
                SetPixelV(dc, x, y, color);
        }
    }
}

} // namespace

bool TBaseVirtualTree::SelectionShows() const {
    return !HasPaint(toAlwaysHideSelection) && (Focused() || !HasPaint(toHideSelection));
}

TColor TBaseVirtualTree::SelectionColor() const {
    return Focused() ? FColors->GetFocusedSelectionColor() : FColors->GetUnfocusedSelectionColor();
}

/// Asks for the rows in the area, before anything is painted: they may turn out higher or lower, or with children. Each
/// round asks for one row at least, so that the end comes when all have been, or handlers make rows for ever.
bool TBaseVirtualTree::PrepareRows(const TRect& area) {
    constexpr int kMostRounds = 10000;
    TLifeGuard alive(*this);
    for (int round = 0; round < kMostRounds; ++round) {
        if (!EnsureLayout() || !HandleAllocated())
            return false;
        const unsigned version = FStructureVersion;
        std::int64_t top = 0;
        TVirtualNode* node = FStore->NodeAt(FScrollY + std::max(area.Top, 0), TNodeMeasure::Height, &top);
        for (std::int64_t y = top - FScrollY; node && y < area.Bottom;) {
            const bool there = IsReady(node) || InitNode(node);
            if (!alive)
                return false;
            if (!there || version != FStructureVersion)
                break; // the rows lie elsewhere now
            y += node->GetNodeHeight();
            node = FStore->Next(node, TNodeMeasure::Rows);
        }
        if (version == FStructureVersion)
            return true;
    }
    return true;
}

void TBaseVirtualTree::PaintWindow(HDC dc) {
    RECT clip{};
    GetClipBox(dc, &clip);
    const TRect client = GetClientRect();
    TRowPainting painting;
    painting.Area = {std::max<int>(clip.left, 0), std::max<int>(clip.top, 0), std::min<int>(clip.right, client.Right),
                     std::min<int>(clip.bottom, client.Bottom)};
    if (painting.Area.IsEmpty())
        return;
    if (FUpdateCount > 0) {
        FStructureChanged = true; // what stands there stays until the end of the update
        return;
    }
    const TBufferedPaint buffer(dc, painting.Area);
    painting.DC = buffer;
    painting.Background = TUniqueBrush(CreateSolidBrush(ColorToRGB(GetColor())));
    FillArea(painting.DC, painting.Area, painting.Background.Get());
    TLifeGuard alive(*this);
    if (!PrepareRows(painting.Area))
        return;
    painting.Canvas = FTreeCanvas;
    const TCanvasBinding bound(painting.Canvas, painting.DC);
    painting.Canvas->SetFont(GetFont());
    painting.Canvas->GetHandle(); // the font is in place for all cells
    painting.GridLines = TUniqueBrush(CreateSolidBrush(ColorToRGB(FColors->GetGridLineColor())));
    painting.Selection = SelectionShows() ? SelectionColor() : clNone;
    painting.Blended = HasPaint(toUseBlendedSelection);
    painting.Version = FStructureVersion;
    PaintRows(painting);
}

void TBaseVirtualTree::PaintRows(TRowPainting& painting) {
    const TVirtualTreeColumns& columns = *FHeader->GetColumns();
    for (int position = 0; position < columns.GetCount(); ++position) {
        const TColumnIndex index = columns.ColumnFromPosition(position);
        const TRect place = ColumnRect(index, 0, 0);
        if (place.Right > painting.Area.Left && place.Left < painting.Area.Right && place.Left < place.Right)
            painting.Columns.push_back({index, position, place.Left, place.Right});
    }
    if (columns.GetCount() == 0) {
        const TRect all = ColumnRect(NoColumn, 0, 0);
        painting.Columns.push_back({NoColumn, 0, all.Left, all.Right});
    }
    std::int64_t start = 0;
    TVirtualNode* node = FStore->NodeAt(FScrollY + painting.Area.Top, TNodeMeasure::Height, &start);
    int top = static_cast<int>(start - FScrollY);
    while (node && top < painting.Area.Bottom) {
        const int height = node->GetNodeHeight();
        if (!PaintRow(painting, node, top))
            return;
        top += height;
        node = FStore->Next(node, TNodeMeasure::Rows);
    }
    PaintGridLines(painting, top);
    if (!node)
        PaintBelowRows(painting, ContentHeight() < painting.Area.Top ? painting.Area.Top : top);
}

/// False when a handler changed the rows or freed the tree.
bool TBaseVirtualTree::PaintRow(TRowPainting& painting, TVirtualNode* node, int top) {
    if (!IsReady(node)) {
        Invalidate(); // a handler has moved it here
        return false;
    }
    TLifeGuard alive(*this);
    const int bottom = top + node->GetNodeHeight();
    TVTPaintInfo info;
    info.Canvas = painting.Canvas.get();
    info.DC = painting.DC;
    info.Node = node;
    info.BidiMode = GetBiDiMode();
    for (const TRowPainting::TColumn& column : painting.Columns) {
        info.Column = column.Index;
        info.Position = column.Position;
        info.CellRect = {column.Left, top, column.Right, bottom};
        info.Alignment = CellAlignment(column.Index);
        const bool whole = HasSelection(toFullRowSelect) || IsMainColumn(column.Index);
        info.Selected = node->Has(vsSelected) && painting.Selection != clNone && whole;
        info.Focused = node == FFocusedNode.Get() && (column.Index == FFocusedColumn || column.Index == NoColumn);
        if (!PaintCell(painting, info) || !alive || painting.Version != FStructureVersion)
            return false;
    }
    if (HasPaint(toShowHorzGridLines)) {
        const auto byLeft = [](const TRowPainting::TColumn& a, const TRowPainting::TColumn& b) {
            return a.Left < b.Left;
        };
        const auto [first, last] = std::minmax_element(painting.Columns.begin(), painting.Columns.end(), byLeft);
        if (first != painting.Columns.end())
            FillArea(painting.DC, {first->Left, bottom - 1, last->Right, bottom}, painting.GridLines.Get());
    }
    PaintFocus(painting, {0, top, GetClientWidth(), bottom}, node);
    return alive && painting.Version == FStructureVersion;
}

bool TBaseVirtualTree::PaintCell(TRowPainting& painting, TVTPaintInfo& info) {
    TLifeGuard alive(*this);
    const auto goesOn = [&] { return alive && painting.Version == FStructureVersion; };
    const TCellLayout layout = LayoutOf(info.Node, info.Column, info.CellRect);
    info.ContentRect = layout.Content;
    PaintCellBackground(painting, info);
    if (!goesOn())
        return false;
    if (IsMainColumn(info.Column))
        PaintTreeParts(painting, info, layout);
    if (!info.ContentRect.IsEmpty())
        DoPaintNode(info);
    if (!goesOn())
        return false;
    if (info.Column == NoColumn) {
        const int start = UseRightToLeftAlignment() ? layout.Cell.Right - layout.Content.Right
                                                    : layout.Content.Left - layout.Cell.Left;
        const int width = start + DoGetNodeWidth(info.Node, NoColumn) + 2 * FTextMargin + FMargin;
        if (goesOn() && width > FPaintedWidth) {
            FPaintedWidth = width;
            FLayoutDirty = true; // wider than all before: the bar follows
            Invalidate();
        }
    }
    if (goesOn() && OnAfterCellPaint)
        DoAfterCellPaint(info);
    return goesOn();
}

void TBaseVirtualTree::PaintCellBackground(TRowPainting& painting, const TVTPaintInfo& info) {
    if (info.Column != NoColumn) {
        const TVirtualTreeColumn& column = *FHeader->GetColumns()->GetColumn(info.Column);
        if (!column.GetOptions().Contains(coParentColor)) {
            const TUniqueBrush brush(CreateSolidBrush(ColorToRGB(column.GetColor())));
            FillArea(painting.DC, info.CellRect, brush.Get());
        }
    }
    TLifeGuard alive(*this);
    if (OnBeforeCellPaint) {
        const TSavedDC saved(painting.DC);
        IntersectClipRect(painting.DC, info.CellRect.Left, info.CellRect.Top, info.CellRect.Right,
                          info.CellRect.Bottom);
        DoBeforeCellPaint(info);
    }
    if (!alive || !info.Selected)
        return;
    const TRect area = HasSelection(toFullRowSelect) ? info.CellRect : GetDisplayRect(info.Node, info.Column, true);
    if (!alive || painting.Version != FStructureVersion)
        return;
    if (painting.Blended) {
        BlendSelection(painting, area);
        return;
    }
    const TUniqueBrush brush(CreateSolidBrush(ColorToRGB(painting.Selection)));
    FillArea(painting.DC, area, brush.Get());
}

/// Lays the selection's colour over what is there.
void TBaseVirtualTree::BlendSelection(TRowPainting& painting, const TRect& area) const {
    if (!painting.SelectionDC) {
        painting.SelectionPixel.Reset(CreateCompatibleBitmap(painting.DC, 1, 1));
        painting.SelectionDC.Reset(CreateCompatibleDC(painting.DC));
        SelectObject(painting.SelectionDC.Get(), painting.SelectionPixel.Get());
        SetPixelV(painting.SelectionDC.Get(), 0, 0, ColorToRGB(painting.Selection));
    }
    const BLENDFUNCTION blend{AC_SRC_OVER, 0, static_cast<BYTE>(FBlendFactor), 0};
    GdiAlphaBlend(painting.DC, area.Left, area.Top, area.Width(), area.Height(), painting.SelectionDC.Get(), 0, 0, 1, 1,
                  blend);
}

void TBaseVirtualTree::DoBeforeCellPaint(const TVTPaintInfo& info) {
    Fire(*this, OnBeforeCellPaint, this, info);
}

void TBaseVirtualTree::DoAfterCellPaint(const TVTPaintInfo& info) {
    Fire(*this, OnAfterCellPaint, this, info);
}

void TBaseVirtualTree::PaintTreeParts(TRowPainting& painting, const TVTPaintInfo& info, const TCellLayout& layout) {
    if (!HasPaint(toShowTreeLines) && layout.Button.IsEmpty() && layout.CheckBox.IsEmpty())
        return;
    std::optional<TSavedDC> saved;
    if (HasPaint(toShowTreeLines) || !IsWithin(layout.Button, info.CellRect) ||
        !IsWithin(layout.CheckBox, info.CellRect)) {
        saved.emplace(painting.DC); // only then, as clipping takes longer than what is painted here
        IntersectClipRect(painting.DC, info.CellRect.Left, info.CellRect.Top, info.CellRect.Right,
                          info.CellRect.Bottom);
    }
    if (HasPaint(toShowTreeLines))
        PaintTreeLines(painting, info.Node, info.CellRect);
    if (!layout.Button.IsEmpty())
        PaintButton(painting, layout.Button, info.Node->Has(vsExpanded));
    if (!layout.CheckBox.IsEmpty()) {
        if (!painting.Boxes)
            painting.Boxes.emplace(IsThemed());
        const bool enabled = GetEnabled() && !info.Node->Has(vsDisabled) && !HasMisc(toReadOnly);
        painting.Boxes->Draw(painting.DC, layout.CheckBox,
                             CheckLook(info.Node->GetCheckType(), info.Node->GetCheckState(), enabled));
    }
}

void TBaseVirtualTree::PaintButton(TRowPainting& painting, const TRect& place, bool open) {
    if (!painting.Theme)
        painting.Theme.emplace(IsThemed() ? OpenThemeData(nullptr, L"TREEVIEW") : nullptr);
    RECT button = ToWin(place);
    if (*painting.Theme && SUCCEEDED(DrawThemeBackground(painting.Theme->Get(), painting.DC, TVP_GLYPH,
                                                         open ? GLPS_OPENED : GLPS_CLOSED, &button, nullptr)))
        return;
    FillArea(painting.DC, place, painting.Background.Get());
    FrameRect(painting.DC, &button, GetSysColorBrush(COLOR_BTNSHADOW));
    const int x = (button.left + button.right) / 2;
    const int y = (button.top + button.bottom) / 2;
    const HBRUSH sign = GetSysColorBrush(COLOR_WINDOWTEXT);
    FillArea(painting.DC, {x - 2, y, x + 3, y + 1}, sign);
    if (!open)
        FillArea(painting.DC, {x, y - 2, x + 1, y + 3}, sign);
}

/// From each node to its parent, and past it to the siblings below.
void TBaseVirtualTree::PaintTreeLines(TRowPainting& painting, TVirtualNode* node, const TRect& cell) {
    const COLORREF color = ColorToRGB(FColors->GetTreeLineColor());
    const bool mirrored = UseRightToLeftAlignment();
    const int levels = HasPaint(toShowRoot) ? 0 : 1;
    const int middle = (cell.Top + cell.Bottom) / 2;
    int level = static_cast<int>(TNodeStore::Level(node)) - levels;
    bool own = true;
    for (; level >= 0; --level, node = node->GetParent(), own = false) {
        const int offset = level * FIndent + (FIndent - 1) / 2;
        const int x = mirrored ? cell.Right - 1 - offset : cell.Left + offset;
        const bool last = !node->GetNextSibling();
        if (own) {
            const bool first = !node->GetPrevSibling() && level == 0;
            DottedLine(painting.DC, x, first ? middle : cell.Top, x, last ? middle : cell.Bottom - 1, color);
            const int reach = FIndent / 2 + FMargin - 2;
            DottedLine(painting.DC, mirrored ? x - reach : x, middle, mirrored ? x : x + reach, middle, color);
        } else if (!last) {
            DottedLine(painting.DC, x, cell.Top, x, cell.Bottom - 1, color);
        }
    }
}

/// Over the cells, down to the last row: whatever handlers fill them with.
void TBaseVirtualTree::PaintGridLines(TRowPainting& painting, int bottom) {
    if (!HasPaint(toShowVertGridLines))
        return;
    for (const TRowPainting::TColumn& column : painting.Columns) {
        const int x = UseRightToLeftAlignment() ? column.Left : column.Right - 1;
        if (column.Index != NoColumn)
            FillArea(painting.DC, {x, painting.Area.Top, x + 1, bottom}, painting.GridLines.Get());
    }
}

void TBaseVirtualTree::PaintBelowRows(TRowPainting& painting, int top) {
    for (const TRowPainting::TColumn& column : painting.Columns) {
        const TRect rest{column.Left, top, column.Right, painting.Area.Bottom};
        if (column.Index == NoColumn || rest.IsEmpty())
            continue;
        const TVirtualTreeColumn& found = *FHeader->GetColumns()->GetColumn(column.Index);
        if (!found.GetOptions().Contains(coParentColor)) {
            const TUniqueBrush brush(CreateSolidBrush(ColorToRGB(found.GetColor())));
            FillArea(painting.DC, rest, brush.Get());
        }
        if (HasPaint(toFullVertGridLines) && HasPaint(toShowVertGridLines)) {
            const int x = UseRightToLeftAlignment() ? rest.Left : rest.Right - 1;
            FillArea(painting.DC, {x, rest.Top, x + 1, rest.Bottom}, painting.GridLines.Get());
        }
    }
}

void TBaseVirtualTree::PaintFocus(TRowPainting& painting, const TRect& row, TVirtualNode* node) {
    if (node != FFocusedNode.Get() || !Focused() || HasPaint(toHideFocusRect))
        return;
    TRect area = row;
    if (HasSelection(toExtendedFocus) && FFocusedColumn != NoColumn)
        area = ColumnRect(FFocusedColumn, row.Top, row.Bottom);
    else if (!HasSelection(toFullRowSelect))
        area = GetDisplayRect(node, FHeader->GetColumns()->GetCount() > 0 ? FHeader->GetMainColumn() : NoColumn, true);
    else if (const int width = std::max(ContentWidth() - FScrollX, 0); FHeader->GetColumns()->GetCount() == 0)
        area = row;
    else if (UseRightToLeftAlignment())
        area.Left = std::max(area.Left, area.Right - width);
    else
        area.Right = std::min(area.Right, width);
    if (area.IsEmpty())
        return;
    const RECT rect = ToWin(area);
    SetTextColor(painting.DC, RGB(0, 0, 0));
    SetBkColor(painting.DC, RGB(255, 255, 255));
    ::DrawFocusRect(painting.DC, &rect);
}

void TBaseVirtualTree::DoHeaderDraw(TVTHeader& header, HDC dc, TColumnIndex column, const TRect& cell, bool hover,
                                    bool pressed) {
    const auto canvas = std::make_shared<TCanvas>();
    const TCanvasBinding bound(canvas, dc);
    canvas->SetFont(header.GetFont());
    Fire(*this, OnHeaderDraw, &header, canvas.get(), header.GetColumns()->GetColumn(column), cell, hover, pressed,
         dmmNone);
}

} // namespace framework
