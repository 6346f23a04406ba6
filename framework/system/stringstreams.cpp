// Lists of texts in streams and files.

#include "framework/system/exceptions.h"
#include "framework/system/files.h"
#include "framework/system/stringlist.h"
#include "framework/system/strings.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>

namespace framework {

namespace {

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";

String FromUtf16(std::string_view bytes, bool bigEndian) {
    if (bytes.size() % 2 != 0)
        throw EConvertError(u"The text ends in the middle of a UTF-16 character");
    String text;
    text.reserve(bytes.size() / 2);
    for (std::size_t i = 0; i < bytes.size(); i += 2) {
        const auto first = static_cast<unsigned char>(bytes[i]);
        const auto second = static_cast<unsigned char>(bytes[i + 1]);
        text += static_cast<char16_t>(bigEndian ? first << 8 | second : second << 8 | first);
    }
    return text;
}

String Decode(std::string_view bytes) {
    if (bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF"))
        return FromUtf16(bytes.substr(2), bytes[0] == '\xFE');
    if (bytes.starts_with(kUtf8Mark))
        bytes.remove_prefix(kUtf8Mark.size());
    String text = Utf8Decode(bytes);
    if (Utf8Encode(text) != bytes) // a malformed sequence became U+FFFD
        throw EConvertError(u"The text is neither UTF-8 nor UTF-16 with a byte order mark");
    return text;
}

} // namespace

void TStrings::LoadFromStream(std::istream& stream) {
    const std::string bytes(std::istreambuf_iterator<char>(stream), {});
    SetTextStr(Decode(bytes));
}

void TStrings::SaveToStream(std::ostream& stream) const {
    const std::string bytes = Utf8Encode(GetTextStr());
    if (!stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size())))
        throw EWriteError(u"The text could not be written");
}

void TStrings::LoadFromFile(const String& fileName) {
    std::istringstream file(ReadFileBytes(fileName), std::ios::binary);
    LoadFromStream(file);
}

void TStrings::SaveToFile(const String& fileName) const {
    std::ofstream file(std::filesystem::path(fileName), std::ios::binary | std::ios::trunc);
    if (!file)
        throw EFCreateError(u"Cannot create file " + QuotedStr(fileName));
    SaveToStream(file);
    file.close();
    if (!file)
        throw EWriteError(u"Cannot write file " + QuotedStr(fileName));
}

} // namespace framework
