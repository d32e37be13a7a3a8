#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "core/key_pictures.h"

namespace marrowfen {

/// A picture that the games ask for, and what is on it: a letter or a drawing on a cap, or the drawing of a card.
struct ListedPicture {
    std::string file;            ///< below the folder of pictures, with forward slashes
    std::optional<CapKind> cap;  ///< none: a card
    std::optional<char> letter;  ///< a capital, a small letter or a digit
    std::string drawing;         ///< the name of its source; empty where a letter stands
};

/// The list as a table, from the tool that knows what the games ask for to the one that draws.
[[nodiscard]] std::string as_table(const std::vector<ListedPicture>& pictures);
/// Throws Failure for a file that is no such list, or that asks for nothing.
[[nodiscard]] std::vector<ListedPicture> read_picture_list(const std::filesystem::path& file);

}  // namespace marrowfen
