#include "framework/windows/columns_rules.h"

#include <algorithm>
#include <cstdlib>
#include <numeric>

namespace framework {

int ColumnsWidth(TColumnExtents columns) {
    return ColumnStart(columns, static_cast<int>(columns.size()));
}

int ColumnStart(TColumnExtents columns, int position) {
    const auto before = columns.first(static_cast<std::size_t>(std::clamp<int>(position, 0, columns.size())));
    return std::accumulate(before.begin(), before.end(), 0,
                           [](int sum, const TColumnExtent& each) { return sum + each.Shown(); });
}

int ColumnPositionAt(TColumnExtents columns, int x) {
    int start = 0;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const int end = start + columns[i].Shown();
        if (x >= start && x < end)
            return static_cast<int>(i);
        start = end;
    }
    return -1;
}

int DividerAt(TColumnExtents columns, int x, int grip) {
    int found = -1;
    int nearest = grip + 1;
    int end = 0;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (!columns[i].Visible)
            continue;
        end += columns[i].Width;
        if (const int distance = std::abs(x - end); distance <= grip && distance <= nearest) {
            nearest = distance;
            found = static_cast<int>(i);
        }
    }
    return found;
}

int FitColumnWidth(int width, int minimum, int maximum) {
    width = std::min(width, std::min(maximum, kGreatestColumnWidth));
    return std::clamp(std::max(width, minimum), kLeastColumnWidth, kGreatestColumnWidth);
}

int FillingWidth(TColumnExtents columns, int position, int available) {
    return std::max(available - (ColumnsWidth(columns) - columns[static_cast<std::size_t>(position)].Shown()), 0);
}

int DropPosition(TColumnExtents columns, int dragged, int x) {
    int start = 0;
    for (int position = 0; position < static_cast<int>(columns.size()); ++position) {
        const TColumnExtent& column = columns[static_cast<std::size_t>(position)];
        if (!column.Visible)
            continue;
        const int middle = start + column.Width / 2;
        if (x < middle)
            return position > dragged ? position - 1 : position;
        start += column.Width;
    }
    return static_cast<int>(columns.size()) - 1;
}

void MovePosition(std::vector<int>& order, int from, int to) {
    const auto first = order.begin();
    if (from < to)
        std::rotate(first + from, first + from + 1, first + to + 1);
    else
        std::rotate(first + to, first + from, first + from + 1);
}

} // namespace framework
