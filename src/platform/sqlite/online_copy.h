#pragma once

#include <optional>
#include <stop_token>

#include "platform/sqlite/connection.h"

namespace marrowfen {

/// Copies all of an open store into another file, while others go on reading and writing: each holds still for a
/// fraction of a second at most. What `to` held is gone. Fails, too, when it is asked to stop, or when others write so
/// often that it can't come to an end; then `to` is not to be used.
[[nodiscard]] std::optional<StoreFailure> copy_online(Connection& from, Connection& to, const std::stop_token& stop);

}  // namespace marrowfen
