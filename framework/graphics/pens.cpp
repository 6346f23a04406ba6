#include "framework/graphics/pens.h"

#include "framework/system/published.h"

#include <tuple>

namespace framework {

namespace {

// In the order of TPenMode.
constexpr int RasterOperations[] = {R2_BLACK,       R2_WHITE,      R2_NOP,         R2_NOT,
                                    R2_COPYPEN,     R2_NOTCOPYPEN, R2_MERGEPENNOT, R2_MASKPENNOT,
                                    R2_MERGENOTPEN, R2_MASKNOTPEN, R2_MERGEPEN,    R2_NOTMERGEPEN,
                                    R2_MASKPEN,     R2_NOTMASKPEN, R2_XORPEN,      R2_NOTXORPEN};
// In the order of TPenStyle.
constexpr int PenStyles[] = {PS_SOLID, PS_DASH, PS_DOT, PS_DASHDOT, PS_DASHDOTDOT, PS_NULL, PS_INSIDEFRAME};

using TPenKey = std::tuple<TPenStyle, int, std::uint32_t>;

// Never destroyed: pens that live until the program ends give their handles back after that.
THandleCache<HPEN, TPenKey>& Handles() {
    static auto& cache = *new THandleCache<HPEN, TPenKey>;
    return cache;
}

} // namespace

const TEnumInfo& DescribeEnum(TPenStyle) {
    static const TEnumInfo info{
        u"TPenStyle", {u"psSolid", u"psDash", u"psDot", u"psDashDot", u"psDashDotDot", u"psClear", u"psInsideFrame"}};
    return info;
}

const TEnumInfo& DescribeEnum(TPenMode) {
    static const TEnumInfo info{u"TPenMode",
                                {u"pmBlack", u"pmWhite", u"pmNop", u"pmNot", u"pmCopy", u"pmNotCopy", u"pmMergePenNot",
                                 u"pmMaskPenNot", u"pmMergeNotPen", u"pmMaskNotPen", u"pmMerge", u"pmNotMerge",
                                 u"pmMask", u"pmNotMask", u"pmXor", u"pmNotXor"}};
    return info;
}

const TClassInfo& TPen::StaticClass() {
    static const TClassInfo info =
        DescribeClass<TPen>(u"TPen", TGraphicsObject::StaticClass(),
                            {Property<&TPen::GetColor, &TPen::SetColor>(u"Color", clBlack).Named(ColorIdentifiers()),
                             Property<&TPen::GetMode, &TPen::SetMode>(u"Mode", pmCopy),
                             Property<&TPen::GetStyle, &TPen::SetStyle>(u"Style", psSolid),
                             Property<&TPen::GetWidth, &TPen::SetWidth>(u"Width", 1)});
    return info;
}

void TPen::Assign(TPersistent* source) {
    const TPen* pen = As<TPen>(source);
    if (!pen) {
        TGraphicsObject::Assign(source);
        return;
    }
    if (std::tie(FColor, FMode, FStyle, FWidth) == std::tie(pen->FColor, pen->FMode, pen->FStyle, pen->FWidth))
        return;
    FColor = pen->FColor;
    FMode = pen->FMode;
    FStyle = pen->FStyle;
    FWidth = pen->FWidth;
    FHandle.reset();
    Changed();
}

void TPen::SetWidth(int value) {
    if (value >= 0)
        Change(FWidth, value);
}

const TSharedHandle<HPEN>& TPen::GetSharedHandle() const {
    const std::uint32_t color = ColorToRGB(FColor);
    if (!FHandle || FHandleColor != color) {
        FHandle = Handles().Get({FStyle, FWidth, color}, [&] { return ::CreatePen(PenStyles[FStyle], FWidth, color); });
        FHandleColor = color;
    }
    return FHandle;
}

int TPen::GetRasterOperation() const {
    return RasterOperations[FMode];
}

} // namespace framework
