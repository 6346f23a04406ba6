#include "numeric/Zornumericedit.h"

#include "framework/graphics/textmetrics.h"

#include <algorithm>

namespace ZOR {

int NumericMinHeight(const TFont& font) {
    TEXTMETRICW system{};
    {
        const TWindowDC screen(nullptr);
        const TSelectedObject selected(screen, GetStockObject(SYSTEM_FONT));
        GetTextMetricsW(screen, &system);
    }
    const int own = TTextMeasure(font).LineHeight();
    return GetSystemMetrics(SM_CYBORDER) * 4 + std::min(static_cast<int>(system.tmHeight), own) / 4 + own;
}

void SetNumericEditRect(TWinControl& edit, int right, std::optional<int> rightMargin) {
    const HWND window = edit.GetHandle();
    const TRect client = edit.GetClientRect();
    RECT place{};
    SendMessageW(window, EM_GETRECT, 0, reinterpret_cast<LPARAM>(&place));
    place = {0, 0, right, client.Bottom + 1};
    SendMessageW(window, EM_SETRECTNP, 0, reinterpret_cast<LPARAM>(&place));
    if (rightMargin)
        SendMessageW(window, EM_SETMARGINS, EC_RIGHTMARGIN, MAKELPARAM(0, std::clamp(*rightMargin, 0, 0xFFFF)));
    SendMessageW(window, EM_GETRECT, 0, reinterpret_cast<LPARAM>(&place));
}

void TypeDifference(HWND edit, StringView before, StringView after) {
    const std::size_t shorter = std::min(before.size(), after.size());
    std::size_t same = 0;
    while (same < shorter && before[same] == after[same])
        ++same;
    std::size_t sameAtEnd = 0;
    while (sameAtEnd < shorter - same && before[before.size() - 1 - sameAtEnd] == after[after.size() - 1 - sameAtEnd])
        ++sameAtEnd;
    const std::size_t end = before.size() - sameAtEnd;
    const String replacement(after.substr(same, after.size() - sameAtEnd - same));
    if (same == end && replacement.empty())
        return;
    SendMessageW(edit, EM_SETSEL, same, static_cast<LPARAM>(end));
    SendMessageW(edit, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(WideChars(replacement)));
}

} // namespace ZOR
