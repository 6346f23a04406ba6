// The header: its properties and its looks. What the mouse does to it stands in treeheader_mouse.cpp.

#include "framework/vtree/treeheader.h"

#include "framework/graphics/bufferedpaint.h"
#include "framework/graphics/canvas.h"
#include "framework/graphics/checkmarks.h"
#include "framework/graphics/textmetrics.h"
#include "framework/vtree/virtualtree.h"

#include <algorithm>
#include <vsstyle.h>
#include <vssym32.h>

namespace framework {

namespace {

constexpr int kSortMark = 8; // pixels wide
constexpr int kBeforeSortMark = 2;

int Scaled(int pixels, int m, int d) {
    return MulDiv(pixels, m, d);
}

} // namespace

const TClassInfo& TVTHeader::StaticClass() {
    using H = TVTHeader;
    static const TClassInfo info = DescribeClass<H>(
        u"TVTHeader", TPersistent::StaticClass(),
        {Property<&H::GetAutoSizeIndex, &H::SetAutoSizeIndex>(u"AutoSizeIndex", NoColumn),
         Property<&H::GetBackground, &H::SetBackground>(u"Background", clBtnFace).Named(ColorIdentifiers()),
         Property<&H::GetColumns, &H::SetColumns>(u"Columns"),
         Property<&H::GetDefaultHeight, &H::SetDefaultHeight>(u"DefaultHeight", 19),
         Property<&H::GetFont, &H::SetFont>(u"Font").StoredWhen<&H::FontStored>(),
         Property<&H::GetHeight, &H::SetHeight>(u"Height").StoredWhen<&H::HeightStored>(),
         Property<&H::GetMainColumn, &H::SetMainColumn>(u"MainColumn", 0),
         Property<&H::GetOptions, &H::SetOptions>(u"Options", DefaultHeaderOptions),
         Property<&H::GetParentFont, &H::SetParentFont>(u"ParentFont", true),
         Property<&H::GetSortColumn, &H::SetSortColumn>(u"SortColumn", NoColumn),
         Property<&H::GetSortDirection, &H::SetSortDirection>(u"SortDirection", sdAscending),
         Property<&H::GetStyle, &H::SetStyle>(u"Style", hsThickButtons)});
    return info;
}

TVTHeader::TVTHeader(TBaseVirtualTree* tree)
    : FTree(tree), FColumns(std::make_unique<TVirtualTreeColumns>(this)), FFont(std::make_unique<TFont>()) {
    FFont->OnChange = [this](TObject*) {
        FParentFont = false;
        Changed(false);
    };
}

TVTHeader::~TVTHeader() {
    FTree = nullptr; // columns that go now tell nobody
}

TPersistent* TVTHeader::GetOwner() const {
    return FTree;
}

void TVTHeader::Assign(TPersistent* source) {
    const auto* other = As<TVTHeader>(source);
    if (!other) {
        TPersistent::Assign(source);
        return;
    }
    FColumns->Assign(other->FColumns.get());
    FAutoSizeIndex = other->FAutoSizeIndex;
    FMainColumn = other->FMainColumn;
    FDefaultHeight = other->FDefaultHeight;
    FHeight = other->FHeight;
    FBackground = other->FBackground;
    FStyle = other->FStyle;
    if (!other->FParentFont)
        FFont->Assign(other->FFont.get());
    SetParentFont(other->FParentFont);
    SetOptions(other->FOptions);
    SetSort(other->FSortColumn, other->FSortDirection);
    Changed(true);
}

void TVTHeader::Changed(bool places) {
    if (FTree)
        FTree->HeaderChanged(*this, places);
}

/// Screen readers hear of it.
void TVTHeader::CheckStateChanged(TColumnIndex column) {
    if (FTree && FTree->GetHeader() == this)
        FTree->TellColumn(EVENT_OBJECT_STATECHANGE, column);
}

void TVTHeader::SetAutoSizeIndex(TColumnIndex value) {
    if (FAutoSizeIndex == value)
        return;
    FAutoSizeIndex = value;
    Changed(true);
}

void TVTHeader::SetBackground(TColor value) {
    if (FBackground == value)
        return;
    FBackground = value;
    Changed(false);
}

void TVTHeader::SetDefaultHeight(int value) {
    value = std::max(value, 0);
    const bool follows = FHeight == FDefaultHeight;
    FDefaultHeight = value;
    if (follows)
        SetHeight(value);
}

void TVTHeader::SetHeight(int value) {
    value = std::max(value, 0);
    if (FHeight == value)
        return;
    FHeight = value;
    FTree->HeaderFrameChanged(*this);
}

void TVTHeader::SetMainColumn(TColumnIndex value) {
    if (FMainColumn == value)
        return;
    FMainColumn = value;
    Changed(true);
}

void TVTHeader::SetOptions(TVTHeaderOptions value) {
    if (FOptions == value)
        return;
    const bool showed = IsVisible();
    FOptions = value;
    if (showed != IsVisible())
        FTree->HeaderFrameChanged(*this);
    Changed(true);
}

void TVTHeader::SetFont(TFont* value) {
    FFont->Assign(value);
}

void TVTHeader::SetParentFont(bool value) {
    if (value) {
        const auto listener = std::exchange(FFont->OnChange, {});
        FFont->Assign(FTree->GetFont());
        FFont->OnChange = listener;
    }
    FParentFont = value;
    Changed(false);
}

void TVTHeader::ParentFontChanged() {
    if (FParentFont)
        SetParentFont(true);
}

void TVTHeader::SetSortColumn(TColumnIndex value) {
    SetSort(value, FSortDirection);
}

void TVTHeader::SetSortDirection(TSortDirection value) {
    SetSort(FSortColumn, value);
}

void TVTHeader::SetSort(TColumnIndex column, TSortDirection direction) {
    column = std::max(column, NoColumn);
    if (FSortColumn == column && FSortDirection == direction)
        return;
    FSortColumn = column;
    FSortDirection = direction;
    TLifeGuard alive(*FTree);
    Changed(false);
    if (alive)
        FTree->HeaderSortChanged(*this);
}

void TVTHeader::SetStyle(TVTHeaderStyle value) {
    if (FStyle == value)
        return;
    FStyle = value;
    Changed(false);
}

void TVTHeader::ColumnResized(TColumnIndex column) {
    if (FTree)
        FTree->HeaderColumnResized(*this, column);
}

/// The columns keep their parts when others come, go or move.
void TVTHeader::RenumberParts(const std::function<TColumnIndex(TColumnIndex)>& moved) {
    for (TColumnIndex* each : {&FAutoSizeIndex, &FMainColumn, &FSortColumn, &FDownColumn, &FHotColumn})
        *each = moved(*each);
    FMainColumn = std::max(FMainColumn, 0);
    if (FDownColumn == NoColumn)
        FMode = TMode::None;
    if (FTree)
        FTree->HeaderRenumbered(*this, moved);
}

void TVTHeader::ColumnAdded(int index) {
    if (index < FColumns->GetCount() - 1)
        RenumberParts([index](TColumnIndex each) { return each >= index ? each + 1 : each; });
}

void TVTHeader::ColumnDeleted(int index) {
    RenumberParts([index](TColumnIndex each) { return each == index ? NoColumn : each > index ? each - 1 : each; });
}

void TVTHeader::ColumnMoved(int from, int to) {
    RenumberParts([from, to](TColumnIndex each) {
        if (each == from)
            return to;
        if (each > from && each <= to)
            return each - 1;
        return each >= to && each < from ? each + 1 : each;
    });
}

void TVTHeader::AutoResize() {
    if (!FOptions.Contains(hoAutoResize) || FAutoResizing || FColumns->GetCount() == 0)
        return;
    const TColumnIndex wanted =
        FColumns->IsValidColumn(FAutoSizeIndex) ? FAutoSizeIndex : FColumns->GetLastVisibleColumn();
    if (wanted == NoColumn)
        return;
    TVirtualTreeColumn& column = *FColumns->GetColumn(wanted);
    FAutoResizing = true;
    const TAtScopeEnd done(*FTree, [this] { FAutoResizing = false; });
    column.SetWidth(FillingWidth(FColumns->Extents(), column.GetPosition(), FTree->GetClientWidth()));
}

void TVTHeader::ChangeScale(int m, int d) {
    for (int i = 0; i < FColumns->GetCount(); ++i) {
        TVirtualTreeColumn& column = *FColumns->GetColumn(i);
        column.FMinWidth = std::min(Scaled(column.FMinWidth, m, d), kGreatestColumnWidth);
        column.FMaxWidth = std::min(Scaled(column.FMaxWidth, m, d), kGreatestColumnWidth);
        column.FMargin = Scaled(column.FMargin, m, d);
        column.FWidth = FitColumnWidth(Scaled(column.FWidth, m, d), column.FMinWidth, column.FMaxWidth);
    }
    FColumns->FExtentsValid = false;
    const int height = Scaled(FHeight, m, d);
    FDefaultHeight = Scaled(FDefaultHeight, m, d);
    if (!FParentFont)
        FFont->SetHeight(Scaled(FFont->GetHeight(), m, d));
    SetHeight(height);
    Changed(true);
}

void TVTHeader::Loaded() {
    FColumns->Loaded();
    Changed(true);
}

// Painting

void TVTHeader::PaintHeader(HDC dc, const TRect& place, int offset) {
    if (place.IsEmpty())
        return;
    const TBufferedPaint buffer(dc, place);
    const HDC memory = buffer;
    PaintBackground(memory, place, false, false);
    TLifeGuard alive(*FTree);
    const bool mirrored = FTree->UseRightToLeftAlignment();
    int start = mirrored ? place.Right - offset : place.Left + offset;
    for (int position = 0; alive && position < FColumns->GetCount(); ++position) {
        const TColumnIndex index = FColumns->ColumnFromPosition(position);
        if (index == NoColumn || !FColumns->GetColumn(index)->IsVisible())
            continue;
        const int width = FColumns->GetColumn(index)->GetWidth();
        const int left = mirrored ? start - width : start;
        start = mirrored ? left : left + width;
        const TRect cell{left, place.Top, left + width, place.Bottom};
        if (cell.Right <= place.Left || cell.Left >= place.Right || cell.IsEmpty())
            continue;
        const TSavedDC saved(memory);
        IntersectClipRect(memory, std::max(cell.Left, place.Left), cell.Top, std::min(cell.Right, place.Right),
                          cell.Bottom);
        PaintColumn(memory, cell, index);
    }
    if (alive && FMode == TMode::Dragging)
        PaintDropMark(memory, place, offset);
}

void TVTHeader::PaintColumn(HDC dc, const TRect& cell, TColumnIndex index) {
    const TVirtualTreeColumn& column = *FColumns->GetColumn(index);
    const bool enabled = FTree->GetEnabled() && column.FOptions.Contains(coEnabled);
    const bool pressed = FMode == TMode::Pressed && FDownColumn == index && FOverDown && FStyle != hsPlates;
    const bool hot = enabled && FHotColumn == index && FOptions.Contains(hoHotTrack);
    PaintBackground(dc, cell, hot, pressed);
    if (column.FStyle == vsOwnerDraw && FTree->HasHeaderDraw()) {
        FTree->DoHeaderDraw(*this, dc, index, cell, hot, pressed);
        return;
    }
    PaintCaption(dc, cell, column, pressed);
}

void TVTHeader::PaintBackground(HDC dc, const TRect& cell, bool hot, bool pressed) const {
    RECT area = ToWin(cell);
    const TThemeHandle theme(FTree->IsThemed() ? OpenThemeData(nullptr, L"HEADER") : nullptr);
    const int state = pressed ? HIS_PRESSED : hot ? HIS_HOT : HIS_NORMAL;
    if (theme && SUCCEEDED(DrawThemeBackground(theme.Get(), dc, HP_HEADERITEM, state, &area, nullptr)))
        return;
    const TUniqueBrush brush(CreateSolidBrush(ColorToRGB(FBackground)));
    FillRect(dc, &area, brush.Get());
    UINT edge = FStyle == hsThickButtons ? EDGE_RAISED : BDR_RAISEDINNER;
    if (pressed)
        edge = BDR_SUNKENOUTER;
    DrawEdge(dc, &area, edge, BF_RECT | (FStyle == hsThickButtons ? BF_SOFT : 0u));
}

bool TVTHeader::ShowsBox(TColumnIndex column) const {
    return FOptions.Contains(hoShowImages) && FColumns->GetColumn(column)->FCheckBox;
}

bool TVTHeader::IsLive(TColumnIndex column) const {
    return FTree->GetEnabled() && FColumns->IsValidColumn(column) &&
           FColumns->GetColumn(column)->FOptions.Contains(coEnabled);
}

bool TVTHeader::BoxIsLive(TColumnIndex column) const {
    return IsLive(column) && ShowsBox(column) && !FTree->HasMisc(toReadOnly);
}

TRect TVTHeader::CheckBoxRect(TColumnIndex index, const TRect& place) const {
    if (!ShowsBox(index))
        return {};
    const TVirtualTreeColumn& column = *FColumns->GetColumn(index);
    const TSize size = TCheckPainter(FTree->IsThemed()).Size();
    // A column with nothing but its box has it where the boxes of the rows below are.
    const int indent = column.FText.empty() && index == FMainColumn ? FTree->CheckBoxLeft() : column.FMargin;
    const int left = FTree->UseRightToLeftAlignment() ? place.Right - indent - size.Width : place.Left + indent;
    return Bounds(left, place.Top + (place.Height() - size.Height) / 2, size.Width, size.Height);
}

/// The room for a caption's text, and with `sortMark` where the arrow at its far end goes.
TRect TVTHeader::CaptionRect(const TVirtualTreeColumn& column, const TRect& cell, TRect* sortMark) const {
    const bool mirrored = FTree->UseRightToLeftAlignment();
    TRect text = cell.Inflated(-column.FMargin - FTree->GetTextMargin(), 0); // above the texts of the rows
    if (const TRect box = CheckBoxRect(column.GetIndex(), cell); !box.IsEmpty()) {
        if (mirrored)
            text.Right = box.Left - column.FMargin;
        else
            text.Left = box.Right + column.FMargin;
    }
    if (column.GetIndex() != FSortColumn || !FOptions.Contains(hoShowSortGlyphs) || text.Width() < kSortMark)
        return text;
    if (sortMark)
        *sortMark = Bounds(mirrored ? text.Left : text.Right - kSortMark, text.Top, kSortMark, text.Height());
    if (mirrored)
        text.Left += kSortMark + kBeforeSortMark;
    else
        text.Right -= kSortMark + kBeforeSortMark;
    return text;
}

int TVTHeader::CaptionWidth(TColumnIndex index) const {
    const TVirtualTreeColumn& column = *FColumns->GetColumn(index);
    const TRect cell{0, 0, kGreatestColumnWidth, std::max(FHeight, 1)};
    return cell.Width() - CaptionRect(column, cell).Width() + TTextMeasure(*FFont).Extent(column.FText).Width;
}

void TVTHeader::PaintCaption(HDC dc, const TRect& cell, const TVirtualTreeColumn& column, bool pressed) const {
    const bool enabled = IsLive(column.GetIndex());
    if (const TRect box = CheckBoxRect(column.GetIndex(), cell); !box.IsEmpty()) {
        TCheckLook look = FTree->CheckLook(column.FCheckType, column.FCheckState, BoxIsLive(column.GetIndex()));
        look.Pressed = FMode == TMode::CheckPressed && FDownColumn == column.GetIndex() && FOverDown;
        TCheckPainter(FTree->IsThemed()).Draw(dc, box, look);
    }
    const int sunk = pressed && !FTree->IsThemed() ? 1 : 0;
    TRect sortMark;
    const TRect text = CaptionRect(column, cell, &sortMark).Offset(sunk, sunk);
    if (!sortMark.IsEmpty())
        PaintSortMark(dc, sortMark.Offset(sunk, sunk));
    if (text.IsEmpty() || column.FText.empty())
        return;
    const TSelectedObject font(dc, FFont->GetHandle());
    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, ColorToRGB(enabled ? FFont->GetColor() : clGrayText));
    const TAlignment alignment = FTree->MirroredAlignment(column.FAlignment);
    UINT flags = DT_SINGLELINE | DT_VCENTER | DT_END_ELLIPSIS | DT_NOPREFIX;
    flags |= alignment == taRightJustify ? DT_RIGHT : alignment == taCenter ? DT_CENTER : DT_LEFT;
    flags |= FTree->UseRightToLeftReading() ? DT_RTLREADING : 0u;
    RECT area = ToWin(text);
    DrawTextW(dc, WideData(column.FText), static_cast<int>(column.FText.size()), &area, flags);
}

/// An arrow at the far end of the caption, which gives way to it.
void TVTHeader::PaintSortMark(HDC dc, const TRect& place) const {
    const int middle = (place.Top + place.Bottom) / 2;
    const int base = FSortDirection == sdAscending ? middle + 2 : middle - 2;
    const int tip = FSortDirection == sdAscending ? middle - 2 : middle + 2;
    const POINT corners[] = {{place.Left, base}, {place.Right, base}, {(place.Left + place.Right) / 2, tip}};
    const TUniqueBrush brush(CreateSolidBrush(ColorToRGB(clBtnShadow)));
    const TSelectedObject selectedBrush(dc, brush.Get());
    const TSelectedObject selectedPen(dc, GetStockObject(NULL_PEN));
    Polygon(dc, corners, 3);
}

void TVTHeader::PaintDropMark(HDC dc, const TRect& place, int offset) const {
    if (FDropPosition < 0 || FDownColumn == NoColumn)
        return;
    const int from = FColumns->GetColumn(FDownColumn)->GetPosition();
    const int start = ColumnStart(FColumns->Extents(), FDropPosition > from ? FDropPosition + 1 : FDropPosition);
    const int x = FTree->UseRightToLeftAlignment() ? place.Right - offset - start : place.Left + offset + start;
    const RECT mark{x - 1, place.Top, x + 1, place.Bottom};
    const TUniqueBrush brush(CreateSolidBrush(ColorToRGB(clHighlight)));
    FillRect(dc, &mark, brush.Get());
}

} // namespace framework
