#pragma once

// Named integers of published properties, from a table of values and names:
//
//     constexpr TIdentifier Cursors[] = {{crDefault, u"crDefault"}, {crArrow, u"crArrow"}};
//     const TIdentifiers& CursorIdentifiers() { return IdentifiersOf<Cursors>(); }

#include "framework/system/names.h"
#include "framework/system/published.h"

namespace framework {

struct TIdentifier {
    std::int64_t Value;
    StringView Name;
};

/// The names of a table with static storage. A value is called by the first of its names; all are understood.
template <const auto& Table>
const TIdentifiers& IdentifiersOf() {
    static const TIdentifiers identifiers{[](std::int64_t value) -> std::optional<String> {
                                              for (const TIdentifier& entry : Table) {
                                                  if (entry.Value == value)
                                                      return String(entry.Name);
                                              }
                                              return std::nullopt;
                                          },
                                          [](StringView name) -> std::optional<std::int64_t> {
                                              for (const TIdentifier& entry : Table) {
                                                  if (TNameEqual()(entry.Name, name))
                                                      return entry.Value;
                                              }
                                              return std::nullopt;
                                          },
                                          [] {
                                              std::vector<String> names;
                                              for (const TIdentifier& entry : Table)
                                                  names.emplace_back(entry.Name);
                                              return names;
                                          }};
    return identifiers;
}

} // namespace framework
