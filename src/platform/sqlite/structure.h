#pragma once

#include <optional>

#include "platform/sqlite/connection.h"

namespace marrowfen {

/// Makes all tables, lists and indexes that are not there; lists and indexes that are there are made anew. Rows stay.
/// Marks the file as a store of this program. The caller holds the transaction that this belongs to.
[[nodiscard]] std::optional<StoreFailure> make_structure(Connection& connection);

}  // namespace marrowfen
