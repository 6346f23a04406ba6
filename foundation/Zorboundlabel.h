#pragma once

// The caption of a control: a label that stays glued to it wherever it goes, and is shown, enabled and oriented as the
// control is. Published by the controls as BoundLabel.

#include "foundation/Zorboundlabel_rules.h"
#include "framework/windows/label.h"

namespace ZOR {

const TEnumInfo& DescribeEnum(TCaptionLayout);

class TZORBoundLabel : public TPersistent {
    FRAMEWORK_CLASS(TZORBoundLabel)

public:
    FRAMEWORK_PROPERTY(bool, Active, GetActive, SetActive);
    FRAMEWORK_PROPERTY(bool, AllowClick, GetAllowClick, SetAllowClick);
    FRAMEWORK_PROPERTY(String, Caption, GetText, SetText);
    FRAMEWORK_PROPERTY(bool, EnabledAlways, GetEnabledAlways, SetEnabledAlways);
    FRAMEWORK_PROPERTY(int, Indent, GetIndent, SetIndent);
    FRAMEWORK_PROPERTY(TFont*, Font, GetFont, SetFont);
    FRAMEWORK_PROPERTY(TCaptionLayout, Layout, GetLayout, SetLayout);
    FRAMEWORK_PROPERTY(int, MaxWidth, GetMaxWidth, SetMaxWidth);
    FRAMEWORK_READ_PROPERTY(TLabel*, Label, GetLabel);

    explicit TZORBoundLabel(TWinControl* control);
    ~TZORBoundLabel() override;

    bool GetActive() const { return FActive; }
    /// Creates or destroys the label. An empty Caption becomes the label's name, the control's with "_Label" behind.
    void SetActive(bool value);
    bool GetAllowClick() const { return FAllowClick; }
    /// A click on the label then acts as a click on the control.
    void SetAllowClick(bool value);
    const String& GetText() const { return FCaption; }
    void SetText(const String& value);
    bool GetEnabledAlways() const { return FEnabledAlways; }
    /// The label then stays enabled when the control is disabled.
    void SetEnabledAlways(bool value);
    int GetIndent() const { return FIndent; }
    /// Gap between control and label in pixels.
    void SetIndent(int value);
    /// The label's font while there is a label, else the one kept for it.
    TFont* GetFont() const;
    void SetFont(TFont* value);
    bool DoStoreFont() const;
    TCaptionLayout GetLayout() const { return FLayout; }
    void SetLayout(TCaptionLayout value);
    int GetMaxWidth() const { return FMaxWidth; }
    /// Width in pixels at which the caption wraps; 0 keeps it on one line.
    void SetMaxWidth(int value);
    /// Null while not Active.
    TLabel* GetLabel() const { return FLabel.get(); }
    TPersistent* GetOwner() const override { return FControl; }

    /// Gap, limit and font times m / d, for a form that moves to another resolution. A font that a text form left out
    /// is that of this system already and stays while the form is being read.
    void ChangeScale(int m, int d);
    /// Aligns the label's text towards the control.
    void UpdateAlignment();
    /// Places the label beside the control. A hidden label is left where it is until it is shown.
    void AlignLabel();
    /// Puts the label onto the parent that the control has now.
    void FollowParent();
    void DoClick(TObject* sender);
    /// The control forwards each message here after its own handling; `label` may be null.
    static void HandleOwnerMsg(TZORBoundLabel* label, const TMessage& msg, TControl* control);

private:
    void CreateLabel();
    void PlaceLabel();
    bool LabelEnabled() const { return FEnabledAlways || FControl->GetEnabled(); }

    TWinControl* FControl;
    bool FActive = false;
    int FIndent = DefaultLabelIndent;
    int FMaxWidth = 0;
    bool FEnabledAlways = false;
    bool FAllowClick = false;
    std::unique_ptr<TFont> FFont; // kept while no label exists
    String FCaption;
    TCaptionLayout FLayout = DefaultCaptionLayout;
    std::unique_ptr<TLabel> FLabel;
};

} // namespace ZOR
