#include "gallery/report.h"

#include "framework/graphics/win32.h"
#include "framework/system/strings.h"

namespace gallery {

namespace {

bool WriteLine(DWORD which, StringView text) {
    const HANDLE output = GetStdHandle(which);
    if (!output || output == INVALID_HANDLE_VALUE)
        return false;
    const std::string line = Utf8Encode(text) + "\n";
    DWORD written = 0;
    return WriteFile(output, line.data(), static_cast<DWORD>(line.size()), &written, nullptr) != FALSE;
}

} // namespace

bool WriteError(StringView text) {
    return WriteLine(STD_ERROR_HANDLE, text);
}

bool WriteOutput(StringView text) {
    return WriteLine(STD_OUTPUT_HANDLE, text);
}

} // namespace gallery
