// What a data grid looks like: titles, the indicator column, and the cells of the records.

#include "framework/db/fieldclasses.h"
#include "framework/dbgrid/dbgrid.h"
#include "framework/dbgrid/griddatalink.h"
#include "framework/dbgrid/rowscope.h"

#include <algorithm>
#include <span>
#include <string_view>
#include <vsstyle.h>

namespace framework {

namespace {

/// A picture of single pixels, at the resolution for which it was drawn.
using TGlyph = std::span<const char* const>;

constexpr const char* kArrow[] = {"#....", "##...", "###..", "####.", "#####", "####.", "###..", "##...", "#...."};
constexpr const char* kPencil[] = {"......##.", ".....####", "....####.", "...####..", "..####...",
                                   ".####....", "####.....", "##.......", "#........"};
constexpr const char* kAsterisk[] = {"....#....", ".#..#..#.", "..#.#.#..", "...###...", "#########",
                                     "...###...", "..#.#.#..", ".#..#..#.", "....#...."};
constexpr const char* kDot[] = {".###.", "#####", "#####", "#####", ".###."};

/// In the middle of a place, in the brush's colour.
void DrawGlyph(TCanvas& canvas, const TRect& place, TGlyph glyph, bool mirrored) {
    const int scale = std::max(ScreenPixelsPerInch() / 96, 1);
    const int columns = static_cast<int>(std::string_view(glyph[0]).size());
    const int rows = static_cast<int>(glyph.size());
    const int left = (place.Left + place.Right - columns * scale) / 2;
    const int top = (place.Top + place.Bottom - rows * scale) / 2;
    for (int y = 0; y < rows; ++y) {
        for (int x = 0; x < columns; ++x) {
            if (glyph[static_cast<std::size_t>(y)][mirrored ? columns - 1 - x : x] == '#')
                canvas.FillRect(Bounds(left + x * scale, top + y * scale, scale, scale));
        }
    }
}

/// The place in the middle of a cell for something of that size, no larger than the cell.
TRect Centered(const TRect& cell, TSize size) {
    size.Width = std::min(size.Width, cell.Width());
    size.Height = std::min(size.Height, cell.Height());
    return Bounds((cell.Left + cell.Right - size.Width) / 2, (cell.Top + cell.Bottom - size.Height) / 2, size.Width,
                  size.Height);
}

} // namespace

TCustomDBGrid::TLooks& TCustomDBGrid::Looks() {
    if (!FLooks) {
        FLooks = std::make_unique<TLooks>();
        if (FDrawingStyle == gdsThemed)
            FLooks->Header = TThemeHandle(OpenThemeData(nullptr, L"HEADER"));
        FLooks->Arrow = TThemeHandle(OpenThemeData(nullptr, L"COMBOBOX"));
        FLooks->Button = TThemeHandle(OpenThemeData(nullptr, L"BUTTON"));
    }
    return *FLooks;
}

TGridDrawState TCustomDBGrid::StateOf(TGridCoord cell) const {
    TGridDrawState state = TCustomGrid::StateOf(cell);
    if (state.Contains(gdFixed))
        return state;
    if (FOptions.Contains(dgRowSelect) && cell.Y == FocusCell().Y)
        state << gdSelected << gdRowSelected;
    if (!Focused() && !FOptions.Contains(dgAlwaysShowSelection))
        state >> gdSelected >> gdRowSelected;
    if (GetEditorMode() && cell == FocusCell())
        state >> gdSelected;
    return state;
}

void TCustomDBGrid::DrawCell(int column, int row, const TRect& rect, TGridDrawState state) {
    TColumn* shown = ColumnOfCell(column);
    if (row < TitleOffset()) {
        DefaultDrawTitle(rect, shown, state);
        return;
    }
    if (!IsDataActive())
        return;
    if (shown)
        DrawDataCell(shown, row - TitleOffset(), rect, state);
    else
        DrawIndicator(row - TitleOffset(), rect);
}

// Titles

void TCustomDBGrid::DrawFixedBackground(const TRect& rect, TGridDrawState state, const TColumn* column) {
    TCanvas& canvas = *GetCanvas();
    RECT area = ToWin(rect);
    const bool pressed = state.Contains(gdPressed);
    const bool hot = state.Contains(gdHotTrack);
    const bool ownColor = column && column->GetTitle()->IsColorStored();
    if (FDrawingStyle == gdsThemed && !ownColor) {
        const int look = pressed ? HIS_PRESSED : hot ? HIS_HOT : HIS_NORMAL;
        const HTHEME theme = Looks().Header.Get();
        if (theme && SUCCEEDED(DrawThemeBackground(theme, canvas.GetHandle(), HP_HEADERITEM, look, &area, nullptr))) {
            canvas.GetBrush()->SetColor(clBtnFace); // some themes leave the lower edge open
            canvas.FillRect({rect.Left, rect.Bottom - 1, rect.Right, rect.Bottom});
            return;
        }
    }
    if (FDrawingStyle == gdsGradient && !ownColor && !pressed) {
        GradientFillCanvas(&canvas, FGradientStartColor, FGradientEndColor, rect, gdVertical);
        canvas.GetBrush()->SetColor(hot ? clHighlight : clBtnShadow);
        const int edge = UseRightToLeftAlignment() ? rect.Left : rect.Right - 1;
        canvas.FillRect({edge, rect.Top, edge + 1, rect.Bottom});
        canvas.FillRect({rect.Left, rect.Bottom - 1, rect.Right, rect.Bottom});
        return;
    }
    canvas.GetBrush()->SetColor(ownColor ? column->GetTitle()->GetColor() : FFixedColor);
    canvas.FillRect(rect);
    DrawEdge(canvas.GetHandle(), &area, pressed ? BDR_SUNKENOUTER : BDR_RAISEDINNER, BF_RECT);
}

void TCustomDBGrid::DefaultDrawTitle(const TRect& rect, TColumn* column, TGridDrawState state) {
    DrawFixedBackground(rect, state, column);
    if (!column)
        return;
    TCanvas& canvas = *GetCanvas();
    canvas.SetFont(column->GetTitle()->GetFont());
    if (!GetEnabled())
        canvas.GetFont()->SetColor(clGrayText);
    canvas.GetBrush()->SetStyle(bsClear);
    const int shift = state.Contains(gdPressed) && !Looks().Header ? 1 : 0;
    WriteText(rect.Offset(shift, shift), column->GetTitle()->GetCaption(), column->GetTitle()->GetAlignment());
    canvas.GetBrush()->SetStyle(bsSolid);
}

void TCustomDBGrid::DrawTitleRest(const TRect& rect) {
    DrawFixedBackground(rect, {}, nullptr);
}

void TCustomDBGrid::DrawIndicator(int row, const TRect& rect) {
    TCanvas& canvas = *GetCanvas();
    canvas.GetBrush()->SetColor(FFixedColor);
    canvas.FillRect(rect);
    const bool mirrored = UseRightToLeftAlignment();
    canvas.GetBrush()->SetColor(clBtnShadow);
    const int edge = mirrored ? rect.Left : rect.Right - 1;
    canvas.FillRect({edge, rect.Top, edge + 1, rect.Bottom});
    if (FOptions.Contains(dgRowLines))
        canvas.FillRect({rect.Left, rect.Bottom - 1, rect.Right, rect.Bottom});
    const bool active = row == FDataLink->GetActiveRecord();
    bool selected = false;
    if (FOptions.Contains(dgMultiSelect)) {
        const TRowScope scope(*this, row);
        selected = scope.Reads() && FSelectedRows.GetCurrentRowSelected();
    }
    if (!active && !selected)
        return;
    canvas.GetBrush()->SetColor(GetEnabled() ? clBtnText : clGrayText);
    const TDataSetState state = GetDataSet()->GetState();
    const TGlyph glyph = !active             ? TGlyph(kDot)
                         : state == dsEdit   ? TGlyph(kPencil)
                         : state == dsInsert ? TGlyph(kAsterisk)
                                             : TGlyph(kArrow);
    TRect place = rect;
    if (active && selected) { // both find room
        const int middle = (rect.Left + rect.Right) / 2;
        (mirrored ? place.Right : place.Left) = middle;
        DrawGlyph(canvas,
                  mirrored ? TRect{middle, rect.Top, rect.Right, rect.Bottom}
                           : TRect{rect.Left, rect.Top, middle, rect.Bottom},
                  kDot, false);
    }
    DrawGlyph(canvas, place, glyph, mirrored);
}

// Cells

void TCustomDBGrid::DrawDataCell(TColumn* column, int row, const TRect& rect, TGridDrawState state) {
    TCanvas& canvas = *GetCanvas();
    TLifeGuard alive(*this);
    const auto columnAlive = column->LifeToken();
    const TRowScope scope(*this, row);
    const bool hasRecord = scope.Reads();
    if (hasRecord && FOptions.Contains(dgMultiSelect) && FSelectedRows.GetCurrentRowSelected())
        state << gdSelected << gdRowSelected;
    canvas.SetFont(column->GetFont());
    canvas.GetBrush()->SetColor(column->GetColor());
    if (state.Contains(gdSelected)) {
        canvas.GetBrush()->SetColor(Focused() ? clHighlight : clBtnFace);
        canvas.GetFont()->SetColor(Focused() ? clHighlightText : clBtnText);
    }
    if (!GetEnabled())
        canvas.GetFont()->SetColor(clGrayText);
    const int index = column->GetIndex();
    if (!hasRecord) {
        canvas.FillRect(rect);
    } else {
        if (FDefaultDrawing)
            DefaultDrawColumnCell(rect, index, column, state);
        if (!alive || columnAlive.expired())
            return; // a handler of the text
        TField* field = column->GetField();
        if (!FColumns->IsCustomized() && !Fire(*this, OnDrawDataCell, this, rect, field, state))
            return;
        if (columnAlive.expired() || !Fire(*this, OnDrawColumnCell, this, rect, index, column, state))
            return;
    }
    if (!columnAlive.expired() && GetEditorMode() && state.Contains(gdFocused))
        DrawCellButton(*column, rect);
    const bool rowSelect = FOptions.Contains(dgRowSelect);
    const bool focusRow = row + TitleOffset() == FocusCell().Y;
    if (Focused() && !GetEditorMode() && (rowSelect ? focusRow : state.Contains(gdFocused))) {
        TRect frame = rect;
        if (rowSelect) // one frame around the row: the cell's clip region shows its own part of it
            frame = {0, rect.Top, Geometry().Client.Width, rect.Bottom};
        SetTextColor(canvas.GetHandle(), RGB(0, 0, 0));
        SetBkColor(canvas.GetHandle(), RGB(255, 255, 255));
        canvas.DrawFocusRect(frame);
    }
}

void TCustomDBGrid::DefaultDrawColumnCell(const TRect& rect, int, TColumn* column, TGridDrawState) {
    TField* field = column->GetField();
    GetCanvas()->FillRect(rect);
    if (field && ShowsBox(*column))
        DrawBox(rect, field);
    else
        WriteFieldText(rect, field, column->GetAlignment());
}

void TCustomDBGrid::DefaultDrawDataCell(const TRect& rect, TField* field, TGridDrawState) {
    GetCanvas()->FillRect(rect);
    WriteFieldText(rect, field, field ? field->GetAlignment() : taLeftJustify);
}

/// A handler of the text may do anything.
void TCustomDBGrid::WriteFieldText(const TRect& rect, TField* field, TAlignment alignment) {
    TLifeGuard alive(*this);
    const String text = field ? field->GetDisplayText() : String();
    if (alive && GetCanvas())
        WriteText(rect, text, alignment);
}

/// One line within the margins. What does not fit ends in dots, so that no number looks like a shorter one.
void TCustomDBGrid::WriteText(const TRect& rect, const String& text, TAlignment alignment) {
    if (text.empty())
        return;
    TRect room = rect.Inflated(-kCellMargin, 0);
    if (room.IsEmpty())
        return;
    if (UseRightToLeftAlignment() && alignment != taCenter)
        alignment = alignment == taLeftJustify ? taRightJustify : taLeftJustify;
    constexpr std::size_t kMost = 1000; // characters that anybody could see in a cell
    String line = text.substr(0, kMost);
    std::replace_if(
        line.begin(), line.end(), [](char16_t c) { return c == u'\r' || c == u'\n' || c == u'\t'; }, u' ');
    UINT flags = DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS;
    flags |= alignment == taCenter ? DT_CENTER : alignment == taRightJustify ? DT_RIGHT : DT_LEFT;
    if (UseRightToLeftReading())
        flags |= DT_RTLREADING;
    const HDC dc = GetCanvas()->GetHandle();
    const int mode = SetBkMode(dc, TRANSPARENT);
    RECT area = ToWin(room);
    ::DrawTextW(dc, WideChars(line), static_cast<int>(line.size()), &area, flags);
    SetBkMode(dc, mode);
}

bool TCustomDBGrid::ShowsBox(const TColumn& column) const {
    const TField* field = column.GetField();
    if (!field || field->GetDataType() != ftBoolean || column.HasPickList() || field->OnGetText)
        return false;
    const auto* boolean = As<TBooleanField>(field);
    return !boolean || boolean->GetDisplayValues().empty();
}

void TCustomDBGrid::DrawBox(const TRect& rect, TField* field) {
    TCheckLook look;
    look.Mark = field->GetIsNull()      ? TCheckMark::Mixed
                : field->GetAsBoolean() ? TCheckMark::Checked
                                        : TCheckMark::Unchecked;
    look.Enabled = GetEnabled();
    const TCheckPainter& boxes = Looks().Boxes;
    boxes.Draw(GetCanvas()->GetHandle(), Centered(rect, boxes.Size()), look);
}

void TCustomDBGrid::DrawCellButton(const TColumn& column, const TRect& rect) {
    if (!HasButton(column))
        return;
    TCanvas& canvas = *GetCanvas();
    canvas.GetBrush()->SetColor(column.GetColor());
    canvas.FillRect(rect);
    const TRect place = ButtonRect();
    RECT button = ToWin(place);
    const HDC dc = canvas.GetHandle();
    if (column.GetButtonStyle() != cbsEllipsis) {
        const int look = FButtonPressed || GetListVisible() ? CBXS_PRESSED : CBXS_NORMAL;
        if (!Looks().Arrow ||
            FAILED(DrawThemeBackground(Looks().Arrow.Get(), dc, CP_DROPDOWNBUTTON, look, &button, nullptr)))
            DrawFrameControl(dc, &button, DFC_SCROLL, DFCS_SCROLLCOMBOBOX | (FButtonPressed ? DFCS_PUSHED : 0u));
        return;
    }
    const int look = FButtonPressed ? PBS_PRESSED : PBS_NORMAL;
    if (!Looks().Button || FAILED(DrawThemeBackground(Looks().Button.Get(), dc, BP_PUSHBUTTON, look, &button, nullptr)))
        DrawFrameControl(dc, &button, DFC_BUTTON, DFCS_BUTTONPUSH | (FButtonPressed ? DFCS_PUSHED : 0u));
    canvas.GetBrush()->SetColor(clBtnText);
    const int middle = (place.Left + place.Right) / 2;
    const int y = (place.Top + place.Bottom) / 2 + 1;
    for (const int x : {middle - 4, middle - 1, middle + 2})
        canvas.FillRect(Bounds(x, y, 2, 2));
}

} // namespace framework
