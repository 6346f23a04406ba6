#pragma once

// How a data grid hears of its dataset.

#include "framework/dbgrid/dbgrid.h"

namespace framework {

class TGridDataLink final : public TDataLink {
public:
    explicit TGridDataLink(TCustomDBGrid& grid) : FGrid(grid) {}

protected:
    void ActiveChanged() override { FGrid.ActiveChanged(); }
    void EditingChanged() override { FGrid.EditingChanged(); }
    void DataSetChanged() override { FGrid.DataChanged(); }
    void DataSetScrolled(int distance) override { FGrid.DataScrolled(distance); }
    void LayoutChanged() override { FGrid.LayoutChanged(); }
    void RecordChanged(TField* field) override { FGrid.RecordChanged(field); }
    void FocusControl(TField* field) override { FGrid.FocusField(field); }
    void UpdateData() override { FGrid.StoreEditor(); }

private:
    TCustomDBGrid& FGrid;
};

} // namespace framework
