#pragma once

// Labels: text on a form, without a window of its own. A label can name the control it stands for, so that its
// accelerator key leads there.

#include "framework/windows/wincontrol.h"

namespace framework {

enum TTextLayout { tlTop, tlCenter, tlBottom };
const TEnumInfo& DescribeEnum(TTextLayout);

class TCustomLabel : public TGraphicControl {
    FRAMEWORK_CLASS(TCustomLabel)

public:
    FRAMEWORK_PROPERTY(TAlignment, Alignment, GetAlignment, SetAlignment);
    FRAMEWORK_PROPERTY(TWinControl*, FocusControl, GetFocusControl, SetFocusControl);
    FRAMEWORK_PROPERTY(bool, ShowAccelChar, GetShowAccelChar, SetShowAccelChar);
    FRAMEWORK_PROPERTY(bool, Transparent, GetTransparent, SetTransparent);
    FRAMEWORK_PROPERTY(TTextLayout, Layout, GetLayout, SetLayout);
    FRAMEWORK_PROPERTY(bool, WordWrap, GetWordWrap, SetWordWrap);

    explicit TCustomLabel(TComponent* owner);

    TAlignment GetAlignment() const { return FAlignment; }
    void SetAlignment(TAlignment value);
    /// The control that gets the keyboard focus when the accelerator key in the caption is pressed, and which is known
    /// by the caption to screen readers; null for none.
    TWinControl* GetFocusControl() const { return FFocusControl; }
    void SetFocusControl(TWinControl* value);
    /// Whether a & in the caption underlines the letter behind it and makes it an accelerator key.
    bool GetShowAccelChar() const { return FShowAccelChar; }
    void SetShowAccelChar(bool value);
    /// Whether the parent shows through between the letters, instead of the label's own Color.
    bool GetTransparent() const { return !FControlStyle.Contains(csOpaque); }
    void SetTransparent(bool value);
    bool TransparentStored() const { return FTransparentSet; }
    /// Where the text stands in a label higher than it.
    TTextLayout GetLayout() const { return FLayout; }
    void SetLayout(TTextLayout value);
    bool GetWordWrap() const { return FWordWrap; }
    void SetWordWrap(bool value);
    void AdjustSize() override { AdjustBounds(); }

    /// Sizes the label to its text when AutoSize is on. With WordWrap the text is broken at the present width (less
    /// if Constraints.MaxWidth says so) and the label becomes as high as that needs and as wide as its longest line.
    /// A right-aligned label keeps its right edge. A label that keeps to a side of its parent changes only the extent
    /// that its Align leaves free.
    virtual void AdjustBounds();
    /// The rectangle of the text as it would be drawn within `within`, in the label's own pixels: the width limits
    /// only wrapped text. An empty text measures as a blank.
    TRect GetTextRect(const TRect& within) const;

protected:
    void Paint() override;
    void Dispatch(TMessage& message) override;
    void CMTextChanged(TMessage& message) override;
    void CMFontChanged(TMessage& message) override;
    void CMBiDiModeChanged(TMessage& message) override;
    void Notification(TComponent* component, TOperation operation) override;
    void Resize() override;
    /// The text as it is drawn; descendants may show something else than Caption.
    virtual String GetLabelText() const { return GetText(); }

private:
    UINT DrawFlags() const;
    TAlignment ShownAlignment() const;
    void CMDialogChar(TMessage& message);

    TWinControl* FFocusControl = nullptr;
    TAlignment FAlignment = taLeftJustify;
    TTextLayout FLayout = tlTop;
    bool FShowAccelChar = true;
    bool FWordWrap = false;
    bool FTransparentSet = false;
    bool FAdjusting = false;

    // A label that follows another control is asked for the size of the same text again and again.
    struct TMeasured {
        String Text;
        TSharedHandle<HFONT> Font;
        UINT Flags = 0;
        int Width = -1;
        TSize Size;
    };
    mutable TMeasured FMeasured;
};

class TLabel : public TCustomLabel {
    FRAMEWORK_CLASS(TLabel)

public:
    explicit TLabel(TComponent* owner) : TCustomLabel(owner) {}
};

} // namespace framework
