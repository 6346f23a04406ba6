#pragma once

// The field that lies on a cell while it is being edited. Keys that move through the grid go on to it.

#include "framework/windows/edit.h"

namespace framework {

class TCustomGrid;

class TInplaceEdit : public TCustomEdit {
    FRAMEWORK_CLASS(TInplaceEdit)

public:
    explicit TInplaceEdit(TCustomGrid* grid);

    /// What the cell's value is while nothing has been entered; nobody is told.
    void Begin(const String& text);
    /// Whether a person has entered something since then.
    bool GetEntered() const { return FEntered; }
    void SetEntered(bool value) { FEntered = value; }
    /// For the character that opened the editor, posted to it: the grid has told of it already (bits of a key message
    /// that the system leaves zero).
    static constexpr LPARAM kAnnounced = 1 | 1 << 25;
    /// With the caret at the end, as when a person goes on with what is there.
    void Deselect() { SetSelStart(INT_MAX); }
    /// Pixels around the text, as the cell has them.
    void SetMargins(int pixels);
    /// What screen readers call it.
    String GetAccessibleName() const;

    void WndProc(TMessage& message) override;

protected:
    void Change() override;
    void CreateWnd() override;
    void Dispatch(TMessage& message) override;
    void KeyDown(WORD& key, TShiftState shift) override;
    void KeyPress(char16_t& key) override;
    void KeyUp(WORD& key, TShiftState shift) override;
    bool DoMouseWheel(TShiftState shift, int wheelDelta, TPoint mousePos) override;

private:
    bool IsForGrid(WORD key, TShiftState shift) const;
    bool IsAtEdge(bool end) const;
    void PutBack();

    TCustomGrid* FGrid;
    String FBegun; // what the cell's value was
    int FMargins = 0;
    bool FEntered = false;
    bool FBeginning = false;
    bool FAnnounced = false; // the grid's handlers have heard of this character
};

} // namespace framework
