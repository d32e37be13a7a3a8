#pragma once

#include <filesystem>
#include <optional>

#include "platform/sqlite/connection.h"

namespace marrowfen {

/// Whether a file of ours can stand there at all: it exists, is a file, and can be written together with its folder.
[[nodiscard]] std::optional<StoreFailure> check_place(const std::filesystem::path& file);

/// Whether the first bytes of the open file are those of a store, and a journal beside it, if there is one, is its own.
/// To be asked before anything else is: the first question plays the journal back into the file.
[[nodiscard]] std::optional<StoreFailure> check_head(Connection& connection, const std::filesystem::path& file);

/// Whether the open file is a store of this program, and not one of a newer version.
[[nodiscard]] std::optional<StoreFailure> check_identity(Connection& connection);

/// Whether all tables, lists and fields are there and the first row of each can be read.
[[nodiscard]] std::optional<StoreFailure> check_tables(Connection& connection);

/// Whether all tables, lists and indexes are those that this version of the program makes.
[[nodiscard]] std::optional<StoreFailure> check_structure(Connection& connection);

/// Whether every row is whole and stands in every index just so. Reads the whole file, and nobody else can write
/// meanwhile.
[[nodiscard]] std::optional<StoreFailure> check_integrity(Connection& connection);

/// All of it, for a file that nobody is going to write to, as a copy is.
[[nodiscard]] std::optional<StoreFailure> check_copy(const std::filesystem::path& file);

}  // namespace marrowfen
