#include "framework/db/databaseerrors.h"

#include "framework/system/strings.h"

namespace framework {

EDatabaseServerError::EDatabaseServerError(StringView purpose, std::string_view sqlState, std::int32_t nativeError,
                                           StringView driverText, bool connectionLost)
    : EDatabaseError(u"Cannot " + String(purpose) + u" (SQLSTATE " + AsciiToString(sqlState) + u"): " +
                     String(driverText)),
      FPurpose(purpose), FSqlState(sqlState), FNativeError(nativeError),
      FConnectionLost(connectionLost || sqlState.starts_with("08")) {
}

} // namespace framework
