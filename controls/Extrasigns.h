#pragma once

// The popup of accented letters that a keyboard may lack. It never takes the activation from the field that opened it
// and talks to it through window messages alone.

#include "controls/Extrasigns_rules.h"
#include "foundation/Zorpopup.h"

namespace ZOR {

/// Posted to the field after the popup changed its text; the field answers with its OnChange.
inline constexpr UINT ExtraSignsChangedMessage = 2005;

class Textrasignsfrm : public TZORPopup {
    FRAMEWORK_CLASS(Textrasignsfrm)

public:
    Textrasignsfrm();
    ~Textrasignsfrm() override;

    /// Asked at each click for the most UTF-16 units the text may have; 0 means no limit.
    void SetLengthLimit(std::function<int()> limit) { FLengthLimit = std::move(limit); }
    /// True while a letter is on its way into the target.
    bool IsInserting() const { return FInserting; }
    std::span<const KEYDEF> GetKeys() const { return FKeys; }

protected:
    void Dispatch(TMessage& message) override;
    void Prepare() override;
    TRect PlaceFor(const TRect& target, const TRect& workArea) const override;
    void Paint() override;
    void MouseDown(TMouseButton button, TShiftState shift, int x, int y) override;
    void MouseMove(TShiftState shift, int x, int y) override;
    void MouseUp(TMouseButton button, TShiftState shift, int x, int y) override;
    void CMMouseLeave(TMessage& message) override;

private:
    void LayOutKeys(int keySize);
    void PaintBackground();
    void PaintKey(const KEYDEF& key, bool shiftHeld);
    void InvalidateKey(const KEYDEF* key);
    void SetHot(const KEYDEF* key);
    void InsertSignOf(const KEYDEF& key);

    std::function<int()> FLengthLimit;
    int FKeySize = ExtraSignsKeySize;
    std::vector<KEYDEF> FKeys;
    const KEYDEF* FHot = nullptr;     // under the mouse
    const KEYDEF* FPressed = nullptr; // the button went down on it
    bool FInserting = false;
};

} // namespace ZOR
