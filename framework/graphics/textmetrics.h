#pragma once

// Measures of texts for controls that size themselves to them, without a window or a canvas.

#include "framework/graphics/fonts.h"
#include "framework/graphics/handles.h"

#include <array>
#include <map>

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
    /// The height of one line in pixels.
    int LineHeight() const { return static_cast<int>(FMetrics.tmHeight); }

private:
    HDC FDC;
    TSharedHandle<HFONT> FFont;
    TSelectedObject FSelected;
    TEXTMETRICW FMetrics{};
};

/// Widths of texts in one font as sums of those of their characters, which is what plain texts measure, and takes a
/// small part of the time.
class TSummedWidths {
public:
    explicit TSummedWidths(const TFont& font) : FFont(font.GetSharedHandle()) {}

    int Of(StringView text);
    /// Whether the sum is the width for sure, or nearly so: no marks that join letters, no script that shapes them.
    static bool IsPlain(StringView text);

private:
    using TPage = std::array<int, 0x100>;

    const TPage& Page(char16_t unit);

    TSharedHandle<HFONT> FFont;
    std::map<UINT, TPage> FPages;
    std::array<TPage*, 0x100> FByHighByte{};
};

} // namespace framework
