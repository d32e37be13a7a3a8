#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// What readers take for letters. The form layer asks; `platform/unicode` knows.
namespace marrowfen {

/// The beginning of a text that a box of one line takes: at most so many characters, none that controls a screen or
/// printer, and none of a letter that does not fit as a whole, with its accents or the signs that are joined to it.
[[nodiscard]] std::string fit_for_line(std::string_view text, std::size_t characters);

/// False for a text of blanks and characters that leave no ink.
[[nodiscard]] bool can_be_seen(std::string_view text);

}  // namespace marrowfen
