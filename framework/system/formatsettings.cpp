#include "framework/system/formatsettings.h"

namespace framework {

TFormatSettings& FormatSettings() {
    static TFormatSettings settings;
    return settings;
}

} // namespace framework
