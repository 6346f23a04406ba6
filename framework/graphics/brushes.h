#pragma once

// TBrush: how areas are filled.

#include "framework/graphics/colors.h"
#include "framework/graphics/graphicsobject.h"

namespace framework {

struct TEnumInfo;

enum TBrushStyle {
    bsSolid,
    bsClear, ///< nothing is filled, and texts leave their background as it is
    bsHorizontal,
    bsVertical,
    bsFDiagonal,
    bsBDiagonal,
    bsCross,
    bsDiagCross,
};

const TEnumInfo& DescribeEnum(TBrushStyle);

class TBrush : public TGraphicsObject {
    FRAMEWORK_CLASS(TBrush)

public:
    FRAMEWORK_PROPERTY(TColor, Color, GetColor, SetColor);
    FRAMEWORK_PROPERTY(TBrushStyle, Style, GetStyle, SetStyle);
    FRAMEWORK_READ_PROPERTY(HBRUSH, Handle, GetHandle);

    void Assign(TPersistent* source) override;

    TColor GetColor() const { return FColor; }
    /// A new colour makes a clear brush solid.
    void SetColor(TColor value);
    TBrushStyle GetStyle() const { return FStyle; }
    void SetStyle(TBrushStyle value);

    /// The GDI brush, made when first asked for; equal brushes share it. It may be gone once the brush changes.
    HBRUSH GetHandle() const { return GetSharedHandle().get(); }
    const TSharedHandle<HBRUSH>& GetSharedHandle() const;

private:
    void Change(TColor color, TBrushStyle style);

    TColor FColor = clWhite;
    TBrushStyle FStyle = bsSolid;
    mutable TSharedHandle<HBRUSH> FHandle;
    mutable std::uint32_t FHandleColor = 0; // of the handle: a system colour may have changed since
};

} // namespace framework
