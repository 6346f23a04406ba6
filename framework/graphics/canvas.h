#pragma once

// TCanvas: draws on a device context with a font, a pen and a brush, which it selects when they are needed and takes
// out again when the context goes.

#include "framework/graphics/brushes.h"
#include "framework/graphics/fonts.h"
#include "framework/graphics/pens.h"

#include <memory>
#include <mutex>
#include <span>

namespace framework {

class TBitmap;
class TCanvas;

enum TGradientDirection { gdHorizontal, gdVertical };

/// Fills a rectangle with a run from one colour to another, from the left or from the top. The pen, the brush and the
/// font of the canvas are not needed for it.
void GradientFillCanvas(TCanvas* canvas, TColor start, TColor end, const TRect& rect, TGradientDirection direction);

class TCanvas : public TPersistent {
    FRAMEWORK_CLASS(TCanvas)

public:
    FRAMEWORK_PROPERTY(TBrush*, Brush, GetBrush, SetBrush);
    FRAMEWORK_PROPERTY(TFont*, Font, GetFont, SetFont);
    FRAMEWORK_PROPERTY(HDC, Handle, GetHandle, SetHandle);
    FRAMEWORK_PROPERTY(TPen*, Pen, GetPen, SetPen);
    FRAMEWORK_PROPERTY(TPoint, PenPos, GetPenPos, SetPenPos);
    FRAMEWORK_PROPERTY(TColor, Pixels[], GetPixel, SetPixel);
    FRAMEWORK_READ_PROPERTY(TRect, ClipRect, GetClipRect);

    TCanvas();
    ~TCanvas() override;

    TBrush* GetBrush() const { return FBrush.get(); }
    void SetBrush(TBrush* value) { FBrush->Assign(value); }
    TFont* GetFont() const { return FFont.get(); }
    void SetFont(TFont* value) { FFont->Assign(value); }
    TPen* GetPen() const { return FPen.get(); }
    void SetPen(TPen* value) { FPen->Assign(value); }

    /// The context with font, pen, brush and their colours in place, for GDI functions of one's own.
    /// EInvalidOperation when the canvas has none and cannot make one.
    HDC GetHandle();
    /// Draws on `dc` from now on; null lets go of the present one, which then holds the objects it had before. The
    /// canvas does not own it.
    void SetHandle(HDC dc);
    bool HandleAllocated() const { return FHandle != nullptr; }

    /// Keeps other threads from this canvas until Unlock; a thread may lock it several times.
    void Lock() { FMutex.lock(); }
    void Unlock() { FMutex.unlock(); }

    // Areas. Right and bottom edges are exclusive.
    /// Fills with the brush; no outline.
    void FillRect(const TRect& rect);
    /// A one-pixel outline in the brush's colour.
    void FrameRect(const TRect& rect);
    /// The dotted rectangle that marks the focus; drawn twice it is gone.
    void DrawFocusRect(const TRect& rect);
    /// These draw an outline with the pen and fill the inside with the brush.
    void Rectangle(const TRect& rect) { Rectangle(rect.Left, rect.Top, rect.Right, rect.Bottom); }
    void Rectangle(int left, int top, int right, int bottom);
    /// `width` and `height` are those of the ellipse that rounds the corners.
    void RoundRect(int left, int top, int right, int bottom, int width, int height);
    void Ellipse(int left, int top, int right, int bottom);
    void Polygon(std::span<const TPoint> points);

    // Lines with the pen; the last point itself is not drawn.
    void MoveTo(int x, int y) { SetPenPos({x, y}); }
    void LineTo(int x, int y);
    void Polyline(std::span<const TPoint> points);
    TPoint GetPenPos();
    void SetPenPos(TPoint value);

    // Texts. A solid brush fills their background, others leave it.
    /// Writes one line with its left upper corner there and moves the pen to its end.
    void TextOut(int x, int y, StringView text);
    /// Writes one line, cut off at the rectangle; a solid brush fills the rectangle.
    void TextRect(const TRect& rect, int x, int y, StringView text);
    /// Writes into a rectangle as DrawTextW does with these DT_... flags; the answer is the height of the text. With
    /// DT_CALCRECT nothing is drawn and the rectangle takes the size of the text.
    int TextRect(TRect& rect, StringView text, UINT flags);
    TSize TextExtent(StringView text);
    int TextWidth(StringView text) { return TextExtent(text).Width; }
    int TextHeight(StringView text) { return TextExtent(text).Height; }
    /// The measures of the font (GetTextMetricsW).
    TEXTMETRICW GetTextMetrics();

    // Pictures.
    void Draw(int x, int y, TBitmap* bitmap);
    /// Copies a part of another canvas, stretched when the sizes differ.
    void CopyRect(const TRect& target, TCanvas* canvas, const TRect& source);

    /// clNone outside the clipping area.
    TColor GetPixel(int x, int y);
    void SetPixel(int x, int y, TColor value);
    /// What can be drawn on at all: the box around the clipping region.
    TRect GetClipRect();

protected:
    /// Makes a context when one is needed and there is none: calls SetHandle, or leaves it.
    virtual void CreateHandle() {}
    /// The context without anything selected, made if need be.
    HDC RequireHandle();

private:
    friend void GradientFillCanvas(TCanvas*, TColor, TColor, const TRect&, TGradientDirection);

    HDC WithFont();
    HDC WithPen();
    HDC WithBrush();
    HDC WithPenAndBrush();
    void Deselect();

    std::unique_ptr<TFont> FFont;
    std::unique_ptr<TPen> FPen;
    std::unique_ptr<TBrush> FBrush;
    HDC FHandle = nullptr;
    TPoint FPenPos; // while there is no context
    // What is selected now: it must not be deleted before it is taken out.
    TSharedHandle<HFONT> FSelectedFont;
    TSharedHandle<HPEN> FSelectedPen;
    TSharedHandle<HBRUSH> FSelectedBrush;
    // What the context held before.
    HGDIOBJ FOldFont = nullptr;
    HGDIOBJ FOldPen = nullptr;
    HGDIOBJ FOldBrush = nullptr;
    std::recursive_mutex FMutex;
};

/// A canvas draws on a device context while in scope, and lasts as long: a handler of the painting may free the control
/// that it belongs to.
class TCanvasBinding {
public:
    TCanvasBinding(std::shared_ptr<TCanvas> canvas, HDC dc) : FCanvas(std::move(canvas)) { FCanvas->SetHandle(dc); }
    TCanvasBinding(const TCanvasBinding&) = delete;
    TCanvasBinding& operator=(const TCanvasBinding&) = delete;
    ~TCanvasBinding() { FCanvas->SetHandle(nullptr); }

    TCanvas* operator->() const { return FCanvas.get(); }

private:
    std::shared_ptr<TCanvas> FCanvas;
};

} // namespace framework
