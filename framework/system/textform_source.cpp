#include "framework/system/textform_source.h"

#include "framework/system/strings.h"

#include <algorithm>

namespace framework {

namespace {

// The upper halves of the code pages. Bytes that a page leaves open stand for the control character of their number,
// as Windows converts them.
constexpr char16_t CentralEuropean[128] = {
    0x20AC, 0x0081, 0x201A, 0x0083, 0x201E, 0x2026, 0x2020, 0x2021, 0x0088, 0x2030, 0x0160, 0x2039, 0x015A,
    0x0164, 0x017D, 0x0179, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014, 0x0098, 0x2122,
    0x0161, 0x203A, 0x015B, 0x0165, 0x017E, 0x017A, 0x00A0, 0x02C7, 0x02D8, 0x0141, 0x00A4, 0x0104, 0x00A6,
    0x00A7, 0x00A8, 0x00A9, 0x015E, 0x00AB, 0x00AC, 0x00AD, 0x00AE, 0x017B, 0x00B0, 0x00B1, 0x02DB, 0x0142,
    0x00B4, 0x00B5, 0x00B6, 0x00B7, 0x00B8, 0x0105, 0x015F, 0x00BB, 0x013D, 0x02DD, 0x013E, 0x017C, 0x0154,
    0x00C1, 0x00C2, 0x0102, 0x00C4, 0x0139, 0x0106, 0x00C7, 0x010C, 0x00C9, 0x0118, 0x00CB, 0x011A, 0x00CD,
    0x00CE, 0x010E, 0x0110, 0x0143, 0x0147, 0x00D3, 0x00D4, 0x0150, 0x00D6, 0x00D7, 0x0158, 0x016E, 0x00DA,
    0x0170, 0x00DC, 0x00DD, 0x0162, 0x00DF, 0x0155, 0x00E1, 0x00E2, 0x0103, 0x00E4, 0x013A, 0x0107, 0x00E7,
    0x010D, 0x00E9, 0x0119, 0x00EB, 0x011B, 0x00ED, 0x00EE, 0x010F, 0x0111, 0x0144, 0x0148, 0x00F3, 0x00F4,
    0x0151, 0x00F6, 0x00F7, 0x0159, 0x016F, 0x00FA, 0x0171, 0x00FC, 0x00FD, 0x0163, 0x02D9};
// From 0xA0 on the Western page agrees with Unicode.
constexpr char16_t Western[32] = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                  0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                  0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                  0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

char16_t FromCodePage(unsigned char byte, TFallbackEncoding encoding) {
    if (byte < 0x80)
        return byte;
    if (encoding == TFallbackEncoding::Windows1250)
        return CentralEuropean[byte - 0x80];
    return byte < 0xA0 ? Western[byte - 0x80] : char16_t{byte};
}

std::string Convert(std::string_view bytes, TFallbackEncoding encoding) {
    String text(bytes.size(), u' ');
    std::transform(bytes.begin(), bytes.end(), text.begin(),
                   [encoding](char byte) { return FromCodePage(static_cast<unsigned char>(byte), encoding); });
    return Utf8Encode(text);
}

[[noreturn]] void Refuse(std::string_view bytes, std::size_t offset, const TParseOptions& options, StringView problem) {
    const TFormPlace place = PlaceOf(bytes, offset);
    throw EFormSyntax(options.FileName, place.Line, place.Column, problem);
}

} // namespace

TFormPlace PlaceOf(std::string_view text, std::size_t offset) {
    const std::string_view before = text.substr(0, offset);
    const std::size_t newline = before.rfind('\n');
    const std::string_view line = newline == before.npos ? before : before.substr(newline + 1);
    const auto startsCharacter = [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0) != 0x80; };
    TFormPlace place{1, 1};
    place.Line += static_cast<std::uint32_t>(std::count(before.begin(), before.end(), '\n'));
    place.Column += static_cast<std::uint32_t>(std::count_if(line.begin(), line.end(), startsCharacter));
    return place;
}

std::string ReadFormSource(std::string_view bytes, const TParseOptions& options, TFormLayout& layout) {
    if (bytes.size() >= std::size_t{1} << 31)
        throw EFormSyntax(options.FileName, 1, 1, u"forms of 2 GiB and more are not read");
    if (bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF"))
        Refuse(bytes, 0, options, u"the text is UTF-16; forms are read as UTF-8");
    layout.ByteOrderMark = bytes.starts_with("\xEF\xBB\xBF");
    if (layout.ByteOrderMark)
        bytes.remove_prefix(3);
    if (const std::size_t nul = bytes.find('\0'); nul != bytes.npos)
        Refuse(bytes, nul, options, u"a NUL byte; the file is damaged or no text in UTF-8");
    if (const std::size_t newline = bytes.find('\n'); newline != bytes.npos)
        layout.LineEnd = newline > 0 && bytes[newline - 1] == '\r' ? TFormLineEnd::CrLf : TFormLineEnd::Lf;

    const std::size_t sound = Utf8SoundLength(bytes);
    if (sound == bytes.size())
        return std::string(bytes);
    if (options.FallbackEncoding == TFallbackEncoding::None || layout.ByteOrderMark)
        Refuse(bytes, sound, options, u"a byte that is not UTF-8; the file may be in a code page");
    layout.CodePage = options.FallbackEncoding;
    return Convert(bytes, options.FallbackEncoding);
}

std::optional<char> ToCodePage(char16_t unit, TFallbackEncoding codePage) {
    for (int byte = unit < 0x80 ? unit : 0x80; byte < 0x100; ++byte) {
        if (FromCodePage(static_cast<unsigned char>(byte), codePage) == unit)
            return static_cast<char>(byte);
    }
    return std::nullopt;
}

} // namespace framework
