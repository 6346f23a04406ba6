#pragma once

// A pair of arrow buttons over the native up-down window, for a number that a person steps through.

#include "framework/windows/wincontrol.h"

namespace framework {

enum TUDAlignButton { udLeft, udRight };
enum TUDOrientation { udHorizontal, udVertical };
enum TUDBtnType { btNext, btPrev };
enum TUpDownDirection { updNone, updUp, updDown };
const TEnumInfo& DescribeEnum(TUDAlignButton);
const TEnumInfo& DescribeEnum(TUDOrientation);

using TUDClickEvent = std::function<void(TObject* Sender, TUDBtnType Button)>;
using TUDChangingEvent = std::function<void(TObject* Sender, bool& AllowChange)>;
using TUDChangingEventEx =
    std::function<void(TObject* Sender, bool& AllowChange, int NewValue, TUpDownDirection Direction)>;

class TCustomUpDown : public TWinControl {
    FRAMEWORK_CLASS(TCustomUpDown)

public:
    FRAMEWORK_PROPERTY(TUDAlignButton, AlignButton, GetAlignButton, SetAlignButton);
    FRAMEWORK_PROPERTY(bool, ArrowKeys, GetArrowKeys, SetArrowKeys);
    FRAMEWORK_PROPERTY(TWinControl*, Associate, GetAssociate, SetAssociate);
    FRAMEWORK_PROPERTY(int, Increment, GetIncrement, SetIncrement);
    FRAMEWORK_PROPERTY(int, Max, GetMax, SetMax);
    FRAMEWORK_PROPERTY(int, Min, GetMin, SetMin);
    FRAMEWORK_PROPERTY(TUDOrientation, Orientation, GetOrientation, SetOrientation);
    FRAMEWORK_PROPERTY(int, Position, GetPosition, SetPosition);
    FRAMEWORK_PROPERTY(bool, Thousands, GetThousands, SetThousands);
    FRAMEWORK_PROPERTY(bool, Wrap, GetWrap, SetWrap);

    /// An arrow took the position to another value.
    TUDClickEvent OnClick;
    /// The position is about to change, by an arrow or by the program; AllowChange comes in true.
    TUDChangingEvent OnChanging;
    /// The same with the new value, which may still lie outside of Min..Max. An arrow at the end of the range asks,
    /// too.
    TUDChangingEventEx OnChangingEx;

    explicit TCustomUpDown(TComponent* owner);

    /// The side of the associated control on which the arrows stand.
    TUDAlignButton GetAlignButton() const { return FAlignButton; }
    void SetAlignButton(TUDAlignButton value);
    /// Whether the arrow keys of the keyboard step while the associated control has the focus.
    bool GetArrowKeys() const { return FArrowKeys; }
    void SetArrowKeys(bool value);
    /// The control on the same parent beside which the arrows place themselves. A text field shows the position, and
    /// what a person types there becomes the position. EInvalidOperation when it has another up-down already.
    TWinControl* GetAssociate() const { return FAssociate; }
    void SetAssociate(TWinControl* value);
    /// How far one step goes; holding a button down does not make the steps longer.
    int GetIncrement() const { return FIncrement; }
    void SetIncrement(int value);
    /// Both ends have 32 bits. With Max below Min the upper arrow counts down.
    int GetMax() const { return FMax; }
    void SetMax(int value) { SetRange(FMin, value); }
    int GetMin() const { return FMin; }
    void SetMin(int value) { SetRange(value, FMax); }
    /// Both ends in one step; the position moves into the range without asking.
    void SetRange(int min, int max);
    TUDOrientation GetOrientation() const { return FOrientation; }
    void SetOrientation(TUDOrientation value);
    int GetPosition() const;
    /// Positions outside of the range are moved to its end; OnChanging and OnChangingEx may refuse.
    void SetPosition(int value);
    /// Whether the associated text shows thousand separators.
    bool GetThousands() const { return FThousands; }
    void SetThousands(bool value);
    /// Whether the range goes round at its ends.
    bool GetWrap() const { return FWrap; }
    void SetWrap(bool value);

protected:
    void CreateParams(TCreateParams& params) override;
    void CreateWnd() override;
    void KeepWindowState() override;
    void Dispatch(TMessage& message) override;
    void CNNotify(TMessage& message) override;
    void WMEraseBkgnd(TMessage& message) override;
    void Notification(TComponent* component, TOperation operation) override;
    void Loaded() override;

    /// Asks both events; false when one refuses or the control is gone.
    virtual bool CanChange(int newValue, TUpDownDirection direction);
    /// An arrow changed the position; fires OnClick.
    virtual void Click(TUDBtnType button);

private:
    using TControl::Click; // a program clicks no arrow

    void CNScroll(TMessage& message);
    void Connect();
    void ApplyRange();
    int InRange(int value) const;

    TWinControl* FAssociate = nullptr;
    int FIncrement = 1;
    int FMax = 100;
    int FMin = 0;
    int FPosition = 0; // while there is no window, and before the step of an arrow
    TUDAlignButton FAlignButton = udRight;
    TUDOrientation FOrientation = udVertical;
    bool FArrowKeys = true;
    bool FThousands = true;
    bool FWrap = false;
};

class TUpDown : public TCustomUpDown {
    FRAMEWORK_CLASS(TUpDown)

public:
    explicit TUpDown(TComponent* owner) : TCustomUpDown(owner) {}
};

} // namespace framework
