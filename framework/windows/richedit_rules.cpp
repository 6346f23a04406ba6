#include "framework/windows/richedit_rules.h"

#include "framework/system/strings.h"

#include <algorithm>

namespace framework {

namespace {

constexpr std::string_view kUtf8Start = "{\\urtf";
constexpr std::string_view kStart = "{\\rtf";

bool IsAscii(char byte) {
    return static_cast<unsigned char>(byte) < 0x80;
}

} // namespace

bool IsRtf(std::string_view bytes) {
    return bytes.starts_with(kStart);
}

std::string RtfFromUtf8(std::string_view bytes) {
    std::string result;
    result.reserve(bytes.size() + bytes.size() / 8);
    if (bytes.starts_with(kUtf8Start)) {
        bytes.remove_prefix(kUtf8Start.size());
        bytes.remove_prefix(std::min(bytes.find_first_not_of("0123456789"), bytes.size()));
        result = "{\\rtf1\\ansi\\uc1"; // one character stands in for each \u code where that is not understood
    }
    while (!bytes.empty()) {
        const auto ascii =
            static_cast<std::size_t>(std::find_if_not(bytes.begin(), bytes.end(), IsAscii) - bytes.begin());
        result += bytes.substr(0, ascii);
        bytes.remove_prefix(ascii);
        const auto other = static_cast<std::size_t>(std::find_if(bytes.begin(), bytes.end(), IsAscii) - bytes.begin());
        for (const char16_t unit : Utf8Decode(bytes.substr(0, other)))
            result += "\\u" + std::to_string(static_cast<std::int16_t>(unit)) + "?";
        bytes.remove_prefix(other);
    }
    return result;
}

} // namespace framework
