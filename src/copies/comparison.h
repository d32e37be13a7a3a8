#pragma once

#include <string>
#include <vector>

#include "copies/copies.h"

namespace marrowfen {

/// What putting a copy back would change, seen from the store as it is now.
struct Comparison {
    std::vector<std::string> pupils_lost;      ///< by name, those who are not in the copy
    std::vector<std::string> pupils_regained;  ///< those who are only in the copy
    std::vector<std::string> pupils_renamed;   ///< the names that they have now
    std::int64_t results_lost = 0;
    std::int64_t results_regained = 0;
    bool other_words = false;  ///< the copy has other words, sentences or games

    [[nodiscard]] bool nothing() const;
    /// A line for each thing that would change, for whoever decides about it. Names beyond the first few are counted.
    [[nodiscard]] std::vector<std::string> lines() const;
};

/// Fails where either can't be read, the reason says which.
[[nodiscard]] Result<Comparison> compare(const std::filesystem::path& store, const std::filesystem::path& copy);

}  // namespace marrowfen
