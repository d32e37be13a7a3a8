#pragma once

#include <optional>
#include <string>

#include "platform/sqlite/criterion.h"

namespace marrowfen {

inline constexpr const char* kFoldFunction = "marrowfen_fold";

/// Without a value: no row fits.
using Wanted = std::optional<Criterion>;

/// The rowid (Null in a saved query) and all fields of the rows that fit, in the source's order. Parameters: the
/// criterion's values, then how many rows at most, then how many rows are passed over before.
[[nodiscard]] std::string select_text(const Source& source, const Wanted& wanted);

/// For every row of the source, in its order, whether it fits the one and whether it fits the other. Parameters: the
/// values of the one, then of the other.
[[nodiscard]] std::string comparison_text(const Source& source, const Wanted& one, const Wanted& other);

/// Stores a row. Parameters: all fields in their order, then the folded form of each searched text.
[[nodiscard]] std::string insert_text(const Source& source);

[[nodiscard]] std::string delete_text(const Source& source);  ///< parameter: the rowid

}  // namespace marrowfen
