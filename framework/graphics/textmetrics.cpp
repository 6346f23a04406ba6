#include "framework/graphics/textmetrics.h"

#include <algorithm>

namespace framework {

namespace {

/// Lives as long as the program.
HDC MeasuringContext() {
    static const TUniqueMemoryDC context(::CreateCompatibleDC(nullptr));
    return context.Get();
}

} // namespace

TTextMeasure::TTextMeasure(const TFont& font)
    : FDC(MeasuringContext()), FFont(font.GetSharedHandle()), FSelected(FDC, FFont.get()) {
    ::GetTextMetricsW(FDC, &FMetrics);
}

TSize TTextMeasure::Extent(StringView text) const {
    SIZE size{};
    ::GetTextExtentPoint32W(FDC, WideData(text), static_cast<int>(text.size()), &size);
    return FromWin(size);
}

TSize TTextMeasure::Layout(StringView text, UINT flags, int width) const {
    if (text.empty())
        return {0, LineHeight()};
    // A line that wraps is measured without the blank at its end unless it is left-aligned, but broken with it: at its
    // own width such a text would break differently.
    if (flags & DT_WORDBREAK)
        flags &= ~UINT{DT_RIGHT | DT_CENTER};
    RECT rect{0, 0, width, 0};
    ::DrawTextW(FDC, WideData(text), static_cast<int>(text.size()), &rect,
                (flags & ~UINT{DT_MODIFYSTRING}) | DT_CALCRECT);
    return {static_cast<int>(rect.right - rect.left), static_cast<int>(rect.bottom - rect.top)};
}

int TSummedWidths::Of(StringView text) {
    int width = 0;
    for (const char16_t unit : text)
        width += Page(unit)[unit & 0xFF];
    return width;
}

bool TSummedWidths::IsPlain(StringView text) {
    constexpr char16_t kFirstJoiningMark = 0x0300; // Latin letters end before it
    return std::all_of(text.begin(), text.end(),
                       [](char16_t unit) { return unit >= u' ' && unit < kFirstJoiningMark; });
}

const TSummedWidths::TPage& TSummedWidths::Page(char16_t unit) {
    TPage*& known = FByHighByte[unit >> 8];
    if (!known) {
        const UINT first = unit & 0xFF00u;
        const HDC dc = MeasuringContext();
        const TSelectedObject selected(dc, FFont.get());
        known = &FPages[first];
        ::GetCharWidth32W(dc, first, first + 0xFF, known->data());
    }
    return *known;
}

} // namespace framework
