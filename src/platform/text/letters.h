#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

/// What readers take for letters, in one place for the forms, the tables and the teacher.
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

/// False for a text of blanks and characters that leave no ink of their own.
[[nodiscard]] bool can_be_seen(std::string_view text);

/// The beginning of a text that a box of one line takes: at most so many letters, none split, and no character that
/// controls a screen or printer.
[[nodiscard]] std::string fit_for_line(std::string_view text, std::size_t letters);

/// In letters as a reader counts them: one with its accents, or with signs that are joined to it, is one.
[[nodiscard]] std::size_t length_in_letters(std::string_view text);

/// The text of a file as UTF-8, without a byte order mark. What is not UTF-8 is taken for the encodings that
/// spreadsheets write: UTF-16 where a byte order mark says so, otherwise that of Western Windows.
[[nodiscard]] std::string as_utf8(std::string bytes);

}  // namespace marrowfen
