#include "framework/db/databaseerrors.h"

#include "framework/system/strings.h"

namespace framework {

EDatabaseServerError::EDatabaseServerError(StringView purpose, std::string_view sqlState, std::int32_t nativeError,
                                           StringView driverText)
    : EDatabaseError(u"Cannot " + String(purpose) + u" (SQLSTATE " + AsciiToString(sqlState) + u"): " +
                     String(driverText)),
      FPurpose(purpose), FSqlState(sqlState), FNativeError(nativeError) {
}

} // namespace framework
