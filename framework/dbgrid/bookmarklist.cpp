#include "framework/dbgrid/bookmarklist.h"

#include "framework/dbgrid/dbgrid.h"
#include "framework/system/exceptions.h"
#include "framework/system/numbers.h"

#include <algorithm>
#include <utility>

namespace framework {

const TBookmark& TBookmarkList::GetItem(int index) const {
    if (index < 0 || index >= GetCount())
        throw EListError(u"List index out of bounds (" + IntToStr(index) + u")");
    return FItems[static_cast<std::size_t>(index)];
}

TDataSet* TBookmarkList::DataSet() const {
    return FGrid.IsDataActive() ? FGrid.GetDataSet() : nullptr;
}

bool TBookmarkList::Find(const TBookmark& bookmark, int& index) const {
    TDataSet* dataSet = DataSet();
    const auto place =
        std::lower_bound(FItems.begin(), FItems.end(), bookmark, [&](const TBookmark& left, const TBookmark& right) {
            return dataSet && dataSet->CompareBookmarks(left, right) < 0;
        });
    index = static_cast<int>(place - FItems.begin());
    return dataSet && place != FItems.end() && dataSet->CompareBookmarks(*place, bookmark) == 0;
}

int TBookmarkList::IndexOf(const TBookmark& bookmark) const {
    int index = -1;
    return Find(bookmark, index) ? index : -1;
}

bool TBookmarkList::GetCurrentRowSelected() const {
    if (FItems.empty() || !DataSet())
        return false;
    const TBookmark current = DataSet()->GetBookmark();
    return !current.IsEmpty() && IndexOf(current) >= 0;
}

void TBookmarkList::SetCurrentRowSelected(bool value) {
    if (DataSet())
        SetSelected(DataSet()->GetBookmark(), value);
    FGrid.InvalidateRow(FGrid.FocusCell().Y);
}

void TBookmarkList::SetSelected(const TBookmark& bookmark, bool value) {
    int index = 0;
    if (!DataSet() || bookmark.IsEmpty() || Find(bookmark, index) == value)
        return;
    if (value)
        FItems.insert(FItems.begin() + index, bookmark);
    else
        FItems.erase(FItems.begin() + index);
}

void TBookmarkList::Clear() {
    if (FItems.empty())
        return;
    FItems.clear();
    Changed();
}

void TBookmarkList::Delete() {
    TDataSet* dataSet = DataSet();
    if (!dataSet || FItems.empty())
        return;
    const TLifeGuard alive(FGrid);
    const TLifeGuard dataAlive(*dataSet);
    dataSet->CheckBrowseMode(); // while the grid can still hand over what is being entered
    if (!alive || !dataAlive || !dataSet->GetActive())
        return;
    dataSet->DisableControls();
    try {
        // From the end, so that those that are still to come keep their places.
        while (alive && dataAlive && dataSet->GetActive() && !FItems.empty()) {
            const TBookmark last = FItems.back();
            const bool shows = dataSet->BookmarkShown(last);
            if (shows && alive && dataAlive)
                dataSet->GotoBookmark(last);
            if (shows && alive && dataAlive && dataSet->GetActive())
                dataSet->Delete();
            if (alive)
                std::erase(FItems, last);
        }
    } catch (...) {
        if (dataAlive)
            dataSet->EnableControls();
        throw;
    }
    if (dataAlive)
        dataSet->EnableControls();
}

bool TBookmarkList::Refresh() {
    TDataSet* dataSet = DataSet();
    const unsigned view = dataSet ? dataSet->GetViewNumber() : FView;
    // Handlers that filter are asked meanwhile: they may raise, free the grid or select something else.
    const TLifeGuard alive(FGrid);
    const std::vector<TBookmark> items = FItems;
    std::vector<TBookmark> kept;
    for (auto each = items.begin(); dataSet && each != items.end(); ++each) {
        // Records are there or not after any change, but only another view hides some of them.
        const bool stays = view == FView ? dataSet->BookmarkValid(*each) : dataSet->BookmarkShown(*each);
        if (!alive || dataSet != DataSet())
            return false;
        if (stays)
            kept.push_back(*each);
    }
    if (FItems != items)
        return false; // the next change looks again
    FView = view;
    if (kept.size() == items.size())
        return false;
    FItems = std::move(kept);
    Changed();
    return true;
}

void TBookmarkList::Changed() {
    FGrid.Invalidate();
}

} // namespace framework
