#pragma once

#include "platform/store.h"

struct sqlite3;

namespace marrowfen {

/// Why the last call on this connection failed, in words for a teacher. Throws std::bad_alloc when memory ran out.
[[nodiscard]] StoreFailure failure_of(sqlite3* connection);

}  // namespace marrowfen
