#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace marrowfen {

/// A field's value: Null, a whole number, text, a date, or a time of day as seconds since midnight.
using Value =
    std::variant<std::monostate, std::int64_t, std::string, std::chrono::year_month_day, std::chrono::seconds>;

[[nodiscard]] std::string as_text(const Value& value);    ///< Null: empty; a date or time: ISO form
[[nodiscard]] std::int16_t as_whole(const Value& value);  ///< text is read as a number; anything else, or too large: 0
/// Of exactly the ISO form that `as_text` writes. nullopt: it is not, or there is no such day or time.
[[nodiscard]] std::optional<std::chrono::year_month_day> date_in(std::string_view text);
[[nodiscard]] std::optional<std::chrono::seconds> time_in(std::string_view text);
[[nodiscard]] bool as_flag(const Value& value);  ///< Null and 0 are False

}  // namespace marrowfen
