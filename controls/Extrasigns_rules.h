#pragma once

// The keys of the extra-signs popup and what a click on one does to the text of the field that opened it.

#include "framework/system/types.h"

#include <optional>
#include <span>
#include <vector>

namespace ZOR {
using namespace framework;

/// One key of the popup.
struct KEYDEF {
    char16_t lower = 0;
    char16_t upper = 0; ///< inserted while Shift is held
    TRect rect;         ///< the key's area in the popup's client coordinates
};

inline constexpr int ExtraSignsKeySize = 24; ///< side of a key in pixels at 96 dpi
inline constexpr int ExtraSignsKeysPerRow = 6;
inline constexpr TColor ExtraSignsBackground = 0x6B696B;

/// The side of a key on a screen of another resolution, rounded to the nearest pixel.
int ScaledExtraSignsKeySize(int dpi);

/// The 22 letters of Czech, Slovak and German, laid out six to a row in squares of `keySize` pixels.
std::vector<KEYDEF> ExtraSignKeys(int keySize);

/// The client size of a popup with that many keys. A number of keys that fills its rows exactly leaves an empty row
/// below, except for a single row; this is meant.
TSize ExtraSignsSize(int keyCount, int keySize);

/// The first key at a point; null beside the keys.
const KEYDEF* KeyAt(std::span<const KEYDEF> keys, TPoint point);

/// What a click on the key inserts.
char16_t KeySign(const KEYDEF& key, bool shiftHeld);

struct TSignInsertion {
    String Text;
    std::size_t Caret = 0; ///< just behind the sign; the selection is collapsed there
};

/// The text after a sign was inserted at the start of the selection, or at the end when the selection starts beyond
/// it. Selected text is kept. A selection that starts within a surrogate pair counts from before the pair, so that the
/// character stays whole. Nothing when a positive `lengthLimit`, in UTF-16 units, leaves no room.
std::optional<TSignInsertion> InsertSign(StringView text, std::size_t selectionStart, int lengthLimit, char16_t sign);

} // namespace ZOR
