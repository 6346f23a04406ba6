#pragma once

// The framing that the controls share. TZORFramed<TEdit> is a TEdit with a requirement state shown as a coloured frame,
// a caption label that stays glued to it, and a hint inside while it is empty and without focus. A control takes what
// it publishes: its table lists the rows of framedrows that belong to it.

#include "foundation/Hintinside_rules.h"
#include "foundation/Requirement_rules.h"
#include "foundation/Zorboundlabel.h"
#include "foundation/Zorutils.h"
#include "framework/graphics/handles.h"

namespace ZOR {

/// How a control shows a changed state.
enum class TFrameRepaint {
    NonClient, ///< WM_NCPAINT at once: only the frame
    Repaint,   ///< the whole control with its frame at once
    Invalidate ///< the same when its turn comes
};

/// Where a control paints its frame.
enum class TFramePlace {
    Border,     ///< in place of the native border; scroll bars, which belong to the border, show all the same
    OverBorder, ///< over the native border, which is painted first in any case
    OverClient, ///< over all the rest at the end of WM_PAINT, for classes that paint their border themselves
    Own         ///< somewhere else, which the control paints itself
};

/// Where framed controls differ. The defaults are the framed edit's behaviour.
struct TFraming {
    TRequirementPolicy Requirement = EditRequirement;
    TFrameRepaint StateChanged = TFrameRepaint::NonClient;
    TFrameRepaint EnabledChanged = TFrameRepaint::NonClient;
    TFramePlace Place = TFramePlace::Border;
    bool BoundLabel = true;
    bool HintInside = true;
    bool HintInPart = false; ///< a window inside shows the text; the control paints the hint there, see HintToShow
};

inline constexpr TFraming EditFraming{};

/// Repaints as told; a control that has no window yet is painted anyway when it gets one.
void RepaintFrame(TWinControl& control, TFrameRepaint how);
/// Whether the window shows scroll bars now.
bool HasScrollBars(TWinControl& control);
/// Confines WM_NCPAINT to the border while the message is on its way to the native procedure: themed painting fills the
/// whole rectangle that it is given, with the text and whatever lies inside a control.
class TNativeFramePaint {
public:
    TNativeFramePaint(TWinControl& control, TMessage& message);
    TNativeFramePaint(const TNativeFramePaint&) = delete;
    TNativeFramePaint& operator=(const TNativeFramePaint&) = delete;
    ~TNativeFramePaint();

private:
    TMessage& FMessage;
    WPARAM FAsked; // 0 and 1 stand for the whole frame, anything else is a region of the screen
    TUniqueRegion FRegion;
};

/// Paints an empty field with its hint, in grey italics of the control's font, in answer to WM_PAINT.
void PaintHintInside(TWinControl& control, const String& hint, const TMessage& message);
/// The same in a window that is a part of the control.
void PaintHintInside(HWND part, const TControl& control, const String& hint, const TMessage& message);
/// The same in an area of the control's client area, beside which it paints something else.
void PaintHintInside(TWinControl& control, const TRect& area, const String& hint, const TMessage& message);

template <class TBase, const TFraming& Framing = EditFraming>
class TZORFramed : public TBase {
public:
    FRAMEWORK_PROPERTY(TWymagany, Wymagany, GetFWymagany, SetFWymagany);
    FRAMEWORK_PROPERTY(bool, ShowHintInside, GetFShowHintInside, SetFShowHintInside);
    FRAMEWORK_PROPERTY(String, HintLabel, GetFLabelHint, SetFLabelHint);
    FRAMEWORK_PROPERTY(TBorderColors*, BorderColors, GetBorderColors, SetBorderColors);
    FRAMEWORK_READ_PROPERTY(TZORBoundLabel*, BoundLabel, GetBoundLabel);

    /// For hosts that validate a form; the control keeps it and never fires it.
    TNotifyEvent OnValidateRequest;

    explicit TZORFramed(TComponent* owner)
        : TBase(owner), FBorderColors(std::make_unique<TBorderColors>(this)), FRequirement(Framing.Requirement) {
        if constexpr (Framing.BoundLabel)
            FBoundLabel = std::make_unique<TZORBoundLabel>(this);
    }
    ~TZORFramed() override {
        this->Destroying();
        this->DestroyHandle(); // while the frame's colours are there: a dying window may still be painted
    }

    TWymagany GetFWymagany() const { return FRequirement.Current(); }
    void SetFWymagany(TWymagany value) {
        if (FRequirement.Set(value))
            RepaintFrame(*this, Framing.StateChanged);
    }
    bool GetFShowHintInside() const { return FShowHintInside; }
    void SetFShowHintInside(bool value) {
        if (FShowHintInside == value)
            return;
        FShowHintInside = value;
        this->Invalidate();
    }
    const String& GetFLabelHint() const { return FLabelHint; }
    void SetFLabelHint(const String& value) {
        if (FLabelHint == value)
            return;
        FLabelHint = value;
        this->Invalidate();
    }
    TBorderColors* GetBorderColors() const { return FBorderColors.get(); }
    /// Copies the control's colours into `value`, see TBorderColors::Assign.
    void SetBorderColors(TBorderColors* value) { FBorderColors->Assign(value); }
    void SetHint(const String& value) override {
        if (this->GetHint() == value)
            return;
        TBase::SetHint(value);
        InvalidateHint(); // where it stands for the hint inside
    }
    /// Null for controls without a caption label.
    TZORBoundLabel* GetBoundLabel() const { return FBoundLabel.get(); }

    void SetEnabled(bool value) override {
        if (this->GetEnabled() == value)
            return;
        TLifeGuard alive(*this);
        TBase::SetEnabled(value);
        if (alive && FRequirement.SetEnabled(value))
            RepaintFrame(*this, Framing.EnabledChanged);
    }
    void SetParent(TWinControl* value) override {
        TLifeGuard alive(*this);
        TBase::SetParent(value);
        if (!alive)
            return;
        FUnfocused = !this->Focused(); // a field that is taken away is not told that it was left
        if (FBoundLabel)
            FBoundLabel->FollowParent();
    }

    void ChangeScale(int m, int d) override {
        TLifeGuard alive(*this);
        if (FBoundLabel)
            FBoundLabel->ChangeScale(m, d);
        if (alive)
            TBase::ChangeScale(m, d); // which moves the control, and the label with it
    }

    void WndProc(TMessage& message) override {
        TLifeGuard alive(*this);
        HandleFraming(message, alive);
        if (alive)
            TZORBoundLabel::HandleOwnerMsg(FBoundLabel.get(), message, this);
    }

protected:
    void Loaded() override {
        TLifeGuard alive(*this);
        TBase::Loaded();
        if (alive && FBoundLabel)
            FBoundLabel->AlignLabel();
    }
    /// The hint to show in place of the text; empty while there is a text, the focus, or nothing to say.
    String HintToShow() const {
        if (!Framing.HintInside || !FUnfocused || !FShowHintInside)
            return {};
        return String(HintInsideText({FUnfocused, FShowHintInside, TextIsEmpty(), FLabelHint, this->GetHint()}));
    }
    /// A value was found in order: an error gives way to the state that the program set.
    void RestoreWymagany() {
        if (FRequirement.Restore())
            RepaintFrame(*this, Framing.StateChanged);
    }
    /// Whether the person has entered nothing: then the hint shows, and an error stays when the field is left.
    virtual bool TextIsEmpty() const { return this->GetTextLen() == 0; }
    bool Unfocused() const { return FUnfocused; }

private:
    void HandleFraming(TMessage& message, const TLifeGuard& alive) {
        if (this->IsDestroying()) { // its published table has gone with the derived class, and nobody looks any more
            TBase::WndProc(message);
            return;
        }
        switch (message.Msg) {
        case CM_GOTFOCUS:
        case CM_ENTER:
            FUnfocused = false;
            InvalidateHint();
            break;
        case CM_LOSTFOCUS:
            InvalidateHint();
            break;
        case CM_EXIT:
            FUnfocused = true;
            RepaintAfter(FRequirement.Leave(TextIsEmpty()));
            break;
        case CM_MOUSELEAVE:
            RepaintAfter(FRequirement.MouseLeave(TextIsEmpty()));
            break;
        case CM_MOUSEENTER:
        case WM_SIZE:
            RepaintBorder();
            break;
        case WM_NCPAINT:
            return PaintBorder(message, alive);
        case WM_PAINT:
            return PaintClient(message, alive);
        default:
            break;
        }
        TBase::WndProc(message);
    }

    static constexpr bool FramesBorder =
        Framing.Place == TFramePlace::Border || Framing.Place == TFramePlace::OverBorder;

    void RepaintBorder() {
        if constexpr (FramesBorder)
            RepaintFrame(*this, TFrameRepaint::NonClient);
    }
    /// Another state is painted wherever the frame lies.
    void RepaintAfter(bool stateChanged) {
        if (stateChanged)
            RepaintFrame(*this, Framing.StateChanged);
        else
            RepaintBorder();
    }
    void PaintBorder(TMessage& message, const TLifeGuard& alive) {
        const bool nativeFirst = Framing.Place != TFramePlace::Border || HasScrollBars(*this);
        if (FramesBorder && !nativeFirst && PaintRequirementFrame(this, true))
            return;
        {
            const TNativeFramePaint within(*this, message);
            TBase::WndProc(message);
        }
        if (FramesBorder && nativeFirst && alive)
            PaintRequirementFrame(this, true);
    }
    void PaintClient(TMessage& message, const TLifeGuard& alive) {
        const String hint = HintToShow();
        if (hint.empty() || Framing.HintInPart)
            TBase::WndProc(message);
        else
            PaintHintInside(*this, hint, message);
        if (!alive)
            return;
        if constexpr (Framing.Place == TFramePlace::OverClient)
            PaintRequirementFrame(this, true);
        // The system drew its flat border; the frame goes over it again.
        if (!this->GetCtl3D())
            RepaintBorder();
    }

    void InvalidateHint() {
        if constexpr (Framing.HintInside)
            this->Invalidate();
    }

    // In the order in which they are needed: the label goes first, as it refers to the control.
    std::unique_ptr<TBorderColors> FBorderColors;
    std::unique_ptr<TZORBoundLabel> FBoundLabel;
    TRequirement FRequirement;
    bool FShowHintInside = true;
    String FLabelHint;
    bool FUnfocused = true;
};

/// The published rows of the framing, for a control's own table in its own order.
namespace framedrows {

template <class TControl>
TPropInfo Wymagany() {
    return Property<&TControl::GetFWymagany, &TControl::SetFWymagany>(u"Wymagany", wNone);
}
template <class TControl>
TPropInfo ShowHintInside() {
    return Property<&TControl::GetFShowHintInside, &TControl::SetFShowHintInside>(u"ShowHintInside", true);
}
template <class TControl>
TPropInfo HintLabel() {
    return Property<&TControl::GetFLabelHint, &TControl::SetFLabelHint>(u"HintLabel");
}
template <class TControl>
TPropInfo OnValidateRequest() {
    return Event<&TControl::OnValidateRequest>(u"OnValidateRequest");
}
template <class TControl>
TPropInfo BorderColors() {
    return Property<&TControl::GetBorderColors, &TControl::SetBorderColors>(u"BorderColors");
}
template <class TControl>
TPropInfo BoundLabel() {
    return Property<&TControl::GetBoundLabel>(u"BoundLabel");
}

/// All six, in the customary order, for controls that have the whole framing.
template <class TControl>
std::vector<TPropInfo> All() {
    return {Wymagany<TControl>(),          ShowHintInside<TControl>(), HintLabel<TControl>(),
            OnValidateRequest<TControl>(), BorderColors<TControl>(),   BoundLabel<TControl>()};
}

} // namespace framedrows

} // namespace ZOR
