#pragma once

// The up-down pair inside the right edge of a numeric field: TZORSpinButtons<TZORNumericEdit<...>> places it, steps by
// its arrows, by the Up and Down keys and, while the field has the focus, by the mouse wheel.

#include "framework/windows/updown.h"
#include "numeric/Zornumericedit.h"

#include <algorithm>

namespace ZOR {

/// The arrows of a field: a press first moves the focus into the field, and when another field keeps it, the press does
/// not count.
class TFieldUpDown : public TCustomUpDown {
    FRAMEWORK_CLASS(TFieldUpDown)

public:
    explicit TFieldUpDown(TComponent* owner) : TCustomUpDown(owner) {}

    /// Sets the position without asking, as for a value that is settled already.
    void PutPosition(int value);

protected:
    void Dispatch(TMessage& message) override;
    bool CanChange(int newValue, TUpDownDirection direction) override;

private:
    bool TakeFocus();
    bool UnderFlatFrame() const;
    void PaintUnderFrame();

    bool FSilent = false;
};

template <class TBase>
class TZORSpinButtons : public TBase {
public:
    FRAMEWORK_PROPERTY(bool, ShowUpDown, GetShowUpDown, SetShowUpDown);

    explicit TZORSpinButtons(TComponent* owner) : TBase(owner), FUpDown(new TFieldUpDown(this)) {
        FUpDown->SetBounds(0, 0, 15, 17);
        FUpDown->SetParent(this);
        FUpDown->OnChangingEx = [this](TObject* sender, bool& allowChange, int newValue, TUpDownDirection direction) {
            ChangingEx(sender, allowChange, newValue, direction);
        };
    }
    ~TZORSpinButtons() override {
        this->Destroying();
        this->DestroyHandle();
        FUpDown->OnChangingEx = nullptr; // the arrows go with all that the field owns, after its own part
        FUpDown->OnClick = nullptr;
    }

    bool GetShowUpDown() const { return FUpDown->GetVisible(); }
    /// Hiding leaves the room of the arrows empty, and showing lays them over the text, until the field is resized
    /// next.
    void SetShowUpDown(bool value) { FUpDown->SetVisible(value); }
    TFieldUpDown* GetUpDown() const { return FUpDown; }

protected:
    /// An arrow is about to step.
    virtual void ChangingEx(TObject* sender, bool& allowChange, int newValue, TUpDownDirection direction) = 0;
    /// The person steps by keys or the wheel, up or, with negative `steps`, down.
    virtual void Step(int steps) = 0;
    /// Whether a person may change the value at all.
    bool TakesSteps() const { return !this->GetReadOnly() && this->GetEnabled(); }

    void KeyDown(WORD& key, TShiftState shift) override {
        TLifeGuard alive(*this);
        const bool isStep = key == VK_UP || key == VK_DOWN;
        if (isStep && TakesSteps())
            Step(key == VK_UP ? 1 : -1);
        if (!alive)
            return;
        TBase::KeyDown(key, shift);
        if (alive && isStep)
            key = 0; // the native edit would move the caret
    }
    bool DoMouseWheel(TShiftState shift, int wheelDelta, TPoint mousePos) override {
        TLifeGuard alive(*this);
        if (TBase::DoMouseWheel(shift, wheelDelta, mousePos) || !alive)
            return true;
        if (!this->Focused() || !TakesSteps())
            return false; // a field that merely lies under the pointer lets its form scroll
        FWheel += wheelDelta;
        const int steps = FWheel / WHEEL_DELTA;
        FWheel -= steps * WHEEL_DELTA;
        if (steps != 0)
            Step(steps);
        return true;
    }
    void DoEnter() override {
        FWheel = 0;
        TBase::DoEnter();
    }
    void Dispatch(TMessage& message) override {
        TLifeGuard alive(*this);
        TBase::Dispatch(message);
        if (!alive)
            return;
        if (message.Msg == CM_ENABLEDCHANGED)
            FUpDown->SetEnabled(this->GetEnabled());
        else if (message.Msg == WM_SIZE)
            RepaintFrame(*this, TFrameRepaint::NonClient); // where the arrows came to stand
    }

    void Arrange() override {
        constexpr int kFrame = 5; // the sunken border on both sides and a pixel between it and the arrows
        const int width = FUpDown->GetWidth();
        FUpDown->SetBounds(this->GetWidth() - width - kFrame, 0, width, this->GetHeight() - kFrame);
        TBase::Arrange();
    }
    int EditRectRight() const override {
        return this->GetClientWidth() - (FUpDown->GetVisible() ? FUpDown->GetWidth() + 2 : 0);
    }
    std::optional<int> RightMargin() const override {
        if (!FUpDown->GetVisible())
            return 0;
        return this->GetClientWidth() - std::min(EditRectRight(), FUpDown->GetLeft());
    }

private:
    TFieldUpDown* FUpDown; // owned by this component
    int FWheel = 0;        // movement that is no full step yet
};

namespace numericrows {

template <class TControl>
TPropInfo ShowUpDown() {
    return Property<&TControl::GetShowUpDown, &TControl::SetShowUpDown>(u"ShowUpDown", true);
}

} // namespace numericrows

} // namespace ZOR
