#pragma once

// Measures of texts for controls that size themselves to them, without a window or a canvas.

#include "framework/graphics/fonts.h"
#include "framework/graphics/handles.h"

namespace framework {

/// Measures texts in one font, any number of them, while it is in scope. All share one device context of the screen's
/// kind, since making one costs more than measuring.
class TTextMeasure {
public:
    explicit TTextMeasure(const TFont& font);
    TTextMeasure(const TTextMeasure&) = delete;
    TTextMeasure& operator=(const TTextMeasure&) = delete;

    /// One line as it is, & included.
    TSize Extent(StringView text) const;
    /// The text as DrawTextW lays it out with these DT_... flags; lines wrap at `width` pixels under DT_WORDBREAK.
    /// An empty text is one empty line high.
    TSize Layout(StringView text, UINT flags, int width = 0) const;
    /// The measures of the font.
    const TEXTMETRICW& Metrics() const { return FMetrics; }
    /// The height of one line in pixels.
    int LineHeight() const { return static_cast<int>(FMetrics.tmHeight); }

private:
    HDC FDC;
    TSharedHandle<HFONT> FFont;
    TSelectedObject FSelected;
    TEXTMETRICW FMetrics{};
};

} // namespace framework
