#include "framework/graphics/win32.h"

namespace framework {

EOSError::EOSError(DWORD errorCode) : Exception(SysErrorMessage(errorCode)), FErrorCode(errorCode) {
}

String SysErrorMessage(DWORD errorCode) {
    wchar_t buffer[512];
    DWORD length =
        ::FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS | FORMAT_MESSAGE_MAX_WIDTH_MASK,
                         nullptr, errorCode, 0, buffer, static_cast<DWORD>(std::size(buffer)), nullptr);
    while (length > 0 && buffer[length - 1] <= L' ')
        --length;
    if (length > 0)
        return FromWide(buffer, length);
    const std::wstring number = std::to_wstring(errorCode);
    return u"Error " + FromWide(number.c_str(), number.size());
}

void RaiseLastOSError() {
    throw EOSError(::GetLastError());
}

} // namespace framework
