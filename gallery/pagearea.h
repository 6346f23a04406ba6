#pragma once

// The middle of the gallery: shows a page, with scroll bars when it is larger than the room for it.

#include "framework/windows/forms.h"
#include "gallery/pagearea_rules.h"

namespace gallery {

class TPageArea : public TCustomControl {
    FRAMEWORK_CLASS(TPageArea)

public:
    explicit TPageArea(TComponent* owner);

    /// Places a form in the area; its client size at this moment is the least it is given. The form stays the caller's.
    void ShowPage(TCustomForm* page);
    /// Scrolls a control of the page into view.
    void ScrollIntoView(const TControl& control);

protected:
    void CreateParams(TCreateParams& params) override;
    void Dispatch(TMessage& message) override;
    bool DoMouseWheel(TShiftState shift, int wheelDelta, TPoint mousePos) override;
    void Notification(TComponent* component, TOperation operation) override;

private:
    void LayOut();
    void ScrollTo(TPoint position);
    void UpdateScrollBar(int bar, int extent, int view, int position);
    void WMScroll(const TMessage& message, int bar);

    TCustomForm* FPage = nullptr;
    TSize FDesigned;
    TPageLayout FLayout;
    TPoint FPosition;
    int FWheelRest = 0; // parts of a notch that have not scrolled yet
    bool FLayingOut = false;
};

} // namespace gallery
