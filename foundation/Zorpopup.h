#pragma once

// A window that a field opens beside itself: a calendar, a list, a keyboard. The field keeps the focus and its form the
// activation, whatever the person clicks in the popup. The popup goes by itself when it is not wanted any more: on Esc,
// on a click elsewhere, which does there what it always does, and when the field is left, hidden, moved or gone.

#include "foundation/Popup_rules.h"
#include "framework/windows/forms.h"
#include "framework/windows/timer.h"

namespace ZOR {

/// What makes a popup close. Whatever it is, a popup never outlasts a field that is hidden, minimised or gone.
struct TPopupClosing {
    bool OnClickElsewhere = true; ///< a press outside the popup and its field, in any window of the program
    bool OnEscape = true;
    bool OnFocusLoss = true;  ///< the field is left, or another program comes to the front
    bool OnTargetMove = true; ///< the field moves on the screen; otherwise the popup moves along
};

/// Closes only with its field: a keyboard that stays at hand, out of sight while another window is in front.
inline constexpr TPopupClosing LastingPopup{false, false, false, false};

class TZORPopup : public TForm {
    FRAMEWORK_CLASS(TZORPopup)

public:
    /// The popup has closed, for whatever reason. It may be freed here.
    TNotifyEvent OnCloseUp;

    explicit TZORPopup(TPopupClosing closing = {});
    ~TZORPopup() override;

    /// Opens the popup for a field, which takes the focus for it. Nothing happens when the field does not show, or does
    /// not get the focus and the popup would close at once.
    void PopUp(TWinControl& target);
    void CloseUp();
    bool IsOpen() const { return GetShowing(); }
    /// The field that opened the popup last; null when that is gone.
    TWinControl* GetTarget() const { return FTarget; }

    /// A field hands each of its messages to the popup before it acts on it itself. True: the message has been dealt
    /// with. Closing may have freed the field.
    bool HandleTargetMessage(TMessage& message);
    /// Brings the popup to where the field is now.
    void FollowTarget();

    /// Whether a window is the popup or lies in it.
    bool Holds(HWND window) const;

protected:
    void CreateParams(TCreateParams& params) override;
    void ForgetWindow() override;
    void DoShow() override;
    void DoHide() override;
    void Notification(TComponent* component, TOperation operation) override;

    /// Brings content and size in line with the field; called each time before the popup shows.
    virtual void Prepare() {}
    /// The place of the popup, given the field's and the free area of its monitor, all in screen pixels.
    virtual TRect PlaceFor(const TRect& target, const TRect& workArea) const = 0;
    /// The window of the field; null when there is none.
    HWND TargetWindow() const;

private:
    friend class TOpenPopups;

    void FollowForm();
    void ShowInFront();
    void PressedElsewhere(HWND window);
    void WatchTarget();
    void StopWatching();
    bool TargetShows() const;
    bool TargetMoved() const;

    TWinControl* FTarget = nullptr;
    TTimer FWatch{nullptr}; // runs while the popup is open
    TPopupClosing FClosing;
    TRect FTargetPlace; // on the screen, when the popup was placed
};

} // namespace ZOR
