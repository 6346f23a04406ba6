#include "lists/Zorcombobox_list_rules.h"

#include <algorithm>
#include <numeric>

namespace ZOR {

int ShownRows(int itemCount, int dropDownCount) {
    return std::clamp(itemCount, 0, std::max(dropDownCount, 1));
}

int ChoiceListWidthOn(const TRect& workArea, int needed) {
    return std::min(needed, std::max(workArea.Width() - ChoiceListPlacing.LeftMargin, 0));
}

TRect ChoiceListPlace(const TRect& field, int width, int rowHeight, int rows, const TRect& workArea, bool rightToLeft) {
    const TSize size{width, (rowHeight + 1) * rows};
    TRect place = PopupPlace(field, size, workArea, ChoiceListPlacing, rightToLeft);
    place.Bottom += 2 * ChoiceListBorder;
    return place;
}

int StepRow(int current, int count, int step) {
    if (count <= 0)
        return -1;
    if (current < 0 || (step < 0 && current < 1))
        return 0;
    return StepRows(current, count, step < 0 ? -1 : 1);
}

int StepRows(int current, int count, int step) {
    return count <= 0 ? -1 : std::clamp(std::max(current, 0) + step, 0, count - 1);
}

bool ReadsRightToLeft(StringView text) {
    for (const char16_t unit : text) {
        if ((unit >= 0x0590 && unit <= 0x08FF) || (unit >= 0xFB1D && unit <= 0xFDFF) ||
            (unit >= 0xFE70 && unit <= 0xFEFC))
            return true;
        if ((unit >= u'A' && unit <= u'Z') || (unit >= u'a' && unit <= u'z') || unit >= 0x00C0)
            return false;
    }
    return false;
}

std::array<StringView, 3> SplitRow(StringView text, TTextRange match) {
    if (match.IsEmpty())
        return {text, {}, {}};
    const auto start = static_cast<std::size_t>(match.Start);
    const auto length = static_cast<std::size_t>(match.Length);
    return {text.substr(0, start), text.substr(start, length), text.substr(start + length)};
}

std::array<TRect, 3> LayOutRow(const TRect& row, const std::array<int, 3>& widths, bool flushRight, bool rightToLeft) {
    int left = row.Left + ChoiceRowMargin;
    if (flushRight)
        left = row.Right - ChoiceRowMargin - std::accumulate(widths.begin(), widths.end(), 0);
    std::array<TRect, 3> runs;
    for (std::size_t i = 0; i < runs.size(); ++i) {
        const std::size_t run = rightToLeft ? runs.size() - 1 - i : i;
        runs[run] = {left, row.Top, left + widths[run], row.Bottom};
        left += widths[run];
    }
    return runs;
}

} // namespace ZOR
