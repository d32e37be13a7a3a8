#pragma once

#include <filesystem>
#include <optional>

#include "platform/sqlite/connection.h"

namespace marrowfen {

/// Whether a file of ours can stand there at all: it exists, is a file, and can be written together with its folder.
[[nodiscard]] std::optional<StoreFailure> check_place(const std::filesystem::path& file);

/// Whether the open file is a store of this program, and not one of a newer version.
[[nodiscard]] std::optional<StoreFailure> check_identity(Connection& connection);

/// Whether all tables, lists and fields are there and the first row of each can be read.
[[nodiscard]] std::optional<StoreFailure> check_tables(Connection& connection);

}  // namespace marrowfen
