// The virtual data grid: painting cells, and the footer below them.

#include "data/Zorvirtualdbgrid.h"
#include "data/Zorvirtualdbgrid_parts.h"
#include "framework/graphics/bufferedpaint.h"
#include "framework/graphics/canvas.h"

#include <algorithm>
#include <vsstyle.h>
#include <vssym32.h>

namespace ZOR {

namespace {

constexpr StringView kTrueText = u"#B1";
constexpr StringView kFalseText = u"#B0";

void FillArea(HDC dc, const TRect& area, TColor color) {
    const RECT rect = ToWin(area);
    SetDCBrushColor(dc, ColorToRGB(color));
    FillRect(dc, &rect, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
}

/// What DrawEdge takes for a frame around a footer cell.
std::pair<UINT, UINT> FooterFrame(TVTHeaderStyle style) {
    switch (style) {
    case hsFlatButtons:
        return {BDR_RAISEDINNER, BF_LEFT | BF_TOP | BF_BOTTOM | BF_MIDDLE | BF_ADJUST};
    case hsPlates:
        return {BDR_RAISEDINNER, BF_RECT | BF_MIDDLE | BF_SOFT | BF_ADJUST};
    case hsThickButtons:
        break;
    }
    return {EDGE_RAISED, BF_LEFT | BF_TOP | BF_BOTTOM | BF_MIDDLE | BF_SOFT | BF_ADJUST};
}

} // namespace

// Cells

void TZORVirtualDBGrid::PaintWindow(HDC dc) {
    TLifeGuard alive(*this);
    const std::shared_ptr<TPainting> outer = FPainting; // a handler has this grid painted while it is being painted
    if (outer)
        outer->Leave();
    TDataSet* dataSet = GetDataSet();
    FPainting = dataSet ? std::make_shared<TPainting>(*dataSet) : nullptr;
    const std::shared_ptr<TPainting> painting = FPainting;
    const TAtScopeEnd done(*this, [&] {
        if (painting)
            painting->Leave();
        FPainting = outer;
    });
    TVirtualDrawTree::PaintWindow(dc);
}

bool TZORVirtualDBGrid::DrawsItself() const {
    return !OnDrawTextNode && !HandlersPaint() && OnDrawNode.target<TOwnDrawing>();
}

/// What the grid draws itself stays within its cell, without the clipping that handlers need.
void TZORVirtualDBGrid::DoPaintNode(TVTPaintInfo& info) {
    if (DrawsItself())
        FDrawNode(this, info);
    else
        TVirtualDrawTree::DoPaintNode(info);
}

/// In the first column, where the tree has something of its own before the texts.
bool TZORVirtualDBGrid::UsesContentRect(const TVTPaintInfo& info) const {
    return info.Column == 0 && info.Column == GetHeader()->GetMainColumn() &&
           (HasPaint(toShowTreeLines) || (HasMisc(toCheckSupport) && info.Node->GetCheckType() != ctNone) ||
            GetNodeLevel(info.Node) > 0);
}

TFont* TZORVirtualDBGrid::FontOf(int column) const {
    if (column < 0 || column >= GetColumns()->GetCount())
        return GetFont();
    const TColumn& shown = *GetColumns()->GetColumn(column);
    return shown.IsFontStored() ? shown.GetFont() : GetFont();
}

TColor TZORVirtualDBGrid::LettersOf(const TVTPaintInfo& info) const {
    const TColor letters = TextColor(info);
    const bool ofScheme = static_cast<TColor>(ColorToRGB(letters)) != letters;
    return info.Node->Has(vsSelected) || !ofScheme ? letters : LettersOn(ColorOf(info), ColorToRGB(letters));
}

TColor TZORVirtualDBGrid::ColorOf(const TVTPaintInfo& info) const {
    return RowColor(info.Node->GetIndex(), static_cast<int>(GetNodeLevel(info.Node)));
}

/// Whether the tree has filled the column with this colour already.
bool TZORVirtualDBGrid::HasGround(int column, TColor color) const {
    return GetHeader()->GetColumns()->GetColumn(column)->GetOptions().Contains(coParentColor) &&
           static_cast<TColor>(ColorToRGB(GetColor())) == color;
}

/// The cell, without what the tree has painted in it already, such as a check box.
TRect TZORVirtualDBGrid::GroundOf(const TVTPaintInfo& info) const {
    TRect ground = info.CellRect;
    if (info.Column == GetHeader()->GetMainColumn() && HasMisc(toCheckSupport) && info.Node->GetCheckType() != ctNone)
        (info.BidiMode == bdLeftToRight ? ground.Left : ground.Right) =
            info.BidiMode == bdLeftToRight ? info.ContentRect.Left : info.ContentRect.Right;
    return ground;
}

void TZORVirtualDBGrid::FDrawNode(TBaseVirtualTree*, const TVTPaintInfo& paintInfo) {
    if (paintInfo.Column < 0 || (FCheckMode && paintInfo.Column == GetHeader()->GetMainColumn()))
        return;
    TLifeGuard alive(*this);
    const TNodeRef still(Nodes(), paintInfo.Node);
    const String text = Get_NodeCaption(paintInfo.Node, paintInfo.Column);
    if (!alive || !still)
        return;
    TVTPaintInfo info = paintInfo;
    if (!UsesContentRect(info))
        info.ContentRect = info.CellRect.Inflated(-GetMargin(), 0);
    const bool direct = DrawsItself();
    TFont* font = FontOf(info.Column);
    if (!direct) {
        info.Canvas->SetFont(font);
        info.Canvas->GetFont()->SetColor(LettersOf(info));
    }
    const HDC dc = direct ? info.DC : info.Canvas->GetHandle();
    if (const TColor color = ColorOf(info); !info.Node->Has(vsSelected) && !(direct && HasGround(info.Column, color)))
        FillArea(dc, GroundOf(paintInfo), color);
    if (OnDrawTextNode) {
        Fire(*this, OnDrawTextNode, this, info, text);
        return;
    }
    if (!direct || font == GetFont())
        return DrawCaption(info, text, dc, direct);
    const TSelectedObject selected(dc, font->GetHandle());
    DrawCaption(info, text, dc, direct);
}

void TZORVirtualDBGrid::DrawCaption(const TVTPaintInfo& info, const String& text, HDC dc, bool direct) {
    if (text.empty())
        return;
    if ((text == kTrueText || text == kFalseText) && ShowsCheckMark(info.Column))
        return DrawCheckMark(info, dc, text == kTrueText, direct);
    SetTextColor(dc, ColorToRGB(LettersOf(info)));
    SetBkMode(dc, TRANSPARENT);
    const auto isControl = [](char16_t unit) { return unit < u' '; };
    bool fits = true;
    if (std::any_of(text.begin(), text.end(), isControl)) {
        String line = text;
        std::replace_if(line.begin(), line.end(), isControl, u' ');
        fits = DrawCellText(dc, line, info, direct && FontOf(info.Column) == GetFont());
    } else {
        fits = DrawCellText(dc, text, info, direct && FontOf(info.Column) == GetFont());
    }
    if (!fits && !IsHintColumn(info.Column))
        FHintColumns.push_back(info.Column);
}

bool TZORVirtualDBGrid::ShowsCheckMark(int column) const {
    const TField* field = FieldOf(column);
    return field && field->GetDataType() == ftBoolean;
}

void TZORVirtualDBGrid::DrawCheckMark(const TVTPaintInfo& info, HDC dc, bool checked, bool direct) const {
    std::optional<TCheckSeries> own;
    std::optional<TCheckSeries>& boxes = FPainting && direct ? FPainting->Boxes : own;
    if (!boxes)
        boxes.emplace(IsThemed());
    const TSize size = boxes->Size();
    const TRect room = info.ContentRect.Inflated(-GetTextMargin(), 0);
    int left = (room.Left + room.Right - size.Width) / 2;
    if (info.Alignment != taCenter)
        left = info.Alignment == taLeftJustify ? room.Left : room.Right - size.Width;
    const TRect box = Bounds(left, (room.Top + room.Bottom - size.Height) / 2, size.Width, size.Height);
    const TCheckLook look{.Mark = checked ? TCheckMark::Checked : TCheckMark::Unchecked, .Enabled = GetEnabled()};
    const bool fits = box.Left >= info.CellRect.Left && box.Right <= info.CellRect.Right &&
                      box.Top >= info.CellRect.Top && box.Bottom <= info.CellRect.Bottom;
    const auto ground = info.Node->Has(vsSelected) ? 0x1000000u | static_cast<unsigned>(info.Column)
                                                   : static_cast<unsigned>(ColorOf(info));
    if (fits)
        return boxes->Draw(dc, box, look, ground);
    const TSavedDC saved(dc);
    IntersectClipRect(dc, info.CellRect.Left, info.CellRect.Top, info.CellRect.Right, info.CellRect.Bottom);
    boxes->Draw(dc, box, look, ground);
}

// The footer's room

void TZORVirtualDBGrid::WMNCCalcSize(TMessage& message) {
    FFooterRoom = FooterRoom();
    auto& place = *reinterpret_cast<RECT*>(message.LParam);
    place.bottom = std::max<LONG>(place.bottom - FFooterRoom, place.top);
    TVirtualDrawTree::WMNCCalcSize(message);
}

TRect TZORVirtualDBGrid::GetFooterRect() const {
    const TRect header = GetHeaderRect();
    const TRect frame{header.Left, header.Top, header.Right, GetHeight() - header.Top};
    TRect band = FooterBand(frame, GetHeight(), FFooter->GetHeight(), FFooter->IsVisible());
    band.Top = std::max(band.Top, std::min(header.Bottom, band.Bottom)); // a low window keeps its header
    return band;
}

void TZORVirtualDBGrid::HeaderChanged(TVTHeader& header, bool places) {
    FMirrored = FMirrored && FMirroring;
    TVirtualDrawTree::HeaderChanged(header, places);
    if (FFooter && &header == FFooter.get())
        FooterChanged();
    else if (places)
        InvalidateFooter();
}

void TZORVirtualDBGrid::FooterChanged() {
    if (IsLoading() || IsDestroying() || FPaintingFooter)
        return;
    if (HandleAllocated() && FFooterRoom != FooterRoom())
        FrameChanged();
    InvalidateFooter();
}

void TZORVirtualDBGrid::InvalidateFooter() {
    if (!HandleAllocated() || FooterRoom() == 0 || std::exchange(FFooterDirty, true))
        return;
    const RECT corner{0, 0, 1, 1}; // so that a WM_PAINT comes, unless there is no room for it
    if (GetClientHeight() > 0)
        InvalidateRect(FHandle, &corner, FALSE);
    else
        PostMessageW(FHandle, WM_NCPAINT, 1, 0);
}

void TZORVirtualDBGrid::DoScroll(int deltaX, std::int64_t deltaY) {
    if (deltaX != 0)
        InvalidateFooter();
    TVirtualDrawTree::DoScroll(deltaX, deltaY);
}

void TZORVirtualDBGrid::CMEnabledChanged(TMessage& message) {
    InvalidateFooter();
    TVirtualDrawTree::CMEnabledChanged(message);
}

void TZORVirtualDBGrid::Dispatch(TMessage& message) {
    TLifeGuard alive(*this);
    switch (message.Msg) {
    case WM_PAINT: {
        std::exception_ptr failure; // goes on when what is there has been painted
        try {
            CatchUp();
        } catch (...) {
            failure = std::current_exception();
        }
        if (alive && HandleAllocated())
            TVirtualDrawTree::Dispatch(message);
        if (alive && FFooterDirty && HandleAllocated())
            PaintFooterBand();
        if (failure)
            std::rethrow_exception(failure);
        return;
    }
    case WM_NCHITTEST: {
        TVirtualDrawTree::Dispatch(message);
        RECT window{};
        if (!alive || GetWindowRect(FHandle, &window) == FALSE)
            return;
        const TPoint point = PointFromLParam(message.LParam);
        if (GetFooterRect().Contains({point.X - window.left, point.Y - window.top}))
            message.Result = HTBORDER;
        return;
    }
    case WM_SIZE:
    case WM_THEMECHANGED:
        InvalidateFooter();
        break;
    default:
        break;
    }
    TVirtualDrawTree::Dispatch(message);
}

// Painting the footer

void TZORVirtualDBGrid::WMNCPaint(TMessage& message) {
    TLifeGuard alive(*this);
    TVirtualDrawTree::WMNCPaint(message);
    if (alive && HandleAllocated())
        PaintFooterBand();
}

void TZORVirtualDBGrid::PaintFooterBand() {
    FFooterDirty = false;
    const TRect band = GetFooterRect();
    if (band.IsEmpty() || FPaintingFooter)
        return;
    RECT window{};
    POINT client{};
    GetWindowRect(FHandle, &window);
    ::ClientToScreen(FHandle, &client);
    const int clientLeft = client.x - window.left;
    // The columns begin where the client area does, which the vertical scroll bar may have moved.
    const int nearEdge =
        UseRightToLeftAlignment() ? band.Right - clientLeft - GetClientWidth() : clientLeft - band.Left;
    const int scrolled = GetOffsetX();
    const TWindowDC dc(FHandle, GetDCEx(FHandle, nullptr, DCX_WINDOW | DCX_CACHE | DCX_CLIPSIBLINGS | DCX_VALIDATE));
    PaintFooter(dc, band, nearEdge + scrolled);
}

void TZORVirtualDBGrid::PaintFooter(HDC dc, const TRect& rect, int offset) {
    TLifeGuard alive(*this);
    FPaintingFooter = true;
    const TAtScopeEnd done(*this, [this] { FPaintingFooter = false; });
    const TBufferedPaint buffer(dc, rect);
    const auto canvas = std::make_shared<TCanvas>();
    const TCanvasBinding bound(canvas, buffer);
    canvas->SetFont(FFooter->GetFont());
    PaintFooterBackground(buffer, rect);
    if (PrepareFooterTexts() && OnFooterDraw)
        PaintFooterCells(canvas, rect, offset);
}

void TZORVirtualDBGrid::PaintFooterBackground(HDC dc, const TRect& rect) const {
    RECT area = ToWin(rect);
    const TThemeHandle theme(IsThemed() ? OpenThemeData(nullptr, L"HEADER") : nullptr);
    if (!theme || FAILED(DrawThemeBackground(theme.Get(), dc, HP_HEADERITEM, HIS_NORMAL, &area, nullptr)))
        FillArea(dc, rect, FFooter->GetBackground());
}

/// Puts the texts into the columns of the footer; false when a handler freed the grid.
bool TZORVirtualDBGrid::PrepareFooterTexts() {
    TLifeGuard alive(*this);
    for (int i = 0; i < std::min(FFooter->GetColumns()->GetCount(), GetColumns()->GetCount()); ++i) {
        TVirtualTreeColumn& shown = *FFooter->GetColumns()->GetColumn(i);
        if (!shown.IsVisible())
            continue;
        TColumn* column = GetColumns()->GetColumn(i);
        const TTotal* total = OwnTotalOf(*column);
        String text = total ? total->Sum.AsToldText() : String();
        if (!Fire(*this, OnGetFooterText, text, column, total ? total->Sum.AsVariant() : Null()))
            return false;
        if (FFooter->GetColumns()->IsValidColumn(i))
            FFooter->GetColumns()->GetColumn(i)->SetText(text);
    }
    return static_cast<bool>(alive);
}

void TZORVirtualDBGrid::PaintFooterCells(const std::shared_ptr<TCanvas>& canvas, const TRect& rect, int offset) {
    const TVirtualTreeColumns& columns = *FFooter->GetColumns();
    std::vector<TFooterColumn> extents;
    for (int position = 0; position < columns.GetCount(); ++position) {
        const TColumnIndex index = columns.ColumnFromPosition(position);
        const TVirtualTreeColumn& column = *columns.GetColumn(index);
        extents.push_back({index, column.GetWidth(), column.IsVisible()});
    }
    const auto [edge, flags] = FooterFrame(FFooter->GetStyle());
    const TAtScopeEnd done(*this, [this] { FFooterPaintInfo = {}; });
    for (const TFooterCell& cell : FooterCells(extents, rect, offset, UseRightToLeftAlignment())) {
        if (!columns.IsValidColumn(cell.Column))
            return; // a handler has changed the columns
        FFooterPaintInfo = {canvas.get(), columns.GetColumn(cell.Column), cell.Place, edge, flags};
        const HDC dc = canvas->GetHandle();
        const TRect shown{std::max(cell.Place.Left, rect.Left), cell.Place.Top, std::min(cell.Place.Right, rect.Right),
                          cell.Place.Bottom};
        const TSavedDC saved(dc);
        IntersectClipRect(dc, shown.Left, shown.Top, shown.Right, shown.Bottom);
        if (!Fire(*this, OnFooterDraw, FFooter.get(), canvas.get(), FFooterPaintInfo.Column, cell.Place, false, false,
                  dmmNone))
            return;
    }
}

void TZORVirtualDBGrid::ComputeFooterLayout(const TVirtualTreeColumn& column, HDC dc, const TRect& cell,
                                            TRect& text) const {
    constexpr int kSpare = 2; // pixels, for italics
    if (column.GetText().empty())
        return;
    SIZE size{};
    GetTextExtentPoint32W(dc, WideChars(column.GetText()), static_cast<int>(column.GetText().size()), &size);
    text = FooterTextPlace(MirroredAlignment(column.GetAlignment()), {size.cx + kSpare, size.cy}, cell, GetMargin());
}

void TZORVirtualDBGrid::DrawFooterCell(TCanvas& canvas, const TVirtualTreeColumn& column, const TRect& cell) {
    canvas.GetFont()->SetColor(GetEnabled() ? FFooter->GetFont()->GetColor() : clGrayText);
    const HDC dc = canvas.GetHandle();
    const int line = UseRightToLeftAlignment() ? cell.Left : cell.Right - 1;
    FillArea(dc, {line, cell.Top + 3, line + 1, cell.Bottom - 3}, GetColors()->GetGridLineColor());
    FillArea(dc, {cell.Left, cell.Top, cell.Right, cell.Top + 1}, clBtnShadow); // the rows end here
    if (column.GetIndex() >= GetColumns()->GetCount())
        return;
    // What a handler of OnGetFooterText has left as it was is shown as the field shows its values.
    TColumn* source = GetColumns()->GetColumn(column.GetIndex());
    const TTotal* total = OwnTotalOf(*source);
    const bool isTotal = total && column.GetText() == total->Sum.AsToldText();
    const String text = isTotal ? FormatColumnTotal(source) : column.GetText();
    SetBkMode(dc, TRANSPARENT);
    TVTPaintInfo info;
    info.CellRect = cell;
    info.ContentRect = cell.Inflated(-GetMargin(), 0);
    info.Alignment = MirroredAlignment(column.GetAlignment());
    if (!text.empty())
        DrawCellText(dc, text, info, false);
}

void DrawFooterTotals(TVTHeader* sender, TCanvas* canvas, TVirtualTreeColumn* column, const TRect& cell, bool, bool,
                      TVTDropMarkMode) {
    if (auto* grid = As<TZORVirtualDBGrid>(sender->GetTreeview()))
        grid->DrawFooterCell(*canvas, *column, cell);
}

} // namespace ZOR
