#pragma once

// The library speaks two languages to the person in front of a field: Polish to Polish users, English to all others.

#include "framework/system/types.h"

namespace ZOR {

using namespace framework;

enum class TMessageLanguage { Polish, English };

/// The language for a user whose default language identifier this is (GetUserDefaultLangID).
constexpr TMessageLanguage MessageLanguage(unsigned short languageIdentifier) {
    constexpr unsigned short polish = 0x0415;
    return languageIdentifier == polish ? TMessageLanguage::Polish : TMessageLanguage::English;
}

/// What a message box says.
struct TMessageText {
    String Text;
    String Caption;
};

} // namespace ZOR
