#pragma once

// Reading another record than the active one through the fields of a grid.

#include "framework/dbgrid/dbgrid.h"

#include <algorithm>

namespace framework {

/// While it lives, the fields read the record of a row on the screen. A handler may close the dataset meanwhile, or
/// free the grid with its link.
class TCustomDBGrid::TRowScope {
public:
    TRowScope(TCustomDBGrid& grid, int row) : FGrid(grid), FAlive(grid), FBefore(grid.GetDataLink().GetActiveRecord()) {
        // While the dataset is on its way to another record, the link may not have followed yet.
        FReads = row < grid.GetDataLink().GetRecordCount() && SeesBefore();
        if (FReads)
            grid.GetDataLink().SetActiveRecord(row);
        ++grid.FScopes;
    }
    TRowScope(const TRowScope&) = delete;
    TRowScope& operator=(const TRowScope&) = delete;
    ~TRowScope() {
        if (!FAlive)
            return;
        --FGrid.FScopes;
        if (FReads && SeesBefore())
            FGrid.GetDataLink().SetActiveRecord(FBefore);
    }

    /// False when there is no such record, or none can be read now; then the fields read the active one.
    bool Reads() const { return FReads; }

private:
    bool SeesBefore() const { return FBefore >= 0 && FBefore < std::max(FGrid.GetDataLink().GetRecordCount(), 1); }

    TCustomDBGrid& FGrid;
    TLifeGuard FAlive;
    int FBefore;
    bool FReads = false;
};

} // namespace framework
