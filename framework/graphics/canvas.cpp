#include "framework/graphics/canvas.h"

#include "framework/graphics/bitmaps.h"
#include "framework/system/published.h"

#include <vector>

namespace framework {

namespace {

std::vector<POINT> ToWin(std::span<const TPoint> points) {
    std::vector<POINT> result;
    result.reserve(points.size());
    for (const TPoint& point : points)
        result.push_back({point.X, point.Y});
    return result;
}

/// Selects `handle` and notes what the context held before the canvas came. The context is asked each time, as a
/// RestoreDC behind the canvas's back may have taken the object out; asking costs a tenth of selecting a font.
template <class THandle>
void Select(HDC dc, UINT type, const TSharedHandle<THandle>& handle, TSharedHandle<THandle>& selected, HGDIOBJ& old) {
    const HGDIOBJ present = ::GetCurrentObject(dc, type);
    if (present != handle.get())
        ::SelectObject(dc, handle.get());
    if (!selected)
        old = present;
    selected = handle;
}

template <class THandle>
void Restore(HDC dc, UINT type, TSharedHandle<THandle>& selected, HGDIOBJ& old) {
    if (selected && old && ::GetCurrentObject(dc, type) != old)
        ::SelectObject(dc, old);
    selected.reset();
    old = nullptr;
}

} // namespace

const TClassInfo& TCanvas::StaticClass() {
    static const TClassInfo info = DescribeClass<TCanvas>(u"TCanvas", TPersistent::StaticClass(),
                                                          {Property<&TCanvas::FBrush, &TCanvas::SetBrush>(u"Brush"),
                                                           Property<&TCanvas::FFont, &TCanvas::SetFont>(u"Font"),
                                                           Property<&TCanvas::FPen, &TCanvas::SetPen>(u"Pen")});
    return info;
}

TCanvas::TCanvas()
    : FFont(std::make_unique<TFont>()), FPen(std::make_unique<TPen>()), FBrush(std::make_unique<TBrush>()) {
}

TCanvas::~TCanvas() {
    Deselect();
}

HDC TCanvas::GetHandle() {
    WithFont();
    return WithPenAndBrush();
}

void TCanvas::SetHandle(HDC dc) {
    if (dc == FHandle)
        return;
    if (FHandle) {
        FPenPos = GetPenPos();
        Deselect();
    }
    FHandle = dc;
    if (FHandle)
        ::MoveToEx(FHandle, FPenPos.X, FPenPos.Y, nullptr);
}

HDC TCanvas::RequireHandle() {
    if (!FHandle)
        CreateHandle();
    if (!FHandle)
        throw EInvalidOperation(u"There is nothing to draw on");
    return FHandle;
}

HDC TCanvas::WithFont() {
    const HDC dc = RequireHandle();
    Select<HFONT>(dc, OBJ_FONT, FFont->GetSharedHandle(), FSelectedFont, FOldFont);
    ::SetTextColor(dc, ColorToRGB(FFont->GetColor()));
    return dc;
}

HDC TCanvas::WithPen() {
    const HDC dc = RequireHandle();
    Select<HPEN>(dc, OBJ_PEN, FPen->GetSharedHandle(), FSelectedPen, FOldPen);
    ::SetROP2(dc, FPen->GetRasterOperation());
    return dc;
}

HDC TCanvas::WithBrush() {
    const HDC dc = RequireHandle();
    Select<HBRUSH>(dc, OBJ_BRUSH, FBrush->GetSharedHandle(), FSelectedBrush, FOldBrush);
    // The gaps of patterned pens and the background of texts follow the brush too.
    if (FBrush->GetStyle() == bsSolid)
        ::SetBkColor(dc, ColorToRGB(FBrush->GetColor()));
    ::SetBkMode(dc, FBrush->GetStyle() == bsSolid ? OPAQUE : TRANSPARENT);
    return dc;
}

HDC TCanvas::WithPenAndBrush() {
    WithPen();
    return WithBrush();
}

void TCanvas::Deselect() {
    Restore<HFONT>(FHandle, OBJ_FONT, FSelectedFont, FOldFont);
    Restore<HPEN>(FHandle, OBJ_PEN, FSelectedPen, FOldPen);
    Restore<HBRUSH>(FHandle, OBJ_BRUSH, FSelectedBrush, FOldBrush);
}

void TCanvas::FillRect(const TRect& rect) {
    const RECT area = framework::ToWin(rect);
    ::FillRect(WithBrush(), &area, FBrush->GetHandle());
}

void TCanvas::FrameRect(const TRect& rect) {
    const RECT area = framework::ToWin(rect);
    ::FrameRect(WithBrush(), &area, FBrush->GetHandle());
}

void TCanvas::DrawFocusRect(const TRect& rect) {
    const HDC dc = RequireHandle();
    const RECT area = framework::ToWin(rect);
    // The dots are a pattern in these two colours, merged by exclusive or: with others it would be no dots.
    const COLORREF textColor = ::SetTextColor(dc, 0x000000);
    const COLORREF backColor = ::SetBkColor(dc, 0xFFFFFF);
    ::DrawFocusRect(dc, &area);
    ::SetTextColor(dc, textColor);
    ::SetBkColor(dc, backColor);
}

void TCanvas::Rectangle(int left, int top, int right, int bottom) {
    ::Rectangle(WithPenAndBrush(), left, top, right, bottom);
}

void TCanvas::RoundRect(int left, int top, int right, int bottom, int width, int height) {
    ::RoundRect(WithPenAndBrush(), left, top, right, bottom, width, height);
}

void TCanvas::Ellipse(int left, int top, int right, int bottom) {
    ::Ellipse(WithPenAndBrush(), left, top, right, bottom);
}

void TCanvas::Polygon(std::span<const TPoint> points) {
    const std::vector<POINT> corners = ToWin(points);
    ::Polygon(WithPenAndBrush(), corners.data(), static_cast<int>(corners.size()));
}

void TCanvas::LineTo(int x, int y) {
    WithPenAndBrush();
    ::LineTo(FHandle, x, y);
}

void TCanvas::Polyline(std::span<const TPoint> points) {
    const std::vector<POINT> corners = ToWin(points);
    ::Polyline(WithPenAndBrush(), corners.data(), static_cast<int>(corners.size()));
}

TPoint TCanvas::GetPenPos() {
    POINT point{};
    ::GetCurrentPositionEx(RequireHandle(), &point);
    return FromWin(point);
}

void TCanvas::SetPenPos(TPoint value) {
    ::MoveToEx(RequireHandle(), value.X, value.Y, nullptr);
}

void TCanvas::TextOut(int x, int y, StringView text) {
    WithFont();
    const HDC dc = WithBrush();
    const UINT align = ::SetTextAlign(dc, TA_UPDATECP);
    ::MoveToEx(dc, x, y, nullptr);
    ::ExtTextOutW(dc, x, y, 0, nullptr, WideData(text), static_cast<UINT>(text.size()), nullptr);
    ::SetTextAlign(dc, align);
}

void TCanvas::TextRect(const TRect& rect, int x, int y, StringView text) {
    WithFont();
    const HDC dc = WithBrush();
    const RECT area = framework::ToWin(rect);
    const UINT options = ETO_CLIPPED | (FBrush->GetStyle() == bsSolid ? ETO_OPAQUE : 0);
    ::ExtTextOutW(dc, x, y, options, &area, WideData(text), static_cast<UINT>(text.size()), nullptr);
}

int TCanvas::TextRect(TRect& rect, StringView text, UINT flags) {
    WithFont();
    const HDC dc = WithBrush();
    RECT area = framework::ToWin(rect);
    const int height =
        ::DrawTextW(dc, WideData(text), static_cast<int>(text.size()), &area, flags & ~UINT{DT_MODIFYSTRING});
    rect = FromWin(area);
    return height;
}

TSize TCanvas::TextExtent(StringView text) {
    SIZE size{};
    ::GetTextExtentPoint32W(WithFont(), WideData(text), static_cast<int>(text.size()), &size);
    return FromWin(size);
}

TEXTMETRICW TCanvas::GetTextMetrics() {
    TEXTMETRICW metrics{};
    ::GetTextMetricsW(WithFont(), &metrics);
    return metrics;
}

void TCanvas::Draw(int x, int y, TBitmap* bitmap) {
    if (!bitmap || bitmap->GetEmpty())
        return;
    const int width = bitmap->GetWidth();
    const int height = bitmap->GetHeight();
    CopyRect(Bounds(x, y, width, height), bitmap->GetCanvas(), {0, 0, width, height});
}

void TCanvas::CopyRect(const TRect& target, TCanvas* canvas, const TRect& source) {
    const HDC dc = RequireHandle();
    const int oldMode = ::SetStretchBltMode(dc, COLORONCOLOR);
    ::StretchBlt(dc, target.Left, target.Top, target.Width(), target.Height(), canvas->RequireHandle(), source.Left,
                 source.Top, source.Width(), source.Height(), SRCCOPY);
    ::SetStretchBltMode(dc, oldMode);
}

TColor TCanvas::GetPixel(int x, int y) {
    const COLORREF color = ::GetPixel(RequireHandle(), x, y);
    return color == CLR_INVALID ? clNone : static_cast<TColor>(color);
}

void TCanvas::SetPixel(int x, int y, TColor value) {
    ::SetPixelV(RequireHandle(), x, y, ColorToRGB(value));
}

TRect TCanvas::GetClipRect() {
    RECT rect{};
    ::GetClipBox(RequireHandle(), &rect);
    return FromWin(rect);
}

namespace {

TRIVERTEX GradientCorner(int x, int y, std::uint32_t color) {
    // GDI takes 16 bits a channel.
    const auto channel = [color](int shift) { return static_cast<COLOR16>((color >> shift & 0xFF) << 8); };
    return {x, y, channel(0), channel(8), channel(16), 0};
}

} // namespace

void GradientFillCanvas(TCanvas* canvas, TColor start, TColor end, const TRect& rect, TGradientDirection direction) {
    TRIVERTEX corners[] = {GradientCorner(rect.Left, rect.Top, ColorToRGB(start)),
                           GradientCorner(rect.Right, rect.Bottom, ColorToRGB(end))};
    GRADIENT_RECT whole{0, 1};
    ::GradientFill(canvas->RequireHandle(), corners, 2, &whole, 1,
                   direction == gdVertical ? GRADIENT_FILL_RECT_V : GRADIENT_FILL_RECT_H);
}

} // namespace framework
