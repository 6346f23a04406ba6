#pragma once

// The colours of the requirement frame as a control publishes them, and the painter that every framed control shares.

#include "foundation/Zorutils_rules.h"
#include "framework/windows/wincontrol.h"

namespace ZOR {

const TEnumInfo& DescribeEnum(TWymagany);

/// The frame's colours, one for each state that shows a frame. Published by the controls as BorderColors.
class TBorderColors : public TPersistent {
    FRAMEWORK_CLASS(TBorderColors)

public:
    FRAMEWORK_PROPERTY(TColor, RequiredColor, GetRequiredColor, SetRequiredColor);
    FRAMEWORK_PROPERTY(TColor, RecommendedColor, GetRecommendedColor, SetRecommendedColor);
    FRAMEWORK_PROPERTY(TColor, ErrorColor, GetErrorColor, SetErrorColor);

    /// Fired by every write of a colour, also of the one that is there already. The controls do not listen: a new
    /// colour shows when the frame is painted next.
    TNotifyEvent OnChange;

    explicit TBorderColors(TControl* owner) : FOwner(owner) {}

    TColor GetRequiredColor() const { return FColors.Required; }
    void SetRequiredColor(TColor value);
    TColor GetRecommendedColor() const { return FColors.Recommended; }
    void SetRecommendedColor(TColor value);
    TColor GetErrorColor() const { return FColors.Error; }
    void SetErrorColor(TColor value);
    const TFrameColors& GetFrameColors() const { return FColors; }
    TPersistent* GetOwner() const override { return FOwner; }

    virtual void Change();
    /// Works towards `other`, which is meant: `other` receives this object's colours and this one stays as it is.
    /// EConvertError when `other` is no TBorderColors.
    void Assign(TPersistent* other) override;

private:
    TControl* FOwner;
    TFrameColors FColors;
};

/// Paints the requirement frame of a control into its non-client area. The control is asked by name for its published
/// BorderColors and Wymagany, so any class that publishes both can be framed. `clearInnerRing` hides the inner line of
/// the native border as well. False: the native border is right and the framework has to paint it.
bool PaintRequirementFrame(TWinControl* control, bool clearInnerRing);

} // namespace ZOR
