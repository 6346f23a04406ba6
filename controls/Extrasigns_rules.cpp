#include "controls/Extrasigns_rules.h"

#include "framework/system/strings.h"

#include <algorithm>
#include <array>

namespace ZOR {

namespace {

struct TSign {
    char16_t Lower;
    char16_t Upper;
};

constexpr std::array<TSign, 22> Signs{{
    {u'\u00E1', u'\u00C1'}, // a acute
    {u'\u00E4', u'\u00C4'}, // a diaeresis
    {u'\u010D', u'\u010C'}, // c caron
    {u'\u010F', u'\u010E'}, // d caron
    {u'\u011B', u'\u011A'}, // e caron
    {u'\u00E9', u'\u00C9'}, // e acute
    {u'\u00ED', u'\u00CD'}, // i acute
    {u'\u013A', u'\u0139'}, // l acute
    {u'\u013E', u'\u013D'}, // l caron
    {u'\u0148', u'\u0147'}, // n caron
    {u'\u00F6', u'\u00D6'}, // o diaeresis
    {u'\u00F4', u'\u00D4'}, // o circumflex
    {u'\u0159', u'\u0158'}, // r caron
    {u'\u0155', u'\u0154'}, // r acute
    {u'\u0161', u'\u0160'}, // s caron
    {u'\u0165', u'\u0164'}, // t caron
    {u'\u00FA', u'\u00DA'}, // u acute
    {u'\u00FC', u'\u00DC'}, // u diaeresis
    {u'\u016F', u'\u016E'}, // u ring
    {u'\u00FD', u'\u00DD'}, // y acute
    {u'\u017E', u'\u017D'}, // z caron
    {u'\u00DF', u'\u00DF'}, // sharp s, which has no capital here
}};

} // namespace

int ScaledExtraSignsKeySize(int dpi) {
    return (ExtraSignsKeySize * dpi + 48) / 96;
}

std::vector<KEYDEF> ExtraSignKeys(int keySize) {
    std::vector<KEYDEF> keys;
    keys.reserve(Signs.size());
    for (const TSign& sign : Signs) {
        const int index = static_cast<int>(keys.size());
        const int column = index % ExtraSignsKeysPerRow;
        const int row = index / ExtraSignsKeysPerRow;
        keys.push_back({sign.Lower, sign.Upper, Bounds(column * keySize, row * keySize, keySize, keySize)});
    }
    return keys;
}

TSize ExtraSignsSize(int keyCount, int keySize) {
    const int rows = keyCount <= ExtraSignsKeysPerRow ? 1 : keyCount / ExtraSignsKeysPerRow + 1;
    return {ExtraSignsKeysPerRow * keySize, rows * keySize};
}

const KEYDEF* KeyAt(std::span<const KEYDEF> keys, TPoint point) {
    const auto found = std::find_if(keys.begin(), keys.end(), [&](const KEYDEF& k) { return k.rect.Contains(point); });
    return found == keys.end() ? nullptr : &*found;
}

char16_t KeySign(const KEYDEF& key, bool shiftHeld) {
    return shiftHeld ? key.upper : key.lower;
}

std::optional<TSignInsertion> InsertSign(StringView text, std::size_t selectionStart, int lengthLimit, char16_t sign) {
    if (lengthLimit > 0 && text.size() >= static_cast<std::size_t>(lengthLimit))
        return std::nullopt;
    std::size_t place = std::min(selectionStart, text.size());
    if (SplitsSurrogates(text, place))
        --place;
    TSignInsertion insertion;
    insertion.Text.reserve(text.size() + 1);
    insertion.Text.append(text.substr(0, place)).append(1, sign).append(text.substr(place));
    insertion.Caret = place + 1;
    return insertion;
}

} // namespace ZOR
