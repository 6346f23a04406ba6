#include "foundation/Zorpackage.h"

#include "controls/Zoredit.h"

namespace ZOR {

void RegisterPackage() {
    Zoredit::Register();
}

} // namespace ZOR
