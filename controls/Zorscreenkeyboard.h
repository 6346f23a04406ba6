#pragma once

// F7 for entry fields: TZORScreenKeyboard<TZORFramed<TEdit>> opens the popup of extra letters under the field, keeps
// it there while the field moves, and closes it when the field is left.

#include "controls/Extrasigns.h"
#include "foundation/Zorframed.h"

namespace ZOR {

/// The popup of one field, from its first use on.
class TSignsKeyboard {
public:
    /// Shows or hides the popup under `field`; `lengthLimit` tells the field's limit whenever a letter is inserted.
    void Toggle(TWinControl& field, std::function<int()> lengthLimit);
    /// Keeps a visible popup under its field.
    void Follow();
    /// Shows the letters as Shift makes them.
    void ShiftChanged();
    void Hide();
    /// True while the popup writes into the field: the change is announced when it is complete.
    bool IsInserting() const { return FExtraSignsForm && FExtraSignsForm->IsInserting(); }
    Textrasignsfrm* GetForm() const { return FExtraSignsForm.get(); }

private:
    bool IsOpen() const { return FExtraSignsForm && FExtraSignsForm->IsOpen(); }

    std::unique_ptr<Textrasignsfrm> FExtraSignsForm;
};

/// Which of the messages that follow an inserted letter a field takes as its change.
enum class TSignsNotice {
    Message, ///< ExtraSignsChangedMessage
    KeyUp    ///< the release of key 0, before the field's own OnKeyUp
};

template <class TBase, TSignsNotice Notice = TSignsNotice::Message>
class TZORScreenKeyboard : public TBase {
public:
    explicit TZORScreenKeyboard(TComponent* owner) : TBase(owner) {}
    ~TZORScreenKeyboard() override {
        this->Destroying();
        this->DestroyHandle(); // no message may ask for a popup that is going
    }

    /// Opens or closes the popup. A field that is read-only or disabled ignores it.
    void screenKeyboard() {
        if (TakesSigns())
            FKeyboard.Toggle(*this, [this] { return GetSignsLimit(); });
    }
    Textrasignsfrm* GetExtraSignsForm() const { return FKeyboard.GetForm(); }

    void WndProc(TMessage& message) override {
        TLifeGuard alive(*this);
        if (TakesSigns())
            FKeyboard.Follow();
        else
            FKeyboard.Hide();
        if (!alive)
            return; // a handler of the popup closed the field
        switch (message.Msg) {
        case ExtraSignsChangedMessage:
            if (Notice == TSignsNotice::Message)
                SignInserted();
            return;
        case CM_EXIT:
            FKeyboard.Hide();
            if (!alive)
                return;
            break;
        case WM_KEYDOWN:
        case WM_KEYUP:
            if (message.WParam == VK_SHIFT)
                FKeyboard.ShiftChanged();
            break;
        default:
            break;
        }
        TBase::WndProc(message);
    }

protected:
    /// One inserted letter is one change: the one that the popup announces at its end.
    void Change() override {
        if (!IsInsertingSign())
            TBase::Change();
    }
    /// F7 belongs to the popup; hosts hear of every other key.
    void KeyUp(WORD& key, TShiftState shift) override {
        if (key == VK_F7) {
            screenKeyboard();
            return;
        }
        if (Notice == TSignsNotice::KeyUp && key == 0 && !SignInserted())
            return;
        Fire(*this, this->OnKeyUp, this, key, shift);
    }
    /// How long a letter may make the text; 0 for no limit.
    virtual int GetSignsLimit() const { return this->GetMaxLength(); }
    /// True while the popup puts a letter into the text.
    bool IsInsertingSign() const { return FKeyboard.IsInserting(); }

private:
    /// The letter is in its place and so is the caret; false when the handler of the change freed the field.
    bool SignInserted() {
        if (this->HandleAllocated())
            SendMessageW(this->GetHandle(), EM_SCROLLCARET, 0, 0);
        return Fire(*this, this->OnChange, this);
    }
    bool TakesSigns() const {
        if constexpr (requires { this->GetReadOnly(); }) {
            if (this->GetReadOnly())
                return false;
        }
        return this->GetEnabled();
    }

    TSignsKeyboard FKeyboard;
};

} // namespace ZOR
