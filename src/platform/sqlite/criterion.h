#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "platform/sqlite/schema.h"
#include "platform/store.h"

namespace marrowfen {

struct Condition {
    const Field* field = nullptr;
    Value value;  ///< a whole number, or text in its folded form
    bool operator==(const Condition&) const = default;
};

/// What a row must fit: all of these. None: every row fits.
using Criterion = std::vector<Condition>;

/// Reads `field=number` and `field='text'`, joined by `And`. A number is whole and belongs to a field of whole numbers,
/// text to a field of text. nullopt: this can't be understood, so no row fits.
[[nodiscard]] std::optional<Criterion> parse_criterion(std::string_view text, const Source& source);

}  // namespace marrowfen
