#pragma once

#include <algorithm>
#include <string_view>

namespace marrowfen {

/// Whether two names differ at most in the case of the letters A to Z, which names of files, tables and fields have.
[[nodiscard]] inline bool same_name(std::string_view a, std::string_view b) {
    constexpr auto small = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; };
    return std::ranges::equal(a, b, {}, small, small);
}

}  // namespace marrowfen
