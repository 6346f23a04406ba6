#include "foundation/Zorutils.h"

#include "framework/graphics/handles.h"

namespace ZOR {

const TEnumInfo& DescribeEnum(TWymagany) {
    static const TEnumInfo info{u"TWymagany", {WymaganyNames.begin(), WymaganyNames.end()}};
    return info;
}

const TClassInfo& TBorderColors::StaticClass() {
    static const TClassInfo info = DescribeClass<TBorderColors>(
        u"TBorderColors", TPersistent::StaticClass(),
        {Property<&TBorderColors::GetRequiredColor, &TBorderColors::SetRequiredColor>(u"RequiredColor",
                                                                                      DefaultRequiredColor)
             .Named(ColorIdentifiers()),
         Property<&TBorderColors::GetRecommendedColor, &TBorderColors::SetRecommendedColor>(u"RecommendedColor",
                                                                                            DefaultRecommendedColor)
             .Named(ColorIdentifiers()),
         Property<&TBorderColors::GetErrorColor, &TBorderColors::SetErrorColor>(u"ErrorColor", DefaultErrorColor)
             .Named(ColorIdentifiers())});
    return info;
}

void TBorderColors::SetRequiredColor(TColor value) {
    FColors.Required = value;
    Change();
}

void TBorderColors::SetRecommendedColor(TColor value) {
    FColors.Recommended = value;
    Change();
}

void TBorderColors::SetErrorColor(TColor value) {
    FColors.Error = value;
    Change();
}

void TBorderColors::Change() {
    if (OnChange)
        OnChange(this);
}

void TBorderColors::Assign(TPersistent* other) {
    if (auto* colors = As<TBorderColors>(other)) {
        colors->FColors = FColors;
        colors->Change();
    } else if (other) {
        TPersistent::AssignTo(other);
    } else {
        TPersistent::Assign(nullptr);
    }
}

namespace {

void DrawOutline(HDC dc, const TRect& ring) {
    if (!ring.IsEmpty())
        Rectangle(dc, ring.Left, ring.Top, ring.Right, ring.Bottom);
}

void DrawFrame(HDC dc, const TFrameDecision& frame) {
    const TUniquePen framePen(CreatePen(PS_SOLID, 1, static_cast<COLORREF>(frame.Color)));
    const TUniquePen clearingPen(CreatePen(PS_SOLID, 1, GetDCBrushColor(dc)));
    const TSelectedObject hollow(dc, GetStockObject(NULL_BRUSH));
    const TSelectedObject outerPen(dc, framePen.Get());
    DrawOutline(dc, frame.Outer);
    const TSelectedObject innerPen(dc, clearingPen.Get());
    DrawOutline(dc, frame.Inner);
}

} // namespace

bool PaintRequirementFrame(TWinControl* control, bool clearInnerRing) {
    if (control->GetComponentState().Contains(csDestroying))
        return false; // what its class published has gone before its window
    const auto* colors = static_cast<const TBorderColors*>(GetObjectProp(*control, u"BorderColors"));
    const String state = GetPropValue(*control, u"Wymagany", true).AsString();
    const TFrameDecision frame = DecideFrame({state,
                                              control->GetCtl3D(),
                                              colors->GetFrameColors(),
                                              {control->GetWidth(), control->GetHeight()},
                                              clearInnerRing});
    if (!frame.Paint)
        return false;
    try {
        const TWindowDC dc(control->GetHandle(), TWindowDC::Whole);
        DrawFrame(dc, frame);
    } catch (const std::exception&) {
        // A frame that cannot be drawn now is drawn at the next repaint; entry goes on meanwhile.
    }
    return true;
}

} // namespace ZOR
