#pragma once

// Areas that hold other controls: panels with bevelled edges and group boxes with a caption.

#include "framework/windows/wincontrol.h"

namespace framework {

enum TPanelBevel { bvNone, bvLowered, bvRaised, bvSpace };
const TEnumInfo& DescribeEnum(TPanelBevel);

class TCustomPanel : public TCustomControl {
    FRAMEWORK_CLASS(TCustomPanel)

public:
    FRAMEWORK_PROPERTY(TAlignment, Alignment, GetAlignment, SetAlignment);
    FRAMEWORK_PROPERTY(TPanelBevel, BevelInner, GetBevelInner, SetBevelInner);
    FRAMEWORK_PROPERTY(TPanelBevel, BevelOuter, GetBevelOuter, SetBevelOuter);
    FRAMEWORK_PROPERTY(int, BevelWidth, GetBevelWidth, SetBevelWidth);
    FRAMEWORK_PROPERTY(TBorderStyle, BorderStyle, GetBorderStyle, SetBorderStyle);
    FRAMEWORK_PROPERTY(int, BorderWidth, GetBorderWidth, SetBorderWidth);
    FRAMEWORK_PROPERTY(bool, ParentBackground, GetParentBackground, SetParentBackground);
    FRAMEWORK_PROPERTY(bool, ShowCaption, GetShowCaption, SetShowCaption);

    explicit TCustomPanel(TComponent* owner);

    TAlignment GetAlignment() const { return FAlignment; }
    void SetAlignment(TAlignment value);
    /// The edge between the border and the inside.
    TPanelBevel GetBevelInner() const { return FBevelInner; }
    void SetBevelInner(TPanelBevel value);
    /// The edge around everything.
    TPanelBevel GetBevelOuter() const { return FBevelOuter; }
    void SetBevelOuter(TPanelBevel value);
    /// The thickness of each bevel in pixels, from 1.
    int GetBevelWidth() const { return FBevelWidth; }
    void SetBevelWidth(int value);
    TBorderStyle GetBorderStyle() const { return FBorderStyle; }
    void SetBorderStyle(TBorderStyle value);
    /// The plain strip between the two bevels in pixels, from 0.
    int GetBorderWidth() const { return FBorderWidth; }
    void SetBorderWidth(int value);
    /// Whether what the parent paints shows behind a panel that has no colour of its own (ParentColor).
    bool GetParentBackground() const { return FParentBackground; }
    void SetParentBackground(bool value);
    bool GetShowCaption() const { return FShowCaption; }
    void SetShowCaption(bool value);

protected:
    void CreateParams(TCreateParams& params) override;
    void Dispatch(TMessage& message) override;
    void AdjustClientRect(TRect& rect) override;
    void Paint() override;
    void WMEraseBkgnd(TMessage& message) override { message.Result = 1; } // Paint fills it all
    void CMTextChanged(TMessage& message) override;
    void CMFontChanged(TMessage& message) override;
    void CMEnabledChanged(TMessage& message) override;

private:
    void FrameChanged();
    int BevelExtent(TPanelBevel bevel) const { return bevel == bvNone ? 0 : FBevelWidth; }
    void PaintBevel(TRect& rect, TPanelBevel bevel);

    TAlignment FAlignment = taCenter;
    TPanelBevel FBevelInner = bvNone;
    TPanelBevel FBevelOuter = bvRaised;
    TBorderStyle FBorderStyle = bsNone;
    int FBevelWidth = 1;
    int FBorderWidth = 0;
    bool FParentBackground = true;
    bool FShowCaption = true;
};

class TPanel : public TCustomPanel {
    FRAMEWORK_CLASS(TPanel)

public:
    explicit TPanel(TComponent* owner) : TCustomPanel(owner) {}
};

/// A frame with a caption in its upper edge. The accelerator key of the caption leads to the first control inside.
class TCustomGroupBox : public TCustomControl {
    FRAMEWORK_CLASS(TCustomGroupBox)

public:
    explicit TCustomGroupBox(TComponent* owner);

protected:
    void Dispatch(TMessage& message) override;
    void AdjustClientRect(TRect& rect) override;
    void Paint() override;
    void WMEraseBkgnd(TMessage& message) override { message.Result = 1; } // Paint fills it all
    void CMDialogChar(TMessage& message) override;
    void CMTextChanged(TMessage& message) override;
    void CMFontChanged(TMessage& message) override;
    void CMEnabledChanged(TMessage& message) override;

private:
    int CaptionHeight() const;
};

class TGroupBox : public TCustomGroupBox {
    FRAMEWORK_CLASS(TGroupBox)

public:
    explicit TGroupBox(TComponent* owner) : TCustomGroupBox(owner) {}
};

} // namespace framework
