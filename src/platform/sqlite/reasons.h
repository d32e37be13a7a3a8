#pragma once

#include "platform/store.h"

struct sqlite3;

namespace marrowfen {

/// Why the last call on this connection failed, in words for a teacher. Throws std::bad_alloc when memory ran out.
[[nodiscard]] StoreFailure failure_of(sqlite3* connection);

/// The same for an `errno` of the system, other than that of a file that is not there.
[[nodiscard]] StoreFailure failure_of_system(int error);

}  // namespace marrowfen
