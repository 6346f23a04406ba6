#include "framework/system/guids.h"

#include "framework/system/exceptions.h"
#include "framework/system/strings.h"

namespace framework {

namespace {

int HexDigit(char16_t unit) {
    if (unit >= u'0' && unit <= u'9')
        return unit - u'0';
    if (unit >= u'a' && unit <= u'f')
        return unit - u'a' + 10;
    if (unit >= u'A' && unit <= u'F')
        return unit - u'A' + 10;
    return -1;
}

} // namespace

String GUIDToString(const TGUID& value) {
    String text = u"{" + IntToHex(value.D1) + u"-" + IntToHex(value.D2) + u"-" + IntToHex(value.D3) + u"-";
    for (std::size_t i = 0; i < value.D4.size(); ++i) {
        if (i == 2)
            text += u'-';
        text += IntToHex(value.D4[i]);
    }
    return text + u'}';
}

bool TryStringToGUID(StringView text, TGUID& value) {
    if (text.size() == 38 && text.front() == u'{' && text.back() == u'}')
        text = text.substr(1, 36);
    if (text.size() != 36)
        return false;
    std::array<std::uint8_t, 16> bytes{};
    std::size_t digits = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (i == 8 || i == 13 || i == 18 || i == 23) {
            if (text[i] != u'-')
                return false;
            continue;
        }
        const int digit = HexDigit(text[i]);
        if (digit < 0)
            return false;
        bytes[digits / 2] = static_cast<std::uint8_t>(bytes[digits / 2] << 4 | digit);
        ++digits;
    }
    value.D1 = static_cast<std::uint32_t>(bytes[0]) << 24 | bytes[1] << 16 | bytes[2] << 8 | bytes[3];
    value.D2 = static_cast<std::uint16_t>(bytes[4] << 8 | bytes[5]);
    value.D3 = static_cast<std::uint16_t>(bytes[6] << 8 | bytes[7]);
    std::copy(bytes.begin() + 8, bytes.end(), value.D4.begin());
    return true;
}

TGUID StringToGUID(StringView text) {
    TGUID value;
    if (!TryStringToGUID(text, value))
        throw EConvertError(u"'" + String(text) + u"' is not a valid GUID value");
    return value;
}

} // namespace framework
