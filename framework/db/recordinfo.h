#pragma once

// How the record buffers of datasets over recordsets are laid out: this header, and directly behind it one OleVariant
// for each field, with the values that do not come from the recordset: changed and calculated ones.

#include "framework/db/datatypes.h"
#include "framework/db/olevariant.h"

namespace framework {

/// Of a buffer whose row has no bookmark.
constexpr auto bfNA = static_cast<TBookmarkFlag>(4);
/// RecordNumber while nobody has asked for it.
constexpr std::int32_t recordNumberNotTaken = -2;

#pragma pack(push, 1)
struct TRecInfo {
    OleVariant Bookmark; ///< the recordset's
    TBookmarkFlag BookmarkFlag = bfNA;
    std::int32_t RecordStatus = 0; ///< RecordStatusEnum bits
    std::int32_t RecordNumber = recordNumberNotTaken;
};
#pragma pack(pop)
using PRecInfo = TRecInfo*;
static_assert(sizeof(TRecInfo) == 25, "there are no gaps");

} // namespace framework
