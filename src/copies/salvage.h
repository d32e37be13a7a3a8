#pragma once

#include <filesystem>
#include <optional>

#include "copies/copies.h"

namespace marrowfen {

/// What was saved from a damaged store.
struct Salvaged {
    Holdings saved;
    std::int64_t without_a_name = 0;  ///< pupils of whom there are results, but no name any more
    std::int64_t in_two_forms = 0;    ///< rows that the file told twice and not alike; the first form was taken
    bool walked = true;               ///< false: pages were searched one by one, which may bring back what was removed
    bool has_games = true;            ///< false: neither this store nor the copy had whole tables of games and words
};

/// Reads what can be read of the pupils and results in `damaged`, and makes a new store `into` of it, which must not
/// be there yet. Games and words come from the damaged store where they are whole, else from the copy `like`. Nothing
/// is written to `damaged`. On failure there is no new store.
[[nodiscard]] Result<Salvaged> salvage(const std::filesystem::path& damaged, const std::filesystem::path& into,
                                       const std::optional<std::filesystem::path>& like);

}  // namespace marrowfen
