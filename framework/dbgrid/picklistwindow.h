#pragma once

// The list of a column's choices: it opens below the cell that is being edited, which keeps the focus.

#include "framework/windows/listbox.h"
#include "framework/windows/timer.h"

namespace framework {

class TCustomDBGrid;

class TPickListWindow : public TCustomListBox {
    FRAMEWORK_CLASS(TPickListWindow)

public:
    explicit TPickListWindow(TCustomDBGrid* grid);

    /// Opens below `cell`, a place on the screen, or above it where there is more room.
    void Open(const TRect& cell, int rows);
    void Close();
    /// Marks the item that is so many further, within the list.
    void Step(int distance);

protected:
    void CreateParams(TCreateParams& params) override;
    void Dispatch(TMessage& message) override;

private:
    void Watch();
    static bool Pressed();

    TCustomDBGrid* FGrid;
    TTimer FTimer{nullptr};
    TRect FCell;   // where it opened
    POINT FRest{}; // where the pointer lay then
};

} // namespace framework
