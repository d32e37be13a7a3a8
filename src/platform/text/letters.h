#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace marrowfen {

enum class Unseen : std::uint8_t {
    Nothing,  ///< all of it can be seen
    Bytes,    ///< some bytes are not UTF-8; text in two bytes a letter shows up as zeros, which count as well
    Control   ///< a control character other than a tab
};
/// The first thing in the text that a person can't see.
[[nodiscard]] Unseen unseen_in(std::string_view text);

/// A name as it is kept: no blanks at its ends, one between two words, no control characters. Empty where nothing that
/// can be seen is left.
[[nodiscard]] std::string tidied(std::string_view name);

[[nodiscard]] std::size_t length_in_characters(std::string_view text);  ///< of UTF-8, in code points

/// The text of a file as UTF-8, without a byte order mark. What is not UTF-8 is taken for the encodings that
/// spreadsheets write: UTF-16 where a byte order mark says so, otherwise that of Western Windows.
[[nodiscard]] std::string as_utf8(std::string bytes);

}  // namespace marrowfen
