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
        if (row < grid.GetDataLink().GetRecordCount())
            grid.GetDataLink().SetActiveRecord(row);
    }
    TRowScope(const TRowScope&) = delete;
    TRowScope& operator=(const TRowScope&) = delete;
    ~TRowScope() {
        if (FAlive && FBefore < std::max(FGrid.GetDataLink().GetRecordCount(), 1))
            FGrid.GetDataLink().SetActiveRecord(FBefore);
    }

private:
    TCustomDBGrid& FGrid;
    TLifeGuard FAlive;
    int FBefore;
};

} // namespace framework
