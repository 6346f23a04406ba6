#pragma once

// Globally unique identifiers, as keys of records.

#include "framework/system/types.h"

#include <array>
#include <compare>

namespace framework {

/// With the layout of Win32's GUID.
struct TGUID {
    std::uint32_t D1 = 0;
    std::uint16_t D2 = 0;
    std::uint16_t D3 = 0;
    std::array<std::uint8_t, 8> D4{};

    friend auto operator<=>(const TGUID&, const TGUID&) = default;
};

/// {6F9619FF-8B86-D011-B42D-00C04FC964FF}
String GUIDToString(const TGUID& value);
/// With or without the braces, digits in either case; false, and `value` untouched, for anything else.
bool TryStringToGUID(StringView text, TGUID& value);
/// EConvertError for what TryStringToGUID refuses.
TGUID StringToGUID(StringView text);

} // namespace framework
