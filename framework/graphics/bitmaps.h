#pragma once

// TBitmap: a picture in memory, 32 bits a pixel, to draw on, read from and save; and photographs of windows.

#include "framework/graphics/canvas.h"
#include "framework/graphics/handles.h"

namespace framework {

class TBitmap : public TPersistent {
    FRAMEWORK_CLASS(TBitmap)

public:
    FRAMEWORK_PROPERTY(int, Width, GetWidth, SetWidth);
    FRAMEWORK_PROPERTY(int, Height, GetHeight, SetHeight);
    FRAMEWORK_READ_PROPERTY(bool, Empty, GetEmpty);
    FRAMEWORK_READ_PROPERTY(TCanvas*, Canvas, GetCanvas);
    FRAMEWORK_READ_PROPERTY(HBITMAP, Handle, GetHandle);
    FRAMEWORK_READ_PROPERTY(std::uint32_t*, ScanLine[], GetScanLine);

    TBitmap();
    TBitmap(int width, int height);
    ~TBitmap() override;

    void Assign(TPersistent* source) override;

    int GetWidth() const { return FSize.Width; }
    void SetWidth(int value) { SetSize(value, FSize.Height); }
    int GetHeight() const { return FSize.Height; }
    void SetHeight(int value) { SetSize(FSize.Width, value); }
    /// A new size in pixels keeps what fits of the picture; new parts are black. Negative sizes count as 0.
    /// EOutOfResources when there is no memory for it.
    void SetSize(int width, int height);
    bool GetEmpty() const { return FSize.Width == 0 || FSize.Height == 0; }

    /// Draws on the picture. An empty one cannot be drawn on (EInvalidOperation).
    TCanvas* GetCanvas() const { return FCanvas.get(); }
    /// The DIB section; null while the picture is empty.
    HBITMAP GetHandle() const { return FHandle.Get(); }
    /// The pixels of a row (GetScanLine(y)[x], or the row kept in a pointer) from the left, 0x00RRGGBB each; the
    /// highest byte means nothing. Row 0 is the uppermost. EListError when there is no such row.
    std::uint32_t* GetScanLine(int row) const;

    /// Writes a PNG file; EOSError when that fails, EListError when the picture is empty.
    void SaveToPng(const String& fileName) const;

private:
    // In this order: the canvas lets go of the context, the context of the bitmap.
    TUniqueBitmap FHandle;
    TUniqueMemoryDC FDC;
    std::unique_ptr<TCanvas> FCanvas;
    TSize FSize;
    std::uint32_t* FPixels = nullptr; // of the DIB section
};

/// What a visible window shows, border and caption included. EOSError when there is no such window.
std::unique_ptr<TBitmap> CaptureWindow(HWND window);
/// What a part of the screen shows; the whole primary screen when the rectangle is empty.
std::unique_ptr<TBitmap> CaptureScreen(const TRect& rect = {});

} // namespace framework
