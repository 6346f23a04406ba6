#include "framework/graphics/brushes.h"

#include "framework/system/published.h"

#include <tuple>

namespace framework {

namespace {

using TBrushKey = std::tuple<TBrushStyle, std::uint32_t>;

// Never destroyed: brushes that live until the program ends give their handles back after that.
THandleCache<HBRUSH, TBrushKey>& Handles() {
    static auto& cache = *new THandleCache<HBRUSH, TBrushKey>;
    return cache;
}

HBRUSH MakeBrush(TBrushStyle style, std::uint32_t color) {
    switch (style) {
    case bsHorizontal:
        return ::CreateHatchBrush(HS_HORIZONTAL, color);
    case bsVertical:
        return ::CreateHatchBrush(HS_VERTICAL, color);
    case bsFDiagonal:
        return ::CreateHatchBrush(HS_FDIAGONAL, color);
    case bsBDiagonal:
        return ::CreateHatchBrush(HS_BDIAGONAL, color);
    case bsCross:
        return ::CreateHatchBrush(HS_CROSS, color);
    case bsDiagCross:
        return ::CreateHatchBrush(HS_DIAGCROSS, color);
    case bsClear:
        return static_cast<HBRUSH>(::GetStockObject(NULL_BRUSH));
    case bsSolid:
        break;
    }
    return ::CreateSolidBrush(color);
}

} // namespace

const TEnumInfo& DescribeEnum(TBrushStyle) {
    static const TEnumInfo info{u"TBrushStyle",
                                {u"bsSolid", u"bsClear", u"bsHorizontal", u"bsVertical", u"bsFDiagonal", u"bsBDiagonal",
                                 u"bsCross", u"bsDiagCross"}};
    return info;
}

const TClassInfo& TBrush::StaticClass() {
    static const TClassInfo info = DescribeClass<TBrush>(
        u"TBrush", TGraphicsObject::StaticClass(),
        {Property<&TBrush::GetColor, &TBrush::SetColor>(u"Color", clWhite).Named(ColorIdentifiers()),
         Property<&TBrush::GetStyle, &TBrush::SetStyle>(u"Style", bsSolid)});
    return info;
}

void TBrush::Assign(TPersistent* source) {
    if (const TBrush* brush = As<TBrush>(source))
        Change(brush->FColor, brush->FStyle);
    else
        TGraphicsObject::Assign(source);
}

void TBrush::SetColor(TColor value) {
    Change(value, FStyle == bsClear ? bsSolid : FStyle);
}

void TBrush::SetStyle(TBrushStyle value) {
    Change(FColor, value);
}

void TBrush::Change(TColor color, TBrushStyle style) {
    if (FColor == color && FStyle == style)
        return;
    FColor = color;
    FStyle = style;
    FHandle.reset();
    Changed();
}

const TSharedHandle<HBRUSH>& TBrush::GetSharedHandle() const {
    const std::uint32_t color = ColorToRGB(FColor);
    if (!FHandle || FHandleColor != color) {
        FHandle = Handles().Get({FStyle, color}, [&] { return MakeBrush(FStyle, color); });
        FHandleColor = color;
    }
    return FHandle;
}

} // namespace framework
