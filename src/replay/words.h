#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/store.h"

namespace marrowfen {

/// In double quotes; a quote, a backslash and control characters are escaped.
[[nodiscard]] std::string in_quotes(std::string_view text);

/// A field's value: `-` for Null, a number, a quoted text, `d2026-03-09` or `t36300` (seconds since midnight).
[[nodiscard]] std::string to_word(const Value& value);
[[nodiscard]] std::optional<Value> to_value(std::string_view word);

/// The words of a line, from left to right. A quoted text is one word.
class Words {
public:
    explicit Words(std::string_view line) : rest_(line) {}
    [[nodiscard]] bool at_end();
    [[nodiscard]] std::string take();                         ///< quotes stay; empty at the end
    [[nodiscard]] std::optional<std::string> take_quoted();   ///< without its quotes and escapes
    [[nodiscard]] std::optional<std::int64_t> take_number();  ///< whole, in decimal

private:
    std::string_view rest_;
};

[[nodiscard]] std::optional<std::int64_t> to_number(std::string_view word);

}  // namespace marrowfen
