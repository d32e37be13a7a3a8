#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>

namespace marrowfen {

/// The journal of a file: what the file held before a change that may not have come to its end.
[[nodiscard]] std::filesystem::path journal_of(const std::filesystem::path& file);

/// The number of changes that the file had seen when the journal beside it was begun. Nothing: there is no journal, or
/// it does not say.
[[nodiscard]] std::optional<std::uint32_t> changes_before_journal(const std::filesystem::path& file);

/// Whether a journal beside the file was written for it. One that was not, as when a copy was put in the place of a
/// file that a crash had left behind, would be played back all the same and spoil it. True when there is none.
[[nodiscard]] bool journal_belongs(const std::filesystem::path& file, std::uint32_t changes);

/// Takes away whatever the library leaves beside a file.
void remove_journal(const std::filesystem::path& file);

}  // namespace marrowfen
