#pragma once

// TPen: how lines and outlines are drawn.

#include "framework/graphics/colors.h"
#include "framework/graphics/graphicsobject.h"

namespace framework {

struct TEnumInfo;

/// Patterned pens are one pixel wide; wider ones come out solid, as GDI has it.
enum TPenStyle { psSolid, psDash, psDot, psDashDot, psDashDotDot, psClear, psInsideFrame };
/// How the pen's colour meets what lies there already: R2_... of SetROP2.
enum TPenMode {
    pmBlack,
    pmWhite,
    pmNop,
    pmNot,
    pmCopy,
    pmNotCopy,
    pmMergePenNot,
    pmMaskPenNot,
    pmMergeNotPen,
    pmMaskNotPen,
    pmMerge,
    pmNotMerge,
    pmMask,
    pmNotMask,
    pmXor,
    pmNotXor,
};

const TEnumInfo& DescribeEnum(TPenStyle);
const TEnumInfo& DescribeEnum(TPenMode);

class TPen : public TGraphicsObject {
    FRAMEWORK_CLASS(TPen)

public:
    FRAMEWORK_PROPERTY(TColor, Color, GetColor, SetColor);
    FRAMEWORK_PROPERTY(TPenMode, Mode, GetMode, SetMode);
    FRAMEWORK_PROPERTY(TPenStyle, Style, GetStyle, SetStyle);
    FRAMEWORK_PROPERTY(int, Width, GetWidth, SetWidth);
    FRAMEWORK_READ_PROPERTY(HPEN, Handle, GetHandle);

    void Assign(TPersistent* source) override;

    TColor GetColor() const { return FColor; }
    void SetColor(TColor value) { Change(FColor, value); }
    TPenMode GetMode() const { return FMode; }
    void SetMode(TPenMode value) { Change(FMode, value); }
    TPenStyle GetStyle() const { return FStyle; }
    void SetStyle(TPenStyle value) { Change(FStyle, value); }
    /// Pixels; a negative width is ignored.
    int GetWidth() const { return FWidth; }
    void SetWidth(int value);

    /// The GDI pen, made when first asked for; equal pens share it. It may be gone once the pen changes.
    HPEN GetHandle() const { return GetSharedHandle().get(); }
    const TSharedHandle<HPEN>& GetSharedHandle() const;
    /// The R2_... number of the mode.
    int GetRasterOperation() const;

private:
    template <class TValue>
    void Change(TValue& field, TValue value) {
        if (field == value)
            return;
        field = value;
        FHandle.reset();
        Changed();
    }

    TColor FColor = clBlack;
    TPenMode FMode = pmCopy;
    TPenStyle FStyle = psSolid;
    int FWidth = 1;
    mutable TSharedHandle<HPEN> FHandle;
    mutable std::uint32_t FHandleColor = 0; // of the handle: a system colour may have changed since
};

} // namespace framework
