#pragma once

// What the sources of the virtual data grid share among themselves.

#include "data/Zorvirtualdbgrid.h"

namespace ZOR {

/// The data grid that holds the columns, never shown.
class TZORVirtualDBGrid::TColumnHolder final : public TDBGrid {
public:
    explicit TColumnHolder(TZORVirtualDBGrid& grid) : TDBGrid(&grid), FGrid(grid) { SetVisible(false); }

protected:
    void LayoutChanged() override {
        TDBGrid::LayoutChanged();
        FGrid.ColumnsChanged();
    }

private:
    TZORVirtualDBGrid& FGrid;
};

/// The records on their way into rows.
struct TZORVirtualDBGrid::TWalk {
    TCustomADODataSet* DataSet; ///< stands on the record of the row that comes next
    std::vector<std::pair<TField*, TColumnTotal*>> Totals;
    const TField* Id = nullptr; ///< null where rows have no such key
    const TField* Guid = nullptr;
};

/// One painting of the rows.
struct TZORVirtualDBGrid::TPainting {
    explicit TPainting(TDataSet& dataSet) : DataSet(&dataSet), Reader(dataSet) {}

    /// The next text has to go to its record.
    void Leave() {
        Reader.Leave();
        Node = nullptr;
    }

    TDataSet* DataSet;
    TDataSet::TPassingReader Reader;
    TVirtualNode* Node = nullptr;      ///< whose record is being read
    bool Found = false;                ///< whether it is there
    std::optional<TCheckSeries> Boxes; ///< made with the first one
};

/// The handler of OnDrawNode that the grid itself assigns.
struct TZORVirtualDBGrid::TOwnDrawing {
    TZORVirtualDBGrid* Grid;
    void operator()(TBaseVirtualTree* sender, const TVTPaintInfo& paintInfo) const {
        Grid->FDrawNode(sender, paintInfo);
    }
};

/// The first row of the tree whose key is wanted, with rows in line; null when none is.
template <class TWanted>
TVirtualNode* TZORVirtualDBGrid::FindNode(TWanted wanted) {
    TLifeGuard alive(*this);
    CatchUp();
    if (!alive)
        return nullptr;
    TVirtualNode* node = GetRootNode()->GetFirstChild();
    while (node && !wanted(GetRowId(node)))
        node = node->GetNextSibling();
    return node;
}

class TVirtualDBGridDataLink final : public TDataLink {
public:
    explicit TVirtualDBGridDataLink(TZORVirtualDBGrid& grid) : FGrid(grid) {}

protected:
    void ActiveChanged() override { FGrid.DataSetReplaced(); }
    void DataEvent(TDataEvent event, std::intptr_t info) override {
        TLifeGuard alive(FGrid);
        FGrid.EndPassing();
        TDataLink::DataEvent(event, info);
        if (alive)
            FGrid.DataEvent(event);
    }

private:
    TZORVirtualDBGrid& FGrid;
};

} // namespace ZOR
