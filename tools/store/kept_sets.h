#pragma once

#include "content.h"
#include "platform/sqlite/connection.h"

namespace marrowfen {

/// The content with the sets in it that teachers made in this store, which a build never replaces. Of the games a
/// teacher makes only the names, the numbers and which are listed: all else of them is today's, and a game that is new
/// today comes with a free number. Fails where a set can't be read, so that it is not lost.
[[nodiscard]] Result<Content> with_kept_sets(Connection& connection, const Content& content);

}  // namespace marrowfen
