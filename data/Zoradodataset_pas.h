#pragma once

// The layout of the record buffers of TZORADODataSet, for programs that look into them. It is that of all datasets over
// recordsets.

#include "framework/db/recordinfo.h"

namespace ZOR {

using framework::PRecInfo;
using framework::TRecInfo;

} // namespace ZOR
