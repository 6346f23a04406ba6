#pragma once

// The records that a person has selected in a data grid, in the order of the dataset.

#include "framework/db/bookmarks.h"

#include <vector>

namespace framework {

class TCustomDBGrid;
class TDataSet;

class TBookmarkList {
public:
    FRAMEWORK_READ_PROPERTY(int, Count, GetCount);
    FRAMEWORK_PROPERTY(bool, CurrentRowSelected, GetCurrentRowSelected, SetCurrentRowSelected);
    FRAMEWORK_READ_PROPERTY(TBookmark, Items[], GetItem);

    explicit TBookmarkList(TCustomDBGrid& grid) : FGrid(grid) {}
    TBookmarkList(const TBookmarkList&) = delete;
    TBookmarkList& operator=(const TBookmarkList&) = delete;

    int GetCount() const { return static_cast<int>(FItems.size()); }
    /// EListError when there is no such item.
    const TBookmark& GetItem(int index) const;
    const TBookmark& operator[](int index) const { return GetItem(index); }
    /// Whether the record is selected; `index` is its place in the list, or the one where it belongs.
    bool Find(const TBookmark& bookmark, int& index) const;
    /// -1 when it is not selected.
    int IndexOf(const TBookmark& bookmark) const;
    /// The active record. One that is being inserted cannot be selected.
    bool GetCurrentRowSelected() const;
    void SetCurrentRowSelected(bool value);
    void SetSelected(const TBookmark& bookmark, bool value);
    void Clear();
    /// Deletes the selected records that show. One that cannot be deleted ends it, and stays selected.
    void Delete();
    /// Takes out the records that are there no more, or that another filter hides; whether there were any.
    bool Refresh();

private:
    TDataSet* DataSet() const;
    void Changed();

    TCustomDBGrid& FGrid;
    std::vector<TBookmark> FItems;
    unsigned FView = 0; // of the dataset when it was last looked which of them show
};

} // namespace framework
