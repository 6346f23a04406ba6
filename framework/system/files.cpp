#include "framework/system/files.h"

#include "framework/system/exceptions.h"
#include "framework/system/strings.h"

#include <filesystem>
#include <fstream>

namespace framework {

std::string ReadFileBytes(const String& fileName) {
    std::ifstream file(std::filesystem::path(fileName), std::ios::binary);
    if (!file)
        throw EFOpenError(u"Cannot open file " + QuotedStr(fileName));
    std::string bytes;
    char block[1 << 16];
    while (file.read(block, sizeof(block)) || file.gcount() > 0)
        bytes.append(block, static_cast<std::size_t>(file.gcount()));
    if (file.bad())
        throw EFOpenError(u"Cannot read file " + QuotedStr(fileName));
    return bytes;
}

} // namespace framework
